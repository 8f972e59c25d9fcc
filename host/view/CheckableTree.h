#ifndef KAMO_VIEW_CHECKABLETREE_H
#define KAMO_VIEW_CHECKABLETREE_H

#include "kamo_view_export.h"

#include <QList>
#include <QString>
#include <QTreeWidget>

class ItemInfo;
class QSettings;
class TreeWidget;

/// A checkable copy of the project tree, for tools that work on a choice of
/// nodes. The copy is made once, at construction; the items carry the same
/// records as the source.
///
/// Checking or unchecking an item does the same to everything below it; an
/// item can then be unchecked on its own, since a node stands for its own
/// documents, not for its children's. The checked items are remembered per
/// tree name (usually the project's identifier) in the settings.
class KAMO_VIEW_EXPORT CheckableTree : public QTreeWidget
{
    Q_OBJECT

public:
    /// `parent`: the widget the tree fills (a layout is added when it has
    /// none). `name`: under which the checked items are remembered.
    /// `settingsGroup`: the first part of the settings key, "CheckableTree"
    /// when empty. `allKinds`: copy tables, participants and galleries too,
    /// not only the nodes. `sourceRoot`: copy only this item's subtree.
    /// `presetNodeIds`: check these nodes instead of the remembered ones.
    /// `singleCheck`: at most one item is checked at a time.
    CheckableTree(QWidget* parent, TreeWidget* source, const QString& name, QSettings* settings,
        const QString& settingsGroup = QString(), bool allKinds = false, QTreeWidgetItem* sourceRoot = nullptr,
        const QList<int>* presetNodeIds = nullptr, bool singleCheck = false);
    ~CheckableTree() override;

    /// Appends the records of the checked items, in tree order.
    void GetCheckedItems(QList<ItemInfo*>& items) const;
    /// Checks or unchecks every item.
    void SetAllChecked(bool checked);

    /// Remembers the checked items; the next tree of the same name starts
    /// with them.
    void SaveSettings();
    /// The settings key the checked items are kept under: "group/name/CheckedItems", with "/" and "\" in the name
    /// replaced by "_".
    QString SettingsKey() const;

private:
    void copyChildren(const QTreeWidgetItem* from, QTreeWidgetItem* to, bool allKinds);
    void onItemChanged(QTreeWidgetItem* item, int column);
    void setSubtreeChecked(QTreeWidgetItem* item, Qt::CheckState state);

    QString name;
    QString group;
    QSettings* settings;
    bool singleCheck;
    bool propagating = false;
};

#endif
