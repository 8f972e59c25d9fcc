#ifndef KAMO_TOOLS_GK_CGKSHEET_H
#define KAMO_TOOLS_GK_CGKSHEET_H

#include "gk/CGKVector.h"
#include "gk/CGKVertex.h"
#include "kamo_tools_export.h"

#include <cstdint>

namespace GK {

class CRoutingTilesRevisor;

/// A map sheet: four corners in any order, the six segments joining them and
/// the dimensions derived from its two pairs of parallel sides.
///
/// Construction only stores the corners; Setup (or CRoutingTilesRevisor)
/// derives the rest. Setup accumulates the centre onto its current value, so
/// it is meant to run once: existing sheet data was labelled that way.
struct KAMO_TOOLS_EXPORT CGKSheet {
    /// Which pair of parallel sides: the long or the short one.
    enum SideType { stLong = 0, stShort = 1 };

    /// A pair of parallel sides.
    struct SideInfo {
        /// The two sides, as indices into CGKSheet::vectors; -1 before Setup() found them.
        ///@{
        std::int32_t vector1 = -1;
        std::int32_t vector2 = -1;
        ///@}
        double cosine = 1e40; ///< of the angle between the two sides; 1e40 marks "not computed yet"
        /// Whether the pair was found.
        bool found = false;
        double length = 0.0; ///< of vectors[vector1]
        /// The middles of the two sides.
        ///@{
        CGKVertex mid1;
        CGKVertex mid2;
        ///@}
    };

    /// The sheet's index in its caller's list; -1 when not set.
    std::int32_t tileIndex;
    /// The corners, in the caller's order.
    CGKVertex vertices[4];
    /// Corner pairs (0,1), (0,2), (0,3), (1,2), (1,3), (2,3), each from the
    /// lower corner to the higher and bound to both.
    CGKVector vectors[6];
    /// The centre Setup() computed (see GetCenter()).
    CGKVertex center;
    double length; ///< of the long sides, in drawing units
    double width;  ///< of the short sides, in drawing units
    /// Length times width, and the length of the diagonal, in drawing units.
    ///@{
    double area;
    double diagonal;
    ///@}
    bool auxiliary; ///< only on the helper sheet CRoutingTilesRevisor appends
    /// The long and the short pair of sides, indexed by SideType.
    SideInfo sides[2];

    /// An empty sheet: corners at the origin, nothing derived.
    CGKSheet();
    /// A sheet of the given corners; nothing is derived until Setup().
    explicit CGKSheet(const CGKVertex (&corners)[4]);

    /// Derives centre, segments and dimensions from the corners. A shape whose sides are not pairwise parallel (within
    /// about 0.08 degrees) gets no side pairs and zero dimensions.
    void Setup();

    /// Fills \p out with the six segments of the sheet's corners, in the order of #vectors.
    static void CreateVectorSet(CGKVector (&out)[6], const CGKSheet& sheet);
    /// Adds the corners onto `out` and scales the sum by 0.25: a mean only
    /// when `out` starts at the origin.
    static void GetCenter(CGKVertex& out, const CGKVertex (&corners)[4]);

    /// Both return false, leaving `out` alone, when the pair was not found.
    bool GetSides(SideType type, const CGKVector** out) const;
    /// The long or the short pair, as GetSides().
    ///@{
    bool GetLongSides(const CGKVector** out) const;
    bool GetShortSides(const CGKVector** out) const;
    ///@}

private:
    friend class CRoutingTilesRevisor;

    void createVectorSet();
    void determineDimensions();
    void init();
};

} // namespace GK

#endif
