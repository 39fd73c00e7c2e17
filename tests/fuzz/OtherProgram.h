#pragma once

#include "CalendarModel.h"

#include <QByteArrayList>

namespace mintaro::model {

// Another program that knows iCalendar (RFC 5545) and the same calendars: it edits texts line by line.

/// An event, and the value of its RRULE; empty for none.
struct NewEvent
{
    Series series;
    QByteArray rule;
};

/// An object with these events.
[[nodiscard]] QByteArray objectText(const std::vector<NewEvent> &all);

/// The components of this name, each with its lines from BEGIN to END.
[[nodiscard]] std::vector<QByteArray> componentsOf(const QByteArray &text, const QByteArray &name);
/// Without folds.
[[nodiscard]] QByteArrayList linesOf(const QByteArray &text);
/// The value of the first line of this name that is not inside of a smaller component; empty for none.
[[nodiscard]] QByteArray valueOf(const QByteArray &component, const QByteArray &name);
[[nodiscard]] QByteArray uidOf(const QByteArray &component);
[[nodiscard]] bool isException(const QByteArray &component);

/// What other programs do to an event of a text.
class TextEditor
{
public:
    TextEditor(QByteArray text, const Series &series);

    [[nodiscard]] const QByteArray &text() const { return m_text; }
    /// In what stands for all.
    void setText(const QByteArray &name, const QString &text);
    void addLine(const QByteArray &line);
    void addLineToExceptions(const QByteArray &line);
    void addLineToCalendar(const QByteArray &line);
    /// Of an event that happens once.
    void setTimes(const When &when);
    void exclude(LocalTime original);
    void addException(LocalTime original, const Says &says);

private:
    [[nodiscard]] QByteArray master() const;

    QByteArray m_text;
    const Series &m_series;
};

} // namespace mintaro::model
