// The quotas dialog, driven through EditQuotas: switches, the interval's range, limit parsing, the
// usage summary and which controls follow the quota support box.
#include "DialogHarness.h"

#include "server/QuotasDlg.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

class tst_QuotasDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void shownValues_data();
    void shownValues();
    void usageSummary_data();
    void usageSummary();
    void unchangedOkWritesNothingButClosesOk();
    void controlsFollowQuotaSupport();
    void intervalOutOfRangeRefused_data();
    void intervalOutOfRangeRefused();
    void limitsParsed_data();
    void limitsParsed();
    void failedWritesAreSilent();

private:
    void seed() override;
};

void tst_QuotasDlg::seed()
{
    QVERIFY(m_store->setNumber(nullptr, "QuotaCopyPostmaster", 1));
    QVERIFY(m_store->setNumber(nullptr, "QuotasEnabled", 1));
    QVERIFY(m_store->setNumber(nullptr, "QuotaFailPermanent", 0));
    QVERIFY(m_store->setNumber(nullptr, "QuotaMinWarningMsgGap", 7));
    QVERIFY(m_store->setNumber(nullptr, "QuotaDomainDefaultLimit", 512000));
    QVERIFY(m_store->setNumber(nullptr, "QuotaDomainDefaultTrigger", 0));
    QVERIFY(m_store->setNumber(nullptr, "QuotaSiteNoMsgs", 18342));
    QVERIFY(m_store->setNumber(nullptr, "QuotaSiteTotSize", 2316544));
    QVERIFY(m_store->setNumber(nullptr, "QuotaSiteLastChecked", 0));
}

// Which value lands in which control, "none" for a 0 limit, and the defaults (interval 1, everything
// else 0, the dependent controls disabled) when nothing can be read.
void tst_QuotasDlg::shownValues_data()
{
    QTest::addColumn<bool>("unreadable");
    QTest::addColumn<QString>("shown"); // enabled copy fail | gap limit trigger | gap edit enabled
    QTest::addColumn<QString>("usage");
    QTest::addRow("stored") << false << "1 1 0|7 512000 none|1" << "Mailboxes contain: 2316544kB (18342 messages)";
    QTest::addRow("unreadable") << true << "0 0 0|1 none none|0" << "Mailboxes contain: 0kB (0 messages)";
}

void tst_QuotasDlg::shownValues()
{
    QFETCH(bool, unreadable);
    QFETCH(QString, shown);
    QFETCH(QString, usage);
    if (unreadable)
        QVERIFY(VbInjectFault(*m_store, "GetMailServerProperty", nullptr, nullptr, VB_ERROR_BUSY, 0));
    QString title, got, usageText;
    const int result = Harness::runEntry("EditQuotas", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        auto checked = [d](const char* name) { return Harness::control<QCheckBox>(d, name)->isChecked() ? '1' : '0'; };
        auto text = [d](const char* name) { return Harness::control<QLineEdit>(d, name)->text(); };
        got = QStringLiteral("%1 %2 %3|%4 %5 %6|%7")
                  .arg(checked("chkQuotasEnabled")).arg(checked("chkQuotaCopyPostmaster"))
                  .arg(checked("chkQuotaFailPermanent"))
                  .arg(text("edtQuotaMinWarningMsgGap"), text("edtQuotaDomainDefaultLimit"),
                       text("edtQuotaDomainDefaultTrigger"))
                  .arg(Harness::control<QLineEdit>(d, "edtQuotaMinWarningMsgGap")->isEnabled() ? 1 : 0);
        usageText = Harness::control<QLabel>(d, "lblUsage")->text();
        Harness::clickButton(d, "btnCancel");
    });
    VbClearFaults(*m_store);
    QCOMPARE(result, 2);
    QVERIFY2(title.startsWith(QLatin1String("Quotas on ")) && !title.contains(QLatin1Char('%')), qPrintable(title));
    QCOMPARE(got, shown);
    QVERIFY2(usageText.startsWith(usage), qPrintable(usageText));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

// A last check of 0 shows as "unknown", any other time as a date; the size and count are as stored.
void tst_QuotasDlg::usageSummary_data()
{
    QTest::addColumn<quint32>("lastChecked");
    QTest::addColumn<bool>("unknown");
    QTest::addRow("never measured") << 0u << true;
    QTest::addRow("measured") << 1710408413u << false; // 14 March 2024
}

void tst_QuotasDlg::usageSummary()
{
    QFETCH(quint32, lastChecked);
    QFETCH(bool, unknown);
    QVERIFY(m_store->setNumber(nullptr, "QuotaSiteLastChecked", lastChecked));
    CQuotasDlg dialog(nullptr, *m_store);
    dialog.ensureInitialised();
    const QString text = dialog.findChild<QLabel*>(QStringLiteral("lblUsage"))->text();
    QVERIFY2(text.startsWith(QLatin1String("Mailboxes contain: 2316544kB (18342 messages)\n(as of ")), qPrintable(text));
    if (unknown)
        QVERIFY2(text.endsWith(QLatin1String("(as of unknown)")), qPrintable(text));
    else
        QVERIFY2(!text.contains(QLatin1String("unknown")) && text.contains(QLatin1String("2024")), qPrintable(text));
}

// Unlike the OK-as-Cancel dialogs, an unchanged OK here still answers 1; a stored 5 must not be
// rewritten as 1 just because its box is checked.
void tst_QuotasDlg::unchangedOkWritesNothingButClosesOk()
{
    // Non-zero switches read as on: a stored 5 left checked is no change.
    QVERIFY(m_store->setNumber(nullptr, "QuotaFailPermanent", 5));
    m_store->reopen();
    const int result = Harness::runEntry("EditQuotas", 0, *m_store, [&](QDialog* d) {
        QVERIFY(Harness::control<QCheckBox>(d, "chkQuotaFailPermanent")->isChecked());
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
    QCOMPARE(m_store->number(nullptr, "QuotaFailPermanent"), std::optional<quint32>(5));
}

void tst_QuotasDlg::controlsFollowQuotaSupport()
{
    QVERIFY(m_store->setNumber(nullptr, "QuotasEnabled", 0));
    m_store->reopen();
    const char* dependent[] = {"chkQuotaCopyPostmaster", "chkQuotaFailPermanent", "lblQuotaMinWarningMsgGap",
                               "edtQuotaMinWarningMsgGap", "lblReportingOnly", "lblQuotaDomainDefaultLimit",
                               "lblQuotaDomainDefaultTrigger", "edtQuotaDomainDefaultLimit",
                               "edtQuotaDomainDefaultTrigger"};
    QStringList enabledAtFirst, disabledAfterCheck;
    bool supportEnabled = false;
    const int result = Harness::runEntry("EditQuotas", 0, *m_store, [&](QDialog* d) {
        for (const char* name : dependent) {
            if (Harness::control<QWidget>(d, name)->isEnabled())
                enabledAtFirst << QLatin1String(name);
        }
        supportEnabled = Harness::control<QCheckBox>(d, "chkQuotasEnabled")->isEnabled();
        Harness::clickButton(d, "chkQuotasEnabled");
        for (const char* name : dependent) {
            if (!Harness::control<QWidget>(d, name)->isEnabled())
                disabledAfterCheck << QLatin1String(name);
        }
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(enabledAtFirst, QStringList());
    QVERIFY(supportEnabled);
    QCOMPARE(disabledAfterCheck, QStringList());
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 1u);
    QCOMPARE(m_store->number(nullptr, "QuotasEnabled"), std::optional<quint32>(1));
}

void tst_QuotasDlg::intervalOutOfRangeRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");
    QTest::addRow("0") << QStringLiteral("0") << false;
    QTest::addRow("366") << QStringLiteral("366") << false;
    QTest::addRow("empty") << QString() << false;
    QTest::addRow("huge") << QStringLiteral("99999999999") << false;
    QTest::addRow("1") << QStringLiteral("1") << true;
    QTest::addRow("365") << QStringLiteral("365") << true;
}

void tst_QuotasDlg::intervalOutOfRangeRefused()
{
    QFETCH(QString, typed);
    QFETCH(bool, accepted);
    bool stayedOpen = false;
    QString focus;
    const int result = Harness::runEntry("EditQuotas", 0, *m_store, [&](QDialog* d) {
        // Other changes are pending too: none of them may be written while the interval is refused.
        Harness::clickButton(d, "chkQuotaCopyPostmaster");
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtQuotaDomainDefaultLimit"), QStringLiteral("100"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtQuotaMinWarningMsgGap"), typed);
        Harness::clickButton(d, "btnOK");
        stayedOpen = d->isVisible();
        focus = d->focusWidget() ? d->focusWidget()->objectName() : QString();
        if (stayedOpen) {
            QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
            Harness::clickButton(d, "btnCancel");
        }
    });
    QCOMPARE(stayedOpen, !accepted);
    QCOMPARE(result, accepted ? 1 : 2);
    const QStringList messages = m_platform->messages();
    if (accepted) {
        QVERIFY(messages.isEmpty());
        QCOMPARE(m_store->number(nullptr, "QuotaMinWarningMsgGap"), std::optional<quint32>(typed.toUInt()));
        QCOMPARE(m_store->calls("SetMailServerProperty"), 3u);
    } else {
        QCOMPARE(messages.size(), 1);
        QVERIFY2(messages[0].contains(QLatin1String("1")) && messages[0].contains(QLatin1String("365")), qPrintable(messages[0]));
        QCOMPARE(m_platform->callsOf(QStringLiteral("messageBox"))[0].focus, QStringLiteral("edtQuotaMinWarningMsgGap"));
        QCOMPARE(focus, QStringLiteral("edtQuotaMinWarningMsgGap"));
        QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
    }
}

// "none" in any case and blanks, a "kB" suffix, garbage as 0, the largest value; only changed limits written.
void tst_QuotasDlg::limitsParsed_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shownAfter");
    QTest::addColumn<quint32>("stored");
    QTest::addRow("none") << QStringLiteral("none") << QStringLiteral("none") << 0u;
    QTest::addRow(" None ") << QStringLiteral(" None ") << QStringLiteral("None") << 0u;
    QTest::addRow("NONE") << QStringLiteral("NONE") << QStringLiteral("NONE") << 0u;
    QTest::addRow("100kB") << QStringLiteral("100kB") << QStringLiteral("100kB") << 100u;
    QTest::addRow("spaces around a number") << QStringLiteral("  2048 ") << QStringLiteral("2048") << 2048u;
    QTest::addRow("not a number") << QStringLiteral("lots") << QStringLiteral("lots") << 0u;
    QTest::addRow("negative") << QStringLiteral("-5") << QStringLiteral("-5") << 0u;
    QTest::addRow("largest") << QStringLiteral("4294967295") << QStringLiteral("4294967295") << 4294967295u;
}

void tst_QuotasDlg::limitsParsed()
{
    QFETCH(QString, typed);
    QFETCH(QString, shownAfter);
    QFETCH(quint32, stored);
    // The limit starts at 512000 and the warning limit at 0 ("none"); both edits get the same text.
    QString limitAfter, triggerAfter;
    CQuotasDlg dialog(nullptr, *m_store);
    dialog.show();
    auto* limit = dialog.findChild<QLineEdit*>(QStringLiteral("edtQuotaDomainDefaultLimit"));
    auto* trigger = dialog.findChild<QLineEdit*>(QStringLiteral("edtQuotaDomainDefaultTrigger"));
    limit->setText(typed);
    trigger->setText(typed);
    Harness::click(dialog.findChild<QPushButton*>(QStringLiteral("btnOK")));
    QCOMPARE(dialog.result(), 1);
    QCOMPARE(limit->text(), shownAfter); // trimmed back into the edit
    QCOMPARE(trigger->text(), shownAfter);
    QCOMPARE(m_store->number(nullptr, "QuotaDomainDefaultLimit"), std::optional<quint32>(stored));
    QCOMPARE(m_store->number(nullptr, "QuotaDomainDefaultTrigger"), std::optional<quint32>(stored));
    // Only values that differ from what was read are written.
    const uint32_t expectedWrites = (stored != 512000u ? 1 : 0) + (stored != 0u ? 1 : 0);
    QCOMPARE(m_store->calls("SetMailServerProperty"), expectedWrites);
}

void tst_QuotasDlg::failedWritesAreSilent()
{
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", nullptr, "QuotaCopyPostmaster", VB_ERROR_ACCESS_DENIED, 0));
    const int result = Harness::runEntry("EditQuotas", 0, *m_store, [&](QDialog* d) {
        Harness::clickButton(d, "chkQuotaCopyPostmaster");
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtQuotaDomainDefaultTrigger"), QStringLiteral("400000"));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(m_platform->messages().isEmpty());
    VbClearFaults(*m_store);
    QCOMPARE(m_store->number(nullptr, "QuotaCopyPostmaster"), std::optional<quint32>(1));
    QCOMPARE(m_store->number(nullptr, "QuotaDomainDefaultTrigger"), std::optional<quint32>(400000));
}

QTEST_MAIN(tst_QuotasDlg)
#include "tst_quotasdlg.moc"
