#ifndef KAMO_TOOLS_DUPLICATEHREFBLOCKPROCESSOR_H
#define KAMO_TOOLS_DUPLICATEHREFBLOCKPROCESSOR_H

#include "kamo_tools_export.h"
#include "nodetools/ObjectBlockProcessor.h"

/// Gives each object of the chosen category a copy of its first standard
/// HREF line, pointing at `newLinkTarget`, right after the original.
class KAMO_TOOLS_EXPORT DuplicateHREFBlockProcessor : public ObjectBlockProcessor
{
public:
    void ProcessBlock(const QStringList& block, QStringList& result) override;

    QString categoryFilter; ///< empty: every object
    /// The path of the copy's target document.
    QString newLinkTarget;
};

#endif
