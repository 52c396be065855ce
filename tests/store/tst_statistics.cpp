// Server statistics and the large demonstration domain, on real stores.
#include "StoreFixture.h"

#include "velbrook/DemoConfiguration.h"
#include "velbrook/DomainStore.h"
#include "velbrook/ListStore.h"
#include "velbrook/MailboxStore.h"
#include "velbrook/ServerStatistics.h"
#include "velbrook/StoreTesting.h"

namespace {

const char* const kCounters[7] = {"RCPTCommands", "SMTPBytesReceived", "SMTPBytesSent", "IMAPBytesSent",
                                  "IMAPBytesReceived", "POPBytesSent", "POPBytesReceived"};
constexpr uint32_t kDefault = 0xFFFFFFFFu; // "pass the choice to the next level"; also "not written" below

class Statistics : public StoreTest {
protected:
    void addDomain(const char* name, uint32_t limit = kDefault, uint32_t trigger = kDefault)
    {
        ASSERT_TRUE(CreateDomain(server, name)) << GetLastError();
        _tDomain* d = OpenDomain(server, name);
        ASSERT_NE(d, nullptr);
        const uint32_t unlimited = kDefault;
        EXPECT_TRUE(SetDomainProperty(d, VB_TYPE_DWORD, "MaxMailboxes", &unlimited, 4));
        if (limit != kDefault) {
            EXPECT_TRUE(SetDomainProperty(d, VB_TYPE_DWORD, "QuotaDefaultLimit", &limit, 4));
        }
        if (trigger != kDefault) {
            EXPECT_TRUE(SetDomainProperty(d, VB_TYPE_DWORD, "QuotaDefaultTrigger", &trigger, 4));
        }
        CloseDomain(d);
    }
    // A mailbox with the given size; limit and trigger are written unless kDefault is given for them.
    void addMailbox(const std::string& address, uint32_t sizeKb, uint32_t messages = 0, uint32_t limit = kDefault,
                    uint32_t trigger = kDefault)
    {
        ASSERT_TRUE(CreateMailbox(server, address.c_str())) << address << ": " << GetLastError();
        _tMailbox* m = OpenMailbox(server, address.c_str());
        ASSERT_NE(m, nullptr);
        EXPECT_TRUE(SetMailboxProperty(m, VB_TYPE_DWORD, "QuotaMsgSize", &sizeKb, 4));
        EXPECT_TRUE(SetMailboxProperty(m, VB_TYPE_DWORD, "QuotaNoMsgs", &messages, 4));
        if (limit != kDefault) {
            EXPECT_TRUE(SetMailboxProperty(m, VB_TYPE_DWORD, "QuotaLimit", &limit, 4));
        }
        if (trigger != kDefault) {
            EXPECT_TRUE(SetMailboxProperty(m, VB_TYPE_DWORD, "QuotaTrigger", &trigger, 4));
        }
        CloseMailbox(m);
    }
    std::vector<std::string> largest(uint32_t room)
    {
        std::vector<_tMailboxUsage> rows(room);
        uint32_t count = room;
        EXPECT_TRUE(VbLargestMailboxes(server, rows.data(), &count)) << GetLastError();
        std::vector<std::string> out;
        for (uint32_t i = 0; i < count; ++i)
            out.push_back(std::string(rows[i].address) + " " + std::to_string(rows[i].sizeKb) + "/"
                          + std::to_string(rows[i].messages));
        return out;
    }
};

TEST_F(Statistics, CountsEachKindOfObject)
{
    _tServerObjectCounts counts{9, 9, 9};
    ASSERT_TRUE(VbCountServerObjects(server, &counts));
    EXPECT_EQ(counts.domains + counts.mailboxes + counts.mailingLists, 0u);

    addDomain("a.example");
    addDomain("b.example");
    addMailbox("x@a.example", 1);
    addMailbox("y@a.example", 1);
    addMailbox("x@b.example", 1);
    ASSERT_TRUE(CreateMailingList(server, "staff", "a.example"));
    _tMailingList* l = OpenMailingList(server, "staff", "a.example");
    ASSERT_NE(l, nullptr);
    ASSERT_TRUE(AddMailingListMember(l, "x@a.example")); // members are not lists or mailboxes
    CloseMailingList(l);

    ASSERT_TRUE(VbCountServerObjects(server, &counts));
    EXPECT_EQ(counts.domains, 2u);
    EXPECT_EQ(counts.mailboxes, 3u);
    EXPECT_EQ(counts.mailingLists, 1u);
}

struct QuotaRow {
    const char* label;
    uint32_t serverLimit, serverTrigger, domainLimit, domainTrigger, ownLimit, ownTrigger, size;
    uint64_t limited, over, near;
};

class QuotaRows : public Statistics, public ::testing::WithParamInterface<QuotaRow> {};

TEST_P(QuotaRows, EffectiveLimitDecides)
{
    const QuotaRow& r = GetParam();
    if (r.serverLimit != kDefault) {
        ASSERT_TRUE(setNumber(nullptr, "QuotaDomainDefaultLimit", r.serverLimit));
    }
    if (r.serverTrigger != kDefault) {
        ASSERT_TRUE(setNumber(nullptr, "QuotaDomainDefaultTrigger", r.serverTrigger));
    }
    addDomain("q.example", r.domainLimit, r.domainTrigger);
    addMailbox("m@q.example", r.size, 3, r.ownLimit, r.ownTrigger);
    _tQuotaSummary s{};
    ASSERT_TRUE(VbSummariseQuotas(server, &s)) << GetLastError();
    EXPECT_EQ(s.limited, r.limited);
    EXPECT_EQ(s.overQuota, r.over);
    EXPECT_EQ(s.nearQuota, r.near);
}

constexpr uint32_t D = kDefault;
INSTANTIATE_TEST_SUITE_P(
    Statistics, QuotaRows,
    ::testing::Values(
        QuotaRow{"no limit anywhere", D, D, D, D, D, D, 5000, 0, 0, 0},
        QuotaRow{"server default over", 1000, 800, D, D, D, D, 1500, 1, 1, 0},
        QuotaRow{"exactly at the limit is over", 1000, 800, D, D, D, D, 1000, 1, 1, 0},
        QuotaRow{"warning level reached", 1000, 800, D, D, D, D, 800, 1, 0, 1},
        QuotaRow{"below the warning level", 1000, 800, D, D, D, D, 799, 1, 0, 0},
        QuotaRow{"domain default wins over server", 1000, 800, 5000, 4000, D, D, 1500, 1, 0, 0},
        QuotaRow{"own limit wins over domain", D, D, 5000, 4000, 1000, D, 1500, 1, 1, 0},
        QuotaRow{"own 0 means none", 1000, 800, 1000, 800, 0, D, 99999, 0, 0, 0},
        QuotaRow{"domain 0 means none", 1000, 800, 0, D, D, D, 99999, 0, 0, 0},
        QuotaRow{"own trigger with inherited limit", D, D, 5000, 4000, D, 100, 200, 1, 0, 1},
        QuotaRow{"no trigger no warning", 1000, 0, D, D, D, D, 999, 1, 0, 0}),
    RowName{});

TEST_F(Statistics, TrafficTotalsSumEveryDomain)
{
    addDomain("a.example");
    addDomain("b.example");
    addMailbox("x@a.example", 0);
    addMailbox("y@b.example", 0);
    const uint32_t x[7] = {1, 2, 3, 4, 5, 6, 4000000000u}, y[7] = {10, 20, 30, 40, 50, 60, 4000000000u};
    for (const auto& [address, counters] : {std::pair{"x@a.example", x}, std::pair{"y@b.example", y}}) {
        _tMailbox* m = OpenMailbox(server, address);
        ASSERT_NE(m, nullptr);
        for (int i = 0; i < 7; ++i)
            ASSERT_TRUE(SetMailboxProperty(m, VB_TYPE_DWORD, kCounters[i], &counters[i], 4));
        CloseMailbox(m);
    }
    uint64_t totals[7] = {};
    ASSERT_TRUE(VbTotalTraffic(server, totals));
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(totals[i], uint64_t(x[i]) + y[i]) << i;
    EXPECT_EQ(totals[6], 8000000000ull) << "sums must not wrap at 32 bits";
}

TEST_F(Statistics, LargestMailboxesInOrderWithinTheRoomGiven)
{
    addDomain("a.example");
    addDomain("b.example");
    addMailbox("small@a.example", 10, 1);
    addMailbox("big@b.example", 900, 40);
    addMailbox("tie@b.example", 500, 5);
    addMailbox("tie@a.example", 500, 6);
    addMailbox("empty@a.example", 0, 0);
    EXPECT_EQ(largest(10), (std::vector<std::string>{"big@b.example 900/40", "tie@a.example 500/6",
                                                      "tie@b.example 500/5", "small@a.example 10/1"}));
    EXPECT_EQ(largest(2), (std::vector<std::string>{"big@b.example 900/40", "tie@a.example 500/6"}));
    EXPECT_TRUE(largest(0).empty());
}

TEST_F(Statistics, BadArgumentsAndStoreFailuresAreReported)
{
    _tQuotaSummary s{};
    EXPECT_FALSE(VbSummariseQuotas(nullptr, &s));
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(VbCountServerObjects(server, nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_INVALID_PARAMETER);
    uint32_t count = 5;
    EXPECT_FALSE(VbLargestMailboxes(server, nullptr, &count));
    ASSERT_TRUE(VbInjectFault(server, "VbTotalTraffic", nullptr, nullptr, VB_ERROR_BUSY, 1));
    uint64_t totals[7] = {7, 7, 7, 7, 7, 7, 7};
    EXPECT_FALSE(VbTotalTraffic(server, totals));
    EXPECT_EQ(GetLastError(), VB_ERROR_BUSY);
    EXPECT_EQ(totals[0], 7u) << "a failed call leaves the caller's totals alone";
    EXPECT_TRUE(VbTotalTraffic(server, totals));
}

class LargeDemo : public Statistics {
protected:
    static int countCalls(void* context, uint32_t, uint32_t)
    {
        ++*static_cast<int*>(context);
        return 1;
    }
    static int cancelLate(void*, uint32_t done, uint32_t total) { return done < total / 2 ? 1 : 0; }
    uint32_t mailboxCount(const char* domain)
    {
        uint32_t count = 0;
        EXPECT_TRUE(CountMailboxesInDomain(server, domain, &count)) << GetLastError();
        return count;
    }
};

TEST_F(LargeDemo, BuildsUniqueNamedMailboxesWithSizes)
{
    int calls = 0;
    ASSERT_TRUE(VbSeedLargeDemoDomain(server, "large.example", 25000, countCalls, &calls)) << GetLastError();
    EXPECT_GE(calls, 3) << "progress is reported along the way";
    EXPECT_EQ(mailboxCount("large.example"), 25000u);
    _tDomain* d = OpenDomain(server, "large.example");
    ASSERT_NE(d, nullptr);
    uint32_t stored = 0, size = 4;
    EXPECT_TRUE(GetDomainProperty(d, "MailboxCount", &stored, &size, nullptr));
    EXPECT_EQ(stored, 25000u);
    CloseDomain(d);

    _tMailbox* m = OpenMailbox(server, "anna.adler@large.example");
    ASSERT_NE(m, nullptr);
    char name[64] = {};
    uint32_t nameSize = sizeof name;
    EXPECT_TRUE(GetMailboxProperty(m, "FullName", name, &nameSize, nullptr));
    EXPECT_STREQ(name, "Anna Adler");
    CloseMailbox(m);
    m = OpenMailbox(server, "anna.adler2@large.example"); // the second round of names
    EXPECT_NE(m, nullptr);
    CloseMailbox(m);

    _tQuotaSummary q{};
    ASSERT_TRUE(VbSummariseQuotas(server, &q));
    EXPECT_EQ(q.limited, 25000u);
    EXPECT_GT(q.overQuota, 1000u);
    EXPECT_GT(q.nearQuota, 500u);
    EXPECT_EQ(largest(3).size(), 3u);
}

TEST_F(LargeDemo, CancelOrAnExistingDomainKeepsNothing)
{
    EXPECT_FALSE(VbSeedLargeDemoDomain(server, "large.example", 40000, cancelLate, nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_CANCELLED);
    EXPECT_EQ(OpenDomain(server, "large.example"), nullptr) << "the domain goes with the cancelled mailboxes";
    _tServerObjectCounts counts{};
    ASSERT_TRUE(VbCountServerObjects(server, &counts));
    EXPECT_EQ(counts.mailboxes, 0u);

    addDomain("large.example");
    addMailbox("keep@large.example", 1);
    EXPECT_FALSE(VbSeedLargeDemoDomain(server, "large.example", 10, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), VB_ERROR_ALREADY_EXISTS);
    EXPECT_EQ(mailboxCount("large.example"), 1u);
}

} // namespace
