#include "dialogs/DlgLinkCheck.h"

#include "ui_DlgLinkCheck.h"

#include "nodetools/LinkCheck.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>

namespace {

QString reason(const LinkTarget& target)
{
    if (target.GetProposal() == LinkTarget::Proposal::Unwritable)
        return DlgLinkCheck::tr("Komma oder Zeilenumbruch im Pfad, in der Umsetzungsdatei nicht darstellbar");
    switch (target.GetState()) {
    case LinkTarget::State::FolderMissing:
        return DlgLinkCheck::tr("Ordner fehlt, keine Datei des Namens gefunden");
    case LinkTarget::State::Foreign:
        return DlgLinkCheck::tr("Windows-Pfad, auf diesem System nicht vorhanden; keine Datei des Namens gefunden");
    case LinkTarget::State::Relative:
        return DlgLinkCheck::tr("relativer Pfad, nicht prüfbar; keine Datei des Namens gefunden");
    default:
        return DlgLinkCheck::tr("Datei fehlt, keine Datei des Namens gefunden");
    }
}

QTreeWidgetItem* group(QTreeWidget* tree, const QString& title)
{
    auto* item = new QTreeWidgetItem(tree, { title });
    QFont font = item->font(0);
    font.setBold(true);
    item->setFont(0, font);
    item->setFirstColumnSpanned(true);
    return item;
}

QTreeWidgetItem* row(QTreeWidgetItem* parent, const LinkTarget& target, const QString& proposal)
{
    auto* item = new QTreeWidgetItem(parent, { target.Path(), QString::number(target.Links()), proposal });
    item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    item->setToolTip(0, target.AnnotationFiles().join(QLatin1Char('\n')));
    return item;
}

} // namespace

DlgLinkCheck::DlgLinkCheck(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::DlgLinkCheck)
{
    ui->setupUi(this);
    ui->treeTargets->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ui->treeTargets->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    ui->treeTargets->header()->setSectionResizeMode(2, QHeaderView::Stretch);
    ui->buttonBox->button(QDialogButtonBox::Save)->setText(tr("Speichern"));
    ui->buttonBox->button(QDialogButtonBox::Cancel)->setText(tr("Abbrechen"));
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &DlgLinkCheck::onSave);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(ui->btnMapFile, &QAbstractButton::clicked, this, &DlgLinkCheck::onChooseMapFile);
}

DlgLinkCheck::~DlgLinkCheck()
{
    delete ui;
}

void DlgLinkCheck::SetResult(const LinkCheck& result, const QString& mapFile)
{
    check = &result;
    ui->edtMapFile->setText(QDir::toNativeSeparators(mapFile));

    QString summary = tr("%1 Linkziele mit %2 Verweisen geprüft.").arg(result.Targets().size()).arg(result.LinkCount());
    if (result.MissingCount() == 0) {
        summary += QLatin1Char(' ') + tr("Alle Linkziele sind vorhanden.");
    } else {
        summary += QLatin1Char(' ')
            + tr("Es fehlen %1: %2 vorgeschlagen, %3 mehrdeutig, %4 nicht gefunden.")
                  .arg(result.MissingCount())
                  .arg(result.ProposedCount())
                  .arg(result.AmbiguousCount())
                  .arg(result.UnresolvedCount());
    }
    if (!result.Warnings().isEmpty())
        summary += QLatin1Char(' ') + tr("%1 Anmerkungsdateien nicht gelesen.").arg(result.Warnings().size());
    ui->lblSummary->setText(summary);

    QTreeWidget* tree = ui->treeTargets;
    tree->clear();
    // Built off the tree and added at once: a moved server leaves thousands.
    QList<QTreeWidgetItem*> proposed;
    QList<QTreeWidgetItem*> ambiguous;
    QList<QTreeWidgetItem*> unresolved;
    for (const LinkTarget& target : result.Targets()) {
        switch (target.GetProposal()) {
        case LinkTarget::Proposal::Proposed:
            proposed.append(row(nullptr, target, QDir::toNativeSeparators(target.Candidates().constFirst())));
            break;
        case LinkTarget::Proposal::Ambiguous: {
            QTreeWidgetItem* item
                = row(nullptr, target, tr("%1 Dateien dieses Namens:").arg(target.Candidates().size()));
            for (const QString& candidate : target.Candidates())
                new QTreeWidgetItem(item, { QString(), QString(), QDir::toNativeSeparators(candidate) });
            ambiguous.append(item);
            break;
        }
        case LinkTarget::Proposal::Unresolved:
        case LinkTarget::Proposal::Unwritable:
            unresolved.append(row(nullptr, target, reason(target)));
            break;
        case LinkTarget::Proposal::None:
            if (target.IsMissing())
                unresolved.append(row(nullptr, target, reason(target)));
            break;
        }
    }
    const auto addGroup = [tree](const QString& title, const QList<QTreeWidgetItem*>& rows) {
        if (rows.isEmpty())
            return;
        QTreeWidgetItem* item = group(tree, title.arg(rows.size()));
        item->addChildren(rows);
        item->setExpanded(true);
        for (QTreeWidgetItem* child : rows)
            child->setExpanded(true);
    };
    addGroup(tr("Vorgeschlagen (%1)"), proposed);
    addGroup(tr("Mehrdeutig (%1): keiner gewählt, bitte von Hand zuordnen"), ambiguous);
    addGroup(tr("Nicht gefunden (%1)"), unresolved);
    QList<QTreeWidgetItem*> warnings;
    for (const QString& warning : result.Warnings()) {
        auto* item = new QTreeWidgetItem({ warning });
        item->setFirstColumnSpanned(true);
        warnings.append(item);
    }
    addGroup(tr("Nicht gelesen (%1)"), warnings);

    // Only what is proposed goes into the file; nothing proposed, nothing to save.
    ui->buttonBox->button(QDialogButtonBox::Save)->setEnabled(result.ProposedCount() > 0);
    ui->gbxMapFile->setEnabled(result.ProposedCount() > 0);
}

QString DlgLinkCheck::MapFile() const
{
    return QDir::fromNativeSeparators(ui->edtMapFile->text());
}

void DlgLinkCheck::onChooseMapFile()
{
    const QString file = QFileDialog::getSaveFileName(
        this, tr("Umsetzungsdatei speichern"), MapFile(), tr("Umsetzungsdateien (*.csv);;Alle Dateien (*)"));
    if (!file.isEmpty()) {
        ui->edtMapFile->setText(QDir::toNativeSeparators(file));
        confirmedFile = file;
    }
}

void DlgLinkCheck::onSave()
{
    if (!check)
        return;
    const QString file = MapFile();
    if (file.isEmpty()) {
        QMessageBox::warning(this, windowTitle(), tr("Bitte eine Umsetzungsdatei angeben."));
        return;
    }
    // The chooser has asked already; a typed name has not been.
    if (file != confirmedFile && QFileInfo::exists(file)
        && QMessageBox::question(this, windowTitle(),
               tr("Die Datei\n\n'%1'\n\ngibt es schon. Ersetzen?").arg(QDir::toNativeSeparators(file)))
            != QMessageBox::Yes)
        return;
    QString error;
    if (!check->WriteMapFile(file, &error)) {
        QMessageBox::warning(this, windowTitle(),
            tr("Die Umsetzungsdatei\n\n'%1'\n\nwurde nicht geschrieben: %2")
                .arg(QDir::toNativeSeparators(file), error));
        return;
    }
    accept();
}
