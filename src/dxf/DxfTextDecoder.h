#ifndef KAMO_TOOLS_DXF_DXFTEXTDECODER_H
#define KAMO_TOOLS_DXF_DXFTEXTDECODER_H

#include <QString>

#include <string>

class QTextCodec;

// Turns the bytes of a DXF string into text. Drawings before R2007 (header
// $ACADVER below AC1021) hold their text in the codepage their header names
// ($DWGCODEPAGE), with characters outside it escaped as \U+XXXX; later ones
// hold UTF-8. dxflib hands the bytes over as they stand, the header first.
// Internal: both the capture and the dump listing read through one.
class DxfTextDecoder
{
public:
    DxfTextDecoder();

    // Give every string header variable dxflib reports; the version and
    // the codepage are taken from them.
    void SetVariable(const std::string& key, const std::string& value);

    QString Text(const std::string& bytes) const;

private:
    bool utf8 = false;
    QTextCodec* codec; // of the codepage; never null
};

#endif
