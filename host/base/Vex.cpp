#include "Vex.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <pwd.h>
#include <unistd.h>

#include <vector>
#endif

namespace Vex {

QString GetCurrentUserName()
{
#ifdef Q_OS_WIN
    wchar_t name[256 + 1];
    DWORD size = sizeof(name) / sizeof(name[0]);
    if (GetUserNameW(name, &size) && size > 0)
        return QString::fromWCharArray(name, int(size) - 1);
    return qEnvironmentVariable("USERNAME");
#else
    long bufferSize = sysconf(_SC_GETPW_R_SIZE_MAX);
    if (bufferSize <= 0)
        bufferSize = 16384;
    std::vector<char> buffer(static_cast<size_t>(bufferSize));
    passwd entry {};
    passwd* result = nullptr;
    if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &result) == 0 && result)
        return QString::fromLocal8Bit(result->pw_name);
    // Containers often run with a uid that has no passwd entry.
    const QString fromEnvironment = qEnvironmentVariable("USER");
    return fromEnvironment.isEmpty() ? qEnvironmentVariable("LOGNAME") : fromEnvironment;
#endif
}

} // namespace Vex
