// UTF-16 <-> UTF-8 conversion that refuses anything that is not well-formed on either side.
#include "velbrook/MailToolkit.h"

#include "Utf8_p.h"

namespace {

bool isHighSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool isLowSurrogate(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

} // namespace

bool CUtf8String::FromUnicode(const std::u16string& text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        char32_t cp = c;
        if (isHighSurrogate(c)) {
            if (i + 1 >= text.size() || !isLowSurrogate(text[i + 1])) {
                SetLastError(VB_ERROR_INVALID_DATA);
                return false;
            }
            cp = 0x10000 + ((char32_t(c) - 0xD800) << 10) + (char32_t(text[i + 1]) - 0xDC00);
            ++i;
        } else if (isLowSurrogate(c)) {
            SetLastError(VB_ERROR_INVALID_DATA);
            return false;
        }
        vbtoolkit::appendUtf8(out, cp);
    }
    m_text = std::move(out);
    return true;
}

bool CUtf8String::ToUnicode(std::u16string& text) const
{
    std::u16string out;
    out.reserve(m_text.size());
    std::size_t pos = 0;
    char32_t cp;
    while (pos < m_text.size()) {
        if (!vbtoolkit::decodeUtf8(m_text, pos, cp)) {
            SetLastError(VB_ERROR_INVALID_DATA);
            return false;
        }
        if (cp >= 0x10000) {
            cp -= 0x10000;
            out += char16_t(0xD800 + (cp >> 10));
            out += char16_t(0xDC00 + (cp & 0x3FF));
        } else {
            out += char16_t(cp);
        }
    }
    text = std::move(out);
    return true;
}
