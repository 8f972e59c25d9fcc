#include "gk/VtxPosition.h"

namespace GK {

QString VtxPositionText(VtxPosition position)
{
    switch (position) {
    case vpTopLeft:
        return QStringLiteral("vpTopLeft");
    case vpTopRight:
        return QStringLiteral("vpTopRight");
    case vpBottomLeft:
        return QStringLiteral("vpBottomLeft");
    case vpBottomRight:
        return QStringLiteral("vpBottomRight");
    case vpUnknown:
        break;
    }
    return QStringLiteral("Unknown");
}

int VtxPositionRingSlot(VtxPosition position)
{
    switch (position) {
    case vpTopLeft:
        return 0;
    case vpTopRight:
        return 1;
    case vpBottomRight:
        return 2;
    case vpBottomLeft:
        return 3;
    default:
        return -1;
    }
}

} // namespace GK
