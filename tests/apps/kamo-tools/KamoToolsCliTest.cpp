#include "../../nodetools/SmallDisk.h"
#include "../../nodetools/TestProject.h"
#include "../SampleProject.h"

#include <QDirIterator>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QProcess>
#include <QTemporaryDir>
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

// Every annotation file directly in the data folder, by name.
QMap<QString, QByteArray> annotationFiles(const QString& root)
{
    QMap<QString, QByteArray> files;
    const QDir data(root + "/Daten");
    for (const QString& name : data.entryList({ "*.ann" }, QDir::Files)) {
        QFile file(data.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            files.insert(name, file.readAll());
    }
    return files;
}

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
    void failedBackupStopsBeforeAnyChange_data();
    void failedBackupStopsBeforeAnyChange();
    void filesLeftOutAreNamedAndTheExitStatusSaysSo_data();
    void filesLeftOutAreNamedAndTheExitStatusSaysSo();
    void dryRunWritesNothingAndCountsLikeTheRun_data();
    void dryRunWritesNothingAndCountsLikeTheRun();
    void restoreGivesTheOriginalBytesBack();
    void restoreOfADamagedBackupNeedsForce_data();
    void restoreOfADamagedBackupNeedsForce();
    void analysisFindsAndMovesUnusedFiles();
    void shapeAndDxfCommands_data();
    void shapeAndDxfCommands();
    void gk2ExportWritesTheExpectedBytes();
    void linkCheckExitStatusSaysWhetherAnythingIsMissing_data();
    void linkCheckExitStatusSaysWhetherAnythingIsMissing();
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
    QTest::newRow("option of another operation") << "node remove-href --project @ --zone 2 --all"
                                                 << "--zone does not apply to remove-href";
    QTest::newRow("pages without delta") << "node change-pages --project @ --all"
                                         << "needs --page-delta";
    QTest::newRow("delta out of range") << "node change-pages --project @ --page-delta 100 --all"
                                        << "-99 to 99";
    QTest::newRow("factor with two decimals") << "node modify-targets --project @ --env-factor 1.25 --all"
                                              << "at most one decimal";
    QTest::newRow("invalid name filter") << "node change-pages --project @ --page-delta 1 --name-filter ( --all"
                                         << "--name-filter:";
    QTest::newRow("names on every file") << "node match-names --project @ a.pdf"
                                         << "give no documents";
    QTest::newRow("nodes without description") << "node remove-href --project @ --nodes Haltung"
                                               << "Projekt.json: no such file";
    QTest::newRow("restore without stamp") << "node restore --project @"
                                           << "restore needs --backup STAMP";
    QTest::newRow("restore of no backup") << "node restore --project @ --backup 01.01.2020"
                                          << "";
    QTest::newRow("links: no project") << "links check --all"
                                       << "give --project ROOT";
    QTest::newRow("links: no such action") << "links mend --project @"
                                           << "the only action is 'check'";
    QTest::newRow("links: search folder missing") << "links check --project @ --search @/nirgends"
                                                  << "search folder '";
}

void KamoToolsCliTest::badUsageExitsWithTwo()
{
    QFETCH(QString, arguments);
    QFETCH(QString, message);
    TestProject project;
    project.Write("a.ann", HostText(baum));
    const Result result = runTool(arguments.replace('@', project.Root()).split(' ', Qt::SkipEmptyParts));
    // A backup that is not there is no usage error but a failed restore.
    QCOMPARE(result.exitCode, message.isEmpty() ? 1 : 2);
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
    QCOMPARE(result.exitCode, 3);
    QCOMPARE(result.out, "Files examined: 2\nFiles changed: 2\n");
    // No progress bar when stderr is no terminal.
    QCOMPARE(result.err, "warning: no annotation file for document fehlt.pdf\n");
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

void KamoToolsCliTest::failedBackupStopsBeforeAnyChange_data()
{
    QTest::addColumn<bool>("fullDisk");
    QTest::addColumn<QString>("reason");
    QTest::newRow("folder blocked") << false << "the backup folder";
    QTest::newRow("full disk") << true << "No space left on device";
}

// Before, a backup that filled the disk was reported as made, and the run
// rewrote files of which it held no copy.
void KamoToolsCliTest::failedBackupStopsBeforeAnyChange()
{
    QFETCH(bool, fullDisk);
    QFETCH(QString, reason);
    SmallDisk disk(320);
    if (fullDisk && !disk.Mounted())
        QSKIP(qPrintable(disk.Why()));
    TestProject project(fullDisk ? disk.Path() : QString());
    QStringList lines;
    for (int i = 0; i < 300; ++i)
        lines += baum;
    const QByteArray content = HostText(lines); // 8 of them fill two thirds of the disk
    for (int i = 0; i < 8; ++i)
        project.Write(QString("d%1.ann").arg(i), content);
    if (!fullDisk)
        project.Write("ann_sic", "a file where the backup folder should go");
    const Result result = runTool({ "node", "remove-href", "--backup", "--project", project.Root(), "--all" });
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.err.startsWith("kamo-tools: Error creating backup: ") && result.err.contains(reason)
            && result.err.endsWith("Nothing was changed.\n"),
        qPrintable(result.err));
    QVERIFY(result.out.isEmpty());
    for (int i = 0; i < 8; ++i)
        QCOMPARE(project.Read(QString("d%1.ann").arg(i)), content);
    QCOMPARE(QDir(project.DataPath("ann_sic")).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList());
}

void KamoToolsCliTest::filesLeftOutAreNamedAndTheExitStatusSaysSo_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("fullDisk");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("warning");
    QTest::addColumn<bool>("changed");
    QTest::newRow("not UTF-8") << QByteArray("BO\r\nNA=Stra\xDF"
                                             "e\r\nHREF=x\r\nEO")
                               << false << 3 << "a.ann: not valid UTF-8, left unchanged" << false;
    QTest::newRow("full disk") << HostText(baum) << true << 3
                               << "a.ann: could not be written (No space left on device), left unchanged" << false;
    // Written as every run writes it, but not without a word.
    QTest::newRow("last object not closed")
        << HostText(baum + QStringList { "BO", "NA=offen" }) << false << 0
        << "a.ann: the object from line 5 is not closed: its 2 lines to the end of the file are dropped" << true;
}

void KamoToolsCliTest::filesLeftOutAreNamedAndTheExitStatusSaysSo()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, fullDisk);
    QFETCH(int, exitCode);
    QFETCH(QString, warning);
    QFETCH(bool, changed);
    SmallDisk disk(256);
    if (fullDisk && !disk.Mounted())
        QSKIP(qPrintable(disk.Why()));
    TestProject project(fullDisk ? disk.Path() : QString());
    project.Write("a.ann", content);
    if (fullDisk)
        disk.Fill(0);
    const Result result = runTool({ "node", "remove-href", "--project", project.Root(), "a.pdf" });
    QCOMPARE(result.exitCode, exitCode);
    QCOMPARE(result.out, QString("Files examined: 1\nFiles changed: %1\n").arg(int(changed)));
    QCOMPARE(result.err, "warning: " + project.DataPath(warning) + "\n");
    QCOMPARE(project.Read("a.ann") != content, changed);
}

void KamoToolsCliTest::dryRunWritesNothingAndCountsLikeTheRun_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("remove-href") << QStringList { "remove-href", "--category", "Schacht", "--all" };
    QTest::newRow("href-to-split") << QStringList { "href-to-split", "--nodes", "Bauabschnitt 1,Schacht S12" };
    QTest::newRow("convert-pins") << QStringList { "convert-pins", "--all" };
    QTest::newRow("change-pages") << QStringList { "change-pages", "--page-delta", "-2", "--name-filter", "^Schacht",
        "--all" };
    QTest::newRow("match-names") << QStringList { "match-names", "--ignore-path" };
}

// On a copy of the sample project: the dry run leaves every byte, then the
// real run changes exactly the files the dry run listed.
void KamoToolsCliTest::dryRunWritesNothingAndCountsLikeTheRun()
{
    QFETCH(QStringList, options);
    QTemporaryDir dir;
    const QString root = copySample(dir);
    const QMap<QString, QByteArray> before = annotationFiles(root);
    QVERIFY(before.size() > 10);

    const Result dry = runTool(QStringList { "node" } + options + QStringList { "--project", root, "--dry-run" });
    QCOMPARE(dry.exitCode, 0);
    QCOMPARE(annotationFiles(root), before);
    QVERIFY(!QDir(root + "/Daten/ann_sic").exists());

    const Result real = runTool(QStringList { "node" } + options + QStringList { "--project", root, "-v" });
    QCOMPARE(real.exitCode, 0);
    QStringList wouldChange;
    for (const QString& line : dry.out.split('\n')) {
        if (line.startsWith("would change: "))
            wouldChange.append(line.mid(14, line.lastIndexOf(" (") - 14));
    }
    QStringList changed;
    for (const QString& line : real.out.split('\n')) {
        if (line.startsWith("changed: "))
            changed.append(line.mid(9));
    }
    QVERIFY2(!changed.isEmpty(), qPrintable(real.out));
    QCOMPARE(wouldChange, changed);
    QVERIFY2(dry.out.endsWith(QString("Files that would change: %1\n").arg(changed.size())), qPrintable(dry.out));
    const QMap<QString, QByteArray> after = annotationFiles(root);
    for (auto it = before.constBegin(); it != before.constEnd(); ++it) {
        const bool listed = changed.contains(root + "/Daten/" + it.key());
        QVERIFY2((after.value(it.key()) != it.value()) == listed, qPrintable(it.key()));
    }
}

void KamoToolsCliTest::restoreGivesTheOriginalBytesBack()
{
    QTemporaryDir dir;
    const QString root = copySample(dir);
    const QMap<QString, QByteArray> original = annotationFiles(root);

    const Result run = runTool({ "node", "remove-href", "--backup", "--project", root, "--all" });
    QCOMPARE(run.exitCode, 0);
    const QMap<QString, QByteArray> changed = annotationFiles(root);
    QVERIFY(changed != original);
    const QString stamp = QFileInfo(run.out.section('\n', 0, 0).mid(8)).fileName();

    const Result restore = runTool({ "node", "restore", "--project", root, "--backup", stamp });
    QCOMPARE(restore.exitCode, 0);
    QVERIFY2(restore.out.contains(QString("Files restored: %1\n").arg(original.size())), qPrintable(restore.out));
    QCOMPARE(annotationFiles(root), original);

    // The state before the restore was kept, so the restore can be undone.
    const QString before = restore.out.section('\n', 0, 0).section(": ", 1);
    QVERIFY(QFileInfo(before).fileName() != stamp);
    QDir kept(before);
    for (auto it = changed.constBegin(); it != changed.constEnd(); ++it) {
        QFile file(kept.filePath(it.key()));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), it.value());
    }
}

void KamoToolsCliTest::restoreOfADamagedBackupNeedsForce_data()
{
    QTest::addColumn<QString>("damage");
    QTest::addColumn<bool>("force");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("message");
    QTest::newRow("truncated file") << "truncate" << false << 1 << "  damaged: a.ann: 10 bytes instead of";
    QTest::newRow("truncated file, forced") << "truncate" << true << 3 << "warning: not restored: a.ann: 10 bytes";
    QTest::newRow("missing file") << "remove" << false << 1 << "  damaged: a.ann: missing\n";
    QTest::newRow("no manifest") << "manifest" << false << 0 << "its files could not be checked";
}

// Before, a truncated backup file was restored over the good one, and a
// missing one was passed over, both without a word.
void KamoToolsCliTest::restoreOfADamagedBackupNeedsForce()
{
    QFETCH(QString, damage);
    QFETCH(bool, force);
    QFETCH(int, exitCode);
    QFETCH(QString, message);
    TestProject project;
    project.Write("a.ann", HostText(kanal));
    project.Write("b.ann", HostText(baum));
    const Result run = runTool({ "node", "remove-href", "--backup", "--project", project.Root(), "--all" });
    QCOMPARE(run.exitCode, 0);
    const QString folder = run.out.section('\n', 0, 0).mid(8);
    if (damage == "truncate")
        QVERIFY(QFile::resize(folder + "/a.ann", 10));
    else if (damage == "remove")
        QVERIFY(QFile::remove(folder + "/a.ann"));
    else
        QVERIFY(QFile::remove(folder + "/nodeToolOperation.manifest"));
    const QByteArray changedA = project.Read("a.ann");
    const QByteArray changedB = project.Read("b.ann");

    QStringList arguments { "node", "restore", "--project", project.Root(), "--backup", QFileInfo(folder).fileName() };
    if (force)
        arguments.append("--force");
    const Result restore = runTool(arguments);
    QCOMPARE(restore.exitCode, exitCode);
    QVERIFY2(restore.err.contains(message), qPrintable(restore.err));
    QCOMPARE(project.Read("a.ann"), damage == "manifest" ? HostText(kanal) : changedA);
    QCOMPARE(project.Read("b.ann"), exitCode == 1 ? changedB : HostText(baum));
}

void KamoToolsCliTest::analysisFindsAndMovesUnusedFiles()
{
    QTemporaryDir dir;
    const QString root = copySample(dir);
    const Result analysis = runTool({ "analyze", "--project", root });
    QCOMPARE(analysis.exitCode, 0);
    QVERIFY2(
        analysis.out.contains("Unused annotation files: 1\n  Lageplan_Haltungen_alt.ann\n"), qPrintable(analysis.out));
    QVERIFY(analysis.out.contains("Schnitt.A-A.pdf -> Schnitt.A-Apdf.ann\n"));

    const Result intoData = runTool({ "analyze", "--project", root, "--move-unused", root + "/Daten" });
    QCOMPARE(intoData.exitCode, 2);

    const QString target = root + "/Daten/ann_obsolet";
    const Result move = runTool({ "node", "analyze", "--project", root, "--move-unused", target });
    QCOMPARE(move.exitCode, 0);
    QVERIFY2(move.out.endsWith("Moved to " + target + ": 1\n"), qPrintable(move.out));
    QVERIFY(QFile::exists(target + "/Lageplan_Haltungen_alt.ann"));
    QVERIFY(runTool({ "analyze", "--project", root }).out.contains("Unused annotation files: 0\n"));
}

void KamoToolsCliTest::shapeAndDxfCommands_data()
{
    QTest::addColumn<QString>("arguments"); // '@' stands for the shape or DXF fixture folder
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("output"); // found in stdout, or in stderr when the command fails
    QTest::newRow("info") << "shape info @/buildings.shp" << 0 << "Entities: 4\n";
    QTest::newRow("info: column types") << "shape info @/points_z.shp" << 0 << "  HOEHE: Real (8.3)\n";
    QTest::newRow("info: no table") << "shape info @/nodbf.shp" << 0 << "Attribute table: none";
    QTest::newRow("info: missing file") << "shape info @/none.shp" << 1 << "none.shp: no such file";
    QTest::newRow("info: not a shape file") << "shape info @/corrupt/tiny.shp" << 1 << "not a readable shape file";
    QTest::newRow("sheets by number and table scale")
        << "shape import sheets @/sheets.shp --assign SheetNr=BLATTNR --assign 20=MASSSTAB --scale-from-table" << 0
        << "\"5000\": {\n      \"44\": [[3501200, 5400300], [3501200, 5400000]";
    QTest::newRow("sheet with a NaN coordinate")
        << "shape import sheets @/corrupt/nan.shp --assign SheetNr=BLATTNR --manual 0,1" << 0
        << "\"43\": [[3500400, 5400000], [3500400, null]]";
    QTest::newRow("buildings in Latin-1")
        << "shape import buildings @/buildings.shp --assign Building-Town=ORT" << 0 << "\"town\":\"Überlingen\"";
    QTest::newRow("routes touching the buildings")
        << "shape import routes @/routes.shp --filter @/buildings.shp --assign Id=ID" << 0
        << "{\n  \"routes\": [\n    {\"id\":\"2\",";
    QTest::newRow("unknown target") << "shape import routes @/routes.shp --assign Street=NAME" << 2
                                    << "no target field 'Street' for routes";
    QTest::newRow("unknown column") << "shape import routes @/routes.shp --assign Name=STRASSE" << 2
                                    << "no column 'STRASSE'";
    QTest::newRow("route file missing") << "shape import routes @/none.shp" << 1 << "no such file";
    QTest::newRow("damaged index") << "shape import sheets @/corrupt/badshx.shp" << 1 << "Error opening shape file";
    QTest::newRow("one geo system only") << "shape import sheets @/sheets.shp --from EPSG:31467" << 2
                                         << "--from and --to go together";
    QTest::newRow("dump") << "dxf dump @/drawing.dxf" << 0
                          << "\nPOINT    ( 1.000,  2.000,  3.000)\n\n"
                             "  Attributes: Layer: 0,  Color: BYLAYER Width: BYLAYER Type: BYLAYER\n\n";
    QTest::newRow("missing file") << "dxf dump @/none.dxf" << 1 << "none.dxf: no such file";
    QTest::newRow("huge count") << "dxf dump @/huge-count.dxf" << 1 << "LWPOLYLINE announces 2000000000";
    QTest::newRow("two files") << "dxf dump @/drawing.dxf @/drawing.dxf" << 2 << "dxf dump takes one file";
    QTest::newRow("unknown action") << "dxf list @/drawing.dxf" << 2 << "unknown dxf action 'list'";
    QTest::newRow("inserts") << "dxf inserts @/sheets.dxf" << 0
                             << "2\tBLATT_42\tBLATTSCHNITT\t0.000\t0.000\tBl_Nr=42\n";
    QTest::newRow("inserts of a drawing in ANSI_1252")
        << "dxf inserts @/umlauts-r12.dxf" << 0
        << "1\tBLATT_SÖD\tSTRAßE\t0.000\t0.000\tBL_NR=Söd-2\tMAßSTAB=1:500\tBEMERKUNG=Ω-Prüfung 5 €\n";
    QTest::newRow("gk2 of some blocks") << "dxf gk2 @/sheets.dxf " + QDir::tempPath()
            + "/kamo-cli-test.gk2 --blocks ^BLATT_4[01]$"
                                        << 0 << "Export completed - Inserts written: 2\n";
    QTest::newRow("gk2 without target") << "dxf gk2 @/sheets.dxf" << 2 << "takes a DXF file and the GK2 file";
    QTest::newRow("gk2 bad expression") << "dxf gk2 @/sheets.dxf x.gk2 --blocks (" << 2 << "--blocks: ";
}

void KamoToolsCliTest::shapeAndDxfCommands()
{
    QFETCH(QString, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, output);
    const Result result
        = runTool(arguments.replace('@', arguments.startsWith("shape") ? KAMO_SHAPE_DATA : KAMO_DXF_DATA).split(' '));
    QCOMPARE(result.exitCode, exitCode);
    QVERIFY2((exitCode == 0 ? result.out : result.err).contains(output), qPrintable(result.out + result.err));
    if (exitCode == 0 && arguments.startsWith("shape import")) {
        QJsonParseError error;
        QJsonDocument::fromJson(result.out.toUtf8(), &error);
        QVERIFY2(error.error == QJsonParseError::NoError, qPrintable(error.errorString()));
    }
}

void KamoToolsCliTest::gk2ExportWritesTheExpectedBytes()
{
    QTemporaryDir dir;
    const QString data = KAMO_DXF_DATA;
    const Result result = runTool({ "dxf", "gk2", data + "/sheets.dxf", dir.filePath("out.gk2") });
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.err, "Rectangle detector detected less or more than one rectangle (Block:4\n");
    QFile written(dir.filePath("out.gk2"));
    QFile expected(data + "/sheets.gk2");
    QVERIFY(written.open(QIODevice::ReadOnly) && expected.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), expected.readAll());
}

// The project's own folder holds the documents: "@" stands for it, "!" for
// a folder the map file cannot be written to.
void KamoToolsCliTest::linkCheckExitStatusSaysWhetherAnythingIsMissing_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QByteArray>("map");
    QTest::addColumn<bool>("fullDisk");

    QTest::newRow("nothing missing") << "@/Dokumente/plan.pdf"
                                     << "" << 0 << "targets: 1, links: 1, missing: 0\n"
                                     << QByteArray() << false;
    QTest::newRow("moved, proposed and written as a map")
        << "@/Alt/plan.pdf"
        << "--search @/Dokumente --write-map @/vorschlag.csv" << 4
        << "    1  @/Alt/plan.pdf  (no such folder)  -> @/Dokumente/plan.pdf\n"
           "targets: 1, links: 1, missing: 1, proposed: 1, ambiguous: 0, unresolved: 0\n"
           "path map: @/vorschlag.csv (1 lines)\n"
        << QByteArray("@/Alt/plan.pdf,@/Dokumente/plan.pdf\r\n") << false;
    const QString notWritten = "    1  @/Alt/plan.pdf  (no such folder)  -> @/Dokumente/plan.pdf\n"
                               "targets: 1, links: 1, missing: 1, proposed: 1, ambiguous: 0, unresolved: 0\n";
    QTest::newRow("the map cannot be written")
        << "@/Alt/plan.pdf"
        << "--search @/Dokumente --write-map @/nirgends/vorschlag.csv" << 1 << notWritten << QByteArray() << false;
    QTest::newRow("earlier map cut short on a full disk")
        << "@/Alt/plan.pdf"
        << "--search @/Dokumente --write-map @/vorschlag.csv" << 1 << notWritten << QByteArray("alt,neu\r\n") << true;
}

void KamoToolsCliTest::linkCheckExitStatusSaysWhetherAnythingIsMissing()
{
    QFETCH(QString, target);
    QFETCH(QString, options);
    QFETCH(int, exitCode);
    QFETCH(QString, output);
    QFETCH(QByteArray, map);
    QFETCH(bool, fullDisk);
    SmallDisk disk(256);
    if (fullDisk && !disk.Mounted())
        QSKIP(qPrintable(disk.Why()));
    TestProject project(fullDisk ? disk.Path() : QString());
    QDir(project.Root()).mkpath("Dokumente");
    QFile document(project.Root() + "/Dokumente/plan.pdf");
    QVERIFY(document.open(QIODevice::WriteOnly));
    document.close();
    project.Write("a.ann", HostText({ "BO", link(target.replace('@', project.Root())), "EO" }));
    if (fullDisk) {
        QFile earlier(project.Root() + "/vorschlag.csv");
        QVERIFY(earlier.open(QIODevice::WriteOnly) && earlier.write(map) == map.size());
        earlier.close();
        disk.Fill(0);
    }

    const Result result = runTool(
        QString("links check --project @ " + options).replace('@', project.Root()).split(' ', Qt::SkipEmptyParts));
    QCOMPARE(result.exitCode, exitCode);
    QCOMPARE(result.out, output.replace('@', project.Root()));
    QFile written(project.Root() + "/vorschlag.csv");
    QCOMPARE(written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray(),
        map.replace('@', project.Root().toUtf8()));
}

QTEST_GUILESS_MAIN(KamoToolsCliTest)
#include "KamoToolsCliTest.moc"
