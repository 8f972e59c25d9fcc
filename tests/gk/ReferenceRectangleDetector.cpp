#include "ReferenceRectangleDetector.h"

#include <cmath>

namespace {

// On a plain array, so that timing the search measures the tests and not
// the allocation of a list per combination.
bool isRectangle(const YPoint* four)
{
    const double epsilon = 0.0002;
    struct Vec {
        double x;
        double y;
    };
    Vec v[3];
    for (int i = 0; i < 3; ++i)
        v[i] = { four[i + 1].x - four[0].x, four[i + 1].y - four[0].y };

    double sum = epsilon;
    for (const Vec& a : v)
        sum += a.x * a.x + a.y * a.y;

    const int pairs[3][3] = { { 0, 1, 2 }, { 0, 2, 1 }, { 1, 2, 0 } };
    for (const auto& pair : pairs) {
        const Vec& a = v[pair[0]];
        const Vec& b = v[pair[1]];
        double cosine = (a.x * b.x + a.y * b.y) / (std::sqrt(a.x * a.x + a.y * a.y) * std::sqrt(b.x * b.x + b.y * b.y));
        if (cosine < 0)
            cosine = -cosine;
        if (!(cosine < epsilon))
            continue;
        const Vec& d = v[pair[2]];
        double r = 2.0 * (d.x * d.x + d.y * d.y) / sum - 1.0;
        if (r < 0)
            r = -r;
        return r < epsilon;
    }
    return false;
}

} // namespace

QList<QList<unsigned>> referenceRectangles(const QList<YPoint>& points)
{
    QList<QList<unsigned>> result;
    const unsigned n = static_cast<unsigned>(points.size());
    if (n < 4)
        return result;

    unsigned index[4] = { 0, 1, 2, 3 };
    for (;;) {
        YPoint four[4];
        for (int i = 0; i < 4; ++i)
            four[i] = points[static_cast<int>(index[i])];
        if (isRectangle(four))
            result.append({ index[0], index[1], index[2], index[3] });

        int position = 3;
        while (position >= 0 && index[position] >= n - 4 + static_cast<unsigned>(position))
            --position;
        if (position < 0)
            break;
        ++index[position];
        for (int j = position + 1; j < 4; ++j)
            index[j] = index[j - 1] + 1;
    }
    return result;
}
