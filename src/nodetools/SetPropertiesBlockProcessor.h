#ifndef KAMO_TOOLS_SETPROPERTIESBLOCKPROCESSOR_H
#define KAMO_TOOLS_SETPROPERTIESBLOCKPROCESSOR_H

#include "nodetools/AnnotationDimensionOptions.h"
#include "nodetools/ObjectBlockProcessor.h"

#include <QStringList>

#include <memory>

namespace AnnotationLine {
class NameFilter;
}

/// Sets name, text and measures of the objects chosen by category and name.
/// A missing name or text line is added before the object's "EO". Measures
/// apply to rectangles only and come from the file's template rectangle,
/// which BeginFile looks up before the first block.
class SetPropertiesBlockProcessor : public ObjectBlockProcessor
{
public:
    SetPropertiesBlockProcessor();
    ~SetPropertiesBlockProcessor() override;

    /// Looks up the template rectangle of \p path when measures are taken from it; a file without one (or unreadable)
    /// leaves the measures alone.
    void BeginFile(const QString& path) override;
    /// Sets the chosen properties on a selected object block; other blocks stay as they are.
    void ProcessBlock(const QStringList& block, QStringList& result) override;

    QString categoryFilter; ///< empty: every object
    QString nameFilter;     ///< regular expression searched in the name; empty: every object
    /// What to set: each value applies only when its flag is true.
    ///@{
    bool setName = false;
    QString name;
    bool setText = false;
    QString text;
    bool setDimensions = false;
    AnnotationDimensionOptions dimensions;
    ///@}

private:
    bool isSelected(const QStringList& block);
    void applyDimensions(QStringList& lines) const;

    std::unique_ptr<AnnotationLine::NameFilter> compiledNameFilter;
    /// The template's left, top, width and height as written; empty when the
    /// current file has none.
    QStringList templateGeometry;
};

#endif
