#include "nodetools/PropertyValue.h"

#include <QLocale>

#include <cmath>

namespace PropertyValue {

namespace {

// Beyond this many places a double carries no further digits.
constexpr int maxDecimals = 17;

QString withoutTrailingZeros(QString text)
{
    if (text.contains(QLatin1Char('.'))) {
        int end = text.size();
        while (text.at(end - 1) == QLatin1Char('0'))
            --end;
        if (text.at(end - 1) == QLatin1Char('.'))
            --end;
        text.truncate(end);
    }
    if (text == QLatin1String("-0"))
        return QStringLiteral("0");
    return text;
}

} // namespace

QString SingleLine(const QString& text)
{
    QString result = text;
    result.replace(QLatin1Char('\r'), QLatin1Char(' '));
    result.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return result;
}

QString LinkField(const QString& text)
{
    QString result = SingleLine(text);
    for (const ushort separator : { 0x11, 0x12, 0x13 })
        result.replace(QChar(separator), QLatin1Char(' '));
    return result;
}

bool ParseDecimal(const QString& text, double* value, int* decimals)
{
    int i = 0;
    const int size = text.size();
    if (i < size && (text.at(i) == QLatin1Char('-') || text.at(i) == QLatin1Char('+')))
        ++i;
    int digits = 0;
    int places = -1;
    for (; i < size; ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('.') && places < 0) {
            places = 0;
        } else if (c >= QLatin1Char('0') && c <= QLatin1Char('9')) {
            ++digits;
            if (places >= 0)
                ++places;
        } else {
            return false;
        }
    }
    if (digits == 0)
        return false;
    bool ok = false;
    const double parsed = QLocale::c().toDouble(text, &ok);
    if (!ok || !std::isfinite(parsed))
        return false;
    *value = parsed;
    if (decimals)
        *decimals = places < 0 ? 0 : places;
    return true;
}

QString FormatShortest(double value)
{
    return withoutTrailingZeros(QString::number(value, 'f', QLocale::FloatingPointShortest));
}

QString FormatDecimal(double value, int decimals)
{
    if (decimals < 0 || decimals > maxDecimals)
        return FormatShortest(value);
    return withoutTrailingZeros(QString::number(value, 'f', decimals));
}

} // namespace PropertyValue
