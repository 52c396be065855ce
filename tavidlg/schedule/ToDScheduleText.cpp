#include "schedule/ToDScheduleText.h"

#include <cstdio>

namespace ToDSchedule {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

int floorDiv(int a, int b)
{
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)) ? 1 : 0);
}

} // namespace

std::vector<Entry> parse(std::string_view text)
{
    std::vector<Entry> entries;
    std::size_t pos = 0;
    const std::size_t n = text.size();
    while (pos < n && !isDigit(text[pos]))
        ++pos;
    while (pos < n) {
        const std::size_t start = pos;
        while (pos < n && isDigit(text[pos]))
            ++pos;
        Entry entry{std::string(text.substr(start, pos - start)), pos < n && (text[pos] == 'u' || text[pos] == 'U')};
        entries.push_back(std::move(entry));
        while (pos < n && !isDigit(text[pos]))
            ++pos;
    }
    return entries;
}

std::string format(const std::vector<Entry>& entries)
{
    std::string out;
    for (const Entry& e : entries) {
        if (!out.empty())
            out += ',';
        out += e.time;
        if (e.dialup)
            out += 'u';
    }
    return out;
}

std::optional<int> parseTime(std::string_view text)
{
    std::size_t pos = 0, end = text.size();
    while (pos < end && isBlank(text[pos]))
        ++pos;
    while (end > pos && isBlank(text[end - 1]))
        --end;
    if (pos < end && text[pos] == '+')
        ++pos;
    if (pos == end)
        return std::nullopt;
    int value = 0;
    for (; pos < end; ++pos) {
        if (!isDigit(text[pos]))
            return std::nullopt;
        value = value * 10 + (text[pos] - '0');
        if (value > 2359)
            return std::nullopt;
    }
    if (value / 100 > 23 || value % 100 > 59)
        return std::nullopt;
    return value;
}

std::string formatTime(int hhmm)
{
    char text[16];
    std::snprintf(text, sizeof text, "%.2d%.2d", hhmm / 100, hhmm % 100);
    return text;
}

int step(int position, int delta)
{
    if (position < 0)
        position = 0;
    int hours = position / 100;
    int minutes = position % 100 + delta;
    hours += floorDiv(minutes, 60);
    minutes -= floorDiv(minutes, 60) * 60;
    hours %= 24;
    if (hours < 0)
        hours += 24;
    return hours * 100 + minutes;
}

} // namespace ToDSchedule
