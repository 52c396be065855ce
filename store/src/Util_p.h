// Small helpers shared by the store's sources.
#ifndef VB_STORE_UTIL_P_H
#define VB_STORE_UTIL_P_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vb {

// Names and sections match as a registry does: without regard to ASCII case.
inline std::string fold(std::string_view text)
{
    std::string out(text);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z')
            c = char(c - 'A' + 'a');
    return out;
}

inline bool equalsFolded(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'A' && x <= 'Z')
            x = char(x - 'A' + 'a');
        if (y >= 'A' && y <= 'Z')
            y = char(y - 'A' + 'a');
        if (x != y)
            return false;
    }
    return true;
}

inline std::string_view sv(const char* text) { return text ? std::string_view(text) : std::string_view(); }

int64_t nowMs();

// The key file the calling thread's last key error is about; the error texts of those codes name it.
void setKeyFileDetail(const std::string& path);

} // namespace vb

#endif
