#ifndef KAMO_TESTS_FUZZ_FUZZSCRATCH_H
#define KAMO_TESTS_FUZZ_FUZZSCRATCH_H

#include <QByteArray>
#include <QList>
#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

// What the fuzz targets share: a scratch folder for the files the library
// reads by name, and the splitting of one input into the several files a
// user hands over together (a shape file with its index and table).
class FuzzScratch
{
public:
    // Parts of one input are separated by this line; the seed corpus and
    // the dictionary use it too.
    static const QByteArray Separator;

    FuzzScratch();

    // Writes `bytes` to `name` in the scratch folder and returns its path.
    QString Write(const QString& name, const QByteArray& bytes) const;
    QString Path(const QString& name) const;

    // The input as bytes, without copying.
    static QByteArray Bytes(const uint8_t* data, size_t size);
    // At most `count` parts; the last one takes the rest.
    static QList<QByteArray> Split(const QByteArray& input, int count);

private:
    QTemporaryDir dir;
};

#endif
