#ifndef KAMO_TOOLS_CHANGEHREFTYPENT_H
#define KAMO_TOOLS_CHANGEHREFTYPENT_H

#include "kamo_tools_export.h"
#include "nodetools/BlockNodeTool.h"

#include <Kamo_view/NodeFileInfo.h>
#include <Kamo_view/NodeInfo.h>

#include <QMap>
#include <QString>

/// "HREF: Typänderung Standard -> Split": turns standard links into split
/// links, spread over the zones of the target document's node.
class KAMO_TOOLS_EXPORT ChangeHREFTypeNT : public BlockNodeTool
{
public:
    ChangeHREFTypeNT();

    /// Chooses the objects of one category ("KA=" line, compared exactly); empty chooses all.
    void SetCategoryFilter(const QString& filter);
    /// The host's project maps, borrowed for the tool's lifetime; null: none.
    ///@{
    void SetNodesMap(QMap<int, NodeInfo*>* nodes);
    void SetFilesMap(QMap<QString, NodeFileInfo>* files);
    ///@}

private:
    QString categoryFilter;
    QMap<int, NodeInfo*>* nodesMap = nullptr;
    QMap<QString, NodeFileInfo>* filesMap = nullptr;
};

#endif
