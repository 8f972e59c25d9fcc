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

QTEST_GUILESS_MAIN(NodeToolBackupTest)
#include "NodeToolBackupTest.moc"
