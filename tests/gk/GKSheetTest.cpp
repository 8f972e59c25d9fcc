#include <gk/CGKSheet.h>
#include <gk/CGKVector.h>
#include <gk/CGKVertex.h>
#include <gk/VtxPosition.h>

#include <QtTest>

#include <algorithm>
#include <cmath>

using namespace GK;

Q_DECLARE_METATYPE(QVector<QPointF>)

namespace {

bool sharesCorner(const CGKVector& a, const CGKVector& b)
{
    return a.bound1 == b.bound1 || a.bound1 == b.bound2 || a.bound2 == b.bound1 || a.bound2 == b.bound2;
}

} // namespace

class GKSheetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sidesInEveryCornerOrder_data();
    void sidesInEveryCornerOrder();
    void squareKeepsFirstPairAsLong();
    void secondSetupAccumulatesCentre();
    void rotateTurnsCounterClockwise_data();
    void rotateTurnsCounterClockwise();
    void vectorSteepnessAndSlope_data();
    void vectorSteepnessAndSlope();
};

void GKSheetTest::sidesInEveryCornerOrder_data()
{
    QTest::addColumn<QVector<QPointF>>("corners"); // in winding order
    QTest::addColumn<double>("length");
    QTest::addColumn<double>("width");
    // A lone parallel pair is measured by whichever of its sides comes
    // first among the vectors, which depends on the corner order.
    QTest::addColumn<double>("otherLength");
    QTest::addColumn<bool>("shortFound");

    QTest::newRow("landscape sheet") << QVector<QPointF> { { 3500000, 5800000 }, { 3500400, 5800000 },
        { 3500400, 5800280 }, { 3500000, 5800280 } }
                                     << 400.0 << 280.0 << 400.0 << true;

    // 400 x 280 turned by 30 degrees about its first corner.
    const double c = std::cos(M_PI / 6);
    const double s = std::sin(M_PI / 6);
    const QPointF o(3512345.5, 5798765.25);
    QTest::newRow("turned sheet") << QVector<QPointF> { o, o + QPointF(400 * c, 400 * s),
        o + QPointF(400 * c - 280 * s, 400 * s + 280 * c), o + QPointF(-280 * s, 280 * c) }
                                  << 400.0 << 280.0 << 400.0 << true;

    QTest::newRow("parallelogram") << QVector<QPointF> { { 0, 0 }, { 500, 0 }, { 600, 200 }, { 100, 200 } } << 500.0
                                   << std::hypot(100.0, 200.0) << 500.0 << true;

    // Only the two horizontal sides are parallel; they make the one record.
    QTest::newRow("trapezoid") << QVector<QPointF> { { 0, 0 }, { 500, 0 }, { 400, 200 }, { 100, 200 } } << 500.0 << 0.0
                               << 300.0 << false;
}

void GKSheetTest::sidesInEveryCornerOrder()
{
    QFETCH(QVector<QPointF>, corners);
    QFETCH(double, length);
    QFETCH(double, width);
    QFETCH(double, otherLength);
    QFETCH(bool, shortFound);

    int order[4] = { 0, 1, 2, 3 };
    do {
        const QByteArray label = QByteArray::number(order[0]) + QByteArray::number(order[1])
            + QByteArray::number(order[2]) + QByteArray::number(order[3]);
        CGKVertex v[4];
        for (int i = 0; i < 4; ++i)
            v[i] = CGKVertex(corners[order[i]].x(), corners[order[i]].y());
        CGKSheet sheet(v);
        sheet.Setup();

        QVERIFY2(qFuzzyCompare(sheet.length, length) || qFuzzyCompare(sheet.length, otherLength), label);
        QVERIFY2(shortFound ? qFuzzyCompare(sheet.width, width) : sheet.width == 0.0, label);
        QVERIFY2(qFuzzyCompare(sheet.area + 1, sheet.length * sheet.width + 1), label);
        QVERIFY2(qFuzzyCompare(sheet.diagonal, std::hypot(sheet.length, width)), label);

        const CGKVector* sides[2] = { nullptr, nullptr };
        QVERIFY2(sheet.GetLongSides(sides), label);
        // Opposite sides: parallel and without a common corner, never a
        // side paired with a diagonal.
        QVERIFY2(!sharesCorner(*sides[0], *sides[1]), label);
        QVERIFY2(sides[0]->length == sheet.length, label);

        const CGKVector* untouched[2] = { nullptr, nullptr };
        QCOMPARE(sheet.GetShortSides(shortFound ? sides : untouched), shortFound);
        if (shortFound)
            QVERIFY2(!sharesCorner(*sides[0], *sides[1]), label);
        else
            QVERIFY2(!untouched[0] && !untouched[1], label);
    } while (std::next_permutation(order, order + 4));
}

void GKSheetTest::squareKeepsFirstPairAsLong()
{
    CGKVertex corners[4] = { { 0, 0 }, { 0, 300 }, { 300, 0 }, { 300, 300 } };
    CGKSheet sheet(corners);
    sheet.Setup();
    // Scanned from vector 0 = (0,1) on, the vertical pair (0,1)/(2,3) comes
    // first and equal lengths never swap it out.
    QCOMPARE(sheet.sides[CGKSheet::stLong].vector1, 0);
    QCOMPARE(sheet.sides[CGKSheet::stLong].vector2, 5);
    QCOMPARE(sheet.sides[CGKSheet::stShort].vector1, 1);
    QCOMPARE(sheet.sides[CGKSheet::stShort].vector2, 4);
    QCOMPARE(sheet.length, 300.0);
    QCOMPARE(sheet.width, 300.0);
}

void GKSheetTest::secondSetupAccumulatesCentre()
{
    CGKVertex corners[4] = { { 100, 200 }, { 500, 200 }, { 500, 480 }, { 100, 480 } };
    CGKSheet sheet(corners);
    sheet.Setup();
    QCOMPARE(sheet.center.x, 300.0);
    QCOMPARE(sheet.center.y, 340.0);
    sheet.Setup();
    QCOMPARE(sheet.center.x, (300.0 + 1200.0) * 0.25);
    QCOMPARE(sheet.center.y, (340.0 + 1360.0) * 0.25);
}

void GKSheetTest::rotateTurnsCounterClockwise_data()
{
    QTest::addColumn<double>("degrees");
    QTest::addColumn<QPointF>("expected");
    QTest::newRow("90") << 90.0 << QPointF(0, 1);
    QTest::newRow("-90") << -90.0 << QPointF(0, -1);
    QTest::newRow("180") << 180.0 << QPointF(-1, 0);
    QTest::newRow("30") << 30.0 << QPointF(std::sqrt(3.0) / 2, 0.5);
}

void GKSheetTest::rotateTurnsCounterClockwise()
{
    QFETCH(double, degrees);
    QFETCH(QPointF, expected);
    CGKVertex v(1, 0, vpBottomLeft);
    v.Rotate(degrees);
    QVERIFY2(std::fabs(v.x - expected.x()) < 1e-12 && std::fabs(v.y - expected.y()) < 1e-12,
        qPrintable(QString("(%1, %2)").arg(v.x).arg(v.y)));
    QCOMPARE(v.position, vpBottomLeft);
}

void GKSheetTest::vectorSteepnessAndSlope_data()
{
    QTest::addColumn<QPointF>("delta");
    QTest::addColumn<bool>("steep");
    QTest::addColumn<double>("slope");
    QTest::newRow("45 degrees is not steep") << QPointF(3, 3) << false << 1.0;
    QTest::newRow("falling 45 degrees") << QPointF(3, -3) << false << -1.0;
    QTest::newRow("steep") << QPointF(1, -4) << true << -0.25;
    QTest::newRow("flat") << QPointF(-8, 2) << false << -0.25;
}

void GKSheetTest::vectorSteepnessAndSlope()
{
    QFETCH(QPointF, delta);
    QFETCH(bool, steep);
    QFETCH(double, slope);
    const CGKVector v(CGKVertex(3500000, 5800000), CGKVertex(3500000 + delta.x(), 5800000 + delta.y()));
    QCOMPARE(v.steep, steep);
    QCOMPARE(v.slope, slope);
}

QTEST_GUILESS_MAIN(GKSheetTest)
#include "GKSheetTest.moc"
