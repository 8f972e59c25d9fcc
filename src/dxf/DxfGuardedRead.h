#ifndef KAMO_TOOLS_DXF_DXFGUARDEDREAD_H
#define KAMO_TOOLS_DXF_DXFGUARDEDREAD_H

#include <QString>

class DL_CreationInterface;

// Feeds a DXF file to `adapter` through dxflib after DxfDump::CheckFile has
// found it safe, turning dxflib's exceptions into a message in `error`.
// Internal: every reader of DXF files goes through this one guard.
bool DxfGuardedRead(const QString& path, DL_CreationInterface& adapter, QString* error);

#endif
