#include "dialogs/AttributeTableModel.h"

#include "shapeimport/ShapeDbFileReader.h"

#include <QFile>

#include <algorithm>

namespace {

QString typeName(const QString& type)
{
    if (type == QLatin1String("String"))
        return AttributeTableModel::tr("Text");
    if (type == QLatin1String("Integer"))
        return AttributeTableModel::tr("Integer");
    if (type == QLatin1String("Real"))
        return AttributeTableModel::tr("Decimal number");
    if (type == QLatin1String("Logical"))
        return AttributeTableModel::tr("Yes/No");
    if (type == QLatin1String("Date"))
        return AttributeTableModel::tr("Date");
    return AttributeTableModel::tr("Unknown type");
}

QString fieldTip(const ShapeDbFileReader::FieldInfo& info)
{
    if (info.decimals > 0)
        return AttributeTableModel::tr("%1, width %2, %3 decimals")
            .arg(typeName(info.type))
            .arg(info.width)
            .arg(info.decimals);
    return AttributeTableModel::tr("%1, width %2").arg(typeName(info.type)).arg(info.width);
}

} // namespace

AttributeTableModel::AttributeTableModel(QObject* parent)
    : QAbstractTableModel(parent)
{ }

AttributeTableModel::~AttributeTableModel() = default;

bool AttributeTableModel::SetTable(const QString& dbFile, int recordCount, int rows)
{
    beginResetModel();
    fieldNames.clear();
    fieldTips.clear();
    values.clear();
    ShapeDbFileReader reader;
    const bool readable = !dbFile.isEmpty() && reader.Open(QFile::encodeName(dbFile)) == 0;
    if (readable) {
        const int fieldCount = reader.GetFieldCount();
        for (int field = 0; field < fieldCount; ++field) {
            const ShapeDbFileReader::FieldInfo info = reader.GetFieldInfo(field);
            fieldNames.append(info.name);
            fieldTips.append(fieldTip(info));
        }
        const int count = std::max(std::min(recordCount, rows), 0);
        values.reserve(count);
        for (int record = 0; record < count; ++record) {
            QStringList row;
            row.reserve(fieldCount);
            for (const QString& name : qAsConst(fieldNames))
                row.append(reader.ReadStringAttribute(record, name));
            values.append(row);
        }
    }
    endResetModel();
    return readable;
}

void AttributeTableModel::Clear()
{
    beginResetModel();
    fieldNames.clear();
    fieldTips.clear();
    values.clear();
    endResetModel();
}

int AttributeTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : values.size();
}

int AttributeTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : fieldNames.size();
}

QVariant AttributeTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= values.size() || index.column() >= fieldNames.size())
        return QVariant();
    // The tool tip shows a value the column is too narrow for.
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return values.at(index.row()).value(index.column());
    return QVariant();
}

QVariant AttributeTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical) {
        if (role == Qt::DisplayRole && section >= 0 && section < values.size())
            return section + 1;
        return QVariant();
    }
    if (section < 0 || section >= fieldNames.size())
        return QVariant();
    if (role == Qt::DisplayRole)
        return fieldNames.at(section);
    if (role == Qt::ToolTipRole)
        return fieldTips.at(section);
    return QVariant();
}
