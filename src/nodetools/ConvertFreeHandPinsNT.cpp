#include "nodetools/ConvertFreeHandPinsNT.h"

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

void ConvertFreeHandPinsNT::SetFileNames(const QStringList& names)
{
    BlockNodeTool::SetFileNames(names);
    processorOf(BlockProcessor()).fileNames = names;
}
