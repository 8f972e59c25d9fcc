#include <Kamo_view/CheckableTree.h>
#include <Kamo_view/GalleryInfo.h>
#include <Kamo_view/NodeInfo.h>
#include <Kamo_view/TableInfo.h>
#include <Kamo_view/TreeWidget.h>

#include <QSet>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Nodes 1 > 2 > 3 and 1 > 4, node 5 alone; one table and one gallery.
struct Project {
    Project()
    {
        for (auto [id, parent] : { std::pair { 1, 0 }, { 2, 1 }, { 3, 2 }, { 4, 1 }, { 5, 0 } }) {
            nodes.insert(id, new NodeInfo(id, QString("N%1").arg(id), parent));
            order.append(id);
        }
        tables.insert(1, &table);
        galleries.insert(1, &gallery);
        tree.ShowProject(nodes, order, tables, {}, galleries);
    }
    ~Project() { qDeleteAll(nodes); }
    QMap<int, NodeInfo*> nodes;
    QList<int> order;
    TableInfo table { 1, "Eigentümer" };
    GalleryInfo gallery { 1, "Fotos" };
    QMap<int, TableInfo*> tables;
    QMap<int, GalleryInfo*> galleries;
    TreeWidget tree;
};

QStringList checkedKeys(const CheckableTree& tree)
{
    QList<ItemInfo*> items;
    tree.GetCheckedItems(items);
    QStringList keys;
    for (const ItemInfo* item : items)
        keys.append(item->Key());
    return keys;
}

QTreeWidgetItem* itemOf(CheckableTree& tree, int nodeId)
{
    for (QTreeWidgetItemIterator it(&tree); *it; ++it) {
        if (TreeWidget::GetItemInfo(*it)->Id() == nodeId)
            return *it;
    }
    return nullptr;
}

} // namespace

class CheckableTreeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copiesNodesOrEverything_data();
    void copiesNodesOrEverything();
    void checkingGoesDownOnly();
    void checkedNodesAreRememberedPerName();
    void singleCheckKeepsOneItem();
    void sourceNodesShareOneIcon();
};

void CheckableTreeTest::copiesNodesOrEverything_data()
{
    QTest::addColumn<bool>("allKinds");
    QTest::addColumn<QStringList>("topLevel");
    QTest::newRow("nodes") << false << QStringList { "N1", "N5" };
    QTest::newRow("all kinds") << true << QStringList { "N1", "N5", "Tabellen", "Galerien" };
}

void CheckableTreeTest::copiesNodesOrEverything()
{
    QFETCH(bool, allKinds);
    QFETCH(QStringList, topLevel);
    Project project;
    CheckableTree tree(nullptr, &project.tree, "P", nullptr, QString(), allKinds);
    QStringList texts;
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        texts.append(tree.topLevelItem(i)->text(0));
    QCOMPARE(texts, topLevel);
    QCOMPARE(itemOf(tree, 3)->parent(), itemOf(tree, 2));
    tree.SetAllChecked(true);
    // Folders carry no record and are no choice of their own.
    QCOMPARE(checkedKeys(tree).size(), allKinds ? 7 : 5);
}

void CheckableTreeTest::checkingGoesDownOnly()
{
    Project project;
    CheckableTree tree(nullptr, &project.tree, "P", nullptr);
    itemOf(tree, 2)->setCheckState(0, Qt::Checked);
    QCOMPARE(checkedKeys(tree), (QStringList { "Node:2", "Node:3" }));
    itemOf(tree, 1)->setCheckState(0, Qt::Checked);
    itemOf(tree, 3)->setCheckState(0, Qt::Unchecked);
    QCOMPARE(checkedKeys(tree), (QStringList { "Node:1", "Node:2", "Node:4" }));
}

void CheckableTreeTest::checkedNodesAreRememberedPerName()
{
    Project project;
    QTemporaryDir dir;
    QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
    {
        CheckableTree tree(nullptr, &project.tree, "P/1", &settings);
        itemOf(tree, 4)->setCheckState(0, Qt::Checked);
        itemOf(tree, 5)->setCheckState(0, Qt::Checked);
        tree.SaveSettings();
    }
    QCOMPARE(settings.childGroups(), QStringList { "CheckableTree" });
    CheckableTree same(nullptr, &project.tree, "P/1", &settings);
    QCOMPARE(checkedKeys(same), (QStringList { "Node:4", "Node:5" }));
    CheckableTree other(nullptr, &project.tree, "P/2", &settings);
    QCOMPARE(checkedKeys(other), QStringList());
    const QList<int> preset { 3 };
    CheckableTree presetTree(nullptr, &project.tree, "P/1", &settings, QString(), false, nullptr, &preset);
    QCOMPARE(checkedKeys(presetTree), QStringList { "Node:3" });
}

void CheckableTreeTest::singleCheckKeepsOneItem()
{
    Project project;
    CheckableTree tree(nullptr, &project.tree, "P", nullptr, QString(), false, nullptr, nullptr, true);
    itemOf(tree, 1)->setCheckState(0, Qt::Checked);
    itemOf(tree, 3)->setCheckState(0, Qt::Checked);
    QCOMPARE(checkedKeys(tree), QStringList { "Node:3" });
}

void CheckableTreeTest::sourceNodesShareOneIcon()
{
    // An icon of its own per item kept the style's pixels once per item:
    // gigabytes for a town's sewer network.
    Project project;
    QSet<qint64> icons;
    for (QTreeWidgetItemIterator it(&project.tree); *it; ++it) {
        const ItemInfo* info = TreeWidget::GetItemInfo(*it);
        if (info && info->GetKind() == ItemInfo::Kind::Node)
            icons.insert((*it)->icon(0).cacheKey());
    }
    QCOMPARE(icons.size(), 1);
}

QTEST_MAIN(CheckableTreeTest)
#include "CheckableTreeTest.moc"
