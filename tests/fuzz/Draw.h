#pragma once

#include "OtherProgram.h"

namespace mintaro::model {

/// Decisions out of bytes.
class Choices
{
public:
    explicit Choices(QByteArrayView bytes)
        : m_rest(bytes)
    {
    }

    [[nodiscard]] bool areSpent() const { return m_rest.isEmpty(); }
    /// Below `count`; 0 when the bytes are spent.
    [[nodiscard]] std::size_t below(std::size_t count);
    [[nodiscard]] bool oneIn(std::size_t count) { return below(count) == count - 1; }
    template <typename Value, std::size_t size>
    [[nodiscard]] const Value &of(const std::array<Value, size> &values)
    {
        return values[below(size)];
    }

private:
    QByteArrayView m_rest;
};

// What users and other programs come up with.

[[nodiscard]] QString drawText(Choices &choices);
[[nodiscard]] std::vector<std::chrono::seconds> drawAlarms(Choices &choices);
/// Round the changes of the clocks mostly.
[[nodiscard]] LocalTime drawReading(Choices &choices);
[[nodiscard]] When drawWhen(Choices &choices, Form form);
/// One that gives `first`.
[[nodiscard]] Rule drawRule(Choices &choices, Form form, LocalTime first);
/// Some fields of an event that reads `seen`, without its rules and its calendar.
[[nodiscard]] Changes drawChanges(Choices &choices, const When &seen);
/// An event with all that other programs write.
[[nodiscard]] NewEvent drawEvent(Choices &choices, const QString &calendar, const QString &uid);
/// A line that nobody knows.
[[nodiscard]] QByteArray drawTag(Choices &choices, int number);

} // namespace mintaro::model
