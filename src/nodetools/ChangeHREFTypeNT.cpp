#include "nodetools/ChangeHREFTypeNT.h"

#include "nodetools/ChangeHREFTypeBlockProcessor.h"

namespace {
ChangeHREFTypeBlockProcessor& processorOf(ObjectBlockProcessor& processor)
{
    return static_cast<ChangeHREFTypeBlockProcessor&>(processor);
}
} // namespace

ChangeHREFTypeNT::ChangeHREFTypeNT()
    : BlockNodeTool(std::make_unique<ChangeHREFTypeBlockProcessor>())
{ }

void ChangeHREFTypeNT::SetCategoryFilter(const QString& filter)
{
    categoryFilter = filter;
    processorOf(BlockProcessor()).categoryFilter = filter;
}

void ChangeHREFTypeNT::SetNodesMap(QMap<int, NodeInfo*>* nodes)
{
    nodesMap = nodes;
    processorOf(BlockProcessor()).nodes = nodes;
}

void ChangeHREFTypeNT::SetFilesMap(QMap<QString, NodeFileInfo>* files)
{
    filesMap = files;
    processorOf(BlockProcessor()).files = files;
}
