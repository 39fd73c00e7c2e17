// What people type, against what it means: each line of tests/data/sentences is a question and its answer as
// `mintaroctl parse --json-lines` exchanges them. The lines of the "unseen" files are not looked at when the rules are
// changed: they tell how well the rules do on what nobody thought of.

#include "Platform/Foundation/ISO8601.h"
#include "Services/NaturalLanguageParser.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <ostream>

namespace mintaro {
namespace {

/// Percentages that must at least be right.
struct Goal
{
    const char *file;
    double starts;
    double spans;
    double datelessLeftAlone;
    double wholly;
    bool namesWrongLines;
};

void PrintTo(const Goal &goal, std::ostream *out)
{
    *out << goal.file;
}

struct Share
{
    int right = 0;
    int all = 0;

    void count(bool isRight)
    {
        right += isRight;
        ++all;
    }
    [[nodiscard]] double percent() const { return all == 0 ? 0 : 100.0 * right / all; }
};

std::vector<QJsonObject> linesOf(const char *name)
{
    QFile file(QStringLiteral(MINTARO_TEST_DATA "/sentences/%1.jsonl").arg(QLatin1String(name)));
    std::vector<QJsonObject> lines;
    if (file.open(QIODevice::ReadOnly))
        while (!file.atEnd())
            lines.push_back(QJsonDocument::fromJson(file.readLine()).object());
    return lines;
}

class SentencesTest : public testing::TestWithParam<Goal>
{
protected:
    void check(const QJsonObject &line)
    {
        const auto text = [&line](const char *key) { return line.value(QLatin1String(key)).toString(); };
        const TimeZone zone = TimeZone::named(text("tz")).value();
        const FixedClock clock(dateFromIso8601(text("ref"), zone).value());
        const Locale locale = Locale::fromIdentifier(text("locale"));
        const Environment environment(clock, locale, zone);
        const QString sentence = text("text");
        const ParsedEvent event = NaturalLanguageParser(environment).parse(sentence).value();
        const auto match = DateDetector(locale).firstMatch(sentence, clock.now(), environment.calendar());
        const QString matched = match ? sentence.sliced(match->location, match->length) : QString();

        const auto start = dateFromIso8601(text("start"), zone);
        const bool startIsRight = event.startDate == start;
        const bool spanIsRight = startIsRight && event.endDate == dateFromIso8601(text("end"), zone);
        if (start) {
            m_starts.count(startIsRight);
            m_spans.count(spanIsRight);
        } else {
            m_dateless.count(startIsRight);
        }
        const bool isRight = spanIsRight && matched == text("match") && event.title == text("title")
            && event.location.value_or(QString()) == text("location");
        m_wholly.count(isRight);
        if (!isRight)
            m_wrong += u'\n' + text("id") + QStringLiteral(": ") + sentence + QStringLiteral(" [") + matched + u']';
    }

    Share m_starts;
    Share m_spans;
    Share m_dateless;
    Share m_wholly;
    QString m_wrong;
};

TEST_P(SentencesTest, AreUnderstood)
{
    const Goal &goal = GetParam();
    for (const QJsonObject &line : linesOf(goal.file))
        check(line);
    if (goal.namesWrongLines)
        SCOPED_TRACE(m_wrong.toStdString());
    EXPECT_GE(m_starts.percent(), goal.starts);
    EXPECT_GE(m_spans.percent(), goal.spans);
    EXPECT_GE(m_dateless.percent(), goal.datelessLeftAlone);
    EXPECT_GE(m_wholly.percent(), goal.wholly) << m_wholly.all << " lines";
    RecordProperty("starts", std::to_string(m_starts.percent()));
    RecordProperty("spans", std::to_string(m_spans.percent()));
    RecordProperty("dateless", std::to_string(m_dateless.percent()));
    RecordProperty("wholly", std::to_string(m_wholly.percent()));
}

INSTANTIATE_TEST_SUITE_P(Files, SentencesTest,
    testing::Values(Goal { "en", 99.5, 99.5, 95, 97.5, true }, Goal { "it", 99.5, 99, 94, 97.5, true },
        Goal { "en-unseen", 97, 95, 94, 93, false }, Goal { "it-unseen", 95, 92, 95, 90, false }));

} // namespace
} // namespace mintaro
