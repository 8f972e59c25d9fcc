#include "gk/CRoutingTilesRevisor.h"

#include <QtGlobal>

#include <cmath>

namespace GK {

namespace {

// The short-side labels of the first sheet of the last revision; compared
// with later sheets' without effect. Process-wide on purpose.
std::int32_t rememberedLabels[2] = { 0, 0 };

void rotateRadians(CGKVertex& v, double angle)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double rx = v.x * c - v.y * s;
    const double ry = v.x * s + v.y * c;
    v.x = rx;
    v.y = ry;
}

} // namespace

CRoutingTilesRevisor::CRoutingTilesRevisor(std::vector<CGKSheet>& sheets)
    : sheets(sheets)
    , meanArea(0.0)
    , count(0)
    , error(geNotRevised)
{
    if (!sheets.empty()) {
        // Scaling about the origin, not the sheet centre: with coordinates of
        // millions of metres the copy's centre lies a few hundred metres
        // further out, which gives the last sheet its direction of travel.
        CGKVertex corners[4];
        for (int i = 0; i < 4; ++i) {
            const CGKVertex& v = sheets.back().vertices[i];
            corners[i] = CGKVertex(v.x * 1.0001, v.y * 1.0001, v.position);
        }
        sheets.push_back(CGKSheet(corners));
        sheets.back().auxiliary = true;
    }
    count = static_cast<std::uint32_t>(sheets.size());

    for (CGKSheet& sheet : sheets) {
        CGKSheet::GetCenter(sheet.center, sheet.vertices);
        CGKSheet::CreateVectorSet(sheet.vectors, sheet);
        sheet.determineDimensions();
        centers.push_back(sheet.center);
        meanArea += sheet.area;
    }
    if (count > 0)
        meanArea /= count;
}

std::vector<CGKSheet>& CRoutingTilesRevisor::Ensemble() const
{
    return sheets;
}

CRoutingTilesRevisor::GKError CRoutingTilesRevisor::Revise()
{
    error = geNone;
    for (std::uint32_t k = 1; k < count; ++k) {
        const unsigned p = k - 1;
        CGKSheet& sheet = sheets[p];
        const CGKVertex& c = centers[p];
        const CGKVertex& n = centers[k];
        const CGKVector travel(c, n);

        const CGKSheet::SideInfo& longSides = sheet.sides[CGKSheet::stLong];
        if (longSides.vector1 < 0 || longSides.vector2 < 0) {
            error = geSidesMissing;
            break;
        }

        const std::int32_t sideVectors[2] = { longSides.vector1, longSides.vector2 };
        int bottom = -1;
        for (int s = 0; s < 2; ++s) {
            const CGKVertex& m = sheet.vectors[sideVectors[s]].mid;
            const CGKVector toMid(c, m);

            // A consistency check left from an earlier labelling: the
            // normalised midpoint's side is computed and then not used.
            CGKVertex next = n;
            CGKVertex mid = m;
            next -= c;
            mid -= c;
            bringToQ1(next, mid);

            if (bottom < 0 && travel.CrossProductZ(toMid) < 0)
                bottom = s;
        }
        if (bottom < 0)
            continue;

        const CGKVector& bottomSide = sheet.vectors[sideVectors[bottom]];
        const CGKVector& topSide = sheet.vectors[sideVectors[1 - bottom]];
        assignVtxPositions(sheet.vertices[bottomSide.bound1], sheet.vertices[bottomSide.bound2], c, true);
        assignVtxPositions(sheet.vertices[topSide.bound1], sheet.vertices[topSide.bound2], c, false);
        checkInterRectDistances(p);
    }

    if (!sheets.empty() && sheets.back().auxiliary)
        sheets.pop_back();
    return error;
}

bool CRoutingTilesRevisor::assignVtxPositions(CGKVertex& a, CGKVertex& b, const CGKVertex& center, bool bottom)
{
    CGKVertex d = b;
    d -= a;
    CGKVertex e = center;
    e -= a;
    bringToQ1(d, e);

    const double angle = std::asin(d.y / std::sqrt(d.x * d.x + d.y * d.y)) * 57.29577951308232;
    e.Rotate(-angle);

    const bool swap = bottom ? (e.y <= 0) : (e.y > 0);
    const int base = bottom ? 2 : 0;
    if (swap) {
        b.position = static_cast<VtxPosition>(base + 1);
        a.position = static_cast<VtxPosition>(base + 2);
    } else {
        a.position = static_cast<VtxPosition>(base + 1);
        b.position = static_cast<VtxPosition>(base + 2);
    }
    return swap;
}

// The library sin and cos of pi and -pi/2 are not exactly 0 and +-1; the
// stored labels were computed with them, so they stay.
void CRoutingTilesRevisor::bringToQ1(CGKVertex& p, CGKVertex& q)
{
    if (p.y < 0) {
        rotateRadians(p, 3.141592653589793);
        rotateRadians(q, 3.141592653589793);
    }
    if (p.x < 0) {
        rotateRadians(p, -1.5707963267948966);
        rotateRadians(q, -1.5707963267948966);
    }
}

void CRoutingTilesRevisor::calcOminousVertex(CGKVertex& out, const CGKVertex& point, const CGKVector& line)
{
    const double m = line.slope;
    const double k = 1.0 / (m * m + 1.0);
    const double x0 = line.start.x;
    const double y0 = line.start.y;
    if (!line.steep) {
        out.x = ((x0 * m + point.y - y0) * m + point.x) * k;
        out.y = (out.x - x0) * m + y0;
    } else {
        out.y = ((y0 * m + point.x - x0) * m + point.y) * k;
        out.x = (out.y - y0) * m + x0;
    }
}

void CRoutingTilesRevisor::checkInterRectDistances(unsigned index)
{
    const CGKSheet& sheet = sheets[index];
    const CGKSheet::SideInfo& shortSides = sheet.sides[CGKSheet::stShort];
    if (shortSides.vector1 < 0 || shortSides.vector2 < 0) {
        error = geSidesMissing;
        return;
    }

    const CGKVertex& next = centers[index + 1];
    double best = 1e20;
    const CGKVector* facing = nullptr;
    for (std::int32_t v : { shortSides.vector1, shortSides.vector2 }) {
        const double distance = sheet.vectors[v].mid.Distance(next);
        if (distance < best) {
            best = distance;
            facing = &sheet.vectors[v];
        }
    }
    if (!facing)
        return;

    const std::int32_t labels[2] = { sheet.vertices[facing->bound1].position, sheet.vertices[facing->bound2].position };
    if (index == 0) {
        rememberedLabels[0] = labels[0];
        rememberedLabels[1] = labels[1];
    } else {
        // Only a placeholder for a check between neighbouring sheets.
        const bool sameAsFirst = labels[0] == rememberedLabels[0] && labels[1] == rememberedLabels[1];
        Q_UNUSED(sameAsFirst)
    }
}

} // namespace GK
