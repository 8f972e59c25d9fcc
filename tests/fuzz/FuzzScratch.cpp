#include "FuzzScratch.h"

#include <QDir>
#include <QFile>

#include <cstdlib>

const QByteArray FuzzScratch::Separator("\n--8<--kamo-fuzz-part--8<--\n");

namespace {

// In memory where the machine has it: every run writes its files anew.
QString scratchTemplate()
{
    const QString shm = QStringLiteral("/dev/shm");
    const QString base = QDir(shm).exists() ? shm : QDir::tempPath();
    return base + QStringLiteral("/kamo-fuzz-XXXXXX");
}

} // namespace

FuzzScratch::FuzzScratch()
    : dir(scratchTemplate())
{
    if (!dir.isValid())
        std::abort();
}

QString FuzzScratch::Path(const QString& name) const
{
    return dir.filePath(name);
}

QString FuzzScratch::Write(const QString& name, const QByteArray& bytes) const
{
    const QString path = Path(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
        std::abort();
    return path;
}

QByteArray FuzzScratch::Bytes(const uint8_t* data, size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
}

QList<QByteArray> FuzzScratch::Split(const QByteArray& input, int count)
{
    QList<QByteArray> parts;
    int begin = 0;
    while (parts.size() < count - 1) {
        const int end = input.indexOf(Separator, begin);
        if (end < 0)
            break;
        parts.append(input.mid(begin, end - begin));
        begin = end + Separator.size();
    }
    parts.append(input.mid(begin));
    while (parts.size() < count)
        parts.append(QByteArray());
    return parts;
}
