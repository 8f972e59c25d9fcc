#include "nodetools/ChangeHREFTypeBlockProcessor.h"

#include "nodetools/AnnotationLine.h"
#include "nodetools/ProjectFileIndex.h"

#include <Kamo_view/AnnHelperBase.h>
#include <Kamo_view/TargetInfo.h>

#include <QVector>

#include <algorithm>

ChangeHREFTypeBlockProcessor::ChangeHREFTypeBlockProcessor()
    : index(std::make_unique<ProjectFileIndex>())
{ }

ChangeHREFTypeBlockProcessor::~ChangeHREFTypeBlockProcessor() = default;

void ChangeHREFTypeBlockProcessor::ProcessBlock(const QStringList& block, QStringList& result)
{
    if (!AnnotationLine::IsInCategory(block, categoryFilter)) {
        result.append(block);
        return;
    }
    AnnotationLine::RewriteLinks(block, result, [this](QList<TargetInfo>& targets) {
        if (targets.size() != 1 || targets.first().IsSplit())
            return false;
        spreadOverZones(targets.first());
        targets.first().SetSplit(true);
        return true;
    });
}

bool ChangeHREFTypeBlockProcessor::spreadOverZones(TargetInfo& target)
{
    // Web, node and mail targets may end in a document's name too, but they
    // do not lead to the project's copy of it.
    const QString type = target.GetField(TargetInfo::TypeField);
    if (!nodes || !files || !(type.isEmpty() || type == QLatin1String("0")))
        return false;
    index->Update(files);
    const ZoneInfo original = target.Zone(0);
    const QString fileName = ProjectFileIndex::FileNamePart(original.Path());
    const NodeFileInfo* document = index->FindByFileName(fileName);
    if (!document)
        return false;
    const NodeInfo* node = nodes->value(document->NodeId());
    const int ownZone = document->Zone();
    if (!node || ownZone < 1 || ownZone > TargetInfo::MaxZones)
        return false;

    const QString folder = original.Path().left(original.Path().size() - fileName.size());
    QVector<ZoneInfo> zones;
    int lastZone = ownZone;
    for (int zone = 1; zone <= TargetInfo::MaxZones; ++zone) {
        if (zone == ownZone) {
            zones.append(original);
            continue;
        }
        const QString counterpart = ProjectFileIndex::FileNamePart(node->Documents(zone).value(document->Index()));
        if (counterpart.isEmpty()) {
            zones.append(ZoneInfo());
            continue;
        }
        zones.append(ZoneInfo(folder + counterpart));
        lastZone = std::max(lastZone, zone);
    }
    zones.resize(lastZone);
    target.SetZones(zones);
    return true;
}
