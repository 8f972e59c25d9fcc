#include "SmallDisk.h"
#include "TestProject.h"

#include <Kamo_view/NodeFileInfo.h>
#include <Kamo_view/NodeInfo.h>
#include <Kamo_view/PinObject.h>
#include <nodetools/AnalyzeProjectNT.h>
#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/HREFPathMap.h>
#include <nodetools/LinkCheck.h>
#include <nodetools/NodeOperationCatalogue.h>
#include <nodetools/NodeOperationOptions.h>
#include <nodetools/NodeToolBackup.h>
#include <nodetools/ObjectBlockProcessor.h>
#include <nodetools/ProgressCallback.h>
#include <nodetools/RemoveHREFInAnnotationNT.h>
#include <nodetools/ReplaceNameInAnnotationsNT.h>

#include <QCryptographicHash>
#include <QDir>
#include <QScopeGuard>
#include <QTest>
#include <QThread>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

using Blocks = QList<QStringList>;
using Op = NodeOperationCatalogue;

namespace {

// The host's nodes and documents, as the operations get them. Node 7 lists
// its documents per zone (zone 3 is empty), node 9 has no name, node 11 is
// null, node 99 does not exist.
struct HostNodes {
    HostNodes()
    {
        schacht.SetDocuments(1, { "C:\\Projekt\\PDF\\Plan.pdf" });
        haus.SetZone(2);
        haus.SetDocuments(1, { "A1.pdf", "B1.pdf" });
        haus.SetDocuments(2, { "A2.pdf", "B2.pdf", "D:/Archiv/plan.PDF", "Foto.jpg" });
        haus.SetDocuments(4, { "A4.pdf" });
        for (const NodeFileInfo& document :
            { NodeFileInfo("A1.pdf", 7, 1, 0), { "B1.pdf", 7, 1, 1 }, { "A2.pdf", 7, 2, 0 }, { "B2.pdf", 7, 2, 1 },
                { "A4.pdf", 7, 4, 0 }, { "Lose.pdf", 99, 1, 0 }, { "Plan.v2.pdf", 7, 2, 2 } })
            files.insert(document.FileName(), document);
    }
    NodeInfo schacht { 3, "Schacht 3" }, haus { 7, "Haus 7" }, unnamed { 9, "" };
    QMap<int, NodeInfo*> nodes { { 3, &schacht }, { 7, &haus }, { 9, &unnamed }, { 11, nullptr } };
    QMap<QString, NodeFileInfo> files;
} hostNodes; // for the operations that only read it

// Logs progress, files and blocks; deletes the blocks named "weg" and
// rewrites "X=alt", leaving every other line as it was.
struct Recorder : ObjectBlockProcessor, ProgressCallback {
    void Progress(const QString& path, int value, int maximum) override
    {
        events << QString("progress %1 %2/%3").arg(QFileInfo(path).fileName()).arg(value).arg(maximum);
    }
    void BeginFile(const QString& path) override { events << "begin " + QFileInfo(path).fileName(); }
    void EndFile(const QString& path) override { events << "end " + QFileInfo(path).fileName(); }
    void ProcessBlock(const QStringList& block, QStringList& result) override
    {
        events << "block";
        blocks << block;
        for (const QString& line : block)
            result << (block.contains("NA=weg") ? QStringList() : QStringList { line == "X=alt" ? "X=neu" : line });
    }
    QStringList events;
    Blocks blocks;
};

const QByteArray withLinks = HostText({ "DOC=a.pdf", "BO", "NA=Schacht", "HREF=" + StandardLink("C:\\x.pdf"), "EO" });
const QByteArray withoutLinks = HostText({ "DOC=a.pdf", "BO", "NA=Schacht", "EO" });

// Runs link removal over the annotation files of `documents`, or over all
// of them.
AnnotationFileProcessor removeLinks(const TestProject& project, const QStringList& documents, bool dry = false)
{
    RemoveHREFInAnnotationNT tool;
    tool.SetProjectRootDir(project.Root());
    tool.SetFileNames(documents);
    tool.SetAllAnnotationFiles(documents.isEmpty());
    tool.SetDryRun(dry);
    tool.Execute();
    return tool.FileProcessor();
}

// Creates the file when it is missing.
void setModified(const TestProject& project, const QString& name, int days)
{
    QFile file(project.DataPath(name));
    QVERIFY(file.open(QIODevice::Append)
        && file.setFileTime(QDateTime::currentDateTime().addDays(days), QFileDevice::FileModificationTime));
}

// What blocks see of the rest of their file: templates for the measures.
const QStringList templates { "BO", "TY=POLY", "NA=Vorlage", "GEO=1;1;1;1", "EO", "BO", "TY=RECT", "NA=Vorlage",
    "GEO=10;20;30;40", "EO", "BO", "TY=RECT", "NA=Vorlage", "GEO=99;99;99;99", "EO" };

// The options of every operation: `option` is a zone, a page delta, a
// target index "#n", switches for the measures (F from the template, L left,
// W width, H height, T topwards) with the template's name after a blank...
NodeOperationOptions optionsFor(const QString& option, HostNodes& host = hostNodes)
{
    NodeOperationOptions options;
    options.nodes = option == "no host" ? nullptr : &host.nodes;
    options.files = option == "no host" ? nullptr : &host.files;
    options.ignorePathOnCompare = option == "file name only";
    options.newLinkTarget = "neu.pdf";
    options.pathMap = { { "c:\\a1\\pdf\\p1.pdf", "c:\\b1\\pdf\\p1.pdf" },
        { "c:\\a1\\pdf\\p2.pdf", "c:\\b1\\pdf\\p2.pdf" }, { "x:\\gleich.pdf", "x:\\gleich.pdf" } };
    options.setName = options.setText = option == "name and text";
    options.name = "Neu";
    options.text = "a\r\nEO\nb";
    const QString switches = option.section(' ', 0, 0);
    options.setDimensions = true;
    options.dimensions = { switches.contains('F'), option.contains(' ') ? option.section(' ', 1) : "Vorlage",
        switches.contains('L'), switches.contains('W'), switches.contains('H'), switches.contains('T') };
    options.targetZone = options.pageDelta = option.toInt();
    options.useTargetIndex = option.startsWith('#');
    options.targetIndex = option.mid(1).toUInt();
    options.useEnvFactor = option != "off";
    options.envFactor = option == "inf" ? float(qInf()) : 1.27f;
    return options;
}

// What `tool`, of a block-based operation, makes of the block of `lines` in
// an annotation file `name`, with the templates for the measures after it.
QStringList preview(NodeTool& tool, const QStringList& lines, const QString& name = "a.ann")
{
    TestProject project;
    project.Write(name, HostText(block(lines) + templates));
    QByteArray current, result;
    static_cast<BlockNodeTool&>(tool).PreviewFile(project.DataPath(name), &current, &result);
    const QStringList text = QString::fromUtf8(result).split("\r\n");
    return text.mid(0, text.indexOf("EO") + 1);
}

NodeToolBackup backupOf(const TestProject& project, const QString& logText)
{
    NodeToolBackup backup;
    backup.projectRootDir = project.Root();
    backup.logText = logText;
    return backup;
}

QStringList backupFolders(const TestProject& project)
{
    return QDir(project.DataPath("ann_sic")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

} // namespace

class NodeToolsTest : public QObject
{
    Q_OBJECT

    // A link record (standard, or one record of a split link) of the given type.
    static QString record(const QStringList& paths, const QStringList& pages = { "1" }, const QString& type = "0",
        const QString& description = "Detail")
    {
        return type + StandardLink(paths.join(Z), pages.join(Z), description).mid(1);
    }
    static QString href(const QString& path, const QString& page = "1") { return "HREF=" + StandardLink(path, page); }
    static QString split(const QStringList& records) { return "HREF=" + S + records.join(T); }

private Q_SLOTS:
    void textSplitsIntoBlocksAndJoinsWithCrLf_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<Blocks>("blocks");
        const auto row = [](const char* name, const QString& input, const QString& expected, const Blocks& blocks) {
            QTest::newRow(name) << input << expected << blocks;
        };
        const QStringList a { "BO", "A=1", "EO" };
        row("lone CR ends a line", "A\rB", "A\r\nB", {});
        row("empty lines and the final line end vanish", "BO\r\n\r\nA=1\n\nEO\r\n", "BO\r\nA=1\r\nEO", { a });
        // Blocks of different lengths: what a processor kept of an earlier
        // block must not change when the next one is read.
        row("two blocks, lines between them copied", "BO\r\nNA=erstes Objekt\r\nEO\r\nX=9\r\nBO\r\nB=2\r\nEO",
            "BO\r\nNA=erstes Objekt\r\nEO\r\nX=9\r\nBO\r\nB=2\r\nEO",
            { { "BO", "NA=erstes Objekt", "EO" }, { "BO", "B=2", "EO" } });
        row("result lines take the place of the block", "H\r\nBO\r\nNA=weg\r\nEO\r\nBO\r\nX=alt\r\nEO\r\nT",
            "H\r\nBO\r\nX=neu\r\nEO\r\nT", { { "BO", "NA=weg", "EO" }, { "BO", "X=alt", "EO" } });
        row("unclosed block after a closed one", "BO\r\nA=1\r\nEO\r\nX\r\nBO\r\nB=2", "BO\r\nA=1\r\nEO\r\nX", { a });
        row("markers stand alone, in capitals", " BO\r\nbo\r\nBO \r\nEO", " BO\r\nbo\r\nBO \r\nEO", {});
        row("EO outside, BO inside a block are ordinary", "EO\r\nBO\r\nBO\r\nA=1\r\nEO", "EO\r\nBO\r\nBO\r\nA=1\r\nEO",
            { { "BO", "BO", "A=1", "EO" } });
        row("only line ends", "\r\n\n", QString(), {});
    }

    void textSplitsIntoBlocksAndJoinsWithCrLf()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        QFETCH(Blocks, blocks);
        Recorder processor;
        QString text = input;
        QCOMPARE(AnnotationFileProcessor::ProcessText(text, processor), input != expected);
        QCOMPARE(text, expected);
        QCOMPARE(processor.blocks, blocks);
    }

    // A document's annotation file is named after its base name (up to the
    // first dot, folders ignored) or, when there is none, after its file name
    // without the last dot. b's is missing, c.ann is a folder that cannot be
    // opened as a file, e.ann a link to a file that is gone: before, the last two
    // went unmentioned. d's does not change and must not be written.
    void reportsEveryDocumentButCountsOnlyFoundFiles()
    {
        TestProject project;
        project.Write("a.ann", withLinks);
        project.Write("a.v1pdf.ann", withLinks);
        QVERIFY(QDir(project.DataDir()).mkdir("c.ann"));
        project.Write("d.v3pdf.ann", withoutLinks);
        setModified(project, "d.v3pdf.ann", -30);
        QVERIFY(QFile::link("gone.ann", project.DataPath("e.ann")));
        AnnotationFileProcessor processor;
        processor.SetProjectRootDir(project.Root());
        processor.SetFileNames({ "C:\\P.1\\a.v1.pdf", "b.v2.pdf", "c.pdf", "/srv/P.2/d.v3.pdf", "e.pdf" });
        Recorder log;
        processor.SetProgressCallback(&log);
        processor.Run(log);

        QCOMPARE(log.events,
            (QStringList { "progress a.ann 1/5", "begin a.ann", "block", "end a.ann", "progress b.v2pdf.ann 2/5",
                "progress c.ann 3/5", "begin c.ann", "end c.ann", "progress d.v3pdf.ann 4/5", "begin d.v3pdf.ann",
                "block", "end d.v3pdf.ann", "progress epdf.ann 5/5" }));
        QCOMPARE(processor.GetFilesExamined(), 2);
        QVERIFY(QFileInfo(project.DataPath("d.v3pdf.ann")).lastModified() < QDateTime::currentDateTime().addDays(-29));
        QCOMPARE(processor.GetDocumentsWithoutFile(), QStringList { "b.v2.pdf" });
        QCOMPARE(processor.GetLeftOutFiles(), (QStringList { project.DataPath("c.ann"), project.DataPath("e.ann") }));
        QCOMPARE(processor.GetWarnings(),
            (QStringList { project.DataPath("c.ann") + ": is a folder, left unchanged",
                project.DataPath("e.ann") + ": is a link to a missing file, left unchanged" }));
    }

    // The dry run takes all files, the real one the documents: all-files mode
    // must take just the annotation files of the data folder, in name order.
    // a.ann is a link, which the replacement keeps, with the permissions of
    // the file it leads to. Files that are not valid UTF-8 are never
    // rewritten; a byte-order mark and NUL bytes survive. A run killed
    // between naming its temporary file and renaming it over the annotation
    // file leaves the temporary file behind: the next real run removes it.
    void dryRunPredictsTheRealRunByteForByte()
    {
        TestProject project;
        project.Write("e.ann", "BO\r\nNA=zu\r\nEO\r\n\r\nBO\nNA=offen\nX=1"); // the last object is not closed
        project.Write("real", withLinks);
        QVERIFY(QFile::link("real", project.DataPath("a.ann")));
        const auto permissions = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup;
        QVERIFY(QFile::setPermissions(project.DataPath("real"), permissions));
        const QByteArray bom = "\xEF\xBB\xBF";
        project.Write("b.ann", bom + QByteArray("BO\nTX=a\0b\nEO\n\n", 14)); // line ends only
        project.Write("c.ann", withoutLinks);
        const QByteArray link = "\r\nHREF=x\r\nEO";
        const QList<QByteArray> invalid { "BO\r\nNA=Stra\xDF" + link, "BO" + link + "\r\nX=\xC3", // cut off at the end
            "BO\r\nNA=\xED\xA0\x80" + link, "BO\r\nNA=\xC0\xAF" + link }; // an encoded surrogate, an overlong slash
        QStringList warnings;
        for (int i = 0; i < invalid.size(); ++i) {
            project.Write(QString("d%1.ann").arg(i), invalid.at(i));
            warnings << project.DataPath(QString("d%1.ann").arg(i)) + ": not valid UTF-8, left unchanged";
        }
        const QStringList debris { ".a.ann.kamo-1x9z0q", ".a.ann.kamo-AbC123" },
            kept { ".a.ann.kamo-newer", ".notes.kamo-1x9z0q", "a.ann.kamo-1x9z0q", ".a.ann.kamo-toolong1" };
        for (const QString& name : debris + kept) // newer: a file of a run still going
            setModified(project, name, name.contains("newer") ? 1 : -1);
        project.Write("notes.txt", withLinks);
        project.Write("ann_sic/01.01.2024 10.00.00/a.ann", withLinks);
        const QStringList entries = project.DataEntries();

        const AnnotationFileProcessor dry = removeLinks(project, {}, true);
        QCOMPARE(project.Read("a.ann"), withLinks);
        QCOMPARE(project.DataEntries(), entries);
        QList<QByteArray> previews;
        for (const QString& path : dry.GetChangedFiles()) {
            QByteArray current;
            previews.append(QByteArray());
            QVERIFY(RemoveHREFInAnnotationNT().PreviewFile(path, &current, &previews.last()));
            QCOMPARE(current, project.Read(QFileInfo(path).fileName()));
        }

        const AnnotationFileProcessor real = removeLinks(
            project, { "a.pdf", "b.pdf", "c.pdf", "d0.pdf", "d1.pdf", "d2.pdf", "d3.pdf", "e.pdf", "missing.pdf" });
        QCOMPARE(dry.GetChangedFiles(), real.GetChangedFiles());
        QCOMPARE(dry.GetChangedBlockCounts(), (QList<int> { 1, 0, 1 }));
        QCOMPARE(dry.GetWarnings(), real.GetWarnings());
        QCOMPARE(real.GetWarnings(),
            warnings << project.DataPath("e.ann")
                    + ": the object from line 5 is not closed: its 3 lines to the end of the file are dropped");
        QCOMPARE(dry.GetLeftOutFiles(), real.GetLeftOutFiles());
        QCOMPARE(dry.GetFilesExamined(), 8);
        QCOMPARE(real.GetFilesExamined(), 8);
        QCOMPARE(previews, (QList<QByteArray> { project.Read("a.ann"), project.Read("b.ann"), project.Read("e.ann") }));
        QCOMPARE(project.Read("real"), withoutLinks);
        QCOMPARE(project.Read("b.ann"), bom + QByteArray("BO\r\nTX=a\0b\r\nEO", 14));
        QCOMPARE(project.Read("e.ann"), QByteArray("BO\r\nNA=zu\r\nEO"));
        for (int i = 0; i < invalid.size(); ++i)
            QCOMPARE(project.Read(QString("d%1.ann").arg(i)), invalid.at(i));
        QCOMPARE(project.DataEntries(), QStringList(entries.mid(debris.size()))); // they sort first
        QVERIFY(QFileInfo(project.DataPath("a.ann")).isSymLink());
        // The "User" flags describe whoever runs the test, not the file.
        const auto userFlags = QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser;
        QCOMPARE(QFile::permissions(project.DataPath("real")) & ~userFlags, permissions);
    }

    void failedWriteKeepsOldContentAndLeavesNoTemporaryFile_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("warning"); // of the run, when it is not killed
        QTest::newRow("write fails") << QString("limit") << QString("could not be written (File too large)");
        QTest::newRow("process killed") << QString("killed") << QString();
        // Before, a file that could not be opened for writing was skipped
        // without a word.
        QTest::newRow("file the user may not write")
            << QString("permission") << QString("could not be opened (Permission denied)");
    }

    // The run goes to a child process: under a file-size limit far below the
    // new content, with the limit's signal ignored (the write fails) or with
    // its default action (the process is killed in the middle of writing);
    // or, where root may write anything, as an ordinary user.
    void failedWriteKeepsOldContentAndLeavesNoTemporaryFile()
    {
        QFETCH(QString, fault);
        QFETCH(QString, warning);
        TestProject project;
        const QByteArray original = QByteArray("BO\nHREF=x\nEO\n").repeated(400); // LF: every byte gets rewritten
        project.Write("a.ann", original);
        const uid_t nobody = 65534;
        if (fault == "permission") {
            QVERIFY(QFile::setPermissions(project.DataPath("a.ann"), QFileDevice::ReadOwner | QFileDevice::ReadOther));
            for (const QString& path : { project.Root(), project.DataDir(), project.DataPath("a.ann") })
                QVERIFY(geteuid() != 0 || chown(QFile::encodeName(path).constData(), nobody, nobody) == 0);
        }
        const int status = InChild([&] {
            if (fault == "permission" && geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0))
                return 2;
            if (access(QFile::encodeName(project.DataDir()).constData(), R_OK | W_OK | X_OK) != 0)
                return 3;
            std::signal(SIGXFSZ, fault == "killed" ? SIG_DFL : SIG_IGN);
            const rlimit fileSize { 1024, 1024 };
            if (fault != "permission")
                setrlimit(RLIMIT_FSIZE, &fileSize);
            const AnnotationFileProcessor processor = removeLinks(project, { "a.pdf" });
            const QString path = project.DataPath("a.ann");
            return int(processor.GetWarnings() != QStringList { path + ": " + warning + ", left unchanged" }
                || processor.GetLeftOutFiles() != QStringList { path });
        });
        if (status == 3)
            QSKIP("an ordinary user cannot reach the temporary folder here (a bare chroot's root folder)");
        QCOMPARE(status, fault == "killed" ? -SIGXFSZ : 0);
        QCOMPARE(project.Read("a.ann"), original);
        QCOMPARE(project.DataEntries(), QStringList { "a.ann" });
    }

    void filtersSelectBlocks_data()
    {
        QTest::addColumn<QString>("category");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<bool>("byCategory"); // the operations without a name filter
        QTest::addColumn<bool>("byBoth");
        const auto row = [](const char* rowName, const QString& category, const QString& name, const QStringList& lines,
                             bool byCategory, bool byBoth) {
            QTest::newRow(rowName) << category << name << lines << byCategory << byBoth;
        };
        row("category and name match", "Baum", "^S\\d", { "NA=S12", "KA=Baum" }, true, true);
        row("category case differs", "Baum", "", { "KA=baum" }, false, false);
        row("category with a trailing blank", "Baum", "", { "KA=Baum " }, false, false);
        row("no category line", "Baum", "", { "KAT=Baum" }, false, false);
        row("empty category line skipped", "Baum", "", { "KA=", "KA=Baum" }, true, true);
        row("only the first category counts", "Baum", "", { "KA=Kanal", "KA=Baum" }, false, false);
        row("other name", "Baum", "^S\\d", { "NA=Sx", "KA=Baum" }, true, false);
        row("no name line", "", ".", { "KA=Kanal" }, true, false);
        row("first name line counts", "", "^S", { "NA=T", "NA=S" }, true, false);
        row("invalid expression", "", "(", { "NA=(" }, true, false);
    }

    void filtersSelectBlocks()
    {
        QFETCH(QString, category);
        QFETCH(QString, name);
        QFETCH(QStringList, lines);
        QFETCH(bool, byCategory);
        QFETCH(bool, byBoth);
        NodeOperationOptions options = optionsFor("1");
        options.categoryFilter = category;
        options.nameFilter = name;
        for (const int operation : { Op::RemoveHREF, Op::DuplicateHREF, Op::HREFToSplit, Op::HREFToStandard,
                 Op::ModifyTargets, Op::ChangePages, Op::SetProperties }) {
            options.setName = options.setText = operation == Op::SetProperties;
            const QStringList properties
                = lines + QStringList { operation == Op::HREFToStandard ? split({ record({ "x" }) }) : href("x") };
            const bool changed = preview(*Op::Create(operation, options), properties) != block(properties);
            const bool named = Op::Options(operation) & Op::NameFilter;
            QVERIFY2(changed == (named ? byBoth : byCategory), qPrintable(Op::Name(operation)));
        }
    }

    void blocksRewritten_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<QString>("option");
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QStringList>("expected"); // none: the block stays as it was
        const auto row = [](const char* name, int operation, const QString& option, const QStringList& lines,
                             const QStringList& expected = {}) {
            QTest::newRow(name) << operation << option << lines << (expected.isEmpty() ? lines : expected);
        };
        const int remove = Op::RemoveHREF, duplicate = Op::DuplicateHREF, paths = Op::MapHREFPaths,
                  toSplit = Op::HREFToSplit, toStandard = Op::HREFToStandard, factor = Op::ModifyTargets,
                  pages = Op::ChangePages, properties = Op::SetProperties, captions = Op::MatchNames;
        row("remove: only link lines", remove, "",
            { "NA=S", "HREF=a", "HREFX=b", "HREF=" + S + "0" + F + "c", "TX=HREF=d", "HREF=" },
            { "NA=S", "HREFX=b", "TX=HREF=d" });

        const QString first = "HREF=" + StandardLink("erstes.pdf", "4", "E");
        const QString splitFirst = "HREF=" + S + StandardLink("a.pdf");
        row("duplicate: right after the first standard link", duplicate, "",
            { "NA=x", splitFirst, first, href("b.pdf"), "TX=t" },
            { "NA=x", splitFirst, first, "HREF=" + StandardLink("neu.pdf", "4", "E"), href("b.pdf"), "TX=t" });
        row("duplicate: 22 or 24 fields are no standard link", duplicate, "",
            { "HREF=" + StandardLink("a.pdf").section(F, 0, 21), href("a.pdf") + F });
        row("duplicate: empty fields keep their places", duplicate, "", { "HREF=" + StandardLink("a.pdf", "", "") },
            { "HREF=" + StandardLink("a.pdf", "", ""), "HREF=" + StandardLink("neu.pdf", "", "") });

        row("paths: slashes, blanks, no entry or one to itself keep the bytes", paths, "",
            { href("C:/A1/PDF/P1.PDF"), href(" C:\\A1\\PDF\\P1.PDF"), href("C:\\Andere.PDF"), href("X:\\Gleich.pdf"),
                "TX=C:\\A1\\PDF\\P1.PDF" });
        row("paths: every zone of every target", paths, "",
            { split({ record({ "C:\\A1\\PDF\\P1.PDF", "y.pdf" }, { "3", "4" }), record({ "c:\\a1\\pdf\\p2.pdf" }) }) },
            { split({ record({ "c:\\b1\\pdf\\p1.pdf", "y.pdf" }, { "3", "4" }), record({ "c:\\b1\\pdf\\p2.pdf" }) }) });
        row("paths: no targets leave an empty line", paths, "", { href("") }, { "" });

        row("split: counterparts up to the last zone, name ignoring case", toSplit, "", { href("C:\\P\\a1.PDF", "3") },
            { split({ record({ "C:\\P\\a1.PDF", "C:\\P\\A2.pdf", "", "C:\\P\\A4.pdf" }, { "3", "", "", "" }) }) });
        row("split: own zone last", toSplit, "", { href("/srv/p/A4.pdf", "") },
            { split({ record({ "/srv/p/A1.pdf", "/srv/p/A2.pdf", "", "/srv/p/A4.pdf" }, { "", "", "", "" }) }) });
        row("split: no counterpart after the own zone", toSplit, "", { href("x/b2.pdf", "5") },
            { split({ record({ "x/B1.pdf", "x/b2.pdf" }, { "", "5" }) }) });
        row("split: unknown node, no project document, web link", toSplit, "",
            { href("C:\\Lose.pdf"), href("C:\\A1.pdf.bak"), "HREF=" + record({ "http://h/A1.pdf" }, { "" }, "1") },
            { split({ record({ "C:\\Lose.pdf" }) }), split({ record({ "C:\\A1.pdf.bak" }) }),
                split({ record({ "http://h/A1.pdf" }, { "" }, "1") }) });
        row("split: maps not set", toSplit, "no host", { href("A1.pdf") }, { split({ record({ "A1.pdf" }) }) });
        row("split: already split, or no target", toSplit, "", { split({ record({ "A1.pdf" }) }), href("") });

        const QString two = split(
            { record({ "a1.pdf", "a2.pdf" }, { "3", "4" }), record({ "b1.pdf", "", "b3.pdf" }, { "5", "", "" }) });
        const QStringList zone1 { href("a1.pdf", "3"), href("b1.pdf", "5") }, zone2 { href("a2.pdf", "4") };
        row("standard: both targets, in order", toStandard, "1", { "NA=S", two, "TX=t" },
            QStringList { "NA=S" } + zone1 + QStringList { "TX=t" });
        row("standard: target without the zone dropped", toStandard, "2", { two }, zone2);
        row("standard: zone beyond the shorter record", toStandard, "3", { two }, { href("b3.pdf", "") });
        row("standard: no target in the zone, stays split", toStandard, "4", { two });
        row("standard: zone out of range", toStandard, "5", { two });
        row("standard: zone of the document's node", toStandard, "A1.ann", { two }, zone2);
        row("standard: the document's second file name", toStandard, "Plan.v2pdf.ann", { two }, zone2);
        row("standard: unknown node, zone 1", toStandard, "Lose.ann", { two }, zone1);
        row("standard: automatic, unknown document, is zone 1", toStandard, "0", { two }, zone1);
        row("standard: other fields kept, standard link left", toStandard, "2",
            { split({ record({ "", "w" }, { "", "" }, "1") }), href("a.pdf") },
            { "HREF=" + record({ "w" }, { "" }, "1"), href("a.pdf") });

        // The factor is 1.27, written with one decimal.
        const QString a = record({ "a.pdf" }), b = record({ "b.pdf", "c.pdf" }, { "1", "2" });
        const QString a13 = QString(a).replace(F + "1.0" + F, F + "1.3" + F);
        const QString b13 = QString(b).replace(F + "1.0" + F, F + "1.3" + F);
        row("factor: every target", factor, "", { split({ a, b }) }, { split({ a13, b13 }) });
        row("factor: second target only", factor, "#1", { split({ a, b }) }, { split({ a, b13 }) });
        row("factor: standard link is index 0", factor, "#0", { "HREF=" + a }, { "HREF=" + a13 });
        row("factor: already that text", factor, "", { "HREF=" + a13 });
        row("factor: switched off", factor, "off", { "HREF=" + a });
        row("factor: not finite", factor, "inf", { "HREF=" + a });

        row("pages: forward", pages, "2", { href("a.pdf", "3") }, { href("a.pdf", "5") });
        row("pages: clamped at 1", pages, "-5", { href("a.pdf", "3") }, { href("a.pdf", "1") });
        row("pages: empty page counts as 1", pages, "2", { href("a.pdf", "") }, { href("a.pdf", "3") });
        row("pages: empty page stays at 1", pages, "-1", { href("a.pdf", "") });
        row("pages: delta 0 keeps a leading zero", pages, "0", { href("a.pdf", "03") });
        row("pages: no page number, zero, sign and blank left", pages, "4",
            { href("a.pdf", "iv"), split({ record({ "a", "b", "c" }, { "0", "+2", " 2" }) }) });
        row("pages: linked zones only", pages, "1", { split({ record({ "a", "", "c" }, { "2", "2", "" }) }) },
            { split({ record({ "a", "", "c" }, { "3", "2", "2" }) }) });
        const auto types = [](const QString& page) {
            return split({ record({ "a" }, { page }, ""), record({ "u" }, { "2" }, "1"), record({ "7" }, { "2" }, "2"),
                record({ "m" }, { "2" }, "3") });
        };
        row("pages: empty type is a document; web, node and mail left", pages, "1", { types("2") }, { types("3") });

        row("properties: first name and text lines replaced", properties, "name and text",
            { "NA=Alt", "NA=Zwei", "TX=alt", "TX=zwei" }, { "NA=Neu", "NA=Zwei", "TX=a  EO b", "TX=zwei" });
        // The line breaks of the text must not close the object.
        row("properties: both added before EO", properties, "name and text", { "KA=Kanal" },
            { "KA=Kanal", "NA=Neu", "TX=a  EO b" });

        // The template is a rectangle named "Vorlage" of the file; a polygon
        // before it and a later rectangle of the same name are none.
        const auto rect = [](const QString& geometry) { return QStringList { "TY=RECT", "GEO=" + geometry }; };
        row("measures: left", properties, "FL", rect("1;2;3;4"), rect("10;2;3;4"));
        row("measures: width", properties, "FW", rect("1;2;3;4"), rect("1;2;30;4"));
        row("measures: height downwards", properties, "FH", rect("1;2;3;4"), rect("1;2;3;40"));
        row("measures: height topwards keeps the bottom", properties, "FHT", rect("1;50;3;4"), rect("1;14;3;40"));
        row("measures: topwards in exact decimals", properties, "FHT", rect("1;50.1;3;4.2"), rect("1;14.3;3;40"));
        row("measures: same height as other text", properties, "FHT", rect("1;2.50;3;40.0"), rect("1;2.50;3;40"));
        row("measures: the template keeps its own", properties, "FLWHT",
            { "TY=RECT", "NA=Vorlage", "GEO=10;20;30;40" });
        row("measures: no source", properties, "LWHT", rect("1;2;3;4"));
        row("measures: no template", properties, "FLWHT Fehlt", rect("1;2;3;4"));
        row("measures: name matched exactly", properties, "FLWHT vorlage", rect("1;2;3;4"));
        row("measures: not a rectangle", properties, "FLWHT", { "TY=POLY", "GEO=1;2;3;4" });
        row("measures: three numbers", properties, "FLWHT", rect("1;2;3"));
        row("measures: exponent", properties, "FLWHT", rect("1e1;2;3;4"));
        row("measures: decimal comma", properties, "FLWHT", rect("1,5;2;3;4"));

        // A link of a type to a path, captioned "alt" or as given.
        const auto link = [](const QString& type, const QString& path, const QString& caption = "alt") {
            return "HREF=" + record({ path }, { "1" }, type, caption);
        };
        row("captions: node link", captions, "", { link("2", "7") }, { link("2", "7", "Haus 7") });
        row("captions: unknown, not decimal, null or unnamed node", captions, "",
            { link("2", "12"), link("2", "+7"), link("2", "11"), link("2", "9") });
        row("captions: whole path, case and slashes ignored", captions, "", { link("0", "c:/projekt/pdf/PLAN.PDF") },
            { link("0", "c:/projekt/pdf/PLAN.PDF", "Schacht 3") });
        row("captions: whole path, other folder", captions, "", { link("0", "E:\\Plan.pdf") });
        row("captions: file name only, lowest id wins; another zone's list", captions, "file name only",
            { link("0", "E:\\Plan.pdf"), link("", "foto.JPG") },
            { link("0", "E:\\Plan.pdf", "Schacht 3"), link("", "foto.JPG", "Haus 7") });
        row("captions: web link", captions, "file name only", { link("1", "Foto.jpg") });
        row("captions: no nodes", captions, "no host", { link("2", "7") });
        const QString x = record({ "x.pdf" }, { "1" }, "0", "a");
        row("captions: split link, second zone, second target", captions, "",
            { split({ x, record({ "y.pdf", "Foto.jpg" }, { "1", "2" }, "0", "b") }) },
            { split({ x, record({ "y.pdf", "Foto.jpg" }, { "1", "2" }, "0", "Haus 7") }) });
        // Written back, the short page list would grow by one entry.
        row("captions: caption already right, kept as read", captions, "",
            { "HREF=" + S + "2" + F + "7" + Z + "3" + F + F + "Haus 7" });
    }

    void blocksRewritten()
    {
        QFETCH(int, operation);
        QFETCH(QString, option);
        QFETCH(QStringList, lines);
        QFETCH(QStringList, expected);
        const QString file = option.endsWith(".ann") ? option : "a.ann";
        QCOMPARE(preview(*Op::Create(operation, optionsFor(option)), lines, file), block(expected));
    }

    // The operations index the host's maps; a change between runs must not
    // be answered from the old index. Links to a node can stand in any
    // document: the captions follow the nodes in every annotation file, not
    // only in those of chosen documents.
    void hostMapsAreFollowedWhenChangedAndInEveryFile()
    {
        HostNodes host;
        const auto tool = Op::Create(Op::HREFToSplit, optionsFor("", host));
        preview(*tool, { href("A1.pdf") });
        host.files.remove("A1.pdf");
        QCOMPARE(preview(*tool, { href("A1.pdf") }), block({ split({ record({ "A1.pdf" }) }) }));
        host.files.insert("a1.pdf", { "a1.pdf", 7, 1, 1 });
        QCOMPARE(preview(*tool, { href("A1.pdf") }), block({ split({ record({ "A1.pdf", "B2.pdf" }, { "1", "" }) }) }));

        TestProject project;
        project.Write("a.ann", HostText(block({ "HREF=" + record({ "7" }, { "1" }, "2", "alt") })));
        ReplaceNameInAnnotationsNT captions;
        captions.SetProjectRootDir(project.Root());
        captions.SetNodesMap(&host.nodes);
        captions.Execute();
        QCOMPARE(project.Read("a.ann"), HostText(block({ "HREF=" + record({ "7" }, { "1" }, "2", "Haus 7") })));
    }

    // A header line is an entry, a third field is ignored, a line without a
    // comma skipped, the first line for a path wins, blanks and empty fields
    // are kept; all in lower case.
    void pathMapFileIsReadAsWritten()
    {
        TestProject project;
        QVERIFY(LoadHREFPathMap(project.DataPath("map.csv")).isEmpty());
        project.Write("map.csv",
            "Dateipfad Alt,Dateipfad Neu\r\nC:\\A1\\P1.PDF,C:\\B1\\P1.PDF,c\r\nein Feld\n\n"
            "X.PDF,erst\nx.pdf,zweit\n a , b\n,leer\n\303\234bersicht.pdf,Neu.pdf\n");
        QCOMPARE(LoadHREFPathMap(project.DataPath("map.csv")),
            (QMap<QString, QString> { { "dateipfad alt", "dateipfad neu" }, { "c:\\a1\\p1.pdf", "c:\\b1\\p1.pdf" },
                { "x.pdf", "erst" }, { " a ", " b" }, { "", "leer" }, { "übersicht.pdf", "neu.pdf" } }));
    }

    void pinsAppendedOnce_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<QStringList>("appended");
        const QStringList pin500 { "TY=PIN", "PG=1", "GEO=0.1;297.25", "NA=Stadtwerke", "KA=Betroffenheit", "PIN=500",
            "EO" };
        const QStringList pin501 { "TY=PIN", "PG=2", "GEO=12;30.5", "NA=Müller", "KA=Betroffenheit", "TX=Flur 3",
            "PIN=501", "BT=7", "EO" };
        const QStringList numbered { "ANN=2", "BO", "ID=3", "EO", "BO", "ID=12", "EO", "BO", "ID=x", "EO" };
        const QStringList both = QStringList { "BO", "ID=13" } + pin500 + QStringList { "BO", "ID=14" } + pin501;
        QTest::newRow("after the highest numeric id") << "Plan.pdf" << numbered << both;
        QTest::newRow("same file name, any case and folder") << "C:\\Archiv\\PLAN.PDF" << numbered << both;
        QTest::newRow("pin already there")
            << "Plan.pdf" << QStringList { "BO", "ID=4", "PIN=500", "EO" } << QStringList { "BO", "ID=5" } + pin501;
        QTest::newRow("no ids yet") << "Plan.pdf" << QStringList { "ANN=2" }
                                    << QStringList { "BO", "ID=1" } + pin500 + QStringList { "BO", "ID=2" } + pin501;
        QTest::newRow("another document's pins") << "Plan2.pdf" << numbered << QStringList {};
    }

    // Each row runs twice: the second run must find nothing to do.
    void pinsAppendedOnce()
    {
        QFETCH(QString, key);
        QFETCH(QStringList, before);
        QFETCH(QStringList, appended);
        TestProject project;
        project.Write("Plan.ann", HostText(before));
        project.Write("Andere.ann", HostText({ "BO", "ID=1", "EO" }));
        QMap<QString, QMap<int, QList<PinObject>>> pins { { "Andere.pdf", {} } };
        pins[key] = { { 1, { PinObject(500, 0.1, 297.25, "Stadtwerke") } },
            { 2, { PinObject(501, 12.0, 30.5, "Müller", 7, "Flur 3") } } };
        NodeOperationOptions options;
        options.projectRootDir = project.Root();
        options.documents = QStringList { "Ohne.pdf", "Plan.pdf", "Andere.pdf" };
        options.pins = &pins;
        for (int round = 0; round < 2; ++round) {
            const std::unique_ptr<NodeTool> tool = Op::Create(Op::ConvertPins, options);
            tool->Execute();
            QCOMPARE(project.Read("Plan.ann"), HostText(before + appended));
            QCOMPARE(project.Read("Andere.ann"), HostText({ "BO", "ID=1", "EO" }));
            QCOMPARE(tool->GetFilesExamined(), 2);
            QCOMPARE(tool->GetFilesChanged(), round == 0 && !appended.isEmpty() ? 1 : 0);
        }
    }

    // The host's documents, some only in its files map, against a data folder
    // with a fallback name, a subfolder and the tools' own folders. What is unused
    // moves, but never over a file there nor into a folder below the target.
    void analysisSortsAnnotationFilesAndMovesTheUnused()
    {
        TestProject project;
        for (const QString name : { "Plan.ann", "Fotojpg.ann", "Lose.ann", "Verwaist.ann", "Alt.ann", "alt/Plan.ann",
                 "ann_sic/01.02.2024 10.00.00/Plan.ann", "ann_obsolet/Verwaist.ann", "Notiz.txt" })
            project.Write(name, name.toUtf8());
        AnalyzeProjectNT analysis;
        analysis.SetProjectRootDir(project.Root());
        analysis.SetNodesMap(&hostNodes.nodes);
        analysis.SetFilesMap(&hostNodes.files);
        analysis.Execute();
        QCOMPARE(analysis.GetFilesExamined(), 10);
        QCOMPARE(analysis.GetUsedAnnotationFiles(), (QStringList { "Fotojpg.ann", "Lose.ann", "Plan.ann" }));
        const QStringList unused { "Alt.ann", "Verwaist.ann", "alt/Plan.ann" };
        QCOMPARE(analysis.GetUnusedAnnotationFiles(), unused);
        QCOMPARE(analysis.GetDocumentsWithoutAnnotations(),
            (QStringList { "A1.pdf", "A2.pdf", "A4.pdf", "B1.pdf", "B2.pdf", "D:/Archiv/plan.PDF" }));
        QCOMPARE(analysis.GetReferencedFiles().value("Foto.jpg"), "Fotojpg.ann");
        QCOMPARE(analysis.GetReferencedFiles().size(), 4);

        const QString data = project.DataDir();
        QCOMPARE(AnalyzeProjectNT::MoveAnnotationFiles(data, unused, data + "/"), QStringList());
        QCOMPARE(AnalyzeProjectNT::MoveAnnotationFiles(data, unused + QStringList { "weg.ann" }, data + "/ann_obsolet"),
            QStringList { "Alt.ann" });
        for (const QString name : { "Verwaist.ann", "alt/Plan.ann", "ann_obsolet/Verwaist.ann" })
            QCOMPARE(project.Read(name), name.toUtf8());
        QCOMPARE(project.Read("ann_obsolet/Alt.ann"), "Alt.ann");
    }

    // Each row: the files on disk (under "old" the documents' first home,
    // under "new" where they went), the links of one annotation file ("@"
    // for the tree's folder), and for each target found: state and proposal.
    // The proposals, written as a path map and applied by operation 5, leave
    // none of their targets missing.
    void linkCheckFindsWhatIsGoneAndWhereItWent_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("links");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<bool>("latin1");
        const auto row
            = [](const char* name, const QStringList& files, const QStringList& links, const QStringList& expected,
                  bool latin1 = false) { QTest::newRow(name) << files << links << expected << latin1; };
        row("a target that exists is never proposed, though its name is under the search folder too",
            { "old/plan.pdf", "new/plan.pdf" }, { href("@/old/plan.pdf") }, { "@/old/plan.pdf x1 exists " });
        row("moved file: one candidate", { "old/keep.pdf", "new/sub/plan.pdf" }, { href("@/old/plan.pdf") },
            { "@/old/plan.pdf x1 missing proposed @/new/sub/plan.pdf" });
        row("renamed folder: every file of it proposed", { "new/a.pdf", "new/b.pdf" },
            { href("@/old/a.pdf"), href("@/old/b.pdf") },
            { "@/old/a.pdf x1 folder missing proposed @/new/a.pdf",
                "@/old/b.pdf x1 folder missing proposed @/new/b.pdf" });
        row("two files of the name: ambiguous, both listed", { "new/1/plan.pdf", "new/2/plan.pdf" },
            { href("@/old/plan.pdf") },
            { "@/old/plan.pdf x1 folder missing ambiguous @/new/1/plan.pdf @/new/2/plan.pdf" });
        row("the name found in another case", { "new/plan.pdf" }, { href("@/old/PLAN.PDF") },
            { "@/old/PLAN.PDF x1 folder missing proposed @/new/plan.pdf" });
        row("the same target twice counts once, with both links", {},
            { href("@/old/plan.pdf"), href("@/old/plan.pdf") }, { "@/old/plan.pdf x2 folder missing unresolved" });
        row("a split link: each zone's target on its own", { "old/a.pdf", "new/b.pdf" },
            { split({ record({ "@/old/a.pdf", "@/old/b.pdf" }, { "1", "2" }) }) },
            { "@/old/a.pdf x1 exists ", "@/old/b.pdf x1 missing proposed @/new/b.pdf" });
        row("a comma cannot be written into a path map", { "new/a,b.pdf" }, { href("@/old/a,b.pdf") },
            { "@/old/a,b.pdf x1 folder missing unwritable @/new/a,b.pdf" });
        row("Windows paths cannot exist here", { "new/plan.pdf" },
            { href("C:\\Projekte\\plan.pdf"), href("\\\\server\\share\\plan.pdf") },
            { "C:\\Projekte\\plan.pdf x1 foreign proposed @/new/plan.pdf",
                "\\\\server\\share\\plan.pdf x1 foreign proposed @/new/plan.pdf" });
        row("a relative path cannot be checked", {}, { href("PDF/plan.pdf") },
            { "PDF/plan.pdf x1 relative unresolved" });
        row("web links are no files", {}, { "HREF=" + record({ "https://example.org/plan.pdf" }, { "1" }, "1") }, {});
        row("a file that is not UTF-8 is warned about and not read", {}, { href("/nirgends/ä.pdf") }, {}, true);
    }

    void linkCheckFindsWhatIsGoneAndWhereItWent()
    {
        QFETCH(QStringList, files);
        QFETCH(QStringList, links);
        QFETCH(QStringList, expected);
        QFETCH(bool, latin1);
        // Documents on a file server, in a folder whose path is all lower case:
        // operation 5 writes the paths it redirects in lower case, which on a file
        // system that tells cases apart only a lower-case tree survives.
        const QString tree = QDir::tempPath() + "/kamo-linkcheck-" + QString::number(getpid());
        const auto removeTree = qScopeGuard([&tree] { QDir(tree).removeRecursively(); });
        for (const QString& file : files)
            QVERIFY(
                QDir().mkpath(QFileInfo(tree + '/' + file).path()) && QFile(tree + '/' + file).open(QFile::WriteOnly));
        TestProject project;
        const QString text = block(links.replaceInStrings("@", tree)).join("\r\n");
        project.Write("plan.ann", latin1 ? text.toLatin1() : text.toUtf8());
        LinkCheck check;
        check.SetProjectRootDir(project.Root());
        check.SetAllAnnotationFiles(true);
        check.SetSearchDirs({ tree + "/new" });
        check.Execute();
        QStringList found;
        const QStringList states { "exists", "missing", "folder missing", "foreign", "relative" };
        const QStringList proposals { "", "proposed", "ambiguous", "unresolved", "unwritable" };
        for (const LinkTarget& target : check.Targets()) {
            const QStringList fields { target.Path(), 'x' + QString::number(target.Links()),
                states.at(int(target.GetState())), proposals.at(int(target.GetProposal())) };
            found << (fields + target.Candidates()).join(' ').replace(tree, "@");
            QCOMPARE(target.AnnotationFiles(), QStringList { project.DataPath("plan.ann") });
        }
        QCOMPARE(found, expected);
        QCOMPARE(check.Warnings().join('\n'),
            latin1 ? project.DataPath("plan.ann") + ": not valid UTF-8, its links not checked" : QString());

        QString map;
        for (const QString& line : expected.filter(" proposed "))
            map += line.section(' ', 0, 0) + ',' + line.section(' ', -1) + "\r\n";
        QVERIFY(check.WriteMapFile(project.DataPath("vorschlag.csv")));
        QCOMPARE(QString::fromUtf8(project.Read("vorschlag.csv")).replace(tree, "@"), map);
        NodeOperationOptions options;
        options.projectRootDir = project.Root();
        options.allFiles = true;
        options.pathMap = LoadHREFPathMap(project.DataPath("vorschlag.csv"));
        Op::Create(Op::MapHREFPaths, options)->Execute();
        const int missing = check.MissingCount() - check.ProposedCount();
        check.Execute();
        QCOMPARE(check.ProposedCount(), 0);
        QCOMPARE(check.MissingCount(), missing);
    }

    // Only the annotation files directly in the data folder are copied. A
    // second backup in the same second shares the folder: it keeps the first
    // one's copies, lists them with its own, and writes its log over the
    // first one's from the start. The list shows every backup folder, newest
    // first, damaged ones too.
    void backupCopiesAnnotationFilesWithManifestAndLogAndListsThem()
    {
        TestProject project;
        project.Write("Übersicht.ann", "vorher");
        project.Write("a b.ann", "");
        // Not an annotation file, one left by a killed run, one in a subfolder.
        for (const char* name : { "Lageplan.pdf", ".Übersicht.ann.kamo-ab12cd", "unter/c.ann" })
            project.Write(name, "not copied");
        QThread::msleep(unsigned(1020 - QTime::currentTime().msec())); // the start of a second
        const QDateTime before = QDateTime::currentDateTime();
        NodeToolBackup first = backupOf(project, "Node Tool Operation: 1\nSource: x\nUser: mmeier");
        first.projectRootDir += "/./";
        QVERIFY(first.Create());
        project.Write("Übersicht.ann", "nachher");
        project.Write("b.ann", "neu");
        NodeToolBackup second = backupOf(project, "second");
        QVERIFY(second.Create());
        if (first.GetBackupFolder() != second.GetBackupFolder())
            QSKIP("the two backups crossed into the next second after all");

        const QString folder = first.GetBackupFolder();
        const QDateTime stamp = QDateTime::fromString(QFileInfo(folder).fileName(), "dd.MM.yyyy hh.mm.ss");
        QVERIFY(stamp.isValid() && qAbs(stamp.secsTo(before)) <= 2);
        QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
            (QStringList {
                "a b.ann", "b.ann", "nodeToolOperation.log", "nodeToolOperation.manifest", "Übersicht.ann" }));
        const QString inData = QDir(project.DataDir()).relativeFilePath(folder) + '/';
        QCOMPARE(project.Read(inData + "nodeToolOperation.log"),
            QByteArray("second\nol Operation: 1\nSource: x\nUser: mmeier\n"));
        // The manifest as its documented form reads, with digests made by Qt.
        QByteArray manifest = "KAMO-BACKUP-MANIFEST 1\n";
        const QMap<QString, QByteArray> copies { { "a b.ann", "" }, { "b.ann", "neu" }, { "Übersicht.ann", "vorher" } };
        for (auto copy = copies.cbegin(); copy != copies.cend(); ++copy) {
            QCOMPARE(project.Read(inData + copy.key()), copy.value());
            manifest += QCryptographicHash::hash(copy.value(), QCryptographicHash::Sha256).toHex() + ' '
                + QByteArray::number(copy.value().size()) + ' ' + copy.key().toUtf8() + '\n';
        }
        QCOMPARE(project.Read(inData + "nodeToolOperation.manifest"), manifest + "END 3\n");

        const QString old = "ann_sic/01.01.2020 10.00.00/";
        for (const char* path : { "ann_sic/kaputt", "ann_sic/03.03.2021 10.00.00/nodeToolOperation.log" })
            QVERIFY(QDir(project.DataDir()).mkpath(path));
        project.Write(old + "a.ann", "old");
        project.Write(old + "b.ann", "old");
        project.Write(old + "nodeToolOperation.log",
            "Node Tool Operation: restore 31.12.2019 09.00.00\r\nSource: /p\r\nUser: root\r\n");
        project.Write("ann_sic/04.04.2022 10.00.00/nodeToolOperation.log", QByteArray("\xFF\x00\x01Node", 7));
        project.Write("ann_sic/02.02.2021 10.00.00", "a file where a backup should be");
        project.Write("ann_sic/stray.txt", "not a backup");
        QStringList infos;
        for (const NodeToolBackupInfo& info : NodeToolBackup::List(project.Root()))
            infos << QStringList { info.stamp, info.operation, info.source, info.user, QString::number(info.fileCount),
                info.logRead ? "log" : "", info.isFolder ? "" : "file", info.time.isValid() ? "" : "no time" }
                         .join('|');
        QCOMPARE(infos,
            (QStringList { QFileInfo(folder).fileName() + "||x|mmeier|3|log||", "04.04.2022 10.00.00||||0|log||",
                "03.03.2021 10.00.00||||0|||", "02.02.2021 10.00.00||||0||file|",
                "01.01.2020 10.00.00|restore 31.12.2019 09.00.00|/p|root|2|log||", "kaputt||||0|||no time" }));
        NodeToolBackupCheck file(NodeToolBackup::BackupFolder(project.Root(), "02.02.2021 10.00.00"));
        QCOMPARE(file.GetState(), NodeToolBackupCheck::State::Damaged);
    }

    void backupFailsAndLeavesNothingBehind_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("reason");
        QTest::newRow("empty root") << QString("empty") << QString("no project folder given");
        QTest::newRow("no data folder") << QString("nodata") << QString("no data folder");
        QTest::newRow("backup folder cannot be created") << QString("blocked") << QString("cannot be created");
        // Before, a failed copy was ignored: the run went on and rewrote files
        // of which the backup held no copy.
        QTest::newRow("full disk") << QString("disk") << QString("No space left on device");
        QTest::newRow("file-size limit") << QString("limit") << QString("File too large");
        QTest::newRow("read error") << QString("read") << QString("Input/output error");
    }

    void backupFailsAndLeavesNothingBehind()
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
        else if (fault == "blocked")
            project.Write("ann_sic", "a file where the folder should go");
        NodeToolBackup backup = backupOf(project, "log");
        backup.projectRootDir = fault == "empty" ? QString() : fault == "nodata" ? project.DataDir() : project.Root();

        const bool copying = fault == "disk" || fault == "limit" || fault == "read";
        const int status = InChild([&] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit fileSize { 16 * 1024, 16 * 1024 };
            if (fault == "limit")
                setrlimit(RLIMIT_FSIZE, &fileSize);
            const bool failed = !backup.Create() && backup.GetBackupFolder().isEmpty();
            const QString problem = backup.GetProblems().value(0).reason;
            return failed && backup.ErrorString().contains(reason) && problem == (copying ? reason : QString()) ? 0 : 1;
        });
        QCOMPARE(status, 0);
        QCOMPARE(backupFolders(project), QStringList());
        QCOMPARE(project.Read("d0.ann"), content);
    }

    // Killed at any moment, a backup is whole and checks as such, or it checks
    // as damaged; before, a half-copied backup looked like any other.
    void killedBackupIsNeverTakenForAWholeOne()
    {
        TestProject project;
        for (int i = 0; i < 3000; ++i)
            project.Write(QString("d%1.ann").arg(i), QByteArray(200, 'x'));
        for (const int delay : { 1, 5, 20, 60, 200 }) {
            InChild([&] { return backupOf(project, "log").Create() ? 0 : 1; }, delay);
            for (const QString& stamp : backupFolders(project)) {
                NodeToolBackupCheck check(NodeToolBackup::BackupFolder(project.Root(), stamp));
                check.CheckAll();
                using State = NodeToolBackupCheck::State;
                // Killed before the first copy: an empty folder, nothing to restore.
                const bool empty = check.GetState() == State::NoManifest && check.GetFileCount() == 0;
                const bool whole = check.GetState() == State::Intact && check.GetFileCount() == 3000;
                QVERIFY2(
                    check.GetState() == State::Damaged || empty || whole, qPrintable(QString::number(delay) + " ms"));
            }
            QVERIFY(QDir(project.DataPath("ann_sic")).removeRecursively());
        }
    }

    // Each row damages the backup: a file written into it, or removed when
    // null.
    void restoreChecksEveryFileBeforeWriting_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("problems");
        QTest::addColumn<QStringList>("restoredAnyway"); // when the damaged files are skipped
        const auto row
            = [](const char* name, const QString& file, const QByteArray& content, const QStringList& problems,
                  const QStringList& restored) { QTest::newRow(name) << file << content << problems << restored; };
        const QString manifest = "nodeToolOperation.manifest";
        row("none", "", QByteArray(), {}, { "a.ann", "b.ann" });
        row("truncated", "a.ann", QByteArray(1000, 'a'), { "a.ann: 1000 bytes instead of 4000" }, { "b.ann" });
        row("changed", "a.ann", QByteArray(4000, 'b'), { "a.ann: its content changed since the backup" }, { "b.ann" });
        row("missing", "a.ann", QByteArray(), { "a.ann: missing" }, { "b.ann" });
        row("added", "x.ann", "X", { "x.ann: not in the manifest" }, { "a.ann", "b.ann" });
        row("killed while backing up", manifest, "KAMO-BACKUP-MANIFEST 1\n",
            { manifest + ": the backup was not finished", "a.ann: not in the manifest", "b.ann: not in the manifest" },
            {});
        row("no manifest (older version)", manifest, QByteArray(), {}, { "a.ann", "b.ann" });
    }

    void restoreChecksEveryFileBeforeWriting()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, content);
        QFETCH(QStringList, problems);
        QFETCH(QStringList, restoredAnyway);
        TestProject project;
        const QByteArray a(4000, 'a');
        project.Write("a.ann", a);
        project.Write("b.ann", "B");
        NodeToolBackup made = backupOf(project, "log");
        // Far from now: the restore need not wait for the next second.
        const QString stamp = "01.01.2020 10.00.00", folder = "ann_sic/" + stamp + "/";
        QVERIFY(made.Create() && QDir().rename(made.GetBackupFolder(), project.DataPath(folder)));
        project.Write("a.ann", "nachher");
        project.Write("b.ann", "nachher");
        if (!content.isNull())
            project.Write(folder + file, content);
        else if (!file.isEmpty())
            QVERIFY(QFile::remove(project.DataPath(folder + file)));

        NodeToolBackup restore = backupOf(project, "restore");
        const auto problemLines = [&restore] {
            QStringList lines;
            for (const NodeToolBackupCheck::Problem& problem : restore.GetProblems())
                lines << problem.fileName + ": " + problem.reason;
            return lines;
        };
        QStringList restored;
        QCOMPARE(restore.Restore(stamp, &restored), problems.isEmpty());
        QCOMPARE(problemLines(), problems);
        QCOMPARE(restore.WasChecked(), !(file.endsWith(".manifest") && content.isNull()));
        if (!problems.isEmpty()) {
            QCOMPARE(project.Read("a.ann"), QByteArray("nachher"));
            QCOMPARE(backupFolders(project), QStringList { stamp });
            QVERIFY(restore.Restore(stamp, &restored, true));
            QCOMPARE(problemLines(), problems);
        }
        QCOMPARE(restored, restoredAnyway);
        QCOMPARE(project.Read("a.ann"), restoredAnyway.contains("a.ann") ? a : QByteArray("nachher"));
        QCOMPARE(project.Read("b.ann"), restoredAnyway.contains("b.ann") ? QByteArray("B") : QByteArray("nachher"));
    }
};

QTEST_GUILESS_MAIN(NodeToolsTest)
#include "NodeToolsTest.moc"
