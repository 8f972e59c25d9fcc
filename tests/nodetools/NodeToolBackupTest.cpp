#include "TestProject.h"

#include <nodetools/NodeToolBackup.h>

#include <QDateTime>
#include <QDir>
#include <QRegularExpression>
#include <QTest>
#include <QThread>

namespace {

QStringList backupFolders(const TestProject& project)
{
    return QDir(project.DataPath(QStringLiteral("ann_sic"))).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// Waits for the start of a second, so that two backups fall into it.
void waitForFreshSecond()
{
    const QDateTime now = QDateTime::currentDateTime();
    QThread::msleep(unsigned(1000 - now.time().msec()) + 20);
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
    project.Write(QStringLiteral("a.ann"), "A");
    project.Write(QStringLiteral("Übersicht.ann"), "B");
    project.Write(QStringLiteral("Lageplan.pdf"), "PDF");
    QVERIFY(QDir(project.DataDir()).mkdir(QStringLiteral("unter")));
    project.Write(QStringLiteral("unter/c.ann"), "C");

    NodeToolBackup backup;
    backup.projectRootDir = project.Root() + QStringLiteral("/./");
    backup.logText = QStringLiteral("Node Tool Operation: 1\nSource: x\nUser: mmeier");
    const QDateTime before = QDateTime::currentDateTime();
    QVERIFY(backup.Create());

    const QStringList folders = backupFolders(project);
    QCOMPARE(folders.size(), 1);
    QVERIFY(QRegularExpression(QStringLiteral("^\\d\\d\\.\\d\\d\\.\\d{4} \\d\\d\\.\\d\\d\\.\\d\\d$"))
                .match(folders.first())
                .hasMatch());
    const QDateTime stamp = QDateTime::fromString(folders.first(), QStringLiteral("dd.MM.yyyy hh.mm.ss"));
    QVERIFY(qAbs(stamp.secsTo(before)) <= 2);

    const QString folder = project.DataPath(QStringLiteral("ann_sic/") + folders.first());
    QCOMPARE(backup.GetBackupFolder(), folder);
    QCOMPARE(QDir(folder).entryList(QDir::Files, QDir::Name),
        (QStringList {
            QStringLiteral("a.ann"), QStringLiteral("nodeToolOperation.log"), QStringLiteral("Übersicht.ann") }));
    QCOMPARE(readFile(folder + QStringLiteral("/Übersicht.ann")), QByteArray("B"));
    QCOMPARE(readFile(folder + QStringLiteral("/nodeToolOperation.log")),
        QByteArray("Node Tool Operation: 1\nSource: x\nUser: mmeier\n"));
}

void NodeToolBackupTest::failsWithoutUsableProject_data()
{
    QTest::addColumn<QString>("situation");
    QTest::newRow("empty root") << QStringLiteral("empty");
    QTest::newRow("no data folder") << QStringLiteral("nodata");
    QTest::newRow("backup folder cannot be created") << QStringLiteral("blocked");
}

void NodeToolBackupTest::failsWithoutUsableProject()
{
    QFETCH(QString, situation);
    TestProject project;
    NodeToolBackup backup;
    backup.projectRootDir = project.Root();
    if (situation == QLatin1String("empty"))
        backup.projectRootDir.clear();
    else if (situation == QLatin1String("nodata"))
        QVERIFY(QDir(project.DataDir()).removeRecursively());
    else
        project.Write(QStringLiteral("ann_sic"), "a file where the folder should go");
    QVERIFY(!backup.Create());
    QVERIFY(backup.GetBackupFolder().isEmpty());
}

void NodeToolBackupTest::secondBackupInSameSecondSharesFolderAndOverwritesLogStart()
{
    TestProject project;
    project.Write(QStringLiteral("a.ann"), "vorher");

    for (int attempt = 0; attempt < 5; ++attempt) {
        waitForFreshSecond();
        NodeToolBackup first;
        first.projectRootDir = project.Root();
        first.logText = QStringLiteral("first run, a long line");
        QVERIFY(first.Create());
        project.Write(QStringLiteral("a.ann"), "nachher");
        NodeToolBackup second;
        second.projectRootDir = project.Root();
        second.logText = QStringLiteral("second");
        QVERIFY(second.Create());
        if (first.GetBackupFolder() != second.GetBackupFolder()) {
            QVERIFY(QDir(project.DataPath(QStringLiteral("ann_sic"))).removeRecursively());
            project.Write(QStringLiteral("a.ann"), "vorher");
            continue; // the second crossed into the next second after all
        }
        // The copy of the first run stays; the log keeps the first run's tail.
        QCOMPARE(readFile(first.GetBackupFolder() + QStringLiteral("/a.ann")), QByteArray("vorher"));
        QCOMPARE(readFile(first.GetBackupFolder() + QStringLiteral("/nodeToolOperation.log")),
            QByteArray("second\nun, a long line\n"));
        return;
    }
    QFAIL("could not get two backups into one second");
}

QTEST_GUILESS_MAIN(NodeToolBackupTest)
#include "NodeToolBackupTest.moc"
