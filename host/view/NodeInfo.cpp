#include "NodeInfo.h"

NodeInfo::NodeInfo(int id, const QString& name, int parentId)
    : id(id)
    , parentId(parentId)
    , name(name)
{ }

NodeInfo::~NodeInfo() = default;

void NodeInfo::GetFilesForZone(int zone, QStringList& files) const
{
    files.append(documents.value(zone));
}
