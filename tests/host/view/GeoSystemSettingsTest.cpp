#include <Kamo_view/GeoSystemSettings.h>

#include <QPolygonF>
#include <QTest>

#include <cstring>

// Expected values come from "cs2cs -f %.4f EPSG:31467 EPSG:25832" (and
// EPSG:4326, "-f %.9f") of PROJ 9.1.1 with proj-data's BETA2007 grid; those
// systems take northing and latitude first, the host easting and longitude.
namespace {

const char* const gk3 = "EPSG:31467";
const char* const utm32 = "EPSG:25832";

const char* const gk3Wkt
    = "PROJCRS[\"DHDN / 3-degree Gauss-Kruger zone 3\",BASEGEOGCRS[\"DHDN\",DATUM[\"Deutsches Hauptdreiecksn"
      "etz\",ELLIPSOID[\"Bessel 1841\",6377397.155,299.1528128,LENGTHUNIT[\"metre\",1]]],PRIMEM[\"Greenwich\","
      "0,ANGLEUNIT[\"degree\",0.0174532925199433]],ID[\"EPSG\",4314]],CONVERSION[\"3-degree Gauss-Kruger zon"
      "e 3\",METHOD[\"Transverse Mercator\",ID[\"EPSG\",9807]],PARAMETER[\"Latitude of natural origin\",0,ANGL"
      "EUNIT[\"degree\",0.0174532925199433],ID[\"EPSG\",8801]],PARAMETER[\"Longitude of natural origin\",9,AN"
      "GLEUNIT[\"degree\",0.0174532925199433],ID[\"EPSG\",8802]],PARAMETER[\"Scale factor at natural origin\""
      ",1,SCALEUNIT[\"unity\",1],ID[\"EPSG\",8805]],PARAMETER[\"False easting\",3500000,LENGTHUNIT[\"metre\",1]"
      ",ID[\"EPSG\",8806]],PARAMETER[\"False northing\",0,LENGTHUNIT[\"metre\",1],ID[\"EPSG\",8807]]],CS[Cartes"
      "ian,2],AXIS[\"northing (X)\",north,ORDER[1],LENGTHUNIT[\"metre\",1]],AXIS[\"easting (Y)\",east,ORDER[2"
      "],LENGTHUNIT[\"metre\",1]],USAGE[SCOPE[\"Cadastre, engineering survey, topographic mapping.\"],AREA["
      "\"Germany - former West Germany onshore between 7°30'E and 10°30'E - states of Baden-Wurtemberg, "
      "Bayern, Bremen, Hamberg, Hessen, Niedersachsen, Nordrhein-Westfalen, Rhineland-Pfalz, Schleswig-"
      "Holstein.\"],BBOX[47.27,7.5,55.09,10.51]],ID[\"EPSG\",31467]]";

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

GeoSystemSettings settingsOf(const char* definition)
{
    return GeoSystemSettings::FromDefinition(QString::fromUtf8(definition));
}

} // namespace

class GeoSystemSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equality_data();
    void equality();
    void textRoundTrip_data();
    void textRoundTrip();
    void description();
    void conversion_data();
    void conversion();
    void unconvertedPointKeepsBits_data();
    void unconvertedPointKeepsBits();
    void manyPointsAllOrNothing();
};

void GeoSystemSettingsTest::equality_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<bool>("equal");
    const auto row = [](const char* name, const QString& a, const QString& b, bool equal) {
        QTest::newRow(name) << a << b << equal;
    };
    row("same code", gk3, gk3, true);
    row("lower case", gk3, "epsg:31467", true);
    row("wkt", gk3, gk3Wkt, true);
    row("other system", gk3, utm32, false);
    row("both null", "", "", true);
    row("one null", "", gk3, false);
    row("unknown, same text", "EPSG:999999", "EPSG:999999", true);
    row("unknown and known", "EPSG:999999", gk3, false);
}

void GeoSystemSettingsTest::equality()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(bool, equal);
    QCOMPARE(GeoSystemSettings::FromDefinition(a).IsEqual(GeoSystemSettings::FromDefinition(b)), equal);
    QCOMPARE(GeoSystemSettings::FromDefinition(b).IsEqual(GeoSystemSettings::FromDefinition(a)), equal);
}

void GeoSystemSettingsTest::textRoundTrip_data()
{
    QTest::addColumn<QString>("definition");
    QTest::addColumn<bool>("valid");
    QTest::newRow("code") << "EPSG:31467" << true;
    QTest::newRow("wkt") << gk3Wkt << true;
    QTest::newRow("proj string without type") << "+proj=utm +zone=32 +ellps=GRS80" << true;
    QTest::newRow("unknown code") << "EPSG:999999" << false;
    QTest::newRow("operation, not a system") << "+proj=pipeline +step +proj=axisswap +order=2,1" << false;
    QTest::newRow("null") << "" << false;
}

void GeoSystemSettingsTest::textRoundTrip()
{
    QFETCH(QString, definition);
    QFETCH(bool, valid);
    const GeoSystemSettings settings = GeoSystemSettings::FromDefinition(definition);
    const GeoSystemSettings read = GeoSystemSettings::FromString(settings.ToString());
    QCOMPARE(read.ToString(), definition);
    QCOMPARE(read.IsNull(), definition.isEmpty());
    QVERIFY(read.IsEqual(settings));
    QCOMPARE(read.IsValid(), valid);
}

void GeoSystemSettingsTest::description()
{
    QCOMPARE(GeoSystemSettings::FromEpsg(31467).GetDescription(), "DHDN / 3-degree Gauss-Kruger zone 3 (EPSG:31467)");
    QCOMPARE(GeoSystemSettings().GetDescription(), QString());
}

void GeoSystemSettingsTest::conversion_data()
{
    QTest::addColumn<QString>("to");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("expectedX");
    QTest::addColumn<double>("expectedY");
    QTest::addColumn<double>("tolerance");
    // A Helmert transformation in place of the grid is off by metres.
    QTest::newRow("Hanover") << utm32 << 3512000.0 << 5798000.0 << 511922.7305 << 5796120.7831 << 0.001;
    QTest::newRow("Hamburg") << utm32 << 3565000.0 << 5935000.0 << 564903.6995 << 5933065.1560 << 0.001;
    QTest::newRow("Black Forest") << utm32 << 3450000.0 << 5350000.0 << 449944.5495 << 5348299.3278 << 0.001;
    // 1e-8 degrees is about a millimetre.
    QTest::newRow("longitude, latitude") << "EPSG:4326" << 3512000.0 << 5798000.0 << 9.174904270 << 52.315287973
                                         << 1e-8;
}

void GeoSystemSettingsTest::conversion()
{
    QFETCH(QString, to);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, expectedX);
    QFETCH(double, expectedY);
    QFETCH(double, tolerance);
    const GeoSystemSettings from = settingsOf(gk3);
    const GeoSystemSettings target = GeoSystemSettings::FromDefinition(to);

    double px = x, py = y;
    QVERIFY2(ChangeGeoSystemEx(px, py, from, target, false), qPrintable(GeoSystemLastError()));
    QVERIFY2(std::abs(px - expectedX) <= tolerance, qPrintable(QString::number(px, 'f', 9)));
    QVERIFY2(std::abs(py - expectedY) <= tolerance, qPrintable(QString::number(py, 'f', 9)));
    QCOMPARE(GeoSystemLastError(), QString());

    // The same operation for many points at once.
    QVector<PointF> points { PointF(x, y) };
    QVERIFY(ChangeGeoSystemEx(points, from, target, false));
    QCOMPARE(points.first(), PointF(px, py));
    QPolygonF polygon(QVector<QPointF> { QPointF(x, y) });
    QVERIFY(ChangeGeoSystemEx(polygon, from, target, false));
    QCOMPARE(polygon.first(), QPointF(px, py));
}

void GeoSystemSettingsTest::unconvertedPointKeepsBits_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<bool>("succeeds");
    QTest::newRow("null source") << "" << utm32 << true;
    QTest::newRow("null target") << gk3 << "" << true;
    QTest::newRow("equal systems") << gk3 << "epsg:31467" << true;
    // Near the equator, far beyond the German grid.
    QTest::newRow("outside the grid") << gk3 << utm32 << false;
    QTest::newRow("unknown source") << "EPSG:999999" << utm32 << false;
    QTest::newRow("unknown target") << gk3 << "no system" << false;
}

void GeoSystemSettingsTest::unconvertedPointKeepsBits()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(bool, succeeds);
    const double x0 = 3500000.123456789, y0 = 1000000.987654321;
    double x = x0, y = y0;
    QCOMPARE(
        ChangeGeoSystemEx(x, y, GeoSystemSettings::FromDefinition(from), GeoSystemSettings::FromDefinition(to), false),
        succeeds);
    QVERIFY(sameBits(x, x0) && sameBits(y, y0));
    QCOMPARE(GeoSystemLastError().isEmpty(), succeeds);
}

void GeoSystemSettingsTest::manyPointsAllOrNothing()
{
    const QVector<PointF> original { PointF(3512000, 5798000), PointF(3500000.125, 1000000.25),
        PointF(3565000, 5935000) };
    QVector<PointF> points = original;
    QVERIFY(!ChangeGeoSystemEx(points, settingsOf(gk3), settingsOf(utm32), false));
    QCOMPARE(points, original);
}

QTEST_GUILESS_MAIN(GeoSystemSettingsTest)
#include "GeoSystemSettingsTest.moc"
