#ifndef KAMO_VIEW_TABLEINFO_H
#define KAMO_VIEW_TABLEINFO_H

#include "ItemInfo.h"
#include "kamo_view_export.h"

#include <QString>
#include <QStringList>

/// A table kept with the project (an owner list, a schedule of manholes):
/// its title and the names of its columns.
class KAMO_VIEW_EXPORT TableInfo : public ItemInfo
{
public:
    /// A table with its id, title and column names.
    TableInfo(int id = 0, const QString& name = QString(), const QStringList& columns = QStringList());
    ~TableInfo() override;

    /// The table's column names, in order.
    const QStringList& Columns() const { return columns; }

private:
    QStringList columns;
};

#endif
