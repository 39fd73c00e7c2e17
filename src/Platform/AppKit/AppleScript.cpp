#include "Platform/AppKit/AppleScript.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

#include <variant>
#include <vector>

namespace mintaro {

namespace {

struct Activate
{
};
/// A day stands for showing it.
using Action = std::variant<Activate, QDate>;

constexpr int kLastYear = 9999;

/// Why a script makes no sense.
struct ScriptError
{
    QString message;
};

/// A date whose parts are set one by one. They make a day only where it is used: a 31st that waits for its month is
/// none yet.
struct ScriptDate
{
    int day;
    int month;
    int year;
};

/// Words in lower case, numbers, texts with their quotes, and line ends.
QStringList scriptTokens(const QString &source)
{
    static const QRegularExpression kToken(QStringLiteral(R"([ \t]*(\n|[a-z_][a-z0-9_]*|[0-9]+|"[^"\n]*"|\z))"));
    const QString script = source.toLower();
    QStringList tokens;
    for (qsizetype at = 0; at < script.size();) {
        const auto match
            = kToken.match(script, at, QRegularExpression::NormalMatch, QRegularExpression::AnchorAtOffsetMatchOption);
        if (!match.hasMatch())
            throw ScriptError { QStringLiteral("\"%1\" makes no sense").arg(source.mid(at, 20)) };
        if (match.capturedLength(1) > 0)
            tokens.append(match.captured(1));
        at = match.capturedEnd();
    }
    return tokens;
}

/// Makes of a script what is to be done.
class ScriptReader
{
public:
    ScriptReader(const QString &source, QDate today)
        : m_tokens(scriptTokens(source))
        , m_today(today)
    {
    }

    [[nodiscard]] std::vector<Action> read()
    {
        while (!isAtEnd())
            readLine();
        return std::move(m_actions);
    }

private:
    [[nodiscard]] bool isAtEnd() const { return m_next >= m_tokens.size(); }

    [[noreturn]] void refuse() const
    {
        const QString next = m_tokens.mid(m_next, 4).join(u' ').simplified();
        throw ScriptError { QStringLiteral("The script is not understood before \"%1\"").arg(next) };
    }

    /// Passes over these tokens if they come next.
    bool takes(const QStringList &phrase)
    {
        if (m_tokens.mid(m_next, phrase.size()) != phrase)
            return false;
        m_next += phrase.size();
        return true;
    }
    bool takes(const char *words) { return takes(QString::fromLatin1(words).split(u' ')); }

    QString take() { return isAtEnd() ? QString() : m_tokens[m_next++]; }

    void endLine()
    {
        if (!isAtEnd() && !takes("\n"))
            refuse();
    }

    void readLine()
    {
        if (takes("tell application \"calendar\"")) {
            if (takes("to"))
                readCommand();
            else
                readBlock();
        } else if (takes("set")) {
            readSet();
        }
        endLine();
    }

    void readBlock()
    {
        endLine();
        while (!takes("end tell")) {
            if (isAtEnd())
                refuse();
            if (!takes("\n")) {
                readCommand();
                endLine();
            }
        }
    }

    void readCommand()
    {
        if (takes("activate"))
            m_actions.emplace_back(Activate {});
        else if (takes("view calendar at"))
            m_actions.emplace_back(day(take()));
        else if (!takes("switch view to day view")) // what shows a day is in that view
            refuse();
    }

    void readSet()
    {
        if (takes("day of"))
            part(&ScriptDate::day);
        else if (takes("month of"))
            part(&ScriptDate::month);
        else if (takes("year of"))
            part(&ScriptDate::year);
        else {
            const QString name = take();
            if (name.isEmpty() || !name.front().isLetter() || !takes("to current date"))
                refuse();
            m_dates.insert(name, { m_today.day(), m_today.month(), m_today.year() });
        }
    }

    void part(int ScriptDate::*part)
    {
        const auto date = m_dates.find(take());
        if (date == m_dates.end() || !takes("to"))
            refuse();
        bool isNumber = false;
        (*date).*part = take().toInt(&isNumber);
        if (!isNumber)
            refuse();
    }

    [[nodiscard]] QDate day(const QString &name) const
    {
        const auto date = m_dates.constFind(name);
        if (date == m_dates.constEnd())
            refuse();
        const QDate day(date->year, date->month, date->day);
        if (!day.isValid() || date->year > kLastYear)
            throw ScriptError { QStringLiteral("There is no such day") };
        return day;
    }

    const QStringList m_tokens;
    const QDate m_today;
    qsizetype m_next = 0;
    QHash<QString, ScriptDate> m_dates;
    std::vector<Action> m_actions;
};

std::variant<std::vector<Action>, ScriptError> actions(const QString &source, QDate today)
{
    try {
        return ScriptReader(source, today).read();
    } catch (const ScriptError &error) {
        return error;
    }
}

} // namespace

QCoro::Task<std::optional<QString>> AppleScript::execute(CalendarApplication &application, QDate today) const
{
    const auto script = actions(m_source, today);
    if (const auto *error = std::get_if<ScriptError>(&script))
        co_return error->message;
    for (const Action &action : std::get<std::vector<Action>>(script)) {
        std::optional<QString> failure;
        if (const auto *day = std::get_if<QDate>(&action))
            failure = co_await application.show(*day);
        else
            failure = co_await application.activate();
        if (failure)
            co_return failure;
    }
    co_return std::nullopt;
}

} // namespace mintaro
