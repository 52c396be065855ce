// Subnet texts, subnet lists and the other text rules of MailToolkit against arbitrary bytes. Besides
// crashes it checks that whatever parses renders back to text that parses to the same thing.
#include <velbrook/MailToolkit.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

void check(bool condition)
{
    if (!condition)
        std::abort();
}

std::string encode(const _tIp4Subnet* first)
{
    uint32_t size = 0;
    EncodeIp4SubnetList(first, nullptr, &size);
    std::string text(size, '\0');
    check(EncodeIp4SubnetList(first, text.data(), &size) == 1);
    text.resize(std::strlen(text.c_str()));
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size); // zero-terminated copy

    uint32_t address = 0, mask = 0;
    if (ParseIp4Subnet(text.c_str(), '/', &address, &mask)) {
        check(IsValidIp4Subnet(address, mask) == 1);
        char rendered[VB_SUBNET_TEXT_SIZE];
        check(GetSubnetString(address, mask, rendered) == 1);
        uint32_t a = 0, m = 0;
        check(ParseIp4Subnet(rendered, '/', &a, &m) == 1 && a == address && m == mask);
    }
    if (size > 0)
        ParseIp4Subnet(text.c_str() + 1, text[0], &address, &mask);

    _tIp4Subnet* list = nullptr;
    if (ParseIp4SubnetList(text.c_str(), &list)) {
        const std::string once = encode(list);
        _tIp4Subnet* again = nullptr;
        check(ParseIp4SubnetList(once.c_str(), &again) == 1);
        check(encode(again) == once);
        _tIp4Subnet* copy = nullptr;
        check(CopySubnetList(list, &copy) == 1);
        check(encode(copy) == once);
        for (const _tIp4Subnet* p = again; p; p = p->next)
            check(Ip4SubnetMatchIpSubnet(copy, p->address, p->mask) == 1 && Ip4SubnetMatchIpAddress(copy, p->address) == 1);
        if (again)
            check(DeleteIp4Subnet(&copy, again->address, again->mask) == 1);
        FreeIp4SubnetList(again);
        FreeIp4SubnetList(copy);
        FreeIp4SubnetList(list);
    }

    const int commentOk = IsValidIp4CommentString(text.c_str());
    _tIp4Subnet* one = nullptr;
    check((AppendIp4Subnet(&one, 0x0A000000u, 0xFF000000u, text.c_str()) != nullptr) == (commentOk != 0));
    FreeIp4SubnetList(one);

    IsValidHostName(text.c_str());
    uint32_t needed = 0;
    if (ConvertLocalPart(text.c_str(), nullptr, &needed) == 0 && GetLastError() == VB_ERROR_MORE_DATA) {
        std::vector<char> buffer(needed);
        check(ConvertLocalPart(text.c_str(), buffer.data(), &needed) == 1);
    }
    CountNames(text.c_str());

    CUtf8String utf8;
    utf8.Assign(text.c_str());
    std::u16string wide;
    if (utf8.ToUnicode(wide)) {
        CUtf8String back;
        check(back.FromUnicode(wide) && back.Str() == utf8.Str());
    }
    std::u16string raw(size / 2, u'\0');
    std::memcpy(raw.data(), data, raw.size() * 2);
    if (utf8.FromUnicode(raw)) {
        std::u16string back;
        check(utf8.ToUnicode(back) && back == raw);
    }
    return 0;
}
