#include "Platform/EventKit/Folders/SampleStore.h"

#include "Platform/EventKit/Folders/Folder.h"
#include "Platform/EventKit/Folders/NewFolder.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>

namespace mintaro {

namespace {

constexpr qint64 kLargestTemplate = 1024 * 1024;

/// Fills placeholders in. Days count from the day of the present moment.
class Placeholders
{
public:
    Placeholders(Date now, const Calendar &calendar)
        : m_zone(calendar.timeZone())
        , m_now(std::chrono::ceil<std::chrono::minutes>(now))
        , m_today(std::chrono::floor<std::chrono::days>(m_zone.toLocal(m_now)))
    {
    }

    /// Throws EKError for a placeholder that is none of ours.
    [[nodiscard]] QString fill(const QString &text) const
    {
        static const QRegularExpression placeholder(QStringLiteral("\\{\\{(.*?)\\}\\}"));
        QString filled;
        qsizetype end = 0;
        for (auto matches = placeholder.globalMatch(text); matches.hasNext();) {
            const QRegularExpressionMatch match = matches.next();
            filled += QStringView(text).mid(end, match.capturedStart() - end);
            filled += value(match.captured(1));
            end = match.capturedEnd();
        }
        return filled + text.mid(end);
    }

private:
    [[nodiscard]] QString value(const QString &name) const
    {
        static const QRegularExpression form(
            QStringLiteral("^(?<utc>utc )?(?:now(?<minutes>[+-]\\d+)m|"
                           "(?:(?<count>[+-]?\\d+)(?<unit>[db])|"
                           "(?<weekday>mon|tue|wed|thu|fri|sat|sun)(?<weeks>[+-]\\d+)?)"
                           "(?: (?<hour>\\d\\d):(?<minute>\\d\\d))?)$"));
        if (name == QLatin1String("zone"))
            return m_zone.identifier();
        const QRegularExpressionMatch match = form.match(name);
        const bool hasTime = match.hasCaptured(u"hour") || match.hasCaptured(u"minutes");
        const bool isUtc = match.hasCaptured(u"utc");
        if (!match.hasMatch() || (isUtc && !hasTime))
            throw EKError(QStringLiteral("the placeholder {{%1}} is not known").arg(name).toStdString());
        if (!hasTime)
            return text(day(match), QStringLiteral("yyyyMMdd"));
        const LocalTime reading = readingOf(match);
        if (!isUtc)
            return text(reading, QStringLiteral("yyyyMMdd'T'HHmmss"));
        const LocalTime utc(m_zone.toInstant(reading).time_since_epoch());
        return text(utc, QStringLiteral("yyyyMMdd'T'HHmmss'Z'"));
    }

    [[nodiscard]] LocalTime readingOf(const QRegularExpressionMatch &match) const
    {
        if (match.hasCaptured(u"minutes"))
            return m_zone.toLocal(m_now + std::chrono::minutes(match.captured(u"minutes").toInt()));
        return day(match) + std::chrono::hours(match.captured(u"hour").toInt())
            + std::chrono::minutes(match.captured(u"minute").toInt());
    }

    [[nodiscard]] std::chrono::local_days day(const QRegularExpressionMatch &match) const
    {
        if (match.captured(u"unit") == u'd')
            return m_today + std::chrono::days(match.captured(u"count").toInt());
        if (match.captured(u"unit") == u'b')
            return workingDay(match.captured(u"count").toInt());
        static const QString names = QStringLiteral("montuewedthufrisatsun");
        const std::chrono::local_days monday = m_today - (std::chrono::weekday(m_today) - std::chrono::Monday);
        return monday + std::chrono::days(names.indexOf(match.captured(u"weekday")) / 3)
            + std::chrono::weeks(match.captured(u"weeks").toInt());
    }

    [[nodiscard]] std::chrono::local_days workingDay(int count) const
    {
        const std::chrono::days step(count < 0 ? -1 : 1);
        std::chrono::local_days day = m_today;
        while (count != 0) {
            day += step;
            if (std::chrono::weekday(day).iso_encoding() <= 5)
                count -= static_cast<int>(step.count());
        }
        return day;
    }

    [[nodiscard]] static QString text(LocalTime reading, const QString &format)
    {
        return QDateTime::fromSecsSinceEpoch(reading.time_since_epoch().count(), Qt::UTC).toString(format);
    }

    const TimeZone m_zone;
    const std::chrono::sys_seconds m_now;
    const std::chrono::local_days m_today;
};

QByteArray filledFile(const QString &path, const Placeholders &placeholders)
{
    const FileText file = readFile(path, kLargestTemplate);
    if (!file.bytes)
        throw EKError(QStringLiteral("%1: %2").arg(escapedPath(path), file.problem).toStdString());
    if (!isObjectName(path))
        return *file.bytes;
    try {
        // RFC 5545 3.1 ends lines with CRLF; the templates have the ends that editors write.
        return placeholders.fill(QString::fromUtf8(*file.bytes)).replace(u'\n', QLatin1String("\r\n")).toUtf8();
    } catch (const EKError &error) {
        throw EKError((escapedPath(path) + QLatin1String(": ")).toStdString() + error.what());
    }
}

QByteArray configurationFor(const QString &target, const QStringList &sources)
{
    QString text = QStringLiteral("# The roots of the sample calendars.\n");
    for (const QString &source : sources)
        text += QStringLiteral("root = \"%1/%2\"\n").arg(target, source);
    return (text + QLatin1String("address = me@example.org\n")).toUtf8();
}

} // namespace

QString SampleStore::templateFolder()
{
    return QStringLiteral(MINTARO_SAMPLE_STORE_SOURCE);
}

void SampleStore::write(const QString &templateFolder, const QString &target, Date now, const Calendar &calendar)
{
    const QDir templates(templateFolder);
    const QStringList sources = templates.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    if (sources.isEmpty())
        throw EKError(QStringLiteral("%1: no templates").arg(escapedPath(templateFolder)).toStdString());
    const QString place = QDir::cleanPath(QDir::current().absoluteFilePath(target));
    const Placeholders placeholders(now, calendar);
    NewFolder folder(place);
    for (QDirIterator files(templateFolder, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
        const QString path = files.next();
        folder.write(templates.relativeFilePath(path), filledFile(path, placeholders));
    }
    folder.write(QStringLiteral("config/mintaro/store.conf"), configurationFor(place, sources));
    folder.finish();
}

} // namespace mintaro
