// The domain sheet's forwarding, traffic, synonyms and aliases pages.
#include "DialogHarness.h"
#include "DomainTestStore.h"

#include "domain/DomainAliasesPage.h"
#include "domain/DomainForwardingPage.h"
#include "domain/DomainSheet.h"
#include "domain/DomainSynonymsPage.h"
#include "domain/DomainTrafficPage.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPushButton>

#include <velbrook/DomainStore.h>
#include <velbrook/MailboxStore.h>
#include <velbrook/ServerCommon.h>

namespace {
constexpr char kSales[] = "sales.brennoway.example";
constexpr char kLab[] = "lab.example.org";

QStringList synonymsOf(_tMailServer* server, const char* domain)
{
    QStringList names;
    _tDomainEnum* e = StartDomainSynonymEnumeration(server, domain);
    char name[257];
    uint32_t size = sizeof name;
    while (e && FindNextDomain(e, name, &size)) {
        names << QString::fromUtf8(name);
        size = sizeof name;
    }
    if (e)
        CloseDomainEnumeration(e);
    return names;
}

const char* const kCounters[] = {"RCPTCommands", "SMTPBytesSent", "SMTPBytesReceived", "SMTPBytesRelayed",
                                 "IMAPBytesSent", "IMAPBytesReceived", "POPBytesSent", "POPBytesReceived"};
const char* const kCounterLabels[] = {"lblRcptCommands", "lblSmtpBytesSent", "lblSmtpBytesReceived",
                                      "lblSmtpBytesRelayed", "lblImapBytesSent", "lblImapBytesReceived",
                                      "lblPopBytesSent", "lblPopBytesReceived"};
} // namespace

class tst_DomainPages : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void forwardingProposesOwnName();
    void forwardingBadHostRefused_data();
    void forwardingBadHostRefused();
    void forwardingDisabledKeepsHost();
    void retryRequested();
    void trafficShown();
    void trafficResetSurvivesCancel();
    void synonymsEdited();
    void synonymRefused_data();
    void synonymRefused();
    void synonymFailureReported();
    void aliasesListed();

private:
    template <class Page>
    std::unique_ptr<CDomainSheet> openOn(const char* name, Page* (CDomainSheet::*page)() const)
    {
        auto sheet = std::make_unique<CDomainSheet>(nullptr, *m_store, name);
        if (!sheet->openDomain())
            return nullptr;
        sheet->show();
        sheet->activateWindow();
        if (!QTest::qWaitForWindowActive(sheet.get()) || !(sheet.get()->*page)()
            || !sheet->setActivePage((sheet.get()->*page)()))
            return nullptr;
        return sheet;
    }
};

// Turning forwarding on with no host proposes the domain's own name; turning it off at once leaves
// the stored host empty.
void tst_DomainPages::forwardingProposesOwnName()
{
    auto sheet = openOn(kSales, &CDomainSheet::forwardingPage);
    QVERIFY(sheet);
    auto* check = Harness::control<QCheckBox>(sheet.get(), "chkForwardingEnabled");
    auto* host = Harness::control<QLineEdit>(sheet.get(), "edtForwardingHost");
    auto* retry = Harness::control<QPushButton>(sheet.get(), "btnRetry");
    QVERIFY(!host->isEnabled() && !retry->isEnabled());
    Harness::click(check);
    QCOMPARE(host->text(), QString::fromLatin1(kSales));
    QCOMPARE(host->selectedText(), QString::fromLatin1(kSales));
    QVERIFY(host->isEnabled() && retry->isEnabled());
    Harness::click(check);
    QCOMPARE(host->text(), QString());
    sheet->okButton()->click();
    QCOMPARE(sheet->result(), 1);
    QCOMPARE(DomainTestStore::text(*m_store, kSales, "ForwardingHost"), QString());
    QCOMPARE(m_store->calls("SetDomainProperty"), 0u);
}

// A host the validator refuses writes neither the host nor the switch.
void tst_DomainPages::forwardingBadHostRefused_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<bool>("accepted");
    QTest::addRow("underscore") << "relay_1.example.net" << false;
    QTest::addRow("blank inside") << "relay example.net" << false;
    QTest::addRow("bad address") << "192.0.2.300" << false;
    QTest::addRow("name") << "relay.example.net" << true;
    QTest::addRow("address") << "192.0.2.30" << true;
}

void tst_DomainPages::forwardingBadHostRefused()
{
    QFETCH(QString, host);
    QFETCH(bool, accepted);
    auto sheet = openOn(kSales, &CDomainSheet::forwardingPage);
    QVERIFY(sheet);
    Harness::click(Harness::control<QCheckBox>(sheet.get(), "chkForwardingEnabled"));
    Harness::typeInto(Harness::control<QLineEdit>(sheet.get(), "edtForwardingHost"), host);
    sheet->okButton()->click();
    if (accepted) {
        QCOMPARE(sheet->result(), 1);
        QCOMPARE(DomainTestStore::text(*m_store, kSales, "ForwardingHost"), host);
        QCOMPARE(DomainTestStore::number(*m_store, kSales, "ForwardingEnabled"), std::optional<quint32>(1u));
        QCOMPARE(m_platform->messages(), QStringList());
        return;
    }
    QVERIFY(sheet->isVisible());
    QCOMPARE(m_platform->messages(), QStringList({QStringLiteral("Bad domain name or IP address")}));
    QCOMPARE(m_platform->callsOf(QStringLiteral("messageBox")).first().focus, QStringLiteral("edtForwardingHost"));
    QCOMPARE(m_store->calls("SetDomainProperty"), 0u);
    sheet->reject();
}

void tst_DomainPages::forwardingDisabledKeepsHost()
{
    QVERIFY(DomainTestStore::setNumber(*m_store, kSales, "ForwardingEnabled", 1));
    _tDomain* d = OpenDomain(*m_store, kSales);
    QVERIFY(SetDomainProperty(d, VB_TYPE_STRING, "ForwardingHost", "relay.example.net", 18));
    CloseDomain(d);
    auto sheet = openOn(kSales, &CDomainSheet::forwardingPage);
    QVERIFY(sheet);
    auto* host = Harness::control<QLineEdit>(sheet.get(), "edtForwardingHost");
    QVERIFY(host->isEnabled());
    Harness::click(Harness::control<QCheckBox>(sheet.get(), "chkForwardingEnabled"));
    QVERIFY(!host->isEnabled() && !Harness::control<QPushButton>(sheet.get(), "btnRetry")->isEnabled());
    QCOMPARE(host->text(), QStringLiteral("relay.example.net"));
    sheet->okButton()->click();
    QCOMPARE(DomainTestStore::number(*m_store, kSales, "ForwardingEnabled"), std::optional<quint32>(0u));
    QCOMPARE(DomainTestStore::text(*m_store, kSales, "ForwardingHost"), QStringLiteral("relay.example.net"));
}

// The retry button asks the server to retry the host now, and says so; a failure is reported.
void tst_DomainPages::retryRequested()
{
    auto sheet = openOn(kSales, &CDomainSheet::forwardingPage);
    QVERIFY(sheet);
    Harness::click(Harness::control<QCheckBox>(sheet.get(), "chkForwardingEnabled"));
    Harness::typeInto(Harness::control<QLineEdit>(sheet.get(), "edtForwardingHost"), QStringLiteral("relay.example.net"));
    Harness::clickButton(sheet.get(), "btnRetry");
    char pending[256] = {};
    uint32_t size = sizeof pending;
    QVERIFY(GetPendingRetries(*m_store, pending, &size));
    QCOMPARE(QString::fromUtf8(pending), QStringLiteral("relay.example.net"));
    QVERIFY(VbInjectFault(*m_store, "InitiateRetry", nullptr, nullptr, VB_ERROR_ACCESS_DENIED, 1));
    Harness::clickButton(sheet.get(), "btnRetry");
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 2);
    QVERIFY2(messages[0].contains(QLatin1String("reattempt delivery to relay.example.net")), qPrintable(messages[0]));
    QVERIFY2(messages[1].startsWith(QLatin1String("Cannot ask the mail server to reattempt delivery to relay.example.net.\nError: 5")),
             qPrintable(messages[1]));
    sheet->reject();
}

// Counters are shown as signed decimals; a domain never measured shows "unknown".
void tst_DomainPages::trafficShown()
{
    QVERIFY(DomainTestStore::setNumber(*m_store, kSales, "SMTPBytesSent", 2147483648u));
    QVERIFY(DomainTestStore::setNumber(*m_store, kSales, "POPBytesReceived", 77));
    QVERIFY(DomainTestStore::setNumber(*m_store, kSales, "QuotaLastChecked", 0));
    QVERIFY(DomainTestStore::setNumber(*m_store, kSales, "StatisticsDate", 0));
    auto sheet = openOn(kSales, &CDomainSheet::trafficPage);
    QVERIFY(sheet);
    QCOMPARE(Harness::control<QLabel>(sheet.get(), "lblSmtpBytesSent")->text(), QStringLiteral("-2147483648"));
    QCOMPARE(Harness::control<QLabel>(sheet.get(), "lblPopBytesReceived")->text(), QStringLiteral("77"));
    QCOMPARE(Harness::control<QLabel>(sheet.get(), "lblStatisticsSince")->text(), QStringLiteral("Statistics Since: unknown"));
    QCOMPARE(Harness::control<QLabel>(sheet.get(), "lblTrafficStatus")->text(),
             QStringLiteral("Domain size: 48211kB (1204 messages) in 2 mailboxes\n(Last verified: unknown)."));
    sheet->reject();
}

// Reset writes at once: the start date and eight zeros stay although the sheet is cancelled.
void tst_DomainPages::trafficResetSurvivesCancel()
{
    for (const char* counter : kCounters)
        QVERIFY(DomainTestStore::setNumber(*m_store, kSales, counter, 1234));
    auto sheet = openOn(kSales, &CDomainSheet::trafficPage);
    QVERIFY(sheet);
    QCOMPARE(Harness::control<QLabel>(sheet.get(), "lblRcptCommands")->text(), QStringLiteral("1234"));
    Harness::clickButton(sheet.get(), "btnReset");
    QStringList shown;
    for (const char* label : kCounterLabels)
        shown << Harness::control<QLabel>(sheet.get(), label)->text();
    QCOMPARE(shown, QStringList(8, QStringLiteral("0")));
    const QString since = Harness::control<QLabel>(sheet.get(), "lblStatisticsSince")->text();
    QVERIFY2(since.contains(QLatin1String("2024")), qPrintable(since)); // the scripted clock's year
    sheet->reject();
    QCOMPARE(sheet->result(), 2);
    for (const char* counter : kCounters)
        QCOMPARE(DomainTestStore::number(*m_store, kSales, counter), std::optional<quint32>(0u));
    QCOMPARE(DomainTestStore::number(*m_store, kSales, "StatisticsDate"),
             std::optional<quint32>(quint32(m_platform->now.toSecsSinceEpoch())));
    QCOMPARE(m_platform->messages(), QStringList());
}

// Add, rename and delete are applied at OK: removed names first, then the new ones.
void tst_DomainPages::synonymsEdited()
{
    QVERIFY(CreateDomainSynonym(*m_store, kSales, "old.sales.example"));
    QVERIFY(CreateDomainSynonym(*m_store, kSales, "gone.sales.example"));
    auto sheet = openOn(kSales, &CDomainSheet::synonymsPage);
    QVERIFY(sheet);
    auto* list = Harness::control<QListWidget>(sheet.get(), "lstSynonyms");
    QCOMPARE(list->count(), 2);
    auto* edit = Harness::control<QLineEdit>(sheet.get(), "edtSynonym");
    Harness::typeInto(edit, QStringLiteral("shop.sales.example"));
    Harness::pressEnter(edit); // adds, and does not press the sheet's OK
    QVERIFY(sheet->isVisible());
    QCOMPARE(list->count(), 3);
    list->setCurrentItem(list->findItems(QStringLiteral("old.sales.example"), Qt::MatchExactly).first());
    QCOMPARE(edit->text(), QStringLiteral("old.sales.example"));
    Harness::typeInto(edit, QStringLiteral("new.sales.example"));
    Harness::clickButton(sheet.get(), "btnRename");
    list->setCurrentItem(list->findItems(QStringLiteral("gone.sales.example"), Qt::MatchExactly).first());
    Harness::clickButton(sheet.get(), "btnDelete");
    QCOMPARE(m_store->calls("CreateDomainSynonym"), 2u); // the two made above, nothing yet by the page
    sheet->okButton()->click();
    QCOMPARE(sheet->result(), 1);
    QCOMPARE(synonymsOf(*m_store, kSales),
             QStringList({QStringLiteral("new.sales.example"), QStringLiteral("shop.sales.example")}));
    QCOMPARE(m_platform->messages(), QStringList());
}

// A name in use elsewhere, a domain's own name, a repeat or a malformed name is refused at once.
void tst_DomainPages::synonymRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::addRow("other domain's synonym") << "LABS.example.org" << "LABS.example.org is already a synonym of the domain lab.example.org.";
    QTest::addRow("a domain") << "lab.example.org" << "lab.example.org is a domain of this server and cannot be a synonym.";
    QTest::addRow("itself") << "Sales.Brennoway.Example" << "Sales.Brennoway.Example is a domain of this server and cannot be a synonym.";
    QTest::addRow("repeat") << "mine.sales.example" << "mine.sales.example is already a synonym of this domain.";
    QTest::addRow("address") << "192.0.2.1" << "\"192.0.2.1\" is not a valid domain name. A synonym is a name such as mail.example.com.";
    QTest::addRow("blank") << "a b.example" << "\"a b.example\" is not a valid domain name. A synonym is a name such as mail.example.com.";
}

void tst_DomainPages::synonymRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, message);
    QVERIFY(CreateDomainSynonym(*m_store, kSales, "mine.sales.example"));
    auto sheet = openOn(kSales, &CDomainSheet::synonymsPage);
    QVERIFY(sheet);
    Harness::typeInto(Harness::control<QLineEdit>(sheet.get(), "edtSynonym"), name);
    Harness::clickButton(sheet.get(), "btnAdd");
    QCOMPARE(m_platform->messages(), QStringList({message}));
    QCOMPARE(Harness::control<QListWidget>(sheet.get(), "lstSynonyms")->count(), 1);
    sheet->okButton()->click();
    QCOMPARE(synonymsOf(*m_store, kSales), QStringList({QStringLiteral("mine.sales.example")}));
    QCOMPARE(m_store->calls("CreateDomainSynonym"), 1u); // the one made above
}

// A synonym the store refuses at OK is reported; the sheet stays open showing what the store holds.
void tst_DomainPages::synonymFailureReported()
{
    auto sheet = openOn(kSales, &CDomainSheet::synonymsPage);
    QVERIFY(sheet);
    QVERIFY(VbInjectFault(*m_store, "CreateDomainSynonym", nullptr, "shop.sales.example", VB_ERROR_ACCESS_DENIED, 1));
    Harness::typeInto(Harness::control<QLineEdit>(sheet.get(), "edtSynonym"), QStringLiteral("shop.sales.example"));
    Harness::clickButton(sheet.get(), "btnAdd");
    Harness::typeInto(Harness::control<QLineEdit>(sheet.get(), "edtSynonym"), QStringLiteral("web.sales.example"));
    Harness::clickButton(sheet.get(), "btnAdd");
    sheet->okButton()->click();
    QVERIFY(sheet->isVisible());
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(QLatin1String("Cannot add the synonym shop.sales.example.\nError: 5")), qPrintable(messages[0]));
    QCOMPARE(synonymsOf(*m_store, kSales), QStringList({QStringLiteral("web.sales.example")}));
    QCOMPARE(Harness::control<QListWidget>(sheet.get(), "lstSynonyms")->count(), 1);
    sheet->reject();
}

// The domain's alias names, filtered as typed, with the mailbox the selected one delivers to.
void tst_DomainPages::aliasesListed()
{
    _tMailbox* dave = OpenMailbox(*m_store, "dave@sales.brennoway.example");
    QVERIFY(dave);
    QVERIFY(CreateMailboxAlias(dave, "david"));
    QVERIFY(CreateMailboxAlias(dave, "d.lin"));
    CloseMailbox(dave);
    _tMailbox* orders = OpenMailbox(*m_store, "orders@sales.brennoway.example");
    QVERIFY(CreateMailboxAlias(orders, "shop"));
    CloseMailbox(orders);
    auto sheet = openOn(kSales, &CDomainSheet::aliasesPage);
    QVERIFY(sheet);
    auto* list = Harness::control<QListView>(sheet.get(), "lstAliases");
    QCOMPARE(list->model()->rowCount(), 3);
    QCOMPARE(list->model()->index(0, 0).data().toString(), QStringLiteral("d.lin"));
    Harness::typeInto(Harness::control<QLineEdit>(sheet.get(), "edtFilter"), QStringLiteral("D"));
    QCOMPARE(list->model()->rowCount(), 2);
    QCOMPARE(Harness::control<QLabel>(sheet.get(), "lblAliasCount")->text(), QStringLiteral("2 of 3 alias names"));
    list->setCurrentIndex(list->model()->index(1, 0));
    QCOMPARE(Harness::control<QLabel>(sheet.get(), "lblAliasPrincipal")->text(),
             QStringLiteral("david delivers to dave@sales.brennoway.example"));
    Q_UNUSED(kLab);
    sheet->reject();
}

QTEST_MAIN(tst_DomainPages)
#include "tst_domainpages.moc"
