#include "dxf/DxfCorrectionResult.h"

#include <algorithm>

QList<int> DxfCorrectionResult::Reported() const
{
    QList<int> all = notOneRectangle + unlabelled + oneParallelPair;
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}
