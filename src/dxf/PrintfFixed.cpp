#include "dxf/PrintfFixed.h"

#include <charconv>
#include <limits>

QString PrintfFixed(double value, int width, int precision)
{
    Q_ASSERT(precision >= 0 && precision <= 17);
    // The longest fixed text: sign, every integer digit of the largest
    // double, the point and the decimals.
    char buffer[std::numeric_limits<double>::max_exponent10 + 4 + 17];
    const std::to_chars_result end
        = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, precision);
    const int length = end.ec == std::errc() ? int(end.ptr - buffer) : 0;
    QString text;
    text.reserve(qMax(width, length));
    if (width > length)
        text.fill(QLatin1Char(' '), width - length);
    text.append(QLatin1String(buffer, length));
    return text;
}
