#include "nodetools/ChangeHREFTypeToStandardBlockProcessor.h"

#include "nodetools/AnnotationLine.h"
#include "nodetools/ProjectFileIndex.h"

#include <Kamo_view/AnnHelperBase.h>
#include <Kamo_view/TargetInfo.h>

ChangeHREFTypeToStandardBlockProcessor::ChangeHREFTypeToStandardBlockProcessor()
    : index(std::make_unique<ProjectFileIndex>())
{ }

ChangeHREFTypeToStandardBlockProcessor::~ChangeHREFTypeToStandardBlockProcessor() = default;

void ChangeHREFTypeToStandardBlockProcessor::BeginFile(const QString& path)
{
    fileZone = 1;
    if (targetZone != 0 || !nodes || !files)
        return;
    index->Update(files);
    const NodeFileInfo* document = index->FindByAnnotationFile(path);
    const NodeInfo* node = document ? nodes->value(document->NodeId()) : nullptr;
    if (node && node->Zone() >= 1 && node->Zone() <= TargetInfo::MaxZones)
        fileZone = node->Zone();
}

void ChangeHREFTypeToStandardBlockProcessor::ProcessBlock(const QStringList& block, QStringList& result)
{
    const int zone = targetZone == 0 ? fileZone : targetZone;
    if (zone < 1 || zone > TargetInfo::MaxZones || !AnnotationLine::IsInCategory(block, categoryFilter)) {
        result.append(block);
        return;
    }
    QList<TargetInfo> targets;
    QList<TargetInfo> standard { TargetInfo() };
    QString newLine;
    for (const QString& line : block) {
        if (!AnnotationLine::HasKey(line, AnnotationLine::HrefKey)) {
            result.append(line);
            continue;
        }
        QString value = AnnotationLine::Value(line);
        AnnHelperBase::ParseLink(targets, value);
        const int before = result.size();
        for (const TargetInfo& target : qAsConst(targets)) {
            if (!target.IsSplit() || zone > target.ZoneCount() || !target.Zone(zone - 1).IsLinked())
                continue;
            standard.first() = TargetInfo(target.Fields(), { target.Zone(zone - 1) }, false);
            AnnHelperBase::SaveLink(standard, newLine, false);
            result.append(newLine);
        }
        if (result.size() == before)
            result.append(line);
    }
}
