#include "ModalDriver.h"

#include <dialogs/DialogImportShapeFile.h>
#include <shapeimport/ImportFieldManager.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

namespace {

QString data(const QString& name)
{
    return QStringLiteral(KAMO_SHAPE_DATA "/") + name;
}

QComboBox* choices(QWidget* dialog, int row)
{
    auto* tree = child<QTreeWidget>(dialog, "twFieldAssignment");
    return qobject_cast<QComboBox*>(tree->itemWidget(tree->topLevelItem(row), 2));
}

// "COLUMN=target" for every row, "-" for unassigned ones.
QStringList choicesShown(QWidget* dialog)
{
    QStringList shown;
    auto* tree = child<QTreeWidget>(dialog, "twFieldAssignment");
    for (int row = 0; row < tree->topLevelItemCount(); ++row) {
        const QComboBox* list = choices(dialog, row);
        shown.append(
            tree->topLevelItem(row)->text(0) + '=' + (list->currentIndex() == 0 ? QString("-") : list->currentText()));
    }
    return shown;
}

void choose(QWidget* dialog, int row, const QString& target)
{
    QComboBox* list = choices(dialog, row);
    list->setCurrentIndex(list->findText(target));
}

void press(QWidget* dialog, const char* button)
{
    child<QAbstractButton>(dialog, button)->click();
}

void pressOk(QWidget* dialog)
{
    child<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
}

// Presses a button that asks for a file and names `file` in the chooser.
void pressAndChoose(QWidget* dialog, const char* button, const QString& file)
{
    // The driver that runs the caller waits for it to return.
    ModalDriver chooser;
    chooser.Expect("QFileDialog", [&file](QWidget* window) {
        // Typed, as selectFile() leaves a name field that has the focus alone.
        child<QLineEdit>(window, "fileNameEdit")->setText(file);
        // QFileDialog hides the accept it overrides.
        static_cast<QDialog*>(window)->accept();
        if (window->isVisible())
            static_cast<QDialog*>(window)->reject();
    });
    press(dialog, button);
}

// Opens the facade's dialog as a host does and hands it to `inside`;
// cancels what that leaves open.
bool run(DialogImportShapeFile& facade, const std::function<void(QWidget*)>& inside)
{
    facade.Initialize();
    ModalDriver driver;
    driver.Expect("DlgShapeImport", [&inside](QWidget* dialog) {
        inside(dialog);
        if (dialog->isVisible())
            QMetaObject::invokeMethod(dialog, "reject");
    });
    return facade.Execute();
}

} // namespace

class DlgShapeImportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void choiceListsFollowTheImporter_data();
    void choiceListsFollowTheImporter();
    void importedAssignments_data();
    void importedAssignments();
    void laterColumnWinsInTheFieldManager();
    void focusLossKeepsTheAssignments_data();
    void focusLossKeepsTheAssignments();
    void fileSystemComesFromItsProjection_data();
    void fileSystemComesFromItsProjection();
    void facadeImportsWhatWasChosen();
    void hostValuesReachTheImporterUnchanged_data();
    void hostValuesReachTheImporterUnchanged();
};

void DlgShapeImportTest::choiceListsFollowTheImporter_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("items"); // the first ones offered
    QTest::addColumn<int>("count");
    QTest::newRow("sheets") << int(DialogImportShapeFile::imSheets)
                            << QStringList { "<Not Assigned>", "SheetNr", "SheetNr2", "SheetScale" } << 4;
    QTest::newRow("routes") << int(DialogImportShapeFile::imRoutes) << QStringList { "<Not Assigned>", "Id", "Name" }
                            << 5;
    QTest::newRow("buildings") << int(DialogImportShapeFile::imBuildings)
                               << QStringList { "<Not Assigned>", "Id", "Type" } << 13;
}

void DlgShapeImportTest::choiceListsFollowTheImporter()
{
    QFETCH(int, mode);
    QFETCH(QStringList, items);
    QFETCH(int, count);
    DialogImportShapeFile facade(nullptr, nullptr);
    facade.SetImportMode(
        mode == DialogImportShapeFile::imSheets ? DialogImportShapeFile::imRoutes : DialogImportShapeFile::imSheets);
    facade.SetShapeFilename(data("sheets.shp"));
    run(facade, [&](QWidget* dialog) {
        choices(dialog, 0)->setCurrentIndex(1);
        child<QComboBox>(dialog, "cbxImportMode")->setCurrentIndex(mode);
        QStringList shown;
        QComboBox* list = choices(dialog, 2);
        for (int i = 0; i < items.size(); ++i)
            shown.append(list->itemText(i));
        QCOMPARE(list->count(), count);
        QCOMPARE(shown, items);
        // A change of importer starts from nothing assigned.
        QCOMPARE(choicesShown(dialog), (QStringList { "BLATTNR=-", "BLATT2=-", "MASSSTAB=-" }));

        choose(dialog, 1, items.at(1));
        choose(dialog, 2, items.at(2));
        press(dialog, "btnResetFieldAssignments");
        QCOMPARE(choicesShown(dialog), (QStringList { "BLATTNR=-", "BLATT2=-", "MASSSTAB=-" }));
    });
}

void DlgShapeImportTest::importedAssignments_data()
{
    QTest::addColumn<QByteArray>("json"); // empty: exported by the dialog first
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QString>("note");
    QTest::addColumn<bool>("remembered"); // as the file choosers' start
    const QStringList before { "BLATTNR=-", "BLATT2=SheetNr2", "MASSSTAB=-" };
    const QByteArray list = R"("FieldAssignments": [{"FieldName": "BLATTNR", "TargetFieldId": 10},
                                                      {"FieldName": "MASSSTAB", "TargetFieldId": 20}])";
    QTest::newRow("version 1: reset, then applied")
        << "{\"Version\": 1, " + list + "}" << QStringList { "BLATTNR=SheetNr", "BLATT2=-", "MASSSTAB=SheetScale" }
        << "" << true;
    // Every status other than Ok takes the same way; FieldAssignmentTest tells them apart.
    QTest::newRow("version 2 changes nothing") << "{\"Version\": 2, " + list + "}" << before << "" << false;
    QTest::newRow("unknown column and id named")
        << QByteArray(R"({"FieldAssignments": [{"FieldName": "NUMMER", "TargetFieldId": 10},
                                                {"FieldName": "BLATT2", "TargetFieldId": 52}]})")
        << QStringList { "BLATTNR=-", "BLATT2=-", "MASSSTAB=-" }
        << "Columns of the file not in this attribute table: NUMMER. Target fields not offered for Sheets: 52 "
           "(column BLATT2)."
        << true;
    QTest::newRow("exported, reset, imported") << QByteArray() << before << "" << true;
}

void DlgShapeImportTest::importedAssignments()
{
    QFETCH(QByteArray, json);
    QFETCH(QStringList, shown);
    QFETCH(QString, note);
    QFETCH(bool, remembered);
    QTemporaryDir dir;
    const QString file = dir.filePath("zuordnung.json");
    QFile written(file);
    QVERIFY(json.isEmpty() || (written.open(QIODevice::WriteOnly) && written.write(json) == json.size()));
    written.close();
    QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
    DialogImportShapeFile facade(nullptr, &settings);
    facade.SetShapeFilename(data("sheets.shp"));
    run(facade, [&](QWidget* dialog) {
        choose(dialog, 1, "SheetNr2");
        if (json.isEmpty()) {
            pressAndChoose(dialog, "btnSaveFieldAssignments", file);
            press(dialog, "btnResetFieldAssignments");
        }
        pressAndChoose(dialog, "btnLoadFieldAssignments", file);
        QCOMPARE(choicesShown(dialog), shown);
        QCOMPARE(child<QLabel>(dialog, "lblAssignmentNote")->text(), note);
    });
    QCOMPARE(settings.value("DlgShapeImport/FieldAssignmentFileMRU").toString(), remembered ? file : QString());
}

void DlgShapeImportTest::laterColumnWinsInTheFieldManager()
{
    DialogImportShapeFile facade(nullptr, nullptr);
    facade.SetShapeFilename(data("sheets.shp"));
    run(facade, [](QWidget* dialog) {
        choose(dialog, 0, "SheetNr");
        choose(dialog, 1, "SheetNr");
        QVERIFY2(child<QLabel>(dialog, "lblAssignmentNote")->text().contains("SheetNr is assigned to BLATTNR, BLATT2"),
            qPrintable(child<QLabel>(dialog, "lblAssignmentNote")->text()));
    });
    ImportFieldManager manager;
    manager.SetAssignment(20, "KEPT");
    facade.SaveToImportFieldManager(&manager);
    QCOMPARE(manager.GetAssignments(), (QMap<int, QString> { { 10, "BLATT2" }, { 20, "KEPT" } }));
}

void DlgShapeImportTest::focusLossKeepsTheAssignments_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text"); // empty: left as it was
    QTest::addColumn<QStringList>("shown");
    const QStringList chosen { "BLATTNR=SheetNr", "BLATT2=-", "MASSSTAB=SheetScale" };
    QTest::newRow("shape file left") << "edtShapeFile" << QString() << chosen;
    // The table that is read already; an empty field would not report its
    // end of editing.
    QTest::newRow("attribute table left") << "edtShapeDbFile" << data("sheets.dbf") << chosen;
    QTest::newRow("another file brings its table")
        << "edtShapeFile" << data("districts.shp") << QStringList { "FLSTKENNZ=-" };
}

void DlgShapeImportTest::focusLossKeepsTheAssignments()
{
    QFETCH(QString, field);
    QFETCH(QString, text);
    QFETCH(QStringList, shown);
    DialogImportShapeFile facade(nullptr, nullptr);
    facade.SetShapeFilename(data("sheets.shp"));
    run(facade, [&](QWidget* dialog) {
        choose(dialog, 0, "SheetNr");
        choose(dialog, 2, "SheetScale");
        auto* edit = child<QLineEdit>(dialog, qPrintable(field));
        if (!text.isEmpty())
            edit->setText(text);
        // What OK or a click elsewhere does to the field holding the cursor.
        QFocusEvent leave(QEvent::FocusOut, Qt::MouseFocusReason);
        QApplication::sendEvent(edit, &leave);
        QCOMPARE(choicesShown(dialog), shown);
    });
}

void DlgShapeImportTest::fileSystemComesFromItsProjection_data()
{
    QTest::addColumn<int>("stored");         // EPSG code remembered with sheets.shp from the last import, or 0
    QTest::addColumn<bool>("hostNamesFile"); // or it comes back from the last import
    QTest::addColumn<int>("preset");         // set by the host, or 0
    QTest::addColumn<int>("system");
    QTest::newRow("from the projection") << 0 << true << 0 << 31467;
    QTest::newRow("host preset wins") << 0 << true << 25832 << 25832;
    QTest::newRow("projection beats the remembered system") << 4326 << true << 0 << 31467;
    QTest::newRow("host preset beats both") << 4326 << true << 25832 << 25832;
    // The user may have overruled the projection for this very file.
    QTest::newRow("remembered file keeps its system") << 4326 << false << 0 << 4326;
}

void DlgShapeImportTest::fileSystemComesFromItsProjection()
{
    QFETCH(int, stored);
    QFETCH(bool, hostNamesFile);
    QFETCH(int, preset);
    QFETCH(int, system);
    QTemporaryDir dir;
    QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
    settings.setValue("DlgShapeImport/ShapeFile", data("sheets.shp"));
    if (stored)
        settings.setValue("DlgShapeImport/ImportFileGeoSystem", GeoSystemSettings::FromEpsg(stored).ToString());
    DialogImportShapeFile facade(nullptr, &settings);
    if (preset)
        facade.SetGeoSystemForImportFile(GeoSystemSettings::FromEpsg(preset));
    // Before Initialize, as the host does it.
    if (hostNamesFile)
        facade.SetShapeFilename(data("sheets.shp"));
    facade.Initialize();
    QCOMPARE(facade.GetGeoSystemForImportFile().ToString(), GeoSystemSettings::FromEpsg(system).ToString());
}

void DlgShapeImportTest::facadeImportsWhatWasChosen()
{
    QTemporaryDir dir;
    QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
    DialogImportShapeFile facade(nullptr, &settings);
    facade.SetImportMode(DialogImportShapeFile::imSheets);
    facade.SetShapeFilename(data("sheets.shp"));
    // A file that fails stops none of the others, and each is reported.
    facade.SetFilesToProcess({ data("missing.shp"), data("nodbf.shp"), data("corrupt/tiny.shp") });
    facade.Initialize();
    ModalDriver driver;
    driver.Expect("DlgShapeImport", [](QWidget* dialog) {
        choose(dialog, 0, "SheetNr");
        choose(dialog, 2, "SheetScale");
        press(dialog, "rbtnScaleFromTable");
        pressOk(dialog);
    });
    QString report;
    driver.Expect("QMessageBox", [&report](QWidget* box) {
        report = static_cast<QMessageBox*>(box)->text();
        static_cast<QMessageBox*>(box)->accept();
    });
    QVERIFY(facade.Execute());
    const QString failures = data("missing.shp") + ": Error opening shape file\n" + data("corrupt/tiny.shp")
        + ": Error opening shape file";
    QCOMPARE(facade.GetLastErrorMessage(), failures);
    QVERIFY2(report.contains(failures), qPrintable(report));
    QMap<int, QMap<QString, QList<PointF>>> scales;
    facade.GetScalesMap(scales);
    QCOMPARE(scales.keys(), (QList<int> { 0, 1000, 2500, 5000 }));
    // The second file has no table: its sheets are numbered by record; the
    // first one's empty number stays empty.
    QCOMPARE(scales.value(0).keys(), (QStringList { "", "leer1", "leer2" }));
    QCOMPARE(facade.GetWarnings(),
        QStringList { data("sheets.shp") + ": Object 6 replaces the earlier sheet \"42\" at scale 2500" });

    // The values count for the next opening, the assignments with them.
    QCOMPARE(settings.value("DlgShapeImport/ScaleImportMode").toInt(), 1);
    DialogImportShapeFile next(nullptr, &settings);
    QStringList shown;
    run(next, [&shown](QWidget* dialog) { shown = choicesShown(dialog); });
    QCOMPARE(next.GetShapeFilename(), data("sheets.shp"));
    QCOMPARE(shown, (QStringList { "BLATTNR=SheetNr", "BLATT2=-", "MASSSTAB=SheetScale" }));
}

void DlgShapeImportTest::hostValuesReachTheImporterUnchanged_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("index1");
    QTest::addColumn<int>("index2");
    QTest::addColumn<int>("scale");
    QTest::addColumn<QList<int>>("scales"); // that the import fills
    // -1 means no point, an unknown mode no points at all: no sheet.
    QTest::newRow("no first point") << 1 << -1 << 2 << 1000 << QList<int> {};
    QTest::newRow("no second point") << 1 << 0 << -1 << 1000 << QList<int> {};
    QTest::newRow("unknown point mode") << 2 << 0 << 2 << 1000 << QList<int> {};
    QTest::newRow("scale 0") << 0 << 0 << 2 << 0 << QList<int> { 0 };
}

void DlgShapeImportTest::hostValuesReachTheImporterUnchanged()
{
    QFETCH(int, mode);
    QFETCH(int, index1);
    QFETCH(int, index2);
    QFETCH(int, scale);
    QFETCH(QList<int>, scales);
    DialogImportShapeFile facade(nullptr, nullptr);
    facade.SetShapeFilename(data("sheets.shp"));
    facade.SetPointSelectMode(mode);
    facade.SetIndexForPoint1(index1);
    facade.SetIndexForPoint2(index2);
    facade.SetFixedScale(scale);
    QVERIFY(run(facade, pressOk));
    QMap<int, QMap<QString, QList<PointF>>> imported;
    facade.GetScalesMap(imported);
    QCOMPARE(imported.keys(), scales);
}

QTEST_MAIN(DlgShapeImportTest)
#include "DlgShapeImportTest.moc"
