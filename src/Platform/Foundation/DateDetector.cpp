#include "Platform/Foundation/DateDetector.h"

#include "Platform/Foundation/Dates/DateResolver.h"
#include "Platform/Foundation/Dates/PhraseReader.h"

namespace mintaro {

namespace {

/// Where the locale writes the month before the day: the United States and what was theirs.
bool writesMonthFirst(const Locale &locale)
{
    static const QStringList regions { QStringLiteral("US"), QStringLiteral("PH"), QStringLiteral("PR"),
        QStringLiteral("GU"), QStringLiteral("VI"), QStringLiteral("AS"), QStringLiteral("MP"), QStringLiteral("FM"),
        QStringLiteral("PW") };
    return regions.contains(locale.region);
}

using enum WordKind;

/// What a phrase can begin with.
constexpr quint64 kBeginnings = maskOf(RelativeDay, TonightWord, DayPartWord, Weekday, Month, Weekend, EndOf, This,
    Next, Last, EndOfUnit, Number, Ordinal, Unit, Minutes, Noon, Midnight, FractionBefore, HourMark, At, On, DayOf,
    Article, From, Between, In, InMonth, For, About, Now);

/// What none of the other language's phrases lacks.
constexpr quint64 kAnchors = maskOf(RelativeDay, TonightWord, DayPartWord, Weekday, Month, Weekend, EndOfUnit, Unit,
    Minutes, Noon, Midnight, FractionBefore, FractionAfter, HourMark, At, DayOf, Between, From);

bool hasAnchor(const DateText &text)
{
    for (int at = 0; at < text.size(); ++at)
        if (text.hasAny(at, kAnchors))
            return true;
    return false;
}

/// A phrase and the tokens that it takes.
struct Found
{
    int first;
    DatePhrase phrase;
};

std::optional<Found> nextPhrase(PhraseReader &reader, const DateText &text, int from)
{
    for (int at = from; at < text.size(); ++at) {
        if (!text.isNumber(at) && !text.hasAny(at, kBeginnings))
            continue;
        auto phrase = reader.read(at);
        if (phrase && phrase->isTitle) {
            at = phrase->next - 1;
            continue;
        }
        // What the user's own language does not know must at least have a word of the other.
        if (phrase && (text.isOwnLanguage() || text.hasWord(at, phrase->next)))
            return Found { at, *phrase };
    }
    return std::nullopt;
}

} // namespace

DateDetector::DateDetector(const Locale &locale)
    : m_isItalian(locale.language == QLatin1String("it"))
    , m_isMonthFirst(writesMonthFirst(locale))
{
}

std::vector<DateDetector::Match> DateDetector::matches(const QString &text, Date now, const Calendar &calendar) const
{
    return found(text, now, calendar, text.size());
}

std::optional<DateDetector::Match> DateDetector::firstMatch(
    const QString &text, Date now, const Calendar &calendar) const
{
    const auto first = found(text, now, calendar, 1);
    return first.empty() ? std::nullopt : std::optional(first.front());
}

std::vector<DateDetector::Match> DateDetector::found(
    const QString &text, Date now, const Calendar &calendar, qsizetype most) const
{
    const DateLexicons &lexicons = DateLexicons::shared();
    const DateTokens tokens = dateTokens(text, lexicons.vocabulary);
    const DateText own(tokens, m_isItalian ? lexicons.italian : lexicons.english, true);
    const DateText other(tokens, m_isItalian ? lexicons.english : lexicons.italian, false);
    const DateOrigin origin { now, std::chrono::floor<std::chrono::days>(calendar.local(now)), calendar,
        m_isMonthFirst };
    PhraseReader ownReader(own, origin);
    PhraseReader otherReader(other, origin);
    std::vector<Match> matches;
    std::optional<Found> inOwn = nextPhrase(ownReader, own, 0);
    std::optional<Found> inOther = hasAnchor(other) ? nextPhrase(otherReader, other, 0) : std::nullopt;
    while ((inOwn || inOther) && static_cast<qsizetype>(matches.size()) < most) {
        // The first in the text; where two overlap, the longer.
        const bool isOwn = inOwn
            && (!inOther || inOwn->phrase.next <= inOther->first
                || (inOther->phrase.next > inOwn->first
                    && inOwn->phrase.next - inOwn->first >= inOther->phrase.next - inOther->first));
        const Found &chosen = isOwn ? *inOwn : *inOther;
        const DateToken &first = tokens[chosen.first];
        const DateToken &last = tokens[chosen.phrase.next - 1];
        const ResolvedDate when = resolved(chosen.phrase, origin);
        matches.push_back({ first.location, last.location + last.length - first.location, when.start, when.duration });
        const int next = chosen.phrase.next;
        if (inOwn && inOwn->first < next)
            inOwn = nextPhrase(ownReader, own, next);
        if (inOther && inOther->first < next)
            inOther = nextPhrase(otherReader, other, next);
    }
    return matches;
}

} // namespace mintaro
