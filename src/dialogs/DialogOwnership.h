#ifndef KAMO_TOOLS_DIALOGS_DIALOGOWNERSHIP_H
#define KAMO_TOOLS_DIALOGS_DIALOGOWNERSHIP_H

#include <QPointer>

#include <memory>

// A facade's dialog is a child of the host's widget, so the host may destroy
// it first, with that widget, in an ordinary shutdown; and copies of a facade
// share one dialog. The returned handle, shared by the copies, deletes the
// dialog when the last copy goes, unless it is gone already. Internal.
template <typename Dialog> std::shared_ptr<void> ShareDialogOwnership(Dialog* dialog)
{
    return std::shared_ptr<void>(dialog, [guard = QPointer<Dialog>(dialog)](void*) { delete guard.data(); });
}

#endif
