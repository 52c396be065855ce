// UTF-8 conversion, id-to-name map files, host names, local parts and the small name helpers.
#include <velbrook/MailToolkit.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace {

class TempDir {
public:
    TempDir()
    {
        char pattern[] = "/tmp/tst_toolkit_XXXXXX";
        m_path = mkdtemp(pattern);
    }
    ~TempDir() { std::filesystem::remove_all(m_path); }
    std::string file(const std::string& name, const std::string& content) const
    {
        const std::string path = (m_path / name).string();
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
    std::string path(const std::string& name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};

std::string converted(const char* localPart, bool* ok = nullptr)
{
    uint32_t size = 0;
    const bool sized = ConvertLocalPart(localPart, nullptr, &size) == 0 && GetLastError() == VB_ERROR_MORE_DATA;
    if (ok)
        *ok = sized;
    if (!sized)
        return {};
    std::string out(size, '\0');
    if (ConvertLocalPart(localPart, out.data(), &size) != 1) {
        if (ok)
            *ok = false;
        return {};
    }
    EXPECT_EQ(size, out.size());
    out.pop_back();
    return out;
}

} // namespace

TEST(Utf8String, RoundTripsEveryPlane)
{
    const std::u16string samples[] = {
        u"", u"plain ASCII", u"B\u00FCro \u00E9t\u00E9", u"\u20AC \uFFFD \uFFFF",
        u"\U0001F600 \U00010000 \U0010FFFF", std::u16string(1, u'\0') + u"after zero",
    };
    for (const std::u16string& text : samples) {
        CUtf8String utf8;
        ASSERT_TRUE(utf8.FromUnicode(text));
        std::u16string back;
        ASSERT_TRUE(utf8.ToUnicode(back));
        EXPECT_TRUE(back == text);
    }
    CUtf8String utf8;
    ASSERT_TRUE(utf8.FromUnicode(u"\u00E9\U0001F600"));
    EXPECT_EQ(utf8.Str(), "\xC3\xA9\xF0\x9F\x98\x80");
}

TEST(Utf8String, FromUnicodeRefusesUnpairedSurrogates)
{
    const std::u16string bad[] = {
        std::u16string(1, char16_t(0xD800)),
        std::u16string(1, char16_t(0xDC00)),
        u"a" + std::u16string(1, char16_t(0xD83D)) + u"b",
        std::u16string(1, char16_t(0xDE00)) + std::u16string(1, char16_t(0xD83D)),
        std::u16string(2, char16_t(0xD83D)),
    };
    for (const std::u16string& text : bad) {
        CUtf8String utf8;
        utf8.Assign("kept");
        SetLastError(0);
        EXPECT_FALSE(utf8.FromUnicode(text));
        EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_DATA);
        EXPECT_EQ(utf8.Str(), "kept") << "a failed conversion leaves the text alone";
    }
}

TEST(Utf8String, ToUnicodeRefusesMalformedUtf8)
{
    const char* bad[] = {
        "\x80",             // lone continuation
        "\xC3",             // truncated two-byte
        "\xE2\x82",         // truncated three-byte
        "\xF0\x9F\x98",     // truncated four-byte
        "\xC0\xAF",         // overlong '/'
        "\xC1\xBF",         // overlong
        "\xE0\x80\xAF",     // overlong three-byte
        "\xF0\x80\x80\xAF", // overlong four-byte
        "\xED\xA0\x80",     // encoded surrogate
        "\xF4\x90\x80\x80", // above U+10FFFF
        "\xF5\x80\x80\x80", "\xFE", "\xFF",
        "ok\xC3(",          // bad continuation
    };
    for (const char* text : bad) {
        SCOPED_TRACE(testing::PrintToString(std::string(text)));
        CUtf8String utf8;
        utf8.Assign(text);
        std::u16string out = u"kept";
        EXPECT_FALSE(utf8.ToUnicode(out));
        EXPECT_TRUE(out == u"kept");
    }
}

TEST(IdToStringMap, ReadsGoodFiles)
{
    TempDir dir;
    const std::string path = dir.file("ids.txt", "\xEF\xBB\xBF# carriers\r\n"
                                                 "1\tFirst\r\n"
                                                 "\n"
                                                 "   \t \n"
                                                 "4294967295\tLast one\twith tab\n"
                                                 "42\tB\xC3\xBCro");
    CIdToStringMap map;
    ASSERT_TRUE(map.Load(path.c_str()));
    ASSERT_EQ(map.Map().size(), 3u);
    EXPECT_EQ(map.Map().at(1), "First");
    EXPECT_EQ(map.Map().at(4294967295u), "Last one\twith tab");
    EXPECT_EQ(map.Map().at(42), "B\xC3\xBCro");
    EXPECT_EQ(map.ErrorLine(), 0u);

    CIdToStringMap empty;
    ASSERT_TRUE(empty.Load(dir.file("empty.txt", "").c_str()));
    EXPECT_TRUE(empty.Map().empty());
}

TEST(IdToStringMap, BrokenFilesFailWithTheLineAndAnEmptyMap)
{
    struct Row {
        std::string content;
        uint32_t line;
    };
    const Row table[] = {
        {"1\tOne\n2 Two\n", 2},           // no tab
        {"1\tOne\nx\tTwo\n", 2},          // id not a number
        {"1\tOne\n\n-2\tTwo\n", 3},
        {"4294967296\tToo big\n", 1},
        {"\tNo id\n", 1},
        {"7\t\n", 1},                     // empty name
        {"1\tOne\n1\tAgain\n", 2},        // the same id twice
        {"1\tbad \xC3\n", 1},             // invalid UTF-8
        {"1\tline\x01" "ctl\n", 1},
        {std::string("1\tOne\n2\tTw\0o\n", 13), 2}, // a zero byte inside a name
    };
    TempDir dir;
    int n = 0;
    for (const Row& row : table) {
        SCOPED_TRACE(testing::PrintToString(row.content));
        const std::string path = dir.file("bad" + std::to_string(n++), row.content);
        CIdToStringMap map;
        SetLastError(0);
        EXPECT_FALSE(map.Load(path.c_str()));
        EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_DATA);
        EXPECT_EQ(map.ErrorLine(), row.line);
        EXPECT_TRUE(map.Map().empty());
    }
}

TEST(IdToStringMap, MissingFileOrDirectory)
{
    TempDir dir;
    CIdToStringMap map;
    ASSERT_TRUE(map.Load(dir.file("ok", "5\tFive\n").c_str()));
    SetLastError(0);
    EXPECT_FALSE(map.Load(dir.path("missing").c_str()));
    EXPECT_EQ(GetLastError(), VB_ERROR_FILE_NOT_FOUND);
    EXPECT_TRUE(map.Map().empty()) << "a failed load forgets the previous map";
    EXPECT_FALSE(map.Load(dir.path("").c_str())) << "a directory is not a map file";
    EXPECT_TRUE(map.Map().empty());
    EXPECT_FALSE(map.Load(nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
}

TEST(IsValidHostName, NamesAndAddresses)
{
    struct Row {
        std::string name;
        bool ok;
    };
    const std::string label63(63, 'a');
    const std::string name253 = label63 + "." + label63 + "." + label63 + "." + std::string(61, 'b');
    const Row table[] = {
        {"localhost", true},
        {"mail.example.com", true},
        {"mail.example.com.", true},
        {"MX-1.Example.COM", true},
        {"3com.com", true},
        {"a", true},
        {"192.168.1.1", true},
        {"0.0.0.0", true},
        {label63 + ".com", true},
        {name253, true},
        {name253 + ".", true},
        {"", false},
        {".", false},
        {"mail..example.com", false},
        {".example.com", false},
        {"example.com..", false},
        {"-mail.example.com", false},
        {"mail-.example.com", false},
        {"mail_1.example.com", false},
        {"mail example.com", false},
        {"m\xC3\xBCller.de", false},
        {std::string(64, 'a') + ".com", false},
        {name253 + "c", false},
        {"192.168.1.256", false},
        {"192.168.1", false},
        {"1.2.3.4.5", false},
        {"example.123", false},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(IsValidHostName(row.name.c_str()) != 0, row.ok);
    }
    EXPECT_EQ(IsValidHostName(nullptr), 0);
}

TEST(ConvertLocalPart, DotAtomsStayQuotedOthersAreEscaped)
{
    struct Row {
        const char* in;
        const char* out;
    };
    const Row table[] = {
        {"john.smith", "john.smith"},
        {"o'hara+tag", "o'hara+tag"},
        {"!#$%&'*+-/=?^_`{|}~", "!#$%&'*+-/=?^_`{|}~"},
        {"j\xC3\xB6rg", "j\xC3\xB6rg"},
        {"john smith", "\"john smith\""},
        {"", "\"\""},
        {".john", "\".john\""},
        {"john.", "\"john.\""},
        {"john..smith", "\"john..smith\""},
        {"a@b", "\"a@b\""},
        {"say \"hi\"", "\"say \\\"hi\\\"\""},
        {"back\\slash", "\"back\\\\slash\""},
        {"\"already\"", "\"\\\"already\\\"\""},
        {"(comment)", "\"(comment)\""},
        {"tab\there", "\"tab\there\""},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(row.in);
        bool ok = false;
        EXPECT_EQ(converted(row.in, &ok), row.out);
        EXPECT_TRUE(ok);
    }
}

TEST(ConvertLocalPart, RefusesWhatNoAddressCanCarry)
{
    for (const char* bad : {"line\nbreak", "cr\rhere", "nul\x01", "bad\xC3", "del\x7F"}) {
        SCOPED_TRACE(testing::PrintToString(std::string(bad)));
        uint32_t size = 100;
        char buffer[100];
        SetLastError(0);
        EXPECT_EQ(ConvertLocalPart(bad, buffer, &size), 0);
        EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    }
    uint32_t size = 5; // "\"a b\"" needs 6 with the zero
    char buffer[8] = "xxxxxxx";
    EXPECT_EQ(ConvertLocalPart("a b", buffer, &size), 0);
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    EXPECT_EQ(size, 6u);
    EXPECT_EQ(buffer[0], 'x');
    EXPECT_EQ(ConvertLocalPart("a b", buffer, nullptr), 0);
}

TEST(ComputerName, SizeRulesAndAgreementWithTheSystem)
{
    uint32_t size = 0;
    ASSERT_EQ(GetThisComputerName(nullptr, &size), 0);
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    ASSERT_GT(size, 1u);
    std::string name(size, '\0');
    ASSERT_EQ(GetThisComputerName(name.data(), &size), 1);
    name.pop_back();
    char system[256] = {};
    ASSERT_EQ(gethostname(system, sizeof system - 1), 0);
    EXPECT_EQ(name, system);
}

TEST(CountNames, BlanksAndCommasSeparate)
{
    struct Row {
        const char* text;
        uint32_t count;
    };
    const Row table[] = {
        {"", 0}, {" , ,\t", 0}, {"one", 1}, {"one two", 2}, {"one,two", 2},
        {" one ,, two\tthree\r\nfour ", 4}, {"a,b,c,d,e,f", 6},
    };
    for (const Row& row : table)
        EXPECT_EQ(CountNames(row.text), row.count) << row.text;
    EXPECT_EQ(CountNames(nullptr), 0u);
}
