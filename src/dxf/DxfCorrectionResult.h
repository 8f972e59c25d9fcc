#ifndef KAMO_TOOLS_DXF_DXFCORRECTIONRESULT_H
#define KAMO_TOOLS_DXF_DXFCORRECTIONRESULT_H

#include "kamo_tools_export.h"

#include <QList>

/// What a corner correction found, for callers that show it rather than log
/// it. Inserts are named by their 0-based position in `drawing.inserts`, as
/// the log lines name them; every list is in ascending order except `route`.
struct KAMO_TOOLS_EXPORT DxfCorrectionResult {
    /// Frames the rectangle detector did not find exactly one rectangle in;
    /// they take no part in the route and get no labels.
    QList<int> notOneRectangle;
    /// Frames a revision that stopped left without labels: the one without
    /// parallel sides and every one after it along the route.
    QList<int> unlabelled;
    /// Frames with only one pair of parallel sides; labelled all the same.
    QList<int> oneParallelPair;
    /// The inserts the revision worked along, in that order: sheet k's
    /// "bottom" is the long side to the right of the way to sheet k+1.
    QList<int> route;

    /// Every insert a log line names, ascending.
    QList<int> Reported() const;
};

#endif
