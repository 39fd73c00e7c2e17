#include "Platform/Foundation/LinkDetector.h"

#include <gtest/gtest.h>

#include <QFile>

#include <ostream>

namespace mintaro {
namespace {

struct LinkCase
{
    std::string name;
    QString text;
    QStringList links;
};

void PrintTo(const LinkCase &row, std::ostream *out)
{
    *out << row.name << ": " << row.text.toStdString();
}

QString unescaped(const QString &text)
{
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\') {
            plain += text[i];
            continue;
        }
        const QChar kind = text.at(++i);
        if (kind == u'u') {
            plain += QChar(text.mid(i + 1, 4).toUShort(nullptr, 16));
            i += 4;
        } else {
            plain += kind == u'n' ? QChar(u'\n') : kind == u't' ? QChar(u'\t') : kind;
        }
    }
    return plain;
}

std::vector<LinkCase> readCases()
{
    QFile file(QStringLiteral(MINTARO_TEST_DATA "/links.tsv"));
    std::vector<LinkCase> cases;
    if (!file.open(QIODevice::ReadOnly))
        return cases;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList columns = line.split(u'\t');
        if (!line.startsWith(u'#'))
            cases.push_back({ columns[0].toStdString(), unescaped(columns.at(1)),
                columns.value(2).split(u' ', Qt::SkipEmptyParts) });
    }
    return cases;
}

QStringList linksIn(const QString &text)
{
    QStringList links;
    for (const LinkDetector::Match &match : LinkDetector().matches(text))
        links.append(match.url.absoluteString());
    return links;
}

class LinkDetectorTest : public testing::TestWithParam<LinkCase>
{
};

TEST_P(LinkDetectorTest, FindsWhatIsMeantAsLink)
{
    EXPECT_EQ(linksIn(GetParam().text), GetParam().links);
}

TEST_P(LinkDetectorTest, FirstMatchAgrees)
{
    const auto first = LinkDetector().firstMatch(GetParam().text);
    EXPECT_EQ(first ? first->url.absoluteString() : QString(), GetParam().links.value(0));
}

INSTANTIATE_TEST_SUITE_P(Corpus, LinkDetectorTest, testing::ValuesIn(readCases()),
    [](const testing::TestParamInfo<LinkCase> &row) { return row.param.name; });

TEST(LinkDetector, GivesTheRangeOfTheMatchedTextInUtf16)
{
    const QString text = QStringLiteral("🎥 example.com/x, <a href=\"https://example.org/?a&amp;b\">");
    const auto matches = LinkDetector().matches(text);
    ASSERT_EQ(matches.size(), 2u);
    EXPECT_EQ(text.mid(matches[0].location, matches[0].length), QStringLiteral("example.com/x"));
    EXPECT_EQ(text.mid(matches[1].location, matches[1].length), QStringLiteral("https://example.org/?a&amp;b"));
}

TEST(LinkDetector, KeepsWrittenEntitiesOutsideHtml)
{
    EXPECT_EQ(linksIn(QStringLiteral("https://example.com/?a=1&amp;b=2")),
        QStringList { QStringLiteral("https://example.com/?a=1&amp;b=2") });
}

TEST(LinkDetector, EndsLinksAtLoneSurrogatesAndNulls)
{
    for (const QChar c : { QChar(0xD83D), QChar(0xDE00), QChar(0) }) {
        const QString text = c + QStringLiteral("https://example.com/a") + c + QStringLiteral(" b@example.com") + c;
        EXPECT_EQ(linksIn(text),
            (QStringList { QStringLiteral("https://example.com/a"), QStringLiteral("mailto:b@example.com") }));
    }
}

/// A quadratic step would take minutes on these; the test's time limit catches it.
TEST(LinkDetector, PassesOverLongRepetitions)
{
    constexpr int times = 200'000;
    for (const QString &part : { QStringLiteral("("), QStringLiteral("a."), QStringLiteral("@"), QStringLiteral("a@"),
             QStringLiteral("http://"), QStringLiteral("http://a:"), QStringLiteral("mailto:"), QStringLiteral("+a"),
             QStringLiteral("&a"), QStringLiteral("a.notatld+"), QStringLiteral("%2") })
        EXPECT_EQ(linksIn(part.repeated(times) + QStringLiteral(" https://example.com")).last(),
            QStringLiteral("https://example.com"))
            << part.toStdString();
}

TEST(LinkDetector, PassesOverLinksThatOpenBrackets)
{
    constexpr int times = 20'000;
    EXPECT_EQ(LinkDetector().matches(QStringLiteral("a.co/(").repeated(times)).size(), std::size_t { times });
}

} // namespace
} // namespace mintaro
