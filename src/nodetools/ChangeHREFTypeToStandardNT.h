#ifndef KAMO_TOOLS_CHANGEHREFTYPETOSTANDARDNT_H
#define KAMO_TOOLS_CHANGEHREFTYPETOSTANDARDNT_H

#include "kamo_tools_export.h"
#include "nodetools/BlockNodeTool.h"

#include <Kamo_view/NodeFileInfo.h>
#include <Kamo_view/NodeInfo.h>

#include <QMap>
#include <QString>

/// "HREF: Typänderung Split -> Standard": replaces each split link by the
/// standard links of its targets in one zone.
class KAMO_TOOLS_EXPORT ChangeHREFTypeToStandardNT : public BlockNodeTool
{
public:
    ChangeHREFTypeToStandardNT();

    /// Chooses the objects of one category ("KA=" line, compared exactly); empty chooses all.
    void SetCategoryFilter(const QString& filter);
    /// 1..4; 0: the zone the node of each file's document is shown in.
    void SetTargetZone(int zone);
    /// The host's project maps, borrowed for the tool's lifetime; null: none.
    ///@{
    void SetNodesMap(QMap<int, NodeInfo*>* nodes);
    void SetFilesMap(QMap<QString, NodeFileInfo>* files);
    ///@}

private:
    QString categoryFilter;
    int targetZone = 0;
    QMap<int, NodeInfo*>* nodesMap = nullptr;
    QMap<QString, NodeFileInfo>* filesMap = nullptr;
};

#endif
