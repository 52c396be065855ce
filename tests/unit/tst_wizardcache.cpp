// The wizards' property cache against a real store: one entry per property whatever page asks, changed
// only while it differs from the first value, commit newest first and past failures, the "CONSTANT"
// pseudo-section, and the list format of the wizards' text properties.
#include "StoreFixture.h"

#include "wizards/PropertyCache.h"

#include "velbrook/StoreTesting.h"

#include <QString>
#include <QStringList>

namespace {

class WizardCacheTest : public StoreTest {
protected:
    void SetUp() override
    {
        StoreTest::SetUp();
        ASSERT_TRUE(setNumber(nullptr, "RblEnabled", 0));
        ASSERT_TRUE(setNumber(nullptr, "MaxSmtpRecipients", 100));
        ASSERT_TRUE(setText(nullptr, "RblDomain", "sbl.spamhaus.org"));
        ASSERT_TRUE(setNumber("SMTPRA", "NoUnqualifiedRecipients", 1));
        VbClearFaults(server);
        cache.setServer(server);
    }
    // Commits and returns the names whose writes failed, in the order reported.
    QStringList commit()
    {
        QStringList failed;
        cache.commit([&](const QByteArray& name, quint32) { failed << QString::fromUtf8(name); });
        return failed;
    }

    CWizardPropertyCache cache;
};

} // namespace

// Two pages reading and setting the same property share one entry and one store read; the last set wins.
TEST_F(WizardCacheTest, SharedEntryReadOnce)
{
    quint32 a = 0, b = 0;
    EXPECT_TRUE(cache.getDword("MaxSmtpRecipients", nullptr, a));
    cache.setDword("MaxSmtpRecipients", nullptr, 20);
    EXPECT_TRUE(cache.getDword("MaxSmtpRecipients", nullptr, b));
    cache.setDword("MaxSmtpRecipients", nullptr, 30);
    EXPECT_EQ(a, 100u);
    EXPECT_EQ(b, 20u);
    EXPECT_EQ(cache.size(), 1);
    EXPECT_EQ(VbCallCount(server, "GetMailServerProperty"), 1u);
    EXPECT_TRUE(commit().isEmpty());
    EXPECT_EQ(number(nullptr, "MaxSmtpRecipients"), 30);
}

// A null section and "" are one section; a named section is another entry.
TEST_F(WizardCacheTest, NullSectionIsEmpty)
{
    QString text;
    cache.getString("RblDomain", nullptr, text);
    cache.setString("RblDomain", "", QStringLiteral("a.example"));
    EXPECT_TRUE(cache.getString("RblDomain", "", text));
    EXPECT_EQ(text, QStringLiteral("a.example"));
    EXPECT_EQ(cache.size(), 1);
    quint32 n = 0;
    cache.getDword("NoUnqualifiedRecipients", "SMTPRA", n);
    cache.getDword("NoUnqualifiedRecipients", nullptr, n);
    EXPECT_EQ(cache.size(), 3);
    EXPECT_FALSE(cache.contains("rbldomain", nullptr)); // names compare with case
}

// Changed and changed back writes nothing, for numbers and texts alike; so does a set equal to the value
// read, or the first set of a property never read.
TEST_F(WizardCacheTest, ChangedBackWritesNothing)
{
    quint32 n = 0;
    QString text;
    cache.getDword("RblEnabled", nullptr, n);
    cache.getString("RblDomain", nullptr, text);
    cache.setDword("RblEnabled", nullptr, 1);
    cache.setString("RblDomain", nullptr, QStringLiteral("x.example"));
    EXPECT_TRUE(cache.isChanged("RblEnabled", nullptr));
    EXPECT_TRUE(cache.isChanged("RblDomain", nullptr));
    cache.setDword("RblEnabled", nullptr, 0);
    cache.setString("RblDomain", nullptr, QStringLiteral("sbl.spamhaus.org"));
    cache.setDword("NeverRead", nullptr, 7);
    EXPECT_FALSE(cache.isChanged("RblEnabled", nullptr));
    EXPECT_FALSE(cache.isChanged("RblDomain", nullptr));
    EXPECT_FALSE(cache.isChanged("NeverRead", nullptr));
    EXPECT_TRUE(commit().isEmpty());
    EXPECT_EQ(VbCallCount(server, "SetMailServerProperty"), 0u);
}

// Commit goes from the newest entry to the oldest: with every write failing, the reports come in that
// order, and the commit does not stop at the first failure.
TEST_F(WizardCacheTest, CommitNewestFirstPastFailures)
{
    quint32 n = 0;
    QString domain;
    cache.getDword("RblEnabled", nullptr, n);
    cache.getString("RblDomain", nullptr, domain);
    cache.getDword("NoUnqualifiedRecipients", "SMTPRA", n);
    cache.getDword("MaxSmtpRecipients", nullptr, n);
    cache.setDword("RblEnabled", nullptr, 1);
    cache.setString("RblDomain", nullptr, QStringLiteral("x.example"));
    cache.setDword("NoUnqualifiedRecipients", "SMTPRA", 0);
    // MaxSmtpRecipients is read but not changed: never written.
    ASSERT_TRUE(VbInjectFault(server, "SetMailServerProperty", nullptr, nullptr, VB_ERROR_ACCESS_DENIED, 0));
    EXPECT_EQ(commit(), QStringList({QStringLiteral("NoUnqualifiedRecipients"), QStringLiteral("RblDomain"),
                                     QStringLiteral("RblEnabled")}));
    VbClearFaults(server);

    ASSERT_TRUE(VbInjectFault(server, "SetMailServerProperty", nullptr, "RblDomain", VB_ERROR_DISK_FULL, 0));
    EXPECT_EQ(commit(), QStringList(QStringLiteral("RblDomain")));
    EXPECT_EQ(number(nullptr, "RblEnabled"), 1);
    EXPECT_EQ(number("SMTPRA", "NoUnqualifiedRecipients"), 0);
    EXPECT_EQ(text(nullptr, "RblDomain"), "sbl.spamhaus.org");
    EXPECT_EQ(number(nullptr, "MaxSmtpRecipients"), 100);
}

// "CONSTANT" reads go to the host's constants and are never written, even when set.
TEST_F(WizardCacheTest, ConstantsReadNeverWritten)
{
    QString name;
    EXPECT_TRUE(cache.getString("HostName", CWizardPropertyCache::kConstantSection, name));
    EXPECT_FALSE(name.isEmpty());
    EXPECT_EQ(VbCallCount(server, "GetMailServerConstant"), 1u);
    EXPECT_EQ(VbCallCount(server, "GetMailServerProperty"), 0u);
    cache.setString("HostName", "CONSTANT", QStringLiteral("elsewhere"));
    EXPECT_TRUE(commit().isEmpty());
    EXPECT_EQ(VbCallCount(server, "SetMailServerProperty"), 0u);
}

// Reads that fail or find another type give 0 or "" and still make the entry; a text longer than the
// first buffer is read whole; a store that keeps asking for more is given up on.
TEST_F(WizardCacheTest, ReadFallbacks)
{
    const std::string longText(5000, 'z');
    ASSERT_TRUE(setText(nullptr, "LongList", longText));
    quint32 n = 9;
    QString value = QStringLiteral("stale");
    EXPECT_FALSE(cache.getDword("Missing", nullptr, n));
    EXPECT_EQ(n, 0u);
    EXPECT_TRUE(cache.contains("Missing", nullptr));
    cache.setDword("Missing", nullptr, 0);
    EXPECT_FALSE(cache.isChanged("Missing", nullptr));
    cache.getString("MaxSmtpRecipients", "", value); // a number read as text
    EXPECT_EQ(value, QString());
    EXPECT_TRUE(cache.getString("LongList", nullptr, value));
    EXPECT_EQ(value.size(), 5000);

    CWizardPropertyCache other(server);
    ASSERT_TRUE(VbForceMoreData(server, nullptr, "RblDomain", 0));
    EXPECT_FALSE(other.getString("RblDomain", nullptr, value));
    EXPECT_EQ(value, QString());
}

// Multi-strings are read element by element, straight from the store each time.
TEST_F(WizardCacheTest, StringListsNotCached)
{
    const char multi[] = "10.0.0.1\0" "192.168.0.1\0";
    ASSERT_TRUE(SetMailServerProperty(server, nullptr, VB_TYPE_MULTI_STRING, "Addresses", multi, sizeof multi));
    VbClearFaults(server);
    const QStringList expected{QStringLiteral("10.0.0.1"), QStringLiteral("192.168.0.1")};
    EXPECT_EQ(cache.getStringList("Addresses", nullptr), expected);
    EXPECT_EQ(cache.getStringList("Addresses", nullptr), expected);
    EXPECT_EQ(VbCallCount(server, "GetMailServerProperty"), 2u);
    EXPECT_EQ(cache.size(), 0);
    EXPECT_TRUE(cache.getStringList("RblDomain", nullptr).isEmpty()); // a text is no list
}

TEST(WizardList, SplitAndJoin)
{
    struct Row {
        QString text;
        QStringList entries;
    };
    const QString longest(256, QLatin1Char('a'));
    const QString tooLong(257, QLatin1Char('b'));
    const Row rows[] = {
        {QString(), {}},
        {QStringLiteral(" ,\t, "), {}},
        {QStringLiteral("a, b,c  d\ne"), {"a", "b", "c", "d", "e"}},
        {QStringLiteral(",,!10.0.0.*,,"), {"!10.0.0.*"}},
        {longest + QStringLiteral(", x"), {longest, "x"}},
        // An entry too long ends the reading: neither it nor what follows is kept.
        {QStringLiteral("x, ") + tooLong + QStringLiteral(", y"), {"x"}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(splitWizardList(row.text), row.entries) << row.text.left(40).toStdString();
    EXPECT_EQ(joinWizardList({"a", "b", "c"}), QStringLiteral("a, b, c"));
    EXPECT_EQ(joinWizardList({}), QString());
}
