#include "TestProject.h"

#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/ObjectBlockProcessor.h>
#include <nodetools/ProgressCallback.h>
#include <nodetools/RemoveHREFBlockProcessor.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Logs progress, file events and blocks, leaving the blocks unchanged.
class EventLog : public ObjectBlockProcessor, public ProgressCallback
{
public:
    void Progress(const QString& text, int value, int maximum) override
    {
        events.append(QString("progress %1 %2/%3").arg(QFileInfo(text).fileName()).arg(value).arg(maximum));
    }
    void BeginFile(const QString& path) override { events.append("begin " + QFileInfo(path).fileName()); }
    void ProcessBlock(const QStringList& block, QStringList& result) override
    {
        events.append("block");
        result.append(block);
    }
    void EndFile(const QString& path) override { events.append("end " + QFileInfo(path).fileName()); }
    QStringList events;
};

const QByteArray withLinks = HostText({ "DOC=a.pdf", "BO", "NA=Schacht", "HREF=" + StandardLink("C:\\x.pdf"), "EO" });
const QByteArray withoutLinks = HostText({ "DOC=a.pdf", "BO", "NA=Schacht", "EO" });

// Runs link removal over the annotation files of `documents`.
AnnotationFileProcessor removeLinks(const TestProject& project, const QStringList& documents)
{
    AnnotationFileProcessor processor;
    processor.SetProjectRootDir(project.Root());
    processor.SetFileNames(documents);
    RemoveHREFBlockProcessor remove;
    processor.Run(remove);
    return processor;
}

} // namespace

class AnnotationFileProcessorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsAnnotationFileOfDocument_data();
    void findsAnnotationFileOfDocument();
    void reportsEveryDocumentButCountsOnlyFoundFiles();
    void unchangedFileIsNotWritten();
    void invalidUtf8IsNeverRewritten_data();
    void invalidUtf8IsNeverRewritten();
    void byteOrderMarkAndNulBytesSurvive();
    void replacementKeepsSymbolicLinkAndPermissions();
    void allFilesModeTakesTopLevelAnnotationFilesInNameOrder();
    void dryRunPredictsTheRealRunByteForByte();
    void failedWriteKeepsOldContentAndLeavesNoTemporaryFile_data();
    void failedWriteKeepsOldContentAndLeavesNoTemporaryFile();
};

void AnnotationFileProcessorTest::findsAnnotationFileOfDocument_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QStringList& present, const QString& document,
                         const QString& expected) { QTest::newRow(name) << present << document << expected; };
    row("base name up to the first dot", { "plan.ann", "plan.revpdf.ann" }, "plan.rev.pdf", "plan.ann");
    row("fallback drops only the last dot", { "plan.revpdf.ann" }, "plan.rev.pdf", "plan.revpdf.ann");
    row("folders of the document ignored", { "Lageplan.ann" }, "/srv/P.2024/Lageplan.pdf", "Lageplan.ann");
    row("fallback with a folder", { "S.A-Apdf.ann" }, "Dok/S.A-A.pdf", "S.A-Apdf.ann");
    row("neither exists: the fallback", {}, "x.y.pdf", "x.ypdf.ann");
}

void AnnotationFileProcessorTest::findsAnnotationFileOfDocument()
{
    QFETCH(QStringList, present);
    QFETCH(QString, document);
    QFETCH(QString, expected);
    TestProject project;
    for (const QString& name : present)
        project.Write(name, withoutLinks);
    QCOMPARE(AnnotationFileProcessor::AnnotationFilePath(project.DataDir(), document), project.DataPath(expected));
}

// b.ann is missing, c.ann is a folder that cannot be opened as a file.
void AnnotationFileProcessorTest::reportsEveryDocumentButCountsOnlyFoundFiles()
{
    TestProject project;
    project.Write("a.ann", withLinks);
    QVERIFY(QDir(project.DataDir()).mkdir("c.ann"));
    project.Write("d.ann", withoutLinks);
    AnnotationFileProcessor processor;
    processor.SetProjectRootDir(project.Root());
    processor.SetFileNames({ "a.pdf", "b.pdf", "c.pdf", "d.pdf" });
    EventLog log;
    processor.SetProgressCallback(&log);
    processor.Run(log);

    QCOMPARE(log.events,
        (QStringList { "progress a.ann 1/4", "begin a.ann", "block", "end a.ann", "progress bpdf.ann 2/4",
            "progress c.ann 3/4", "begin c.ann", "end c.ann", "progress d.ann 4/4", "begin d.ann", "block",
            "end d.ann" }));
    QCOMPARE(processor.GetFilesExamined(), 2);
    QCOMPARE(processor.GetFilesChanged(), 0);
}

void AnnotationFileProcessorTest::unchangedFileIsNotWritten()
{
    TestProject project;
    project.Write("a.ann", withoutLinks);
    const QDateTime past = QDateTime::currentDateTime().addDays(-30);
    QFile file(project.DataPath("a.ann"));
    QVERIFY(file.open(QIODevice::ReadWrite) && file.setFileTime(past, QFileDevice::FileModificationTime));
    file.close();

    const AnnotationFileProcessor processor = removeLinks(project, { "a.pdf" });
    QCOMPARE(processor.GetFilesExamined(), 1);
    QCOMPARE(processor.GetFilesChanged(), 0);
    QCOMPARE(QFileInfo(file).lastModified().toSecsSinceEpoch(), past.toSecsSinceEpoch());
}

void AnnotationFileProcessorTest::invalidUtf8IsNeverRewritten_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray link = "\r\nHREF=x\r\nEO";
    QTest::newRow("Latin-1 umlaut") << "BO\r\nNA=Stra\xDF" + link;
    QTest::newRow("sequence cut off at the end") << "BO" + link + "\r\nX=\xC3";
    QTest::newRow("encoded surrogate") << "BO\r\nNA=\xED\xA0\x80" + link;
    QTest::newRow("overlong slash") << "BO\r\nNA=\xC0\xAF" + link;
}

void AnnotationFileProcessorTest::invalidUtf8IsNeverRewritten()
{
    QFETCH(QByteArray, bytes);
    TestProject project;
    project.Write("a.ann", bytes);
    const AnnotationFileProcessor processor = removeLinks(project, { "a.pdf" });
    QCOMPARE(project.Read("a.ann"), bytes);
    QCOMPARE(processor.GetFilesExamined(), 1);
    QCOMPARE(processor.GetFilesChanged(), 0);
    QCOMPARE(processor.GetWarnings(), QStringList { project.DataPath("a.ann") + ": not valid UTF-8, left unchanged" });
}

void AnnotationFileProcessorTest::byteOrderMarkAndNulBytesSurvive()
{
    TestProject project;
    const QByteArray bom = "\xEF\xBB\xBF";
    project.Write("a.ann", bom + QByteArray("BO\nTX=a\0b\nHREF=x\nEO\n", 20));
    removeLinks(project, { "a.pdf" });
    QCOMPARE(project.Read("a.ann"), bom + QByteArray("BO\r\nTX=a\0b\r\nEO", 14));
}

void AnnotationFileProcessorTest::replacementKeepsSymbolicLinkAndPermissions()
{
    TestProject project;
    project.Write("real.ann", withLinks);
    QVERIFY(QFile::link("real.ann", project.DataPath("a.ann")));
    const auto permissions = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup;
    QVERIFY(QFile::setPermissions(project.DataPath("real.ann"), permissions));

    removeLinks(project, { "a.pdf" });
    QVERIFY(QFileInfo(project.DataPath("a.ann")).isSymLink());
    QCOMPARE(project.Read("real.ann"), withoutLinks);
    // The "User" flags describe whoever runs the test, not the file.
    const auto userFlags = QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser;
    QCOMPARE(QFile::permissions(project.DataPath("real.ann")) & ~userFlags, permissions);
}

void AnnotationFileProcessorTest::allFilesModeTakesTopLevelAnnotationFilesInNameOrder()
{
    TestProject project;
    project.Write("b.rev.ann", withLinks);
    project.Write("a.ann", withLinks);
    project.Write("notes.txt", withLinks);
    QVERIFY(QDir(project.DataDir()).mkpath("ann_sic/01.01.2024 10.00.00"));
    project.Write("ann_sic/01.01.2024 10.00.00/a.ann", withLinks);

    AnnotationFileProcessor processor;
    processor.SetProjectRootDir(project.Root());
    processor.SetAllAnnotationFiles(true);
    RemoveHREFBlockProcessor remove;
    processor.Run(remove);
    QCOMPARE(processor.GetChangedFiles(), (QStringList { project.DataPath("a.ann"), project.DataPath("b.rev.ann") }));
    QCOMPARE(project.Read("notes.txt"), withLinks);
    QCOMPARE(project.Read("ann_sic/01.01.2024 10.00.00/a.ann"), withLinks);
}

// The write runs in a child process under a file-size limit far below the
// new content: once with the limit's signal ignored (the write fails), once
// with its default action (the process is killed in the middle of writing).
void AnnotationFileProcessorTest::dryRunPredictsTheRealRunByteForByte()
{
    TestProject project;
    project.Write("a.ann", withLinks);
    project.Write("b.ann",
        "\xEF\xBB\xBF"
        "DOC=b.pdf\nBO\nNA=S\nEO\n\n"); // line ends only, with a BOM
    project.Write("c.ann", withoutLinks);
    project.Write("d.ann", withLinks + "\xFF"); // not UTF-8
    const QStringList documents { "a.pdf", "b.pdf", "c.pdf", "d.pdf", "missing.pdf" };

    AnnotationFileProcessor dry;
    dry.SetProjectRootDir(project.Root());
    dry.SetFileNames(documents);
    dry.SetDryRun(true);
    RemoveHREFBlockProcessor remove;
    dry.Run(remove);
    QCOMPARE(project.Read("a.ann"), withLinks);
    QCOMPARE(project.DataEntries(), (QStringList { "a.ann", "b.ann", "c.ann", "d.ann" }));

    const AnnotationFileProcessor real = removeLinks(project, documents);
    QCOMPARE(dry.GetChangedFiles(), real.GetChangedFiles());
    QCOMPARE(dry.GetChangedBlockCounts(), (QList<int> { 1, 0 }));
    QCOMPARE(dry.GetWarnings(), real.GetWarnings());
    QCOMPARE(dry.GetFilesExamined(), real.GetFilesExamined());
    QCOMPARE(dry.GetChangedContents().size(), 2);
    QCOMPARE(dry.GetChangedContents().at(0), project.Read("a.ann"));
    QCOMPARE(dry.GetChangedContents().at(1), project.Read("b.ann"));
    QVERIFY(real.GetChangedContents().isEmpty());
}

void AnnotationFileProcessorTest::failedWriteKeepsOldContentAndLeavesNoTemporaryFile_data()
{
    QTest::addColumn<bool>("killed");
    QTest::newRow("write fails") << false;
    QTest::newRow("process killed") << true;
}

void AnnotationFileProcessorTest::failedWriteKeepsOldContentAndLeavesNoTemporaryFile()
{
    QFETCH(bool, killed);
    TestProject project;
    QStringList lines;
    for (int i = 0; i < 400; ++i)
        lines << "BO" << QString("NA=Objekt %1").arg(i) << "HREF=" + StandardLink("C:\\x.pdf") << "EO";
    const QByteArray original = lines.join('\n').toUtf8(); // LF: every byte gets rewritten
    project.Write("a.ann", original);

    const pid_t child = fork();
    QVERIFY(child >= 0);
    if (child == 0) {
        std::signal(SIGXFSZ, killed ? SIG_DFL : SIG_IGN);
        const rlimit fileSize { 1024, 1024 };
        setrlimit(RLIMIT_FSIZE, &fileSize);
        const AnnotationFileProcessor processor = removeLinks(project, { "a.pdf" });
        _exit(processor.GetFilesChanged() * 10 + processor.GetWarnings().size());
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    if (killed)
        QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ);
    else
        QVERIFY(WIFEXITED(status) && WEXITSTATUS(status) == 1); // nothing changed, one warning
    QCOMPARE(project.Read("a.ann"), original);
    QCOMPARE(project.DataEntries(), QStringList { "a.ann" });
}

QTEST_GUILESS_MAIN(AnnotationFileProcessorTest)
#include "AnnotationFileProcessorTest.moc"
