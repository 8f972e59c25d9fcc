#include "nodetools/SetPropertiesBlockProcessor.h"

#include "nodetools/AnnotationFileIO.h"
#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/AnnotationLine.h"
#include "nodetools/PropertyValue.h"

#include <QFile>

#include <algorithm>

namespace {

const QString rectangleType = QStringLiteral("RECT");
const QChar geometrySeparator = QLatin1Char(';');

enum RectangleField { Left, Top, Width, Height, RectangleFieldCount };

bool isRectangle(const QStringList& block)
{
    bool found = false;
    return AnnotationLine::BlockValue(block, AnnotationLine::TypeKey, &found) == rectangleType && found;
}

// The four number texts of a rectangle's geometry value, or nothing.
QStringList rectangleFields(const QString& geometry)
{
    const QStringList fields = geometry.split(geometrySeparator, Qt::KeepEmptyParts);
    if (fields.size() != RectangleFieldCount)
        return {};
    double unused = 0.0;
    for (const QString& field : fields) {
        if (!PropertyValue::ParseDecimal(field, &unused))
            return {};
    }
    return fields;
}

// Sets the first line with `key` to `value`, or adds one before "EO".
void setProperty(QStringList& lines, const QString& key, const QString& value)
{
    const QString line = key + QLatin1Char('=') + PropertyValue::SingleLine(value);
    for (QString& existing : lines) {
        if (AnnotationLine::HasKey(existing, key)) {
            existing = line;
            return;
        }
    }
    lines.insert(lines.size() - 1, line);
}

// Finds the first rectangle with the template's name, wherever it stands.
class TemplateFinder : public ObjectBlockProcessor
{
public:
    explicit TemplateFinder(const QString& name)
        : name(name)
    { }

    void ProcessBlock(const QStringList& block, QStringList&) override
    {
        if (found || !isRectangle(block))
            return;
        bool named = false;
        if (AnnotationLine::BlockValue(block, AnnotationLine::NameKey, &named) != name || !named)
            return;
        found = true;
        geometry = rectangleFields(AnnotationLine::BlockValue(block, AnnotationLine::GeometryKey));
    }

    QString name;
    bool found = false;
    QStringList geometry;
};

} // namespace

SetPropertiesBlockProcessor::SetPropertiesBlockProcessor() = default;

SetPropertiesBlockProcessor::~SetPropertiesBlockProcessor() = default;

void SetPropertiesBlockProcessor::BeginFile(const QString& path)
{
    templateGeometry.clear();
    if (!setDimensions || !dimensions.fromOtherAnnotation)
        return;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QString text = AnnotationFileIO::DecodeText(file.readAll()).text;
    // The file loop's own splitting, so that the template is the block the
    // loop will see.
    TemplateFinder finder(dimensions.templateName);
    AnnotationFileProcessor::ProcessText(text, finder);
    templateGeometry = finder.geometry;
}

bool SetPropertiesBlockProcessor::isSelected(const QStringList& block)
{
    if (!AnnotationLine::IsInCategory(block, categoryFilter))
        return false;
    return AnnotationLine::NameFilter::Matches(compiledNameFilter, nameFilter, block);
}

void SetPropertiesBlockProcessor::applyDimensions(QStringList& lines) const
{
    if (templateGeometry.isEmpty() || !isRectangle(lines))
        return;
    const auto geometryLine = std::find_if(lines.begin(), lines.end(),
        [](const QString& line) { return AnnotationLine::HasKey(line, AnnotationLine::GeometryKey); });
    if (geometryLine == lines.end())
        return;
    const QStringList old = rectangleFields(AnnotationLine::Value(*geometryLine));
    if (old.isEmpty())
        return;

    QStringList fields = old;
    if (dimensions.setLeftOffset)
        fields[Left] = templateGeometry.at(Left);
    if (dimensions.setWidth)
        fields[Width] = templateGeometry.at(Width);
    if (dimensions.setHeight) {
        fields[Height] = templateGeometry.at(Height);
        double top = 0.0;
        double oldHeight = 0.0;
        double newHeight = 0.0;
        int topPlaces = 0;
        int oldPlaces = 0;
        int newPlaces = 0;
        PropertyValue::ParseDecimal(old.at(Top), &top, &topPlaces);
        PropertyValue::ParseDecimal(old.at(Height), &oldHeight, &oldPlaces);
        PropertyValue::ParseDecimal(fields.at(Height), &newHeight, &newPlaces);
        if (dimensions.heightTopwards && newHeight != oldHeight) {
            fields[Top] = PropertyValue::FormatDecimal(
                top + oldHeight - newHeight, std::max({ topPlaces, oldPlaces, newPlaces }));
        }
    }
    *geometryLine = AnnotationLine::GeometryKey + QLatin1Char('=') + fields.join(geometrySeparator);
}

void SetPropertiesBlockProcessor::ProcessBlock(const QStringList& block, QStringList& result)
{
    if (!isSelected(block)) {
        result.append(block);
        return;
    }
    QStringList lines = block;
    // The template itself comes out unchanged: its own measures are taken over.
    if (setDimensions && dimensions.fromOtherAnnotation)
        applyDimensions(lines);
    if (setName)
        setProperty(lines, AnnotationLine::NameKey, name);
    if (setText)
        setProperty(lines, AnnotationLine::TextKey, text);
    result.append(lines);
}
