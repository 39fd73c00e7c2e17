#pragma once

#include "Platform/Foundation/Date.h"

namespace mintaro {

/// Where the present moment comes from. Whatever asks for it is given one of these, so that time can be held in tests
/// and in pictures. May be called from any thread.
class Clock
{
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;
};

/// The machine's wall clock.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] Date now() const override;
};

/// A clock that stands still at a given moment (`--now`).
class FixedClock final : public Clock
{
public:
    explicit FixedClock(Date moment)
        : m_moment(moment)
    {
    }
    [[nodiscard]] Date now() const override { return m_moment; }

private:
    Date m_moment;
};

} // namespace mintaro
