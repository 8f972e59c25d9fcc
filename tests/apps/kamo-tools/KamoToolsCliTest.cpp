#include "../../nodetools/TestProject.h"

#include <QDir>
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
    process.start(QStringLiteral(KAMO_TOOLS_EXECUTABLE), arguments);
    Result result;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return result;
    result.exitCode = process.exitCode();
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

QString link(const QString& path)
{
    return QStringLiteral("HREF=") + StandardLink(path);
}

const QChar S(0x00A4);

} // namespace

class KamoToolsCliTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void badUsageExitsWithTwo_data();
    void badUsageExitsWithTwo();
    void helpDescribesEveryOperation();
    void operationRewritesAnnotationFiles_data();
    void operationRewritesAnnotationFiles();
    void backupIsTakenAndLogged();
    void failedBackupStopsBeforeAnyChange();
    void filesLeftUnchangedAreReportedAsWarnings();
};

void KamoToolsCliTest::badUsageExitsWithTwo_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    const QString p = QStringLiteral("--project");
    const QString root = QStringLiteral("@ROOT@");
    QTest::newRow("no command") << QStringList {} << QStringLiteral("Usage");
    QTest::newRow("unknown command") << QStringList { QStringLiteral("knoten") } << QStringLiteral("unknown command");
    QTest::newRow("no operation") << QStringList { QStringLiteral("node") } << QStringLiteral("missing OPERATION");
    QTest::newRow("unknown operation") << QStringList { QStringLiteral("node"), QStringLiteral("remove"), p, root,
        QStringLiteral("--all") } << QStringLiteral("unknown operation 'remove'");
    QTest::newRow("unknown option") << QStringList { QStringLiteral("node"), QStringLiteral("remove-href"),
        QStringLiteral("--force") } << QStringLiteral("force");
    QTest::newRow("no project") << QStringList { QStringLiteral("node"), QStringLiteral("remove-href"),
        QStringLiteral("--all") }
                                << QStringLiteral("--project ROOT is required");
    QTest::newRow("no files") << QStringList { QStringLiteral("node"), QStringLiteral("remove-href"), p, root }
                              << QStringLiteral("--all or at least one DOCUMENT");
    QTest::newRow("all and documents") << QStringList { QStringLiteral("node"), QStringLiteral("remove-href"), p, root,
        QStringLiteral("--all"), QStringLiteral("a.pdf") }
                                       << QStringLiteral("not both");
    QTest::newRow("duplicate without target") << QStringList { QStringLiteral("node"), QStringLiteral("duplicate-href"),
        p, root, QStringLiteral("--all") } << QStringLiteral("needs --new-target");
    QTest::newRow("map without map file") << QStringList { QStringLiteral("node"), QStringLiteral("map-href-paths"), p,
        root, QStringLiteral("--all") } << QStringLiteral("needs --map");
    QTest::newRow("map file missing") << QStringList { QStringLiteral("node"), QStringLiteral("map-href-paths"), p,
        root, QStringLiteral("--map"), QStringLiteral("@ROOT@/fehlt.csv"), QStringLiteral("--all") }
                                      << QStringLiteral("map file");
    QTest::newRow("option of another operation") << QStringList { QStringLiteral("node"), QStringLiteral("remove-href"),
        p, root, QStringLiteral("--map"), QStringLiteral("x.csv"), QStringLiteral("--all") }
                                                 << QStringLiteral("--map does not apply");
    QTest::newRow("category for path mapping") << QStringList { QStringLiteral("node"),
        QStringLiteral("map-href-paths"), p, root, QStringLiteral("--category"), QStringLiteral("x"),
        QStringLiteral("--all") } << QStringLiteral("--category does not apply");
    QTest::newRow("project missing") << QStringList { QStringLiteral("node"), QStringLiteral("remove-href"), p,
        QStringLiteral("@ROOT@/nirgends"), QStringLiteral("--all") }
                                     << QStringLiteral("does not exist");
    QTest::newRow("project without data folder") << QStringList { QStringLiteral("node"), QStringLiteral("remove-href"),
        p, QStringLiteral("@ROOT@/Daten"), QStringLiteral("--all") }
                                                 << QStringLiteral("no data folder");
}

void KamoToolsCliTest::badUsageExitsWithTwo()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    TestProject project;
    project.Write(
        QStringLiteral("a.ann"), HostText({ QStringLiteral("BO"), link(QStringLiteral("x")), QStringLiteral("EO") }));
    for (QString& argument : arguments)
        argument.replace(QStringLiteral("@ROOT@"), project.Root());

    const Result result = runTool(arguments);
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.err.contains(message), qPrintable(result.err));
    QVERIFY(result.out.isEmpty());
    QVERIFY(project.Read(QStringLiteral("a.ann")).contains("HREF="));
}

void KamoToolsCliTest::helpDescribesEveryOperation()
{
    const Result result = runTool({ QStringLiteral("node"), QStringLiteral("--help") });
    QCOMPARE(result.exitCode, 0);
    for (const char* word : { "remove-href", "duplicate-href", "map-href-paths", "--backup", "--category",
             "--new-target", "--map", "--all", "Exit status" })
        QVERIFY2(result.out.contains(QLatin1String(word)), word);
}

void KamoToolsCliTest::operationRewritesAnnotationFiles_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("expectedA");
    QTest::addColumn<QByteArray>("expectedB");
    QTest::addColumn<QString>("counts");

    // a.ann: a "Kanal" object with a standard and a split link, a "Baum" object
    // with one standard link. b.rev.pdf's file uses the fallback name.
    const QString split = QStringLiteral("HREF=") + S + StandardLink(QStringLiteral("C:\\Alt\\Plan.PDF"));
    const QStringList kanal { QStringLiteral("BO"), QStringLiteral("NA=Haltung – Süd"), QStringLiteral("KA=Kanal"),
        link(QStringLiteral("C:\\Alt\\Plan.PDF")), split, QStringLiteral("EO") };
    const QStringList baum { QStringLiteral("BO"), QStringLiteral("KA=Baum"), link(QStringLiteral("C:\\Alt\\Foto.jpg")),
        QStringLiteral("EO") };

    QTest::newRow("remove-href in one category")
        << QStringList { QStringLiteral("remove-href"), QStringLiteral("--category"), QStringLiteral("Kanal") }
        << HostText(QStringList { QStringLiteral("DOC=a.pdf") } + kanal.mid(0, 3) + kanal.mid(5) + baum)
        << HostText({ QStringLiteral("BO"), QStringLiteral("KA=Baum"), QStringLiteral("EO") })
        << QStringLiteral("Files examined: 2\nFiles changed: 2\n");
    QTest::newRow("duplicate-href") << QStringList { QStringLiteral("duplicate-href"), QStringLiteral("--new-target"),
        QStringLiteral("D:\\Neu.pdf"), QStringLiteral("--category"), QStringLiteral("Baum") }
                                    << HostText(QStringList { QStringLiteral("DOC=a.pdf") } + kanal + baum.mid(0, 3)
                                           + QStringList { link(QStringLiteral("D:\\Neu.pdf")), QStringLiteral("EO") })
                                    << HostText(
                                           { QStringLiteral("BO"), QStringLiteral("KA=Baum"), QStringLiteral("EO") })
                                    << QStringLiteral("Files examined: 2\nFiles changed: 2\n");
    QTest::newRow("map-href-paths")
        << QStringList { QStringLiteral("map-href-paths"), QStringLiteral("--map"), QStringLiteral("@ROOT@/map.csv") }
        << HostText(QStringList { QStringLiteral("DOC=a.pdf") } + kanal.mid(0, 3)
               + QStringList { link(QStringLiteral("\\\\server\\neu\\plan.pdf")),
                   QStringLiteral("HREF=") + S + StandardLink(QStringLiteral("\\\\server\\neu\\plan.pdf")),
                   QStringLiteral("EO") }
               + baum)
        << HostText({ QStringLiteral("BO"), QStringLiteral("KA=Baum"), QStringLiteral("EO") })
        << QStringLiteral("Files examined: 2\nFiles changed: 2\n");
}

void KamoToolsCliTest::operationRewritesAnnotationFiles()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, expectedA);
    QFETCH(QByteArray, expectedB);
    QFETCH(QString, counts);

    TestProject project;
    const QString split = QStringLiteral("HREF=") + S + StandardLink(QStringLiteral("C:\\Alt\\Plan.PDF"));
    project.Write(QStringLiteral("a.ann"),
        HostText({ QStringLiteral("DOC=a.pdf"), QStringLiteral("BO"), QStringLiteral("NA=Haltung – Süd"),
            QStringLiteral("KA=Kanal"), link(QStringLiteral("C:\\Alt\\Plan.PDF")), split, QStringLiteral("EO"),
            QStringLiteral("BO"), QStringLiteral("KA=Baum"), link(QStringLiteral("C:\\Alt\\Foto.jpg")),
            QStringLiteral("EO") }));
    // Edited by hand: LF line ends, an empty line, a line end at the end.
    project.Write(QStringLiteral("b.revpdf.ann"), "BO\n\nKA=Baum\nEO\n");
    QFile map(project.Root() + QStringLiteral("/map.csv"));
    QVERIFY(map.open(QIODevice::WriteOnly));
    map.write("Dateipfad Alt,Dateipfad Neu\r\nc:\\alt\\PLAN.pdf,\\\\Server\\Neu\\Plan.pdf\r\n");
    map.close();

    for (QString& option : options)
        option.replace(QStringLiteral("@ROOT@"), project.Root());
    const Result result = runTool(QStringList { QStringLiteral("node") } + options
        + QStringList { QStringLiteral("--project"), project.Root(), QStringLiteral("a.pdf"),
            QStringLiteral("b.rev.pdf"), QStringLiteral("fehlt.pdf") });
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, counts);
    QCOMPARE(result.err, QString()); // no progress bar when stderr is no terminal
    QCOMPARE(project.Read(QStringLiteral("a.ann")), expectedA);
    QCOMPARE(project.Read(QStringLiteral("b.revpdf.ann")), expectedB);
}

void KamoToolsCliTest::backupIsTakenAndLogged()
{
    TestProject project;
    const QByteArray before = HostText({ QStringLiteral("BO"), link(QStringLiteral("x")), QStringLiteral("EO") });
    project.Write(QStringLiteral("a.ann"), before);
    const Result result = runTool({ QStringLiteral("node"), QStringLiteral("remove-href"), QStringLiteral("--backup"),
        QStringLiteral("--project"), project.Root(), QStringLiteral("--all"), QStringLiteral("-v") });
    QCOMPARE(result.exitCode, 0);
    const QStringList out = result.out.split(QLatin1Char('\n'));
    QVERIFY2(out.at(0).startsWith(QStringLiteral("Backup: ") + project.DataPath(QStringLiteral("ann_sic/"))),
        qPrintable(result.out));
    QCOMPARE(out.at(1), QStringLiteral("changed: ") + project.DataPath(QStringLiteral("a.ann")));

    const QString folder = out.at(0).mid(8);
    QFile copy(folder + QStringLiteral("/a.ann"));
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QCOMPARE(copy.readAll(), before);
    QFile log(folder + QStringLiteral("/nodeToolOperation.log"));
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(log.readAll());
    QVERIFY2(text.startsWith(
                 QStringLiteral("Node Tool Operation: 1\nSource: ") + project.Root() + QStringLiteral("\nUser: ")),
        qPrintable(text));
}

void KamoToolsCliTest::failedBackupStopsBeforeAnyChange()
{
    TestProject project;
    const QByteArray before = HostText({ QStringLiteral("BO"), link(QStringLiteral("x")), QStringLiteral("EO") });
    project.Write(QStringLiteral("a.ann"), before);
    project.Write(QStringLiteral("ann_sic"), "a file where the backup folder should go");
    const Result result = runTool({ QStringLiteral("node"), QStringLiteral("remove-href"), QStringLiteral("--backup"),
        QStringLiteral("--project"), project.Root(), QStringLiteral("--all") });
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.err.contains(QStringLiteral("Error creating backup")));
    QCOMPARE(project.Read(QStringLiteral("a.ann")), before);
}

void KamoToolsCliTest::filesLeftUnchangedAreReportedAsWarnings()
{
    TestProject project;
    const QByteArray latin1("BO\r\nNA=Stra\xDF"
                            "e\r\nHREF=x\r\nEO");
    project.Write(QStringLiteral("alt.ann"), latin1);
    project.Write(
        QStringLiteral("neu.ann"), HostText({ QStringLiteral("BO"), link(QStringLiteral("x")), QStringLiteral("EO") }));
    const Result result = runTool({ QStringLiteral("node"), QStringLiteral("remove-href"), QStringLiteral("--project"),
        project.Root(), QStringLiteral("--all") });
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, QStringLiteral("Files examined: 2\nFiles changed: 1\n"));
    QCOMPARE(result.err,
        QStringLiteral("warning: %1: not valid UTF-8, left unchanged\n")
            .arg(project.DataPath(QStringLiteral("alt.ann"))));
    QCOMPARE(project.Read(QStringLiteral("alt.ann")), latin1);
}

QTEST_GUILESS_MAIN(KamoToolsCliTest)
#include "KamoToolsCliTest.moc"
