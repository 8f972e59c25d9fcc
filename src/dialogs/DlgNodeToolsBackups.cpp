#include "dialogs/DlgNodeToolsBackups.h"

#include "ui_DlgNodeToolsBackups.h"

#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/NodeToolBackup.h"

#include <Vex.h>

#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>

DlgNodeToolsBackups::DlgNodeToolsBackups(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::DlgNodeToolsBackups)
{
    ui->setupUi(this);
    ui->buttonBox->button(QDialogButtonBox::Close)->setText(tr("Schließen"));
    ui->treeBackups->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    ui->treeBackups->header()->setSectionResizeMode(2, QHeaderView::Stretch);
    ui->splitter->setStretchFactor(0, 3);
    ui->splitter->setStretchFactor(1, 2);
    connect(ui->treeBackups, &QTreeWidget::currentItemChanged, this, &DlgNodeToolsBackups::OnCurrentBackupChanged);
    connect(ui->btnRestore, &QAbstractButton::clicked, this, &DlgNodeToolsBackups::OnRestoreClicked);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    OnCurrentBackupChanged();
}

DlgNodeToolsBackups::~DlgNodeToolsBackups()
{
    delete ui;
}

void DlgNodeToolsBackups::SetProject(const QString& root, const QStringList& labels)
{
    projectRootDir = root;
    operationLabels = labels;
    Refresh();
}

QString DlgNodeToolsBackups::operationLabel(const NodeToolBackupInfo& info) const
{
    if (!info.logRead)
        return tr("(kein lesbares Protokoll)");
    bool isNumber = false;
    const int id = info.operation.toInt(&isNumber);
    if (isNumber && id >= 0 && id < operationLabels.size())
        return operationLabels.at(id);
    if (info.operation.startsWith(QLatin1String("restore"))) {
        const QString stamp = info.operation.mid(7).trimmed();
        const QDateTime time = QDateTime::fromString(stamp, NodeToolBackup::TimeStampFormat);
        return tr("Wiederherstellung der Sicherung vom %1")
            .arg(time.isValid() ? time.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")) : stamp);
    }
    return info.operation;
}

void DlgNodeToolsBackups::Refresh()
{
    const QString backupRoot = QDir::cleanPath(AnnotationFileProcessor::DataDirectory(projectRootDir))
        + QLatin1Char('/') + NodeToolBackup::BackupRootName;
    ui->lblFolder->setText(tr("Sicherungen in %1").arg(QDir::toNativeSeparators(backupRoot)));

    backups = projectRootDir.isEmpty() ? QList<NodeToolBackupInfo>() : NodeToolBackup::List(projectRootDir);
    ui->treeBackups->clear();
    QList<QTreeWidgetItem*> items;
    for (const NodeToolBackupInfo& info : qAsConst(backups)) {
        auto* item = new QTreeWidgetItem;
        item->setText(0,
            info.time.isValid() ? info.time.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"))
                                : tr("%1 (kein Zeitstempel)").arg(info.stamp));
        item->setText(1, operationLabel(info));
        item->setText(2, QDir::toNativeSeparators(info.source));
        item->setToolTip(2, item->text(2));
        item->setText(3, info.user);
        item->setText(4, QString::number(info.fileCount));
        item->setTextAlignment(4, Qt::AlignRight | Qt::AlignVCenter);
        if (!info.time.isValid() || !info.logRead) {
            for (int column = 0; column < 5; ++column)
                item->setForeground(column, palette().brush(QPalette::Disabled, QPalette::Text));
        }
        items.append(item);
    }
    ui->treeBackups->addTopLevelItems(items);
    if (!items.isEmpty())
        ui->treeBackups->setCurrentItem(items.first());
    OnCurrentBackupChanged();
}

void DlgNodeToolsBackups::OnCurrentBackupChanged()
{
    const int row = ui->treeBackups->indexOfTopLevelItem(ui->treeBackups->currentItem());
    ui->btnRestore->setEnabled(row >= 0);
    if (row < 0) {
        ui->txtLog->setPlainText(backups.isEmpty() ? tr("Keine Sicherungen vorhanden.") : QString());
        return;
    }
    const NodeToolBackupInfo& info = backups.at(row);
    ui->txtLog->setPlainText(info.logRead
            ? info.logText
            : tr("Das Protokoll \"%1\" fehlt oder kann nicht gelesen werden.").arg(NodeToolBackup::LogFileName));
}

void DlgNodeToolsBackups::OnRestoreClicked()
{
    const int row = ui->treeBackups->indexOfTopLevelItem(ui->treeBackups->currentItem());
    if (row < 0)
        return;
    const NodeToolBackupInfo info = backups.at(row);
    const QString when = ui->treeBackups->currentItem()->text(0);
    const QMessageBox::StandardButton answer = QMessageBox::question(this, tr("Sicherung wiederherstellen"),
        tr("Die Sicherung vom %1 wiederherstellen?\n\nDateien, die ersetzt werden: %2\n\nDer jetzige Stand "
           "wird vorher gesichert.")
            .arg(when, QString::number(info.fileCount)),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;

    NodeToolBackup backup;
    backup.projectRootDir = projectRootDir;
    backup.logText = QStringLiteral("Node Tool Operation: restore %1\nSource: %2\nUser: %3")
                         .arg(info.stamp, projectRootDir, Vex::GetCurrentUserName());
    QStringList restored;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool done = backup.Restore(info.stamp, &restored);
    QApplication::restoreOverrideCursor();
    if (done) {
        QMessageBox::information(this, tr("Sicherung wiederhergestellt"),
            tr("Dateien wiederhergestellt: %1\n\nDer Stand davor ist gesichert in:\n%2")
                .arg(QString::number(restored.size()), QDir::toNativeSeparators(backup.GetBackupFolder())));
    } else {
        QMessageBox::warning(this, tr("Sicherung wiederherstellen"),
            tr("Die Sicherung konnte nicht wiederhergestellt werden:\n\n%1").arg(backup.ErrorString()));
    }
    Refresh();
}
