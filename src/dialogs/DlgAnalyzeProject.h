#ifndef KAMO_TOOLS_DLGANALYZEPROJECT_H
#define KAMO_TOOLS_DLGANALYZEPROJECT_H

#include <QDialog>
#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>

namespace Ui {
class DlgAnalyzeProject;
}

/// The result of the project analysis: which annotation files the nodes use
/// and which are left over, with a way to move the left-over ones out of the
/// data folder. Hand over the findings through the setters, call FillLists,
/// then exec. The dialog keeps copies; the analysis keeps its own data.
class DlgAnalyzeProject : public QDialog
{
    Q_OBJECT

public:
    /// Creates the dialog; hand over the findings, then FillLists().
    explicit DlgAnalyzeProject(QWidget* parent = nullptr);
    ~DlgAnalyzeProject() override;

    /// The project root; the data folder "Daten" lies inside it.
    void SetDataDirectory(const QString& directory);
    /// Kept for the caller, not shown: the documents without an annotation file.
    void SetFileNames(const QStringList& names);
    /// Document -> annotation file, one entry per reference found.
    void SetReferencedFiles(const QMap<QString, QString>& files);
    /// Both lists are relative to the data folder.
    ///@{
    void SetUnusedAnnotationFiles(const QStringList& files);
    void SetUsedAnnotationFiles(const QStringList& files);
    ///@}

    /// Shows the findings handed over.
    void FillLists();

public Q_SLOTS:
    /// Asks for a folder (at first "ann_obsolet" in the data folder, created when missing) and moves the unused
    /// annotation files there. A file the target already holds, or whose subfolder the target lacks, stays where it is;
    /// the data folder itself is refused.
    void OnMoveUnusedAnnotationFilesClicked();
    /// Closes the dialog.
    void OnRejected();

private:
    std::unique_ptr<Ui::DlgAnalyzeProject> ui;
    QString dataDirectory;
    QStringList fileNames;
    QMap<QString, QString> referencedFiles;
    QStringList usedAnnotationFiles;
    QStringList unusedAnnotationFiles;
};

#endif
