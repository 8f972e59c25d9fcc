#include "nodetools/DuplicateHREFInAnnotationsNT.h"

#include "nodetools/DuplicateHREFBlockProcessor.h"

namespace {
DuplicateHREFBlockProcessor& processorOf(ObjectBlockProcessor& processor)
{
    return static_cast<DuplicateHREFBlockProcessor&>(processor);
}
} // namespace

DuplicateHREFInAnnotationsNT::DuplicateHREFInAnnotationsNT()
    : BlockNodeTool(std::make_unique<DuplicateHREFBlockProcessor>())
{ }

void DuplicateHREFInAnnotationsNT::SetCategoryFilter(const QString& filter)
{
    categoryFilter = filter;
    processorOf(BlockProcessor()).categoryFilter = filter;
}

void DuplicateHREFInAnnotationsNT::SetNewLinkTarget(const QString& target)
{
    newLinkTarget = target;
    processorOf(BlockProcessor()).newLinkTarget = target;
}
