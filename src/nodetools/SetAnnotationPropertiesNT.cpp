#include "nodetools/SetAnnotationPropertiesNT.h"

#include "nodetools/SetPropertiesBlockProcessor.h"

namespace {
SetPropertiesBlockProcessor& processorOf(ObjectBlockProcessor& processor)
{
    return static_cast<SetPropertiesBlockProcessor&>(processor);
}
} // namespace

SetAnnotationPropertiesNT::SetAnnotationPropertiesNT()
    : BlockNodeTool(std::make_unique<SetPropertiesBlockProcessor>())
{ }

void SetAnnotationPropertiesNT::SetCategoryFilter(const QString& filter)
{
    categoryFilter = filter;
    processorOf(BlockProcessor()).categoryFilter = filter;
}

void SetAnnotationPropertiesNT::SetNameFilter(const QString& regex)
{
    nameFilter = regex;
    processorOf(BlockProcessor()).nameFilter = regex;
}

void SetAnnotationPropertiesNT::SetNameOption(bool set, const QString& newName)
{
    setName = set;
    name = newName;
    processorOf(BlockProcessor()).setName = set;
    processorOf(BlockProcessor()).name = newName;
}

void SetAnnotationPropertiesNT::SetTextOption(bool set, const QString& newText)
{
    setText = set;
    text = newText;
    processorOf(BlockProcessor()).setText = set;
    processorOf(BlockProcessor()).text = newText;
}

void SetAnnotationPropertiesNT::SetDimensionOption(bool set, const AnnotationDimensionOptions& options)
{
    setDimensions = set;
    dimensions = options;
    processorOf(BlockProcessor()).setDimensions = set;
    processorOf(BlockProcessor()).dimensions = options;
}
