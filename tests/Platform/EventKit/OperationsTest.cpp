#include "fuzz/OperationChecks.h"

#include <gtest/gtest.h>

#include <random>

namespace mintaro {

namespace {

/// Sequences of operations on calendars, the same ones each time.
class Operations : public ::testing::TestWithParam<unsigned>
{
};

TEST_P(Operations, MeanWhatTheUserExpects)
{
    constexpr unsigned kSequences = 25;
    for (unsigned seed = GetParam() * kSequences; seed < (GetParam() + 1) * kSequences; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        QByteArray bytes;
        for (int i = 0; i < 500; ++i)
            bytes.append(static_cast<char>(random() & 0xFF));
        EXPECT_NO_THROW(checkOperations(bytes));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Operations, ::testing::Range(0U, 8U));

} // namespace

} // namespace mintaro
