#ifndef KAMO_TOOLS_ANNOTATIONDIMENSIONOPTIONS_H
#define KAMO_TOOLS_ANNOTATIONDIMENSIONOPTIONS_H

#include "kamo_tools_export.h"

#include <QString>

/// Which measures of rectangle objects SetAnnotationPropertiesNT takes over
/// from a template rectangle of the same file.
struct KAMO_TOOLS_EXPORT AnnotationDimensionOptions {
    /// The only source there is so far; without it no measure changes.
    bool fromOtherAnnotation = true;
    /// The name ("NA") of the template rectangle, matched exactly.
    QString templateName;
    /// Which measures the template gives: the left offset, the width, the height.
    ///@{
    bool setLeftOffset = true;
    bool setWidth = true;
    bool setHeight = true;
    ///@}
    /// A new height keeps the bottom edge and moves the top edge; otherwise
    /// the top edge stays.
    bool heightTopwards = true;
};

#endif
