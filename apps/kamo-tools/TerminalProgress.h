#ifndef KAMO_TOOLS_APP_TERMINALPROGRESS_H
#define KAMO_TOOLS_APP_TERMINALPROGRESS_H

#include <nodetools/ProgressCallback.h>

#include <QElapsedTimer>

#include <cstdio>

// A one-line progress bar on a terminal. Draws nothing when the stream is
// not a terminal, so redirected output stays clean.
class TerminalProgress : public ProgressCallback
{
public:
    explicit TerminalProgress(FILE* stream);

    void Progress(const QString& text, int value, int maximum) override;

    // Clears the bar so that normal output can follow.
    void Finish();

    bool IsActive() const { return active; }

private:
    FILE* stream;
    bool active;
    bool drawn = false;
    int lastPercent = -1;
    QElapsedTimer sinceDraw;
};

#endif
