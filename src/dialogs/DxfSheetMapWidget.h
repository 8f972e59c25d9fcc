#ifndef KAMO_TOOLS_DXFSHEETMAPWIDGET_H
#define KAMO_TOOLS_DXFSHEETMAPWIDGET_H

#include "kamo_tools_export.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVector>
#include <QWidget>

struct DxfCorrectionResult;
struct DxfDrawing;

// A map of the sheet frames of a DXF drawing, north up: every insert's frame
// with its sheet number, coloured by whether the insert is used and whether
// the last correction reported it, and after a correction the corner labels
// and the route the labelling followed. The wheel zooms about the pointer,
// dragging pans, a click on a frame reports its insert.
//
// Frames are drawn as the drawing holds them: block geometry in world
// coordinates, the insert's own position not applied, as the correction and
// the export take them. Drawings of tens of thousands of sheets stay quick:
// frames outside the view are skipped, those of a few pixels drawn as dots,
// and texts only written where they fit.
class KAMO_TOOLS_EXPORT DxfSheetMapWidget : public QWidget
{
    Q_OBJECT

public:
    enum class FrameState { NoFrame, Used, Unused, Reported };

    // A corner label as painted, in widget coordinates.
    struct CornerLabel {
        int insert = -1;
        QString text; // "TL", "TR", "BR", "BL"
        QPointF corner;
    };

    explicit DxfSheetMapWidget(QWidget* parent = nullptr);
    ~DxfSheetMapWidget() override;

    // Borrowed. Use flags and corner labels are read from it whenever the
    // map paints, so changing those needs only a repaint; replacing inserts
    // or blocks needs this call again. Forgets the last correction's report
    // and route, and fits the view to all frames. Null shows nothing.
    void SetDrawing(const DxfDrawing* drawing);
    // Reported inserts are drawn red and the route as arrows until the next
    // SetDrawing or SetCorrection.
    void SetCorrection(const DxfCorrectionResult& result);

    void SetSelectedInserts(const QList<int>& inserts);
    QList<int> GetSelectedInserts() const { return selected; }
    // Moves the view so that the insert's frame is in the middle; the zoom
    // stays.
    void CenterOn(int insert);
    // Shows every frame; the view then follows the widget's size.
    void FitAll();
    // Scales by `factor` about `anchor` (widget coordinates), which keeps its
    // place on the screen.
    void ZoomAt(double factor, const QPointF& anchor);

    FrameState GetFrameState(int insert) const;
    // The frame that holds the point (widget coordinates); of overlapping
    // frames the one whose middle is nearest. -1 for none.
    int InsertAt(const QPointF& point) const;
    // The middle of the insert's frame, in world coordinates.
    QPointF GetFrameCenter(int insert) const;
    QPointF WorldToWidget(const QPointF& world) const;
    QPointF WidgetToWorld(const QPointF& point) const;
    // Pixels per drawing unit.
    double GetScale() const { return scale; }
    // The corner labels the map paints at its current view: those of
    // labelled frames large enough on screen to carry them.
    QVector<CornerLabel> GetCornerLabels() const;
    QList<int> GetRoute() const { return route; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void InsertClicked(int insert);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    struct Frame {
        int insert = -1;
        int block = -1;
        QRectF bounds; // world coordinates
    };

    // A frame in the view, with its bounds on screen.
    struct Shown {
        const Frame* frame;
        QRectF screen;
    };

    // Pixels kept free for the legend below the fitted frames.
    int legendRoom() const;
    // The scale at which all frames fit.
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

    const DxfDrawing* drawing = nullptr;
    QVector<Frame> frames;      // in insert order
    QVector<int> frameOfInsert; // insert -> index into frames, -1 without a frame
    // Why the last correction reported an insert, as its log line says.
    enum class Report : char { None, NotOneRectangle, Unlabelled, OneParallelPair };

    QVector<Report> reported;    // per insert
    QVector<bool> selectedFlags; // per insert
    QList<int> selected;
    QList<int> route;
    bool corrected = false;
    QRectF worldBounds;
    QPointF center; // world point in the middle of the widget
    double scale = 1.0;
    bool fitted = true;
    // Dragging pans; a press released without moving far is a click.
    bool pressed = false;
    bool dragging = false;
    QPointF pressPoint;
    QPointF pressCenter;
};

#endif
