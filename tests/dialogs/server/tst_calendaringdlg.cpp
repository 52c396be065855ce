// The calendaring dialog, driven through EditCalendaring: the reading and writing mappings of the scope,
// which differ on purpose, and the initialisation that stops at a failed read.
#include "DialogHarness.h"

#include "server/CalendaringDlg.h"

#include <QCheckBox>
#include <QRadioButton>

class tst_CalendaringDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void scopeShownAndRewritten_data();
    void scopeShownAndRewritten();
    void failedReadStopsInitialisation_data();
    void failedReadStopsInitialisation();
    void failedWritesAreSilent();

private:
    void seed() override;
};

void tst_CalendaringDlg::seed()
{
    QVERIFY(m_store->setString("Machine", "MachineName", QStringLiteral("cal.brennoway.example")));
    QVERIFY(m_store->setNumber("CalendarMgr", "CalendarOn", 1));
    QVERIFY(m_store->setNumber("CalendarMgr", "CalendarRemit", 2));
}

void tst_CalendaringDlg::scopeShownAndRewritten_data()
{
    QTest::addColumn<quint32>("stored");
    QTest::addColumn<bool>("clearSwitch");
    QTest::addColumn<bool>("allSelected");
    QTest::addColumn<quint32>("afterOk");
    QTest::addColumn<int>("writes");
    QTest::addRow("0 all") << 0u << false << true << 0u << 0;
    // Read as "all mailboxes", which OK writes back as 0.
    QTest::addRow("1 becomes 0") << 1u << false << true << 0u << 1;
    QTest::addRow("2 configured") << 2u << false << false << 2u << 0;
    QTest::addRow("7 becomes 0") << 7u << false << true << 0u << 1;
    QTest::addRow("only the switch written") << 2u << true << false << 2u << 1;
}

void tst_CalendaringDlg::scopeShownAndRewritten()
{
    QFETCH(quint32, stored);
    QFETCH(bool, clearSwitch);
    QFETCH(bool, allSelected);
    QFETCH(quint32, afterOk);
    QFETCH(int, writes);
    QVERIFY(m_store->setNumber("CalendarMgr", "CalendarRemit", stored));
    m_store->reopen();
    bool all = false, configured = false, on = false;
    QString title;
    const int result = Harness::runEntry("EditCalendaring", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        all = Harness::control<QRadioButton>(d, "radAllMailboxes")->isChecked();
        configured = Harness::control<QRadioButton>(d, "radConfigured")->isChecked();
        on = Harness::control<QCheckBox>(d, "chkCalendarOn")->isChecked();
        if (clearSwitch)
            Harness::clickButton(d, "chkCalendarOn");
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(title, QStringLiteral("Calendaring on cal.brennoway.example"));
    QCOMPARE(all, allSelected);
    QCOMPARE(configured, !allSelected);
    QVERIFY(on);
    QCOMPARE(result, 1); // OK always closes with OK
    QCOMPARE(int(m_store->calls("SetMailServerProperty")), writes);
    QCOMPARE(m_store->number("CalendarMgr", "CalendarRemit"), std::optional<quint32>(afterOk));
    QCOMPARE(m_store->number("CalendarMgr", "CalendarOn"), std::optional<quint32>(clearSwitch ? 0 : 1));
}

// A failed read must stop filling the controls there, leaving both scope buttons clear.
void tst_CalendaringDlg::failedReadStopsInitialisation_data()
{
    QTest::addColumn<QString>("unreadable");
    QTest::addRow("CalendarOn") << QStringLiteral("CalendarOn");
    QTest::addRow("CalendarRemit") << QStringLiteral("CalendarRemit");
}

void tst_CalendaringDlg::failedReadStopsInitialisation()
{
    QFETCH(QString, unreadable);
    QVERIFY(VbInjectFault(*m_store, "GetMailServerProperty", "CalendarMgr", unreadable.toLatin1().constData(),
                          VB_ERROR_BUSY, 0));
    bool anySelected = true, on = true;
    QString title;
    const int result = Harness::runEntry("EditCalendaring", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        anySelected = Harness::control<QRadioButton>(d, "radAllMailboxes")->isChecked()
            || Harness::control<QRadioButton>(d, "radConfigured")->isChecked();
        on = Harness::control<QCheckBox>(d, "chkCalendarOn")->isChecked();
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(title, QStringLiteral("Calendaring on cal.brennoway.example")); // the caption came first
    QVERIFY(!anySelected);
    QVERIFY(!on);
    QVERIFY(m_platform->messages().isEmpty());
    QCOMPARE(result, 1);
    // The untouched controls stand for what could not be read: an untouched OK writes nothing.
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
    VbClearFaults(*m_store);
    QCOMPARE(m_store->number("CalendarMgr", "CalendarRemit"), std::optional<quint32>(2));
    QCOMPARE(m_store->number("CalendarMgr", "CalendarOn"), std::optional<quint32>(1));
}

// A failed write of the switch must neither show a box nor stop the scope from being written.
void tst_CalendaringDlg::failedWritesAreSilent()
{
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", "CalendarMgr", "CalendarOn", VB_ERROR_ACCESS_DENIED, 0));
    const int result = Harness::runEntry("EditCalendaring", 0, *m_store, [&](QDialog* d) {
        Harness::clickButton(d, "chkCalendarOn");
        Harness::clickButton(d, "radAllMailboxes");
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(m_platform->messages().isEmpty());
    VbClearFaults(*m_store);
    QCOMPARE(m_store->number("CalendarMgr", "CalendarOn"), std::optional<quint32>(1));
    QCOMPARE(m_store->number("CalendarMgr", "CalendarRemit"), std::optional<quint32>(0));
}

QTEST_MAIN(tst_CalendaringDlg)
#include "tst_calendaringdlg.moc"
