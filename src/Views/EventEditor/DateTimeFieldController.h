#pragma once

#include "App/AppState.h"
#include "Platform/Foundation/DateEntryFormat.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// A place in a text, in UTF-16 units; `end` is exclusive.
struct TextRange
{
    Q_GADGET
    QML_VALUE_TYPE(textRange)
    Q_PROPERTY(int start MEMBER start)
    Q_PROPERTY(int end MEMBER end)

public:
    int start = 0;
    int end = 0;
};

/// A moment as a day and a clock reading that the user types, each in a field of its own. Its zone is the
/// environment's. A reading that a clock change leaves out moves on by what is left out; of two equal ones the first is
/// meant, unless the second was there.
class DateTimeFieldController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mintaro::AppState *appState READ appState WRITE setAppState REQUIRED)
    Q_PROPERTY(mintaro::Date date READ date WRITE setDate NOTIFY dateChanged)
    Q_PROPERTY(QString dayText READ dayText NOTIFY textsChanged)
    Q_PROPERTY(QString timeText READ timeText NOTIFY textsChanged)

public:
    enum Entry { Day, Time };
    Q_ENUM(Entry)

    using QObject::QObject;

    [[nodiscard]] AppState *appState() const { return m_appState; }
    void setAppState(AppState *appState);
    [[nodiscard]] Date date() const { return m_date; }
    void setDate(Date date);
    [[nodiscard]] QString dayText() const;
    [[nodiscard]] QString timeText() const;

    /// Whether the text says a day or a reading.
    Q_INVOKABLE [[nodiscard]] bool accepts(Entry entry, const QString &text) const;
    /// Takes over what was typed. A text that says nothing changes nothing.
    Q_INVOKABLE void apply(Entry entry, const QString &text);
    /// Takes over what was typed and moves the part at the cursor (day, month, year, hour, minute, half of the day) by
    /// that many steps, long ones on demand. Where that part stands in the new text; both 0 where nothing was moved.
    Q_INVOKABLE mintaro::TextRange step(Entry entry, const QString &text, int cursor, int steps, bool isLong);
    /// Another day at the same reading.
    Q_INVOKABLE void moveToDay(mintaro::Date day);

Q_SIGNALS:
    void dateChanged();
    void textsChanged();
    /// The user changed the date.
    void edited();

private:
    /// The moment that the text makes of the date; empty where it says nothing, or nothing that can be shown.
    [[nodiscard]] std::optional<Date> read(Entry entry, const QString &text) const;
    [[nodiscard]] std::optional<Date> moved(DateEntryFormat::Part part, int steps, bool isLong, Date from) const;
    [[nodiscard]] QString text(Entry entry) const { return entry == Day ? dayText() : timeText(); }
    void edit(Date date);

    AppState *m_appState = nullptr;
    std::optional<DateEntryFormat> m_format;
    Date m_date {};
};

} // namespace mintaro
