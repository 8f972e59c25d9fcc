#include "NodeInfo.h"

NodeInfo::NodeInfo(int id, const QString& name, int parentId)
    : ItemInfo(Kind::Node, id, name)
    , parentId(parentId)
{ }

NodeInfo::~NodeInfo() = default;

void NodeInfo::GetFilesForZone(int zone, QStringList& files) const
{
    files.append(documents.value(zone));
}
