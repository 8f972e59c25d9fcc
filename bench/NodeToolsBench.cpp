// Times the block-based node tools on a generated project, next to sed and cp
// doing comparable work on the same files in the same run. Absolute figures
// depend on the machine and its I/O; only the ratios mean something.

#include <nodetools/ChangeHREFPathNT.h>
#include <nodetools/DuplicateHREFInAnnotationsNT.h>
#include <nodetools/NodeToolBackup.h>
#include <nodetools/RemoveHREFInAnnotationNT.h>

#include <QByteArrayList>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QSet>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

#include <unistd.h>

namespace {

constexpr int objectsPerFile = 40;

struct Project {
    QStringList names; // annotation files, in the order the tools visit them
    std::vector<QByteArray> contents;
    QMap<QString, QString> pathMap; // redirects the first link of every object
    qint64 totalBytes = 0;
};

const char* const shapes[] = { "RECT", "POLY", "PIN", "TEXT", "LINE" };
const char* const objectNames[]
    = { "Schacht Süd", "Übergabe", "Straßenablauf", "Schieber Nord", "Rohrbrücke", "Muffe" };
const char* const categories[] = { "Kanal", "Wasser", "Gas", "Strom" };
const char* const remarks[] = { "Deckel prüfen", "Höhe geändert", "neu", "Rückbau", "Lage unklar" };

QByteArray padded(int number, int width)
{
    return QByteArray::number(number).rightJustified(width, '0');
}

QByteArray linkPath(int project, int document, int link)
{
    return "C:\\Projekte\\P" + padded(project, 4) + "\\PDF\\D" + padded(document, 4) + '_' + QByteArray::number(link)
        + ".PDF";
}

// Only the fields a link drawn by hand usually carries are filled in: with
// dates, user names and an id every link is three times as long, and the
// files would be far bigger than those of real projects.
QByteArray hrefLine(const QByteArray& path, int page)
{
    std::array<QByteArray, 23> fields;
    fields[0] = "0";
    fields[1] = path;
    fields[2] = QByteArray::number(page);
    fields[4] = "1.0";
    fields[10] = "0";
    fields[11] = "0";
    fields[22] = "0";
    QByteArray line = "HREF=";
    for (size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            line += '\x11';
        line += fields[i];
    }
    return line;
}

// Deterministic, so that runs on different days and machines compare.
Project generateProject(int fileCount)
{
    Project project;
    QSet<QString> mappedPaths;
    for (int f = 0; f < fileCount; ++f) {
        const QByteArray name = "Plan_" + padded(f + 1, 5);
        QByteArrayList lines { "ANN=2", "DOC=" + name + ".pdf" };
        const int projectNumber = f % 40 + 1;
        for (int j = 0; j < objectsPerFile; ++j) {
            const int seed = f * objectsPerFile + j;
            lines << "BO"
                  << "ID=" + QByteArray::number(j + 1) << QByteArray("TY=") + shapes[seed % 5]
                  << "PG=" + QByteArray::number(1 + j % 4)
                  << "GEO=" + QByteArray::number(20 + seed * 37 % 380) + '.' + QByteArray::number(seed % 10) + ';'
                    + QByteArray::number(15 + seed * 53 % 260) + ';' + QByteArray::number(10 + seed % 60) + ';'
                    + QByteArray::number(8 + seed % 45)
                  << QByteArray("NA=") + objectNames[seed % 6] + ' ' + QByteArray::number(1 + seed % 97)
                  << QByteArray("KA=") + categories[j % 4] << QByteArray("TX=") + remarks[(f + j) % 5];
            const QByteArray first = linkPath(projectNumber, j + 1 + (f % 10) * objectsPerFile, 1);
            lines << hrefLine(first, 1 + j % 9)
                  << hrefLine(linkPath(projectNumber, seed * 13 % 9000 + 1, 2), 1 + (j + 1) % 9)
                  << hrefLine(linkPath(projectNumber, (seed * 29 + 7) % 9000 + 1, 3), 1 + (j + 2) % 9) << "EO";
            mappedPaths.insert(QString::fromLatin1(first));
        }
        project.names.append(QString::fromLatin1(name) + QStringLiteral(".ann"));
        project.contents.push_back(lines.join("\r\n"));
        project.totalBytes += project.contents.back().size();
    }
    for (const QString& path : qAsConst(mappedPaths)) {
        QString target = path;
        target.replace(QStringLiteral("\\PDF\\"), QStringLiteral("\\Archiv\\"));
        project.pathMap.insert(path.toLower(), target);
    }
    return project;
}

// Written from memory rather than copied on disk, so that every run starts
// from data that is in the page cache and not shared with another file.
bool writeProject(const QString& root, const Project& project)
{
    QDir(root).removeRecursively();
    const QString dataDir = root + QStringLiteral("/Daten");
    if (!QDir().mkpath(dataDir))
        return false;
    for (size_t i = 0; i < project.contents.size(); ++i) {
        QFile file(dataDir + QLatin1Char('/') + project.names.at(int(i)));
        if (!file.open(QIODevice::WriteOnly) || file.write(project.contents[i]) != project.contents[i].size())
            return false;
    }
    // Otherwise write-back of this copy lands in the measurement that follows.
    ::sync();
    return true;
}

QString runProcess(const QString& program, const QStringList& arguments, const QString& workingDir)
{
    QProcess process;
    process.setWorkingDirectory(workingDir);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, arguments);
    if (!process.waitForFinished(-1))
        return program + QStringLiteral(": ") + process.errorString();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return program + QStringLiteral(": exit code %1").arg(process.exitCode());
    return QString();
}

// Runs sed over the data folder like xargs would: as few processes as the
// argument size limit allows.
QString runSed(const QString& root, const QStringList& names)
{
    const long argMax = ::sysconf(_SC_ARG_MAX);
    const qint64 budget = argMax > 0 ? argMax / 2 : 128 * 1024;
    const QStringList script { QStringLiteral("-i"), QStringLiteral("/^HREF=/d") };
    QStringList arguments = script;
    qint64 used = 0;
    for (const QString& name : names) {
        const qint64 cost = name.toLocal8Bit().size() + 1 + qint64(sizeof(char*));
        if (used + cost > budget && arguments.size() > script.size()) {
            const QString problem = runProcess(QStringLiteral("sed"), arguments, root + QStringLiteral("/Daten"));
            if (!problem.isEmpty())
                return problem;
            arguments = script;
            used = 0;
        }
        arguments.append(name);
        used += cost;
    }
    return runProcess(QStringLiteral("sed"), arguments, root + QStringLiteral("/Daten"));
}

QString runTool(BlockNodeTool& tool, const QString& root, int fileCount)
{
    tool.SetProjectRootDir(root);
    tool.SetAllAnnotationFiles(true);
    tool.Execute();
    if (tool.GetFilesChanged() != fileCount)
        return QStringLiteral("changed %1 of %2 files").arg(tool.GetFilesChanged()).arg(fileCount);
    return QString();
}

struct Candidate {
    const char* name;
    std::function<QString(const QString& root)> run;
    std::vector<double> seconds {};
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

double best(const std::vector<double>& values)
{
    return *std::min_element(values.begin(), values.end());
}

// The first file whose bytes differ between the two data folders, or an empty
// string when all agree.
QString firstDifference(const QString& left, const QString& right, const QStringList& names)
{
    for (const QString& name : names) {
        QFile a(left + QStringLiteral("/Daten/") + name);
        QFile b(right + QStringLiteral("/Daten/") + name);
        if (!a.open(QIODevice::ReadOnly) || !b.open(QIODevice::ReadOnly) || a.readAll() != b.readAll())
            return name;
    }
    return QString();
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Times the node tools against sed and cp."));
    parser.addHelpOption();
    const QCommandLineOption filesOption(QStringLiteral("files"), QStringLiteral("Annotation files to generate."),
        QStringLiteral("N"), QStringLiteral("5000"));
    const QCommandLineOption roundsOption(
        QStringLiteral("rounds"), QStringLiteral("Measured rounds."), QStringLiteral("R"), QStringLiteral("5"));
    const QCommandLineOption dirOption(
        QStringLiteral("dir"), QStringLiteral("Work here instead of a temporary folder."), QStringLiteral("DIR"));
    parser.addOptions({ filesOption, roundsOption, dirOption });
    parser.process(app);

    bool filesOk = false;
    bool roundsOk = false;
    const int fileCount = parser.value(filesOption).toInt(&filesOk);
    const int rounds = parser.value(roundsOption).toInt(&roundsOk);
    if (!filesOk || !roundsOk || fileCount < 1 || rounds < 1) {
        err << "kamo-bench-nodetools: --files and --rounds take a positive number\n";
        return 2;
    }

    QTemporaryDir temporary;
    const QString base = parser.isSet(dirOption) ? QDir(parser.value(dirOption)).absolutePath() : temporary.path();
    if (!QDir().mkpath(base) || (!parser.isSet(dirOption) && !temporary.isValid())) {
        err << "kamo-bench-nodetools: cannot use " << base << "\n";
        return 1;
    }
    const QString runRoot = base + QStringLiteral("/run");
    const QString copyTarget = base + QStringLiteral("/cp-target");

    const Project project = generateProject(fileCount);
    const double megabytes = project.totalBytes / 1e6;
    out << "machine: " << QThread::idealThreadCount() << " cpus, Qt " << qVersion() << ", "
        << QStorageInfo(base).fileSystemType() << " at " << base << "\n"
        << "data:    " << fileCount << " files, " << QString::number(megabytes, 'f', 1) << " MB ("
        << project.totalBytes / fileCount << " bytes per file), " << project.pathMap.size() << " mapped paths, "
        << rounds << " rounds\n";
    out.flush();

    // Also warms up the library and both programs before anything is timed.
    const QString sedRoot = base + QStringLiteral("/check-sed");
    if (!writeProject(runRoot, project) || !writeProject(sedRoot, project)) {
        err << "kamo-bench-nodetools: cannot write the project under " << base << "\n";
        return 1;
    }
    RemoveHREFInAnnotationNT check;
    const QString engineProblem = runTool(check, runRoot, fileCount);
    const QString sedProblem = runSed(sedRoot, project.names);
    const QString different = firstDifference(runRoot, sedRoot, project.names);
    out << "identical: " << (different.isEmpty() && engineProblem.isEmpty() && sedProblem.isEmpty() ? "yes" : "no");
    if (!different.isEmpty())
        out << " (first difference in " << different << ")";
    out << "\n";
    QDir(sedRoot).removeRecursively();

    std::vector<Candidate> candidates {
        { "remove-href",
            [&](const QString& root) {
                RemoveHREFInAnnotationNT tool;
                return runTool(tool, root, fileCount);
            } },
        { "duplicate-href",
            [&](const QString& root) {
                DuplicateHREFInAnnotationsNT tool;
                tool.SetNewLinkTarget(QStringLiteral("C:\\Projekte\\Neu\\Ziel.pdf"));
                return runTool(tool, root, fileCount);
            } },
        { "map-href-paths",
            [&](const QString& root) {
                ChangeHREFPathNT tool;
                tool.SetPathMap(project.pathMap);
                return runTool(tool, root, fileCount);
            } },
        // What the dialog's preview runs: everything but the writing, with
        // the new contents kept for the comparison.
        { "preview remove",
            [&](const QString& root) {
                RemoveHREFInAnnotationNT tool;
                tool.SetDryRun(true);
                return runTool(tool, root, fileCount);
            } },
        { "sed -i", [&](const QString& root) { return runSed(root, project.names); } },
        // The run with its backup, beside what a careful user would do by
        // hand: copy the files aside, make sure they are on disk, edit.
        { "backup + remove",
            [&](const QString& root) {
                NodeToolBackup backup;
                backup.projectRootDir = root;
                backup.logText = QStringLiteral("Node Tool Operation: 1");
                if (!backup.Create())
                    return QStringLiteral("backup failed: ") + backup.ErrorString();
                RemoveHREFInAnnotationNT tool;
                return runTool(tool, root, fileCount);
            } },
        { "cp+sync+sed -i",
            [&](const QString& root) {
                const QString problem = runProcess(QStringLiteral("sh"),
                    { QStringLiteral("-c"),
                        QStringLiteral("mkdir -p ann_sic/copy && cp -p -- *.ann ann_sic/copy/ && sync") },
                    root + QStringLiteral("/Daten"));
                return problem.isEmpty() ? runSed(root, project.names) : problem;
            } },
        { "cp -r",
            [&](const QString& root) {
                return runProcess(
                    QStringLiteral("cp"), { QStringLiteral("-r"), root + QStringLiteral("/Daten"), copyTarget }, base);
            } },
    };

    // Each round starts with another candidate, so that none always follows
    // the same neighbour; slow phases of the disk then hit all of them alike.
    const int count = int(candidates.size());
    for (int round = 0; round < rounds; ++round) {
        for (int k = 0; k < count; ++k) {
            Candidate& candidate = candidates[size_t((round + k) % count)];
            QDir(copyTarget).removeRecursively();
            if (!writeProject(runRoot, project)) {
                err << "kamo-bench-nodetools: cannot write the project under " << base << "\n";
                return 1;
            }
            QElapsedTimer timer;
            timer.start();
            const QString problem = candidate.run(runRoot);
            candidate.seconds.push_back(timer.nsecsElapsed() / 1e9);
            if (!problem.isEmpty())
                out << "warning: " << candidate.name << ", round " << round + 1 << ": " << problem << "\n";
        }
        out << "round " << round + 1 << " of " << rounds << " done\n";
        out.flush();
    }
    QDir(copyTarget).removeRecursively();
    QDir(runRoot).removeRecursively();

    out << "\n"
        << QString::asprintf("%-16s %10s %10s %10s %10s   %s\n", "candidate", "median s", "best s", "MB/s med",
               "MB/s best", "all runs (s)");
    for (const Candidate& candidate : candidates) {
        const double med = median(candidate.seconds);
        QString runs;
        for (double s : candidate.seconds)
            runs += QString::asprintf(" %.3f", s);
        out << QString::asprintf("%-16s %10.3f %10.3f %10.1f %10.1f  ", candidate.name, med, best(candidate.seconds),
            megabytes / med, megabytes / best(candidate.seconds))
            << runs << "\n";
    }
    const auto ratio = [&out](const char* what, const Candidate& a, const Candidate& b, const char* goal) {
        out << QString::asprintf("%s: median %.2f, best %.2f (goal <= %s)\n", what,
            median(a.seconds) / median(b.seconds), best(a.seconds) / best(b.seconds), goal);
    };
    out << "\n";
    ratio("remove-href / sed -i", candidates[0], candidates[4], "1.0");
    ratio("preview remove / remove-href", candidates[3], candidates[0], "1.5");
    ratio("backup + remove / cp+sync+sed -i", candidates[5], candidates[6], "1.2");
    return 0;
}
