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
    void temporaryFilesOfAKilledRunGoWithTheNextRun();
    void fileTheUserMayNotWriteIsNamedAndKept();
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

// b.ann is missing, c.ann is a folder that cannot be opened as a file, e.ann
// a link to a file that is gone. Before, the last two went unmentioned.
void AnnotationFileProcessorTest::reportsEveryDocumentButCountsOnlyFoundFiles()
{
    TestProject project;
    project.Write("a.ann", withLinks);
    QVERIFY(QDir(project.DataDir()).mkdir("c.ann"));
    project.Write("d.ann", withoutLinks);
    QVERIFY(QFile::link("gone.ann", project.DataPath("e.ann")));
    AnnotationFileProcessor processor;
    processor.SetProjectRootDir(project.Root());
    processor.SetFileNames({ "a.pdf", "b.pdf", "c.pdf", "d.pdf", "e.pdf" });
    EventLog log;
    processor.SetProgressCallback(&log);
    processor.Run(log);

    QCOMPARE(log.events,
        (QStringList { "progress a.ann 1/5", "begin a.ann", "block", "end a.ann", "progress bpdf.ann 2/5",
            "progress c.ann 3/5", "begin c.ann", "end c.ann", "progress d.ann 4/5", "begin d.ann", "block", "end d.ann",
            "progress epdf.ann 5/5" }));
    QCOMPARE(processor.GetFilesExamined(), 2);
    QCOMPARE(processor.GetFilesChanged(), 0);
    QCOMPARE(processor.GetDocumentsWithoutFile(), QStringList { "b.pdf" });
    QCOMPARE(processor.GetLeftOutFiles(), (QStringList { project.DataPath("c.ann"), project.DataPath("e.ann") }));
    QCOMPARE(processor.GetWarnings(),
        (QStringList { project.DataPath("c.ann") + ": is a folder, left unchanged",
            project.DataPath("e.ann") + ": is a link to a missing file, left unchanged" }));
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
    project.Write("d.ann", withLinks + "\xFF");                           // not UTF-8
    project.Write("e.ann", "BO\r\nNA=zu\r\nEO\r\n\r\nBO\nNA=offen\nX=1"); // the last object is not closed
    const QStringList documents { "a.pdf", "b.pdf", "c.pdf", "d.pdf", "e.pdf", "missing.pdf" };

    AnnotationFileProcessor dry;
    dry.SetProjectRootDir(project.Root());
    dry.SetFileNames(documents);
    dry.SetDryRun(true);
    RemoveHREFBlockProcessor remove;
    dry.Run(remove);
    QCOMPARE(project.Read("a.ann"), withLinks);
    QCOMPARE(project.DataEntries(), (QStringList { "a.ann", "b.ann", "c.ann", "d.ann", "e.ann" }));
    QCOMPARE(dry.GetWarnings().constLast(),
        project.DataPath("e.ann")
            + ": the object from line 5 is not closed: its 3 lines to the end of the file are dropped");
    QList<QByteArray> previews;
    for (const QString& path : dry.GetChangedFiles()) {
        QByteArray current;
        previews.append(QByteArray());
        QVERIFY(AnnotationFileProcessor::PreviewFile(path, remove, &current, &previews.last()));
        QCOMPARE(current, project.Read(QFileInfo(path).fileName()));
    }

    const AnnotationFileProcessor real = removeLinks(project, documents);
    QCOMPARE(dry.GetChangedFiles(), real.GetChangedFiles());
    QCOMPARE(dry.GetChangedBlockCounts(), (QList<int> { 1, 0, 1 }));
    QCOMPARE(dry.GetWarnings(), real.GetWarnings());
    QCOMPARE(dry.GetLeftOutFiles(), real.GetLeftOutFiles());
    QCOMPARE(dry.GetFilesExamined(), real.GetFilesExamined());
    QCOMPARE(previews, (QList<QByteArray> { project.Read("a.ann"), project.Read("b.ann"), project.Read("e.ann") }));
    QCOMPARE(project.Read("e.ann"), QByteArray("BO\r\nNA=zu\r\nEO"));
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

// A run killed between naming its temporary file and renaming it over the
// annotation file leaves the temporary file behind.
void AnnotationFileProcessorTest::temporaryFilesOfAKilledRunGoWithTheNextRun()
{
    TestProject project;
    project.Write("a.ann", withLinks);
    const QStringList debris { ".a.ann.kamo-1x9z0q", ".a.ann.kamo-AbC123" };
    const QStringList others { ".a.ann.kamo-newer", ".notes.kamo-1x9z0q", "a.ann.kamo-1x9z0q", ".a.ann.kamo-toolong1" };
    for (const QString& name : debris + others) {
        project.Write(name, "x");
        QFile file(project.DataPath(name));
        const int days = name.contains("newer") ? 1 : -1; // newer: a file of a run still going
        QVERIFY(file.open(QIODevice::Append)
            && file.setFileTime(QDateTime::currentDateTime().addDays(days), QFileDevice::FileModificationTime));
    }
    AnnotationFileProcessor dry;
    dry.SetProjectRootDir(project.Root());
    dry.SetAllAnnotationFiles(true);
    dry.SetDryRun(true);
    RemoveHREFBlockProcessor remove;
    dry.Run(remove);
    QCOMPARE(project.DataEntries().size(), 7);

    removeLinks(project, { "a.pdf" });
    QStringList expected = others + QStringList { "a.ann" };
    expected.sort();
    QCOMPARE(project.DataEntries(), expected);
}

// Before, a file that could not be opened for writing was skipped without a word.
void AnnotationFileProcessorTest::fileTheUserMayNotWriteIsNamedAndKept()
{
    TestProject project;
    project.Write("a.ann", withLinks);
    QVERIFY(QFile::setPermissions(project.DataPath("a.ann"), QFileDevice::ReadOwner | QFileDevice::ReadOther));
    // Root may write anything: the run goes to an ordinary user.
    const uid_t nobody = 65534;
    if (geteuid() == 0) {
        for (const QString& path : { project.Root(), project.DataDir(), project.DataPath("a.ann") })
            QVERIFY(chown(QFile::encodeName(path).constData(), nobody, nobody) == 0);
    }
    const pid_t child = fork();
    QVERIFY(child >= 0);
    if (child == 0) {
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0))
            _exit(2);
        if (access(QFile::encodeName(project.DataDir()).constData(), R_OK | W_OK | X_OK) != 0)
            _exit(3);
        const AnnotationFileProcessor processor = removeLinks(project, { "a.pdf" });
        const QString expected
            = project.DataPath("a.ann") + ": could not be opened (Permission denied), left unchanged";
        _exit(processor.GetWarnings() == QStringList { expected }
                    && processor.GetLeftOutFiles() == QStringList { project.DataPath("a.ann") }
                ? 0
                : 1);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status));
    if (WEXITSTATUS(status) == 3)
        QSKIP("an ordinary user cannot reach the temporary folder here (a bare chroot's root folder)");
    QCOMPARE(WEXITSTATUS(status), 0);
    QCOMPARE(project.Read("a.ann"), withLinks);
}

QTEST_GUILESS_MAIN(AnnotationFileProcessorTest)
#include "AnnotationFileProcessorTest.moc"
