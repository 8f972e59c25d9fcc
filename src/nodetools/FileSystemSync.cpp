#include "nodetools/FileSystemSync.h"

#include <QFile>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#endif

FileSystemSync::FileSystemSync(const QString& path)
{
#ifdef Q_OS_LINUX
    fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
#else
    Q_UNUSED(path)
#endif
}

FileSystemSync::~FileSystemSync()
{
#ifdef Q_OS_UNIX
    if (fd >= 0)
        ::close(fd);
#endif
}

bool FileSystemSync::Flush(QString* error)
{
#if defined(Q_OS_LINUX)
    // syncfs reports the write-back errors of the file system since this
    // descriptor was opened (Linux 5.8 and later).
    if (fd >= 0) {
        if (::syncfs(fd) == 0)
            return true;
        if (error)
            *error = QString::fromLocal8Bit(std::strerror(errno));
        return false;
    }
    ::sync();
#elif defined(Q_OS_UNIX)
    ::sync();
#endif
    // Elsewhere every copy was flushed on its own (see AnnotationFileIO::CopyFile).
    Q_UNUSED(error)
    return true;
}
