#pragma once

#include <algorithm>
#include <csignal>
#include <sys/resource.h>

namespace stoikal {

/// From now on files of this process cannot grow past a size: the system cuts
/// the write that crosses it and refuses the next. RLIM_INFINITY lifts it.
inline void LimitFileSize(rlim_t bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = std::min(bytes, limit.rlim_max);
    setrlimit(RLIMIT_FSIZE, &limit);
}

} // namespace stoikal
