#pragma once

#include "CommandLine/Command.h"

#include <QElapsedTimer>
#include <QFile>

#include <optional>
#include <vector>

namespace mintaro {

/// The exchange of --json-lines: an object with an "id" and a "text" in each line of standard input, an answer with
/// the same "id" in each line of standard output.
class JsonLines
{
public:
    static void addOptions(QCommandLineParser &parser);

    /// Throws CommandError where standard input cannot be read.
    JsonLines();

    /// The next question; empty at the end. Throws CommandError for a line that is none.
    [[nodiscard]] std::optional<QJsonObject> next();
    /// Carries out `work` as that for which the line's time is taken.
    template <typename Work>
    auto measured(Work &&work)
    {
        QElapsedTimer timer;
        timer.start();
        auto result = work();
        m_times.push_back(timer.nsecsElapsed());
        return result;
    }
    void answer(const QJsonObject &question, QJsonObject answer) const;
    /// With --timing the median of what was measured goes to standard error.
    void finish(const QCommandLineParser &arguments);

private:
    QFile m_input;
    std::vector<qint64> m_times;
};

} // namespace mintaro
