#include "nodetools/RemoveHREFBlockProcessor.h"

#include "nodetools/AnnotationLine.h"

void RemoveHREFBlockProcessor::ProcessBlock(const QStringList& block, QStringList& result)
{
    if (!AnnotationLine::IsInCategory(block, categoryFilter)) {
        result.append(block);
        return;
    }
    for (const QString& line : block) {
        if (!AnnotationLine::HasKey(line, AnnotationLine::HrefKey))
            result.append(line);
    }
}
