#pragma once

#include "EngineFixture.h"
#include "StoreUser.h"

namespace mintaro {

/// An item that several programs change at once: each owns a field, in which it counts.
struct CountedItem
{
    QString uid;
    /// Of the occurrence whose fields are changed.
    std::size_t place;
    EKSpan span;
    /// "%1" stands for the fields.
    const char *text;
};

inline std::vector<CountedItem> countedItems()
{
    return {
        { u"single"_qs, 0, EKSpan::ThisEvent, "DTSTART:20260303T090000Z\nDTEND:20260303T100000Z\n%1" },
        { u"series"_qs, 0, EKSpan::FutureEvents,
            "DTSTART;TZID=Europe/Rome:20260302T090000\nDTEND;TZID=Europe/Rome:20260302T100000\n"
            "RRULE:FREQ=WEEKLY;COUNT=12\n%1" },
        { u"exception"_qs, 3, EKSpan::ThisEvent,
            "DTSTART:20260302T090000Z\nDTEND:20260302T100000Z\nRRULE:FREQ=DAILY;COUNT=8\nSUMMARY:Series\n"
            "END:VEVENT\nBEGIN:VEVENT\nUID:exception\nRECURRENCE-ID:20260305T090000Z\n"
            "DTSTART:20260305T150000Z\nDTEND:20260305T160000Z\n%1" },
    };
}

inline QByteArray textOf(const CountedItem &item)
{
    constexpr char kFields[] = "SUMMARY:title 0\nLOCATION:location 0\nX-COUNT:other 0";
    return calendarOf("BEGIN:VEVENT\nUID:" + item.uid.toUtf8() + '\n' + QByteArray(item.text).replace("%1", kFields)
        + "\nEND:VEVENT");
}

} // namespace mintaro
