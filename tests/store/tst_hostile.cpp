// Hostile input at the C boundary: null pointers, sizes that lie, invalid UTF-8, broken store files.
#include "StoreFixture.h"

#include <functional>

#include "velbrook/DomainStore.h"
#include "velbrook/ListStore.h"
#include "velbrook/MailboxStore.h"
#include "velbrook/ServerCommon.h"

class Hostile : public StoreTest {};

// ---- null pointers and lying sizes: a failure, with a last error, never a crash -----------------

struct NullRow {
    const char* label;
    std::function<int(_tMailServer*)> call;
    uint32_t error; // the last error it must leave
};

static void PrintTo(const NullRow& row, std::ostream* os) { *os << '"' << row.label << '"'; }

class NullArguments : public Hostile, public ::testing::WithParamInterface<NullRow> {};

TEST_P(NullArguments, FailWithTheirError)
{
    const NullRow& row = GetParam();
    ASSERT_TRUE(CreateDomain(server, "a.example"));
    ASSERT_TRUE(CreateMailbox(server, "m@a.example"));
    ASSERT_TRUE(CreateMailingList(server, "list", "a.example"));
    SetLastError(0);
    EXPECT_EQ(row.call(server), 0) << row.label;
    EXPECT_EQ(GetLastError(), row.error) << row.label;
}

static int withMailbox(_tMailServer* s, const std::function<int(_tMailbox*)>& f)
{
    _tMailbox* m = OpenMailbox(s, "m@a.example");
    if (!m)
        return -1;
    const int rc = f(m);
    CloseMailbox(m);
    return rc;
}

static int withList(_tMailServer* s, const std::function<int(_tMailingList*)>& f)
{
    _tMailingList* l = OpenMailingList(s, "list", "a.example");
    if (!l)
        return -1;
    const int rc = f(l);
    CloseMailingList(l);
    return rc;
}

static const char kText[] = "text";

INSTANTIATE_TEST_SUITE_P(
    Rows, NullArguments,
    ::testing::Values(
        NullRow{"server get without size",
                [](_tMailServer* s) { return GetMailServerProperty(s, nullptr, "X", nullptr, nullptr, nullptr); },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"server set with size but no data",
                [](_tMailServer* s) { return SetMailServerProperty(s, nullptr, VB_TYPE_STRING, "X", nullptr, 5); },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"server set of a size near 4 GiB",
                [](_tMailServer* s) {
                    return SetMailServerProperty(s, nullptr, VB_TYPE_STRING, "X", kText, 0xFFFFFFFFu);
                },
                VB_ERROR_PROPERTY_TOO_LARGE},
        NullRow{"server set of an unknown type",
                [](_tMailServer* s) { return SetMailServerProperty(s, nullptr, 99, "X", kText, 5); },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"number of three bytes",
                [](_tMailServer* s) { return SetMailServerProperty(s, nullptr, VB_TYPE_DWORD, "X", kText, 3); },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"server list add of null element",
                [](_tMailServer* s) { return AddToMailServerListProperty(s, nullptr, "L", nullptr); },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"name longer than 255 bytes",
                [](_tMailServer* s) {
                    const std::string name(300, 'n');
                    return SetMailServerProperty(s, nullptr, VB_TYPE_STRING, name.c_str(), kText, 5);
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"sections without size",
                [](_tMailServer* s) { return EnumMailServerSections(s, nullptr, nullptr); },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"constant without name",
                [](_tMailServer* s) {
                    uint32_t size = 4;
                    return GetMailServerConstant(s, nullptr, nullptr, &size, nullptr);
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"connector info without record",
                [](_tMailServer* s) { return GetConfigConnectorInfo(s, nullptr); }, VB_ERROR_INVALID_PARAMETER},
        NullRow{"domain open of a null server",
                [](_tMailServer*) { return OpenDomain(nullptr, "a.example") ? 1 : 0; }, VB_ERROR_INVALID_PARAMETER},
        NullRow{"domain property of a null domain",
                [](_tMailServer*) {
                    uint32_t size = 4;
                    return GetDomainProperty(nullptr, "X", nullptr, &size, nullptr);
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"default domain into a null buffer",
                [](_tMailServer* s) { return GetDefaultDomainName(s, nullptr, 64); }, VB_ERROR_INVALID_PARAMETER},
        NullRow{"default domain into no room",
                [](_tMailServer* s) {
                    char c = 'X';
                    return GetDefaultDomainName(s, &c, 0);
                },
                VB_ERROR_MORE_DATA},
        NullRow{"domain of a null address",
                [](_tMailServer* s) {
                    char name[64];
                    return GetDomainFromAddress(s, nullptr, name, sizeof name);
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"mailbox count into null",
                [](_tMailServer* s) { return GetMailboxCount(s, nullptr); }, VB_ERROR_INVALID_PARAMETER},
        NullRow{"mailbox property without size",
                [](_tMailServer* s) {
                    return withMailbox(s, [](_tMailbox* m) {
                        return GetMailboxProperty(m, "X", nullptr, nullptr, nullptr);
                    });
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"mailbox property of a null name",
                [](_tMailServer* s) {
                    return withMailbox(s, [](_tMailbox* m) {
                        return SetMailboxProperty(m, VB_TYPE_STRING, nullptr, kText, 5);
                    });
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"mailbox password of null",
                [](_tMailServer* s) {
                    return withMailbox(s, [](_tMailbox* m) { return SetMailboxPassword(m, nullptr); });
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"mailbox password into no size",
                [](_tMailServer* s) {
                    return withMailbox(s, [](_tMailbox* m) { return GetMailboxPassword(m, nullptr, nullptr); });
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"mailbox alias of null",
                [](_tMailServer* s) {
                    return withMailbox(s, [](_tMailbox* m) { return CreateMailboxAlias(m, nullptr); });
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"list member of null",
                [](_tMailServer* s) {
                    return withList(s, [](_tMailingList* l) { return AddMailingListMember(l, nullptr); });
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"list property without size",
                [](_tMailServer* s) {
                    return withList(s, [](_tMailingList* l) {
                        return GetMailingListProperty(l, "X", nullptr, nullptr, nullptr);
                    });
                },
                VB_ERROR_INVALID_PARAMETER},
        NullRow{"retry of a null name list",
                [](_tMailServer* s) { return InitiateRetry(s, nullptr, 3); }, VB_ERROR_INVALID_PARAMETER},
        NullRow{"dialup status into null",
                [](_tMailServer* s) { return GetDialupStatus(s, nullptr); }, VB_ERROR_INVALID_PARAMETER}),
    RowName());

TEST_F(Hostile, SizeZeroWithNullBufferIsAnEmptyTextOrASizeQuery)
{
    ASSERT_TRUE(SetMailServerProperty(server, nullptr, VB_TYPE_STRING, "Empty", nullptr, 0));
    uint32_t size = 0, type = 0;
    ASSERT_TRUE(GetMailServerProperty(server, nullptr, "Empty", nullptr, &size, &type));
    EXPECT_EQ(size, 1u) << "the terminating zero";
    EXPECT_EQ(type, VB_TYPE_STRING);
    char c = 'X';
    size = 0;
    EXPECT_FALSE(GetMailServerProperty(server, nullptr, "Empty", &c, &size, nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    EXPECT_EQ(size, 1u);
    EXPECT_EQ(c, 'X') << "nothing written into no room";
    const char unterminated[4] = {'a', 'b', 'c', 'd'};
    ASSERT_TRUE(SetMailServerProperty(server, nullptr, VB_TYPE_STRING, "Cut", unterminated, 4));
    EXPECT_EQ(text(nullptr, "Cut"), "abcd") << "the size bounds a text without its zero";
    const char multi[3] = {'x', '\0', 'y'}; // the last element lacks its zero
    ASSERT_TRUE(SetMailServerProperty(server, "L", VB_TYPE_MULTI_STRING, "M", multi, 3));
    char buffer[16];
    size = sizeof buffer;
    ASSERT_TRUE(GetMailServerProperty(server, "L", "M", buffer, &size, nullptr));
    EXPECT_EQ(splitMulti(buffer, size), (std::vector<std::string>{"x", "y"}));
}

// ---- invalid UTF-8: stored and returned byte for byte ------------------------------------------

TEST_F(Hostile, InvalidUtf8RoundTripsByteForByte)
{
    const std::string bad = "caf\xc3(\xff\xfe end";
    ASSERT_TRUE(setText("Sect\xe9", "Name", bad));
    EXPECT_EQ(text("Sect\xe9", "Name"), bad);
    EXPECT_EQ(text("SECT\xe9", "NAME"), bad) << "ASCII letters still fold";
    ASSERT_TRUE(AddToMailServerListProperty(server, "Sect\xe9", "List", "\xc0\xaf"));
    EXPECT_TRUE(LookupMailServerListProperty(server, "Sect\xe9", "List", "\xc0\xaf"));

    // Values keep their bytes; names of domains and mailboxes must be UTF-8 (StoreFaults.Names).
    EXPECT_FALSE(CreateDomain(server, "d\xff\xfe.example"));
    ASSERT_TRUE(CreateDomain(server, "d.example"));
    ASSERT_TRUE(CreateMailbox(server, "m@d.example"));
    _tMailbox* m = OpenMailbox(server, "m@d.example");
    ASSERT_NE(m, nullptr);
    char buffer[64];
    uint32_t size = sizeof buffer;
    ASSERT_TRUE(SetMailboxProperty(m, VB_TYPE_STRING, "FullName", bad.c_str(), uint32_t(bad.size() + 1)));
    ASSERT_TRUE(GetMailboxProperty(m, "FullName", buffer, &size, nullptr));
    EXPECT_EQ(std::string(buffer), bad);
    CloseMailbox(m);
}

// ---- broken store files -------------------------------------------------------------------------

struct FileRow {
    const char* label;
    std::function<void(std::string& bytes)> damage;
};

static void PrintTo(const FileRow& row, std::ostream* os) { *os << '"' << row.label << '"'; }

class BrokenFile : public Hostile, public ::testing::WithParamInterface<FileRow> {};

// Whatever the damage, opening and using the store fails cleanly with a last error, or works.
TEST_P(BrokenFile, FailsCleanlyWithALastError)
{
    ASSERT_TRUE(CreateDomain(server, "a.example"));
    ASSERT_TRUE(setText(nullptr, "Greeting", std::string(3000, 'g')));
    for (int i = 0; i < 200; ++i)
        ASSERT_TRUE(CreateMailbox(server, ("user" + std::to_string(i) + "@a.example").c_str()));
    CloseMailServer(server);
    server = nullptr;
    std::filesystem::remove(path + "-wal");
    std::filesystem::remove(path + "-shm");
    std::string bytes = fileBytes(path);
    ASSERT_GT(bytes.size(), 8192u);
    GetParam().damage(bytes);
    std::ofstream(path, std::ios::binary | std::ios::trunc).write(bytes.data(), std::streamsize(bytes.size()));

    SetLastError(0);
    server = OpenMailServer(path.c_str());
    if (!server) {
        EXPECT_NE(GetLastError(), 0u) << "a refused file says why";
        return;
    }
    // Every operation either works or fails with its last error.
    auto check = [](int ok, const char* what) {
        if (!ok) {
            EXPECT_NE(GetLastError(), 0u) << what;
        }
    };
    SetLastError(0);
    check(setText(nullptr, "After", "x"), "set");
    SetLastError(0);
    check(text(nullptr, "Greeting").rfind("<error", 0) != 0, "get");
    uint32_t count = 0;
    SetLastError(0);
    check(GetMailboxCount(server, &count), "count");
    SetLastError(0);
    check(CreateMailbox(server, "late@a.example"), "create");
    SetLastError(0);
    _tDomainEnum* e = StartDomainEnumeration(server);
    check(e != nullptr, "enumerate");
    if (e)
        CloseDomainEnumeration(e);
    CTrafficReport report(server);
    SetLastError(0);
    check(report.Generate(nullptr, _tTrafficStatistics{}), "generate");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BrokenFile,
    ::testing::Values(
        FileRow{"not a database", [](std::string& b) { std::fill(b.begin(), b.end(), '\x5a'); }},
        FileRow{"truncated to its header page", [](std::string& b) { b.resize(4096); }},
        FileRow{"truncated in the middle", [](std::string& b) { b.resize(b.size() / 2 + 100); }},
        FileRow{"a page overwritten", [](std::string& b) {
                    std::fill(b.begin() + 4096 * 2, b.begin() + 4096 * 3, '\xff');
                }},
        FileRow{"every page but the first scrambled", [](std::string& b) {
                    for (size_t i = 4096; i < b.size(); i += 7)
                        b[i] = char(b[i] ^ 0x5a);
                }},
        FileRow{"header claims a huge page count", [](std::string& b) {
                    b[28] = '\x7f';
                    b[29] = b[30] = b[31] = '\xff';
                }}),
    RowName());
