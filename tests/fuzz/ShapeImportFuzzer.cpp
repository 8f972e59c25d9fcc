// A shape file with its index, attribute table and code page file, as a
// user hands them over together, through every importer. The first byte
// picks the importer and its options; the rest holds the four files,
// separated by FuzzScratch::Separator.
#include <shapeimport/ImportBuildingFromShapeFile.h>
#include <shapeimport/ImportDistrictsFromShapeFile.h>
#include <shapeimport/ImportFieldManager.h>
#include <shapeimport/ImportRouteDataFromShapeFile.h>
#include <shapeimport/ImportSheetDataFromShapeFile.h>
#include <shapeimport/ShapeFileImporter.h>

#include <Kamo_view/GeoSystemSettings.h>

#include "FuzzScratch.h"

#include <QPainterPath>
#include <QVector>

namespace {

template <typename Importer> int run(Importer&& importer, const FuzzScratch& scratch, unsigned char options)
{
    importer.SetShapeFilename(scratch.Path(QStringLiteral("fuzz.shp")));
    // Every column of the table feeds a target field, in turn, so that each
    // kind of attribute read meets each column type.
    QVector<QString> columns;
    GetAvailableFieldNames(scratch.Path(QStringLiteral("fuzz.dbf")), columns);
    ImportFieldManager* fields = importer.GetImportFieldManager();
    const QList<int> targets = fields->GetTargetFields().keys();
    for (int i = 0; i < targets.size() && !columns.isEmpty(); ++i)
        fields->SetAssignment(targets.at(i), columns.at(i % columns.size()));
    if (options & 0x10) {
        // Gauss-Krüger zone 3 into UTM 32, the conversion users need most.
        importer.SetGeoSystemForImportFile(GeoSystemSettings::FromEpsg(31467));
        importer.SetGeoSystemForProject(GeoSystemSettings::FromEpsg(25832));
    }
    if (options & 0x20) {
        auto filter = QSharedPointer<QMap<QString, QPainterPath>>::create();
        QPainterPath area;
        area.addRect(3500000.0, 5800000.0, 50000.0, 50000.0);
        filter->insert(QStringLiteral("Bauabschnitt 1"), area);
        importer.SetGeoFilter(filter);
    }
    importer.Execute();
    return 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzScratch scratch;
    if (size < 1)
        return 0;
    const unsigned char options = data[0];
    const QList<QByteArray> parts = FuzzScratch::Split(FuzzScratch::Bytes(data + 1, size - 1), 4);
    for (int i = 0; i < 4; ++i)
        scratch.Write(QStringLiteral("fuzz.") + QStringList { "shp", "shx", "dbf", "cpg" }.at(i), parts.value(i));
    switch (options % 4) {
    case 0: {
        ImportSheetDataFromShapeFile sheets;
        sheets.SetCorrectVertexOrder(options & 0x40);
        sheets.SetScaleImportMode(
            options & 0x80 ? ImportSheetDataFromShapeFile::ssimFromTable : ImportSheetDataFromShapeFile::ssimFixed);
        sheets.SetPointSelectMode(
            options & 0x04 ? ImportSheetDataFromShapeFile::spsmManual : ImportSheetDataFromShapeFile::spsmAutomatic);
        sheets.SetIndexForPoint1(1);
        sheets.SetIndexForPoint2(3);
        run(sheets, scratch, options);
        QMap<int, QMap<QString, QList<PointF>>> scales;
        sheets.GetScalesMap(scales);
        return 0;
    }
    case 1:
        return run(ImportRouteDataFromShapeFile(), scratch, options);
    case 2:
        return run(ImportDistrictsFromShapeFile(), scratch, options);
    default:
        return run(ImportBuildingFromShapeFile(), scratch, options);
    }
}
