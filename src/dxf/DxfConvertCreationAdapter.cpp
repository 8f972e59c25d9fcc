#include "dxf/DxfConvertCreationAdapter.h"

DxfConvertCreationAdapter::DxfConvertCreationAdapter(DxfDrawing& drawing)
    : drawing(drawing)
{ }

void DxfConvertCreationAdapter::endAttributes()
{
    insert = -1;
    polyline = nullptr;
}

void DxfConvertCreationAdapter::setVariableString(const std::string& key, const std::string& value, int)
{
    decoder.SetVariable(key, value);
}

void DxfConvertCreationAdapter::addLayer(const DL_LayerData& data)
{
    drawing.layers.append(decoder.Text(data.name));
}

void DxfConvertCreationAdapter::addBlock(const DL_BlockData& data)
{
    endAttributes();
    drawing.blocks.append(DxfBlock { decoder.Text(data.name), {} });
    block = drawing.blocks.size() - 1;
}

void DxfConvertCreationAdapter::endBlock()
{
    endAttributes();
    block = -1;
}

void DxfConvertCreationAdapter::addPolyline(const DL_PolylineData& data)
{
    endAttributes();
    // Model-space polylines belong to no sheet frame.
    if (block < 0)
        return;
    QList<DxfPolyline>& polylines = drawing.blocks[block].polylines;
    polylines.append(DxfPolyline());
    polyline = &polylines.last();
    // The announced count is checked against the file's size before
    // reading, but a frame needs few vertices: a bound keeps a lying count
    // from reserving much.
    polyline->vertices.reserve(int(qMin(data.number, 64u)));
}

void DxfConvertCreationAdapter::addVertex(const DL_VertexData& data)
{
    if (polyline)
        polyline->vertices.append(QPointF(data.x, data.y));
}

void DxfConvertCreationAdapter::addInsert(const DL_InsertData& data)
{
    endAttributes();
    if (block >= 0)
        return;
    DxfInsert entry;
    entry.blockName = decoder.Text(data.name);
    // Sheets sit on one or a few layers: converting the name once per run
    // of equal names spares a string per insert and lets them share it.
    const std::string& layer = attributes.getLayer();
    if (layer != lastLayerName || lastLayer.isNull()) {
        lastLayerName = layer;
        lastLayer = decoder.Text(layer);
    }
    entry.layer = lastLayer;
    entry.x = data.ipx;
    entry.y = data.ipy;
    drawing.inserts.append(entry);
    insert = drawing.inserts.size() - 1;
}

void DxfConvertCreationAdapter::addAttribute(const DL_AttributeData& data)
{
    polyline = nullptr;
    if (insert >= 0)
        drawing.inserts[insert].attributes.append(qMakePair(decoder.Text(data.tag), decoder.Text(data.text)));
}

void DxfConvertCreationAdapter::endSequence()
{
    endAttributes();
}

void DxfConvertCreationAdapter::addPoint(const DL_PointData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addLine(const DL_LineData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addXLine(const DL_XLineData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addRay(const DL_RayData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addArc(const DL_ArcData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addCircle(const DL_CircleData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addEllipse(const DL_EllipseData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addSpline(const DL_SplineData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addMText(const DL_MTextData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addText(const DL_TextData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addArcAlignedText(const DL_ArcAlignedTextData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addDimAlign(const DL_DimensionData&, const DL_DimAlignedData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addDimLinear(const DL_DimensionData&, const DL_DimLinearData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addDimRadial(const DL_DimensionData&, const DL_DimRadialData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addDimDiametric(const DL_DimensionData&, const DL_DimDiametricData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addDimAngular(const DL_DimensionData&, const DL_DimAngular2LData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addDimAngular3P(const DL_DimensionData&, const DL_DimAngular3PData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addDimOrdinate(const DL_DimensionData&, const DL_DimOrdinateData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addLeader(const DL_LeaderData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addHatch(const DL_HatchData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addTrace(const DL_TraceData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::add3dFace(const DL_3dFaceData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addSolid(const DL_SolidData&)
{
    endAttributes();
}

void DxfConvertCreationAdapter::addImage(const DL_ImageData&)
{
    endAttributes();
}
