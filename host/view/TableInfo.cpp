#include "TableInfo.h"

TableInfo::TableInfo(int id, const QString& name, const QStringList& columns)
    : ItemInfo(Kind::Table, id, name)
    , columns(columns)
{ }

TableInfo::~TableInfo() = default;
