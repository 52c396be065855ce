// The anti-relay wizard, driven through AntiRelayWizard: the policy's jump over the subnet and friendly
// pages, the subnet page stepping through the host's addresses, what it adds to and removes from the
// friendly list, restoring on a later jump, and the third-party choices over two properties.
#include "DialogHarness.h"
#include "WizardDriving.h"

#include "wizards/AntiRelayWizard.h"

#include <QLabel>

using namespace WizardDriving;

class tst_AntiRelayWizard : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void subnetPattern_data();
    void subnetPattern();
    void policyJumps_data();
    void policyJumps();
    void subnetPageStepsThroughAddresses();
    void subnetAnswersChangeFriendlyList_data();
    void subnetAnswersChangeFriendlyList();
    void alwaysAuthenticateRestoresVisitedPages_data();
    void alwaysAuthenticateRestoresVisitedPages();
    void thirdPartyChoices_data();
    void thirdPartyChoices();
    void pagesShowTheirTexts();

private:
    void seed() override;
};

void tst_AntiRelayWizard::seed()
{
    QVERIFY(m_store->setNumber(nullptr, "NoUnauthenticatedRelay", 2));
    QVERIFY(m_store->setString(nullptr, "AcceptForRelayFrom", QStringLiteral("192.168.10.*, 10.20.*")));
    QVERIFY(m_store->setString(nullptr, "AcceptForRelayTo", QStringLiteral("partner.example.net")));
    QVERIFY(m_store->setNumber(nullptr, "LookupIncomingCalls", 0));
    QVERIFY(m_store->setNumber(nullptr, "NoThirdParyRelay", 1));
    QVERIFY(m_store->setNumber("SMTPRA", "NoUnqualifiedReturnPath", 1));
    const char addresses[] = "192.168.10.5\0" "10.20.30.40\0" "172.16.0.9\0";
    QVERIFY(SetMailServerProperty(*m_store, "Machine", VB_TYPE_MULTI_STRING, "HostAddresses", addresses,
                                  sizeof addresses));
}

void tst_AntiRelayWizard::subnetPattern_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("pattern");
    QTest::addRow("address") << "10.1.2.33" << "10.1.2.*";
    QTest::addRow("no dot") << "localhost" << "localhost";
    QTest::addRow("dot last") << "10.1.2." << "10.1.2.";
    QTest::addRow("empty") << "" << "";
}

void tst_AntiRelayWizard::subnetPattern()
{
    QFETCH(QString, address);
    QFETCH(QString, pattern);
    QCOMPARE(subnetPatternOf(address), pattern);
}

// Only "unless connecting from a Friendly site" visits the subnet (three times) and friendly pages.
void tst_AntiRelayWizard::policyJumps_data()
{
    QTest::addColumn<QString>("policy");
    QTest::addColumn<QString>("path");
    QTest::addRow("unless friendly") << "radUnlessFriendly" << "1 2 3 3 3 4 5 6 7";
    QTest::addRow("always") << "radAlwaysAuthenticate" << "1 2 5 6 7";
    QTest::addRow("none") << "radNoAuthentication" << "1 2 5 6 7";
}

void tst_AntiRelayWizard::policyJumps()
{
    QFETCH(QString, policy);
    QFETCH(QString, path);
    QStringList visited;
    const int result = Harness::runEntry("AntiRelayWizard", 0, *m_store, [&](QDialog* d) {
        for (int guard = 0; guard < 12 && pageNumber(d) != 7; ++guard) {
            visited << QString::number(pageNumber(d));
            if (pageNumber(d) == 2)
                choose(d, policy.toLatin1().constData());
            next(d);
        }
        visited << QString::number(pageNumber(d));
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QCOMPARE(visited.join(QLatin1Char(' ')), path);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

// Three addresses: the page asks about each subnet in turn going forward and again going back, and Back
// from the first returns to the policy page.
void tst_AntiRelayWizard::subnetPageStepsThroughAddresses()
{
    QStringList asked;
    Harness::runEntry("AntiRelayWizard", 0, *m_store, [&](QDialog* d) {
        next(d);
        const auto ask = [&] {
            if (pageNumber(d) != 3) {
                asked << QStringLiteral("page %1").arg(pageNumber(d));
                return;
            }
            const QString text = onPage<QLabel>(d, "lblSubnetQuestion")->text();
            const int at = int(text.indexOf(QLatin1String("(IP address ")));
            asked << text.mid(at + 12, text.indexOf(QLatin1Char(')'), at) - at - 12);
        };
        for (int i = 0; i < 4; ++i) {
            next(d);
            ask();
        }
        for (int i = 0; i < 4; ++i) {
            back(d);
            ask();
        }
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(asked, QStringList({"192.168.10.*", "10.20.30.*", "172.16.0.*", "page 4", "172.16.0.*", "10.20.30.*",
                                 "192.168.10.*", "page 2"}));
}

// "Yes" adds an unlisted subnet at the head, "No" removes a listed one, "Yes" for a listed one adds
// nothing; the friendly-sites page then shows the result.
void tst_AntiRelayWizard::subnetAnswersChangeFriendlyList_data()
{
    QTest::addColumn<QStringList>("answers"); // for 192.168.10.*, 10.20.30.*, 172.16.0.*
    QTest::addColumn<QString>("written");
    QTest::addRow("as found") << QStringList{"radLocalSubnetYes", "radLocalSubnetNo", "radLocalSubnetNo"}
                              << "192.168.10.*, 10.20.*";
    QTest::addRow("remove and add") << QStringList{"radLocalSubnetNo", "radLocalSubnetYes", "radLocalSubnetYes"}
                                    << "172.16.0.*, 10.20.30.*, 10.20.*";
}

void tst_AntiRelayWizard::subnetAnswersChangeFriendlyList()
{
    QFETCH(QStringList, answers);
    QFETCH(QString, written);
    QStringList shown;
    bool firstListed = false;
    const int result = Harness::runEntry("AntiRelayWizard", 0, *m_store, [&](QDialog* d) {
        next(d);
        next(d);
        firstListed = onPage<QRadioButton>(d, "radLocalSubnetYes")->isChecked();
        for (const QString& answer : answers) {
            choose(d, answer.toLatin1().constData());
            next(d);
        }
        QCOMPARE(pageNumber(d), 4);
        shown = listOf(d, "lstAcceptForRelayFrom")->entries();
        while (pageNumber(d) < 7)
            next(d);
        Harness::clickButton(d, "btnFinish");
    });
    QCOMPARE(result, 1);
    QVERIFY(firstListed);
    QCOMPARE(shown.join(QLatin1String(", ")), written);
    QCOMPARE(m_store->string(nullptr, "AcceptForRelayFrom"), written);
}

// Pages visited and changed, then "always authenticate": the pages jumped over give back what they
// found on their first visit, in page order, and only the policy is written. The friendly page shares the
// list with the subnet page: when it was first shown after a subnet was removed, that is what it gives
// back, and its added host name's lookup is undone.
void tst_AntiRelayWizard::alwaysAuthenticateRestoresVisitedPages_data()
{
    QTest::addColumn<bool>("friendlyPage");
    QTest::addColumn<QString>("restored");
    QTest::addColumn<quint32>("writes");
    QTest::addRow("subnet pages") << false << "192.168.10.*, 10.20.*" << 1u;
    QTest::addRow("subnet and friendly pages") << true << "10.20.*" << 2u;
}

void tst_AntiRelayWizard::alwaysAuthenticateRestoresVisitedPages()
{
    QFETCH(bool, friendlyPage);
    QFETCH(QString, restored);
    QFETCH(quint32, writes);
    const int result = Harness::runEntry("AntiRelayWizard", 0, *m_store, [&](QDialog* d) {
        next(d);
        next(d);
        choose(d, "radLocalSubnetNo");
        next(d);
        if (friendlyPage) {
            next(d);
            next(d);
            QCOMPARE(pageNumber(d), 4);
            listOf(d, "lstAcceptForRelayFrom")->appendAndSelect(QStringLiteral("relay.friend.example"));
            next(d);
        }
        for (int i = 0; i < 6 && pageNumber(d) > 2; ++i)
            back(d);
        QCOMPARE(pageNumber(d), 2);
        choose(d, "radAlwaysAuthenticate");
        next(d);
        QCOMPARE(pageNumber(d), 5);
        next(d);
        next(d);
        Harness::clickButton(d, "btnFinish");
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_store->string(nullptr, "AcceptForRelayFrom"), restored);
    QCOMPARE(m_store->number(nullptr, "LookupIncomingCalls"), std::optional<quint32>(0));
    QCOMPARE(m_store->number(nullptr, "NoUnauthenticatedRelay"), std::optional<quint32>(1));
    QCOMPARE(m_store->calls("SetMailServerProperty"), writes);
}

// The three choices over NoThirdParyRelay and NoUnqualifiedReturnPath, as shown and as written; the
// mailbox choice turns the return-path check off.
void tst_AntiRelayWizard::thirdPartyChoices_data()
{
    QTest::addColumn<quint32>("storedRelay");
    QTest::addColumn<quint32>("storedReturnPath");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("choice");
    QTest::addColumn<quint32>("relay");
    QTest::addColumn<quint32>("returnPath");
    QTest::addRow("qualified kept") << 1u << 1u << "radReturnAddressQualified" << "radReturnAddressQualified" << 1u << 1u;
    QTest::addRow("mailbox turns check off") << 1u << 1u << "radReturnAddressQualified" << "radReturnMailbox" << 1u << 0u;
    QTest::addRow("shown mailbox") << 1u << 0u << "radReturnMailbox" << "radReturnMailbox" << 1u << 0u;
    QTest::addRow("shown any") << 0u << 1u << "radAnyReturnAddress" << "radAnyReturnAddress" << 0u << 0u;
    QTest::addRow("any") << 1u << 1u << "radReturnAddressQualified" << "radAnyReturnAddress" << 0u << 0u;
}

void tst_AntiRelayWizard::thirdPartyChoices()
{
    QFETCH(quint32, storedRelay);
    QFETCH(quint32, storedReturnPath);
    QFETCH(QString, shown);
    QFETCH(QString, choice);
    QFETCH(quint32, relay);
    QFETCH(quint32, returnPath);
    QVERIFY(m_store->setNumber(nullptr, "NoThirdParyRelay", storedRelay));
    QVERIFY(m_store->setNumber("SMTPRA", "NoUnqualifiedReturnPath", storedReturnPath));
    bool shownChecked = false;
    const int result = Harness::runEntry("AntiRelayWizard", 0, *m_store, [&](QDialog* d) {
        next(d);
        choose(d, "radNoAuthentication");
        next(d);
        next(d);
        QCOMPARE(pageNumber(d), 6);
        shownChecked = onPage<QRadioButton>(d, shown.toLatin1().constData())->isChecked();
        choose(d, choice.toLatin1().constData());
        next(d);
        Harness::clickButton(d, "btnFinish");
    });
    QCOMPARE(result, 1);
    QVERIFY(shownChecked);
    QCOMPARE(m_store->number(nullptr, "NoThirdParyRelay"), std::optional<quint32>(relay));
    QCOMPARE(m_store->number("SMTPRA", "NoUnqualifiedReturnPath"), std::optional<quint32>(returnPath));
}

// Every page with its header texts and nothing cut off (saved with TAVI_WIZARD_SHOTS set).
void tst_AntiRelayWizard::pagesShowTheirTexts()
{
    QStringList seen, clipped;
    Harness::runEntry("AntiRelayWizard", 0, *m_store, [&](QDialog* d) {
        d->resize(d->sizeHint());
        for (int guard = 0; guard < 10; ++guard) {
            QCoreApplication::processEvents();
            if (!seen.contains(currentPage(d)->objectName())) {
                seen << currentPage(d)->objectName();
                clipped << misfits(d, QStringLiteral("Velbrook Security"), QStringLiteral("Anti-Relay Wizard"));
                QVERIFY(saveShot(d));
            }
            if (pageNumber(d) == 7)
                break;
            next(d);
        }
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(seen.size(), 7);
    QCOMPARE(clipped, QStringList());
}

QTEST_MAIN(tst_AntiRelayWizard)
#include "tst_antirelaywizard.moc"
