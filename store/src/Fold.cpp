// Case folding of names for all of Unicode.
#include <unicode/uchar.h>

#include "Util_p.h"
#include "toolkit/Utf8_p.h"

namespace vb {

std::string fold(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (size_t pos = 0; pos < text.size();) {
        const auto byte = static_cast<unsigned char>(text[pos]);
        if (byte < 0x80) {
            out += byte >= 'A' && byte <= 'Z' ? char(byte - 'A' + 'a') : char(byte);
            ++pos;
            continue;
        }
        char32_t cp = 0;
        if (!vbtoolkit::decodeUtf8(text, pos, cp)) {
            out += char(byte);
            ++pos;
            continue;
        }
        vbtoolkit::appendUtf8(out, char32_t(u_foldCase(UChar32(cp), U_FOLD_CASE_DEFAULT)));
    }
    return out;
}

bool equalsFolded(std::string_view a, std::string_view b)
{
    return fold(a) == fold(b);
}

} // namespace vb
