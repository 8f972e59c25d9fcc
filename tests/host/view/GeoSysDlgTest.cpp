#include <Kamo_view/GeoSysDlg.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

namespace {

// No ID and no name the registry uses: PROJ has to recognise it by its
// parameters.
const char* const utm32Wkt
    = "PROJCRS[\"my UTM\",BASEGEOGCRS[\"ETRS89\",DATUM[\"European Terrestrial Reference System 1989\","
      "ELLIPSOID[\"GRS 1980\",6378137,298.257222101]]],CONVERSION[\"UTM zone 32N\",METHOD[\"Transverse "
      "Mercator\"],PARAMETER[\"Latitude of natural origin\",0],PARAMETER[\"Longitude of natural origin\",9],"
      "PARAMETER[\"Scale factor at natural origin\",0.9996],PARAMETER[\"False easting\",500000],PARAMETER["
      "\"False northing\",0]],CS[Cartesian,2],AXIS[\"easting\",east],AXIS[\"northing\",north],"
      "LENGTHUNIT[\"metre\",1]]";

const char* const siteGridProj = "+proj=tmerc +lon_0=8.25 +k=1 +x_0=1000 +y_0=-5000000 +ellps=GRS80 +units=m +type=crs";

QStringList shownCodes(QTreeView* view)
{
    QStringList codes;
    for (int row = 0; row < view->model()->rowCount(); ++row)
        codes << view->model()->index(row, 0).data().toString();
    return codes;
}

QString selectedCode(QTreeView* view)
{
    const QModelIndexList rows = view->selectionModel()->selectedRows();
    return rows.isEmpty() ? QString() : rows.first().data().toString();
}

} // namespace

class GeoSysDlgTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void search_data();
    void search();
    void setGeoSystemPreselects_data();
    void setGeoSystemPreselects();
    void chooseGeoSystem_data();
    void chooseGeoSystem();
    void fromPrjFile_data();
    void fromPrjFile();

    // A line edit's clear button fades in through an animation that only
    // notices on its next frame that its button is gone, and then deletes
    // itself later: both need an event loop after the last dialog closed.
    void cleanupTestCase()
    {
        QTest::qWait(250);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

void GeoSysDlgTest::search_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("maxRows");
    const auto row = [](const char* name, const QString& text, const QString& expected, int maxRows) {
        QTest::newRow(name) << text << expected << maxRows;
    };
    row("code", "31467", "EPSG:31467", 1);
    row("leading digits", "3146", "EPSG:31467", 11);
    row("with authority", "epsg: 25832", "EPSG:25832", 1);
    row("words, any order and case", "3 GAUSS", "EPSG:31467", 1000);
    row("every word must match", "xyzzy grid", "", 0);
}

// The first hit is selected, so that Return after typing takes it.
void GeoSysDlgTest::search()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QFETCH(int, maxRows);
    GeoSysDlg dialog;
    auto* view = dialog.findChild<QTreeView*>("tvSystems");
    dialog.findChild<QLineEdit*>("edtSearch")->setText(text);
    const QStringList codes = shownCodes(view);
    QVERIFY2(codes.size() <= maxRows, qPrintable(QString::number(codes.size())));
    QCOMPARE(codes.contains(expected), !expected.isEmpty());
    QCOMPARE(selectedCode(view), codes.value(0));
}

void GeoSysDlgTest::setGeoSystemPreselects_data()
{
    QTest::addColumn<QString>("definition");
    QTest::addColumn<QString>("selected");
    const auto row = [](const char* name, const QString& definition, const QString& selected) {
        QTest::newRow(name) << definition << selected;
    };
    row("code", "EPSG:31467", "EPSG:31467");
    row("lower case", " epsg:25832 ", "EPSG:25832");
    row("wkt of a registry system", utm32Wkt, "EPSG:25832");
    row("not in the registry", siteGridProj, "");
    row("null", "", "");
}

// Without a row the caller's system stays the result, and the label
// describes whatever OK would give.
void GeoSysDlgTest::setGeoSystemPreselects()
{
    QFETCH(QString, definition);
    QFETCH(QString, selected);
    GeoSysDlg dialog;
    dialog.SetGeoSystem(GeoSystemSettings::FromDefinition(definition));
    QCOMPARE(selectedCode(dialog.findChild<QTreeView*>("tvSystems")), selected);
    const QString result = selected.isEmpty() ? definition : selected;
    QCOMPARE(dialog.GetGeoSystem().ToString(), result);
    const QString label = dialog.findChild<QLabel*>("lblDescription")->text();
    if (!result.isEmpty())
        QCOMPARE(label.section('\n', 0, 0), GeoSystemSettings::FromDefinition(result).GetDescription());
}

void GeoSysDlgTest::chooseGeoSystem_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("search");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* name, const QString& how, const QString& search, bool accepted,
                         const QString& result) { QTest::newRow(name) << how << search << accepted << result; };
    row("return takes the first hit", "return", "25832", true, "EPSG:25832");
    row("double click on a row", "double click", "gauss 3", true, "EPSG:31467");
    row("cancel", "cancel", "25832", false, "EPSG:4326");
}

// With KAMO_SCREENSHOT_DIR set, the dialog is saved there as a picture just
// before the double click.
void GeoSysDlgTest::chooseGeoSystem()
{
    QFETCH(QString, how);
    QFETCH(QString, search);
    QFETCH(bool, accepted);
    QFETCH(QString, result);
    QTimer::singleShot(0, this, [how, search] {
        auto* dialog = qobject_cast<GeoSysDlg*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        auto* edit = dialog->findChild<QLineEdit*>("edtSearch");
        QTest::keyClicks(edit, search);
        auto* view = dialog->findChild<QTreeView*>("tvSystems");
        if (how == "return") {
            QTest::keyClick(edit, Qt::Key_Return);
        } else if (how == "double click") {
            const QModelIndex index = view->model()->index(shownCodes(view).indexOf("EPSG:31467"), 1);
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
    GeoSystemSettings system = GeoSystemSettings::FromEpsg(4326);
    QCOMPARE(GeoSysDlg::ChooseGeoSystem(nullptr, system), accepted);
    QCOMPARE(system.ToString(), result);
}

void GeoSysDlgTest::fromPrjFile_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected");
    QTest::newRow("esri wkt of gauss zone 3") << KAMO_PRJ_FIXTURE << QByteArray() << "EPSG:31467";
    QTest::newRow("missing file") << "/nonexistent/x.prj" << QByteArray() << "";
    QTest::newRow("empty") << "" << QByteArray("\n") << "";
    QTest::newRow("garbage") << "" << QByteArray("PROJCS[\"x\",\x01\x02 not a system") << "";
    QTest::newRow("wkt2 of utm 32") << "" << QByteArray(utm32Wkt) << "EPSG:25832";
    QTest::newRow("not in the registry kept as text") << "" << QByteArray(siteGridProj) << siteGridProj;
}

void GeoSysDlgTest::fromPrjFile()
{
    QFETCH(QString, fixture);
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    QTemporaryDir dir;
    if (fixture.isEmpty()) {
        fixture = dir.filePath("x.prj");
        QFile file(fixture);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QCOMPARE(GeoSystemSettings::FromPrjFile(fixture).ToString(), expected);
}

QTEST_MAIN(GeoSysDlgTest)
#include "GeoSysDlgTest.moc"
