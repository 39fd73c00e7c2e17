#include "bench/SentenceBenchmarks.h"

#include "Platform/Foundation/ISO8601.h"
#include "Services/NaturalLanguageParser.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <map>
#include <memory>

namespace mintaro::bench {

namespace {

constexpr int kRepetitions = 5;
/// So long that what is slower than linear shows.
constexpr int kLongLine = 16'384;

struct Reader
{
    Reader(Date now, const Locale &locale, const TimeZone &zone)
        : clock(now)
        , environment(clock, locale, zone)
        , parser(environment)
    {
    }

    FixedClock clock;
    Environment environment;
    NaturalLanguageParser parser;
};

/// All sentences with whoever reads them.
class Sentences
{
public:
    Sentences()
    {
        for (const QString &path : files()) {
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly))
                throw std::runtime_error("cannot read " + path.toStdString());
            while (!file.atEnd())
                add(QJsonDocument::fromJson(file.readLine()).object());
        }
    }

    static QStringList files()
    {
        const QDir folder(QStringLiteral(MINTARO_SENTENCES));
        QStringList paths;
        for (const QString &name : folder.entryList({ QStringLiteral("*.jsonl") }))
            paths.append(folder.filePath(name));
        return paths;
    }

    void parseAll() const
    {
        for (const auto &[text, reader] : m_lines)
            benchmark::DoNotOptimize(reader->parser.parse(text));
    }

private:
    void add(const QJsonObject &line)
    {
        const auto text = [&line](const char *key) { return line.value(QLatin1String(key)).toString(); };
        auto &reader = m_readers[text("ref") + text("tz") + text("locale")];
        const TimeZone zone = TimeZone::named(text("tz")).value();
        if (!reader)
            reader = std::make_unique<Reader>(
                dateFromIso8601(text("ref"), zone).value(), Locale::fromIdentifier(text("locale")), zone);
        m_lines.emplace_back(text("text"), reader.get());
    }

    std::map<QString, std::unique_ptr<Reader>> m_readers;
    std::vector<std::pair<QString, const Reader *>> m_lines;
};

void parseSentences(benchmark::State &state)
{
    const Sentences sentences;
    for ([[maybe_unused]] auto _ : state)
        sentences.parseAll();
}

void parseWithPeer(benchmark::State &state)
{
    const QStringList arguments { QStringLiteral(MINTARO_BENCH_SOURCES "/chrono-peer.mjs"),
        QStringLiteral(MINTARO_BENCH_PEERS) };
    for ([[maybe_unused]] auto _ : state) {
        QProcess node;
        node.start(QStringLiteral("node"), arguments + Sentences::files());
        const bool hasEnded = node.waitForFinished(-1) && node.exitCode() == 0;
        if (!hasEnded)
            state.SkipWithError("chrono-node cannot be run");
        state.SetIterationTime(node.readAllStandardOutput().trimmed().toDouble());
    }
}

/// A line of 200 characters, parsed at each key as the entry field does.
void typeLine(benchmark::State &state)
{
    constexpr int kLength = 200;
    const QString line
        = QStringLiteral("Lunch with Anna and the others tomorrow from 12:30 to 14 at Roma, then friday 5 june ")
              .repeated(3)
              .left(kLength);
    const Reader reader(Date { std::chrono::sys_days { std::chrono::year { 2026 } / 3 / 10 } }, Locale {},
        TimeZone::named(QStringLiteral("Europe/Rome")).value());
    for ([[maybe_unused]] auto _ : state)
        for (int length = 1; length <= kLength; ++length)
            benchmark::DoNotOptimize(reader.parser.parse(line.left(length)));
}

void parseLong(benchmark::State &state, const char *piece)
{
    const QString line = QString::fromUtf8(piece).repeated(kLongLine).left(kLongLine);
    const TimeZone zone = TimeZone::named(QStringLiteral("Europe/Rome")).value();
    const Reader reader(Date { std::chrono::sys_days { std::chrono::year { 2026 } / 3 / 10 } }, Locale {}, zone);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(reader.parser.parse(line));
}

} // namespace

std::vector<std::pair<std::string, std::string>> addSentences()
{
    benchmark::RegisterBenchmark("sentences", parseSentences)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Repetitions(kRepetitions);
    benchmark::RegisterBenchmark("sentences-chrono-node", parseWithPeer)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(kRepetitions);
    benchmark::RegisterBenchmark("typing-200-keys", typeLine)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Repetitions(kRepetitions);
    std::vector<std::pair<std::string, std::string>> ratios { { "sentences", "sentences-chrono-node" } };
    for (const auto &[name, piece] : std::initializer_list<std::pair<const char *, const char *>> {
             { "long-text", "the quick brown fox has lunch with Anna and a dog, " }, { "long-digits", "7" },
             { "long-numbers", "7 " }, { "long-to", "to " }, { "long-at", "at the " }, { "long-marks", "1-2/3.4:" },
             { "long-offsets", "a week from " }, { "long-lengths", "3 days 2 hours " } }) {
        benchmark::RegisterBenchmark(name, [piece = piece](auto &state) { parseLong(state, piece); })
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->Repetitions(kRepetitions);
        if (name != std::string("long-text"))
            ratios.emplace_back(name, "long-text");
    }
    return ratios;
}

} // namespace mintaro::bench
