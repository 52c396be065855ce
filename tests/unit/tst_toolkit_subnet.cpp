// Subnet parsing, validity, rendering, list operations and address conversions.
#include <velbrook/MailToolkit.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

struct ListGuard {
    _tIp4Subnet* first = nullptr;
    ~ListGuard() { FreeIp4SubnetList(first); }
};

std::string subnetText(uint32_t address, uint32_t mask)
{
    char text[VB_SUBNET_TEXT_SIZE];
    GetSubnetString(address, mask, text);
    return text;
}

std::string encode(const _tIp4Subnet* first)
{
    uint32_t size = 0;
    EXPECT_EQ(EncodeIp4SubnetList(first, nullptr, &size), 0);
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    std::string text(size, '\0');
    EXPECT_EQ(EncodeIp4SubnetList(first, text.data(), &size), 1);
    text.resize(std::strlen(text.c_str()));
    return text;
}

std::vector<std::string> rows(const _tIp4Subnet* first)
{
    std::vector<std::string> out;
    for (const _tIp4Subnet* p = first; p; p = p->next)
        out.push_back(subnetText(p->address, p->mask) + " " + p->comment);
    return out;
}

} // namespace

TEST(ParseIp4Subnet, AcceptsTheThreeFormsAndOnlyValidSubnets)
{
    struct Row {
        const char* text;
        bool ok;
        uint32_t address;
        uint32_t mask;
    };
    const Row table[] = {
        {"192.168.0.0/16", true, 0xC0A80000u, 0xFFFF0000u},
        {"192.168.0.0/255.255.0.0", true, 0xC0A80000u, 0xFFFF0000u},
        {"10.1.2.3", true, 0x0A010203u, 0xFFFFFFFFu},
        {"10.1.2.3/32", true, 0x0A010203u, 0xFFFFFFFFu},
        {"0.0.0.0/0", true, 0, 0},
        {"0.0.0.0/0.0.0.0", true, 0, 0},
        {"255.255.255.255/255.255.255.255", true, 0xFFFFFFFFu, 0xFFFFFFFFu},
        {"131.107.4.0/22", true, 0x836B0400u, 0xFFFFFC00u},
        {"128.0.0.0/1", true, 0x80000000u, 0x80000000u},
        {"10.0.0.0/08", true, 0x0A000000u, 0xFF000000u},
        // host bits, masks with holes, out-of-range prefixes
        {"192.168.1.5/24", false, 0, 0},
        {"10.0.0.0/0", false, 0, 0},
        {"10.0.0.0/255.0.255.0", false, 0, 0},
        {"10.0.0.0/0.0.0.255", false, 0, 0},
        {"10.0.0.0/33", false, 0, 0},
        {"10.0.0.0/100", false, 0, 0},
        {"10.0.0.0/-8", false, 0, 0},
        {"10.0.0.0/+8", false, 0, 0},
        {"10.0.0.0/", false, 0, 0},
        {"/8", false, 0, 0},
        // junk and short forms
        {"", false, 0, 0},
        {"10.0.0", false, 0, 0},
        {"10.0.0.0.0", false, 0, 0},
        {"256.0.0.0", false, 0, 0},
        {"010.0.0.0", false, 0, 0},
        {" 10.0.0.0/8", false, 0, 0},
        {"10.0.0.0/8 ", false, 0, 0},
        {"10.0.0.0 /8", false, 0, 0},
        {"10.0.0.0/8/8", false, 0, 0},
        {"10.0.0.0/8x", false, 0, 0},
        {"x10.0.0.0/8", false, 0, 0},
        {"1.2.3.4/255.255.255.255.0", false, 0, 0},
        {"0x0a.0.0.0", false, 0, 0},
        {"10.0.0.0\\8", false, 0, 0},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(row.text);
        uint32_t address = 0x12345678u, mask = 0x9ABCDEF0u;
        SetLastError(0);
        const int ok = ParseIp4Subnet(row.text, '/', &address, &mask);
        EXPECT_EQ(ok != 0, row.ok);
        if (row.ok) {
            EXPECT_EQ(address, row.address);
            EXPECT_EQ(mask, row.mask);
        } else {
            EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
            EXPECT_EQ(address, 0x12345678u) << "outputs must stay untouched on failure";
            EXPECT_EQ(mask, 0x9ABCDEF0u);
        }
    }
}

TEST(ParseIp4Subnet, SeparatorAndHostileArguments)
{
    uint32_t address = 0, mask = 0;
    EXPECT_EQ(ParseIp4Subnet("10.0.0.0 8", ' ', &address, &mask), 1);
    EXPECT_EQ(mask, 0xFF000000u);
    EXPECT_EQ(ParseIp4Subnet("10.0.0.0/8", '\0', &address, &mask), 1) << "0 stands for '/'";
    EXPECT_EQ(ParseIp4Subnet("10.0.0.0/8", ' ', &address, &mask), 0);
    EXPECT_EQ(ParseIp4Subnet("10.0.0.0.8", '.', &address, &mask), 0);
    EXPECT_EQ(ParseIp4Subnet(nullptr, '/', &address, &mask), 0);
    EXPECT_EQ(ParseIp4Subnet("10.0.0.0/8", '/', nullptr, &mask), 0);

    std::string huge(1 << 20, '1');
    EXPECT_EQ(ParseIp4Subnet(huge.c_str(), '/', &address, &mask), 0);
    huge = "10.0.0.0/" + std::string(1 << 20, '8');
    EXPECT_EQ(ParseIp4Subnet(huge.c_str(), '/', &address, &mask), 0);
    EXPECT_EQ(ParseIp4Subnet("10.0.0.\xC3\xA9/8", '/', &address, &mask), 0);
}

TEST(IsValidIp4Subnet, ContiguousMaskAndNoHostBits)
{
    struct Row {
        uint32_t address, mask;
        bool ok;
    };
    const Row table[] = {
        {0, 0, true},
        {0xFFFFFFFFu, 0xFFFFFFFFu, true},
        {0x0A000000u, 0xFF000000u, true},
        {0xC0A80100u, 0xFFFFFF00u, true},
        {0xC0A80101u, 0xFFFFFF00u, false},
        {0x00000001u, 0, false},
        {0x0A000000u, 0xFF00FF00u, false},
        {0, 0x7FFFFFFFu, false},
        {0, 0xFFFFFFFEu, true},
        {0, 0x00000001u, false},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(testing::Message() << std::hex << row.address << "/" << row.mask);
        EXPECT_EQ(IsValidIp4Subnet(row.address, row.mask) != 0, row.ok);
    }
}

TEST(GetSubnetString, RendersPrefixFormAndRoundTripsEveryPrefix)
{
    EXPECT_EQ(subnetText(0xC0A80000u, 0xFFFF0000u), "192.168.0.0/16");
    EXPECT_EQ(subnetText(0, 0), "0.0.0.0/0");
    EXPECT_EQ(subnetText(0xFFFFFFFFu, 0xFFFFFFFFu), "255.255.255.255/32");
    for (int bits = 0; bits <= 32; ++bits) {
        const uint32_t mask = bits == 0 ? 0 : ~uint32_t(0) << (32 - bits);
        const uint32_t address = 0xA5A5A5A5u & mask;
        uint32_t a = 0, m = 0;
        const std::string text = subnetText(address, mask);
        ASSERT_EQ(ParseIp4Subnet(text.c_str(), '/', &a, &m), 1) << text;
        EXPECT_EQ(a, address) << text;
        EXPECT_EQ(m, mask) << text;
    }
    // A mask with holes is shown as it is (it fits the 33 characters) and reported as invalid.
    char text[VB_SUBNET_TEXT_SIZE];
    std::memset(text, 'x', sizeof text);
    EXPECT_EQ(GetSubnetString(0xFFFFFFFFu, 0xFF00FF0Fu, text), 0);
    EXPECT_STREQ(text, "255.255.255.255/255.0.255.15");
}

TEST(IsValidIp4CommentString, PrintableUtf8UpTo255Characters)
{
    struct Row {
        std::string text;
        bool ok;
    };
    const Row table[] = {
        {"", true},
        {"office \"Nord\", floor 2", true},
        {"B\xC3\xBCro M\xC3\xBCnchen", true},
        {std::string(255, 'a'), true},
        {std::string(256, 'a'), false},
        {[] { std::string s; for (int i = 0; i < 255; ++i) s += "\xC3\xA9"; return s; }(), true},
        {"tab\tinside", false},
        {"line\nbreak", false},
        {"del\x7F", false},
        {"c1 \xC2\x85", false},
        {"bad \xC3", false},
        {"overlong \xC0\xAF", false},
        {"surrogate \xED\xA0\x80", false},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(row.text.size());
        EXPECT_EQ(IsValidIp4CommentString(row.text.c_str()) != 0, row.ok);
    }
    EXPECT_EQ(IsValidIp4CommentString(nullptr), 1);
}

TEST(SubnetList, AppendInsertDeleteKeepOrderAndHead)
{
    ListGuard list;
    EXPECT_EQ(FindFirstNode(list.first), nullptr);
    _tIp4Subnet* a = AppendIp4Subnet(&list.first, 0x0A000000u, 0xFF000000u, "a");
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(list.first, a) << "appending to an empty list sets its head";
    _tIp4Subnet* c = AppendIp4Subnet(&list.first, 0xC0A80000u, 0xFFFF0000u, nullptr);
    ASSERT_NE(c, nullptr);
    EXPECT_STREQ(c->comment, "");
    ASSERT_NE(InsertAfterIp4Subnet(&list.first, a, 0xAC100000u, 0xFFF00000u, "b"), nullptr);
    ASSERT_NE(InsertAfterIp4Subnet(&list.first, nullptr, 0x01020304u, 0xFFFFFFFFu, "head"), nullptr);
    ASSERT_NE(InsertAfterIp4Subnet(&list.first, c, 0, 0, "tail"), nullptr);
    EXPECT_EQ(rows(list.first), (std::vector<std::string>{"1.2.3.4/32 head", "10.0.0.0/8 a", "172.16.0.0/12 b",
                                                          "192.168.0.0/16 ", "0.0.0.0/0 tail"}));

    EXPECT_EQ(DeleteIp4Subnet(&list.first, 0x01020304u, 0xFFFFFFFFu), 1);
    EXPECT_EQ(DeleteIp4Subnet(&list.first, 0, 0), 1);
    EXPECT_EQ(DeleteIp4Subnet(&list.first, 0xAC100000u, 0xFFF00000u), 1);
    EXPECT_EQ(rows(list.first), (std::vector<std::string>{"10.0.0.0/8 a", "192.168.0.0/16 "}));
    SetLastError(0);
    EXPECT_EQ(DeleteIp4Subnet(&list.first, 0x0A000000u, 0xFFFF0000u), 0) << "same address, other mask";
    EXPECT_EQ(GetLastError(), VB_ERROR_NOT_FOUND);
    EXPECT_EQ(DeleteIp4Subnet(&list.first, 0x0A000000u, 0xFF000000u), 1);
    EXPECT_EQ(DeleteIp4Subnet(&list.first, 0xC0A80000u, 0xFFFF0000u), 1);
    EXPECT_EQ(list.first, nullptr);
    EXPECT_EQ(DeleteIp4Subnet(&list.first, 0, 0), 0) << "deleting from an empty list";
}

TEST(SubnetList, ModifyAsTheEditorDoesReplacesInPlace)
{
    // Insert the new element after the old one, then delete the old one: with the same subnet and a new
    // comment the first match must be the old element.
    ListGuard list;
    AppendIp4Subnet(&list.first, 0x0A000000u, 0xFF000000u, "x");
    _tIp4Subnet* old = AppendIp4Subnet(&list.first, 0x0B000000u, 0xFF000000u, "old");
    AppendIp4Subnet(&list.first, 0x0C000000u, 0xFF000000u, "z");
    ASSERT_NE(InsertAfterIp4Subnet(&list.first, old, 0x0B000000u, 0xFF000000u, "new"), nullptr);
    ASSERT_EQ(DeleteIp4Subnet(&list.first, 0x0B000000u, 0xFF000000u), 1);
    EXPECT_EQ(rows(list.first), (std::vector<std::string>{"10.0.0.0/8 x", "11.0.0.0/8 new", "12.0.0.0/8 z"}));
}

TEST(SubnetList, RefusesInvalidElements)
{
    ListGuard list;
    SetLastError(0);
    EXPECT_EQ(AppendIp4Subnet(&list.first, 0x0A000001u, 0xFF000000u, "host bits"), nullptr);
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(AppendIp4Subnet(&list.first, 0x0A000000u, 0xFF00FF00u, ""), nullptr);
    EXPECT_EQ(AppendIp4Subnet(&list.first, 0x0A000000u, 0xFF000000u, "bad\x01"), nullptr);
    EXPECT_EQ(InsertAfterIp4Subnet(&list.first, nullptr, 0, 0, std::string(300, 'c').c_str()), nullptr);
    EXPECT_EQ(AppendIp4Subnet(nullptr, 0, 0, ""), nullptr);
    EXPECT_EQ(list.first, nullptr) << "a refused element leaves the list as it was";
}

TEST(SubnetList, CopyIsDeepAndEmptyCopiesToNull)
{
    ListGuard original, copy;
    AppendIp4Subnet(&original.first, 0x0A000000u, 0xFF000000u, "one");
    AppendIp4Subnet(&original.first, 0xC0A80100u, 0xFFFFFF00u, "two");
    ASSERT_EQ(CopySubnetList(original.first, &copy.first), 1);
    EXPECT_EQ(rows(copy.first), rows(original.first));
    EXPECT_NE(copy.first, original.first);
    EXPECT_NE(copy.first->comment, original.first->comment);
    DeleteIp4Subnet(&original.first, 0x0A000000u, 0xFF000000u);
    EXPECT_EQ(rows(copy.first).size(), 2u) << "the copy does not share elements";

    _tIp4Subnet* empty = reinterpret_cast<_tIp4Subnet*>(0x1);
    ASSERT_EQ(CopySubnetList(nullptr, &empty), 1);
    EXPECT_EQ(empty, nullptr);
}

TEST(SubnetList, MatchAddressAndSubnet)
{
    ListGuard list;
    EXPECT_EQ(Ip4SubnetMatchIpAddress(list.first, 0x0A000001u), 0) << "empty list matches nothing";
    EXPECT_EQ(Ip4SubnetMatchIpSubnet(list.first, 0, 0), 0);
    AppendIp4Subnet(&list.first, 0x0A000000u, 0xFF000000u, "");
    AppendIp4Subnet(&list.first, 0xC0A80105u, 0xFFFFFFFFu, "");
    struct Row {
        uint32_t address;
        bool match;
    };
    const Row table[] = {{0x0A000000u, true}, {0x0AFFFFFFu, true}, {0x0B000000u, false}, {0x09FFFFFFu, false},
                         {0xC0A80105u, true}, {0xC0A80104u, false}, {0, false}};
    for (const Row& row : table)
        EXPECT_EQ(Ip4SubnetMatchIpAddress(list.first, row.address) != 0, row.match) << std::hex << row.address;
    EXPECT_EQ(Ip4SubnetMatchIpSubnet(list.first, 0x0A000000u, 0xFF000000u), 1);
    EXPECT_EQ(Ip4SubnetMatchIpSubnet(list.first, 0x0A000000u, 0xFFFF0000u), 0) << "contained is not equal";
    EXPECT_EQ(Ip4SubnetMatchIpSubnet(list.first, 0xC0A80105u, 0xFFFFFFFFu), 1);

    AppendIp4Subnet(&list.first, 0, 0, "everything");
    EXPECT_EQ(Ip4SubnetMatchIpAddress(list.first, 0x7F000001u), 1);
}

TEST(SubnetListText, ParseAndEncodeRoundTrip)
{
    struct Row {
        const char* text;
        bool ok;
        const char* encoded;
    };
    const Row table[] = {
        {"", true, ""},
        {" ,; \t", true, ""},
        {"10.0.0.0/8", true, "10.0.0.0/8"},
        {"10.0.0.0/8,192.168.1.0/255.255.255.0;1.2.3.4  0.0.0.0/0", true,
         "10.0.0.0/8, 192.168.1.0/24, 1.2.3.4/32, 0.0.0.0/0"},
        {"10.0.0.0/8, , ,172.16.0.0/12\n", true, "10.0.0.0/8, 172.16.0.0/12"},
        {"10.0.0.0/8, 10.0.0.1/8", false, nullptr},
        {"10.0.0.0/8, junk", false, nullptr},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(row.text);
        _tIp4Subnet* sentinel = reinterpret_cast<_tIp4Subnet*>(0x1);
        ListGuard list;
        list.first = sentinel;
        const int ok = ParseIp4SubnetList(row.text, &list.first);
        EXPECT_EQ(ok != 0, row.ok);
        if (!ok) {
            EXPECT_EQ(list.first, sentinel) << "the output is written only on success";
            list.first = nullptr;
            continue;
        }
        EXPECT_EQ(encode(list.first), row.encoded);
    }
}

TEST(SubnetListText, EncodeBufferRules)
{
    ListGuard list;
    ASSERT_EQ(ParseIp4SubnetList("10.0.0.0/8 1.2.3.4", &list.first), 1);
    const std::string expected = "10.0.0.0/8, 1.2.3.4/32";
    uint32_t size = uint32_t(expected.size()); // one short: no room for the zero
    std::vector<char> buffer(expected.size() + 1, 'x');
    SetLastError(0);
    EXPECT_EQ(EncodeIp4SubnetList(list.first, buffer.data(), &size), 0);
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    EXPECT_EQ(size, expected.size() + 1);
    EXPECT_EQ(buffer[0], 'x') << "nothing is written into a buffer that is too small";
    EXPECT_EQ(EncodeIp4SubnetList(list.first, buffer.data(), &size), 1);
    EXPECT_STREQ(buffer.data(), expected.c_str());
    EXPECT_EQ(EncodeIp4SubnetList(list.first, buffer.data(), nullptr), 0);
}

TEST(SubnetList, LongListsBuildAndFreeInLinearTime)
{
    // 200 000 elements through InsertAfter with the kept tail, copied and freed: quadratic work or a
    // recursive free would not finish (or overflow the stack) here.
    ListGuard list, copy;
    _tIp4Subnet* tail = nullptr;
    for (uint32_t i = 0; i < 200000; ++i) {
        tail = InsertAfterIp4Subnet(&list.first, tail, i << 8, 0xFFFFFF00u, "c");
        ASSERT_NE(tail, nullptr);
    }
    ASSERT_EQ(CopySubnetList(list.first, &copy.first), 1);
    std::size_t n = 0;
    uint32_t expected = 0;
    for (const _tIp4Subnet* p = copy.first; p; p = p->next, ++n, expected += 256)
        ASSERT_EQ(p->address, expected);
    EXPECT_EQ(n, 200000u);
    EXPECT_EQ(Ip4SubnetMatchIpAddress(list.first, (199999u << 8) | 7), 1);
}

TEST(AddressConversion, StrictDottedDecimal)
{
    struct Row {
        const char* text;
        bool ok;
        uint32_t value;
    };
    const Row table[] = {
        {"0.0.0.0", true, 0},
        {"255.255.255.255", true, 0xFFFFFFFFu},
        {"192.168.1.20", true, 0xC0A80114u},
        {"1.2.3", false, 0},
        {"1.2.3.4.", false, 0},
        {".1.2.3.4", false, 0},
        {"1.2.3.256", false, 0},
        {"1.2.3.04", false, 0},
        {"1..3.4", false, 0},
        {" 1.2.3.4", false, 0},
        {"1.2.3.4 ", false, 0},
        {"a1.2.3.4", false, 0},
        {"1.2.3.4/32", false, 0},
        {"16909060", false, 0},
        {"0x7f.0.0.1", false, 0},
        {"1.2.3.-4", false, 0},
        {"", false, 0},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(row.text);
        uint32_t value = 0xDEADBEEFu;
        EXPECT_EQ(IpAddressToDword(row.text, &value) != 0, row.ok);
        EXPECT_EQ(value, row.ok ? row.value : 0xDEADBEEFu);
    }
    EXPECT_EQ(IpAddressToDword(nullptr, nullptr), 0);
}

TEST(AddressConversion, DwordToTextRespectsSize)
{
    char text[16];
    ASSERT_EQ(DwordToIpAddress(0xFFFFFFFFu, text, sizeof text), 1);
    EXPECT_STREQ(text, "255.255.255.255");
    std::memset(text, 'x', sizeof text);
    SetLastError(0);
    EXPECT_EQ(DwordToIpAddress(0xFFFFFFFFu, text, 15), 0);
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    EXPECT_EQ(text[0], 'x');
    ASSERT_EQ(DwordToIpAddress(0x01020304u, text, 8), 1) << "\"1.2.3.4\" fits in 8";
    EXPECT_STREQ(text, "1.2.3.4");
    for (uint32_t v : {0u, 0x7F000001u, 0x0A0B0C0Du, 0xC0A80001u}) {
        uint32_t back = 0;
        ASSERT_EQ(DwordToIpAddress(v, text, sizeof text), 1);
        ASSERT_EQ(IpAddressToDword(text, &back), 1) << text;
        EXPECT_EQ(back, v);
    }
}
