#pragma once

#include "App/AppState.h"
#include "Platform/Foundation/DateFormatter.h"

#include <QObject>
#include <QTimer>

namespace mintaro {

/// What the panel shows at all times: a calendar symbol, today's date and, if wanted, the next event with its
/// countdown. It lives as long as the process, starts the loading and keeps the countdown ticking; MenuBarLabel.qml
/// draws it where a host needs a window or a picture, others take the texts.
class MenuBarLabel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString formattedDate READ formattedDate NOTIFY changed)
    Q_PROPERTY(bool showsNextEvent READ showsNextEvent NOTIFY changed)
    Q_PROPERTY(QString meetingSymbol READ meetingSymbol NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString countdown READ countdown NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)

public:
    /// `appState` must outlive the object.
    explicit MenuBarLabel(AppState &appState);

    /// Begins the two start tasks and the 30-second timer.
    void appear();

    /// Today's day of the month in plain digits, for the icon.
    [[nodiscard]] const QString &day() const { return m_items.day; }
    /// Empty where the user hides it.
    [[nodiscard]] const QString &formattedDate() const { return m_items.formattedDate; }
    [[nodiscard]] bool showsNextEvent() const { return !m_items.title.isEmpty(); }
    /// Name of the meeting service's symbol; empty without a meeting, or where the user hides it.
    [[nodiscard]] const QString &meetingSymbol() const { return m_items.meetingSymbol; }
    /// The next event's title, cut to the wanted length.
    [[nodiscard]] const QString &title() const { return m_items.title; }
    [[nodiscard]] const QString &countdown() const { return m_items.countdown; }
    /// All of it as one line, as in "22 Nov · Design review in 12 min".
    [[nodiscard]] QString text() const;
    /// The next event with its whole title, or that there is none.
    [[nodiscard]] QString toolTip() const;

Q_SIGNALS:
    /// Some of the items differ from before.
    void changed();

private:
    struct Items
    {
        QString day;
        QString formattedDate;
        QString meetingSymbol;
        QString title;
        QString countdown;
        friend bool operator==(const Items &, const Items &) = default;
    };

    void tick();
    void update();
    void useDateFormat();
    [[nodiscard]] QString shortened(const QString &title) const;

    AppState &m_appState;
    Date m_now;
    DateFormatter m_dateFormat;
    Items m_items;
    QTimer m_timer;
};

} // namespace mintaro
