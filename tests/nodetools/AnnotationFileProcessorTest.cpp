#include "TestProject.h"

#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/ObjectBlockProcessor.h>
#include <nodetools/ProgressCallback.h>
#include <nodetools/RemoveHREFBlockProcessor.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct ProgressCall {
    QString text;
    int value;
    int maximum;
    bool operator==(const ProgressCall& o) const { return text == o.text && value == o.value && maximum == o.maximum; }
};

class RecordingProgress : public ProgressCallback
{
public:
    void Progress(const QString& text, int value, int maximum) override { calls.append({ text, value, maximum }); }
    QList<ProgressCall> calls;
};

// Logs the file events and the blocks it sees, leaving blocks unchanged.
class EventLog : public ObjectBlockProcessor
{
public:
    void BeginFile(const QString& path) override
    {
        events.append(QStringLiteral("begin ") + QFileInfo(path).fileName());
    }
    void ProcessBlock(const QStringList& block, QStringList& result) override
    {
        events.append(QStringLiteral("block"));
        result.append(block);
    }
    void EndFile(const QString& path) override { events.append(QStringLiteral("end ") + QFileInfo(path).fileName()); }
    QStringList events;
};

const QByteArray withLinks = HostText({ QStringLiteral("DOC=a.pdf"), QStringLiteral("BO"), QStringLiteral("NA=Schacht"),
    QStringLiteral("HREF=") + StandardLink(QStringLiteral("C:\\x.pdf")), QStringLiteral("EO") });
const QByteArray withoutLinks = HostText(
    { QStringLiteral("DOC=a.pdf"), QStringLiteral("BO"), QStringLiteral("NA=Schacht"), QStringLiteral("EO") });

AnnotationFileProcessor processorFor(const TestProject& project, const QStringList& documents)
{
    AnnotationFileProcessor processor;
    processor.SetProjectRootDir(project.Root());
    processor.SetFileNames(documents);
    return processor;
}

} // namespace

Q_DECLARE_METATYPE(ProgressCall)

class AnnotationFileProcessorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsAnnotationFileOfDocument_data();
    void findsAnnotationFileOfDocument();
    void reportsProgressForEveryDocumentButCountsOnlyFoundFiles();
    void emptyFileListDoesNothing();
    void missingDataFolderDoesNothing();
    void fileThatCannotBeOpenedIsSkippedButClosedOff();
    void shorterTextLeavesNoRemnant();
    void unchangedFileIsNotWritten();
    void invalidUtf8IsNeverRewritten_data();
    void invalidUtf8IsNeverRewritten();
    void byteOrderMarkAndNulBytesSurvive();
    void symbolicLinkStaysALink();
    void permissionsAreKept();
    void allFilesModeTakesTopLevelAnnotationFilesInNameOrder();
    void failedWriteKeepsOldContentAndLeavesNoTemporaryFile_data();
    void failedWriteKeepsOldContentAndLeavesNoTemporaryFile();
};

void AnnotationFileProcessorTest::findsAnnotationFileOfDocument_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("expected");

    QTest::newRow("base name up to first dot")
        << QStringList { QStringLiteral("plan.ann") } << QStringLiteral("plan.rev.pdf") << QStringLiteral("plan.ann");
    QTest::newRow("fallback removes only the last dot")
        << QStringList { QStringLiteral("plan.revpdf.ann") } << QStringLiteral("plan.rev.pdf")
        << QStringLiteral("plan.revpdf.ann");
    QTest::newRow("primary wins over fallback")
        << QStringList { QStringLiteral("plan.ann"), QStringLiteral("plan.revpdf.ann") }
        << QStringLiteral("plan.rev.pdf") << QStringLiteral("plan.ann");
    QTest::newRow("folders of the document are ignored")
        << QStringList { QStringLiteral("Lageplan.ann") } << QStringLiteral("/srv/Projekt.2024/Lageplan.pdf")
        << QStringLiteral("Lageplan.ann");
    QTest::newRow("fallback with a folder")
        << QStringList { QStringLiteral("Schnitt.A-Apdf.ann") } << QStringLiteral("Dokumente/Schnitt.A-A.pdf")
        << QStringLiteral("Schnitt.A-Apdf.ann");
    QTest::newRow("neither exists: the fallback is named")
        << QStringList {} << QStringLiteral("x.y.pdf") << QStringLiteral("x.ypdf.ann");
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

void AnnotationFileProcessorTest::reportsProgressForEveryDocumentButCountsOnlyFoundFiles()
{
    TestProject project;
    project.Write(QStringLiteral("a.ann"), withLinks);
    project.Write(QStringLiteral("c.ann"), withoutLinks);
    AnnotationFileProcessor processor
        = processorFor(project, { QStringLiteral("a.pdf"), QStringLiteral("b.pdf"), QStringLiteral("c.pdf") });
    RecordingProgress progress;
    processor.SetProgressCallback(&progress);
    EventLog log;

    processor.Run(log);

    const QList<ProgressCall> expected { { project.DataPath(QStringLiteral("a.ann")), 1, 3 },
        { project.DataPath(QStringLiteral("bpdf.ann")), 2, 3 }, { project.DataPath(QStringLiteral("c.ann")), 3, 3 } };
    QCOMPARE(progress.calls, expected);
    QCOMPARE(log.events,
        (QStringList { QStringLiteral("begin a.ann"), QStringLiteral("block"), QStringLiteral("end a.ann"),
            QStringLiteral("begin c.ann"), QStringLiteral("block"), QStringLiteral("end c.ann") }));
    QCOMPARE(processor.GetFilesExamined(), 2);
    QCOMPARE(processor.GetFilesChanged(), 0);
}

void AnnotationFileProcessorTest::emptyFileListDoesNothing()
{
    TestProject project;
    project.Write(QStringLiteral("a.ann"), withLinks);
    AnnotationFileProcessor processor = processorFor(project, {});
    RecordingProgress progress;
    processor.SetProgressCallback(&progress);
    RemoveHREFBlockProcessor remove;
    processor.Run(remove);
    QVERIFY(progress.calls.isEmpty());
    QCOMPARE(processor.GetFilesExamined(), 0);
    QCOMPARE(processor.GetFilesChanged(), 0);
    QCOMPARE(project.Read(QStringLiteral("a.ann")), withLinks);
}

void AnnotationFileProcessorTest::missingDataFolderDoesNothing()
{
    QTemporaryDir root;
    AnnotationFileProcessor processor;
    processor.SetProjectRootDir(root.path());
    processor.SetFileNames({ QStringLiteral("a.pdf") });
    RecordingProgress progress;
    processor.SetProgressCallback(&progress);
    EventLog log;
    processor.Run(log);
    QVERIFY(progress.calls.isEmpty());
    QVERIFY(log.events.isEmpty());
}

// A folder with the name of an annotation file exists but cannot be opened as
// a file, for root too (unlike a file without permissions).
void AnnotationFileProcessorTest::fileThatCannotBeOpenedIsSkippedButClosedOff()
{
    TestProject project;
    QVERIFY(QDir(project.DataDir()).mkdir(QStringLiteral("a.ann")));
    project.Write(QStringLiteral("b.ann"), withLinks);
    AnnotationFileProcessor processor = processorFor(project, { QStringLiteral("a.pdf"), QStringLiteral("b.pdf") });
    EventLog log;
    processor.Run(log);
    QCOMPARE(log.events,
        (QStringList { QStringLiteral("begin a.ann"), QStringLiteral("end a.ann"), QStringLiteral("begin b.ann"),
            QStringLiteral("block"), QStringLiteral("end b.ann") }));
    QCOMPARE(processor.GetFilesExamined(), 1);
}

void AnnotationFileProcessorTest::shorterTextLeavesNoRemnant()
{
    TestProject project;
    project.Write(QStringLiteral("a.ann"), withLinks);
    AnnotationFileProcessor processor = processorFor(project, { QStringLiteral("a.pdf") });
    RemoveHREFBlockProcessor remove;
    processor.Run(remove);
    QCOMPARE(project.Read(QStringLiteral("a.ann")), withoutLinks);
    QCOMPARE(processor.GetFilesChanged(), 1);
    QCOMPARE(processor.GetChangedFiles(), QStringList { project.DataPath(QStringLiteral("a.ann")) });
}

void AnnotationFileProcessorTest::unchangedFileIsNotWritten()
{
    TestProject project;
    project.Write(QStringLiteral("a.ann"), withoutLinks);
    const QDateTime past = QDateTime::currentDateTime().addDays(-30);
    {
        QFile file(project.DataPath(QStringLiteral("a.ann")));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(past, QFileDevice::FileModificationTime));
    }
    AnnotationFileProcessor processor = processorFor(project, { QStringLiteral("a.pdf") });
    RemoveHREFBlockProcessor remove;
    processor.Run(remove);
    QCOMPARE(processor.GetFilesExamined(), 1);
    QCOMPARE(processor.GetFilesChanged(), 0);
    QCOMPARE(QFileInfo(project.DataPath(QStringLiteral("a.ann"))).lastModified().toSecsSinceEpoch(),
        past.toSecsSinceEpoch());
}

void AnnotationFileProcessorTest::invalidUtf8IsNeverRewritten_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray href = "HREF=" + StandardLink(QStringLiteral("x")).toUtf8();
    QTest::newRow("Latin-1 umlaut") << QByteArray("BO\r\nNA=Stra\xDF"
                                                  "e\r\n"
        + href + "\r\nEO");
    QTest::newRow("sequence cut off at the end") << QByteArray("BO\r\n" + href + "\r\nEO\r\nX=\xC3");
    QTest::newRow("encoded surrogate") << QByteArray("BO\r\nNA=\xED\xA0\x80\r\n" + href + "\r\nEO");
    QTest::newRow("overlong slash") << QByteArray("BO\r\nNA=\xC0\xAF\r\n" + href + "\r\nEO");
}

void AnnotationFileProcessorTest::invalidUtf8IsNeverRewritten()
{
    QFETCH(QByteArray, bytes);
    TestProject project;
    project.Write(QStringLiteral("a.ann"), bytes);
    AnnotationFileProcessor processor = processorFor(project, { QStringLiteral("a.pdf") });
    RemoveHREFBlockProcessor remove;
    processor.Run(remove);
    QCOMPARE(project.Read(QStringLiteral("a.ann")), bytes);
    QCOMPARE(processor.GetFilesExamined(), 1);
    QCOMPARE(processor.GetFilesChanged(), 0);
    QCOMPARE(processor.GetWarnings().size(), 1);
    QVERIFY(processor.GetWarnings().first().contains(QStringLiteral("UTF-8")));
}

void AnnotationFileProcessorTest::byteOrderMarkAndNulBytesSurvive()
{
    TestProject project;
    project.Write(QStringLiteral("a.ann"),
        QByteArray("\xEF\xBB\xBF"
                   "BO\nTX=a\0b\n",
            13)
            + "HREF=x\nEO\n");
    AnnotationFileProcessor processor = processorFor(project, { QStringLiteral("a.pdf") });
    RemoveHREFBlockProcessor remove;
    processor.Run(remove);
    QCOMPARE(project.Read(QStringLiteral("a.ann")),
        QByteArray("\xEF\xBB\xBF"
                   "BO\r\nTX=a\0b\r\nEO",
            17));
}

void AnnotationFileProcessorTest::symbolicLinkStaysALink()
{
    TestProject project;
    project.Write(QStringLiteral("real.ann"), withLinks);
    QVERIFY(QFile::link(QStringLiteral("real.ann"), project.DataPath(QStringLiteral("a.ann"))));
    AnnotationFileProcessor processor = processorFor(project, { QStringLiteral("a.pdf") });
    RemoveHREFBlockProcessor remove;
    processor.Run(remove);
    QVERIFY(QFileInfo(project.DataPath(QStringLiteral("a.ann"))).isSymLink());
    QCOMPARE(project.Read(QStringLiteral("real.ann")), withoutLinks);
}

void AnnotationFileProcessorTest::permissionsAreKept()
{
    TestProject project;
    project.Write(QStringLiteral("a.ann"), withLinks);
    const QFileDevice::Permissions permissions
        = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup;
    QVERIFY(QFile::setPermissions(project.DataPath(QStringLiteral("a.ann")), permissions));
    AnnotationFileProcessor processor = processorFor(project, { QStringLiteral("a.pdf") });
    RemoveHREFBlockProcessor remove;
    processor.Run(remove);
    QCOMPARE(processor.GetFilesChanged(), 1);
    // The "User" flags describe whoever runs the test, not the file.
    const QFileDevice::Permissions ofFile = QFile::permissions(project.DataPath(QStringLiteral("a.ann")))
        & ~(QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser);
    QCOMPARE(ofFile, permissions);
}

void AnnotationFileProcessorTest::allFilesModeTakesTopLevelAnnotationFilesInNameOrder()
{
    TestProject project;
    project.Write(QStringLiteral("b.rev.ann"), withLinks);
    project.Write(QStringLiteral("a.ann"), withLinks);
    project.Write(QStringLiteral("notes.txt"), withLinks);
    QVERIFY(QDir(project.DataDir()).mkpath(QStringLiteral("ann_sic/01.01.2024 10.00.00")));
    project.Write(QStringLiteral("ann_sic/01.01.2024 10.00.00/a.ann"), withLinks);

    AnnotationFileProcessor processor;
    processor.SetProjectRootDir(project.Root());
    processor.SetAllAnnotationFiles(true);
    RecordingProgress progress;
    processor.SetProgressCallback(&progress);
    RemoveHREFBlockProcessor remove;
    processor.Run(remove);

    QCOMPARE(progress.calls.size(), 2);
    QCOMPARE(progress.calls.at(0).text, project.DataPath(QStringLiteral("a.ann")));
    QCOMPARE(progress.calls.at(1).text, project.DataPath(QStringLiteral("b.rev.ann")));
    QCOMPARE(processor.GetFilesChanged(), 2);
    QCOMPARE(project.Read(QStringLiteral("notes.txt")), withLinks);
    QCOMPARE(project.Read(QStringLiteral("ann_sic/01.01.2024 10.00.00/a.ann")), withLinks);
}

// The write runs in a child process under a file-size limit smaller than
// the new content: once with the limit's signal ignored (the write fails),
// once with its default action (the process is killed mid-write).
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
    QStringList lines { QStringLiteral("DOC=a.pdf") };
    for (int i = 0; i < 400; ++i) {
        lines << QStringLiteral("BO") << QStringLiteral("NA=Objekt %1").arg(i)
              << QStringLiteral("HREF=") + StandardLink(QStringLiteral("C:\\x.pdf")) << QStringLiteral("EO");
    }
    const QByteArray original = lines.join(QLatin1Char('\n')).toUtf8(); // LF: every byte is rewritten
    project.Write(QStringLiteral("a.ann"), original);

    const pid_t child = fork();
    QVERIFY(child >= 0);
    if (child == 0) {
        std::signal(SIGXFSZ, killed ? SIG_DFL : SIG_IGN);
        const rlim_t limit = 1024; // well below the rewritten text
        const rlimit fileSize { limit, limit };
        setrlimit(RLIMIT_FSIZE, &fileSize);
        AnnotationFileProcessor processor = processorFor(project, { QStringLiteral("a.pdf") });
        RemoveHREFBlockProcessor remove;
        processor.Run(remove);
        _exit(processor.GetFilesChanged() * 10 + processor.GetWarnings().size());
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    if (killed) {
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), SIGXFSZ);
    } else {
        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), 1); // nothing changed, one warning
    }
    QCOMPARE(project.Read(QStringLiteral("a.ann")), original);
    QCOMPARE(project.DataEntries(), QStringList { QStringLiteral("a.ann") });
}

QTEST_GUILESS_MAIN(AnnotationFileProcessorTest)
#include "AnnotationFileProcessorTest.moc"
