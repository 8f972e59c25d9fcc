#include "nodetools/NodeOperationCatalogue.h"

#include "nodetools/AnalyzeProjectNT.h"
#include "nodetools/ChangeHREFPathNT.h"
#include "nodetools/ChangeHREFTypeNT.h"
#include "nodetools/ChangeHREFTypeToStandardNT.h"
#include "nodetools/ChangePageNumberNT.h"
#include "nodetools/ConvertFreeHandPinsNT.h"
#include "nodetools/DuplicateHREFInAnnotationsNT.h"
#include "nodetools/ModifyAnnotationTargetsNT.h"
#include "nodetools/NodeOperationOptions.h"
#include "nodetools/RemoveHREFInAnnotationNT.h"
#include "nodetools/ReplaceNameInAnnotationsNT.h"
#include "nodetools/SetAnnotationPropertiesNT.h"

#include <Kamo_view/PinObject.h>

namespace {

struct Entry {
    const char* name;
    int options;
};

using Catalogue = NodeOperationCatalogue;

// By operation number. The dialog shows the name filter for 1 to 3 too, but
// those operations never took it: the filter stays theirs alone.
const Entry entries[Catalogue::Count] = {
    { "match-names", Catalogue::IgnorePath | Catalogue::AllFilesOnly | Catalogue::NeedsNodes | Catalogue::WritesFiles },
    { "remove-href", Catalogue::CategoryFilter | Catalogue::WritesFiles },
    { "duplicate-href", Catalogue::CategoryFilter | Catalogue::NewLinkTarget | Catalogue::WritesFiles },
    { "href-to-split", Catalogue::CategoryFilter | Catalogue::UsesNodes | Catalogue::WritesFiles },
    { "convert-pins", Catalogue::NeedsNodes | Catalogue::WritesFiles },
    { "map-href-paths", Catalogue::PathMap | Catalogue::WritesFiles },
    { "set-properties",
        Catalogue::CategoryFilter | Catalogue::NameFilter | Catalogue::Properties | Catalogue::WritesFiles },
    { "analyze", Catalogue::NeedsNodes },
    { "href-to-standard",
        Catalogue::CategoryFilter | Catalogue::TargetZone | Catalogue::UsesNodes | Catalogue::WritesFiles },
    { "modify-targets",
        Catalogue::CategoryFilter | Catalogue::NameFilter | Catalogue::TargetOptions | Catalogue::WritesFiles },
    { "change-pages",
        Catalogue::CategoryFilter | Catalogue::NameFilter | Catalogue::PageDelta | Catalogue::WritesFiles },
};

bool valid(int operation)
{
    return operation >= 0 && operation < Catalogue::Count;
}

} // namespace

int NodeOperationCatalogue::Options(int operation)
{
    return valid(operation) ? entries[operation].options : 0;
}

QString NodeOperationCatalogue::Name(int operation)
{
    return valid(operation) ? QLatin1String(entries[operation].name) : QString();
}

int NodeOperationCatalogue::FromName(const QString& name)
{
    for (int operation = 0; operation < Count; ++operation) {
        if (name == QLatin1String(entries[operation].name))
            return operation;
    }
    return -1;
}

std::unique_ptr<NodeTool> NodeOperationCatalogue::Create(int operation, const NodeOperationOptions& options)
{
    const int takes = Options(operation);
    const QString category = takes & CategoryFilter ? options.categoryFilter : QString();
    const QString name = takes & NameFilter ? options.nameFilter : QString();
    // The files of every block-based tool: the chosen documents or all.
    const auto files = [&options](BlockNodeTool* tool) {
        tool->SetProjectRootDir(options.projectRootDir);
        if (options.allFiles)
            tool->SetAllAnnotationFiles(true);
        else
            tool->SetFileNames(options.documents);
        tool->SetDryRun(options.dryRun);
        return std::unique_ptr<NodeTool>(tool);
    };

    switch (operation) {
    case MatchNames: {
        auto* tool = new ReplaceNameInAnnotationsNT;
        tool->SetNodesMap(options.nodes);
        tool->SetIgnorePathOnCompare(options.ignorePathOnCompare);
        tool->SetProjectRootDir(options.projectRootDir);
        tool->SetAllAnnotationFiles(true);
        tool->SetDryRun(options.dryRun);
        return std::unique_ptr<NodeTool>(tool);
    }
    case RemoveHREF: {
        auto* tool = new RemoveHREFInAnnotationNT;
        tool->SetCategoryFilter(category);
        return files(tool);
    }
    case DuplicateHREF: {
        auto* tool = new DuplicateHREFInAnnotationsNT;
        tool->SetCategoryFilter(category);
        tool->SetNewLinkTarget(options.newLinkTarget);
        return files(tool);
    }
    case HREFToSplit: {
        auto* tool = new ChangeHREFTypeNT;
        tool->SetCategoryFilter(category);
        tool->SetNodesMap(options.nodes);
        tool->SetFilesMap(options.files);
        return files(tool);
    }
    case ConvertPins: {
        auto* tool = new ConvertFreeHandPinsNT;
        tool->SetFilesPinMap(options.pins);
        tool->SetProjectRootDir(options.projectRootDir);
        // Pins belong to documents: "all" means every document with pins.
        const QStringList withPins = options.pins ? options.pins->keys() : QStringList();
        tool->SetFileNames(options.allFiles ? withPins : options.documents);
        tool->SetDryRun(options.dryRun);
        return std::unique_ptr<NodeTool>(tool);
    }
    case MapHREFPaths: {
        auto* tool = new ChangeHREFPathNT;
        tool->SetPathMap(options.pathMap);
        return files(tool);
    }
    case SetProperties: {
        auto* tool = new SetAnnotationPropertiesNT;
        tool->SetCategoryFilter(category);
        tool->SetNameFilter(name);
        tool->SetNameOption(options.setName, options.name);
        tool->SetTextOption(options.setText, options.text);
        tool->SetDimensionOption(options.setDimensions, options.dimensions);
        return files(tool);
    }
    case Analyze: {
        auto* tool = new AnalyzeProjectNT;
        tool->SetProjectRootDir(options.projectRootDir);
        tool->SetNodesMap(options.nodes);
        tool->SetFilesMap(options.files);
        return std::unique_ptr<NodeTool>(tool);
    }
    case HREFToStandard: {
        auto* tool = new ChangeHREFTypeToStandardNT;
        tool->SetCategoryFilter(category);
        tool->SetNodesMap(options.nodes);
        tool->SetFilesMap(options.files);
        tool->SetTargetZone(options.targetZone);
        return files(tool);
    }
    case ModifyTargets: {
        auto* tool = new ModifyAnnotationTargetsNT;
        tool->SetCategoryFilter(category);
        tool->SetNameFilter(name);
        tool->SetUseTargetIndexFilter(options.useTargetIndex);
        tool->SetTargetIndex(options.targetIndex);
        tool->SetUseEnvFactor(options.useEnvFactor);
        tool->SetEnvFactor(options.envFactor);
        return files(tool);
    }
    case ChangePages: {
        auto* tool = new ChangePageNumberNT;
        tool->SetCategoryFilter(category);
        tool->SetNameFilter(name);
        tool->SetPageDelta(options.pageDelta);
        return files(tool);
    }
    default:
        return nullptr;
    }
}
