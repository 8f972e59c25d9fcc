#ifndef KAMO_TOOLS_DLGSHAPEIMPORT_H
#define KAMO_TOOLS_DLGSHAPEIMPORT_H

#include "kamo_tools_export.h"

#include <GeoSystemSettings.h>

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

// Chooses what to import from which shape file and how: the import mode,
// the files, the geo systems, the assignment of attribute columns to the
// importer's target fields, and the sheet and route options. Shows the
// first rows of the attribute table beside the assignments. Running the
// import is the business of DialogImportShapeFile.
class KAMO_TOOLS_EXPORT DlgShapeImport : public QDialog
{
    Q_OBJECT

public:
    enum ImportMode { imSheets, imRoutes, imDistricts, imBuildings };

    explicit DlgShapeImport(QWidget* parent = nullptr);
    ~DlgShapeImport() override;

    void SetSettings(QSettings* store) { settings = store; }
    // Restores the stored values; values set before through the setters
    // below win over stored ones.
    void Initialize();

    void SetImportMode(int mode);
    int GetImportMode() const;
    void SetShapeFilename(const QString& file);
    QString GetShapeFilename() const;
    void SetShapeDbFilename(const QString& file); // empty: beside the shape file
    QString GetShapeDbFilename() const;
    QString GetEffectiveShapeDbFilename() const;

    void SetGeoSystemForImportFile(const GeoSystemSettings& system);
    GeoSystemSettings GetGeoSystemForImportFile() const { return importFileGeoSystem; }
    void SetGeoSystemForProject(const GeoSystemSettings& system);
    GeoSystemSettings GetGeoSystemForProject() const { return projectGeoSystem; }
    // The project's areas; the user decides whether they filter.
    void SetGeoFilter(QSharedPointer<QMap<QString, QPainterPath>> filter);
    QSharedPointer<QMap<QString, QPainterPath>> GetGeoFilter() const { return geoFilter; }
    // The filter is offered for routes, districts and buildings when there
    // are areas; the user decides.
    bool GetUseGeoFilter() const;

    void SetCorrectVertexOrder(bool correct);
    bool GetCorrectVertexOrder() const;
    void SetPointSelectMode(int mode);
    int GetPointSelectMode() const;
    void SetIndexForPoint1(int index);
    int GetIndexForPoint1() const;
    void SetIndexForPoint2(int index);
    int GetIndexForPoint2() const;
    void SetScaleImportMode(int mode);
    int GetScaleImportMode() const;
    void SetFixedScale(int scale);
    int GetFixedScale() const;
    void SetPageAdditionalText(const QString& text);
    QString GetPageAdditionalText() const;
    void SetDefaultVariant(const QString& variant);
    QString GetDefaultVariant() const;

    // Column 0 the attribute column, column 1 its type, column 2 the choice
    // of target field.
    QTreeWidget* GetFieldAssignmentTree() const;
    // (column, target id) of every assigned column, in tree order.
    QList<QPair<QString, int>> GetFieldAssignments() const;
    // Writes the assigned columns as "Export field assignments" does; a file
    // that cannot be written is reported.
    bool SaveFieldAssignments(const QString& file);
    // Applies a saved assignment file as "Import field assignments" does.
    void LoadFieldAssignments(const QString& file);
    // What the last loaded file named that this table or importer lacks.
    QString GetAssignmentNote() const;

    static QString ImportModeName(int mode);

public Q_SLOTS:
    void OnTargetFieldAssignmentChanged(int newIndex);
    void OnResetFieldAssignmentsClicked();
    void OnSaveFieldAssignmentsClicked();
    void OnLoadFieldAssignmentsClicked();
    void OnImportModeChanged(int mode);
    void OnSelectShapeFileClicked();
    void OnSelectShapeDbFileClicked();
    void OnSelectImportFileGeoSystemClicked();
    void OnSelectProjectGeoSystemClicked();
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
    QStringList presetKeys; // values the caller set; Initialize leaves them
    ShapePreviewWidget* preview = nullptr;
    AttributeTableModel* attributes = nullptr;
    bool shapeReadable = false;
    QString prjCheckedFor;   // the shape file whose ".prj" was looked at
    QString loadedShapeFile; // the files the table and choices were built for
    QString loadedShapeDbFile;
    // The sheet options as the host or the user gave them: the widgets
    // cannot show every value the importer takes.
    QButtonGroup* pointButtons = nullptr;
    int pointSelectMode = 0;
    int indexForPoint1 = 0;
    int indexForPoint2 = 2;
    int fixedScale = 1000;
};

#endif
