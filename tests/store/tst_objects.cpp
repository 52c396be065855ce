// Domains, mailboxes, mailing lists, passwords and the wrappers over them.
#include "StoreFixture.h"

#include "velbrook/DemoConfiguration.h"
#include "velbrook/ListStore.h"
#include "velbrook/MailServer.h"
#include "velbrook/ServerCommon.h"
#include "velbrook/StoreTesting.h"

class Objects : public StoreTest {
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        ASSERT_TRUE(CreateDomain(server, "a.example"));
        ASSERT_TRUE(CreateDomain(server, "b.example"));
    }
    static uint32_t domainNumber(_tDomain* d, const char* name)
    {
        uint32_t v = 0, size = 4;
        return GetDomainProperty(d, name, &v, &size, nullptr) ? v : 0xDEADu;
    }
    static uint32_t mailboxNumber(_tMailbox* m, const char* name)
    {
        uint32_t v = 0, size = 4;
        return GetMailboxProperty(m, name, &v, &size, nullptr) ? v : 0xDEADu;
    }
    static bool setMailboxNumber(_tMailbox* m, const char* name, uint32_t v)
    {
        return SetMailboxProperty(m, VB_TYPE_DWORD, name, &v, 4) != 0;
    }
};

TEST_F(Objects, DomainsEnumerateInNameOrderAndRefuseDuplicates)
{
    EXPECT_FALSE(CreateDomain(server, "A.EXAMPLE"));
    EXPECT_EQ(GetLastError(), VB_ERROR_ALREADY_EXISTS);
    ASSERT_TRUE(CreateDomain(server, "0.example"));
    _tDomainEnum* e = StartDomainEnumeration(server);
    ASSERT_NE(e, nullptr);
    std::vector<std::string> names;
    char name[8];
    uint32_t size = sizeof name;
    EXPECT_FALSE(FindNextDomain(e, name, &(size = 4)));
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    EXPECT_EQ(size, 10u);
    char big[64];
    while (FindNextDomain(e, big, &(size = sizeof big)))
        names.emplace_back(big);
    EXPECT_EQ(GetLastError(), VB_ERROR_NO_MORE_ITEMS);
    CloseDomainEnumeration(e);
    EXPECT_EQ(names, (std::vector<std::string>{"0.example", "a.example", "b.example"}));
}

// An opened domain is read once; later reads come from that read even if another handle writes.
TEST_F(Objects, OpenDomainReadsOnceAndWritesGoThrough)
{
    _tDomain* d = OpenDomain(server, "A.example");
    ASSERT_NE(d, nullptr);
    VbClearFaults(server);
    const char dir[] = "/var/mail/a";
    ASSERT_TRUE(SetDomainProperty(d, VB_TYPE_STRING, "MailInBoxDir", dir, sizeof dir));
    char buffer[64];
    uint32_t size = sizeof buffer;
    ASSERT_TRUE(GetDomainProperty(d, "mailinboxdir", buffer, &size, nullptr));
    EXPECT_STREQ(buffer, dir) << "the write updated the snapshot";
    _tDomain* fresh = OpenDomain(server, "a.example");
    ASSERT_NE(fresh, nullptr);
    size = sizeof buffer;
    ASSERT_TRUE(GetDomainProperty(fresh, "MailInBoxDir", buffer, &size, nullptr)) << "and went to the store";
    EXPECT_EQ(domainNumber(fresh, "MailboxCount"), 0u);
    CloseDomain(fresh);
    CloseDomain(d);
    EXPECT_EQ(OpenDomain(server, "missing.example"), nullptr);
    EXPECT_EQ(GetLastError(), VB_ERROR_FILE_NOT_FOUND);
    _tDomain* byDefault = OpenDomain(server, nullptr);
    ASSERT_NE(byDefault, nullptr) << "the oldest domain is the default";
    char def[64];
    ASSERT_TRUE(GetDefaultDomainName(server, def, sizeof def));
    EXPECT_STREQ(def, "a.example");
    EXPECT_FALSE(GetDefaultDomainName(server, def, 4));
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    CloseDomain(byDefault);
    ASSERT_TRUE(setText(nullptr, "DefaultDomain", "B.example"));
    ASSERT_TRUE(GetDefaultDomainName(server, def, sizeof def));
    EXPECT_STREQ(def, "b.example");
}

TEST_F(Objects, MailboxCountIsMaintainedAndLimitsHold)
{
    ASSERT_TRUE(CreateMailbox(server, "one@a.example"));
    ASSERT_TRUE(CreateMailbox(server, "two@a.example"));
    ASSERT_TRUE(CreateMailbox(server, "three")) << "a bare name lands in the default domain";
    EXPECT_FALSE(CreateMailbox(server, "ONE@a.example"));
    EXPECT_EQ(GetLastError(), VB_ERROR_ALREADY_EXISTS);
    EXPECT_FALSE(CreateMailbox(server, "@a.example"));
    EXPECT_EQ(GetLastError(), VB_ERROR_MAILBOX_BAD_NAME);
    EXPECT_FALSE(CreateMailbox(server, "x@nowhere.example"));
    EXPECT_EQ(GetLastError(), VB_ERROR_FILE_NOT_FOUND);
    _tDomain* d = OpenDomain(server, "a.example");
    EXPECT_EQ(domainNumber(d, "MailboxCount"), 3u);
    uint32_t n = 3;
    EXPECT_FALSE(SetDomainProperty(d, VB_TYPE_DWORD, "MailboxCount", &n, 4)) << "the store keeps the count";
    ASSERT_TRUE(SetDomainProperty(d, VB_TYPE_DWORD, "MaxMailboxes", &n, 4));
    CloseDomain(d);
    EXPECT_FALSE(CreateMailbox(server, "four@a.example"));
    EXPECT_EQ(GetLastError(), VB_ERROR_MAILBOX_LIMIT);
    ASSERT_TRUE(DestroyMailbox(server, "two@a.example"));
    uint32_t count = 0;
    ASSERT_TRUE(CountMailboxesInDomain(server, "a.example", &count));
    EXPECT_EQ(count, 2u);
    d = OpenDomain(server, "a.example");
    EXPECT_EQ(domainNumber(d, "MailboxCount"), 2u);
    CloseDomain(d);
    ASSERT_TRUE(GetMailboxCount(server, &count));
    EXPECT_EQ(count, 2u);
    ASSERT_TRUE(DestroyDomain(server, "a.example"));
    ASSERT_TRUE(GetMailboxCount(server, &count));
    EXPECT_EQ(count, 0u) << "a destroyed domain takes its mailboxes along";
}

TEST_F(Objects, PasswordIsSealedAtRest)
{
    ASSERT_TRUE(CreateMailbox(server, "alice@a.example"));
    _tMailbox* m = OpenMailbox(server, "alice@a.example");
    ASSERT_NE(m, nullptr);
    char pw[64];
    uint32_t size = sizeof pw;
    ASSERT_TRUE(GetMailboxPassword(m, pw, &size));
    EXPECT_STREQ(pw, "") << "no password yet";
    const std::string secret = "Correct-Horse-Battery-Staple-7731";
    ASSERT_TRUE(SetMailboxPassword(m, secret.c_str()));
    size = 4;
    EXPECT_FALSE(GetMailboxPassword(m, pw, &size));
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    EXPECT_EQ(size, secret.size() + 1);
    ASSERT_TRUE(GetMailboxPassword(m, pw, &(size = sizeof pw)));
    EXPECT_EQ(std::string(pw), secret);
    CloseMailbox(m);
    CloseMailServer(server);
    server = nullptr;
    EXPECT_EQ(fileBytes(path).find(secret), std::string::npos);
    EXPECT_EQ(fileBytes(path + "-wal").find(secret), std::string::npos);
    struct stat st {};
    ASSERT_EQ(::stat((path + ".key").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);

    server = OpenMailServer(path.c_str());
    m = OpenMailbox(server, "alice@a.example");
    ASSERT_TRUE(GetMailboxPassword(m, pw, &(size = sizeof pw)));
    EXPECT_EQ(std::string(pw), secret) << "read back after reopening";
    CloseMailbox(m);
    // Another key cannot open it.
    std::ofstream(path + ".key", std::ios::binary | std::ios::trunc) << std::string(32, 'k');
    m = OpenMailbox(server, "alice@a.example");
    EXPECT_FALSE(GetMailboxPassword(m, pw, &(size = sizeof pw)));
    EXPECT_EQ(GetLastError(), VB_ERROR_MAILBOX_PASSWORD_SEALED);
    CloseMailbox(m);
}

struct ScannerRow {
    const char* label;
    int serverPolicy; // -1: not set
    int domainPolicy;
    uint32_t mailboxChoice;
    uint32_t effective;
};
static void PrintTo(const ScannerRow& row, std::ostream* os) { *os << '"' << row.label << '"'; }


class EffectiveScanner : public Objects, public ::testing::WithParamInterface<ScannerRow> {};

TEST_P(EffectiveScanner, FollowsTheDocumentedRule)
{
    const ScannerRow row = GetParam();
    ASSERT_TRUE(CreateMailbox(server, "m@a.example"));
    if (row.serverPolicy >= 0) {
        ASSERT_TRUE(setNumber(nullptr, "SpamScannerType", uint32_t(row.serverPolicy)));
    }
    if (row.domainPolicy >= 0) {
        _tDomain* d = OpenDomain(server, "a.example");
        uint32_t v = uint32_t(row.domainPolicy);
        ASSERT_TRUE(SetDomainProperty(d, VB_TYPE_DWORD, "SpamScannerType", &v, 4));
        CloseDomain(d);
    }
    _tMailbox* m = OpenMailbox(server, "m@a.example");
    ASSERT_TRUE(setMailboxNumber(m, "SpamScannerType", row.mailboxChoice));
    EXPECT_EQ(mailboxNumber(m, "SpamScannerTypeEffective"), row.effective) << row.label;
    EXPECT_EQ(mailboxNumber(m, "VirusScannerTypeEffective"), 0u) << "other scanners are not affected";
    EXPECT_FALSE(setMailboxNumber(m, "SpamScannerTypeEffective", 1)) << "computed values are read-only";
    CloseMailbox(m);
}

INSTANTIATE_TEST_SUITE_P(Rows, EffectiveScanner,
                         ::testing::Values(ScannerRow{"nothing forces: choice on", -1, -1, 1, 1},
                                           ScannerRow{"nothing forces: choice off", 0, 0, 0, 0},
                                           ScannerRow{"domain forces on", -1, 1, 0, 1},
                                           ScannerRow{"domain forces off", -1, 2, 1, 0},
                                           ScannerRow{"server forces off over domain on", 2, 1, 1, 0},
                                           ScannerRow{"server forces on", 1, 0, 0, 1},
                                           ScannerRow{"unknown policy value leaves the choice", 7, -1, 1, 1}),
                         RowName());

TEST_F(Objects, MailboxListsAliasesAndCounters)
{
    ASSERT_TRUE(CreateMailbox(server, "bob@b.example"));
    _tMailbox* m = OpenMailbox(server, "BOB@B.example");
    ASSERT_NE(m, nullptr);
    ASSERT_TRUE(AddToMailboxListProperty(m, "Whitelist", "friend@x.example"));
    ASSERT_TRUE(AddToMailboxListProperty(m, "Whitelist", "pal@x.example"));
    ASSERT_TRUE(RemoveFromMailboxListProperty(m, "Whitelist", "FRIEND@x.example"));
    char buffer[256];
    uint32_t size = sizeof buffer;
    ASSERT_TRUE(GetMailboxProperty(m, "Whitelist", buffer, &size, nullptr));
    EXPECT_EQ(splitMulti(buffer, size), std::vector<std::string>{"pal@x.example"});
    EXPECT_EQ(mailboxNumber(m, "RCPTCommands"), 0u) << "counters read 0 before anything is counted";
    ASSERT_TRUE(setMailboxNumber(m, "SMTPBytesSent", 4096));
    CloseMailbox(m);
    m = OpenMailbox(server, "bob@b.example");
    EXPECT_EQ(mailboxNumber(m, "smtpbytessent"), 4096u);
    size = sizeof buffer;
    ASSERT_TRUE(GetMailboxProperty(m, "Whitelist", buffer, &size, nullptr)) << "lists come with the single read";
    EXPECT_EQ(splitMulti(buffer, size), std::vector<std::string>{"pal@x.example"});

    ASSERT_TRUE(CreateMailboxAlias(m, "robert"));
    ASSERT_TRUE(CreateMailboxAlias(m, "bobby"));
    EXPECT_FALSE(CreateMailboxAlias(m, "ROBERT"));
    EXPECT_EQ(GetLastError(), VB_ERROR_ALREADY_EXISTS);
    EXPECT_FALSE(CreateMailbox(server, "robert@b.example")) << "an alias name is taken";
    ASSERT_TRUE(GetMailboxAliasNames(m, buffer, &(size = sizeof buffer)));
    EXPECT_EQ(splitMulti(buffer, size), (std::vector<std::string>{"bobby", "robert"}));
    char principal[64];
    ASSERT_TRUE(GetAliasPrincipalName(server, "Robert@b.example", principal, sizeof principal));
    EXPECT_STREQ(principal, "bob@b.example");
    ASSERT_TRUE(GetDomainAliasNames(server, "b.example", buffer, &(size = sizeof buffer)));
    EXPECT_EQ(splitMulti(buffer, size).size(), 2u);
    ASSERT_TRUE(DestroyMailboxAlias(m, "bobby"));
    EXPECT_FALSE(GetAliasPrincipalName(server, "bobby@b.example", principal, sizeof principal));
    _tMailboxPluginInfo info{};
    info.cbSize = sizeof info;
    ASSERT_EQ(sizeof info, 40u);
    ASSERT_TRUE(GetMailboxPluginInfo(m, &info));
    EXPECT_EQ(info.kind, 0u);
    uint32_t one = 1;
    ASSERT_TRUE(SetMailboxProperty(m, VB_TYPE_DWORD, "CalendarType", &one, 4));
    CloseMailbox(m);
    uint32_t count = 0;
    ASSERT_TRUE(GetCalendaringMailboxCount(server, &count));
    EXPECT_EQ(count, 1u);
    ASSERT_TRUE(CountCalendaringMailboxesInDomain(server, "a.example", &count));
    EXPECT_EQ(count, 0u);
}

TEST_F(Objects, SynonymsAndAddressBinding)
{
    ASSERT_TRUE(CreateDomainSynonym(server, "a.example", "mail.a.example"));
    EXPECT_FALSE(CreateDomainSynonym(server, "a.example", "b.example")) << "a domain is not a synonym";
    EXPECT_FALSE(CreateDomain(server, "MAIL.a.example")) << "a synonym is not a domain";
    _tDomainEnum* e = StartDomainSynonymEnumeration(server, "a.example");
    char name[64];
    uint32_t size = sizeof name;
    ASSERT_TRUE(FindNextDomain(e, name, &size));
    EXPECT_STREQ(name, "mail.a.example");
    CloseDomainEnumeration(e);
    ASSERT_TRUE(ConvertDomainSynonym(server, "mail.a.example"));
    _tDomain* converted = OpenDomain(server, "mail.a.example");
    EXPECT_NE(converted, nullptr);
    CloseDomain(converted);
    EXPECT_FALSE(DestroyDomainSynonym(server, "mail.a.example"));

    _tDomain* d = OpenDomain(server, "b.example");
    const char ip[] = "192.0.2.5";
    ASSERT_TRUE(SetDomainProperty(d, VB_TYPE_STRING, "IpAddress", ip, sizeof ip));
    CloseDomain(d);
    ASSERT_TRUE(GetDomainFromAddress(server, "192.0.2.5", name, sizeof name));
    EXPECT_STREQ(name, "b.example");
    EXPECT_FALSE(GetDomainFromAddress(server, "192.0.2.6", name, sizeof name));
    EXPECT_EQ(GetLastError(), VB_ERROR_FILE_NOT_FOUND);
}

TEST_F(Objects, MailingListsMembersAndMembership)
{
    ASSERT_TRUE(CreateMailingList(server, "staff", "a.example"));
    EXPECT_FALSE(CreateMailingList(server, "STAFF", "a.example"));
    _tMailingList* l = OpenMailingList(server, "staff", "a.example");
    ASSERT_NE(l, nullptr);
    ASSERT_TRUE(AddMailingListMember(l, "zed@x.example"));
    ASSERT_TRUE(AddMailingListMember(l, "\"Smith, J\"@x.example"));
    EXPECT_FALSE(AddMailingListMember(l, "ZED@x.example"));
    const char yes[] = "moderator";
    ASSERT_TRUE(SetMailingListMemberProperty(l, "zed@x.example", VB_TYPE_STRING, "Role", yes, sizeof yes));
    char buffer[64];
    uint32_t size = sizeof buffer;
    ASSERT_TRUE(GetMailingListMemberProperty(l, "ZED@x.example", "role", buffer, &size, nullptr));
    EXPECT_STREQ(buffer, "moderator");
    _tMemberEnum* e = StartMailingListMemberEnumeration(l);
    std::vector<std::string> members;
    while (FindNextMailingListMember(e, buffer, &(size = sizeof buffer)))
        members.emplace_back(buffer);
    CloseMailingListMemberEnumeration(e);
    EXPECT_EQ(members, (std::vector<std::string>{"zed@x.example", "\"Smith, J\"@x.example"})) << "order added";
    ASSERT_TRUE(RemoveMailingListMember(l, "zed@x.example"));
    EXPECT_FALSE(GetMailingListMemberProperty(l, "zed@x.example", "Role", buffer, &(size = sizeof buffer), nullptr));

    _tMembershipConfig* c = LoadMailingListMembershipConfiguration(l);
    ASSERT_NE(c, nullptr);
    EXPECT_FALSE(ChangedMailingListMembershipConfiguration(c));
    ASSERT_TRUE(EditMailingListMembershipConfiguration(c, "JoinPolicy", "open"));
    EXPECT_TRUE(ChangedMailingListMembershipConfiguration(c));
    ASSERT_TRUE(SaveMailingListMembershipConfiguration(l, c));
    EXPECT_FALSE(ChangedMailingListMembershipConfiguration(c));
    FreeMailingListMembershipConfiguration(c);
    c = LoadMailingListMembershipConfiguration(l);
    ASSERT_TRUE(EditMailingListMembershipConfiguration(c, "joinpolicy", "open"));
    EXPECT_FALSE(ChangedMailingListMembershipConfiguration(c)) << "the same value is no change";
    ASSERT_TRUE(EditMailingListMembershipConfiguration(c, "JoinPolicy", nullptr));
    EXPECT_TRUE(ChangedMailingListMembershipConfiguration(c));
    ASSERT_TRUE(SaveMailingListMembershipConfiguration(l, c));
    FreeMailingListMembershipConfiguration(c);
    _tMailingListPluginInfo info{};
    info.cbSize = sizeof info;
    ASSERT_EQ(sizeof info, 40u);
    ASSERT_TRUE(GetMailingListPluginInfo(l, &info));
    EXPECT_EQ(info.kind, 1u);
    CloseMailingList(l);
    uint32_t count = 0;
    ASSERT_TRUE(CountMailingListsInDomain(server, "a.example", &count));
    EXPECT_EQ(count, 1u);
    ASSERT_TRUE(GetMailingListCount(server, &count));
    EXPECT_EQ(count, 1u);
}

TEST_F(Objects, FaultsReachObjectOperations)
{
    ASSERT_TRUE(VbInjectFault(server, "OpenDomain", nullptr, "b.example", VB_ERROR_BUSY, 1));
    EXPECT_EQ(OpenDomain(server, "b.example"), nullptr);
    EXPECT_EQ(GetLastError(), VB_ERROR_BUSY);
    _tDomain* d = OpenDomain(server, "b.example");
    ASSERT_NE(d, nullptr);
    ASSERT_TRUE(VbInjectFault(server, "SetDomainProperty", nullptr, "QuotaLimit", VB_ERROR_ACCESS_DENIED, 1));
    uint32_t v = 10;
    EXPECT_FALSE(SetDomainProperty(d, VB_TYPE_DWORD, "QuotaLimit", &v, 4));
    EXPECT_EQ(domainNumber(d, "QuotaLimit"), 0xDEADu) << "a failed write leaves the snapshot alone";
    ASSERT_TRUE(VbForceMoreData(server, nullptr, "MailboxCount", 1));
    uint32_t size = 4;
    EXPECT_FALSE(GetDomainProperty(d, "MailboxCount", &v, &size, nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    CloseDomain(d);
}

TEST_F(Objects, WrappersAndDependencies)
{
    ASSERT_TRUE(CreateMailbox(server, "carol@b.example"));
    CDomain domain;
    ASSERT_TRUE(domain.Open(server, "b.example"));
    unsigned long count = 0;
    ASSERT_TRUE(domain.GetProperty("MailboxCount", &count));
    EXPECT_EQ(count, 1ul);
    EXPECT_TRUE(domain.Close());
    CMailbox mailbox;
    ASSERT_TRUE(mailbox.Open(server, "carol", "b.example"));
    EXPECT_NE(static_cast<_tMailbox*>(mailbox), nullptr);
    EXPECT_TRUE(mailbox.Close());

    CMailServer wrapped;
    wrapped.Wrap(server);
    CDomainStoreDependancy dependency;
    EXPECT_TRUE(dependency.Term()) << "never initialised: nothing to do";
    ASSERT_TRUE(dependency.Init(wrapped));
    CDomainStoreDependancy copy(dependency);
    EXPECT_TRUE(copy.IsInitialised()) << "a copy carries the flag";
    EXPECT_TRUE(dependency.Term());
    EXPECT_FALSE(dependency.IsInitialised());
    CMailboxStoreDependancy mailboxes;
    ASSERT_TRUE(VbInjectFault(server, "InitMailboxStore", nullptr, nullptr, VB_ERROR_BUSY, 1));
    EXPECT_FALSE(mailboxes.Init(wrapped));
    EXPECT_FALSE(mailboxes.IsInitialised());
    EXPECT_TRUE(mailboxes.Init(wrapped));
    EXPECT_TRUE(mailboxes.Term());
    EXPECT_TRUE(copy.Term());
}

// A dependency whose work is scripted: counts each call and answers what it is told.
class CountingDependancy : public CDependancy<CMailServer> {
public:
    bool initAnswer = true;
    bool termAnswer = true;
    int inits = 0, terms = 0, reports = 0;
    void ReportInitError(CMailServer&) override { ++reports; }
    bool DoInitWork(CMailServer&) override { ++inits; return initAnswer; }
    bool DoTermWork() override { ++terms; return termAnswer; }
};

TEST(Dependancy, InitAndTermCallTheirWorkOnlyWhenNeeded)
{
    CMailServer server;
    CountingDependancy d;
    EXPECT_TRUE(d.Term());
    EXPECT_EQ(d.terms, 0) << "never initialised: no terminating work";

    d.initAnswer = false;
    EXPECT_FALSE(d.Init(server));
    EXPECT_EQ(d.reports, 1) << "a failed Init reports it";
    EXPECT_FALSE(d.IsInitialised());

    d.initAnswer = true;
    EXPECT_TRUE(d.Init(server));
    EXPECT_TRUE(d.Init(server));
    EXPECT_EQ(d.inits, 2) << "the second successful Init did no work again";
    EXPECT_EQ(d.reports, 1);

    d.termAnswer = false;
    EXPECT_FALSE(d.Term());
    EXPECT_TRUE(d.IsInitialised()) << "a failed Term stays initialised";
    d.termAnswer = true;
    EXPECT_TRUE(d.Term());
    EXPECT_FALSE(d.IsInitialised());
    EXPECT_EQ(d.terms, 2);
}

TEST_F(Objects, DialupAndRetries)
{
    uint32_t status = 9;
    ASSERT_TRUE(GetDialupStatus(server, &status));
    EXPECT_EQ(status, VB_DIALUP_DISCONNECTED);
    EXPECT_FALSE(DialupAction(server, VB_DIALUP_CONNECT)) << "dial-up is off";
    ASSERT_TRUE(setNumber(nullptr, "DialupEnabled", 1));
    ASSERT_TRUE(DialupAction(server, VB_DIALUP_CONNECT));
    ASSERT_TRUE(GetDialupStatus(server, &status));
    EXPECT_EQ(status, VB_DIALUP_CONNECTED);

    const char* names[] = {"a.example", "mx.partner.example", "", "never.example"};
    ASSERT_TRUE(InitiateRetry(server, names, 4));
    const char* more[] = {"b.example", nullptr};
    ASSERT_TRUE(InitiateRetry(server, more, 5));
    char buffer[256];
    uint32_t size = sizeof buffer;
    ASSERT_TRUE(GetPendingRetries(server, buffer, &size));
    EXPECT_EQ(splitMulti(buffer, size),
              (std::vector<std::string>{"a.example", "mx.partner.example", "b.example"}));
}

TEST_F(Objects, DemoConfigurationBuildsDomainsMailboxesAndLists)
{
    ASSERT_TRUE(VbSeedDemoConfiguration(server)) << GetLastError();
    uint32_t count = 0;
    ASSERT_TRUE(GetMailboxCount(server, &count));
    EXPECT_GE(count, 8u);
    ASSERT_TRUE(GetMailingListCount(server, &count));
    EXPECT_EQ(count, 7u) << "a list per domain, news and news-digest, announce, newsletter";
    _tMailingList* big = OpenMailingList(server, "newsletter", "brennoway.example");
    ASSERT_NE(big, nullptr);
    uint32_t members = 0;
    auto row = [](void* c, const char*, const char* v) -> int { return *v ? int(++*static_cast<uint32_t*>(c)) : 0; };
    ASSERT_TRUE(ReadMailingListMembers(big, "FullName", row, &members)) << "every member has a name";
    EXPECT_EQ(members, 100000u);
    CloseMailingList(big);
    _tManualRoute* routes = nullptr;
    ASSERT_TRUE(LoadManualRoutes(server, &routes));
    EXPECT_NE(routes, nullptr);
    FreeManualRoutes(routes);
    char name[64];
    ASSERT_TRUE(GetDefaultDomainName(server, name, sizeof name));
    EXPECT_STREQ(name, "brennoway.example");
    ASSERT_TRUE(VbSeedDemoConfiguration(server)) << "a second seed keeps what exists: " << GetLastError();
    ASSERT_TRUE(GetMailboxCount(server, &count));
    EXPECT_GE(count, 8u);
    ASSERT_TRUE(GetMailingListCount(server, &count));
    EXPECT_EQ(count, 7u);
}

// The roster read and the bulk add: all or nothing, the member at fault named, cancellable.
TEST_F(Objects, MailingListRosterAndBulkAdd)
{
    ASSERT_TRUE(CreateMailingList(server, "news", "a.example"));
    ASSERT_TRUE(CreateMailingList(server, "alpha", "a.example"));
    char names[64];
    uint32_t size = sizeof names;
    ASSERT_TRUE(GetMailingListNames(server, "a.example", names, &size));
    EXPECT_EQ(std::string(names, size), std::string("alpha\0news\0\0", 12));
    _tMailingList* l = OpenMailingList(server, "news", "a.example");
    ASSERT_NE(l, nullptr);
    ASSERT_TRUE(AddMailingListMember(l, "old@x.example"));

    const char* addresses[] = {"a@x.example", "b@x.example", "OLD@x.example"};
    const char* values[] = {"Ann", nullptr, "Old"};
    uint32_t failed = 99;
    EXPECT_FALSE(AddMailingListMembers(l, "FullName", addresses, values, 3, nullptr, nullptr, &failed));
    EXPECT_EQ(GetLastError(), VB_ERROR_ALREADY_EXISTS);
    EXPECT_EQ(failed, 2u) << "the member already on the list";
    auto cancelAtOnce = [](void*, uint32_t, uint32_t) -> int { return 0; };
    EXPECT_FALSE(AddMailingListMembers(l, "FullName", addresses, values, 2, cancelAtOnce, nullptr, &failed));
    EXPECT_EQ(GetLastError(), VB_ERROR_CANCELLED);
    ASSERT_TRUE(AddMailingListMembers(l, "FullName", addresses, values, 2, nullptr, nullptr, &failed));

    std::vector<std::string> rows;
    auto row = [](void* c, const char* a, const char* v) -> int {
        static_cast<std::vector<std::string>*>(c)->push_back(std::string(a) + "=" + v);
        return 1;
    };
    ASSERT_TRUE(ReadMailingListMembers(l, "fullname", row, &rows));
    EXPECT_EQ(rows, (std::vector<std::string>{"old@x.example=", "a@x.example=Ann", "b@x.example="}))
        << "nothing of the failed or cancelled adds, in the order added";
    const char* gone[] = {"A@x.example", "nobody@x.example"};
    EXPECT_FALSE(RemoveMailingListMembers(l, gone, 2, &failed));
    EXPECT_EQ(GetLastError(), VB_ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(failed, 1u);
    ASSERT_TRUE(RemoveMailingListMembers(l, gone, 1, &failed));
    rows.clear();
    ASSERT_TRUE(ReadMailingListMembers(l, "fullname", row, &rows));
    EXPECT_EQ(rows, (std::vector<std::string>{"old@x.example=", "b@x.example="})) << "a failed removal removes nothing";
    auto stop = [](void*, const char*, const char*) -> int { return 0; };
    EXPECT_FALSE(ReadMailingListMembers(l, "FullName", stop, nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_CANCELLED);

    // A list without a roster names its membership rules as its configuration.
    const uint32_t two = 2;
    ASSERT_TRUE(SetMailingListProperty(l, VB_TYPE_DWORD, "ListKind", &two, 4));
    CloseMailingList(l);
    l = OpenMailingList(server, "news", "a.example");
    _tMailingListPluginInfo info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetMailingListPluginInfo(l, &info));
    EXPECT_EQ(info.kind, 2u);
    EXPECT_EQ(info.configTemplate, VB_LIST_MEMBERSHIP_TEMPLATE);
    _tMembershipConfig* c = LoadMailingListMembershipConfiguration(l);
    ASSERT_TRUE(EditMailingListMembershipConfiguration(c, "Domains", "a.example"));
    ASSERT_TRUE(EditMailingListMembershipConfiguration(c, "Empty", ""));
    size = sizeof names;
    ASSERT_TRUE(GetMailingListMembershipRules(c, names, &size));
    EXPECT_EQ(std::string(names, size), std::string("Domains\0a.example\0\0", 19)) << "an empty rule is left out";
    FreeMailingListMembershipConfiguration(c);
    CloseMailingList(l);
}
