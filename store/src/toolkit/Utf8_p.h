// Strict UTF-8 decoding (and the matching encoder) shared by the toolkit's text rules (RFC 3629: no overlong forms, no surrogates,
// nothing above U+10FFFF, no truncated sequences).
#ifndef VELBROOK_TOOLKIT_UTF8_P_H
#define VELBROOK_TOOLKIT_UTF8_P_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vbtoolkit {

// Decodes the code point that starts at text[pos]. On success stores it, advances pos and returns true;
// on an invalid or truncated sequence returns false and leaves pos alone.
inline bool decodeUtf8(std::string_view text, std::size_t& pos, char32_t& cp)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t n = text.size();
    const unsigned char b0 = byte(pos);
    if (b0 < 0x80) {
        cp = b0;
        pos += 1;
        return true;
    }
    std::size_t len;
    unsigned char lo = 0x80, hi = 0xBF; // allowed range of the second byte
    if (b0 >= 0xC2 && b0 <= 0xDF) {
        len = 2;
    } else if (b0 >= 0xE0 && b0 <= 0xEF) {
        len = 3;
        if (b0 == 0xE0)
            lo = 0xA0; // overlong
        else if (b0 == 0xED)
            hi = 0x9F; // surrogates
    } else if (b0 >= 0xF0 && b0 <= 0xF4) {
        len = 4;
        if (b0 == 0xF0)
            lo = 0x90; // overlong
        else if (b0 == 0xF4)
            hi = 0x8F; // above U+10FFFF
    } else {
        return false; // continuation byte, C0/C1 overlong lead or F5..FF
    }
    if (n - pos < len)
        return false;
    const unsigned char b1 = byte(pos + 1);
    if (b1 < lo || b1 > hi)
        return false;
    char32_t value = b0 & (0xFF >> (len + 1));
    value = (value << 6) | (b1 & 0x3F);
    for (std::size_t i = 2; i < len; ++i) {
        const unsigned char b = byte(pos + i);
        if ((b & 0xC0) != 0x80)
            return false;
        value = (value << 6) | (b & 0x3F);
    }
    cp = value;
    pos += len;
    return true;
}

// Appends one code point (a scalar value the caller has checked) as UTF-8.
inline void appendUtf8(std::string& out, char32_t cp)
{
    if (cp < 0x80) {
        out += char(cp);
    } else if (cp < 0x800) {
        out += char(0xC0 | (cp >> 6));
        out += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += char(0xE0 | (cp >> 12));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    } else {
        out += char(0xF0 | (cp >> 18));
        out += char(0x80 | ((cp >> 12) & 0x3F));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    }
}

inline bool isValidUtf8(std::string_view text)
{
    std::size_t pos = 0;
    char32_t cp;
    while (pos < text.size()) {
        if (!decodeUtf8(text, pos, cp))
            return false;
    }
    return true;
}

} // namespace vbtoolkit

#endif
