#include <gk/CGKSheet.h>
#include <gk/CRoutingTilesRevisor.h>

#include <QtTest>

#include <vector>

using namespace GK;

namespace {

// A sheet with sides along the axes, its corners handed over in the order
// given by compass names ("SW SE NE NW"), each carrying `label`.
CGKSheet makeSheet(double west, double south, double w, double h, const QString& order, int label = 0)
{
    CGKVertex corners[4];
    const QStringList names = order.split(' ');
    for (int i = 0; i < 4; ++i) {
        const QString& name = names[i];
        corners[i] = CGKVertex(name.endsWith('E') ? west + w : west, name.startsWith('N') ? south + h : south,
            static_cast<VtxPosition>(label));
    }
    return CGKSheet(corners);
}

// The labels of a sheet's corners in compass order NW NE SW SE.
QString compassLabels(const CGKSheet& sheet)
{
    double minX = sheet.vertices[0].x, minY = sheet.vertices[0].y;
    for (const CGKVertex& v : sheet.vertices) {
        minX = qMin(minX, v.x);
        minY = qMin(minY, v.y);
    }
    QString byCompass[4];
    for (const CGKVertex& v : sheet.vertices) {
        const int slot = (v.y > minY ? 0 : 2) + (v.x > minX ? 1 : 0);
        byCompass[slot] = VtxPositionText(v.position);
    }
    return QStringList { byCompass[0], byCompass[1], byCompass[2], byCompass[3] }.join(' ');
}

const QString eastward = "vpTopLeft vpTopRight vpBottomLeft vpBottomRight";
const QString westward = "vpBottomRight vpBottomLeft vpTopRight vpTopLeft";

} // namespace

class CRoutingTilesRevisorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void labelsFollowTheRoute_data();
    void labelsFollowTheRoute();
    void singleSheetLooksAwayFromOrigin_data();
    void singleSheetLooksAwayFromOrigin();
    void sheetsAcrossTheRouteKeepTheirLabels();
    void malformedSheetIsReported_data();
    void malformedSheetIsReported();
    void emptyEnsemble();
};

void CRoutingTilesRevisorTest::labelsFollowTheRoute_data()
{
    QTest::addColumn<double>("step"); // east offset of each next sheet
    QTest::addColumn<QString>("expected");
    QTest::newRow("west to east") << 400.0 << eastward;
    QTest::newRow("east to west") << -400.0 << westward;
}

void CRoutingTilesRevisorTest::labelsFollowTheRoute()
{
    QFETCH(double, step);
    QFETCH(QString, expected);

    // Landscape sheets (400 m west-east, 280 m north-south) in a row, their
    // corners in a different order each.
    const QStringList orders { "SW SE NE NW", "NE NW SW SE", "NW SE SW NE" };
    std::vector<CGKSheet> sheets;
    for (int i = 0; i < orders.size(); ++i)
        sheets.push_back(makeSheet(3500000 + i * step, 5800000, 400, 280, orders[i]));

    CRoutingTilesRevisor revisor(sheets);
    QCOMPARE(sheets.size(), size_t(4));
    QVERIFY(sheets.back().auxiliary);
    QCOMPARE(revisor.Revise(), CRoutingTilesRevisor::geNone);
    QCOMPARE(sheets.size(), size_t(3));

    // The last sheet heads for its scaled copy, up and right of it, so its
    // southern side is bottom whichever way the route runs.
    QCOMPARE(compassLabels(sheets[0]), expected);
    QCOMPARE(compassLabels(sheets[1]), expected);
    QCOMPARE(compassLabels(sheets[2]), eastward);
}

void CRoutingTilesRevisorTest::singleSheetLooksAwayFromOrigin_data()
{
    QTest::addColumn<double>("west");
    QTest::addColumn<QString>("expected");
    // Heading north-east, the southern side is on the right.
    QTest::newRow("east of the origin") << 3500000.0 << eastward;
    // Heading north-west, the northern side is.
    QTest::newRow("west of the origin") << -3500400.0 << westward;
}

void CRoutingTilesRevisorTest::singleSheetLooksAwayFromOrigin()
{
    QFETCH(double, west);
    QFETCH(QString, expected);
    std::vector<CGKSheet> sheets { makeSheet(west, 5800000, 400, 280, "NE SW NW SE") };
    CRoutingTilesRevisor revisor(sheets);
    QCOMPARE(revisor.Revise(), CRoutingTilesRevisor::geNone);
    QCOMPARE(sheets.size(), size_t(1));
    QCOMPARE(compassLabels(sheets[0]), expected);
}

void CRoutingTilesRevisorTest::sheetsAcrossTheRouteKeepTheirLabels()
{
    // Portrait sheets in a west-east row: the direction of travel runs
    // through both long-side midpoints, neither is on its right.
    std::vector<CGKSheet> sheets { makeSheet(3500000, 5800000, 280, 400, "SW SE NE NW", 7),
        makeSheet(3500280, 5800000, 280, 400, "SW SE NE NW", 7) };
    CRoutingTilesRevisor revisor(sheets);
    QCOMPARE(revisor.Revise(), CRoutingTilesRevisor::geNone);
    QCOMPARE(compassLabels(sheets[0]), "Unknown Unknown Unknown Unknown"); // still 7
    QCOMPARE(sheets[0].vertices[0].position, VtxPosition(7));
    // The last one looks north-east towards its copy: the eastern long side
    // is on the right, so it is bottom, with its southern corner left.
    QCOMPARE(compassLabels(sheets[1]), "vpTopRight vpBottomRight vpTopLeft vpBottomLeft");
}

void CRoutingTilesRevisorTest::malformedSheetIsReported_data()
{
    QTest::addColumn<QPointF>("cornerShift"); // of the middle sheet's north-eastern corner
    QTest::addColumn<QStringList>("labels");
    const QString none = "Unknown Unknown Unknown Unknown";
    // No side parallel to another: the revision stops at that sheet.
    QTest::newRow("not a rectangle") << QPointF(30, 20) << QStringList { eastward, none, none };
    // A trapezoid keeps its long sides parallel: labelling goes on.
    QTest::newRow("short sides missing") << QPointF(-30, 0) << QStringList { eastward, eastward, eastward };
}

void CRoutingTilesRevisorTest::malformedSheetIsReported()
{
    QFETCH(QPointF, cornerShift);
    QFETCH(QStringList, labels);
    std::vector<CGKSheet> sheets;
    for (int i = 0; i < 3; ++i)
        sheets.push_back(makeSheet(3500000 + i * 400, 5800000, 400, 280, "SW SE NE NW"));
    sheets[1].vertices[2].x += cornerShift.x();
    sheets[1].vertices[2].y += cornerShift.y();
    CRoutingTilesRevisor revisor(sheets);
    QCOMPARE(revisor.Revise(), CRoutingTilesRevisor::geSidesMissing);
    QCOMPARE(sheets.size(), size_t(3));
    QVERIFY(!sheets.back().auxiliary);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(compassLabels(sheets[i]), labels[i]);
}

void CRoutingTilesRevisorTest::emptyEnsemble()
{
    std::vector<CGKSheet> sheets;
    CRoutingTilesRevisor revisor(sheets);
    QVERIFY(sheets.empty());
    QCOMPARE(revisor.Revise(), CRoutingTilesRevisor::geNone);
}

QTEST_GUILESS_MAIN(CRoutingTilesRevisorTest)
#include "CRoutingTilesRevisorTest.moc"
