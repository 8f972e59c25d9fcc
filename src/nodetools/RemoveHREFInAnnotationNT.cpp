#include "nodetools/RemoveHREFInAnnotationNT.h"

#include "nodetools/RemoveHREFBlockProcessor.h"

RemoveHREFInAnnotationNT::RemoveHREFInAnnotationNT()
    : BlockNodeTool(std::make_unique<RemoveHREFBlockProcessor>())
{ }

void RemoveHREFInAnnotationNT::SetCategoryFilter(const QString& filter)
{
    categoryFilter = filter;
    static_cast<RemoveHREFBlockProcessor&>(BlockProcessor()).categoryFilter = filter;
}
