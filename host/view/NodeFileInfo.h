#ifndef KAMO_VIEW_NODEFILEINFO_H
#define KAMO_VIEW_NODEFILEINFO_H

#include "kamo_view_export.h"

#include <QString>

// Where a document of the project is filed: its node, the zone whose list
// holds it and its position in that list. The host's files map is keyed by
// the document's file name.
class KAMO_VIEW_EXPORT NodeFileInfo
{
public:
    NodeFileInfo() = default;
    NodeFileInfo(const QString& fileName, int nodeId, int zone, int index);

    const QString& FileName() const { return fileName; }
    int NodeId() const { return nodeId; }
    int Zone() const { return zone; }
    int Index() const { return index; } // 0-based, within the zone's list

private:
    QString fileName;
    int nodeId = 0;
    int zone = 0;
    int index = -1;
};

#endif
