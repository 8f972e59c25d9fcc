#ifndef KAMO_TOOLS_DLGNODETOOLSPREVIEW_H
#define KAMO_TOOLS_DLGNODETOOLSPREVIEW_H

#include <QDialog>
#include <QStringList>

class BlockNodeTool;
class QPushButton;

namespace Ui {
class DlgNodeToolsPreview;
}

/// What a node-tool run would do, from its dry run: the files that would
/// change with their number of changed objects, the old and new text of the
/// selected one side by side, and the warnings the run would give.
/// "Ausführen" accepts the dialog (the caller then runs the operation),
/// "Schließen" rejects it.
class DlgNodeToolsPreview : public QDialog
{
    Q_OBJECT

public:
    /// Creates an empty preview; call SetResult() before showing it.
    explicit DlgNodeToolsPreview(QWidget* parent = nullptr);
    ~DlgNodeToolsPreview() override;

    /// Shows the results of `tool`, which must have run dry and outlive the
    /// dialog: the texts of the file shown are made again by it.
    void SetResult(const QString& operationLabel, BlockNodeTool& tool);

    /// The HTML of a comparison of `oldText` and `newText`, as shown.
    static QString ComparisonHtml(const QString& oldText, const QString& newText, int* changes = nullptr);

public Q_SLOTS:
    /// Shows the comparison of the selected file.
    void OnCurrentFileChanged();
    /// Scrolls the comparison to the next change, from the last back to the first.
    void OnNextChangeClicked();

private:
    Ui::DlgNodeToolsPreview* ui;
    QPushButton* executeButton = nullptr;
    BlockNodeTool* tool = nullptr;
    QStringList paths;
    int changeCount = 0;
    int currentChange = -1;
};

#endif
