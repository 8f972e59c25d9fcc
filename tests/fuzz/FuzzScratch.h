#ifndef KAMO_TESTS_FUZZ_FUZZSCRATCH_H
#define KAMO_TESTS_FUZZ_FUZZSCRATCH_H

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QList>
#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// What the fuzz targets share: a scratch folder for the files the library
// reads by name, and the splitting of one input into the several files a
// user hands over together (a shape file with its index and table).
class FuzzScratch
{
public:
    // Parts of one input are separated by this line; the seed corpus and
    // the dictionary use it too.
    static const QByteArray Separator;

    // In memory where the machine has it: every run writes its files anew.
    FuzzScratch()
        : dir((QDir("/dev/shm").exists() ? QStringLiteral("/dev/shm") : QDir::tempPath()) + "/kamo-fuzz-XXXXXX")
    {
        if (!dir.isValid())
            std::abort();
    }

    // Writes `bytes` to `name` in the scratch folder and returns its path.
    QString Write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
            std::abort();
        return file.fileName();
    }
    QString Path(const QString& name) const { return dir.filePath(name); }

    // The input as bytes, without copying.
    static QByteArray Bytes(const uint8_t* data, size_t size)
    {
        return QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
    }
    // At most `count` parts, the last one taking the rest; value() gives
    // those that are missing as empty.
    static QList<QByteArray> Split(const QByteArray& input, int count);

private:
    QTemporaryDir dir;
};

#endif
