#include "Platform/Foundation/DateFormatter.h"

#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/simpletz.h>
#include <unicode/smpdtfmt.h>

namespace mintaro {

namespace {

icu::Locale toIcu(const Locale &locale)
{
    return icu::Locale(locale.identifier().toLatin1().constData());
}

icu::UnicodeString toIcu(const QString &text)
{
    return icu::UnicodeString(text.utf16(), static_cast<int32_t>(text.size()));
}

QString fromIcu(const icu::UnicodeString &text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}

} // namespace

struct DateFormatter::Format
{
    /// Null where ICU has no data at all; then every text is empty.
    std::unique_ptr<icu::SimpleDateFormat> icu;
};

DateFormatter::DateFormatter(std::unique_ptr<Format> format)
    : m_format(std::move(format))
{
}

DateFormatter::DateFormatter(DateFormatter &&) noexcept = default;
DateFormatter &DateFormatter::operator=(DateFormatter &&) noexcept = default;
DateFormatter::~DateFormatter() = default;

DateFormatter DateFormatter::withPattern(const QString &pattern, const Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    auto format = std::make_unique<Format>();
    format->icu = std::make_unique<icu::SimpleDateFormat>(toIcu(pattern), toIcu(locale), status);
    if (U_FAILURE(status))
        format->icu.reset();
    return DateFormatter(std::move(format));
}

DateFormatter DateFormatter::withTemplate(const QString &skeleton, const Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(toIcu(locale), status));
    if (U_FAILURE(status))
        return withPattern(skeleton, locale);
    const icu::UnicodeString pattern = generator->getBestPattern(toIcu(skeleton), status);
    DateFormatter formatter = withPattern(U_FAILURE(status) ? skeleton : fromIcu(pattern), locale);
    status = U_ZERO_ERROR;
    if (formatter.m_format->icu)
        formatter.m_format->icu->setContext(UDISPCTX_CAPITALIZATION_FOR_STANDALONE, status);
    return formatter;
}

QString DateFormatter::string(Date date, const TimeZone &timeZone) const
{
    if (!m_format->icu)
        return {};
    // ICU's own zone rules are older than the system's: it is told only the offset that holds at this moment.
    const auto offset = timeZone.secondsFromGMT(std::chrono::floor<std::chrono::seconds>(date));
    m_format->icu->adoptTimeZone(
        new icu::SimpleTimeZone(static_cast<int32_t>(offset.count() * 1000), toIcu(timeZone.identifier())));
    icu::UnicodeString text;
    return fromIcu(m_format->icu->format(static_cast<UDate>(date.time_since_epoch().count()), text));
}

QStringList DateFormatter::veryShortWeekdaySymbols(const Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DateFormatSymbols symbols(toIcu(locale), status);
    if (U_FAILURE(status))
        return {};
    int32_t count = 0;
    // Index 0 is unused: weekdays count from 1 for Sunday.
    const icu::UnicodeString *names
        = symbols.getWeekdays(count, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::NARROW);
    QStringList result;
    for (int32_t i = 1; i < count; ++i)
        result.append(fromIcu(names[i]));
    return result;
}

} // namespace mintaro
