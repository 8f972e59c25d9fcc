#include "dxf/DxfDump.h"

#include "dxf/DxfGuardedRead.h"
#include "dxf/DxfOutputCreationAdapter.h"

#include <dl_codes.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace {

// Far above what any drawing needs, and below what makes dxflib allocate
// gigabytes before it reads a single vertex.
constexpr long long maximumCount = 10000000;

// Group codes whose value dxflib takes as the number of following items and
// allocates for at once.
bool isCountCode(QLatin1String entity, int code)
{
    if (entity == QLatin1String("LWPOLYLINE"))
        return code == 90;
    if (entity == QLatin1String("SPLINE"))
        return code == 72 || code == 73 || code == 74;
    if (entity == QLatin1String("LEADER"))
        return code == 76;
    return false;
}

// The whitespace QByteArray::trimmed() removes.
bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// A line of the file without its '\n', looked at in place: the check runs
// before every read of a drawing, and a copy of each of its millions of
// lines cost as much as a third of dxflib's own parsing.
QLatin1String trimmed(const char* begin, const char* end)
{
    while (begin < end && isSpace(*begin))
        ++begin;
    while (end > begin && isSpace(end[-1]))
        --end;
    return QLatin1String(begin, int(end - begin));
}

// QLatin1String::left() does not clamp.
QLatin1String shown(QLatin1String text)
{
    return QLatin1String(text.data(), qMin(text.size(), 40));
}

int groupCode(QLatin1String text, bool* isNumber)
{
    // Plain digits are nearly every code line; anything else takes the
    // general parser, so signs and overflow are judged as they always were.
    // Nine digits cannot overflow an int.
    if (text.size() > 0 && text.size() <= 9) {
        int code = 0;
        bool digits = true;
        for (const char c : text) {
            if (c < '0' || c > '9') {
                digits = false;
                break;
            }
            code = code * 10 + (c - '0');
        }
        if (digits) {
            *isNumber = true;
            return code;
        }
    }
    return QByteArray(text.data(), text.size()).toInt(isNumber);
}

} // namespace

QString DxfDump::CheckFile(const QString& path)
{
    const QString name = QDir::toNativeSeparators(path);
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return QCoreApplication::translate("DxfDump", "%1: no such file or not readable").arg(name);
    // Mapped rather than read: the file is read again by dxflib right after.
    QByteArray contents;
    const char* data = nullptr;
    qint64 size = file.size();
    if (size > 0)
        data = reinterpret_cast<const char*>(file.map(0, size));
    if (!data) {
        contents = file.readAll();
        data = contents.constData();
        size = contents.size();
    }
    const char* const end = data + size;
    auto lineEnd = [end](const char* begin) {
        const void* newline = std::memchr(begin, '\n', size_t(end - begin));
        return newline ? static_cast<const char*>(newline) : end;
    };
    // Every item a count announces takes at least two lines; counted only
    // when a count turns up.
    long long limit = -1;
    auto countLimit = [&] {
        if (limit < 0)
            limit = qMin<long long>(maximumCount, (std::count(data, end, '\n') + 1) / 2);
        return limit;
    };

    // dxflib reads on past an EOF marker to the end of the file, so every
    // group of the file is checked, not only those before it.
    QLatin1String entity;
    bool sawEof = false;
    qint64 line = 0; // 0-based number of the code line
    for (const char* begin = data;; line += 2) {
        // A pair needs its value line to begin, even if it is empty.
        const char* codeEnd = lineEnd(begin);
        if (codeEnd == end) {
            // dxflib reads this last line too; one too long for its buffer
            // without a line end after it stops its stream short of the end,
            // and it reads on for ever.
            if (codeEnd - begin >= DL_DXF_MAXLINE - 1)
                return QCoreApplication::translate("DxfDump", "%1: line %2 is longer than %3 characters")
                    .arg(name)
                    .arg(line + 1)
                    .arg(DL_DXF_MAXLINE - 2);
            break;
        }
        const char* valueBegin = codeEnd + 1;
        const char* valueEnd = lineEnd(valueBegin);
        const qint64 lengths[2] = { codeEnd - begin, valueEnd - valueBegin };
        for (int j = 0; j <= 1; ++j) {
            // dxflib reads lines into a fixed buffer and loses its place on
            // longer ones, reading garbage from then on.
            if (lengths[j] >= DL_DXF_MAXLINE - 1)
                return QCoreApplication::translate("DxfDump", "%1: line %2 is longer than %3 characters")
                    .arg(name)
                    .arg(line + j + 1)
                    .arg(DL_DXF_MAXLINE - 2);
        }
        const QLatin1String codeText = trimmed(begin, codeEnd);
        bool isNumber = false;
        int code = groupCode(codeText, &isNumber);
        if (!isNumber) {
            // Old programs pad their files after the EOF marker; dxflib reads
            // the padding as it reads any code line, by its leading integer.
            if (!sawEof)
                return QCoreApplication::translate("DxfDump", "%1: line %2 is not a group code: '%3'")
                    .arg(name)
                    .arg(line + 1)
                    .arg(shown(codeText));
            code = int(std::strtol(QByteArray(codeText.data(), codeText.size()).constData(), nullptr, 10));
        }
        const QLatin1String value = trimmed(valueBegin, valueEnd);
        if (code == 0) {
            entity = value;
            sawEof = sawEof || value == QLatin1String("EOF");
        } else if (isCountCode(entity, code)) {
            // Parsed like dxflib does: the leading integer counts. A copy,
            // since the mapped file has no terminating zero.
            const QByteArray number(value.data(), value.size());
            errno = 0;
            const long long count = std::strtoll(number.constData(), nullptr, 10);
            if (errno == ERANGE || count > countLimit())
                return QCoreApplication::translate(
                    "DxfDump", "%1: line %2: %3 announces %4 items, more than the file can hold")
                    .arg(name)
                    .arg(line + 2)
                    .arg(entity)
                    .arg(shown(value));
        }
        if (valueEnd == end)
            break;
        begin = valueEnd + 1;
    }
    if (!sawEof)
        return QCoreApplication::translate("DxfDump", "%1: the file ends without an EOF marker (truncated?)").arg(name);
    return QString();
}

bool DxfDump::DumpFile(
    const QString& path, const std::function<void(const QString&)>& line, QString* error, const bool* stop)
{
    DxfOutputCreationAdapter adapter(line);
    adapter.SetStopFlag(stop);
    return DxfGuardedRead(path, adapter, error);
}

bool DxfDump::DumpFileToText(const QString& path, QString& text, QString* error)
{
    QStringList lines;
    const bool read = DumpFile(
        path, [&lines](const QString& line) { lines.append(line); }, error);
    text = lines.join(QLatin1Char('\n'));
    return read;
}
