#include "Platform/Foundation/TimeZone.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QMutex>
#include <QTimeZone>

#include <algorithm>

namespace mintaro {

using std::chrono::hours;
using std::chrono::seconds;
using std::chrono::sys_seconds;

namespace {

// Between these years offsets come from a table, in a step or two; outside them QTimeZone is asked.
constexpr sys_seconds kTableBegin = std::chrono::sys_days { std::chrono::year { 1900 } / 1 / 1 };
constexpr sys_seconds kTableEnd = std::chrono::sys_days { std::chrono::year { 2100 } / 1 / 1 };
constexpr seconds kSpan = std::chrono::days { 64 };

QDateTime toQDateTime(sys_seconds at)
{
    return QDateTime::fromSecsSinceEpoch(at.time_since_epoch().count(), Qt::UTC);
}

sys_seconds toSeconds(const QDateTime &at)
{
    return sys_seconds { seconds { at.toSecsSinceEpoch() } };
}

/// The changes from `begin` up to `end`, both inclusive.
QTimeZone::OffsetDataList transitionsOf(const QTimeZone &zone, sys_seconds begin, sys_seconds end)
{
    auto all = zone.transitions(toQDateTime(begin), toQDateTime(end));
    // Qt 6.4 stops where the list in a zone's file does (2037), though the file has a rule for what follows.
    const QDateTime rest = all.isEmpty() ? toQDateTime(begin) : all.last().atUtc.addSecs(1);
    all.append(zone.transitions(rest, toQDateTime(end)));
    return all;
}

/// Qt takes POSIX rules and offsets for zones too, and does not list the database's links; only its files are meant
/// here.
bool isDatabaseName(const QString &identifier)
{
    const auto isLetter = [](QChar c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); };
    const auto isAllowed = [&](QChar c) {
        return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'_' || c == u'+' || c == u'-' || c == u'/';
    };
    return !identifier.isEmpty() && isLetter(identifier.front()) && !identifier.contains(QLatin1String("//"))
        && std::all_of(identifier.begin(), identifier.end(), isAllowed)
        && QFileInfo(QStringLiteral("/usr/share/zoneinfo/") + identifier).isFile();
}

} // namespace

struct TimeZone::Rules
{
    QString identifier;
    seconds initialOffset { 0 };
    std::vector<Transition> transitions;
    /// For each span of kSpan from kTableBegin on, how many transitions are before it: where a search begins.
    std::vector<std::uint32_t> transitionsBefore;
    /// Absent for UTC and for zones with rules of their own: the table is all there is.
    std::optional<QTimeZone> source;

    static std::shared_ptr<const Rules> read(const QTimeZone &zone);
    void setTransitions(std::vector<Transition> ascending);
    [[nodiscard]] seconds offset(sys_seconds at) const;
};

std::shared_ptr<const TimeZone::Rules> TimeZone::Rules::read(const QTimeZone &zone)
{
    auto rules = std::make_shared<Rules>();
    rules->identifier = QString::fromLatin1(zone.id());
    rules->initialOffset = seconds { zone.offsetFromUtc(toQDateTime(kTableBegin)) };
    std::vector<Transition> transitions;
    for (const auto &each : transitionsOf(zone, kTableBegin, kTableEnd))
        transitions.push_back({ toSeconds(each.atUtc), seconds { each.offsetFromUtc } });
    rules->setTransitions(std::move(transitions));
    rules->source = zone;
    return rules;
}

void TimeZone::Rules::setTransitions(std::vector<Transition> ascending)
{
    transitions = std::move(ascending);
    auto next = transitions.begin();
    for (sys_seconds at = kTableBegin; !transitions.empty() && at < kTableEnd; at += kSpan) {
        next = std::find_if(next, transitions.end(), [at](const Transition &each) { return each.at >= at; });
        transitionsBefore.push_back(static_cast<std::uint32_t>(next - transitions.begin()));
    }
}

seconds TimeZone::Rules::offset(sys_seconds at) const
{
    const bool isInTable = at >= kTableBegin && at < kTableEnd;
    if (source && !isInTable)
        return seconds { source->offsetFromUtc(toQDateTime(at)) };
    if (transitions.empty())
        return initialOffset;
    const auto span = static_cast<std::size_t>(isInTable ? (at - kTableBegin) / kSpan : 0);
    auto next = transitions.begin() + (isInTable ? transitionsBefore[span] : 0);
    while (next != transitions.end() && next->at <= at)
        ++next;
    return next == transitions.begin() ? initialOffset : std::prev(next)->offset;
}

TimeZone::TimeZone(std::shared_ptr<const Rules> rules)
    : m_rules(std::move(rules))
{
}

TimeZone::TimeZone()
{
    static const auto utc = [] {
        auto rules = std::make_shared<Rules>();
        rules->identifier = QStringLiteral("UTC");
        return std::shared_ptr<const Rules>(rules);
    }();
    m_rules = utc;
}

std::optional<TimeZone> TimeZone::named(const QString &identifier)
{
    static QMutex mutex;
    static QHash<QString, std::shared_ptr<const Rules>> known;

    if (identifier == QLatin1String("UTC"))
        return TimeZone();
    const QMutexLocker lock(&mutex);
    auto &rules = known[identifier];
    if (!rules) {
        const QTimeZone zone = isDatabaseName(identifier) ? QTimeZone(identifier.toLatin1()) : QTimeZone();
        if (!zone.isValid()) {
            known.remove(identifier);
            return std::nullopt;
        }
        rules = Rules::read(zone);
    }
    return TimeZone(rules);
}

TimeZone TimeZone::custom(const QString &identifier, seconds initialOffset, std::vector<Transition> transitions)
{
    auto rules = std::make_shared<Rules>();
    rules->identifier = identifier;
    rules->initialOffset = initialOffset;
    rules->setTransitions(std::move(transitions));
    return TimeZone(rules);
}

QStringList TimeZone::knownTimeZoneIdentifiers()
{
    QStringList identifiers { QStringLiteral("UTC") };
    const auto ids = QTimeZone::availableTimeZoneIds();
    for (const QByteArray &id : ids) {
        if (id.contains('/')) // Qt lists mere offsets too
            identifiers.append(QString::fromLatin1(id));
    }
    identifiers.sort();
    return identifiers;
}

TimeZone TimeZone::system()
{
    QString name = qEnvironmentVariable("TZ");
    if (name.startsWith(u':'))
        name.remove(0, 1);
    if (name.isEmpty())
        name = QFileInfo(QStringLiteral("/etc/localtime")).symLinkTarget();
    const QLatin1String folder("/zoneinfo/");
    if (const auto at = name.indexOf(folder); at >= 0)
        name = name.mid(at + folder.size());
    return named(name).value_or(TimeZone());
}

const QString &TimeZone::identifier() const
{
    return m_rules->identifier;
}

bool TimeZone::isNamed() const
{
    return m_rules->source.has_value() || *this == TimeZone();
}

seconds TimeZone::initialOffset() const
{
    return m_rules->initialOffset;
}

const std::vector<TimeZone::Transition> &TimeZone::transitions() const
{
    return m_rules->transitions;
}

std::vector<TimeZone::Observance> TimeZone::observances(sys_seconds begin, sys_seconds end) const
{
    if (!m_rules->source)
        return {};
    // What is daylight shows in what comes after it, thus one more year.
    auto all = transitionsOf(*m_rules->source, begin, end + std::chrono::years { 1 });
    if (all.isEmpty() || toSeconds(all.first().atUtc) > begin) {
        all.prepend(m_rules->source->offsetData(toQDateTime(begin)));
        all.first().atUtc = toQDateTime(begin);
    }
    std::vector<Observance> result;
    for (auto each = all.cbegin(); each != all.cend() && toSeconds(each->atUtc) < end; ++each) {
        const auto next = std::next(each);
        const bool isBeforeWinterTime = next != all.cend() && next->daylightTimeOffset < 0;
        const bool isDaylight = each->daylightTimeOffset > 0 || (each->daylightTimeOffset == 0 && isBeforeWinterTime);
        const seconds offset { each->offsetFromUtc };
        const seconds before = result.empty() ? offset : result.back().offset;
        if (result.empty() || before != offset || result.back().isDaylight != isDaylight
            || result.back().abbreviation != each->abbreviation)
            result.push_back({ toSeconds(each->atUtc), before, offset, isDaylight, each->abbreviation });
    }
    return result;
}

seconds TimeZone::secondsFromGMT(sys_seconds at) const
{
    return m_rules->offset(at);
}

QString TimeZone::abbreviation(sys_seconds at) const
{
    if (*this == TimeZone())
        return identifier();
    return m_rules->source ? m_rules->source->abbreviation(toQDateTime(at)) : QString();
}

LocalTime TimeZone::toLocal(sys_seconds at) const
{
    return LocalTime { at.time_since_epoch() + m_rules->offset(at) };
}

sys_seconds TimeZone::toInstant(LocalTime reading) const
{
    const sys_seconds asUtc { reading.time_since_epoch() };
    // No zone changes its offset twice within two days, so these two are the offsets on both sides of a change nearby.
    const seconds before = m_rules->offset(asUtc - hours { 24 });
    const seconds after = m_rules->offset(asUtc + hours { 24 });
    if (before == after)
        return asUtc - before;
    const bool beforeHolds = m_rules->offset(asUtc - before) == before;
    const bool afterHolds = m_rules->offset(asUtc - after) == after;
    if (beforeHolds && afterHolds)
        return std::min(asUtc - before, asUtc - after);
    if (afterHolds)
        return asUtc - after;
    return asUtc - before;
}

} // namespace mintaro
