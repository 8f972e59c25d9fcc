#include "nodetools/ModifyAnnotationTargetsNT.h"

#include "nodetools/ModifyAnnotationTargetsBlockProcessor.h"

namespace {
ModifyAnnotationTargetsBlockProcessor& processorOf(ObjectBlockProcessor& processor)
{
    return static_cast<ModifyAnnotationTargetsBlockProcessor&>(processor);
}
} // namespace

ModifyAnnotationTargetsNT::ModifyAnnotationTargetsNT()
    : BlockNodeTool(std::make_unique<ModifyAnnotationTargetsBlockProcessor>())
{ }

void ModifyAnnotationTargetsNT::SetCategoryFilter(const QString& filter)
{
    categoryFilter = filter;
    processorOf(BlockProcessor()).categoryFilter = filter;
}

void ModifyAnnotationTargetsNT::SetNameFilter(const QString& regex)
{
    nameFilter = regex;
    processorOf(BlockProcessor()).nameFilter = regex;
}

void ModifyAnnotationTargetsNT::SetUseTargetIndexFilter(bool use)
{
    useTargetIndexFilter = use;
    processorOf(BlockProcessor()).useTargetIndexFilter = use;
}

void ModifyAnnotationTargetsNT::SetTargetIndex(unsigned index)
{
    targetIndex = index;
    processorOf(BlockProcessor()).targetIndex = index;
}

void ModifyAnnotationTargetsNT::SetUseEnvFactor(bool use)
{
    useEnvFactor = use;
    processorOf(BlockProcessor()).useEnvFactor = use;
}

void ModifyAnnotationTargetsNT::SetEnvFactor(float factor)
{
    envFactor = factor;
    processorOf(BlockProcessor()).envFactor = factor;
}
