#include "dxf/DxfGuardedRead.h"

#include "dxf/DxfDump.h"

#include <dl_creationinterface.h>
#include <dl_dxf.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <exception>
#include <new>

bool DxfGuardedRead(const QString& path, DL_CreationInterface& adapter, QString* error)
{
    auto fail = [&](const QString& message) {
        if (error)
            *error = message;
        return false;
    };
    const QString problem = DxfDump::CheckFile(path);
    if (!problem.isEmpty())
        return fail(problem);

    DL_Dxf dxf;
    try {
        // Read from the file, never from a stream: dxflib's stream reader
        // does not return on a line longer than its buffer.
        if (!dxf.in(QFile::encodeName(path).toStdString(), &adapter))
            return fail(QCoreApplication::translate("DxfDump", "%1: dxflib cannot read the file")
                            .arg(QDir::toNativeSeparators(path)));
    } catch (const std::bad_alloc&) {
        return fail(QCoreApplication::translate("DxfDump", "%1: not enough memory to read the file")
                        .arg(QDir::toNativeSeparators(path)));
    } catch (const std::exception& exception) {
        return fail(QCoreApplication::translate("DxfDump", "%1: reading failed: %2")
                        .arg(QDir::toNativeSeparators(path), QString::fromLocal8Bit(exception.what())));
    }
    return true;
}
