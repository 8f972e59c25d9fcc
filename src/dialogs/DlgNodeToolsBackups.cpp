#include "dialogs/DlgNodeToolsBackups.h"

#include "ui_DlgNodeToolsBackups.h"

#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/NodeToolBackup.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>

namespace {

// The state second: it decides which backup to restore.
enum Column { TimeColumn, StateColumn, OperationColumn, SourceColumn, UserColumn, FilesColumn, ColumnCount };

} // namespace

DlgNodeToolsBackups::DlgNodeToolsBackups(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::DlgNodeToolsBackups)
{
    ui->setupUi(this);
    ui->buttonBox->button(QDialogButtonBox::Close)->setText(tr("Schließen"));
    ui->treeBackups->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    ui->treeBackups->header()->setSectionResizeMode(SourceColumn, QHeaderView::Stretch);
    ui->splitter->setStretchFactor(0, 3);
    ui->splitter->setStretchFactor(1, 2);
    connect(ui->treeBackups, &QTreeWidget::currentItemChanged, this, &DlgNodeToolsBackups::OnCurrentBackupChanged);
    connect(ui->btnRestore, &QAbstractButton::clicked, this, &DlgNodeToolsBackups::OnRestoreClicked);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    checkTimer.setInterval(0);
    connect(&checkTimer, &QTimer::timeout, this, &DlgNodeToolsBackups::checkSlice);
    OnCurrentBackupChanged();
}

DlgNodeToolsBackups::~DlgNodeToolsBackups()
{
    delete ui;
}

bool DlgNodeToolsBackups::ChecksDone() const
{
    for (const CheckState& check : checks) {
        if (check.state == NodeToolBackupCheck::State::Pending)
            return false;
    }
    return true;
}

void DlgNodeToolsBackups::checkSlice()
{
    // The selected backup first: it is the one the user looks at.
    int row = ui->treeBackups->indexOfTopLevelItem(ui->treeBackups->currentItem());
    if (row < 0 || checks.at(row).state != NodeToolBackupCheck::State::Pending)
        row = activeRow;
    for (int i = 0; row < 0 && i < checks.size(); ++i) {
        if (checks.at(i).state == NodeToolBackupCheck::State::Pending)
            row = i;
    }
    if (row < 0) {
        checkTimer.stop();
        return;
    }
    // Short enough that the list stays responsive while it is checked.
    checkRow(row, 20);
}

void DlgNodeToolsBackups::checkRow(int row, int budgetMs)
{
    if (row != activeRow) {
        // A backup left half-checked starts again when its turn comes.
        activeCheck = std::make_unique<NodeToolBackupCheck>(
            NodeToolBackup::BackupFolder(projectRootDir, backups.at(row).stamp));
        activeRow = row;
        checks[row] = CheckState();
        checks[row].total = activeCheck->GetFileCount();
    }
    QElapsedTimer timer;
    timer.start();
    CheckState& check = checks[row];
    bool intact = false;
    while ((budgetMs < 0 || timer.elapsed() < budgetMs) && activeCheck->CheckNext(nullptr, nullptr, &intact))
        check.intact += int(intact);
    check.checked = activeCheck->GetFilesChecked();
    check.problems = activeCheck->GetProblems();
    check.state = activeCheck->IsDone() ? activeCheck->GetState() : NodeToolBackupCheck::State::Pending;
    if (activeCheck->IsDone()) {
        activeCheck.reset();
        activeRow = -1;
    }
    showCheckState(row);
}

void DlgNodeToolsBackups::showCheckState(int row)
{
    QTreeWidgetItem* item = ui->treeBackups->topLevelItem(row);
    const CheckState& check = checks.at(row);
    switch (check.state) {
    case NodeToolBackupCheck::State::Pending:
        item->setText(
            StateColumn, tr("wird geprüft … %1 %").arg(check.total > 0 ? 100 * check.checked / check.total : 0));
        break;
    case NodeToolBackupCheck::State::Intact:
        item->setText(StateColumn, tr("geprüft"));
        break;
    case NodeToolBackupCheck::State::Damaged:
        item->setText(StateColumn, tr("beschädigt (%1)").arg(check.problems.size()));
        item->setForeground(StateColumn, QColor(Qt::red));
        break;
    case NodeToolBackupCheck::State::NoManifest:
        item->setText(StateColumn, tr("ungeprüft (ohne Manifest)"));
        break;
    }
    item->setToolTip(StateColumn, problemText(row));
    if (item == ui->treeBackups->currentItem() && check.state != NodeToolBackupCheck::State::Pending)
        OnCurrentBackupChanged();
}

QString DlgNodeToolsBackups::problemText(int row) const
{
    QStringList lines;
    for (const NodeToolBackupCheck::Problem& problem : checks.at(row).problems)
        lines.append(problem.fileName + QStringLiteral(": ") + problem.reason);
    return lines.join(QLatin1Char('\n'));
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
        item->setText(TimeColumn,
            info.time.isValid() ? info.time.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"))
                                : tr("%1 (kein Zeitstempel)").arg(info.stamp));
        item->setText(OperationColumn, operationLabel(info));
        item->setText(SourceColumn, QDir::toNativeSeparators(info.source));
        item->setToolTip(SourceColumn, item->text(SourceColumn));
        item->setText(UserColumn, info.user);
        item->setText(FilesColumn, QString::number(info.fileCount));
        item->setTextAlignment(FilesColumn, Qt::AlignRight | Qt::AlignVCenter);
        if (!info.time.isValid() || !info.logRead) {
            for (int column = 0; column < ColumnCount; ++column) {
                if (column != StateColumn)
                    item->setForeground(column, palette().brush(QPalette::Disabled, QPalette::Text));
            }
        }
        items.append(item);
    }
    activeCheck.reset();
    activeRow = -1;
    checks = QVector<CheckState>(backups.size()).toList();
    ui->treeBackups->addTopLevelItems(items);
    for (int row = 0; row < items.size(); ++row)
        showCheckState(row);
    if (!items.isEmpty())
        checkTimer.start();
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
    QString text = info.logRead
        ? info.logText
        : tr("Das Protokoll \"%1\" fehlt oder kann nicht gelesen werden.").arg(NodeToolBackup::LogFileName);
    if (checks.value(row).state == NodeToolBackupCheck::State::Damaged) {
        text += QStringLiteral("\n\n")
            + tr("Beschädigt: %1 Dateien sind nicht so, wie sie gesichert wurden:").arg(checks.at(row).problems.size())
            + QLatin1Char('\n') + problemText(row);
    }
    ui->txtLog->setPlainText(text);
    ui->btnRestore->setEnabled(info.isFolder);
}

void DlgNodeToolsBackups::OnRestoreClicked()
{
    const int row = ui->treeBackups->indexOfTopLevelItem(ui->treeBackups->currentItem());
    if (row < 0)
        return;
    const NodeToolBackupInfo info = backups.at(row);
    const QString when = ui->treeBackups->currentItem()->text(TimeColumn);

    // What is asked depends on what the check finds; the restore checks again.
    if (checks.at(row).state == NodeToolBackupCheck::State::Pending) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        checkRow(row, -1);
        QApplication::restoreOverrideCursor();
    }
    const CheckState check = checks.at(row);
    const bool damaged = check.state == NodeToolBackupCheck::State::Damaged;
    if (damaged) {
        QMessageBox box(QMessageBox::Warning, tr("Sicherung wiederherstellen"),
            tr("Die Sicherung vom %1 ist beschädigt: %2 Dateien sind nicht so, wie sie gesichert wurden.")
                .arg(when, QString::number(check.problems.size())),
            QMessageBox::NoButton, this);
        const QStringList problems = problemText(row).split(QLatin1Char('\n'));
        box.setInformativeText(problems.mid(0, 10).join(QLatin1Char('\n'))
            + (problems.size() > 10 ? tr("\n… und %1 weitere").arg(problems.size() - 10) : QString())
            + QStringLiteral("\n\n")
            + tr("Die übrigen %1 Dateien wiederherstellen? Der jetzige Stand wird vorher gesichert.")
                  .arg(check.intact));
        if (problems.size() > 10)
            box.setDetailedText(problems.join(QLatin1Char('\n')));
        QPushButton* rest = box.addButton(tr("Übrige wiederherstellen"), QMessageBox::AcceptRole);
        box.setDefaultButton(box.addButton(QMessageBox::Cancel));
        box.exec();
        if (box.clickedButton() != rest)
            return;
    } else {
        QString question = tr("Die Sicherung vom %1 wiederherstellen?\n\nDateien, die ersetzt werden: %2\n\nDer "
                              "jetzige Stand wird vorher gesichert.")
                               .arg(when, QString::number(info.fileCount));
        if (check.state == NodeToolBackupCheck::State::NoManifest)
            question += QStringLiteral("\n\n")
                + tr("Diese Sicherung hat kein Manifest (von einer älteren Version oder vom Hauptprogramm "
                     "angelegt): ihre Dateien können nicht geprüft werden.");
        const QMessageBox::StandardButton answer = QMessageBox::question(
            this, tr("Sicherung wiederherstellen"), question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
        if (answer != QMessageBox::Yes)
            return;
    }

    NodeToolBackup backup;
    backup.projectRootDir = projectRootDir;
    backup.logText = NodeToolBackup::LogText(QStringLiteral("restore %1").arg(info.stamp), projectRootDir);
    QStringList restored;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool done = backup.Restore(info.stamp, &restored, damaged);
    QApplication::restoreOverrideCursor();
    if (done) {
        QMessageBox box(backup.GetProblems().isEmpty() ? QMessageBox::Information : QMessageBox::Warning,
            tr("Sicherung wiederhergestellt"),
            tr("Dateien wiederhergestellt: %1\n\nDer Stand davor ist gesichert in:\n%2")
                .arg(QString::number(restored.size()), QDir::toNativeSeparators(backup.GetBackupFolder())),
            QMessageBox::Ok, this);
        QStringList notes;
        if (!backup.WasChecked())
            notes.append(tr("Die Dateien konnten nicht geprüft werden (kein Manifest)."));
        if (!backup.GetProblems().isEmpty()) {
            QStringList lines;
            for (const NodeToolBackupCheck::Problem& problem : backup.GetProblems())
                lines.append(problem.fileName + QStringLiteral(": ") + problem.reason);
            notes.append(tr("Nicht wiederhergestellt: %1").arg(lines.size()));
            box.setDetailedText(lines.join(QLatin1Char('\n')));
        }
        box.setInformativeText(notes.join(QLatin1Char('\n')));
        box.exec();
    } else {
        QMessageBox::warning(this, tr("Sicherung wiederherstellen"),
            tr("Die Sicherung konnte nicht wiederhergestellt werden:\n\n%1").arg(backup.ErrorString()));
    }
    Refresh();
}
