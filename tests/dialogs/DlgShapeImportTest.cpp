#include "ModalDriver.h"

#include <dialogs/DialogImportShapeFile.h>
#include <shapeimport/ImportFieldManager.h>

#include <shapefil.h>

#include <cmath>

namespace {

const auto data = [](const QString& name) { return QStringLiteral(KAMO_SHAPE_DATA "/") + name; };

// The import as a host opens it, on `file`.
struct Import {
    explicit Import(const QString& file, QSettings* settings = nullptr)
        : facade(nullptr, settings)
    {
        if (!file.isEmpty())
            facade.SetShapeFilename(file);
    }
    // Shows the dialog, hands it to `inside` and cancels what that leaves
    // open; a message box that follows is answered, its text kept in `told`.
    bool Run(const ModalDriver::Handler& inside)
    {
        facade.Initialize();
        ModalDriver driver;
        driver.Expect("DlgShapeImport", [&inside](QWidget* dialog) {
            inside(dialog);
            if (dialog->isVisible())
                rejectDialog(dialog);
        });
        driver.Expect("QMessageBox", answerMessageBox(&told));
        return facade.Execute();
    }
    DialogImportShapeFile facade;
    QStringList told;
};

QComboBox* choices(QWidget* dialog, int row)
{
    auto* tree = child<QTreeWidget>(dialog, "twFieldAssignment");
    return qobject_cast<QComboBox*>(tree->itemWidget(tree->topLevelItem(row), 2));
}

// "COLUMN=target" for every row, "-" for unassigned ones.
QStringList choicesShown(QWidget* dialog)
{
    QStringList shown = treeTexts(child<QTreeWidget>(dialog, "twFieldAssignment"), { 0 });
    for (int row = 0; row < shown.size(); ++row)
        shown[row]
            += '=' + (choices(dialog, row)->currentIndex() == 0 ? QString("-") : choices(dialog, row)->currentText());
    return shown;
}

void choose(QWidget* dialog, int row, const QString& target)
{
    choices(dialog, row)->setCurrentIndex(choices(dialog, row)->findText(target));
}

// Types `text` into the field `name`, unless it is empty, and leaves the
// field, as OK or a click elsewhere does.
void leave(QWidget* dialog, const char* name, const QString& text = QString())
{
    auto* edit = child<QLineEdit>(dialog, name);
    if (!text.isEmpty())
        edit->setText(text);
    QFocusEvent leave(QEvent::FocusOut, Qt::MouseFocusReason);
    QApplication::sendEvent(edit, &leave);
}

// The map tab as the user opens it.
QImage map(QWidget* dialog)
{
    child<QTabWidget>(dialog, "tabPreview")->setCurrentWidget(child<QWidget>(dialog, "tabMap"));
    return child<QWidget>(dialog, "wgtShapePreview")->grab().toImage();
}

// Objects are outlined in blue, areas in orange, the highlighted record in
// red; texts are grey on a nearly white ground.
const auto outline = [](QRgb pixel) { return std::abs(qBlue(pixel) - qRed(pixel)) > 30; };
const auto text = [](QRgb pixel) {
    return qRed(pixel) < 160 && std::abs(qBlue(pixel) - qRed(pixel)) < 12 && std::abs(qGreen(pixel) - qRed(pixel)) < 12;
};

QRect pixelsWhere(const QImage& image, const QRect& within, bool (*kind)(QRgb))
{
    QRect found;
    for (int y = within.top(); y <= within.bottom(); ++y)
        for (int x = within.left(); x <= within.right(); ++x)
            if (kind(image.pixel(x, y)))
                found |= QRect(x, y, 1, 1);
    return found;
}

// A shape file at `base` with one numbered record per object.
void write(const QString& base, int type, const QVector<QVector<QPointF>>& objects)
{
    SHPHandle shapes = SHPCreate(qPrintable(base), type);
    DBFHandle table = DBFCreate(qPrintable(base));
    QVERIFY(shapes && table);
    DBFAddField(table, "NR", FTInteger, 5, 0);
    for (int i = 0; i < objects.size(); ++i) {
        QVector<double> x, y;
        for (const QPointF& point : objects.at(i)) {
            x.append(point.x());
            y.append(point.y());
        }
        SHPObject* shape = SHPCreateSimpleObject(type, x.size(), x.data(), y.data(), nullptr);
        SHPWriteObject(shapes, -1, shape);
        SHPDestroyObject(shape);
        DBFWriteIntegerAttribute(table, i, 0, i + 1);
    }
    SHPClose(shapes);
    DBFClose(table);
}

// No `json`: exported by the dialog first; `shown`: the assignments, then the
// note; `remembered` as the file choosers' start.
void importedRow(const QByteArray& json, const QStringList& shown, bool remembered)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("zuordnung.json");
    QVERIFY(json.isEmpty() || writeFile(file, json));
    QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
    Import(data("sheets.shp"), &settings).Run([&](QWidget* dialog) {
        choose(dialog, 1, "SheetNr2");
        if (json.isEmpty()) {
            QCOMPARE(pressAndChoose(dialog, "btnSaveFieldAssignments", file), QString());
            child<QPushButton>(dialog, "btnResetFieldAssignments")->click();
        }
        QCOMPARE(pressAndChoose(dialog, "btnLoadFieldAssignments", file), QString());
        QCOMPARE(choicesShown(dialog) << child<QLabel>(dialog, "lblAssignmentNote")->text(), shown);
    });
    QCOMPARE(settings.value("DlgShapeImport/FieldAssignmentFileMRU").toString(), remembered ? file : QString());
}

// `stored`: the EPSG code remembered with sheets.shp from the last import, or
// 0; unless the host names the file, it comes back from the last import;
// `preset` by the host, or 0.
void systemRow(int stored, bool hostNamesFile, int preset, int system)
{
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

// The point mode, first and second point, scale; the scales the import fills.
void hostValuesRow(const QList<int>& values, const QList<int>& scales)
{
    Import job(data("sheets.shp"));
    job.facade.SetPointSelectMode(values.at(0));
    job.facade.SetIndexForPoint1(values.at(1));
    job.facade.SetIndexForPoint2(values.at(2));
    job.facade.SetFixedScale(values.at(3));
    QVERIFY(job.Run([](QWidget* dialog) { pressBox(dialog, QDialogButtonBox::Ok); }));
    QMap<int, QMap<QString, QList<PointF>>> imported;
    job.facade.GetScalesMap(imported);
    QCOMPARE(imported.keys(), scales);
}

// The table's `column` is looked at in the second row; `table`: rows x
// columns, the last row's number: the value; `readable`: counted in the map's
// corner; `drawn` in the middle, or else a message there; `width` of the
// drawing at least, in percent of the map's. What a previous file showed, in
// its table, its field assignments and on its map, must go.
void previewRow(const QString& file, const QString& column, const QString& table, bool readable, bool drawn, int width)
{
    Import(data("stars.shp")).Run([&](QWidget* dialog) {
        leave(dialog, "edtShapeFile", file);
        const QAbstractItemModel* model = child<QTableView>(dialog, "tvAttributePreview")->model();
        QStringList names;
        for (int index = 0; index < model->columnCount(); ++index)
            names.append(model->headerData(index, Qt::Horizontal).toString());
        const QVariant last = model->headerData(model->rowCount() - 1, Qt::Vertical);
        QCOMPARE(QString("%1 x %2, %3: ").arg(model->rowCount()).arg(names.size()).arg(last.toInt())
                + model->index(1, names.indexOf(column)).data().toString(),
            table);
        QCOMPARE(choicesShown(dialog), names.replaceInStrings(QRegularExpression("$"), "=-"));
        const QImage image = map(dialog);
        const QRect objects = pixelsWhere(image, image.rect(), outline);
        const QRect middle(image.width() / 4, image.height() / 2 - 20, image.width() / 2, 40);
        const QRect corner(image.width() * 2 / 3, image.height() - 30, image.width() / 3, 30);
        QCOMPARE(!objects.isEmpty(), drawn);
        QCOMPARE(!pixelsWhere(image, middle, text).isEmpty(), !drawn);
        QCOMPARE(!pixelsWhere(image, corner, text).isEmpty(), readable);
        QVERIFY(objects.width() >= image.width() * width / 100);
        // Around the middle.
        const QRect around(image.width() * 3 / 8, image.height() / 4, image.width() / 4, image.height() / 2);
        QVERIFY(!drawn || around.contains(objects.center()));
    });
}

// `selectedRow` of the attribute table; whether `point` and `other` differ in
// colour, found from where the objects were drawn: east to the right, north up.
void renderingRow(
    const QString& file, int selectedRow, bool withArea, const QPointF& point, const QPointF& other, bool differ)
{
    Import job(data(file));
    if (withArea) {
        auto areas = QSharedPointer<QMap<QString, QPainterPath>>::create();
        (*areas)["area"].addRect(QRectF(3501700, 5400020, 200, 260)); // within sheet 4
        job.facade.SetGeoFilter(areas);
    }
    job.Run([&](QWidget* dialog) {
        auto* table = child<QTableView>(dialog, "tvAttributePreview");
        if (selectedRow >= 0)
            table->setCurrentIndex(table->model()->index(selectedRow, 0));
        const QImage image = map(dialog);
        const QRect drawn = pixelsWhere(image, image.rect(), outline);
        const QRectF extent(3500000, 5400000, file == "sheets.shp" ? 2400 : 500, file == "sheets.shp" ? 300 : 100);
        const auto colourAt = [&](const QPointF& world) {
            return image.pixel(qRound(drawn.left() + (world.x() - extent.left()) * drawn.width() / extent.width()),
                qRound(drawn.bottom() - (world.y() - extent.top()) * drawn.height() / extent.height()));
        };
        QCOMPARE(colourAt(point) != colourAt(other), differ);
    });
}

} // namespace

class DlgShapeImportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What the fixtures lack for the preview: a map of no extent, more records
    // than the table shows, more vertices than the preview reads.
    void initTestCase()
    {
        QVector<QVector<QPointF>> points;
        for (int i = 0; i < 25; ++i)
            points.append({ QPointF(3500000 + i, 5400000) });
        write(dir.filePath("point"), SHPT_POINT, points.mid(0, 1));
        write(dir.filePath("points"), SHPT_POINT, points);
        QVector<QPointF> line;
        for (int i = 0; i < 100000; ++i)
            line.append(QPointF(i / 100.0, 0));
        write(dir.filePath("lines"), SHPT_ARC, { line, line, { QPointF(0, 1000), QPointF(1000, 1000) } });
    }

    // The targets offered: their count, then the first three.
    void choiceListsFollowTheImporter()
    {
        Import(data("sheets.shp")).Run([](QWidget* dialog) {
            const QStringList none { "BLATTNR=-", "BLATT2=-", "MASSSTAB=-" };
            QStringList offered;
            for (int mode : { DialogImportShapeFile::imRoutes, DialogImportShapeFile::imBuildings,
                     DialogImportShapeFile::imSheets }) {
                choices(dialog, 0)->setCurrentIndex(1);
                child<QComboBox>(dialog, "cbxImportMode")->setCurrentIndex(mode);
                // A change of importer starts from nothing assigned.
                QCOMPARE(choicesShown(dialog), none);
                QComboBox* targets = choices(dialog, 2);
                offered.append(QString("%1 %2, %3, %4")
                                   .arg(targets->count())
                                   .arg(targets->itemText(0), targets->itemText(1), targets->itemText(2)));
            }
            QCOMPARE(offered,
                (QStringList { "5 <Not Assigned>, Id, Name", "13 <Not Assigned>, Id, Type",
                    "4 <Not Assigned>, SheetNr, SheetNr2" }));
            choose(dialog, 1, "SheetNr2");
            choose(dialog, 2, "SheetScale");
            child<QPushButton>(dialog, "btnResetFieldAssignments")->click();
            QCOMPARE(choicesShown(dialog), none);
        });
    }

    void importedAssignments_data()
    {
        const auto row = rowsFor(importedRow);
        const QStringList before { "BLATTNR=-", "BLATT2=SheetNr2", "MASSSTAB=-", "" };
        const QByteArray list = R"("FieldAssignments": [{"FieldName": "BLATTNR", "TargetFieldId": 10},
                                                          {"FieldName": "MASSSTAB", "TargetFieldId": 20}])";
        row("version 1: reset, then applied", "{\"Version\": 1, " + list + "}",
            { "BLATTNR=SheetNr", "BLATT2=-", "MASSSTAB=SheetScale", "" }, true);
        // Every status other than Ok takes the same way; FieldAssignmentTest tells them apart.
        row("version 2 changes nothing", "{\"Version\": 2, " + list + "}", before, false);
        row("unknown column and id named", R"({"FieldAssignments": [{"FieldName": "NUMMER", "TargetFieldId": 10},
                                                {"FieldName": "BLATT2", "TargetFieldId": 52}]})",
            { "BLATTNR=-", "BLATT2=-", "MASSSTAB=-",
                "Columns of the file not in this attribute table: NUMMER. Target fields not offered for Sheets: 52 "
                "(column BLATT2)." },
            true);
        row("exported, reset, imported", "", before, true);
    }
    void importedAssignments() { runRow(); }

    void laterColumnWinsInTheFieldManager()
    {
        Import job(data("sheets.shp"));
        job.Run([](QWidget* dialog) {
            choose(dialog, 0, "SheetNr");
            choose(dialog, 1, "SheetNr");
            const QString note = child<QLabel>(dialog, "lblAssignmentNote")->text();
            QVERIFY2(note.contains("SheetNr is assigned to BLATTNR, BLATT2"), qPrintable(note));
        });
        ImportFieldManager manager;
        manager.SetAssignment(20, "KEPT");
        job.facade.SaveToImportFieldManager(&manager);
        QCOMPARE(manager.GetAssignments(), (QMap<int, QString> { { 10, "BLATT2" }, { 20, "KEPT" } }));
    }

    void fileSystemComesFromItsProjection_data()
    {
        const auto row = rowsFor(systemRow);
        row("from the projection", 0, true, 0, 31467);
        row("host preset wins", 0, true, 25832, 25832);
        row("projection beats the remembered system", 4326, true, 0, 31467);
        row("host preset beats both", 4326, true, 25832, 25832);
        // The user may have overruled the projection for this very file.
        row("remembered file keeps its system", 4326, false, 0, 4326);
    }
    void fileSystemComesFromItsProjection() { runRow(); }

    // The assignments are chosen, and kept when the shape file and its table,
    // the one read already, are left: as the fields report the end of their
    // editing, an empty one would not.
    void facadeImportsWhatWasChosen()
    {
        QTemporaryDir dir;
        QSettings settings(dir.filePath("s.ini"), QSettings::IniFormat);
        Import job(data("sheets.shp"), &settings);
        job.facade.SetImportMode(DialogImportShapeFile::imSheets);
        // A file that fails stops none of the others, and each is reported.
        job.facade.SetFilesToProcess({ data("missing.shp"), data("nodbf.shp"), data("corrupt/tiny.shp") });
        QVERIFY(job.Run([](QWidget* dialog) {
            choose(dialog, 0, "SheetNr");
            choose(dialog, 2, "SheetScale");
            leave(dialog, "edtShapeFile");
            leave(dialog, "edtShapeDbFile", data("sheets.dbf"));
            child<QAbstractButton>(dialog, "rbtnScaleFromTable")->click();
            pressBox(dialog, QDialogButtonBox::Ok);
        }));
        const QString failures = data("missing.shp") + ": Error opening shape file\n" + data("corrupt/tiny.shp")
            + ": Error opening shape file";
        QCOMPARE(job.facade.GetLastErrorMessage(), failures);
        QVERIFY2(job.told.value(0).contains(failures), qPrintable(job.told.value(0)));
        QMap<int, QMap<QString, QList<PointF>>> scales;
        job.facade.GetScalesMap(scales);
        // The second file has no table: its sheets are numbered by record; the
        // first one's empty number stays empty.
        QCOMPARE(scales.keys(), (QList<int> { 0, 1000, 2500, 5000 }));
        QCOMPARE(scales.value(0).keys(), (QStringList { "", "leer1", "leer2" }));
        QCOMPARE(job.facade.GetWarnings(),
            QStringList { data("sheets.shp") + ": Object 6 replaces the earlier sheet \"42\" at scale 2500" });
        // The values count for the next opening, the assignments with them.
        QCOMPARE(settings.value("DlgShapeImport/ScaleImportMode").toInt(), 1);
        Import next(QString(), &settings);
        QStringList shown;
        next.Run([&shown](QWidget* dialog) { shown = choicesShown(dialog); });
        QCOMPARE(next.facade.GetShapeFilename(), data("sheets.shp"));
        QCOMPARE(shown, (QStringList { "BLATTNR=SheetNr", "BLATT2=-", "MASSSTAB=SheetScale" }));
    }

    void hostValuesReachTheImporterUnchanged_data()
    {
        // -1 means no point, an unknown mode no points at all: no sheet.
        const auto row = rowsFor(hostValuesRow);
        row("no first point", { 1, -1, 2, 1000 }, {});
        row("no second point", { 1, 0, -1, 1000 }, {});
        row("unknown point mode", { 2, 0, 2, 1000 }, {});
        row("scale 0", { 0, 0, 2, 0 }, { 0 });
    }
    void hostValuesReachTheImporterUnchanged() { runRow(); }

    void previewShowsTheFileAnew_data()
    {
        const auto row = rowsFor(previewRow);
        row("Latin-1", data("buildings.shp"), "GEMARKUNG", "4 x 13, 4: Öhringen", true, true, 0);
        row("UTF-8", data("routes.shp"), "NAME", "3 x 4, 3: Müllerstraße", true, true, 0);
        row("capped by rows", dir.filePath("points.shp"), "NR", "20 x 1, 20: 2", true, true, 0);
        // The table claims ten million records; the shape file's count wins.
        row("table claims more", data("corrupt/dbfcount.shp"), "BLATTNR", "6 x 3, 6: 0043", true, true, 0);
        row("damaged table header", data("corrupt/baddbf.shp"), "", "0 x 0, 0: ", true, true, 0);
        row("polygons", data("sheets.shp"), "", "6 x 3, 6: ", true, true, 0);
        row("rings and holes", data("districts.shp"), "", "4 x 1, 4: ", true, true, 0);
        row("points", data("points_z.shp"), "", "3 x 2, 3: ", true, true, 0);
        row("one point, no extent", dir.filePath("point.shp"), "", "1 x 1, 1: ", true, true, 0);
        row("without table", data("nodbf.shp"), "", "0 x 0, 0: ", true, true, 0);
        row("empty", data("empty.shp"), "", "0 x 3, 0: ", true, false, 0);
        row("cut off", data("corrupt/truncated.shp"), "", "6 x 3, 6: ", true, true, 0);
        // A shape file that cannot be read counts no records.
        row("too short", data("corrupt/tiny.shp"), "", "0 x 3, 0: ", false, false, 0);
        row("bad index", data("corrupt/badshx.shp"), "", "0 x 3, 0: ", false, false, 0);
        row("missing", data("missing.shp"), "", "0 x 0, 0: ", false, false, 0);
        // The third line lies far north; read, it would squeeze the first two.
        row("vertex limit", dir.filePath("lines.shp"), "", "3 x 1, 3: ", true, true, 75);
    }
    void previewShowsTheFileAnew() { runRow(); }

    void previewRendering_data()
    {
        // A point of sheet `index` of sheets.shp, six sheets of 400 m x 300 m
        // side by side from west to east, north of its middle, where the name
        // of an area over the sheet does not stand.
        const auto sheet = [](int index) { return QPointF(3500200 + 400 * index, 5400240); };
        const auto row = rowsFor(renderingRow);
        row("plain sheets look alike", "sheets.shp", -1, false, sheet(2), sheet(1), false);
        row("selected record highlighted", "sheets.shp", 2, false, sheet(2), sheet(1), true);
        row("rows count as records", "sheets.shp", 2, false, sheet(1), sheet(3), false);
        row("filter area", "sheets.shp", -1, true, sheet(4), sheet(3), true);
        // Off the diagonal: a strip drawn as one ring crosses itself there.
        // Between the strip and the fan lies the ground.
        const QPointF ground(3500150, 5400050);
        row("triangle strip", "multipatch.shp", -1, false, QPointF(3500050, 5400020), ground, true);
        row("triangle fan", "multipatch.shp", -1, false, QPointF(3500250, 5400050), ground, true);
        // Floor and roof cover the same ground; the courtyard stays open.
        row("floor under the roof", "multipatch.shp", -1, false, QPointF(3500415, 5400050), ground, true);
        row("courtyard", "multipatch.shp", -1, false, QPointF(3500450, 5400050), ground, false);
    }
    void previewRendering() { runRow(); }

private:
    QTemporaryDir dir;
};

QTEST_MAIN(DlgShapeImportTest)
#include "DlgShapeImportTest.moc"
