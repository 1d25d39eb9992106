#include "Desktop/CoreDumps.h"

#include <algorithm>

#include <sys/prctl.h>
#include <sys/resource.h>

namespace tessel {

void forbidCoreDumps()
{
    // A file of one byte is no core dump, and this limit alone also keeps Linux from handing one to a
    // collector's pipe (core(5)): a limit of zero does not.
    constexpr rlim_t noDump = 1;
    rlimit limit = {};
    if (::getrlimit(RLIMIT_CORE, &limit) != 0)
        return;
    // Where even one byte is forbidden, only a process that must not be dumped at all is kept from a
    // collector.
    if (limit.rlim_max < noDump)
        ::prctl(PR_SET_DUMPABLE, 0);
    limit.rlim_cur = std::min(noDump, limit.rlim_max);
    ::setrlimit(RLIMIT_CORE, &limit);
}

} // namespace tessel
