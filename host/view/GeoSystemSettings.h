#ifndef KAMO_VIEW_GEOSYSTEMSETTINGS_H
#define KAMO_VIEW_GEOSYSTEMSETTINGS_H

#include "PointF.h"
#include "kamo_view_export.h"

#include <QString>
#include <QVector>

class QPolygonF;

/// A geo reference system: an EPSG code ("EPSG:31467") or any definition
/// PROJ understands (a PROJ string, WKT, PROJJSON). The null system is
/// "not set"; two null systems are equal.
class KAMO_VIEW_EXPORT GeoSystemSettings
{
public:
    GeoSystemSettings(); ///< The null system ("not set").
    /// The system "EPSG:code".
    static GeoSystemSettings FromEpsg(int code);
    /// Any definition PROJ accepts; the text is kept as given.
    static GeoSystemSettings FromDefinition(const QString& definition);
    /// The system of an ESRI ".prj" file: its EPSG code when the PROJ
    /// database knows it, else the file's WKT itself; the null system when
    /// the file cannot be read or PROJ cannot make sense of it.
    static GeoSystemSettings FromPrjFile(const QString& path);

    /// Makes the system null ("not set"), and tells whether it is.
    ///@{
    void SetNull();
    bool IsNull() const;
    ///@}

    /// Same definition, compared as PROJ sees it: "EPSG:31467" equals
    /// "epsg:31467" and the WKT of that system.
    bool IsEqual(const GeoSystemSettings& other) const;

    /// The definition as stored and read back by FromString (settings,
    /// files); the null system is the empty text.
    QString ToString() const;
    /// The system stored by ToString(); the empty text gives the null system.
    static GeoSystemSettings FromString(const QString& text);

    /// True when PROJ can build the system.
    bool IsValid() const;
    /// A line for people: the system's name from the PROJ database and its
    /// code ("DHDN / 3-degree Gauss-Kruger zone 3 (EPSG:31467)"); empty for
    /// the null system.
    QString GetDescription() const;

private:
    QString definition;
};

/// Converts (x, y) from `from` into `to` in place, x easting and y northing
/// whatever the axis order of the systems. The transformation of a pair of
/// systems is built once, with the most accurate operation available, and
/// reused for every later point of the same pair. Returns false and leaves
/// the point unchanged when the conversion fails (unknown system, point
/// outside the grid). `reportFailures`: also write a failure to the log.
/// A null system on either side means "not georeferenced": nothing to
/// convert, true, and the point stays as it is; so do equal systems.
KAMO_VIEW_EXPORT bool ChangeGeoSystemEx(
    double& x, double& y, const GeoSystemSettings& from, const GeoSystemSettings& to, bool reportFailures);

/// The same for many points in one pass, much faster than point by point.
/// All or nothing: when one point fails, every point keeps its value and the
/// result is false.
KAMO_VIEW_EXPORT bool ChangeGeoSystemEx(
    QVector<PointF>& points, const GeoSystemSettings& from, const GeoSystemSettings& to, bool reportFailures);
KAMO_VIEW_EXPORT bool ChangeGeoSystemEx(
    QPolygonF& points, const GeoSystemSettings& from, const GeoSystemSettings& to, bool reportFailures);

/// The name of the operation the pair of systems is converted with, for logs
/// and reports; empty when there is none or nothing to convert.
KAMO_VIEW_EXPORT QString GeoSystemOperationName(const GeoSystemSettings& from, const GeoSystemSettings& to);

/// Why the last conversion of this thread failed; empty after a success.
KAMO_VIEW_EXPORT QString GeoSystemLastError();

#endif
