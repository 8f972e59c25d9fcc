#include "TreeWidget.h"

#include "GalleryInfo.h"
#include "NodeInfo.h"
#include "ParticipantInfo.h"
#include "TableInfo.h"

#include <QApplication>
#include <QHeaderView>
#include <QStyle>

namespace {

constexpr int InfoRole = Qt::UserRole + 1;

QStyle::StandardPixmap iconFor(ItemInfo::Kind kind)
{
    switch (kind) {
    case ItemInfo::Kind::Node:
        return QStyle::SP_DirIcon;
    case ItemInfo::Kind::Table:
        return QStyle::SP_FileDialogDetailedView;
    case ItemInfo::Kind::Participant:
        return QStyle::SP_DialogYesButton;
    case ItemInfo::Kind::Gallery:
        return QStyle::SP_FileDialogContentsView;
    }
    return QStyle::SP_FileIcon;
}

template <typename Record> void addFolder(TreeWidget* tree, const QString& caption, const QMap<int, Record*>& records)
{
    if (records.isEmpty())
        return;
    QTreeWidgetItem* folder = tree->AddFolder(caption);
    for (Record* record : records)
        tree->AddItem(record, folder);
}

} // namespace

TreeWidget::TreeWidget(QWidget* parent)
    : QTreeWidget(parent)
{
    setColumnCount(1);
    setHeaderLabel(QStringLiteral("Projekt"));
    header()->setStretchLastSection(true);
}

TreeWidget::~TreeWidget() = default;

QTreeWidgetItem* TreeWidget::AddItem(ItemInfo* info, QTreeWidgetItem* parent)
{
    auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
    item->setText(0, info->Name());
    item->setIcon(0, style()->standardIcon(iconFor(info->GetKind())));
    item->setData(0, InfoRole, QVariant::fromValue(static_cast<void*>(info)));
    return item;
}

QTreeWidgetItem* TreeWidget::AddFolder(const QString& caption, QTreeWidgetItem* parent)
{
    auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
    item->setText(0, caption);
    item->setIcon(0, style()->standardIcon(QStyle::SP_DirClosedIcon));
    return item;
}

ItemInfo* TreeWidget::GetItemInfo(const QTreeWidgetItem* item)
{
    return item ? static_cast<ItemInfo*>(item->data(0, InfoRole).value<void*>()) : nullptr;
}

QTreeWidgetItem* TreeWidget::FindItem(const ItemInfo* info) const
{
    for (QTreeWidgetItemIterator it(const_cast<TreeWidget*>(this)); *it; ++it) {
        if (GetItemInfo(*it) == info)
            return *it;
    }
    return nullptr;
}

void TreeWidget::ShowProject(const QMap<int, NodeInfo*>& nodes, const QList<int>& nodeOrder,
    const QMap<int, TableInfo*>& tables, const QMap<int, ParticipantInfo*>& participants,
    const QMap<int, GalleryInfo*>& galleries)
{
    setUpdatesEnabled(false);
    clear();
    QMap<int, QTreeWidgetItem*> items;
    for (int id : nodeOrder) {
        NodeInfo* node = nodes.value(id);
        if (!node || items.contains(id))
            continue;
        items.insert(id, AddItem(node, items.value(node->ParentId())));
    }
    addFolder(this, QStringLiteral("Tabellen"), tables);
    addFolder(this, QStringLiteral("Beteiligte"), participants);
    addFolder(this, QStringLiteral("Galerien"), galleries);
    expandAll();
    setUpdatesEnabled(true);
}
