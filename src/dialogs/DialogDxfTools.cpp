#include "dialogs/DialogDxfTools.h"

#include "dialogs/DlgDxfTools.h"

DialogDxfTools::DialogDxfTools(QWidget* parent, QSettings* settings)
    : dialog(new DlgDxfTools(parent))
{
    dialog->SetSettings(settings);
}

DialogDxfTools::~DialogDxfTools()
{
    delete dialog;
}

void DialogDxfTools::SetDxfFilename(const QString& file)
{
    dialog->SetDxfFilename(file);
}

void DialogDxfTools::Initialize()
{
    dialog->Initialize();
}

void DialogDxfTools::ShowModal()
{
    dialog->exec();
}
