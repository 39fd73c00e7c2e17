#pragma once

#include <QByteArray>

namespace mintaro {

// What must hold for any bytes at all that are taken for an iCalendar object, or for one that the index kept. Where it
// does not, these throw std::logic_error, which says what.

/// Reading them: a refused text gives nothing, times and texts belong together, and the index gives back what it took.
void checkReading(const QByteArray &text);

/// Finding the occurrences of what they hold: rules ascend and can be entered anywhere, no occurrence is there twice, a
/// window has what its two parts have, and no step of the budget goes uncounted.
void checkExpansion(const QByteArray &text);

/// Unpacking them: what comes out of a damaged index goes in and comes out again.
void checkUnpacking(const QByteArray &bytes);

} // namespace mintaro
