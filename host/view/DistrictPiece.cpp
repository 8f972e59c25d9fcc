#include "DistrictPiece.h"

#include "RingPath.h"

bool DistrictPiece::Intersects(const QPainterPath& area) const
{
    return RingPath(rings).intersects(area);
}
