#ifndef KAMO_TOOLS_DLGNODETOOLS_H
#define KAMO_TOOLS_DLGNODETOOLS_H

#include "nodetools/NodeOperationOptions.h"

#include <QDialog>
#include <QMap>
#include <QString>
#include <QStringList>

class CheckableTree;
class GalleryInfo;
class NodeInfo;
class ParticipantInfo;
class QPushButton;
class QSettings;
class TableInfo;
class TreeWidget;

namespace Ui {
class DlgNodeTools;
}

/// Chooses a node-tools operation, the nodes it works on and its options.
/// Only the tabs the chosen operation uses are shown. The values are kept in
/// the host's settings when the user confirms; running the operation is the
/// business of DialogNodeTools.
class DlgNodeTools : public QDialog
{
    Q_OBJECT

public:
    /// Positions of the option tabs in the form.
    /// Positions of the option tabs in the form; OptionTabCount is their number.
    enum OptionTab {
        TabNodeFilter,
        TabAnnotationFilter,
        TabReplaceLinkDesc,
        TabDuplicateHREF,
        TabHREFPath,
        TabSetAnnotationProperties,
        TabChangeHREFType,
        TabModifyTargets,
        TabPageNumber,
        OptionTabCount
    };
    /// The option tabs of operation `id`, ascending; none for an unknown id.
    static QList<int> TabsOfOperation(int id);

    /// Creates the dialog with its form; call the setters and then Initialize() before showing it.
    explicit DlgNodeTools(QWidget* parent = nullptr);
    /// Destroys the dialog and the node tree it built; the host's data handed in is not touched.
    ~DlgNodeTools() override;

    /// The project and the host data the dialog shows. Pointers are not owned and must stay valid while the dialog is
    /// open; \p store receives the dialog's values on OnAccepted().
    ///@{
    void SetProjectId(const QString& id) { projectId = id; }
    void SetProjectName(const QString& name) { projectName = name; }
    void SetDataDirectory(const QString& dir) { dataDirectory = dir; }
    void SetSourceTree(TreeWidget* tree) { sourceTree = tree; }
    void SetNodesMap(QMap<int, NodeInfo*>* map) { nodes = map; }
    void SetParticipantsMap(QMap<int, ParticipantInfo*>* map) { participants = map; }
    void SetGalleryMap(QMap<int, GalleryInfo*>* map) { galleries = map; }
    void SetTableMap(QMap<int, TableInfo*>* map) { tables = map; }
    void SetSettings(QSettings* store) { settings = store; }
    ///@}

    /// Builds a new node tree from the source tree and puts every widget
    /// into its stored (or initial) state.
    void Initialize();
    /// Shows the project's name and data folder; the folder is shown red when it does not exist.
    void ShowProjectData();

    /// The values the user chose, read from the form: data folder, operation id, backup, node filters, link, property,
    /// target and page options. Meaningful after the dialog was accepted.
    ///@{
    QString GetDataDirectory() const { return dataDirectory; }
    int GetOperationId() const;
    bool GetDoBackup() const;
    ///@}

    /// Documents of the checked nodes in the zone each node is shown in,
    /// without repeats.
    QStringList GetFilesOfCheckedNodes() const;
    /// The options of the chosen operation as its widgets set them: the
    /// filters where their groups are checked, the path map read from the
    /// map file. The files and the host's data are the caller's to add.
    NodeOperationOptions GetOperationOptions() const;

    /// The node tree built by Initialize(), owned by the dialog; null before Initialize().
    CheckableTree* GetNodeTree() const { return nodeTree; }

    /// The combo's labels, indexed by operation id.
    QStringList OperationLabels() const;

Q_SIGNALS:
    /// "Vorschau…": whoever runs the operations shows what it would change.
    void PreviewRequested();

public Q_SLOTS:
    /// Refreshes the path map preview when its tab becomes current.
    void OnCurrentOptionsTabChanged(int index);
    /// Lets the user choose the data folder; a cancelled or missing choice keeps the old one.
    void OnSelectBaseDirFolderClicked();
    /// Shows the option tabs of the chosen operation and enables "Vorschau…" where the operation has a preview.
    void OnOperationIdChanged(int index);
    /// Lets the user choose the new link target file.
    void OnSelectNewHREFLinkTargetClicked();
    /// Lets the user choose the path map file and shows its preview.
    void OnSelectHREFReplacePathMapFileClicked();
    /// Asks where the documents are now, checks the links of the chosen nodes (all annotation files when none is
    /// chosen) and shows what it found; a saved proposal becomes the path map file.
    void OnProposePathMapClicked();
    /// Saves the node tree's check states and the dialog's values to the settings, then accepts.
    void OnAccepted();
    /// Closes the dialog without saving anything.
    void OnRejected();
    /// Lists the backups of the data directory; one may be restored.
    void OnBackupsClicked();

private:
    void colourDataDirectory();
    void refreshPathMapPreview();
    QString unusedMapFileName() const;
    void restoreSettings();
    void saveSettings();

    Ui::DlgNodeTools* ui;
    QMap<int, QString> tabTitles;
    QMap<int, QWidget*> tabPages;
    CheckableTree* nodeTree = nullptr;
    QPushButton* previewButton = nullptr;
    QPushButton* backupsButton = nullptr;
    QString projectId;
    QString projectName;
    QString dataDirectory;
    TreeWidget* sourceTree = nullptr;
    QMap<int, NodeInfo*>* nodes = nullptr;
    QMap<int, ParticipantInfo*>* participants = nullptr;
    QMap<int, GalleryInfo*>* galleries = nullptr;
    QMap<int, TableInfo*>* tables = nullptr;
    QSettings* settings = nullptr;
};

#endif
