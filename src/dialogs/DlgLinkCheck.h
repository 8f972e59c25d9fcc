#ifndef KAMO_TOOLS_DLGLINKCHECK_H
#define KAMO_TOOLS_DLGLINKCHECK_H

#include <QDialog>
#include <QString>

class LinkCheck;

namespace Ui {
class DlgLinkCheck;
}

/// The outcome of a link check with a proposal: the missing targets grouped
/// by what was found for them (proposed with the new path, ambiguous with
/// every candidate, not found with the reason), the annotation files left
/// out, and where the proposal is to be saved. "Speichern" writes the path
/// map and accepts; a failed write says why and keeps the dialog open.
class DlgLinkCheck : public QDialog
{
    Q_OBJECT

public:
    explicit DlgLinkCheck(QWidget* parent = nullptr);
    ~DlgLinkCheck() override;

    /// Shows the results of `check`, which must have run and outlive the
    /// dialog; `mapFile` is the file offered for the proposal.
    void SetResult(const LinkCheck& check, const QString& mapFile);
    /// The file the proposal was saved to.
    QString MapFile() const;

private:
    void onSave();
    void onChooseMapFile();

    Ui::DlgLinkCheck* ui;
    const LinkCheck* check = nullptr;
    QString confirmedFile;
};

#endif
