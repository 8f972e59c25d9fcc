#ifndef KAMO_TOOLS_DXF_DXFCONVERTCREATIONADAPTER_H
#define KAMO_TOOLS_DXF_DXFCONVERTCREATIONADAPTER_H

#include "dxf/DxfDrawing.h"
#include "dxf/DxfTextDecoder.h"

#include <dl_creationadapter.h>

#include <string>

// Collects what the DXF workbench works on into a DxfDrawing while dxflib
// reads. Internal: its base class drags dxflib's headers along.
//
// dxflib reports an ATTRIB without saying which INSERT it belongs to; in the
// file it follows its insert, so an attribute goes to the insert reported
// last, as long as no other entity came in between.
class DxfConvertCreationAdapter : public DL_CreationAdapter
{
public:
    // `drawing` is not owned and is appended to.
    explicit DxfConvertCreationAdapter(DxfDrawing& drawing);

    void setVariableString(const std::string& key, const std::string& value, int code) override;
    void addLayer(const DL_LayerData& data) override;
    void addBlock(const DL_BlockData& data) override;
    void endBlock() override;
    void addPolyline(const DL_PolylineData& data) override;
    void addVertex(const DL_VertexData& data) override;
    void addInsert(const DL_InsertData& data) override;
    void addAttribute(const DL_AttributeData& data) override;
    void endSequence() override;

    // Entities that end an insert's run of attributes.
    void addPoint(const DL_PointData&) override;
    void addLine(const DL_LineData&) override;
    void addXLine(const DL_XLineData&) override;
    void addRay(const DL_RayData&) override;
    void addArc(const DL_ArcData&) override;
    void addCircle(const DL_CircleData&) override;
    void addEllipse(const DL_EllipseData&) override;
    void addSpline(const DL_SplineData&) override;
    void addMText(const DL_MTextData&) override;
    void addText(const DL_TextData&) override;
    void addArcAlignedText(const DL_ArcAlignedTextData&) override;
    void addDimAlign(const DL_DimensionData&, const DL_DimAlignedData&) override;
    void addDimLinear(const DL_DimensionData&, const DL_DimLinearData&) override;
    void addDimRadial(const DL_DimensionData&, const DL_DimRadialData&) override;
    void addDimDiametric(const DL_DimensionData&, const DL_DimDiametricData&) override;
    void addDimAngular(const DL_DimensionData&, const DL_DimAngular2LData&) override;
    void addDimAngular3P(const DL_DimensionData&, const DL_DimAngular3PData&) override;
    void addDimOrdinate(const DL_DimensionData&, const DL_DimOrdinateData&) override;
    void addLeader(const DL_LeaderData&) override;
    void addHatch(const DL_HatchData&) override;
    void addTrace(const DL_TraceData&) override;
    void add3dFace(const DL_3dFaceData&) override;
    void addSolid(const DL_SolidData&) override;
    void addImage(const DL_ImageData&) override;

private:
    void endAttributes();

    DxfDrawing& drawing;
    DxfTextDecoder decoder;
    int block = -1; // index into drawing.blocks while inside a definition
    DxfPolyline* polyline = nullptr;
    int insert = -1; // the insert that takes following attributes
    std::string lastLayerName;
    QString lastLayer;
};

#endif
