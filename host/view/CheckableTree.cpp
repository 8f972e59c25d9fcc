#include "CheckableTree.h"

#include "ItemInfo.h"
#include "NodeInfo.h"
#include "TreeWidget.h"

#include <QHeaderView>
#include <QLayout>
#include <QSet>
#include <QSettings>
#include <QVBoxLayout>

namespace {

void setInfo(QTreeWidgetItem* item, const QTreeWidgetItem* source)
{
    for (int role : { int(Qt::DisplayRole), int(Qt::DecorationRole), int(Qt::ToolTipRole), int(Qt::UserRole + 1) })
        item->setData(0, role, source->data(0, role));
}

bool hasNodeBelow(const QTreeWidgetItem* item)
{
    for (int i = 0; i < item->childCount(); ++i) {
        const ItemInfo* info = TreeWidget::GetItemInfo(item->child(i));
        if ((info && info->GetKind() == ItemInfo::Kind::Node) || hasNodeBelow(item->child(i)))
            return true;
    }
    return false;
}

} // namespace

CheckableTree::CheckableTree(QWidget* parent, TreeWidget* source, const QString& name, QSettings* settings,
    const QString& settingsGroup, bool allKinds, QTreeWidgetItem* sourceRoot, const QList<int>* presetNodeIds,
    bool singleCheck)
    : QTreeWidget(parent)
    , name(name)
    , group(settingsGroup.isEmpty() ? QStringLiteral("CheckableTree") : settingsGroup)
    , settings(settings)
    , singleCheck(singleCheck)
{
    setObjectName(QStringLiteral("CheckableTree"));
    setColumnCount(1);
    header()->setStretchLastSection(true);
    if (parent) {
        if (!parent->layout()) {
            auto* layout = new QVBoxLayout(parent);
            layout->setContentsMargins(0, 0, 0, 0);
        }
        parent->layout()->addWidget(this);
    }

    if (source) {
        setHeaderLabel(source->headerItem()->text(0));
        const QTreeWidgetItem* from = sourceRoot ? sourceRoot : source->invisibleRootItem();
        copyChildren(from, invisibleRootItem(), allKinds);
    }

    QSet<QString> checked;
    if (presetNodeIds) {
        for (int id : *presetNodeIds)
            checked.insert(NodeInfo(id).Key());
    } else if (settings) {
        const QStringList keys = settings->value(SettingsKey()).toStringList();
        checked = QSet<QString>(keys.begin(), keys.end());
    }
    for (QTreeWidgetItemIterator it(this); *it; ++it) {
        const ItemInfo* info = TreeWidget::GetItemInfo(*it);
        if (info && checked.contains(info->Key())) {
            (*it)->setCheckState(0, Qt::Checked);
            if (singleCheck)
                break;
        }
    }
    connect(this, &QTreeWidget::itemChanged, this, &CheckableTree::onItemChanged);
}

CheckableTree::~CheckableTree() = default;

void CheckableTree::copyChildren(const QTreeWidgetItem* from, QTreeWidgetItem* to, bool allKinds)
{
    for (int i = 0; i < from->childCount(); ++i) {
        const QTreeWidgetItem* child = from->child(i);
        const ItemInfo* info = TreeWidget::GetItemInfo(child);
        const bool isNode = info && info->GetKind() == ItemInfo::Kind::Node;
        if (!allKinds && !isNode && !hasNodeBelow(child))
            continue;
        auto* copy = new QTreeWidgetItem(to);
        setInfo(copy, child);
        if (info) {
            copy->setFlags(copy->flags() | Qt::ItemIsUserCheckable);
            copy->setCheckState(0, Qt::Unchecked);
        }
        copyChildren(child, copy, allKinds);
        copy->setExpanded(child->isExpanded());
    }
}

void CheckableTree::setSubtreeChecked(QTreeWidgetItem* item, Qt::CheckState state)
{
    for (int i = 0; i < item->childCount(); ++i) {
        QTreeWidgetItem* child = item->child(i);
        if (child->flags() & Qt::ItemIsUserCheckable)
            child->setCheckState(0, state);
        setSubtreeChecked(child, state);
    }
}

void CheckableTree::onItemChanged(QTreeWidgetItem* item, int column)
{
    if (propagating || column != 0 || !(item->flags() & Qt::ItemIsUserCheckable))
        return;
    propagating = true;
    const Qt::CheckState state = item->checkState(0);
    if (singleCheck) {
        if (state == Qt::Checked) {
            for (QTreeWidgetItemIterator it(this, QTreeWidgetItemIterator::Checked); *it; ++it) {
                if (*it != item)
                    (*it)->setCheckState(0, Qt::Unchecked);
            }
        }
    } else {
        setSubtreeChecked(item, state);
    }
    propagating = false;
}

void CheckableTree::GetCheckedItems(QList<ItemInfo*>& items) const
{
    for (QTreeWidgetItemIterator it(const_cast<CheckableTree*>(this), QTreeWidgetItemIterator::Checked); *it; ++it) {
        if (ItemInfo* info = TreeWidget::GetItemInfo(*it))
            items.append(info);
    }
}

void CheckableTree::SetAllChecked(bool checked)
{
    propagating = true;
    setSubtreeChecked(invisibleRootItem(), checked ? Qt::Checked : Qt::Unchecked);
    propagating = false;
}

QString CheckableTree::SettingsKey() const
{
    // A name is one key part: '/' and '\' would open further levels.
    QString part = name;
    part.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
    return part.isEmpty() ? group + QStringLiteral("/CheckedItems")
                          : group + QLatin1Char('/') + part + QStringLiteral("/CheckedItems");
}

void CheckableTree::SaveSettings()
{
    if (!settings)
        return;
    QList<ItemInfo*> checked;
    GetCheckedItems(checked);
    QStringList keys;
    for (const ItemInfo* info : qAsConst(checked))
        keys.append(info->Key());
    settings->setValue(SettingsKey(), keys);
}
