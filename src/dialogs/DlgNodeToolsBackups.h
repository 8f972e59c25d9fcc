#ifndef KAMO_TOOLS_DLGNODETOOLSBACKUPS_H
#define KAMO_TOOLS_DLGNODETOOLSBACKUPS_H

#include "kamo_tools_export.h"
#include "nodetools/NodeToolBackupInfo.h"

#include <QDialog>
#include <QList>
#include <QStringList>

namespace Ui {
class DlgNodeToolsBackups;
}

/// The backups that node-tool runs left in "Daten/ann_sic", newest first,
/// with the log of the selected one; "Wiederherstellen" puts one back after
/// backing up the current state. Folders that tell nothing about themselves
/// are listed all the same.
class KAMO_TOOLS_EXPORT DlgNodeToolsBackups : public QDialog
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

public Q_SLOTS:
    /// Shows the log of the selected backup.
    void OnCurrentBackupChanged();
    /// Asks, restores the selected backup and reports how it went.
    void OnRestoreClicked();

private:
    QString operationLabel(const NodeToolBackupInfo& info) const;

    Ui::DlgNodeToolsBackups* ui;
    QString projectRootDir;
    QStringList operationLabels;
    QList<NodeToolBackupInfo> backups;
};

#endif
