// The interface a host is built against: every facade method, the engine
// classes a host drives itself and the GK types, each with the exact
// signature the host's code uses. Taking each one's address makes the
// installed headers declare it (or the build fails) and the installed
// libraries export it (or the link fails). A change here is a change of the
// host interface: see docs/versioning.md before making one.
#include <Kamo_base/Vex.h>
#include <Kamo_view/GeoSystemSettings.h>
#include <Kamo_view/ProjectDescription.h>
#include <dialogs/DialogDxfTools.h>
#include <dialogs/DialogImportShapeFile.h>
#include <dialogs/DialogNodeTools.h>
#include <dxf/DxfCorrectionResult.h>
#include <dxf/DxfDrawing.h>
#include <dxf/DxfDump.h>
#include <dxf/DxfSheetExport.h>
#include <gk/CGKSheet.h>
#include <gk/CGKVector.h>
#include <gk/CGKVertex.h>
#include <gk/CRoutingTilesRevisor.h>
#include <gk/RectangleDetector.h>
#include <gk/VtxPosition.h>
#include <nodetools/AnalyzeProjectNT.h>
#include <nodetools/AnnotationFileProcessor.h>
#include <nodetools/ChangeHREFPathNT.h>
#include <nodetools/ChangeHREFTypeNT.h>
#include <nodetools/ChangeHREFTypeToStandardNT.h>
#include <nodetools/ChangePageNumberNT.h>
#include <nodetools/ConvertFreeHandPinsNT.h>
#include <nodetools/DuplicateHREFInAnnotationsNT.h>
#include <nodetools/HREFPathMap.h>
#include <nodetools/ModifyAnnotationTargetsNT.h>
#include <nodetools/NodeOperationCatalogue.h>
#include <nodetools/NodeOperationOptions.h>
#include <nodetools/NodeToolBackup.h>
#include <nodetools/RemoveHREFInAnnotationNT.h>
#include <nodetools/ReplaceNameInAnnotationsNT.h>
#include <nodetools/SetAnnotationPropertiesNT.h>
#include <shapeimport/FieldAssignmentFile.h>
#include <shapeimport/ImportBuildingFromShapeFile.h>
#include <shapeimport/ImportDistrictsFromShapeFile.h>
#include <shapeimport/ImportFieldManager.h>
#include <shapeimport/ImportRouteDataFromShapeFile.h>
#include <shapeimport/ImportSheetDataFromShapeFile.h>
#include <shapeimport/ShapeFileImporter.h>
#include <shapeimport/ShapeImportJob.h>

#include <cstddef>

namespace {

template <typename Class, typename Signature> using Method = Signature Class::*;
template <typename Signature> using Function = Signature*;

// Written byte by byte through a volatile sink, the address cannot be
// optimised away: a missing export is a link error in every build type.
volatile unsigned char sink;
int checked = 0;

template <typename Pointer> void need(Pointer pointer)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(&pointer);
    for (std::size_t i = 0; i < sizeof pointer; ++i)
        sink = bytes[i];
    ++checked;
}

} // namespace

#define NEED_METHOD(Class, name, ...) need(static_cast<Method<Class, __VA_ARGS__>>(&Class::name))
#define NEED_FUNCTION(name, ...) need(static_cast<Function<__VA_ARGS__>>(&name))

int checkHostInterface()
{
    using Pins = QMap<QString, QMap<int, QList<PinObject>>>;

    // clang-format reads a signature inside a macro argument as an
    // expression and would space `ImportFieldManager*() const` apart.
    // clang-format off

    // The facades: what the host calls to show each tool family.
    NEED_METHOD(DialogNodeTools, SetProjectId, void(const QString&));
    NEED_METHOD(DialogNodeTools, SetProjectName, void(const QString&));
    NEED_METHOD(DialogNodeTools, SetProjectRootDir, void(const QString&));
    NEED_METHOD(DialogNodeTools, SetSettings, void(QSettings*));
    NEED_METHOD(DialogNodeTools, SetSourceTreeWidget, void(TreeWidget*));
    NEED_METHOD(DialogNodeTools, SetNodesMap, void(QMap<int, NodeInfo*>*));
    NEED_METHOD(DialogNodeTools, SetTableMap, void(QMap<int, TableInfo*>*));
    NEED_METHOD(DialogNodeTools, SetParticipantsMap, void(QMap<int, ParticipantInfo*>*));
    NEED_METHOD(DialogNodeTools, SetGalleryMap, void(QMap<int, GalleryInfo*>*));
    NEED_METHOD(DialogNodeTools, SetFilesMap, void(QMap<QString, NodeFileInfo>*));
    NEED_METHOD(DialogNodeTools, SetFilesPinMap, void(Pins*));
    NEED_METHOD(DialogNodeTools, ShowModal, void());
    NEED_METHOD(DialogNodeTools, GetProjectRootDir, const QString&() const);

    using Shape = DialogImportShapeFile;
    NEED_METHOD(Shape, SetImportMode, void(Shape::ImportMode));
    NEED_METHOD(Shape, GetImportMode, Shape::ImportMode() const);
    NEED_METHOD(Shape, SetShapeFilename, void(const QString&));
    NEED_METHOD(Shape, GetShapeFilename, QString() const);
    NEED_METHOD(Shape, SetGeoSystemForProject, void(const GeoSystemSettings&));
    NEED_METHOD(Shape, SetGeoSystemForImportFile, void(const GeoSystemSettings&));
    NEED_METHOD(Shape, GetGeoSystemForImportFile, GeoSystemSettings() const);
    NEED_METHOD(Shape, SetGeoFilter, void(QSharedPointer<QMap<QString, QPainterPath>>));
    NEED_METHOD(Shape, SetCorrectVertexOrder, void(bool));
    NEED_METHOD(Shape, SetPointSelectMode, void(int));
    NEED_METHOD(Shape, SetIndexForPoint1, void(int));
    NEED_METHOD(Shape, SetIndexForPoint2, void(int));
    NEED_METHOD(Shape, SetScaleImportMode, void(int));
    NEED_METHOD(Shape, SetFixedScale, void(int));
    NEED_METHOD(Shape, SetPageAdditionalText, void(const QString&));
    NEED_METHOD(Shape, SetDefaultVariant, void(const QString&));
    NEED_METHOD(Shape, SetFilesToProcess, void(const QStringList&));
    NEED_METHOD(Shape, GetFilesToProcess, QStringList() const);
    NEED_METHOD(Shape, Initialize, void());
    NEED_METHOD(Shape, Execute, bool());
    NEED_METHOD(Shape, SaveToImportFieldManager, void(ImportFieldManager*) const);
    NEED_METHOD(Shape, GetScalesMap, void(QMap<int, QMap<QString, QList<PointF>>>&) const);
    NEED_METHOD(Shape, GetRoads, const QList<RoadObject>&() const);
    NEED_METHOD(Shape, GetDistrictPieces, const QList<DistrictPiece>&() const);
    NEED_METHOD(Shape, GetBuildings, const QList<BuildingObject>&() const);
    NEED_METHOD(Shape, GetLastErrorMessage, QString() const);
    NEED_METHOD(Shape, GetWarnings, QStringList() const);

    NEED_METHOD(DialogDxfTools, SetDxfFilename, void(const QString&));
    NEED_METHOD(DialogDxfTools, Initialize, void());
    NEED_METHOD(DialogDxfTools, ShowModal, void());

    // Node tools a host runs without the dialog.
    NEED_METHOD(NodeTool, Execute, void());
    NEED_METHOD(NodeTool, GetFilesExamined, int() const);
    NEED_METHOD(NodeTool, GetFilesChanged, int() const);
    NEED_METHOD(NodeTool, HasOwnResultView, bool() const);
    NEED_METHOD(NodeTool, ShowResult, void(QWidget*));
    NEED_METHOD(NodeTool, SetProgressCallback, void(ProgressCallback*));
    NEED_METHOD(BlockNodeTool, SetProjectRootDir, void(const QString&));
    NEED_METHOD(BlockNodeTool, SetFileNames, void(const QStringList&));
    NEED_METHOD(BlockNodeTool, SetAllAnnotationFiles, void(bool));
    NEED_METHOD(BlockNodeTool, SetDryRun, void(bool));
    NEED_METHOD(BlockNodeTool, FileProcessor, const AnnotationFileProcessor&() const);
    NEED_METHOD(RemoveHREFInAnnotationNT, SetCategoryFilter, void(const QString&));
    NEED_METHOD(DuplicateHREFInAnnotationsNT, SetCategoryFilter, void(const QString&));
    NEED_METHOD(DuplicateHREFInAnnotationsNT, SetNewLinkTarget, void(const QString&));
    NEED_METHOD(ChangeHREFPathNT, SetPathMap, void(const QMap<QString, QString>&));
    NEED_METHOD(ChangeHREFTypeNT, SetCategoryFilter, void(const QString&));
    NEED_METHOD(ChangeHREFTypeNT, SetNodesMap, void(QMap<int, NodeInfo*>*));
    NEED_METHOD(ChangeHREFTypeNT, SetFilesMap, void(QMap<QString, NodeFileInfo>*));
    NEED_METHOD(ChangeHREFTypeToStandardNT, SetCategoryFilter, void(const QString&));
    NEED_METHOD(ChangeHREFTypeToStandardNT, SetTargetZone, void(int));
    NEED_METHOD(ChangeHREFTypeToStandardNT, SetNodesMap, void(QMap<int, NodeInfo*>*));
    NEED_METHOD(ChangeHREFTypeToStandardNT, SetFilesMap, void(QMap<QString, NodeFileInfo>*));
    NEED_METHOD(ChangePageNumberNT, SetCategoryFilter, void(const QString&));
    NEED_METHOD(ChangePageNumberNT, SetNameFilter, void(const QString&));
    NEED_METHOD(ChangePageNumberNT, SetPageDelta, void(int));
    NEED_METHOD(ConvertFreeHandPinsNT, SetFilesPinMap, void(Pins*));
    NEED_METHOD(ModifyAnnotationTargetsNT, SetCategoryFilter, void(const QString&));
    NEED_METHOD(ModifyAnnotationTargetsNT, SetNameFilter, void(const QString&));
    NEED_METHOD(ModifyAnnotationTargetsNT, SetUseTargetIndexFilter, void(bool));
    NEED_METHOD(ModifyAnnotationTargetsNT, SetTargetIndex, void(unsigned));
    NEED_METHOD(ModifyAnnotationTargetsNT, SetUseEnvFactor, void(bool));
    NEED_METHOD(ModifyAnnotationTargetsNT, SetEnvFactor, void(float));
    NEED_METHOD(ReplaceNameInAnnotationsNT, SetNodesMap, void(QMap<int, NodeInfo*>*));
    NEED_METHOD(ReplaceNameInAnnotationsNT, SetIgnorePathOnCompare, void(bool));
    NEED_METHOD(SetAnnotationPropertiesNT, SetCategoryFilter, void(const QString&));
    NEED_METHOD(SetAnnotationPropertiesNT, SetNameFilter, void(const QString&));
    NEED_METHOD(SetAnnotationPropertiesNT, SetNameOption, void(bool, const QString&));
    NEED_METHOD(SetAnnotationPropertiesNT, SetTextOption, void(bool, const QString&));
    NEED_METHOD(SetAnnotationPropertiesNT, SetDimensionOption, void(bool, const AnnotationDimensionOptions&));
    NEED_METHOD(AnalyzeProjectNT, SetProjectRootDir, void(const QString&));
    NEED_METHOD(AnalyzeProjectNT, SetNodesMap, void(QMap<int, NodeInfo*>*));
    NEED_METHOD(AnalyzeProjectNT, SetFilesMap, void(QMap<QString, NodeFileInfo>*));
    NEED_METHOD(AnalyzeProjectNT, GetReferencedFiles, const QMap<QString, QString>&() const);
    NEED_METHOD(AnalyzeProjectNT, GetUsedAnnotationFiles, const QStringList&() const);
    NEED_METHOD(AnalyzeProjectNT, GetUnusedAnnotationFiles, const QStringList&() const);
    NEED_METHOD(AnalyzeProjectNT, GetDocumentsWithoutAnnotations, const QStringList&() const);
    NEED_METHOD(AnnotationFileProcessor, Run, void(ObjectBlockProcessor&));
    NEED_METHOD(AnnotationFileProcessor, GetChangedFiles, const QStringList&() const);
    NEED_METHOD(AnnotationFileProcessor, GetWarnings, const QStringList&() const);
    NEED_METHOD(AnnotationFileProcessor, GetLeftOutFiles, const QStringList&() const);
    NEED_FUNCTION(AnnotationFileProcessor::ProcessText, bool(QString&, ObjectBlockProcessor&, int*));
    NEED_FUNCTION(AnnotationFileProcessor::PreviewFile,
        bool(const QString&, ObjectBlockProcessor&, QByteArray*, QByteArray*));
    NEED_FUNCTION(AnnotationFileProcessor::DataDirectory, QString(const QString&));
    NEED_METHOD(NodeToolBackup, Create, bool());
    NEED_METHOD(NodeToolBackup, Restore, bool(const QString&, QStringList*, bool));
    NEED_METHOD(NodeToolBackup, GetProblems, const QList<NodeToolBackupCheck::Problem>&() const);
    NEED_METHOD(NodeToolBackupCheck, CheckNext, bool(QString*, QByteArray*, bool*));
    NEED_METHOD(NodeToolBackupCheck, GetState, NodeToolBackupCheck::State() const);
    NEED_FUNCTION(NodeToolBackup::List, QList<NodeToolBackupInfo>(const QString&));
    NEED_FUNCTION(NodeToolBackup::LogText, QString(const QString&, const QString&));
    NEED_FUNCTION(NodeOperationCatalogue::Create, std::unique_ptr<NodeTool>(int, const NodeOperationOptions&));
    NEED_FUNCTION(NodeOperationCatalogue::Options, int(int));
    NEED_FUNCTION(NodeOperationCatalogue::Name, QString(int));
    NEED_FUNCTION(NodeOperationCatalogue::FromName, int(const QString&));
    NEED_FUNCTION(LoadHREFPathMap, QMap<QString, QString>(const QString&));

    // Shape-file import without the dialog.
    NEED_METHOD(ShapeImportJob, GetImportMode, ShapeImportJob::ImportMode() const);
    NEED_FUNCTION(ShapeImportJob::ImportModeName, QString(int));
    NEED_METHOD(ShapeImportJob, GetTargetFields, const QMap<int, QString>&() const);
    NEED_METHOD(ShapeImportJob, SetFiles, void(const QString&, const QString&));
    NEED_METHOD(ShapeImportJob, SetGeoSystemForImportFile, void(const GeoSystemSettings&));
    NEED_METHOD(ShapeImportJob, SetGeoSystemForProject, void(const GeoSystemSettings&));
    NEED_METHOD(ShapeImportJob, SetGeoFilter, void(QSharedPointer<QMap<QString, QPainterPath>>));
    NEED_METHOD(ShapeImportJob, SetCorrectVertexOrder, void(bool));
    NEED_METHOD(ShapeImportJob, SetPointSelectMode, void(int));
    NEED_METHOD(ShapeImportJob, SetIndexForPoint1, void(int));
    NEED_METHOD(ShapeImportJob, SetIndexForPoint2, void(int));
    NEED_METHOD(ShapeImportJob, SetScaleImportMode, void(int));
    NEED_METHOD(ShapeImportJob, SetFixedScale, void(int));
    NEED_METHOD(ShapeImportJob, SetPageAdditionalText, void(const QString&));
    NEED_METHOD(ShapeImportJob, SetDefaultVariant, void(const QString&));
    NEED_METHOD(ShapeImportJob, CheckAssignment, ShapeImportJob::AssignmentCheck(int, const QString&) const);
    NEED_METHOD(ShapeImportJob, Assign, ShapeImportJob::AssignmentCheck(int, const QString&));
    NEED_METHOD(ShapeImportJob, Run, bool());
    NEED_METHOD(ShapeImportJob, GetLastErrorMessage, QString() const);
    NEED_METHOD(ShapeImportJob, GetWarnings, QStringList() const);
    NEED_METHOD(ShapeImportJob, GetScalesMap, void(QMap<int, QMap<QString, QList<PointF>>>&) const);
    NEED_METHOD(ShapeImportJob, GetRoads, const QList<RoadObject>&() const);
    NEED_METHOD(ShapeImportJob, GetDistrictPieces, const QList<DistrictPiece>&() const);
    NEED_METHOD(ShapeImportJob, GetBuildings, const QList<BuildingObject>&() const);
    NEED_FUNCTION(MakeShapeDbFilenameFromShapeFilename, QString(const QString&));
    NEED_FUNCTION(GetAvailableFieldNames, void(const QString&, QVector<QString>&));
    NEED_METHOD(ShapeFileImporter, SetShapeFilename, void(const QString&));
    NEED_METHOD(ShapeFileImporter, SetShapeDbFilename, void(const QString&));
    NEED_METHOD(ShapeFileImporter, SetGeoSystemForProject, void(GeoSystemSettings));
    NEED_METHOD(ShapeFileImporter, SetGeoSystemForImportFile, void(GeoSystemSettings));
    NEED_METHOD(ShapeFileImporter, GetImportFieldManager, ImportFieldManager*() const);
    NEED_METHOD(ShapeFileImporter, GetLastErrorMessage, QString() const);
    NEED_METHOD(ShapeFileImporter, GetWarnings, QStringList() const);
    NEED_METHOD(ImportSheetDataFromShapeFile, Execute, bool());
    NEED_METHOD(ImportSheetDataFromShapeFile, GetScalesMap, void(QMap<int, QMap<QString, QList<PointF>>>&) const);
    NEED_METHOD(ImportRouteDataFromShapeFile, Execute, bool());
    NEED_METHOD(ImportRouteDataFromShapeFile, GetRoads, const QList<RoadObject>&() const);
    NEED_METHOD(ImportDistrictsFromShapeFile, Execute, bool());
    NEED_METHOD(ImportDistrictsFromShapeFile, GetDistrictPieces, const QList<DistrictPiece>&() const);
    NEED_METHOD(ImportBuildingFromShapeFile, Execute, bool());
    NEED_METHOD(ImportBuildingFromShapeFile, GetBuildings, const QList<BuildingObject>&() const);
    NEED_METHOD(ImportFieldManager, SetAssignment, void(int, const QString&));
    NEED_METHOD(ImportFieldManager, GetAssignedColumn, QString(int) const);
    NEED_FUNCTION(FieldAssignmentFile::Read, FieldAssignmentFile::Status(const QString&, QMap<QString, int>&));
    NEED_FUNCTION(FieldAssignmentFile::Write, bool(const QString&, const QList<QPair<QString, int>>&, QString*));

    // The DXF workbench's engine.
    NEED_FUNCTION(DxfDrawing::Read, bool(const QString&, DxfDrawing&, QString*));
    NEED_METHOD(DxfDrawing, UseInsertsOfBlocks, void(const QRegularExpression&));
    NEED_FUNCTION(DxfSheetExport::CorrectVertexPositions, QStringList(DxfDrawing&, DxfCorrectionResult&));
    NEED_FUNCTION(DxfSheetExport::ExportGK2, bool(const DxfDrawing&, const QString&, int*, QString*));
    NEED_FUNCTION(DxfDump::DumpFileToText, bool(const QString&, QString&, QString*));
    NEED_FUNCTION(DxfDump::CheckFile, QString(const QString&));

    // The GK types.
    NEED_METHOD(GK::CGKVertex, Distance, double(const GK::CGKVertex&) const);
    NEED_METHOD(GK::CGKVertex, Rotate, void(double));
    NEED_METHOD(GK::CGKVector, Setup, void(const GK::CGKVertex&, const GK::CGKVertex&));
    NEED_METHOD(GK::CGKVector, CrossProductZ, double(const GK::CGKVector&) const);
    NEED_METHOD(GK::CGKSheet, Setup, void());
    NEED_METHOD(GK::CGKSheet, GetLongSides, bool(const GK::CGKVector**) const);
    NEED_METHOD(GK::CGKSheet, GetShortSides, bool(const GK::CGKVector**) const);
    NEED_METHOD(GK::CRoutingTilesRevisor, Revise, GK::CRoutingTilesRevisor::GKError());
    NEED_METHOD(GK::CRoutingTilesRevisor, Ensemble, std::vector<GK::CGKSheet>&() const);
    NEED_FUNCTION(GK::VtxPositionText, QString(GK::VtxPosition));
    NEED_METHOD(RectangleDetector, Analyze, void(QList<QList<YPoint>>&) const);
    NEED_FUNCTION(RectangleDetector::IsRectangle, bool(const YPoint&, const YPoint&, const YPoint&, const YPoint&));

    // The host's own libraries as the tools call them.
    NEED_FUNCTION(Vex::GetCurrentUserName, QString());
    NEED_FUNCTION(GeoSystemSettings::FromEpsg, GeoSystemSettings(int));
    NEED_FUNCTION(ChangeGeoSystemEx, bool(double&, double&, const GeoSystemSettings&, const GeoSystemSettings&, bool));
    NEED_METHOD(ProjectDescription, Load, bool(const QString&));
    // clang-format on

    return checked;
}
