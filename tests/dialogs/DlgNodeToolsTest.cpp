#include "ModalDriver.h"
#include "TestProject.h"

#include <dialogs/DialogNodeTools.h>
#include <nodetools/NodeToolBackup.h>

#include <Kamo_view/CheckableTree.h>
#include <Kamo_view/ItemInfo.h>
#include <Kamo_view/NodeFileInfo.h>
#include <Kamo_view/NodeInfo.h>
#include <Kamo_view/TreeWidget.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <functional>

namespace {

QStringList tabTitles(QWidget* dialog)
{
    QStringList titles;
    auto* tabs = child<QTabWidget>(dialog, "tabOptions");
    for (int i = 0; i < tabs->count(); ++i)
        titles.append(tabs->tabText(i));
    return titles;
}

QString splitLink(const QString& path)
{
    const QString record = StandardLink(path + Z + path, "1" + Z + "2");
    return "HREF=" + S + record;
}

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
    void Setup(DialogNodeTools& tools, const QString& root)
    {
        tools.SetProjectId("P-1");
        tools.SetProjectName("Kanal");
        tools.SetProjectRootDir(root);
        tools.SetSettings(&settings);
        tools.SetSourceTreeWidget(&tree);
        tools.SetNodesMap(&nodes);
        tools.SetFilesMap(&files);
    }
    TestProject project;
    NodeInfo node;
    QMap<int, NodeInfo*> nodes;
    QMap<QString, NodeFileInfo> files;
    TreeWidget tree;
    QSettings settings;
};

void pressOk(QWidget* dialog)
{
    child<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
}

// Chooses `operation`, checks every node and confirms.
ModalDriver::Handler confirm(int operation, std::function<void(QWidget*)> adjust = {})
{
    return [operation, adjust](QWidget* dialog) {
        child<QComboBox>(dialog, "cbxNodeOperationSelect")->setCurrentIndex(operation);
        child<QPushButton>(dialog, "btnCheckAllNodes")->click();
        if (adjust)
            adjust(dialog);
        pressOk(dialog);
    };
}

// Opens the dialog through the facade, lets `look` see it and closes it
// with Cancel.
void look(Host& host, const std::function<void(QWidget*)>& look, const QString& root = QString())
{
    ModalDriver driver;
    driver.Expect("DlgNodeTools", [&look](QWidget* dialog) {
        look(dialog);
        static_cast<QDialog*>(dialog)->reject();
    });
    DialogNodeTools tools(nullptr);
    host.Setup(tools, root.isEmpty() ? host.project.Root() : root);
    tools.ShowModal();
    QCOMPARE(driver.Seen(), QStringList { "DlgNodeTools" });
}

ModalDriver::Handler readBox(QString* title, QString* text)
{
    return [title, text](QWidget* window) {
        auto* box = static_cast<QMessageBox*>(window);
        *title = box->windowTitle();
        *text = box->text();
        box->accept();
    };
}

} // namespace

class DlgNodeToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabsFollowTheOperation_data();
    void tabsFollowTheOperation();
    void valuesAreSavedOnOkOnlyAndRestored();
    void pathMapPreviewShowsTheLinesAsWritten();
    void typedDataDirectoryIsUsedAndRedWhenMissing();
    void showModalRunsTheOperationAndShowsTheChangedCount();
    void showModalStopsBeforeTheRun_data();
    void showModalStopsBeforeTheRun();
    void categoryFilterReachesOperationWithoutFilterTab();
    void previewWritesNothingAndListsWhatTheRunChanges_data();
    void previewWritesNothingAndListsWhatTheRunChanges();
    void restoreFromTheBackupListChecksTheBackup_data();
    void restoreFromTheBackupListChecksTheBackup();
    void proposedPathMapBecomesTheMapFile_data();
    void proposedPathMapBecomesTheMapFile();
};

void DlgNodeToolsTest::tabsFollowTheOperation_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<QStringList>("titles");
    const QString nodes = "Knotenauswahl";
    const QString filter = "Filter: Verknüpfungen";
    QTest::newRow("0 names") << 0 << QStringList { "Optionen: Bezeichnungen abgleichen" };
    QTest::newRow("1 remove") << 1 << QStringList { nodes, filter };
    QTest::newRow("2 duplicate") << 2 << QStringList { nodes, filter, "Optionen: HREF Duplizieren" };
    QTest::newRow("4 pins") << 4 << QStringList { nodes };
    QTest::newRow("5 paths") << 5 << QStringList { nodes, "Optionen: HREF Pfad umsetzen" };
    QTest::newRow("6 properties") << 6 << QStringList { nodes, filter, "Verknüpfungen: Eigenschaften setzen" };
    QTest::newRow("7 analysis") << 7 << QStringList {};
    QTest::newRow("8 to standard") << 8 << QStringList { nodes, "Verknüpfungen: Typ ändern" };
    QTest::newRow("9 targets") << 9 << QStringList { nodes, filter, "Verknüpfungen: Ziel anpassen" };
    QTest::newRow("10 pages") << 10 << QStringList { nodes, filter, "Verknüpfungen: Seitennummer anpassen" };
}

void DlgNodeToolsTest::tabsFollowTheOperation()
{
    QFETCH(int, operation);
    QFETCH(QStringList, titles);
    Host host;
    look(host, [operation, &titles](QWidget* dialog) {
        // From another operation, so that every switch rebuilds the tabs.
        child<QComboBox>(dialog, "cbxNodeOperationSelect")->setCurrentIndex(operation == 3 ? 2 : 3);
        child<QComboBox>(dialog, "cbxNodeOperationSelect")->setCurrentIndex(operation);
        QCOMPARE(tabTitles(dialog), titles);
    });
}

void DlgNodeToolsTest::valuesAreSavedOnOkOnlyAndRestored()
{
    Host host;
    const auto change = [](QWidget* dialog) {
        child<QComboBox>(dialog, "cbxNodeOperationSelect")->setCurrentIndex(9);
        child<QGroupBox>(dialog, "gbxFilterByAnnotationCategory")->setChecked(true);
        child<QLineEdit>(dialog, "edtCategoryFilter")->setText("Kanal");
        child<QLineEdit>(dialog, "edtlAnnModifyTargetFilterTargetIndex")->setText("7");
        child<QLineEdit>(dialog, "edtAnnModifyTargetsEnvFactor")->setText("2.5");
        child<QPushButton>(dialog, "btnCheckAllNodes")->click();
    };
    look(host, change);
    // Cancel left only the geometry behind, which every closing writes.
    QCOMPARE(host.settings.allKeys(), QStringList { "NodeToolsDialog/NodeToolsDlg_geometry" });
    {
        ModalDriver driver;
        driver.Expect("DlgNodeTools", [&change](QWidget* dialog) {
            change(dialog);
            child<QCheckBox>(dialog, "chkbDoBackup")->setChecked(false);
            pressOk(dialog);
        });
        driver.Expect("QMessageBox", [](QWidget* box) { static_cast<QDialog*>(box)->accept(); });
        DialogNodeTools tools(nullptr);
        host.Setup(tools, host.project.Root());
        tools.ShowModal();
    }
    QCOMPARE(host.settings.value("NodeToolsDialog/LastOperationIndex").toInt(), 9);
    QCOMPARE(host.settings.value("NodeToolsDialog/CTPTargetFilterIndex").toUInt(), 7u);
    QCOMPARE(host.settings.value("NodeToolsDialog/CTPTargetEnvFactor").toFloat(), 2.5f);

    look(host, [](QWidget* dialog) {
        QCOMPARE(tabTitles(dialog).size(), 3);
        QVERIFY(child<QGroupBox>(dialog, "gbxFilterByAnnotationCategory")->isChecked());
        QCOMPARE(child<QLineEdit>(dialog, "edtCategoryFilter")->text(), "Kanal");
        QCOMPARE(child<QLineEdit>(dialog, "edtlAnnModifyTargetFilterTargetIndex")->text(), "7");
        QCOMPARE(child<QLineEdit>(dialog, "edtAnnModifyTargetsEnvFactor")->text(), "2.5");
        QList<ItemInfo*> checked;
        child<CheckableTree>(dialog, "CheckableTree")->GetCheckedItems(checked);
        QCOMPARE(checked.size(), 1);
        QCOMPARE(checked.first()->Name(), "Kanal Nord");
    });
}

// The map itself is read as the engine reads it; the preview shows the
// lines as written, duplicates and case included.
void DlgNodeToolsTest::pathMapPreviewShowsTheLinesAsWritten()
{
    Host host;
    host.project.Write("map.csv", "C:\\A\\P1.PDF,C:\\B\\P1.PDF\r\nohne Komma\nA,x,y\na,z\n");
    look(host, [&host](QWidget* dialog) {
        child<QComboBox>(dialog, "cbxNodeOperationSelect")->setCurrentIndex(5);
        child<QLineEdit>(dialog, "edtHREFReplacePathMapFile")
            ->setText(QDir::toNativeSeparators(host.project.DataPath("map.csv")));
        child<QTabWidget>(dialog, "tabOptions")->setCurrentIndex(1);
        auto* preview = child<QTreeWidget>(dialog, "treeHREFReplacePathPreview");
        QStringList rows;
        for (int i = 0; i < preview->topLevelItemCount(); ++i)
            rows.append(preview->topLevelItem(i)->text(0) + " -> " + preview->topLevelItem(i)->text(1));
        QCOMPARE(rows, (QStringList { "C:\\A\\P1.PDF -> C:\\B\\P1.PDF", "A -> x", "a -> z" }));
    });
}

void DlgNodeToolsTest::typedDataDirectoryIsUsedAndRedWhenMissing()
{
    Host host;
    ModalDriver driver;
    driver.Expect("DlgNodeTools", [&host](QWidget* dialog) {
        auto* field = child<QLineEdit>(dialog, "edtProjectRootDir");
        const QColor normal = field->palette().color(QPalette::Text);
        QVERIFY(normal != QColor(Qt::red));
        field->selectAll();
        QTest::keyClicks(field, host.project.Root() + "/Dat");
        QCOMPARE(field->palette().color(QPalette::Text), QColor(Qt::red));
        QTest::keyClicks(field, "en");
        QCOMPARE(field->palette().color(QPalette::Text), normal);
        child<QComboBox>(dialog, "cbxNodeOperationSelect")->setCurrentIndex(1);
        child<QCheckBox>(dialog, "chkbDoBackup")->setChecked(false);
        pressOk(dialog);
    });
    driver.Expect("QMessageBox", [](QWidget* box) { static_cast<QDialog*>(box)->accept(); });
    DialogNodeTools tools(nullptr);
    host.Setup(tools, host.project.Root());
    tools.ShowModal();
    QCOMPARE(tools.GetProjectRootDir(), host.project.DataDir());
}

void DlgNodeToolsTest::showModalRunsTheOperationAndShowsTheChangedCount()
{
    Host host;
    const QByteArray before = HostText({ "ANN=2", "BO", "NA=S1", splitLink("x.pdf"), "EO" });
    host.project.Write("Plan.ann", before);
    host.project.Write("Lose.ann", before); // no node's document: stays
    QString nodeShown;
    QString title;
    QString text;
    ModalDriver driver;
    driver.Expect("DlgNodeTools", confirm(1, [&nodeShown](QWidget* dialog) {
        nodeShown = child<QTreeWidget>(dialog, "CheckableTree")->topLevelItem(0)->text(0);
    }));
    driver.Expect("QMessageBox", readBox(&title, &text));
    DialogNodeTools tools(nullptr);
    host.Setup(tools, host.project.Root());
    tools.ShowModal();
    QCOMPARE(driver.Seen(), (QStringList { "DlgNodeTools", "QMessageBox" }));
    QCOMPARE(nodeShown, "Kanal Nord");
    QCOMPARE(title, "Vorgang abgeschlossen");
    QCOMPARE(text, "Dateien verändert: 1");
    QCOMPARE(host.project.Read("Plan.ann"), HostText({ "ANN=2", "BO", "NA=S1", "EO" }));
    QCOMPARE(host.project.Read("Lose.ann"), before);
    const QStringList backups = QDir(host.project.DataPath("ann_sic")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(backups.size(), 1);
    QFile log(host.project.DataPath("ann_sic/" + backups.first() + "/nodeToolOperation.log"));
    QVERIFY(log.open(QIODevice::ReadOnly));
    QVERIFY(log.readAll().contains("Node Tool Operation: 1\nSource: " + host.project.Root().toUtf8()));
}

void DlgNodeToolsTest::showModalStopsBeforeTheRun_data()
{
    QTest::addColumn<bool>("missingDirectory");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing data directory") << true << "Data directory:\n\n'%1'\n\ninvalid";
    QTest::newRow("backup fails") << false << "Error creating backup";
}

void DlgNodeToolsTest::showModalStopsBeforeTheRun()
{
    QFETCH(bool, missingDirectory);
    QFETCH(QString, message);
    Host host;
    const QByteArray before = HostText({ "BO", splitLink("x.pdf"), "EO" });
    host.project.Write("Plan.ann", before);
    // A file where the backup folder belongs makes the backup fail.
    host.project.Write("ann_sic", "");
    const QString root = missingDirectory ? host.project.Root() + "/gone" : host.project.Root();

    QString title;
    QString text;
    ModalDriver driver;
    driver.Expect("DlgNodeTools", confirm(1));
    driver.Expect("QMessageBox", readBox(&title, &text));
    DialogNodeTools tools(nullptr);
    host.Setup(tools, root);
    tools.ShowModal();
    QCOMPARE(driver.Seen(), (QStringList { "DlgNodeTools", "QMessageBox" }));
    QCOMPARE(title, "Kamo");
    QCOMPARE(text, missingDirectory ? message.arg(root) : message);
    QCOMPARE(host.project.Read("Plan.ann"), before);
    // OK was pressed: the values count even though nothing ran.
    QCOMPARE(host.settings.value("NodeToolsDialog/LastOperationIndex").toInt(), 1);
}

void DlgNodeToolsTest::categoryFilterReachesOperationWithoutFilterTab()
{
    Host host;
    const QString kanal = splitLink("k.pdf");
    const QString strom = splitLink("s.pdf");
    host.project.Write("Plan.ann", HostText({ "ANN=2", "BO", "KA=Kanal", kanal, "EO", "BO", "KA=Strom", strom, "EO" }));
    QString text;
    QString title;
    ModalDriver driver;
    driver.Expect("DlgNodeTools", confirm(8, [](QWidget* dialog) {
        QVERIFY(!tabTitles(dialog).contains("Filter: Verknüpfungen"));
        child<QGroupBox>(dialog, "gbxFilterByAnnotationCategory")->setChecked(true);
        child<QLineEdit>(dialog, "edtCategoryFilter")->setText("Kanal");
    }));
    driver.Expect("QMessageBox", readBox(&title, &text));
    DialogNodeTools tools(nullptr);
    host.Setup(tools, host.project.Root());
    tools.ShowModal();

    QCOMPARE(text, "Dateien verändert: 1");
    const QString after = QString::fromUtf8(host.project.Read("Plan.ann"));
    QVERIFY(!after.contains(kanal));
    QVERIFY(after.contains(strom));
}

void DlgNodeToolsTest::previewWritesNothingAndListsWhatTheRunChanges_data()
{
    QTest::addColumn<bool>("execute");
    QTest::newRow("Ausführen runs as OK would") << true;
    QTest::newRow("Schließen returns to the dialog") << false;
}

// The last object is not closed: the run drops it, and says so in the
// preview and after the run.
void DlgNodeToolsTest::previewWritesNothingAndListsWhatTheRunChanges()
{
    QFETCH(bool, execute);
    Host host;
    const QByteArray before = HostText({ "ANN=2", "BO", "NA=S1", splitLink("x.pdf"), "EO", "BO", "NA=offen" });
    host.project.Write("Plan.ann", before);
    host.project.Write("Lose.ann", before); // no node's document: stays
    bool analysisPreviewable = true;
    QStringList listed;
    QStringList warnings;
    QString comparison;
    QByteArray duringPreview;
    QString text;
    QString notice;
    ModalDriver driver;
    driver.Expect("DlgNodeTools", [&](QWidget* dialog) {
        auto* operations = child<QComboBox>(dialog, "cbxNodeOperationSelect");
        operations->setCurrentIndex(7);
        analysisPreviewable = child<QPushButton>(dialog, "btnPreview")->isEnabled();
        operations->setCurrentIndex(1);
        child<QPushButton>(dialog, "btnCheckAllNodes")->click();
        QTimer::singleShot(0, child<QPushButton>(dialog, "btnPreview"), &QPushButton::click);
    });
    driver.Expect("DlgNodeToolsPreview", [&](QWidget* preview) {
        auto* files = child<QTreeWidget>(preview, "treeChangedFiles");
        for (int i = 0; i < files->topLevelItemCount(); ++i)
            listed.append(files->topLevelItem(i)->text(0) + ": " + files->topLevelItem(i)->text(1));
        auto* warningList = child<QListWidget>(preview, "lstWarnings");
        for (int i = 0; i < warningList->count(); ++i)
            warnings.append(warningList->item(i)->text());
        comparison = child<QTextBrowser>(preview, "txtComparison")->toHtml();
        duringPreview = host.project.Read("Plan.ann");
        if (!QDir(host.project.DataPath("ann_sic")).exists())
            duringPreview += " and no backup";
        child<QPushButton>(preview, execute ? "btnExecute" : "btnClose")->click();
    });
    if (execute) {
        driver.Expect("QMessageBox", readBox(&text, &text));
        driver.Expect("QMessageBox", [&notice](QWidget* box) {
            notice = static_cast<QMessageBox*>(box)->informativeText();
            static_cast<QMessageBox*>(box)->accept();
        });
    } else
        driver.Expect("DlgNodeTools", [](QWidget* dialog) { static_cast<QDialog*>(dialog)->reject(); });

    DialogNodeTools tools(nullptr);
    host.Setup(tools, host.project.Root());
    tools.ShowModal();

    QVERIFY(!analysisPreviewable);
    QCOMPARE(listed, QStringList { "Plan.ann: 2" });
    const QString unclosed = host.project.DataPath("Plan.ann")
        + ": the object from line 6 is not closed: its 2 lines to the end of the "
          "file are dropped";
    QCOMPARE(warnings, QStringList { unclosed });
    QVERIFY(comparison.contains(QRegularExpression("#ffe1e1[^<]*>NA=offen<")));
    QCOMPARE(duringPreview, before + " and no backup");
    QCOMPARE(host.project.Read("Lose.ann"), before);
    if (execute) {
        QCOMPARE(text, "Dateien verändert: 1");
        QCOMPARE(notice, unclosed);
        QCOMPARE(host.project.Read("Plan.ann"), HostText({ "ANN=2", "BO", "NA=S1", "EO" }));
        QCOMPARE(QDir(host.project.DataPath("ann_sic")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
    } else {
        QCOMPARE(driver.Seen(), (QStringList { "DlgNodeTools", "DlgNodeToolsPreview", "DlgNodeTools" }));
        QCOMPARE(host.project.Read("Plan.ann"), before);
    }
}

void DlgNodeToolsTest::restoreFromTheBackupListChecksTheBackup_data()
{
    QTest::addColumn<QString>("damage");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("question"); // found in the question asked before the restore
    QTest::addColumn<QString>("report");   // found in the report after it
    QTest::newRow("intact") << ""
                            << "geprüft"
                            << "Dateien, die ersetzt werden: 2"
                            << "Dateien wiederhergestellt: 2";
    QTest::newRow("a file truncated") << "truncate"
                                      << "beschädigt (1)"
                                      << "Plan.ann: 2 bytes instead of 6"
                                      << "Nicht wiederhergestellt: 1";
    QTest::newRow("no manifest") << "manifest"
                                 << "ungeprüft (ohne Manifest)"
                                 << "kein Manifest"
                                 << "nicht geprüft werden";
}

void DlgNodeToolsTest::restoreFromTheBackupListChecksTheBackup()
{
    QFETCH(QString, damage);
    QFETCH(QString, state);
    QFETCH(QString, question);
    QFETCH(QString, report);
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
    QList<QStringList> before;
    QList<QStringList> after;
    QString log;
    QString asked;
    QString told;
    const auto rows = [](QWidget* list) {
        QList<QStringList> result;
        auto* tree = child<QTreeWidget>(list, "treeBackups");
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            result.append(
                { tree->topLevelItem(i)->text(0), tree->topLevelItem(i)->text(1), tree->topLevelItem(i)->text(2) });
        return result;
    };
    const auto checked = [&rows](QWidget* list) {
        for (const QStringList& row : rows(list)) {
            if (row.at(1).startsWith("wird geprüft"))
                return false;
        }
        return true;
    };
    // Each step leaves from a timer of its own: a button that opens a modal
    // window must not be pressed while the step before is still running.
    const auto press = [](QWidget* window, const char* name) {
        QTimer::singleShot(0, child<QPushButton>(window, name), &QPushButton::click);
    };
    ModalDriver driver;
    driver.Expect("DlgNodeTools", [&](QWidget* dialog) { press(dialog, "btnBackups"); });
    driver.Expect("DlgNodeToolsBackups", [&](QWidget* list) {
        QVERIFY(QTest::qWaitFor([&] { return checked(list); }));
        before = rows(list);
        log = child<QPlainTextEdit>(list, "txtLog")->toPlainText();
        child<QTreeWidget>(list, "treeBackups")
            ->setCurrentItem(child<QTreeWidget>(list, "treeBackups")->topLevelItem(0));
        press(list, "btnRestore");
    });
    driver.Expect("QMessageBox", [&asked](QWidget* window) {
        auto* box = static_cast<QMessageBox*>(window);
        asked = box->text() + '\n' + box->informativeText();
        box->buttons().constFirst()->click(); // "Yes", or "Übrige wiederherstellen"
    });
    driver.Expect("QMessageBox", [&told](QWidget* window) {
        auto* box = static_cast<QMessageBox*>(window);
        told = box->text() + '\n' + box->informativeText();
        box->accept();
    });
    driver.Expect("DlgNodeToolsBackups", [&](QWidget* list) {
        after = rows(list);
        static_cast<QDialog*>(list)->reject();
    });
    driver.Expect("DlgNodeTools", [](QWidget* dialog) { static_cast<QDialog*>(dialog)->reject(); });
    DialogNodeTools tools(nullptr);
    host.Setup(tools, project.Root());
    tools.ShowModal();

    QCOMPARE(before.size(), 3);
    QCOMPARE(before.at(0).at(2), "HREF: In Objekten entfernen");
    QCOMPARE(before.at(0).at(1), state);
    QCOMPARE(before.at(1).at(1), "beschädigt (1)");
    QCOMPARE(before.at(2).at(0), "kaputt (kein Zeitstempel)");
    QVERIFY(log.startsWith("Node Tool Operation: 1\n"));
    QVERIFY2(asked.contains(question), qPrintable(asked));
    QVERIFY2(told.contains(report), qPrintable(told));
    QCOMPARE(project.Read("Plan.ann"), QByteArray(damage == "truncate" ? "nachher" : "vorher"));
    QCOMPARE(project.Read("Text.ann"), QByteArray("vorher"));
    // The state before the restore is the newest backup now.
    QCOMPARE(after.size(), 4);
    QVERIFY(after.at(0).at(2).startsWith("Wiederherstellung "));
}

void DlgNodeToolsTest::proposedPathMapBecomesTheMapFile_data()
{
    QTest::addColumn<bool>("earlierMap");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");
    QTest::newRow("offered name") << false << ""
                                  << "Pfadzuordnung.csv";
    QTest::newRow("existing map overwritten") << true << ""
                                              << "Pfadzuordnung-2.csv";
    QTest::newRow("field set though nothing written") << false << "fehlt/x.csv"
                                                      << "";
}

// Documents moved from alt/ to neu/: the button asks for neu/, shows what it
// found and, once saved, the proposal is the map that operation 5 runs with.
void DlgNodeToolsTest::proposedPathMapBecomesTheMapFile()
{
    QFETCH(bool, earlierMap);
    QFETCH(QString, typed);
    QFETCH(QString, written);
    Host host;
    const QString root = host.project.Root();
    for (const char* file : { "neu/kanal/A.pdf", "neu/s11/skizze.pdf", "neu/s12/Skizze.pdf", "neu/da.pdf" }) {
        QDir(root).mkpath(QFileInfo(root + '/' + file).path());
        QFile(root + '/' + file).open(QIODevice::WriteOnly);
    }
    const QStringList links { root + "/alt/a.pdf", root + "/alt/skizze.pdf", root + "/alt/weg.pdf",
        root + "/neu/da.pdf" };
    QStringList lines { "ANN=2", "BO", "NA=S1" };
    for (const QString& link : links)
        lines.append("HREF=" + StandardLink(link));
    host.project.Write("Plan.ann", HostText(lines + QStringList { "EO" }));
    QFile earlier(root + "/Pfadzuordnung.csv");
    if (earlierMap) {
        QVERIFY(earlier.open(QIODevice::WriteOnly) && earlier.write("x,y\r\n") == 5);
        earlier.close();
    }

    QStringList shown;
    QString field;
    int previewRows = -1;
    ModalDriver driver;
    driver.Expect("DlgNodeTools", [&](QWidget* dialog) {
        child<QComboBox>(dialog, "cbxNodeOperationSelect")->setCurrentIndex(5);
        ModalDriver inner;
        inner.Expect("QFileDialog", [&root](QWidget* chooser) {
            static_cast<QFileDialog*>(chooser)->setDirectory(root + "/neu");
            static_cast<QDialog*>(chooser)->accept();
        });
        inner.Expect("DlgLinkCheck", [&](QWidget* result) {
            auto* tree = child<QTreeWidget>(result, "treeTargets");
            for (QTreeWidgetItemIterator it(tree); *it; ++it)
                shown.append(QString((*it)->text(0) + " | " + (*it)->text(2)).replace(root, "~").trimmed());
            if (!typed.isEmpty())
                child<QLineEdit>(result, "edtMapFile")->setText(root + '/' + typed);
            auto* buttons = child<QDialogButtonBox>(result, "buttonBox");
            QTimer::singleShot(0, buttons->button(QDialogButtonBox::Save), &QPushButton::click);
        });
        // A failed write, or a question about replacing a file, is answered
        // no; the check is then cancelled.
        inner.Expect("QMessageBox", [](QWidget* box) { static_cast<QDialog*>(box)->reject(); });
        inner.Expect("DlgLinkCheck", [](QWidget* result) { static_cast<QDialog*>(result)->reject(); });
        child<QPushButton>(dialog, "btnHREFReplacePathPropose")->click();
        field = child<QLineEdit>(dialog, "edtHREFReplacePathMapFile")->text();
        previewRows = child<QTreeWidget>(dialog, "treeHREFReplacePathPreview")->topLevelItemCount();
        static_cast<QDialog*>(dialog)->reject();
    });
    DialogNodeTools tools(nullptr);
    host.Setup(tools, root);
    tools.ShowModal();

    QCOMPARE(shown,
        (QStringList { "Vorgeschlagen (1) |", "~/alt/a.pdf | ~/neu/kanal/A.pdf",
            "Mehrdeutig (1): keiner gewählt, bitte von Hand zuordnen |",
            "~/alt/skizze.pdf | 2 Dateien dieses Namens:", "| ~/neu/s11/skizze.pdf", "| ~/neu/s12/Skizze.pdf",
            "Nicht gefunden (1) |", "~/alt/weg.pdf | Ordner fehlt, keine Datei des Namens gefunden" }));
    if (earlierMap) {
        QVERIFY(earlier.open(QIODevice::ReadOnly));
        QCOMPARE(earlier.readAll(), "x,y\r\n");
    }
    if (written.isEmpty()) {
        QCOMPARE(field, QString());
        return;
    }
    QCOMPARE(field, QDir::toNativeSeparators(root + '/' + written));
    QFile map(root + '/' + written);
    QVERIFY(map.open(QIODevice::ReadOnly));
    QCOMPARE(map.readAll(), (root + "/alt/a.pdf," + root + "/neu/kanal/A.pdf\r\n").toUtf8());
    QCOMPARE(previewRows, 1);
}

QTEST_MAIN(DlgNodeToolsTest)
#include "DlgNodeToolsTest.moc"
