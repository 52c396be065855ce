// The log flags sheet, driven through EditLogFlags: the mask goes back through the pointer on OK only,
// bits the caller does not allow (and bits the sheet does not name) keep their value, and the sheet
// writes nothing to the store.
#include "DialogHarness.h"

#include "logging/LogFlagsPropertySheet.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTabWidget>

namespace {
using LogFlagsEntry = int (*)(TaviOwner, _tMailServer*, const char*, uint32_t*, uint32_t);

void showPage(QDialog* d, const char* name)
{
    auto* tabs = Harness::control<QTabWidget>(d, "tabPages");
    for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->widget(i)->objectName() == QLatin1String(name))
            tabs->setCurrentIndex(i);
    }
}
} // namespace

class tst_LogFlagsSheet : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void maskThroughPointer_data();
    void maskThroughPointer();
    void disallowedFlagsCannotChange();
    void everyFlagHasOneBox();
    void nullPointerNotCreated();

private:
    int run(const char* caption, uint32_t* flags, uint32_t allowed, const std::function<void(QDialog*)>& driver);
};

int tst_LogFlagsSheet::run(const char* caption, uint32_t* flags, uint32_t allowed,
                           const std::function<void(QDialog*)>& driver)
{
    auto entry = reinterpret_cast<LogFlagsEntry>(Harness::resolveEntry("EditLogFlags"));
    if (!entry) {
        QTest::qFail("EditLogFlags is not exported", __FILE__, __LINE__);
        return -100;
    }
    return Harness::driveModal([&] { return entry(0, *m_store, caption, flags, allowed); }, driver);
}

void tst_LogFlagsSheet::maskThroughPointer_data()
{
    QTest::addColumn<QString>("button"); // what is pressed at the end
    QTest::addColumn<int>("result");
    QTest::addColumn<uint>("expected");
    const uint start = TAVI_LOG_SMTP_SESSIONS | TAVI_LOG_DELIVERY_QUEUE | 0x00400000u; // one unnamed bit
    // Commands on, sessions off on the first page; every delivery flag on through Select All.
    const uint edited = (start & ~TAVI_LOG_SMTP_SESSIONS) | TAVI_LOG_SMTP_COMMANDS | TAVI_LOG_DELIVERY_QUEUE
                      | TAVI_LOG_DELIVERY_REMOTE | TAVI_LOG_DELIVERY_DNS | TAVI_LOG_DELIVERY_LOCAL | TAVI_LOG_DELIVERY_DSN;
    QTest::addRow("OK") << "btnOK" << 1 << edited;
    QTest::addRow("Cancel") << "btnCancel" << 2 << start;
}

void tst_LogFlagsSheet::maskThroughPointer()
{
    QFETCH(QString, button);
    QFETCH(int, result);
    QFETCH(uint, expected);
    uint32_t flags = TAVI_LOG_SMTP_SESSIONS | TAVI_LOG_DELIVERY_QUEUE | 0x00400000u;
    QString title;
    bool sessionsShown = false, applyVisible = true;
    const int got = run("SMTP Logging", &flags, 0xFFFFFFFFu, [&](QDialog* d) {
        title = d->windowTitle();
        applyVisible = Harness::control<QPushButton>(d, "btnApply")->isVisible();
        sessionsShown = Harness::control<QCheckBox>(d, "chkLogSmtpSessions")->isChecked();
        Harness::clickButton(d, "chkLogSmtpSessions");
        Harness::clickButton(d, "chkLogSmtpCommands");
        showPage(d, "pgLogDelivery");
        Harness::clickButton(Harness::control<QWidget>(d, "pgLogDelivery"), "btnSelectAll");
        Harness::clickButton(d, button.toLatin1().constData());
    });
    QCOMPARE(got, result);
    QCOMPARE(title, QStringLiteral("SMTP Logging"));
    QVERIFY(sessionsShown);
    QVERIFY(!applyVisible);
    QCOMPARE(uint(flags), expected);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

// Flags outside the allowed mask are shown but disabled; Clear All leaves them, and so does OK.
void tst_LogFlagsSheet::disallowedFlagsCannotChange()
{
    uint32_t flags = TAVI_LOG_SYSTEM_DEBUG | TAVI_LOG_SYSTEM_AGENTS;
    const uint32_t allowed = TAVI_LOG_SYSTEM_AGENTS | TAVI_LOG_SYSTEM_LISTS;
    bool debugEnabled = true, debugChecked = false, smtpAllDisabled = false;
    const int result = run("Flags", &flags, allowed, [&](QDialog* d) {
        showPage(d, "pgLogSystem");
        auto* page = Harness::control<QWidget>(d, "pgLogSystem");
        debugEnabled = Harness::control<QCheckBox>(page, "chkLogSystemDebug")->isEnabled();
        debugChecked = Harness::control<QCheckBox>(page, "chkLogSystemDebug")->isChecked();
        Harness::clickButton(page, "btnClearAll");
        showPage(d, "pgLogSmtp");
        smtpAllDisabled = !Harness::control<QPushButton>(Harness::control<QWidget>(d, "pgLogSmtp"), "btnSelectAll")->isEnabled();
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(!debugEnabled);
    QVERIFY(debugChecked);
    QVERIFY(smtpAllDisabled);
    QCOMPARE(flags, uint32_t(TAVI_LOG_SYSTEM_DEBUG));
}

// Each named bit appears exactly once and no two flags share a bit.
void tst_LogFlagsSheet::everyFlagHasOneBox()
{
    uint32_t seen = 0;
    int count = 0;
    for (const LogFlagArea& area : logFlagAreas()) {
        for (const LogFlagInfo& flag : area.flags) {
            QVERIFY2((seen & flag.bit) == 0, flag.objectName);
            QCOMPARE(qPopulationCount(flag.bit), 1);
            seen |= flag.bit;
            ++count;
        }
    }
    QCOMPARE(count, 19);
}

void tst_LogFlagsSheet::nullPointerNotCreated()
{
    auto entry = reinterpret_cast<LogFlagsEntry>(Harness::resolveEntry("EditLogFlags"));
    QVERIFY(entry);
    QCOMPARE(entry(0, *m_store, "Flags", nullptr, 0xFFFFFFFFu), -1);
}

QTEST_MAIN(tst_LogFlagsSheet)
#include "tst_logflagssheet.moc"
