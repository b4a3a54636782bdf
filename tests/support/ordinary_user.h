#pragma once

#include <sys/prctl.h>
#include <unistd.h>

namespace stoikal {

/// The rights of a user without privileges while this lives: the superuser,
/// under whom tests may run, is refused nothing.
class AsOrdinaryUser
{
public:
    AsOrdinaryUser() = default;
    ~AsOrdinaryUser()
    {
        if (m_wasSuperuser && setresuid(0, 0, 0) == 0)
            prctl(PR_SET_DUMPABLE, 1); // The change took it away, and the leak checker needs it.
    }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;

    bool IsOrdinary() const { return m_isOrdinary; }

private:
    bool m_wasSuperuser = geteuid() == 0;
    bool m_isOrdinary = !m_wasSuperuser || setresuid(65534, 65534, 0) == 0;
};

} // namespace stoikal
