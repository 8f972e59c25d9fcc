#include "NodeFileInfo.h"

NodeFileInfo::NodeFileInfo(const QString& fileName, int nodeId, int zone, int index)
    : fileName(fileName)
    , nodeId(nodeId)
    , zone(zone)
    , index(index)
{ }
