#pragma once

#include <QtGlobal>

#include <cstdlib>

#include <unistd.h>

namespace mintaro {

/// Lets the process be nobody for a while, since the superuser may read and write everything.
class WithoutPrivileges
{
public:
    WithoutPrivileges()
    {
        constexpr uid_t kNobody = 65534;
        m_isNobody = ::geteuid() != 0 || ::setresuid(kNobody, kNobody, 0) == 0;
        m_wasRoot = ::geteuid() == kNobody;
    }
    ~WithoutPrivileges()
    {
        if (m_wasRoot && ::setresuid(0, 0, 0) != 0)
            std::abort();
    }
    Q_DISABLE_COPY_MOVE(WithoutPrivileges)

    [[nodiscard]] bool isActive() const { return m_isNobody; }

private:
    bool m_isNobody = false;
    bool m_wasRoot = false;
};

} // namespace mintaro
