#include "SheetDrawingText.h"

#include <QList>
#include <QPair>

#include <algorithm>

QByteArray SheetDrawingNumber(int i)
{
    return QByteArray::number(1000 + i);
}

namespace {

const double east = 3512000.0;
const double north = 5798000.0;
const double sheetWidth = 400.0;
const double sheetHeight = 280.0;

// Drawings carry the sheet number under either spelling; a few use the
// second so that both paths of the lookup are exercised.
QByteArray sheetNumberTag(int i)
{
    return i % 7 == 3 ? QByteArrayLiteral("Bl_Nr") : QByteArrayLiteral("BL_NR");
}

class DxfText
{
public:
    void group(int code, const QByteArray& value)
    {
        // Codes right-aligned in three columns, as most writers do.
        text += QByteArray::number(code).rightJustified(3, ' ');
        text += '\n';
        text += value;
        text += '\n';
    }
    void group(int code, double value) { group(code, QByteArray::number(value, 'f', 3)); }
    void group(int code, int value) { group(code, QByteArray::number(value)); }

    QByteArray text;
};

void writeLayer(DxfText& dxf, const QByteArray& name, int colour)
{
    dxf.group(0, QByteArrayLiteral("LAYER"));
    dxf.group(2, name);
    dxf.group(70, 0);
    dxf.group(62, colour);
    dxf.group(6, QByteArrayLiteral("CONTINUOUS"));
}

void writeFrameBlock(DxfText& dxf, int i, int perRow)
{
    const double x0 = east + (i % perRow) * sheetWidth;
    const double y0 = north - (i / perRow) * sheetHeight;
    QList<QPair<double, double>> vertices
        = { { x0, y0 }, { x0 + sheetWidth, y0 }, { x0 + sheetWidth, y0 + sheetHeight }, { x0, y0 + sheetHeight } };
    // Frames drawn in pieces carry extra vertices along a side.
    if (i % 5 == 1)
        vertices.insert(1, { x0 + sheetWidth / 2, y0 });
    if (i % 11 == 2)
        vertices.insert(vertices.size() - 1, { x0 + sheetWidth, y0 + sheetHeight / 3 });

    dxf.group(0, QByteArrayLiteral("BLOCK"));
    dxf.group(8, QByteArrayLiteral("0"));
    dxf.group(2, QByteArrayLiteral("BLATT_") + QByteArray::number(i));
    dxf.group(70, 2);
    dxf.group(10, 0.0);
    dxf.group(20, 0.0);
    dxf.group(30, 0.0);
    dxf.group(0, QByteArrayLiteral("LWPOLYLINE"));
    dxf.group(8, QByteArrayLiteral("BLATTSCHNITT"));
    dxf.group(90, int(vertices.size()));
    dxf.group(70, 1);
    for (const auto& vertex : vertices) {
        dxf.group(10, vertex.first);
        dxf.group(20, vertex.second);
    }
    dxf.group(0, QByteArrayLiteral("ENDBLK"));
    dxf.group(8, QByteArrayLiteral("0"));
}

void writeAttribute(DxfText& dxf, const QByteArray& tag, const QByteArray& text)
{
    dxf.group(0, QByteArrayLiteral("ATTRIB"));
    dxf.group(8, QByteArrayLiteral("BLATTSCHNITT"));
    dxf.group(10, 0.0);
    dxf.group(20, 0.0);
    dxf.group(30, 0.0);
    dxf.group(40, 2.5);
    dxf.group(1, text);
    dxf.group(2, tag);
    dxf.group(70, 0);
}

void writeInsert(DxfText& dxf, int i)
{
    // Frames are in world coordinates, so every insert sits at the origin.
    dxf.group(0, QByteArrayLiteral("INSERT"));
    dxf.group(8, QByteArrayLiteral("BLATTSCHNITT"));
    dxf.group(66, 1);
    dxf.group(2, QByteArrayLiteral("BLATT_") + QByteArray::number(i));
    dxf.group(10, 0.0);
    dxf.group(20, 0.0);
    dxf.group(30, 0.0);
    writeAttribute(dxf, sheetNumberTag(i), SheetDrawingNumber(i));
    writeAttribute(dxf, QByteArrayLiteral("MASSSTAB"), QByteArrayLiteral("1:1000"));
    dxf.group(0, QByteArrayLiteral("SEQEND"));
    dxf.group(8, QByteArrayLiteral("BLATTSCHNITT"));
}

} // namespace

QByteArray SheetDrawingText(int inserts, int rows)
{
    // A few long rows, as a route along a road or a river runs.
    if (rows <= 0)
        rows = inserts >= 1000 ? 4 : 2;
    const int perRow = std::max(1, (inserts + rows - 1) / rows);
    DxfText dxf;
    dxf.text.reserve(inserts * 900);
    dxf.group(0, QByteArrayLiteral("SECTION"));
    dxf.group(2, QByteArrayLiteral("HEADER"));
    dxf.group(9, QByteArrayLiteral("$ACADVER"));
    dxf.group(1, QByteArrayLiteral("AC1015"));
    dxf.group(0, QByteArrayLiteral("ENDSEC"));
    dxf.group(0, QByteArrayLiteral("SECTION"));
    dxf.group(2, QByteArrayLiteral("TABLES"));
    dxf.group(0, QByteArrayLiteral("TABLE"));
    dxf.group(2, QByteArrayLiteral("LAYER"));
    dxf.group(70, 2);
    writeLayer(dxf, QByteArrayLiteral("0"), 7);
    writeLayer(dxf, QByteArrayLiteral("BLATTSCHNITT"), 1);
    dxf.group(0, QByteArrayLiteral("ENDTAB"));
    dxf.group(0, QByteArrayLiteral("ENDSEC"));
    dxf.group(0, QByteArrayLiteral("SECTION"));
    dxf.group(2, QByteArrayLiteral("BLOCKS"));
    for (int i = 0; i < inserts; ++i)
        writeFrameBlock(dxf, i, perRow);
    dxf.group(0, QByteArrayLiteral("ENDSEC"));
    dxf.group(0, QByteArrayLiteral("SECTION"));
    dxf.group(2, QByteArrayLiteral("ENTITIES"));
    for (int i = 0; i < inserts; ++i)
        writeInsert(dxf, i);
    dxf.group(0, QByteArrayLiteral("ENDSEC"));
    dxf.group(0, QByteArrayLiteral("EOF"));
    return dxf.text;
}
