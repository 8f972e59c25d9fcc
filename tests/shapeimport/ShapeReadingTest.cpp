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

// What a job made, as a host shows it: each object's assigned columns, and
// per ring its sense or length; sheets by scale and number.
QStringList made(const ShapeImportJob& job)
{
    QStringList shown;
    for (const RoadObject& road : job.GetRoads())
        shown << QStringList { road.id, road.name, road.variant, QString::number(road.lines.size()) }.join('|');
    for (const DistrictPiece& piece : job.GetDistrictPieces()) {
        shown << piece.number;
        for (const QVector<PointF>& ring : piece.rings)
            shown.last() += DetermineVertexOrder(ring) == VertexOrder::CounterClockwise ? " ccw" : " cw";
    }
    for (const BuildingObject& building : job.GetBuildings())
        shown << QString("%1|%2|%3").arg(building.town, building.ownerHouseNumber).arg(building.rings.at(0).size());
    QMap<int, QMap<QString, QList<PointF>>> scales;
    job.GetScalesMap(scales);
    for (auto scale = scales.cbegin(); scale != scales.cend(); ++scale) {
        for (const QString& number : scale.value().keys())
            shown << QString("%1 %2").arg(scale.key()).arg(number);
    }
    return shown;
}

} // namespace

class ShapeReadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryFixture_data();
    void readsEveryFixture();
    void textIsDecodedAndTrimmed_data();
    void textIsDecodedAndTrimmed();
    void routeImportReportsSuccessEvenOnFailure();
    void jobReadsFileAfterFile_data();
    void jobReadsFileAfterFile();
};

void ShapeReadingTest::readsEveryFixture_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("readable");
    QTest::addColumn<QString>("type"); // empty: the file does not open
    QTest::addColumn<QStringList>("fields");
    const QStringList sheet { "BLATTNR", "BLATT2", "MASSSTAB" }, none { "untouched" };
    QTest::newRow("no table") << "nodbf" << 2 << "2D Polygon" << none;
    QTest::newRow("points with height") << "points_z" << 3 << "3D Point" << QStringList { "NAME", "HOEHE" };
    // Damaged files fail to open, or the records shapelib refuses come
    // back empty and yield no object.
    QTest::newRow("cut in the third record") << "corrupt/truncated" << 2 << "2D Polygon" << sheet;
    QTest::newRow("index pointing past the end") << "corrupt/badshx" << 0 << "" << sheet;
    QTest::newRow("shorter than a header") << "corrupt/tiny" << 0 << "" << sheet;
    QTest::newRow("table header wrong") << "corrupt/baddbf" << 6 << "2D Polygon" << none;
    QTest::newRow("table claims ten million records") << "corrupt/dbfcount" << 6 << "2D Polygon" << sheet;
    QTest::newRow("absurd part count") << "corrupt/parts" << 4 << "2D Polygon" << sheet;
    QTest::newRow("part starts going back") << "corrupt/partstarts" << 2 << "2D Polygon" << QStringList { "FLSTKENNZ" };
}

void ShapeReadingTest::readsEveryFixture()
{
    QFETCH(QString, file);
    QFETCH(int, readable);
    QFETCH(QString, type);
    QFETCH(QStringList, fields);
    ShapeFileReader reader;
    QCOMPARE(reader.Open(QFile::encodeName(data(file + ".shp"))), type.isEmpty() ? -1 : 0);
    QCOMPARE(ShapeObject::ShapeTypeName(reader.GetShapeType()), type.isEmpty() ? "None" : type);
    // Codes without a shape type, out of the name table's range or in a gap.
    QVERIFY(ShapeObject::ShapeTypeName(-1) == "Unknown" && ShapeObject::ShapeTypeName(2) == "Unknown");
    ShapeObject object;
    int read = 0;
    for (int i = 0; i < reader.GetEntityCount(); ++i)
        read += reader.ReadObject(i, object) == 0 && object.GetVertexCount() > 0 && object.GetRecordIndex() == i;
    QCOMPARE(read, readable);
    QVERIFY(reader.ReadObject(reader.GetEntityCount(), object) == -1 && object.IsEmpty());
    // The table beside a shape file keeps every dot of the name before the suffix.
    QCOMPARE(MakeShapeDbFilenameFromShapeFilename("d:/a/b.c.shp"), "d:/a/b.c.dbf");
    QCOMPARE(MakeShapeDbFilenameFromShapeFilename("plan.SHP"), "./plan.dbf");
    QVector<QString> names { "untouched" };
    GetAvailableFieldNames(MakeShapeDbFilenameFromShapeFilename(data(file + ".shp")), names);
    QCOMPARE(QStringList(names.toList()), fields);

    // Importing it fails or goes on likewise.
    ImportSheetDataFromShapeFile import;
    import.SetShapeFilename(data(file + ".shp"));
    QCOMPARE(import.Execute(), !type.isEmpty());
}

void ShapeReadingTest::textIsDecodedAndTrimmed_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("record");
    QTest::addColumn<QString>("text");
    const QString buildings = "buildings", stars = "stars", routes = "routes";
    QTest::newRow("blanks around") << buildings << "E_STRASSE" << 0 << "Hauptstraße";
    QTest::newRow("number without value") << buildings << "HNR" << 3 << "";
    QTest::newRow("decimal number without value") << stars << "BETRAG" << 0 << "";
    QTest::newRow("stars in a text column") << stars << "KLASSE" << 0 << "***";
    QTest::newRow("leading zero kept") << buildings << "E_PLZ" << 3 << "01067";
    QTest::newRow("column not in the table") << routes << "STRASSE" << 1 << "";
    QTest::newRow("record beyond the table") << routes << "NAME" << 7 << "";
}

void ShapeReadingTest::textIsDecodedAndTrimmed()
{
    QFETCH(QString, file);
    QFETCH(QString, field);
    QFETCH(int, record);
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
    // A column assigned twice reads as its lowest id; names match exactly.
    fields.SetAssignment(5, field);
    QVERIFY(fields.GetTargetIdOfColumn(field) == 5 && fields.GetTargetIdOfColumn(field.toLower()) == -1);
    fields.ClearAssignments();
    QVERIFY(!fields.ReadString(record, 5, read) && fields.GetTargetIdOfColumn(field) == -1);
}

// Copies of an importer share its field manager.
void ShapeReadingTest::routeImportReportsSuccessEvenOnFailure()
{
    ImportRouteDataFromShapeFile routes;
    QVERIFY(!routes.Execute());
    // Hosts rely on it: only the message tells that the file was not read.
    routes.SetShapeFilename(data("missing.shp"));
    QVERIFY(routes.Execute());
    QCOMPARE(routes.GetLastErrorMessage(), "Error opening shape file");
    ImportRouteDataFromShapeFile(routes).GetImportFieldManager()->SetAssignment(
        ImportRouteDataFromShapeFile::tfVariant, "VARIANTE");
    routes.SetDefaultVariant("Trasse");
    routes.SetShapeFilename(data("routes.shp"));
    QVERIFY(routes.Execute() && routes.GetLastErrorMessage().isEmpty());
    QVERIFY(routes.GetRoads().at(0).variant == "Trasse" && routes.GetRoads().at(1).variant == "Umleitung Süd");
    QCOMPARE(routes.GetRoads().at(1).lines.at(1).constLast(), PointF(3501000, 5400200));
}

void ShapeReadingTest::jobReadsFileAfterFile_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("pageText");
    QTest::addColumn<QRectF>("area");         // of the filter; empty: a filter without areas
    QTest::addColumn<QStringList>("objects"); // of one reading, then the warnings
    const int sheets = ShapeImportJob::imSheets, routes = ShapeImportJob::imRoutes;
    const int districts = ShapeImportJob::imDistricts, buildings = ShapeImportJob::imBuildings;
    const QRectF all, west(3500000, 5400000, 450, 300), farAway(3600000, 5500000, 100, 100);
    const QString noText;
    // No table: numbered by record, with no scale.
    QTest::newRow("no table") << sheets << "nodbf.shp" << noText << all << QStringList { "0 leer1", "0 leer2" };
    // 0042 twice: one sheet, and a word about it; "ohne" has no digits; the
    // empty number of record 4 stays empty; " 1:2500 " and "M 1:2.500" agree.
    QTest::newRow("scales from the table, blank page text is none")
        << sheets << "sheets.shp"
        << "  " << all
        << QStringList { "0 ", "1000 43", "2500 42", "2500 46", "5000 44 - a",
               "Object 6 replaces the earlier sheet \"42\" at scale 2500" };
    QTest::newRow("page text") << sheets << "sheets.shp"
                               << "Blatt" << all
                               << QStringList { "0 _Blatt", "1000 43_Blatt", "2500 42_Blatt", "2500 46_Blatt",
                                      "5000 44 - a_Blatt",
                                      "Object 6 replaces the earlier sheet \"42_Blatt\" at scale 2500" };
    // UTF-8 by the routes' code page file, Latin-1 for the buildings.
    const QStringList roads { "|Lindenweg||1", "|Müllerstraße|Umleitung Süd|2", "|Äußere Weiherstraße|ö|1" };
    QTest::newRow("routes") << routes << "routes.shp" << noText << all << roads;
    QTest::newRow("routes in the west") << routes << "routes.shp" << noText << west << QStringList(roads.mid(0, 2));
    // Rings of the host's sense: outer ones counter-clockwise, holes clockwise.
    const QStringList pieces { "051234-001-00012/0003 ccw", "1234-1-12/3 ccw cw", "Flst. 17 ccw ccw", " ccw" };
    QTest::newRow("districts") << districts << "districts.shp" << noText << all << pieces;
    QTest::newRow("districts with counter-clockwise outer rings")
        << districts << "districts_ccw.shp" << noText << all << QStringList(pieces.mid(1, 2));
    QTest::newRow("districts far away") << districts << "districts.shp" << noText << farAway << QStringList();
    const QStringList houses { "Müllheim|12|7", "Öhringen|3|5", "Überlingen|101|5", "Warthausen|5|5" };
    QTest::newRow("buildings") << buildings << "buildings.shp" << noText << all << houses;
    QTest::newRow("buildings in the west")
        << buildings << "buildings.shp" << noText << west << QStringList(houses.mid(0, 3));
}

void ShapeReadingTest::jobReadsFileAfterFile()
{
    QFETCH(int, mode);
    QFETCH(QString, file);
    QFETCH(QString, pageText);
    QFETCH(QRectF, area);
    QFETCH(QStringList, objects);
    // As the dialog imports several files: one that fails, then the others.
    ShapeImportJob job(static_cast<ShapeImportJob::ImportMode>(mode));
    auto filter = QSharedPointer<QMap<QString, QPainterPath>>::create();
    if (!area.isEmpty())
        (*filter)["Baufeld"].addRect(area);
    job.SetGeoFilter(filter);
    job.SetScaleImportMode(ImportSheetDataFromShapeFile::ssimFromTable);
    job.SetPageAdditionalText(pageText);
    job.SetFiles(data("missing.shp"));
    QVERIFY(!job.Run() && job.GetLastErrorMessage() == "Error opening shape file");
    job.SetFiles(data(file));
    // The columns a host assigns, where the file has a table.
    using Sheets = ImportSheetDataFromShapeFile;
    using Buildings = ImportBuildingFromShapeFile;
    const QList<QPair<int, QString>> columns[] = {
        { { Sheets::tfSheetNr, "BLATTNR" }, { Sheets::tfSheetNr2, "BLATT2" }, { Sheets::tfSheetScale, "MASSSTAB" } },
        { { ImportRouteDataFromShapeFile::tfName, "NAME" }, { ImportRouteDataFromShapeFile::tfVariant, "VARIANTE" } },
        { { ImportDistrictsFromShapeFile::tfDistrictPieceNumber, "FLSTKENNZ" } },
        { { Buildings::tfOwnerHouseNumber, "E_HNR" }, { Buildings::tfTown, "ORT" } },
    };
    for (const auto& column : columns[mode])
        QCOMPARE(job.Assign(column.first, column.second),
            QFile::exists(data(file).replace(".shp", ".dbf")) ? ShapeImportJob::acOk : ShapeImportJob::acUnknownColumn);

    QVERIFY2(job.Run(), qPrintable(job.GetLastErrorMessage()));
    const QStringList first = made(job);
    QCOMPARE(first + job.GetWarnings(), objects);
    // Read again, the file adds its objects; sheets replace those of the same number.
    QVERIFY(job.Run());
    QCOMPARE(made(job), mode == ShapeImportJob::imSheets ? first : first + first);
}

QTEST_GUILESS_MAIN(ShapeReadingTest)
#include "ShapeReadingTest.moc"
