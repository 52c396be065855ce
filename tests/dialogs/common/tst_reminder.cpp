// The reminder box: when it shows, what it shows, and when the choice to silence it is remembered.
#include "DialogHarness.h"

#include "common/Reminder.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTimer>

namespace {
const QString kKey = QStringLiteral("ServerAgentReminder");
constexpr unsigned kMessage = 57404;
constexpr unsigned kCaption = 57403;
} // namespace

class tst_Reminder : public CDialogTest {
    Q_OBJECT
public:
    tst_Reminder() : CDialogTest(false) {}

private Q_SLOTS:
    void silencedReturnsOkWithoutWindow_data();
    void silencedReturnsOkWithoutWindow();
    void buttonsIconAndTexts_data();
    void buttonsIconAndTexts();
    void choiceRememberedOnlyOnCheckedOk_data();
    void choiceRememberedOnlyOnCheckedOk();
    void withoutSettingsAlwaysShownNeverStored();
    void hostHelperShowsAndRemembers();

private:
    // Runs a reminder; driver (when set) acts on its window. shown tells whether a window came up.
    int runReminder(CReminder& reminder, const std::function<void(QDialog*)>& driver, bool* shown = nullptr);

};

int tst_Reminder::runReminder(CReminder& reminder, const std::function<void(QDialog*)>& driver, bool* shown)
{
    bool seen = false;
    QTimer poll;
    poll.setInterval(5);
    connect(&poll, &QTimer::timeout, this, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || seen)
            return;
        seen = true;
        if (driver)
            driver(dialog);
        if (dialog->isVisible())
            dialog->reject(); // a window that should not have come up must not hang the test
    });
    poll.start();
    const int result = reminder.run();
    if (shown)
        *shown = seen;
    return result;
}

void tst_Reminder::silencedReturnsOkWithoutWindow_data()
{
    QTest::addColumn<quint32>("stored");
    QTest::addRow("1") << 1u;
    QTest::addRow("any non-zero") << 0x80000000u;
}

void tst_Reminder::silencedReturnsOkWithoutWindow()
{
    QFETCH(quint32, stored);
    m_platform->reminders()[kKey] = stored;
    bool shown = true;
    int result = 0;
    {
        // Cancel buttons are offered, yet a silenced reminder answers OK.
        CReminder reminder(nullptr, kMessage, kKey, kCaption, Mb::OkCancel | Mb::IconExclamation);
        QVERIFY(!reminder.isToBeShown());
        result = runReminder(reminder, {}, &shown);
    }
    QCOMPARE(result, 1);
    QVERIFY(!shown);
    QVERIFY(m_platform->callsOf(QStringLiteral("setReminderValue")).isEmpty());
    QCOMPARE(m_platform->reminders().value(kKey), stored);
}

// The style's button and icon bits pick Cancel and the icon; caption 0 falls back to "Reminder"; the box
// starts unchecked.
void tst_Reminder::buttonsIconAndTexts_data()
{
    QTest::addColumn<unsigned>("flags");
    QTest::addColumn<unsigned>("captionId");
    QTest::addColumn<bool>("cancelShown");
    QTest::addColumn<int>("icon");
    QTest::addColumn<QString>("caption");
    QTest::addRow("0: OK only, information") << 0u << 0u << false << int(QStyle::SP_MessageBoxInformation)
                                             << QStringLiteral("Reminder");
    QTest::addRow("49: OK/Cancel, warning") << 49u << kCaption << true << int(QStyle::SP_MessageBoxWarning)
                                            << QStringLiteral("A UNC path is required");
    QTest::addRow("0x10 stop") << 0x11u << 0u << true << int(QStyle::SP_MessageBoxCritical) << QStringLiteral("Reminder");
    QTest::addRow("0x20 question") << 0x24u << 0u << true << int(QStyle::SP_MessageBoxQuestion) << QStringLiteral("Reminder");
    // Any other icon bits fall back to information; Yes/No buttons are still "not OK only".
    QTest::addRow("0x50 unknown icon") << 0x50u << 0u << false << int(QStyle::SP_MessageBoxInformation)
                                       << QStringLiteral("Reminder");
}

void tst_Reminder::buttonsIconAndTexts()
{
    QFETCH(unsigned, flags);
    QFETCH(unsigned, captionId);
    QFETCH(bool, cancelShown);
    QFETCH(int, icon);
    QFETCH(QString, caption);
    bool cancelVisible = !cancelShown;
    int iconKind = -1;
    QString title, message, checkText, buttons;
    bool checked = true;
    CReminder reminder(nullptr, kMessage, kKey, captionId, flags);
    const int result = runReminder(reminder, [&](QDialog* d) {
        cancelVisible = Harness::control<QPushButton>(d, "btnCancel")->isVisible();
        iconKind = Harness::control<QLabel>(d, "lblIcon")->property("iconKind").toInt();
        QVERIFY(!Harness::control<QLabel>(d, "lblIcon")->pixmap().isNull());
        title = d->windowTitle();
        message = Harness::control<QLabel>(d, "lblMessage")->text();
        checkText = Harness::control<QCheckBox>(d, "chkDontShowAgain")->text();
        checked = Harness::control<QCheckBox>(d, "chkDontShowAgain")->isChecked();
        buttons = Harness::control<QPushButton>(d, "btnOK")->text() + QLatin1Char('|')
            + Harness::control<QPushButton>(d, "btnCancel")->text();
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(buttons, QStringLiteral("&OK|&Cancel"));
    QCOMPARE(cancelVisible, cancelShown);
    QCOMPARE(iconKind, icon);
    QCOMPARE(title, caption);
    QVERIFY(message.startsWith(QLatin1String("When using a clustered configuration, you should specify a UNC path "
                                             "for the server agent.  Otherwise,")));
    QVERIFY(message.contains(QLatin1String("cluster.\n\n You should only")));
    QCOMPARE(checkText, QStringLiteral("&Don't show this dialog again"));
    QVERIFY(!checked);
}

void tst_Reminder::choiceRememberedOnlyOnCheckedOk_data()
{
    QTest::addColumn<bool>("check");
    QTest::addColumn<QString>("how"); // ok, cancel, escape
    QTest::addColumn<int>("expectedResult");
    QTest::addColumn<bool>("stored");
    QTest::addRow("checked, OK") << true << "ok" << 1 << true;
    QTest::addRow("checked, Enter") << true << "enter" << 1 << true;
    QTest::addRow("checked, Cancel") << true << "cancel" << 2 << false;
    QTest::addRow("checked, Escape") << true << "escape" << 2 << false;
    QTest::addRow("unchecked, OK") << false << "ok" << 1 << false;
}

void tst_Reminder::choiceRememberedOnlyOnCheckedOk()
{
    QFETCH(bool, check);
    QFETCH(QString, how);
    QFETCH(int, expectedResult);
    QFETCH(bool, stored);
    m_platform->reminders()[kKey] = 0; // 0 shows the reminder like no value at all
    int result = 0;
    {
        CReminder reminder(nullptr, kMessage, kKey, kCaption, 49);
        result = runReminder(reminder, [&](QDialog* d) {
            if (check)
                Harness::clickButton(d, "chkDontShowAgain");
            if (how == QLatin1String("ok"))
                Harness::clickButton(d, "btnOK");
            else if (how == QLatin1String("cancel"))
                Harness::clickButton(d, "btnCancel");
            else
                Harness::pressKey(Harness::control<QCheckBox>(d, "chkDontShowAgain"),
                                  how == QLatin1String("enter") ? Qt::Key_Return : Qt::Key_Escape);
        });
        // Remembered when the reminder goes away, not before.
        QVERIFY(m_platform->callsOf(QStringLiteral("setReminderValue")).isEmpty());
    }
    QCOMPARE(result, expectedResult);
    const auto writes = m_platform->callsOf(QStringLiteral("setReminderValue"));
    QCOMPARE(writes.size(), stored ? 1 : 0);
    QCOMPARE(m_platform->reminders().value(kKey), stored ? 1u : 0u);
    if (stored) {
        QCOMPARE(writes[0].text, kKey);
        // The next reminder of the same key stays away.
        CReminder again(nullptr, kMessage, kKey, kCaption, 49);
        bool shown = true;
        QCOMPARE(runReminder(again, {}, &shown), 1);
        QVERIFY(!shown);
    }
}

void tst_Reminder::withoutSettingsAlwaysShownNeverStored()
{
    m_platform->setRemindersAvailable(false);
    m_platform->reminders()[kKey] = 1; // unreachable without the settings
    bool shown = false;
    {
        CReminder reminder(nullptr, kMessage, kKey, kCaption, 49);
        QCOMPARE(runReminder(reminder, [](QDialog* d) {
            Harness::clickButton(d, "chkDontShowAgain");
            Harness::clickButton(d, "btnOK");
        }, &shown), 1);
    }
    QVERIFY(shown);
    QVERIFY(m_platform->callsOf(QStringLiteral("setReminderValue")).isEmpty());
}

// ShowReminder as a host calls it: remembered under its key, silent the next time, never for a null key.
void tst_Reminder::hostHelperShowsAndRemembers()
{
    using Entry = int (*)(TaviOwner, unsigned, const char*, unsigned, unsigned);
    auto entry = reinterpret_cast<Entry>(Harness::resolveEntry("ShowReminder"));
    QVERIFY(entry);
    QString title;
    const int result = Harness::driveModal([&] { return entry(0, kMessage, "WebDirectoryReminder", kCaption, 49); },
                                           [&](QDialog* d) {
                                               title = d->windowTitle();
                                               Harness::clickButton(d, "chkDontShowAgain");
                                               Harness::clickButton(d, "btnOK");
                                           });
    QCOMPARE(result, 1);
    QCOMPARE(title, QStringLiteral("A UNC path is required"));
    QCOMPARE(m_platform->reminders().value(QStringLiteral("WebDirectoryReminder")), 1u);
    // Silenced now: the second call answers OK without a window.
    QCOMPARE(entry(0, kMessage, "WebDirectoryReminder", kCaption, 49), 1);
    // No key: shown every time and never remembered (nor is a null key a crash).
    const int unnamed = Harness::driveModal([&] { return entry(0, kMessage, nullptr, 0, 0); }, [&](QDialog* d) {
        Harness::clickButton(d, "chkDontShowAgain");
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(unnamed, 1);
    QCOMPARE(m_platform->callsOf(QStringLiteral("setReminderValue")).size(), 1);
}

QTEST_MAIN(tst_Reminder)
#include "tst_reminder.moc"
