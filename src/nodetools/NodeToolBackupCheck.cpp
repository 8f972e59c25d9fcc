#include "nodetools/NodeToolBackupCheck.h"

#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/BackupManifest.h"
#include "nodetools/Sha256.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

const QString NodeToolBackupCheck::ManifestFileName = QStringLiteral("nodeToolOperation.manifest");

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("NodeToolBackupCheck", text);
}

// Larger than any manifest of a real backup (a line is under 150 bytes);
// a file beyond it is no manifest of ours.
constexpr qint64 maximumManifestSize = 256 * 1024 * 1024;

} // namespace

struct NodeToolBackupCheck::Private {
    QString folder;
    bool hasManifest = false;
    BackupManifest manifest;
    QStringList names; // manifest and folder together, in name order
    QSet<QString> inFolder;
    int checked = 0;
    QList<Problem> problems;
};

NodeToolBackupCheck::NodeToolBackupCheck(const QString& folder)
    : d(std::make_unique<Private>())
{
    d->folder = folder;
    const QFileInfo info(folder);
    if (!info.isDir()) {
        d->problems.append({ info.fileName(),
            info.exists() ? tr("is a file, not a backup folder") : tr("the backup folder does not exist") });
        return;
    }

    const QDir dir(folder);
    const QStringList files
        = dir.entryList({ QLatin1Char('*') + AnnotationFileProcessor::AnnotationExtension }, QDir::Files, QDir::Name);
    d->inFolder = QSet<QString>(files.begin(), files.end());

    QFile manifestFile(dir.filePath(ManifestFileName));
    d->hasManifest = manifestFile.exists();
    if (d->hasManifest) {
        QByteArray text;
        if (!manifestFile.open(QIODevice::ReadOnly)) {
            d->problems.append({ ManifestFileName, manifestFile.errorString() });
        } else if (manifestFile.size() > maximumManifestSize) {
            d->problems.append({ ManifestFileName, tr("too large for a manifest") });
        } else {
            text = manifestFile.readAll();
            if (manifestFile.error() != QFileDevice::NoError)
                d->problems.append({ ManifestFileName, manifestFile.errorString() });
            else
                d->manifest.Parse(text);
        }
        for (const QString& problem : d->manifest.Problems())
            d->problems.append({ ManifestFileName, problem });
    }

    QSet<QString> all = d->inFolder;
    for (auto it = d->manifest.Entries().constBegin(); it != d->manifest.Entries().constEnd(); ++it)
        all.insert(it.key());
    d->names = QStringList(all.begin(), all.end());
    std::sort(d->names.begin(), d->names.end());
}

NodeToolBackupCheck::~NodeToolBackupCheck() = default;

bool NodeToolBackupCheck::CheckNext(QString* fileName, QByteArray* bytes, bool* intact)
{
    if (bytes)
        bytes->clear();
    if (intact)
        *intact = false;
    if (IsDone())
        return false;
    const QString name = d->names.at(d->checked++);
    if (fileName)
        *fileName = name;

    auto problem = [this, &name](const QString& reason) {
        d->problems.append({ name, reason });
        return true;
    };
    const auto entry = d->manifest.Entries().constFind(name);
    const bool listed = entry != d->manifest.Entries().constEnd();
    if (!d->inFolder.contains(name))
        return problem(tr("missing"));

    QFile file(QDir(d->folder).filePath(name));
    if (!file.open(QIODevice::ReadOnly))
        return problem(file.errorString());
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return problem(file.errorString());
    if (d->hasManifest) {
        if (!listed)
            return problem(tr("not in the manifest"));
        if (content.size() != entry->size)
            return problem(tr("%1 bytes instead of %2").arg(content.size()).arg(entry->size));
        if (Sha256::Hash(content) != entry->sha256)
            return problem(tr("its content changed since the backup"));
    }
    if (intact)
        *intact = true;
    if (bytes)
        bytes->swap(content);
    return true;
}

void NodeToolBackupCheck::CheckAll()
{
    while (CheckNext()) { }
}

int NodeToolBackupCheck::GetFileCount() const
{
    return d->names.size();
}

int NodeToolBackupCheck::GetFilesChecked() const
{
    return d->checked;
}

NodeToolBackupCheck::State NodeToolBackupCheck::GetState() const
{
    if (!d->problems.isEmpty())
        return State::Damaged;
    if (!IsDone())
        return State::Pending;
    return d->hasManifest ? State::Intact : State::NoManifest;
}

const QList<NodeToolBackupCheck::Problem>& NodeToolBackupCheck::GetProblems() const
{
    return d->problems;
}
