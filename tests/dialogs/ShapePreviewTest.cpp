#include <dialogs/AttributeTableModel.h>
#include <dialogs/ShapePreviewWidget.h>

#include <QImage>
#include <QTest>

#include <cmath>

namespace {

QString fixture(const QString& name)
{
    return QStringLiteral(KAMO_SHAPE_DATA "/") + name;
}

// The centre of sheet `index` (from 0) of sheets.shp.
QPointF sheetCentre(int index)
{
    return QPointF(3500200 + 400 * index, 5400150);
}

} // namespace

class ShapePreviewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void attributeTable_data();
    void attributeTable();
    void shapeFile_data();
    void shapeFile();
    void vertexLimit();
    void rendering_data();
    void rendering();
    void singlePointBounds();
    void multipatchShowsItsFaces_data();
    void multipatchShowsItsFaces();
};

void ShapePreviewTest::attributeTable_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("recordCount");
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<int>("expectedRows");
    QTest::addColumn<int>("expectedColumns");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("secondRowValue");

    QTest::newRow("Latin-1") << "buildings.dbf" << 4 << 20 << true << 4 << 13 << "GEMARKUNG"
                             << "Öhringen";
    QTest::newRow("UTF-8") << "routes.dbf" << 3 << 20 << true << 3 << 4 << "NAME"
                           << "Müllerstraße";
    QTest::newRow("capped by rows") << "buildings.dbf" << 4 << 2 << true << 2 << 13 << "ART"
                                    << "Scheune";
    QTest::newRow("capped by records") << "sheets.dbf" << 1 << 20 << true << 1 << 3 << ""
                                       << "";
    // The table claims ten million records; the shape file's count wins.
    QTest::newRow("table claims more") << "corrupt/dbfcount.dbf" << 6 << 20 << true << 6 << 3 << "BLATTNR"
                                       << "0043";
    QTest::newRow("damaged header") << "corrupt/baddbf.dbf" << 6 << 20 << false << 0 << 0 << ""
                                    << "";
    QTest::newRow("missing") << "nodbf.dbf" << 2 << 20 << false << 0 << 0 << ""
                             << "";
    QTest::newRow("negative count") << "sheets.dbf" << -1 << 20 << true << 0 << 3 << ""
                                    << "";
}

void ShapePreviewTest::attributeTable()
{
    QFETCH(QString, file);
    QFETCH(int, recordCount);
    QFETCH(int, rows);
    QFETCH(bool, readable);
    QFETCH(int, expectedRows);
    QFETCH(int, expectedColumns);
    QFETCH(QString, column);
    QFETCH(QString, secondRowValue);

    AttributeTableModel model;
    // A previous table must not survive a failed read.
    QVERIFY(model.SetTable(fixture("sheets.dbf"), 6));
    QCOMPARE(model.SetTable(fixture(file), recordCount, rows), readable);
    QCOMPARE(model.rowCount(), expectedRows);
    QCOMPARE(model.columnCount(), expectedColumns);
    if (expectedRows > 0)
        QCOMPARE(model.headerData(expectedRows - 1, Qt::Vertical).toInt(), expectedRows);
    if (!column.isEmpty()) {
        const int columnIndex = model.GetFieldNames().indexOf(column);
        QVERIFY(columnIndex >= 0);
        QCOMPARE(model.data(model.index(1, columnIndex)).toString(), secondRowValue);
    }
}

void ShapePreviewTest::shapeFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<int>("objects");
    QTest::addColumn<QString>("message");

    QTest::newRow("polygons") << "sheets.shp" << true << 6 << "";
    QTest::newRow("lines") << "routes.shp" << true << 3 << "";
    QTest::newRow("rings and holes") << "districts.shp" << true << 4 << "";
    QTest::newRow("points") << "points_z.shp" << true << 3 << "";
    QTest::newRow("without table") << "nodbf.shp" << true << 2 << "";
    QTest::newRow("empty") << "empty.shp" << true << 0 << "No objects";
    QTest::newRow("cut off") << "corrupt/truncated.shp" << true << 2 << "";
    QTest::newRow("too short") << "corrupt/tiny.shp" << false << 0 << "No preview";
    QTest::newRow("bad index") << "corrupt/badshx.shp" << false << 0 << "No preview";
    QTest::newRow("missing") << "missing.shp" << false << 0 << "No preview";
}

void ShapePreviewTest::shapeFile()
{
    QFETCH(QString, file);
    QFETCH(bool, readable);
    QFETCH(int, objects);
    QFETCH(QString, message);

    ShapePreviewWidget widget;
    // What a previous file showed must go.
    QVERIFY(widget.SetShapeFile(fixture("routes.shp")));
    QCOMPARE(widget.SetShapeFile(fixture(file)), readable);
    QCOMPARE(widget.GetObjectCount(), objects);
    QCOMPARE(widget.GetMessage().section('\n', 0, 0), message);
}

void ShapePreviewTest::vertexLimit()
{
    ShapePreviewWidget widget;
    widget.SetVertexLimit(10); // two sheets of five points each
    QVERIFY(widget.SetShapeFile(fixture("sheets.shp")));
    QCOMPARE(widget.GetObjectCount(), 2);
    QVERIFY2(widget.GetStatusText().contains("first 2 of 6"), qPrintable(widget.GetStatusText()));
}

void ShapePreviewTest::rendering_data()
{
    QTest::addColumn<int>("highlighted");
    QTest::addColumn<bool>("withArea");
    QTest::addColumn<int>("sheet");
    QTest::addColumn<int>("otherSheet");
    QTest::addColumn<bool>("differ");

    QTest::newRow("plain sheets look alike") << -1 << false << 2 << 1 << false;
    QTest::newRow("highlighted record") << 2 << false << 2 << 1 << true;
    QTest::newRow("highlight counts from 0") << 2 << false << 1 << 3 << false;
    QTest::newRow("filter area") << -1 << true << 4 << 3 << true;
}

void ShapePreviewTest::rendering()
{
    QFETCH(int, highlighted);
    QFETCH(bool, withArea);
    QFETCH(int, sheet);
    QFETCH(int, otherSheet);
    QFETCH(bool, differ);

    ShapePreviewWidget widget;
    widget.resize(200, 150);
    QVERIFY(widget.SetShapeFile(fixture("sheets.shp")));
    widget.SetHighlightedRecord(highlighted);
    if (withArea) {
        QPainterPath area;
        area.addRect(QRectF(sheetCentre(4) - QPointF(100, 100), QSizeF(200, 200)));
        widget.SetFilterAreas({ { "area", area } });
    }
    const QImage image = widget.grab().toImage();

    const QPoint centre = widget.WorldToWidget(sheetCentre(sheet)).toPoint();
    const QPoint other = widget.WorldToWidget(sheetCentre(otherSheet)).toPoint();
    // Far north of the sheets: only background there.
    const QPoint outside = widget.WorldToWidget(sheetCentre(sheet) + QPointF(0, 300)).toPoint();
    QVERIFY(widget.rect().contains(centre) && widget.rect().contains(other) && widget.rect().contains(outside));
    QVERIFY(outside.y() < centre.y());
    QVERIFY((other.x() < centre.x()) == (otherSheet < sheet));
    QVERIFY(image.pixel(centre) != image.pixel(outside));
    QCOMPARE(image.pixel(centre) != image.pixel(other), differ);
}

void ShapePreviewTest::singlePointBounds()
{
    ShapePreviewWidget widget;
    widget.resize(200, 150);
    QVERIFY(widget.SetShapeFile(fixture("empty.shp")));
    QPainterPath point;
    point.moveTo(3500000, 5400000);
    point.lineTo(3500000, 5400000);
    widget.SetFilterAreas({ { "point", point } });
    const QPointF mapped = widget.WorldToWidget(QPointF(3500000, 5400000));
    QVERIFY(std::isfinite(mapped.x()) && std::isfinite(mapped.y()));
    QVERIFY(widget.rect().contains(mapped.toPoint()));
    QVERIFY(!widget.grab().isNull());
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
    ShapePreviewWidget widget;
    widget.resize(400, 300);
    QVERIFY(widget.SetShapeFile(fixture("multipatch.shp")));
    QCOMPARE(widget.GetObjectCount(), 3);
    const QImage image = widget.grab().toImage();
    // Between the strip and the fan: background.
    const QRgb background = image.pixel(widget.WorldToWidget(QPointF(3500150, 5400050)).toPoint());
    QCOMPARE(image.pixel(widget.WorldToWidget(point).toPoint()) != background, filled);
}

QTEST_MAIN(ShapePreviewTest)
#include "ShapePreviewTest.moc"
