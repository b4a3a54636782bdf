#include "base/full_disk.h"

#include <csignal>

namespace stoikal {

void TreatFileSizeLimitAsFullDisk()
{
    // With nobody to take the signal the write returns EFBIG.
    (void)std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace stoikal
