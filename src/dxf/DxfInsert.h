#ifndef KAMO_TOOLS_DXF_DXFINSERT_H
#define KAMO_TOOLS_DXF_DXFINSERT_H

#include "kamo_tools_export.h"

#include <QList>
#include <QPair>
#include <QString>

/// A block reference of the drawing's model space with the attributes that
/// follow it in the file.
struct KAMO_TOOLS_EXPORT DxfInsert {
    /// The referenced block and the insert's layer.
    ///@{
    QString blockName;
    QString layer;
    ///@}
    /// The insertion point, in drawing units.
    ///@{
    double x = 0.0;
    double y = 0.0;
    ///@}
    /// (tag, text) in file order; tags may repeat.
    QList<QPair<QString, QString>> attributes;
    /// Cleared by the workbench for inserts left out of processing.
    bool use = true;

    /// Drawings carry the sheet number under two spellings; "BL_NR" wins
    /// over "Bl_Nr", the first attribute of a tag over later ones.
    bool HasSheetNumber() const;
    /// Empty when there is none.
    QString SheetNumber() const;

private:
    const QString* sheetNumber() const;
};

#endif
