#pragma once

#include "Platform/EventKit/CalendarObject.h"

#include <functional>
#include <optional>

namespace mintaro {

/// An object as the index keeps it: small and quick to read, of no use to another version of the program.
[[nodiscard]] QByteArray packSchedule(const ObjectSchedule &schedule);
[[nodiscard]] QByteArray packDetails(const ObjectDetails &details);

/// Empty where the bytes are none of ours. They begin on an even place.
[[nodiscard]] std::optional<ObjectSchedule> unpackSchedule(QByteArrayView bytes);
[[nodiscard]] std::optional<ObjectDetails> unpackDetails(QByteArrayView bytes);

/// Visits the texts that a search looks into, item by item, without unpacking the rest.
using TextVisitor = std::function<void(std::uint32_t item, QStringView title, QStringView location, QStringView notes)>;
void visitPackedTexts(QByteArrayView bytes, const TextVisitor &visit);

} // namespace mintaro
