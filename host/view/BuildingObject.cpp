#include "BuildingObject.h"

#include "RingPath.h"

bool BuildingObject::Intersects(const QPainterPath& area) const
{
    return RingPath(rings).intersects(area);
}
