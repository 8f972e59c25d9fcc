#include "dialogs/QtProgressCallback.h"

#include <QApplication>
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

void QtProgressCallback::Run(QWidget* parent, const QString& title, const std::function<void(ProgressCallback*)>& work)
{
    QProgressDialog progress(parent);
    progress.setWindowModality(Qt::WindowModal);
    progress.setCancelButton(nullptr);
    progress.setWindowTitle(title);
    QtProgressCallback callback(&progress);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    struct Restore {
        ~Restore() { QApplication::restoreOverrideCursor(); }
    } restore;
    work(&callback);
    progress.reset();
}
