// The retry schedule's text rules against arbitrary input. Besides crashes it checks that what the
// lenient reader makes of any text is written back in a form that reads the same, that a typed time
// either parses to a positive number of minutes or points inside the text, and that every displayed
// time parses back to itself.
#include "schedule/RetryScheduleText.h"

#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void check(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    const auto entries = RetrySchedule::parse(text);
    check(entries.size() <= size);
    const std::string written = RetrySchedule::format(entries);
    const auto again = RetrySchedule::parse(written);
    check(again.size() == entries.size());
    for (size_t i = 0; i < entries.size(); ++i)
        check(again[i].interval == entries[i].interval && again[i].notify == entries[i].notify);
    check(RetrySchedule::format(again) == written);

    const RetrySchedule::ParsedElapsed typed = RetrySchedule::parseElapsed(text);
    if (typed.ok) {
        check(typed.minutes > 0);
        const RetrySchedule::ParsedElapsed shown = RetrySchedule::parseElapsed(RetrySchedule::formatElapsed(typed.minutes));
        check(shown.ok && shown.minutes == typed.minutes);
    } else {
        check(typed.errorPos <= size);
    }
    return 0;
}
