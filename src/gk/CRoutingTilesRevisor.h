#ifndef KAMO_TOOLS_GK_CROUTINGTILESREVISOR_H
#define KAMO_TOOLS_GK_CROUTINGTILESREVISOR_H

#include "gk/CGKSheet.h"
#include "gk/CGKVector.h"
#include "gk/CGKVertex.h"
#include "kamo_tools_export.h"

#include <cstdint>
#include <vector>

namespace GK {

/// Labels the corners of a route of sheets, where sheet k+1 follows sheet k.
/// "Bottom" is the long side to the right of the direction of travel from a
/// sheet's centre to the next one's; the last sheet looks towards a copy of
/// itself scaled by 1.0001 about the coordinate origin, which the constructor
/// appends to the caller's vector and Revise removes again.
///
/// Hand in freshly constructed sheets on which Setup has not run: the
/// constructor sets them up itself. Revise runs once per revisor. Not
/// re-entrant: two revisions must not run at the same time.
class KAMO_TOOLS_EXPORT CRoutingTilesRevisor
{
public:
    /// The outcome of Revise(); geNotRevised before it ran.
    enum GKError {
        geNotRevised = -1,
        geNone = 0,
        geSidesMissing = 1, ///< a sheet without a pair of parallel long or short sides
    };

    /// Sets up \p sheets (in route order) and appends the helper sheet; the vector is borrowed and must outlive the
    /// revisor.
    explicit CRoutingTilesRevisor(std::vector<CGKSheet>& sheets);

    /// A sheet without long sides stops the labelling there (earlier sheets
    /// keep their labels); one without short sides is reported but the rest
    /// is still labelled.
    GKError Revise();

    /// The caller's sheets, labelled after Revise().
    std::vector<CGKSheet>& Ensemble() const;

private:
    static bool assignVtxPositions(CGKVertex& a, CGKVertex& b, const CGKVertex& center, bool bottom);
    static void bringToQ1(CGKVertex& p, CGKVertex& q);
    static void calcOminousVertex(CGKVertex& out, const CGKVertex& point, const CGKVector& line);
    void checkInterRectDistances(unsigned index);

    std::vector<CGKSheet>& sheets;
    std::vector<CGKVertex> centers;
    double meanArea;
    std::uint32_t count;
    GKError error;
};

} // namespace GK

#endif
