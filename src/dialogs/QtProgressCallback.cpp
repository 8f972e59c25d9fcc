#include "dialogs/QtProgressCallback.h"

#include <QProgressDialog>

QtProgressCallback::QtProgressCallback(QProgressDialog* dialog)
    : dialog(dialog)
{ }

QtProgressCallback::~QtProgressCallback() = default;

void QtProgressCallback::Progress(const QString& text, int value, int maximum)
{
    if (!dialog)
        return;
    dialog->setLabelText(text);
    dialog->setMaximum(maximum);
    dialog->setValue(value);
}
