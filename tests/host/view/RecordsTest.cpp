#include <Kamo_view/BuildingObject.h>
#include <Kamo_view/DetermineVertexOrder.h>
#include <Kamo_view/DistrictPiece.h>
#include <Kamo_view/RoadObject.h>

#include <QPainterPath>
#include <QTest>

using Line = QVector<PointF>;
using Rings = QList<QVector<PointF>>;
Q_DECLARE_METATYPE(PointF)
Q_DECLARE_METATYPE(VertexOrder)

namespace {

Line square(double left, double bottom, double size)
{
    return { PointF(left, bottom), PointF(left + size, bottom), PointF(left + size, bottom + size),
        PointF(left, bottom + size) };
}

// 0..100 in both directions with a hole 40..60, in projected coordinates.
QPainterPath frameArea()
{
    QPainterPath area;
    area.setFillRule(Qt::OddEvenFill);
    area.addRect(0, 0, 100, 100);
    area.addRect(40, 40, 20, 20);
    return area;
}

} // namespace

class RecordsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void routeIntersects_data();
    void routeIntersects();
    void ringsIntersect_data();
    void ringsIntersect();
    void vertexOrder_data();
    void vertexOrder();
};

void RecordsTest::routeIntersects_data()
{
    QTest::addColumn<Line>("line");
    QTest::addColumn<bool>("intersects");
    QTest::newRow("vertex inside") << Line { PointF(-50, 10), PointF(10, 10) } << true;
    QTest::newRow("crossing, no vertex inside") << Line { PointF(-50, 20), PointF(150, 20) } << true;
    QTest::newRow("north-south through") << Line { PointF(20, -50), PointF(20, 150) } << true;
    QTest::newRow("ends on the outline") << Line { PointF(-50, 10), PointF(0, 10) } << true;
    QTest::newRow("along an edge outside") << Line { PointF(-50, 100), PointF(150, 100) } << true;
    QTest::newRow("single point inside") << Line { PointF(30, 30) } << true;
    QTest::newRow("around without touching")
        << Line { PointF(-10, -10), PointF(110, -10), PointF(110, 110), PointF(-10, 110), PointF(-10, -10) } << false;
    QTest::newRow("within the hole") << Line { PointF(45, 45), PointF(55, 55) } << false;
    QTest::newRow("empty") << Line {} << false;
}

void RecordsTest::routeIntersects()
{
    QFETCH(Line, line);
    QFETCH(bool, intersects);
    RoadObject road;
    road.lines = { Line { PointF(1000, 1000), PointF(1100, 1000) }, line };
    QCOMPARE(road.Intersects(frameArea()), intersects);
}

void RecordsTest::ringsIntersect_data()
{
    QTest::addColumn<Rings>("rings");
    QTest::addColumn<bool>("intersects");
    // The area is the square 0..100 without the hole; plots and buildings
    // may have holes of their own.
    QTest::newRow("overlapping") << Rings { square(90, 90, 50) } << true;
    QTest::newRow("disjoint") << Rings { square(200, 0, 50) } << false;
    QTest::newRow("in the area's hole") << Rings { square(45, 45, 10) } << false;
    QTest::newRow("around the area") << Rings { square(-50, -50, 200) } << true;
    QTest::newRow("area in its hole") << Rings { square(-50, -50, 200), square(-20, -20, 140) } << false;
    QTest::newRow("hole turned the wrong way") << Rings { square(-50, -50, 200),
        Line { PointF(-20, -20), PointF(-20, 120), PointF(120, 120), PointF(120, -20) } }
                                               << false;
    QTest::newRow("area across its hole's edge") << Rings { square(-50, -50, 200), square(-20, -20, 60) } << true;
}

void RecordsTest::ringsIntersect()
{
    QFETCH(Rings, rings);
    QFETCH(bool, intersects);
    DistrictPiece plot;
    plot.rings = rings;
    QCOMPARE(plot.Intersects(frameArea()), intersects);
    BuildingObject building;
    building.rings = rings;
    QCOMPARE(building.Intersects(frameArea()), intersects);
}

void RecordsTest::vertexOrder_data()
{
    QTest::addColumn<Line>("ring");
    QTest::addColumn<VertexOrder>("order");
    QTest::newRow("counter-clockwise") << square(0, 0, 10) << VertexOrder::CounterClockwise;
    Line clockwise = square(0, 0, 10);
    std::reverse(clockwise.begin(), clockwise.end());
    QTest::newRow("clockwise") << clockwise << VertexOrder::Clockwise;
    Line closed = square(0, 0, 10);
    closed.append(closed.first());
    QTest::newRow("closed") << closed << VertexOrder::CounterClockwise;
    QTest::newRow("two points, closed") << Line { PointF(0, 0), PointF(1, 1), PointF(0, 0) } << VertexOrder::Degenerate;
    QTest::newRow("collinear") << Line { PointF(0, 0), PointF(1, 1), PointF(2, 2) } << VertexOrder::Degenerate;
    // A centimetre triangle at Gauss-Krueger coordinates.
    QTest::newRow("small ring far out") << Line { PointF(3512000.00, 5798000.00), PointF(3512000.01, 5798000.00),
        PointF(3512000.00, 5798000.01) } << VertexOrder::CounterClockwise;
}

void RecordsTest::vertexOrder()
{
    QFETCH(Line, ring);
    QFETCH(VertexOrder, order);
    QCOMPARE(DetermineVertexOrder(ring), order);
}

QTEST_GUILESS_MAIN(RecordsTest)
#include "RecordsTest.moc"
