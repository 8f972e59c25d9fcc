#ifndef KAMO_TOOLS_ATTRIBUTETABLEMODEL_H
#define KAMO_TOOLS_ATTRIBUTETABLEMODEL_H

#include <QAbstractTableModel>
#include <QString>
#include <QStringList>
#include <QVector>

/// The first records of a shape file's attribute table, for a glance at the
/// columns before they are assigned. The values are read once and the file
/// is closed again, so the table stays free for the import.
class AttributeTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Creates an empty model.
    explicit AttributeTableModel(QObject* parent = nullptr);
    ~AttributeTableModel() override;

    /// Reads at most `rows` records, and no more than `recordCount`: the
    /// shape file's entity count, since a table may claim more records than
    /// it holds. False, and the model empty, when the table cannot be read.
    bool SetTable(const QString& dbFile, int recordCount, int rows = 20);
    /// Empties the model.
    void Clear();

    /// The column names of the table read, in table order.
    QStringList GetFieldNames() const { return fieldNames; }

    /// The records read and the table's columns; see QAbstractItemModel.
    ///@{
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    ///@}
    /// A record's value as the table has it (text decoded as the table declares); see QAbstractItemModel::data().
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Columns: field name, with type and width as tool tip. Rows: the record
    /// number from 1.
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QStringList fieldNames;
    QStringList fieldTips;
    QVector<QStringList> values; ///< per row, per column
};

#endif
