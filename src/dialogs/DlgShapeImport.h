#ifndef KAMO_TOOLS_DLGSHAPEIMPORT_H
#define KAMO_TOOLS_DLGSHAPEIMPORT_H

#include <Kamo_view/GeoSystemSettings.h>

#include <QDialog>
#include <QMap>
#include <QPainterPath>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

class AttributeTableModel;
class QButtonGroup;
class ImportFieldManager;
class QSettings;
class QSpinBox;
class QTreeWidget;
class QTreeWidgetItem;
class ShapePreviewWidget;

namespace Ui {
class DlgShapeImport;
}

/// Chooses what to import from which shape file and how: the import mode,
/// the files, the geo systems, the assignment of attribute columns to the
/// importer's target fields, and the sheet and route options. Shows the
/// first rows of the attribute table beside the assignments. Running the
/// import is the business of DialogImportShapeFile.
class DlgShapeImport : public QDialog
{
    Q_OBJECT

public:
    /// What the import makes of the shapes; the index of the mode combo box.
    enum ImportMode { imSheets, imRoutes, imDistricts, imBuildings };

    /// Creates the dialog; call SetSettings(), the setters the host has values for, then Initialize().
    explicit DlgShapeImport(QWidget* parent = nullptr);
    /// Destroys the dialog; the settings store is not owned.
    ~DlgShapeImport() override;

    /// The store the dialog's values are read from and saved to; not owned, must outlive the dialog. Without one
    /// nothing is remembered.
    void SetSettings(QSettings* store) { settings = store; }
    /// Restores the stored values; values set before through the setters
    /// below win over stored ones.
    void Initialize();

    /// The import mode (an ImportMode).
    ///@{
    void SetImportMode(int mode);
    int GetImportMode() const;
    ///@}
    /// The shape file (".shp") to import.
    ///@{
    void SetShapeFilename(const QString& file);
    QString GetShapeFilename() const;
    ///@}
    /// The attribute table (".dbf"); empty means the table beside the shape file.
    ///@{
    void SetShapeDbFilename(const QString& file); ///< empty: beside the shape file
    QString GetShapeDbFilename() const;
    ///@}
    /// The attribute table the import reads: the one set, or else the one beside the shape file; empty without a shape
    /// file.
    QString GetEffectiveShapeDbFilename() const;

    /// The geo system of the shape file's coordinates. Set by the host, it wins over the file's ".prj" and the stored
    /// choice.
    ///@{
    void SetGeoSystemForImportFile(const GeoSystemSettings& system);
    GeoSystemSettings GetGeoSystemForImportFile() const { return importFileGeoSystem; }
    ///@}
    /// The project's geo system, which the coordinates are converted to.
    ///@{
    void SetGeoSystemForProject(const GeoSystemSettings& system);
    GeoSystemSettings GetGeoSystemForProject() const { return projectGeoSystem; }
    ///@}
    /// The project's areas; the user decides whether they filter.
    void SetGeoFilter(QSharedPointer<QMap<QString, QPainterPath>> filter);
    /// The areas set with SetGeoFilter(), shared with the caller.
    QSharedPointer<QMap<QString, QPainterPath>> GetGeoFilter() const { return geoFilter; }
    /// The filter is offered for routes, districts and buildings when there
    /// are areas; the user decides.
    bool GetUseGeoFilter() const;

    /// Whether the sheets' corners are put in order from their neighbours by sheet number instead of taken as the file
    /// has them.
    ///@{
    void SetCorrectVertexOrder(bool correct);
    bool GetCorrectVertexOrder() const;
    ///@}
    /// How the two reference corners of a sheet are chosen: ImportSheetDataFromShapeFile::spsmAutomatic or spsmManual,
    /// with the vertex indexes below.
    ///@{
    void SetPointSelectMode(int mode);
    int GetPointSelectMode() const;
    void SetIndexForPoint1(int index);
    int GetIndexForPoint1() const;
    void SetIndexForPoint2(int index);
    int GetIndexForPoint2() const;
    ///@}
    /// Where a sheet's scale comes from: ImportSheetDataFromShapeFile::ssimFixed (the fixed scale, e.g. 1000 for
    /// 1:1000) or ssimFromTable.
    ///@{
    void SetScaleImportMode(int mode);
    int GetScaleImportMode() const;
    void SetFixedScale(int scale);
    int GetFixedScale() const;
    ///@}
    /// Text added to every sheet's page name.
    ///@{
    void SetPageAdditionalText(const QString& text);
    QString GetPageAdditionalText() const;
    ///@}
    /// The route variant used where the table has none.
    ///@{
    void SetDefaultVariant(const QString& variant);
    QString GetDefaultVariant() const;
    ///@}

    /// Column 0 the attribute column, column 1 its type, column 2 the choice
    /// of target field.
    QTreeWidget* GetFieldAssignmentTree() const;
    /// (column, target id) of every assigned column, in tree order.
    QList<QPair<QString, int>> GetFieldAssignments() const;
    /// Writes the assigned columns as "Export field assignments" does; a file
    /// that cannot be written is reported.
    bool SaveFieldAssignments(const QString& file);
    /// Applies a saved assignment file as "Import field assignments" does.
    void LoadFieldAssignments(const QString& file);
    /// What the last loaded file named that this table or importer lacks.
    QString GetAssignmentNote() const;

    /// The settings name of an ImportMode ("Sheets", "Routes", "Districts", "Buildings"); empty for an unknown mode.
    static QString ImportModeName(int mode);

public Q_SLOTS:
    /// Notes columns that share a target field (the last of them counts).
    void OnTargetFieldAssignmentChanged(int newIndex);
    /// Sets every column back to no target field.
    void OnResetFieldAssignmentsClicked();
    /// Asks for a file and saves the assignments to it (".json" added when the name has no suffix).
    void OnSaveFieldAssignmentsClicked();
    /// Asks for a file and applies the assignments saved in it.
    void OnLoadFieldAssignmentsClicked();
    /// Offers the target fields of the new mode and applies the assignments stored for it.
    void OnImportModeChanged(int mode);
    /// Lets the user choose the shape file; the attribute table goes back to the one beside it.
    void OnSelectShapeFileClicked();
    /// Lets the user choose the attribute table and reloads the columns.
    void OnSelectShapeDbFileClicked();
    /// Lets the user choose the shape file's geo system.
    void OnSelectImportFileGeoSystemClicked();
    /// Lets the user choose the project's geo system.
    void OnSelectProjectGeoSystemClicked();
    /// Saves the values to the settings and accepts.
    void OnAccepted();

private:
    void applyAssignments(const QMap<QString, int>& assignments, bool report);
    void buildChoiceLists();
    void loadTable();
    void reloadIfFilesChanged();
    void rememberFile(const QString& file);
    QString startFolder() const;
    void saveSettings();
    void showFilterAreas();
    void showPointSelectMode(int mode);
    void showSpinValue(QSpinBox* box, int& kept, int value);
    void showGeoSystems();
    void updateState();

    Ui::DlgShapeImport* ui;
    QSettings* settings = nullptr;
    GeoSystemSettings importFileGeoSystem;
    GeoSystemSettings projectGeoSystem;
    QSharedPointer<QMap<QString, QPainterPath>> geoFilter;
    QMap<int, QString> targetFields;
    QString loadNote;
    QStringList presetKeys; ///< values the caller set; Initialize leaves them
    ShapePreviewWidget* preview = nullptr;
    AttributeTableModel* attributes = nullptr;
    bool shapeReadable = false;
    QString prjCheckedFor;   ///< the shape file whose ".prj" was looked at
    QString loadedShapeFile; ///< the files the table and choices were built for
    QString loadedShapeDbFile;
    /// The sheet options as the host or the user gave them: the widgets
    /// cannot show every value the importer takes.
    QButtonGroup* pointButtons = nullptr;
    int pointSelectMode = 0;
    int indexForPoint1 = 0;
    int indexForPoint2 = 2;
    int fixedScale = 1000;
};

#endif
