// Times the link check of a generated project against the two ways to the
// same facts without it, in the same run: find over the search folder, and
// one existence test per distinct target. Absolute figures depend on the
// machine and its file system; the ratios are what to compare.

#include "BestOf.h"

#include <nodetools/LinkCheck.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>

#include <sys/resource.h>

namespace {

QString targetName(int target)
{
    return QStringLiteral("Dokument_%1.pdf").arg(target, 6, 10, QLatin1Char('0'));
}

bool touch(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly);
}

long maxRssKb()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("The link check against find and a look-up per target"));
    parser.addHelpOption();
    const QCommandLineOption filesOption(
        QStringLiteral("files"), QStringLiteral("Annotation files."), QStringLiteral("n"), QStringLiteral("30000"));
    const QCommandLineOption targetsOption(QStringLiteral("targets"), QStringLiteral("Distinct link targets."),
        QStringLiteral("n"), QStringLiteral("100000"));
    const QCommandLineOption foldersOption(QStringLiteral("folders"), QStringLiteral("Folders the targets lie in."),
        QStringLiteral("n"), QStringLiteral("5000"));
    const QCommandLineOption roundsOption(QStringLiteral("rounds"), QStringLiteral("Timed runs of each step (best)."),
        QStringLiteral("n"), QStringLiteral("3"));
    const QCommandLineOption dirOption(
        QStringLiteral("dir"), QStringLiteral("Work here instead of a temporary folder."), QStringLiteral("DIR"));
    parser.addOptions({ filesOption, targetsOption, foldersOption, roundsOption, dirOption });
    parser.process(app);
    const int files = parser.value(filesOption).toInt();
    const int targets = parser.value(targetsOption).toInt();
    const int folders = std::max(1, parser.value(foldersOption).toInt());
    const int rounds = std::max(1, parser.value(roundsOption).toInt());

    QTemporaryDir temporary(parser.isSet(dirOption)
            ? parser.value(dirOption) + QStringLiteral("/kamo-bench-links-XXXXXX")
            : QDir::tempPath() + QStringLiteral("/kamo-bench-links-XXXXXX"));
    const QString root = temporary.path();
    const QString documents = root + QStringLiteral("/dokumente");
    const QString search = root + QStringLiteral("/neu");
    const QString data = root + QStringLiteral("/projekt/Daten");

    // Every tenth target moved into the search folder, the rest in place.
    int moved = 0;
    for (int f = 0; f < folders; ++f)
        QDir().mkpath(QStringLiteral("%1/ordner_%2").arg(documents).arg(f));
    for (int f = 0; f < folders / 10 + 1; ++f)
        QDir().mkpath(QStringLiteral("%1/ordner_%2").arg(search).arg(f));
    QDir().mkpath(data);
    for (int t = 0; t < targets; ++t) {
        const int folder = t % folders;
        const bool isMoved = t % 10 == 3;
        const QString path = isMoved ? QStringLiteral("%1/ordner_%2/%3").arg(search).arg(folder / 10).arg(targetName(t))
                                     : QStringLiteral("%1/ordner_%2/%3").arg(documents).arg(folder).arg(targetName(t));
        if (!touch(path)) {
            std::fprintf(stderr, "cannot create %s\n", qPrintable(path));
            return 1;
        }
        moved += isMoved;
    }
    // Each annotation file links ten targets, so every target has links
    // from several files.
    const int linksPerFile = 10;
    QStringList paths;
    for (int t = 0; t < targets; ++t)
        paths.append(QStringLiteral("%1/ordner_%2/%3").arg(documents).arg(t % folders).arg(targetName(t)));
    for (int f = 0; f < files; ++f) {
        QFile file(QStringLiteral("%1/Plan_%2.ann").arg(data).arg(f, 5, 10, QLatin1Char('0')));
        if (!file.open(QIODevice::WriteOnly))
            return 1;
        QByteArray text = "ANN=2\r\n";
        for (int j = 0; j < linksPerFile; ++j) {
            const QString& target = paths.at((f * linksPerFile + j) % targets);
            text += "BO\r\nID=" + QByteArray::number(j + 1) + "\r\nHREF=0\x11" + target.toUtf8()
                + "\x11"
                  "1\r\nEO\r\n";
        }
        file.write(text);
    }

    std::printf("project: %d annotation files, %d links, %d targets in %d folders, %d moved\n", files,
        files * linksPerFile, targets, folders, moved);
    std::printf("%-44s %9s %7s\n", "what", "ms", "/check");

    LinkCheck check;
    check.SetProjectRootDir(root + QStringLiteral("/projekt"));
    check.SetAllAnnotationFiles(true);
    const double checkMs = BestOf(rounds, [&] { check.Execute(); });
    const bool foundAll
        = check.MissingCount() == moved && check.Targets().size() == std::min(targets, files * linksPerFile);
    const long rssAfterCheck = maxRssKb();

    check.SetSearchDirs({ search });
    const double proposeMs = BestOf(rounds, [&] { check.Execute(); });
    const bool proposedAll = check.ProposedCount() == moved;

    QStringList targetPaths;
    for (const LinkTarget& target : check.Targets())
        targetPaths.append(target.Path());
    int existing = 0;
    const double perTargetMs = BestOf(rounds, [&] {
        existing = 0;
        for (const QString& path : qAsConst(targetPaths))
            existing += QFileInfo::exists(path);
    });
    QSet<QString> folderSet;
    for (const QString& path : qAsConst(targetPaths))
        folderSet.insert(QFileInfo(path).path());
    int listed = 0;
    const double perFolderMs = BestOf(rounds, [&] {
        listed = 0;
        for (const QString& folder : qAsConst(folderSet))
            listed += QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size();
    });
    qint64 found = 0;
    const double findMs = BestOf(rounds, [&] {
        QProcess find;
        find.start(QStringLiteral("find"), { search, QStringLiteral("-type"), QStringLiteral("f") });
        find.waitForFinished(-1);
        found = find.readAllStandardOutput().count('\n');
    });

    const auto row = [&](const char* what, double ms) { std::printf("%-44s %9.1f %7.2f\n", what, ms, ms / checkMs); };
    row("check (read links, list each folder once)", checkMs);
    row("check + proposal", proposeMs);
    row("existence test per target (reference)", perTargetMs);
    row("listing each folder once (the check's part)", perFolderMs);
    row("find over the search folder (reference)", findMs);
    // On a network share every look-up is a round trip to the server.
    std::printf("file-system calls: %lld per target, %lld folder listings\n", qlonglong(targetPaths.size()),
        qlonglong(folderSet.size()));
    std::printf("max RSS: %ld KB after the check, %ld KB at the end\n", rssAfterCheck, maxRssKb());
    const bool checked
        = foundAll && proposedAll && existing == targets - moved && found == moved && listed == targets - moved;
    std::printf("checked: %s\n", checked ? "yes" : "NO");
    return checked ? 0 : 1;
}
