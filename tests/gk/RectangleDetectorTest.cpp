#include "ReferenceRectangleDetector.h"

#include <gk/RectangleDetector.h>

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <functional>

using Points = QList<YPoint>;
// Point lists of one kind, from a seeded generator.
using Family = std::function<Points(QRandomGenerator&)>;
Q_DECLARE_METATYPE(Points)
Q_DECLARE_METATYPE(Family)

namespace {

QString format(const QList<QList<unsigned>>& rectangles)
{
    QStringList parts;
    for (const QList<unsigned>& r : rectangles)
        parts.append(QString("%1 %2 %3 %4").arg(r[0]).arg(r[1]).arg(r[2]).arg(r[3]));
    return parts.join('|');
}

QString format(const Points& points)
{
    QStringList parts;
    for (const YPoint& p : points)
        parts.append(QString("(%1, %2)").arg(p.x, 0, 'g', 17).arg(p.y, 0, 'g', 17));
    return parts.join(' ');
}

QString detected(const Points& points)
{
    QList<QList<unsigned>> rectangles;
    RectangleDetector(points).Analyze(rectangles);
    return format(rectangles);
}

// Adds a rectangle-like quadrilateral with corner p0, sides of the given
// lengths, side b turned from a by 90 degrees plus `skew` radians and the
// fourth corner at `stretch` times the diagonal's squared length from p0.
void addQuad(Points& points, YPoint p0, double la, double lb, double heading, double skew = 0, double stretch = 1)
{
    const double ax = la * std::cos(heading), ay = la * std::sin(heading);
    const double bx = lb * std::cos(heading + M_PI / 2 + skew), by = lb * std::sin(heading + M_PI / 2 + skew);
    const double d = std::sqrt(stretch);
    points << p0 << YPoint { p0.x + ax, p0.y + ay } << YPoint { p0.x + bx, p0.y + by }
           << YPoint { p0.x + (ax + bx) * d, p0.y + (ay + by) * d };
}

} // namespace

class RectangleDetectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void detects_data();
    void detects();
    void pointOverloadFollowsIndices();
    void matchesExhaustiveSearch_data();
    void matchesExhaustiveSearch();
};

void RectangleDetectorTest::detects_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<QString>("expected");

    QTest::newRow("three points") << Points { { 0, 0 }, { 4, 0 }, { 4, 3 } } << "";
    QTest::newRow("coincident corner") << Points { { 0, 0 }, { 0, 0 }, { 400, 0 }, { 400, 280 }, { 0, 280 } }
                                       << "0 2 3 4|1 2 3 4";
    QTest::newRow("closing vertex repeated")
        << Points { { 0, 0 }, { 400, 0 }, { 400, 280 }, { 0, 280 }, { 0, 0 } } << "0 1 2 3|1 2 3 4";
    // Only the right angle at p0 and the lengths are looked at: a fourth
    // point anywhere on the circle through the far corner passes.
    QTest::newRow("kite on the diagonal's circle") << Points { { 0, 0 }, { 3, 0 }, { 0, 4 }, { 0, 5 } } << "0 1 2 3";
}

void RectangleDetectorTest::detects()
{
    QFETCH(Points, points);
    QFETCH(QString, expected);
    QCOMPARE(detected(points), expected);
    QCOMPARE(format(referenceRectangles(points)), expected);
}

void RectangleDetectorTest::pointOverloadFollowsIndices()
{
    const Points points { { 7, 7 }, { 0, 0 }, { 400, 0 }, { 400, 280 }, { 0, 280 }, { 0, 0 } };
    QList<Points> rectangles { { { 1, 1 } } };
    RectangleDetector(points).Analyze(rectangles);
    QCOMPARE(rectangles.size(), 2);
    QCOMPARE(format(rectangles[0]), format(points.mid(1, 4)));
    QCOMPARE(format(rectangles[1]), format(points.mid(2, 4)));
}

void RectangleDetectorTest::matchesExhaustiveSearch_data()
{
    QTest::addColumn<Family>("family");

    // Lattice points with repeats: many rectangles, tilted ones, kites,
    // collinear and coincident points at once.
    QTest::newRow("small lattice") << Family([](QRandomGenerator& r) {
        Points points;
        for (int i = 4 + r.bounded(22); i > 0; --i)
            points.append({ double(r.bounded(6)), double(r.bounded(6)) });
        return points;
    });
    // At map scale, at any heading: right angles, and skews whose cosine or
    // diagonals whose relative difference sits within a few parts in 1e9
    // of the tolerance.
    QTest::newRow("map scale, at the tolerance") << Family([](QRandomGenerator& r) {
        // The tolerance with either sign, off by a few parts in 1e9.
        const auto edge = [&r] { return (r.bounded(2) ? 1 : -1) * 0.0002 * (1 + (r.generateDouble() - 0.5) * 4e-9); };
        Points points;
        for (int k = 2 + r.bounded(4); k > 0; --k) {
            const int kind = r.bounded(3);
            addQuad(points, { 3500000 + r.generateDouble() * 1000, 5800000 + r.generateDouble() * 1000 },
                1 + r.generateDouble() * 500, 1 + r.generateDouble() * 500, r.generateDouble() * 2 * M_PI,
                kind == 1 ? std::asin(edge()) : 0, kind == 2 ? 1 + 2 * edge() : 1);
        }
        return points;
    });
    // Coordinates whose squares overflow or vanish, and values that are
    // not numbers, next to ordinary rectangles.
    QTest::newRow("extreme values") << Family([](QRandomGenerator& r) {
        const double specials[] = { 0, 1e-160, -1e-170, 1e-300, 1e155, -1e200, 1e308, qInf(), -qInf(), qQNaN() };
        Points points;
        addQuad(points, { 0, 0 }, 1e-75, 2e-75, 0);
        addQuad(points, { 0, 0 }, 1e75, 2e75, M_PI / 2);
        addQuad(points, { 0, 0 }, 3, 4, 0);
        for (int k = 4 + r.bounded(8); k > 0; --k)
            points.append({ specials[r.bounded(10)], specials[r.bounded(10)] });
        return points;
    });
}

void RectangleDetectorTest::matchesExhaustiveSearch()
{
    QFETCH(Family, family);
    QRandomGenerator random(20261121);
    int found = 0;
    for (int round = 0; round < 300; ++round) {
        Points points = family(random);
        for (int i = points.size() - 1; i > 0; --i)
            points.swapItemsAt(i, random.bounded(i + 1));
        const QString expected = format(referenceRectangles(points));
        QVERIFY2(detected(points) == expected,
            qPrintable(QString("round %1: %2 has %3").arg(round).arg(format(points), expected)));
        found += !expected.isEmpty();
        // The quick test of the first four points must agree with the search.
        QCOMPARE(RectangleDetector::IsRectangle(points[0], points[1], points[2], points[3]),
            (expected + '|').startsWith("0 1 2 3|"));
    }
    QVERIFY(found > 0);
}

QTEST_GUILESS_MAIN(RectangleDetectorTest)
#include "RectangleDetectorTest.moc"
