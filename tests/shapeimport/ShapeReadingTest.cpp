#include <shapeimport/ImportBuildingFromShapeFile.h>
#include <shapeimport/ImportDistrictsFromShapeFile.h>
#include <shapeimport/ImportFieldManager.h>
#include <shapeimport/ImportRouteDataFromShapeFile.h>
#include <shapeimport/ImportSheetDataFromShapeFile.h>
#include <shapeimport/ShapeDbFileReader.h>
#include <shapeimport/ShapeFileReader.h>
#include <shapeimport/ShapeImportJob.h>

#include <Kamo_view/DetermineVertexOrder.h>

#include <QFile>
#include <QTest>

namespace {

QString data(const QString& name)
{
    return QStringLiteral(KAMO_SHAPE_DATA "/") + name;
}

} // namespace

class ShapeReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void attributeTableBesideShapeFile_data();
    void attributeTableBesideShapeFile();
    void readsEveryFixture_data();
    void readsEveryFixture();
    void damagedFilesFailOrSkip_data();
    void damagedFilesFailOrSkip();
    void textIsDecodedAndTrimmed_data();
    void textIsDecodedAndTrimmed();
    void routeImportReportsSuccessEvenOnFailure();
    void copiesShareTheFieldManager();
    void ringsTurnToTheHostsSense_data();
    void ringsTurnToTheHostsSense();
    void buildingsTakeTheirAssignedColumns();
    void filterKeepsObjectsTouchingAnArea_data();
    void filterKeepsObjectsTouchingAnArea();
    void jobGoesOnAfterAFileThatFails_data();
    void jobGoesOnAfterAFileThatFails();
};

void ShapeReadingTest::attributeTableBesideShapeFile_data()
{
    QTest::addColumn<QString>("shape");
    QTest::addColumn<QString>("table");
    QTest::newRow("two suffixes") << "d:/a/b.c.shp"
                                  << "d:/a/b.c.dbf";
    QTest::newRow("no folder") << "plan.SHP"
                               << "./plan.dbf";
}

void ShapeReadingTest::attributeTableBesideShapeFile()
{
    QFETCH(QString, shape);
    QFETCH(QString, table);
    QCOMPARE(MakeShapeDbFilenameFromShapeFilename(shape), table);
}

void ShapeReadingTest::readsEveryFixture_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("fields");
    const QString polygon = "2D Polygon";
    QTest::newRow("sheets") << "sheets.shp" << polygon << 6 << QStringList { "BLATTNR", "BLATT2", "MASSSTAB" };
    QTest::newRow("routes") << "routes.shp"
                            << "2D Arc" << 3 << QStringList { "ID", "NAME", "NUMMER", "VARIANTE" };
    QTest::newRow("empty") << "empty.shp" << polygon << 0 << QStringList { "BLATTNR", "BLATT2", "MASSSTAB" };
    QTest::newRow("no table") << "nodbf.shp" << polygon << 2 << QStringList();
    QTest::newRow("points with height") << "points_z.shp"
                                        << "3D Point" << 3 << QStringList { "NAME", "HOEHE" };
}

void ShapeReadingTest::readsEveryFixture()
{
    QFETCH(QString, file);
    QFETCH(QString, type);
    QFETCH(int, count);
    QFETCH(QStringList, fields);
    ShapeFileReader reader;
    QCOMPARE(reader.Open(QFile::encodeName(data(file))), 0);
    QCOMPARE(ShapeObject::ShapeTypeName(reader.GetShapeType()), type);
    // Codes without a shape type, out of the name table's range or in a gap.
    QCOMPARE(ShapeObject::ShapeTypeName(-1), "Unknown");
    QCOMPARE(ShapeObject::ShapeTypeName(2), "Unknown");
    QCOMPARE(reader.GetEntityCount(), count);
    ShapeObject object;
    for (int i = 0; i < count; ++i) {
        QCOMPARE(reader.ReadObject(i, object), 0);
        QCOMPARE(object.GetRecordIndex(), i);
        QVERIFY(object.GetVertexCount() > 0);
    }
    QCOMPARE(reader.ReadObject(count, object), -1);
    QVERIFY(object.IsEmpty());

    QVector<QString> names { "untouched" };
    GetAvailableFieldNames(MakeShapeDbFilenameFromShapeFilename(data(file)), names);
    QCOMPARE(QStringList(names.toList()), fields.isEmpty() ? QStringList { "untouched" } : fields);
}

void ShapeReadingTest::damagedFilesFailOrSkip_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("opens");
    QTest::addColumn<int>("readable");
    QTest::newRow("cut in the third record") << "truncated" << true << 2;
    QTest::newRow("index pointing past the end") << "badshx" << false << 0;
    QTest::newRow("shorter than a header") << "tiny" << false << 0;
    QTest::newRow("table header wrong") << "baddbf" << true << 6;
    QTest::newRow("table claims ten million records") << "dbfcount" << true << 6;
    QTest::newRow("absurd part count") << "parts" << true << 4;
    QTest::newRow("part starts going back") << "partstarts" << true << 2;
}

void ShapeReadingTest::damagedFilesFailOrSkip()
{
    QFETCH(QString, file);
    QFETCH(bool, opens);
    QFETCH(int, readable);
    // Every record is read, numbered by record since nothing is assigned;
    // the ones shapelib refuses come back empty and yield no sheet.
    ImportSheetDataFromShapeFile import;
    import.SetShapeFilename(data("corrupt/" + file + ".shp"));
    import.GetImportFieldManager()->SetAssignment(ImportSheetDataFromShapeFile::tfSheetScale, "MASSSTAB");
    import.SetScaleImportMode(ImportSheetDataFromShapeFile::ssimFromTable);
    QCOMPARE(import.Execute(), opens);
    QCOMPARE(import.GetLastErrorMessage(), opens ? QString() : "Error opening shape file");

    ShapeFileReader reader;
    reader.Open(QFile::encodeName(data("corrupt/" + file + ".shp")));
    ShapeObject object;
    int read = 0;
    for (int i = 0; i < reader.GetEntityCount(); ++i)
        read += reader.ReadObject(i, object) == 0 && object.GetVertexCount() > 0 ? 1 : 0;
    QCOMPARE(read, readable);
}

void ShapeReadingTest::textIsDecodedAndTrimmed_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("record");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("Latin-1") << "buildings" << 1 << "GEMARKUNG"
                             << "Öhringen";
    QTest::newRow("blanks around") << "buildings" << 0 << "E_STRASSE"
                                   << "Hauptstraße";
    QTest::newRow("number without value") << "buildings" << 3 << "HNR"
                                          << "";
    QTest::newRow("decimal number without value") << "stars" << 0 << "BETRAG"
                                                  << "";
    QTest::newRow("stars in a text column") << "stars" << 0 << "KLASSE"
                                            << "***";
    QTest::newRow("leading zero kept") << "buildings" << 3 << "E_PLZ"
                                       << "01067";
    QTest::newRow("UTF-8 by its code page file") << "routes" << 1 << "NAME"
                                                 << "Müllerstraße";
    QTest::newRow("column not in the table") << "routes" << 1 << "STRASSE"
                                             << "";
    QTest::newRow("record beyond the table") << "routes" << 7 << "NAME"
                                             << "";
}

void ShapeReadingTest::textIsDecodedAndTrimmed()
{
    QFETCH(QString, file);
    QFETCH(int, record);
    QFETCH(QString, field);
    QFETCH(QString, text);
    ImportFieldManager fields;
    ShapeDbFileReader reader;
    QCOMPARE(reader.Open(QFile::encodeName(data(file + ".dbf"))), 0);
    fields.SetDbFileReader(&reader);
    fields.SetAssignment(7, field);
    QString read = "unread";
    QVERIFY(fields.ReadString(record, 7, read));
    QCOMPARE(read, text);
    QVERIFY(!fields.ReadString(record, 8, read));
}

void ShapeReadingTest::routeImportReportsSuccessEvenOnFailure()
{
    ImportRouteDataFromShapeFile routes;
    QVERIFY(!routes.Execute());
    routes.SetShapeFilename(data("missing.shp"));
    QVERIFY(routes.Execute());
    QCOMPARE(routes.GetLastErrorMessage(), "Error opening shape file");

    routes.SetShapeFilename(data("routes.shp"));
    ImportFieldManager* fields = routes.GetImportFieldManager();
    fields->SetAssignment(ImportRouteDataFromShapeFile::tfName, "NAME");
    fields->SetAssignment(ImportRouteDataFromShapeFile::tfVariant, "VARIANTE");
    QVERIFY(routes.Execute());
    QCOMPARE(routes.GetRoads().size(), 3);
    const RoadObject& second = routes.GetRoads().at(1);
    QCOMPARE(second.name, "Müllerstraße");
    QCOMPARE(second.variant, "Umleitung Süd");
    QCOMPARE(second.lines.size(), 2);
    QCOMPARE(second.lines.at(1).constLast(), PointF(3501000, 5400200));
    QVERIFY(second.id.isEmpty());
}

void ShapeReadingTest::copiesShareTheFieldManager()
{
    ImportSheetDataFromShapeFile import;
    {
        const ImportSheetDataFromShapeFile copy = import;
        QCOMPARE(copy.GetImportFieldManager(), import.GetImportFieldManager());
        copy.GetImportFieldManager()->SetAssignment(ImportSheetDataFromShapeFile::tfSheetNr, "BLATTNR");
    }
    QCOMPARE(import.GetImportFieldManager()->GetAssignedColumn(ImportSheetDataFromShapeFile::tfSheetNr), "BLATTNR");
}

void ShapeReadingTest::ringsTurnToTheHostsSense_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("record");
    QTest::addColumn<QStringList>("piece"); // the number, then the sense of each ring the host gets
    const QString number = "1234-1-12/3";
    QTest::newRow("clockwise outer ring with hole") << "districts.shp" << 1 << QStringList { number, "ccw", "cw" };
    QTest::newRow("counter-clockwise outer ring with hole")
        << "districts_ccw.shp" << 0 << QStringList { number, "ccw", "cw" };
    QTest::newRow("two polygons of either sense")
        << "districts_ccw.shp" << 1 << QStringList { "Flst. 17", "ccw", "ccw" };
}

void ShapeReadingTest::ringsTurnToTheHostsSense()
{
    QFETCH(QString, file);
    QFETCH(int, record);
    QFETCH(QStringList, piece);
    ImportDistrictsFromShapeFile districts;
    districts.SetShapeFilename(data(file));
    districts.GetImportFieldManager()->SetAssignment(ImportDistrictsFromShapeFile::tfDistrictPieceNumber, "FLSTKENNZ");
    QVERIFY(districts.Execute());
    const DistrictPiece read = districts.GetDistrictPieces().value(record);
    QStringList shown { read.number };
    for (const QVector<PointF>& ring : read.rings)
        shown.append(DetermineVertexOrder(ring) == VertexOrder::CounterClockwise ? "ccw" : "cw");
    QCOMPARE(shown, piece);
}

void ShapeReadingTest::buildingsTakeTheirAssignedColumns()
{
    ImportBuildingFromShapeFile buildings;
    buildings.SetShapeFilename(data("buildings.shp"));
    ImportFieldManager* fields = buildings.GetImportFieldManager();
    fields->SetAssignment(ImportBuildingFromShapeFile::tfOwnerHouseNumber, "E_HNR");
    fields->SetAssignment(ImportBuildingFromShapeFile::tfTown, "ORT");
    QVERIFY(buildings.Execute());
    QCOMPARE(buildings.GetBuildings().size(), 4);
    QCOMPARE(buildings.GetBuildings().at(2).town, "Überlingen");
    QCOMPARE(buildings.GetBuildings().at(2).ownerHouseNumber, "101");
    QCOMPARE(buildings.GetBuildings().at(0).rings.at(0).size(), 7);
}

void ShapeReadingTest::filterKeepsObjectsTouchingAnArea_data()
{
    QTest::addColumn<QRectF>("area"); // empty: a filter without areas
    QTest::addColumn<int>("routes");
    QTest::addColumn<int>("districts");
    QTest::addColumn<int>("buildings");
    QTest::newRow("no area lets all pass") << QRectF() << 3 << 4 << 4;
    // x 3500000..3500450: routes 1 and 2, districts 1 and 2, buildings 1..3.
    QTest::newRow("western strip") << QRectF(3500000, 5400000, 450, 300) << 2 << 2 << 3;
    QTest::newRow("far away") << QRectF(3600000, 5500000, 100, 100) << 0 << 0 << 0;
}

void ShapeReadingTest::filterKeepsObjectsTouchingAnArea()
{
    QFETCH(QRectF, area);
    QFETCH(int, routes);
    QFETCH(int, districts);
    QFETCH(int, buildings);
    auto filter = QSharedPointer<QMap<QString, QPainterPath>>::create();
    if (!area.isEmpty()) {
        QPainterPath path;
        path.addRect(area);
        filter->insert("Baufeld", path);
    }
    ImportRouteDataFromShapeFile routeImport;
    ImportDistrictsFromShapeFile districtImport;
    ImportBuildingFromShapeFile buildingImport;
    routeImport.SetShapeFilename(data("routes.shp"));
    districtImport.SetShapeFilename(data("districts.shp"));
    buildingImport.SetShapeFilename(data("buildings.shp"));
    routeImport.SetGeoFilter(filter);
    districtImport.SetGeoFilter(filter);
    buildingImport.SetGeoFilter(filter);
    QVERIFY(routeImport.Execute() && districtImport.Execute() && buildingImport.Execute());
    QCOMPARE(routeImport.GetRoads().size(), routes);
    QCOMPARE(districtImport.GetDistrictPieces().size(), districts);
    QCOMPARE(buildingImport.GetBuildings().size(), buildings);
}

void ShapeReadingTest::jobGoesOnAfterAFileThatFails_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("records"); // after the file was read twice
    QTest::newRow("sheets replace those of the same number") << int(ShapeImportJob::imSheets) << "sheets.shp" << 6;
    QTest::newRow("routes") << int(ShapeImportJob::imRoutes) << "routes.shp" << 6;
    QTest::newRow("districts") << int(ShapeImportJob::imDistricts) << "districts.shp" << 8;
    QTest::newRow("buildings") << int(ShapeImportJob::imBuildings) << "buildings.shp" << 8;
}

void ShapeReadingTest::jobGoesOnAfterAFileThatFails()
{
    QFETCH(int, mode);
    QFETCH(QString, file);
    QFETCH(int, records);
    // As the dialog imports several files: one that fails, then the others.
    ShapeImportJob job(static_cast<ShapeImportJob::ImportMode>(mode));
    job.SetFiles(data("missing.shp"));
    QVERIFY(!job.Run());
    QCOMPARE(job.GetLastErrorMessage(), "Error opening shape file");
    job.SetFiles(data(file));
    QVERIFY2(job.Run() && job.Run(), qPrintable(job.GetLastErrorMessage()));
    QMap<int, QMap<QString, QList<PointF>>> scales;
    job.GetScalesMap(scales);
    int made = job.GetRoads().size() + job.GetDistrictPieces().size() + job.GetBuildings().size();
    for (const auto& sheets : qAsConst(scales))
        made += sheets.size();
    QCOMPARE(made, records);
}

QTEST_GUILESS_MAIN(ShapeReadingTest)
#include "ShapeReadingTest.moc"
