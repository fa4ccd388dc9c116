#pragma once

#include <sys/prctl.h>
#include <unistd.h>

namespace veridane::test {

/// While it lives, a test that runs as root sees of closed files and folders what everybody else
/// does: nothing. For the whole process.
class OrdinaryUser {
public:
    OrdinaryUser() : m_before(::geteuid()) {
        constexpr uid_t nobody = 65534;
        if (m_before == 0 && ::seteuid(nobody) == 0)
            stayInspectable();
    }
    ~OrdinaryUser() {
        if (::geteuid() != m_before && ::seteuid(m_before) == 0)
            stayInspectable();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    // A change of user closes the process to the leak checker, which looks at it from outside.
    static void stayInspectable() { ::prctl(PR_SET_DUMPABLE, 1); }

    uid_t m_before;
};

} // namespace veridane::test
