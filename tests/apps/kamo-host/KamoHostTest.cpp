#include "../../dialogs/ModalDriver.h"
#include "../SampleProject.h"
#include "MainWindow.h"

#include <Kamo_view/ProjectDescription.h>
#include <Kamo_view/TreeWidget.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDirIterator>
#include <QImage>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace {

void writeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QAction* findAction(const QMainWindow& window, const QString& text)
{
    for (QAction* action : window.menuBar()->findChildren<QAction*>()) {
        if (action->text().remove('&') == text)
            return action;
    }
    return nullptr;
}

} // namespace

class KamoHostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void detailsShowTheSelectedRecord_data();
    void detailsShowTheSelectedRecord();
    void failedOpenKeepsTheOpenProject_data();
    void failedOpenKeepsTheOpenProject();
    void toolsNeedAProject();
    void shapeImportConvertsAndKeepsTheProjectArea();
    void dxfToolsOpenTheProjectDrawingUntilOneWasUsed_data();
    void dxfToolsOpenTheProjectDrawingUntilOneWasUsed();
    void screenshot_data();
    void screenshot();
};

void KamoHostTest::detailsShowTheSelectedRecord_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QStringList>("notShown");

    QTest::newRow("node: documents of its zone only")
        << "Haltung H0815" << QStringList { "1 (Bestand)", "Haltung_H0815.pdf", "TV-Inspektion_2023.pdf" }
        << QStringList { "BA1_H0815.pdf", "C:\\Projekte" };
    QTest::newRow("node shown in another zone")
        << "Bauabschnitt 2" << QStringList { "3 (Bauabschnitt 2)", "keine" } << QStringList {};
    QTest::newRow("table") << "Schachtliste" << QStringList { "Schacht", "Deckelhöhe", "Sohlhöhe" } << QStringList {};
    QTest::newRow("participant") << "Telekom – Kabeltrasse" << QStringList { "Telekom Technik GmbH" } << QStringList {};
    QTest::newRow("gallery") << "Baustellenfotos Bauabschnitt 2" << QStringList { "Fotos/BA2" } << QStringList {};
    QTest::newRow("folder") << "Tabellen" << QStringList {} << QStringList { "Schachtliste" };
}

void KamoHostTest::detailsShowTheSelectedRecord()
{
    QFETCH(QString, item);
    QFETCH(QStringList, shown);
    QFETCH(QStringList, notShown);

    QTemporaryDir dir;
    QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
    MainWindow window(&settings);
    QVERIFY(window.LoadProject(copySample(dir)));

    const QList<QTreeWidgetItem*> items = window.Tree()->findItems(item, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(items.size(), 1);
    window.Tree()->setCurrentItem(items.first());
    const QString text = window.DetailsText();
    for (const QString& expected : shown)
        QVERIFY2(text.contains(expected), qPrintable(expected + " missing in:\n" + text));
    for (const QString& unexpected : notShown)
        QVERIFY2(!text.contains(unexpected), qPrintable(unexpected + " shown in:\n" + text));
}

void KamoHostTest::failedOpenKeepsTheOpenProject_data()
{
    QTest::addColumn<QByteArray>("description"); // empty: no Projekt.json

    QTest::newRow("not JSON") << QByteArray("{ \"Version\": 1, \"Nodes\": [");
    QTest::newRow("unknown version") << QByteArray("{ \"Version\": 2, \"Nodes\": [] }");
    QTest::newRow("no description") << QByteArray();
}

void KamoHostTest::failedOpenKeepsTheOpenProject()
{
    QFETCH(QByteArray, description);

    QTemporaryDir dir;
    const QString root = copySample(dir);
    const QString broken = dir.filePath("Kaputt");
    QDir().mkpath(broken);
    if (!description.isEmpty())
        writeFile(broken + "/Projekt.json", description);
    ProjectDescription expected;
    QVERIFY(!expected.Load(broken));

    QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
    MainWindow window(&settings);
    QVERIFY(window.LoadProject(root));
    const QString title = window.windowTitle();
    const int topLevel = window.Tree()->topLevelItemCount();

    QString reported;
    QTimer::singleShot(0, this, [&reported]() {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            reported = box->informativeText();
            box->accept();
        }
    });
    QVERIFY(!window.OpenProject(broken));

    QCOMPARE(reported, expected.ErrorString());
    QCOMPARE(window.ProjectRoot(), root);
    QCOMPARE(window.windowTitle(), title);
    QCOMPARE(window.Tree()->topLevelItemCount(), topLevel);
    QCOMPARE(window.LastProject(), root);
    QVERIFY(!window.DetailsText().isEmpty());
}

void KamoHostTest::toolsNeedAProject()
{
    QTemporaryDir dir;
    QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
    MainWindow window(&settings);
    QAction* nodeTools = findAction(window, "Knotenwerkzeuge…");
    QVERIFY(nodeTools);

    QVERIFY(!nodeTools->isEnabled());
    QVERIFY(!window.LoadProject(dir.filePath("fehlt")));
    QVERIFY(!nodeTools->isEnabled());
    QVERIFY(window.LoadProject(copySample(dir)));
    QVERIFY(nodeTools->isEnabled());
    QCOMPARE(window.windowTitle(), QString("Musterstadt Kanalsanierung – Kamo Demo"));
}

void KamoHostTest::shapeImportConvertsAndKeepsTheProjectArea()
{
    QTemporaryDir dir;
    QSettings settings(dir.filePath("host.ini"), QSettings::IniFormat);
    MainWindow window(&settings);
    const QString root = copySample(dir);
    QVERIFY(window.LoadProject(root));
    ModalDriver driver;
    QString system;
    driver.Expect("DlgShapeImport", [&root, &system](QWidget* dialog) {
        auto* mode = child<QComboBox>(dialog, "cbxImportMode");
        mode->setCurrentIndex(mode->findText("Buildings"));
        // Typed and left, as a user does; the file's ".prj" names its
        // system, Gauss-Krüger zone 3.
        auto* file = child<QLineEdit>(dialog, "edtShapeFile");
        file->setText(root + "/GIS/Gebaeude.shp");
        Q_EMIT file->editingFinished();
        system = child<QLineEdit>(dialog, "edtImportFileGeoSystem")->toolTip();
        auto* tree = child<QTreeWidget>(dialog, "twFieldAssignment");
        auto* id = qobject_cast<QComboBox*>(tree->itemWidget(tree->topLevelItem(0), 2));
        id->setCurrentIndex(id->findText("Id"));
        child<QCheckBox>(dialog, "chkUseGeoFilter")->setChecked(true);
        child<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
    });
    QVERIFY(window.RunTool("shape-import"));
    QCOMPARE(driver.Seen(), QStringList { "DlgShapeImport" });
    QVERIFY2(system.contains("31467"), qPrintable(system));
    // Converted into the project's system, building 4 lies east of the
    // project's area.
    const QStringList lines = window.ImportResultLines();
    QCOMPARE(lines.size(), 3);
    QVERIFY2(lines.at(2).startsWith("DEBW0003: "), qPrintable(lines.join('\n')));
}

void KamoHostTest::dxfToolsOpenTheProjectDrawingUntilOneWasUsed_data()
{
    QTest::addColumn<QString>("lastUsed"); // "ROOT": the sample copy
    QTest::addColumn<QString>("opened");

    QTest::newRow("none used yet") << ""
                                   << "ROOT/CAD/Blattschnitte.dxf";
    QTest::newRow("one used before") << KAMO_DXF_DATA "/sheets.dxf" << KAMO_DXF_DATA "/sheets.dxf";
}

void KamoHostTest::dxfToolsOpenTheProjectDrawingUntilOneWasUsed()
{
    QFETCH(QString, lastUsed);
    QFETCH(QString, opened);

    QTemporaryDir dir;
    QSettings settings(dir.filePath("host.ini"), QSettings::IniFormat);
    if (!lastUsed.isEmpty())
        settings.setValue("DxfToolsDialog/LastUsedFile", lastUsed);
    MainWindow window(&settings);
    const QString root = copySample(dir);
    QVERIFY(window.LoadProject(root));
    QString shown;
    ModalDriver driver;
    driver.Expect("DlgDxfTools", [&shown](QWidget* dialog) {
        shown = QDir::fromNativeSeparators(child<QLineEdit>(dialog, "dxfFileEdit")->text());
        static_cast<QDialog*>(dialog)->reject();
    });
    QVERIFY(window.RunTool("dxf-tools"));
    QCOMPARE(driver.Seen(), QStringList { "DlgDxfTools" });
    QCOMPARE(shown, QString(opened).replace("ROOT", root));
}

void KamoHostTest::screenshot_data()
{
    QTest::addColumn<QStringList>("folders"); // "ROOT": the sample copy
    QTest::addColumn<int>("exitCode");

    QTest::newRow("project folder") << QStringList { "ROOT" } << 0;
    QTest::newRow("project description") << QStringList { "ROOT/Projekt.json" } << 0;
    QTest::newRow("no project") << QStringList {} << 0;
    QTest::newRow("missing folder") << QStringList { "ROOT/fehlt" } << 1;
    QTest::newRow("two folders") << QStringList { "ROOT", "ROOT" } << 2;
}

void KamoHostTest::screenshot()
{
    QFETCH(QStringList, folders);
    QFETCH(int, exitCode);

    QTemporaryDir dir;
    const QString root = copySample(dir);
    const QString shot = dir.filePath("shot.png");
    QStringList arguments { "--settings", dir.filePath("s.ini"), "--screenshot", shot };
    for (const QString& folder : folders)
        arguments << QString(folder).replace("ROOT", root);

    QProcess process;
    process.start(KAMO_HOST_EXECUTABLE, arguments);
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), exitCode);

    const QImage image(shot, "PNG");
    QCOMPARE(!image.isNull(), exitCode == 0);
    if (exitCode == 0)
        QVERIFY(image.width() > 100 && image.height() > 100);
}

QTEST_MAIN(KamoHostTest)
#include "KamoHostTest.moc"
