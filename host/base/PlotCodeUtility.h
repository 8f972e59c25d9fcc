#ifndef KAMO_BASE_PLOTCODEUTILITY_H
#define KAMO_BASE_PLOTCODEUTILITY_H

#include "kamo_base_export.h"

#include <QString>

/// Plot codes of the land register: district ("Gemarkung"), field ("Flur"),
/// and the plot number as numerator and optional denominator
/// ("Flurstück 12/3"). Files write them in many ways; the host keeps one.
class KAMO_BASE_EXPORT PlotCodeUtility
{
public:
    /// A plot code taken apart.
    struct PlotCode {
        int district = 0;    ///< Gemarkung number
        int field = 0;       ///< Flur; 0 when the code has none
        int numerator = 0;   ///< Flurstück
        int denominator = 0; ///< 0: none
    };

    /// Reads the common spellings; false when `text` is no plot code.
    static bool Parse(const QString& text, PlotCode& code);
    /// The host's spelling of a plot code.
    static QString Format(const PlotCode& code);
    /// Parse and Format in one; empty when `text` is no plot code.
    static QString Normalise(const QString& text);
};

#endif
