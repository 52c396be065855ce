// The delivery retry schedule ("RetrySchedule"): entries "minutes:flag" joined with ",", each an
// interval since the previous attempt and whether the sender is told the message is delayed. Also the
// display of a cumulative time and the parser of a typed time ("1 day 20 minutes", "2d3h"). Pure logic
// without widgets, so that the rules can be tested and fuzzed on their own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace RetrySchedule {

struct Entry {
    uint32_t interval = 0; // minutes since the previous attempt (the first: since the initial attempt)
    bool notify = false;   // a "delayed message" notification is sent at this attempt
};

// Reads a stored schedule leniently: blanks and '-' before a number are skipped, blanks and ':' after
// it; the flag is 'T' or 't' for true and anything else false, one character being consumed; then
// blanks and ',' are skipped. A number too large for 32 bits stays at the largest value. Every step
// consumes at least one character, so any text ends.
std::vector<Entry> parse(std::string_view text);
// Writes a schedule strictly: "10:F,10:T,100:F" (no blanks, no trailing comma).
std::string format(const std::vector<Entry>& entries);

// The schedule used when none is stored: in every two-hour block of the first three days attempts 10,
// 20 and 120 minutes after the block's start, one notification at 1 day 20 minutes, and two last
// attempts at 3 days 10 and 20 minutes (110 retries).
std::vector<Entry> defaultEntries();
std::string defaultText();

// The words of a displayed time; "%d" stands for the number.
struct DurationWords {
    std::string initial = "<initial attempt>";
    std::string day = "%d day ", days = "%d days ";
    std::string hour = "%d hour ", hours = "%d hours ";
    std::string minute = "%d minute", minutes = "%d minutes";
};

// A cumulative time: 0 is the initial attempt; otherwise days, hours and minutes, each only when not
// zero (1500 minutes: "1 day 1 hour ", the blank after the hour part kept).
std::string formatElapsed(uint64_t minutes, const DurationWords& words = DurationWords());

struct ParsedElapsed {
    bool ok = false;
    uint32_t minutes = 0;
    std::size_t errorPos = 0; // byte offset of the offending character (the text's length: at its end)
};

// A typed time: number and unit pairs, each unit (d, h, m in either case; the rest of the word is
// skipped) at most once, in any order, blanks anywhere between. Fails at an unknown unit letter, a
// repeated unit, a character where a number belongs, or a number at the end without its unit; fails
// at position 0 when the total is 0 or does not fit in 32 bits.
ParsedElapsed parseElapsed(std::string_view text);

} // namespace RetrySchedule
