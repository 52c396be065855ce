// The mailbox password key: made once, atomically, never replaced behind the administrator's back.
#include "StoreFixture.h"

#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "velbrook/DomainStore.h"
#include "velbrook/MailboxStore.h"

class PasswordKey : public StoreTest {
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        ASSERT_TRUE(CreateDomain(server, "a.example"));
        for (const char* name : {"alice@a.example", "bob@a.example"})
            ASSERT_TRUE(CreateMailbox(server, name));
    }
    bool setPassword(const char* address, const char* password, _tMailServer* s = nullptr)
    {
        _tMailbox* m = OpenMailbox(s ? s : server, address);
        const bool ok = m && SetMailboxPassword(m, password);
        const uint32_t e = GetLastError();
        CloseMailbox(m);
        SetLastError(e);
        return ok;
    }
    // The password, or "<error N>".
    std::string password(const char* address, _tMailServer* s = nullptr)
    {
        _tMailbox* m = OpenMailbox(s ? s : server, address);
        char pw[128];
        uint32_t size = sizeof pw;
        const bool ok = m && GetMailboxPassword(m, pw, &size);
        const uint32_t e = GetLastError();
        CloseMailbox(m);
        return ok ? std::string(pw) : "<error " + std::to_string(e) + ">";
    }
    std::string key() const { return path + ".key"; }
};

struct KeyFaultRow {
    const char* label;
    void (*damage)(const std::string& key);
    uint32_t error;
};
static void PrintTo(const KeyFaultRow& row, std::ostream* os) { *os << '"' << row.label << '"'; }

class KeyFault : public PasswordKey, public ::testing::WithParamInterface<KeyFaultRow> {};

// A restore without the key, a key from elsewhere or one open to everyone: nothing is read or sealed,
// the error names the key file, and the key file is left as the administrator left it.
TEST_P(KeyFault, NeitherReadsNorSealsUnderAnotherKey)
{
    ASSERT_TRUE(setPassword("alice@a.example", "first"));
    GetParam().damage(key());
    const std::string before = fileBytes(key());
    EXPECT_EQ(password("alice@a.example"), "<error " + std::to_string(GetParam().error) + ">");
    EXPECT_FALSE(setPassword("bob@a.example", "second"));
    EXPECT_EQ(GetLastError(), GetParam().error);
    EXPECT_EQ(fileBytes(key()), before) << "the key file is neither made nor replaced";
    char text[512];
    ASSERT_TRUE(GetMailboxManagerErrorString(GetParam().error, text, sizeof text));
    EXPECT_NE(std::string(text).find(key()), std::string::npos) << text;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, KeyFault,
    ::testing::Values(
        KeyFaultRow{"missing", [](const std::string& k) { ::unlink(k.c_str()); }, VB_ERROR_MAILBOX_KEY_MISSING},
        KeyFaultRow{"another key",
                    [](const std::string& k) {
                        ::unlink(k.c_str());
                        std::ofstream(k, std::ios::binary) << std::string(32, 'k');
                        ::chmod(k.c_str(), 0600);
                    },
                    VB_ERROR_MAILBOX_PASSWORD_SEALED},
        KeyFaultRow{"readable by others", [](const std::string& k) { ::chmod(k.c_str(), 0644); },
                    VB_ERROR_MAILBOX_KEY_UNSAFE}),
    RowName());

// The key sits beside the store's real file, however the store was named when it was opened.
TEST_F(PasswordKey, FollowsTheStoreThroughLinksAndChdir)
{
    ASSERT_TRUE(setPassword("alice@a.example", "first"));
    const std::string link = dir + "/sub/linked.db";
    std::filesystem::create_directory(dir + "/sub");
    std::filesystem::create_symlink(path, link);
    _tMailServer* viaLink = OpenMailServer(link.c_str());
    ASSERT_NE(viaLink, nullptr);
    EXPECT_EQ(password("alice@a.example", viaLink), "first");

    const auto cwd = std::filesystem::current_path();
    std::filesystem::current_path(dir);
    _tMailServer* relative = OpenMailServer("config.db");
    std::filesystem::current_path("/");
    ASSERT_NE(relative, nullptr);
    EXPECT_EQ(password("alice@a.example", relative), "first");
    EXPECT_TRUE(setPassword("bob@a.example", "second", relative));
    std::filesystem::current_path(cwd);
    EXPECT_EQ(password("bob@a.example", viaLink), "second");
    CloseMailServer(relative);
    CloseMailServer(viaLink);
    EXPECT_FALSE(std::filesystem::exists(dir + "/sub/linked.db.key"));
}

// Several handles setting the first password at once agree on one key.
TEST_F(PasswordKey, FirstPasswordsSetAtOnceShareOneKey)
{
    constexpr int kWriters = 6;
    for (int i = 0; i < kWriters; ++i)
        ASSERT_TRUE(CreateMailbox(server, ("m" + std::to_string(i) + "@a.example").c_str()));
    std::vector<std::thread> writers;
    std::vector<int> ok(kWriters, 0);
    for (int i = 0; i < kWriters; ++i)
        writers.emplace_back([&, i] {
            _tMailServer* s = OpenMailServer(path.c_str());
            ok[size_t(i)] = s && setPassword(("m" + std::to_string(i) + "@a.example").c_str(), "pw", s);
            CloseMailServer(s);
        });
    for (auto& w : writers)
        w.join();
    for (int i = 0; i < kWriters; ++i) {
        EXPECT_TRUE(ok[size_t(i)]) << i;
        EXPECT_EQ(password(("m" + std::to_string(i) + "@a.example").c_str()), "pw") << i;
    }
    struct stat st {};
    ASSERT_EQ(::stat(key().c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        EXPECT_EQ(entry.path().string().find(".key."), std::string::npos) << "a temporary key is left";
}
