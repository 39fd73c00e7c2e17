#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace mintaro {

/// Why the text of an object must not be given to the parser: it is too long, or made to cost far more than its length.
/// Empty for any other text, also one that is no iCalendar.
[[nodiscard]] std::optional<QString> refusalOf(const QByteArray &text);

/// A text value: UTF-8 (RFC 5545 3.1.4), with bytes that are none read as Windows-1252, the usual culprit.
[[nodiscard]] QString decodeText(const char *bytes);

} // namespace mintaro
