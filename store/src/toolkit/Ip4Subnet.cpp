// IPv4 subnet lists and address conversions.
#include "velbrook/MailToolkit.h"

#include "Utf8_p.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#if defined(_WIN32)
#  include <ws2tcpip.h>
#else
#  include <arpa/inet.h>
#endif

namespace {

constexpr std::size_t kMaxDottedLength = 15; // "255.255.255.255"
constexpr std::size_t kMaxCommentCharacters = 255;

int fail(uint32_t code)
{
    SetLastError(code);
    return 0;
}

// Four decimal octets and nothing else. inet_pton is strict: no leading zeros (which other parsers read
// as octal), no short forms such as "10.1", no white space.
bool parseDotted(std::string_view text, uint32_t& value)
{
    if (text.empty() || text.size() > kMaxDottedLength)
        return false;
    char buffer[kMaxDottedLength + 1];
    std::memcpy(buffer, text.data(), text.size());
    buffer[text.size()] = '\0';
    in_addr addr{};
    if (inet_pton(AF_INET, buffer, &addr) != 1)
        return false;
    value = ntohl(addr.s_addr);
    return true;
}

bool isContiguousMask(uint32_t mask)
{
    const uint32_t inverse = ~mask;
    return (inverse & (inverse + 1)) == 0;
}

int prefixLength(uint32_t mask)
{
    int bits = 0;
    for (; mask & 0x80000000u; mask <<= 1)
        ++bits;
    return bits;
}

bool parsePrefix(std::string_view text, uint32_t& mask)
{
    if (text.empty() || text.size() > 2)
        return false;
    unsigned bits = 0;
    for (char c : text) {
        if (c < '0' || c > '9')
            return false;
        bits = bits * 10 + unsigned(c - '0');
    }
    if (bits > 32)
        return false;
    mask = bits == 0 ? 0u : ~uint32_t(0) << (32 - bits);
    return true;
}

bool parseSubnet(std::string_view text, char separator, uint32_t& address, uint32_t& mask)
{
    const std::size_t at = text.find(separator);
    uint32_t a = 0;
    uint32_t m = 0xFFFFFFFFu;
    if (!parseDotted(text.substr(0, at), a))
        return false;
    if (at != std::string_view::npos) {
        const std::string_view maskText = text.substr(at + 1);
        if (maskText.find('.') != std::string_view::npos) {
            if (!parseDotted(maskText, m) || !isContiguousMask(m))
                return false;
        } else if (!parsePrefix(maskText, m)) {
            return false;
        }
    }
    if ((a & ~m) != 0)
        return false; // host bits set: not a subnet
    address = a;
    mask = m;
    return true;
}

// One allocation per element: the comment lives right behind the node, so freeing the node frees both.
_tIp4Subnet* newNode(uint32_t address, uint32_t mask, const char* comment)
{
    if (!comment)
        comment = "";
    if (!IsValidIp4Subnet(address, mask) || !IsValidIp4CommentString(comment)) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const std::size_t length = std::strlen(comment);
    auto* node = static_cast<_tIp4Subnet*>(std::malloc(sizeof(_tIp4Subnet) + length + 1));
    if (!node) {
        SetLastError(VB_ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    node->next = nullptr;
    node->address = address;
    node->mask = mask;
    node->comment = reinterpret_cast<char*>(node + 1);
    std::memcpy(node->comment, comment, length + 1);
    return node;
}

bool isListSeparator(char c)
{
    return c == ',' || c == ';' || c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

} // namespace

VB_EXTERN_C int ParseIp4Subnet(const char* text, char separator, uint32_t* address, uint32_t* mask)
{
    if (!text || !address || !mask)
        return fail(VB_ERROR_INVALID_PARAMETER);
    if (separator == '\0')
        separator = '/';
    if (separator == '.' || (separator >= '0' && separator <= '9'))
        return fail(VB_ERROR_INVALID_PARAMETER);
    if (!parseSubnet(text, separator, *address, *mask))
        return fail(VB_ERROR_INVALID_PARAMETER);
    return 1;
}

VB_EXTERN_C int ParseIp4SubnetList(const char* text, _tIp4Subnet** first)
{
    if (!text || !first)
        return fail(VB_ERROR_INVALID_PARAMETER);
    const std::string_view all(text);
    _tIp4Subnet* head = nullptr;
    _tIp4Subnet* tail = nullptr;
    std::size_t pos = 0;
    while (pos < all.size()) {
        if (isListSeparator(all[pos])) {
            ++pos;
            continue;
        }
        std::size_t end = pos;
        while (end < all.size() && !isListSeparator(all[end]))
            ++end;
        uint32_t address, mask;
        _tIp4Subnet* node = nullptr;
        if (!parseSubnet(all.substr(pos, end - pos), '/', address, mask)) {
            SetLastError(VB_ERROR_INVALID_PARAMETER);
        } else {
            node = newNode(address, mask, "");
        }
        if (!node) {
            FreeIp4SubnetList(head);
            return 0;
        }
        (tail ? tail->next : head) = node;
        tail = node;
        pos = end;
    }
    *first = head;
    return 1;
}

VB_EXTERN_C int EncodeIp4SubnetList(const _tIp4Subnet* first, char* buffer, uint32_t* size)
{
    if (!size)
        return fail(VB_ERROR_INVALID_PARAMETER);
    char item[VB_SUBNET_TEXT_SIZE];
    std::size_t needed = 1;
    for (const _tIp4Subnet* p = first; p; p = p->next) {
        GetSubnetString(p->address, p->mask, item);
        needed += std::strlen(item) + (p != first ? 2 : 0);
        if (needed > UINT32_MAX)
            return fail(VB_ERROR_NOT_ENOUGH_MEMORY);
    }
    if (!buffer || *size < needed) {
        *size = static_cast<uint32_t>(needed);
        return fail(VB_ERROR_MORE_DATA);
    }
    char* out = buffer;
    for (const _tIp4Subnet* p = first; p; p = p->next) {
        if (p != first) {
            *out++ = ',';
            *out++ = ' ';
        }
        GetSubnetString(p->address, p->mask, item);
        const std::size_t length = std::strlen(item);
        std::memcpy(out, item, length);
        out += length;
    }
    *out = '\0';
    *size = static_cast<uint32_t>(needed);
    return 1;
}

VB_EXTERN_C void FreeIp4SubnetList(_tIp4Subnet* first)
{
    while (first) {
        _tIp4Subnet* next = first->next;
        std::free(first);
        first = next;
    }
}

VB_EXTERN_C int CopySubnetList(const _tIp4Subnet* first, _tIp4Subnet** copy)
{
    if (!copy)
        return fail(VB_ERROR_INVALID_PARAMETER);
    _tIp4Subnet* head = nullptr;
    _tIp4Subnet* tail = nullptr;
    for (const _tIp4Subnet* p = first; p; p = p->next) {
        _tIp4Subnet* node = newNode(p->address, p->mask, p->comment);
        if (!node) {
            FreeIp4SubnetList(head);
            return 0;
        }
        (tail ? tail->next : head) = node;
        tail = node;
    }
    *copy = head;
    return 1;
}

VB_EXTERN_C _tIp4Subnet* AppendIp4Subnet(_tIp4Subnet** first, uint32_t address, uint32_t mask,
                                         const char* comment)
{
    if (!first) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    _tIp4Subnet* node = newNode(address, mask, comment);
    if (!node)
        return nullptr;
    _tIp4Subnet** link = first;
    while (*link)
        link = &(*link)->next;
    *link = node;
    return node;
}

VB_EXTERN_C _tIp4Subnet* InsertAfterIp4Subnet(_tIp4Subnet** first, _tIp4Subnet* after, uint32_t address,
                                              uint32_t mask, const char* comment)
{
    if (!first) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    _tIp4Subnet* node = newNode(address, mask, comment);
    if (!node)
        return nullptr;
    _tIp4Subnet** link = after ? &after->next : first;
    node->next = *link;
    *link = node;
    return node;
}

VB_EXTERN_C int DeleteIp4Subnet(_tIp4Subnet** first, uint32_t address, uint32_t mask)
{
    if (!first)
        return fail(VB_ERROR_INVALID_PARAMETER);
    for (_tIp4Subnet** link = first; *link; link = &(*link)->next) {
        _tIp4Subnet* node = *link;
        if (node->address == address && node->mask == mask) {
            *link = node->next;
            std::free(node);
            return 1;
        }
    }
    return fail(VB_ERROR_NOT_FOUND);
}

VB_EXTERN_C _tIp4Subnet* FindFirstNode(_tIp4Subnet* first)
{
    return first;
}

VB_EXTERN_C int GetSubnetString(uint32_t address, uint32_t mask, char* text)
{
    if (!text)
        return fail(VB_ERROR_INVALID_PARAMETER);
    const auto octet = [](uint32_t v, int i) { return unsigned((v >> (24 - 8 * i)) & 0xFF); };
    if (isContiguousMask(mask)) {
        std::snprintf(text, VB_SUBNET_TEXT_SIZE, "%u.%u.%u.%u/%d", octet(address, 0), octet(address, 1),
                      octet(address, 2), octet(address, 3), prefixLength(mask));
        return 1;
    }
    // Not a subnet mask: still show what is there, in the form that does not hide the odd bits.
    std::snprintf(text, VB_SUBNET_TEXT_SIZE, "%u.%u.%u.%u/%u.%u.%u.%u", octet(address, 0), octet(address, 1),
                  octet(address, 2), octet(address, 3), octet(mask, 0), octet(mask, 1), octet(mask, 2),
                  octet(mask, 3));
    return fail(VB_ERROR_INVALID_PARAMETER);
}

VB_EXTERN_C int IsValidIp4Subnet(uint32_t address, uint32_t mask)
{
    if (!isContiguousMask(mask) || (address & ~mask) != 0)
        return fail(VB_ERROR_INVALID_PARAMETER);
    return 1;
}

VB_EXTERN_C int IsValidIp4CommentString(const char* comment)
{
    if (!comment)
        return 1;
    const std::string_view text(comment);
    std::size_t pos = 0;
    std::size_t characters = 0;
    char32_t cp;
    while (pos < text.size()) {
        if (++characters > kMaxCommentCharacters || !vbtoolkit::decodeUtf8(text, pos, cp))
            return fail(VB_ERROR_INVALID_PARAMETER);
        if (cp < 0x20 || (cp >= 0x7F && cp <= 0x9F))
            return fail(VB_ERROR_INVALID_PARAMETER);
    }
    return 1;
}

VB_EXTERN_C int Ip4SubnetMatchIpAddress(const _tIp4Subnet* first, uint32_t address)
{
    for (const _tIp4Subnet* p = first; p; p = p->next) {
        if ((address & p->mask) == (p->address & p->mask))
            return 1;
    }
    return fail(VB_ERROR_NOT_FOUND);
}

VB_EXTERN_C int Ip4SubnetMatchIpSubnet(const _tIp4Subnet* first, uint32_t address, uint32_t mask)
{
    for (const _tIp4Subnet* p = first; p; p = p->next) {
        if (p->address == address && p->mask == mask)
            return 1;
    }
    return fail(VB_ERROR_NOT_FOUND);
}

VB_EXTERN_C int IpAddressToDword(const char* text, uint32_t* address)
{
    if (!text || !address)
        return fail(VB_ERROR_INVALID_PARAMETER);
    if (!parseDotted(text, *address))
        return fail(VB_ERROR_INVALID_PARAMETER);
    return 1;
}

VB_EXTERN_C int DwordToIpAddress(uint32_t address, char* text, uint32_t size)
{
    if (!text)
        return fail(VB_ERROR_INVALID_PARAMETER);
    char buffer[kMaxDottedLength + 1];
    const int length = std::snprintf(buffer, sizeof buffer, "%u.%u.%u.%u", address >> 24, (address >> 16) & 0xFF,
                                     (address >> 8) & 0xFF, address & 0xFF);
    if (size < uint32_t(length) + 1)
        return fail(VB_ERROR_MORE_DATA);
    std::memcpy(text, buffer, std::size_t(length) + 1);
    return 1;
}
