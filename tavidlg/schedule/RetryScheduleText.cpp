#include "schedule/RetryScheduleText.h"

#include <limits>

namespace RetrySchedule {

namespace {

constexpr uint32_t kMax = std::numeric_limits<uint32_t>::max();

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Reads a run of digits at pos, saturating at `limit`.
uint64_t readNumber(std::string_view text, std::size_t& pos, uint64_t limit)
{
    uint64_t value = 0;
    for (; pos < text.size() && isDigit(text[pos]); ++pos) {
        value = value * 10 + uint64_t(text[pos] - '0');
        if (value > limit)
            value = limit;
    }
    return value;
}

std::string fill(const std::string& format, uint64_t number)
{
    std::string out;
    const std::size_t at = format.find("%d");
    if (at == std::string::npos)
        return format;
    out.append(format, 0, at);
    out += std::to_string(number);
    out.append(format, at + 2, std::string::npos);
    return out;
}

} // namespace

std::vector<Entry> parse(std::string_view text)
{
    std::vector<Entry> entries;
    std::size_t pos = 0;
    const std::size_t n = text.size();
    while (pos < n) {
        while (pos < n && (text[pos] == ' ' || text[pos] == '-'))
            ++pos;
        Entry entry;
        entry.interval = uint32_t(readNumber(text, pos, kMax));
        while (pos < n && (text[pos] == ' ' || text[pos] == ':'))
            ++pos;
        if (pos < n) {
            entry.notify = text[pos] == 'T' || text[pos] == 't';
            ++pos;
        }
        while (pos < n && (text[pos] == ' ' || text[pos] == ','))
            ++pos;
        entries.push_back(entry);
    }
    return entries;
}

std::string format(const std::vector<Entry>& entries)
{
    std::string out;
    out.reserve(entries.size() * 6);
    for (const Entry& e : entries) {
        if (!out.empty())
            out += ',';
        out += std::to_string(e.interval);
        out += e.notify ? ":T" : ":F";
    }
    return out;
}

std::vector<Entry> defaultEntries()
{
    constexpr uint32_t kBlock = 120, kEnd = 4320, kDay = 1440;
    std::vector<Entry> entries;
    bool notified = false;
    for (uint32_t t = 0; t < kEnd; t += kBlock) {
        const bool notifyHere = !notified && t >= kDay;
        notified = notified || notifyHere;
        entries.push_back({10, false});
        entries.push_back({10, notifyHere});
        entries.push_back({kBlock - 20, false});
    }
    entries.push_back({10, false});
    entries.push_back({10, false});
    return entries;
}

std::string defaultText()
{
    return format(defaultEntries());
}

std::string formatElapsed(uint64_t minutes, const DurationWords& words)
{
    if (minutes == 0)
        return words.initial;
    const uint64_t days = minutes / 1440, hours = (minutes / 60) % 24, rest = minutes % 60;
    std::string out;
    if (days)
        out += fill(days == 1 ? words.day : words.days, days);
    if (hours)
        out += fill(hours == 1 ? words.hour : words.hours, hours);
    if (rest)
        out += fill(rest == 1 ? words.minute : words.minutes, rest);
    return out;
}

ParsedElapsed parseElapsed(std::string_view text)
{
    const std::size_t n = text.size();
    const auto fail = [](std::size_t pos) { return ParsedElapsed{false, 0, pos}; };
    bool seenDays = false, seenHours = false, seenMinutes = false;
    uint64_t total = 0;
    std::size_t pos = 0;
    for (;;) {
        while (pos < n && isBlank(text[pos]))
            ++pos;
        if (pos == n)
            break;
        if (!isDigit(text[pos]))
            return fail(pos);
        const uint64_t number = readNumber(text, pos, uint64_t(kMax) + 1);
        while (pos < n && isBlank(text[pos]))
            ++pos;
        if (pos == n)
            return fail(n);
        bool* seen = nullptr;
        uint64_t factor = 1;
        switch (text[pos]) {
        case 'd': case 'D': seen = &seenDays; factor = 1440; break;
        case 'h': case 'H': seen = &seenHours; factor = 60; break;
        case 'm': case 'M': seen = &seenMinutes; factor = 1; break;
        default: return fail(pos);
        }
        if (*seen)
            return fail(pos);
        *seen = true;
        // Each part stays below 2^32 * 1440, so the sum of three cannot overflow 64 bits.
        total += number * factor;
        while (pos < n && isLetter(text[pos]))
            ++pos;
    }
    if (total == 0 || total > kMax)
        return fail(0);
    return ParsedElapsed{true, uint32_t(total), 0};
}

} // namespace RetrySchedule
