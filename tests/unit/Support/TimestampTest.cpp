// SPDX-License-Identifier: MIT
#include "Timestamp.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

constexpr Timestamp morning = sys_days{2026y / January / 31} + 9h + 15min;

TEST(FormatTimestamp, wholeSecond_utcWithZ)
{
    EXPECT_EQ(formatTimestamp(morning), "2026-01-31T09:15:00Z");
}

TEST(FormatTimestamp, fraction_isCutOff)
{
    EXPECT_EQ(formatTimestamp(morning + 59s + 999999us), "2026-01-31T09:15:59Z");
    EXPECT_EQ(formatTimestamp(Timestamp{-1us}), "1969-12-31T23:59:59Z");
}

TEST(FormatTimestamp, firstAndLastYear_fourDigits)
{
    EXPECT_EQ(formatTimestamp(sys_days{0y / January / 1}), "0000-01-01T00:00:00Z");
    EXPECT_EQ(formatTimestamp(sys_days{10000y / January / 1} - 1us), "9999-12-31T23:59:59Z");
}

TEST(CurrentTime, writtenAndRead_isTheSameSecond)
{
    const Timestamp now = currentTime();
    EXPECT_EQ(parseTimestamp(formatTimestamp(now)), floor<seconds>(now));
}

TEST(CurrentTime, isTheSystemsTime)
{
    EXPECT_LT(abs(currentTime() - system_clock::now()), 1min);
}

TEST(ParseTimestamp, zones_areAppliedToUtc)
{
    EXPECT_EQ(parseTimestamp("2026-01-31T09:15:00Z"), morning);
    EXPECT_EQ(parseTimestamp("2026-01-31T10:45:00+01:30"), morning);
    EXPECT_EQ(parseTimestamp("2026-01-30T23:15:00-10:00"), morning);
    EXPECT_EQ(parseTimestamp("2026-01-31T09:15:00-00:00"), morning);
}

TEST(ParseTimestamp, leapDay_onlyInLeapYears)
{
    EXPECT_TRUE(parseTimestamp("2024-02-29T00:00:00Z"));
    EXPECT_FALSE(parseTimestamp("2023-02-29T00:00:00Z"));
}

class RefusedTimestamp : public testing::TestWithParam<const char*> { };

TEST_P(RefusedTimestamp, parse_nothing)
{
    EXPECT_FALSE(parseTimestamp(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Rows, RefusedTimestamp,
    testing::Values("", "2026-01-31", "2026-01-31T09:15:00", "2026-01-31T09:15Z",
        "2026-01-31T09:15:00.5Z", "2026-01-31T09:15:00.000Z", "2026-01-31T09:15:00,5Z",
        "2026-01-31t09:15:00Z", "2026-01-31T09:15:00z", "2026-01-31 09:15:00Z",
        "2026-01-31T09:15:00+0100", "2026-01-31T09:15:00+01", "2026-01-31T09:15:00 01:00",
        "2026-01-31T09:15:00+24:00", "2026-01-31T09:15:00+01:60", "2026-01-31T24:00:00Z",
        "2026-01-31T09:60:00Z", "2026-01-31T09:15:60Z", "2026-13-01T09:15:00Z",
        "2026-00-01T09:15:00Z", "2026-04-31T09:15:00Z", "2026-01-00T09:15:00Z",
        "26-01-31T09:15:00Z", "+2026-01-31T09:15:00Z", "2026-1-31T09:15:00Z",
        "2026-01-31T09:15:00ZZ", " 2026-01-31T09:15:00Z", "2026-01-31T09:15:00Z ",
        "20260131T091500Z", "2026-01-31T0a:15:00Z", "2026-01-31T-9:15:00Z",
        "9999-12-31T23:59:59-00:01", "0000-01-01T00:00:00+00:01"));

} // namespace
} // namespace sablequill
