#include "Platform/Foundation/LinkDetector.h"
#include "Services/NaturalLanguageParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace mintaro {

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Matches lie in the text, in order, without overlap.
template <typename Match>
void checkOrder(const std::vector<Match> &matches, const QString &text)
{
    qsizetype end = 0;
    for (const Match &match : matches) {
        require(match.location >= end && match.length > 0);
        end = match.location + match.length;
        require(end <= text.size());
    }
}

void checkSentence(const QString &text, const Locale &locale)
{
    static const LinkDetector links;
    const TimeZone rome = TimeZone::named(QStringLiteral("Europe/Rome")).value();
    const FixedClock clock(
        Date { std::chrono::sys_days { std::chrono::year { 2026 } / 3 / 28 } + std::chrono::hours { 9 } });
    const Environment environment(clock, locale, rome);
    const DateDetector dates(locale);
    const auto found = dates.matches(text, clock.now(), environment.calendar());
    checkOrder(found, text);
    checkOrder(links.matches(text), text);
    for (const auto &match : found)
        require(match.duration.count() >= 0);
    const auto event = NaturalLanguageParser(environment).parse(text);
    if (!event)
        return;
    require(event->startDate.has_value() == !found.empty());
    require(event->startDate.has_value() == event->endDate.has_value());
    require(!event->startDate || (*event->startDate == found.front().date && *event->endDate > *event->startDate));
}

} // namespace

} // namespace mintaro

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    for (const char *locale : { "en_US", "it_IT" })
        mintaro::checkSentence(text, mintaro::Locale::fromIdentifier(QLatin1String(locale)));
    return 0;
}
