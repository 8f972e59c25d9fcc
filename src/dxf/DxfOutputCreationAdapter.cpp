#include "DxfOutputCreationAdapter.h"

#include "dxf/PrintfFixed.h"

namespace {

// The listing's "%6.3f".
QString number(double value)
{
    return PrintfFixed(value, 6, 3);
}

} // namespace

DxfOutputCreationAdapter::DxfOutputCreationAdapter(std::function<void(const QString&)> sink)
    : sink(std::move(sink))
{ }

void DxfOutputCreationAdapter::Print(const QString& text)
{
    if (stop && *stop)
        return;
    if (sink)
        sink(text);
}

void DxfOutputCreationAdapter::printAttributes()
{
    QString line = QLatin1String("  Attributes: Layer: ") + decoder.Text(attributes.getLayer()) + QLatin1String(", ");
    line += QLatin1String(" Color: ");
    const int color = attributes.getColor();
    if (color == 256)
        line += QLatin1String("BYLAYER");
    else if (color == 0)
        line += QLatin1String("BYBLOCK");
    else
        line += QString::number(color);
    line += QLatin1String(" Width: ");
    const int width = attributes.getWidth();
    if (width == -1)
        line += QLatin1String("BYLAYER");
    else if (width == -2)
        line += QLatin1String("BYBLOCK");
    else if (width == -3)
        line += QLatin1String("DEFAULT");
    else
        line += QString::number(width);
    // dxflib mostly reports an empty line type as BYLAYER already; not all
    // of its entity readers do.
    const std::string type = attributes.getLinetype();
    line += QLatin1String(" Type: ") + (type.empty() ? QStringLiteral("BYLAYER") : decoder.Text(type))
        + QLatin1Char('\n');
    Print(line);
}

void DxfOutputCreationAdapter::setVariableString(const std::string& key, const std::string& value, int)
{
    decoder.SetVariable(key, value);
}

void DxfOutputCreationAdapter::addLayer(const DL_LayerData& data)
{
    Print(QStringLiteral("LAYER: %1 flags: %2\n").arg(decoder.Text(data.name), QString::number(data.flags)));
    printAttributes();
}

void DxfOutputCreationAdapter::addBlock(const DL_BlockData& data)
{
    Print(QStringLiteral("BLOCK: %1 flags: %2\n").arg(decoder.Text(data.name), QString::number(data.flags)));
}

void DxfOutputCreationAdapter::endBlock()
{
    Print(QStringLiteral("END-BLOCK"));
}

void DxfOutputCreationAdapter::addPoint(const DL_PointData& data)
{
    Print(QStringLiteral("POINT    (%1, %2, %3)\n").arg(number(data.x), number(data.y), number(data.z)));
    printAttributes();
}

void DxfOutputCreationAdapter::addLine(const DL_LineData& data)
{
    Print(
        QStringLiteral("LINE     (%1, %2, %3) (%4, %5, %6)\n")
            .arg(number(data.x1), number(data.y1), number(data.z1), number(data.x2), number(data.y2), number(data.z2)));
    printAttributes();
}

void DxfOutputCreationAdapter::addArc(const DL_ArcData& data)
{
    Print(QStringLiteral("ARC      (%1, %2, %3) %4, %5, %6\n")
              .arg(number(data.cx), number(data.cy), number(data.cz), number(data.radius), number(data.angle1),
                  number(data.angle2)));
    printAttributes();
}

void DxfOutputCreationAdapter::addCircle(const DL_CircleData& data)
{
    Print(QStringLiteral("CIRCLE   (%1, %2, %3) %4\n")
              .arg(number(data.cx), number(data.cy), number(data.cz), number(data.radius)));
    printAttributes();
}

void DxfOutputCreationAdapter::addPolyline(const DL_PolylineData& data)
{
    Print(QStringLiteral("POLYLINE \n"));
    Print(QStringLiteral("flags: %1\n").arg(int(data.flags)));
    printAttributes();
}

void DxfOutputCreationAdapter::addVertex(const DL_VertexData& data)
{
    Print(QStringLiteral("VERTEX   (%1, %2, %3) %4\n")
              .arg(number(data.x), number(data.y), number(data.z), number(data.bulge)));
    printAttributes();
}

void DxfOutputCreationAdapter::add3dFace(const DL_3dFaceData& data)
{
    Print(QStringLiteral("3DFACE\n"));
    for (int i = 0; i < 4; ++i)
        Print(QStringLiteral("   corner %1: %2 %3 %4\n")
                  .arg(QString::number(i), number(data.x[i]), number(data.y[i]), number(data.z[i])));
    printAttributes();
}

void DxfOutputCreationAdapter::addText(const DL_TextData& data)
{
    Print(QLatin1String("Text: ") + decoder.Text(data.text));
}

void DxfOutputCreationAdapter::addMText(const DL_MTextData& data)
{
    Print(QLatin1String("MText: ") + decoder.Text(data.text));
}

void DxfOutputCreationAdapter::addAttribute(const DL_AttributeData& data)
{
    Print(QLatin1String("Attribute: ") + decoder.Text(data.text));
}
