#include "ModalDriver.h"
#include "TestProject.h"

#include <Kamo_view/NodeFileInfo.h>
#include <Kamo_view/NodeInfo.h>
#include <Kamo_view/TreeWidget.h>
#include <dialogs/DialogNodeTools.h>
#include <nodetools/NodeToolBackup.h>

namespace {

using Steps = QList<QPair<const char*, ModalDriver::Handler>>;

const auto splitLink = [](const QString& path) { return "HREF=" + S + StandardLink(path + Z + path, "1" + Z + "2"); };

// A project of one node with one document, and the host objects that
// describe it.
struct Host {
    Host()
        : node(1, "Kanal Nord")
        , settings(project.Root() + "/host.ini", QSettings::IniFormat)
    {
        node.SetDocuments(1, { "C:\\Projekte\\PDF\\Plan.pdf" });
        nodes.insert(1, &node);
        tree.ShowProject(nodes, { 1 });
    }
    // Shows the dialog through the facade, for the project at `root`, and
    // answers the windows it opens by `steps`; a step without a handler and
    // two more after the last answer message boxes, kept in `told`.
    QStringList Show(const Steps& steps, const QString& root = QString())
    {
        ModalDriver driver;
        for (const auto& step : steps + Steps { { "QMessageBox", {} }, { "QMessageBox", {} } })
            driver.Expect(step.first, step.second ? step.second : answerMessageBox(&told));
        DialogNodeTools tools(nullptr);
        tools.SetProjectRootDir(root.isEmpty() ? project.Root() : root);
        tools.SetSettings(&settings);
        tools.SetSourceTreeWidget(&tree);
        tools.SetNodesMap(&nodes);
        tools.SetFilesMap(&files);
        tools.ShowModal();
        rootAfter = tools.GetProjectRootDir();
        return driver.Seen();
    }
    // Lets `look` see the dialog and cancels it.
    void Look(const ModalDriver::Handler& look)
    {
        const auto cancel = [&look](QWidget* dialog) {
            look(dialog);
            rejectDialog(dialog);
        };
        QCOMPARE(Show({ { "DlgNodeTools", cancel } }), QStringList { "DlgNodeTools" });
    }
    TestProject project;
    NodeInfo node;
    QMap<int, NodeInfo*> nodes;
    QMap<QString, NodeFileInfo> files;
    TreeWidget tree;
    QSettings settings;
    QStringList told;
    QString rootAfter;
};

const auto operations = [](QWidget* dialog) { return child<QComboBox>(dialog, "cbxNodeOperationSelect"); };

// Chooses `operation`, checks every node, lets `adjust` work and presses
// OK, or `button`.
ModalDriver::Handler confirm(int operation, const ModalDriver::Handler& adjust = {}, const char* button = nullptr)
{
    return [operation, adjust, button](QWidget* dialog) {
        operations(dialog)->setCurrentIndex(operation);
        child<QPushButton>(dialog, "btnCheckAllNodes")->click();
        if (adjust)
            adjust(dialog);
        if (button)
            pressLater(dialog, button);
        else
            pressBox(dialog, QDialogButtonBox::Ok);
    };
}

// The last object is not closed: a run drops it, and says so in the preview
// and after the run. `given` by the host, below the project; `typed`: the
// project's folder, over the given one; `noBackup`: a file where the backup
// folder belongs; `preview`: the button that leaves it, when shown; `told`
// first, %1 the folder.
void operationRow(int operation, const QString& given, bool typed, const QString& category, bool noBackup,
    const QString& preview, const QString& told, const QStringList& changed)
{
    Host host;
    const QString root = host.project.Root();
    const QByteArray before = HostText(
        { "ANN=2", "BO", "KA=Kanal", splitLink("k"), "EO", "BO", "KA=Strom", splitLink("s"), "EO", "BO", "NA=offen" });
    host.project.Write("Plan.ann", before);
    host.project.Write("Lose.ann", before); // no node's document: stays
    if (noBackup)
        host.project.Write("ann_sic", "");
    const QString unclosed = host.project.DataPath("Plan.ann")
        + ": the object from line 10 is not closed: its 2 lines to the end of the file are dropped";
    // What the preview shows, then whether the project was left alone.
    QStringList shown;
    const auto untouched = [&] {
        const bool same = host.project.Read("Plan.ann") == before && !QDir(host.project.DataPath("ann_sic")).exists();
        return same ? "project untouched" : "project written";
    };
    const auto adjust = [&](QWidget* dialog) {
        // What only reads has nothing to preview.
        operations(dialog)->setCurrentIndex(7);
        QVERIFY(!child<QPushButton>(dialog, "btnPreview")->isEnabled());
        operations(dialog)->setCurrentIndex(operation);
        child<QGroupBox>(dialog, "gbxFilterByAnnotationCategory")->setChecked(!category.isEmpty());
        child<QLineEdit>(dialog, "edtCategoryFilter")->setText(category);
        auto* field = child<QLineEdit>(dialog, "edtProjectRootDir");
        const auto red = [field] { return field->palette().color(QPalette::Text) == Qt::red; };
        QCOMPARE(red(), !given.isEmpty());
        if (typed) {
            field->selectAll();
            QTest::keyClicks(field, root);
            QVERIFY(!red());
        }
    };
    Steps steps { { "DlgNodeTools", confirm(operation, adjust, preview.isEmpty() ? nullptr : "btnPreview") } };
    if (!preview.isEmpty()) {
        steps.append({ "DlgNodeToolsPreview", [&](QWidget* view) {
                          shown = treeTexts(child<QTreeWidget>(view, "treeChangedFiles"), { 0, 1 });
                          auto* warnings = child<QListWidget>(view, "lstWarnings");
                          for (int i = 0; i < warnings->count(); ++i)
                              shown.append(warnings->item(i)->text());
                          const QString html = child<QTextBrowser>(view, "txtComparison")->toHtml();
                          const QRegularExpression marked("#ffe1e1[^<]*>NA=offen<");
                          shown << (html.contains(marked) ? "dropped object marked" : html) << untouched();
                          child<QPushButton>(view, qPrintable(preview))->click();
                      } });
    }
    if (preview == "btnClose")
        steps.append({ "DlgNodeTools", confirm(operation, [&](QWidget*) { shown << untouched(); }) });
    host.Show(steps, root + given);

    QCOMPARE(host.told.size(), changed.isEmpty() ? 1 : 2);
    QVERIFY2(host.told.value(0).startsWith(told.arg(root + given)), qPrintable(host.told.value(0)));
    if (!changed.isEmpty())
        QCOMPARE(host.told.value(1), "Kamo: Hinweise zu 1 Dateien\n" + unclosed);
    const QStringList previewed { "Plan.ann | 3", unclosed, "dropped object marked", "project untouched" };
    QCOMPARE(shown,
        preview.isEmpty() ? QStringList() : previewed + (preview == "btnClose" ? previewed.mid(3) : QStringList()));
    QCOMPARE(host.rootAfter, typed ? root : root + given);
    // OK was pressed: the values count even though nothing ran.
    QCOMPARE(host.settings.value("NodeToolsDialog/LastOperationIndex").toInt(), operation);
    const QString after = QString::fromUtf8(host.project.Read("Plan.ann"));
    for (const char* target : { "k", "s" })
        QCOMPARE(after.contains(splitLink(target)), !changed.contains(target));
    QCOMPARE(after.contains("NA=offen"), changed.isEmpty());
    if (operation == 1 && !changed.isEmpty())
        QCOMPARE(after.toUtf8(), HostText({ "ANN=2", "BO", "KA=Kanal", "EO", "BO", "KA=Strom", "EO" }));
    QCOMPARE(host.project.Read("Lose.ann"), before);
    const QStringList backups = QDir(host.project.DataPath("ann_sic")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(backups.size(), changed.isEmpty() ? 0 : 1);
    if (!changed.isEmpty())
        QVERIFY(fileBytes(host.project.DataPath("ann_sic/" + backups.first() + "/nodeToolOperation.log"))
                    .contains(QString("Node Tool Operation: %1\nSource: %2").arg(operation).arg(root).toUtf8()));
}

// The backup's state in the list, then what the question before the
// restore and the report after it say among other things.
void restoreRow(const QString& damage, const QStringList& told)
{
    Host host;
    TestProject& project = host.project;
    project.Write("Plan.ann", "vorher");
    project.Write("Text.ann", "vorher");
    NodeToolBackup backup;
    backup.projectRootDir = project.Root();
    backup.logText = "Node Tool Operation: 1\nSource: " + project.Root() + "\nUser: mmeier";
    QVERIFY(backup.Create());
    project.Write("Plan.ann", "nachher");
    project.Write("Text.ann", "nachher");
    if (damage == "truncate")
        QVERIFY(QFile::resize(backup.GetBackupFolder() + "/Plan.ann", 2));
    else if (damage == "manifest")
        QVERIFY(QFile::remove(backup.GetBackupFolder() + "/nodeToolOperation.manifest"));
    QVERIFY(QDir(project.DataDir()).mkpath("ann_sic/kaputt"));
    project.Write("ann_sic/01.01.2020 10.00.00", "a file where a backup folder should be");

    // The backup list's rows: time, state, operation.
    QStringList before;
    QString log;
    const auto rows = [](QWidget* list) { return treeTexts(child<QTreeWidget>(list, "treeBackups"), { 0, 1, 2 }); };
    host.Show({ { "DlgNodeTools", [](QWidget* dialog) { pressLater(dialog, "btnBackups"); } },
        { "DlgNodeToolsBackups",
            [&](QWidget* list) {
                QVERIFY(QTest::qWaitFor([&] { return !rows(list).join('\n').contains("wird geprüft"); }));
                before = rows(list);
                log = child<QPlainTextEdit>(list, "txtLog")->toPlainText();
                auto* tree = child<QTreeWidget>(list, "treeBackups");
                tree->setCurrentItem(tree->topLevelItem(0));
                pressLater(list, "btnRestore");
            } },
        // "Yes", or "Übrige wiederherstellen"
        { "QMessageBox", {} }, { "QMessageBox", {} }, { "DlgNodeToolsBackups", rejectDialog },
        { "DlgNodeTools", rejectDialog } });

    QCOMPARE(before.mid(1),
        (QStringList { "01.01.2020 10:00:00 | beschädigt (1) | (kein lesbares Protokoll)",
            "kaputt (kein Zeitstempel) | ungeprüft (ohne Manifest) | (kein lesbares Protokoll)" }));
    QVERIFY(log.startsWith("Node Tool Operation: 1\n"));
    QCOMPARE(host.told.size(), 2);
    const QStringList shown { before.at(0).section(" | ", 1), host.told.at(0), host.told.at(1) };
    for (int i = 0; i < 3; ++i)
        QVERIFY2(shown.at(i).contains(told.at(i)), qPrintable(shown.at(i)));
    QCOMPARE(shown.at(0), told.at(0) + " | HREF: In Objekten entfernen");
    QCOMPARE(project.Read("Plan.ann"), QByteArray(damage == "truncate" ? "nachher" : "vorher"));
    QCOMPARE(project.Read("Text.ann"), QByteArray("vorher"));
}

// Documents moved from alt/ to neu/: the button asks for neu/, shows what it
// found and, once saved, the proposal is the map that operation 5 runs with.
void proposalRow(const QString& typed, bool earlierMap, const QString& written)
{
    Host host;
    const QString root = host.project.Root();
    for (const char* file : { "neu/kanal/A.pdf", "neu/s11/skizze.pdf", "neu/s12/Skizze.pdf", "neu/da.pdf" })
        QVERIFY(writeFile(root + '/' + file, ""));
    QStringList lines { "ANN=2", "BO", "NA=S1" };
    for (const char* link : { "/alt/a.pdf", "/alt/skizze.pdf", "/alt/weg.pdf", "/neu/da.pdf" })
        lines.append("HREF=" + StandardLink(root + link));
    host.project.Write("Plan.ann", HostText(lines + QStringList { "EO" }));
    QVERIFY(!earlierMap || writeFile(root + "/Pfadzuordnung.csv", "x,y\r\n"));

    QStringList shown;
    QString field;
    int previewRows = -1;
    host.Look([&](QWidget* dialog) {
        operations(dialog)->setCurrentIndex(5);
        ModalDriver inner;
        inner.Expect("QFileDialog", [&root](QWidget* chooser) { answerFileDialog(chooser, root + "/neu"); });
        inner.Expect("DlgLinkCheck", [&](QWidget* result) {
            shown = treeTexts(child<QTreeWidget>(result, "treeTargets"), { 0, 2 }).replaceInStrings(root, "~");
            if (!typed.isEmpty())
                child<QLineEdit>(result, "edtMapFile")->setText(root + '/' + typed);
            QTimer::singleShot(0, result, [result] { pressBox(result, QDialogButtonBox::Save); });
        });
        // A failed write, or a question about replacing a file, is answered
        // no; the check is then cancelled.
        inner.Expect("QMessageBox", rejectDialog);
        inner.Expect("DlgLinkCheck", rejectDialog);
        child<QPushButton>(dialog, "btnHREFReplacePathPropose")->click();
        field = child<QLineEdit>(dialog, "edtHREFReplacePathMapFile")->text();
        previewRows = child<QTreeWidget>(dialog, "treeHREFReplacePathPreview")->topLevelItemCount();
    });

    QCOMPARE(shown,
        (QStringList { "Vorgeschlagen (1) |", "~/alt/a.pdf | ~/neu/kanal/A.pdf",
            "Mehrdeutig (1): keiner gewählt, bitte von Hand zuordnen |",
            "~/alt/skizze.pdf | 2 Dateien dieses Namens:", "| ~/neu/s11/skizze.pdf", "| ~/neu/s12/Skizze.pdf",
            "Nicht gefunden (1) |", "~/alt/weg.pdf | Ordner fehlt, keine Datei des Namens gefunden" }));
    if (earlierMap)
        QCOMPARE(fileBytes(root + "/Pfadzuordnung.csv"), "x,y\r\n");
    QCOMPARE(field, written.isEmpty() ? QString() : QDir::toNativeSeparators(root + '/' + written));
    if (!written.isEmpty()) {
        QCOMPARE(fileBytes(root + '/' + written), (root + "/alt/a.pdf," + root + "/neu/kanal/A.pdf\r\n").toUtf8());
        QCOMPARE(previewRows, 1);
    }
}
} // namespace

class DlgNodeToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The path map comes back too, previewed as the engine reads it: the
    // lines as written, duplicates and case included.
    void valuesAreSavedOnOkOnlyAndRestored()
    {
        Host host;
        const QString map = QDir::toNativeSeparators(host.project.DataPath("map.csv"));
        host.project.Write("map.csv", "C:\\A\\P1.PDF,C:\\B\\P1.PDF\r\nohne Komma\nA,x,y\na,z\n");
        const auto change = [&map](QWidget* dialog) {
            operations(dialog)->setCurrentIndex(5);
            child<QGroupBox>(dialog, "gbxFilterByAnnotationCategory")->setChecked(true);
            child<QLineEdit>(dialog, "edtCategoryFilter")->setText("Kanal");
            child<QLineEdit>(dialog, "edtHREFReplacePathMapFile")->setText(map);
            child<QLineEdit>(dialog, "edtlAnnModifyTargetFilterTargetIndex")->setText("7");
            child<QLineEdit>(dialog, "edtAnnModifyTargetsEnvFactor")->setText("2.5");
            child<QCheckBox>(dialog, "chkbDoBackup")->setChecked(false);
            child<QPushButton>(dialog, "btnCheckAllNodes")->click();
        };
        host.Look(change);
        // Cancel left only the geometry behind, which every closing writes.
        QCOMPARE(host.settings.allKeys(), QStringList { "NodeToolsDialog/NodeToolsDlg_geometry" });
        host.Show({ { "DlgNodeTools", confirm(5, change) } });
        host.Look([](QWidget* dialog) {
            auto* nodes = child<QTreeWidget>(dialog, "CheckableTree");
            child<QTabWidget>(dialog, "tabOptions")->setCurrentIndex(1);
            QCOMPARE(QStringList({ QString::number(operations(dialog)->currentIndex()),
                         child<QGroupBox>(dialog, "gbxFilterByAnnotationCategory")->isChecked() ? "filtered" : "",
                         child<QLineEdit>(dialog, "edtCategoryFilter")->text(),
                         child<QLineEdit>(dialog, "edtlAnnModifyTargetFilterTargetIndex")->text(),
                         child<QLineEdit>(dialog, "edtAnnModifyTargetsEnvFactor")->text(),
                         nodes->topLevelItem(0)->checkState(0) == Qt::Checked ? "checked" : "" })
                    + treeTexts(child<QTreeWidget>(dialog, "treeHREFReplacePathPreview"), { 0, 1 }),
                (QStringList { "5", "filtered", "Kanal", "7", "2.5", "checked", "C:\\A\\P1.PDF | C:\\B\\P1.PDF",
                    "A | x", "a | z" }));
        });
    }

    void showModalRunsTheOperation_data()
    {
        const auto row = rowsFor(operationRow);
        const QString done = "Vorgang abgeschlossen: Dateien verändert: 1";
        row("changed count shown", 1, "", false, "", false, "", done, { "k", "s" });
        row("typed data directory used", 1, "/gone", true, "", false, "", done, { "k", "s" });
        // Operation 8 has no filter tab, yet its objects are filtered.
        row("category filter without filter tab", 8, "", false, "Kanal", false, "", done, { "k" });
        row("missing data directory", 1, "/gone", false, "", false, "", "Kamo: Data directory:\n\n'%1'\n\ninvalid", {});
        row("backup fails", 1, "", false, "", true, "", "Kamo: Error creating backup", {});
        row("preview, then Ausführen runs as OK would", 1, "", false, "", false, "btnExecute", done, { "k", "s" });
        row("preview, then Schließen returns to the dialog", 1, "", false, "", false, "btnClose", done, { "k", "s" });
    }
    void showModalRunsTheOperation() { runRow(); }
    void restoreFromTheBackupListChecksTheBackup_data()
    {
        const auto row = rowsFor(restoreRow);
        row("intact", "", { "geprüft", "Dateien, die ersetzt werden: 2", "Dateien wiederhergestellt: 2" });
        row("a file truncated", "truncate",
            { "beschädigt (1)", "Plan.ann: 2 bytes instead of 6", "Nicht wiederhergestellt: 1" });
        row("no manifest", "manifest", { "ungeprüft (ohne Manifest)", "kein Manifest", "nicht geprüft werden" });
    }
    void restoreFromTheBackupListChecksTheBackup() { runRow(); }
    void proposedPathMapBecomesTheMapFile_data()
    {
        const auto row = rowsFor(proposalRow);
        row("offered name", "", false, "Pfadzuordnung.csv");
        row("existing map overwritten", "", true, "Pfadzuordnung-2.csv");
        row("field set though nothing written", "fehlt/x.csv", false, "");
    }
    void proposedPathMapBecomesTheMapFile() { runRow(); }
};

QTEST_MAIN(DlgNodeToolsTest)
#include "DlgNodeToolsTest.moc"
