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

} // namespace GK
