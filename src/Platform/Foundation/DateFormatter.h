#pragma once

#include "Platform/Foundation/Calendar.h"
#include "Platform/Foundation/Date.h"
#include "Platform/Foundation/Locale.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace mintaro {

/// Writes moments in a locale's words. Not thread-safe; making one is costly, so keep it where it is used often.
class DateFormatter
{
public:
    /// By a pattern of Unicode Technical Standard 35, part 4. A pattern that makes no sense yields what ICU makes of
    /// it.
    [[nodiscard]] static DateFormatter withPattern(const QString &pattern, const Locale &locale);
    /// By a skeleton of the same standard ("yMMMM", "MMMdjm"): the locale decides on order, separators and the clock.
    /// Names that stand alone are capitalised where the language does so in headings.
    [[nodiscard]] static DateFormatter withTemplate(const QString &skeleton, const Locale &locale);

    DateFormatter(DateFormatter &&) noexcept;
    DateFormatter &operator=(DateFormatter &&) noexcept;
    ~DateFormatter();

    /// The moment as the zone's clocks show it.
    [[nodiscard]] QString string(Date date, const TimeZone &timeZone) const;

    /// One letter or so for each day of the week, Sunday first.
    [[nodiscard]] static QStringList veryShortWeekdaySymbols(const Locale &locale);

private:
    struct Format;
    explicit DateFormatter(std::unique_ptr<Format> format);
    std::unique_ptr<Format> m_format;
};

} // namespace mintaro
