#include <gk/CRoutingTilesRevisor.h>

#include <QtTest>

using namespace GK;

namespace {

const QString eastward = "vpTopLeft vpTopRight vpBottomLeft vpBottomRight";
const QString westward = "vpBottomRight vpBottomLeft vpTopRight vpTopLeft";
const QString untouched = "7 7 7 7";

// The labels of a sheet's corners in compass order NW NE SW SE, a value
// outside the enumerators as its number.
QString compassLabels(const CGKSheet& sheet)
{
    CGKVertex centre;
    CGKSheet::GetCenter(centre, sheet.vertices);
    QStringList byCompass { {}, {}, {}, {} };
    for (const CGKVertex& v : sheet.vertices) {
        const QString text = VtxPositionText(v.position);
        byCompass[(v.y > centre.y ? 0 : 2) + (v.x > centre.x ? 1 : 0)]
            = text == "Unknown" ? QString::number(v.position) : text;
    }
    return byCompass.join(' ');
}

} // namespace

class CRoutingTilesRevisorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void labelsFollowTheRoute_data();
    void labelsFollowTheRoute();
};

void CRoutingTilesRevisorTest::labelsFollowTheRoute_data()
{
    // Sheets of 400 m by 280 m (turned: 280 by 400) in a west-east row, each
    // `step` east of the one before, corners labelled 7 and handed over in
    // a different order each.
    QTest::addColumn<double>("west");
    QTest::addColumn<double>("step");
    QTest::addColumn<bool>("portrait");
    QTest::addColumn<QPointF>("cornerShift"); // of the second sheet's north-eastern corner
    QTest::addColumn<int>("error");
    QTest::addColumn<QStringList>("labels");
    const int ok = CRoutingTilesRevisor::geNone;
    const int sidesMissing = CRoutingTilesRevisor::geSidesMissing;

    // The last sheet heads for its scaled copy, up and right of it, so its
    // southern side is bottom whichever way the route runs.
    QTest::newRow("west to east") << 3500000.0 << 400.0 << false << QPointF() << ok
                                  << QStringList { eastward, eastward, eastward };
    QTest::newRow("east to west") << 3500000.0 << -400.0 << false << QPointF() << ok
                                  << QStringList { westward, westward, eastward };
    // So does a single sheet, away from the origin: heading north-west,
    // the northern side is on the right.
    QTest::newRow("single sheet west of the origin")
        << -3500400.0 << 0.0 << false << QPointF() << ok << QStringList { westward };
    // The direction of travel runs through both long-side midpoints of the
    // first: neither is on its right. The last one looks north-east towards
    // its copy: its eastern long side is bottom, its southern corner left.
    QTest::newRow("sheets across the route keep their labels")
        << 3500000.0 << 280.0 << true << QPointF() << ok
        << QStringList { untouched, "vpTopRight vpBottomRight vpTopLeft vpBottomLeft" };
    // No side parallel to another: the revision stops at that sheet.
    QTest::newRow("not a rectangle") << 3500000.0 << 400.0 << false << QPointF(30, 20) << sidesMissing
                                     << QStringList { eastward, untouched, untouched };
    // A trapezoid keeps its long sides parallel: labelling goes on.
    QTest::newRow("short sides missing") << 3500000.0 << 400.0 << false << QPointF(-30, 0) << sidesMissing
                                         << QStringList { eastward, eastward, eastward };
    QTest::newRow("no sheets") << 0.0 << 0.0 << false << QPointF() << ok << QStringList();
}

void CRoutingTilesRevisorTest::labelsFollowTheRoute()
{
    QFETCH(double, west);
    QFETCH(double, step);
    QFETCH(bool, portrait);
    QFETCH(QPointF, cornerShift);
    QFETCH(int, error);
    QFETCH(QStringList, labels);

    const QStringList orders[3]
        = { { "SW", "SE", "NE", "NW" }, { "NE", "NW", "SW", "SE" }, { "NW", "SE", "SW", "NE" } };
    const double width = portrait ? 280 : 400, height = portrait ? 400 : 280;
    const int count = labels.size();
    std::vector<CGKSheet> sheets;
    for (int i = 0; i < count; ++i) {
        CGKVertex corners[4];
        for (int c = 0; c < 4; ++c) {
            const QString& name = orders[i % 3][c];
            corners[c] = CGKVertex(west + i * step + (name.endsWith('E') ? width : 0),
                5800000 + (name.startsWith('N') ? height : 0), VtxPosition(7));
        }
        sheets.push_back(CGKSheet(corners));
    }
    if (count > 1) {
        sheets[1].vertices[0].x += cornerShift.x(); // north-east in its order
        sheets[1].vertices[0].y += cornerShift.y();
    }
    CRoutingTilesRevisor revisor(sheets);
    // A helper sheet gives the last one its direction; Revise drops it.
    QCOMPARE(int(sheets.size()), count ? count + 1 : 0);
    QCOMPARE(int(revisor.Revise()), error);
    QStringList revised;
    for (const CGKSheet& sheet : sheets)
        revised.append(sheet.auxiliary ? "auxiliary" : compassLabels(sheet));
    QCOMPARE(revised, labels);
}

QTEST_GUILESS_MAIN(CRoutingTilesRevisorTest)
#include "CRoutingTilesRevisorTest.moc"
