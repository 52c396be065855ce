// The traffic report: which mailboxes it lists and how the CSV is written.
#include "StoreFixture.h"

#include "velbrook/MailboxStore.h"
#include "velbrook/DomainStore.h"
#include "velbrook/StoreTesting.h"

class Traffic : public StoreTest {
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        ASSERT_TRUE(CreateDomain(server, "a.example"));
        ASSERT_TRUE(CreateDomain(server, "b,\"c\".example"));
        add("quiet@a.example", {0, 0, 0, 0, 0, 0, 0});
        add("talker@a.example", {500, 100, 20000, 0, 0, 0, 0});
        add("reader@a.example", {1, 0, 0, 900000, 0, 0, 7});
        add("x@b,\"c\".example", {0, 0, 0, 0, 0, 0, 99});
        ASSERT_TRUE(CreateMailbox(server, "never@a.example")); // no counters at all
    }
    void add(const char* address, std::vector<uint32_t> counters)
    {
        ASSERT_TRUE(CreateMailbox(server, address));
        _tMailbox* m = OpenMailbox(server, address);
        ASSERT_NE(m, nullptr);
        const char* names[] = {"RCPTCommands",      "SMTPBytesReceived", "SMTPBytesSent",   "IMAPBytesSent",
                               "IMAPBytesReceived", "POPBytesSent",      "POPBytesReceived"};
        for (int i = 0; i < 7; ++i)
            ASSERT_TRUE(SetMailboxProperty(m, VB_TYPE_DWORD, names[i], &counters[size_t(i)], 4));
        CloseMailbox(m);
    }
    std::vector<std::string> lines(const std::string& file)
    {
        std::vector<std::string> out;
        const std::string all = fileBytes(file);
        size_t at = 0;
        while (at < all.size()) {
            const size_t end = all.find("\r\n", at);
            out.push_back(all.substr(at, end - at));
            at = end == std::string::npos ? all.size() : end + 2;
        }
        return out;
    }
};

struct ThresholdRow {
    const char* label;
    _tTrafficStatistics thresholds;
    const char* domain;
    uint64_t rows;
};
static void PrintTo(const ThresholdRow& row, std::ostream* os) { *os << '"' << row.label << '"'; }


class TrafficRows : public Traffic, public ::testing::WithParamInterface<ThresholdRow> {};

TEST_P(TrafficRows, SelectsMailboxesOverAnyThreshold)
{
    const ThresholdRow row = GetParam();
    CTrafficReport report(server);
    ASSERT_TRUE(report.Generate(row.domain, row.thresholds)) << row.label;
    EXPECT_EQ(report.RowCount(), row.rows) << row.label;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TrafficRows,
    ::testing::Values(ThresholdRow{"all zero lists every mailbox", {}, nullptr, 5},
                      ThresholdRow{"all zero in one domain", {}, "a.example", 4},
                      ThresholdRow{"greater than, not equal", {500, 0, 0, 0, 0, 0, 0, 0}, "", 0},
                      ThresholdRow{"rcpt over 499", {499, 0, 0, 0, 0, 0, 0, 0}, "", 1},
                      ThresholdRow{"any counter over its own threshold", {499, 0, 0, 0, 0, 0, 0, 6}, "", 3},
                      ThresholdRow{"reserved field is ignored", {0, 0, 0, 1, 0, 0, 0, 0}, nullptr, 5},
                      ThresholdRow{"imap sent", {0, 0, 0, 0, 899999, 0, 0, 0}, "a.example", 1}),
                         RowName());

TEST_F(Traffic, CsvHasAHeaderAndQuotesWhatNeedsIt)
{
    CTrafficReport report(server);
    _tTrafficStatistics t{};
    t.popBytesReceived = 1;
    ASSERT_TRUE(report.Generate("", t));
    const std::string file = dir + "/report.csv";
    ASSERT_TRUE(report.Save(file.c_str()));
    const auto rows = lines(file);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0], "Mailbox,Domain,RCPT Commands,SMTP Bytes Received,SMTP Bytes Sent,IMAP Bytes Sent,"
                       "IMAP Bytes Received,POP Bytes Sent,POP Bytes Received");
    EXPECT_EQ(rows[1], "reader@a.example,a.example,1,0,0,900000,0,0,7");
    EXPECT_EQ(rows[2], "\"x@b,\"\"c\"\".example\",\"b,\"\"c\"\".example\",0,0,0,0,0,0,99");
}

// A name a spreadsheet would run as a formula is written as text.
TEST_F(Traffic, CsvNeverStartsAFieldWithAFormula)
{
    ASSERT_TRUE(CreateDomain(server, "=1+2.example"));
    add("-3@=1+2.example", {0, 0, 0, 0, 0, 0, 5});
    add("+4@=1+2.example", {0, 0, 0, 0, 0, 0, 5});
    CTrafficReport report(server);
    ASSERT_TRUE(report.Generate("=1+2.example", _tTrafficStatistics{}));
    const std::string file = dir + "/report.csv";
    ASSERT_TRUE(report.Save(file.c_str()));
    const auto rows = lines(file);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[1], "\"'-3@=1+2.example\",\"'=1+2.example\",0,0,0,0,0,0,5");
    EXPECT_EQ(rows[2], "\"'+4@=1+2.example\",\"'=1+2.example\",0,0,0,0,0,0,5");
}

static bool cancelAtOnce(void*, uint64_t, uint64_t) { return false; }

TEST_F(Traffic, FailuresLeaveNoHalfFile)
{
    CTrafficReport report(server);
    const std::string file = dir + "/report.csv";
    EXPECT_FALSE(report.Save(file.c_str())) << "nothing generated yet";
    ASSERT_TRUE(report.Generate(nullptr, _tTrafficStatistics{}));
    report.SetProgress(&cancelAtOnce, nullptr);
    EXPECT_FALSE(report.Save(file.c_str()));
    EXPECT_EQ(GetLastError(), VB_ERROR_CANCELLED);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir), {}), 3)
        << "the store, its -wal and -shm; no temporary file left";
    report.SetProgress(nullptr, nullptr);
    EXPECT_FALSE(report.Save((dir + "/no/such/folder/r.csv").c_str()));
    EXPECT_FALSE(report.Generate("missing.example", _tTrafficStatistics{}));
    EXPECT_EQ(GetLastError(), VB_ERROR_FILE_NOT_FOUND);
}

// Generation is one long statement: it reports "working" (0 of 0) while it runs and can be cancelled.
class TrafficGenerate : public Traffic {
protected:
    void SetUp() override
    {
        Traffic::SetUp();
        VbCallCount(server, "CTrafficReport::Generate"); // through the fault-injecting connector
        for (int i = 0; i < kMailboxes; ++i)
            ASSERT_TRUE(CreateMailbox(server, ("bulk" + std::to_string(i) + "@a.example").c_str()));
    }
    struct Listener {
        int calls = 0;
        int cancelAt = 0; // 0: never
        bool allWorking = true;
    };
    static bool listen(void* context, uint64_t done, uint64_t total)
    {
        auto* l = static_cast<Listener*>(context);
        ++l->calls;
        l->allWorking = l->allWorking && done == 0 && total == 0;
        return l->calls != l->cancelAt;
    }
    static constexpr int kMailboxes = 3000;
};

TEST_F(TrafficGenerate, ReportsWorkingWhileItRuns)
{
    CTrafficReport report(server);
    Listener l;
    report.SetProgress(&listen, &l);
    ASSERT_TRUE(report.Generate(nullptr, _tTrafficStatistics{}));
    EXPECT_EQ(report.RowCount(), uint64_t(kMailboxes + 5));
    EXPECT_GE(l.calls, 2) << "called now and then during the statement";
    EXPECT_TRUE(l.allWorking);
}

TEST_F(TrafficGenerate, CancelKeepsNothingAndLeavesNoHandlerBehind)
{
    CTrafficReport report(server);
    Listener l;
    l.cancelAt = 2;
    report.SetProgress(&listen, &l);
    EXPECT_FALSE(report.Generate(nullptr, _tTrafficStatistics{}));
    EXPECT_EQ(GetLastError(), VB_ERROR_CANCELLED);
    EXPECT_EQ(l.calls, 2) << "not asked again once cancelled";
    EXPECT_EQ(report.RowCount(), 0u);
    const std::string file = dir + "/report.csv";
    EXPECT_FALSE(report.Save(file.c_str())) << "a cancelled report is not a generated one";
    EXPECT_FALSE(std::filesystem::exists(file));

    // Were the handler still installed, its cancel would interrupt this statement too.
    CTrafficReport other(server);
    ASSERT_TRUE(other.Generate(nullptr, _tTrafficStatistics{})) << GetLastError();
    EXPECT_EQ(other.RowCount(), uint64_t(kMailboxes + 5));
    ASSERT_TRUE(other.Save(file.c_str()));
    EXPECT_EQ(lines(file).size(), size_t(kMailboxes + 6));

    // The cancelled report can be generated again once nobody cancels it.
    report.SetProgress(nullptr, nullptr);
    ASSERT_TRUE(report.Generate("a.example", _tTrafficStatistics{}));
    EXPECT_EQ(report.RowCount(), uint64_t(kMailboxes + 4));
}
