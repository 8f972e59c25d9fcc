#include "ReferenceRectangleDetector.h"

#include <cmath>

namespace {

// The test on the four points themselves, without the library's legs. The
// first pair of vectors from p0 that meets at a right angle decides, by the
// remaining vector: the diagonal.
bool isRectangle(const YPoint& p0, const YPoint& p1, const YPoint& p2, const YPoint& p3)
{
    const double epsilon = 0.0002;
    const double x[3] = { p1.x - p0.x, p2.x - p0.x, p3.x - p0.x };
    const double y[3] = { p1.y - p0.y, p2.y - p0.y, p3.y - p0.y };
    double sum = epsilon;
    for (int i = 0; i < 3; ++i)
        sum += x[i] * x[i] + y[i] * y[i];
    const int pairs[3][3] = { { 0, 1, 2 }, { 0, 2, 1 }, { 1, 2, 0 } };
    for (const auto& pair : pairs) {
        const int a = pair[0], b = pair[1], d = pair[2];
        const double cosine = (x[a] * x[b] + y[a] * y[b])
            / (std::sqrt(x[a] * x[a] + y[a] * y[a]) * std::sqrt(x[b] * x[b] + y[b] * y[b]));
        if (std::fabs(cosine) < epsilon)
            return std::fabs(2.0 * (x[d] * x[d] + y[d] * y[d]) / sum - 1.0) < epsilon;
    }
    return false;
}

} // namespace

QList<QList<unsigned>> referenceRectangles(const QList<YPoint>& p)
{
    QList<QList<unsigned>> result;
    const unsigned n = static_cast<unsigned>(p.size());
    for (unsigned a = 0; a < n; ++a)
        for (unsigned b = a + 1; b < n; ++b)
            for (unsigned c = b + 1; c < n; ++c)
                for (unsigned d = c + 1; d < n; ++d)
                    if (isRectangle(p[int(a)], p[int(b)], p[int(c)], p[int(d)]))
                        result.append({ a, b, c, d });
    return result;
}
