#include "ModalDriver.h"

#include <dialogs/DialogDxfTools.h>
#include <dialogs/DlgDxfTools.h>
#include <dialogs/DxfSheetMapWidget.h>
#include <dxf/DxfDump.h>

#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
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

// The inserts as the list shows them: "#" of every checked row.
QList<int> checkedRows(DlgDxfTools& dialog)
{
    QList<int> rows;
    auto* tree = child<QTreeWidget>(&dialog, "insertTree");
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        if (tree->topLevelItem(i)->checkState(0) == Qt::Checked)
            rows.append(tree->topLevelItem(i)->text(0).toInt());
    }
    return rows;
}

QList<int> usedInserts(const DlgDxfTools& dialog)
{
    QList<int> used;
    for (int i = 0; i < dialog.GetDrawing().inserts.size(); ++i) {
        if (dialog.GetDrawing().inserts.at(i).use)
            used.append(i);
    }
    return used;
}

// A dialog on screen at its default size, the drawing open: the map needs a
// size to place its frames.
void showWith(DlgDxfTools& dialog, const QString& file)
{
    QVERIFY(dialog.OpenFile(data(file)));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
}

void sendMouse(QWidget* widget, QEvent::Type type, const QPointF& at)
{
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at.toPoint()), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

} // namespace

using FrameState = DxfSheetMapWidget::FrameState;
Q_DECLARE_METATYPE(DxfSheetMapWidget::FrameState)

class DlgDxfToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openListsInsertsWithTheirSheetNumbers();
    void blockFilterSetsUseFlags_data();
    void blockFilterSetsUseFlags();
    void correctThenExportWritesTheExpectedBytes_data();
    void correctThenExportWritesTheExpectedBytes();
    void insertsLeftOutLoseTheirLabelsAndStayOutOfTheExport();
    void vertexListingShowsTheLabels();
    void unreadableFileKeepsTheDrawing_data();
    void unreadableFileKeepsTheDrawing();
    void exportFailureIsReported();
    void dumpAppendsTheListing();
    void dumpButtonStopsARunningDump();
    void settingsBringBackFileFilterAndGeometry();
    void showModalRunsTheWorkbench();
    void mapLabelsTheCornersAsTheListingDoes();
    void mapDrawsFramesByUseAndReport_data();
    void mapDrawsFramesByUseAndReport();
    void selectionFollowsBetweenListAndMap();
    void mapPansAndZoomsAboutThePointer();

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
    DlgDxfTools dialog;
    QVERIFY(!child<QPushButton>(&dialog, "correctButton")->isEnabled());
    QVERIFY(dialog.OpenFile(data("route.dxf")));

    auto* tree = child<QTreeWidget>(&dialog, "insertTree");
    QCOMPARE(tree->topLevelItemCount(), 8);
    const QStringList sheets { "101", "102", "103", "104", "105", "106", "107", "" };
    for (int i = 0; i < 8; ++i) {
        QCOMPARE(tree->topLevelItem(i)->text(2), sheets.at(i));
        QCOMPARE(tree->topLevelItem(i)->checkState(0), Qt::Checked);
    }
    QCOMPARE(tree->topLevelItem(7)->text(1), QString("NORDPFEIL"));
    QCOMPARE(tree->topLevelItem(7)->text(5), QString("3512050.000, 5812900.000"));
    QCOMPARE(child<QLabel>(&dialog, "summaryLabel")->text(), QString("4 layers, 10 blocks, 8 inserts, 8 of them used"));
    QVERIFY(child<QPushButton>(&dialog, "correctButton")->isEnabled());
    // The first insert is current, its frame listed without labels yet.
    auto* vertices = child<QTreeWidget>(&dialog, "vertexTree");
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

    DlgDxfTools dialog;
    QVERIFY(dialog.OpenFile(data("route.dxf")));
    auto* tree = child<QTreeWidget>(&dialog, "insertTree");
    tree->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
    dialog.SetInsertUsed(2, false);
    QCOMPARE(usedInserts(dialog), (QList<int> { 0, 3, 4, 5, 6, 7 }));

    child<QLineEdit>(&dialog, "blockFilterEdit")->setText(pattern);
    QCOMPARE(child<QPushButton>(&dialog, "applyFilterButton")->isEnabled(), valid);
    QCOMPARE(dialog.ApplyBlockFilter(pattern), valid);
    QCOMPARE(usedInserts(dialog), used);
    QCOMPARE(checkedRows(dialog), used);
}

void DlgDxfToolsTest::correctThenExportWritesTheExpectedBytes_data()
{
    QTest::addColumn<QString>("drawing");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QStringList>("log");

    QTest::newRow("route with turned sheets")
        << "route.dxf"
        << "route.gk2"
        << QStringList { "Correction completed - Inserts labelled: 7", "Export completed - Inserts written: 7" };
    QTest::newRow("awkward frames") << "sheets.dxf"
                                    << "sheets.gk2"
                                    << QStringList {
                                           "Rectangle detector detected less or more than one rectangle (Block:4",
                                           "Correction completed - Inserts labelled: 4",
                                           "Export completed - Inserts written: 6",
                                       };
}

void DlgDxfToolsTest::correctThenExportWritesTheExpectedBytes()
{
    QFETCH(QString, drawing);
    QFETCH(QString, expected);
    QFETCH(QStringList, log);

    QTemporaryDir dir;
    DlgDxfTools dialog;
    QVERIFY(dialog.OpenFile(data(drawing)));
    child<QPushButton>(&dialog, "correctButton")->click();
    QVERIFY(dialog.ExportGK2(dir.filePath("out.gk2")));

    QCOMPARE(bytesOf(dir.filePath("out.gk2")), bytesOf(data(expected)));
    QStringList lines = dialog.OutputText().split('\n');
    lines.removeFirst(); // "Opened …"
    QCOMPARE(lines, log);
}

void DlgDxfToolsTest::insertsLeftOutLoseTheirLabelsAndStayOutOfTheExport()
{
    QTemporaryDir dir;
    DlgDxfTools dialog;
    QVERIFY(dialog.OpenFile(data("route.dxf")));
    dialog.CorrectVertexPositions();
    QCOMPARE(dialog.GetDrawing().Block("BLATT_107")->polylines.first().labels.size(), 4);

    auto* tree = child<QTreeWidget>(&dialog, "insertTree");
    tree->topLevelItem(5)->setCheckState(0, Qt::Unchecked);
    dialog.SetInsertUsed(6, false);
    dialog.CorrectVertexPositions();
    QVERIFY(dialog.GetDrawing().Block("BLATT_107")->polylines.first().labels.isEmpty());
    QVERIFY(dialog.ExportGK2(dir.filePath("out.gk2")));

    // The first five sheets get the same corners without the last two.
    const QByteArray all = bytesOf(data("route.gk2"));
    QCOMPARE(bytesOf(dir.filePath("out.gk2")), all.left(all.indexOf("\r\n106\r\n")));
    QVERIFY(dialog.OutputText().endsWith("Export completed - Inserts written: 5"));
    QCOMPARE(tree->topLevelItem(6)->text(4), QString());
    QCOMPARE(tree->topLevelItem(4)->text(4), QString("4"));
}

void DlgDxfToolsTest::vertexListingShowsTheLabels()
{
    DlgDxfTools dialog;
    QVERIFY(dialog.OpenFile(data("route.dxf")));
    dialog.CorrectVertexPositions();
    auto* tree = child<QTreeWidget>(&dialog, "insertTree");
    // Sheet 104 is turned, with the route running north through it: the
    // route reads its south-west corner as top left.
    tree->setCurrentItem(tree->topLevelItem(3));

    auto* vertices = child<QTreeWidget>(&dialog, "vertexTree");
    QCOMPARE(vertices->topLevelItemCount(), 1);
    QTreeWidgetItem* polyline = vertices->topLevelItem(0);
    QStringList shown;
    for (int v = 0; v < polyline->childCount(); ++v)
        shown.append(
            polyline->child(v)->text(1) + ' ' + polyline->child(v)->text(2) + ' ' + polyline->child(v)->text(3));
    QCOMPARE(shown,
        (QStringList { "3512910.000 5812660.000 vpTopRight", "3513190.000 5812660.000 vpBottomRight",
            "3513190.000 5812260.000 vpBottomLeft", "3512910.000 5812260.000 vpTopLeft" }));
}

void DlgDxfToolsTest::unreadableFileKeepsTheDrawing_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");

    // The reasons of a damaged file come from one check, tested with DxfDump.
    QTest::newRow("missing") << "missing.dxf"
                             << "no such file";
    QTest::newRow("damaged") << "huge-count.dxf"
                             << "more than the file can hold";
}

void DlgDxfToolsTest::unreadableFileKeepsTheDrawing()
{
    QFETCH(QString, file);
    QFETCH(QString, reason);

    QTemporaryDir dir;
    QSettings settings(dir.filePath("settings.ini"), QSettings::IniFormat);
    DlgDxfTools dialog;
    dialog.SetSettings(&settings);
    QVERIFY(dialog.OpenFile(data("route.dxf")));
    dialog.SetInsertUsed(0, false);

    QVERIFY(!dialog.OpenFile(data(file)));
    QVERIFY2(dialog.GetLastError().contains(reason), qPrintable(dialog.GetLastError()));
    QVERIFY(dialog.OutputText().endsWith(dialog.GetLastError()));
    QCOMPARE(dialog.GetDxfFilename(), data("route.dxf"));
    QCOMPARE(settings.value("DxfToolsDialog/LastUsedFile").toString(), data("route.dxf"));
    QCOMPARE(dialog.GetDrawing().inserts.size(), 8);
    QCOMPARE(checkedRows(dialog), (QList<int> { 1, 2, 3, 4, 5, 6, 7 }));
}

void DlgDxfToolsTest::exportFailureIsReported()
{
    QTemporaryDir dir;
    DlgDxfTools dialog;
    QVERIFY(dialog.OpenFile(data("route.dxf")));
    QString boxText;
    ModalDriver driver;
    driver.Expect("QMessageBox", [&](QWidget* box) {
        boxText = static_cast<QMessageBox*>(box)->text();
        static_cast<QMessageBox*>(box)->accept();
    });
    // A folder where the file should go cannot be replaced by it.
    QVERIFY(!dialog.ExportGK2(dir.path()));
    QVERIFY2(boxText.contains("cannot write the file"), qPrintable(boxText));
    QVERIFY(dialog.OutputText().endsWith(boxText));
}

void DlgDxfToolsTest::dumpAppendsTheListing()
{
    QString expected;
    QVERIFY(DxfDump::DumpFileToText(data("drawing.dxf"), expected, nullptr));
    DlgDxfTools dialog;
    QVERIFY(dialog.OpenFile(data("drawing.dxf")));
    const QString opened = dialog.OutputText();

    QVERIFY(dialog.DumpDxf());
    QCOMPARE(dialog.OutputText(), opened + '\n' + expected);
    QVERIFY(child<QPushButton>(&dialog, "dumpButton")->isEnabled());
}

void DlgDxfToolsTest::dumpButtonStopsARunningDump()
{
    DlgDxfTools dialog;
    QVERIFY(dialog.OpenFile(data("route.dxf")));
    auto* dump = child<QPushButton>(&dialog, "dumpButton");
    int linesWhenStopped = -1;
    // Runs from the event processing of the dump's first line.
    QTimer::singleShot(0, &dialog, [&]() {
        QVERIFY(!child<QPushButton>(&dialog, "correctButton")->isEnabled());
        linesWhenStopped = dialog.OutputText().count('\n');
        dump->click();
    });
    dump->click();

    QVERIFY(linesWhenStopped > 0);
    const QStringList lines = dialog.OutputText().split('\n');
    QCOMPARE(lines.size(), linesWhenStopped + 2);
    QCOMPARE(lines.last(), QString("Dump stopped"));
    QCOMPARE(dump->text(), QString("&Dump DXF"));
    QVERIFY(child<QPushButton>(&dialog, "correctButton")->isEnabled());
}

void DlgDxfToolsTest::settingsBringBackFileFilterAndGeometry()
{
    QTemporaryDir dir;
    QSettings settings(dir.filePath("settings.ini"), QSettings::IniFormat);
    {
        DlgDxfTools dialog;
        dialog.SetSettings(&settings);
        dialog.Initialize();
        QCOMPARE(dialog.GetDxfFilename(), QString());
        QVERIFY(dialog.OpenFile(data("route.dxf")));
        child<QLineEdit>(&dialog, "blockFilterEdit")->setText("BLATT_10[67]");
        dialog.show();
        dialog.resize(900, 650);
        dialog.reject();
    }
    QVERIFY(settings.contains("DxfToolsDialog/Dialog_Geometry"));
    QCOMPARE(settings.value("DxfToolsDialog/LastUsedFile").toString(), data("route.dxf"));

    DlgDxfTools dialog;
    dialog.SetSettings(&settings);
    dialog.Initialize();
    QCOMPARE(dialog.GetDxfFilename(), data("route.dxf"));
    QCOMPARE(dialog.size(), QSize(900, 650));
    // The filter on display is in effect for the drawing opened with it.
    QCOMPARE(checkedRows(dialog), (QList<int> { 5, 6 }));

    // A drawing gone since is not opened, and not complained about.
    settings.setValue("DxfToolsDialog/LastUsedFile", dir.filePath("gone.dxf"));
    DlgDxfTools later;
    later.SetSettings(&settings);
    later.Initialize();
    QCOMPARE(later.GetDxfFilename(), QString());
    QCOMPARE(later.OutputText(), QString());
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

    ModalDriver driver;
    driver.Expect("DlgDxfTools", [&](QWidget* window) {
        auto* dialog = static_cast<DlgDxfTools*>(window);
        child<QLineEdit>(dialog, "blockFilterEdit")->setText("^BLATT_");
        child<QPushButton>(dialog, "applyFilterButton")->click();
        child<QPushButton>(dialog, "correctButton")->click();
        dialog->ExportGK2(dir.filePath("route.gk2"));
        auto* tree = child<QTreeWidget>(dialog, "insertTree");
        tree->setCurrentItem(tree->topLevelItem(4));
        if (!screenshots.isEmpty()) {
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
    QCOMPARE(usedInserts(*tools.GetDialog()), (QList<int> { 0, 1, 2, 3, 4, 5, 6 }));
}

// The map names a corner as the vertex listing does, at that vertex; the
// route through all seven sheets is handed over with the labels.
void DlgDxfToolsTest::mapLabelsTheCornersAsTheListingDoes()
{
    DlgDxfTools dialog;
    showWith(dialog, "route.dxf");
    auto* map = child<DxfSheetMapWidget>(&dialog, "sheetMap");
    auto* tree = child<QTreeWidget>(&dialog, "insertTree");
    tree->setCurrentItem(tree->topLevelItem(3));
    map->ZoomAt(2.0, map->rect().center());
    QVERIFY(map->GetCornerLabels().isEmpty());

    child<QPushButton>(&dialog, "correctButton")->click();
    QCOMPARE(map->GetRoute(), (QList<int> { 0, 1, 2, 3, 4, 5, 6 }));
    const QMap<QString, QString> listed { { "TL", "vpTopLeft" }, { "TR", "vpTopRight" }, { "BR", "vpBottomRight" },
        { "BL", "vpBottomLeft" } };
    QStringList seen;
    QTreeWidgetItem* polyline = child<QTreeWidget>(&dialog, "vertexTree")->topLevelItem(0);
    for (const DxfSheetMapWidget::CornerLabel& label : map->GetCornerLabels()) {
        if (label.insert != 3)
            continue;
        const QPointF world = map->WidgetToWorld(label.corner);
        for (int v = 0; v < polyline->childCount(); ++v) {
            if (std::abs(polyline->child(v)->text(1).toDouble() - world.x()) < 1e-3
                && std::abs(polyline->child(v)->text(2).toDouble() - world.y()) < 1e-3)
                QCOMPARE(polyline->child(v)->text(3), listed.value(label.text));
        }
        seen.append(label.text);
    }
    seen.sort();
    QCOMPARE(seen, (QStringList { "BL", "BR", "TL", "TR" }));
}

void DlgDxfToolsTest::mapDrawsFramesByUseAndReport_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("insert");
    QTest::addColumn<bool>("leftOutAfterwards");
    QTest::addColumn<FrameState>("state");

    QTest::newRow("one rectangle") << "sheets.dxf" << 3 << false << FrameState::Used;
    QTest::newRow("not one rectangle") << "sheets.dxf" << 4 << false << FrameState::Reported;
    QTest::newRow("reported, then left out") << "sheets.dxf" << 4 << true << FrameState::Unused;
    QTest::newRow("block without polyline") << "sheets.dxf" << 6 << false << FrameState::NoFrame;
    QTest::newRow("labelled before the revision stopped") << "kite.dxf" << 0 << false << FrameState::Used;
    QTest::newRow("where the revision stopped") << "kite.dxf" << 1 << false << FrameState::Reported;
    QTest::newRow("after the revision stopped") << "kite.dxf" << 2 << false << FrameState::Reported;
}

void DlgDxfToolsTest::mapDrawsFramesByUseAndReport()
{
    QFETCH(QString, file);
    QFETCH(int, insert);
    QFETCH(bool, leftOutAfterwards);
    QFETCH(FrameState, state);

    DlgDxfTools dialog;
    showWith(dialog, file);
    auto* map = child<DxfSheetMapWidget>(&dialog, "sheetMap");
    dialog.CorrectVertexPositions();
    if (leftOutAfterwards)
        child<QTreeWidget>(&dialog, "insertTree")->topLevelItem(insert)->setCheckState(0, Qt::Unchecked);
    QCOMPARE(map->GetFrameState(insert), state);

    // A drawing opened anew has not been reported on.
    QVERIFY(dialog.OpenFile(data(file)));
    QCOMPARE(map->GetFrameState(insert), state == FrameState::NoFrame ? state : FrameState::Used);
    QVERIFY(map->GetRoute().isEmpty());
}

void DlgDxfToolsTest::selectionFollowsBetweenListAndMap()
{
    DlgDxfTools dialog;
    showWith(dialog, "route.dxf");
    auto* map = child<DxfSheetMapWidget>(&dialog, "sheetMap");
    auto* tree = child<QTreeWidget>(&dialog, "insertTree");

    tree->setCurrentItem(tree->topLevelItem(5));
    QCOMPARE(map->GetSelectedInserts(), QList<int> { 5 });
    const QPointF middle = QRectF(map->rect()).center();
    QVERIFY(QLineF(map->WorldToWidget(map->GetFrameCenter(5)), middle).length() < 0.5);

    // Where sheets 104 and 105 overlap, the click goes to the one whose
    // middle is nearer, 104 (insert 3); the map stays where it was.
    const QPointF click = map->WorldToWidget(QPointF(3513000, 5812645));
    QTest::mouseClick(map, Qt::LeftButton, Qt::NoModifier, click.toPoint());
    QCOMPARE(tree->currentItem(), tree->topLevelItem(3));
    QCOMPARE(tree->selectedItems(), QList<QTreeWidgetItem*> { tree->topLevelItem(3) });
    QCOMPARE(map->GetSelectedInserts(), QList<int> { 3 });
    QVERIFY(QLineF(map->WorldToWidget(map->GetFrameCenter(5)), middle).length() < 0.5);

    // Outside every frame a click changes nothing.
    QTest::mouseClick(map, Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
    QCOMPARE(tree->currentItem(), tree->topLevelItem(3));
}

void DlgDxfToolsTest::mapPansAndZoomsAboutThePointer()
{
    DlgDxfTools dialog;
    showWith(dialog, "route.dxf");
    auto* map = child<DxfSheetMapWidget>(&dialog, "sheetMap");
    auto* tree = child<QTreeWidget>(&dialog, "insertTree");
    const QPointF sheet = map->GetFrameCenter(2);
    const QPointF start = map->WorldToWidget(sheet);

    // Dragged 40 pixels right and 30 down, the drawing follows the pointer
    // (north up) and nothing is selected.
    sendMouse(map, QEvent::MouseButtonPress, start);
    sendMouse(map, QEvent::MouseMove, start + QPointF(20, 15));
    sendMouse(map, QEvent::MouseMove, start + QPointF(40, 30));
    sendMouse(map, QEvent::MouseButtonRelease, start + QPointF(40, 30));
    QVERIFY(QLineF(map->WorldToWidget(sheet), start + QPointF(40, 30)).length() < 0.5);
    QCOMPARE(tree->currentItem(), tree->topLevelItem(0));

    const QPointF pointer = map->WorldToWidget(sheet);
    const double scale = map->GetScale();
    QWheelEvent wheel(pointer, map->mapToGlobal(pointer.toPoint()), QPoint(), QPoint(0, 240), Qt::NoButton,
        Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(map, &wheel);
    QCOMPARE(map->GetScale(), scale * 1.5625);
    QVERIFY(QLineF(map->WorldToWidget(sheet), pointer).length() < 0.5);

    child<QPushButton>(&dialog, "fitAllButton")->click();
    QCOMPARE(map->GetScale(), scale);
}

QTEST_MAIN(DlgDxfToolsTest)
#include "DlgDxfToolsTest.moc"
