#include "Platform/Sparkle/SUStandardVersionComparator.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace mintaro {
namespace {

TEST(SUStandardVersionComparatorTest, OrdersVersions)
{
    // Those of a line are one version, and newer than the line before.
    const std::vector<QStringList> lines {
        { u""_qs, u"0"_qs, u"0.0"_qs },
        { u"0.9"_qs },
        { u"1.0a9"_qs, u"1.0.0-a.9"_qs },
        { u"1.0b"_qs },
        { u"1.0b2"_qs, u"v1.0B2"_qs, u"1b02"_qs },
        { u"1.0b10"_qs },
        { u"1.0rc1"_qs },
        { u"1.0"_qs, u"1.0.0"_qs, u"1"_qs, u" v1.0 "_qs, u"01.00"_qs, u"1.0+build.7"_qs },
        { u"1.0.1b1"_qs },
        { u"1.0.1"_qs },
        { u"1.9"_qs },
        { u"1.10"_qs, u"1.10.0.0"_qs },
        { u"1.10.99999999999999999999"_qs },
        { u"1.10.100000000000000000000"_qs },
        { u"2026.11"_qs },
    };
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t j = 0; j < lines.size(); ++j) {
            for (const QString &a : lines[i]) {
                for (const QString &b : lines[j])
                    EXPECT_TRUE(compareVersions(a, b) == (i <=> j)) << a.toStdString() << " and " << b.toStdString();
            }
        }
    }
}

} // namespace
} // namespace mintaro
