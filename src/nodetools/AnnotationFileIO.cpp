#include "nodetools/AnnotationFileIO.h"

#include "nodetools/Sha256.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTextCodec>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <QSaveFile>
#endif

namespace AnnotationFileIO {

namespace {

const char utf8Bom[] = "\xEF\xBB\xBF";

// The file a chain of symbolic links ends in, so that the link survives the
// replacement and the file it points to gets the new content.
QString resolveSymbolicLinks(const QString& path)
{
    QFileInfo info(path);
    for (int depth = 0; depth < 128 && info.isSymLink(); ++depth)
        info.setFile(info.symLinkTarget());
    return info.isSymLink() ? path : info.filePath();
}

#ifdef Q_OS_UNIX

QString systemError(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

bool writeAll(int fd, const QByteArray& bytes, int* error)
{
    const char* data = bytes.constData();
    size_t remaining = size_t(bytes.size());
    while (remaining > 0) {
        const ssize_t written = ::write(fd, data, remaining);
        if (written < 0) {
            if (errno == EINTR)
                continue;
            *error = errno;
            return false;
        }
        // Short writes happen at a file-size limit or a full disk; the next
        // call reports why.
        data += written;
        remaining -= size_t(written);
    }
    return true;
}

// The names of the temporary files beside a file being replaced: "." + name
// + ".kamo-" + a random suffix of up to 7 letters or digits (mkostemp's six,
// or a 32-bit number in base 36).
QByteArray randomTempName(const QByteArray& directory, const QByteArray& fileName)
{
    return directory + "/." + fileName + ".kamo-" + QByteArray::number(QRandomGenerator::global()->generate(), 36);
}

QByteArray tempNameTemplate(const QByteArray& directory, const QByteArray& fileName)
{
    return directory + "/." + fileName + ".kamo-XXXXXX";
}

bool isFileSystemError(int error)
{
    return error == ENOSPC || error == EDQUOT || error == EIO || error == EROFS || error == EFBIG;
}

#endif

// Both forms of the names above, beside annotation files.
const QRegularExpression& tempNamePattern()
{
    static const QRegularExpression pattern(QStringLiteral("^\\..+\\.ann\\.kamo-[0-9A-Za-z]{1,7}$"));
    return pattern;
}

} // namespace

DecodedText DecodeText(const QByteArray& bytes)
{
    DecodedText result;
    int offset = 0;
    if (bytes.startsWith(utf8Bom)) {
        result.hasBom = true;
        offset = 3;
    }
    // QString::fromUtf8 would stop at a NUL byte and drop a second BOM; the
    // codec keeps every character and counts what it cannot decode.
    static QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    result.text = codec->toUnicode(bytes.constData() + offset, bytes.size() - offset, &state);
    result.validUtf8 = state.invalidChars == 0 && state.remainingChars == 0;
    return result;
}

QByteArray EncodeText(const QString& text, bool withBom)
{
    QByteArray bytes = text.toUtf8();
    if (withBom)
        bytes.prepend(utf8Bom);
    return bytes;
}

#ifdef Q_OS_UNIX

// QSaveFile would do, but it syncs every file to disk before the rename,
// which makes a run over thousands of files several times slower. The data
// is still never half-replaced: a process that dies before the rename leaves
// the old file and, thanks to O_TMPFILE, no temporary file.
bool ReplaceFile(const QString& path, const QByteArray& bytes, QString* error)
{
    auto fail = [error](const QString& message) {
        if (error)
            *error = message;
        return false;
    };

    const QString finalPath = resolveSymbolicLinks(path);
    const QByteArray target = QFile::encodeName(finalPath);
    struct stat original { };
    const bool exists = ::stat(target.constData(), &original) == 0;
    if (!exists && errno != ENOENT)
        return fail(systemError(errno));
    if (!exists) {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        original.st_mode = 0666 & ~mask;
        original.st_uid = ::geteuid();
        original.st_gid = ::getegid();
    }

    const QFileInfo info(finalPath);
    const QByteArray directory = QFile::encodeName(info.absolutePath());
    const QByteArray fileName = QFile::encodeName(info.fileName());

    QByteArray tempName;
    int fd = -1;
#ifdef O_TMPFILE
    fd = ::open(directory.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
#endif
    const bool unnamed = fd >= 0;
    if (!unnamed) {
        // No O_TMPFILE on this file system: a named temporary file instead.
        tempName = tempNameTemplate(directory, fileName);
        fd = ::mkostemp(tempName.data(), O_CLOEXEC);
        if (fd < 0)
            return fail(systemError(errno));
    }
    auto discard = [&](int code) {
        ::close(fd);
        if (!tempName.isEmpty())
            ::unlink(tempName.constData());
        return fail(systemError(code));
    };

    int code = 0;
    if (!writeAll(fd, bytes, &code))
        return discard(code);
    if (::fchmod(fd, original.st_mode & 07777) != 0)
        return discard(errno);
    // Keeps the owner when run with the rights to do so; otherwise the file
    // becomes ours, as with any editor.
    if (::fchown(fd, original.st_uid, original.st_gid) != 0) { }

    if (unnamed) {
        const QByteArray procPath = "/proc/self/fd/" + QByteArray::number(fd);
        for (int attempt = 0; attempt < 16; ++attempt) {
            tempName = randomTempName(directory, fileName);
            if (::linkat(AT_FDCWD, procPath.constData(), AT_FDCWD, tempName.constData(), AT_SYMLINK_FOLLOW) == 0)
                break;
            const int linkError = errno;
            tempName.clear();
            if (linkError != EEXIST)
                return discard(linkError);
        }
        if (tempName.isEmpty())
            return discard(EEXIST);
    }
    if (::close(fd) != 0) {
        const int closeError = errno;
        ::unlink(tempName.constData());
        return fail(systemError(closeError));
    }
    if (::rename(tempName.constData(), target.constData()) != 0) {
        const int renameError = errno;
        ::unlink(tempName.constData());
        return fail(systemError(renameError));
    }
    return true;
}

#else

bool ReplaceFile(const QString& path, const QByteArray& bytes, QString* error)
{
    QSaveFile file(resolveSymbolicLinks(path));
    if (!file.open(QIODevice::WriteOnly)) {
        if (error)
            *error = file.errorString();
        return false;
    }
    // A write cut short returns a short count without an error, and commit()
    // would then succeed with a truncated file.
    if (file.write(bytes) != bytes.size()) {
        if (error)
            *error = file.errorString();
        file.cancelWriting();
        file.commit();
        return false;
    }
    if (!file.commit()) {
        if (error)
            *error = file.errorString();
        return false;
    }
    return true;
}

#endif

int RemoveStaleTemporaryFiles(const QString& folder, const QDateTime& before)
{
    int removed = 0;
    // The name filter first: a data folder holds tens of thousands of files.
    const QFileInfoList entries
        = QDir(folder).entryInfoList({ QStringLiteral(".*.ann.kamo-*") }, QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo& entry : entries) {
        if (!entry.isHidden() || !tempNamePattern().match(entry.fileName()).hasMatch() || entry.isSymLink())
            continue;
        if (entry.lastModified() < before && QFile::remove(entry.filePath()))
            ++removed;
    }
    return removed;
}

#ifdef Q_OS_UNIX

CopyResult CopyFile(const QString& source, const QString& target)
{
    CopyResult result;
    auto fail = [&result](int code) {
        result.kind = CopyResult::Failed;
        result.error = systemError(code);
        result.targetFileSystemFailed = isFileSystemError(code);
        return result;
    };

    const int in = ::open(QFile::encodeName(source).constData(), O_RDONLY | O_CLOEXEC);
    if (in < 0)
        return fail(errno);
    struct stat info { };
    if (::fstat(in, &info) != 0) {
        const int code = errno;
        ::close(in);
        return fail(code);
    }
    const QByteArray targetName = QFile::encodeName(target);
    const int out = ::open(targetName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (out < 0) {
        const int code = errno;
        ::close(in);
        if (code == EEXIST) {
            result.kind = CopyResult::TargetExists;
            return result;
        }
        return fail(code);
    }

    // Annotation files are small; one buffer of this size takes most whole.
    static thread_local QByteArray buffer(256 * 1024, Qt::Uninitialized);
    Sha256 hash;
    int code = 0;
    bool readFailed = false;
    for (;;) {
        const ssize_t count = ::read(in, buffer.data(), size_t(buffer.size()));
        if (count < 0) {
            if (errno == EINTR)
                continue;
            code = errno;
            readFailed = true;
            break;
        }
        if (count == 0)
            break;
        hash.Add(buffer.constData(), count);
        if (!writeAll(out, QByteArray::fromRawData(buffer.constData(), int(count)), &code))
            break;
        result.size += count;
    }
    ::close(in);
    if (code == 0 && ::fchmod(out, info.st_mode & 07777) != 0)
        code = errno;
    if (::close(out) != 0 && code == 0)
        code = errno;
    if (code != 0) {
        ::unlink(targetName.constData());
        fail(code);
        result.targetFileSystemFailed = !readFailed && isFileSystemError(code);
        return result;
    }
    result.kind = CopyResult::Copied;
    result.sha256 = hash.Result();
    return result;
}

#else

// No file-system-wide flush here: every copy is flushed on its own, as
// QSaveFile does on commit.
CopyResult CopyFile(const QString& source, const QString& target)
{
    CopyResult result;
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly)) {
        result.error = in.errorString();
        return result;
    }
    if (QFileInfo::exists(target)) {
        result.kind = CopyResult::TargetExists;
        return result;
    }
    const QByteArray bytes = in.readAll();
    if (in.error() != QFileDevice::NoError) {
        result.error = in.errorString();
        return result;
    }
    QSaveFile out(target);
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.commit()) {
        result.error = out.errorString();
        result.targetFileSystemFailed = true;
        out.cancelWriting();
        return result;
    }
    QFile::setPermissions(target, in.permissions());
    result.kind = CopyResult::Copied;
    result.size = bytes.size();
    result.sha256 = Sha256::Hash(bytes);
    return result;
}

#endif

bool CanReplaceFile(const QString& path, QString* error)
{
    // The replacement is made beside the file: the folder must take it.
    const QString folder = QFileInfo(resolveSymbolicLinks(path)).absolutePath();
#ifdef Q_OS_UNIX
    if (::access(QFile::encodeName(folder).constData(), W_OK | X_OK) == 0)
        return true;
    if (error)
        *error = systemError(errno);
    return false;
#else
    if (QFileInfo(folder).isWritable())
        return true;
    if (error)
        *error = QStringLiteral("Permission denied");
    return false;
#endif
}

} // namespace AnnotationFileIO
