#pragma once

#include "App/AppState.h"
#include "Views/Main/MenuBarLabel.h"

#include <QtQml/qqml.h>

namespace mintaro {

// The models know nothing of QML; here they get their names in it.

struct AppStateForQml
{
    Q_GADGET
    QML_FOREIGN(mintaro::AppState)
    QML_NAMED_ELEMENT(AppState)
    QML_UNCREATABLE("The application has one")
};

struct CalendarViewModelForQml
{
    Q_GADGET
    QML_FOREIGN(mintaro::CalendarViewModel)
    QML_NAMED_ELEMENT(CalendarViewModel)
    QML_UNCREATABLE("AppState owns it")
};

struct SearchViewModelForQml
{
    Q_GADGET
    QML_FOREIGN(mintaro::SearchViewModel)
    QML_NAMED_ELEMENT(SearchViewModel)
    QML_UNCREATABLE("AppState owns it")
};

struct MenuBarLabelForQml
{
    Q_GADGET
    QML_FOREIGN(mintaro::MenuBarLabel)
    QML_NAMED_ELEMENT(MenuBarLabelModel)
    QML_UNCREATABLE("The application has one")
};

// What QML only hands from one controller to another.

struct DateForQml
{
    Q_GADGET
    QML_FOREIGN(mintaro::Date)
    QML_VALUE_TYPE(moment)
};

struct RecurrenceRuleForQml
{
    Q_GADGET
    QML_FOREIGN(std::optional<mintaro::EKRecurrenceRule>)
    QML_VALUE_TYPE(recurrenceRule)
};

struct AlertOffsetForQml
{
    Q_GADGET
    QML_FOREIGN(std::optional<std::chrono::seconds>)
    QML_VALUE_TYPE(alertOffset)
};

struct CalendarIDForQml
{
    Q_GADGET
    QML_FOREIGN(std::optional<QString>)
    QML_VALUE_TYPE(calendarID)
};

struct CalendarsForQml
{
    Q_GADGET
    QML_FOREIGN(std::vector<mintaro::EKCalendarRef>)
    QML_VALUE_TYPE(calendars)
};

/// EKSpan under its name, with its values.
namespace SpanForQml {
Q_NAMESPACE
QML_NAMED_ELEMENT(EKSpan)

enum Span { ThisEvent = static_cast<int>(EKSpan::ThisEvent), FutureEvents = static_cast<int>(EKSpan::FutureEvents) };
Q_ENUM_NS(Span)
} // namespace SpanForQml

} // namespace mintaro
