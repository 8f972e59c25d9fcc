#ifndef KAMO_TOOLS_DUPLICATEHREFBLOCKPROCESSOR_H
#define KAMO_TOOLS_DUPLICATEHREFBLOCKPROCESSOR_H

#include "nodetools/ObjectBlockProcessor.h"

/// Gives each object of the chosen category a copy of its first standard
/// HREF line, pointing at `newLinkTarget`, right after the original.
class DuplicateHREFBlockProcessor : public ObjectBlockProcessor
{
public:
    void ProcessBlock(const QStringList& block, QStringList& result) override;

    QString categoryFilter; ///< empty: every object
    /// The path of the copy's target document.
    QString newLinkTarget;
};

#endif
