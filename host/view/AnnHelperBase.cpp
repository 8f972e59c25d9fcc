#include "AnnHelperBase.h"

#include <QVector>

#include <algorithm>

const QChar AnnHelperBase::FieldSeparator(0x0011);
const QChar AnnHelperBase::TargetSeparator(0x0012);
const QChar AnnHelperBase::ZoneSeparator(0x0013);
const QChar AnnHelperBase::SplitMarker(0x00A4);

namespace {

QStringList splitKeepingEmpty(QStringView text, QChar separator)
{
    QStringList parts;
    for (const QStringView part : text.split(separator, Qt::KeepEmptyParts))
        parts.append(part.toString());
    return parts;
}

TargetInfo readStandardRecord(const QString& value)
{
    const QStringList fields = value.split(AnnHelperBase::FieldSeparator, Qt::KeepEmptyParts);
    ZoneInfo zone(fields.value(TargetInfo::PathField), fields.value(TargetInfo::PageField));
    return TargetInfo(fields, { zone }, false);
}

// In a split record the path and page fields hold one entry per zone.
TargetInfo readSplitRecord(QStringView record)
{
    const QStringList fields = splitKeepingEmpty(record, AnnHelperBase::FieldSeparator);
    QStringList paths;
    QStringList pages;
    if (fields.size() > TargetInfo::PathField)
        paths = fields.at(TargetInfo::PathField).split(AnnHelperBase::ZoneSeparator, Qt::KeepEmptyParts);
    if (fields.size() > TargetInfo::PageField)
        pages = fields.at(TargetInfo::PageField).split(AnnHelperBase::ZoneSeparator, Qt::KeepEmptyParts);

    QVector<ZoneInfo> zones;
    const int zoneCount = std::max(paths.size(), pages.size());
    zones.reserve(zoneCount);
    for (int i = 0; i < zoneCount; ++i)
        zones.append(ZoneInfo(paths.value(i), pages.value(i)));
    return TargetInfo(fields, zones, true);
}

bool hasAnyPage(const QVector<ZoneInfo>& zones)
{
    return std::any_of(zones.cbegin(), zones.cend(), [](const ZoneInfo& zone) { return !zone.Page().isEmpty(); });
}

// The record's own fields, with path and page taken from the zones. A record
// read without a page field gets one only when a page has been set since.
QStringList recordFields(const TargetInfo& target, bool split)
{
    QStringList fields = target.Fields();
    const QVector<ZoneInfo>& zones = target.Zones();
    const int needed = hasAnyPage(zones) ? TargetInfo::PageField + 1 : zones.isEmpty() ? 0 : TargetInfo::PathField + 1;
    while (fields.size() < needed)
        fields.append(QString());

    QStringList paths;
    QStringList pages;
    for (const ZoneInfo& zone : zones) {
        paths.append(zone.Path());
        pages.append(zone.Page());
    }
    const QChar separator = split ? AnnHelperBase::ZoneSeparator : QChar();
    if (fields.size() > TargetInfo::PathField)
        fields[TargetInfo::PathField] = split ? paths.join(separator) : paths.value(0);
    if (fields.size() > TargetInfo::PageField)
        fields[TargetInfo::PageField] = split ? pages.join(separator) : pages.value(0);
    return fields;
}

} // namespace

void AnnHelperBase::ParseLink(QList<TargetInfo>& targets, QString& value)
{
    targets.clear();
    if (value.isEmpty())
        return;

    if (value.at(0) == SplitMarker) {
        const QStringView body = QStringView(value).mid(1);
        for (const QStringView record : body.split(TargetSeparator, Qt::KeepEmptyParts))
            targets.append(readSplitRecord(record));
    } else {
        targets.append(readStandardRecord(value));
    }

    const bool anyPath = std::any_of(targets.cbegin(), targets.cend(), [](const TargetInfo& t) { return t.HasPath(); });
    if (!anyPath)
        targets.clear();
}

void AnnHelperBase::SaveLink(const QList<TargetInfo>& targets, QString& line, bool appendLineEnd)
{
    line = QStringLiteral("HREF=");
    const bool standard = targets.size() == 1 && !targets.first().IsSplit() && targets.first().ZoneCount() <= 1;
    if (standard) {
        line += recordFields(targets.first(), false).join(FieldSeparator);
    } else if (!targets.isEmpty()) {
        line += SplitMarker;
        for (int i = 0; i < targets.size(); ++i) {
            if (i > 0)
                line += TargetSeparator;
            line += recordFields(targets.at(i), true).join(FieldSeparator);
        }
    }
    if (appendLineEnd)
        line += QStringLiteral("\r\n");
}
