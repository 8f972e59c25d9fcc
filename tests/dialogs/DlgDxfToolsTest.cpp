#include "ModalDriver.h"

#include <dialogs/DialogDxfTools.h>
#include <dialogs/DlgDxfTools.h>
#include <dxf/DxfDump.h>

#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

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
    void insertsLeftOutLoseTheirLabelsAndStayOutOfTheExport();
    void vertexListingShowsTheLabels();
    void unreadableFileKeepsTheDrawing_data();
    void unreadableFileKeepsTheDrawing();
    void exportFailureIsReported();
    void dumpAppendsTheListing();
    void dumpButtonStopsARunningDump();
    void settingsBringBackFileFilterAndGeometry();
    void showModalRunsTheWorkbench();

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
// the dialog is saved there as a picture after the export.
void DlgDxfToolsTest::showModalRunsTheWorkbench()
{
    QTemporaryDir dir;
    QSettings settings(dir.filePath("settings.ini"), QSettings::IniFormat);
    DialogDxfTools tools(nullptr, &settings);
    tools.SetDxfFilename(data("route.dxf"));
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
        const QString screenshots = qEnvironmentVariable("KAMO_SCREENSHOT_DIR");
        if (!screenshots.isEmpty())
            dialog->grab().save(screenshots + "/dlg-dxf-tools.png");
        child<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Close)->click();
    });
    tools.ShowModal();

    QCOMPARE(driver.Seen(), QStringList { "DlgDxfTools" });
    QCOMPARE(bytesOf(dir.filePath("route.gk2")), bytesOf(data("route.gk2")));
    QCOMPARE(settings.value("DxfToolsDialog/BlockFilter").toString(), QString("^BLATT_"));
    QCOMPARE(usedInserts(*tools.GetDialog()), (QList<int> { 0, 1, 2, 3, 4, 5, 6 }));
}

QTEST_MAIN(DlgDxfToolsTest)
#include "DlgDxfToolsTest.moc"
