#ifndef KAMO_TOOLS_QTPROGRESSCALLBACK_H
#define KAMO_TOOLS_QTPROGRESSCALLBACK_H

#include "nodetools/ProgressCallback.h"

#include <functional>

class QProgressDialog;
class QString;
class QWidget;

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

    /// Runs `work` under a wait cursor and a progress dialog titled `title`
    /// on `parent`, modal so that each new value repaints it, and without a
    /// cancel button: the engines finish what they start.
    static void Run(QWidget* parent, const QString& title, const std::function<void(ProgressCallback*)>& work);

private:
    QProgressDialog* dialog;
};

#endif
