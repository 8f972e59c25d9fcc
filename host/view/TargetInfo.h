#ifndef KAMO_VIEW_TARGETINFO_H
#define KAMO_VIEW_TARGETINFO_H

#include "ZoneInfo.h"
#include "kamo_view_export.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// One target of an annotation link: what kind of target it is, how it is
/// shown, and per zone the document and page it leads to. A target read
/// from the standard form has exactly one zone; a target of the split form
/// has one to four. Fields the caller does not touch are kept verbatim.
class KAMO_VIEW_EXPORT TargetInfo
{
public:
    /// Field positions of a link record (see docs/annotation-format.md).
    enum Field {
        TypeField = 0,
        PathField = 1,
        PageField = 2,
        DescriptionField = 3,
        EnvFactorField = 4,
        ViewLeftField = 5,
        ViewTopField = 6,
        ViewWidthField = 7,
        ViewHeightField = 8,
        ZoomField = 9,
        RotationField = 10,
        OpenModeField = 11,
        ColourField = 12,
        LineWidthField = 13,
        FrameStyleField = 14,
        TooltipField = 15,
        LayerField = 16,
        CreatedField = 17,
        CreatedByField = 18,
        ModifiedField = 19,
        ModifiedByField = 20,
        IdField = 21,
        FlagsField = 22,
        FieldCount = 23
    };

    /// Values of the type field.
    enum LinkType { DocumentLink = 0, WebLink = 1, NodeLink = 2, MailLink = 3 };

    /// The most zones a split target carries.
    static constexpr int MaxZones = 4;

    /// A standard target with all fields empty and one unlinked zone.
    TargetInfo();

    /// Used by the link reader: `fields` are the record's fields as read (the
    /// path and page fields are taken from `zones` when the record is written).
    TargetInfo(const QStringList& fields, const QVector<ZoneInfo>& zones, bool split);

    /// Whether the target is written in the split form.
    ///@{
    bool IsSplit() const { return split; }
    void SetSplit(bool isSplit) { split = isSplit; }
    ///@}

    /// The target's zones in order; an index must lie in 0 to ZoneCount() - 1.
    ///@{
    int ZoneCount() const { return zones.size(); }
    const ZoneInfo& Zone(int index) const { return zones.at(index); }
    ZoneInfo& Zone(int index) { return zones[index]; }
    const QVector<ZoneInfo>& Zones() const { return zones; }
    void SetZones(const QVector<ZoneInfo>& newZones) { zones = newZones; }
    ///@}

    /// The document path of zone \p index, which must exist.
    ///@{
    QString ZonePath(int index) const { return zones.at(index).Path(); }
    void SetZonePath(int index, const QString& path) { zones[index].SetPath(path); }
    ///@}

    /// True when at least one zone leads somewhere.
    bool HasPath() const;

    /// Record fields other than path and page. A field beyond the record's
    /// end reads as empty; setting one extends the record.
    ///@{
    int FieldsInRecord() const { return fields.size(); }
    QString GetField(int index) const { return fields.value(index); }
    void SetField(int index, const QString& value);
    const QStringList& Fields() const { return fields; }
    ///@}

    /// The link's description (DescriptionField).
    ///@{
    QString Description() const { return GetField(DescriptionField); }
    void SetDescription(const QString& text) { SetField(DescriptionField, text); }
    ///@}

    /// Targets are equal when their fields, zones and form are.
    ///@{
    bool operator==(const TargetInfo& other) const;
    bool operator!=(const TargetInfo& other) const { return !(*this == other); }
    ///@}

private:
    QStringList fields;
    QVector<ZoneInfo> zones;
    bool split = false;
};

#endif
