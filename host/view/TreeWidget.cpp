#include "TreeWidget.h"

#include "GalleryInfo.h"
#include "NodeInfo.h"
#include "ParticipantInfo.h"
#include "TableInfo.h"

#include <QEvent>
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
    QTreeWidgetItem* item = makeItem(info, parent);
    if (!parent)
        addTopLevelItem(item);
    return item;
}

QTreeWidgetItem* TreeWidget::AddFolder(const QString& caption, QTreeWidgetItem* parent)
{
    QTreeWidgetItem* item = makeFolder(caption, parent);
    if (!parent)
        addTopLevelItem(item);
    return item;
}

QTreeWidgetItem* TreeWidget::makeItem(ItemInfo* info, QTreeWidgetItem* parent)
{
    auto* item = new QTreeWidgetItem;
    item->setText(0, info->Name());
    item->setIcon(0, icon(iconFor(info->GetKind())));
    item->setData(0, InfoRole, QVariant::fromValue(static_cast<void*>(info)));
    if (parent)
        parent->addChild(item);
    return item;
}

QTreeWidgetItem* TreeWidget::makeFolder(const QString& caption, QTreeWidgetItem* parent)
{
    auto* item = new QTreeWidgetItem;
    item->setText(0, caption);
    item->setIcon(0, icon(QStyle::SP_DirClosedIcon));
    if (parent)
        parent->addChild(item);
    return item;
}

const QIcon& TreeWidget::icon(int standardPixmap)
{
    auto found = icons.find(standardPixmap);
    if (found == icons.end())
        found = icons.insert(standardPixmap, style()->standardIcon(QStyle::StandardPixmap(standardPixmap)));
    return *found;
}

void TreeWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::StyleChange)
        icons.clear();
    QTreeWidget::changeEvent(event);
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
    // Built apart and inserted at once: an item added to the shown tree
    // costs the view an update of its own.
    QList<QTreeWidgetItem*> topLevel;
    QMap<int, QTreeWidgetItem*> items;
    for (int id : nodeOrder) {
        NodeInfo* node = nodes.value(id);
        if (!node || items.contains(id))
            continue;
        QTreeWidgetItem* parent = items.value(node->ParentId());
        QTreeWidgetItem* item = makeItem(node, parent);
        if (!parent)
            topLevel.append(item);
        items.insert(id, item);
    }
    const auto addFolder = [&](const QString& caption, const auto& records) {
        if (records.isEmpty())
            return;
        QTreeWidgetItem* folder = makeFolder(caption, nullptr);
        for (auto* record : records)
            makeItem(record, folder);
        topLevel.append(folder);
    };
    addFolder(QStringLiteral("Tabellen"), tables);
    addFolder(QStringLiteral("Beteiligte"), participants);
    addFolder(QStringLiteral("Galerien"), galleries);
    addTopLevelItems(topLevel);
    expandAll();
    setUpdatesEnabled(true);
}
