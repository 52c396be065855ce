// Schedule management, driven through ScheduleManagementDialog: the domain masks of the elapsed-time
// schedule (OK unchanged, letter case aside, as Cancel) and the immediate retry of delivery.
#include "DialogHarness.h"

#include <QLineEdit>
#include <QPushButton>

#include <velbrook/MailToolkit.h>
#include <velbrook/ServerCommon.h>

namespace {

QStringList pendingRetries(_tMailServer* server)
{
    char buffer[4096] = {};
    uint32_t size = sizeof buffer;
    if (!GetPendingRetries(server, buffer, &size))
        return {QStringLiteral("<failed>")};
    QStringList names;
    for (const char* p = buffer; *p; p += strlen(p) + 1)
        names << QString::fromUtf8(p);
    return names;
}

} // namespace

class tst_DeliveryScheduleMasterDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void masksWritten_data();
    void masksWritten();
    void reattempt_data();
    void reattempt();
    void failedWriteReported();
};

void tst_DeliveryScheduleMasterDlg::masksWritten_data()
{
    QTest::addColumn<QString>("stored"); // "<none>": the property is missing
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("typed"); // "<keep>": OK without typing
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("after");
    QTest::addRow("missing, unchanged") << "<none>" << "*" << "<keep>" << 2 << "<none>";
    QTest::addRow("unchanged") << "*.example.com" << "*.example.com" << "<keep>" << 2 << "*.example.com";
    QTest::addRow("letter case only") << "*.example.com" << "*.example.com" << "*.EXAMPLE.com" << 2 << "*.example.com";
    QTest::addRow("blanks only") << "*.example.com" << "*.example.com" << "  *.example.com " << 2 << "*.example.com";
    QTest::addRow("changed, trimmed") << "*.example.com" << "*.example.com" << " *.example.org, b.example " << 1
                                      << "*.example.org, b.example";
    QTest::addRow("missing, emptied") << "<none>" << "*" << "" << 1 << "";
}

void tst_DeliveryScheduleMasterDlg::masksWritten()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QFETCH(QString, typed);
    QFETCH(int, result);
    QFETCH(QString, after);
    DeleteMailServerProperty(*m_store, nullptr, "NoDialupDomainMask");
    if (stored != QLatin1String("<none>"))
        QVERIFY(m_store->setString(nullptr, "NoDialupDomainMask", stored));
    m_store->reopen();
    QString seen, title;
    const int got = Harness::runEntry("ScheduleManagementDialog", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        auto* mask = Harness::control<QLineEdit>(d, "edtNoDialupDomainMask");
        seen = mask->text();
        if (typed != QLatin1String("<keep>"))
            Harness::typeInto(mask, typed);
        Harness::clickButton(d, "btnOK");
    });
    QVERIFY2(title.startsWith(QLatin1String("Delivery Schedule Management on ")), qPrintable(title));
    QCOMPARE(seen, shown);
    QCOMPARE(got, result);
    QCOMPARE(m_store->calls("SetMailServerProperty"), result == 1 ? 1u : 0u);
    uint32_t size = 0;
    const bool exists = GetMailServerProperty(*m_store, nullptr, "NoDialupDomainMask", nullptr, &size, nullptr) ||
                        GetLastError() == VB_ERROR_MORE_DATA;
    QCOMPARE(exists ? m_store->string(nullptr, "NoDialupDomainMask") : QStringLiteral("<none>"), after);
}

// The reattempt list is split at blanks and commas and handed over at once; the edit is emptied, and
// the button stays disabled until something is typed again.
void tst_DeliveryScheduleMasterDlg::reattempt_data()
{
    QTest::addColumn<QString>("typed"); // "<keep>": the preset "*"
    QTest::addColumn<QStringList>("names");
    QTest::addRow("preset") << "<keep>" << QStringList{"*"};
    QTest::addRow("comma and blank, blank alone") << "a.example, b.example c.example"
                                                  << QStringList{"a.example", "b.example", "c.example"};
    QTest::addRow("separators only") << " , ," << QStringList{};
}

void tst_DeliveryScheduleMasterDlg::reattempt()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, names);
    QStringList states;
    const int result = Harness::runEntry("ScheduleManagementDialog", 0, *m_store, [&](QDialog* d) {
        auto* edit = Harness::control<QLineEdit>(d, "edtReattempt");
        auto* button = Harness::control<QPushButton>(d, "btnReattempt");
        states << QStringLiteral("%1 %2").arg(edit->text()).arg(button->isEnabled());
        if (typed != QLatin1String("<keep>"))
            Harness::typeInto(edit, typed);
        Harness::click(button);
        states << QStringLiteral("%1 %2").arg(edit->text()).arg(button->isEnabled());
        Harness::typeInto(edit, QStringLiteral("x"));
        states << QStringLiteral("%1 %2").arg(edit->text()).arg(button->isEnabled());
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QCOMPARE(states, (QStringList{"* 1", " 0", "x 1"}));
    QCOMPARE(pendingRetries(*m_store), names);
    QVERIFY(m_platform->messages().isEmpty());
}

void tst_DeliveryScheduleMasterDlg::failedWriteReported()
{
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", nullptr, "NoDialupDomainMask", VB_ERROR_BUSY, 0));
    const int result = Harness::runEntry("ScheduleManagementDialog", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtNoDialupDomainMask"), QStringLiteral("*.example"));
        Harness::clickButton(d, "btnOK");
    });
    VbClearFaults(*m_store);
    QCOMPARE(result, 1);
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(QLatin1String("Error saving Elapsed Time Schedule domain list\nError: 170\n")),
             qPrintable(messages[0]));
}

QTEST_MAIN(tst_DeliveryScheduleMasterDlg)
#include "tst_deliveryschedulemasterdlg.moc"
