#ifndef KAMO_HOST_MAINWINDOW_H
#define KAMO_HOST_MAINWINDOW_H

#include <QList>
#include <QMainWindow>
#include <QString>
#include <QStringList>

#include <memory>

class DialogDxfTools;
class DialogImportShapeFile;
class DialogNodeTools;
class ItemInfo;
class ProjectDescription;
class QAction;
class QLabel;
class QMenu;
class QSettings;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;
class TreeWidget;

// The demo host's window: the project tree of one open project, the record
// of the selected item, and the library's tools in the "Werkzeuge" menu.
// The settings are borrowed; the tools get the same object.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QSettings* settings, QWidget* parent = nullptr);
    ~MainWindow() override;

    // Opens the project in folder `root` in place of the open one. On
    // failure the open project stays and `error` says why; nothing is shown.
    bool LoadProject(const QString& root, QString* error = nullptr);
    // As LoadProject, but a failure is reported to the user in a message box.
    bool OpenProject(const QString& root);

    // The folder of the open project; empty when none is open.
    const QString& ProjectRoot() const { return projectRoot; }
    // The folder opened last in any session, from the settings.
    QString LastProject() const;

    TreeWidget* Tree() const { return tree; }
    // Runs the tool `id` ("node-tools") as its menu entry does; false when
    // there is no such tool or no project is open.
    bool RunTool(const QString& id);
    // The imported records as the import pane lists them, one line each.
    QStringList ImportResultLines() const;
    // What the details pane shows for the selected item.
    QString DetailsText() const;

    // The window state of the previous session; call before show().
    void RestoreWindowState();
    void SaveWindowState();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // One entry of the "Werkzeuge" menu; it is enabled while a project is
    // open.
    QAction* addTool(const QString& id, const QString& text, void (MainWindow::*run)());
    void chooseProject();
    void openNodeTools();
    void openShapeImport();
    void openDxfTools();
    void showImportResults(const DialogImportShapeFile& import);
    void showDetails();
    void updateProjectState();
    QString describe(const ItemInfo* info) const;

    QSettings* settings;
    TreeWidget* tree;
    QTextBrowser* details;
    QTabWidget* pages;
    QTreeWidget* importResults;
    QLabel* status;
    QMenu* toolsMenu = nullptr;
    QList<QAction*> projectActions;
    QString projectRoot;
    std::unique_ptr<ProjectDescription> project;
    // Lives as long as the project it was handed, so that a data folder
    // chosen in the dialog is kept for the next run.
    std::unique_ptr<DialogNodeTools> nodeTools;
    std::unique_ptr<DialogImportShapeFile> shapeImport;
    std::unique_ptr<DialogDxfTools> dxfTools;
};

#endif
