#include "ModalDriver.h"

#include <dialogs/DialogImportShapeFile.h>
#include <dialogs/DlgShapeImport.h>
#include <shapeimport/ImportFieldManager.h>
#include <shapeimport/ImportSheetDataFromShapeFile.h>

#include <QComboBox>
#include <QFile>
#include <QFocusEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

namespace {

QString data(const QString& name)
{
    return QStringLiteral(KAMO_SHAPE_DATA "/") + name;
}

QComboBox* choices(const DlgShapeImport& dialog, int row)
{
    QTreeWidget* tree = dialog.GetFieldAssignmentTree();
    return qobject_cast<QComboBox*>(tree->itemWidget(tree->topLevelItem(row), 2));
}

// "COLUMN=target" for every row, "-" for unassigned ones.
QStringList choicesShown(const DlgShapeImport& dialog)
{
    QStringList shown;
    QTreeWidget* tree = dialog.GetFieldAssignmentTree();
    for (int row = 0; row < tree->topLevelItemCount(); ++row) {
        const QComboBox* list = choices(dialog, row);
        shown.append(tree->topLevelItem(row)->text(0) + '='
            + (list->currentData().toInt() == -1 ? QString("-") : list->currentText()));
    }
    return shown;
}

void choose(DlgShapeImport& dialog, int row, const QString& target)
{
    QComboBox* list = choices(dialog, row);
    list->setCurrentIndex(list->findText(target));
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
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
    void exportThenImportGivesTheChoicesBack();
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
    QTest::newRow("sheets") << int(DlgShapeImport::imSheets)
                            << QStringList { "<Not Assigned>", "SheetNr", "SheetNr2", "SheetScale" } << 4;
    QTest::newRow("routes") << int(DlgShapeImport::imRoutes) << QStringList { "<Not Assigned>", "Id", "Name" } << 5;
    QTest::newRow("buildings") << int(DlgShapeImport::imBuildings) << QStringList { "<Not Assigned>", "Id", "Type" }
                               << 13;
}

void DlgShapeImportTest::choiceListsFollowTheImporter()
{
    QFETCH(int, mode);
    QFETCH(QStringList, items);
    QFETCH(int, count);
    DlgShapeImport dialog;
    dialog.SetImportMode(mode == DlgShapeImport::imSheets ? DlgShapeImport::imRoutes : DlgShapeImport::imSheets);
    dialog.SetShapeFilename(data("sheets.shp"));
    choices(dialog, 0)->setCurrentIndex(1);
    dialog.SetImportMode(mode);
    QCOMPARE(dialog.GetFieldAssignmentTree()->topLevelItemCount(), 3);
    QStringList shown;
    QComboBox* list = choices(dialog, 2);
    for (int i = 0; i < items.size(); ++i)
        shown.append(list->itemText(i));
    QCOMPARE(list->count(), count);
    QCOMPARE(shown, items);
    QCOMPARE(list->itemData(0).toInt(), -1);
    // A change of importer starts from nothing assigned.
    QCOMPARE(choicesShown(dialog), (QStringList { "BLATTNR=-", "BLATT2=-", "MASSSTAB=-" }));

    choose(dialog, 1, items.at(1));
    choose(dialog, 2, items.at(2));
    dialog.OnResetFieldAssignmentsClicked();
    QCOMPARE(choicesShown(dialog), (QStringList { "BLATTNR=-", "BLATT2=-", "MASSSTAB=-" }));
}

void DlgShapeImportTest::importedAssignments_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QString>("note");
    const QStringList before { "BLATTNR=-", "BLATT2=SheetNr2", "MASSSTAB=-" };
    const QByteArray list = R"("FieldAssignments": [{"FieldName": "BLATTNR", "TargetFieldId": 10},
                                                      {"FieldName": "MASSSTAB", "TargetFieldId": 20}])";
    QTest::newRow("version 1: reset, then applied")
        << "{\"Version\": 1, " + list + "}" << QStringList { "BLATTNR=SheetNr", "BLATT2=-", "MASSSTAB=SheetScale" }
        << "";
    // Every status other than Ok takes the same way; FieldAssignmentTest tells them apart.
    QTest::newRow("version 2 changes nothing") << "{\"Version\": 2, " + list + "}" << before << "";
    QTest::newRow("unknown column and id named")
        << QByteArray(R"({"FieldAssignments": [{"FieldName": "NUMMER", "TargetFieldId": 10},
                                                {"FieldName": "BLATT2", "TargetFieldId": 52}]})")
        << QStringList { "BLATTNR=-", "BLATT2=-", "MASSSTAB=-" }
        << "Columns of the file not in this attribute table: NUMMER. Target fields not offered for Sheets: 52 "
           "(column BLATT2).";
}

void DlgShapeImportTest::importedAssignments()
{
    QFETCH(QByteArray, json);
    QFETCH(QStringList, shown);
    QFETCH(QString, note);
    QTemporaryDir dir;
    writeFile(dir.filePath("a.json"), json);
    DlgShapeImport dialog;
    dialog.SetShapeFilename(data("sheets.shp"));
    choose(dialog, 1, "SheetNr2");
    dialog.LoadFieldAssignments(dir.filePath("a.json"));
    QCOMPARE(choicesShown(dialog), shown);
    QCOMPARE(dialog.GetAssignmentNote(), note);
}

void DlgShapeImportTest::exportThenImportGivesTheChoicesBack()
{
    QTemporaryDir dir;
    QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
    const QString file = dir.filePath("zuordnung.json");
    DlgShapeImport dialog;
    dialog.SetSettings(&settings);
    dialog.SetImportMode(DlgShapeImport::imBuildings);
    dialog.SetShapeFilename(data("buildings.shp"));
    choose(dialog, 0, "Id");
    choose(dialog, 4, "Owner-Housenumber-Add");
    QVERIFY(dialog.SaveFieldAssignments(file));
    QCOMPARE(settings.value("DlgShapeImport/FieldAssignmentFileMRU").toString(), file);

    dialog.OnResetFieldAssignmentsClicked();
    dialog.LoadFieldAssignments(file);
    QCOMPARE(choicesShown(dialog).mid(0, 5),
        (QStringList { "GEB_ID=Id", "GEMARKUNG=-", "ART=-", "E_STRASSE=-", "E_HNR=Owner-Housenumber-Add" }));
    QCOMPARE(dialog.GetAssignmentNote(), QString());
}

void DlgShapeImportTest::laterColumnWinsInTheFieldManager()
{
    DialogImportShapeFile facade(nullptr, nullptr);
    facade.SetShapeFilename(data("sheets.shp"));
    DlgShapeImport& dialog = *facade.GetDialog();
    choose(dialog, 0, "SheetNr");
    choose(dialog, 1, "SheetNr");
    QVERIFY(dialog.GetAssignmentNote().contains("SheetNr is assigned to BLATTNR, BLATT2"));
    ImportFieldManager manager;
    manager.SetAssignment(20, "KEPT");
    facade.SaveToImportFieldManager(&manager);
    QCOMPARE(manager.GetAssignments(), (QMap<int, QString> { { 10, "BLATT2" }, { 20, "KEPT" } }));
}

void DlgShapeImportTest::focusLossKeepsTheAssignments_data()
{
    QTest::addColumn<QString>("table"); // chosen beside the shape file
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text"); // empty: left as it was
    QTest::addColumn<QStringList>("shown");
    const QStringList chosen { "BLATTNR=SheetNr", "BLATT2=-", "MASSSTAB=SheetScale" };
    QTest::newRow("shape file left") << ""
                                     << "edtShapeFile"
                                     << "" << chosen;
    // An empty field does not report its end of editing.
    QTest::newRow("attribute table left") << data("sheets.dbf") << "edtShapeDbFile"
                                          << "" << chosen;
    QTest::newRow("another file brings its table")
        << ""
        << "edtShapeFile" << data("districts.shp") << QStringList { "FLSTKENNZ=-" };
}

void DlgShapeImportTest::focusLossKeepsTheAssignments()
{
    QFETCH(QString, table);
    QFETCH(QString, field);
    QFETCH(QString, text);
    QFETCH(QStringList, shown);
    DlgShapeImport dialog;
    dialog.SetShapeFilename(data("sheets.shp"));
    dialog.SetShapeDbFilename(table);
    choose(dialog, 0, "SheetNr");
    choose(dialog, 2, "SheetScale");
    auto* edit = child<QLineEdit>(&dialog, qPrintable(field));
    if (!text.isEmpty())
        edit->setText(text);
    // What OK or a click elsewhere does to the field holding the cursor.
    QFocusEvent leave(QEvent::FocusOut, Qt::MouseFocusReason);
    QApplication::sendEvent(edit, &leave);
    QCOMPARE(choicesShown(dialog), shown);
}

void DlgShapeImportTest::fileSystemComesFromItsProjection_data()
{
    QTest::addColumn<QString>("stored");     // remembered with sheets.shp from the last import
    QTest::addColumn<bool>("hostNamesFile"); // or it comes back from the last import
    QTest::addColumn<QString>("preset");     // set by the host
    QTest::addColumn<QString>("system");
    QTest::newRow("from the projection") << "" << true << ""
                                         << "EPSG:31467";
    QTest::newRow("host preset wins") << "" << true << "EPSG:25832"
                                      << "EPSG:25832";
    QTest::newRow("projection beats the remembered system") << "EPSG:4326" << true << ""
                                                            << "EPSG:31467";
    QTest::newRow("host preset beats both") << "EPSG:4326" << true << "EPSG:25832"
                                            << "EPSG:25832";
    // The user may have overruled the projection for this very file.
    QTest::newRow("remembered file keeps its system") << "EPSG:4326" << false << ""
                                                      << "EPSG:4326";
}

void DlgShapeImportTest::fileSystemComesFromItsProjection()
{
    QFETCH(QString, stored);
    QFETCH(bool, hostNamesFile);
    QFETCH(QString, preset);
    QFETCH(QString, system);
    QTemporaryDir dir;
    QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
    settings.setValue("DlgShapeImport/ShapeFile", data("sheets.shp"));
    if (!stored.isEmpty())
        settings.setValue("DlgShapeImport/ImportFileGeoSystem", stored);
    DlgShapeImport dialog;
    dialog.SetSettings(&settings);
    if (!preset.isEmpty())
        dialog.SetGeoSystemForImportFile(GeoSystemSettings::FromDefinition(preset));
    // Before Initialize, as the host does it.
    if (hostNamesFile)
        dialog.SetShapeFilename(data("sheets.shp"));
    dialog.Initialize();
    QCOMPARE(dialog.GetGeoSystemForImportFile().ToString(), system);
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
    driver.Expect("DlgShapeImport", [](QWidget* window) {
        auto* dialog = static_cast<DlgShapeImport*>(window);
        choose(*dialog, 0, "SheetNr");
        choose(*dialog, 2, "SheetScale");
        dialog->SetScaleImportMode(ImportSheetDataFromShapeFile::ssimFromTable);
        dialog->OnAccepted();
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
    QCOMPARE(scales.value(2500).keys(), (QStringList { "42", "46" }));
    // The second file has no table: its sheets are numbered by record; the
    // first one's empty number stays empty.
    QCOMPARE(scales.value(0).keys(), (QStringList { "", "leer1", "leer2" }));
    QCOMPARE(facade.GetWarnings(),
        QStringList { data("sheets.shp") + ": Object 6 replaces the earlier sheet \"42\" at scale 2500" });

    // The values count for the next opening, the assignments with them.
    QCOMPARE(settings.value("DlgShapeImport/ScaleImportMode").toInt(), 1);
    DialogImportShapeFile next(nullptr, &settings);
    next.Initialize();
    QCOMPARE(next.GetShapeFilename(), data("sheets.shp"));
    QCOMPARE(choicesShown(*next.GetDialog()), (QStringList { "BLATTNR=SheetNr", "BLATT2=-", "MASSSTAB=SheetScale" }));
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
    facade.Initialize();
    ModalDriver driver;
    driver.Expect("DlgShapeImport", [](QWidget* window) { static_cast<DlgShapeImport*>(window)->OnAccepted(); });
    QVERIFY(facade.Execute());
    QMap<int, QMap<QString, QList<PointF>>> imported;
    facade.GetScalesMap(imported);
    QCOMPARE(imported.keys(), scales);
}

QTEST_MAIN(DlgShapeImportTest)
#include "DlgShapeImportTest.moc"
