#pragma once

#include <sys/prctl.h>
#include <unistd.h>

namespace stoikal {

/// The rights of a user without privileges while this lives: the superuser,
/// under whom tests may run, is refused nothing. Only the superuser becomes the
/// user of that number.
class AsOrdinaryUser
{
public:
    explicit AsOrdinaryUser(uid_t user = 65534)
        : m_isOrdinary(!m_wasSuperuser || setresuid(user, user, 0) == 0)
    {
    }
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
    bool m_isOrdinary;
};

} // namespace stoikal
