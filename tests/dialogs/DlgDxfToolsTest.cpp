#include "ModalDriver.h"

#include <dialogs/DialogDxfTools.h>
#include <dxf/DxfDump.h>

#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTranslator>
#include <QTreeWidget>
#include <QWheelEvent>

namespace {

QString data(const QString& name)
{
    return QStringLiteral(KAMO_DXF_DATA "/") + name;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

// The workbench as a host opens it: the facade under a window of the host's,
// among whose children the dialog is found, as a host inspecting it would.
struct Workbench {
    explicit Workbench(QSettings* settings = nullptr, const QString& preset = QString())
        : tools(&host, settings)
    {
        tools.SetDxfFilename(preset);
        tools.Initialize();
        dialog = child<QDialog>(&host, "DlgDxfTools");
        map = child<QWidget>(dialog, "sheetMap");
        tree = child<QTreeWidget>(dialog, "insertTree");
    }
    QString Output() const { return child<QPlainTextEdit>(dialog, "outputEdit")->toPlainText(); }
    QString File() const { return QDir::fromNativeSeparators(child<QLineEdit>(dialog, "dxfFileEdit")->text()); }
    void Click(const char* button) const { child<QPushButton>(dialog, button)->click(); }
    QVariantMap Frame(int insert) const { return map->property("frames").toList().value(insert).toMap(); }
    QList<int> Ints(const char* property) const { return map->property(property).value<QList<int>>(); }
    // Where the map shows a drawing point, from its published view.
    QPointF OnMap(const QPointF& world) const
    {
        const double scale = map->property("scale").toDouble();
        const QPointF center = map->property("viewCenter").toPointF();
        return QPointF(map->width() / 2.0 + (world.x() - center.x()) * scale,
            map->height() / 2.0 - (world.y() - center.y()) * scale);
    }

    QWidget host;
    DialogDxfTools tools;
    QDialog* dialog;
    QWidget* map;
    QTreeWidget* tree;
};

// The "#" of every checked row of the insert list.
QList<int> checkedRows(const QTreeWidget* tree)
{
    QList<int> rows;
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        if (tree->topLevelItem(i)->checkState(0) == Qt::Checked)
            rows.append(tree->topLevelItem(i)->text(0).toInt());
    }
    return rows;
}

// Presses `button` and picks `file` in the file dialog it opens; `chosen`
// runs once the choice is made. The text of a message box that follows is
// returned, the box answered.
QString chooseFile(QWidget* dialog, const char* button, const QString& file, const std::function<void()>& chosen = {})
{
    QString boxText;
    ModalDriver driver;
    driver.Expect("QFileDialog", [&](QWidget* window) {
        // Typed, as selectFile() leaves the field alone while it has focus;
        // QFileDialog hides accept(), which checks the choice as OK does.
        child<QLineEdit>(window, "fileNameEdit")->setText(file);
        static_cast<QDialog*>(window)->accept();
        if (chosen)
            chosen();
    });
    driver.Expect("QMessageBox", [&](QWidget* box) {
        boxText = static_cast<QMessageBox*>(box)->text();
        static_cast<QMessageBox*>(box)->accept();
    });
    child<QPushButton>(dialog, button)->click();
    return boxText;
}

void sendMouse(QWidget* widget, QEvent::Type type, const QPointF& at)
{
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at.toPoint()), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void turnWheel(QWidget* widget, const QPointF& at, int angle)
{
    QWheelEvent wheel(at, widget->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, angle), Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &wheel);
}

} // namespace

class DlgDxfToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openListsInsertsWithTheirSheetNumbers();
    void blockFilterSetsUseFlags_data();
    void blockFilterSetsUseFlags();
    void correctThenExportWritesTheExpectedBytes_data();
    void correctThenExportWritesTheExpectedBytes();
    void unreadableFileKeepsTheDrawing_data();
    void unreadableFileKeepsTheDrawing();
    void exportFailureIsReported();
    void dumpAppendsTheListing();
    void dumpButtonStopsARunningDump();
    void settingsBringBackFileFilterAndGeometry();
    void showModalRunsTheWorkbench();
    void listingAndMapLabelTheCornersAlike();
    void mapDrawsFramesByUseAndReport_data();
    void mapDrawsFramesByUseAndReport();
    void mapFollowsTheListAndThePointer();

    // A line edit's clear button fades in through an animation that only
    // notices on its next frame that its button is gone, and then deletes
    // itself later: both need an event loop after the last dialog closed.
    void cleanupTestCase()
    {
        QTest::qWait(250);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

void DlgDxfToolsTest::openListsInsertsWithTheirSheetNumbers()
{
    Workbench bench;
    QVERIFY(!child<QPushButton>(bench.dialog, "correctButton")->isEnabled());
    QCOMPARE(chooseFile(bench.dialog, "openButton", data("route.dxf")), QString());

    QTreeWidget* tree = bench.tree;
    QCOMPARE(tree->topLevelItemCount(), 8);
    const QStringList sheets { "101", "102", "103", "104", "105", "106", "107", "" };
    for (int i = 0; i < 8; ++i) {
        QCOMPARE(tree->topLevelItem(i)->text(2), sheets.at(i));
        QCOMPARE(tree->topLevelItem(i)->checkState(0), Qt::Checked);
    }
    QCOMPARE(tree->topLevelItem(7)->text(1), QString("NORDPFEIL"));
    QCOMPARE(tree->topLevelItem(7)->text(5), QString("3512050.000, 5812900.000"));
    QCOMPARE(
        child<QLabel>(bench.dialog, "summaryLabel")->text(), QString("4 layers, 10 blocks, 8 inserts, 8 of them used"));
    QVERIFY(child<QPushButton>(bench.dialog, "correctButton")->isEnabled());
    // The first insert is current, its frame listed without labels yet.
    auto* vertices = child<QTreeWidget>(bench.dialog, "vertexTree");
    QCOMPARE(vertices->topLevelItemCount(), 1);
    QCOMPARE(vertices->topLevelItem(0)->childCount(), 4);
    QCOMPARE(vertices->topLevelItem(0)->child(2)->text(1), QString("3512400.000"));
    QCOMPARE(vertices->topLevelItem(0)->child(2)->text(3), QString());
}

void DlgDxfToolsTest::blockFilterSetsUseFlags_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QList<int>>("used");

    QTest::newRow("empty uses all") << "" << true << QList<int> { 0, 1, 2, 3, 4, 5, 6, 7 };
    QTest::newRow("anchored range") << "^BLATT_10[1-3]$" << true << QList<int> { 0, 1, 2 };
    QTest::newRow("anywhere in the name") << "PFEIL" << true << QList<int> { 7 };
    QTest::newRow("case matters") << "blatt" << true << QList<int> {};
    // The last filter stays: 1 and 2 were unchecked by hand before.
    QTest::newRow("invalid changes nothing") << "BLATT_(" << false << QList<int> { 0, 3, 4, 5, 6, 7 };
}

void DlgDxfToolsTest::blockFilterSetsUseFlags()
{
    QFETCH(QString, pattern);
    QFETCH(bool, valid);
    QFETCH(QList<int>, used);

    Workbench bench(nullptr, data("route.dxf"));
    bench.tree->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
    bench.tree->topLevelItem(2)->setCheckState(0, Qt::Unchecked);

    child<QLineEdit>(bench.dialog, "blockFilterEdit")->setText(pattern);
    QCOMPARE(child<QPushButton>(bench.dialog, "applyFilterButton")->isEnabled(), valid);
    // What Enter in the field does, which an invalid filter does not stop.
    QVERIFY(QMetaObject::invokeMethod(bench.dialog, "OnApplyFilterClicked"));
    QCOMPARE(checkedRows(bench.tree), used);
    // The summary counts the drawing's flags: list and filter reached them.
    QCOMPARE(child<QLabel>(bench.dialog, "summaryLabel")->text(),
        QString("4 layers, 10 blocks, 8 inserts, %1 of them used").arg(used.size()));
}

void DlgDxfToolsTest::correctThenExportWritesTheExpectedBytes_data()
{
    QTest::addColumn<QString>("drawing");
    QTest::addColumn<QList<int>>("leftOut"); // unchecked after a first correction, then corrected again
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<QStringList>("log");

    const QByteArray route = bytesOf(data("route.gk2"));
    QTest::newRow("route with turned sheets")
        << "route.dxf" << QList<int> {} << route
        << QStringList { "Correction completed - Inserts labelled: 7", "Export completed - Inserts written: 7" };
    QTest::newRow("awkward frames") << "sheets.dxf" << QList<int> {} << bytesOf(data("sheets.gk2"))
                                    << QStringList {
                                           "Rectangle detector detected less or more than one rectangle (Block:4",
                                           "Correction completed - Inserts labelled: 4",
                                           "Export completed - Inserts written: 6",
                                       };
    // They lose their labels and stay out of the export: the first five
    // sheets get the same corners without the last two.
    QTest::newRow("left out after a correction")
        << "route.dxf" << QList<int> { 5, 6 } << route.left(route.indexOf("\r\n106\r\n"))
        << QStringList { "Correction completed - Inserts labelled: 7", "Correction completed - Inserts labelled: 5",
               "Export completed - Inserts written: 5" };
}

void DlgDxfToolsTest::correctThenExportWritesTheExpectedBytes()
{
    QFETCH(QString, drawing);
    QFETCH(QList<int>, leftOut);
    QFETCH(QByteArray, expected);
    QFETCH(QStringList, log);

    QTemporaryDir dir;
    Workbench bench(nullptr, data(drawing));
    bench.Click("correctButton");
    if (!leftOut.isEmpty()) {
        for (int row : leftOut) {
            QCOMPARE(bench.tree->topLevelItem(row)->text(4), QString("4"));
            bench.tree->topLevelItem(row)->setCheckState(0, Qt::Unchecked);
        }
        bench.Click("correctButton");
    }
    for (int row : leftOut)
        QCOMPARE(bench.tree->topLevelItem(row)->text(4), QString());
    QCOMPARE(chooseFile(bench.dialog, "exportButton", dir.filePath("out.gk2")), QString());

    QCOMPARE(bytesOf(dir.filePath("out.gk2")), expected);
    QStringList lines = bench.Output().split('\n');
    lines.removeFirst(); // "Opened …"
    QCOMPARE(lines, log);
}

void DlgDxfToolsTest::unreadableFileKeepsTheDrawing_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("goneWhenRead");
    QTest::addColumn<QString>("reason");

    // The file dialog offers existing files only: a missing one is one that
    // went between choosing and reading. The reasons of a damaged file come
    // from one check, tested with DxfDump.
    QTest::newRow("missing") << "route.dxf" << true << "no such file";
    QTest::newRow("damaged") << "huge-count.dxf" << false << "more than the file can hold";
}

void DlgDxfToolsTest::unreadableFileKeepsTheDrawing()
{
    QFETCH(QString, file);
    QFETCH(bool, goneWhenRead);
    QFETCH(QString, reason);

    QTemporaryDir dir;
    QSettings settings(dir.filePath("settings.ini"), QSettings::IniFormat);
    Workbench bench(&settings, data("route.dxf"));
    bench.tree->topLevelItem(0)->setCheckState(0, Qt::Unchecked);

    const QString chosen = dir.filePath(file);
    QVERIFY(QFile::copy(data(file), chosen));
    const QString boxText = chooseFile(bench.dialog, "openButton", chosen, [&]() {
        if (goneWhenRead)
            QFile::remove(chosen);
    });
    QVERIFY2(boxText.contains(reason), qPrintable(boxText));
    QVERIFY(bench.Output().endsWith(boxText));
    QCOMPARE(bench.File(), data("route.dxf"));
    QCOMPARE(settings.value("DxfToolsDialog/LastUsedFile").toString(), data("route.dxf"));
    QCOMPARE(checkedRows(bench.tree), (QList<int> { 1, 2, 3, 4, 5, 6, 7 }));
}

void DlgDxfToolsTest::exportFailureIsReported()
{
    QTemporaryDir dir;
    Workbench bench(nullptr, data("route.dxf"));
    // A file where the folder of the export should be: not even root can
    // write there.
    QVERIFY(QFile::copy(data("route.gk2"), dir.filePath("plain")));
    const QString boxText = chooseFile(bench.dialog, "exportButton", dir.filePath("plain/out.gk2"));
    QVERIFY2(boxText.contains("cannot write the file"), qPrintable(boxText));
    QVERIFY(bench.Output().endsWith(boxText));
}

void DlgDxfToolsTest::dumpAppendsTheListing()
{
    QString expected;
    QVERIFY(DxfDump::DumpFileToText(data("drawing.dxf"), expected, nullptr));
    Workbench bench(nullptr, data("drawing.dxf"));
    const QString opened = bench.Output();

    bench.Click("dumpButton");
    QCOMPARE(bench.Output(), opened + '\n' + expected);
    QVERIFY(child<QPushButton>(bench.dialog, "dumpButton")->isEnabled());
}

void DlgDxfToolsTest::dumpButtonStopsARunningDump()
{
    Workbench bench(nullptr, data("route.dxf"));
    auto* dump = child<QPushButton>(bench.dialog, "dumpButton");
    int linesWhenStopped = -1;
    // Runs from the event processing of the dump's first line.
    QTimer::singleShot(0, bench.dialog, [&]() {
        QVERIFY(!child<QPushButton>(bench.dialog, "correctButton")->isEnabled());
        linesWhenStopped = bench.Output().count('\n');
        dump->click();
    });
    dump->click();

    QVERIFY(linesWhenStopped > 0);
    const QStringList lines = bench.Output().split('\n');
    QCOMPARE(lines.size(), linesWhenStopped + 2);
    QCOMPARE(lines.last(), QString("Dump stopped"));
    QCOMPARE(dump->text(), QString("&Dump DXF"));
    QVERIFY(child<QPushButton>(bench.dialog, "correctButton")->isEnabled());
}

void DlgDxfToolsTest::settingsBringBackFileFilterAndGeometry()
{
    QTemporaryDir dir;
    QSettings settings(dir.filePath("settings.ini"), QSettings::IniFormat);
    {
        Workbench first(&settings);
        QCOMPARE(chooseFile(first.dialog, "openButton", data("route.dxf")), QString());
        child<QLineEdit>(first.dialog, "blockFilterEdit")->setText("BLATT_10[67]");
        first.dialog->show();
        first.dialog->resize(900, 650);
        first.dialog->reject();
    }

    Workbench bench(&settings);
    QCOMPARE(bench.File(), data("route.dxf"));
    QCOMPARE(bench.dialog->size(), QSize(900, 650));
    // The filter on display is in effect for the drawing opened with it.
    QCOMPARE(checkedRows(bench.tree), (QList<int> { 5, 6 }));

    // A drawing gone since is not opened, and not complained about.
    settings.setValue("DxfToolsDialog/LastUsedFile", dir.filePath("gone.dxf"));
    Workbench later(&settings);
    QCOMPARE(later.File(), QString());
    QCOMPARE(later.Output(), QString());
}

// Drives the workbench as the host shows it. With KAMO_SCREENSHOT_DIR set,
// the dialog and its map are saved there as pictures after the export:
// KAMO_SCREENSHOT_DXF then names a copy of the drawing to show, in a folder
// fit to be seen (the file name shows in the pictures), and
// KAMO_SCREENSHOT_LANG the language of the texts (only the map is saved in
// another language than English).
void DlgDxfToolsTest::showModalRunsTheWorkbench()
{
    const QString screenshots = qEnvironmentVariable("KAMO_SCREENSHOT_DIR");
    const QString language = qEnvironmentVariable("KAMO_SCREENSHOT_LANG", "en");
    QTranslator translator;
    if (language != "en") {
        QVERIFY(translator.load(":/kamo_tools/kamo_tools_" + language + ".qm"));
        QCoreApplication::installTranslator(&translator);
    }
    const QString drawing = qEnvironmentVariable("KAMO_SCREENSHOT_DXF", data("route.dxf"));

    QTemporaryDir dir;
    QSettings settings(dir.filePath("settings.ini"), QSettings::IniFormat);
    DialogDxfTools tools(nullptr, &settings);
    tools.SetDxfFilename(drawing);
    tools.Initialize();

    QList<int> used;
    ModalDriver driver;
    driver.Expect("DlgDxfTools", [&](QWidget* dialog) {
        child<QLineEdit>(dialog, "blockFilterEdit")->setText("^BLATT_");
        child<QPushButton>(dialog, "applyFilterButton")->click();
        child<QPushButton>(dialog, "correctButton")->click();
        chooseFile(dialog, "exportButton", dir.filePath("route.gk2"));
        auto* tree = child<QTreeWidget>(dialog, "insertTree");
        tree->setCurrentItem(tree->topLevelItem(4));
        used = checkedRows(tree);
        if (!screenshots.isEmpty()) {
            // The export's file dialog left with the activation: the user
            // has the workbench in front again.
            QApplication::setActiveWindow(dialog);
            child<QPushButton>(dialog, "fitAllButton")->click();
            if (language == "en")
                dialog->grab().save(screenshots + "/dlg-dxf-tools.png");
            // The map alone, large enough for its labels to be read.
            dialog->resize(1500, 1000);
            child<QSplitter>(dialog, "mainSplitter")->setSizes({ 780, 180 });
            child<QSplitter>(dialog, "topSplitter")->setSizes({ 560, 920 });
            child<QSplitter>(dialog, "detailSplitter")->setSizes({ 660, 100 });
            QTest::qWait(50);
            child<QPushButton>(dialog, "fitAllButton")->click();
            auto* map = child<QWidget>(dialog, "mapGroup");
            const QRect area(map->mapTo(dialog, QPoint(0, 0)), map->size());
            dialog->grab(area.adjusted(-2, -2, 2, 2)).save(screenshots + "/dlg-dxf-tools-map-" + language + ".png");
        }
        child<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Close)->click();
    });
    tools.ShowModal();

    QCOMPARE(driver.Seen(), QStringList { "DlgDxfTools" });
    QCOMPARE(bytesOf(dir.filePath("route.gk2")), bytesOf(data("route.gk2")));
    QCOMPARE(settings.value("DxfToolsDialog/BlockFilter").toString(), QString("^BLATT_"));
    QCOMPARE(used, (QList<int> { 0, 1, 2, 3, 4, 5, 6 }));
}

// Sheet 104 is turned, with the route running north through it: the route
// reads its south-west corner as top left. The map names each corner as the
// vertex listing does, at that vertex, and gets the route through all seven
// sheets with the labels.
void DlgDxfToolsTest::listingAndMapLabelTheCornersAlike()
{
    Workbench bench(nullptr, data("route.dxf"));
    // On screen at its default size: the map needs a size to place its frames.
    bench.dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(bench.dialog));
    bench.tree->setCurrentItem(bench.tree->topLevelItem(3));
    turnWheel(bench.map, QRectF(bench.map->rect()).center(), 360);
    QVERIFY(bench.map->property("cornerLabels").toList().isEmpty());
    bench.Click("correctButton");

    auto* vertices = child<QTreeWidget>(bench.dialog, "vertexTree");
    QCOMPARE(vertices->topLevelItemCount(), 1);
    QTreeWidgetItem* polyline = vertices->topLevelItem(0);
    QStringList listed;
    for (int v = 0; v < polyline->childCount(); ++v)
        listed.append(
            polyline->child(v)->text(1) + ' ' + polyline->child(v)->text(2) + ' ' + polyline->child(v)->text(3));
    QCOMPARE(listed,
        (QStringList { "3512910.000 5812660.000 vpTopRight", "3513190.000 5812660.000 vpBottomRight",
            "3513190.000 5812260.000 vpBottomLeft", "3512910.000 5812260.000 vpTopLeft" }));

    QCOMPARE(bench.Ints("route"), (QList<int> { 0, 1, 2, 3, 4, 5, 6 }));
    const QMap<QString, QString> names { { "TL", "vpTopLeft" }, { "TR", "vpTopRight" }, { "BR", "vpBottomRight" },
        { "BL", "vpBottomLeft" } };
    QStringList onMap;
    for (const QVariant& item : bench.map->property("cornerLabels").toList()) {
        const QVariantMap label = item.toMap();
        const QPointF world = label.value("world").toPointF();
        if (label.value("insert").toInt() == 3)
            onMap.append(QString("%1 %2 %3")
                             .arg(world.x(), 0, 'f', 3)
                             .arg(world.y(), 0, 'f', 3)
                             .arg(names.value(label.value("text").toString())));
    }
    onMap.sort();
    listed.sort();
    QCOMPARE(onMap, listed);
}

void DlgDxfToolsTest::mapDrawsFramesByUseAndReport_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("insert");
    QTest::addColumn<bool>("leftOutAfterwards");
    QTest::addColumn<QString>("state");

    QTest::newRow("one rectangle") << "sheets.dxf" << 3 << false << "Used";
    QTest::newRow("not one rectangle") << "sheets.dxf" << 4 << false << "Reported";
    QTest::newRow("reported, then left out") << "sheets.dxf" << 4 << true << "Unused";
    QTest::newRow("block without polyline") << "sheets.dxf" << 6 << false << "NoFrame";
    QTest::newRow("labelled before the revision stopped") << "kite.dxf" << 0 << false << "Used";
    QTest::newRow("where the revision stopped") << "kite.dxf" << 1 << false << "Reported";
    QTest::newRow("after the revision stopped") << "kite.dxf" << 2 << false << "Reported";
}

void DlgDxfToolsTest::mapDrawsFramesByUseAndReport()
{
    QFETCH(QString, file);
    QFETCH(int, insert);
    QFETCH(bool, leftOutAfterwards);
    QFETCH(QString, state);

    Workbench bench(nullptr, data(file));
    bench.Click("correctButton");
    if (leftOutAfterwards)
        bench.tree->topLevelItem(insert)->setCheckState(0, Qt::Unchecked);
    QCOMPARE(bench.Frame(insert).value("state").toString(), state);

    // A drawing opened anew has not been reported on.
    QCOMPARE(chooseFile(bench.dialog, "openButton", data(file)), QString());
    QCOMPARE(bench.Frame(insert).value("state").toString(), state == "NoFrame" ? state : QString("Used"));
    QVERIFY(bench.Ints("route").isEmpty());
}

void DlgDxfToolsTest::mapFollowsTheListAndThePointer()
{
    Workbench bench(nullptr, data("route.dxf"));
    bench.dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(bench.dialog));
    QWidget* map = bench.map;
    QTreeWidget* tree = bench.tree;

    tree->setCurrentItem(tree->topLevelItem(5));
    QCOMPARE(bench.Ints("selectedInserts"), QList<int> { 5 });
    const QPointF middle = QRectF(map->rect()).center();
    const QPointF sheet = bench.Frame(5).value("center").toPointF();
    QVERIFY(QLineF(bench.OnMap(sheet), middle).length() < 0.5);

    // Where sheets 104 and 105 overlap, the click goes to the one whose
    // middle is nearer, 104 (insert 3); the map stays where it was.
    QTest::mouseClick(map, Qt::LeftButton, Qt::NoModifier, bench.OnMap(QPointF(3513000, 5812645)).toPoint());
    QCOMPARE(tree->currentItem(), tree->topLevelItem(3));
    QCOMPARE(tree->selectedItems(), QList<QTreeWidgetItem*> { tree->topLevelItem(3) });
    QCOMPARE(bench.Ints("selectedInserts"), QList<int> { 3 });
    QVERIFY(QLineF(bench.OnMap(sheet), middle).length() < 0.5);

    // Outside every frame a click changes nothing.
    QTest::mouseClick(map, Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
    QCOMPARE(tree->currentItem(), tree->topLevelItem(3));

    // Dragged 40 pixels right and 30 down, the drawing follows the pointer
    // (north up) and nothing is selected.
    sendMouse(map, QEvent::MouseButtonPress, middle);
    sendMouse(map, QEvent::MouseMove, middle + QPointF(20, 15));
    sendMouse(map, QEvent::MouseMove, middle + QPointF(40, 30));
    sendMouse(map, QEvent::MouseButtonRelease, middle + QPointF(40, 30));
    QVERIFY(QLineF(bench.OnMap(sheet), middle + QPointF(40, 30)).length() < 0.5);
    QCOMPARE(tree->currentItem(), tree->topLevelItem(3));

    const QPointF pointer = bench.OnMap(sheet);
    const double scale = map->property("scale").toDouble();
    turnWheel(map, pointer, 240);
    QCOMPARE(map->property("scale").toDouble(), scale * 1.5625);
    QVERIFY(QLineF(bench.OnMap(sheet), pointer).length() < 0.5);

    bench.Click("fitAllButton");
    QCOMPARE(map->property("scale").toDouble(), scale);
}

QTEST_MAIN(DlgDxfToolsTest)
#include "DlgDxfToolsTest.moc"
