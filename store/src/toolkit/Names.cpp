// Host-name and local-part rules, this computer's name and name counting.
#include "velbrook/MailToolkit.h"

#include "Utf8_p.h"

#include <cstring>
#include <string>
#include <string_view>

#if defined(_WIN32)
#  include <windows.h>
#else
#  include <unistd.h>
#endif

namespace {

constexpr std::size_t kMaxHostName = 253;
constexpr std::size_t kMaxLabel = 63;

int fail(uint32_t code)
{
    SetLastError(code);
    return 0;
}

bool isAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isValidLabel(std::string_view label)
{
    if (label.empty() || label.size() > kMaxLabel || label.front() == '-' || label.back() == '-')
        return false;
    for (char c : label) {
        if (!isAsciiLetter(c) && !isDigit(c) && c != '-')
            return false;
    }
    return true;
}

bool isAllDigits(std::string_view label)
{
    return !label.empty() && label.find_first_not_of("0123456789") == std::string_view::npos;
}

// RFC 5322 atext, widened by RFC 6532 to any non-ASCII character (checked as UTF-8 by the caller).
bool isAtext(unsigned char c)
{
    return c >= 0x80 || isAsciiLetter(char(c)) || isDigit(char(c)) || std::strchr("!#$%&'*+-/=?^_`{|}~", c) != nullptr;
}

bool isDotAtom(std::string_view text)
{
    if (text.empty() || text.front() == '.' || text.back() == '.')
        return false;
    char previous = '\0';
    for (char c : text) {
        if (c == '.') {
            if (previous == '.')
                return false;
        } else if (!isAtext(static_cast<unsigned char>(c))) {
            return false;
        }
        previous = c;
    }
    return true;
}

// Copies text into the caller's buffer under the usual size rules (sizes count the terminating zero).
int copyOut(const std::string& text, char* buffer, uint32_t* size)
{
    const std::size_t needed = text.size() + 1;
    if (needed > UINT32_MAX)
        return fail(VB_ERROR_INVALID_PARAMETER);
    if (!buffer || *size < needed) {
        *size = uint32_t(needed);
        return fail(VB_ERROR_MORE_DATA);
    }
    std::memcpy(buffer, text.c_str(), needed);
    *size = uint32_t(needed);
    return 1;
}

} // namespace

VB_EXTERN_C int IsValidHostName(const char* name)
{
    if (!name)
        return fail(VB_ERROR_INVALID_PARAMETER);
    std::string_view text(name);
    if (!text.empty() && text.back() == '.')
        text.remove_suffix(1); // the root label of an absolute name
    if (text.empty() || text.size() > kMaxHostName)
        return fail(VB_ERROR_INVALID_PARAMETER);
    if (text.find_first_not_of("0123456789.") == std::string_view::npos) {
        // Only digits and dots: this is meant as an address, so it must be one.
        uint32_t address;
        return IpAddressToDword(std::string(text).c_str(), &address);
    }
    std::string_view last;
    for (std::size_t pos = 0;;) {
        const std::size_t dot = text.find('.', pos);
        last = text.substr(pos, dot == std::string_view::npos ? std::string_view::npos : dot - pos);
        if (!isValidLabel(last))
            return fail(VB_ERROR_INVALID_PARAMETER);
        if (dot == std::string_view::npos)
            break;
        pos = dot + 1;
    }
    // An all-numeric top-level label would make the name indistinguishable from a partial address.
    if (isAllDigits(last))
        return fail(VB_ERROR_INVALID_PARAMETER);
    return 1;
}

VB_EXTERN_C int ConvertLocalPart(const char* localPart, char* buffer, uint32_t* size)
{
    if (!localPart || !size)
        return fail(VB_ERROR_INVALID_PARAMETER);
    const std::string_view text(localPart);
    if (!vbtoolkit::isValidUtf8(text))
        return fail(VB_ERROR_INVALID_PARAMETER);
    if (isDotAtom(text))
        return copyOut(std::string(text), buffer, size);
    std::string quoted;
    quoted.reserve(text.size() + 2);
    quoted += '"';
    for (char c : text) {
        const auto u = static_cast<unsigned char>(c);
        // A quoted string can carry printable characters and blanks, nothing else (no line breaks).
        if ((u < 0x20 && c != '\t') || u == 0x7F)
            return fail(VB_ERROR_INVALID_PARAMETER);
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    quoted += '"';
    return copyOut(quoted, buffer, size);
}

VB_EXTERN_C int GetThisComputerName(char* name, uint32_t* size)
{
    if (!size)
        return fail(VB_ERROR_INVALID_PARAMETER);
    std::string host;
#if defined(_WIN32)
    char buffer[MAX_COMPUTERNAME_LENGTH + 1];
    DWORD length = sizeof buffer;
    if (!GetComputerNameA(buffer, &length))
        return 0; // the system has set the last error
    host.assign(buffer, length);
#else
    char buffer[256];
    if (gethostname(buffer, sizeof buffer) != 0)
        return fail(VB_ERROR_NOT_SUPPORTED);
    buffer[sizeof buffer - 1] = '\0';
    host = buffer;
#endif
    return copyOut(host, name, size);
}

VB_EXTERN_C uint32_t CountNames(const char* text)
{
    if (!text)
        return 0;
    uint32_t count = 0;
    bool inName = false;
    for (const char* p = text; *p; ++p) {
        const bool separator = *p == ',' || *p == ' ' || *p == '\t' || *p == '\r' || *p == '\n';
        if (!separator && !inName)
            ++count;
        inName = !separator;
    }
    return count;
}

VB_EXTERN_C void SetFakeResourcesHandle(void* /*moduleState*/)
{
}
