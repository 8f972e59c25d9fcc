#ifndef KAMO_TOOLS_REMOVEHREFBLOCKPROCESSOR_H
#define KAMO_TOOLS_REMOVEHREFBLOCKPROCESSOR_H

#include "nodetools/ObjectBlockProcessor.h"

/// Deletes every HREF line of the objects in the chosen category.
class RemoveHREFBlockProcessor : public ObjectBlockProcessor
{
public:
    void ProcessBlock(const QStringList& block, QStringList& result) override;

    QString categoryFilter; ///< empty: every object
};

#endif
