#ifndef KAMO_TOOLS_PROPERTYVALUE_H
#define KAMO_TOOLS_PROPERTYVALUE_H

#include <QString>

// Texts and numbers written into property lines and link fields.
namespace PropertyValue {

// `text` with every line break replaced by a blank: a break would end the
// property line, and a following "EO" would even close the object.
QString SingleLine(const QString& text);

// Like SingleLine, and also without the link's field, target and zone
// separators, which would shift the fields of the record.
QString LinkField(const QString& text);

// Reads a plain decimal number as the host writes them: an optional sign,
// digits and at most one "." ("12", "-3.25", ".5"). Blanks, exponents and
// group separators are not numbers. `decimals` receives the number of digits
// after the ".".
bool ParseDecimal(const QString& text, double* value, int* decimals = nullptr);

// The shortest text that reads back as `value`, with "." as decimal point,
// never in exponent form and without trailing zeros.
QString FormatShortest(double value);

// `value` rounded to `decimals` places, without trailing zeros. Sums of
// decimal numbers are not exact in binary; their exact result never has more
// places than the operands, so rounding to those gives it back.
QString FormatDecimal(double value, int decimals);

} // namespace PropertyValue

#endif
