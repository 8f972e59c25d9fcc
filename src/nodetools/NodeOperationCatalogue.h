#ifndef KAMO_TOOLS_NODEOPERATIONCATALOGUE_H
#define KAMO_TOOLS_NODEOPERATIONCATALOGUE_H

#include "kamo_tools_export.h"

#include <QString>

#include <memory>

class NodeTool;
struct NodeOperationOptions;

/// The node-tool operations, once for every caller: their numbers (the
/// node-tools dialog's, written into the backup log), their names on the
/// command line, what options each takes and the ranges of those, and the
/// tool that carries each out, configured from NodeOperationOptions.
class KAMO_TOOLS_EXPORT NodeOperationCatalogue
{
public:
    /// The operations by the number the dialog and the backup log give them.
    enum Operation {
        MatchNames = 0,
        RemoveHREF = 1,
        DuplicateHREF = 2,
        HREFToSplit = 3,
        ConvertPins = 4,
        MapHREFPaths = 5,
        SetProperties = 6,
        Analyze = 7,
        HREFToStandard = 8,
        ModifyTargets = 9,
        ChangePages = 10,
    };
    static constexpr int Count = 11; ///< operations 0 to Count - 1

    /// What an operation takes besides its files, as Options() answers.
    enum Option {
        CategoryFilter = 1 << 0, ///< NodeOperationOptions::categoryFilter
        NameFilter = 1 << 1,     ///< NodeOperationOptions::nameFilter
        NewLinkTarget = 1 << 2,  ///< required
        PathMap = 1 << 3,        ///< required
        IgnorePath = 1 << 4,     ///< NodeOperationOptions::ignorePathOnCompare
        TargetZone = 1 << 5,     ///< NodeOperationOptions::targetZone
        TargetOptions = 1 << 6,  ///< target index and environment factor
        PageDelta = 1 << 7,      ///< required
        Properties = 1 << 8,     ///< name, text or dimensions; one required
        AllFilesOnly = 1 << 9,   ///< works on every annotation file, never on chosen documents
        NeedsNodes = 1 << 10,    ///< needs the host's nodes (and files or pins)
        UsesNodes = 1 << 11,     ///< uses the host's nodes and files where there are any
        WritesFiles = 1 << 12,   ///< a block-based tool: changes files, has a dry run and a preview
    };

    /// The option flags of `operation`; 0 for a number that is none.
    static int Options(int operation);
    /// The operation's name on the command line ("remove-href"), empty for none.
    static QString Name(int operation);
    /// The operation of a command-line name; -1 for none.
    static int FromName(const QString& name);

    /// The tool for `operation` with `options` applied, ready for its
    /// progress callback and Execute(); null for a number that is none.
    /// Category and name filters reach only the operations that take them.
    static std::unique_ptr<NodeTool> Create(int operation, const NodeOperationOptions& options);

    /// The ranges the dialog's fields allow and the command line checks.
    ///@{
    static constexpr int MaxTargetZone = 4;        ///< 0 (the node's own) to 4
    static constexpr unsigned MaxTargetIndex = 99; ///< 0 to 99
    static constexpr double MaxEnvFactor = 9.9;    ///< 0.0 to 9.9, one decimal
    static constexpr int EnvFactorDecimals = 1;    ///< decimals of the factor
    static constexpr int MaxPageDelta = 99;        ///< -99 to 99
    ///@}
};

#endif
