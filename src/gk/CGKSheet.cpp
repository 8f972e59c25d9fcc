#include "gk/CGKSheet.h"

#include <cmath>
#include <utility>

namespace GK {

CGKSheet::CGKSheet()
{
    init();
}

CGKSheet::CGKSheet(const CGKVertex (&corners)[4])
{
    init();
    for (int i = 0; i < 4; ++i)
        vertices[i] = corners[i];
}

void CGKSheet::init()
{
    tileIndex = -1;
    length = 0.0;
    width = 0.0;
    area = 0.0;
    diagonal = 0.0;
    auxiliary = false;
}

void CGKSheet::Setup()
{
    GetCenter(center, vertices);
    createVectorSet();
    determineDimensions();
}

void CGKSheet::CreateVectorSet(CGKVector (&out)[6], const CGKSheet& sheet)
{
    int k = 0;
    for (int i = 0; i < 3; ++i) {
        for (int j = i + 1; j < 4; ++j, ++k) {
            out[k].Setup(sheet.vertices[i], sheet.vertices[j]);
            out[k].Bind(i, j);
        }
    }
}

void CGKSheet::GetCenter(CGKVertex& out, const CGKVertex (&corners)[4])
{
    for (const CGKVertex& corner : corners) {
        out.x += corner.x;
        out.y += corner.y;
    }
    out.x *= 0.25;
    out.y *= 0.25;
}

bool CGKSheet::GetSides(SideType type, const CGKVector** out) const
{
    const SideInfo& side = sides[type];
    if (side.vector1 < 0 || side.vector2 < 0)
        return false;
    out[0] = &vectors[side.vector1];
    out[1] = &vectors[side.vector2];
    return true;
}

bool CGKSheet::GetLongSides(const CGKVector** out) const
{
    return GetSides(stLong, out);
}

bool CGKSheet::GetShortSides(const CGKVector** out) const
{
    return GetSides(stShort, out);
}

void CGKSheet::createVectorSet()
{
    CreateVectorSet(vectors, *this);
}

// Opposite sides are told by the cosine alone, so any parallelogram passes
// and a shape off parallel by more than about 0.08 degrees gets no record:
// that is how callers notice input that is not a rectangle.
void CGKSheet::determineDimensions()
{
    for (int i = 0; i < 6; ++i) {
        for (int j = i + 1; j < 6; ++j) {
            const double c = CGKVector::NormalizedScalarProduct(vectors[i], vectors[j]);
            if (!(std::fabs(std::fabs(c) - 1.0) < 1e-6))
                continue;
            SideInfo& side = sides[stLong].found ? sides[stShort] : sides[stLong];
            side.vector1 = i;
            side.vector2 = j;
            side.cosine = c;
            side.mid1 = vectors[i].mid;
            side.mid2 = vectors[j].mid;
            side.length = vectors[i].length;
            side.found = true;
            break;
        }
        if (sides[stLong].found && sides[stShort].found)
            break;
    }

    // Strictly greater: of a square's two pairs the first found stays long.
    if (sides[stShort].length > sides[stLong].length)
        std::swap(sides[stLong], sides[stShort]);

    length = sides[stLong].length;
    width = sides[stShort].length;
    diagonal = std::sqrt(length * length + width * width);
    area = length * width;
}

} // namespace GK
