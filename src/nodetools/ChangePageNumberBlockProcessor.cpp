#include "nodetools/ChangePageNumberBlockProcessor.h"

#include "nodetools/AnnotationLine.h"

#include <Kamo_view/AnnHelperBase.h>
#include <Kamo_view/TargetInfo.h>

#include <algorithm>
#include <limits>

namespace {

// An empty page is the first page; anything but plain digits giving a
// positive int (a blank, a sign, "0") is not a page number this tool may
// rewrite, so 0 is returned for it.
qint64 pageNumber(const QString& page)
{
    if (page.isEmpty())
        return 1;
    for (const QChar c : page) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return 0;
    }
    bool ok = false;
    const qint64 number = page.toLongLong(&ok);
    return ok && number <= std::numeric_limits<int>::max() ? number : 0;
}

bool isDocumentLink(const TargetInfo& target)
{
    const QString type = target.GetField(TargetInfo::TypeField);
    return type.isEmpty() || type == QLatin1String("0");
}

} // namespace

ChangePageNumberBlockProcessor::ChangePageNumberBlockProcessor() = default;

ChangePageNumberBlockProcessor::~ChangePageNumberBlockProcessor() = default;

void ChangePageNumberBlockProcessor::ProcessBlock(const QStringList& block, QStringList& result)
{
    if (pageDelta == 0 || !AnnotationLine::IsInCategory(block, categoryFilter)
        || !AnnotationLine::NameFilter::Matches(compiledNameFilter, nameFilter, block)) {
        result.append(block);
        return;
    }
    AnnotationLine::RewriteLinks(block, result, [this](QList<TargetInfo>& targets) {
        bool changed = false;
        for (TargetInfo& target : targets) {
            if (!isDocumentLink(target))
                continue;
            for (int zone = 0; zone < target.ZoneCount(); ++zone) {
                ZoneInfo& entry = target.Zone(zone);
                const qint64 old = pageNumber(entry.Page());
                if (!entry.IsLinked() || old < 1)
                    continue;
                const qint64 shifted = std::max<qint64>(1, old + pageDelta);
                if (shifted != old) {
                    entry.SetPage(QString::number(shifted));
                    changed = true;
                }
            }
        }
        return changed;
    });
}
