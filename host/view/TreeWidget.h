#ifndef KAMO_VIEW_TREEWIDGET_H
#define KAMO_VIEW_TREEWIDGET_H

#include "kamo_view_export.h"

#include <QHash>
#include <QIcon>
#include <QList>
#include <QMap>
#include <QTreeWidget>

class GalleryInfo;
class ItemInfo;
class NodeInfo;
class ParticipantInfo;
class TableInfo;

/// The project tree of the host's main window. Its items carry borrowed
/// ItemInfo records; items without one are plain folders that group records
/// of one kind.
class KAMO_VIEW_EXPORT TreeWidget : public QTreeWidget
{
    Q_OBJECT

public:
    /// Creates an empty tree.
    explicit TreeWidget(QWidget* parent = nullptr);
    ~TreeWidget() override;

    /// Adds an item showing `info` under `parent` (top level when null).
    QTreeWidgetItem* AddItem(ItemInfo* info, QTreeWidgetItem* parent = nullptr);
    /// Adds a folder item that carries no record.
    QTreeWidgetItem* AddFolder(const QString& caption, QTreeWidgetItem* parent = nullptr);

    /// The record an item carries; null for folders and foreign items.
    static ItemInfo* GetItemInfo(const QTreeWidgetItem* item);
    /// The item carrying \p info; null when there is none.
    QTreeWidgetItem* FindItem(const ItemInfo* info) const;

    /// Rebuilds the whole tree: the nodes in `nodeOrder` under their parents
    /// (a node whose parent is unknown goes to the top level), then a folder
    /// for each non-empty map of the other records, by ascending id.
    void ShowProject(const QMap<int, NodeInfo*>& nodes, const QList<int>& nodeOrder,
        const QMap<int, TableInfo*>& tables = {}, const QMap<int, ParticipantInfo*>& participants = {},
        const QMap<int, GalleryInfo*>& galleries = {});

protected:
    /// On a change of style, items added from then on get that style's icons.
    void changeEvent(QEvent* event) override;

private:
    // Without a parent the item is left outside the tree, so that a whole
    // project goes in with one insertion.
    QTreeWidgetItem* makeItem(ItemInfo* info, QTreeWidgetItem* parent);
    QTreeWidgetItem* makeFolder(const QString& caption, QTreeWidgetItem* parent);
    const QIcon& icon(int standardPixmap);

    // The style reads its image files again for every icon it makes, and
    // each copy keeps its own pixels: one icon per kind serves all items.
    QHash<int, QIcon> icons;
};

#endif
