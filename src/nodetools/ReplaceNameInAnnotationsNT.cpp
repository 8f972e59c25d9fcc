#include "nodetools/ReplaceNameInAnnotationsNT.h"

#include "nodetools/ReplaceNameBlockProcessor.h"

namespace {
ReplaceNameBlockProcessor& processorOf(ObjectBlockProcessor& processor)
{
    return static_cast<ReplaceNameBlockProcessor&>(processor);
}
} // namespace

ReplaceNameInAnnotationsNT::ReplaceNameInAnnotationsNT()
    : BlockNodeTool(std::make_unique<ReplaceNameBlockProcessor>())
{
    // Links to a node can stand in any document, not only in the chosen ones.
    SetAllAnnotationFiles(true);
}

void ReplaceNameInAnnotationsNT::SetNodesMap(QMap<int, NodeInfo*>* nodesMap)
{
    nodes = nodesMap;
    processorOf(BlockProcessor()).nodes = nodesMap;
}

void ReplaceNameInAnnotationsNT::SetIgnorePathOnCompare(bool ignore)
{
    ignorePathOnCompare = ignore;
    processorOf(BlockProcessor()).ignorePathOnCompare = ignore;
}
