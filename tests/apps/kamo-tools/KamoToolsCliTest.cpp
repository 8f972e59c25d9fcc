#include "../../nodetools/SmallDisk.h"
#include "../../nodetools/TestProject.h"
#include "../SampleProject.h"

#include <QJsonDocument>
#include <QTest>

namespace {

// `line` split at its spaces; "@" stands for `root`, SHP and DXF for the
// folders of the shape and DXF fixtures.
QStringList commandLine(QString line, const QString& root)
{
    line.replace('@', root).replace("SHP", KAMO_SHAPE_DATA).replace("DXF", KAMO_DXF_DATA);
    return line.split(' ', Qt::SkipEmptyParts);
}

// A "Kanal" object with a standard and a split link, a "Baum" object with
// one link.
const QStringList kanal { "BO", "NA=Haltung – Süd", "KA=Kanal", "HREF=" + StandardLink("C:\\Alt\\Plan.PDF"),
    "HREF=" + S + StandardLink("C:\\Alt\\Plan.PDF"), "EO" };
const QStringList baum { "BO", "KA=Baum", "HREF=" + StandardLink("C:\\Alt\\Foto.jpg"), "EO" };

// A command in a project with a.ann, b.revpdf.ann, the document plan.pdf,
// an earlier output file "written" and a file where the backup folder would
// go; on a full disk where the run is to tell of one. "@" stands for the
// project's root, SHP and DXF for the fixture folders.
struct Run {
    QByteArray ann;
    QString line;
    int exitCode;
    QString out; // in stdout and stderr; empty: nothing there; null: anything
    QString err;
    QByteArray after = {};              // a.ann after the run; empty: unchanged
    QByteArray written = "alt,neu\r\n"; // "written" after the run
};

} // namespace

Q_DECLARE_METATYPE(Run)

class KamoToolsCliTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Before, a backup that filled the disk was reported as made, and the run
    // rewrote files of which it held no copy.
    void backupThatFillsTheDiskStopsBeforeAnyChange()
    {
        SmallDisk disk(320);
        if (!disk.Mounted())
            QSKIP(qPrintable(disk.Why()));
        TestProject project(disk.Path());
        const QByteArray content = (HostText(baum) + "\r\n").repeated(300); // 8 fill two thirds of the disk
        for (int i = 0; i < 8; ++i)
            project.Write(QString("d%1.ann").arg(i), content);
        const QMap<QString, QByteArray> before = dataFiles(project.Root());
        const Result result = runTool(commandLine("node remove-href --backup --project @ --all", project.Root()));
        QVERIFY2(result.exitCode == 1 && result.out.isEmpty()
                && result.err.startsWith("kamo-tools: Error creating backup: ")
                && result.err.contains("No space left on device") && result.err.endsWith("Nothing was changed.\n"),
            qPrintable(result.err));
        QCOMPARE(dataFiles(project.Root()), before);
        QCOMPARE(QDir(project.DataPath("ann_sic")).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList());
    }

    void commandsExitWithTheirStatusAndSayWhy_data();

    void commandsExitWithTheirStatusAndSayWhy()
    {
        QFETCH(Run, run);
        const bool fullDisk = run.err.contains("No space left on device");
        SmallDisk disk(256);
        if (fullDisk && !disk.Mounted())
            QSKIP(qPrintable(disk.Why()));
        TestProject project(fullDisk ? disk.Path() : QString());
        const QByteArray root = project.Root().toUtf8();
        const QByteArray byHand = "BO\n\nKA=Baum\nEO\n";
        const QMap<QString, QByteArray> files { { "a.ann", run.ann.replace('@', root) }, { "b.revpdf.ann", byHand },
            { "plan.pdf", "" }, { "written", "alt,neu\r\n" }, { "ann_sic", "" } };
        for (auto file = files.begin(); file != files.end(); ++file)
            project.Write(file.key(), file.value());
        if (fullDisk)
            disk.Fill(0);
        const Result result = runTool(commandLine(run.line, project.Root()));
        QCOMPARE(result.exitCode, run.exitCode);
        QVERIFY2(result.out.contains(run.out.replace('@', root)) && result.out.isEmpty() == run.out.isEmpty(),
            qPrintable(result.out));
        QVERIFY2(run.err.isNull()
                || (result.err.contains(run.err.replace('@', root)) && result.err.isEmpty() == run.err.isEmpty()),
            qPrintable(result.err));
        // No progress bar when stderr is no terminal.
        QVERIFY(!result.err.contains('\r'));
        QCOMPARE(project.Read("a.ann"), run.after.isEmpty() ? run.ann : run.after);
        QCOMPARE(project.Read("b.revpdf.ann"),
            run.line.contains("b.rev.pdf") ? HostText({ "BO", "KA=Baum", "EO" }) : byHand);
        QCOMPARE(project.Read("written"), run.written.replace('@', root));
        if (run.exitCode == 0 && run.line.startsWith("shape import"))
            QVERIFY(!QJsonDocument::fromJson(result.out.toUtf8()).isNull());
    }

    void restoreOfADamagedBackupNeedsForce_data()
    {
        QTest::addColumn<QString>("damage"); // the backup's file removed, or cut short to ":N" bytes
        QTest::addColumn<bool>("force");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("message");
        QTest::newRow("intact") << "" << false << 0 << "Files restored: 2\n";
        QTest::newRow("truncated file") << "a.ann:10" << false << 1 << "  damaged: a.ann: 10 bytes instead of";
        QTest::newRow("truncated file, forced") << "a.ann:10" << true << 3 << "warning: not restored: a.ann: 10 bytes";
        QTest::newRow("missing file") << "a.ann" << false << 1 << "  damaged: a.ann: missing\n";
        QTest::newRow("no manifest") << "nodeToolOperation.manifest" << false << 0 << "its files could not be checked";
    }

    // Before, a truncated backup file was restored over the good one, and a
    // missing one was passed over, both without a word.
    void restoreOfADamagedBackupNeedsForce()
    {
        QFETCH(QString, damage);
        QFETCH(bool, force);
        QFETCH(int, exitCode);
        QFETCH(QString, message);
        TestProject project;
        project.Write("a.ann", HostText(kanal));
        project.Write("b.ann", HostText(baum));
        const Result run = runTool(commandLine("node remove-href --backup --project @ --all", project.Root()));
        QVERIFY2(
            run.exitCode == 0 && run.out.startsWith("Backup: " + project.DataPath("ann_sic/")), qPrintable(run.out));
        const QString stamp = QFileInfo(run.out.section('\n', 0, 0)).fileName();
        const QString log = QString::fromUtf8(project.Read("ann_sic/" + stamp + "/nodeToolOperation.log"));
        QVERIFY2(log.startsWith("Node Tool Operation: 1\nSource: " + project.Root() + "\nUser: "), qPrintable(log));
        const QString damaged = project.DataPath("ann_sic/" + stamp + "/" + damage.section(':', 0, 0));
        if (!damage.isEmpty())
            QVERIFY(
                damage.contains(':') ? QFile::resize(damaged, damage.section(':', 1).toInt()) : QFile::remove(damaged));
        const QByteArray changedA = project.Read("a.ann"), changedB = project.Read("b.ann");

        const Result restore = runTool(QStringList { "node", "restore", "--project", project.Root(), "--backup", stamp }
            + (force ? QStringList { "--force" } : QStringList()));
        QCOMPARE(restore.exitCode, exitCode);
        QVERIFY2((restore.out + restore.err).contains(message), qPrintable(restore.out + restore.err));
        QCOMPARE(project.Read("a.ann"), damage.startsWith("a.ann") ? changedA : HostText(kanal));
        QCOMPARE(project.Read("b.ann"), exitCode == 1 ? changedB : HostText(baum));
        // The state before a restore is kept, so that the restore can be undone.
        if (exitCode != 1)
            QCOMPARE(
                project.Read(restore.out.section('\n', 0, 0).section(project.DataDir() + '/', 1) + "/b.ann"), changedB);
    }

    void analysisFindsAndMovesUnusedFiles()
    {
        QTemporaryDir dir;
        const QString root = copySample(dir), target = root + "/Daten/ann_obsolet";
        const QString analysis = runTool({ "analyze", "--project", root }).out;
        QVERIFY2(analysis.contains("Unused annotation files: 1\n  Lageplan_Haltungen_alt.ann\n")
                && analysis.contains("Schnitt.A-A.pdf -> Schnitt.A-Apdf.ann\n"),
            qPrintable(analysis));
        QCOMPARE(runTool({ "analyze", "--project", root, "--move-unused", root + "/Daten" }).exitCode, 2);
        const Result move = runTool({ "node", "analyze", "--project", root, "--move-unused", target });
        QVERIFY2(move.exitCode == 0 && move.out.endsWith("Moved to " + target + ": 1\n"), qPrintable(move.out));
        QVERIFY(QFile::exists(target + "/Lageplan_Haltungen_alt.ann"));
        QVERIFY(runTool({ "analyze", "--project", root }).out.contains("Unused annotation files: 0\n"));
    }
};

void KamoToolsCliTest::commandsExitWithTheirStatusAndSayWhy_data()
{
    QTest::addColumn<Run>("run");
    // On a.ann holding `baum`: `output` in stdout, or in stderr when the
    // command fails.
    const auto row = [](const char* name, const char* line, int exitCode, const QString& output) {
        const bool failed = exitCode != 0;
        QTest::newRow(name) << Run { HostText(baum), line, exitCode, failed ? "" : output,
            failed ? output : QString() };
    };
    row("no command", "", 2, "Usage");
    row("unknown operation", "node remove --project @ --all", 2, "unknown operation 'remove'");
    row("no project", "node remove-href --all", 2, "--project ROOT is required");
    row("all and documents", "node remove-href --project @ --all a.pdf", 2, "not both");
    row("duplicate without target", "node duplicate-href --project @ --all", 2, "needs --new-target");
    row("map file missing", "node map-href-paths --project @ --map @/x.csv --all", 2, "map file");
    row("project missing", "node remove-href --project @/nirgends --all", 2, "does not exist");
    row("project without data folder", "node remove-href --project @/Daten --all", 2, "no data folder");
    row("option of another operation", "node remove-href --project @ --zone 2 --all", 2, "--zone does not apply");
    row("pages without delta", "node change-pages --project @ --all", 2, "needs --page-delta");
    row("delta out of range", "node change-pages --project @ --page-delta 100 --all", 2, "-99 to 99");
    row("factor with two decimals", "node modify-targets --project @ --env-factor 1.25 --all", 2, "one decimal");
    row("bad name filter", "node change-pages --project @ --page-delta 1 --name-filter ( --all", 2, "--name-filter:");
    row("names on every file", "node match-names --project @ a.pdf", 2, "give no documents");
    row("nodes without description", "node remove-href --project @ --nodes Haltung", 2, "Projekt.json: no such file");
    row("restore without stamp", "node restore --project @", 2, "restore needs --backup STAMP");
    // No usage error but a failed restore.
    row("restore of no backup", "node restore --project @ --backup 01.01.2020", 1, "no backup '01.01.2020'");
    row("backup folder blocked", "node remove-href --backup --project @ --all", 1, "backup folder '@/Daten/ann_sic/");
    row("links: no project", "links check --all", 2, "give --project ROOT");
    row("links: no such action", "links mend --project @", 2, "the only action is 'check'");
    row("links: search folder missing", "links check --project @ --search @/nirgends", 2, "search folder '");

    row("info", "shape info SHP/buildings.shp", 0, "Entities: 4\n");
    row("info: column types", "shape info SHP/points_z.shp", 0, "  HOEHE: Real (8.3)\n");
    row("info: no table", "shape info SHP/nodbf.shp", 0, "Attribute table: none");
    row("info: missing file", "shape info SHP/none.shp", 1, "none.shp: no such file");
    row("info: not a shape file", "shape info SHP/corrupt/tiny.shp", 1, "not a readable shape file");
    row("sheets by number and table scale",
        "shape import sheets SHP/sheets.shp --assign SheetNr=BLATTNR --assign 20=MASSSTAB --scale-from-table", 0,
        "\"5000\": {\n      \"44\": [[3501200, 5400300], [3501200, 5400000]");
    row("sheet with a NaN coordinate", "shape import sheets SHP/corrupt/nan.shp --assign SheetNr=BLATTNR --manual 0,1",
        0, "\"43\": [[3500400, 5400000], [3500400, null]]");
    row("buildings in Latin-1", "shape import buildings SHP/buildings.shp --assign Building-Town=ORT", 0,
        "\"town\":\"Überlingen\"");
    row("routes touching the buildings", "shape import routes SHP/routes.shp --filter SHP/buildings.shp --assign Id=ID",
        0, "{\n  \"routes\": [\n    {\"id\":\"2\",");
    row("unknown target", "shape import routes SHP/routes.shp --assign Street=NAME", 2, "no target field 'Street'");
    row("unknown column", "shape import routes SHP/routes.shp --assign Name=STRASSE", 2, "no column 'STRASSE'");
    row("route file missing", "shape import routes SHP/none.shp", 1, "no such file");
    row("one geo system only", "shape import sheets SHP/sheets.shp --from EPSG:31467", 2, "--from and --to go");
    row("dump", "dxf dump DXF/drawing.dxf", 0,
        "\nPOINT    ( 1.000,  2.000,  3.000)\n\n"
        "  Attributes: Layer: 0,  Color: BYLAYER Width: BYLAYER Type: BYLAYER\n\n");
    row("missing file", "dxf dump DXF/none.dxf", 1, "none.dxf: no such file");
    row("two files", "dxf dump DXF/drawing.dxf DXF/drawing.dxf", 2, "dxf dump takes one file");
    row("unknown action", "dxf list DXF/drawing.dxf", 2, "unknown dxf action 'list'");
    row("inserts", "dxf inserts DXF/sheets.dxf", 0, "2\tBLATT_42\tBLATTSCHNITT\t0.000\t0.000\tBl_Nr=42\n");
    row("inserts of a drawing in ANSI_1252", "dxf inserts DXF/umlauts-r12.dxf", 0,
        "1\tBLATT_SÖD\tSTRAßE\t0.000\t0.000\tBL_NR=Söd-2\tMAßSTAB=1:500\tBEMERKUNG=Ω-Prüfung 5 €\n");
    QFile gk2(KAMO_DXF_DATA "/sheets.gk2");
    QVERIFY(gk2.open(QIODevice::ReadOnly));
    QTest::newRow("gk2, as the library writes it")
        << Run { HostText(baum), "dxf gk2 DXF/sheets.dxf @/Daten/written", 0, "Export completed - Inserts written: 6\n",
               "Rectangle detector detected less or more than one rectangle (Block:4\n", {}, gk2.readAll() };
    row("gk2 of some blocks", "dxf gk2 DXF/sheets.dxf @/x.gk2 --blocks ^BLATT_4[01]$", 0,
        "Export completed - Inserts written: 2\n");
    row("gk2 without target", "dxf gk2 DXF/sheets.dxf", 2, "takes a DXF file and the GK2 file");
    row("gk2 bad expression", "dxf gk2 DXF/sheets.dxf x.gk2 --blocks (", 2, "--blocks: ");

    // b.rev.pdf's file has the fallback name and was edited by hand (LF, an
    // empty line, a final line end): an operation on it brings it into host
    // form; fehlt.pdf has none.
    QTest::newRow("remove-href in one category") << Run { HostText(QStringList { "DOC=a.pdf" } + kanal + baum),
        "node remove-href --category Kanal --project @ a.pdf b.rev.pdf fehlt.pdf", 3,
        "Files examined: 2\nFiles changed: 2\n", "warning: no annotation file for document fehlt.pdf\n",
        HostText(QStringList { "DOC=a.pdf" } + kanal.mid(0, 3) + kanal.mid(5) + baum) };
    const QString one = "node remove-href --project @ a.pdf";
    const QString left = "Files examined: 1\nFiles changed: 0\n";
    QTest::newRow("not UTF-8") << Run { "BO\r\nNA=Stra\337e\r\nHREF=x\r\nEO", one, 3, left,
        "warning: @/Daten/a.ann: not valid UTF-8, left unchanged\n" };
    QTest::newRow("full disk") << Run { HostText(baum), one, 3, left,
        "warning: @/Daten/a.ann: could not be written (No space left on device), left unchanged\n" };
    // Written as every run writes it, but not without a word.
    QTest::newRow("last object not closed")
        << Run { HostText(baum + QStringList { "BO", "NA=offen" }), one, 0, "Files examined: 1\nFiles changed: 1\n",
               "@/Daten/a.ann: the object from line 5 is not closed: its 2 lines to the end of the file are dropped\n",
               HostText({ "BO", "KA=Baum", "EO" }) };

    const QString check = "links check --project @ --search @/Daten --write-map ";
    const QByteArray gone = HostText({ "BO", "HREF=" + StandardLink("@/Alt/plan.pdf"), "EO" });
    const QString proposed = "    1  @/Alt/plan.pdf  (no such folder)  -> @/Daten/plan.pdf\n"
                             "targets: 1, links: 1, missing: 1, proposed: 1, ambiguous: 0, unresolved: 0\n";
    QTest::newRow("links: nothing missing")
        << Run { HostText({ "BO", "HREF=" + StandardLink("@/Daten/plan.pdf"), "EO" }), "links check --project @", 0,
               "targets: 1, links: 1, missing: 0\n", "" };
    QTest::newRow("links: moved, proposed and written as a map") << Run { gone, check + "@/Daten/written", 4,
        proposed + "path map: @/Daten/written (1 lines)\n", "", {}, "@/Alt/plan.pdf,@/Daten/plan.pdf\r\n" };
    QTest::newRow("links: the map cannot be written") << Run { gone, check + "@/nirgends/vorschlag.csv", 1, proposed,
        "kamo-tools links: the path map @/nirgends/vorschlag.csv was not written: No such file or directory\n" };
    QTest::newRow("links: earlier map cut short on a full disk") << Run { gone, check + "@/Daten/written", 1, proposed,
        "kamo-tools links: the path map @/Daten/written was not written: No space left on device\n" };
}

QTEST_GUILESS_MAIN(KamoToolsCliTest)
#include "KamoToolsCliTest.moc"
