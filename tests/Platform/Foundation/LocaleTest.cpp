#include "Platform/Foundation/Locale.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

#include <map>

namespace mintaro {

namespace {

/// Sets variables of the environment and puts the old ones back.
class VariableGuard
{
public:
    explicit VariableGuard(const std::map<QByteArray, QByteArray> &values)
    {
        for (const char *name : { "LANGUAGE", "LC_ALL", "LC_MESSAGES", "LC_TIME", "LANG" }) {
            m_before[name] = qgetenv(name);
            qunsetenv(name);
        }
        for (const auto &[name, value] : values)
            qputenv(name.constData(), value);
    }
    ~VariableGuard()
    {
        for (const auto &[name, value] : m_before)
            qputenv(name.constData(), value);
    }
    VariableGuard(const VariableGuard &) = delete;
    VariableGuard &operator=(const VariableGuard &) = delete;

private:
    std::map<QByteArray, QByteArray> m_before;
};

} // namespace

TEST(Locale, LanguageAndRegionComeFromTheRightVariables)
{
    const struct
    {
        const char *rule;
        std::map<QByteArray, QByteArray> variables;
        QStringList preferred;
        const char *expected;
    } rows[] = {
        { "nothing is set", {}, {}, "en_US" },
        { "LANG alone", { { "LANG", "it_IT.UTF-8" } }, {}, "it_IT" },
        { "formats of another country", { { "LANG", "en_US.UTF-8" }, { "LC_TIME", "de_DE.UTF-8" } }, {}, "en_DE" },
        { "LANGUAGE goes before LANG", { { "LANG", "en_GB.UTF-8" }, { "LANGUAGE", "it:en" } }, {}, "it_GB" },
        { "LANGUAGE counts nothing in the C locale", { { "LANG", "C" }, { "LANGUAGE", "it" } }, {}, "en_US" },
        { "the user's own choice goes first", { { "LANG", "en_GB.UTF-8" } }, { QStringLiteral("it") }, "it_GB" },
        { "what is no language is passed over", { { "LANG", "it_IT" } }, { QStringLiteral("???"), QString() },
            "it_IT" },
        { "the first that is a language counts", { { "LANG", "it_IT" } }, { QString(), QStringLiteral("de") },
            "de_IT" },
        { "LC_ALL overrules all", { { "LANG", "en_GB" }, { "LC_ALL", "it_CH" } }, {}, "it_CH" },
    };
    for (const auto &row : rows) {
        const VariableGuard guard(row.variables);
        EXPECT_EQ(Locale::current(row.preferred).identifier(), QLatin1String(row.expected)) << row.rule;
    }
}

} // namespace mintaro
