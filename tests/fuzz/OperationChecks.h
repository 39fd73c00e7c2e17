#pragma once

#include <QByteArray>

namespace mintaro {

/// Carries out the operations that the bytes choose on two calendars in a store, some of them while another program
/// changes the same event or a write fails, and compares the store after each with a plain model of calendars. Throws
/// std::logic_error, which tells the operations, where they differ or a text is not as it must be.
void checkOperations(const QByteArray &bytes);

} // namespace mintaro
