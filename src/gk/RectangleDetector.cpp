#include "gk/RectangleDetector.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

// Every expression below is evaluated in the same order as the plain test
// (and the file is built without floating-point contraction), so the
// filtered search and the exhaustive one can never disagree on a case.

namespace {

constexpr double eps = RectangleDetector::EpsilonCmp;

// A vector from p0 to another point, with its squared length and length.
struct Leg {
    double x;
    double y;
    double q;
    double norm;
};

Leg makeLeg(const YPoint& from, const YPoint& to)
{
    Leg leg;
    leg.x = to.x - from.x;
    leg.y = to.y - from.y;
    leg.q = leg.x * leg.x + leg.y * leg.y;
    leg.norm = std::sqrt(leg.q);
    return leg;
}

// Symmetric to the last bit: the products and the sum commute exactly.
bool rightAngle(const Leg& a, const Leg& b)
{
    double c = (a.x * b.x + a.y * b.y) / (a.norm * b.norm);
    if (c < 0)
        c = -c;
    return c < eps;
}

bool pythagoras(double sum, const Leg& diagonal)
{
    double r = 2.0 * diagonal.q / sum - 1.0;
    if (r < 0)
        r = -r;
    return r < eps;
}

// The legs to p1, p2, p3 in index order. The sum starts at the tolerance,
// not at zero; that bias belongs to the test.
bool rectangleTest(const Leg& a, const Leg& b, const Leg& c)
{
    const double sum = eps + a.q + b.q + c.q;
    if (rightAngle(a, b))
        return pythagoras(sum, c);
    if (rightAngle(a, c))
        return pythagoras(sum, b);
    if (rightAngle(b, c))
        return pythagoras(sum, a);
    return false;
}

// Legs in this range have a finite, well-conditioned cosine with each other
// (no overflow, no subnormal products), so their directions from atan2 are
// good to far better than the window below. Others (coincident with p0,
// extremely short or long, not finite) are tested against every leg.
bool wellConditioned(const Leg& leg)
{
    return leg.q >= 1e-140 && leg.q <= 1e140;
}

constexpr double pi = 3.141592653589793;
constexpr double halfPi = 1.5707963267948966;
// |cosine| < 0.0002 means within about 0.0002 rad of a right angle; the
// window is five times wider, so rounding in atan2 cannot lose a pair.
constexpr double angleWindow = 1e-3;

using Triple = std::array<unsigned, 3>;

} // namespace

// Finds the rectangles with corner p0 = points[i0] among the later points.
class RectangleDetector::CornerSearch
{
public:
    CornerSearch(const QList<YPoint>& points, unsigned i0)
        : points(points)
        , legs(points.size())
        , first(i0 + 1)
        , end(static_cast<unsigned>(points.size()))
    {
        const YPoint& p0 = points[static_cast<int>(i0)];
        for (unsigned j = first; j < end; ++j) {
            legs[j] = makeLeg(p0, points[static_cast<int>(j)]);
            if (wellConditioned(legs[j])) {
                directions.emplace_back(std::atan2(legs[j].y, legs[j].x), j);
                lengths.emplace_back(legs[j].q, j);
            } else {
                unconditioned.push_back(j);
            }
        }
        std::sort(directions.begin(), directions.end());
        std::sort(lengths.begin(), lengths.end());
        // A second lap so that a window across +-pi needs one search.
        const std::size_t lap = directions.size();
        for (std::size_t k = 0; k < lap; ++k)
            directions.emplace_back(directions[k].first + 2 * pi, directions[k].second);
    }

    std::vector<Triple> Run()
    {
        const std::size_t lap = directions.size() / 2;
        for (std::size_t k = 0; k < lap; ++k) {
            const unsigned u = directions[k].second;
            // Within [-pi/2, 3pi/2]: the second lap covers every window.
            const double target = directions[k].first + halfPi;
            auto it = std::lower_bound(directions.begin(), directions.end(), std::make_pair(target - angleWindow, 0u));
            for (; it != directions.end() && it->first <= target + angleWindow; ++it)
                rightAnglePair(u, it->second);
        }
        for (unsigned u : unconditioned) {
            for (unsigned v = first; v < end; ++v) {
                if (v == u || (!wellConditioned(legs[v]) && v < u))
                    continue;
                rightAnglePair(u, v);
            }
        }

        std::sort(found.begin(), found.end());
        found.erase(std::unique(found.begin(), found.end()), found.end());
        return std::move(found);
    }

private:
    void rightAnglePair(unsigned u, unsigned v)
    {
        if (!rightAngle(legs[u], legs[v]))
            return;
        if (!wellConditioned(legs[u]) || !wellConditioned(legs[v])) {
            for (unsigned w = first; w < end; ++w)
                consider(u, v, w);
            return;
        }
        // The diagonal passes only when 2q/(q_u + q_v + q + eps) is within
        // eps of 1; solved for q and widened far beyond any rounding.
        const double t = legs[u].q + legs[v].q + eps;
        const double low = (1 - eps) * t / (1 + eps) * (1 - 1e-9);
        const double high = (1 + eps) * t / (1 - eps) * (1 + 1e-9);
        auto it = std::lower_bound(lengths.begin(), lengths.end(), std::make_pair(low, 0u));
        for (; it != lengths.end() && it->first <= high; ++it)
            consider(u, v, it->second);
        for (unsigned w : unconditioned)
            consider(u, v, w);
    }

    // Runs the full test on the combination, as the exhaustive search would;
    // straight on the points when a leg is out of the conditioned range.
    void consider(unsigned u, unsigned v, unsigned w)
    {
        if (w == u || w == v)
            return;
        Triple t { u, v, w };
        std::sort(t.begin(), t.end());
        const Leg& a = legs[t[0]];
        const Leg& b = legs[t[1]];
        const Leg& c = legs[t[2]];
        const bool passes = wellConditioned(a) && wellConditioned(b) && wellConditioned(c)
            ? rectangleTest(a, b, c)
            : isRectangle({ at(first - 1), at(t[0]), at(t[1]), at(t[2]) });
        if (passes)
            found.push_back(t);
    }

    const YPoint& at(unsigned index) const { return points[static_cast<int>(index)]; }

    const QList<YPoint>& points;
    std::vector<Leg> legs;
    const unsigned first;
    const unsigned end;
    std::vector<std::pair<double, unsigned>> directions;
    std::vector<std::pair<double, unsigned>> lengths;
    std::vector<unsigned> unconditioned;
    std::vector<Triple> found;
};

RectangleDetector::RectangleDetector(const QList<YPoint>& points)
    : points(points)
    , reserved(0)
{ }

void RectangleDetector::Analyze(QList<QList<unsigned>>& rectangles) const
{
    rectangles.clear();
    const unsigned n = static_cast<unsigned>(points.size());
    if (n < 4)
        return;
    for (unsigned i0 = 0; i0 + 3 < n; ++i0) {
        const std::vector<Triple> found = CornerSearch(points, i0).Run();
        for (const Triple& t : found)
            rectangles.append(QList<unsigned> { i0, t[0], t[1], t[2] });
    }
}

void RectangleDetector::Analyze(QList<QList<YPoint>>& rectangles) const
{
    rectangles.clear();
    QList<QList<unsigned>> indices;
    Analyze(indices);
    for (const QList<unsigned>& combination : indices) {
        QList<YPoint> rectangle;
        buildRect(rectangle, combination);
        rectangles.append(rectangle);
    }
}

void RectangleDetector::buildRect(QList<YPoint>& out, const QList<unsigned>& indices) const
{
    out.clear();
    for (int i = 0; i < 4; ++i)
        out.append(points[static_cast<int>(indices[i])]);
}

bool RectangleDetector::IsRectangle(const YPoint& p0, const YPoint& p1, const YPoint& p2, const YPoint& p3)
{
    return rectangleTest(makeLeg(p0, p1), makeLeg(p0, p2), makeLeg(p0, p3));
}

bool RectangleDetector::isRectangle(const QList<YPoint>& four)
{
    if (four.size() != 4)
        return false;
    return rectangleTest(makeLeg(four[0], four[1]), makeLeg(four[0], four[2]), makeLeg(four[0], four[3]));
}
