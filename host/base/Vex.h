#ifndef KAMO_BASE_VEX_H
#define KAMO_BASE_VEX_H

#include "kamo_base_export.h"

#include <QString>

// Process-wide helpers of the host's base library.
namespace Vex {

// Login name of the user the process runs as (not the one who owns the
// terminal), so that a batch job started under another account logs that
// account. Empty only when the system knows no name for the user id.
KAMO_BASE_EXPORT QString GetCurrentUserName();

} // namespace Vex

#endif
