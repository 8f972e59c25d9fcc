#ifndef KAMO_TOOLS_DIALOGDXFTOOLS_H
#define KAMO_TOOLS_DIALOGDXFTOOLS_H

#include "kamo_tools_export.h"

#include <QPointer>
#include <QString>

#include <memory>

class DlgDxfTools;
class QSettings;
class QWidget;

/// The DXF workbench as the host opens it: optionally preset a drawing, call
/// Initialize, then ShowModal. The settings are borrowed; the facade owns its
/// dialog, so the drawing and the corner labels found in it stay from one
/// ShowModal to the next. Copies share the dialog, which the last of them
/// deletes; the host may destroy the parent widget before or after that.
class KAMO_TOOLS_EXPORT DialogDxfTools
{
public:
    /// Creates the facade and its dialog under \p parent; \p settings is borrowed (may be null: nothing is remembered)
    /// and must outlive the facade.
    DialogDxfTools(QWidget* parent, QSettings* settings);
    /// Releases this facade's share of the dialog.
    ~DialogDxfTools();
    /// Copies share the one dialog.
    ///@{
    DialogDxfTools(const DialogDxfTools&) = default;
    DialogDxfTools& operator=(const DialogDxfTools&) = default;
    ///@}

    /// Opened by Initialize instead of the last used drawing.
    void SetDxfFilename(const QString& file);
    /// Restores the stored state and opens the drawing.
    void Initialize();
    /// Shows the workbench modally; does nothing once the parent has destroyed the dialog.
    void ShowModal();

private:
    QPointer<DlgDxfTools> dialog;
    std::shared_ptr<void> dialogOwner;
};

#endif
