#ifndef KAMO_TOOLS_NODEOPERATIONOPTIONS_H
#define KAMO_TOOLS_NODEOPERATIONOPTIONS_H

#include "kamo_tools_export.h"
#include "nodetools/AnnotationDimensionOptions.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

class NodeFileInfo;
class NodeInfo;
class PinObject;

/// Everything a node-tool operation is run with: the files, the host's data
/// and each operation's options (see NodeOperationCatalogue::Create). An
/// operation reads only the fields it takes, as NodeOperationCatalogue::Options
/// lists them.
struct KAMO_TOOLS_EXPORT NodeOperationOptions {
    /// The project root; its annotation files are in "Daten" below it.
    QString projectRootDir;
    /// The documents whose annotation files are worked on, as the host names
    /// them (file names, folders ignored).
    QStringList documents;
    /// Instead of `documents`: every annotation file of the data folder, or,
    /// for the pin conversion, every document that has pins.
    bool allFiles = false;
    /// Process and count, but write nothing (block-based operations only).
    bool dryRun = false;

    /// The host's nodes, documents and hand-set pins; borrowed, may be null
    /// where the operation does not need them.
    ///@{
    QMap<int, NodeInfo*>* nodes = nullptr;
    QMap<QString, NodeFileInfo>* files = nullptr;
    QMap<QString, QMap<int, QList<PinObject>>>* pins = nullptr;
    ///@}

    /// Only objects whose category ("KA") is exactly this; empty for all.
    QString categoryFilter;
    /// Only objects whose name ("NA") contains a match; empty for all.
    QString nameFilter;
    /// Bezeichnungen abgleichen: compare file names only.
    bool ignorePathOnCompare = false;
    /// HREF duplizieren: the target path of the copied link.
    QString newLinkTarget;
    /// HREF Pfad ändern: old path to new path, both lower case (LoadHREFPathMap).
    QMap<QString, QString> pathMap;
    /// Eigenschaften setzen: what to set, and to what.
    ///@{
    bool setName = false;
    QString name;
    bool setText = false;
    QString text;
    bool setDimensions = false;
    AnnotationDimensionOptions dimensions;
    ///@}
    /// Split -> Standard: the zone to keep, 1-4, or 0 for the node's own.
    int targetZone = 0;
    /// Ziel anpassen: the target filter and the environment factor.
    ///@{
    bool useTargetIndex = false;
    unsigned targetIndex = 0;
    bool useEnvFactor = false;
    float envFactor = 1.0f;
    ///@}
    /// Seitenzahl anpassen: pages to add (negative to subtract).
    int pageDelta = 0;
};

#endif
