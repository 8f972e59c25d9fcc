#include "ModalDriver.h"

#include <dialogs/DialogDxfTools.h>
#include <dxf/DxfDump.h>

namespace {

const auto data = [](const QString& name) { return QStringLiteral(KAMO_DXF_DATA "/") + name; };

// The workbench as a host opens it: the facade under a window of the host's,
// among whose children the dialog is found, as a host inspecting it would.
struct Workbench {
    explicit Workbench(QSettings* settings = nullptr, const QString& preset = QString())
        : tools(&host, settings)
    {
        tools.SetDxfFilename(preset);
        tools.Initialize();
    }
    QString Output() const { return child<QPlainTextEdit>(dialog, "outputEdit")->toPlainText(); }
    QString File() const { return QDir::fromNativeSeparators(child<QLineEdit>(dialog, "dxfFileEdit")->text()); }
    QPushButton* Button(const char* name) const { return child<QPushButton>(dialog, name); }
    QVariantMap Frame(int insert) const { return map->property("frames").toList().value(insert).toMap(); }
    QList<int> Ints(const char* property) const { return map->property(property).value<QList<int>>(); }
    double Scale() const { return map->property("scale").toDouble(); }
    // The "#" of every checked row of the insert list.
    QList<int> Checked() const
    {
        QList<int> rows;
        for (QTreeWidgetItemIterator it(tree, QTreeWidgetItemIterator::Checked); *it; ++it)
            rows.append((*it)->text(0).toInt());
        return rows;
    }
    void Uncheck(int row) const { tree->topLevelItem(row)->setCheckState(0, Qt::Unchecked); }
    // Where the map shows a drawing point, from its published view.
    QPointF OnMap(const QPointF& world) const
    {
        const QPointF center = map->property("viewCenter").toPointF();
        return QPointF(map->width() / 2.0 + (world.x() - center.x()) * Scale(),
            map->height() / 2.0 - (world.y() - center.y()) * Scale());
    }
    void Mouse(QEvent::Type type, const QPointF& at) const
    {
        const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, map->mapToGlobal(at.toPoint()), Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(map, &event);
    }
    void Wheel(const QPointF& at, int angle) const
    {
        QWheelEvent wheel(at, map->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, angle), Qt::NoButton, Qt::NoModifier,
            Qt::NoScrollPhase, false);
        QApplication::sendEvent(map, &wheel);
    }

    QWidget host;
    DialogDxfTools tools;
    QDialog* dialog = child<QDialog>(&host, "DlgDxfTools");
    QWidget* map = child<QWidget>(dialog, "sheetMap");
    QTreeWidget* tree = child<QTreeWidget>(dialog, "insertTree");
};

void filterRow(const QString& pattern, bool valid, const QList<int>& used)
{
    Workbench bench(nullptr, data("route.dxf"));
    bench.Uncheck(1);
    bench.Uncheck(2);
    child<QLineEdit>(bench.dialog, "blockFilterEdit")->setText(pattern);
    QCOMPARE(bench.Button("applyFilterButton")->isEnabled(), valid);
    // What Enter in the field does, which an invalid filter does not stop.
    QVERIFY(QMetaObject::invokeMethod(bench.dialog, "OnApplyFilterClicked"));
    QCOMPARE(bench.Checked(), used);
    QCOMPARE(treeTexts(bench.tree, { 2 }).join(','), "101,102,103,104,105,106,107,");
    QCOMPARE(treeTexts(bench.tree, { 1, 5 }).last(), "NORDPFEIL | 3512050.000, 5812900.000");
    // The summary counts the drawing's flags: list and filter reached them.
    QCOMPARE(child<QLabel>(bench.dialog, "summaryLabel")->text(),
        QString("4 layers, 10 blocks, 8 inserts, %1 of them used").arg(used.size()));
}

// `leftOut` are unchecked after a first correction, then corrected again.
void exportRow(const QString& drawing, const QList<int>& leftOut, const QByteArray& expected, const QStringList& log)
{
    QTemporaryDir dir;
    Workbench bench(nullptr, data(drawing));
    bench.Button("correctButton")->click();
    for (int row : leftOut) {
        QCOMPARE(bench.tree->topLevelItem(row)->text(4), QString("4"));
        bench.Uncheck(row);
    }
    if (!leftOut.isEmpty())
        bench.Button("correctButton")->click();
    for (int row : leftOut)
        QCOMPARE(bench.tree->topLevelItem(row)->text(4), QString());
    QCOMPARE(pressAndChoose(bench.dialog, "exportButton", dir.filePath("out.gk2")), QString());
    QCOMPARE(fileBytes(dir.filePath("out.gk2")), expected);
    QCOMPARE(bench.Output().split('\n').mid(1), log); // after "Opened …"
}

// `file` is copied to "plain"; `chosen` is opened, or the export.
void fileErrorRow(const QString& file, bool goneWhenRead, const QString& chosen, const QString& reason)
{
    QTemporaryDir dir;
    QSettings settings(dir.filePath("settings.ini"), QSettings::IniFormat);
    Workbench bench(&settings, data("route.dxf"));
    bench.Uncheck(0);
    QVERIFY(QFile::copy(data(file), dir.filePath("plain")));
    const char* button = chosen == "plain" ? "openButton" : "exportButton";
    const QString told = pressAndChoose(bench.dialog, button, dir.filePath(chosen), [&]() {
        if (goneWhenRead)
            QFile::remove(dir.filePath("plain"));
    });
    QVERIFY2(told.contains(reason), qPrintable(told));
    QVERIFY(bench.Output().endsWith(told.mid(bench.dialog->windowTitle().size() + 2)));
    QCOMPARE(bench.File(), data("route.dxf"));
    QCOMPARE(settings.value("DxfToolsDialog/LastUsedFile").toString(), data("route.dxf"));
    QCOMPARE(bench.Checked(), (QList<int> { 1, 2, 3, 4, 5, 6, 7 }));
}

void dumpRow(const QString& drawing, bool stopped)
{
    QString listing;
    QVERIFY(DxfDump::DumpFileToText(data(drawing), listing, nullptr));
    Workbench bench(nullptr, data(drawing));
    const QString whole = bench.Output() + '\n' + listing;
    int linesWhenStopped = -1;
    // Runs from the event processing of the dump's first line.
    if (stopped) {
        QTimer::singleShot(0, bench.dialog, [&]() {
            QVERIFY(!bench.Button("correctButton")->isEnabled());
            linesWhenStopped = bench.Output().count('\n');
            bench.Button("dumpButton")->click();
        });
    }
    bench.Button("dumpButton")->click();
    QVERIFY(!stopped || linesWhenStopped > 0);
    QCOMPARE(bench.Output(), stopped ? whole.section('\n', 0, linesWhenStopped) + "\nDump stopped" : whole);
    QCOMPARE(bench.Button("dumpButton")->text(), QString("&Dump DXF"));
    QVERIFY(bench.Button("dumpButton")->isEnabled() && bench.Button("correctButton")->isEnabled());
}

void frameRow(const QString& file, int insert, bool leftOutAfterwards, const QString& state)
{
    Workbench bench(nullptr, data(file));
    bench.Button("correctButton")->click();
    if (leftOutAfterwards)
        bench.Uncheck(insert);
    QCOMPARE(bench.Frame(insert).value("state").toString(), state);
    // A drawing opened anew has not been reported on.
    QCOMPARE(pressAndChoose(bench.dialog, "openButton", data(file)), QString());
    QCOMPARE(bench.Frame(insert).value("state").toString(), state == "NoFrame" ? state : QString("Used"));
    QVERIFY(bench.Ints("route").isEmpty());
}

} // namespace

class DlgDxfToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A line edit's clear button fades in through an animation that only
    // notices on its next frame that its button is gone, and then deletes
    // itself later: both need an event loop after the last dialog closed.
    void cleanupTestCase()
    {
        QTest::qWait(250);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void blockFilterSetsUseFlags_data()
    {
        const auto row = rowsFor(filterRow);
        row("empty uses all", "", true, { 0, 1, 2, 3, 4, 5, 6, 7 });
        row("anchored range", "^BLATT_10[1-3]$", true, { 0, 1, 2 });
        row("anywhere in the name", "PFEIL", true, { 7 });
        row("case matters", "blatt", true, {});
        // The last filter stays: 1 and 2 were unchecked by hand before.
        row("invalid changes nothing", "BLATT_(", false, { 0, 3, 4, 5, 6, 7 });
    }
    void blockFilterSetsUseFlags() { runRow(); }
    void correctThenExportWritesTheExpectedBytes_data()
    {
        const auto row = rowsFor(exportRow);
        const QByteArray route = fileBytes(data("route.gk2"));
        const QString corrected = "Correction completed - Inserts labelled: ";
        const QString exported = "Export completed - Inserts written: ";
        row("awkward frames", "sheets.dxf", {}, fileBytes(data("sheets.gk2")),
            { "Rectangle detector detected less or more than one rectangle (Block:4", corrected + "4",
                exported + "6" });
        // They lose their labels and stay out of the export: the first five
        // sheets get the same corners without the last two.
        row("left out after a correction", "route.dxf", { 5, 6 }, route.left(route.indexOf("\r\n106\r\n")),
            { corrected + "7", corrected + "5", exported + "5" });
    }
    void correctThenExportWritesTheExpectedBytes() { runRow(); }
    void fileErrorsKeepTheDrawingAndAreReported_data()
    {
        const auto row = rowsFor(fileErrorRow);
        // The file dialog offers existing files only: a missing one is one that
        // went between choosing and reading. The reasons of a damaged file come
        // from one check, tested with DxfDump.
        row("missing", "route.dxf", true, "plain", "no such file");
        row("damaged", "huge-count.dxf", false, "plain", "more than the file can hold");
        // A file where the folder of the export should be: not even root can
        // write there.
        row("export not written", "route.gk2", false, "plain/out.gk2", "cannot write the file");
    }
    void fileErrorsKeepTheDrawingAndAreReported() { runRow(); }
    void dumpAppendsTheListingUntilStopped_data()
    {
        const auto row = rowsFor(dumpRow);
        row("whole listing", "drawing.dxf", false);
        row("stopped by the button", "route.dxf", true);
    }
    void dumpAppendsTheListingUntilStopped() { runRow(); }
    // Drives the workbench as the host shows it. With KAMO_SCREENSHOT_DIR set,
    // the dialog and its map are saved there as pictures after the export:
    // KAMO_SCREENSHOT_DXF then names a copy of the drawing to show, in a folder
    // fit to be seen (the file name shows in the pictures), and
    // KAMO_SCREENSHOT_LANG the language of the texts (only the map is saved in
    // another language than English). Opened again, the workbench brings back
    // the drawing, with the filter in effect, and its size.
    void showModalRunsTheWorkbench()
    {
        const QString screenshots = qEnvironmentVariable("KAMO_SCREENSHOT_DIR");
        const QString language = qEnvironmentVariable("KAMO_SCREENSHOT_LANG", "en");
        QTranslator translator;
        if (language != "en") {
            QVERIFY(translator.load(":/kamo_tools/kamo_tools_" + language + ".qm"));
            QCoreApplication::installTranslator(&translator);
        }
        QTemporaryDir dir;
        QSettings settings(dir.filePath("settings.ini"), QSettings::IniFormat);
        const QString drawing = qEnvironmentVariable("KAMO_SCREENSHOT_DXF", data("route.dxf"));
        Workbench bench(&settings, drawing);
        ModalDriver driver;
        driver.Expect("DlgDxfTools", [&](QWidget* dialog) {
            child<QLineEdit>(dialog, "blockFilterEdit")->setText("^BLATT_");
            bench.Button("applyFilterButton")->click();
            bench.Button("correctButton")->click();
            pressAndChoose(dialog, "exportButton", dir.filePath("route.gk2"));
            if (!screenshots.isEmpty()) {
                bench.tree->setCurrentItem(bench.tree->topLevelItem(4));
                // The export's file dialog left with the activation: the user
                // has the workbench in front again.
                QApplication::setActiveWindow(dialog);
                bench.Button("fitAllButton")->click();
                if (language == "en")
                    dialog->grab().save(screenshots + "/dlg-dxf-tools.png");
                // The map alone, large enough for its labels to be read.
                dialog->resize(1500, 1000);
                child<QSplitter>(dialog, "mainSplitter")->setSizes({ 780, 180 });
                child<QSplitter>(dialog, "topSplitter")->setSizes({ 560, 920 });
                child<QSplitter>(dialog, "detailSplitter")->setSizes({ 660, 100 });
                QTest::qWait(50);
                bench.Button("fitAllButton")->click();
                auto* map = child<QWidget>(dialog, "mapGroup");
                const QRect area(map->mapTo(dialog, QPoint(0, 0)), map->size());
                dialog->grab(area.adjusted(-2, -2, 2, 2)).save(screenshots + "/dlg-dxf-tools-map-" + language + ".png");
            }
            dialog->resize(1000, 700);
            pressBox(dialog, QDialogButtonBox::Close);
        });
        bench.tools.ShowModal();
        QCOMPARE(driver.Seen(), QStringList { "DlgDxfTools" });
        QCOMPARE(fileBytes(dir.filePath("route.gk2")), fileBytes(data("route.gk2")));
        QCOMPARE(settings.value("DxfToolsDialog/BlockFilter").toString(), QString("^BLATT_"));
        Workbench again(&settings);
        QCOMPARE(again.File(), drawing);
        QCOMPARE(again.tree->currentItem(), again.tree->topLevelItem(0));
        QCOMPARE(again.Checked(), (QList<int> { 0, 1, 2, 3, 4, 5, 6 }));
        QCOMPARE(again.dialog->size(), QSize(1000, 700));
        // A drawing gone since is not opened, and not complained about.
        settings.setValue("DxfToolsDialog/LastUsedFile", dir.filePath("gone.dxf"));
        Workbench later(&settings);
        QCOMPARE(later.File() + later.Output(), QString());
        QVERIFY(!later.Button("correctButton")->isEnabled());
        QCOMPARE(pressAndChoose(later.dialog, "openButton", drawing), QString());
        QVERIFY(later.Button("correctButton")->isEnabled());
    }

    // Sheet 104 is turned, with the route running north through it: the route
    // reads its south-west corner as top left. The map names each corner as the
    // vertex listing does, at that vertex, and gets the route through all seven
    // sheets with the labels.
    void listingAndMapLabelTheCornersAlike()
    {
        Workbench bench(nullptr, data("route.dxf"));
        // On screen at its default size: the map needs a size to place its frames.
        bench.dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(bench.dialog));
        bench.tree->setCurrentItem(bench.tree->topLevelItem(3));
        bench.Wheel(QRectF(bench.map->rect()).center(), 360);
        auto* vertices = child<QTreeWidget>(bench.dialog, "vertexTree");
        // Nothing is labelled before the correction.
        QVERIFY(bench.map->property("cornerLabels").toList().isEmpty());
        QCOMPARE(treeTexts(vertices, { 3 }).join(""), QString());
        bench.Button("correctButton")->click();
        // Where the corners lie, and which is which, the export's bytes tell.
        QStringList listed = treeTexts(vertices, { 1, 2, 3 });
        QCOMPARE(bench.Ints("route"), (QList<int> { 0, 1, 2, 3, 4, 5, 6 }));
        QStringList onMap { listed.first() };
        for (const QVariant& item : bench.map->property("cornerLabels").toList()) {
            const QVariantMap label = item.toMap();
            const QPointF at = label.value("world").toPointF();
            const QString corner = label.value("text").toString(); // "TL" and so on
            if (label.value("insert").toInt() == 3)
                onMap.append(QString("%1 | %2 | vp%3%4")
                                 .arg(at.x(), 0, 'f', 3)
                                 .arg(at.y(), 0, 'f', 3)
                                 .arg(corner[0] == 'T' ? "Top" : "Bottom", corner[1] == 'L' ? "Left" : "Right"));
        }
        onMap.sort();
        listed.sort();
        QCOMPARE(onMap, listed);
    }

    void mapDrawsFramesByUseAndReport_data()
    {
        const auto row = rowsFor(frameRow);
        row("one rectangle", "sheets.dxf", 3, false, "Used");
        row("not one rectangle", "sheets.dxf", 4, false, "Reported");
        row("reported, then left out", "sheets.dxf", 4, true, "Unused");
        row("block without polyline", "sheets.dxf", 6, false, "NoFrame");
        row("labelled before the revision stopped", "kite.dxf", 0, false, "Used");
        row("where the revision stopped", "kite.dxf", 1, false, "Reported");
        row("after the revision stopped", "kite.dxf", 2, false, "Reported");
    }
    void mapDrawsFramesByUseAndReport() { runRow(); }
    void mapFollowsTheListAndThePointer()
    {
        Workbench bench(nullptr, data("route.dxf"));
        bench.dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(bench.dialog));
        QTreeWidget* tree = bench.tree;
        tree->setCurrentItem(tree->topLevelItem(5));
        QCOMPARE(bench.Ints("selectedInserts"), QList<int> { 5 });
        const QPointF middle = QRectF(bench.map->rect()).center();
        const QPointF sheet = bench.Frame(5).value("center").toPointF();
        QVERIFY(QLineF(bench.OnMap(sheet), middle).length() < 0.5);
        // Where sheets 104 and 105 overlap, the click goes to the one whose
        // middle is nearer, 104 (insert 3); the map stays where it was.
        QTest::mouseClick(bench.map, Qt::LeftButton, Qt::NoModifier, bench.OnMap(QPointF(3513000, 5812645)).toPoint());
        QCOMPARE(tree->selectedItems(), QList<QTreeWidgetItem*> { tree->topLevelItem(3) });
        QVERIFY(QLineF(bench.OnMap(sheet), middle).length() < 0.5);
        // Outside every frame a click changes nothing.
        QTest::mouseClick(bench.map, Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
        QCOMPARE(tree->currentItem(), tree->topLevelItem(3));
        // Dragged 40 pixels right and 30 down, the drawing follows the pointer
        // (north up) and nothing is selected.
        bench.Mouse(QEvent::MouseButtonPress, middle);
        bench.Mouse(QEvent::MouseMove, middle + QPointF(20, 15));
        bench.Mouse(QEvent::MouseMove, middle + QPointF(40, 30));
        bench.Mouse(QEvent::MouseButtonRelease, middle + QPointF(40, 30));
        QVERIFY(QLineF(bench.OnMap(sheet), middle + QPointF(40, 30)).length() < 0.5);
        QCOMPARE(tree->currentItem(), tree->topLevelItem(3));
        const QPointF pointer = bench.OnMap(sheet);
        const double scale = bench.Scale();
        bench.Wheel(pointer, 240);
        QCOMPARE(bench.Scale(), scale * 1.5625);
        QVERIFY(QLineF(bench.OnMap(sheet), pointer).length() < 0.5);
        bench.Button("fitAllButton")->click();
        QCOMPARE(bench.Scale(), scale);
    }
};

QTEST_MAIN(DlgDxfToolsTest)
#include "DlgDxfToolsTest.moc"
