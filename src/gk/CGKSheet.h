#ifndef KAMO_TOOLS_GK_CGKSHEET_H
#define KAMO_TOOLS_GK_CGKSHEET_H

#include "gk/CGKVector.h"
#include "gk/CGKVertex.h"
#include "kamo_tools_export.h"

#include <cstdint>

namespace GK {

class CRoutingTilesRevisor;

// A map sheet: four corners in any order, the six segments joining them and
// the dimensions derived from its two pairs of parallel sides.
//
// Construction only stores the corners; Setup (or CRoutingTilesRevisor)
// derives the rest. Setup accumulates the centre onto its current value, so
// it is meant to run once: existing sheet data was labelled that way.
struct KAMO_TOOLS_EXPORT CGKSheet {
    enum SideType { stLong = 0, stShort = 1 };

    // A pair of parallel sides.
    struct SideInfo {
        std::int32_t vector1 = -1; // indices into vectors
        std::int32_t vector2 = -1;
        double cosine = 1e40; // marks "not computed yet"
        bool found = false;
        double length = 0.0; // of vectors[vector1]
        CGKVertex mid1;
        CGKVertex mid2;
    };

    std::int32_t tileIndex;
    CGKVertex vertices[4];
    // Corner pairs (0,1), (0,2), (0,3), (1,2), (1,3), (2,3), each from the
    // lower corner to the higher and bound to both.
    CGKVector vectors[6];
    CGKVertex center;
    double length; // of the long sides
    double width;  // of the short sides
    double area;
    double diagonal;
    bool auxiliary; // only on the helper sheet CRoutingTilesRevisor appends
    SideInfo sides[2];

    CGKSheet();
    explicit CGKSheet(const CGKVertex (&corners)[4]);

    void Setup();

    static void CreateVectorSet(CGKVector (&out)[6], const CGKSheet& sheet);
    // Adds the corners onto `out` and scales the sum by 0.25: a mean only
    // when `out` starts at the origin.
    static void GetCenter(CGKVertex& out, const CGKVertex (&corners)[4]);

    // Both return false, leaving `out` alone, when the pair was not found.
    bool GetSides(SideType type, const CGKVector** out) const;
    bool GetLongSides(const CGKVector** out) const;
    bool GetShortSides(const CGKVector** out) const;

private:
    friend class CRoutingTilesRevisor;

    void createVectorSet();
    void determineDimensions();
    void init();
};

} // namespace GK

#endif
