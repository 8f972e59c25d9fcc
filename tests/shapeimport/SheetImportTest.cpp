#include <shapeimport/ImportFieldManager.h>
#include <shapeimport/ImportSheetDataFromShapeFile.h>

#include <Kamo_view/GeoSystemSettings.h>

#include <QTest>

using Import = ImportSheetDataFromShapeFile;
using Sheets = QMap<QString, QList<PointF>>;
Q_DECLARE_METATYPE(QList<PointF>)

namespace {

QMap<int, Sheets> run(Import& import, const QString& file)
{
    import.SetShapeFilename(QStringLiteral(KAMO_SHAPE_DATA "/") + file);
    if (!import.Execute())
        qWarning("import failed: %s", qPrintable(import.GetLastErrorMessage()));
    QMap<int, Sheets> scales;
    import.GetScalesMap(scales);
    return scales;
}

} // namespace

class SheetImportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pointsOfASheet_data();
    void pointsOfASheet();
    void convertsIntoTheProjectsSystem();
};

void SheetImportTest::pointsOfASheet_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("correct");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QPoint>("indices"); // of the points to take in manual mode
    QTest::addColumn<QString>("number");
    QTest::addColumn<QList<PointF>>("points");
    const QString sheets = "sheets.shp", turned = "sheets_turned.shp";
    const PointF nw(3502000, 5400300), ne(3502400, 5400300), se(3502400, 5400000), sw(3502000, 5400000);
    // The later of the two sheets 0042 wins: record 6, clockwise from SW.
    QTest::newRow("automatic: clockwise from the north")
        << sheets << false << 0 << QPoint(0, 2) << "42" << QList<PointF> { nw, ne, se, sw };
    QTest::newRow("automatic: ring starting in the north-east")
        << sheets << false << 0 << QPoint(0, 2) << "44 - a"
        << QList<PointF> { { 3501200, 5400300 }, { 3501200, 5400000 }, { 3500800, 5400000 }, { 3500800, 5400300 } };
    QTest::newRow("manual: file points") << sheets << false << 1 << QPoint(0, 2) << "42" << QList<PointF> { sw, ne };
    QTest::newRow("manual: the closing point")
        << sheets << false << 1 << QPoint(4, 1) << "42" << QList<PointF> { sw, nw };
    QTest::newRow("manual: index beyond the ring") << sheets << false << 1 << QPoint(0, 5) << "42" << QList<PointF> {};
    QTest::newRow("manual: no index") << sheets << false << 1 << QPoint(-1, 2) << "42" << QList<PointF> {};
    QTest::newRow("unknown mode") << sheets << false << 2 << QPoint(0, 2) << "42" << QList<PointF> {};
    // The turned sheets start their rings at different corners; labelled
    // along the route, every sheet starts at its top left corner B.
    const PointF a3(3503692.820323, 5401400), b1(3502850, 5401259.807621), c1(3503196.410162, 5401459.807621);
    const PointF d3(3504039.230485, 5401600);
    QTest::newRow("last turned sheet as in the file")
        << turned << false << 1 << QPoint(0, 1) << "103 - b" << QList<PointF> { d3, a3 };
    QTest::newRow("first turned sheet corrected")
        << turned << true << 1 << QPoint(0, 1) << "101" << QList<PointF> { b1, c1 };
    QTest::newRow("nothing to correct") << "empty.shp" << true << 1 << QPoint(0, 1) << "101" << QList<PointF> {};
}

void SheetImportTest::pointsOfASheet()
{
    QFETCH(QString, file);
    QFETCH(bool, correct);
    QFETCH(int, mode);
    QFETCH(QPoint, indices);
    QFETCH(QString, number);
    QFETCH(QList<PointF>, points);
    Import import;
    import.GetImportFieldManager()->SetAssignment(Import::tfSheetNr, "BLATTNR");
    import.GetImportFieldManager()->SetAssignment(Import::tfSheetNr2, "BLATT2");
    import.SetCorrectVertexOrder(correct);
    import.SetPointSelectMode(mode);
    import.SetIndexForPoint1(indices.x());
    import.SetIndexForPoint2(indices.y());
    const Sheets sheets = run(import, file).value(1000);
    QCOMPARE(sheets.contains(number), !points.isEmpty());
    QCOMPARE(sheets.value(number), points);
}

void SheetImportTest::convertsIntoTheProjectsSystem()
{
    Import import, unknown;
    import.GetImportFieldManager()->SetAssignment(Import::tfSheetNr, "BLATTNR");
    import.SetGeoSystemForImportFile(GeoSystemSettings::FromEpsg(31467));
    import.SetGeoSystemForProject(GeoSystemSettings::FromEpsg(25832));
    // Sheet 0043 spans 3500400..3500800 x 5400000..5400300; its north-west
    // corner is the north-east one of sheet 0042, which cs2cs gives as:
    const QList<PointF> sheet = run(import, "sheets.shp").value(1000).value("43");
    QVERIFY(
        sheet.size() == 4 && qAbs(sheet[0].X() - 500324.511850) < 0.001 && qAbs(sheet[0].Y() - 5398579.326417) < 0.001);
    QCOMPARE(import.GetWarnings().filter("left out"), QStringList());

    // A system PROJ does not know leaves every object out, named.
    QVERIFY(!unknown.Execute() && unknown.GetLastErrorMessage().isEmpty()); // no file name yet
    unknown.SetGeoSystemForImportFile(GeoSystemSettings::FromDefinition("EPSG:999999"));
    unknown.SetGeoSystemForProject(GeoSystemSettings::FromEpsg(25832));
    QVERIFY(run(unknown, "sheets.shp").isEmpty());
    QCOMPARE(unknown.GetWarnings().size(), 6);
    QVERIFY(unknown.GetWarnings().constFirst().startsWith("Object 1 left out: "));
}

QTEST_GUILESS_MAIN(SheetImportTest)
#include "SheetImportTest.moc"
