#include <gk/CGKSheet.h>

#include <QtTest>

#include <algorithm>
#include <cmath>

using namespace GK;

// Opposite sides: parallel and without a common corner, never a side paired
// with a diagonal.
static bool opposite(const CGKVector* const (&sides)[2])
{
    return QSet<int> { sides[0]->bound1, sides[0]->bound2, sides[1]->bound1, sides[1]->bound2 }.size() == 4;
}

class GKSheetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sidesInEveryCornerOrder_data();
    void sidesInEveryCornerOrder();
    void vectorSteepnessAndSlope();
};

void GKSheetTest::sidesInEveryCornerOrder_data()
{
    QTest::addColumn<QVector<QPointF>>("corners"); // in winding order
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("width");
    QTest::addColumn<bool>("shortFound");

    // 400 x 280 turned by 30 degrees about its first corner.
    const double c = std::cos(M_PI / 6), s = std::sin(M_PI / 6);
    const QPointF o(3512345.5, 5798765.25);
    QTest::newRow("turned sheet") << QVector<QPointF> { o, o + QPointF(400 * c, 400 * s),
        o + QPointF(400 * c - 280 * s, 400 * s + 280 * c), o + QPointF(-280 * s, 280 * c) }
                                  << 400.0 << 280.0 << true;
    // Of a square's two pairs the first found stays long.
    QTest::newRow("square") << QVector<QPointF> { { 0, 0 }, { 300, 0 }, { 300, 300 }, { 0, 300 } } << 300.0 << 300.0
                            << true;
    QTest::newRow("parallelogram") << QVector<QPointF> { { 0, 0 }, { 500, 0 }, { 600, 200 }, { 100, 200 } } << 500.0
                                   << std::hypot(100.0, 200.0) << true;
    // Only the two horizontal sides are parallel; they make the one record.
    QTest::newRow("trapezoid") << QVector<QPointF> { { 0, 0 }, { 500, 0 }, { 400, 200 }, { 100, 200 } } << 500.0 << 0.0
                               << false;
}

void GKSheetTest::sidesInEveryCornerOrder()
{
    QFETCH(QVector<QPointF>, corners);
    QFETCH(double, length);
    QFETCH(double, width);
    QFETCH(bool, shortFound);

    const QPointF mean = (corners[0] + corners[1] + corners[2] + corners[3]) / 4;
    int order[4] = { 0, 1, 2, 3 };
    do {
        const QByteArray label = QByteArray::number(order[0] * 1000 + order[1] * 100 + order[2] * 10 + order[3]);
        CGKVertex v[4];
        for (int i = 0; i < 4; ++i)
            v[i] = CGKVertex(corners[order[i]].x(), corners[order[i]].y());
        CGKSheet sheet(v);
        sheet.Setup();

        QVERIFY2(qFuzzyCompare(sheet.center.x, mean.x()) && qFuzzyCompare(sheet.center.y, mean.y()), label);
        // A lone parallel pair is measured by whichever of its sides comes
        // first among the vectors, which depends on the corner order.
        QVERIFY2(qFuzzyCompare(sheet.length, length) || !shortFound, label);
        QVERIFY2(shortFound ? qFuzzyCompare(sheet.width, width) : sheet.width == 0.0, label);
        QVERIFY2(sheet.length > sheet.width || sheet.sides[0].vector1 < sheet.sides[1].vector1, label);

        const CGKVector* sides[2] = { nullptr, nullptr };
        QVERIFY2(sheet.GetLongSides(sides), label);
        QVERIFY2(opposite(sides), label);
        QVERIFY2(sides[0]->length == sheet.length, label);
        const CGKVector* untouched[2] = { nullptr, nullptr };
        QCOMPARE(sheet.GetShortSides(shortFound ? sides : untouched), shortFound);
        QVERIFY2(shortFound ? opposite(sides) : !untouched[0] && !untouched[1], label);

        // A second Setup adds onto the centre it has, as the stored sheet
        // data was labelled with.
        sheet.Setup();
        QVERIFY2(
            qFuzzyCompare(sheet.center.x, 1.25 * mean.x()) && qFuzzyCompare(sheet.center.y, 1.25 * mean.y()), label);
    } while (std::next_permutation(order, order + 4));
}

void GKSheetTest::vectorSteepnessAndSlope()
{
    // At 45 degrees a vector is not steep yet; a steep one's slope is dx / dy.
    const CGKVector flat(CGKVertex(0, 0), CGKVertex(3, -3)), steep(CGKVertex(0, 0), CGKVertex(1, -4));
    QVERIFY(!flat.steep && steep.steep);
    QVERIFY(flat.slope == -1.0 && steep.slope == -0.25);
}

QTEST_GUILESS_MAIN(GKSheetTest)
#include "GKSheetTest.moc"
