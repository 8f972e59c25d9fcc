#include <Kamo_view/CheckableTree.h>
#include <Kamo_view/GalleryInfo.h>
#include <Kamo_view/GeoSysDlg.h>
#include <Kamo_view/NodeInfo.h>
#include <Kamo_view/TableInfo.h>
#include <Kamo_view/TreeWidget.h>

#include <QtTest>
#include <QtWidgets>

Q_DECLARE_METATYPE(PointF)

// Expected values come from "cs2cs -f %.4f EPSG:31467 EPSG:25832" (and
// EPSG:4326, "-f %.9f") of PROJ 9.1.1 with proj-data's BETA2007 grid; those
// systems take northing and latitude first, the host easting and longitude.
namespace {

const QString gk3 = "EPSG:31467";
const QString utm32 = "EPSG:25832";

// UTM zone 32N on ETRS89 (EPSG:25832), with neither an ID nor a name of the
// registry: PROJ has to recognise it by its parameters.
const char* const utm32Wkt
    = R"(PROJCRS["my UTM",BASEGEOGCRS["ETRS89",DATUM["European Terrestrial Reference System 1989",)"
      R"(ELLIPSOID["GRS 1980",6378137,298.257222101]]],CONVERSION["UTM zone 32N",METHOD["Transverse Mercator"],)"
      R"(PARAMETER["Latitude of natural origin",0],PARAMETER["Longitude of natural origin",9],)"
      R"(PARAMETER["Scale factor at natural origin",0.9996],PARAMETER["False easting",500000],)"
      R"(PARAMETER["False northing",0]],CS[Cartesian,2],AXIS["easting",east],AXIS["northing",north],)"
      R"(LENGTHUNIT["metre",1]])";

// A site grid the registry does not know.
const char* const siteGridProj = "+proj=tmerc +lon_0=8.25 +k=1 +x_0=1000 +y_0=-5000000 +ellps=GRS80 +units=m +type=crs";

// A data row; text goes into QString columns.
template <typename... Values> void row(const char* name, Values... values)
{
    (QTest::newRow(name) << ... << values);
}

GeoSystemSettings system(const QString& definition)
{
    return GeoSystemSettings::FromDefinition(definition);
}

// Nodes 1 > 2 > 3 and 1 > 4, node 5 alone; one table and one gallery.
struct Project {
    Project()
    {
        for (auto [id, parent] : { std::pair { 1, 0 }, { 2, 1 }, { 3, 2 }, { 4, 1 }, { 5, 0 } }) {
            nodes.insert(id, new NodeInfo(id, QString("N%1").arg(id), parent));
            order.append(id);
        }
        tree.ShowProject(nodes, order, { { 1, &table } }, {}, { { 1, &gallery } });
    }
    ~Project() { qDeleteAll(nodes); }
    QMap<int, NodeInfo*> nodes;
    QList<int> order;
    TableInfo table { 1, "Eigentümer" };
    GalleryInfo gallery { 1, "Fotos" };
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

QTreeWidgetItem* itemOf(const QTreeWidget& tree, int node)
{
    return tree.findItems(QString("N%1").arg(node), Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

} // namespace

// Geo systems, their dialog, and the tree of checkable project items.
class GeoSysDlgTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void definitions_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<bool>("equal");
        QTest::addColumn<bool>("valid"); // a
        row("same code", gk3, gk3, true, true);
        row("lower case", gk3, "epsg:31467", true, true);
        row("wkt", utm32Wkt, utm32, true, true);
        row("other system", gk3, utm32, false, true);
        row("proj string without type", "+proj=utm +zone=32 +ellps=GRS80", "+proj=utm +zone=32 +ellps=GRS80", true,
            true);
        row("both null", "", "", true, false);
        row("one null", "", gk3, false, false);
        row("unknown, same text", "EPSG:999999", "EPSG:999999", true, false);
        row("unknown and known", "EPSG:999999", gk3, false, false);
        row("operation, not a system", "+proj=pipeline +step +proj=axisswap +order=2,1", gk3, false, false);
    }

    // Equality either way; `a` as stored and read back. Whatever is not null
    // has a description, be it only its own text.
    void definitions()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(bool, equal);
        QFETCH(bool, valid);
        QCOMPARE(system(a).IsEqual(system(b)), equal);
        QCOMPARE(system(b).IsEqual(system(a)), equal);
        const GeoSystemSettings read = GeoSystemSettings::FromString(system(a).ToString());
        QCOMPARE((QVariantList { read.ToString(), read.IsNull(), read.IsEqual(system(a)), read.IsValid(),
                     read.GetDescription().isEmpty() }),
            (QVariantList { a, a.isEmpty(), true, valid, a.isEmpty() }));
    }

    void conversion_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<PointF>("point");
        QTest::addColumn<PointF>("expected"); // the point itself when left unconverted
        QTest::addColumn<double>("tolerance");
        QTest::addColumn<bool>("succeeds");
        // A Helmert transformation in place of the grid is off by metres.
        row("Hanover", gk3, utm32, PointF(3512000, 5798000), PointF(511922.7305, 5796120.7831), 0.001, true);
        row("Hamburg", gk3, utm32, PointF(3565000, 5935000), PointF(564903.6995, 5933065.1560), 0.001, true);
        row("Black Forest", gk3, utm32, PointF(3450000, 5350000), PointF(449944.5495, 5348299.3278), 0.001, true);
        // 1e-8 degrees is about a millimetre.
        row("longitude, latitude", gk3, "EPSG:4326", PointF(3512000, 5798000), PointF(9.174904270, 52.315287973), 1e-8,
            true);
        // Unconverted points keep their bits. Near the equator is far beyond
        // the German grid.
        const PointF odd(3500000.123456789, 1000000.987654321);
        row("null source", "", utm32, odd, odd, 0.0, true);
        row("null target", gk3, "", odd, odd, 0.0, true);
        row("equal systems", gk3, "epsg:31467", odd, odd, 0.0, true);
        row("outside the grid", gk3, utm32, odd, odd, 0.0, false);
        row("unknown source", "EPSG:999999", utm32, odd, odd, 0.0, false);
        row("unknown target", gk3, "no system", odd, odd, 0.0, false);
    }

    // Point by point, and the same operation for many points at once, which
    // is all or nothing: beside one that fails, a point that would convert
    // keeps its value too.
    void conversion()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(PointF, point);
        QFETCH(PointF, expected);
        QFETCH(double, tolerance);
        QFETCH(bool, succeeds);
        double x = point.X(), y = point.Y();
        QCOMPARE(ChangeGeoSystemEx(x, y, system(from), system(to), false), succeeds);
        QVERIFY2(std::abs(x - expected.X()) <= tolerance && std::abs(y - expected.Y()) <= tolerance,
            qPrintable(QString("%1 %2").arg(x, 0, 'f', 9).arg(y, 0, 'f', 9)));
        QCOMPARE(GeoSystemLastError().isEmpty(), succeeds);
        const QVector<PointF> original { PointF(3565000, 5935000), point };
        QVector<PointF> points = original;
        QCOMPARE(ChangeGeoSystemEx(points, system(from), system(to), false), succeeds);
        QVERIFY(succeeds ? points.last() == PointF(x, y) : points == original);
        QPolygonF polygon(QVector<QPointF> { point.ToQPointF() });
        QCOMPARE(ChangeGeoSystemEx(polygon, system(from), system(to), false), succeeds);
        QCOMPARE(polygon.first(), QPointF(x, y));
    }

    void fromPrjFile_data()
    {
        QTest::addColumn<QByteArray>("content"); // null: no file
        QTest::addColumn<QString>("expected");
        QFile fixture(KAMO_PRJ_FIXTURE);
        QVERIFY(fixture.open(QIODevice::ReadOnly));
        QTest::newRow("esri wkt of gauss zone 3") << fixture.readAll() << "EPSG:31467";
        QTest::newRow("missing file") << QByteArray() << "";
        QTest::newRow("empty") << QByteArray("\n") << "";
        QTest::newRow("garbage") << QByteArray("PROJCS[\"x\",\x01\x02 not a system") << "";
        QTest::newRow("wkt2 of utm 32") << QByteArray(utm32Wkt) << "EPSG:25832";
        QTest::newRow("not in the registry kept as text") << QByteArray(siteGridProj) << siteGridProj;
    }

    void fromPrjFile()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        QFile file(dir.filePath("x.prj"));
        QVERIFY(content.isNull() || (file.open(QIODevice::WriteOnly) && file.write(content) == content.size()));
        file.close();
        QCOMPARE(GeoSystemSettings::FromPrjFile(file.fileName()).ToString(), expected);
    }

    void search_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<int>("maxRows");
        row("code", "31467", "EPSG:31467", 1);
        row("leading digits", "3146", "EPSG:31467", 11);
        row("with authority", "epsg: 25832", "EPSG:25832", 1);
        row("words, any order and case", "3 GAUSS", "EPSG:31467", 1000);
        row("every word must match", "xyzzy grid", "", 0);
    }

    // The first hit is selected, so that Return after typing takes it.
    void search()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QFETCH(int, maxRows);
        GeoSysDlg dialog;
        auto* view = dialog.findChild<QTreeView*>("tvSystems");
        dialog.findChild<QLineEdit*>("edtSearch")->setText(text);
        const QAbstractItemModel* shown = view->model();
        QVERIFY2(shown->rowCount() <= maxRows, qPrintable(QString::number(shown->rowCount())));
        QCOMPARE(shown->match(shown->index(0, 0), Qt::DisplayRole, expected, 1, Qt::MatchExactly).size(),
            int(!expected.isEmpty()));
        QCOMPARE(view->selectionModel()->selectedRows().value(0).data(), shown->index(0, 0).data());
    }

    void chooseGeoSystem_data()
    {
        QTest::addColumn<QString>("initial");
        QTest::addColumn<QString>("how");
        QTest::addColumn<QString>("search");
        QTest::addColumn<QString>("result");
        row("return takes the first hit", "EPSG:4326", "return", "25832", "EPSG:25832");
        row("double click on a row", "EPSG:4326", "double click", "gauss 3", "EPSG:31467");
        row("cancel", "EPSG:4326", "cancel", "25832", "EPSG:4326");
        // The caller's system is preselected where the registry has it.
        row("code in lower case", " epsg:25832 ", "return", "", "EPSG:25832");
        row("wkt of a registry system", utm32Wkt, "return", "", "EPSG:25832");
        row("not in the registry", siteGridProj, "return", "", siteGridProj);
        row("null", "", "return", "", "");
    }

    // Without a row the caller's system stays the result, and the label
    // describes whatever OK would give, as the system describes itself. With
    // KAMO_SCREENSHOT_DIR set, the dialog is saved there as a picture just
    // before the double click.
    void chooseGeoSystem()
    {
        QFETCH(QString, initial);
        QFETCH(QString, how);
        QFETCH(QString, search);
        QFETCH(QString, result);
        QString label;
        QTimer::singleShot(0, this, [how, search, &label] {
            auto* dialog = qobject_cast<GeoSysDlg*>(QApplication::activeModalWidget());
            QVERIFY(dialog && QTest::qWaitForWindowExposed(dialog));
            auto* edit = dialog->findChild<QLineEdit*>("edtSearch");
            QTest::keyClicks(edit, search);
            label = dialog->findChild<QLabel*>("lblDescription")->text().section('\n', 0, 0);
            auto* view = dialog->findChild<QTreeView*>("tvSystems");
            if (how == "return") {
                QTest::keyClick(edit, Qt::Key_Return);
            } else if (how == "double click") {
                const auto* model = view->model();
                const auto index
                    = model->match(model->index(0, 0), Qt::DisplayRole, "EPSG:31467")[0].siblingAtColumn(1);
                view->scrollTo(index);
                const QPoint center = view->visualRect(index).center();
                // QTest's double click alone leaves the view in its drag state.
                QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, center);
                const QString screenshots = qEnvironmentVariable("KAMO_SCREENSHOT_DIR");
                if (!screenshots.isEmpty())
                    dialog->grab().save(screenshots + "/geosysdlg.png");
                QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, center);
            }
            dialog->close();
        });
        GeoSystemSettings chosen = system(initial);
        QCOMPARE(GeoSysDlg::ChooseGeoSystem(nullptr, chosen), how != "cancel");
        QCOMPARE(chosen.ToString(), result);
        if (how == "return" && !result.isEmpty())
            QCOMPARE(label, system(result).GetDescription());
    }

    void checkableTree_data()
    {
        QTest::addColumn<bool>("allKinds");
        QTest::addColumn<bool>("single");
        QTest::addColumn<QString>("clicks"); // the nodes checked in turn, "-" before those unchecked; "*": all
        QTest::addColumn<QStringList>("checked");
        const QStringList nodes { "Node:1", "Node:2", "Node:3", "Node:4", "Node:5" };
        row("nodes", false, false, "*", nodes);
        row("all kinds", true, false, "*", nodes + QStringList { "Table:1", "Gallery:1" });
        row("checking goes down", false, false, "2", QStringList { "Node:2", "Node:3" });
        row("unchecking does not go up", false, false, "2 1 -3", QStringList { "Node:1", "Node:2", "Node:4" });
        row("single check keeps one item", true, true, "1 3", QStringList { "Node:3" });
    }

    // Folders carry no record and are no choice of their own; what is checked
    // is remembered per name, unless the caller presets nodes.
    void checkableTree()
    {
        QFETCH(bool, allKinds);
        QFETCH(bool, single);
        QFETCH(QString, clicks);
        QFETCH(QStringList, checked);
        Project project;
        QTemporaryDir dir;
        QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
        const auto tree = [&](const char* name, const QList<int>* preset = nullptr) -> CheckableTree {
            return CheckableTree(nullptr, &project.tree, name, &settings, QString(), allKinds, nullptr, preset, single);
        };
        CheckableTree first = tree("P/1");
        QStringList texts;
        for (int i = 0; i < first.topLevelItemCount(); ++i)
            texts.append(first.topLevelItem(i)->text(0));
        QCOMPARE(texts, QStringList({ "N1", "N5", "Tabellen", "Galerien" }).mid(0, allKinds ? 4 : 2));
        QCOMPARE(itemOf(first, 3)->parent(), itemOf(first, 2));
        // An icon of its own per item kept the style's pixels once per
        // item: gigabytes for a town's sewer network.
        QSet<qint64> icons;
        for (QTreeWidgetItemIterator it(&first); *it; ++it)
            icons.insert((*it)->icon(0).cacheKey());
        QCOMPARE(icons.size(), allKinds ? 4 : 1);
        for (const QString& click : clicks.split(' ')) {
            if (click == "*")
                first.SetAllChecked(true);
            else
                itemOf(first, qAbs(click.toInt()))->setCheckState(0, click[0] == '-' ? Qt::Unchecked : Qt::Checked);
        }
        QCOMPARE(checkedKeys(first), checked);
        first.SaveSettings();
        QCOMPARE(settings.childGroups(), QStringList { "CheckableTree" });
        QCOMPARE(checkedKeys(tree("P/1")), checked);
        QCOMPARE(checkedKeys(tree("P/2")), QStringList());
        const QList<int> preset { 4 };
        QCOMPARE(checkedKeys(tree("P/1", &preset)), QStringList { "Node:4" });
    }

    // A line edit's clear button fades in through an animation that only
    // notices on its next frame that its button is gone, and then deletes
    // itself later: both need an event loop after the last dialog closed.
    void cleanupTestCase()
    {
        QTest::qWait(250);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

QTEST_MAIN(GeoSysDlgTest)
#include "GeoSysDlgTest.moc"
