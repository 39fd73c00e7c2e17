#include "Platform/AppKit/DesktopCalendarApplication.h"

#include "Platform/AppKit/DefaultHandler.h"
#include "Platform/AppKit/DesktopEntry.h"
#include "Platform/AppKit/KOrganizer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <chrono>

namespace mintaro {

using namespace std::chrono_literals;

namespace {

/// How long a program is taken to be starting: one that is asked twice meanwhile might show two windows.
constexpr auto kStartTime = 5s;

enum class Kind { GnomeCalendar, KOrganizer, Evolution, Thunderbird, Other };

Kind kindOf(const QString &identifier)
{
    static constexpr std::pair<const char *, Kind> kKinds[] = { { "gnome.calendar", Kind::GnomeCalendar },
        { "gnome-calendar", Kind::GnomeCalendar }, { "korganizer", Kind::KOrganizer }, { "evolution", Kind::Evolution },
        { "thunderbird", Kind::Thunderbird } };
    for (const auto &[mark, kind] : kKinds) {
        if (identifier.contains(QLatin1String(mark), Qt::CaseInsensitive))
            return kind;
    }
    return Kind::Other;
}

QStringList activationArguments(Kind kind)
{
    switch (kind) {
    case Kind::Evolution:
        return { QStringLiteral("-c"), QStringLiteral("calendar") };
    case Kind::Thunderbird:
        return { QStringLiteral("-calendar") };
    default:
        return {};
    }
}

/// Empty where the program cannot be given a day when it is started.
QStringList dayArguments(Kind kind, QDate day)
{
    switch (kind) {
    case Kind::GnomeCalendar:
        return { QStringLiteral("--date"), day.toString(Qt::ISODate) };
    case Kind::Evolution:
        return { QStringLiteral("calendar:///?startdate=") + day.toString(QStringLiteral("yyyyMMdd")) };
    default:
        return {};
    }
}

} // namespace

class DesktopCalendarApplication::Program
{
public:
    /// Asks the desktop until there is an answer. False where no program is installed.
    static QCoro::Task<bool> find(std::shared_ptr<Program> program)
    {
        if (program->m_entry)
            co_return true;
        const auto identifier = co_await defaultHandler(QStringLiteral("text/calendar"));
        if (!identifier)
            co_return false;
        program->m_kind = kindOf(*identifier);
        // Its handler of files is an entry of its own, which imports them.
        program->m_entry = DesktopEntry::find(program->m_kind == Kind::KOrganizer ? kOrganizerEntry() : *identifier);
        co_return program->m_entry.has_value();
    }

    /// Gives why it failed, or nothing.
    std::optional<QString> activate()
    {
        return m_starting.hasExpired() ? start(activationArguments(m_kind)) : std::nullopt;
    }

    static QCoro::Task<std::optional<QString>> show(std::shared_ptr<Program> program, QDate day)
    {
        const QStringList arguments = dayArguments(program->m_kind, day);
        if (!arguments.isEmpty())
            co_return program->start(arguments);
        if (const auto failure = program->activate())
            co_return failure;
        const bool isTold = program->m_kind == Kind::KOrganizer;
        if (isTold && !co_await callKOrganizer(QStringLiteral("showDate"), QVariantList(1, day)))
            co_return program->failure();
        co_return std::nullopt;
    }

private:
    std::optional<QString> start(const QStringList &arguments)
    {
        if (!m_entry->start(arguments)) {
            const QString reason = failure();
            m_entry.reset(); // another may be installed by the next time
            return reason;
        }
        m_starting.setRemainingTime(kStartTime);
        return std::nullopt;
    }

    [[nodiscard]] QString failure() const { return qtTrId("calendarApp.failed %@").arg(m_entry->name); }

    Kind m_kind = Kind::Other;
    std::optional<DesktopEntry> m_entry;
    QDeadlineTimer m_starting { 0 };
};

DesktopCalendarApplication::DesktopCalendarApplication()
    : m_program(std::make_shared<Program>())
{
}

DesktopCalendarApplication::~DesktopCalendarApplication() = default;

QCoro::Task<std::optional<QString>> DesktopCalendarApplication::activate()
{
    const auto program = m_program;
    if (!co_await Program::find(program))
        co_return qtTrId("calendarApp.missing");
    co_return program->activate();
}

QCoro::Task<std::optional<QString>> DesktopCalendarApplication::show(QDate day)
{
    const auto program = m_program;
    if (!co_await Program::find(program))
        co_return qtTrId("calendarApp.missing");
    co_return co_await Program::show(program, day);
}

} // namespace mintaro
