#pragma once

#include "Platform/Foundation/Date.h"

#include <optional>

namespace mintaro {

/// Where the present moment comes from. Whatever asks for it is given one of these, so that time can be held in tests
/// and in pictures. May be called from any thread.
class Clock
{
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;
    /// How far it is ahead of the machine's wall clock, with which it goes. Empty where it does not go by itself.
    [[nodiscard]] virtual std::optional<std::chrono::milliseconds> offset() const { return std::nullopt; }
};

/// The machine's wall clock.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] Date now() const override;
    [[nodiscard]] std::optional<std::chrono::milliseconds> offset() const override { return Date::duration::zero(); }
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

/// A clock that shows a given moment when it is made and goes on from there (`--start-at`).
class OffsetClock final : public Clock
{
public:
    explicit OffsetClock(Date start)
        : m_offset(start - SystemClock().now())
    {
    }
    [[nodiscard]] Date now() const override { return SystemClock().now() + m_offset; }
    [[nodiscard]] std::optional<std::chrono::milliseconds> offset() const override { return m_offset; }

private:
    std::chrono::milliseconds m_offset;
};

} // namespace mintaro
