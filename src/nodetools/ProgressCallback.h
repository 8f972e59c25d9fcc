#ifndef KAMO_TOOLS_PROGRESSCALLBACK_H
#define KAMO_TOOLS_PROGRESSCALLBACK_H

#include "kamo_tools_export.h"

#include <QString>

/// Receives the progress of a node-tool run. Called synchronously on the
/// thread that runs the tool, once per file before it is processed; there is
/// no way to cancel a run that has started.
class KAMO_TOOLS_EXPORT ProgressCallback
{
public:
    virtual ~ProgressCallback();

    /// `text` is the annotation file about to be processed, `value` its
    /// 1-based number and `maximum` the number of files of the run.
    virtual void Progress(const QString& text, int value, int maximum) = 0;
};

#endif
