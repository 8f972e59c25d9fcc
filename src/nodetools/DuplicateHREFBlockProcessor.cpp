#include "nodetools/DuplicateHREFBlockProcessor.h"

#include "nodetools/AnnotationLine.h"

#include <Kamo_view/AnnHelperBase.h>

namespace {
// Fields of a link in the standard form; the second one is the target path.
constexpr int standardFieldCount = 23;
constexpr int targetPathField = 1;
} // namespace

void DuplicateHREFBlockProcessor::ProcessBlock(const QStringList& block, QStringList& result)
{
    if (!AnnotationLine::IsInCategory(block, categoryFilter)) {
        result.append(block);
        return;
    }
    bool copied = false;
    for (const QString& line : block) {
        result.append(line);
        if (copied || !AnnotationLine::HasKey(line, AnnotationLine::HrefKey))
            continue;
        const QString value = AnnotationLine::Value(line);
        if (value.startsWith(AnnHelperBase::SplitMarker))
            continue;
        QStringList fields = value.split(AnnHelperBase::FieldSeparator, Qt::KeepEmptyParts);
        if (fields.size() != standardFieldCount)
            continue;
        fields[targetPathField] = newLinkTarget;
        result.append(AnnotationLine::HrefKey + QLatin1Char('=') + fields.join(AnnHelperBase::FieldSeparator));
        copied = true;
    }
}
