#include "PlotCodeUtility.h"

#include <QRegularExpression>

namespace {

// The widths of the host's spelling; longer numbers would not read back.
const int districtDigits = 6;
const int fieldDigits = 3;
const int numeratorDigits = 5;
const int denominatorDigits = 4;

bool readNumber(const QString& text, int maxDigits, int& value)
{
    // Leading zeros are padding and do not count against the width.
    int start = 0;
    while (start < text.size() - 1 && text.at(start) == QLatin1Char('0'))
        ++start;
    if (text.size() - start > maxDigits)
        return false;
    bool ok = false;
    value = text.toInt(&ok);
    return ok;
}

bool fill(const QRegularExpressionMatch& match, PlotCodeUtility::PlotCode& code)
{
    PlotCodeUtility::PlotCode parsed;
    const QString district = match.captured(QStringLiteral("district"));
    const QString field = match.captured(QStringLiteral("field"));
    const QString denominator = match.captured(QStringLiteral("denominator"));
    if ((!district.isEmpty() && !readNumber(district, districtDigits, parsed.district))
        || (!field.isEmpty() && !readNumber(field, fieldDigits, parsed.field))
        || !readNumber(match.captured(QStringLiteral("numerator")), numeratorDigits, parsed.numerator)
        || (!denominator.isEmpty() && !readNumber(denominator, denominatorDigits, parsed.denominator)))
        return false;
    // Plot 0 does not exist, and "/0" would not read back as written.
    if (parsed.numerator == 0 || (!denominator.isEmpty() && parsed.denominator == 0))
        return false;
    code = parsed;
    return true;
}

} // namespace

bool PlotCodeUtility::Parse(const QString& text, PlotCode& code)
{
    static const QRegularExpression patterns[] = {
        // 051234-001-00012/0003, 1234-1-12/3, 1234-1-12
        QRegularExpression(QStringLiteral("^(?<district>\\d+)\\s*-\\s*(?<field>\\d+)\\s*-\\s*(?<numerator>\\d+)"
                                          "(?:\\s*/\\s*(?<denominator>\\d+))?$")),
        // Gemarkung 1234 Flur 1 Flurstück 12/3, also abbreviated and with
        // commas; the field may be missing.
        QRegularExpression(
            QStringLiteral(
                "^(?:Gemarkung|Gmk\\.?)\\s*(?<district>\\d+)\\s*,?\\s*"
                "(?:(?:Flur|Fl\\.)\\s*(?<field>\\d+)\\s*,?\\s*)?"
                "(?:Flurst(?:\\x{00FC}|ue|u)ck|Flst\\.?)\\s*(?<numerator>\\d+)(?:\\s*/\\s*(?<denominator>\\d+))?$"),
            QRegularExpression::CaseInsensitiveOption),
        // 12/3 on its own. A bare "12" is not taken: it could be anything.
        QRegularExpression(QStringLiteral("^(?<numerator>\\d+)\\s*/\\s*(?<denominator>\\d+)$")),
    };
    const QString trimmed = text.trimmed();
    for (const QRegularExpression& pattern : patterns) {
        const QRegularExpressionMatch match = pattern.match(trimmed);
        if (match.hasMatch())
            return fill(match, code);
    }
    return false;
}

QString PlotCodeUtility::Format(const PlotCode& code)
{
    QString text = QStringLiteral("%1-%2-%3")
                       .arg(code.district, districtDigits, 10, QLatin1Char('0'))
                       .arg(code.field, fieldDigits, 10, QLatin1Char('0'))
                       .arg(code.numerator, numeratorDigits, 10, QLatin1Char('0'));
    if (code.denominator != 0)
        text += QStringLiteral("/%1").arg(code.denominator, denominatorDigits, 10, QLatin1Char('0'));
    return text;
}

QString PlotCodeUtility::Normalise(const QString& text)
{
    PlotCode code;
    return Parse(text, code) ? Format(code) : QString();
}
