// A time-of-day delivery schedule ("WeekdaySchedule", "WeekendSchedule"): four-digit times of the day
// joined with ",", each followed by "u" when it forces a dial-up connection (0800,1230u,1800). Also the
// rules of the time edit and of its spin button. Pure logic without widgets, so that the rules can be
// tested and fuzzed on their own.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ToDSchedule {

struct Entry {
    std::string time;    // the run of digits as stored, not reformatted
    bool dialup = false; // forces a dial-up connection
};

// Reads a schedule leniently: every run of digits is an entry, forcing a dial-up when the character
// right after it is 'u' or 'U'; anything that is not a digit separates entries.
std::vector<Entry> parse(std::string_view text);
// Writes a schedule: the entries' times joined with ",", each followed by "u" when it forces a dial-up.
std::string format(const std::vector<Entry>& entries);

// A typed time as hours * 100 + minutes: a decimal number (blanks around it allowed) whose hundreds are
// an hour 0 to 23 and whose last two digits a minute 0 to 59 ("930" is 09:30). Nothing for anything
// else (empty, negative, other characters, 2400, 1260).
std::optional<int> parseTime(std::string_view text);
// "%.2d%.2d": 930 -> "0930".
std::string formatTime(int hhmm);

// One step of the spin button from `position` (read as hours * 100 + minutes): delta minutes are added;
// minutes outside 0 to 59 wrap by 60 with a carry into the hours, and hours wrap within 0 to 23. Returns
// the new position (0059 + 1 = 0100, 0000 - 1 = 2359).
int step(int position, int delta);

} // namespace ToDSchedule
