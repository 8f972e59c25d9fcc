#include "dxf/DxfInsert.h"

const QString* DxfInsert::sheetNumber() const
{
    // Tags match exactly: the two spellings are what drawings really use,
    // a case-blind match would pick up unrelated attributes.
    for (const QLatin1String tag : { QLatin1String("BL_NR"), QLatin1String("Bl_Nr") }) {
        for (const QPair<QString, QString>& attribute : attributes) {
            if (attribute.first == tag)
                return &attribute.second;
        }
    }
    return nullptr;
}

bool DxfInsert::HasSheetNumber() const
{
    return sheetNumber() != nullptr;
}

QString DxfInsert::SheetNumber() const
{
    const QString* number = sheetNumber();
    return number ? *number : QString();
}
