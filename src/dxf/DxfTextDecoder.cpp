#include "dxf/DxfTextDecoder.h"

#include <QTextCodec>

#include <algorithm>
#include <cstring>

namespace {

// Unknown, missing or misspelt codepages read as ANSI_1252: by far most
// drawings here are in it, and it decodes every byte to something.
QTextCodec* codecOf(const std::string& codepage)
{
    const QByteArray name = QByteArray::fromStdString(codepage).trimmed().toUpper();
    static const struct {
        const char* codepage;
        const char* codec;
    } known[] = {
        { "ANSI_1250", "windows-1250" },
        { "ANSI_1251", "windows-1251" },
        { "ANSI_1252", "windows-1252" },
        { "ANSI_1253", "windows-1253" },
        { "ANSI_1254", "windows-1254" },
        { "ANSI_1255", "windows-1255" },
        { "ANSI_1256", "windows-1256" },
        { "ANSI_1257", "windows-1257" },
        { "ANSI_1258", "windows-1258" },
        { "ANSI_874", "windows-874" },
        { "ANSI_932", "Shift_JIS" },
        { "ANSI_936", "GBK" },
        { "ANSI_949", "windows-949" },
        { "ANSI_950", "Big5" },
    };
    for (const auto& entry : known) {
        if (name == entry.codepage) {
            if (QTextCodec* codec = QTextCodec::codecForName(entry.codec))
                return codec;
        }
    }
    return QTextCodec::codecForName("windows-1252");
}

bool isHexDigit(QChar c)
{
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || (c >= QLatin1Char('a') && c <= QLatin1Char('f'))
        || (c >= QLatin1Char('A') && c <= QLatin1Char('F'));
}

// \U+XXXX (exactly four hex digits, either case) is the character XXXX;
// anything else after a backslash stays as it is.
void resolveUnicodeEscapes(QString& text)
{
    const QLatin1String escape("\\U+");
    for (int at = text.indexOf(escape); at >= 0; at = text.indexOf(escape, at + 1)) {
        const QStringView digits = QStringView(text).mid(at + escape.size(), 4);
        if (digits.size() == 4 && std::all_of(digits.begin(), digits.end(), isHexDigit))
            text.replace(at, escape.size() + 4, QChar(digits.toUShort(nullptr, 16)));
    }
}

} // namespace

DxfTextDecoder::DxfTextDecoder()
    : codec(codecOf(std::string()))
{ }

void DxfTextDecoder::SetVariable(const std::string& key, const std::string& value)
{
    if (key == "$ACADVER") {
        // AC1021 is R2007; the versions are compared as their numbers.
        const QByteArray version = QByteArray::fromStdString(value).trimmed().toUpper();
        bool ok = false;
        const int number = version.startsWith("AC") ? version.mid(2).toInt(&ok) : 0;
        utf8 = ok && number >= 1021;
    } else if (key == "$DWGCODEPAGE") {
        codec = codecOf(value);
    }
}

QString DxfTextDecoder::Text(const std::string& bytes) const
{
    const char* data = bytes.data();
    const int size = int(bytes.size());
    // Names and numbers are plain ASCII nearly always, which every one of
    // the codepages and UTF-8 share.
    if (std::all_of(data, data + size, [](char c) { return c > 0 && c < 0x7f && c != '\\'; }))
        return QString::fromLatin1(data, size);
    QString text;
    if (utf8) {
        // Some writers stamp a recent version on text still in the
        // codepage; such a string would lose every umlaut to U+FFFD.
        QTextCodec::ConverterState state;
        text = QTextCodec::codecForMib(106)->toUnicode(data, size, &state);
        if (state.invalidChars > 0)
            text = codec->toUnicode(data, size);
    } else {
        text = codec->toUnicode(data, size);
    }
    if (std::memchr(data, '\\', bytes.size()))
        resolveUnicodeEscapes(text);
    return text;
}
