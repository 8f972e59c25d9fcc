#ifndef KAMO_VIEW_GEOSYSDLG_H
#define KAMO_VIEW_GEOSYSDLG_H

#include "GeoSystemSettings.h"
#include "kamo_view_export.h"

#include <QDialog>

#include <memory>

class QModelIndex;
class GeoSystemFilterModel;

namespace Ui {
class GeoSysDlg;
}

/// Lets the user pick a projected or geographic 2D system of the EPSG
/// registry, searching by code or by words of the name. The registry is read
/// from the PROJ database once per process.
class KAMO_VIEW_EXPORT GeoSysDlg : public QDialog
{
    Q_OBJECT

public:
    /// Creates the dialog and fills the list from the registry.
    explicit GeoSysDlg(QWidget* parent = nullptr);
    ~GeoSysDlg() override;

    /// Selects the system in the list when it is one of the registry's;
    /// otherwise it is only described, and stays the result until the user
    /// picks another.
    void SetGeoSystem(const GeoSystemSettings& system);
    /// The system chosen or set; the null system when there is none.
    GeoSystemSettings GetGeoSystem() const;

    /// Runs the dialog modally; on OK `system` becomes the chosen one.
    static bool ChooseGeoSystem(QWidget* parent, GeoSystemSettings& system);

protected:
    /// Lets the arrow and page keys in the search field move through the list; see QObject::eventFilter().
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void onSearchTextChanged(const QString& text);
    void onCurrentChanged(const QModelIndex& current);
    int currentCode() const;
    bool selectCode(int code);
    void showDescription();

    std::unique_ptr<Ui::GeoSysDlg> ui;
    GeoSystemFilterModel* filter;
    /// What the caller handed in; the result while no row is chosen.
    GeoSystemSettings initial;
};

#endif
