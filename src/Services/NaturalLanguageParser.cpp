#include "Services/NaturalLanguageParser.h"

#include <algorithm>
#include <array>

namespace mintaro {

namespace {

/// In the order in which they are tried. " a " is Italian, and the English article all the same.
constexpr std::array kMarkers { QStringView(u" at "), QStringView(u" a "), QStringView(u" in ") };
constexpr std::array kNoLocations { QStringView(u"noon"), QStringView(u"midnight"), QStringView(u"morning"),
    QStringView(u"evening"), QStringView(u"night"), QStringView(u"am"), QStringView(u"pm"), QStringView(u"today"),
    QStringView(u"tomorrow"), QStringView(u"monday"), QStringView(u"tuesday"), QStringView(u"wednesday"),
    QStringView(u"thursday"), QStringView(u"friday"), QStringView(u"saturday"), QStringView(u"sunday") };
constexpr qsizetype kShortestLocation = 3;

QStringView trimmedOf(QStringView text, QStringView characters)
{
    while (!text.isEmpty() && characters.contains(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && characters.contains(text.back()))
        text.chop(1);
    return text;
}

QStringView trimmedOfBlanks(QStringView text)
{
    return trimmedOf(text, QStringView(u" \t"));
}

/// The text without the match and without the separators that stood around it.
QString withoutMatch(const QString &text, const DateDetector::Match &match)
{
    const QString rest = text.first(match.location) + text.sliced(match.location + match.length);
    return trimmedOfBlanks(trimmedOf(QStringView(rest).trimmed(), QStringView(u"- ,;"))).toString();
}

void extractLocation(QStringView text, ParsedEvent &event)
{
    for (const QStringView marker : kMarkers) {
        const qsizetype at = text.lastIndexOf(marker);
        if (at < 0)
            continue;
        const QStringView candidate = trimmedOfBlanks(text.sliced(at + marker.size()));
        const bool isTime = std::ranges::any_of(
            kNoLocations, [candidate](QStringView word) { return candidate.compare(word, Qt::CaseInsensitive) == 0; });
        if (isTime || candidate.toUcs4().size() < kShortestLocation)
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
