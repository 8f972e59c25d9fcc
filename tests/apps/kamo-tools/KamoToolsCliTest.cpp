#include "../../nodetools/TestProject.h"

#include <QProcess>
#include <QTest>

namespace {

struct Result {
    int exitCode = -1;
    QString out;
    QString err;
};

Result runTool(const QStringList& arguments)
{
    QProcess process;
    process.start(KAMO_TOOLS_EXECUTABLE, arguments);
    Result result;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit) {
        result.exitCode = process.exitCode();
        result.out = QString::fromUtf8(process.readAllStandardOutput());
        result.err = QString::fromUtf8(process.readAllStandardError());
    }
    return result;
}

QString link(const QString& path)
{
    return "HREF=" + StandardLink(path);
}

const QString splitLink = "HREF=" + QString(QChar(0x00A4)) + StandardLink("C:\\Alt\\Plan.PDF");

// a.ann: a "Kanal" object with a standard and a split link, a "Baum" object
// with one link.
const QStringList kanal { "BO", "NA=Haltung – Süd", "KA=Kanal", link("C:\\Alt\\Plan.PDF"), splitLink, "EO" };
const QStringList baum { "BO", "KA=Baum", link("C:\\Alt\\Foto.jpg"), "EO" };

} // namespace

class KamoToolsCliTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void badUsageExitsWithTwo_data();
    void badUsageExitsWithTwo();
    void operationRewritesAnnotationFiles_data();
    void operationRewritesAnnotationFiles();
    void backupIsTakenAndLogged();
    void failedBackupStopsBeforeAnyChange();
    void filesLeftUnchangedAreReportedAsWarnings();
};

void KamoToolsCliTest::badUsageExitsWithTwo_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("message");
    QTest::newRow("no command") << ""
                                << "Usage";
    QTest::newRow("unknown operation") << "node remove --project @ --all"
                                       << "unknown operation 'remove'";
    QTest::newRow("no project") << "node remove-href --all"
                                << "--project ROOT is required";
    QTest::newRow("all and documents") << "node remove-href --project @ --all a.pdf"
                                       << "not both";
    QTest::newRow("duplicate without target") << "node duplicate-href --project @ --all"
                                              << "needs --new-target";
    QTest::newRow("map file missing") << "node map-href-paths --project @ --map @/x.csv --all"
                                      << "map file";
    QTest::newRow("project missing") << "node remove-href --project @/nirgends --all"
                                     << "does not exist";
    QTest::newRow("project without data folder") << "node remove-href --project @/Daten --all"
                                                 << "no data folder";
}

void KamoToolsCliTest::badUsageExitsWithTwo()
{
    QFETCH(QString, arguments);
    QFETCH(QString, message);
    TestProject project;
    project.Write("a.ann", HostText(baum));
    const Result result = runTool(arguments.replace('@', project.Root()).split(' ', Qt::SkipEmptyParts));
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.err.contains(message), qPrintable(result.err));
    QVERIFY(result.out.isEmpty());
    QCOMPARE(project.Read("a.ann"), HostText(baum));
}

void KamoToolsCliTest::operationRewritesAnnotationFiles_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("remove-href in one category")
        << QStringList { "remove-href", "--category", "Kanal" } << kanal.mid(0, 3) + kanal.mid(5) + baum;
    QTest::newRow("duplicate-href in one category") << QStringList { "duplicate-href", "--new-target", "D:\\Neu.pdf",
        "--category", "Baum" } << kanal + baum.mid(0, 3) + QStringList { link("D:\\Neu.pdf"), "EO" };
    QTest::newRow("map-href-paths") << QStringList { "map-href-paths", "--map", "@/map.csv" }
                                    << kanal.mid(0, 3)
            + QStringList { link("\\\\server\\neu\\plan.pdf"), "HREF=¤" + StandardLink("\\\\server\\neu\\plan.pdf"),
                  "EO" }
            + baum;
}

// b.rev.pdf's file has the fallback name and was edited by hand (LF, an
// empty line, a final line end): every operation brings it into host form.
void KamoToolsCliTest::operationRewritesAnnotationFiles()
{
    QFETCH(QStringList, options);
    QFETCH(QStringList, expected);
    TestProject project;
    project.Write("a.ann", HostText(QStringList { "DOC=a.pdf" } + kanal + baum));
    project.Write("b.revpdf.ann", "BO\n\nKA=Baum\nEO\n");
    QFile map(project.Root() + "/map.csv");
    QVERIFY(map.open(QIODevice::WriteOnly));
    map.write("Dateipfad Alt,Dateipfad Neu\r\nc:\\alt\\PLAN.pdf,\\\\Server\\Neu\\Plan.pdf\r\n");
    map.close();

    options.replaceInStrings("@", project.Root());
    const Result result = runTool(QStringList { "node" } + options
        + QStringList { "--project", project.Root(), "a.pdf", "b.rev.pdf", "fehlt.pdf" });
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, "Files examined: 2\nFiles changed: 2\n");
    QCOMPARE(result.err, QString()); // no progress bar when stderr is no terminal
    QCOMPARE(project.Read("a.ann"), HostText(QStringList { "DOC=a.pdf" } + expected));
    QCOMPARE(project.Read("b.revpdf.ann"), HostText({ "BO", "KA=Baum", "EO" }));
}

void KamoToolsCliTest::backupIsTakenAndLogged()
{
    TestProject project;
    project.Write("a.ann", HostText(baum));
    const Result result = runTool({ "node", "remove-href", "--backup", "--project", project.Root(), "--all", "-v" });
    QCOMPARE(result.exitCode, 0);
    const QStringList out = result.out.split('\n');
    QVERIFY2(out.at(0).startsWith("Backup: " + project.DataPath("ann_sic/")), qPrintable(result.out));
    QCOMPARE(out.at(1), "changed: " + project.DataPath("a.ann"));

    const QString folder = out.at(0).mid(8);
    QCOMPARE(project.Read(folder.mid(project.DataDir().size() + 1) + "/a.ann"), HostText(baum));
    const QString log = project.Read(folder.mid(project.DataDir().size() + 1) + "/nodeToolOperation.log");
    QVERIFY2(log.startsWith("Node Tool Operation: 1\nSource: " + project.Root() + "\nUser: "), qPrintable(log));
}

void KamoToolsCliTest::failedBackupStopsBeforeAnyChange()
{
    TestProject project;
    project.Write("a.ann", HostText(baum));
    project.Write("ann_sic", "a file where the backup folder should go");
    const Result result = runTool({ "node", "remove-href", "--backup", "--project", project.Root(), "--all" });
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.err.contains("Error creating backup"));
    QCOMPARE(project.Read("a.ann"), HostText(baum));
}

void KamoToolsCliTest::filesLeftUnchangedAreReportedAsWarnings()
{
    TestProject project;
    const QByteArray latin1("BO\r\nNA=Stra\xDF"
                            "e\r\nHREF=x\r\nEO");
    project.Write("alt.ann", latin1);
    project.Write("neu.ann", HostText(baum));
    const Result result = runTool({ "node", "remove-href", "--project", project.Root(), "--all" });
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, "Files examined: 2\nFiles changed: 1\n");
    QCOMPARE(result.err, "warning: " + project.DataPath("alt.ann") + ": not valid UTF-8, left unchanged\n");
    QCOMPARE(project.Read("alt.ann"), latin1);
}

QTEST_GUILESS_MAIN(KamoToolsCliTest)
#include "KamoToolsCliTest.moc"
