#include "nodetools/ChangePageNumberNT.h"

#include "nodetools/ChangePageNumberBlockProcessor.h"

namespace {
ChangePageNumberBlockProcessor& processorOf(ObjectBlockProcessor& processor)
{
    return static_cast<ChangePageNumberBlockProcessor&>(processor);
}
} // namespace

ChangePageNumberNT::ChangePageNumberNT()
    : BlockNodeTool(std::make_unique<ChangePageNumberBlockProcessor>())
{ }

void ChangePageNumberNT::SetCategoryFilter(const QString& filter)
{
    categoryFilter = filter;
    processorOf(BlockProcessor()).categoryFilter = filter;
}

void ChangePageNumberNT::SetNameFilter(const QString& regex)
{
    nameFilter = regex;
    processorOf(BlockProcessor()).nameFilter = regex;
}

void ChangePageNumberNT::SetPageDelta(int delta)
{
    pageDelta = delta;
    processorOf(BlockProcessor()).pageDelta = delta;
}
