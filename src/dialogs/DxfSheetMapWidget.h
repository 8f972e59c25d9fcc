#ifndef KAMO_TOOLS_DXFSHEETMAPWIDGET_H
#define KAMO_TOOLS_DXFSHEETMAPWIDGET_H

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVariantList>
#include <QVector>
#include <QWidget>

struct DxfCorrectionResult;
struct DxfDrawing;

/// A map of the sheet frames of a DXF drawing, north up: every insert's frame
/// with its sheet number, coloured by whether the insert is used and whether
/// the last correction reported it, and after a correction the corner labels
/// and the route the labelling followed. The wheel zooms about the pointer,
/// dragging pans, a click on a frame reports its insert.
///
/// Frames are drawn as the drawing holds them: block geometry in world
/// coordinates, the insert's own position not applied, as the correction and
/// the export take them. Drawings of tens of thousands of sheets stay quick:
/// frames outside the view are skipped, those of a few pixels drawn as dots,
/// and texts only written where they fit.
class DxfSheetMapWidget : public QWidget
{
    Q_OBJECT
    // Only the dialog links this class: tests and hosts that look into the
    // dialog read the map through these. None has a change signal, since use
    // flags and labels live in the borrowed drawing, which changes without
    // the map being told; read them when needed.

    /// The corner labels painted at the current view (GetCornerLabels()), one QVariantMap each: "insert" (int),
    /// "text" ("TL", "TR", "BR", "BL"), "corner" (QPointF, widget coordinates) and "world" (QPointF, the same
    /// corner in drawing coordinates).
    Q_PROPERTY(QVariantList cornerLabels READ cornerLabelsProperty)
    /// GetRoute() as QList<int>.
    Q_PROPERTY(QList<int> route READ GetRoute)
    /// GetSelectedInserts() as QList<int>.
    Q_PROPERTY(QList<int> selectedInserts READ GetSelectedInserts)
    /// One QVariantMap per insert, in drawing order: "state", the name of its FrameState ("NoFrame", "Used",
    /// "Unused", "Reported"), and for an insert with a frame "center", the frame's middle (QPointF, drawing
    /// coordinates).
    Q_PROPERTY(QVariantList frames READ framesProperty)
    /// GetScale(): pixels per drawing unit.
    Q_PROPERTY(double scale READ GetScale)
    /// The drawing point in the middle of the widget. With the scale it places every point, north up: x on screen
    /// is width / 2 + (x - viewCenter.x) * scale, y is height / 2 - (y - viewCenter.y) * scale.
    Q_PROPERTY(QPointF viewCenter READ viewCenterProperty)

public:
    /// How an insert's frame is drawn: without frame (its block has no closed outline), used, left out, or reported by
    /// the last correction.
    enum class FrameState { NoFrame, Used, Unused, Reported };
    Q_ENUM(FrameState)

    /// A corner label as painted, in widget coordinates.
    struct CornerLabel {
        /// The insert the label belongs to.
        int insert = -1;
        QString text; ///< "TL", "TR", "BR", "BL"
        /// The labelled corner, in widget coordinates.
        QPointF corner;
    };

    /// Creates an empty map.
    explicit DxfSheetMapWidget(QWidget* parent = nullptr);
    /// Destroys the map; the drawing is not owned.
    ~DxfSheetMapWidget() override;

    /// Borrowed. Use flags and corner labels are read from it whenever the
    /// map paints, so changing those needs only a repaint; replacing inserts
    /// or blocks needs this call again. Forgets the last correction's report
    /// and route, and fits the view to all frames. Null shows nothing.
    void SetDrawing(const DxfDrawing* drawing);
    /// Reported inserts are drawn red and the route as arrows until the next
    /// SetDrawing or SetCorrection.
    void SetCorrection(const DxfCorrectionResult& result);

    /// The inserts drawn as selected; indexes out of range and repeats are dropped, and setting them emits nothing.
    ///@{
    void SetSelectedInserts(const QList<int>& inserts);
    QList<int> GetSelectedInserts() const { return selected; }
    ///@}
    /// Moves the view so that the insert's frame is in the middle; the zoom
    /// stays.
    void CenterOn(int insert);
    /// Shows every frame; the view then follows the widget's size.
    void FitAll();
    /// Scales by `factor` about `anchor` (widget coordinates), which keeps its
    /// place on the screen.
    void ZoomAt(double factor, const QPointF& anchor);

    /// How the insert's frame is drawn now; NoFrame for an insert without frame or out of range.
    FrameState GetFrameState(int insert) const;
    /// The frame that holds the point (widget coordinates); of overlapping
    /// frames the one whose middle is nearest. -1 for none.
    int InsertAt(const QPointF& point) const;
    /// The middle of the insert's frame, in world coordinates.
    QPointF GetFrameCenter(int insert) const;
    /// Converts between world (drawing) and widget coordinates at the current view.
    ///@{
    QPointF WorldToWidget(const QPointF& world) const;
    QPointF WidgetToWorld(const QPointF& point) const;
    ///@}
    /// Pixels per drawing unit.
    double GetScale() const { return scale; }
    /// The corner labels the map paints at its current view: those of
    /// labelled frames large enough on screen to carry them.
    QVector<CornerLabel> GetCornerLabels() const;
    /// The inserts in the order the last correction labelled them; empty before a correction.
    QList<int> GetRoute() const { return route; }

    /// Size hints for layouts; see QWidget::sizeHint().
    ///@{
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    ///@}

Q_SIGNALS:
    /// Emitted when the user clicks a frame (without dragging), with the insert it belongs to.
    void InsertClicked(int insert);

protected:
    /// Shows a frame's sheet number and state as tool tip; see QWidget::event().
    bool event(QEvent* event) override;
    /// Paints frames, labels, route and legend; see QWidget::paintEvent().
    void paintEvent(QPaintEvent* event) override;
    /// Keeps all frames in view while the view is fitted; see QWidget::resizeEvent().
    void resizeEvent(QResizeEvent* event) override;
    /// Zooms about the pointer; see QWidget::wheelEvent().
    void wheelEvent(QWheelEvent* event) override;
    /// Pan by dragging, click to choose a frame; see QWidget::mousePressEvent().
    ///@{
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    ///@}

private:
    struct Frame {
        int insert = -1;
        int block = -1;
        QRectF bounds; ///< world coordinates
    };

    /// A frame in the view, with its bounds on screen.
    struct Shown {
        const Frame* frame;
        QRectF screen;
    };

    /// Pixels kept free for the legend below the fitted frames.
    int legendRoom() const;
    /// The scale at which all frames fit.
    double fitScale() const;
    const Frame* frameOf(int insert) const;
    QRectF toWidget(const QRectF& world) const;
    QVector<Shown> shownFrames() const;
    QVector<CornerLabel> cornerLabels(const QVector<Shown>& shown) const;
    void paintFrames(QPainter& painter, const QVector<Shown>& shown) const;
    void paintTopSides(QPainter& painter, const QVector<Shown>& shown) const;
    void paintRoute(QPainter& painter) const;
    void paintSheetNumbers(QPainter& painter, const QVector<Shown>& shown) const;
    void paintCornerLabels(QPainter& painter, const QVector<Shown>& shown) const;
    void paintLegend(QPainter& painter) const;
    QString toolTipAt(const QPointF& point) const;
    QVariantList cornerLabelsProperty() const;
    QVariantList framesProperty() const;
    QPointF viewCenterProperty() const { return center; }

    const DxfDrawing* drawing = nullptr;
    QVector<Frame> frames;      ///< in insert order
    QVector<int> frameOfInsert; ///< insert -> index into frames, -1 without a frame
    /// Why the last correction reported an insert, as its log line says.
    enum class Report : char { None, NotOneRectangle, Unlabelled, OneParallelPair };

    QVector<Report> reported;    ///< per insert
    QVector<bool> selectedFlags; ///< per insert
    QList<int> selected;
    QList<int> route;
    bool corrected = false;
    QRectF worldBounds;
    QPointF center; ///< world point in the middle of the widget
    double scale = 1.0;
    bool fitted = true;
    /// Dragging pans; a press released without moving far is a click.
    bool pressed = false;
    bool dragging = false;
    QPointF pressPoint;
    QPointF pressCenter;
};

#endif
