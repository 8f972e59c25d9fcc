#ifndef KAMO_BENCH_BESTOF_H
#define KAMO_BENCH_BESTOF_H

#include <QElapsedTimer>

#include <algorithm>
#include <functional>
#include <limits>

// The shortest of `rounds` runs, in milliseconds: load from elsewhere on the
// machine only ever adds time.
inline double BestOf(int rounds, const std::function<void()>& run)
{
    double best = std::numeric_limits<double>::max();
    for (int r = 0; r < rounds; ++r) {
        QElapsedTimer timer;
        timer.start();
        run();
        best = std::min(best, timer.nsecsElapsed() / 1e6);
    }
    return best;
}

#endif
