#include "TestProject.h"

#include <nodetools/NodeToolBackup.h>

#include <QDateTime>
#include <QDir>
#include <QTest>
#include <QThread>

namespace {

NodeToolBackup backupOf(const TestProject& project, const QString& logText)
{
    NodeToolBackup backup;
    backup.projectRootDir = project.Root();
    backup.logText = logText;
    return backup;
}

} // namespace

class NodeToolBackupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copiesAnnotationFilesIntoTimeStampedFolderWithLog();
    void failsWithoutUsableProject_data();
    void failsWithoutUsableProject();
    void secondBackupInSameSecondSharesFolderAndOverwritesLogStart();
    void listShowsEveryFolderNewestFirstDamagedOnesToo();
};

void NodeToolBackupTest::copiesAnnotationFilesIntoTimeStampedFolderWithLog()
{
    TestProject project;
    project.Write("Übersicht.ann", "B");
    project.Write("Lageplan.pdf", "PDF");
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
    QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
        (QStringList { "nodeToolOperation.log", "Übersicht.ann" }));
    const QString inData = QDir(project.DataDir()).relativeFilePath(folder);
    QCOMPARE(project.Read(inData + "/Übersicht.ann"), QByteArray("B"));
    QCOMPARE(project.Read(inData + "/nodeToolOperation.log"),
        QByteArray("Node Tool Operation: 1\nSource: x\nUser: mmeier\n"));
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
    QVERIFY(backup.GetBackupFolder().isEmpty());
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
        NodeToolBackup second = backupOf(project, "second");
        QVERIFY(second.Create());
        if (first.GetBackupFolder() != second.GetBackupFolder())
            continue; // crossed into the next second after all

        const QString inData = QDir(project.DataDir()).relativeFilePath(first.GetBackupFolder());
        QCOMPARE(project.Read(inData + "/a.ann"), QByteArray("vorher"));
        QCOMPARE(project.Read(inData + "/nodeToolOperation.log"), QByteArray("second\nun, a long line\n"));
        return;
    }
    QFAIL("could not get two backups into one second");
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
    project.Write("ann_sic/stray.txt", "not a backup");

    const QList<NodeToolBackupInfo> list = NodeToolBackup::List(project.Root());
    QStringList stamps;
    for (const NodeToolBackupInfo& info : list)
        stamps.append(info.stamp);
    QCOMPARE(stamps,
        (QStringList { QFileInfo(latest.GetBackupFolder()).fileName(), "04.04.2022 10.00.00", "03.03.2021 10.00.00",
            "01.01.2020 10.00.00", "kaputt" }));

    QCOMPARE(list.at(0).operation, "5");
    QCOMPARE(list.at(0).source, "C:\\Projekt");
    QCOMPARE(list.at(0).user, "mmeier");
    QCOMPARE(list.at(0).fileCount, 1);
    QVERIFY(list.at(1).logRead && list.at(1).operation.isEmpty());
    QVERIFY(!list.at(2).logRead);
    QCOMPARE(list.at(3).operation, "restore 31.12.2019 09.00.00");
    QCOMPARE(list.at(3).user, "root");
    QCOMPARE(list.at(3).fileCount, 2);
    QVERIFY(!list.at(4).time.isValid() && !list.at(4).logRead);
    QVERIFY(NodeToolBackup::List(project.Root() + "/nowhere").isEmpty());
}

QTEST_GUILESS_MAIN(NodeToolBackupTest)
#include "NodeToolBackupTest.moc"
