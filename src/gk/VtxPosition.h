#ifndef KAMO_TOOLS_GK_VTXPOSITION_H
#define KAMO_TOOLS_GK_VTXPOSITION_H

#include "kamo_tools_export.h"

#include <QString>

#include <cstdint>

namespace GK {

// The label of a sheet corner. Sheet data stores it as a 32-bit integer and
// may hold values outside the enumerators, which read as "Unknown".
enum VtxPosition : std::int32_t {
    vpUnknown = 0,
    vpTopLeft = 1,
    vpTopRight = 2,
    vpBottomLeft = 3,
    vpBottomRight = 4,
};

// The text of a label in vertex listings: the enumerator's own name, or
// "Unknown" for 0 and any value outside 1..4.
KAMO_TOOLS_EXPORT QString VtxPositionText(VtxPosition position);

// Where a labelled corner goes when a sheet is written as a ring: top left
// 0, top right 1, bottom right 2, bottom left 3; -1 for any other label.
KAMO_TOOLS_EXPORT int VtxPositionRingSlot(VtxPosition position);

} // namespace GK

#endif
