#include "main/Pictures.h"

#include "Platform/AppKit/Appearance.h"
#include "Platform/AppKit/Workspace.h"
#include "Views/EventEditor/EventEditorViewController.h"
#include "Views/Main/MenuBarLabel.h"
#include "Views/Notifications/NotificationViewController.h"
#include "Views/Settings/SettingsViewController.h"
#include "Views/ViewEngine.h"
#include "Views/WorldClock/TimezonePickerViewController.h"

#include <QCoroTask>
#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QQuickWindow>

#include <stdexcept>

namespace mintaro {

namespace {

/// Pictures open nothing.
class NoWorkspace final : public Workspace
{
public:
    bool open(const URL &, const QString &) override { return false; }
    [[nodiscard]] QCoro::Task<bool> hasHandler(QString) override { co_return false; }
};

constexpr int kDaysToOtherSelection = 2;
constexpr int kMarginAround = 16;
constexpr int kCalendarsTab = 2;
constexpr int kWorldClockTab = 4;
/// Where a row is pressed for its menu.
constexpr QPointF kInRow { 60, 16 };
/// More than the notes show at once.
constexpr int kManyLines = 8;

class Studio
{
public:
    Studio(const PictureJob &job, const QString &look)
        : m_job(job)
        , m_look(look)
        , m_context(job.options)
        , m_appearance(QDBusConnection(QStringLiteral("no bus: the palette decides")))
        , m_appState(m_context.dependencies(m_workspace))
        , m_label(m_appState)
        , m_views(m_appState, m_label, m_appearance)
        , m_session(QByteArray())
        , m_loginItem({})
        , m_sparkleUpdater(m_session, m_context.defaults(), m_context.environment(), {}, {})
    {
    }

    QStringList draw()
    {
        const auto popover = m_views.makeMainPopoverView();
        const auto label = m_views.makeMenuBarLabel();
        save(*popover, QStringLiteral("popover-noaccess"));
        drawTab("calendars-noaccess", kCalendarsTab);
        QCoro::waitFor(m_appState.requestAccessAndLoad());
        save(*label, QStringLiteral("label"));
        save(*popover, QStringLiteral("popover"));
        const Calendar calendar = m_context.environment().calendar();
        m_appState.selectDay(
            *calendar.dateByAdding(Calendar::Component::Day, kDaysToOtherSelection, m_context.environment().now()));
        save(*popover, QStringLiteral("popover-selected"));
        drawMenus(*popover);
        drawQuestions(*popover);
        drawSearches(*popover);
        drawEditors();
        drawNotification();
        drawSettings();
        m_context.defaults().setBool(true, QStringLiteral("ShowWeekNumbers"));
        select(QStringLiteral("nothing of that name"));
        save(*popover, QStringLiteral("popover-empty"));
        for (const auto &[key, value] : m_context.defaults().dictionaryRepresentation().toStdMap())
            m_context.defaults().removeObjectForKey(key);
        return m_files;
    }

private:
    void drawMenus(QQuickItem &popover)
    {
        for (const auto &[name, type] : { std::pair { "popover-eventmenu", "EventRow" },
                 std::pair { "popover-remindermenu", "ReminderAgendaRow" } }) {
            save(popover, QLatin1String(name), [&popover, type = type] {
                settle();
                if (QQuickItem *row = itemOfType(popover, type))
                    QMetaObject::invokeMethod(row, "menuRequested", Q_ARG(QPointF, kInRow));
            });
        }
    }

    void drawSearches(QQuickItem &popover)
    {
        SearchViewModel &search = *m_appState.searchVM();
        for (const auto &[name, text] :
            { std::pair { "popover-search", "a" }, std::pair { "popover-search-nothing", "nothing like that" } }) {
            search.setSearchText(QLatin1String(text));
            QCoro::waitFor(search.search());
            save(popover, QLatin1String(name), [this] { m_appState.setShowingSearch(true); });
            m_appState.setShowingSearch(false);
        }
        search.clear();
    }

    void drawQuestions(QQuickItem &popover)
    {
        if (const auto single = anEvent([](const EKEvent &event) { return !event.hasRecurrenceRules(); })) {
            save(popover, QStringLiteral("popover-delete"), [&] { m_appState.requestDeleteEvent(*single); });
            m_appState.setShowingDeleteConfirmation(false);
        }
        if (const auto series = anEvent(std::mem_fn(&EKEvent::hasRecurrenceRules))) {
            save(popover, QStringLiteral("popover-span"), [&] { m_appState.requestDeleteEvent(*series); });
            m_appState.setShowingSpanPicker(false);
        }
        save(popover, QStringLiteral("popover-error"), [&] {
            m_appState.setErrorMessage(
                QStringLiteral("Failed to save event: The calendar \"Home\" cannot be changed."));
        });
        m_appState.setErrorMessage({});
    }

    void drawEditors()
    {
        using Editor = EventEditorViewController;
        const auto nothing = [](Editor &) {};
        const QString sentence = m_job.language == QLatin1String("it")
            ? QStringLiteral("Pranzo domani alle 13 a Trastevere")
            : QStringLiteral("Lunch tomorrow at noon at Roma");
        drawEditor("editor-new", {}, [&sentence](Editor &editor) { editor.setTitle(sentence); });
        if (const auto series = anEvent(std::mem_fn(&EKEvent::hasRecurrenceRules)))
            drawEditor("editor-series", series->ekEvent, std::mem_fn(&Editor::handleSave));
        if (const auto wholeDays = anEvent(std::mem_fn(&EKEvent::isAllDay)))
            drawEditor("editor-allday", wholeDays->ekEvent, nothing);
        const auto single = anEvent([](const EKEvent &event) { return !event.isAllDay() && event.location(); });
        if (!single)
            return;
        drawEditor("editor-existing", single->ekEvent, nothing);
        EventDraft draft = EventDraft::fromEvent(single->ekEvent);
        for (int line = 1; line <= kManyLines; ++line)
            draft.notes += QStringLiteral("%1. Figures\n").arg(line);
        m_appState.keepRejectedDraft(single->ekEvent, draft);
        drawEditor("editor-longnotes", single->ekEvent, nothing);
    }

    void drawEditor(const char *name, const std::optional<EKEvent> &event,
        const std::function<void(EventEditorViewController &)> &act)
    {
        EventEditorViewController editor(m_appState, event);
        QCoro::waitFor(editor.loadData());
        const auto view = m_views.makeEventEditorView(editor);
        save(*view, QLatin1String(name), [&] { act(editor); });
    }

    void drawSettings()
    {
        int tab = 0;
        for (const char *name : { "general", "appearance", "calendars", "shortcuts", "worldclock", "about" })
            drawTab(name, tab++);
        drawTab("general-bottom", 0, scrollToBottom);
        m_context.defaults().setBool(false, QStringLiteral("ShowNextEventInMenuBar"));
        m_context.defaults().setBool(false, QStringLiteral("MeetingNotificationsEnabled"));
        drawTab("general-less", 0);
        m_context.defaults().setBool(false, QStringLiteral("UseSystemAccent"));
        m_context.defaults().setString(QStringLiteral("#a2298f"), QStringLiteral("AccentColorHex"));
        drawTab("appearance-own", 1);
        m_context.defaults().removeObjectForKey(QStringLiteral("UseSystemAccent"));
        m_context.defaults().setData(encoded({ WorldClockEntry::forZone(QStringLiteral("Europe/Rome")),
                                         WorldClockEntry::forZone(QStringLiteral("America/New_York")),
                                         WorldClockEntry::forZone(QStringLiteral("Asia/Tokyo")) }),
            QStringLiteral("WorldClockEntries"));
        drawTab("worldclock-zones", kWorldClockTab);
        drawTab("calendars-open", kCalendarsTab, [](QQuickItem &view) {
            if (QQuickItem *row = itemOfType(view, "DisclosureRow"))
                QMetaObject::invokeMethod(row, "clicked");
        });
        TimezonePickerViewController picker(m_context.environment());
        const auto view = m_views.makeTimezonePickerView(picker);
        save(*view, QStringLiteral("timezones"));
        picker.setSearchText(QStringLiteral("rome"));
        save(*view, QStringLiteral("timezones-found"));
    }

    static void scrollToBottom(QQuickItem &view)
    {
        if (QQuickItem *page = itemOfType(view, "GeneralSettingsView"))
            QMetaObject::invokeMethod(page, "scrollToBottom");
    }

    void drawTab(
        const char *name, int tab, const std::function<void(QQuickItem &)> &act = [](QQuickItem &) {})
    {
        SettingsViewController settings({ m_appState, m_loginItem, m_sparkleUpdater, Bundle::mainBundle() });
        const auto view = m_views.makeSettingsView(settings);
        view->setProperty("currentIndex", tab);
        QCoro::waitFor(settings.calendars()->loadCalendars());
        save(*view, QStringLiteral("settings-") + QLatin1String(name), [&] {
            settle();
            act(*view);
        });
    }

    void drawNotification()
    {
        constexpr int kMinutes = 5;
        const QString title = QStringLiteral("Design review");
        NotificationViewController notification({ .identifier = {},
            .title = qtTrId("notification.meetingSoon %@ %@ %lld", kMinutes).arg(QStringLiteral("Zoom"), title),
            .body = qtTrId("notification.eventIn %@ %lld", kMinutes).arg(title),
            .hasSound = false,
            .actions = { { QString(), qtTrId("notification.joinMeeting") } } });
        save(*m_views.makeNotificationView(notification), QStringLiteral("notification"));
    }

    /// The first event of the month that is like that.
    [[nodiscard]] std::optional<CalendarEvent> anEvent(const std::function<bool(const EKEvent &)> &isLikeThat)
    {
        for (const DayEvents &day : m_appState.eventsVM().dayEvents()) {
            for (const CalendarEvent &event : day.events) {
                if (isLikeThat(event.ekEvent))
                    return event;
            }
        }
        return std::nullopt;
    }

    /// Shows only the calendars and reminder lists of that identifier.
    void select(const QString &identifier)
    {
        m_context.defaults().setStringArray({ identifier }, QStringLiteral("SelectedCalendars"));
        m_context.defaults().setStringArray({ identifier }, QStringLiteral("SelectedReminderLists"));
        QCoro::waitFor(m_appState.refreshAll());
    }

    /// `act`: what the user does before the picture is taken.
    void save(
        QQuickItem &item, const QString &name, const std::function<void()> &act = [] {})
    {
        QQuickWindow window;
        window.setColor(m_look == QLatin1String("dark") ? QColor(0x5b6b7f) : QColor(0x8fa3b8));
        item.setParentItem(window.contentItem());
        item.setPosition({ kMarginAround, kMarginAround });
        const auto edge = [](double length) { return static_cast<int>(std::ceil(length)) + 2 * kMarginAround; };
        window.resize(edge(item.width()), edge(item.height()));
        window.show();
        act();
        // Layouts and animations that loading began are to have ended.
        settle();
        window.resize(edge(item.width()), edge(item.height()));
        const QImage picture = window.grabWindow();
        // A menu that is up would be in the next picture too.
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &escape);
        item.setParentItem(nullptr);
        const QString file = QStringLiteral("%1/%2-%3-%4.png").arg(m_job.folder, name, m_look, m_job.language);
        if (!picture.save(file))
            throw std::runtime_error("cannot write " + file.toStdString());
        m_files.append(file);
    }

    /// The first item below `item` whose view bears that name; null where there is none.
    static QQuickItem *itemOfType(QQuickItem &item, const QByteArray &name)
    {
        if (QByteArray(item.metaObject()->className()).startsWith(name + '_'))
            return &item;
        for (QQuickItem *child : item.childItems()) {
            if (QQuickItem *found = itemOfType(*child, name))
                return found;
        }
        return nullptr;
    }

    static void settle()
    {
        QEventLoop loop;
        QTimer::singleShot(std::chrono::milliseconds { 300 }, &loop, &QEventLoop::quit);
        loop.exec();
    }

    const PictureJob &m_job;
    QString m_look;
    NoWorkspace m_workspace;
    AppContext m_context;
    Appearance m_appearance;
    AppState m_appState;
    MenuBarLabel m_label;
    ViewEngine m_views;
    URLSession m_session;
    SMAppService m_loginItem;
    SparkleUpdater m_sparkleUpdater;
    QStringList m_files;
};

} // namespace

QStringList drawPictures(const PictureJob &job)
{
    if (!QDir().mkpath(job.folder))
        throw std::runtime_error("cannot make " + job.folder.toStdString());
    QStringList files;
    for (const auto &[look, ground] : { std::pair { "light", Qt::white }, std::pair { "dark", Qt::black } }) {
        QGuiApplication::setPalette(QPalette(ground));
        files += Studio(job, QLatin1String(look)).draw();
    }
    return files;
}

} // namespace mintaro
