#include "DxfOutputCreationAdapter.h"

#include <QCoreApplication>
#include <QPlainTextEdit>

DxfOutputCreationAdapter::DxfOutputCreationAdapter(QPlainTextEdit* output, QObject* context, QString* textSink)
    : output(output)
    , context(context)
    , textSink(textSink)
{ }

void DxfOutputCreationAdapter::Print(const QString& text)
{
    if (stop && *stop)
        return;
    if (textSink) {
        // appendPlainText starts a new paragraph unless the document is
        // still empty; the sink has to read the same as the widget.
        if (!textSink->isEmpty())
            textSink->append(QLatin1Char('\n'));
        textSink->append(text);
    }
    if (!output)
        return;
    output->appendPlainText(text);
    // A large drawing reads for a while; the listing should grow visibly.
    output->repaint();
    QCoreApplication::processEvents();
}

void DxfOutputCreationAdapter::printAttributes()
{
    QString line = QString::asprintf("  Attributes: Layer: %s, ", attributes.getLayer().c_str());
    line += QLatin1String(" Color: ");
    const int color = attributes.getColor();
    if (color == 256)
        line += QLatin1String("BYLAYER");
    else if (color == 0)
        line += QLatin1String("BYBLOCK");
    else
        line += QString::asprintf("%d", color);
    line += QLatin1String(" Width: ");
    const int width = attributes.getWidth();
    if (width == -1)
        line += QLatin1String("BYLAYER");
    else if (width == -2)
        line += QLatin1String("BYBLOCK");
    else if (width == -3)
        line += QLatin1String("DEFAULT");
    else
        line += QString::asprintf("%d", width);
    // dxflib mostly reports an empty line type as BYLAYER already; not all
    // of its entity readers do.
    const std::string type = attributes.getLinetype();
    line += QString::asprintf(" Type: %s\n", type.empty() ? "BYLAYER" : type.c_str());
    Print(line);
}

void DxfOutputCreationAdapter::addLayer(const DL_LayerData& data)
{
    Print(QString::asprintf("LAYER: %s flags: %d\n", data.name.c_str(), data.flags));
    printAttributes();
}

void DxfOutputCreationAdapter::addBlock(const DL_BlockData& data)
{
    Print(QString::asprintf("BLOCK: %s flags: %d\n", data.name.c_str(), data.flags));
}

void DxfOutputCreationAdapter::endBlock()
{
    Print(QStringLiteral("END-BLOCK"));
}

void DxfOutputCreationAdapter::addPoint(const DL_PointData& data)
{
    Print(QString::asprintf("POINT    (%6.3f, %6.3f, %6.3f)\n", data.x, data.y, data.z));
    printAttributes();
}

void DxfOutputCreationAdapter::addLine(const DL_LineData& data)
{
    Print(QString::asprintf("LINE     (%6.3f, %6.3f, %6.3f) (%6.3f, %6.3f, %6.3f)\n", data.x1, data.y1, data.z1,
        data.x2, data.y2, data.z2));
    printAttributes();
}

void DxfOutputCreationAdapter::addArc(const DL_ArcData& data)
{
    Print(QString::asprintf("ARC      (%6.3f, %6.3f, %6.3f) %6.3f, %6.3f, %6.3f\n", data.cx, data.cy, data.cz,
        data.radius, data.angle1, data.angle2));
    printAttributes();
}

void DxfOutputCreationAdapter::addCircle(const DL_CircleData& data)
{
    Print(QString::asprintf("CIRCLE   (%6.3f, %6.3f, %6.3f) %6.3f\n", data.cx, data.cy, data.cz, data.radius));
    printAttributes();
}

void DxfOutputCreationAdapter::addPolyline(const DL_PolylineData& data)
{
    Print(QStringLiteral("POLYLINE \n"));
    Print(QString::asprintf("flags: %d\n", int(data.flags)));
    printAttributes();
}

void DxfOutputCreationAdapter::addVertex(const DL_VertexData& data)
{
    Print(QString::asprintf("VERTEX   (%6.3f, %6.3f, %6.3f) %6.3f\n", data.x, data.y, data.z, data.bulge));
    printAttributes();
}

void DxfOutputCreationAdapter::add3dFace(const DL_3dFaceData& data)
{
    Print(QStringLiteral("3DFACE\n"));
    for (int i = 0; i < 4; ++i)
        Print(QString::asprintf("   corner %d: %6.3f %6.3f %6.3f\n", i, data.x[i], data.y[i], data.z[i]));
    printAttributes();
}

void DxfOutputCreationAdapter::addText(const DL_TextData& data)
{
    Print(QString::asprintf("Text: %s", data.text.c_str()));
}

void DxfOutputCreationAdapter::addMText(const DL_MTextData& data)
{
    Print(QString::asprintf("MText: %s", data.text.c_str()));
}

void DxfOutputCreationAdapter::addAttribute(const DL_AttributeData& data)
{
    Print(QString::asprintf("Attribute: %s", data.text.c_str()));
}
