#ifndef KAMO_TOOLS_FILESYSTEMSYNC_H
#define KAMO_TOOLS_FILESYSTEMSYNC_H

#include <QString>

// One flush to disk for everything written to a file system, however many
// files (as git's batch mode makes many objects durable at once): a flush
// per file would make a backup of thousands of small files several times
// slower. Created before the writes, so that a write-back error of any of
// them is reported by Flush() even when the kernel wrote the file back
// before.
class FileSystemSync
{
public:
    // `path`: any file or folder on the file system to flush.
    explicit FileSystemSync(const QString& path);
    ~FileSystemSync();
    FileSystemSync(const FileSystemSync&) = delete;
    FileSystemSync& operator=(const FileSystemSync&) = delete;

    // On failure `error` says why.
    bool Flush(QString* error);

private:
    int fd = -1;
};

#endif
