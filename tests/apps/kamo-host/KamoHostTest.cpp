#include "../../dialogs/ModalDriver.h"
#include "../SampleProject.h"
#include "MainWindow.h"

#include <Kamo_view/ItemInfo.h>
#include <Kamo_view/TreeWidget.h>

#include <QtTest>
#include <QtWidgets>

// The host's window on a copy of the sample project, and its settings.
struct Host {
    QTemporaryDir dir;
    QSettings settings { dir.filePath("host.ini"), QSettings::IniFormat };
    QString root = copySample(dir);
    MainWindow window { &settings };
    bool loaded = window.LoadProject(root);
};

// Sets the properties named in `choices`, "widget.property=value" each,
// with '@' for `root`.
static void set(QWidget* dialog, const QString& choices, const QString& root)
{
    for (const QString& choice : choices.split(' ', Qt::SkipEmptyParts)) {
        QWidget* widget = child<QWidget>(dialog, choice.section('.', 0, 0).toUtf8());
        QVERIFY2(widget->setProperty(
                     choice.section('=', 0, 0).section('.', 1).toUtf8(), choice.section('=', 1).replace('@', root)),
            qPrintable(choice));
    }
}

// A data row; text goes into QString columns.
template <typename... Values> void row(const char* name, Values... values)
{
    (QTest::newRow(name) << ... << values);
}

class KamoHostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void detailsShowTheSelectedRecord_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("texts"); // split at '|'; "!": not shown
        row("node: documents of its zone only", "Haltung H0815",
            "1 (Bestand)|Haltung_H0815.pdf|TV-Inspektion_2023.pdf|!BA1_H0815.pdf|!C:\\Projekte");
        row("node shown in another zone", "Bauabschnitt 2", "3 (Bauabschnitt 2)|keine");
        row("table", "Schachtliste", "Schacht|Deckelhöhe|Sohlhöhe");
        row("participant", "Telekom – Kabeltrasse", "Telekom Technik GmbH");
        row("gallery", "Baustellenfotos Bauabschnitt 2", "Fotos/BA2");
        row("folder", "Tabellen", "!Schachtliste");
    }

    void detailsShowTheSelectedRecord()
    {
        QFETCH(QString, item);
        QFETCH(QString, texts);
        Host host;
        const auto items = host.window.Tree()->findItems(item, Qt::MatchExactly | Qt::MatchRecursive);
        QCOMPARE(items.size(), 1);
        host.window.Tree()->setCurrentItem(items.first());
        for (const QString& text : texts.split('|'))
            QVERIFY2(host.window.DetailsText().contains(text.mid(text.startsWith('!'))) != text.startsWith('!'),
                qPrintable(text));
    }

    // What makes a description unreadable is ProjectDataTest's
    // concern; the tools are there only while a project is open.
    void failedOpenKeepsTheOpenProject()
    {
        Host host;
        const QString broken = host.dir.filePath("Kaputt");
        QString error;
        MainWindow empty(&host.settings);
        QVERIFY(!empty.LoadProject(broken, &error) && error.endsWith("Kaputt/Projekt.json: no such file"));
        QVERIFY(!empty.RunTool("node-tools"));
        QStringList told;
        ModalDriver driver;
        driver.Expect("QMessageBox", answerMessageBox(&told));
        QVERIFY(!host.window.OpenProject(broken));
        QVERIFY2(told.size() == 1 && told.first().endsWith('\n' + error), qPrintable(told.join('\n')));
        QCOMPARE((QVariantList { host.window.ProjectRoot(), host.window.windowTitle(), host.window.LastProject(),
                     host.window.Tree()->findItems("Haltung H0815", Qt::MatchExactly | Qt::MatchRecursive).size(),
                     host.window.DetailsText().isEmpty() }),
            (QVariantList { host.root, "Musterstadt Kanalsanierung – Kamo Demo", host.root, 1, false }));
    }

    void shapeImportConvertsAndKeepsTheProjectArea()
    {
        Host host;
        ModalDriver driver;
        QString system;
        driver.Expect("DlgShapeImport", [&host, &system](QWidget* dialog) {
            auto* mode = child<QComboBox>(dialog, "cbxImportMode");
            mode->setCurrentIndex(mode->findText("Buildings"));
            // Typed and left, as a user does; the file's ".prj" names its
            // system, Gauss-Krüger zone 3.
            auto* file = child<QLineEdit>(dialog, "edtShapeFile");
            file->setText(host.root + "/GIS/Gebaeude.shp");
            Q_EMIT file->editingFinished();
            system = child<QLineEdit>(dialog, "edtImportFileGeoSystem")->toolTip();
            auto* tree = child<QTreeWidget>(dialog, "twFieldAssignment");
            auto* id = qobject_cast<QComboBox*>(tree->itemWidget(tree->topLevelItem(0), 2));
            id->setCurrentIndex(id->findText("Id"));
            child<QCheckBox>(dialog, "chkUseGeoFilter")->setChecked(true);
            child<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
        });
        QVERIFY(host.window.RunTool("shape-import"));
        QVERIFY2(system.contains("31467"), qPrintable(system));
        // Converted into the project's system, building 4 lies east of the
        // project's area.
        const QStringList lines = host.window.ImportResultLines();
        QCOMPARE(lines.size(), 3);
        QVERIFY2(lines.at(2).startsWith("DEBW0003: "), qPrintable(lines.join('\n')));
    }

    void dxfToolsOpenTheProjectDrawingUntilOneWasUsed_data()
    {
        QTest::addColumn<QString>("lastUsed");
        QTest::addColumn<QString>("opened"); // "@": the sample copy
        QTest::newRow("none used yet") << QString() << "@/CAD/Blattschnitte.dxf";
        QTest::newRow("one used before") << KAMO_DXF_DATA "/sheets.dxf" << KAMO_DXF_DATA "/sheets.dxf";
    }

    void dxfToolsOpenTheProjectDrawingUntilOneWasUsed()
    {
        QFETCH(QString, lastUsed);
        QFETCH(QString, opened);
        Host host;
        if (!lastUsed.isEmpty())
            host.settings.setValue("DxfToolsDialog/LastUsedFile", lastUsed);
        QString shown;
        ModalDriver driver;
        driver.Expect("DlgDxfTools", [&shown](QWidget* dialog) {
            shown = QDir::fromNativeSeparators(child<QLineEdit>(dialog, "dxfFileEdit")->text());
            static_cast<QDialog*>(dialog)->reject();
        });
        QVERIFY(host.window.RunTool("dxf-tools"));
        QCOMPARE(shown, opened.replace('@', host.root));
    }

    void screenshot_data()
    {
        QTest::addColumn<QString>("folders"); // "@": the sample copy
        QTest::addColumn<int>("exitCode");
        QTest::newRow("project folder") << "@" << 0;
        QTest::newRow("project description") << "@/Projekt.json" << 0;
        QTest::newRow("no project") << "" << 0;
        QTest::newRow("missing folder") << "@/fehlt" << 1;
        QTest::newRow("two folders") << "@ @" << 2;
    }

    void screenshot()
    {
        QFETCH(QString, folders);
        QFETCH(int, exitCode);
        QTemporaryDir dir;
        QString options = "--settings @/s.ini --screenshot @/shot.png " + folders.replace('@', copySample(dir));
        const Result result
            = runTool(options.replace('@', dir.path()).split(' ', Qt::SkipEmptyParts), KAMO_HOST_EXECUTABLE);
        QCOMPARE(result.exitCode, exitCode);
        const QImage image(dir.filePath("shot.png"), "PNG");
        QVERIFY(exitCode == 0 ? image.width() > 100 && image.height() > 100 : image.isNull());
    }

    // The command line and the dialog build their tools from one catalogue;
    // the same choices must give the same bytes.
    void sameChoicesGiveTheSameFiles_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<QString>("arguments"); // '@' stands for the project root
        QTest::addColumn<QString>("choices");   // in the dialog, as set() takes them
        row("match-names", 0, "match-names --ignore-path", "chkbReplaceDescIgnorePathOnCompare.checked=1");
        row("remove-href", 1, "remove-href --category Schacht",
            "gbxFilterByAnnotationCategory.checked=1 edtCategoryFilter.text=Schacht");
        row("duplicate-href", 2, "duplicate-href --new-target D:\\Neu\\Plan.pdf",
            "edtDuplicateHREFNewLinkTarget.text=D:\\Neu\\Plan.pdf");
        row("href-to-split", 3, "href-to-split --category Haltung",
            "gbxFilterByAnnotationCategory.checked=1 edtCategoryFilter.text=Haltung");
        row("convert-pins", 4, "convert-pins", "");
        row("map-href-paths", 5, "map-href-paths --map @/Pfadumsetzung.csv",
            "edtHREFReplacePathMapFile.text=@/Pfadumsetzung.csv");
        row("set-properties", 6, "set-properties --set-text geprüft --name-filter ^Schacht",
            "gbxSAPText.checked=1 edtSAPText.text=geprüft gbxFilterByAnnotationName.checked=1 "
            "edtNameFilterExpression.text=^Schacht");
        row("analyze", 7, "analyze", "");
        row("href-to-standard", 8, "href-to-standard --zone 2", "cbxChangeHREFTypeTargetZone.currentIndex=2");
        row("modify-targets", 9, "modify-targets --env-factor 2.5 --target-index 0",
            "gbxModifyTargetTargetFilter.checked=1 edtlAnnModifyTargetFilterTargetIndex.text=0 "
            "chkAnnModifyTargetEnvFactor.checked=1 edtAnnModifyTargetsEnvFactor.text=2.5");
        row("change-pages", 10, "change-pages --page-delta 2", "sbxPageCount.value=2");
    }

    // Before its run, the command line's dry run: it writes nothing and
    // names the files that the run then changes, as the run does.
    void sameChoicesGiveTheSameFiles()
    {
        QFETCH(int, operation);
        QFETCH(QString, arguments);
        QFETCH(QString, choices);
        Host host;
        QTemporaryDir cliDir;
        const QString cliRoot = copySample(cliDir);
        const QMap<QString, QByteArray> before = dataFiles(cliRoot);
        QStringList nodeNames;
        for (QTreeWidgetItemIterator it(host.window.Tree()); *it; ++it)
            if (const ItemInfo* info = TreeWidget::GetItemInfo(*it); info && info->GetKind() == ItemInfo::Kind::Node)
                nodeNames.append(info->Name());

        // The command line on every node, as the dialog with all nodes checked.
        QStringList cli = ("node " + arguments.replace('@', cliRoot)).split(' ') + QStringList { "--project", cliRoot };
        if (operation != 0 && operation != 7) // these two take every file
            cli += QStringList { "--nodes", nodeNames.join(',') };
        Result dry;
        if (operation != 7) { // the analysis has no dry run and lists nothing
            cli.append("-v");
            dry = runTool(cli + QStringList { "--dry-run" });
            QCOMPARE(dataFiles(cliRoot), before);
        }
        const Result run = runTool(cli);

        ModalDriver driver;
        driver.Expect("DlgNodeTools", [&](QWidget* dialog) {
            set(dialog, QString("cbxNodeOperationSelect.currentIndex=%1").arg(operation), host.root);
            child<QAbstractButton>(dialog, "btnCheckAllNodes")->click();
            set(dialog, "chkbDoBackup.checked=0 " + choices, host.root);
            child<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
        });
        // The result box, and a box of warnings where there are any; the
        // analysis shows its own window.
        for (const char* name : { operation == 7 ? "DlgAnalyzeProject" : "QMessageBox", "QMessageBox", "QMessageBox" })
            driver.Expect(name, [](QWidget* shown) { static_cast<QDialog*>(shown)->accept(); });
        QVERIFY(host.window.RunTool("node-tools"));

        const QMap<QString, QByteArray> byCli = dataFiles(cliRoot);
        QCOMPARE(dataFiles(host.root), byCli);
        int changed = 0;
        for (auto it = before.constBegin(); it != before.constEnd(); ++it) {
            const QString file = cliRoot + "/Daten/" + it.key();
            const bool differs = byCli.value(it.key()) != it.value();
            changed += differs;
            QVERIFY2(run.out.contains("changed: " + file + "\n") == differs, qPrintable(file));
            QVERIFY2(dry.out.contains("would change: " + file + " (") == differs, qPrintable(file));
        }
        QCOMPARE(
            changed > 0 && dry.out.endsWith(QString("Files that would change: %1\n").arg(changed)), operation != 7);
    }
};

QTEST_MAIN(KamoHostTest)
#include "KamoHostTest.moc"
