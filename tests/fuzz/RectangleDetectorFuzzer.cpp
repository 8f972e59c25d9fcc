// Arbitrary points (pairs of doubles, NaN and infinities included) as a
// polyline of a drawing or a shape file may hold them.
#include <gk/RectangleDetector.h>

#include <QList>

#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // Frames have a handful of vertices; more only slows the search down.
    constexpr size_t maximumPoints = 200;
    QList<YPoint> points;
    for (size_t offset = 0; offset + 2 * sizeof(double) <= size && size_t(points.size()) < maximumPoints;
         offset += 2 * sizeof(double)) {
        double xy[2];
        std::memcpy(xy, data + offset, sizeof xy);
        points.append(YPoint { xy[0], xy[1] });
    }
    RectangleDetector detector(points);
    QList<QList<unsigned>> indices;
    detector.Analyze(indices);
    QList<QList<YPoint>> rectangles;
    detector.Analyze(rectangles);
    if (points.size() >= 4)
        RectangleDetector::IsRectangle(points.at(0), points.at(1), points.at(2), points.at(3));
    return 0;
}
