#include "nodetools/ConvertFreeHandPinsBlockProcessor.h"

#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/AnnotationLine.h"
#include "nodetools/PropertyValue.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const QString pinKey = QStringLiteral("PIN");
const QString participantKey = QStringLiteral("BT");
const QString pinType = QStringLiteral("PIN");
const QString pinCategory = QStringLiteral("Betroffenheit");

// The host's document names may carry Windows folders.
QString fileNameOf(const QString& document)
{
    const int slash = std::max(document.lastIndexOf(QLatin1Char('/')), document.lastIndexOf(QLatin1Char('\\')));
    return document.mid(slash + 1);
}

QString property(const QString& key, const QString& value)
{
    return key + QLatin1Char('=') + value;
}

} // namespace

QString ConvertFreeHandPinsBlockProcessor::documentOf(const QString& path)
{
    // The loop visits the documents in list order, skipping those without a
    // file; two documents sharing a file get a visit each.
    const QString dataDir = path.left(path.lastIndexOf(QLatin1Char('/')));
    const int count = fileNames.size();
    for (int step = 0; step < count; ++step) {
        const int i = (nextDocument + step) % count;
        if (AnnotationFileProcessor::AnnotationFilePath(dataDir, fileNames.at(i)) == path) {
            nextDocument = i + 1;
            return fileNames.at(i);
        }
    }
    return QString();
}

ConvertFreeHandPinsBlockProcessor::PagePins ConvertFreeHandPinsBlockProcessor::pinsOf(const QString& document) const
{
    if (!filesPinMap || document.isEmpty())
        return {};
    const auto exact = filesPinMap->constFind(document);
    if (exact != filesPinMap->constEnd())
        return exact.value();
    const QString fileName = fileNameOf(document);
    for (auto entry = filesPinMap->cbegin(); entry != filesPinMap->cend(); ++entry) {
        if (fileNameOf(entry.key()).compare(fileName, Qt::CaseInsensitive) == 0)
            return entry.value();
    }
    return {};
}

void ConvertFreeHandPinsBlockProcessor::BeginFile(const QString& path)
{
    highestId = 0;
    presentPins.clear();
    currentPins = pinsOf(documentOf(path));
}

void ConvertFreeHandPinsBlockProcessor::ProcessBlock(const QStringList& block, QStringList& result)
{
    result.append(block);
    if (currentPins.isEmpty())
        return;
    for (const QString& line : block) {
        bool ok = false;
        if (AnnotationLine::HasKey(line, AnnotationLine::IdKey)) {
            const qint64 id = AnnotationLine::Value(line).toLongLong(&ok);
            if (ok && id > highestId)
                highestId = id;
        } else if (AnnotationLine::HasKey(line, pinKey)) {
            const int pin = AnnotationLine::Value(line).toInt(&ok);
            if (ok)
                presentPins.insert(pin);
        }
    }
}

void ConvertFreeHandPinsBlockProcessor::AppendToFile(QStringList& lines)
{
    for (auto page = currentPins.cbegin(); page != currentPins.cend(); ++page) {
        for (const PinObject& pin : page.value()) {
            // A pin without a place cannot be drawn; it stays with the host.
            if (presentPins.contains(pin.Id()) || !std::isfinite(pin.X()) || !std::isfinite(pin.Y()))
                continue;
            if (highestId == std::numeric_limits<qint64>::max())
                return;
            presentPins.insert(pin.Id());
            lines.append(QStringLiteral("BO"));
            lines.append(property(AnnotationLine::IdKey, QString::number(++highestId)));
            lines.append(property(AnnotationLine::TypeKey, pinType));
            lines.append(property(AnnotationLine::PageKey, QString::number(page.key())));
            lines.append(property(AnnotationLine::GeometryKey,
                PropertyValue::FormatShortest(pin.X()) + QLatin1Char(';') + PropertyValue::FormatShortest(pin.Y())));
            lines.append(property(AnnotationLine::NameKey, PropertyValue::SingleLine(pin.Label())));
            lines.append(property(AnnotationLine::CategoryKey, pinCategory));
            if (!pin.Note().isEmpty())
                lines.append(property(AnnotationLine::TextKey, PropertyValue::SingleLine(pin.Note())));
            lines.append(property(pinKey, QString::number(pin.Id())));
            if (pin.ParticipantId() != 0)
                lines.append(property(participantKey, QString::number(pin.ParticipantId())));
            lines.append(QStringLiteral("EO"));
        }
    }
}
