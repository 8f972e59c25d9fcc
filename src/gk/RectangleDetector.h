#ifndef KAMO_TOOLS_GK_RECTANGLEDETECTOR_H
#define KAMO_TOOLS_GK_RECTANGLEDETECTOR_H

#include "gk/YPoint.h"
#include "kamo_tools_export.h"

#include <QList>

#include <cstdint>

/// Finds every choice of four points of a list that forms a rectangle, as
/// the DXF workbench does to pick a sheet frame's corners out of a polyline.
///
/// Four points p0..p3 (in index order) count as a rectangle when two of the
/// vectors from p0 meet at a right angle (|cosine| < EpsilonCmp, pairs tried
/// p1p2, p1p3, p2p3 and the first such pair decides) and the remaining vector,
/// the diagonal, satisfies Pythagoras relative to the sum of all three
/// squared lengths plus EpsilonCmp. Only the angle at p0 and the lengths are
/// tested, so a kite whose fourth point lies at the diagonal's distance from
/// p0 passes too; existing sheet data relies on exactly this test.
///
/// The result equals visiting all n-choose-4 combinations in lexicographic
/// order, but Analyze only looks at combinations with a right angle at p0,
/// found through the vectors' directions, so a polyline of a thousand
/// vertices takes a fraction of a second instead of hours.
///
/// Analyze keeps no state outside its call: detectors may run on several
/// threads at once, as long as nobody changes their point lists meanwhile.
class KAMO_TOOLS_EXPORT RectangleDetector
{
public:
    /// The single tolerance: a cosine and a relative difference, not a length.
    static constexpr double EpsilonCmp = 0.0002;

    /// Borrows `points`, which must outlive the detector.
    explicit RectangleDetector(const QList<YPoint>& points);

    /// Replaces `rectangles` by the ascending index quadruples of all
    /// rectangles, in lexicographic order.
    void Analyze(QList<QList<unsigned>>& rectangles) const;
    /// The same rectangles as their four points, in index order.
    void Analyze(QList<QList<YPoint>>& rectangles) const;

    /// The test Analyze applies to each quadruple, for callers that know
    /// which four points to try: a frame usually starts with its corners.
    static bool IsRectangle(const YPoint& p0, const YPoint& p1, const YPoint& p2, const YPoint& p3);

private:
    class CornerSearch;

    void buildRect(QList<YPoint>& out, const QList<unsigned>& indices) const;
    static bool isRectangle(const QList<YPoint>& four);

    const QList<YPoint>& points;
    [[maybe_unused]] std::int32_t reserved; ///< keeps the object layout hosts were built with
};

#endif
