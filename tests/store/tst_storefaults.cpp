// Store faults found by breaking things: list elements over values, transactions after a failure,
// simultaneous service starts, newer, foreign and read-only stores.
#include "StoreFixture.h"

#include <pwd.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <thread>

#include "velbrook/DomainStore.h"
#include "velbrook/ListStore.h"
#include "velbrook/MailboxStore.h"
#include "velbrook/StoreTesting.h"

using StoreFaults = StoreTest;

// Runs check as the unprivileged user "nobody" in a child process (root may read and write anything);
// returns its exit status, 90 when it could not become nobody.
static int asNobody(const std::function<int()>& check)
{
    const pid_t pid = ::fork();
    if (pid == 0) {
        const passwd* nobody = ::getpwnam("nobody");
        if (::geteuid() == 0 && (!nobody || ::setgid(nobody->pw_gid) != 0 || ::setuid(nobody->pw_uid) != 0))
            ::_exit(90);
        ::_exit(check());
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 99;
}

TEST_F(StoreFaults, ListElementNeverReplacesAValue)
{
    ASSERT_TRUE(setText(nullptr, "Banner", "hello"));
    ASSERT_TRUE(setNumber(nullptr, "Limit", 7));
    EXPECT_FALSE(AddToMailServerListProperty(server, nullptr, "Banner", "x"));
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_DATA);
    EXPECT_FALSE(AddToMailServerListProperty(server, nullptr, "LIMIT", "x"));
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_DATA);
    EXPECT_EQ(text(nullptr, "Banner"), "hello");
    EXPECT_EQ(number(nullptr, "Limit"), 7);

    ASSERT_TRUE(CreateDomain(server, "a.example"));
    _tDomain* d = OpenDomain(server, "a.example");
    ASSERT_TRUE(SetDomainProperty(d, VB_TYPE_STRING, "Owner", "me", 3));
    EXPECT_FALSE(AddToDomainListProperty(d, "Owner", "x"));
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_DATA);
    char value[16];
    uint32_t size = sizeof value;
    ASSERT_TRUE(GetDomainProperty(d, "Owner", value, &size, nullptr));
    EXPECT_STREQ(value, "me");
    EXPECT_TRUE(AddToDomainListProperty(d, "Fresh", "x")) << "a new name becomes a list";
    CloseDomain(d);
}

// A write after a failed operation commits: a second connection sees it.
TEST_F(StoreFaults, WritesAfterAFailedOperationCommit)
{
    _tMailServer* other = OpenMailServer(path.c_str());
    ASSERT_NE(other, nullptr);
    ASSERT_TRUE(CreateDomain(server, "a.example"));
    _tDomain* d = OpenDomain(server, "a.example");
    const uint32_t zero = 0;
    ASSERT_TRUE(SetDomainProperty(d, VB_TYPE_DWORD, "MaxMailboxes", &zero, 4));
    CloseDomain(d);
    ASSERT_TRUE(AddToMailServerListProperty(server, nullptr, "L", "e"));
    const std::vector<std::pair<const char*, std::function<int()>>> failing = {
        {"mailbox over the limit", [&] { return CreateMailbox(server, "x@a.example"); }},
        {"duplicate domain", [&] { return CreateDomain(server, "A.EXAMPLE"); }},
        {"duplicate element", [&] { return AddToMailServerListProperty(server, nullptr, "L", "E"); }},
        {"list in a missing domain", [&] { return CreateMailingList(server, "l", "none.example"); }},
        {"start of a missing service", [&] { return StartMailService(server, "none"); }},
    };
    for (const auto& [label, operation] : failing) {
        EXPECT_FALSE(operation()) << label;
        ASSERT_TRUE(setText(nullptr, "After", label));
        EXPECT_EQ(text(nullptr, "After", other), label);
    }
    CloseMailServer(other);
}

// Of several handles starting one stopped service at once, exactly one succeeds (rounds of starters
// released together, so that their checks overlap).
TEST_F(StoreFaults, SimultaneousStartsSucceedOnce)
{
    constexpr int kStarters = 8, kRounds = 12;
    std::vector<_tMailServer*> handles;
    for (int i = 0; i < kStarters; ++i)
        handles.push_back(OpenMailServer(path.c_str()));
    for (int round = 0; round < kRounds; ++round) {
        ASSERT_TRUE(VbRegisterMailService(server, "SMTPRA", nullptr, "builtin", nullptr, VB_SERVICE_STOPPED));
        ASSERT_TRUE(setNumber("SMTPRA", "PendingMilliseconds", 60000));
        std::atomic<int> ready{0}, successes{0}, wrongErrors{0};
        std::vector<std::thread> threads;
        for (_tMailServer* s : handles)
            threads.emplace_back([&, s] {
                ++ready;
                while (ready.load() < kStarters) {
                }
                if (StartMailService(s, "SMTPRA"))
                    ++successes;
                else if (GetLastError() != VB_ERROR_SERVICE_ALREADY_RUNNING)
                    ++wrongErrors;
            });
        for (auto& t : threads)
            t.join();
        ASSERT_EQ(successes.load(), 1) << "round " << round;
        ASSERT_EQ(wrongErrors.load(), 0);
    }
    for (_tMailServer* s : handles)
        CloseMailServer(s);
}

struct NewerRow {
    const char* label;
    int64_t version; // above the current one
};
static void PrintTo(const NewerRow& row, std::ostream* os) { *os << '"' << row.label << '"'; }
class NewerSchema : public StoreTest, public ::testing::WithParamInterface<NewerRow> {};

// A store of a newer release is refused with its own error, and not a byte of it changes.
TEST_P(NewerSchema, IsRefusedUntouched)
{
    _tConfigConnectorInfo info{sizeof info, 0, 0, 0, 0};
    ASSERT_TRUE(GetConfigConnectorInfo(server, &info));
    CloseMailServer(server);
    server = nullptr;
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
    const std::string sql = "PRAGMA journal_mode = DELETE; UPDATE vb_schema SET version = "
                            + std::to_string(GetParam().version + info.version);
    ASSERT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
    const std::string before = fileBytes(path);
    EXPECT_EQ(OpenMailServer(path.c_str()), nullptr);
    EXPECT_EQ(GetLastError(), VB_ERROR_STORE_TOO_NEW);
    EXPECT_EQ(fileBytes(path), before);
    EXPECT_FALSE(std::filesystem::exists(path + "-wal"));
}

INSTANTIATE_TEST_SUITE_P(Rows, NewerSchema,
                         ::testing::Values(NewerRow{"next version", 1}, NewerRow{"past 32 bits", 1LL << 32}),
                         RowName());

TEST_F(StoreFaults, AnotherUsersStoreIsAccessDenied)
{
    ASSERT_EQ(::chmod(dir.c_str(), 0755), 0);
    EXPECT_EQ(asNobody([&] {
                  return OpenMailServer(path.c_str()) == nullptr && GetLastError() == VB_ERROR_ACCESS_DENIED ? 0 : 1;
              }),
              0);
}

// A read-only store whose last writer died with changes in the log: those changes are read, or the
// store is refused; an older value is never passed off as the current one.
TEST_F(StoreFaults, ReadOnlyStoreNeverIgnoresItsLog)
{
    ASSERT_TRUE(setText(nullptr, "MailSpoolDir", "/old"));
    CloseMailServer(server);
    server = nullptr;
    const pid_t writer = ::fork();
    if (writer == 0) {
        _tMailServer* s = OpenMailServer(path.c_str());
        const char* value = "/new";
        ::_exit(s && SetMailServerProperty(s, nullptr, VB_TYPE_STRING, "MailSpoolDir", value, 5) ? 0 : 1); // no close
    }
    int status = 0;
    ASSERT_EQ(::waitpid(writer, &status, 0), writer);
    ASSERT_EQ(WEXITSTATUS(status), 0);
    ASSERT_GT(std::filesystem::file_size(path + "-wal"), 0u);
    for (const std::string& f : {path, path + "-wal", path + "-shm"})
        ::chmod(f.c_str(), 0644);
    ASSERT_EQ(::chmod(dir.c_str(), 0555), 0);
    for (const bool withIndex : {true, false}) {
        if (!withIndex)
            ::unlink((path + "-shm").c_str()); // a copy or restore without the log's index
        EXPECT_EQ(asNobody([&] {
                  _tMailServer* s = OpenMailServer(path.c_str());
                  if (!s)
                      return GetLastError() == VB_ERROR_STORE_LOG_UNREADABLE ? 0 : 1;
                  char value[16] = {};
                  uint32_t size = sizeof value;
                  const bool current = GetMailServerProperty(s, nullptr, "MailSpoolDir", value, &size, nullptr)
                                       && std::string(value) == "/new";
                  CloseMailServer(s);
                  return current ? 0 : 2;
              }),
              0) << (withIndex ? "with" : "without") << " the log's index";
    }
    ::chmod(dir.c_str(), 0700);
}

// Objects that outlive their server handle fail cleanly instead of touching freed memory (the sanitizer
// build catches a use after free), and can still be closed.
TEST_F(StoreFaults, ObjectsOutlivingTheirHandleFailCleanly)
{
    ASSERT_TRUE(CreateDomain(server, "a.example"));
    ASSERT_TRUE(CreateMailbox(server, "m@a.example"));
    ASSERT_TRUE(CreateMailingList(server, "l", "a.example"));
    _tDomain* d = OpenDomain(server, "a.example");
    _tMailbox* m = OpenMailbox(server, "m@a.example");
    _tMailingList* l = OpenMailingList(server, "l", "a.example");
    ASSERT_TRUE(d && m && l);
    auto report = std::make_unique<CTrafficReport>(server);
    ASSERT_TRUE(report->Generate(nullptr, _tTrafficStatistics{}));
    CloseMailServer(server);
    server = nullptr;

    const uint32_t one = 1;
    char buffer[64];
    uint32_t size = sizeof buffer;
    const std::vector<std::pair<const char*, std::function<bool()>>> uses = {
        {"domain read", [&] { return GetDomainProperty(d, "MailboxCount", buffer, &size, nullptr) != 0; }},
        {"domain write", [&] { return SetDomainProperty(d, VB_TYPE_DWORD, "X", &one, 4) != 0; }},
        {"mailbox write", [&] { return SetMailboxProperty(m, VB_TYPE_DWORD, "X", &one, 4) != 0; }},
        {"mailbox password", [&] { return GetMailboxPassword(m, buffer, &size) != 0; }},
        {"list member", [&] { return AddMailingListMember(l, "x@b.example") != 0; }},
        {"list members", [&] { return StartMailingListMemberEnumeration(l) != nullptr; }},
        {"report", [&] { return report->Generate(nullptr, _tTrafficStatistics{}); }},
        {"report save", [&] { return report->Save("/tmp/never-written.csv"); }},
    };
    for (const auto& [label, use] : uses) {
        EXPECT_FALSE(use()) << label;
        EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_HANDLE) << label;
    }
    report.reset();
    EXPECT_TRUE(CloseDomain(d));
    EXPECT_TRUE(CloseMailbox(m));
    EXPECT_TRUE(CloseMailingList(l));
}

struct NameRow {
    const char* label;
    const char* domain;  // created first
    const char* mailbox; // then created, or refused with error
    uint32_t error;
};
static void PrintTo(const NameRow& row, std::ostream* os) { *os << '"' << row.label << '"'; }
class Names : public StoreTest, public ::testing::WithParamInterface<NameRow> {};

TEST_P(Names, AreCheckedAndFoldedForAllOfUnicode)
{
    const NameRow row = GetParam();
    ASSERT_TRUE(CreateDomain(server, row.domain));
    EXPECT_EQ(CreateMailbox(server, row.mailbox) ? 0u : GetLastError(), row.error);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Names,
    ::testing::Values(NameRow{"plain", "a.example", "bob@a.example", 0},
                      NameRow{"invalid UTF-8 local part", "a.example", "b\xFFob@a.example", VB_ERROR_MAILBOX_BAD_NAME},
                      NameRow{"no domain after the at sign", "a.example", "user@", VB_ERROR_MAILBOX_BAD_NAME},
                      NameRow{"domain in other letter case", "café.example", "zoë@CAFÉ.EXAMPLE", 0},
                      NameRow{"Greek capitals", "a.example", "ΣΟΦΙΑ@a.example", 0}),
    RowName());

TEST_F(StoreFaults, NamesDifferingOnlyInCaseAreOneName)
{
    EXPECT_FALSE(CreateDomain(server, "caf\xC3.example")) << "a truncated sequence";
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    ASSERT_TRUE(CreateDomain(server, "café.example"));
    EXPECT_FALSE(CreateDomain(server, "CAFÉ.example"));
    EXPECT_EQ(GetLastError(), VB_ERROR_ALREADY_EXISTS);
    ASSERT_TRUE(CreateMailbox(server, "ΣΟΦΙΑ@café.example"));
    EXPECT_FALSE(CreateMailbox(server, "σοφια@CAFÉ.EXAMPLE"));
    EXPECT_EQ(GetLastError(), VB_ERROR_ALREADY_EXISTS);
    ASSERT_TRUE(setText("ÄRGER", "Größe", "1"));
    EXPECT_EQ(text("ärger", "GRÖßE"), "1");
}

// A store whose keys were folded for ASCII only is refolded when it is opened.
TEST_F(StoreFaults, KeysOfAnOlderStoreAreRefolded)
{
    ASSERT_TRUE(CreateDomain(server, "CAFÉ.example"));
    CloseMailServer(server);
    server = nullptr;
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, "UPDATE object SET name_key = 'cafÉ.example' WHERE kind = 1; "
                               "DELETE FROM vb_schema; INSERT INTO vb_schema VALUES (1, 0)",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(db);
    server = OpenMailServer(path.c_str());
    ASSERT_NE(server, nullptr);
    _tDomain* d = OpenDomain(server, "café.example");
    EXPECT_NE(d, nullptr);
    CloseDomain(d);
}

TEST_F(StoreFaults, NameLengthsAndLocalMachine)
{
    EXPECT_TRUE(setNumber(nullptr, std::string(255, 'n').c_str(), 1)) << "255 bytes";
    EXPECT_FALSE(setNumber(nullptr, std::string(256, 'n').c_str(), 1)) << "256 bytes";
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    // A recorded machine name that differs from this host's only in letter case is this machine.
    char host[256] = {};
    ASSERT_EQ(::gethostname(host, sizeof host - 1), 0);
    std::string upper = std::string(host).substr(0, std::string(host).find('.'));
    for (char& c : upper)
        c = char(std::toupper(static_cast<unsigned char>(c)));
    ASSERT_TRUE(setText("Machine", "MachineName", upper));
    EXPECT_EQ(IsLocalMachine(server), 1);
    ASSERT_TRUE(setText("Machine", "MachineName", upper + "-elsewhere"));
    EXPECT_EQ(IsLocalMachine(server), 0);
}
