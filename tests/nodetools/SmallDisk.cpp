#include "SmallDisk.h"

#include <QFile>
#include <QStorageInfo>

#include <cerrno>
#include <cstring>
#include <sys/mount.h>
#include <unistd.h>

SmallDisk::SmallDisk(int kilobytes)
{
    const QByteArray options = "size=" + QByteArray::number(kilobytes) + "k";
    const bool root = ::geteuid() == 0;
    mounted = root && ::mount("tmpfs", QFile::encodeName(dir.path()).constData(), "tmpfs", 0, options.constData()) == 0;
    if (!mounted)
        why = root ? QString("cannot mount a tmpfs here: %1").arg(std::strerror(errno))
                   : QString("a full disk needs a tmpfs, which only root may mount");
}

SmallDisk::~SmallDisk()
{
    if (mounted)
        ::umount2(QFile::encodeName(dir.path()).constData(), MNT_DETACH);
}

void SmallDisk::Fill(int freeKilobytes) const
{
    QFile filler(dir.filePath("filler"));
    if (!filler.open(QIODevice::Append))
        return;
    const QByteArray block(1024, 'x');
    while (QStorageInfo(dir.path()).bytesAvailable() > qint64(freeKilobytes) * 1024 && filler.write(block) == 1024)
        filler.flush();
}
