// Mail services, fault injection and the route and alias tables.
#include "StoreFixture.h"

#include <thread>

#include "velbrook/DomainStore.h"
#include "velbrook/StoreTesting.h"

using Services = StoreTest;
using Faults = StoreTest;
using Tables = StoreTest;

static uint32_t stateOf(_tMailServer* s, const char* name)
{
    uint32_t state = 0;
    return GetMailServiceStatus(s, name, &state) ? state : 0;
}

TEST_F(Services, ListAndInstalled)
{
    ASSERT_TRUE(VbRegisterMailService(server, "SMTPRA", "SMTP Receiver", "builtin", nullptr, VB_SERVICE_RUNNING));
    ASSERT_TRUE(VbRegisterMailService(server, "POP3", "POP3 Server", "builtin", nullptr, VB_SERVICE_STOPPED));
    EXPECT_FALSE(VbRegisterMailService(server, "X", nullptr, "init.d", nullptr, 1)) << "unknown controller";
    char buffer[64];
    uint32_t size = sizeof buffer;
    ASSERT_TRUE(GetMailServiceList(server, buffer, &size));
    EXPECT_EQ(splitMulti(buffer, size), (std::vector<std::string>{"SMTPRA", "POP3"})) << "in installation order";
    EXPECT_TRUE(IsMailServiceInstalled(server, "smtpra"));
    EXPECT_FALSE(IsMailServiceInstalled(server, "IMAP4"));
    EXPECT_EQ(GetLastError(), VB_ERROR_SERVICE_DOES_NOT_EXIST);
    EXPECT_EQ(text("pop3", "DisplayName"), "POP3 Server");
    uint32_t state = 0;
    EXPECT_FALSE(GetMailServiceStatus(server, "IMAP4", &state));
    EXPECT_EQ(GetLastError(), VB_ERROR_SERVICE_DOES_NOT_EXIST);
}

// A start is seen as "start pending" by a dialog that re-reads 250 ms later, then completes.
TEST_F(Services, BuiltinStartAndStopPassThroughPending)
{
    ASSERT_TRUE(VbRegisterMailService(server, "SMTPRA", nullptr, "builtin", nullptr, VB_SERVICE_STOPPED));
    ASSERT_TRUE(setNumber("SMTPRA", "PendingMilliseconds", 600));
    EXPECT_FALSE(StopMailService(server, "SMTPRA"));
    EXPECT_EQ(GetLastError(), VB_ERROR_SERVICE_NOT_ACTIVE);

    ASSERT_TRUE(StartMailService(server, "SMTPRA"));
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
    EXPECT_EQ(stateOf(server, "SMTPRA"), VB_SERVICE_START_PENDING);
    EXPECT_FALSE(StartMailService(server, "SMTPRA"));
    EXPECT_EQ(GetLastError(), VB_ERROR_SERVICE_ALREADY_RUNNING);
    EXPECT_FALSE(StopMailService(server, "SMTPRA")) << "a pending start cannot be stopped";
    EXPECT_EQ(GetLastError(), VB_ERROR_SERVICE_CANNOT_ACCEPT_CTRL);
    std::this_thread::sleep_for(std::chrono::milliseconds(450));
    EXPECT_EQ(stateOf(server, "SMTPRA"), VB_SERVICE_RUNNING);

    // Another handle on the same store sees the same state.
    _tMailServer* other = OpenMailServer(path.c_str());
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(stateOf(other, "SMTPRA"), VB_SERVICE_RUNNING);
    CloseMailServer(other);

    ASSERT_TRUE(setNumber("SMTPRA", "PendingMilliseconds", 0));
    ASSERT_TRUE(StopMailService(server, "SMTPRA"));
    EXPECT_EQ(stateOf(server, "SMTPRA"), VB_SERVICE_STOPPED) << "no pending time: done at once";
}

TEST_F(Services, SystemdUnitThatDoesNotExist)
{
    ASSERT_TRUE(VbRegisterMailService(server, "Ghost", "Ghost", "systemd", "velbrook-no-such-unit.service", 1));
    uint32_t state = 0;
    EXPECT_FALSE(GetMailServiceStatus(server, "Ghost", &state)) << "no systemd, or no such unit, is a failure";
    EXPECT_NE(GetLastError(), 0u);
}

// ---- fault injection --------------------------------------------------------------------------------

TEST_F(Faults, ChosenOperationAndPropertyFailWithTheChosenCode)
{
    ASSERT_TRUE(setText(nullptr, "MailSpoolDir", "/old"));
    ASSERT_TRUE(VbInjectFault(server, "SetMailServerProperty", nullptr, "mailspooldir", VB_ERROR_ACCESS_DENIED, 1));
    EXPECT_FALSE(setText(nullptr, "MailSpoolDir", "/new"));
    EXPECT_EQ(GetLastError(), VB_ERROR_ACCESS_DENIED);
    EXPECT_EQ(text(nullptr, "MailSpoolDir"), "/old") << "a failed write changes nothing";
    EXPECT_TRUE(setNumber(nullptr, "Other", 1)) << "other properties are untouched";
    EXPECT_TRUE(setText(nullptr, "MailSpoolDir", "/new")) << "the fault was spent";

    ASSERT_TRUE(VbInjectFault(server, "GetMailServerProperty", "Statistics", nullptr, VB_ERROR_BUSY, 0));
    EXPECT_EQ(number("Statistics", "Enabled"), -int64_t(VB_ERROR_BUSY));
    EXPECT_EQ(number("Statistics", "Other"), -int64_t(VB_ERROR_BUSY)) << "a null name matches any";
    EXPECT_EQ(number("Statistics", "Enabled"), -int64_t(VB_ERROR_BUSY)) << "times 0: every call";
    VbClearFaults(server);
    EXPECT_EQ(number("Statistics", "Enabled"), -int64_t(VB_ERROR_FILE_NOT_FOUND));
}

// Each failed write is remembered on the handle until taken, with its object, property and code.
TEST_F(Faults, FailedWritesAreRememberedUntilTaken)
{
    ASSERT_TRUE(CreateDomain(server, "a.example"));
    ASSERT_TRUE(VbInjectFault(server, "SetMailServerProperty", nullptr, "MailSpoolDir", VB_ERROR_DISK_FULL, 1));
    ASSERT_TRUE(VbInjectFault(server, "SetDomainProperty", nullptr, "Quota", VB_ERROR_BUSY, 1));
    EXPECT_FALSE(setText(nullptr, "MailSpoolDir", "/new"));
    EXPECT_TRUE(setText(nullptr, "MailSpoolDir", "/new")) << "a write that succeeds is not remembered";
    EXPECT_FALSE(AddToMailServerListProperty(server, "SMTPRA", "", "x")) << "an invalid call counts too";
    _tDomain* d = OpenDomain(server, "a.example");
    uint32_t quota = 5;
    EXPECT_FALSE(SetDomainProperty(d, VB_TYPE_DWORD, "Quota", &quota, 4));
    EXPECT_EQ(GetLastError(), VB_ERROR_BUSY) << "remembering keeps the caller's last error";
    CloseDomain(d);

    uint32_t count = 0;
    ASSERT_TRUE(TakeFailedMailServerWrites(server, nullptr, &count));
    EXPECT_EQ(count, 3u) << "counting forgets nothing";
    _tFailedWrite failed[2];
    ASSERT_TRUE(TakeFailedMailServerWrites(server, failed, &(count = 2)));
    ASSERT_EQ(count, 2u);
    EXPECT_EQ(std::string(failed[0].name) + "/" + std::to_string(failed[0].error), "MailSpoolDir/112");
    EXPECT_EQ(std::string(failed[1].section) + "/" + failed[1].name, "SMTPRA/");
    ASSERT_TRUE(TakeFailedMailServerWrites(server, failed, &(count = 2)));
    ASSERT_EQ(count, 1u);
    EXPECT_EQ(std::string(failed[0].object) + "/" + failed[0].name + "/" + std::to_string(failed[0].error),
              "a.example/Quota/170");
    ASSERT_TRUE(TakeFailedMailServerWrites(server, failed, &(count = 2)));
    EXPECT_EQ(count, 0u) << "taken writes are forgotten";
}

TEST_F(Faults, ForcedMoreDataReportsTheRealSize)
{
    ASSERT_TRUE(setText(nullptr, "RetrySchedule", "10:F,10:T,100:F"));
    ASSERT_TRUE(VbForceMoreData(server, nullptr, "RetrySchedule", 1));
    char buffer[4096];
    uint32_t size = sizeof buffer;
    EXPECT_FALSE(GetMailServerProperty(server, nullptr, "RetrySchedule", buffer, &size, nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_MORE_DATA);
    EXPECT_EQ(size, 16u);
    size += 10;
    EXPECT_TRUE(GetMailServerProperty(server, nullptr, "RetrySchedule", buffer, &size, nullptr));
    EXPECT_STREQ(buffer, "10:F,10:T,100:F");
}

TEST_F(Faults, ConnectorInfoOverrideAndCallCounts)
{
    _tConfigConnectorInfo clustered{20, 1, 1, 0, 1};
    ASSERT_TRUE(VbOverrideConnectorInfo(server, &clustered));
    _tConfigConnectorInfo info{20, 0, 0, 0, 0};
    ASSERT_TRUE(GetConfigConnectorInfo(server, &info));
    EXPECT_EQ(info.connectorType, 1u);
    EXPECT_EQ(info.clustered, 1u);
    ASSERT_TRUE(VbOverrideConnectorInfo(server, nullptr));
    ASSERT_TRUE(GetConfigConnectorInfo(server, &info));
    EXPECT_EQ(info.clustered, 0u);

    VbClearFaults(server);
    EXPECT_EQ(VbCallCount(server, "SetMailServerProperty"), 0u);
    setNumber(nullptr, "A", 1);
    setNumber(nullptr, "B", 2);
    text(nullptr, "A");
    EXPECT_EQ(VbCallCount(server, "setmailserverproperty"), 2u);
    EXPECT_EQ(VbCallCount(server, "GetMailServerProperty"), 1u);
    EXPECT_EQ(VbCallCount(server, "StartMailService"), 0u);
}

TEST_F(Faults, ServiceOperationsCanFail)
{
    ASSERT_TRUE(VbRegisterMailService(server, "SMTPRA", nullptr, "builtin", nullptr, VB_SERVICE_STOPPED));
    ASSERT_TRUE(VbInjectFault(server, "StartMailService", nullptr, "SMTPRA", VB_ERROR_ACCESS_DENIED, 1));
    EXPECT_FALSE(StartMailService(server, "SMTPRA"));
    EXPECT_EQ(GetLastError(), VB_ERROR_ACCESS_DENIED);
    EXPECT_EQ(stateOf(server, "SMTPRA"), VB_SERVICE_STOPPED);
    ASSERT_TRUE(VbInjectFault(server, "GetMailServiceStatus", nullptr, nullptr, VB_ERROR_BUSY, 1));
    EXPECT_EQ(stateOf(server, "SMTPRA"), 0u);
}

// ---- routes and alias mapping ------------------------------------------------------------------------

TEST_F(Tables, RoutesRoundTripInOrder)
{
    _tManualRoute* a = AllocManualRoute("*.b.example", VB_ROUTE_FORCE);
    _tManualRoute* b = AllocManualRoute("a.example", VB_ROUTE_ADDITIONAL);
    _tManualRoute* c = AllocManualRoute("*", VB_ROUTE_DEFAULT);
    ASSERT_TRUE(a && b && c);
    a->next = b;
    b->next = c;
    a->hosts = AllocManualRouteMx("mx1.b.example", 0, 10);
    a->hosts->next = AllocManualRouteMx("mx2.b.example", 2525, 20);
    c->hosts = AllocManualRouteMx("smart'host\".example", 587, 65535);
    EXPECT_EQ(AllocManualRouteMx(std::string(257, 'h').c_str(), 0, 0), nullptr) << "host over 256 characters";
    EXPECT_EQ(AllocManualRouteMx("h", 65536, 0), nullptr);
    ASSERT_TRUE(SaveManualRoutes(server, a));
    FreeManualRoutes(a);

    _tManualRoute* loaded = nullptr;
    ASSERT_TRUE(LoadManualRoutes(server, &loaded));
    std::vector<std::string> seen;
    for (_tManualRoute* r = loaded; r; r = r->next) {
        std::string row = std::string(r->domainMask) + "/" + std::to_string(r->rule);
        for (_tManualRouteMx* h = r->hosts; h; h = h->next)
            row += " " + std::string(h->host) + ":" + std::to_string(h->port) + ":" + std::to_string(h->preference);
        seen.push_back(row);
    }
    FreeManualRoutes(loaded);
    EXPECT_EQ(seen, (std::vector<std::string>{"*.b.example/1 mx1.b.example:0:10 mx2.b.example:2525:20",
                                              "a.example/0", "*/2 smart'host\".example:587:65535"}));

    // A failed save leaves the old table whole.
    ASSERT_TRUE(VbInjectFault(server, "SaveManualRoutes", nullptr, nullptr, VB_ERROR_DISK_FULL, 1));
    _tManualRoute* lone = AllocManualRoute("x", 0);
    EXPECT_FALSE(SaveManualRoutes(server, lone));
    ASSERT_TRUE(LoadManualRoutes(server, &loaded));
    int count = 0;
    for (_tManualRoute* r = loaded; r; r = r->next)
        ++count;
    EXPECT_EQ(count, 3);
    FreeManualRoutes(loaded);
    // Saving an empty table clears it.
    ASSERT_TRUE(SaveManualRoutes(server, nullptr));
    ASSERT_TRUE(LoadManualRoutes(server, &loaded));
    EXPECT_EQ(loaded, nullptr);
    FreeManualRoutes(lone);
}

TEST_F(Tables, AliasMappingRoundTrip)
{
    _tAliasMapping* first = AllocAliasMapping("postmaster", "admin@a.example");
    first->next = AllocAliasMapping("old.example", "new.example");
    ASSERT_TRUE(SaveAliasMapping(server, first));
    FreeAliasMapping(first);
    _tAliasMapping* loaded = nullptr;
    ASSERT_TRUE(LoadAliasMapping(server, &loaded));
    ASSERT_NE(loaded, nullptr);
    EXPECT_STREQ(loaded->alias, "postmaster");
    ASSERT_NE(loaded->next, nullptr);
    EXPECT_STREQ(loaded->next->target, "new.example");
    EXPECT_EQ(loaded->next->next, nullptr);
    FreeAliasMapping(loaded);
}
