#include "dialogs/ShapePreviewWidget.h"

#include "shapeimport/ShapeFileReader.h"
#include "shapeimport/ShapeObject.h"

#include <shapefil.h>

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

const QColor backgroundColour(247, 247, 243);
const QColor objectOutline(47, 93, 138);
const QColor objectFill(47, 93, 138, 40);
const QColor areaOutline(214, 110, 10, 200);
const QColor areaFill(232, 135, 30, 55);
const QColor highlightOutline(200, 30, 40);
const QColor highlightFill(200, 30, 40, 80);
const QColor textColour(60, 60, 60);

const int sideMargin = 10;
const int crossRadius = 4;

// Shape types by their last digit: the Z and M variants (11.., 21..) draw
// like the plain ones. The multipatch (31) ends in 1 but is no point.
bool isPointType(int type)
{
    return type != SHPT_MULTIPATCH && (type % 10 == 1 || type % 10 == 8);
}

bool isLineType(int type)
{
    return type % 10 == 3;
}

bool isAreaType(int type)
{
    return type % 10 == 5 || type == SHPT_MULTIPATCH;
}

bool isFinite(const QPointF& point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

// Adds a face running counter-clockwise, a hole clockwise: under the winding
// rule faces seen one over the other (floor and roof) stay filled together,
// where an even-odd fill would cancel them, and holes stay open.
void addFace(QPainterPath& path, QPolygonF face, bool hole)
{
    face.erase(std::remove_if(face.begin(), face.end(), [](const QPointF& p) { return !isFinite(p); }), face.end());
    if (face.size() < 2)
        return;
    // Relative to the first point: the products of projected coordinates
    // would swallow the area of a small face.
    double twiceArea = 0.0;
    const QPointF origin = face.constFirst();
    for (int i = 0; i < face.size(); ++i) {
        const QPointF a = face.at(i) - origin;
        const QPointF b = face.at((i + 1) % face.size()) - origin;
        twiceArea += a.x() * b.y() - b.x() * a.y();
    }
    if ((twiceArea < 0.0) != hole)
        std::reverse(face.begin(), face.end());
    path.addPolygon(face);
    path.closeSubpath();
}

// The faces of a multipatch: strips and fans become their triangles, rings
// outer faces or holes. A "ring" after a "first ring" belongs to its
// polygon as a hole; a ring of no known kind is an outer face.
QPainterPath multipatchPath(const ShapeObject& shape)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    const QVector<ShapeObject::Part> parts = shape.GetParts();
    bool inPolygon = false; // after a first ring
    for (int part = 0; part < parts.size(); ++part) {
        const QVector<QPointF> points = shape.GetPartPoints(part);
        const int type = parts.at(part).type;
        if (type == SHPP_TRISTRIP || type == SHPP_TRIFAN) {
            for (int i = 2; i < points.size(); ++i) {
                const QPointF first = type == SHPP_TRISTRIP ? points.at(i - 2) : points.at(0);
                addFace(path, QPolygonF({ first, points.at(i - 1), points.at(i) }), false);
            }
            inPolygon = false;
            continue;
        }
        const bool hole = type == SHPP_INNERRING || (type == SHPP_RING && inPolygon);
        inPolygon = type == SHPP_FIRSTRING || (type == SHPP_RING && inPolygon);
        addFace(path, QPolygonF(points), hole);
    }
    return path;
}

// The smallest rectangle around both; unlike QRectF::united, a rectangle of
// no size (one point) still counts.
QRectF unite(const QRectF& a, bool aValid, const QRectF& b)
{
    if (!aValid)
        return b;
    const double left = std::min(a.left(), b.left());
    const double top = std::min(a.top(), b.top());
    const double right = std::max(a.right(), b.right());
    const double bottom = std::max(a.bottom(), b.bottom());
    return QRectF(QPointF(left, top), QPointF(right, bottom));
}

// 1, 2 or 5 times a power of ten, not above `limit`.
double roundLength(double limit)
{
    const double base = std::pow(10.0, std::floor(std::log10(limit)));
    for (double step : { 5.0, 2.0, 1.0 }) {
        if (step * base <= limit)
            return step * base;
    }
    return base;
}

} // namespace

ShapePreviewWidget::ShapePreviewWidget(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    message = tr("No preview");
}

ShapePreviewWidget::~ShapePreviewWidget() = default;

void ShapePreviewWidget::clear()
{
    objects.clear();
    objectBounds = QRectF();
    entityCount = 0;
    message.clear();
    statusText.clear();
}

bool ShapePreviewWidget::SetShapeFile(const QString& shapeFile)
{
    clear();
    fileReadable = false;
    ShapeFileReader reader;
    if (shapeFile.isEmpty() || reader.Open(QFile::encodeName(shapeFile)) != 0) {
        message = tr("No preview");
        if (!shapeFile.isEmpty())
            message
                += QLatin1Char('\n') + tr("%1 cannot be read as a shape file.").arg(QFileInfo(shapeFile).fileName());
        updateBounds();
        update();
        return false;
    }
    fileReadable = true;
    entityCount = std::max(reader.GetEntityCount(), 0);

    qint64 vertices = 0;
    int unreadable = 0;
    bool capped = false;
    bool haveBounds = false;
    ShapeObject shape;
    for (int i = 0; i < entityCount; ++i) {
        if (vertices >= vertexLimit) {
            capped = true;
            break;
        }
        if (reader.ReadObject(i, shape) != 0 || shape.IsEmpty()) {
            ++unreadable;
            continue;
        }
        const int type = shape.GetShapeType();
        Object object;
        object.record = i;
        QVector<QVector<QPointF>> parts;
        const int partCount = shape.GetParts().size();
        if (partCount == 0 || isPointType(type)) {
            parts.append(shape.GetPoints());
        } else {
            for (int part = 0; part < partCount; ++part)
                parts.append(shape.GetPartPoints(part));
        }

        double minX = 0, minY = 0, maxX = 0, maxY = 0;
        bool any = false;
        for (const QVector<QPointF>& part : qAsConst(parts)) {
            bool first = true;
            for (const QPointF& point : part) {
                // A damaged record may hold NaN; it would spoil the bounds.
                if (!isFinite(point))
                    continue;
                if (!any) {
                    minX = maxX = point.x();
                    minY = maxY = point.y();
                    any = true;
                } else {
                    minX = std::min(minX, point.x());
                    maxX = std::max(maxX, point.x());
                    minY = std::min(minY, point.y());
                    maxY = std::max(maxY, point.y());
                }
                if (isPointType(type)) {
                    object.points.append(point);
                } else if (type == SHPT_MULTIPATCH) {
                    // Drawn by its faces below.
                } else if (first) {
                    object.path.moveTo(point);
                    first = false;
                } else {
                    object.path.lineTo(point);
                }
                ++vertices;
            }
            if (isAreaType(type) && !first)
                object.path.closeSubpath();
        }
        if (type == SHPT_MULTIPATCH)
            object.path = multipatchPath(shape);
        if (!any)
            continue; // a null shape: nothing to draw
        if (isPointType(type))
            object.kind = Kind::Point;
        else if (isLineType(type))
            object.kind = Kind::Line;
        else
            object.kind = Kind::Area;
        // Each object has its own even-odd fill, so holes stay open and
        // neighbours do not cancel each other out; a multipatch has its own.
        if (type != SHPT_MULTIPATCH)
            object.path.setFillRule(Qt::OddEvenFill);
        objects.append(object);
        objectBounds = unite(objectBounds, haveBounds, QRectF(QPointF(minX, minY), QPointF(maxX, maxY)));
        haveBounds = true;
    }

    if (objects.isEmpty())
        message = unreadable > 0 ? tr("No readable objects") : tr("No objects");
    if (capped)
        statusText = tr("Preview shows the first %1 of %2 objects").arg(objects.size()).arg(entityCount);
    else
        statusText = tr("Objects: %1").arg(objects.size());
    if (unreadable > 0)
        statusText += QLatin1Char('\n') + tr("%1 records cannot be read").arg(unreadable);
    updateBounds();
    update();
    return true;
}

void ShapePreviewWidget::SetVertexLimit(int limit)
{
    vertexLimit = std::max(limit, 1);
}

void ShapePreviewWidget::SetFilterAreas(const QMap<QString, QPainterPath>& areas)
{
    filterAreas = areas;
    updateBounds();
    update();
}

void ShapePreviewWidget::SetHighlightedRecord(int record)
{
    if (record == highlightedRecord)
        return;
    highlightedRecord = record;
    update();
}

void ShapePreviewWidget::updateBounds()
{
    hasBounds = fileReadable && !objects.isEmpty();
    bounds = objectBounds;
    if (!fileReadable)
        return;
    for (const QPainterPath& area : qAsConst(filterAreas)) {
        if (area.elementCount() == 0)
            continue;
        bounds = unite(bounds, hasBounds, area.boundingRect());
        hasBounds = true;
    }
}

QTransform ShapePreviewWidget::worldTransform() const
{
    const int bottomMargin = fontMetrics().height() + 2 * sideMargin;
    const double availableWidth = std::max(width() - 2 * sideMargin, 1);
    const double availableHeight = std::max(height() - sideMargin - bottomMargin, 1);
    double scale = 1.0;
    if (bounds.width() > 0 && bounds.height() > 0)
        scale = std::min(availableWidth / bounds.width(), availableHeight / bounds.height());
    else if (bounds.width() > 0)
        scale = availableWidth / bounds.width();
    else if (bounds.height() > 0)
        scale = availableHeight / bounds.height();
    const QPointF centre = bounds.center();
    const double centreX = sideMargin + availableWidth / 2;
    const double centreY = sideMargin + availableHeight / 2;
    // y is negated: north is up on the screen, where y grows downwards.
    return QTransform(scale, 0, 0, -scale, centreX - scale * centre.x(), centreY + scale * centre.y());
}

QPointF ShapePreviewWidget::WorldToWidget(const QPointF& world) const
{
    return worldTransform().map(world);
}

QSize ShapePreviewWidget::sizeHint() const
{
    return QSize(400, 300);
}

QSize ShapePreviewWidget::minimumSizeHint() const
{
    return QSize(120, 90);
}

void ShapePreviewWidget::paintObject(
    QPainter& painter, const QTransform& transform, const Object& object, bool highlighted) const
{
    QPen pen(highlighted ? highlightOutline : objectOutline);
    pen.setCosmetic(true);
    pen.setWidthF(highlighted ? 2.5 : (object.kind == Kind::Line ? 1.5 : 1.0));
    painter.setPen(pen);
    if (object.kind == Kind::Point) {
        // Crosses keep their size at every scale, so they are drawn in pixels.
        painter.setTransform(QTransform());
        const double radius = highlighted ? crossRadius + 2 : crossRadius;
        for (const QPointF& point : object.points) {
            const QPointF centre = transform.map(point);
            painter.drawLine(centre - QPointF(radius, radius), centre + QPointF(radius, radius));
            painter.drawLine(centre - QPointF(radius, -radius), centre + QPointF(radius, -radius));
        }
        painter.setTransform(transform);
        return;
    }
    if (object.kind == Kind::Area)
        painter.setBrush(highlighted ? highlightFill : objectFill);
    else
        painter.setBrush(Qt::NoBrush);
    painter.drawPath(object.path);
}

void ShapePreviewWidget::paintScaleBar(QPainter& painter, double pixelsPerMetre) const
{
    const double metres = roundLength(width() / 4.0 / pixelsPerMetre);
    const double length = metres * pixelsPerMetre;
    const QString label = metres >= 1000 ? tr("%1 km").arg(locale().toString(metres / 1000))
                                         : tr("%1 m").arg(locale().toString(metres));
    const int baseline = height() - sideMargin;
    const QPointF left(sideMargin, baseline);
    const QPointF right(sideMargin + length, baseline);
    QPen pen(textColour);
    pen.setWidthF(1.5);
    painter.setPen(pen);
    painter.drawLine(left, right);
    painter.drawLine(left, left - QPointF(0, 4));
    painter.drawLine(right, right - QPointF(0, 4));
    painter.drawText(QPointF(right.x() + 4, baseline), label);
}

void ShapePreviewWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), backgroundColour);
    painter.setRenderHint(QPainter::Antialiasing);

    if (hasBounds) {
        const QTransform transform = worldTransform();
        painter.setTransform(transform);
        const Object* highlighted = nullptr;
        for (const Object& object : qAsConst(objects)) {
            if (object.record == highlightedRecord)
                highlighted = &object;
            else
                paintObject(painter, transform, object, false);
        }

        QPen areaPen(areaOutline);
        areaPen.setCosmetic(true);
        areaPen.setWidthF(1.5);
        painter.setPen(areaPen);
        painter.setBrush(areaFill);
        for (const QPainterPath& area : qAsConst(filterAreas))
            painter.drawPath(area);

        // Last, so that neighbours and areas do not hide it.
        if (highlighted)
            paintObject(painter, transform, *highlighted, true);

        painter.setTransform(QTransform());
        QFont small = font();
        small.setPointSizeF(small.pointSizeF() * 0.85);
        painter.setFont(small);
        const QFontMetrics metrics(small);
        const QRect inside = rect().adjusted(2, 2, -2, -2);
        for (auto it = filterAreas.cbegin(); it != filterAreas.cend(); ++it) {
            if (it.value().elementCount() == 0)
                continue;
            const QRectF area = transform.mapRect(it.value().boundingRect());
            // Long names of small areas would cover their neighbours.
            const int maxWidth = std::max(60, static_cast<int>(area.width()));
            const QString label = metrics.elidedText(it.key(), Qt::ElideRight, maxWidth);
            QRect box(QPoint(), metrics.size(Qt::TextSingleLine, label) + QSize(6, 2));
            box.moveCenter(area.center().toPoint());
            // Kept inside the widget, so that areas at the edge stay named.
            box.moveLeft(std::max(inside.left(), std::min(box.left(), inside.right() - box.width())));
            box.moveTop(std::max(inside.top(), std::min(box.top(), inside.bottom() - box.height())));
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(255, 255, 255, 170));
            painter.drawRoundedRect(box, 3, 3);
            painter.setPen(areaOutline.darker(140));
            painter.drawText(box, Qt::AlignCenter, label);
        }
        painter.setBrush(Qt::NoBrush);
        painter.setFont(font());
        paintScaleBar(painter, transform.m11());
    }

    painter.setPen(textColour);
    if (!statusText.isEmpty()) {
        const QRect corner = rect().adjusted(sideMargin, sideMargin, -sideMargin, -sideMargin / 2);
        painter.drawText(corner, Qt::AlignRight | Qt::AlignBottom, statusText);
    }
    if (!message.isEmpty())
        painter.drawText(rect().adjusted(sideMargin, sideMargin, -sideMargin, -sideMargin),
            Qt::AlignCenter | Qt::TextWordWrap, message);
}
