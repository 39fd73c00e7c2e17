#include "bench/GeneratedStore.h"

#include <QDir>
#include <QFile>

#include <array>
#include <chrono>
#include <random>
#include <stdexcept>

namespace mintaro::bench {

namespace {

using namespace std::chrono;

constexpr char kZone[] = "BEGIN:VTIMEZONE\r\nTZID:Europe/Rome\r\n"
                         "BEGIN:DAYLIGHT\r\nDTSTART:19810329T020000\r\nTZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200\r\n"
                         "TZNAME:CEST\r\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\r\nEND:DAYLIGHT\r\n"
                         "BEGIN:STANDARD\r\nDTSTART:19961027T030000\r\nTZOFFSETFROM:+0200\r\nTZOFFSETTO:+0100\r\n"
                         "TZNAME:CET\r\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\r\nEND:STANDARD\r\n"
                         "END:VTIMEZONE\r\n";

/// What people's calendars hold, the commonest more than once.
constexpr std::array kRules { "FREQ=WEEKLY", "FREQ=WEEKLY;BYDAY=MO,WE,FR", "FREQ=WEEKLY;INTERVAL=2",
    "FREQ=WEEKLY;COUNT=30", "FREQ=DAILY;COUNT=20", "FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR;UNTIL=20270331T220000Z",
    "FREQ=MONTHLY;BYDAY=2TU", "FREQ=MONTHLY;BYMONTHDAY=-1", "FREQ=YEARLY", "FREQ=YEARLY" };

enum class Kind { Once, Repeating, Past };

/// Items in the order of their making; the engine's raw output is the same with every standard library.
class ItemWriter
{
public:
    QByteArray next(int number, Kind kind)
    {
        const bool isAllDay = pick(10) == 0;
        const local_days first { kind == Kind::Past ? 2010y / January / 1 : 2024y / January / 1 };
        const local_days day = first + days { pick(4 * 365) };
        QByteArray text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Velmora//Mintaro benchmarks//EN\r\n";
        if (!isAllDay)
            text += kZone;
        text += "BEGIN:VEVENT\r\nUID:item-" + QByteArray::number(number) + "\r\nDTSTAMP:20240101T000000Z\r\n";
        if (isAllDay)
            text += "DTSTART;VALUE=DATE:" + digits(day) + "\r\n";
        else
            text += "DTSTART;TZID=Europe/Rome:" + digits(day) + 'T' + QByteArray::number(10 + pick(10))
                + "3000\r\nDURATION:PT45M\r\n";
        if (kind == Kind::Repeating)
            text += QByteArray("RRULE:") + kRules[static_cast<std::size_t>(pick(static_cast<int>(kRules.size())))]
                + "\r\n";
        text += "SUMMARY:Item " + QByteArray::number(number) + " of the generated store\r\nLOCATION:Room "
            + QByteArray::number(pick(40)) + "\r\nDESCRIPTION:Agenda\\, notes and a link: https://example.com/meet/"
            + QByteArray::number(pick(100'000)) + "\r\n";
        return text + "END:VEVENT\r\nEND:VCALENDAR\r\n";
    }

    /// One a day.
    static QByteArray reminder(int number)
    {
        const local_days day = local_days { 2024y / January / 1 } + days { number };
        return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Velmora//Mintaro benchmarks//EN\r\nBEGIN:VTODO\r\n"
               "UID:reminder-"
            + QByteArray::number(number) + "\r\nDTSTAMP:20240101T000000Z\r\nDUE;VALUE=DATE:" + digits(day)
            + "\r\nSUMMARY:Reminder " + QByteArray::number(number)
            + "\r\nDESCRIPTION:See https://example.com/list\r\nEND:VTODO\r\nEND:VCALENDAR\r\n";
    }

private:
    int pick(int count) { return static_cast<int>(m_engine() % static_cast<unsigned>(count)); }

    static QByteArray digits(local_days day)
    {
        const year_month_day civil { day };
        return QString::asprintf("%04d%02u%02u", static_cast<int>(civil.year()), static_cast<unsigned>(civil.month()),
            static_cast<unsigned>(civil.day()))
            .toLatin1();
    }

    std::mt19937 m_engine { 5545 };
};

void writeFile(const QString &path, const QByteArray &text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

} // namespace

GeneratedStore::GeneratedStore(int items, int past, int reminders)
    : m_items(items + past)
{
    constexpr int kCollections = 20;
    ItemWriter writer;
    for (int number = 0; number < m_items; ++number) {
        const QString folder = root() + QStringLiteral("/calendar-%1").arg(number % kCollections);
        if (number < kCollections && !QDir().mkpath(folder))
            throw std::runtime_error("cannot make " + folder.toStdString());
        const bool repeats = number / kCollections % 10 == 0;
        const QByteArray text = writer.next(number,
            number >= items ? Kind::Past
                : repeats   ? Kind::Repeating
                            : Kind::Once);
        writeFile(QStringLiteral("%1/%2.ics").arg(folder).arg(number), text);
        m_bytes += text.size();
    }
    for (int number = 0; number < reminders; ++number)
        writeFile(root() + QStringLiteral("/calendar-0/reminder-%1.ics").arg(number), ItemWriter::reminder(number));
}

QString GeneratedStore::newCache()
{
    return m_folder.filePath(QStringLiteral("cache-%1").arg(++m_caches));
}

} // namespace mintaro::bench
