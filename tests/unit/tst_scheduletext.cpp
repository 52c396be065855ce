// The retry schedule and time-of-day schedule texts: lenient reading, strict writing, the default
// retry schedule, the display and parsing of elapsed times, and the time-of-day edit and spin rules.
#include "schedule/RetryScheduleText.h"
#include "schedule/ToDScheduleText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string retryRoundTrip(const std::string& text)
{
    return RetrySchedule::format(RetrySchedule::parse(text));
}

std::string todRoundTrip(const std::string& text)
{
    return ToDSchedule::format(ToDSchedule::parse(text));
}

} // namespace

struct RetryReadCase {
    const char* label;
    const char* stored;
    const char* written;
};

class RetryRead : public testing::TestWithParam<RetryReadCase> {};

// Lenient reading followed by strict writing: what a stored text becomes when the dialog saves it.
TEST_P(RetryRead, NormalisesStoredText)
{
    EXPECT_EQ(retryRoundTrip(GetParam().stored), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, RetryRead,
    testing::Values(RetryReadCase{"strict", "10:F,10:T,100:F", "10:F,10:T,100:F"},
                    RetryReadCase{"empty", "", ""},
                    RetryReadCase{"blanks_and_dashes", " - 10 : t , 20:F ,", "10:T,20:F"},
                    RetryReadCase{"lower_and_other_flags", "5:t,5:x,5:f", "5:T,5:F,5:F"},
                    // One character is taken as the flag, whatever follows the number.
                    RetryReadCase{"missing_colon", "10T,20F", "10:T,20:F"},
                    RetryReadCase{"number_at_end", "10", "10:F"},
                    RetryReadCase{"no_number", "T", "0:T"},
                    RetryReadCase{"flag_word", "10:True,5:F", "10:T,0:F,0:F,0:F,5:F"},
                    RetryReadCase{"saturates", "99999999999:T", "4294967295:T"}),
    [](const testing::TestParamInfo<RetryReadCase>& info) { return std::string(info.param.label); });

TEST(RetrySchedule, DefaultHas110RetriesAndOneNotificationAtOneDayTwentyMinutes)
{
    const auto entries = RetrySchedule::defaultEntries();
    ASSERT_EQ(entries.size(), 110u);
    uint64_t total = 0;
    std::vector<uint64_t> notified;
    for (const auto& e : entries) {
        total += e.interval;
        if (e.notify)
            notified.push_back(total);
    }
    EXPECT_EQ(notified, std::vector<uint64_t>{1440 + 20});
    EXPECT_EQ(total, 3u * 1440 + 20);
    const std::string text = RetrySchedule::defaultText();
    EXPECT_EQ(text.substr(0, 16), "10:F,10:F,100:F,");
    EXPECT_EQ(text.substr(text.size() - 9), "10:F,10:F");
    EXPECT_EQ(retryRoundTrip(text), text);
}

struct ElapsedCase {
    uint64_t minutes;
    const char* shown;
};

class ElapsedDisplay : public testing::TestWithParam<ElapsedCase> {};

TEST_P(ElapsedDisplay, ShowsPartsThatAreNotZero)
{
    EXPECT_EQ(RetrySchedule::formatElapsed(GetParam().minutes), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Times, ElapsedDisplay,
                         testing::Values(ElapsedCase{0, "<initial attempt>"}, ElapsedCase{1, "1 minute"},
                                         ElapsedCase{20, "20 minutes"}, ElapsedCase{60, "1 hour "},
                                         ElapsedCase{90, "1 hour 30 minutes"}, ElapsedCase{120, "2 hours "},
                                         ElapsedCase{1440, "1 day "}, ElapsedCase{1500, "1 day 1 hour "},
                                         ElapsedCase{1460, "1 day 20 minutes"},
                                         ElapsedCase{2 * 1440 + 3 * 60 + 1, "2 days 3 hours 1 minute"}));

TEST(RetrySchedule, DisplayUsesTheWordsGiven)
{
    RetrySchedule::DurationWords words;
    words.days = "%d Tage ";
    words.minutes = "%d Minuten";
    EXPECT_EQ(RetrySchedule::formatElapsed(2 * 1440 + 5, words), "2 Tage 5 Minuten");
}

struct TypedCase {
    const char* typed;
    bool ok;
    uint32_t value; // minutes, or the error position
};

class TypedTime : public testing::TestWithParam<TypedCase> {};

TEST_P(TypedTime, ParsesOrPointsAtTheFault)
{
    const TypedCase& c = GetParam();
    const auto parsed = RetrySchedule::parseElapsed(c.typed);
    ASSERT_EQ(parsed.ok, c.ok) << c.typed;
    if (c.ok)
        EXPECT_EQ(parsed.minutes, c.value) << c.typed;
    else
        EXPECT_EQ(parsed.errorPos, c.value) << c.typed;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TypedTime,
    testing::Values(TypedCase{"2 days 3 hrs", true, 2 * 1440 + 180}, TypedCase{"2d3h", true, 2 * 1440 + 180},
                    TypedCase{"1 day 20 minutes", true, 1460}, TypedCase{"20 MINUTES 1 DAY", true, 1460},
                    TypedCase{"  90 m  ", true, 90}, TypedCase{"1 hour 30 minutes", true, 90},
                    TypedCase{"45", false, 2},          // a number without its unit: at the end
                    TypedCase{"1 day 45 ", false, 9},   // also after blanks
                    TypedCase{"0 days", false, 0},      // nothing at all
                    TypedCase{"", false, 0}, TypedCase{"   ", false, 0},
                    TypedCase{"2 weeks", false, 2},     // at the w
                    TypedCase{"1d 2h 3d", false, 7},    // a unit twice: at the repeat
                    TypedCase{"1 day, 2 hours", false, 5},
                    TypedCase{"day", false, 0}, TypedCase{"-5 minutes", false, 0},
                    TypedCase{"5 min\xc3\xa9", false, 5}, // a letter beyond ASCII ends the word and is refused
                    TypedCase{"4294967295 m", true, 4294967295u},
                    TypedCase{"4294967296 m", false, 0},    // too large for 32 bits
                    TypedCase{"99999999999999999999 days", false, 0}));

struct TodReadCase {
    const char* label;
    const char* stored;
    const char* written;
};

class TodRead : public testing::TestWithParam<TodReadCase> {};

TEST_P(TodRead, NormalisesStoredText)
{
    EXPECT_EQ(todRoundTrip(GetParam().stored), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TodRead,
    testing::Values(TodReadCase{"strict", "0800,1230u,1800", "0800,1230u,1800"},
                    TodReadCase{"empty", "", ""},
                    TodReadCase{"semicolon", "0800u;1800", "0800u,1800"},
                    TodReadCase{"upper_u", "0800U 1800", "0800u,1800"},
                    // Only the character right after the digits counts.
                    TodReadCase{"u_after_blank", "0800 u,1800", "0800,1800"},
                    // Times are taken as stored, not reformatted.
                    TodReadCase{"taken_as_stored", "x930y12345u", "930,12345u"},
                    TodReadCase{"no_digits", "uuu,;", ""}),
    [](const testing::TestParamInfo<TodReadCase>& info) { return std::string(info.param.label); });

TEST(ToDSchedule, TypedTimes)
{
    const std::pair<const char*, int> good[] = {{"930", 930}, {"0000", 0}, {"2359", 2359}, {" 0800 ", 800}, {"+5", 5}};
    for (const auto& [text, value] : good) {
        ASSERT_TRUE(ToDSchedule::parseTime(text).has_value()) << text;
        EXPECT_EQ(*ToDSchedule::parseTime(text), value) << text;
    }
    for (const char* text : {"2400", "1260", "-1", "", " ", "12a", "99999", "0960"})
        EXPECT_FALSE(ToDSchedule::parseTime(text).has_value()) << text;
    EXPECT_EQ(ToDSchedule::formatTime(930), "0930");
    EXPECT_EQ(ToDSchedule::formatTime(0), "0000");
}

struct StepCase {
    int from;
    int delta;
    int to;
};

class SpinStep : public testing::TestWithParam<StepCase> {};

TEST_P(SpinStep, WrapsAndCarries)
{
    EXPECT_EQ(ToDSchedule::step(GetParam().from, GetParam().delta), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(Steps, SpinStep,
                         testing::Values(StepCase{59, 1, 100}, StepCase{0, -1, 2359}, StepCase{2359, 1, 0},
                                         StepCase{2355, 5, 0}, StepCase{0, -5, 2355}, StepCase{830, 60, 930},
                                         StepCase{2330, 60, 30}, StepCase{45, -60, 2345},
                                         StepCase{1230, 15, 1245}, StepCase{1250, 15, 1305},
                                         // A typed position with too many minutes still gives a time.
                                         StepCase{75, 5, 120}, StepCase{2400, 0, 0}));
