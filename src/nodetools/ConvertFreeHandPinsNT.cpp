#include "nodetools/ConvertFreeHandPinsNT.h"

#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/ConvertFreeHandPinsBlockProcessor.h"

namespace {
ConvertFreeHandPinsBlockProcessor& processorOf(ObjectBlockProcessor& processor)
{
    return static_cast<ConvertFreeHandPinsBlockProcessor&>(processor);
}
} // namespace

ConvertFreeHandPinsNT::ConvertFreeHandPinsNT()
    : BlockNodeTool(std::make_unique<ConvertFreeHandPinsBlockProcessor>())
{ }

void ConvertFreeHandPinsNT::SetFilesPinMap(QMap<QString, QMap<int, QList<PinObject>>>* pins)
{
    filesPinMap = pins;
    processorOf(BlockProcessor()).filesPinMap = pins;
}

void ConvertFreeHandPinsNT::Execute()
{
    processorOf(BlockProcessor()).fileNames = FileProcessor().GetFileNames();
    BlockNodeTool::Execute();
}
