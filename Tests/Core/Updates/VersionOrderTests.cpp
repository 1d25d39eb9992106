#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Updates/VersionOrder.h"

namespace tessel::test {
namespace {

struct Pair {
    const char* first;
    const char* second;
};

void PrintTo(const Pair& pair, std::ostream* stream)
{
    *stream << '"' << pair.first << "\" and \"" << pair.second << '"';
}

class OlderVersion : public testing::TestWithParam<Pair> {};

TEST_P(OlderVersion, ComesBefore)
{
    EXPECT_TRUE(compareVersions(GetParam().first, GetParam().second) < 0);
    EXPECT_TRUE(compareVersions(GetParam().second, GetParam().first) > 0);
}

INSTANTIATE_TEST_SUITE_P(Numbers, OlderVersion,
                         testing::Values(Pair{"1.0", "1.1"}, Pair{"1.9", "1.10"}, Pair{"1.1", "2.0"},
                                         Pair{"0.0.1", "0.1"}, Pair{"1.0", "1.0.1"}, Pair{"1.0.9", "1.1"},
                                         Pair{"", "0.1"}, Pair{"0.1", "1"}, Pair{"57", "58"},
                                         Pair{"99", "100"}, Pair{"1.2.3.4.5", "1.2.3.4.6"},
                                         Pair{"1.08", "1.9"}, Pair{"201210251627", "201211051041"},
                                         Pair{"18446744073709551615", "18446744073709551616"},
                                         Pair{"1.18446744073709551616", "1.18446744073709551617"},
                                         Pair{"1.0", "1.0.0.0.1"}, Pair{"5.10.0", "6.1"}));

INSTANTIATE_TEST_SUITE_P(Words, OlderVersion,
                         testing::Values(Pair{"1.0b3", "1.0"}, Pair{"1.0b3", "1.0.0"}, Pair{"1.0b3", "1.0.1"},
                                         Pair{"1.0b3", "1.0b4"}, Pair{"1.0b9", "1.0b10"},
                                         Pair{"1.0b", "1.0b1"}, Pair{"1.0a9", "1.0b1"},
                                         Pair{"1.0b2", "1.0rc1"}, Pair{"1.0rc1", "1.0"}, Pair{"0.9", "1.0b1"},
                                         Pair{"1.0.b1", "1.0"}, Pair{"1.0alpha", "1.0beta"},
                                         Pair{"1.0.1b5", "1.0.1b6"}, Pair{"1.0b5", "1.0.1b1"},
                                         Pair{"beta", "0"}, Pair{"1.0b1.2", "1.0b1.10"},
                                         Pair{"1.0\xC3\xA9", "1.0"}));

INSTANTIATE_TEST_SUITE_P(Rows, OlderVersion,
                         testing::Values(Pair{"1.0 (99)", "1.0 (1234)"}, Pair{"1.0 (1234)", "1.0.1 (12)"},
                                         Pair{"1.0b1 (1234)", "1.0 (1234)"},
                                         Pair{"1.0b5 (1234)", "1.0b5 (1235)"}, Pair{"1.0-beta", "1.0"},
                                         Pair{"1.0-beta.2", "1.0-beta.11"}, Pair{"1.0-rc.1", "1.0.1"},
                                         Pair{"1.0 beta 1", "1.0 beta 2"}, Pair{"1.0 beta", "1.0"},
                                         Pair{"1.0", "1.0-1"}, Pair{"1.0-1", "1.0-2"}, Pair{"1.0_b", "1.0"},
                                         Pair{"6.1", "6.1.0-18"}, Pair{"2026-09-30", "2026-10-01"}));

class SameVersion : public testing::TestWithParam<Pair> {};

TEST_P(SameVersion, IsNeitherBeforeNorAfter)
{
    EXPECT_TRUE(compareVersions(GetParam().first, GetParam().second) == 0);
    EXPECT_TRUE(compareVersions(GetParam().second, GetParam().first) == 0);
}

INSTANTIATE_TEST_SUITE_P(Pairs, SameVersion,
                         testing::Values(Pair{"1.0", "1.0"}, Pair{"1", "1.0"}, Pair{"1.0", "1.0.0.0"},
                                         Pair{"1.01", "1.1"}, Pair{"1.0.", "1.0"}, Pair{"", ""},
                                         Pair{"", "0.0"}, Pair{"1.0b3", "1.0.b.3"},
                                         Pair{"1.0 (12)", "1.0-12"}, Pair{" 1.0", "1.0"},
                                         Pair{"1.0 ()", "1.0"}, Pair{"1.0b", "1.0b0"},
                                         Pair{"1.0-b", "1.0 b"}));

/// Versions out of the pieces that make a difference.
class RandomVersions {
public:
    std::string next()
    {
        static const std::vector<std::string> pieces = {"0", "00", "1",  "2", "10", "18446744073709551616",
                                                        "a", "b",  "rc", ".", ".",  "-",
                                                        " ", "(",  ")",  "+"};
        std::string version;
        for (unsigned count = below(8); count > 0; --count)
            version += pieces[below(static_cast<unsigned>(pieces.size()))];
        return version;
    }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

    std::mt19937 random_{20261122};
};

TEST(VersionOrder, IsTotal)
{
    RandomVersions versions;
    int orderedTriples = 0;
    for (int round = 0; round < 100'000; ++round) {
        const std::string a = versions.next();
        const std::string b = versions.next();
        const std::string c = versions.next();
        ASSERT_TRUE(compareVersions(a, a) == 0) << a;
        ASSERT_EQ(compareVersions(a, b) < 0, compareVersions(b, a) > 0) << a << " | " << b;
        if (compareVersions(a, b) <= 0 && compareVersions(b, c) <= 0) {
            ++orderedTriples;
            ASSERT_TRUE(compareVersions(a, c) <= 0) << a << " | " << b << " | " << c;
            // What is the same as one is to all others as that one is.
            if (compareVersions(a, b) == 0) {
                ASSERT_TRUE(compareVersions(a, c) == compareVersions(b, c)) << a << " | " << b << " | " << c;
            }
        }
    }
    EXPECT_GT(orderedTriples, 10'000);
}

} // namespace
} // namespace tessel::test
