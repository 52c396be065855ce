// Server properties, opening, constants and the machine, against real store files.
#include "StoreFixture.h"

#include <chrono>
#include <thread>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sqlite3.h>

#include "velbrook/DemoConfiguration.h"
#include "velbrook/ListStore.h"
#include "velbrook/MailServer.h"
#include "velbrook/StoreTesting.h"

using ServerProperties = StoreTest;

static constexpr uint32_t kBigSize = 1u << 20;

// ---- buffer rules --------------------------------------------------------------------------------

struct BufferRow {
    const char* label;
    uint32_t bufferSize; // 0: a null buffer
    bool ok;
    uint32_t sizeAfter;
};
static void PrintTo(const BufferRow& row, std::ostream* os) { *os << '"' << row.label << '"'; }


class BufferRules : public StoreTest, public ::testing::WithParamInterface<BufferRow> {};

// A ten-character text needs 11 bytes: one short must fail with 234 and report 11, never write past.
TEST_P(BufferRules, TextSizesCountTheTerminatingZero)
{
    const BufferRow row = GetParam();
    ASSERT_TRUE(setText(nullptr, "MailSpoolDir", "0123456789"));
    std::vector<char> buffer(row.bufferSize + 8, 'X');
    uint32_t size = row.bufferSize;
    uint32_t type = 0;
    SetLastError(0);
    const int rc = GetMailServerProperty(server, nullptr, "MailSpoolDir", row.bufferSize ? buffer.data() : nullptr,
                                         &size, &type);
    EXPECT_EQ(rc != 0, row.ok) << row.label;
    EXPECT_EQ(size, row.sizeAfter) << row.label;
    EXPECT_EQ(type, VB_TYPE_STRING) << row.label;
    if (!row.ok) {
        EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA) << row.label;
    }
    if (row.ok && row.bufferSize) {
        EXPECT_STREQ(buffer.data(), "0123456789") << row.label;
    }
    EXPECT_EQ(buffer[row.bufferSize], 'X') << row.label << ": wrote past the buffer";
}

INSTANTIATE_TEST_SUITE_P(Rows, BufferRules,
                         ::testing::Values(BufferRow{"null buffer asks the size", 0, true, 11},
                                           BufferRow{"one byte", 1, false, 11},
                                           BufferRow{"one short", 10, false, 11},
                                           BufferRow{"exact", 11, true, 11},
                                           BufferRow{"larger", 300, true, 11}),
                         RowName());

TEST_F(ServerProperties, MultiStringAndNumberSizes)
{
    const char multi[] = "alpha\0beta\0\0";
    ASSERT_TRUE(SetMailServerProperty(server, "Lists", VB_TYPE_MULTI_STRING, "Names", multi, sizeof multi - 1));
    char buffer[64];
    uint32_t size = 5, type = 0;
    EXPECT_FALSE(GetMailServerProperty(server, "Lists", "Names", buffer, &size, &type));
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    EXPECT_EQ(size, 12u); // "alpha\0beta\0\0"
    size = sizeof buffer;
    ASSERT_TRUE(GetMailServerProperty(server, "Lists", "Names", buffer, &size, &type));
    EXPECT_EQ(type, VB_TYPE_MULTI_STRING);
    EXPECT_EQ(splitMulti(buffer, size), (std::vector<std::string>{"alpha", "beta"}));

    ASSERT_TRUE(setNumber(nullptr, "RegistryFormatVersion", 5));
    uint32_t n = 0;
    size = 2;
    EXPECT_FALSE(GetMailServerProperty(server, nullptr, "RegistryFormatVersion", &n, &size, nullptr));
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
}

TEST_F(ServerProperties, InvalidArgumentsAreRefused)
{
    uint32_t n = 7;
    EXPECT_FALSE(SetMailServerProperty(server, nullptr, VB_TYPE_DWORD, "X", &n, 2)); // a number is 4 bytes
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(SetMailServerProperty(server, nullptr, 3, "X", &n, 4)); // binary is not a store type
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(SetMailServerProperty(server, nullptr, VB_TYPE_STRING, "", "a", 2));
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(GetMailServerProperty(server, nullptr, "X", &n, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(GetMailServerProperty(nullptr, nullptr, "X", &n, &n, nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
}

// ---- names, sections and types -------------------------------------------------------------------

TEST_F(ServerProperties, NamesAndSectionsIgnoreCase)
{
    ASSERT_TRUE(setText(nullptr, "MailSpoolDir", "/var/spool/a"));
    EXPECT_EQ(text(nullptr, "MAILSPOOLDIR"), "/var/spool/a");
    EXPECT_EQ(text("", "mailspooldir"), "/var/spool/a") << "a null and an empty section are the same";
    ASSERT_TRUE(setText("smtpra", "Banner", "hello"));
    EXPECT_EQ(text("SMTPRA", "BANNER"), "hello");
    EXPECT_EQ(text(nullptr, "Banner"), "<error 2>") << "a named section is not the server's own";
    ASSERT_TRUE(setText("SmtpRA", "BANNER", "again"));
    EXPECT_EQ(text("smtpra", "banner"), "again") << "a write in another case replaces, never duplicates";

    char names[256];
    uint32_t size = sizeof names;
    ASSERT_TRUE(EnumMailServerProperties(server, "SMTPRA", names, &size));
    EXPECT_EQ(splitMulti(names, size), std::vector<std::string>{"Banner"});
}

TEST_F(ServerProperties, TypeFollowsTheLastWrite)
{
    ASSERT_TRUE(setText(nullptr, "Value", "text"));
    ASSERT_TRUE(setNumber(nullptr, "Value", 42));
    EXPECT_EQ(number(nullptr, "Value"), 42);
    ASSERT_TRUE(setText(nullptr, "Value", "abc"));
    EXPECT_EQ(number(nullptr, "Value"), -1) << "read as a number, the type reported is text";
    EXPECT_EQ(text(nullptr, "Value"), "abc");
}

TEST_F(ServerProperties, TextEndsAtItsFirstZeroAndHostileBytesSurvive)
{
    const char withZero[] = "abc\0def";
    ASSERT_TRUE(SetMailServerProperty(server, nullptr, VB_TYPE_STRING, "Z", withZero, sizeof withZero));
    EXPECT_EQ(text(nullptr, "Z"), "abc");
    const std::string hostile = "quote ' \" ; DROP TABLE property; -- \xff\xfe\xc3";
    ASSERT_TRUE(setText(nullptr, "Hostile'\"", hostile));
    EXPECT_EQ(text(nullptr, "hostile'\""), hostile);
    const std::string big(kBigSize, 'x');
    ASSERT_TRUE(setText(nullptr, "Big", big));
    std::vector<char> buffer(kBigSize + 1);
    uint32_t size = uint32_t(buffer.size());
    ASSERT_TRUE(GetMailServerProperty(server, nullptr, "Big", buffer.data(), &size, nullptr));
    EXPECT_EQ(size, kBigSize + 1);
}

TEST_F(ServerProperties, DeleteAndMissing)
{
    EXPECT_FALSE(DeleteMailServerProperty(server, nullptr, "Nothing"));
    EXPECT_EQ(GetLastError(), VB_ERROR_FILE_NOT_FOUND);
    ASSERT_TRUE(setNumber("Statistics", "Enabled", 0xFFFFFFFFu));
    ASSERT_TRUE(DeleteMailServerProperty(server, "statistics", "ENABLED"));
    EXPECT_EQ(number("Statistics", "Enabled"), -int64_t(VB_ERROR_FILE_NOT_FOUND));
}

// ---- list properties -------------------------------------------------------------------------------

TEST_F(ServerProperties, ListPropertyElements)
{
    EXPECT_FALSE(LookupMailServerListProperty(server, nullptr, "Blacklist", "a@x.example"));
    EXPECT_EQ(GetLastError(), VB_ERROR_NOT_FOUND);
    ASSERT_TRUE(AddToMailServerListProperty(server, nullptr, "Blacklist", "b@x.example"));
    ASSERT_TRUE(AddToMailServerListProperty(server, nullptr, "Blacklist", "a@x.example"));
    EXPECT_FALSE(AddToMailServerListProperty(server, nullptr, "BLACKLIST", "A@X.example"));
    EXPECT_EQ(GetLastError(), VB_ERROR_ALREADY_EXISTS);
    EXPECT_TRUE(LookupMailServerListProperty(server, nullptr, "blacklist", "B@x.EXAMPLE"));

    char buffer[256];
    uint32_t size = sizeof buffer, type = 0;
    ASSERT_TRUE(GetMailServerProperty(server, nullptr, "Blacklist", buffer, &size, &type));
    EXPECT_EQ(type, VB_TYPE_MULTI_STRING);
    EXPECT_EQ(splitMulti(buffer, size), (std::vector<std::string>{"b@x.example", "a@x.example"}))
        << "insertion order";

    ASSERT_TRUE(RemoveFromMailServerListProperty(server, nullptr, "Blacklist", "B@X.EXAMPLE"));
    EXPECT_FALSE(RemoveFromMailServerListProperty(server, nullptr, "Blacklist", "b@x.example"));
    EXPECT_EQ(GetLastError(), VB_ERROR_NOT_FOUND);

    // Writing a multi-string replaces the whole list.
    const char replacement[] = "one\0two\0\0";
    ASSERT_TRUE(SetMailServerProperty(server, nullptr, VB_TYPE_MULTI_STRING, "Blacklist", replacement,
                                      sizeof replacement - 1));
    EXPECT_FALSE(LookupMailServerListProperty(server, nullptr, "Blacklist", "a@x.example"));
    EXPECT_TRUE(LookupMailServerListProperty(server, nullptr, "Blacklist", "TWO"));
    // Writing a text in its place drops the elements.
    ASSERT_TRUE(setText(nullptr, "Blacklist", "plain"));
    EXPECT_FALSE(LookupMailServerListProperty(server, nullptr, "Blacklist", "one"));
}

// 20 000 single additions stay fast: each is an indexed insert, not a rewrite of the list.
TEST_F(ServerProperties, LargeListIsNotQuadratic)
{
    const auto start = std::chrono::steady_clock::now();
    constexpr int kCount = 20000;
    for (int i = 0; i < kCount; ++i)
        ASSERT_TRUE(AddToMailServerListProperty(server, "Spam", "Addresses",
                                                ("user" + std::to_string(i) + "@x.example").c_str()));
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_LT(seconds, 20.0);
    EXPECT_TRUE(LookupMailServerListProperty(server, "Spam", "Addresses", "USER19999@x.example"));
    uint32_t size = 0;
    ASSERT_TRUE(GetMailServerProperty(server, "Spam", "Addresses", nullptr, &size, nullptr));
    std::vector<char> buffer(size);
    ASSERT_TRUE(GetMailServerProperty(server, "Spam", "Addresses", buffer.data(), &size, nullptr));
    const auto items = splitMulti(buffer.data(), size);
    ASSERT_EQ(items.size(), size_t(kCount));
    EXPECT_EQ(items.front(), "user0@x.example");
    EXPECT_EQ(items.back(), "user19999@x.example");
}

// ---- constants, the machine and the connector -------------------------------------------------------

TEST_F(ServerProperties, ConstantsComeFromTheHostUnlessRecorded)
{
    char host[256] = {};
    ASSERT_EQ(gethostname(host, sizeof host - 1), 0);
    std::string shortName = host;
    shortName = shortName.substr(0, shortName.find('.'));

    char buffer[1024];
    uint32_t size = sizeof buffer, type = 0;
    ASSERT_TRUE(GetMailServerConstant(server, "machinename", buffer, &size, &type));
    EXPECT_EQ(type, VB_TYPE_STRING);
    EXPECT_EQ(std::string(buffer), shortName);
    size = sizeof buffer;
    ASSERT_TRUE(GetMailServerConstant(server, "HostAddresses", buffer, &size, &type));
    EXPECT_EQ(type, VB_TYPE_MULTI_STRING);
    EXPECT_FALSE(splitMulti(buffer, size).empty());
    size = sizeof buffer;
    EXPECT_FALSE(GetMailServerConstant(server, "NoSuchConstant", buffer, &size, nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_FILE_NOT_FOUND);
    EXPECT_TRUE(IsLocalMachine(server));
    EXPECT_FALSE(IsRemotelyManaged(server));

    ASSERT_TRUE(setText("Machine", "MachineName", "FARAWAY"));
    const char addresses[] = "192.0.2.10\0" "192.0.2.11\0\0";
    ASSERT_TRUE(SetMailServerProperty(server, "Machine", VB_TYPE_MULTI_STRING, "HostAddresses", addresses,
                                      sizeof addresses - 1));
    ASSERT_TRUE(setNumber("Machine", "RemotelyManaged", 1));
    size = sizeof buffer;
    ASSERT_TRUE(GetMailServerConstant(server, "MachineName", buffer, &size, nullptr));
    EXPECT_STREQ(buffer, "FARAWAY");
    size = sizeof buffer;
    ASSERT_TRUE(GetMailServerConstant(server, "HostAddresses", buffer, &size, nullptr));
    EXPECT_EQ(splitMulti(buffer, size), (std::vector<std::string>{"192.0.2.10", "192.0.2.11"}));
    EXPECT_FALSE(IsLocalMachine(server));
    EXPECT_TRUE(IsRemotelyManaged(server));
    ASSERT_TRUE(setText("Machine", "MachineName", shortName));
    EXPECT_TRUE(IsLocalMachine(server)) << "the recorded name is this host's";
}

TEST_F(ServerProperties, ConnectorInfoAndCriticalProperties)
{
    _tConfigConnectorInfo info{};
    EXPECT_FALSE(GetConfigConnectorInfo(server, &info)) << "cbSize 0 is refused";
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    info.cbSize = sizeof info;
    ASSERT_EQ(sizeof info, 20u);
    ASSERT_TRUE(GetConfigConnectorInfo(server, &info));
    EXPECT_EQ(info.connectorType, 0u);
    EXPECT_EQ(info.clustered, 0u);
    EXPECT_GE(info.version, 1u);
    EXPECT_EQ(info.flags, 0u);

    const auto before = uint32_t(time(nullptr));
    ASSERT_TRUE(IndicateNewMailServerCriticalProperties(server));
    EXPECT_GE(number(nullptr, "CriticalPropertiesChanged"), int64_t(before));
}

// ---- opening -----------------------------------------------------------------------------------------

using Opening = StoreTest;

TEST_F(Opening, NewStoreIsPrivateAndKeepsValues)
{
    ASSERT_TRUE(setText(nullptr, "MailSpoolDir", "/spool"));
    struct stat st {};
    ASSERT_EQ(::stat(path.c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    ASSERT_EQ(::stat((path + "-wal").c_str(), &st), 0) << "the store runs with a write-ahead log";
    EXPECT_EQ(st.st_mode & 0777, 0600u) << "the write-ahead log is as private as the store";
    ASSERT_EQ(::stat((path + "-shm").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    EXPECT_STREQ(GetMailServerLocation(server), path.c_str());
    CloseMailServer(server);
    server = OpenMailServer(path.c_str());
    ASSERT_NE(server, nullptr);
    EXPECT_EQ(text(nullptr, "MailSpoolDir"), "/spool");
}

TEST_F(Opening, FilesThatAreNotStoresAreRefused)
{
    const std::string junk = dir + "/junk.db";
    {
        std::ofstream out(junk, std::ios::binary);
        out << std::string(8192, '\x5a');
    }
    EXPECT_EQ(OpenMailServer(junk.c_str()), nullptr);
    EXPECT_EQ(GetLastError(), VB_ERROR_BAD_FILE);

    const std::string other = dir + "/other.db";
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(other.c_str(), &db), SQLITE_OK);
    sqlite3_exec(db, "CREATE TABLE t(x); INSERT INTO t VALUES (1);", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    EXPECT_EQ(OpenMailServer(other.c_str()), nullptr);
    EXPECT_EQ(GetLastError(), VB_ERROR_BAD_FILE) << "another program's database is not ours to change";

    EXPECT_EQ(OpenMailServer(dir.c_str()), nullptr) << "a folder";
    EXPECT_EQ(GetLastError(), VB_ERROR_BAD_FILE);
    EXPECT_EQ(OpenMailServer((dir + "/missing/sub/config.db").c_str()), nullptr);
    EXPECT_NE(GetLastError(), 0u);
}

TEST_F(Opening, DefaultLocationFollowsTheEnvironment)
{
    const std::string viaEnv = dir + "/env.db";
    ::setenv("VELBROOK_STORE", viaEnv.c_str(), 1);
    _tMailServer* s = OpenMailServer(nullptr);
    ::unsetenv("VELBROOK_STORE");
    ASSERT_NE(s, nullptr);
    EXPECT_EQ(std::string(GetMailServerLocation(s)), viaEnv);
    CloseMailServer(s);

    const char* oldXdg = std::getenv("XDG_DATA_HOME");
    const std::string saved = oldXdg ? oldXdg : "";
    ::setenv("XDG_DATA_HOME", (dir + "/xdg").c_str(), 1);
    s = OpenMailServer("");
    if (oldXdg)
        ::setenv("XDG_DATA_HOME", saved.c_str(), 1);
    else
        ::unsetenv("XDG_DATA_HOME");
    ASSERT_NE(s, nullptr) << GetLastError();
    EXPECT_EQ(std::string(GetMailServerLocation(s)), dir + "/xdg/velbrook/config.db");
    CloseMailServer(s);
}

// A store the caller may only read answers every write with 5 and still reads. Run as an unprivileged
// user in a child process, since root may write anything.
TEST_F(Opening, ReadOnlyStoreRefusesWritesWithoutCrashing)
{
    ASSERT_TRUE(setText(nullptr, "MailSpoolDir", "/spool"));
    ASSERT_TRUE(VbRegisterMailService(server, "SMTPRA", "SMTP Receiver", "builtin", nullptr, VB_SERVICE_RUNNING));
    CloseMailServer(server);
    server = nullptr;
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    ASSERT_EQ(::chmod(dir.c_str(), 0555), 0);

    const pid_t pid = ::fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        if (::geteuid() == 0) {
            const passwd* nobody = ::getpwnam("nobody");
            if (!nobody || ::setgid(nobody->pw_gid) != 0 || ::setuid(nobody->pw_uid) != 0)
                ::_exit(90);
        }
        int failures = 0;
        _tMailServer* s = OpenMailServer(path.c_str());
        if (!s)
            ::_exit(91);
        char buffer[64];
        uint32_t size = sizeof buffer;
        if (!GetMailServerProperty(s, nullptr, "MailSpoolDir", buffer, &size, nullptr) || strcmp(buffer, "/spool"))
            failures |= 1;
        uint32_t n = 1;
        if (SetMailServerProperty(s, nullptr, VB_TYPE_DWORD, "X", &n, 4) || GetLastError() != VB_ERROR_ACCESS_DENIED)
            failures |= 2;
        if (AddToMailServerListProperty(s, nullptr, "L", "e") || GetLastError() != VB_ERROR_ACCESS_DENIED)
            failures |= 4;
        if (StopMailService(s, "SMTPRA") || GetLastError() != VB_ERROR_ACCESS_DENIED)
            failures |= 8;
        _tConfigConnectorInfo info{sizeof info, 0, 0, 0, 0};
        if (!GetConfigConnectorInfo(s, &info) || info.flags != 1)
            failures |= 16;
        if (DeleteMailServerProperty(s, nullptr, "MailSpoolDir") || GetLastError() != VB_ERROR_ACCESS_DENIED)
            failures |= 32;
        CloseMailServer(s);
        ::_exit(failures);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(pid, &status, 0), pid);
    ::chmod(dir.c_str(), 0700);
    ::chmod(path.c_str(), 0600);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "bit mask of the failed checks (90/91: could not run or open)";
}

// Two processes write different properties of one store at once; no write is lost.
TEST_F(Opening, TwoProcessesWritingLoseNothing)
{
    constexpr int kWrites = 300;
    pid_t children[2];
    for (int c = 0; c < 2; ++c) {
        children[c] = ::fork();
        ASSERT_GE(children[c], 0);
        if (children[c] == 0) {
            _tMailServer* s = OpenMailServer(path.c_str());
            if (!s)
                ::_exit(1);
            for (int i = 0; i < kWrites; ++i) {
                const std::string name = "P" + std::to_string(c) + "_" + std::to_string(i);
                uint32_t v = uint32_t(i);
                if (!SetMailServerProperty(s, "Race", VB_TYPE_DWORD, name.c_str(), &v, 4))
                    ::_exit(2);
                if (!AddToMailServerListProperty(s, "Race", "Shared", name.c_str()))
                    ::_exit(3);
            }
            CloseMailServer(s);
            ::_exit(0);
        }
    }
    for (pid_t child : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 0);
    }
    uint32_t size = 0;
    ASSERT_TRUE(EnumMailServerProperties(server, "Race", nullptr, &size));
    std::vector<char> names(size);
    ASSERT_TRUE(EnumMailServerProperties(server, "Race", names.data(), &size));
    EXPECT_EQ(splitMulti(names.data(), size).size(), size_t(2 * kWrites + 1)); // and the list "Shared"
    EXPECT_EQ(number("Race", "P1_299"), 299);
    size = 0;
    ASSERT_TRUE(GetMailServerProperty(server, "Race", "Shared", nullptr, &size, nullptr));
    std::vector<char> items(size);
    ASSERT_TRUE(GetMailServerProperty(server, "Race", "Shared", items.data(), &size, nullptr));
    EXPECT_EQ(splitMulti(items.data(), size).size(), size_t(2 * kWrites));
}

// ---- last error ----------------------------------------------------------------------------------------

TEST(LastError, IsPerThreadAndHasTexts)
{
    SetLastError(VB_ERROR_MORE_DATA);
    uint32_t other = 1;
    std::thread([&] { other = GetLastError(); }).join();
    EXPECT_EQ(other, 0u);
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);

    const uint32_t codes[] = {VB_ERROR_FILE_NOT_FOUND, VB_ERROR_ACCESS_DENIED, VB_ERROR_INVALID_PARAMETER,
                              VB_ERROR_BUSY,           VB_ERROR_ALREADY_EXISTS, VB_ERROR_MORE_DATA,
                              VB_ERROR_NO_MORE_ITEMS,  VB_ERROR_NOT_FOUND,      VB_ERROR_SERVICE_ALREADY_RUNNING,
                              VB_ERROR_SERVICE_NOT_ACTIVE, VB_ERROR_SERVICE_DOES_NOT_EXIST, VB_ERROR_BAD_FILE,
                              VB_ERROR_MAILBOX_LIMIT,  VB_ERROR_PROPERTY_TOO_LARGE, VB_ERROR_MAILLIST_LIMIT,
                              VB_ERROR_CANCELLED};
    for (uint32_t code : codes) {
        char text[256];
        EXPECT_GT(VbErrorText(code, text, sizeof text), 0u) << code;
        EXPECT_EQ(std::string(text).find('\n'), std::string::npos) << code;
    }
    char text[8];
    EXPECT_EQ(VbErrorText(0x12345u, text, sizeof text), 0u);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(VbErrorText(VB_ERROR_FILE_NOT_FOUND, text, sizeof text), 7u) << "cut to the buffer";
    char long_[128];
    EXPECT_TRUE(GetMailboxManagerErrorString(VB_ERROR_MAILBOX_BAD_NAME, long_, sizeof long_));
    EXPECT_FALSE(GetMailboxManagerErrorString(VB_ERROR_MAILLIST_BAD_NAME, long_, sizeof long_))
        << "a list-store code is not the mailbox store's";
    EXPECT_TRUE(GetMailingListManagerErrorString(VB_ERROR_MAILLIST_BAD_NAME, long_, sizeof long_));
}

// ---- the object wrapper and the demonstration configuration ---------------------------------------------

TEST_F(ServerProperties, MailServerWrapperReadsLongTextsAndNumbers)
{
    const std::string longText(1000, 'p');
    ASSERT_TRUE(setText("CalendarMgr", "CalendarDir", longText));
    CMailServer wrapper;
    wrapper.Wrap(server);
    std::string value;
    ASSERT_TRUE(wrapper.GetProperty("CalendarMgr", "CalendarDir", &value));
    EXPECT_EQ(value, longText);
    ASSERT_TRUE(wrapper.SetProperty("CalendarMgr", "CalendarOn", 1ul));
    unsigned long n = 0;
    ASSERT_TRUE(wrapper.GetProperty("CalendarMgr", "CalendarOn", &n));
    EXPECT_EQ(n, 1ul);
    EXPECT_FALSE(wrapper.GetProperty("CalendarMgr", "CalendarDir", &n)) << "a text is not a number";
    wrapper.Close(); // a wrapped handle stays the caller's
    EXPECT_EQ(text("CalendarMgr", "CalendarDir").size(), longText.size());
}

TEST_F(ServerProperties, DemoConfigurationHasWhatTheDialogsRead)
{
    ASSERT_TRUE(VbSeedDemoConfiguration(server));
    EXPECT_EQ(number(nullptr, "RegistryFormatVersion"), 5);
    EXPECT_FALSE(text(nullptr, "MailSpoolDir").empty());
    EXPECT_EQ(number("Statistics", "Enabled"), int64_t(0xFFFFFFFFu));
    EXPECT_EQ(number("SMTPRA", "Timeout"), 900);
    EXPECT_EQ(number("CalendarMgr", "CalendarRemit"), 2);
    uint32_t state = 0;
    ASSERT_TRUE(GetMailServiceStatus(server, "SMTPRA", &state));
    EXPECT_EQ(state, VB_SERVICE_RUNNING);
    ASSERT_TRUE(GetMailServiceStatus(server, "WebMail", &state));
    EXPECT_EQ(state, VB_SERVICE_STOPPED);
    EXPECT_EQ(text("SMTPDA", "DisplayName"), "SMTP Delivery");
    ASSERT_TRUE(VbSeedDemoConfiguration(server)) << "seeding twice keeps what exists";
}
