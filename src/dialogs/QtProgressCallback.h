#ifndef KAMO_TOOLS_QTPROGRESSCALLBACK_H
#define KAMO_TOOLS_QTPROGRESSCALLBACK_H

#include "nodetools/ProgressCallback.h"

class QProgressDialog;

/// Shows the progress of a node-tool run in a progress dialog it borrows.
/// Events are processed only as far as the dialog itself does it (a modal
/// progress dialog repaints on each new value).
class QtProgressCallback : public ProgressCallback
{
public:
    /// Reports into \p dialog, which is borrowed and must outlive the callback.
    explicit QtProgressCallback(QProgressDialog* dialog);
    ~QtProgressCallback() override;

    void Progress(const QString& text, int value, int maximum) override;

private:
    QProgressDialog* dialog;
};

#endif
