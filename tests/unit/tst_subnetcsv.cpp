// The subnet list's CSV files: field rules, import (all at once and piece by piece) and export.
#include "SubnetCsv.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Rows {
    std::vector<std::string> rows; // "subnet|comment"
    uint32_t errors = 0;
};

std::vector<std::string> rowsOf(const _tIp4Subnet* first)
{
    std::vector<std::string> out;
    for (const _tIp4Subnet* p = first; p; p = p->next) {
        char text[VB_SUBNET_TEXT_SIZE];
        GetSubnetString(p->address, p->mask, text);
        out.push_back(std::string(text) + "|" + p->comment);
    }
    return out;
}

Rows import(std::string_view text)
{
    SubnetCsv::ImportResult result = SubnetCsv::importText(text);
    Rows rows{rowsOf(result.list), result.errors};
    FreeIp4SubnetList(result.list);
    return rows;
}

} // namespace

TEST(SubnetCsvField, FieldRules)
{
    struct Row {
        std::string line;
        std::size_t start;
        std::string text;
        bool hasNext;
        std::size_t next;
    };
    const Row table[] = {
        {"a,b", 0, "a", true, 2},
        {"a,b", 2, "b", false, 0},
        {"abc", 0, "abc", false, 0},
        {"", 0, "", false, 0},
        {"a,b", 3, "", false, 0},          // start at the end
        {"a,b", 99, "", false, 0},         // start past the end
        {",b", 0, "", true, 1},
        {"a,", 0, "a", true, 2},
        {"a\rb", 0, "a", true, 2},         // a line end ends the field like a comma
        {"a\nb", 0, "a", true, 2},
        {"\"a,b\",c", 0, "a,b", true, 6},
        {"\"a\"\"b\",c", 0, "a\"b", true, 7},
        {"\"\",x", 0, "", true, 3},
        {"\"\"", 0, "", false, 0},
        {"\"abc", 0, "abc", false, 0},     // no closing quote: the rest of the line
        {"\"ab\"\"c", 0, "ab\"c", false, 0},
        {"\"ab,c\"\"", 0, "ab,c\"", false, 0},
        {"\"a\" junk ,c", 0, "a", true, 10}, // the next field starts after the comma behind the quote
        {"\"a\" junk", 0, "a", false, 0},
        {"pre\"q\",c", 0, "q", true, 7},   // text before the opening quote is dropped
        {"x,  \"q\"", 2, "q", false, 0},
        {"\"a\"\"\"\"b\",x", 0, "a\"\"b", true, 9}, // quotes pair up from the left
        {"\"a\"\"\"b\",x", 0, "a\"", true, 8},     // "" then the closing quote
    };
    for (const Row& row : table) {
        SCOPED_TRACE(testing::PrintToString(row.line) + " from " + std::to_string(row.start));
        const SubnetCsv::Field field = SubnetCsv::readField(row.line, row.start);
        EXPECT_EQ(field.text, row.text);
        EXPECT_EQ(field.hasNext, row.hasNext);
        if (row.hasNext) {
            EXPECT_EQ(field.next, row.next);
        }
    }
}

TEST(SubnetCsvImport, LineRules)
{
    struct Row {
        const char* name;
        std::string text;
        std::vector<std::string> rows;
        uint32_t errors;
    };
    const std::string long255(255, 'c');
    const Row table[] = {
        {"plain", "10.0.0.0/8,\"office\"\n", {"10.0.0.0/8|office"}, 0},
        {"unquoted comment, crlf", "10.0.0.0/8,office\r\n", {"10.0.0.0/8|office"}, 0},
        {"empty comment", "10.0.0.0/8,\n", {"10.0.0.0/8|"}, 0},
        {"bare address and dotted mask", "1.2.3.4,a\n10.0.0.0/255.0.0.0,b",
         {"1.2.3.4/32|a", "10.0.0.0/8|b"}, 0},
        {"quoted subnet", "\"192.168.1.0/24\",lan", {"192.168.1.0/24|lan"}, 0},
        {"trimmed fields", "  10.0.0.0/8 \t,   spaced out  \n", {"10.0.0.0/8|spaced out"}, 0},
        {"third field ignored", "10.0.0.0/8,a,b\n", {"10.0.0.0/8|a"}, 0},
        {"comma in quoted comment", "10.0.0.0/8,\"a, b\"", {"10.0.0.0/8|a, b"}, 0},
        {"empty lines skipped", "\n\n10.0.0.0/8,x\n\r\n\n", {"10.0.0.0/8|x"}, 0},
        {"blank line is not empty", "   \n10.0.0.0/8,x", {"10.0.0.0/8|x"}, 1},
        {"no comma", "10.0.0.0/8\n", {}, 1},
        {"no comma after quoted subnet", "\"10.0.0.0/8\" x\n", {}, 1},
        {"doubled quote in comment", "10.0.0.0/8,\"say \"\"hi\"\"\"\n", {}, 1},
        {"unclosed comment with quote", "10.0.0.0/8,\"a\"\"b\n", {}, 1},
        {"quote inside unquoted comment drops the head", "10.0.0.0/8,abc\"def\n", {"10.0.0.0/8|def"}, 0},
        {"bad subnet", "10.0.0/8,x\nhello,x\n", {}, 2},
        {"host bits", "10.0.0.1/8,x\n", {}, 1},
        {"duplicate keeps the first", "10.0.0.0/8,one\n10.0.0.0/255.0.0.0,two\n10.0.0.0/16,three\n",
         {"10.0.0.0/8|one", "10.0.0.0/16|three"}, 1},
        {"31-character cut before parsing", "255.255.255.255/255.255.255.255junk,cut\n",
         {"255.255.255.255/32|cut"}, 0},
        {"cut leaves junk inside 31", "10.0.0.0/8junkjunkjunkjunkjunkjunk,x\n", {}, 1},
        {"comment cut to 255", "10.0.0.0/8," + long255 + "dropped\n", {"10.0.0.0/8|" + long255}, 0},
        {"comment cut keeps characters whole", "10.0.0.0/8," + std::string(254, 'c') + "\xC3\xA9\xC3\xA9\n",
         {"10.0.0.0/8|" + std::string(254, 'c') + "\xC3\xA9"}, 0},
        {"control character in comment", "10.0.0.0/8,a\tb\n", {}, 1},
        {"invalid utf-8 in comment", "10.0.0.0/8,bad\xC3\n", {}, 1},
        {"zero byte in subnet", std::string("10.0.0.0/8\0zz,x\n", 16), {}, 1},
        {"zero byte in comment", std::string("10.0.0.0/8,a\0b\n", 15), {}, 1},
        {"order kept", "3.0.0.0/8,c\n1.0.0.0/8,a\n2.0.0.0/8,b",
         {"3.0.0.0/8|c", "1.0.0.0/8|a", "2.0.0.0/8|b"}, 0},
        {"all bad", "x\ny,z\n\"\n,\n", {}, 4},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(row.name);
        const Rows got = import(row.text);
        EXPECT_EQ(got.rows, row.rows);
        EXPECT_EQ(got.errors, row.errors);
    }
}

TEST(SubnetCsvImport, PiecesGiveTheSameResultAsTheWhole)
{
    const std::string text = "10.0.0.0/8,\"a, \"\"b\"\"\"\r\n192.168.0.0/16,lan\n\nbad\n"
                             "172.16.0.0/12,\"x\"\n192.168.0.0/16,dup\r\n1.2.3.4,last";
    const Rows whole = import(text);
    EXPECT_EQ(whole.errors, 3u);
    EXPECT_EQ(whole.rows, (std::vector<std::string>{"192.168.0.0/16|lan", "172.16.0.0/12|x", "1.2.3.4/32|last"}));
    for (std::size_t piece = 1; piece <= text.size(); ++piece) {
        SCOPED_TRACE(piece);
        SubnetCsv::Importer importer;
        for (std::size_t pos = 0; pos < text.size(); pos += piece)
            importer.feed(std::string_view(text).substr(pos, piece));
        EXPECT_EQ(importer.acceptedCount(), 2u) << "the last line waits for finish()";
        importer.finish();
        EXPECT_EQ(importer.errorCount(), whole.errors);
        EXPECT_EQ(importer.lineCount(), 7u);
        _tIp4Subnet* list = importer.takeList();
        EXPECT_EQ(rowsOf(list), whole.rows);
        FreeIp4SubnetList(list);
    }
}

TEST(SubnetCsvImport, ResetTakeAndMove)
{
    SubnetCsv::Importer importer;
    importer.addLine("10.0.0.0/8,a\n");
    importer.addLine("junk");
    importer.feed("192.168.0.0/16,b"); // pending, not yet a line
    importer.reset();                  // a retry from the start of the file
    EXPECT_EQ(importer.errorCount(), 0u);
    EXPECT_EQ(importer.list(), nullptr);
    importer.feed("10.0.0.0/8,again\n");
    importer.finish();
    EXPECT_EQ(rowsOf(importer.list()), (std::vector<std::string>{"10.0.0.0/8|again"}));

    SubnetCsv::Importer moved(std::move(importer));
    EXPECT_EQ(importer.list(), nullptr);
    _tIp4Subnet* taken = moved.takeList();
    EXPECT_EQ(moved.list(), nullptr);
    EXPECT_EQ(moved.acceptedCount(), 1u) << "counts are kept until reset";
    // After the hand-over the duplicate check starts afresh with the new list.
    moved.addLine("10.0.0.0/8,second list");
    EXPECT_EQ(rowsOf(moved.list()), (std::vector<std::string>{"10.0.0.0/8|second list"}));
    EXPECT_EQ(moved.errorCount(), 0u);
    FreeIp4SubnetList(taken);

    SubnetCsv::Importer empty;
    empty.finish();
    EXPECT_EQ(empty.takeList(), nullptr) << "nothing read gives no list";
}

TEST(SubnetCsvExport, QuotesCommentsAndNeverTheSubnet)
{
    EXPECT_EQ(SubnetCsv::exportLine("10.0.0.0/8", "office"), "10.0.0.0/8,\"office\"");
    EXPECT_EQ(SubnetCsv::exportLine("10.0.0.0/8", ""), "10.0.0.0/8,\"\"");
    EXPECT_EQ(SubnetCsv::exportLine("10.0.0.0/8", "a \"b\", c"), "10.0.0.0/8,\"a \"\"b\"\", c\"");
    EXPECT_EQ(SubnetCsv::exportLine("10.0.0.0/8", "\"\""), "10.0.0.0/8,\"\"\"\"\"\"");
}

TEST(SubnetCsvExport, RoundTripKeepsEverythingButQuotedComments)
{
    _tIp4Subnet* list = nullptr;
    AppendIp4Subnet(&list, 0x0A000000u, 0xFF000000u, "a, b");
    AppendIp4Subnet(&list, 0, 0, "");
    AppendIp4Subnet(&list, 0xC0A80101u, 0xFFFFFFFFu, "say \"hi\"");
    AppendIp4Subnet(&list, 0xAC100000u, 0xFFF00000u, "B\xC3\xBCro");
    const std::string text = SubnetCsv::exportList(list);
    EXPECT_EQ(text, "10.0.0.0/8,\"a, b\"\n0.0.0.0/0,\"\"\n192.168.1.1/32,\"say \"\"hi\"\"\"\n"
                    "172.16.0.0/12,\"B\xC3\xBCro\"\n");
    // A comment with a quote comes back as an error: after unquoting it still holds a quote.
    const Rows back = import(text);
    EXPECT_EQ(back.errors, 1u);
    EXPECT_EQ(back.rows, (std::vector<std::string>{"10.0.0.0/8|a, b", "0.0.0.0/0|", "172.16.0.0/12|B\xC3\xBCro"}));
    FreeIp4SubnetList(list);
}

TEST(SubnetCsvImport, HundredThousandLines)
{
    // Distinct subnets, then every one again: a quadratic duplicate search or append would not finish
    // in the test's time, and every second half line must be a duplicate.
    std::string text;
    for (uint32_t i = 0; i < 100000; ++i)
        text += std::to_string(10 + (i >> 16)) + "." + std::to_string((i >> 8) & 0xFF) + "." +
                std::to_string(i & 0xFF) + ".0/24,\"row " + std::to_string(i) + "\"\n";
    const std::string twice = text + text;
    SubnetCsv::Importer importer;
    importer.feed(twice);
    importer.finish();
    EXPECT_EQ(importer.acceptedCount(), 100000u);
    EXPECT_EQ(importer.errorCount(), 100000u);
    _tIp4Subnet* list = importer.takeList();
    std::size_t n = 0;
    const _tIp4Subnet* last = nullptr;
    for (const _tIp4Subnet* p = list; p; p = p->next, ++n)
        last = p;
    EXPECT_EQ(n, 100000u);
    ASSERT_NE(last, nullptr);
    EXPECT_STREQ(last->comment, "row 99999");
    FreeIp4SubnetList(list);
}

TEST(SubnetCsvImport, HostileLinesDoNotBreakAnything)
{
    const std::string hugeQuoted = "\"" + std::string(1 << 20, '"');
    const std::string hugeComment = "10.0.0.0/8,\"" + std::string(1 << 20, 'x') + "\"";
    const std::string junk = std::string("\xFF\xFE\x00\x01\x80,\xC0\xAF", 9);
    const Rows a = import(hugeQuoted);
    EXPECT_EQ(a.errors, 1u);
    const Rows b = import(hugeComment);
    EXPECT_EQ(b.errors, 0u);
    ASSERT_EQ(b.rows.size(), 1u);
    EXPECT_EQ(b.rows[0], "10.0.0.0/8|" + std::string(255, 'x'));
    const Rows c = import(junk);
    EXPECT_EQ(c.errors, 1u);
    EXPECT_TRUE(c.rows.empty());
}
