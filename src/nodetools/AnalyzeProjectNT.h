#ifndef KAMO_TOOLS_ANALYZEPROJECTNT_H
#define KAMO_TOOLS_ANALYZEPROJECTNT_H

#include "kamo_tools_export.h"
#include "nodetools/NodeTool.h"

#include <QMap>
#include <QString>
#include <QStringList>

class NodeFileInfo;
class NodeInfo;

/// "Analyse": finds out which annotation files of the data folder belong to
/// a document of the project and which are left over. Reads only.
///
/// Every document of every node (all zones) and of the files map is looked
/// up under the same names as the other tools use. Annotation files are
/// collected from the data folder and its subfolders, except the tools' own
/// folders for backups ("ann_sic") and set-aside files ("ann_obsolet").
class KAMO_TOOLS_EXPORT AnalyzeProjectNT : public NodeTool
{
public:
    AnalyzeProjectNT();
    ~AnalyzeProjectNT() override;

    /// The project to analyse: its root folder and the host's maps of nodes and documents (borrowed, may be null, must
    /// stay valid during Execute()).
    ///@{
    void SetProjectRootDir(const QString& dir) { projectRootDir = dir; }
    void SetNodesMap(QMap<int, NodeInfo*>* map) { nodes = map; }
    void SetFilesMap(QMap<QString, NodeFileInfo>* map) { files = map; }
    ///@}

    /// Collects referenced, used and unused annotation files and the documents without one.
    void Execute() override;
    /// The documents looked at; the analysis changes nothing.
    int GetFilesExamined() const override { return documentsExamined; }

    /// The analysis shows its lists in a DlgAnalyzeProject.
    ///@{
    bool HasOwnResultView() const override { return true; }
    void ShowResult(QWidget* parent) override;
    ///@}

    /// The project's data folder (see AnnotationFileProcessor::DataDirectory()).
    QString GetDataDirectory() const;
    /// Document -> its annotation file, relative to the data folder.
    const QMap<QString, QString>& GetReferencedFiles() const { return referenced; }
    /// Annotation files that belong to a document, and those left over; relative to the data folder ("/"-separated),
    /// sorted.
    ///@{
    const QStringList& GetUsedAnnotationFiles() const { return used; }
    const QStringList& GetUnusedAnnotationFiles() const { return unused; }
    ///@}
    /// Documents that have no annotation file (yet), sorted.
    const QStringList& GetDocumentsWithoutAnnotations() const { return withoutAnnotations; }

    /// Moves `relativeNames` (relative to `dataDir`) into `target` under the
    /// same relative names, never replacing a file, and answers the names
    /// that were moved. Nothing moves into the data folder itself. Subfolders
    /// are not created: a name whose folder is missing under `target` stays.
    static QStringList MoveAnnotationFiles(
        const QString& dataDir, const QStringList& relativeNames, const QString& target);

private:
    QString projectRootDir;
    QMap<int, NodeInfo*>* nodes = nullptr;
    QMap<QString, NodeFileInfo>* files = nullptr;
    int documentsExamined = 0;
    QMap<QString, QString> referenced;
    QStringList used;
    QStringList unused;
    QStringList withoutAnnotations;
};

#endif
