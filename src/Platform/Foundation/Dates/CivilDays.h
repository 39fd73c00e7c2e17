#pragma once

#include <chrono>
#include <optional>

namespace mintaro {

/// Days found from what people say of them. Weekdays are ISO: 1 for Monday to 7 for Sunday. Empty where no such day is.

/// The next such weekday, the day itself included.
[[nodiscard]] std::chrono::local_days weekdayFrom(std::chrono::local_days day, int weekday);
/// The last such weekday before the day.
[[nodiscard]] std::chrono::local_days weekdayBefore(std::chrono::local_days day, int weekday);
/// That weekday of the calendar week, Monday first, which is `weeks` away from the day's.
[[nodiscard]] std::chrono::local_days weekdayOfWeek(std::chrono::local_days day, int weekday, int weeks);
/// That day of a month, today or later; of 29 February the next that there is.
[[nodiscard]] std::optional<std::chrono::local_days> monthDayFrom(std::chrono::local_days day, int month, int number);
/// The next day of that number; months that are too short are passed over.
[[nodiscard]] std::optional<std::chrono::local_days> dayNumberFrom(std::chrono::local_days day, int number);
/// The next day of that number that is such a weekday.
[[nodiscard]] std::optional<std::chrono::local_days> weekdayNumberFrom(
    std::chrono::local_days day, int weekday, int number);
/// Empty where the calendar has no such day.
[[nodiscard]] std::optional<std::chrono::local_days> dayOf(int year, int month, int number);
/// The first (1) to fifth (5) such weekday of a month, or the last (-1).
[[nodiscard]] std::optional<std::chrono::local_days> nthWeekday(std::chrono::year_month month, int weekday, int number);
/// The first day of that month: of the year, or where that is absent of this month or the next such one.
[[nodiscard]] std::optional<std::chrono::local_days> firstOfMonth(
    std::chrono::local_days today, int month, std::optional<int> year);
/// A number of four digits that people write as a year.
[[nodiscard]] bool isWrittenYear(int number);
/// Months later; in a month that is too short its last day.
[[nodiscard]] std::chrono::local_days monthsLater(std::chrono::local_days day, std::chrono::months months);
[[nodiscard]] std::chrono::year_month monthOf(std::chrono::local_days day);

} // namespace mintaro
