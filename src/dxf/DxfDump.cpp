#include "dxf/DxfDump.h"

#include "dxf/DxfGuardedRead.h"
#include "dxf/DxfOutputCreationAdapter.h"

#include <dl_codes.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdlib>

namespace {

// Far above what any drawing needs, and below what makes dxflib allocate
// gigabytes before it reads a single vertex.
constexpr long long maximumCount = 10000000;

// Group codes whose value dxflib takes as the number of following items and
// allocates for at once.
bool isCountCode(const QByteArray& entity, int code)
{
    if (entity == "LWPOLYLINE")
        return code == 90;
    if (entity == "SPLINE")
        return code == 72 || code == 73 || code == 74;
    if (entity == "LEADER")
        return code == 76;
    return false;
}

bool readFile(const QString& path, QPlainTextEdit* output, QString* text, QString* error)
{
    DxfOutputCreationAdapter adapter(output, nullptr, text);
    return DxfGuardedRead(path, adapter, error);
}

} // namespace

QString DxfDump::CheckFile(const QString& path)
{
    const QString name = QDir::toNativeSeparators(path);
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return QCoreApplication::translate("DxfDump", "%1: no such file or not readable").arg(name);
    const QList<QByteArray> lines = file.readAll().split('\n');
    // Every item a count announces takes at least two lines.
    const long long limit = qMin<long long>(maximumCount, lines.size() / 2);

    QByteArray entity;
    bool atEnd = false;
    for (int i = 0; i + 1 < lines.size() && !atEnd; i += 2) {
        for (int j = i; j <= i + 1; ++j) {
            // dxflib reads lines into a fixed buffer and loses its place on
            // longer ones, reading garbage from then on.
            if (lines.at(j).size() >= DL_DXF_MAXLINE - 1)
                return QCoreApplication::translate("DxfDump", "%1: line %2 is longer than %3 characters")
                    .arg(name)
                    .arg(j + 1)
                    .arg(DL_DXF_MAXLINE - 2);
        }
        bool isNumber = false;
        const int code = lines.at(i).trimmed().toInt(&isNumber);
        if (!isNumber)
            return QCoreApplication::translate("DxfDump", "%1: line %2 is not a group code: '%3'")
                .arg(name)
                .arg(i + 1)
                .arg(QString::fromLatin1(lines.at(i).trimmed().left(40)));
        const QByteArray value = lines.at(i + 1).trimmed();
        if (code == 0) {
            entity = value;
            atEnd = value == "EOF";
        } else if (isCountCode(entity, code)) {
            // Parsed like dxflib does: the leading integer counts.
            errno = 0;
            const long long count = std::strtoll(value.constData(), nullptr, 10);
            if (errno == ERANGE || count > limit)
                return QCoreApplication::translate(
                    "DxfDump", "%1: line %2: %3 announces %4 items, more than the file can hold")
                    .arg(name)
                    .arg(i + 2)
                    .arg(QString::fromLatin1(entity))
                    .arg(QString::fromLatin1(value.left(40)));
        }
    }
    if (!atEnd)
        return QCoreApplication::translate("DxfDump", "%1: the file ends without an EOF marker (truncated?)").arg(name);
    return QString();
}

bool DxfDump::DumpFile(const QString& path, QPlainTextEdit* output, QString* error)
{
    return readFile(path, output, nullptr, error);
}

bool DxfDump::DumpFileToText(const QString& path, QString& text, QString* error)
{
    text.clear();
    return readFile(path, nullptr, &text, error);
}
