#include "nodetools/LinkCheck.h"

#include "nodetools/AnnotationFileIO.h"
#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/AnnotationLine.h"
#include "nodetools/LocaleTextStream.h"
#include "nodetools/ObjectBlockProcessor.h"
#include "nodetools/ProgressCallback.h"
#include "nodetools/ProjectFileIndex.h"

#include <Kamo_view/AnnHelperBase.h>
#include <Kamo_view/TargetInfo.h>

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QSaveFile>
#include <QSet>
#include <QTextStream>

#include <algorithm>
#include <functional>

namespace {

#ifdef Q_OS_WIN
constexpr bool onWindows = true;
#else
constexpr bool onWindows = false;
#endif

// Web, node and mail links lead elsewhere than to a file.
bool isDocumentLink(const TargetInfo& target)
{
    const QString type = target.GetField(TargetInfo::TypeField);
    return type.isEmpty() || type == QLatin1String("0");
}

// Reads the links of each block and hands their document paths on; the
// blocks stay as they are, so the file loop never writes.
class LinkCollector : public ObjectBlockProcessor
{
public:
    using Sink = std::function<void(const QString& annotationFile, const QString& path)>;

    explicit LinkCollector(Sink sink)
        : sink(std::move(sink))
    { }

    void BeginFile(const QString& path) override { file = path; }

    void ProcessBlock(const QStringList& block, QStringList& result) override
    {
        result.append(block);
        for (const QString& line : block) {
            if (!AnnotationLine::HasKey(line, AnnotationLine::HrefKey))
                continue;
            QString value = AnnotationLine::Value(line);
            AnnHelperBase::ParseLink(targets, value);
            for (const TargetInfo& target : qAsConst(targets)) {
                if (!isDocumentLink(target))
                    continue;
                for (int zone = 0; zone < target.ZoneCount(); ++zone) {
                    const QString& path = target.Zone(zone).Path();
                    if (!path.isEmpty())
                        sink(file, path);
                }
            }
        }
    }

private:
    Sink sink;
    QString file;
    QList<TargetInfo> targets;
};

// A path as this system's file functions take it, and the key under which
// two spellings of it are the same file: Windows paths ignore case (in the
// way operation 5 compares them).
QString systemPath(const QString& path)
{
    return onWindows ? QDir::fromNativeSeparators(path) : path;
}

QString sameFileKey(const QString& path)
{
    return LinkCheck::IsWindowsPath(path) ? path.toLower() : path;
}

bool mapCannotHold(const QString& path)
{
    return path.contains(QLatin1Char(',')) || path.contains(QLatin1Char('\n')) || path.contains(QLatin1Char('\r'));
}

} // namespace

struct LinkCheck::Private {
    QString projectRootDir;
    QStringList fileNames;
    bool allAnnotationFiles = false;
    QStringList searchDirs;
    ProgressCallback* progressCallback = nullptr;

    QList<LinkTarget> targets;
    int linkCount = 0;
    QStringList warnings;
};

LinkCheck::LinkCheck()
    : d(new Private)
{ }

LinkCheck::~LinkCheck() = default;

void LinkCheck::SetProjectRootDir(const QString& dir)
{
    d->projectRootDir = dir;
}

void LinkCheck::SetFileNames(const QStringList& names)
{
    d->fileNames = names;
}

void LinkCheck::SetAllAnnotationFiles(bool all)
{
    d->allAnnotationFiles = all;
}

void LinkCheck::SetSearchDirs(const QStringList& dirs)
{
    d->searchDirs = dirs;
}

void LinkCheck::SetProgressCallback(ProgressCallback* callback)
{
    d->progressCallback = callback;
}

bool LinkCheck::IsWindowsPath(const QString& path)
{
    const bool drive = path.size() >= 3 && path.at(0).isLetter() && path.at(0).unicode() < 128
        && path.at(1) == QLatin1Char(':') && (path.at(2) == QLatin1Char('\\') || path.at(2) == QLatin1Char('/'));
    return drive || path.startsWith(QLatin1String("\\\\"));
}

// The files as the node tools choose them, but opened for reading only: a
// check must not skip a file that the user may read but not write. A file
// that is not valid UTF-8 would give its paths garbled, so it is left out
// and named.
void LinkCheck::readLinks(ObjectBlockProcessor& collector)
{
    d->warnings.clear();
    const QString dataDir = AnnotationFileProcessor::DataDirectory(d->projectRootDir);
    if (!QFileInfo(dataDir).isDir())
        return;
    QStringList paths;
    if (d->allAnnotationFiles) {
        const QStringList names = QDir(dataDir).entryList(
            { QLatin1Char('*') + AnnotationFileProcessor::AnnotationExtension }, QDir::Files, QDir::Name);
        for (const QString& name : names)
            paths.append(dataDir + QLatin1Char('/') + name);
    } else {
        for (const QString& name : qAsConst(d->fileNames)) {
            const QString path = AnnotationFileProcessor::AnnotationFilePath(dataDir, name);
            // Documents nobody annotated yet have no file; nothing to check.
            if (QFileInfo::exists(path) && !paths.contains(path))
                paths.append(path);
        }
    }
    for (int i = 0; i < paths.size(); ++i) {
        const QString& path = paths.at(i);
        if (d->progressCallback)
            d->progressCallback->Progress(path, i + 1, paths.size());
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            d->warnings.append(
                QCoreApplication::translate("LinkCheck", "%1: could not be read (%2)").arg(path, file.errorString()));
            continue;
        }
        AnnotationFileIO::DecodedText decoded = AnnotationFileIO::DecodeText(file.readAll());
        if (file.error() != QFileDevice::NoError) {
            d->warnings.append(
                QCoreApplication::translate("LinkCheck", "%1: could not be read (%2)").arg(path, file.errorString()));
            continue;
        }
        if (!decoded.validUtf8) {
            d->warnings.append(
                QCoreApplication::translate("LinkCheck", "%1: not valid UTF-8, its links not checked").arg(path));
            continue;
        }
        collector.BeginFile(path);
        AnnotationFileProcessor::ProcessText(decoded.text, collector);
        collector.EndFile(path);
    }
}

void LinkCheck::Execute()
{
    d->targets.clear();
    d->linkCount = 0;
    QHash<QString, int> indexByKey;

    LinkCollector collector([this, &indexByKey](const QString& annotationFile, const QString& path) {
        const QString key = sameFileKey(path);
        auto found = indexByKey.constFind(key);
        if (found == indexByKey.constEnd()) {
            found = indexByKey.insert(key, d->targets.size());
            d->targets.append(LinkTarget());
            d->targets.last().path = path;
        }
        LinkTarget& target = d->targets[found.value()];
        ++target.links;
        // The files are read one after the other.
        if (target.annotationFiles.isEmpty() || target.annotationFiles.last() != annotationFile)
            target.annotationFiles.append(annotationFile);
        ++d->linkCount;
    });
    readLinks(collector);
    std::sort(
        d->targets.begin(), d->targets.end(), [](const LinkTarget& a, const LinkTarget& b) { return a.path < b.path; });

    // Each folder is listed once, however many targets lie in it.
    struct Folder {
        bool exists = false;
        QSet<QString> names;
    };
    QHash<QString, Folder> folders;
    for (LinkTarget& target : d->targets) {
        const bool windowsPath = IsWindowsPath(target.path);
        if (windowsPath && !onWindows) {
            target.state = LinkTarget::State::Foreign;
            continue;
        }
        if (!windowsPath && !target.path.startsWith(QLatin1Char('/'))) {
            target.state = LinkTarget::State::Relative;
            continue;
        }
        const QString path = systemPath(target.path);
        const int slash = path.lastIndexOf(QLatin1Char('/'));
        QString folderPath = path.left(std::max(slash, 1));
        if (folderPath.endsWith(QLatin1Char(':')))
            folderPath += QLatin1Char('/'); // "C:" alone is the current folder of drive C
        const QString name = path.mid(slash + 1);
        const QString folderKey = onWindows ? folderPath.toLower() : folderPath;
        auto folder = folders.find(folderKey);
        if (folder == folders.end()) {
            folder = folders.insert(folderKey, Folder());
            const QDir dir(folderPath);
            folder->exists = dir.exists();
            if (folder->exists) {
                const QStringList entries
                    = dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
                for (const QString& entry : entries)
                    folder->names.insert(onWindows ? entry.toLower() : entry);
            }
        }
        if (!folder->exists)
            target.state = LinkTarget::State::FolderMissing;
        else if (!name.isEmpty() && folder->names.contains(onWindows ? name.toLower() : name))
            target.state = LinkTarget::State::Exists;
        else
            target.state = LinkTarget::State::Missing;
    }

    if (d->searchDirs.isEmpty())
        return;
    // The names under the search folders, once: a missing target asks by its
    // own name, ignoring case.
    QHash<QString, QStringList> filesByName;
    for (const QString& searchDir : qAsConst(d->searchDirs)) {
        QDirIterator it(searchDir, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString file = it.next();
            filesByName[it.fileName().toCaseFolded()].append(QDir::toNativeSeparators(QDir::cleanPath(file)));
        }
    }
    for (LinkTarget& target : d->targets) {
        if (!target.IsMissing())
            continue;
        QStringList candidates = filesByName.value(ProjectFileIndex::FileNamePart(target.path).toCaseFolded());
        std::sort(candidates.begin(), candidates.end());
        candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
        target.candidates = candidates;
        if (candidates.isEmpty())
            target.proposal = LinkTarget::Proposal::Unresolved;
        else if (candidates.size() > 1)
            target.proposal = LinkTarget::Proposal::Ambiguous;
        else if (mapCannotHold(target.path) || mapCannotHold(candidates.first()))
            target.proposal = LinkTarget::Proposal::Unwritable;
        else
            target.proposal = LinkTarget::Proposal::Proposed;
    }
}

const QList<LinkTarget>& LinkCheck::Targets() const
{
    return d->targets;
}

int LinkCheck::LinkCount() const
{
    return d->linkCount;
}

namespace {

template <typename Predicate> int countOf(const QList<LinkTarget>& targets, Predicate predicate)
{
    return int(std::count_if(targets.cbegin(), targets.cend(), predicate));
}

} // namespace

int LinkCheck::MissingCount() const
{
    return countOf(d->targets, [](const LinkTarget& t) { return t.IsMissing(); });
}

int LinkCheck::ProposedCount() const
{
    return countOf(d->targets, [](const LinkTarget& t) { return t.GetProposal() == LinkTarget::Proposal::Proposed; });
}

int LinkCheck::AmbiguousCount() const
{
    return countOf(d->targets, [](const LinkTarget& t) { return t.GetProposal() == LinkTarget::Proposal::Ambiguous; });
}

int LinkCheck::UnresolvedCount() const
{
    return countOf(d->targets, [](const LinkTarget& t) {
        return t.GetProposal() == LinkTarget::Proposal::Unresolved
            || t.GetProposal() == LinkTarget::Proposal::Unwritable;
    });
}

const QStringList& LinkCheck::Warnings() const
{
    return d->warnings;
}

QString LinkCheck::MapFileText() const
{
    QString text;
    for (const LinkTarget& target : qAsConst(d->targets)) {
        if (target.GetProposal() == LinkTarget::Proposal::Proposed)
            text += target.Path() + QLatin1Char(',') + target.Candidates().first() + QLatin1String("\r\n");
    }
    return text;
}

bool LinkCheck::WriteMapFile(const QString& fileName, QString* error) const
{
    QSaveFile file(fileName);
    if (file.open(QIODevice::WriteOnly)) {
        QTextStream stream(&file);
        UseLocaleEncoding(stream);
        stream << MapFileText();
        stream.flush();
        if (stream.status() == QTextStream::Ok && file.commit())
            return true;
    }
    if (error)
        *error = file.errorString();
    return false;
}
