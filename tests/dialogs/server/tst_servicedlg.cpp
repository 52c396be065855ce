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

// The word and the enabled buttons for each state, before and after a start or stop: the controller is
// asked, the dialog pauses 250 ms under the wait cursor and shows the state as it then is (still
// "starting" when the service takes longer); an unreadable state or unknown service is "unknown".
void tst_ServiceDlg::stateShown_data()
{
    QTest::addColumn<quint32>("state"); // 0: no such service
    QTest::addColumn<bool>("unreadable");
    QTest::addColumn<QString>("button");  // clicked once the dialog is up
    QTest::addColumn<quint32>("pendingMs");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("start");
    QTest::addColumn<bool>("stop");
    QTest::addColumn<quint32>("stateAfter");
    QTest::addRow("stopped") << 1u << false << "" << 0u << QStringLiteral("stopped") << true << false << 1u;
    QTest::addRow("start pending") << 2u << false << "" << 0u << QStringLiteral("starting") << false << false << 2u;
    QTest::addRow("stop pending") << 3u << false << "" << 0u << QStringLiteral("stopping") << false << false << 3u;
    QTest::addRow("running") << 4u << false << "" << 0u << QStringLiteral("running") << false << true << 4u;
    QTest::addRow("continue pending") << 5u << false << "" << 0u << QStringLiteral("resuming") << false << false << 5u;
    QTest::addRow("pause pending") << 6u << false << "" << 0u << QStringLiteral("pausing") << false << false << 6u;
    QTest::addRow("paused") << 7u << false << "" << 0u << QStringLiteral("paused") << false << false << 7u;
    QTest::addRow("unreadable") << 4u << true << "" << 0u << QStringLiteral("unknown") << false << false << 4u;
    QTest::addRow("no such service") << 0u << false << "" << 0u << QStringLiteral("unknown") << false << false << 0u;
    QTest::addRow("start") << 1u << false << "btnStart" << 0u << QStringLiteral("running") << false << true << 4u;
    QTest::addRow("stop") << 4u << false << "btnStop" << 0u << QStringLiteral("stopped") << true << false << 1u;
    // The scripted pause does not wait, so a start that takes a minute is still pending.
    QTest::addRow("start still pending") << 1u << false << "btnStart" << 60000u << QStringLiteral("starting") << false
                                         << false << 2u;
}

void tst_ServiceDlg::stateShown()
{
    QFETCH(quint32, state);
    QFETCH(bool, unreadable);
    QFETCH(QString, button);
    QFETCH(quint32, pendingMs);
    QFETCH(QString, word);
    QFETCH(bool, start);
    QFETCH(bool, stop);
    QFETCH(quint32, stateAfter);
    const char* service = state ? "WebMail" : "NoSuchService";
    if (state) {
        QVERIFY(VbRegisterMailService(*m_store, "WebMail", "Web Mail Server", "builtin", nullptr, state));
        QVERIFY(m_store->setNumber("WebMail", "PendingMilliseconds", pendingMs));
    }
    if (unreadable)
        QVERIFY(VbInjectFault(*m_store, "GetMailServiceStatus", nullptr, "WebMail", VB_ERROR_BUSY, 0));
    Shown shown;
    const int result = run(service, "Web Mail Server service", [&](QDialog* d) {
        if (!button.isEmpty())
            Harness::clickButton(d, button.toLatin1().constData());
        shown = shownOf(d);
        d->reject();
    });
    VbClearFaults(*m_store);
    QCOMPARE(result, 2);
    QCOMPARE(shown.title, QStringLiteral("Web Mail Server service")); // the caption as it stands, no server name
    QCOMPARE(shown.status, word);
    QCOMPARE(shown.startEnabled, start);
    QCOMPARE(shown.stopEnabled, stop);
    QVERIFY(m_platform->messages().isEmpty());
    quint32 now = 0;
    QCOMPARE(GetMailServiceStatus(*m_store, service, &now), state != 0);
    QCOMPARE(now, stateAfter);
    // Wait cursor on, the 250 ms pause, wait cursor off, in this order, and only after a button.
    QStringList sequence;
    for (const CRecordedCall& c : m_platform->calls()) {
        if (c.kind == QLatin1String("waitCursor") || c.kind == QLatin1String("sleep"))
            sequence << QStringLiteral("%1:%2").arg(c.kind).arg(c.style);
    }
    const QStringList pause{"waitCursor:1", "sleep:250", "waitCursor:0"};
    QCOMPARE(sequence, button.isEmpty() ? QStringList() : pause);
}

// A refused start or stop shows one box naming the service and the code, skips the pause, reads the state again.
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
    QCOMPARE(boxes[0].style, unsigned(Mb::Ok)); // plain: OK only, no icon
    QVERIFY(m_platform->callsOf(QStringLiteral("sleep")).isEmpty()); // no pause after a failure
    // The state is read again all the same, and is what the store now reports.
    QCOMPARE(after.status, initial == 1u ? QStringLiteral("stopped") : QStringLiteral("running"));
    QCOMPARE(m_store->calls("GetMailServiceStatus"), 2u);
}

// The buttons' texts and mnemonics, the help context on the button and F1, and null arguments.
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
