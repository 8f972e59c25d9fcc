#include "shapeimport/ShapeDbFileReader.h"

#include <shapefil.h>

#include <QFile>
#include <QFileInfo>

namespace {

DBFHandle dbf(void* handle)
{
    return static_cast<DBFHandle>(handle);
}

} // namespace

ShapeDbFileReader::ShapeDbFileReader() = default;

ShapeDbFileReader::~ShapeDbFileReader()
{
    Close();
}

int ShapeDbFileReader::Open(const QByteArray& path)
{
    Close();
    handle = DBFOpen(path.constData(), "rb");
    if (!handle)
        return -1;
    // The code page file names the encoding when the writer knew it.
    QFile cpg(QFileInfo(QFile::decodeName(path)).path() + QLatin1Char('/')
        + QFileInfo(QFile::decodeName(path)).completeBaseName() + QStringLiteral(".cpg"));
    if (cpg.open(QIODevice::ReadOnly)) {
        const QByteArray name = cpg.read(64).trimmed().toUpper();
        utf8 = name == "UTF-8" || name == "UTF8" || name == "65001";
    }
    return 0;
}

void ShapeDbFileReader::Close()
{
    if (handle)
        DBFClose(dbf(handle));
    handle = nullptr;
    utf8 = false;
}

int ShapeDbFileReader::GetFieldCount() const
{
    return handle ? DBFGetFieldCount(dbf(handle)) : 0;
}

void ShapeDbFileReader::GetFieldNames(QVector<QString>& names) const
{
    const int count = GetFieldCount();
    names.resize(count);
    for (int i = 0; i < count; ++i)
        names[i] = GetFieldInfo(i).name;
}

ShapeDbFileReader::FieldInfo ShapeDbFileReader::GetFieldInfo(int field) const
{
    FieldInfo info;
    if (!handle)
        return info;
    // shapelib writes at most 11 name bytes and their terminating zero.
    char name[XBASE_FLDNAME_LEN_READ + 1] = {};
    int width = 0;
    int decimals = 0;
    const DBFFieldType type = DBFGetFieldInfo(dbf(handle), field, name, &width, &decimals);
    info.name = QString::fromLatin1(name);
    switch (type) {
    case FTString:
        info.type = QStringLiteral("String");
        break;
    case FTInteger:
        info.type = QStringLiteral("Integer");
        break;
    case FTDouble:
        info.type = QStringLiteral("Real");
        break;
    case FTLogical:
        info.type = QStringLiteral("Logical");
        break;
    case FTDate:
        info.type = QStringLiteral("Date");
        break;
    default:
        info.type = QStringLiteral("Invalid");
        break;
    }
    info.width = width;
    info.decimals = decimals;
    return info;
}

int ShapeDbFileReader::fieldIndex(const QString& field) const
{
    return handle ? DBFGetFieldIndex(dbf(handle), field.toLatin1().constData()) : -1;
}

QString ShapeDbFileReader::ReadStringAttribute(int record, const QString& field) const
{
    const int index = fieldIndex(field);
    if (index < 0)
        return QString();
    const char* text = DBFReadStringAttribute(dbf(handle), record, index);
    if (!text)
        return QString();
    const QByteArray bytes(text);
    // Stars fill a number without value; in a text column they are text.
    if (!bytes.isEmpty() && bytes.count('*') == bytes.size()) {
        const DBFFieldType type = DBFGetFieldInfo(dbf(handle), index, nullptr, nullptr, nullptr);
        if (type == FTInteger || type == FTDouble)
            return QString();
    }
    return utf8 ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

int ShapeDbFileReader::ReadIntegerAttribute(int record, const QString& field) const
{
    const int index = fieldIndex(field);
    return index < 0 ? -1 : DBFReadIntegerAttribute(dbf(handle), record, index);
}

double ShapeDbFileReader::ReadDoubleAttribute(int record, const QString& field) const
{
    const int index = fieldIndex(field);
    return index < 0 ? 0.0 : DBFReadDoubleAttribute(dbf(handle), record, index);
}
