#include "ModalDriver.h"

#include <dialogs/DialogImportShapeFile.h>

#include <shapefil.h>

#include <QImage>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

namespace {

QString fixture(const QString& name)
{
    return QStringLiteral(KAMO_SHAPE_DATA "/") + name;
}

using Areas = QMap<QString, QPainterPath>;

// Opens the import dialog on `file` as a host does, hands it to `look` and
// cancels it.
void inDialog(const QString& file, const Areas& areas, const std::function<void(QWidget*)>& look)
{
    DialogImportShapeFile facade(nullptr, nullptr);
    facade.SetShapeFilename(file);
    if (!areas.isEmpty())
        facade.SetGeoFilter(QSharedPointer<Areas>::create(areas));
    facade.Initialize();
    ModalDriver driver;
    driver.Expect("DlgShapeImport", [&look](QWidget* dialog) {
        look(dialog);
        QMetaObject::invokeMethod(dialog, "reject");
    });
    facade.Execute();
}

// Another shape file typed into the dialog and the field left.
void switchTo(QWidget* dialog, const QString& file)
{
    auto* edit = child<QLineEdit>(dialog, "edtShapeFile");
    edit->setText(file);
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
bool outline(QRgb pixel)
{
    return std::abs(qBlue(pixel) - qRed(pixel)) > 30;
}
bool text(QRgb pixel)
{
    return qRed(pixel) < 160 && std::abs(qBlue(pixel) - qRed(pixel)) < 12 && std::abs(qGreen(pixel) - qRed(pixel)) < 12;
}

QRect pixelsWhere(const QImage& image, const QRect& within, bool (*kind)(QRgb))
{
    QRect found;
    for (int y = within.top(); y <= within.bottom(); ++y) {
        for (int x = within.left(); x <= within.right(); ++x) {
            if (kind(image.pixel(x, y)))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

// Where a point of the file lies in `image`, found from where the objects
// spanning `extent` were drawn: east to the right, north up.
QPoint locate(const QImage& image, const QRectF& extent, const QPointF& world)
{
    const QRect drawn = pixelsWhere(image, image.rect(), outline);
    return QPoint(qRound(drawn.left() + (world.x() - extent.left()) * drawn.width() / extent.width()),
        qRound(drawn.bottom() - (world.y() - extent.top()) * drawn.height() / extent.height()));
}

// sheets.shp: six sheets of 400 m x 300 m side by side from west to east.
const QRectF sheets(3500000, 5400000, 2400, 300);

// A point of sheet `index` north of its middle, where the name of an area
// over the sheet does not stand.
QPointF inSheet(int index)
{
    return QPointF(3500200 + 400 * index, 5400240);
}

} // namespace

class ShapePreviewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void attributeTable_data();
    void attributeTable();
    void shapeFile_data();
    void shapeFile();
    void vertexLimit();
    void rendering_data();
    void rendering();
    void multipatchShowsItsFaces_data();
    void multipatchShowsItsFaces();

private:
    void write(const QString& name, int type, const QVector<QVector<QPointF>>& objects);
    QTemporaryDir dir;
};

// A shape file with one numbered record per object.
void ShapePreviewTest::write(const QString& name, int type, const QVector<QVector<QPointF>>& objects)
{
    const QByteArray base = QFile::encodeName(dir.filePath(name));
    SHPHandle shapes = SHPCreate(base.constData(), type);
    DBFHandle table = DBFCreate(base.constData());
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

// What the fixtures lack: a map of no extent, more records than the table
// shows, more vertices than the preview reads.
void ShapePreviewTest::initTestCase()
{
    QVector<QVector<QPointF>> points;
    for (int i = 0; i < 25; ++i)
        points.append({ QPointF(3500000 + i, 5400000) });
    write("point", SHPT_POINT, points.mid(0, 1));
    write("points", SHPT_POINT, points);
    QVector<QPointF> line;
    for (int i = 0; i < 100000; ++i)
        line.append(QPointF(i / 100.0, 0));
    write("lines", SHPT_ARC, { line, line, { QPointF(0, 1000), QPointF(1000, 1000) } });
}

void ShapePreviewTest::attributeTable_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("column"); // looked at in the second row
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("value");

    QTest::newRow("Latin-1") << fixture("buildings.shp") << "GEMARKUNG" << 4 << 13 << "Öhringen";
    QTest::newRow("UTF-8") << fixture("routes.shp") << "NAME" << 3 << 4 << "Müllerstraße";
    QTest::newRow("capped by rows") << dir.filePath("points.shp") << "NR" << 20 << 1 << "2";
    // The table claims ten million records; the shape file's count wins.
    QTest::newRow("table claims more") << fixture("corrupt/dbfcount.shp") << "BLATTNR" << 6 << 3 << "0043";
    QTest::newRow("damaged header") << fixture("corrupt/baddbf.shp") << QString() << 0 << 0 << QString();
    QTest::newRow("missing") << fixture("nodbf.shp") << QString() << 0 << 0 << QString();
    // A shape file that cannot be read counts no records.
    QTest::newRow("no records") << fixture("corrupt/tiny.shp") << QString() << 0 << 3 << QString();
}

void ShapePreviewTest::attributeTable()
{
    QFETCH(QString, file);
    QFETCH(QString, column);
    QFETCH(int, rows);
    QFETCH(int, columns);
    QFETCH(QString, value);

    // A previous table must not survive a failed read.
    inDialog(fixture("sheets.shp"), {}, [&](QWidget* dialog) {
        switchTo(dialog, file);
        const QAbstractItemModel* model = child<QTableView>(dialog, "tvAttributePreview")->model();
        QCOMPARE(model->rowCount(), rows);
        QCOMPARE(model->columnCount(), columns);
        if (rows > 0)
            QCOMPARE(model->headerData(rows - 1, Qt::Vertical).toInt(), rows);
        QStringList names;
        for (int index = 0; index < columns; ++index)
            names.append(model->headerData(index, Qt::Horizontal).toString());
        if (!column.isEmpty())
            QCOMPARE(model->index(1, names.indexOf(column)).data().toString(), value);
    });
}

void ShapePreviewTest::shapeFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("readable"); // counted in the corner
    QTest::addColumn<bool>("drawn");    // in the middle, or else a message there

    QTest::newRow("polygons") << fixture("sheets.shp") << true << true;
    QTest::newRow("lines") << fixture("routes.shp") << true << true;
    QTest::newRow("rings and holes") << fixture("districts.shp") << true << true;
    QTest::newRow("points") << fixture("points_z.shp") << true << true;
    QTest::newRow("one point, no extent") << dir.filePath("point.shp") << true << true;
    QTest::newRow("without table") << fixture("nodbf.shp") << true << true;
    QTest::newRow("empty") << fixture("empty.shp") << true << false;
    QTest::newRow("cut off") << fixture("corrupt/truncated.shp") << true << true;
    QTest::newRow("too short") << fixture("corrupt/tiny.shp") << false << false;
    QTest::newRow("bad index") << fixture("corrupt/badshx.shp") << false << false;
    QTest::newRow("missing") << fixture("missing.shp") << false << false;
}

void ShapePreviewTest::shapeFile()
{
    QFETCH(QString, file);
    QFETCH(bool, readable);
    QFETCH(bool, drawn);

    // What a previous file showed must go.
    inDialog(fixture("routes.shp"), {}, [&](QWidget* dialog) {
        switchTo(dialog, file);
        const QImage image = map(dialog);
        const QRect objects = pixelsWhere(image, image.rect(), outline);
        const QRect middle(image.width() / 4, image.height() / 2 - 20, image.width() / 2, 40);
        const QRect corner(image.width() * 2 / 3, image.height() - 30, image.width() / 3, 30);
        QCOMPARE(!objects.isEmpty(), drawn);
        QCOMPARE(!pixelsWhere(image, middle, text).isEmpty(), !drawn);
        QCOMPARE(!pixelsWhere(image, corner, text).isEmpty(), readable);
        if (drawn)
            QVERIFY2(std::abs(objects.center().x() - image.width() / 2) < image.width() / 8
                    && std::abs(objects.center().y() - image.height() / 2) < image.height() / 4,
                qPrintable(QString("drawn around %1,%2").arg(objects.center().x()).arg(objects.center().y())));
    });
}

void ShapePreviewTest::vertexLimit()
{
    // The third line lies far north; read, it would squeeze the first two.
    inDialog(dir.filePath("lines.shp"), {}, [](QWidget* dialog) {
        const QImage image = map(dialog);
        QVERIFY(pixelsWhere(image, image.rect(), outline).width() > image.width() * 3 / 4);
    });
}

void ShapePreviewTest::rendering_data()
{
    QTest::addColumn<int>("selectedRow"); // of the attribute table
    QTest::addColumn<bool>("withArea");
    QTest::addColumn<int>("sheet");
    QTest::addColumn<int>("otherSheet");
    QTest::addColumn<bool>("differ");

    QTest::newRow("plain sheets look alike") << -1 << false << 2 << 1 << false;
    QTest::newRow("selected record highlighted") << 2 << false << 2 << 1 << true;
    QTest::newRow("rows count as records") << 2 << false << 1 << 3 << false;
    QTest::newRow("filter area") << -1 << true << 4 << 3 << true;
}

void ShapePreviewTest::rendering()
{
    QFETCH(int, selectedRow);
    QFETCH(bool, withArea);
    QFETCH(int, sheet);
    QFETCH(int, otherSheet);
    QFETCH(bool, differ);

    Areas areas;
    if (withArea)
        areas["area"].addRect(QRectF(3501700, 5400020, 200, 260)); // within sheet 4
    inDialog(fixture("sheets.shp"), areas, [&](QWidget* dialog) {
        auto* table = child<QTableView>(dialog, "tvAttributePreview");
        if (selectedRow >= 0)
            table->setCurrentIndex(table->model()->index(selectedRow, 0));
        const QImage image = map(dialog);
        const QPoint point = locate(image, sheets, inSheet(sheet));
        const QPoint other = locate(image, sheets, inSheet(otherSheet));
        QCOMPARE(image.pixel(point) != image.pixel(other), differ);
    });
}

void ShapePreviewTest::multipatchShowsItsFaces_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<bool>("filled");
    // Off the diagonal: a strip drawn as one ring crosses itself there.
    QTest::newRow("triangle strip") << QPointF(3500050, 5400020) << true;
    QTest::newRow("triangle fan") << QPointF(3500250, 5400050) << true;
    // Floor and roof cover the same ground; the courtyard stays open.
    QTest::newRow("floor under the roof") << QPointF(3500415, 5400050) << true;
    QTest::newRow("courtyard") << QPointF(3500450, 5400050) << false;
}

void ShapePreviewTest::multipatchShowsItsFaces()
{
    QFETCH(QPointF, point);
    QFETCH(bool, filled);
    inDialog(fixture("multipatch.shp"), {}, [&](QWidget* dialog) {
        const QImage image = map(dialog);
        const QRectF extent(3500000, 5400000, 500, 100);
        // Between the strip and the fan: the ground.
        const QRgb ground = image.pixel(locate(image, extent, QPointF(3500150, 5400050)));
        QCOMPARE(image.pixel(locate(image, extent, point)) != ground, filled);
    });
}

QTEST_MAIN(ShapePreviewTest)
#include "ShapePreviewTest.moc"
