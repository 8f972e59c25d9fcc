#include "dialogs/DialogDxfTools.h"

#include "dialogs/DialogOwnership.h"
#include "dialogs/DlgDxfTools.h"

DialogDxfTools::DialogDxfTools(QWidget* parent, QSettings* settings)
    : dialog(new DlgDxfTools(parent))
    , dialogOwner(ShareDialogOwnership(dialog.data()))
{
    dialog->SetSettings(settings);
}

DialogDxfTools::~DialogDxfTools() = default;

void DialogDxfTools::SetDxfFilename(const QString& file)
{
    if (dialog)
        dialog->SetDxfFilename(file);
}

void DialogDxfTools::Initialize()
{
    if (dialog)
        dialog->Initialize();
}

void DialogDxfTools::ShowModal()
{
    if (dialog)
        dialog->exec();
}
