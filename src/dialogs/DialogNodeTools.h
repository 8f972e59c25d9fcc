#ifndef KAMO_TOOLS_DIALOGNODETOOLS_H
#define KAMO_TOOLS_DIALOGNODETOOLS_H

#include "kamo_tools_export.h"

#include <QList>
#include <QMap>
#include <QPointer>
#include <QString>

#include <memory>

class DlgNodeTools;
class GalleryInfo;
class NodeFileInfo;
class NodeInfo;
class NodeTool;
class ParticipantInfo;
class PinObject;
class QSettings;
class QWidget;
class TableInfo;
class TreeWidget;

/// The node tools as the host opens them: hand over the project through the
/// setters, then call ShowModal. Every pointer is borrowed; the facade never
/// deletes what the host lends it. The host may destroy the parent widget
/// before or after the facade.
class KAMO_TOOLS_EXPORT DialogNodeTools
{
public:
    /// Creates the facade and its dialog under \p parent.
    explicit DialogNodeTools(QWidget* parent);
    /// Releases this facade's share of the dialog; the last copy deletes it unless the parent already has.
    ~DialogNodeTools();

    /// Copies share the dialog of the original, which the last of them
    /// deletes.
    ///@{
    DialogNodeTools(const DialogNodeTools&) = default;
    DialogNodeTools& operator=(const DialogNodeTools&) = default;
    ///@}

    /// The project the tools work on: its id (the key of its stored check states), name and data directory, the host's
    /// settings, its node tree and the maps of its nodes, tables, participants, galleries, document files and free-hand
    /// pins (document file name -> page -> pins). All borrowed; they must stay valid until ShowModal() returns.
    ///@{
    void SetProjectId(const QString& id);
    void SetProjectName(const QString& name);
    void SetProjectRootDir(const QString& dir);
    void SetSettings(QSettings* settings);
    void SetSourceTreeWidget(TreeWidget* tree);
    void SetNodesMap(QMap<int, NodeInfo*>* map);
    void SetTableMap(QMap<int, TableInfo*>* map);
    void SetParticipantsMap(QMap<int, ParticipantInfo*>* map);
    void SetGalleryMap(QMap<int, GalleryInfo*>* map);
    void SetFilesMap(QMap<QString, NodeFileInfo>* map);
    void SetFilesPinMap(QMap<QString, QMap<int, QList<PinObject>>>* map);
    ///@}

    /// Lets the user choose and configure an operation, then runs it with a
    /// progress dialog and reports the result. Does nothing without a nodes
    /// map.
    void ShowModal();

    /// The data directory of the last run; a directory chosen in the dialog
    /// replaces the one the host set.
    const QString& GetProjectRootDir() const { return projectRootDir; }

private:
    /// The tool of operation `operation` with the options of the dialog;
    /// null for an unknown operation.
    KAMO_TOOLS_NO_EXPORT std::unique_ptr<NodeTool> createTool(int operation, const QString& root, bool dryRun) const;
    /// Runs `tool` under a progress dialog and a wait cursor.
    KAMO_TOOLS_NO_EXPORT static void execute(NodeTool& tool, QWidget* progressParent);
    /// The dry run of the dialog's operation and the window that shows it.
    KAMO_TOOLS_NO_EXPORT void preview();

    QWidget* parent;
    QPointer<DlgNodeTools> dialog;
    std::shared_ptr<void> dialogOwner;
    QString projectId;
    QString projectName;
    QString projectRootDir;
    TreeWidget* sourceTree = nullptr;
    QMap<int, NodeInfo*>* nodes = nullptr;
    QMap<QString, NodeFileInfo>* files = nullptr;
    QMap<QString, QMap<int, QList<PinObject>>>* filesPins = nullptr;
    QMap<int, ParticipantInfo*>* participants = nullptr;
    QMap<int, GalleryInfo*>* galleries = nullptr;
    QMap<int, TableInfo*>* tables = nullptr;
    QSettings* settings = nullptr;
};

#endif
