#include "TargetInfo.h"

#include <algorithm>

TargetInfo::TargetInfo()
    : zones(1)
{
    for (int i = 0; i < FieldCount; ++i)
        fields.append(QString());
}

TargetInfo::TargetInfo(const QStringList& fields, const QVector<ZoneInfo>& zones, bool split)
    : fields(fields)
    , zones(zones)
    , split(split)
{ }

bool TargetInfo::HasPath() const
{
    return std::any_of(zones.cbegin(), zones.cend(), [](const ZoneInfo& zone) { return zone.IsLinked(); });
}

void TargetInfo::SetField(int index, const QString& value)
{
    if (index < 0)
        return;
    while (fields.size() <= index)
        fields.append(QString());
    fields[index] = value;
}

bool TargetInfo::operator==(const TargetInfo& other) const
{
    return split == other.split && zones == other.zones && fields == other.fields;
}
