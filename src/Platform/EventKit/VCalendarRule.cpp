#include "Platform/EventKit/VCalendarRule.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <cctype>

namespace mintaro {

namespace {

struct Form
{
    QByteArray prefix;
    QByteArray frequency;
    /// What the rule's list becomes.
    QByteArray part;
};

const std::array<Form, 6> &forms()
{
    static const std::array<Form, 6> all { { { "MP", "MONTHLY", "BYDAY" }, { "MD", "MONTHLY", "BYMONTHDAY" },
        { "YM", "YEARLY", "BYMONTH" }, { "YD", "YEARLY", "BYYEARDAY" }, { "W", "WEEKLY", "BYDAY" },
        { "D", "DAILY", QByteArray() } } };
    return all;
}

bool isNumber(const QByteArray &text)
{
    return !text.isEmpty() && text.size() < 6
        && std::all_of(text.begin(), text.end(), [](unsigned char byte) { return std::isdigit(byte) != 0; });
}

bool isTime(const QByteArray &text)
{
    return text.size() >= 8 && isNumber(text.left(4)) && isNumber(text.mid(4, 4));
}

/// "1+" and "2-" are places from the front and from the end, "LD" is the last day.
QByteArray placeOf(const QByteArray &token)
{
    if (token == "LD")
        return "-1";
    if (token.endsWith('-'))
        return '-' + token.chopped(1);
    return token.endsWith('+') ? token.chopped(1) : token;
}

/// The rule's end; "#0" is none.
QByteArray endOf(const QByteArray &token)
{
    if (isTime(token))
        return ";UNTIL=" + token;
    return token == "#0" ? QByteArray() : ";COUNT=" + token.mid(1);
}

} // namespace

std::optional<QByteArray> modernRule(const QByteArray &rule)
{
    QByteArrayList tokens = rule.toUpper().simplified().split(' ');
    const QByteArray head = tokens.takeFirst();
    const auto form = std::find_if(
        forms().begin(), forms().end(), [&head](const Form &each) { return head.startsWith(each.prefix); });
    if (form == forms().end() || !isNumber(head.mid(form->prefix.size())))
        return std::nullopt;
    const bool hasEnd = !tokens.isEmpty() && (tokens.last().startsWith('#') || isTime(tokens.last()));
    // Two times are what the old form means where it does not say.
    const QByteArray end = endOf(hasEnd ? tokens.takeLast() : QByteArray("#2"));

    QByteArrayList list;
    QByteArray place;
    for (const QByteArray &token : tokens) {
        const bool isWeekday = token.size() == 2 && std::isalpha(static_cast<unsigned char>(token[0])) && token != "LD";
        if (form->prefix == "MP" && !isWeekday)
            place = placeOf(token);
        else
            list.append(isWeekday ? place + token : placeOf(token));
    }
    QByteArray modern = "FREQ=" + form->frequency + ";INTERVAL=" + head.mid(form->prefix.size()) + end;
    if (!list.isEmpty() && !form->part.isEmpty())
        modern += ';' + form->part + '=' + list.join(',');
    return modern;
}

} // namespace mintaro
