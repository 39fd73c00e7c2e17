#include "Services/NaturalLanguageParser.h"

#include <algorithm>
#include <array>

namespace mintaro {

namespace {

/// In the order in which they are tried. " a " is Italian, and the English article all the same.
constexpr std::array kMarkers { QLatin1String(" at "), QLatin1String(" a "), QLatin1String(" in ") };
constexpr std::array kNoLocations { QLatin1String("noon"), QLatin1String("midnight"), QLatin1String("morning"),
    QLatin1String("evening"), QLatin1String("night"), QLatin1String("am"), QLatin1String("pm"), QLatin1String("today"),
    QLatin1String("tomorrow"), QLatin1String("monday"), QLatin1String("tuesday"), QLatin1String("wednesday"),
    QLatin1String("thursday"), QLatin1String("friday"), QLatin1String("saturday"), QLatin1String("sunday") };
constexpr qsizetype kShortestLocation = 3;

QStringView trimmedOf(QStringView text, QLatin1String characters)
{
    while (!text.isEmpty() && characters.contains(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && characters.contains(text.back()))
        text.chop(1);
    return text;
}

QStringView trimmedOfBlanks(QStringView text)
{
    return trimmedOf(text, QLatin1String(" \t"));
}

/// The text without the match and without the separators that stood around it.
QString withoutMatch(const QString &text, const DateDetector::Match &match)
{
    const QString rest = text.first(match.location) + text.sliced(match.location + match.length);
    return trimmedOfBlanks(trimmedOf(QStringView(rest).trimmed(), QLatin1String("- ,;"))).toString();
}

void extractLocation(QStringView text, ParsedEvent &event)
{
    for (const QLatin1String marker : kMarkers) {
        const qsizetype at = text.lastIndexOf(marker);
        if (at < 0)
            continue;
        const QStringView candidate = trimmedOfBlanks(text.sliced(at + marker.size()));
        const bool isTime = std::ranges::any_of(kNoLocations,
            [candidate](QLatin1String word) { return candidate.compare(word, Qt::CaseInsensitive) == 0; });
        if (isTime || candidate.size() < kShortestLocation)
            continue;
        event.location = candidate.toString();
        event.title = trimmedOfBlanks(text.first(at)).toString();
        return;
    }
}

} // namespace

NaturalLanguageParser::NaturalLanguageParser(const Environment &environment)
    : m_environment(environment)
    , m_dateDetector(environment.locale())
{
}

std::optional<ParsedEvent> NaturalLanguageParser::parse(const QString &text) const
{
    if (trimmedOfBlanks(text).isEmpty())
        return std::nullopt;
    ParsedEvent event { .title = text };
    const Calendar calendar = m_environment.calendar();
    if (const auto match = m_dateDetector.firstMatch(text, m_environment.now(), calendar)) {
        event.startDate = match->date;
        event.endDate = match->date + (match->duration.count() > 0 ? match->duration : std::chrono::hours { 1 });
        if (const QString rest = withoutMatch(text, *match); !rest.isEmpty())
            event.title = rest;
    }
    // A copy: the title is what it is taken from and what it is written to.
    extractLocation(QString(event.title), event);
    return event;
}

} // namespace mintaro
