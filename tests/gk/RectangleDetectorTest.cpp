#include "ReferenceRectangleDetector.h"

#include <gk/RectangleDetector.h>

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

Q_DECLARE_METATYPE(QList<YPoint>)
// Point lists of one kind, from a seeded generator.
using Family = std::function<QList<YPoint>(QRandomGenerator&)>;
Q_DECLARE_METATYPE(Family)

namespace {

QList<YPoint> pointList(std::initializer_list<std::pair<double, double>> xy)
{
    QList<YPoint> points;
    for (const auto& p : xy)
        points.append({ p.first, p.second });
    return points;
}

QString format(const QList<QList<unsigned>>& rectangles)
{
    QStringList parts;
    for (const QList<unsigned>& r : rectangles)
        parts.append(QString("%1 %2 %3 %4").arg(r[0]).arg(r[1]).arg(r[2]).arg(r[3]));
    return parts.join('|');
}

QString format(const QList<YPoint>& points)
{
    QStringList parts;
    for (const YPoint& p : points)
        parts.append(QString("(%1, %2)").arg(p.x, 0, 'g', 17).arg(p.y, 0, 'g', 17));
    return parts.join(' ');
}

QList<QList<unsigned>> detect(const QList<YPoint>& points)
{
    QList<QList<unsigned>> rectangles;
    RectangleDetector(points).Analyze(rectangles);
    return rectangles;
}

void shuffle(QList<YPoint>& points, QRandomGenerator& random)
{
    for (int i = points.size() - 1; i > 0; --i)
        points.swapItemsAt(i, random.bounded(i + 1));
}

// Adds a rectangle-like quadrilateral with corner p0, sides of the given
// lengths, side b turned from a by 90 degrees plus `skew` radians and the
// fourth corner at `stretch` times the diagonal's squared length from p0.
void addQuad(QList<YPoint>& points, YPoint p0, double la, double lb, double heading, double skew, double stretch)
{
    const double ax = la * std::cos(heading), ay = la * std::sin(heading);
    const double bx = lb * std::cos(heading + M_PI / 2 + skew), by = lb * std::sin(heading + M_PI / 2 + skew);
    const double dScale = std::sqrt(stretch);
    points.append(p0);
    points.append({ p0.x + ax, p0.y + ay });
    points.append({ p0.x + bx, p0.y + by });
    points.append({ p0.x + (ax + bx) * dScale, p0.y + (ay + by) * dScale });
}

double signedNear(QRandomGenerator& random, double boundary)
{
    const double offset = (random.generateDouble() - 0.5) * 4e-9;
    return (random.bounded(2) ? 1 : -1) * boundary * (1 + offset);
}

} // namespace

class RectangleDetectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void detects_data();
    void detects();
    void rectangleInEveryOrder();
    void pointOverloadFollowsIndices();
    void matchesExhaustiveSearch_data();
    void matchesExhaustiveSearch();
};

void RectangleDetectorTest::detects_data()
{
    QTest::addColumn<QList<YPoint>>("points");
    QTest::addColumn<QString>("expected");

    QTest::newRow("three points") << pointList({ { 0, 0 }, { 4, 0 }, { 4, 3 } }) << "";
    QTest::newRow("sheet frame") << pointList({ { 3500000, 5800000 }, { 3500400, 5800000 }, { 3500400, 5800280 },
        { 3500000, 5800280 } }) << "0 1 2 3";
    QTest::newRow("centre among the corners")
        << pointList({ { 0, 0 }, { 400, 0 }, { 200, 140 }, { 400, 280 }, { 0, 280 } }) << "0 1 3 4";
    // The 0.1% shift of p1 gives a cosine of about 0.001 at p0.
    QTest::newRow("square skewed by 0.1%") << pointList({ { 0, 0 }, { 1000, 1 }, { 1000, 1000 }, { 0, 1000 } }) << "";
    QTest::newRow("coincident points") << pointList({ { 0, 0 }, { 0, 0 }, { 10, 0 }, { 0, 10 } }) << "";
    QTest::newRow("coincident corner") << pointList({ { 0, 0 }, { 0, 0 }, { 400, 0 }, { 400, 280 }, { 0, 280 } })
                                       << "0 2 3 4|1 2 3 4";
    QTest::newRow("closing vertex repeated")
        << pointList({ { 0, 0 }, { 400, 0 }, { 400, 280 }, { 0, 280 }, { 0, 0 } }) << "0 1 2 3|1 2 3 4";
    // Only the right angle at p0 and the lengths are looked at: a fourth
    // point anywhere on the circle through the far corner passes.
    QTest::newRow("kite on the diagonal's circle")
        << pointList({ { 0, 0 }, { 3, 0 }, { 0, 4 }, { 0, 5 } }) << "0 1 2 3";
}

void RectangleDetectorTest::detects()
{
    QFETCH(QList<YPoint>, points);
    QFETCH(QString, expected);
    QCOMPARE(format(detect(points)), expected);
    QCOMPARE(format(referenceRectangles(points)), expected);
}

void RectangleDetectorTest::rectangleInEveryOrder()
{
    QList<YPoint> corners;
    addQuad(corners, { 3512345.5, 5798765.25 }, 400, 280, 0.3, 0, 1);
    int order[4] = { 0, 1, 2, 3 };
    do {
        QList<YPoint> points;
        for (int i : order)
            points.append(corners[i]);
        QCOMPARE(format(detect(points)), QString("0 1 2 3"));
    } while (std::next_permutation(order, order + 4));
}

void RectangleDetectorTest::pointOverloadFollowsIndices()
{
    const QList<YPoint> points = pointList({ { 7, 7 }, { 0, 0 }, { 400, 0 }, { 400, 280 }, { 0, 280 }, { 0, 0 } });
    QList<QList<YPoint>> rectangles { { { 1, 1 } } };
    RectangleDetector(points).Analyze(rectangles);
    QCOMPARE(rectangles.size(), 2);
    QCOMPARE(format(rectangles[0]), format(points.mid(1, 4)));
    QCOMPARE(format(rectangles[1]), format(points.mid(2, 4)));
}

void RectangleDetectorTest::matchesExhaustiveSearch_data()
{
    QTest::addColumn<Family>("family");
    QTest::addColumn<bool>("findsSome");

    // Lattice points with repeats: many rectangles, tilted ones, kites and
    // coincident points at once.
    QTest::newRow("small lattice") << Family([](QRandomGenerator& r) {
        QList<YPoint> points;
        const int n = 4 + r.bounded(22);
        for (int i = 0; i < n; ++i)
            points.append({ double(r.bounded(6)), double(r.bounded(6)) });
        return points;
    }) << true;

    QTest::newRow("turned grid at map scale") << Family([](QRandomGenerator& r) {
        const int cols = 2 + r.bounded(4), rows = 2 + r.bounded(4);
        const double heading = r.generateDouble() * 2 * M_PI;
        const double step = 50 + r.generateDouble() * 500;
        const YPoint origin { 3400000 + r.generateDouble() * 300000, 5200000 + r.generateDouble() * 800000 };
        QList<YPoint> points;
        for (int i = 0; i < cols; ++i) {
            for (int j = 0; j < rows; ++j) {
                const double u = i * step, v = j * step * 0.7;
                points.append({ origin.x + u * std::cos(heading) - v * std::sin(heading),
                    origin.y + u * std::sin(heading) + v * std::cos(heading) });
            }
        }
        shuffle(points, r);
        return points;
    }) << true;

    // Skews whose cosine sits within a few parts in 1e9 of the tolerance.
    QTest::newRow("angle at the tolerance") << Family([](QRandomGenerator& r) {
        QList<YPoint> points;
        for (int k = 0; k < 1 + r.bounded(4); ++k)
            addQuad(points, { 3500000 + r.generateDouble() * 1000, 5800000 + r.generateDouble() * 1000 },
                10 + r.generateDouble() * 500, 10 + r.generateDouble() * 500, r.generateDouble() * 2 * M_PI,
                std::asin(signedNear(r, 0.0002)), 1);
        shuffle(points, r);
        return points;
    }) << true;

    // Right angles, diagonals stretched to just inside or outside the
    // relative tolerance of the length test.
    QTest::newRow("diagonal at the tolerance") << Family([](QRandomGenerator& r) {
        QList<YPoint> points;
        for (int k = 0; k < 1 + r.bounded(4); ++k)
            addQuad(points, { r.generateDouble() * 1000, r.generateDouble() * 1000 }, 1 + r.generateDouble() * 500,
                1 + r.generateDouble() * 500, r.bounded(4) * M_PI / 2, 0, 1 + 2 * signedNear(r, 0.0002));
        shuffle(points, r);
        return points;
    }) << true;

    // A frame polyline with extra vertices along its sides, some repeated,
    // closed by repeating its first vertex.
    QTest::newRow("frame with collinear runs") << Family([](QRandomGenerator& r) {
        QList<YPoint> points;
        const double w = 100 + r.bounded(400), h = 100 + r.bounded(400);
        const YPoint corners[4] = { { 0, 0 }, { w, 0 }, { w, h }, { 0, h } };
        for (int side = 0; side < 4; ++side) {
            const YPoint a = corners[side], b = corners[(side + 1) % 4];
            const int extra = r.bounded(4);
            for (int k = 0; k <= extra; ++k) {
                const double t = double(k) / (extra + 1);
                points.append({ a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t });
                if (r.bounded(5) == 0)
                    points.append(points.last());
            }
        }
        points.append(points.first());
        return points;
    }) << true;

    // Coordinates whose squares overflow or vanish, and values that are
    // not numbers, next to ordinary rectangles.
    QTest::newRow("extreme values") << Family([](QRandomGenerator& r) {
        const double specials[]
            = { 0, 1e-160, -1e-170, 1e-300, 1e155, -1e200, 1e308, std::numeric_limits<double>::infinity(),
                  -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN() };
        QList<YPoint> points;
        addQuad(points, { 0, 0 }, 1e-75, 2e-75, 0, 0, 1);
        addQuad(points, { 0, 0 }, 1e75, 2e75, M_PI / 2, 0, 1);
        addQuad(points, { 0, 0 }, 3, 4, 0, 0, 1);
        for (int k = 0; k < 4 + r.bounded(8); ++k)
            points.append({ specials[r.bounded(10)], specials[r.bounded(10)] });
        shuffle(points, r);
        return points;
    }) << true;
}

void RectangleDetectorTest::matchesExhaustiveSearch()
{
    QFETCH(Family, family);
    QFETCH(bool, findsSome);

    QRandomGenerator random(20261121);
    int found = 0;
    for (int round = 0; round < 300; ++round) {
        const QList<YPoint> points = family(random);
        const QList<QList<unsigned>> expected = referenceRectangles(points);
        const QList<QList<unsigned>> actual = detect(points);
        if (actual != expected) {
            QFAIL(qPrintable(QString("round %1: %2\nexpected %3\nactual   %4")
                                 .arg(round)
                                 .arg(format(points), format(expected), format(actual))));
        }
        found += expected.size();
        // The quick test of the first four points must agree with the search.
        if (points.size() >= 4) {
            const bool first = !expected.isEmpty() && expected.constFirst() == QList<unsigned> { 0, 1, 2, 3 };
            QCOMPARE(RectangleDetector::IsRectangle(points[0], points[1], points[2], points[3]), first);
        }
    }
    if (findsSome)
        QVERIFY(found > 0);
}

QTEST_GUILESS_MAIN(RectangleDetectorTest)
#include "RectangleDetectorTest.moc"
