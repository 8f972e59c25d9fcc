#ifndef KAMO_TOOLS_DLGDXFTOOLS_H
#define KAMO_TOOLS_DLGDXFTOOLS_H

#include "dxf/DxfDrawing.h"

#include <QDialog>
#include <QHash>
#include <QString>

class QSettings;
class QTreeWidgetItem;

namespace Ui {
class DlgDxfTools;
}

/// The DXF workbench: opens a drawing, lists its inserts with block, sheet
/// number and a use check box, lets a block filter set those check boxes,
/// shows the vertices of the current insert's frame with their corner labels
/// and a map of all frames with the route of the last correction, and offers
/// the dump listing, the corner correction and the GK2 export, each reporting
/// into the output log. The drawing lives as long as the dialog, so labels
/// found by a correction stay for the next export.
class DlgDxfTools : public QDialog
{
    Q_OBJECT

public:
    /// Creates the workbench with an empty drawing; call SetSettings() and Initialize() before showing it.
    explicit DlgDxfTools(QWidget* parent = nullptr);
    /// Destroys the workbench and its drawing; the settings are not owned.
    ~DlgDxfTools() override;

    /// Borrowed; without settings nothing is restored or remembered.
    void SetSettings(QSettings* store) { settings = store; }
    /// A file that Initialize opens instead of the last used one.
    void SetDxfFilename(const QString& file) { presetFile = file; }
    /// Restores the stored state and opens the preset or last used file when
    /// it exists.
    void Initialize();

    /// Reads the file and replaces the drawing; on failure the reason goes
    /// to the output log and the drawing shown before stays.
    bool OpenFile(const QString& file);
    /// The file of the drawing shown; empty before a file was opened.
    QString GetDxfFilename() const { return fileName; }
    /// Why the last OpenFile failed; empty after a success.
    QString GetLastError() const { return lastError; }
    /// The drawing shown, owned by the dialog; replaced by the next successful OpenFile().
    const DxfDrawing& GetDrawing() const { return drawing; }

    /// Uses exactly the inserts whose block name the regular expression
    /// matches (anywhere in the name; empty matches all). False, changing
    /// nothing, for an invalid expression.
    bool ApplyBlockFilter(const QString& pattern);
    /// Sets the use flag of every insert, or of one (an index out of range is ignored), and shows it in the list and
    /// the map.
    ///@{
    void SetAllUsed(bool use);
    void SetInsertUsed(int insert, bool use);
    ///@}

    /// Lists the file's entities into the output log; the dump button stops
    /// it midway.
    bool DumpDxf();
    /// Labels the frame corners of the used inserts afresh: labels of an
    /// earlier run are dropped first, so that inserts left out since then
    /// lose theirs.
    void CorrectVertexPositions();
    /// Writes the used inserts to `file` and reports the count in the log;
    /// a failure is reported in the log and in a message box.
    bool ExportGK2(const QString& file);

    /// The text of the output log.
    QString OutputText() const;

public Q_SLOTS:
    /// Asks for a drawing and opens it; a failure is shown in a message box.
    void OnOpenClicked();
    /// Applies the block filter as typed (see ApplyBlockFilter()).
    void OnApplyFilterClicked();
    /// Starts the dump, or stops the running one.
    void OnDumpClicked();
    /// Runs CorrectVertexPositions().
    void OnCorrectClicked();
    /// Asks for a ".gk2" file, beside the last export or the drawing, and exports to it.
    void OnExportClicked();
    /// Marks an invalid expression red, with the reason as tool tip, and disables "Apply" for it.
    void OnBlockFilterChanged(const QString& text);
    /// Takes a check box change in the insert list over into the drawing.
    void OnInsertItemChanged(QTreeWidgetItem* item, int column);
    /// Shows the vertices of the current insert's frame and centres the map on it.
    void OnCurrentInsertChanged(QTreeWidgetItem* current);
    /// A click on a frame of the map makes its insert the current one.
    void OnMapInsertClicked(int insert);

protected:
    /// Refuses to close while a dump runs; otherwise saves the state and closes; see QDialog::done().
    void done(int result) override;

private:
    void appendOutput(const QString& line);
    /// The first block of the insert's block name, null when there is none.
    const DxfBlock* blockOf(int insert) const;
    void fillInsertTree();
    void showCheckStates();
    void showCorners();
    void showSummary();
    void showVertices(int insert);
    void showSelectionOnMap();
    void centerMapOn(QTreeWidgetItem* current);
    void setBusy(bool busy);
    void saveState();
    QString startFolder() const;

    Ui::DlgDxfTools* ui;
    QSettings* settings = nullptr;
    QString presetFile;
    QString fileName;
    QString lastError;
    DxfDrawing drawing;
    QHash<QString, int> blockIndex; ///< block name -> first block of that name
    /// A dump processes events while it runs; closing must wait for it.
    bool busy = false;
    bool stopDump = false;
    /// The map does not move to what a click on it selected.
    bool selectingFromMap = false;
};

#endif
