#ifndef KAMO_TOOLS_DLGNODETOOLSBACKUPS_H
#define KAMO_TOOLS_DLGNODETOOLSBACKUPS_H

#include "nodetools/NodeToolBackupCheck.h"
#include "nodetools/NodeToolBackupInfo.h"

#include <QDialog>
#include <QList>
#include <QStringList>
#include <QTimer>

#include <memory>

namespace Ui {
class DlgNodeToolsBackups;
}

/// The backups that node-tool runs left in "Daten/ann_sic", newest first,
/// with the log of the selected one and whether it is intact; "Wiederherstellen"
/// puts one back after backing up the current state. Folders that tell nothing
/// about themselves are listed all the same, and so is a file where a backup
/// folder should be.
///
/// The backups are checked against their manifests after the list is shown,
/// a slice at a time between events, the selected one first: a project with
/// many large backups opens the list at once and can restore while the
/// others are still being checked.
class DlgNodeToolsBackups : public QDialog
{
    Q_OBJECT

public:
    /// Creates the dialog; call SetProject() before showing it.
    explicit DlgNodeToolsBackups(QWidget* parent = nullptr);
    ~DlgNodeToolsBackups() override;

    /// `operationLabels` name the operations by id, as the tools' combo does.
    void SetProject(const QString& projectRootDir, const QStringList& operationLabels);
    /// Lists the project's backups anew.
    void Refresh();
    /// The backups listed, newest first.
    const QList<NodeToolBackupInfo>& Backups() const { return backups; }
    /// Whether every listed backup is checked.
    bool ChecksDone() const;

public Q_SLOTS:
    /// Shows the log of the selected backup.
    void OnCurrentBackupChanged();
    /// Asks, restores the selected backup and reports how it went.
    void OnRestoreClicked();

private:
    // What the check of one listed backup found so far.
    struct CheckState {
        NodeToolBackupCheck::State state = NodeToolBackupCheck::State::Pending;
        int checked = 0;
        int total = 0;
        int intact = 0;
        QList<NodeToolBackupCheck::Problem> problems;
    };

    QString operationLabel(const NodeToolBackupInfo& info) const;
    void checkSlice();
    // Checks row `row` for at most `budgetMs` milliseconds (all of it for -1).
    void checkRow(int row, int budgetMs);
    void showCheckState(int row);
    QString problemText(int row) const;

    Ui::DlgNodeToolsBackups* ui;
    QString projectRootDir;
    QStringList operationLabels;
    QList<NodeToolBackupInfo> backups;
    QList<CheckState> checks;
    std::unique_ptr<NodeToolBackupCheck> activeCheck;
    int activeRow = -1;
    QTimer checkTimer;
};

#endif
