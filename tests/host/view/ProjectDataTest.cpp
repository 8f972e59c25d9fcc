#include "../../nodetools/TestProject.h" // F, T, Z, S: the separators of link values

#include <Kamo_view/AnnHelperBase.h>
#include <Kamo_view/BuildingObject.h>
#include <Kamo_view/DetermineVertexOrder.h>
#include <Kamo_view/DistrictPiece.h>
#include <Kamo_view/ProjectDescription.h>
#include <Kamo_view/RoadObject.h>

#include <QPainterPath>
#include <QtTest>

using Line = QVector<PointF>;
using Rings = QList<QVector<PointF>>;
Q_DECLARE_METATYPE(PointF)
Q_DECLARE_METATYPE(VertexOrder)

namespace {

// A link record of 23 fields.
QString record(const QStringList& fields)
{
    return fields.join(F) + F.repeated(23 - fields.size());
}

QList<TargetInfo> parse(QString value)
{
    QList<TargetInfo> targets;
    AnnHelperBase::ParseLink(targets, value);
    return targets;
}

QString save(const QList<TargetInfo>& targets)
{
    QString line;
    AnnHelperBase::SaveLink(targets, line, false);
    return line;
}

Line square(double left, double bottom, double size)
{
    return { PointF(left, bottom), PointF(left + size, bottom), PointF(left + size, bottom + size),
        PointF(left, bottom + size) };
}

} // namespace

// The host's records: link values, the project description, the shapes of
// imported objects.
class ProjectDataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linkValuesReadBackToThemselves_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("linked"); // false: no target path, so nothing is read
        // Field text as users type it, with "=" and the split marker inside.
        const QString typed = "abcXYZ019 _-.:\\/=;,äöüßÄ€¤#{}HREF=";
        QTest::newRow("standard") << record({ "0", "C:\\PDF\\P1.PDF", "3", typed, "1.0", typed }) << true;
        QTest::newRow("standard, 22 fields kept") << "0" + F + "x" + F.repeated(20) << true;
        QTest::newRow("standard, 24 fields kept") << record({ "0", typed, typed }) + F + typed << true;
        QTest::newRow("split, three targets, unlinked and typed zones")
            << S + record({ "0", "a.pdf" + Z + Z + "c.pdf" + Z + typed, "1" + Z + Z + typed + Z, typed }) + T
                + record({ "1", "https://example.org/x" }) + T + record({ typed, typed, typed, typed })
            << true;
        QTest::newRow("split, target without path") << S + record({ "0", "a.pdf" }) + T + record({ "0" }) << true;
        QTest::newRow("split, record without page field") << S + "0" + F + "a.pdf" << true;
        QTest::newRow("empty") << "" << false;
        QTest::newRow("only the split marker") << S << false;
        QTest::newRow("one field") << "0" << false;
        QTest::newRow("standard with empty path") << record({ "0", "", "3" }) << false;
        QTest::newRow("split with unlinked zones only") << S + record({ "0", Z + Z }) << false;
        QTest::newRow("split with empty records") << S + T + T << false;
    }

    void linkValuesReadBackToThemselves()
    {
        QFETCH(QString, value);
        QFETCH(bool, linked);
        const QList<TargetInfo> targets = parse(value);
        QCOMPARE(targets.isEmpty(), !linked);
        QCOMPARE(save(targets), "HREF=" + (linked ? value : QString()));
    }

    // Whatever the reader is given, what the writer makes of it must read back
    // to itself, so a second run of a tool changes nothing more.
    void malformedLinkValuesSettleAfterOnePass()
    {
        QRandomGenerator random(4711);
        const QString alphabet = F + T + Z + S + "ab1";
        for (int n = 0; n < 20000; ++n) {
            QString value;
            for (int i = int(random.bounded(40)); i > 0; --i)
                value += alphabet.at(int(random.bounded(alphabet.size())));
            const QString once = save(parse(value));
            if (once != "HREF=" && save(parse(once.mid(5))) != once)
                QFAIL(qPrintable(QString("not settled after one pass: #%1").arg(n)));
        }
    }

    void linkFormFollowsTargetsAndZones()
    {
        QList<TargetInfo> targets = parse(
            S + record({ "0", "A.pdf" + Z + Z + "C.pdf", "4" + Z + Z + "x", "Bez" }) + T + record({ "2", "node:17" }));
        QCOMPARE(targets.size(), 2);
        const TargetInfo& first = targets.at(0);
        // An unreadable page is the first.
        QCOMPARE((QVariantList { first.IsSplit(), first.ZoneCount(), first.Zone(1).IsLinked(), first.ZonePath(0),
                     first.ZonePath(2), first.Description(), targets.at(1).GetField(TargetInfo::TypeField),
                     first.Zone(0).PageNumber(), first.Zone(2).PageNumber() }),
            (QVariantList { true, 3, false, "A.pdf", "C.pdf", "Bez", "2", 4, 1 }));

        const QString standard = record({ "0", "a.pdf", "2" });
        targets = parse(standard);
        QCOMPARE(save(targets + targets), "HREF=" + S + standard + T + standard);
        targets[0].SetZones({ ZoneInfo("a.pdf", "2"), ZoneInfo("b.pdf") });
        QCOMPARE(save(targets), "HREF=" + S + record({ "0", "a.pdf" + Z + "b.pdf", "2" + Z }));
        targets = parse(S + standard);
        targets[0].SetZonePath(0, "neu.pdf");
        QCOMPARE(save(targets), "HREF=" + S + record({ "0", "neu.pdf", "2" }));
        targets[0].SetSplit(false);
        QCOMPARE(save(targets), "HREF=" + record({ "0", "neu.pdf", "2" }));
        QString line;
        AnnHelperBase::SaveLink(targets, line, true);
        QVERIFY(line.endsWith(".pdf" + F + "2" + F.repeated(20) + "\r\n"));
    }

    // What the host shows of the tables, participants and galleries is
    // KamoHostTest's concern.
    void sampleProjectLoads()
    {
        ProjectDescription description;
        QVERIFY2(description.Load(KAMO_SAMPLE_PROJECT), qPrintable(description.ErrorString()));
        const QString plan = "C:\\Projekte\\Musterstadt\\PDF\\Hausanschlussplan_Lindenweg.pdf";
        const QMap<int, QList<PinObject>> pins = description.Pins().value(plan);
        QStringList documents, zone2;
        for (NodeInfo* haltung : description.FindNodes("Haltung H0815")) {
            haltung->GetFilesForZone(haltung->Zone(), documents);
            haltung->GetFilesForZone(2, zone2);
        }
        // The plan is filed under node 6 and again under its child 7: the
        // lower id keeps it.
        QCOMPARE(
            (QVariantList { description.Id(), description.Nodes().size(), description.NodeOrder().value(0),
                description.GeoSystem(), description.Areas().value("Baufeld West").contains(QPointF(500000, 5398300)),
                description.Files().value(plan).NodeId(), description.Files().value(plan).Index(), documents.size(),
                zone2, pins.value(1).value(1).Note(), pins.value(2).value(0).X() }),
            (QVariantList { "MS-KS-2024", 8, 1, "EPSG:25832", true, 6, 1, 3,
                QStringList { "C:\\Projekte\\Musterstadt\\PDF\\Zonen\\BA1_H0815.pdf" }, "Keller unter Straßenniveau",
                120.25 }));
        QCOMPARE(pins.keys(), (QList<int> { 1, 2 }));
    }

    void malformedDescriptionsAreRejected_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* name, const QByteArray& json, const QString& message) {
            QTest::newRow(name) << json << message;
        };
        const QByteArray head = R"({"Version": 1, "Nodes": [)";
        const QByteArray bare = R"({"Version": 1, "Nodes": [], )";
        row("not JSON", "{\"Version\": 1,", "not valid JSON at offset");
        row("a list at the top", "[]", "top level must be an object");
        row("other version", R"({"Version": 2, "Nodes": []})", "\"Version\" must be 1");
        row("nodes not a list", R"({"Version": 1, "Nodes": {}})", "\"Nodes\" must be a list");
        row("fractional id", head + R"({"Id": 1.5}]})", "node 1: \"Id\" must be a positive whole number");
        row("id twice", head + R"({"Id": 4}, {"Id": 4}]})", "node 2: id 4 is used twice");
        row("child before parent", head + R"({"Id": 2, "Parent": 1}, {"Id": 1}]})", "parent 1 must be listed before");
        row("zone 5", head + R"({"Id": 1, "Zone": 5}]})", "\"Zone\" must be 1 to 4");
        row("document zone 0", head + R"({"Id": 1, "Documents": {"0": ["a.pdf"]}}]})", "document zone \"0\" must be");
        row("document not text", head + R"({"Id": 1, "Documents": {"1": [7]}}]})", "documents must be file names");
        row("pin without Y", bare + R"("Pins": {"a.pdf": {"1": [{"Id": 3, "X": 1}]}}})", "pin 3 needs numbers");
        row("participant twice", bare + R"("Participants": [{"Id": 3}, {"Id": 3}]})", "Participants 2: id 3 is used");
        row("table without id", bare + R"("Tables": [{"Name": "T"}]})", "Tables 1: \"Id\" must be");
        row("area of two points", bare + R"("Areas": {"A": [[0, 0], [1, 1]]}})", "needs at least three points");
        row("area point not a pair", bare + R"("Areas": {"A": [[0, 0], [1], [2, 2]]}})", "points are [x, y] pairs");
        row("page 01", bare + R"("Pins": {"a.pdf": {"01": []}}})", "page \"01\" must be a number from 1");
    }

    // Nothing of a rejected file is kept.
    void malformedDescriptionsAreRejected()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, message);
        QTemporaryDir root;
        QFile file(root.filePath("Projekt.json"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(json) == json.size());
        file.close();
        ProjectDescription description;
        QVERIFY(!description.Load(root.path()));
        QVERIFY2(description.ErrorString().startsWith(file.fileName()) && description.ErrorString().contains(message),
            qPrintable(description.ErrorString()));
        QVERIFY(description.Nodes().isEmpty() && description.Files().isEmpty());
    }

    void objectsMeetTheArea_data()
    {
        QTest::addColumn<bool>("route"); // the rings as lines of a route, else as a plot's and a building's
        QTest::addColumn<Rings>("rings");
        QTest::addColumn<bool>("intersects");
        QTest::addColumn<VertexOrder>("order"); // of the last ring
        const auto row = [](const char* name, bool route, const Rings& rings, bool intersects, VertexOrder order) {
            QTest::newRow(name) << route << rings << intersects << order;
        };
        const VertexOrder ccw = VertexOrder::CounterClockwise, none = VertexOrder::Degenerate;
        row("route: vertex inside", true, { { PointF(-50, 10), PointF(10, 10) } }, true, none);
        row("route: crossing, no vertex inside", true, { { PointF(-50, 20), PointF(150, 20) } }, true, none);
        row("route: north-south through, collinear", true, { { PointF(20, -50), PointF(20, -40), PointF(20, 150) } },
            true, none);
        row("route: ends on the outline", true, { { PointF(-50, 10), PointF(0, 10) } }, true, none);
        row("route: along an edge outside", true, { { PointF(-50, 100), PointF(150, 100) } }, true, none);
        row("route: single point inside", true, { { PointF(30, 30) } }, true, none);
        row("route: around without touching, closed", true,
            { { PointF(-10, -10), PointF(110, -10), PointF(110, 110), PointF(-10, 110), PointF(-10, -10) } }, false,
            ccw);
        row("route: within the hole, there and back", true, { { PointF(45, 45), PointF(55, 55), PointF(45, 45) } },
            false, none);
        row("route: empty", true, { {} }, false, none);
        // Plots and buildings may have holes of their own.
        row("overlapping", false, { square(90, 90, 50) }, true, ccw);
        // A centimetre triangle at Gauss-Krueger coordinates still has an
        // orientation.
        row("disjoint, small ring far out", false,
            { { PointF(3512000.00, 5798000.00), PointF(3512000.01, 5798000.00), PointF(3512000.00, 5798000.01) } },
            false, ccw);
        row("in the area's hole", false, { square(45, 45, 10) }, false, ccw);
        row("around the area", false, { square(-50, -50, 200) }, true, ccw);
        row("area in its hole", false, { square(-50, -50, 200), square(-20, -20, 140) }, false, ccw);
        Line reversed = square(-20, -20, 140);
        std::reverse(reversed.begin(), reversed.end());
        row("hole turned the wrong way", false, { square(-50, -50, 200), reversed }, false, VertexOrder::Clockwise);
        row("area across its hole's edge", false, { square(-50, -50, 200), square(-20, -20, 60) }, true, ccw);
    }

    // The area is 0..100 in both directions with a hole 40..60, in projected
    // coordinates; a route has a line far away beside the one of the row.
    void objectsMeetTheArea()
    {
        QFETCH(bool, route);
        QFETCH(Rings, rings);
        QFETCH(bool, intersects);
        QFETCH(VertexOrder, order);
        QPainterPath area;
        area.setFillRule(Qt::OddEvenFill);
        area.addRect(0, 0, 100, 100);
        area.addRect(40, 40, 20, 20);
        RoadObject road;
        road.lines = Rings { { PointF(1000, 1000), PointF(1100, 1000) } } + rings;
        DistrictPiece plot;
        plot.rings = rings;
        BuildingObject building;
        building.rings = rings;
        QCOMPARE(route ? road.Intersects(area) : plot.Intersects(area), intersects);
        QCOMPARE(route ? intersects : building.Intersects(area), intersects);
        QCOMPARE(DetermineVertexOrder(rings.last()), order);
    }
};

QTEST_GUILESS_MAIN(ProjectDataTest)
#include "ProjectDataTest.moc"
