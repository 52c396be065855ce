// The time-of-day schedule's text rules against arbitrary input. Besides crashes it checks that the
// lenient reader's entries are runs of digits that are written back and read again unchanged, that a
// typed time that is accepted is written as four digits that read back to it, and that a spin step from
// any position gives a time of day.
#include "schedule/ToDScheduleText.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

void check(bool condition)
{
    if (!condition)
        std::abort();
}

bool validTime(int hhmm)
{
    return hhmm >= 0 && hhmm / 100 <= 23 && hhmm % 100 <= 59;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    const auto entries = ToDSchedule::parse(text);
    for (const auto& e : entries)
        check(!e.time.empty() && e.time.find_first_not_of("0123456789") == std::string::npos);
    const std::string written = ToDSchedule::format(entries);
    const auto again = ToDSchedule::parse(written);
    check(again.size() == entries.size());
    for (size_t i = 0; i < entries.size(); ++i)
        check(again[i].time == entries[i].time && again[i].dialup == entries[i].dialup);

    if (const auto time = ToDSchedule::parseTime(text)) {
        check(validTime(*time));
        const std::string four = ToDSchedule::formatTime(*time);
        check(four.size() == 4 && ToDSchedule::parseTime(four) == time);
    }

    if (size >= 8) {
        int position = 0, delta = 0;
        std::memcpy(&position, data, sizeof position);
        std::memcpy(&delta, data + 4, sizeof delta);
        position &= 0x7FFFFFFF;
        delta %= 100000;
        check(validTime(ToDSchedule::step(position, delta)));
    }
    return 0;
}
