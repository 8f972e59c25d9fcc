#ifndef KAMO_TOOLS_DXF_DXFOUTPUTCREATIONADAPTER_H
#define KAMO_TOOLS_DXF_DXFOUTPUTCREATIONADAPTER_H

#include "dxf/DxfTextDecoder.h"

#include <dl_creationadapter.h>

#include <QString>

#include <functional>

// Prints every entity dxflib reads as readable lines, for looking into a
// drawing. It keeps no model. Internal: its base class drags dxflib's headers
// along, which an installed header must not.
class DxfOutputCreationAdapter : public DL_CreationAdapter
{
public:
    // Each line of the listing goes to `sink` as it is read.
    explicit DxfOutputCreationAdapter(std::function<void(const QString&)> sink);

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

    std::function<void(const QString&)> sink;
    DxfTextDecoder decoder;
    const bool* stop = nullptr;
};

#endif
