#ifndef KAMO_VIEW_NODEFILEINFO_H
#define KAMO_VIEW_NODEFILEINFO_H

#include "kamo_view_export.h"

#include <QString>

/// Where a document of the project is filed: its node, the zone whose list
/// holds it and its position in that list. The host's files map is keyed by
/// the document's file name.
class KAMO_VIEW_EXPORT NodeFileInfo
{
public:
    /// An empty entry (node 0, zone 0).
    NodeFileInfo() = default;
    /// The document \p fileName at position \p index (0-based) of the list of zone \p zone of node \p nodeId.
    NodeFileInfo(const QString& fileName, int nodeId, int zone, int index);

    /// The document's file name, its node, its zone and its position (0-based) in that zone's list.
    ///@{
    const QString& FileName() const { return fileName; }
    int NodeId() const { return nodeId; }
    int Zone() const { return zone; }
    int Index() const { return index; }
    ///@}

private:
    QString fileName;
    int nodeId = 0;
    int zone = 0;
    int index = -1;
};

#endif
