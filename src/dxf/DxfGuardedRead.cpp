#include "dxf/DxfGuardedRead.h"

#include "dxf/DxfDump.h"

#include <dl_creationinterface.h>
#include <dl_dxf.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <exception>
#include <fstream>
#include <locale>
#include <new>

namespace {

// dxflib reads numbers through streams of the global locale and expects a
// decimal point; a host with a German locale must not turn 3512345.67 into
// something else. Restored however the read ends.
class ClassicGlobalLocale
{
public:
    ClassicGlobalLocale()
        : previous(std::locale::global(std::locale::classic()))
    { }
    ~ClassicGlobalLocale() { std::locale::global(previous); }
    ClassicGlobalLocale(const ClassicGlobalLocale&) = delete;
    ClassicGlobalLocale& operator=(const ClassicGlobalLocale&) = delete;

private:
    std::locale previous;
};

} // namespace

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

    // Through a stream of ours rather than dxflib's own file reader: that
    // one leaves its FILE open and the process in the "C" locale when dxflib
    // throws (it does, on a comment that reads "dxflib" and nothing more),
    // which a long-running host would pay for with a descriptor per damaged
    // drawing. The stream reader's one weakness, a line longer than its
    // buffer, is excluded by the check above.
    std::ifstream stream(QFile::encodeName(path).toStdString(), std::ios::in | std::ios::binary);
    if (!stream)
        return fail(QCoreApplication::translate("DxfDump", "%1: no such file or not readable")
                        .arg(QDir::toNativeSeparators(path)));
    const ClassicGlobalLocale classic;
    DL_Dxf dxf;
    try {
        if (!dxf.in(stream, &adapter))
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
