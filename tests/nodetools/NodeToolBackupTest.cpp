#include "SmallDisk.h"
#include "TestProject.h"

#include <nodetools/NodeToolBackup.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QTest>
#include <QThread>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

NodeToolBackup backupOf(const TestProject& project, const QString& logText)
{
    NodeToolBackup backup;
    backup.projectRootDir = project.Root();
    backup.logText = logText;
    return backup;
}

// The manifest as its documented form reads, with digests made by Qt.
QByteArray manifestOf(const QList<QPair<QString, QByteArray>>& files)
{
    QByteArray text = "KAMO-BACKUP-MANIFEST 1\n";
    for (const auto& file : files)
        text += QCryptographicHash::hash(file.second, QCryptographicHash::Sha256).toHex() + ' '
            + QByteArray::number(file.second.size()) + ' ' + file.first.toUtf8() + '\n';
    return text + "END " + QByteArray::number(files.size()) + '\n';
}

QStringList backupFolders(const TestProject& project)
{
    return QDir(project.DataPath("ann_sic")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

QStringList problemLines(const QList<NodeToolBackupCheck::Problem>& problems)
{
    QStringList lines;
    for (const NodeToolBackupCheck::Problem& problem : problems)
        lines.append(problem.fileName + ": " + problem.reason);
    return lines;
}

} // namespace

class NodeToolBackupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copiesAnnotationFilesWithManifestAndLog();
    void failsWithoutUsableProject_data();
    void failsWithoutUsableProject();
    void failedCopyFailsTheBackupAndRemovesIt_data();
    void failedCopyFailsTheBackupAndRemovesIt();
    void killedBackupIsNeverTakenForAWholeOne();
    void secondBackupInSameSecondSharesFolderAndOverwritesLogStart();
    void restoreChecksEveryFileBeforeWriting_data();
    void restoreChecksEveryFileBeforeWriting();
    void listShowsEveryFolderNewestFirstDamagedOnesToo();
};

void NodeToolBackupTest::copiesAnnotationFilesWithManifestAndLog()
{
    TestProject project;
    project.Write("Übersicht.ann", "B");
    project.Write("a b.ann", "");
    project.Write("Lageplan.pdf", "PDF");
    project.Write(".Übersicht.ann.kamo-ab12cd", "left by a killed run");
    QVERIFY(QDir(project.DataDir()).mkdir("unter"));
    project.Write("unter/c.ann", "C");

    NodeToolBackup backup = backupOf(project, "Node Tool Operation: 1\nSource: x\nUser: mmeier");
    backup.projectRootDir += "/./";
    const QDateTime before = QDateTime::currentDateTime();
    QVERIFY(backup.Create());

    const QString folder = backup.GetBackupFolder();
    QCOMPARE(QFileInfo(folder).dir().path(), project.DataPath("ann_sic"));
    const QDateTime stamp = QDateTime::fromString(QFileInfo(folder).fileName(), "dd.MM.yyyy hh.mm.ss");
    QVERIFY(stamp.isValid() && qAbs(stamp.secsTo(before)) <= 2);
    QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
        (QStringList { "a b.ann", "nodeToolOperation.log", "nodeToolOperation.manifest", "Übersicht.ann" }));
    const QString inData = QDir(project.DataDir()).relativeFilePath(folder);
    QCOMPARE(project.Read(inData + "/Übersicht.ann"), QByteArray("B"));
    QCOMPARE(project.Read(inData + "/nodeToolOperation.log"),
        QByteArray("Node Tool Operation: 1\nSource: x\nUser: mmeier\n"));
    QCOMPARE(project.Read(inData + "/nodeToolOperation.manifest"),
        manifestOf({ { "a b.ann", "" }, { "Übersicht.ann", "B" } }));
}

void NodeToolBackupTest::failsWithoutUsableProject_data()
{
    QTest::addColumn<QString>("situation");
    QTest::newRow("empty root") << "empty";
    QTest::newRow("no data folder") << "nodata";
    QTest::newRow("backup folder cannot be created") << "blocked";
}

void NodeToolBackupTest::failsWithoutUsableProject()
{
    QFETCH(QString, situation);
    TestProject project;
    NodeToolBackup backup = backupOf(project, "log");
    if (situation == "empty")
        backup.projectRootDir.clear();
    else if (situation == "nodata")
        QVERIFY(QDir(project.DataDir()).removeRecursively());
    else
        project.Write("ann_sic", "a file where the folder should go");
    QVERIFY(!backup.Create());
    QVERIFY(!backup.ErrorString().isEmpty());
    QVERIFY(backup.GetBackupFolder().isEmpty());
}

void NodeToolBackupTest::failedCopyFailsTheBackupAndRemovesIt_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("reason");
    QTest::newRow("full disk") << "disk"
                               << "No space left on device";
    QTest::newRow("file-size limit") << "limit"
                                     << "File too large";
    QTest::newRow("read error") << "read"
                                << "Input/output error";
}

// Before, a failed copy was ignored: the run went on and rewrote files of
// which the backup held no copy.
void NodeToolBackupTest::failedCopyFailsTheBackupAndRemovesIt()
{
    QFETCH(QString, fault);
    QFETCH(QString, reason);
    SmallDisk disk(384);
    if (fault == "disk" && !disk.Mounted())
        QSKIP(qPrintable(disk.Why()));
    if (fault == "read" && !QFileInfo::exists("/proc/self/mem"))
        QSKIP("no /proc here to read a failing file from");
    TestProject project(fault == "disk" ? disk.Path() : QString());
    const QByteArray content(40 * 1024, 'x');
    for (int i = 0; i < 8; ++i)
        project.Write(QString("d%1.ann").arg(i), content);
    if (fault == "read") // reading one's own memory from its start fails
        QVERIFY(QFile::link("/proc/self/mem", project.DataPath("d8.ann")));

    NodeToolBackup backup = backupOf(project, "log");
    if (fault == "limit") {
        const pid_t child = fork();
        QVERIFY(child >= 0);
        if (child == 0) {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit fileSize { 16 * 1024, 16 * 1024 };
            setrlimit(RLIMIT_FSIZE, &fileSize);
            const bool created = backup.Create();
            _exit(!created && backup.ErrorString().contains(reason) ? 0 : 1);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    } else {
        QVERIFY(!backup.Create());
        QVERIFY2(backup.ErrorString().contains(reason), qPrintable(backup.ErrorString()));
        QCOMPARE(backup.GetProblems().constFirst().reason, reason);
    }
    QCOMPARE(backupFolders(project), QStringList());
    QCOMPARE(project.Read("d0.ann"), content);
}

// Killed at any moment, a backup is whole and checks as such, or it checks
// as damaged; before, a half-copied backup looked like any other.
void NodeToolBackupTest::killedBackupIsNeverTakenForAWholeOne()
{
    TestProject project;
    const int count = 3000;
    for (int i = 0; i < count; ++i)
        project.Write(QString("d%1.ann").arg(i), QByteArray(200, 'x'));
    for (const int delay : { 1, 5, 20, 60, 200 }) {
        const pid_t child = fork();
        QVERIFY(child >= 0);
        if (child == 0) {
            NodeToolBackup backup = backupOf(project, "log");
            _exit(backup.Create() ? 0 : 1);
        }
        QThread::msleep(unsigned(delay));
        kill(child, SIGKILL);
        QCOMPARE(waitpid(child, nullptr, 0), child);
        for (const QString& stamp : backupFolders(project)) {
            NodeToolBackupCheck check(NodeToolBackup::BackupFolder(project.Root(), stamp));
            check.CheckAll();
            // Killed before the first copy: an empty folder, nothing to restore.
            const bool empty = check.GetState() == NodeToolBackupCheck::State::NoManifest && check.GetFileCount() == 0;
            QVERIFY2(check.GetState() == NodeToolBackupCheck::State::Damaged || empty
                    || (check.GetState() == NodeToolBackupCheck::State::Intact && check.GetFileCount() == count),
                qPrintable(QString("killed after %1 ms").arg(delay)));
        }
        QVERIFY(QDir(project.DataPath("ann_sic")).removeRecursively());
    }
}

void NodeToolBackupTest::secondBackupInSameSecondSharesFolderAndOverwritesLogStart()
{
    for (int attempt = 0; attempt < 5; ++attempt) {
        TestProject project;
        project.Write("a.ann", "vorher");
        QThread::msleep(unsigned(1020 - QTime::currentTime().msec())); // the start of a second
        NodeToolBackup first = backupOf(project, "first run, a long line");
        QVERIFY(first.Create());
        project.Write("a.ann", "nachher");
        project.Write("b.ann", "neu");
        NodeToolBackup second = backupOf(project, "second");
        QVERIFY(second.Create());
        if (first.GetBackupFolder() != second.GetBackupFolder())
            continue; // crossed into the next second after all

        const QString inData = QDir(project.DataDir()).relativeFilePath(first.GetBackupFolder());
        QCOMPARE(project.Read(inData + "/a.ann"), QByteArray("vorher"));
        QCOMPARE(project.Read(inData + "/nodeToolOperation.log"), QByteArray("second\nun, a long line\n"));
        QCOMPARE(project.Read(inData + "/nodeToolOperation.manifest"),
            manifestOf({ { "a.ann", "vorher" }, { "b.ann", "neu" } }));
        return;
    }
    QFAIL("could not get two backups into one second");
}

void NodeToolBackupTest::restoreChecksEveryFileBeforeWriting_data()
{
    QTest::addColumn<QString>("damage");
    QTest::addColumn<QStringList>("problems");
    QTest::addColumn<QStringList>("restoredAnyway"); // when the damaged files are skipped
    QTest::newRow("none") << "" << QStringList() << QStringList { "a.ann", "b.ann" };
    QTest::newRow("truncated") << "truncate" << QStringList { "a.ann: 1000 bytes instead of 4000" }
                               << QStringList { "b.ann" };
    QTest::newRow("changed") << "change" << QStringList { "a.ann: its content changed since the backup" }
                             << QStringList { "b.ann" };
    QTest::newRow("missing") << "remove" << QStringList { "a.ann: missing" } << QStringList { "b.ann" };
    QTest::newRow("added") << "add" << QStringList { "x.ann: not in the manifest" } << QStringList { "a.ann", "b.ann" };
    QTest::newRow("killed while backing up") << "unfinished"
                                             << QStringList { "nodeToolOperation.manifest: the backup was not finished",
                                                    "a.ann: not in the manifest", "b.ann: not in the manifest" }
                                             << QStringList();
    QTest::newRow("no manifest (older version)") << "unchecked" << QStringList() << QStringList { "a.ann", "b.ann" };
}

void NodeToolBackupTest::restoreChecksEveryFileBeforeWriting()
{
    QFETCH(QString, damage);
    QFETCH(QStringList, problems);
    QFETCH(QStringList, restoredAnyway);
    TestProject project;
    const QByteArray a(4000, 'a');
    project.Write("a.ann", a);
    project.Write("b.ann", "B");
    NodeToolBackup made = backupOf(project, "log");
    QVERIFY(made.Create());
    // Far from now: the restore need not wait for the next second.
    const QString stamp = "01.01.2020 10.00.00";
    QVERIFY(QDir().rename(made.GetBackupFolder(), project.DataPath("ann_sic/" + stamp)));
    project.Write("a.ann", "nachher");
    project.Write("b.ann", "nachher");

    const QString folder = "ann_sic/" + stamp + "/";
    if (damage == "truncate")
        QVERIFY(QFile::resize(project.DataPath(folder + "a.ann"), 1000));
    else if (damage == "change")
        project.Write(folder + "a.ann", QByteArray(4000, 'b'));
    else if (damage == "remove")
        QVERIFY(QFile::remove(project.DataPath(folder + "a.ann")));
    else if (damage == "add")
        project.Write(folder + "x.ann", "X");
    else if (damage == "unfinished")
        project.Write(folder + "nodeToolOperation.manifest", "KAMO-BACKUP-MANIFEST 1\n");
    else if (damage == "unchecked")
        QVERIFY(QFile::remove(project.DataPath(folder + "nodeToolOperation.manifest")));

    NodeToolBackup restore = backupOf(project, "restore");
    QStringList restored;
    QCOMPARE(restore.Restore(stamp, &restored), problems.isEmpty());
    QCOMPARE(problemLines(restore.GetProblems()), problems);
    QCOMPARE(restore.WasChecked(), damage != "unchecked");
    if (!problems.isEmpty()) {
        QCOMPARE(project.Read("a.ann"), QByteArray("nachher"));
        QCOMPARE(backupFolders(project), QStringList { stamp });
        QVERIFY(restore.Restore(stamp, &restored, true));
        QCOMPARE(problemLines(restore.GetProblems()), problems);
    }
    QCOMPARE(restored, restoredAnyway);
    QCOMPARE(project.Read("a.ann"), restoredAnyway.contains("a.ann") ? a : QByteArray("nachher"));
    QCOMPARE(project.Read("b.ann"), restoredAnyway.contains("b.ann") ? QByteArray("B") : QByteArray("nachher"));
}

void NodeToolBackupTest::listShowsEveryFolderNewestFirstDamagedOnesToo()
{
    TestProject project;
    project.Write("a.ann", "A");
    NodeToolBackup latest = backupOf(project, "Node Tool Operation: 5\nSource: C:\\Projekt\nUser: mmeier");
    QVERIFY(latest.Create());
    QVERIFY(QDir(project.DataDir()).mkpath("ann_sic/01.01.2020 10.00.00"));
    QVERIFY(QDir(project.DataDir()).mkpath("ann_sic/04.04.2022 10.00.00"));
    project.Write("ann_sic/01.01.2020 10.00.00/a.ann", "old");
    project.Write("ann_sic/01.01.2020 10.00.00/b.ann", "old");
    project.Write("ann_sic/01.01.2020 10.00.00/nodeToolOperation.log",
        "Node Tool Operation: restore 31.12.2019 09.00.00\r\nSource: /p\r\nUser: root\r\n");
    QVERIFY(QDir(project.DataDir()).mkpath("ann_sic/kaputt"));
    QVERIFY(QDir(project.DataDir()).mkpath("ann_sic/03.03.2021 10.00.00/nodeToolOperation.log"));
    project.Write("ann_sic/04.04.2022 10.00.00/nodeToolOperation.log", QByteArray("\xFF\x00\x01Node", 7));
    project.Write("ann_sic/02.02.2021 10.00.00", "a file where a backup should be");
    project.Write("ann_sic/stray.txt", "not a backup");

    const QList<NodeToolBackupInfo> list = NodeToolBackup::List(project.Root());
    QStringList stamps;
    for (const NodeToolBackupInfo& info : list)
        stamps.append(info.stamp);
    QCOMPARE(stamps,
        (QStringList { QFileInfo(latest.GetBackupFolder()).fileName(), "04.04.2022 10.00.00", "03.03.2021 10.00.00",
            "02.02.2021 10.00.00", "01.01.2020 10.00.00", "kaputt" }));

    QCOMPARE(list.at(0).operation, "5");
    QCOMPARE(list.at(0).source, "C:\\Projekt");
    QCOMPARE(list.at(0).user, "mmeier");
    QCOMPARE(list.at(0).fileCount, 1);
    QVERIFY(list.at(1).logRead && list.at(1).operation.isEmpty());
    QVERIFY(!list.at(2).logRead);
    QVERIFY(!list.at(3).isFolder && list.at(2).isFolder);
    QCOMPARE(list.at(4).operation, "restore 31.12.2019 09.00.00");
    QCOMPARE(list.at(4).user, "root");
    QCOMPARE(list.at(4).fileCount, 2);
    QVERIFY(!list.at(5).time.isValid() && !list.at(5).logRead);
    QVERIFY(NodeToolBackup::List(project.Root() + "/nowhere").isEmpty());

    NodeToolBackupCheck file(NodeToolBackup::BackupFolder(project.Root(), "02.02.2021 10.00.00"));
    QCOMPARE(file.GetState(), NodeToolBackupCheck::State::Damaged);
}

QTEST_GUILESS_MAIN(NodeToolBackupTest)
#include "NodeToolBackupTest.moc"
