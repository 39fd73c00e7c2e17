#include "OtherProgram.h"

#include <stdexcept>

namespace mintaro::model {

using namespace std::chrono;

namespace {

constexpr char kRome[] = "BEGIN:VTIMEZONE\r\nTZID:Europe/Rome\r\n"
                         "BEGIN:DAYLIGHT\r\nDTSTART:19810329T020000\r\nTZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200\r\n"
                         "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\r\nEND:DAYLIGHT\r\n"
                         "BEGIN:STANDARD\r\nDTSTART:19961027T030000\r\nTZOFFSETFROM:+0200\r\nTZOFFSETTO:+0100\r\n"
                         "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";
constexpr char kNewYork[] = "BEGIN:VTIMEZONE\r\nTZID:America/New_York\r\n"
                            "BEGIN:DAYLIGHT\r\nDTSTART:20070311T020000\r\nTZOFFSETFROM:-0500\r\nTZOFFSETTO:-0400\r\n"
                            "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=2SU\r\nEND:DAYLIGHT\r\n"
                            "BEGIN:STANDARD\r\nDTSTART:20071104T020000\r\nTZOFFSETFROM:-0400\r\nTZOFFSETTO:-0500\r\n"
                            "RRULE:FREQ=YEARLY;BYMONTH=11;BYDAY=1SU\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";

QByteArray escaped(const QString &text)
{
    QByteArray result = text.toUtf8();
    return result.replace('\\', "\\\\").replace(';', "\\;").replace(',', "\\,").replace('\n', "\\n");
}

/// A content line, folded (RFC 5545 3.1) between characters.
QByteArray line(const QByteArray &content)
{
    QByteArray result;
    qsizetype column = 0;
    for (qsizetype at = 0; at < content.size(); ++at) {
        const bool isInside = (static_cast<unsigned char>(content[at]) & 0xC0) == 0x80;
        if (column >= 70 && !isInside) {
            result += "\r\n ";
            column = 1;
        }
        result += content[at];
        ++column;
    }
    return result + "\r\n";
}

QByteArray timeLine(const QByteArray &name, Form form, LocalTime reading)
{
    if (form == Form::Day)
        return name + ";VALUE=DATE:" + dayText(reading) + "\r\n";
    if (form == Form::Utc)
        return name + ':' + readingText(reading) + "Z\r\n";
    return name + ";TZID=" + (form == Form::Rome ? "Europe/Rome:" : "America/New_York:") + readingText(reading)
        + "\r\n";
}

QByteArray lengthLine(const When &when)
{
    const TimeZone &zone = zoneOf(when.form);
    if (when.form == Form::Day)
        return timeLine("DTEND", when.form, when.start + when.length);
    const LocalTime end = zone.toLocal(when.shownEnd());
    // Some write lengths. It is the only way to say an end in the hour that comes twice.
    if (when.length % hours { 1 } == seconds { 0 } || zone.toInstant(end) != when.shownEnd())
        return "DURATION:PT" + QByteArray::number(qlonglong { when.length / minutes { 1 } }) + "M\r\n";
    return timeLine("DTEND", when.form, end);
}

QByteArray timeLines(const When &when)
{
    return timeLine("DTSTART", when.form, when.start) + lengthLine(when);
}

QByteArray textLine(const QByteArray &name, const QString &text)
{
    return text.isEmpty() ? QByteArray() : line(name + ':' + escaped(text));
}

QByteArray eventText(const QByteArray &uid, const Says &says, const QByteArray &lines)
{
    QByteArray text = "BEGIN:VEVENT\r\nUID:" + uid + "\r\nDTSTAMP:20260101T000000Z\r\n" + timeLines(says.when) + lines
        + textLine("SUMMARY", says.title) + textLine("LOCATION", says.location) + textLine("DESCRIPTION", says.notes);
    for (const QByteArray &tag : says.tags)
        text += tag + "\r\n";
    for (const seconds offset : says.alarms)
        text += "BEGIN:VALARM\r\nACTION:DISPLAY\r\nDESCRIPTION:Soon\r\nTRIGGER:"
            + QByteArray(offset < seconds { 0 } ? "-" : "") + "PT"
            + QByteArray::number(qlonglong { abs(offset).count() }) + "S\r\nX-WHO:other\r\nEND:VALARM\r\n";
    return text + "END:VEVENT\r\n";
}

/// Takes the lines of this name out, but for those of smaller components.
QByteArray without(const QByteArray &component, const QByteArray &name)
{
    QByteArray result;
    int depth = 0;
    bool isLeftOut = false;
    for (qsizetype at = 0; at < component.size();) {
        const qsizetype end = component.indexOf("\r\n", at) + 2;
        const QByteArray physical = component.mid(at, end - at);
        at = end;
        depth += physical.startsWith("BEGIN:") ? 1 : 0;
        depth -= physical.startsWith("END:") ? 1 : 0;
        if (!physical.startsWith(' '))
            isLeftOut = depth == 1 && (physical.startsWith(name + ':') || physical.startsWith(name + ';'));
        if (!isLeftOut)
            result += physical;
    }
    return result;
}

/// Puts lines before all others.
QByteArray with(const QByteArray &component, const QByteArray &lines)
{
    QByteArray result = component;
    return result.insert(result.indexOf("\r\n") + 2, lines);
}

} // namespace

QByteArrayList linesOf(const QByteArray &text)
{
    QByteArray unfolded = text;
    QByteArrayList lines = unfolded.replace("\r\n ", "").split('\n');
    for (QByteArray &each : lines)
        each = each.endsWith('\r') ? each.chopped(1) : each;
    return lines;
}

std::vector<QByteArray> componentsOf(const QByteArray &text, const QByteArray &name)
{
    const QByteArray begin = "BEGIN:" + name + "\r\n";
    const QByteArray end = "END:" + name + "\r\n";
    std::vector<QByteArray> result;
    for (qsizetype at = text.indexOf(begin); at >= 0; at = text.indexOf(begin, at)) {
        const qsizetype after = text.indexOf(end, at) + end.size();
        result.push_back(text.mid(at, after - at));
        at = after;
    }
    return result;
}

QByteArray valueOf(const QByteArray &component, const QByteArray &name)
{
    int depth = 0;
    for (const QByteArray &each : linesOf(component)) {
        depth += each.startsWith("BEGIN:") ? 1 : 0;
        depth -= each.startsWith("END:") ? 1 : 0;
        if (depth == 1 && (each.startsWith(name + ':') || each.startsWith(name + ';')))
            return each.mid(each.indexOf(':') + 1);
    }
    return {};
}

QByteArray uidOf(const QByteArray &component)
{
    return valueOf(component, "UID");
}

bool isException(const QByteArray &component)
{
    return !valueOf(component, "RECURRENCE-ID").isEmpty();
}

QByteArray objectText(const std::vector<NewEvent> &all)
{
    QByteArray text = QByteArray("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//other//EN\r\n") + kRome + kNewYork;
    for (const auto &[series, rule] : all) {
        const QByteArray uid = series.uid.toUtf8();
        text += eventText(uid, series.base, rule.isEmpty() ? QByteArray() : line("RRULE:" + rule));
        TextEditor editor(text, series);
        for (const LocalTime start : series.added)
            editor.addLine(timeLine("RDATE", series.base.when.form, start).chopped(2));
        for (const LocalTime start : series.excluded)
            editor.exclude(start);
        text = editor.text();
        for (const auto &[start, says] : series.own)
            text += eventText(uid, says, timeLine("RECURRENCE-ID", series.base.when.form, start));
    }
    return text + "END:VCALENDAR\r\n";
}

TextEditor::TextEditor(QByteArray text, const Series &series)
    : m_text(std::move(text))
    , m_series(series)
{
}

QByteArray TextEditor::master() const
{
    for (const QByteArray &each : componentsOf(m_text, "VEVENT")) {
        if (uidOf(each) == m_series.uid.toUtf8() && !isException(each))
            return each;
    }
    throw std::logic_error("the event is in no text");
}

void TextEditor::setText(const QByteArray &name, const QString &text)
{
    const QByteArray event = master();
    m_text.replace(event, with(without(event, name), textLine(name, text)));
}

void TextEditor::addLine(const QByteArray &content)
{
    const QByteArray event = master();
    m_text.replace(event, with(event, line(content)));
}

void TextEditor::addLineToExceptions(const QByteArray &content)
{
    for (const QByteArray &each : componentsOf(m_text, "VEVENT")) {
        if (uidOf(each) == m_series.uid.toUtf8() && isException(each))
            m_text.replace(each, with(each, line(content)));
    }
}

void TextEditor::addLineToCalendar(const QByteArray &content)
{
    m_text = with(m_text, line(content));
}

void TextEditor::setTimes(const When &when)
{
    const QByteArray event = master();
    const QByteArray bare = without(without(without(event, "DTSTART"), "DTEND"), "DURATION");
    m_text.replace(event, with(bare, timeLines(when)));
}

void TextEditor::exclude(LocalTime original)
{
    const QByteArray event = master();
    m_text.replace(event, with(event, timeLine("EXDATE", m_series.base.when.form, original)));
}

void TextEditor::addException(LocalTime original, const Says &says)
{
    const QByteArray event = master();
    QByteArray exception = event;
    for (const char *name : { "RRULE", "RDATE", "EXDATE", "DTSTART", "DTEND", "DURATION", "SUMMARY" })
        exception = without(exception, name);
    const QByteArray id = timeLine("RECURRENCE-ID", m_series.base.when.form, original);
    m_text.replace(event, event + with(exception, id + timeLines(says.when) + textLine("SUMMARY", says.title)));
}

} // namespace mintaro::model
