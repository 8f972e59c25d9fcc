#ifndef KAMO_TOOLS_GK_CGKVERTEX_H
#define KAMO_TOOLS_GK_CGKVERTEX_H

#include "gk/VtxPosition.h"
#include "kamo_tools_export.h"

namespace GK {

/// A point in a projected metric system (easting x, northing y) with the
/// label of the sheet corner it is.
struct KAMO_TOOLS_EXPORT CGKVertex {
    /// Easting and northing, in the drawing's units.
    ///@{
    double x;
    double y;
    ///@}
    /// Which sheet corner the point is; vpUnknown until labelled.
    VtxPosition position;

    /// A point at \p x, \p y with the label \p position.
    CGKVertex(double x = 0.0, double y = 0.0, VtxPosition position = vpUnknown);

    /// The Euclidean distance to \p other.
    double Distance(const CGKVertex& other) const;

    /// Turns the point about the coordinate origin, counter-clockwise for
    /// positive angles (in degrees). The label stays.
    void Rotate(double angleDegrees);

    /// Componentwise; the label stays.
    CGKVertex& operator-=(const CGKVertex& other);
};

} // namespace GK

#endif
