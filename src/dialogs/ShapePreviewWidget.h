#ifndef KAMO_TOOLS_SHAPEPREVIEWWIDGET_H
#define KAMO_TOOLS_SHAPEPREVIEWWIDGET_H

#include <QMap>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QTransform>
#include <QVector>
#include <QWidget>

/// A small map of a shape file's objects, so that the user sees what an
/// import would take before running it. The geometry is read once per file;
/// painting only transforms it to the widget's current size.
class ShapePreviewWidget : public QWidget
{
    Q_OBJECT

public:
    /// Enough for a detailed picture and still quick to read and paint.
    static constexpr int DefaultVertexLimit = 200000;

    /// Creates an empty preview.
    explicit ShapePreviewWidget(QWidget* parent = nullptr);
    ~ShapePreviewWidget() override;

    /// False when the file cannot be read as a shape file (the widget then
    /// says why). A file without objects is readable and shows "No objects".
    bool SetShapeFile(const QString& shapeFile);
    /// Reading stops once this many vertices are collected; applies to the
    /// next SetShapeFile.
    void SetVertexLimit(int limit);
    /// Areas in the shape file's coordinates, drawn over the objects with
    /// their names.
    void SetFilterAreas(const QMap<QString, QPainterPath>& areas);
    /// The record index from 0 as the reader counts it; -1 for none.
    void SetHighlightedRecord(int record);

    /// Objects collected for drawing, and entities the file has.
    ///@{
    int GetObjectCount() const { return objects.size(); }
    int GetEntityCount() const { return entityCount; }
    ///@}
    /// The centred text shown instead of (or, for "No objects", over) the map;
    /// empty while objects are drawn.
    QString GetMessage() const { return message; }
    /// The text in the lower right corner: object count, cap, unreadable records.
    QString GetStatusText() const { return statusText; }

    /// Where a point in the file's coordinates lands in the widget at its
    /// current size (x east to the right, y north up).
    QPointF WorldToWidget(const QPointF& world) const;

    /// Size hints for layouts; see QWidget::sizeHint().
    ///@{
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    ///@}

protected:
    /// Draws the objects, the filter areas and the texts; see QWidget::paintEvent().
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Kind { Area, Line, Point };
    struct Object {
        int record = -1;
        Kind kind = Kind::Area;
        QPainterPath path;       ///< areas and lines
        QVector<QPointF> points; ///< points, drawn as crosses of a fixed size
    };

    void clear();
    void updateBounds();
    QTransform worldTransform() const;
    void paintObject(QPainter& painter, const QTransform& transform, const Object& object, bool highlighted) const;
    void paintScaleBar(QPainter& painter, double pixelsPerMetre) const;

    QVector<Object> objects;
    QMap<QString, QPainterPath> filterAreas;
    QRectF objectBounds;
    QRectF bounds; ///< objects and areas: what the view fits
    bool hasBounds = false;
    bool fileReadable = false;
    int entityCount = 0;
    int highlightedRecord = -1;
    int vertexLimit = DefaultVertexLimit;
    QString message;
    QString statusText;
};

#endif
