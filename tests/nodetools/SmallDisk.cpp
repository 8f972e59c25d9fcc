#include "SmallDisk.h"

#include <QByteArray>
#include <QFile>
#include <QStorageInfo>

#include <cerrno>
#include <cstring>
#include <sys/mount.h>
#include <unistd.h>

SmallDisk::SmallDisk(int kilobytes)
{
    if (::geteuid() != 0) {
        why = "a full disk needs a tmpfs, which only root may mount";
        return;
    }
    const QByteArray options = "size=" + QByteArray::number(kilobytes) + "k";
    mounted = ::mount("tmpfs", QFile::encodeName(dir.path()).constData(), "tmpfs", 0, options.constData()) == 0;
    if (!mounted)
        why = QString("cannot mount a tmpfs here: %1").arg(std::strerror(errno));
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
