// The service control dialog, driven through ServiceControlDialog over the store's builtin services.
#include "DialogHarness.h"

#include "server/ServiceDlg.h"

#include <QLabel>
#include <QPushButton>

namespace {
using ServiceEntry = int (*)(TaviOwner, _tMailServer*, const char*, const char*);

struct Shown {
    QString title;
    QString status;
    bool startEnabled = false;
    bool stopEnabled = false;
};

Shown shownOf(QDialog* d)
{
    Shown s;
    s.title = d->windowTitle();
    s.status = Harness::control<QLabel>(d, "lblStatus")->text();
    s.startEnabled = Harness::control<QPushButton>(d, "btnStart")->isEnabled();
    s.stopEnabled = Harness::control<QPushButton>(d, "btnStop")->isEnabled();
    return s;
}
} // namespace

class tst_ServiceDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void stateShown_data();
    void stateShown();
    void unreadableStateIsUnknown();
    void startOrStopSettled_data();
    void startOrStopSettled();
    void startStillPendingShowsStarting();
    void failedControlNamesTheService_data();
    void failedControlNamesTheService();
    void closeAndHelp();

private:
    int run(const char* service, const char* caption, const std::function<void(QDialog*)>& driver);

};

int tst_ServiceDlg::run(const char* service, const char* caption, const std::function<void(QDialog*)>& driver)
{
    auto entry = reinterpret_cast<ServiceEntry>(Harness::resolveEntry("ServiceControlDialog"));
    if (!entry) {
        QTest::qFail("ServiceControlDialog is not exported", __FILE__, __LINE__);
        return -100;
    }
    return Harness::driveModal([&] { return entry(0, *m_store, service, caption); }, driver);
}

void tst_ServiceDlg::stateShown_data()
{
    QTest::addColumn<quint32>("state");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("start");
    QTest::addColumn<bool>("stop");
    QTest::addRow("stopped") << 1u << QStringLiteral("stopped") << true << false;
    QTest::addRow("start pending") << 2u << QStringLiteral("starting") << false << false;
    QTest::addRow("stop pending") << 3u << QStringLiteral("stopping") << false << false;
    QTest::addRow("running") << 4u << QStringLiteral("running") << false << true;
    QTest::addRow("continue pending") << 5u << QStringLiteral("resuming") << false << false;
    QTest::addRow("pause pending") << 6u << QStringLiteral("pausing") << false << false;
    QTest::addRow("paused") << 7u << QStringLiteral("paused") << false << false;
}

void tst_ServiceDlg::stateShown()
{
    QFETCH(quint32, state);
    QFETCH(QString, word);
    QFETCH(bool, start);
    QFETCH(bool, stop);
    QVERIFY(VbRegisterMailService(*m_store, "POP3", nullptr, "builtin", nullptr, state));
    Shown shown;
    const int result = run("POP3", "POP3 Server service", [&](QDialog* d) {
        shown = shownOf(d);
        d->reject();
    });
    QCOMPARE(result, 2);
    QCOMPARE(shown.title, QStringLiteral("POP3 Server service")); // the caption as it stands, no server name
    QCOMPARE(shown.status, word);
    QCOMPARE(shown.startEnabled, start);
    QCOMPARE(shown.stopEnabled, stop);
}

void tst_ServiceDlg::unreadableStateIsUnknown()
{
    Shown fault, missing;
    QVERIFY(VbInjectFault(*m_store, "GetMailServiceStatus", nullptr, "SMTPRA", VB_ERROR_BUSY, 0));
    run("SMTPRA", "SMTP Receiver service", [&](QDialog* d) {
        fault = shownOf(d);
        d->reject();
    });
    VbClearFaults(*m_store);
    run("NoSuchService", "", [&](QDialog* d) {
        missing = shownOf(d);
        d->reject();
    });
    for (const Shown& s : {fault, missing}) {
        QCOMPARE(s.status, QStringLiteral("unknown"));
        QVERIFY(!s.startEnabled);
        QVERIFY(!s.stopEnabled);
    }
    QVERIFY(m_platform->messages().isEmpty());
}

void tst_ServiceDlg::startOrStopSettled_data()
{
    QTest::addColumn<quint32>("initial");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("start");
    QTest::addColumn<bool>("stop");
    QTest::addRow("start") << 1u << QStringLiteral("btnStart") << QStringLiteral("running") << false << true;
    QTest::addRow("stop") << 4u << QStringLiteral("btnStop") << QStringLiteral("stopped") << true << false;
}

void tst_ServiceDlg::startOrStopSettled()
{
    QFETCH(quint32, initial);
    QFETCH(QString, button);
    QFETCH(QString, word);
    QFETCH(bool, start);
    QFETCH(bool, stop);
    QVERIFY(VbRegisterMailService(*m_store, "WebMail", "Web Mail Server", "builtin", nullptr, initial));
    QVERIFY(m_store->setNumber("WebMail", "PendingMilliseconds", 0)); // completes at once
    Shown after;
    QList<CRecordedCall> duringCall;
    run("WebMail", "Web Mail Server service", [&](QDialog* d) {
        Harness::click(d->findChild<QPushButton*>(button));
        after = shownOf(d);
        Harness::clickButton(d, "btnClose");
    });
    QCOMPARE(after.status, word);
    QCOMPARE(after.startEnabled, start);
    QCOMPARE(after.stopEnabled, stop);
    quint32 state = 0;
    QVERIFY(GetMailServiceStatus(*m_store, "WebMail", &state));
    QCOMPARE(state, initial == 1u ? 4u : 1u);
    // Wait cursor on, the 250 ms pause, wait cursor off, in this order.
    QStringList sequence;
    for (const CRecordedCall& c : m_platform->calls()) {
        if (c.kind == QLatin1String("waitCursor") || c.kind == QLatin1String("sleep"))
            sequence << QStringLiteral("%1:%2").arg(c.kind).arg(c.style);
    }
    QCOMPARE(sequence, (QStringList{QStringLiteral("waitCursor:1"), QStringLiteral("sleep:250"), QStringLiteral("waitCursor:0")}));
    QVERIFY(m_platform->messages().isEmpty());
}

void tst_ServiceDlg::startStillPendingShowsStarting()
{
    // The builtin controller keeps a start pending for a while; the scripted pause does not wait.
    QVERIFY(VbRegisterMailService(*m_store, "WebMail", "Web Mail Server", "builtin", nullptr, VB_SERVICE_STOPPED));
    QVERIFY(m_store->setNumber("WebMail", "PendingMilliseconds", 60000));
    Shown before, after;
    run("WebMail", "Web Mail Server service", [&](QDialog* d) {
        before = shownOf(d);
        Harness::clickButton(d, "btnStart");
        after = shownOf(d);
        d->reject();
    });
    QCOMPARE(before.status, QStringLiteral("stopped"));
    QVERIFY(before.startEnabled);
    QCOMPARE(after.status, QStringLiteral("starting"));
    QVERIFY(!after.startEnabled);
    QVERIFY(!after.stopEnabled);
    QCOMPARE(m_platform->callsOf(QStringLiteral("sleep")).size(), 1);
    // Reopening shows the state as it then is; it has not changed on its own.
    run("WebMail", "Web Mail Server service", [&](QDialog* d) {
        after = shownOf(d);
        d->reject();
    });
    QCOMPARE(after.status, QStringLiteral("starting"));
}

void tst_ServiceDlg::failedControlNamesTheService_data()
{
    QTest::addColumn<quint32>("initial");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("context");
    QTest::addRow("start") << 1u << QStringLiteral("StartMailService") << QStringLiteral("btnStart")
                           << QStringLiteral("Could not start WebMail service");
    QTest::addRow("stop") << 4u << QStringLiteral("StopMailService") << QStringLiteral("btnStop")
                          << QStringLiteral("Could not stop WebMail service");
}

void tst_ServiceDlg::failedControlNamesTheService()
{
    QFETCH(quint32, initial);
    QFETCH(QString, operation);
    QFETCH(QString, button);
    QFETCH(QString, context);
    QVERIFY(VbRegisterMailService(*m_store, "WebMail", "Web Mail Server", "builtin", nullptr, initial));
    QVERIFY(VbInjectFault(*m_store, operation.toLatin1().constData(), nullptr, "WebMail",
                          VB_ERROR_SERVICE_REQUEST_TIMEOUT, 1));
    Shown after;
    run("WebMail", "Web Mail Server service", [&](QDialog* d) {
        Harness::click(d->findChild<QPushButton*>(button));
        after = shownOf(d);
        d->reject();
    });
    const auto boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), 1);
    QVERIFY2(boxes[0].text.startsWith(context + QStringLiteral("\nError: 1053\n")), qPrintable(boxes[0].text));
    QCOMPARE(boxes[0].style & Mb::ButtonMask, unsigned(Mb::Ok));
    QVERIFY(m_platform->callsOf(QStringLiteral("sleep")).isEmpty()); // no pause after a failure
    // The state is read again all the same, and is what the store now reports.
    QCOMPARE(after.status, initial == 1u ? QStringLiteral("stopped") : QStringLiteral("running"));
    QCOMPARE(m_store->calls("GetMailServiceStatus"), 2u);
}

void tst_ServiceDlg::closeAndHelp()
{
    QStringList buttons;
    const int result = run("SMTPRA", "SMTP Receiver service", [&](QDialog* d) {
        for (QPushButton* b : d->findChildren<QPushButton*>())
            buttons << b->text();
        Harness::clickButton(d, "btnHelp");
        QTest::keyClick(d, Qt::Key_F1);
        Harness::clickButton(d, "btnClose");
    });
    QCOMPARE(result, 2);
    buttons.sort();
    QCOMPARE(buttons, (QStringList{QStringLiteral("&Close"), QStringLiteral("&Help"), QStringLiteral("&Start!"),
                                   QStringLiteral("St&op!")}));
    const auto help = m_platform->callsOf(QStringLiteral("help"));
    QCOMPARE(help.size(), 2);
    QCOMPARE(help[0].style, 133082u);
    QCOMPARE(help[1].style, 133082u);
    // A null caption and service do not crash; Escape closes with 2 as well.
    auto entry = reinterpret_cast<ServiceEntry>(Harness::resolveEntry("ServiceControlDialog"));
    QVERIFY(entry);
    QCOMPARE(Harness::driveModal([&] { return entry(0, *m_store, nullptr, nullptr); },
                                 [](QDialog* d) { QTest::keyClick(d, Qt::Key_Escape); }),
             2);
}

QTEST_MAIN(tst_ServiceDlg)
#include "tst_servicedlg.moc"
