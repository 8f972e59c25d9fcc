#ifndef KAMO_TOOLS_DXF_PRINTFFIXED_H
#define KAMO_TOOLS_DXF_PRINTFFIXED_H

#include <QString>

// The text printf writes for "%<width>.<precision>f" in the C locale, to the
// digit: exact binary ties round to even, -0.0 keeps its sign, NaN and
// infinities read "nan", "-nan", "inf", "-inf", right-aligned in blanks.
// QString::asprintf rounds ties away from zero, and printf itself follows the
// process locale, which a host may have set to one with decimal commas; the
// GK2 file and the dump listing have to read the same on every machine.
// Internal; `precision` is at most 17.
QString PrintfFixed(double value, int width, int precision);

#endif
