#include "ItemInfo.h"

ItemInfo::ItemInfo(Kind kind, int id, const QString& name)
    : kind(kind)
    , id(id)
    , name(name)
{ }

ItemInfo::~ItemInfo() = default;

QString ItemInfo::Key() const
{
    static const char* const names[] = { "Node", "Table", "Participant", "Gallery" };
    return QStringLiteral("%1:%2").arg(QLatin1String(names[static_cast<int>(kind)])).arg(id);
}
