#include "nodetools/ReplaceNameBlockProcessor.h"

#include "nodetools/AnnotationLine.h"
#include "nodetools/PropertyValue.h"

#include <Kamo_view/AnnHelperBase.h>
#include <Kamo_view/NodeInfo.h>
#include <Kamo_view/TargetInfo.h>

#include <algorithm>

namespace {

bool isDecimal(const QString& text)
{
    return !text.isEmpty() && std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    });
}

// An unnamed node gives no caption: an empty one would only lose the old.
QString captionOf(const NodeInfo* node)
{
    return node ? PropertyValue::LinkField(node->Name()) : QString();
}

} // namespace

QString ReplaceNameBlockProcessor::documentKey(const QString& path) const
{
    QString key = path.toLower();
    key.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (ignorePathOnCompare)
        key = key.mid(key.lastIndexOf(QLatin1Char('/')) + 1);
    return key;
}

// Built once for a run: a tool lives for one run, and the nodes do not
// change while it runs.
void ReplaceNameBlockProcessor::indexDocuments()
{
    if (indexed && indexedNodes == nodes && indexedIgnorePath == ignorePathOnCompare)
        return;
    documentNames.clear();
    indexed = true;
    indexedNodes = nodes;
    indexedIgnorePath = ignorePathOnCompare;
    if (!nodes)
        return;
    // The map runs in ascending id order, so the first entry for a key is
    // the lowest id's.
    for (auto node = nodes->cbegin(); node != nodes->cend(); ++node) {
        const QString caption = captionOf(node.value());
        if (caption.isEmpty())
            continue;
        for (int zone : node.value()->Zones()) {
            for (const QString& document : node.value()->Documents(zone)) {
                const QString key = documentKey(document);
                if (!key.isEmpty() && !documentNames.contains(key))
                    documentNames.insert(key, caption);
            }
        }
    }
}

QString ReplaceNameBlockProcessor::nameForNode(const QString& path) const
{
    if (!isDecimal(path))
        return QString();
    bool ok = false;
    const int id = path.toInt(&ok);
    return ok ? captionOf(nodes->value(id)) : QString();
}

QString ReplaceNameBlockProcessor::nameForDocument(const QString& path) const
{
    const QString key = documentKey(path);
    return key.isEmpty() ? QString() : documentNames.value(key);
}

void ReplaceNameBlockProcessor::ProcessBlock(const QStringList& block, QStringList& result)
{
    if (!nodes) {
        result.append(block);
        return;
    }
    indexDocuments();
    const QString nodeType = QString::number(TargetInfo::NodeLink);
    const QString documentType = QString::number(TargetInfo::DocumentLink);

    AnnotationLine::RewriteLinks(block, result, [&](QList<TargetInfo>& targets) {
        bool changed = false;
        for (TargetInfo& target : targets) {
            const QString type = target.GetField(TargetInfo::TypeField);
            const bool nodeLink = type == nodeType;
            if (!nodeLink && !type.isEmpty() && type != documentType)
                continue;
            // The first zone that names a known node or document decides.
            QString caption;
            for (int zone = 0; zone < target.ZoneCount() && caption.isEmpty(); ++zone) {
                const QString& path = target.ZonePath(zone);
                caption = nodeLink ? nameForNode(path) : nameForDocument(path);
            }
            if (!caption.isEmpty() && caption != target.Description()) {
                target.SetDescription(caption);
                changed = true;
            }
        }
        return changed;
    });
}
