#include "nodetools/ChangeHREFTypeToStandardNT.h"

#include "nodetools/ChangeHREFTypeToStandardBlockProcessor.h"

namespace {
ChangeHREFTypeToStandardBlockProcessor& processorOf(ObjectBlockProcessor& processor)
{
    return static_cast<ChangeHREFTypeToStandardBlockProcessor&>(processor);
}
} // namespace

ChangeHREFTypeToStandardNT::ChangeHREFTypeToStandardNT()
    : BlockNodeTool(std::make_unique<ChangeHREFTypeToStandardBlockProcessor>())
{ }

void ChangeHREFTypeToStandardNT::SetCategoryFilter(const QString& filter)
{
    categoryFilter = filter;
    processorOf(BlockProcessor()).categoryFilter = filter;
}

void ChangeHREFTypeToStandardNT::SetTargetZone(int zone)
{
    targetZone = zone;
    processorOf(BlockProcessor()).targetZone = zone;
}

void ChangeHREFTypeToStandardNT::SetNodesMap(QMap<int, NodeInfo*>* nodes)
{
    nodesMap = nodes;
    processorOf(BlockProcessor()).nodes = nodes;
}

void ChangeHREFTypeToStandardNT::SetFilesMap(QMap<QString, NodeFileInfo>* files)
{
    filesMap = files;
    processorOf(BlockProcessor()).files = files;
}
