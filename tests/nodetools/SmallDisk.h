#ifndef KAMO_TESTS_SMALLDISK_H
#define KAMO_TESTS_SMALLDISK_H

#include <QString>
#include <QTemporaryDir>

// A file system of a few hundred kilobytes, for what a full disk does to a
// run: a tmpfs mounted on a temporary folder. Only root may mount; elsewhere
// (or where mounting is not allowed) Mounted() is false and Why() says why,
// for the test to skip with.
class SmallDisk
{
public:
    explicit SmallDisk(int kilobytes);
    ~SmallDisk();

    bool Mounted() const { return mounted; }
    QString Why() const { return why; }
    QString Path() const { return dir.path(); }
    // Fills the disk up to `freeKilobytes`.
    void Fill(int freeKilobytes) const;

private:
    QTemporaryDir dir;
    bool mounted = false;
    QString why;
};

#endif
