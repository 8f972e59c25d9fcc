#ifndef KAMO_TOOLS_DXF_DXFOUTPUTCREATIONADAPTER_H
#define KAMO_TOOLS_DXF_DXFOUTPUTCREATIONADAPTER_H

#include "dxf/DxfTextDecoder.h"

#include <dl_creationadapter.h>

#include <QString>

class QObject;
class QPlainTextEdit;

// Prints every entity dxflib reads as readable lines, for looking into a
// drawing. It keeps no model. Internal: its base class drags dxflib's headers
// along, which an installed header must not.
class DxfOutputCreationAdapter : public DL_CreationAdapter
{
public:
    // Neither pointer is owned; a null widget prints nothing. The text sink,
    // when given, collects the same text the widget would show, for callers
    // without a widget.
    DxfOutputCreationAdapter(QPlainTextEdit* output, QObject* context, QString* textSink = nullptr);

    void setVariableString(const std::string& key, const std::string& value, int code) override;
    void addLayer(const DL_LayerData& data) override;
    void addBlock(const DL_BlockData& data) override;
    void endBlock() override;
    void addPoint(const DL_PointData& data) override;
    void addLine(const DL_LineData& data) override;
    void addArc(const DL_ArcData& data) override;
    void addCircle(const DL_CircleData& data) override;
    void addPolyline(const DL_PolylineData& data) override;
    void addVertex(const DL_VertexData& data) override;
    void add3dFace(const DL_3dFaceData& data) override;
    void addText(const DL_TextData& data) override;
    void addMText(const DL_MTextData& data) override;
    void addAttribute(const DL_AttributeData& data) override;

    void Print(const QString& text);
    // While `*stop` is true nothing more is printed; reading goes on, since
    // dxflib cannot be left midway without leaking its file.
    void SetStopFlag(const bool* flag) { stop = flag; }

private:
    void printAttributes();

    QPlainTextEdit* output;
    [[maybe_unused]] QObject* context; // handed in by callers, kept for them
    QString* textSink;
    DxfTextDecoder decoder;
    const bool* stop = nullptr;
};

#endif
