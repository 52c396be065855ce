// The anti-DoS wizard, driven through AntiDoSWizard: the limits shown empty for 0 and read leniently,
// the throughput slider's steps over single-precision rates (699 and 899 included), "Unlimited" and the
// friendly-host question, and what Finish writes.
#include "DialogHarness.h"
#include "WizardDriving.h"

#include "wizards/AntiDoSWizard.h"

#include <QLineEdit>
#include <QSlider>

using namespace WizardDriving;

class tst_AntiDoSWizard : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void storedRates_data();
    void storedRates();
    void lenientNumbers_data();
    void lenientNumbers();
    void limitsShownAndWritten_data();
    void limitsShownAndWritten();
    void throughputShownAndSnapped_data();
    void throughputShownAndSnapped();
    void unlimitedDisablesFriendsQuestionButKeepsAnswer();
    void pagesShowTheirTexts();

private:
    void seed() override;
};

void tst_AntiDoSWizard::seed()
{
    QVERIFY(m_store->setNumber("SMTPRA", "MaxTotalConnections", 200));
    QVERIFY(m_store->setNumber("SMTPRA", "MaxClientConnections", 0));
    QVERIFY(m_store->setNumber("SMTPRA", "Timeout", 900));
    QVERIFY(m_store->setNumber("SMTPRA", "MaxThroughput", 20000));
    QVERIFY(m_store->setNumber("SMTPRA", "NoMaxThroughputForFriends", 1));
}

// The 27 values the steps store, each read back to its own step.
void tst_AntiDoSWizard::storedRates_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<quint32>("stored");
    const quint32 values[] = {500,  600,  699,  800,  899,  1000,  1200,  1500,  2000,  2500,  3000,  3500,  4000, 5000,
                              6000, 7000, 8000, 9000, 10000, 12000, 15000, 20000, 25000, 30000, 35000, 40000, 50000};
    for (int i = 0; i < 27; ++i)
        QTest::addRow("step %d", i) << i << values[i];
}

void tst_AntiDoSWizard::storedRates()
{
    QFETCH(int, position);
    QFETCH(quint32, stored);
    QCOMPARE(throughputValue(position), stored);
    QCOMPARE(throughputPosition(stored), position);
}

void tst_AntiDoSWizard::lenientNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("value");
    QTest::addRow("number") << "250" << 250u;
    QTest::addRow("empty") << "" << 0u;
    QTest::addRow("letters") << "abc" << 0u;
    QTest::addRow("leading digits") << "  42 connections" << 42u;
    QTest::addRow("plus") << "+7" << 7u;
    QTest::addRow("minus wraps") << "-1" << 0xFFFFFFFFu;
    QTest::addRow("too large") << "99999999999" << 0xFFFFFFFFu;
}

void tst_AntiDoSWizard::lenientNumbers()
{
    QFETCH(QString, text);
    QFETCH(quint32, value);
    QCOMPARE(parseLenientNumber(text), value);
}

// 0 shows as an empty box; whatever is typed is stored by its leading digits, nothing refused.
void tst_AntiDoSWizard::limitsShownAndWritten_data()
{
    QTest::addColumn<QString>("typedTotal");
    QTest::addColumn<QString>("typedTimeout");
    QTest::addColumn<quint32>("total");
    QTest::addColumn<quint32>("timeout");
    QTest::addRow("abc and nothing") << "abc" << "" << 0u << 0u;
    QTest::addRow("numbers") << "50" << "300 s" << 50u << 300u;
}

void tst_AntiDoSWizard::limitsShownAndWritten()
{
    QFETCH(QString, typedTotal);
    QFETCH(QString, typedTimeout);
    QFETCH(quint32, total);
    QFETCH(quint32, timeout);
    QString shownTotal, shownClient, shownTimeout;
    const int result = Harness::runEntry("AntiDoSWizard", 0, *m_store, [&](QDialog* d) {
        next(d);
        shownTotal = onPage<QLineEdit>(d, "edtMaxTotalConnections")->text();
        shownClient = onPage<QLineEdit>(d, "edtMaxClientConnections")->text();
        Harness::typeInto(onPage<QLineEdit>(d, "edtMaxTotalConnections"), typedTotal);
        next(d);
        shownTimeout = onPage<QLineEdit>(d, "edtTimeout")->text();
        Harness::typeInto(onPage<QLineEdit>(d, "edtTimeout"), typedTimeout);
        next(d);
        next(d);
        Harness::clickButton(d, "btnFinish");
    });
    QCOMPARE(result, 1);
    QCOMPARE(shownTotal, QStringLiteral("200"));
    QCOMPARE(shownClient, QString());
    QCOMPARE(shownTimeout, QStringLiteral("900"));
    QCOMPARE(m_store->number("SMTPRA", "MaxTotalConnections"), std::optional<quint32>(total));
    QCOMPARE(m_store->number("SMTPRA", "Timeout"), std::optional<quint32>(timeout));
    QCOMPARE(m_store->number("SMTPRA", "MaxClientConnections"), std::optional<quint32>(0));
}

// The stored rate's step as shown, and what leaving the page (Back or Next) then stores: a value
// between steps is snapped up, one above 50000 becomes unlimited (0). Moving the slider stores the
// step's value exactly.
void tst_AntiDoSWizard::throughputShownAndSnapped_data()
{
    QTest::addColumn<quint32>("stored");
    QTest::addColumn<int>("moveTo"); // -1: leave the slider alone
    QTest::addColumn<bool>("leaveBack");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<quint32>("written");
    QTest::addRow("between steps") << 1100u << -1 << false << "1.20" << 1200u;
    QTest::addRow("between steps, left by Back") << 1100u << -1 << true << "1.20" << 1200u;
    QTest::addRow("above the last step") << 50001u << -1 << false << "Unlimited" << 0u;
    QTest::addRow("unlimited") << 0u << -1 << false << "Unlimited" << 0u;
    QTest::addRow("below the first step") << 1u << -1 << false << "0.50" << 500u;
    QTest::addRow("699 stays") << 699u << -1 << false << "0.70" << 699u;
    QTest::addRow("moved to 0.70") << 20000u << 2 << false << "20.00" << 699u;
    QTest::addRow("moved to 0.90") << 20000u << 4 << false << "20.00" << 899u;
}

void tst_AntiDoSWizard::throughputShownAndSnapped()
{
    QFETCH(quint32, stored);
    QFETCH(int, moveTo);
    QFETCH(bool, leaveBack);
    QFETCH(QString, shown);
    QFETCH(quint32, written);
    QVERIFY(m_store->setNumber("SMTPRA", "MaxThroughput", stored));
    QString text, movedText;
    const int result = Harness::runEntry("AntiDoSWizard", 0, *m_store, [&](QDialog* d) {
        next(d);
        next(d);
        next(d);
        QCOMPARE(pageNumber(d), 4);
        text = onPage<QLineEdit>(d, "edtThroughput")->text();
        if (moveTo >= 0) {
            onPage<QSlider>(d, "sldMaxThroughput")->setValue(moveTo);
            movedText = onPage<QLineEdit>(d, "edtThroughput")->text();
        }
        if (leaveBack) {
            back(d);
            next(d);
        }
        next(d);
        Harness::clickButton(d, "btnFinish");
    });
    QCOMPARE(result, 1);
    QCOMPARE(text, shown);
    if (moveTo >= 0)
        QCOMPARE(movedText, QString::asprintf("%.2f", double(throughputRate(moveTo))));
    QCOMPARE(m_store->number("SMTPRA", "MaxThroughput"), std::optional<quint32>(written));
}

// At "Unlimited" the friendly-host question is disabled, yet the answer given before is saved.
void tst_AntiDoSWizard::unlimitedDisablesFriendsQuestionButKeepsAnswer()
{
    bool enabledBefore = false, enabledAfter = true;
    const int result = Harness::runEntry("AntiDoSWizard", 0, *m_store, [&](QDialog* d) {
        next(d);
        next(d);
        next(d);
        enabledBefore = onPage<QRadioButton>(d, "radFriendsLimited")->isEnabled();
        QVERIFY(onPage<QRadioButton>(d, "radFriendsUnlimited")->isChecked()); // NoMaxThroughputForFriends 1
        choose(d, "radFriendsLimited");
        onPage<QSlider>(d, "sldMaxThroughput")->setValue(kThroughputUnlimited);
        enabledAfter = onPage<QRadioButton>(d, "radFriendsLimited")->isEnabled();
        next(d);
        Harness::clickButton(d, "btnFinish");
    });
    QCOMPARE(result, 1);
    QVERIFY(enabledBefore);
    QVERIFY(!enabledAfter);
    QCOMPARE(m_store->number("SMTPRA", "MaxThroughput"), std::optional<quint32>(0));
    QCOMPARE(m_store->number("SMTPRA", "NoMaxThroughputForFriends"), std::optional<quint32>(0));
}

// Every page with its header texts and nothing cut off (saved with TAVI_WIZARD_SHOTS set).
void tst_AntiDoSWizard::pagesShowTheirTexts()
{
    QStringList seen, clipped;
    Harness::runEntry("AntiDoSWizard", 0, *m_store, [&](QDialog* d) {
        d->resize(d->sizeHint());
        for (int guard = 0; guard < 6; ++guard) {
            QCoreApplication::processEvents();
            seen << currentPage(d)->objectName();
            clipped << misfits(d, QStringLiteral("Velbrook Security"), QStringLiteral("Anti Denial-of-Service Wizard"));
            QVERIFY(saveShot(d));
            if (pageNumber(d) == 5)
                break;
            next(d);
        }
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(seen.size(), 5);
    QCOMPARE(clipped, QStringList());
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

QTEST_MAIN(tst_AntiDoSWizard)
#include "tst_antidoswizard.moc"
