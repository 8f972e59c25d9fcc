#ifndef KAMO_TOOLS_GK_YPOINT_H
#define KAMO_TOOLS_GK_YPOINT_H

/// A point of a polyline handed to RectangleDetector.
struct YPoint {
    /// The point's coordinates.
    ///@{
    double x = 0.0;
    double y = 0.0;
    ///@}
};

#endif
