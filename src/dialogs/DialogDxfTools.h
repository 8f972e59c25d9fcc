#ifndef KAMO_TOOLS_DIALOGDXFTOOLS_H
#define KAMO_TOOLS_DIALOGDXFTOOLS_H

#include "kamo_tools_export.h"

#include <QString>

class DlgDxfTools;
class QSettings;
class QWidget;

// The DXF workbench as the host opens it: optionally preset a drawing, call
// Initialize, then ShowModal. The settings are borrowed; the facade owns its
// dialog, so the drawing and the corner labels found in it stay from one
// ShowModal to the next.
class KAMO_TOOLS_EXPORT DialogDxfTools
{
public:
    DialogDxfTools(QWidget* parent, QSettings* settings);
    ~DialogDxfTools();
    DialogDxfTools(const DialogDxfTools&) = delete;
    DialogDxfTools& operator=(const DialogDxfTools&) = delete;

    // Opened by Initialize instead of the last used drawing.
    void SetDxfFilename(const QString& file);
    // Restores the stored state and opens the drawing.
    void Initialize();
    void ShowModal();

    // The dialog, for a host that wants to adjust it before ShowModal.
    DlgDxfTools* GetDialog() const { return dialog; }

private:
    DlgDxfTools* dialog;
};

#endif
