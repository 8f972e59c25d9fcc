#include <shapeimport/ImportFieldManager.h>
#include <shapeimport/ImportSheetDataFromShapeFile.h>

#include <Kamo_view/GeoSystemSettings.h>

#include <QTest>

using Scales = QMap<int, QMap<QString, QList<PointF>>>;

namespace {

QString data(const QString& name)
{
    return QStringLiteral(KAMO_SHAPE_DATA "/") + name;
}

// Number, number 2 and scale from the sheet columns of the fixtures.
void assignAll(ImportSheetDataFromShapeFile& import)
{
    ImportFieldManager* fields = import.GetImportFieldManager();
    fields->SetAssignment(ImportSheetDataFromShapeFile::tfSheetNr, "BLATTNR");
    fields->SetAssignment(ImportSheetDataFromShapeFile::tfSheetNr2, "BLATT2");
    fields->SetAssignment(ImportSheetDataFromShapeFile::tfSheetScale, "MASSSTAB");
}

Scales run(ImportSheetDataFromShapeFile& import, const QString& file)
{
    import.SetShapeFilename(data(file));
    Scales scales;
    if (!import.Execute())
        qWarning("import failed: %s", qPrintable(import.GetLastErrorMessage()));
    import.GetScalesMap(scales);
    return scales;
}

QStringList keys(const Scales& scales)
{
    QStringList list;
    for (auto scale = scales.cbegin(); scale != scales.cend(); ++scale) {
        for (const QString& number : scale.value().keys())
            list.append(QString("%1 %2").arg(scale.key()).arg(number));
    }
    return list;
}

} // namespace

Q_DECLARE_METATYPE(QList<PointF>)

class SheetImportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersAndScales_data();
    void numbersAndScales();
    void pointsOfASheet_data();
    void pointsOfASheet();
    void correctionLabelsCornersAlongTheRoute_data();
    void correctionLabelsCornersAlongTheRoute();
    void nothingToImport();
    void convertsIntoTheProjectsSystem();
};

void SheetImportTest::numbersAndScales_data()
{
    QTest::addColumn<bool>("assigned");
    QTest::addColumn<bool>("fromTable");
    QTest::addColumn<QString>("pageText");
    QTest::addColumn<QStringList>("sheets");
    QTest::addColumn<QStringList>("warnings");
    QTest::newRow("nothing assigned: numbered by record")
        << false << false << ""
        << QStringList { "1000 leer1", "1000 leer2", "1000 leer3", "1000 leer4", "1000 leer5", "1000 leer6" }
        << QStringList();
    // 0042 twice: one sheet, and a word about it; "ohne" has no digits; the
    // empty number of record 4 stays empty; " 1:2500 " and "M 1:2.500" agree.
    QTest::newRow("scales from the table")
        << true << true << "" << QStringList { "0 ", "1000 43", "2500 42", "2500 46", "5000 44 - a" }
        << QStringList { "Object 6 replaces the earlier sheet \"42\" at scale 2500" };
    QTest::newRow("fixed scale with page text")
        << true << false << "Blatt"
        << QStringList { "1000 42_Blatt", "1000 43_Blatt", "1000 44 - a_Blatt", "1000 46_Blatt", "1000 _Blatt" }
        << QStringList { "Object 6 replaces the earlier sheet \"42_Blatt\" at scale 1000" };
    QTest::newRow("blank page text is none")
        << true << false << "  " << QStringList { "1000 ", "1000 42", "1000 43", "1000 44 - a", "1000 46" }
        << QStringList { "Object 6 replaces the earlier sheet \"42\" at scale 1000" };
}

void SheetImportTest::numbersAndScales()
{
    QFETCH(bool, assigned);
    QFETCH(bool, fromTable);
    QFETCH(QString, pageText);
    QFETCH(QStringList, sheets);
    QFETCH(QStringList, warnings);
    ImportSheetDataFromShapeFile import;
    if (assigned)
        assignAll(import);
    import.SetScaleImportMode(
        fromTable ? ImportSheetDataFromShapeFile::ssimFromTable : ImportSheetDataFromShapeFile::ssimFixed);
    import.SetPageAdditionalText(pageText);
    QCOMPARE(keys(run(import, "sheets.shp")), sheets);
    QCOMPARE(import.GetWarnings(), warnings);
}

void SheetImportTest::pointsOfASheet_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("index1");
    QTest::addColumn<int>("index2");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QList<PointF>>("points");
    const PointF nw(3502000, 5400300), ne(3502400, 5400300), se(3502400, 5400000), sw(3502000, 5400000);
    // The later of the two sheets 0042 wins: record 6, clockwise from SW.
    QTest::newRow("automatic: clockwise from the north") << 0 << 0 << 2 << "42" << QList<PointF> { nw, ne, se, sw };
    QTest::newRow("automatic: ring starting in the north-east")
        << 0 << 0 << 2 << "44 - a"
        << QList<PointF> { { 3501200, 5400300 }, { 3501200, 5400000 }, { 3500800, 5400000 }, { 3500800, 5400300 } };
    QTest::newRow("manual: file points") << 1 << 0 << 2 << "42" << QList<PointF> { sw, ne };
    QTest::newRow("manual: the closing point") << 1 << 4 << 1 << "42" << QList<PointF> { sw, nw };
    QTest::newRow("manual: index beyond the ring") << 1 << 0 << 5 << "42" << QList<PointF> {};
    QTest::newRow("manual: no index") << 1 << -1 << 2 << "42" << QList<PointF> {};
    QTest::newRow("unknown mode") << 2 << 0 << 2 << "42" << QList<PointF> {};
}

void SheetImportTest::pointsOfASheet()
{
    QFETCH(int, mode);
    QFETCH(int, index1);
    QFETCH(int, index2);
    QFETCH(QString, number);
    QFETCH(QList<PointF>, points);
    ImportSheetDataFromShapeFile import;
    assignAll(import);
    import.SetPointSelectMode(mode);
    import.SetIndexForPoint1(index1);
    import.SetIndexForPoint2(index2);
    const Scales scales = run(import, "sheets.shp");
    QCOMPARE(scales.value(1000).contains(number), !points.isEmpty());
    QCOMPARE(scales.value(1000).value(number), points);
}

void SheetImportTest::correctionLabelsCornersAlongTheRoute_data()
{
    QTest::addColumn<bool>("correct");
    QTest::addColumn<QStringList>("firstCorners"); // per sheet, as "x y" rounded to mm
    // The turned sheets start their rings at different corners; labelled
    // along the route, every sheet starts at its top left corner (B).
    QTest::newRow("as in the file") << false
                                    << QStringList { "3503000.000 5401000.000", "3503542.820 5401659.808",
                                           "3504039.230 5401600.000" };
    QTest::newRow("corrected") << true
                               << QStringList { "3502850.000 5401259.808", "3503196.410 5401459.808",
                                      "3503542.820 5401659.808" };
}

void SheetImportTest::correctionLabelsCornersAlongTheRoute()
{
    QFETCH(bool, correct);
    QFETCH(QStringList, firstCorners);
    ImportSheetDataFromShapeFile import;
    import.GetImportFieldManager()->SetAssignment(ImportSheetDataFromShapeFile::tfSheetNr, "BLATTNR");
    import.SetCorrectVertexOrder(correct);
    import.SetPointSelectMode(ImportSheetDataFromShapeFile::spsmManual);
    import.SetIndexForPoint1(0);
    import.SetIndexForPoint2(1);
    const Scales scales = run(import, "sheets_turned.shp");
    QStringList corners;
    for (const char* number : { "101", "102", "103" }) {
        const PointF first = scales.value(1000).value(number).value(0);
        corners.append(QString("%1 %2").arg(first.X(), 0, 'f', 3).arg(first.Y(), 0, 'f', 3));
    }
    QCOMPARE(corners, firstCorners);
}

void SheetImportTest::nothingToImport()
{
    ImportSheetDataFromShapeFile import;
    QVERIFY(!import.Execute()); // no file name
    QVERIFY(import.GetLastErrorMessage().isEmpty());
    assignAll(import);
    import.SetCorrectVertexOrder(true);
    QVERIFY(run(import, "empty.shp").isEmpty());
    // Geometry without a table: every sheet numbered by its record.
    import.SetCorrectVertexOrder(false);
    QCOMPARE(keys(run(import, "nodbf.shp")), (QStringList { "1000 leer1", "1000 leer2" }));
}

void SheetImportTest::convertsIntoTheProjectsSystem()
{
    ImportSheetDataFromShapeFile import;
    assignAll(import);
    import.SetGeoSystemForImportFile(GeoSystemSettings::FromEpsg(31467));
    import.SetGeoSystemForProject(GeoSystemSettings::FromEpsg(25832));
    const QList<PointF> sheet = run(import, "sheets.shp").value(1000).value("43");
    QCOMPARE(sheet.size(), 4);
    QCOMPARE(import.GetWarnings().filter("left out"), QStringList());
    // Sheet 0043 spans 3500400..3500800 x 5400000..5400300; its north-west
    // corner is the north-east one of sheet 0042, which cs2cs gives as:
    QVERIFY(qAbs(sheet.at(0).X() - 500324.511850) < 0.001);
    QVERIFY(qAbs(sheet.at(0).Y() - 5398579.326417) < 0.001);

    // A system PROJ does not know leaves every object out, named.
    ImportSheetDataFromShapeFile unknown;
    unknown.SetGeoSystemForImportFile(GeoSystemSettings::FromDefinition("EPSG:999999"));
    unknown.SetGeoSystemForProject(GeoSystemSettings::FromEpsg(25832));
    QVERIFY(run(unknown, "sheets.shp").isEmpty());
    QCOMPARE(unknown.GetWarnings().size(), 6);
    QVERIFY(unknown.GetWarnings().constFirst().startsWith("Object 1 left out: "));
}

QTEST_GUILESS_MAIN(SheetImportTest)
#include "SheetImportTest.moc"
