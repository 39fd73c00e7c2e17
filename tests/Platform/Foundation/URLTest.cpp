#include "Platform/Foundation/URLComponents.h"

#include <gtest/gtest.h>

#include <ostream>

namespace mintaro {
namespace {

URL url(const QString &text)
{
    const auto made = URL::fromString(text);
    EXPECT_TRUE(made) << text.toStdString();
    return made.value_or(URL());
}

struct SyntaxCase
{
    const char *name;
    QString text;
    bool isUrl;
};

void PrintTo(const SyntaxCase &row, std::ostream *out)
{
    *out << row.text.toStdString();
}

class URLSyntaxTest : public testing::TestWithParam<SyntaxCase>
{
};

TEST_P(URLSyntaxTest, TakesReferencesAsWritten)
{
    const auto made = URL::fromString(GetParam().text);
    ASSERT_EQ(made.has_value(), GetParam().isUrl);
    EXPECT_EQ(made.value_or(URL()).absoluteString(), made ? GetParam().text : QString());
}

INSTANTIATE_TEST_SUITE_P(Rows, URLSyntaxTest,
    testing::Values(SyntaxCase { "KeepsCaseAndEscapes", QStringLiteral("HTTP://Ex.com/%7ea?"), true },
        SyntaxCase { "Relative", QStringLiteral("../a/b:c?x"), true },
        SyntaxCase { "Opaque", QStringLiteral("mailto:a@example.com"), true },
        SyntaxCase { "IpLiteral", QStringLiteral("http://[::1]:80/"), true },
        SyntaxCase { "International", QStringLiteral("https://日本語.jp/パス"), true },
        SyntaxCase { "BracketsInQuery", QStringLiteral("https://a.com/?f[x]=1"), true },
        SyntaxCase { "Empty", QString(), false }, SyntaxCase { "Space", QStringLiteral("https://a.com/a b"), false },
        SyntaxCase { "Control", QStringLiteral("https://a.com/\t"), false },
        SyntaxCase { "BrokenEscape", QStringLiteral("https://a.com/%2"), false },
        SyntaxCase { "Delimiter", QStringLiteral("https://a.com/<b>"), false },
        SyntaxCase { "DigitInFrontOfScheme", QStringLiteral("1a:b"), false },
        SyntaxCase { "NoScheme", QStringLiteral("://a.com"), false },
        SyntaxCase { "LettersAsPort", QStringLiteral("http://a.com:x/"), false },
        SyntaxCase { "OpenLiteral", QStringLiteral("http://[::1/"), false },
        SyntaxCase { "LoneSurrogate", QStringLiteral("https://a.com/") + QChar(0xD800), false }),
    [](const testing::TestParamInfo<SyntaxCase> &row) { return std::string(row.param.name); });

TEST(URL, PathComponentsAreDecodedAndNeverEmpty)
{
    EXPECT_EQ(url(QStringLiteral("https://a.com//x/%C3%A8%2Fy/?z/w")).pathComponents(),
        (QStringList { QStringLiteral("/"), QStringLiteral("x"), QStringLiteral("è/y") }));
    EXPECT_EQ(url(QStringLiteral("x/y")).pathComponents(), (QStringList { QStringLiteral("x"), QStringLiteral("y") }));
    EXPECT_TRUE(url(QStringLiteral("https://a.com?x")).pathComponents().isEmpty());
}

TEST(URLComponents, PutTogetherIsAsWritten)
{
    for (const QString &text : { QStringLiteral("HTTPS://u:p@Ex.com:/a//%7e?#"), QStringLiteral("mailto:a@b.it?x=%20"),
             QStringLiteral("//a.com"), QStringLiteral("#f"), QStringLiteral("file:///a") })
        EXPECT_EQ(URLComponents::fromURL(url(text))->url(), url(text));
    EXPECT_FALSE(URLComponents::fromURL(URL()));
}

TEST(URLComponents, HostIsWithoutUserAndPort)
{
    EXPECT_EQ(URLComponents::fromURL(url(QStringLiteral("http://u@Ex.com:80/")))->host(), QStringLiteral("Ex.com"));
    EXPECT_EQ(URLComponents::fromURL(url(QStringLiteral("http://[::1]:80/")))->host(), QStringLiteral("[::1]"));
    EXPECT_FALSE(URLComponents::fromURL(url(QStringLiteral("mailto:a@b.it")))->host());
}

TEST(URLComponents, QueryItemsAreDecoded)
{
    const auto items = URLComponents::fromURL(url(QStringLiteral("?a=%26=x&b&c=&d=1+2")))->queryItems();
    const std::vector<URLComponents::QueryItem> expected { { QStringLiteral("a"), QStringLiteral("&=x") },
        { QStringLiteral("b"), std::nullopt }, { QStringLiteral("c"), QString(QLatin1String("")) },
        { QStringLiteral("d"), QStringLiteral("1+2") } };
    EXPECT_EQ(items, expected);
    EXPECT_TRUE(URLComponents::fromURL(url(QStringLiteral("https://a.com/?")))->queryItems().empty());
}

TEST(URLComponents, ChangesOnlyWhatIsSet)
{
    auto components = *URLComponents::fromURL(url(QStringLiteral("https://a.com/x?p=a%2Bb+c&q#f")));
    auto items = components.queryItems();
    items.emplace_back(QStringLiteral("n m"), QStringLiteral("1+2&=#è"));
    components.setScheme(QStringLiteral("app"));
    components.setPath(QStringLiteral("/a b?/ü"));
    components.setQueryItems(items);
    EXPECT_EQ(
        components.url(), url(QStringLiteral("app://a.com/a%20b%3F/%C3%BC?p=a%2Bb+c&q&n%20m=1%2B2%26=%23%C3%A8#f")));
    components.setQueryItems({});
    EXPECT_EQ(components.url(), url(QStringLiteral("app://a.com/a%20b%3F/%C3%BC#f")));
}

TEST(URLComponents, RefusesWhatMakesNoUrl)
{
    auto components = *URLComponents::fromURL(url(QStringLiteral("https://a.com/x")));
    components.setPath(QStringLiteral("relative"));
    EXPECT_FALSE(components.url());
    components.setPath(QString());
    components.setScheme(QStringLiteral("not a scheme"));
    EXPECT_FALSE(components.url());
}

} // namespace
} // namespace mintaro
