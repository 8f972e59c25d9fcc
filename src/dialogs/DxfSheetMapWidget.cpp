#include "dialogs/DxfSheetMapWidget.h"

#include "dxf/DxfCorrectionResult.h"
#include "dxf/DxfDrawing.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMetaEnum>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

const QColor backgroundColour(247, 247, 243);
const QColor usedOutline(47, 93, 138);
const QColor usedFill(47, 93, 138, 40);
const QColor unusedOutline(120, 120, 120, 90);
const QColor reportedOutline(200, 30, 40);
const QColor reportedFill(200, 30, 40, 60);
const QColor selectedOutline(230, 140, 0);
const QColor selectedFill(255, 190, 40, 80);
const QColor routeColour(0, 128, 80);
const QColor textColour(40, 40, 40);
const QColor labelBackground(255, 255, 255, 200);

const int margin = 12;
// Below this size on screen a frame is a dot: its outline would be a blur,
// and drawing it as a polygon costs most of a redraw of thousands of sheets.
const double dotSize = 3.0;
// Corner labels need room beside the sheet number in the middle, and stand
// far enough inside to stay clear of a neighbour's where sheets overlap.
const double cornerLabelRoom = 72.0;
const double cornerLabelInset = 20.0;
const double arrowRoom = 36.0;
const double arrowSize = 9.0;
const double maxScale = 1000.0; // pixels per drawing unit

// The corner labels the vertex listing names vpTopLeft and so on, short
// enough to stand in a corner. Not translated, like the listing.
QString shortLabel(GK::VtxPosition position)
{
    switch (position) {
    case GK::vpTopLeft:
        return QStringLiteral("TL");
    case GK::vpTopRight:
        return QStringLiteral("TR");
    case GK::vpBottomRight:
        return QStringLiteral("BR");
    case GK::vpBottomLeft:
        return QStringLiteral("BL");
    case GK::vpUnknown:
        break;
    }
    return QString();
}

bool isFinite(const QPointF& point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

// Unlike QRectF::united, a frame shrunk to a point still counts.
QRectF unite(const QRectF& a, const QRectF& b)
{
    return QRectF(QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
        QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom())));
}

// Unlike QRectF::intersects, a frame of no width or height still counts.
bool overlaps(const QRectF& a, const QRectF& b)
{
    return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() && b.top() <= a.bottom();
}

// Whether `point` lies on the way from `from` to `to`, within half a pixel:
// then a line straight from `from` to `to` shows it as well.
bool nearLine(const QPointF& point, const QPointF& from, const QPointF& to)
{
    const QPointF way = to - from;
    const QPointF off = point - from;
    const double length = std::hypot(way.x(), way.y());
    if (length == 0.0)
        return std::hypot(off.x(), off.y()) < 0.5;
    const double along = (off.x() * way.x() + off.y() * way.y()) / length;
    const double across = (off.x() * way.y() - off.y() * way.x()) / length;
    return along >= 0.0 && along <= length && std::fabs(across) < 0.5;
}

QPen cosmeticPen(const QColor& colour, double width)
{
    QPen pen(colour, width);
    pen.setCosmetic(true);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

QFont scaledFont(const QFont& font, double factor)
{
    QFont scaled = font;
    scaled.setPointSizeF(font.pointSizeF() * factor);
    return scaled;
}

} // namespace

DxfSheetMapWidget::DxfSheetMapWidget(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

DxfSheetMapWidget::~DxfSheetMapWidget() = default;

void DxfSheetMapWidget::SetDrawing(const DxfDrawing* source)
{
    drawing = source;
    frames.clear();
    frameOfInsert.clear();
    reported.clear();
    selectedFlags.clear();
    selected.clear();
    route.clear();
    corrected = false;
    worldBounds = QRectF();
    if (drawing) {
        const int count = drawing->inserts.size();
        frameOfInsert.fill(-1, count);
        reported.fill(Report::None, count);
        selectedFlags.fill(false, count);
        const QHash<QString, int> blocks = drawing->BlockIndex();
        QPolygonF points;
        for (int i = 0; i < count; ++i) {
            const int block = blocks.value(drawing->inserts.at(i).blockName, -1);
            if (block < 0)
                continue;
            points.resize(0);
            for (const DxfPolyline& polyline : drawing->blocks.at(block).polylines) {
                // A damaged file may hold NaN; it would spoil the view.
                for (const QPointF& vertex : polyline.vertices) {
                    if (isFinite(vertex))
                        points.append(vertex);
                }
            }
            if (points.isEmpty())
                continue;
            const QRectF bounds = points.boundingRect();
            worldBounds = frames.isEmpty() ? bounds : unite(worldBounds, bounds);
            frameOfInsert[i] = frames.size();
            frames.append(Frame { i, block, bounds });
        }
    }
    FitAll();
}

void DxfSheetMapWidget::SetCorrection(const DxfCorrectionResult& result)
{
    reported.fill(Report::None);
    const auto mark = [this](const QList<int>& inserts, Report reason) {
        for (int insert : inserts) {
            if (insert >= 0 && insert < reported.size())
                reported[insert] = reason;
        }
    };
    mark(result.notOneRectangle, Report::NotOneRectangle);
    mark(result.unlabelled, Report::Unlabelled);
    mark(result.oneParallelPair, Report::OneParallelPair);
    corrected = true;
    route.clear();
    for (int insert : result.route) {
        if (frameOf(insert))
            route.append(insert);
    }
    update();
}

void DxfSheetMapWidget::SetSelectedInserts(const QList<int>& inserts)
{
    for (int insert : qAsConst(selected))
        selectedFlags[insert] = false;
    selected.clear();
    for (int insert : inserts) {
        if (insert >= 0 && insert < selectedFlags.size() && !selectedFlags.at(insert)) {
            selectedFlags[insert] = true;
            selected.append(insert);
        }
    }
    update();
}

void DxfSheetMapWidget::CenterOn(int insert)
{
    if (!frameOf(insert))
        return;
    center = GetFrameCenter(insert);
    fitted = false;
    update();
}

void DxfSheetMapWidget::FitAll()
{
    fitted = true;
    scale = fitScale();
    // Up by half the legend: the frames' middle sits above the widget's.
    center = worldBounds.center() - QPointF(0, legendRoom() / 2.0 / scale);
    update();
}

void DxfSheetMapWidget::ZoomAt(double factor, const QPointF& anchor)
{
    if (frames.isEmpty() || !(factor > 0))
        return;
    // Not much further out than the whole drawing, and not in so far that
    // the coordinates on screen lose their precision.
    const double wanted = std::clamp(scale * factor, fitScale() / 8, maxScale);
    const QPointF world = WidgetToWorld(anchor);
    scale = wanted;
    const QPointF moved = WorldToWidget(world);
    center += QPointF((moved.x() - anchor.x()) / scale, (anchor.y() - moved.y()) / scale);
    fitted = false;
    update();
}

DxfSheetMapWidget::FrameState DxfSheetMapWidget::GetFrameState(int insert) const
{
    if (!frameOf(insert))
        return FrameState::NoFrame;
    // Left out since the correction: the report is about a run it will not
    // take part in again.
    if (!drawing->inserts.at(insert).use)
        return FrameState::Unused;
    return reported.at(insert) != Report::None ? FrameState::Reported : FrameState::Used;
}

int DxfSheetMapWidget::InsertAt(const QPointF& point) const
{
    const QPointF world = WidgetToWorld(point);
    // Frames a few pixels wide are dots on screen; a click near one counts.
    const double reach = 3.0 / scale;
    int best = -1;
    bool bestInside = false;
    double bestDistance = 0.0;
    for (const Frame& frame : frames) {
        if (!frame.bounds.adjusted(-reach, -reach, reach, reach).contains(world))
            continue;
        bool inside = false;
        for (const DxfPolyline& polyline : drawing->blocks.at(frame.block).polylines) {
            if (QPolygonF(polyline.vertices).containsPoint(world, Qt::OddEvenFill)) {
                inside = true;
                break;
            }
        }
        const QPointF offset = frame.bounds.center() - world;
        const double distance = offset.x() * offset.x() + offset.y() * offset.y();
        if (best < 0 || (inside && !bestInside) || (inside == bestInside && distance < bestDistance)) {
            best = frame.insert;
            bestInside = inside;
            bestDistance = distance;
        }
    }
    return best;
}

QPointF DxfSheetMapWidget::GetFrameCenter(int insert) const
{
    const Frame* frame = frameOf(insert);
    return frame ? frame->bounds.center() : QPointF();
}

QPointF DxfSheetMapWidget::WorldToWidget(const QPointF& world) const
{
    // y is negated: north is up on the screen, where y grows downwards.
    return QPointF(width() / 2.0 + (world.x() - center.x()) * scale, height() / 2.0 - (world.y() - center.y()) * scale);
}

QPointF DxfSheetMapWidget::WidgetToWorld(const QPointF& point) const
{
    return QPointF(center.x() + (point.x() - width() / 2.0) / scale, center.y() - (point.y() - height() / 2.0) / scale);
}

QVector<DxfSheetMapWidget::CornerLabel> DxfSheetMapWidget::GetCornerLabels() const
{
    return cornerLabels(shownFrames());
}

QVariantList DxfSheetMapWidget::cornerLabelsProperty() const
{
    QVariantList labels;
    for (const CornerLabel& label : GetCornerLabels()) {
        labels.append(QVariantMap { { QStringLiteral("insert"), label.insert }, { QStringLiteral("text"), label.text },
            { QStringLiteral("corner"), label.corner }, { QStringLiteral("world"), WidgetToWorld(label.corner) } });
    }
    return labels;
}

QVariantList DxfSheetMapWidget::framesProperty() const
{
    const QMetaEnum names = QMetaEnum::fromType<FrameState>();
    QVariantList list;
    const int count = drawing ? drawing->inserts.size() : 0;
    for (int insert = 0; insert < count; ++insert) {
        QVariantMap frame { { QStringLiteral("state"),
            QString::fromLatin1(names.valueToKey(static_cast<int>(GetFrameState(insert)))) } };
        if (frameOf(insert))
            frame.insert(QStringLiteral("center"), GetFrameCenter(insert));
        list.append(frame);
    }
    return list;
}

QSize DxfSheetMapWidget::sizeHint() const
{
    return QSize(480, 300);
}

QSize DxfSheetMapWidget::minimumSizeHint() const
{
    return QSize(160, 120);
}

bool DxfSheetMapWidget::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString text = toolTipAt(help->pos());
        if (text.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(), text, this);
        return true;
    }
    return QWidget::event(event);
}

void DxfSheetMapWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (fitted)
        FitAll();
}

void DxfSheetMapWidget::wheelEvent(QWheelEvent* event)
{
    const double steps = event->angleDelta().y() / 120.0;
    if (steps != 0.0)
        ZoomAt(std::pow(1.25, steps), event->position());
    event->accept();
}

void DxfSheetMapWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    pressed = true;
    dragging = false;
    pressPoint = event->localPos();
    pressCenter = center;
}

void DxfSheetMapWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!pressed)
        return;
    const QPointF moved = event->localPos() - pressPoint;
    if (!dragging && moved.manhattanLength() < QApplication::startDragDistance())
        return;
    if (!dragging) {
        dragging = true;
        setCursor(Qt::ClosedHandCursor);
    }
    center = pressCenter + QPointF(-moved.x() / scale, moved.y() / scale);
    fitted = false;
    update();
}

void DxfSheetMapWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !pressed) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    pressed = false;
    if (dragging) {
        dragging = false;
        unsetCursor();
        return;
    }
    const int insert = InsertAt(event->localPos());
    if (insert >= 0)
        Q_EMIT InsertClicked(insert);
}

int DxfSheetMapWidget::legendRoom() const
{
    return fontMetrics().height() + 8;
}

double DxfSheetMapWidget::fitScale() const
{
    // Frames all in one line fit by their length alone.
    const double across = worldBounds.width() > 0 ? std::max(width() - 2 * margin, 1) / worldBounds.width() : maxScale;
    const double down = worldBounds.height() > 0
        ? std::max(height() - 2 * margin - legendRoom(), 1) / worldBounds.height()
        : maxScale;
    return worldBounds.width() > 0 || worldBounds.height() > 0 ? std::min({ across, down, maxScale }) : 1.0;
}

const DxfSheetMapWidget::Frame* DxfSheetMapWidget::frameOf(int insert) const
{
    if (insert < 0 || insert >= frameOfInsert.size() || frameOfInsert.at(insert) < 0)
        return nullptr;
    return &frames.at(frameOfInsert.at(insert));
}

QRectF DxfSheetMapWidget::toWidget(const QRectF& world) const
{
    const QPointF topLeft = WorldToWidget(QPointF(world.left(), world.bottom()));
    return QRectF(topLeft, QSizeF(world.width() * scale, world.height() * scale));
}

QVector<DxfSheetMapWidget::Shown> DxfSheetMapWidget::shownFrames() const
{
    const QRectF visible(WidgetToWorld(QPointF(0, height())), WidgetToWorld(QPointF(width(), 0)));
    QVector<Shown> shown;
    for (const Frame& frame : frames) {
        if (overlaps(frame.bounds, visible))
            shown.append(Shown { &frame, toWidget(frame.bounds) });
    }
    return shown;
}

QVector<DxfSheetMapWidget::CornerLabel> DxfSheetMapWidget::cornerLabels(const QVector<Shown>& shown) const
{
    QVector<CornerLabel> labels;
    for (const Shown& item : shown) {
        if (std::min(item.screen.width(), item.screen.height()) < cornerLabelRoom)
            continue;
        for (const DxfPolyline& polyline : drawing->blocks.at(item.frame->block).polylines) {
            for (auto label = polyline.labels.cbegin(); label != polyline.labels.cend(); ++label) {
                const QString text = shortLabel(label.value());
                if (text.isEmpty() || label.key() < 0 || label.key() >= polyline.vertices.size())
                    continue;
                labels.append(
                    CornerLabel { item.frame->insert, text, WorldToWidget(polyline.vertices.at(label.key())) });
            }
        }
    }
    return labels;
}

void DxfSheetMapWidget::paintFrames(QPainter& painter, const QVector<Shown>& shown) const
{
    // One pass sorts the visible frames by how they are drawn; the fainter
    // ones go first, so that the ones that matter stay on top.
    enum Layer { UnusedLayer, UsedLayer, ReportedLayer, SelectedLayer, LayerCount };
    QVector<int> outlines[LayerCount];
    QVector<QRectF> dots[LayerCount];
    for (const Shown& item : shown) {
        const int insert = item.frame->insert;
        Layer layer = UsedLayer;
        if (selectedFlags.at(insert))
            layer = SelectedLayer;
        else if (!drawing->inserts.at(insert).use)
            layer = UnusedLayer;
        else if (reported.at(insert) != Report::None)
            layer = ReportedLayer;
        if (item.screen.width() < dotSize && item.screen.height() < dotSize)
            dots[layer].append(QRectF(item.screen.center() - QPointF(1.0, 1.0), QSizeF(2.0, 2.0)));
        else
            outlines[layer].append(item.frame->block);
    }

    const QColor outline[LayerCount] = { unusedOutline, usedOutline, reportedOutline, selectedOutline };
    const QColor fill[LayerCount] = { Qt::transparent, usedFill, reportedFill, selectedFill };
    QPolygonF polygon;
    for (int layer = 0; layer < LayerCount; ++layer) {
        painter.setPen(cosmeticPen(outline[layer], layer == SelectedLayer ? 3.0 : 1.2));
        painter.setBrush(layer == UnusedLayer ? QBrush(Qt::NoBrush) : QBrush(fill[layer]));
        for (int block : qAsConst(outlines[layer])) {
            for (const DxfPolyline& polyline : drawing->blocks.at(block).polylines) {
                polygon.resize(0);
                for (const QPointF& vertex : polyline.vertices)
                    polygon.append(WorldToWidget(vertex));
                painter.drawPolygon(polygon);
            }
        }
        if (!dots[layer].isEmpty()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(outline[layer]);
            painter.drawRects(dots[layer]);
        }
    }
    // A selected sheet of a few pixels would be lost among the others.
    painter.setPen(cosmeticPen(selectedOutline, 2.0));
    painter.setBrush(Qt::NoBrush);
    for (const QRectF& dot : qAsConst(dots[SelectedLayer]))
        painter.drawEllipse(dot.center(), 7.0, 7.0);
}

void DxfSheetMapWidget::paintTopSides(QPainter& painter, const QVector<Shown>& shown) const
{
    // The side the route reads as "top", bold: it shows where the labels
    // are too small to write.
    for (const Shown& item : shown) {
        if (std::max(item.screen.width(), item.screen.height()) < 4 * dotSize)
            continue;
        for (const DxfPolyline& polyline : drawing->blocks.at(item.frame->block).polylines) {
            int left = -1;
            int right = -1;
            for (auto label = polyline.labels.cbegin(); label != polyline.labels.cend(); ++label) {
                if (label.key() < 0 || label.key() >= polyline.vertices.size())
                    continue;
                if (label.value() == GK::vpTopLeft)
                    left = label.key();
                else if (label.value() == GK::vpTopRight)
                    right = label.key();
            }
            if (left < 0 || right < 0)
                continue;
            const FrameState state = GetFrameState(item.frame->insert);
            const QColor colour = state == FrameState::Reported ? reportedOutline
                : state == FrameState::Unused                   ? unusedOutline
                                                                : usedOutline;
            painter.setPen(cosmeticPen(colour.darker(130), 3.0));
            painter.drawLine(WorldToWidget(polyline.vertices.at(left)), WorldToWidget(polyline.vertices.at(right)));
        }
    }
}

void DxfSheetMapWidget::paintRoute(QPainter& painter) const
{
    if (route.isEmpty())
        return;
    // Only the pieces on screen, and a run of sheets in line as one piece:
    // a line through every one of 20,000 sheets takes longer to draw than
    // all their frames.
    const QRectF area = QRectF(rect()).adjusted(-arrowSize, -arrowSize, arrowSize, arrowSize);
    QVector<QPointF> points;
    points.reserve(route.size());
    for (int insert : route)
        points.append(WorldToWidget(GetFrameCenter(insert)));
    QVector<QLineF> pieces;
    QVector<QLineF> arrows;
    QPointF last = points.first();
    for (int k = 1; k < points.size(); ++k) {
        const QPointF& point = points.at(k);
        const QLineF step(points.at(k - 1), point);
        if (step.length() >= arrowRoom && area.contains(step.center()))
            arrows.append(step);
        if (k + 1 < points.size() && nearLine(point, last, points.at(k + 1)))
            continue;
        const QRectF reach = QRectF(last, point).normalized();
        if (reach.right() >= area.left() && reach.left() <= area.right() && reach.bottom() >= area.top()
            && reach.top() <= area.bottom())
            pieces.append(QLineF(last, point));
        last = point;
    }
    QPen pen = cosmeticPen(routeColour, 2.0);
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawLines(pieces);

    // The start, so that the direction shows even where arrows do not fit.
    painter.setPen(Qt::NoPen);
    painter.setBrush(routeColour);
    painter.drawEllipse(points.first(), 4.5, 4.5);

    // Heads halfway, where no sheet number covers them.
    for (const QLineF& arrow : qAsConst(arrows)) {
        const QPointF along = (arrow.p2() - arrow.p1()) / arrow.length() * arrowSize;
        const QPointF across(-along.y() * 0.55, along.x() * 0.55);
        const QPointF tip = arrow.center() + along / 2;
        const QPointF back = arrow.center() - along / 2;
        painter.drawPolygon(QPolygonF({ tip, back + across, back - across }));
    }
}

void DxfSheetMapWidget::paintSheetNumbers(QPainter& painter, const QVector<Shown>& shown) const
{
    const QFontMetricsF metrics(painter.font());
    const double lineHeight = metrics.height();
    for (const Shown& item : shown) {
        const QRectF& screen = item.screen;
        if (screen.height() < lineHeight + 4 || screen.width() < lineHeight)
            continue;
        const QString number = drawing->inserts.at(item.frame->insert).SheetNumber();
        if (number.isEmpty())
            continue;
        const double textWidth = metrics.horizontalAdvance(number);
        if (screen.width() < textWidth + 8)
            continue;
        QRectF box(0, 0, textWidth + 6, lineHeight + 2);
        box.moveCenter(screen.center());
        painter.setPen(Qt::NoPen);
        painter.setBrush(labelBackground);
        painter.drawRoundedRect(box, 3, 3);
        painter.setPen(
            GetFrameState(item.frame->insert) == FrameState::Reported ? reportedOutline.darker(120) : textColour);
        painter.drawText(box, Qt::AlignCenter, number);
    }
}

void DxfSheetMapWidget::paintCornerLabels(QPainter& painter, const QVector<Shown>& shown) const
{
    const QFontMetricsF metrics(painter.font());
    for (const CornerLabel& label : cornerLabels(shown)) {
        // Inside the frame, towards its middle, clear of the corner's lines.
        const QPointF middle = toWidget(frameOf(label.insert)->bounds).center();
        const QPointF inward = middle - label.corner;
        const double distance = std::hypot(inward.x(), inward.y());
        const QPointF at = distance > 0 ? label.corner + inward / distance * cornerLabelInset : label.corner;
        QRectF box(0, 0, metrics.horizontalAdvance(label.text) + 4, metrics.height());
        box.moveCenter(at);
        painter.setPen(GetFrameState(label.insert) == FrameState::Reported ? reportedOutline.darker(120)
                                                                           : usedOutline.darker(150));
        painter.drawText(box, Qt::AlignCenter, label.text);
    }
}

void DxfSheetMapWidget::paintLegend(QPainter& painter) const
{
    struct Entry {
        QColor outline;
        QColor fill;
        QString text;
        bool line;
    };
    QVector<Entry> entries {
        { usedOutline, usedFill, tr("Used"), false },
        { unusedOutline, Qt::transparent, tr("Left out"), false },
        { selectedOutline, selectedFill, tr("Selected"), false },
    };
    if (corrected) {
        entries.append({ reportedOutline, reportedFill, tr("Reported"), false });
        entries.append({ routeColour, Qt::transparent, tr("Route"), true });
    }
    // One line along the bottom edge, where the fitted view leaves room;
    // a narrow map gets more lines.
    const QFontMetrics metrics(painter.font());
    const int row = metrics.height() + 4;
    const int sample = 16;
    QVector<QRect> cells;
    int x = 0;
    int y = 0;
    int widest = 0;
    for (const Entry& entry : qAsConst(entries)) {
        const int cell = sample + 5 + metrics.horizontalAdvance(entry.text) + 12;
        if (x > 0 && x + cell > width() - 24) {
            x = 0;
            y += row;
        }
        cells.append(QRect(x, y, cell, row));
        x += cell;
        widest = std::max(widest, x);
    }
    const QRect box(6, height() - 6 - (y + row) - 4, widest + 4, y + row + 4);
    painter.setPen(QColor(0, 0, 0, 40));
    painter.setBrush(labelBackground);
    painter.drawRoundedRect(box, 4, 4);
    for (int i = 0; i < entries.size(); ++i) {
        const Entry& entry = entries.at(i);
        const QRect cell = cells.at(i).translated(box.left() + 6, box.top() + 2);
        const QRectF swatch(cell.left(), cell.center().y() - 5, sample, 10);
        if (entry.line) {
            painter.setPen(cosmeticPen(entry.outline, 2.0));
            painter.drawLine(QPointF(swatch.left(), swatch.center().y()), QPointF(swatch.right(), swatch.center().y()));
        } else {
            painter.setPen(cosmeticPen(entry.outline, 1.5));
            painter.setBrush(entry.fill);
            painter.drawRect(swatch);
        }
        painter.setPen(textColour);
        painter.drawText(cell.adjusted(sample + 5, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, entry.text);
    }
}

void DxfSheetMapWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), backgroundColour);
    if (frames.isEmpty()) {
        painter.setPen(textColour);
        painter.drawText(rect(), Qt::AlignCenter, drawing ? tr("No sheet frames") : tr("No drawing loaded"));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    const QVector<Shown> shown = shownFrames();
    paintFrames(painter, shown);
    paintTopSides(painter, shown);
    paintRoute(painter);
    painter.setFont(scaledFont(font(), 0.9));
    paintSheetNumbers(painter, shown);
    painter.setFont(scaledFont(font(), 0.8));
    paintCornerLabels(painter, shown);
    paintLegend(painter);
}

QString DxfSheetMapWidget::toolTipAt(const QPointF& point) const
{
    const int insert = InsertAt(point);
    if (insert < 0)
        return frames.isEmpty() ? QString() : tr("Wheel: zoom; drag: move the map; click: select the insert");
    const DxfInsert& entry = drawing->inserts.at(insert);
    QString text = tr("Insert %1, block %2, sheet number %3").arg(insert).arg(entry.blockName, entry.SheetNumber());
    switch (reported.at(insert)) {
    case Report::NotOneRectangle:
        text += QLatin1Char('\n')
            + tr("The rectangle detector found not exactly one rectangle in its frame: no corner labels");
        break;
    case Report::Unlabelled:
        text += QLatin1Char('\n') + tr("Left without corner labels: the revision stopped at this frame or before it");
        break;
    case Report::OneParallelPair:
        text += QLatin1Char('\n') + tr("Its frame has only one pair of parallel sides; labelled all the same");
        break;
    case Report::None:
        break;
    }
    if (!entry.use)
        text += QLatin1Char('\n') + tr("Left out");
    return text;
}
