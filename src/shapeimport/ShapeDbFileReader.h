#ifndef KAMO_TOOLS_SHAPEDBFILEREADER_H
#define KAMO_TOOLS_SHAPEDBFILEREADER_H

#include "kamo_tools_export.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/// Reads the attribute table (".dbf") of a shape file through shapelib,
/// read-only. Fields are looked up by name on every read. Text is taken as
/// Latin-1, the encoding such tables are written in here, unless a ".cpg"
/// file beside the table names UTF-8.
class KAMO_TOOLS_EXPORT ShapeDbFileReader
{
public:
    /// A column of the table as the file declares it.
    struct FieldInfo {
        /// The column name (up to 11 characters).
        QString name;
        QString type; ///< "String", "Integer", "Real", "Logical", "Date" or "Invalid"
        /// Width and decimals as declared.
        ///@{
        int width = 0;
        int decimals = 0;
        ///@}
    };

    /// Creates a reader with no table open.
    ShapeDbFileReader();
    /// Closes the table.
    ~ShapeDbFileReader();
    ShapeDbFileReader(const ShapeDbFileReader&) = delete;
    ShapeDbFileReader& operator=(const ShapeDbFileReader&) = delete;

    /// 0 on success, -1 when the file cannot be opened as an attribute table.
    int Open(const QByteArray& path);
    /// Closes the table; reads then find no field.
    void Close();
    /// Whether a table is open.
    bool IsOpen() const { return handle != nullptr; }

    /// The columns of the open table: their number, their names in order, and column \p field's declaration. Zero,
    /// empty and an empty FieldInfo without table.
    ///@{
    int GetFieldCount() const;
    void GetFieldNames(QVector<QString>& names) const;
    FieldInfo GetFieldInfo(int field) const;
    ///@}

    /// Whether text is read as UTF-8 (a ".cpg" file beside the table says so) rather than Latin-1.
    bool IsUtf8() const { return utf8; }

    /// Empty when the field does not exist or the record has no text (a
    /// number without value, stored as "*****" in a numeric column, counts
    /// as no text; stars in a text column are text).
    QString ReadStringAttribute(int record, const QString& field) const;
    /// -1 when the field does not exist.
    int ReadIntegerAttribute(int record, const QString& field) const;
    /// 0.0 when the field does not exist.
    double ReadDoubleAttribute(int record, const QString& field) const;

private:
    int fieldIndex(const QString& field) const;

    void* handle = nullptr; ///< DBFHandle
    bool utf8 = false;
};

#endif
