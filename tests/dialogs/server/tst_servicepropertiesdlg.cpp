// The service properties dialog, driven through EditService: listening endpoints (parsing, a port used
// by another service refused with nothing written), the running settings' round trip, the state and the
// service control dialog, and a failed write reported by name.
#include "DialogHarness.h"

#include "server/ServicePropertiesDlg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>

namespace {
using ServiceEntry = int (*)(TaviOwner, _tMailServer*, const char*);
}

class tst_ServicePropertiesDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void endpointParsing_data();
    void endpointParsing();
    void clash_data();
    void clash();
    void roundTrip();
    void addRefused_data();
    void addRefused();
    void storedClashKeepsDialogOpen();
    void stateAndServiceControl();
    void failedWriteNamed();

private:
    int run(const char* service, const std::function<void(QDialog*)>& driver);
};

int tst_ServicePropertiesDlg::run(const char* service, const std::function<void(QDialog*)>& driver)
{
    auto entry = reinterpret_cast<ServiceEntry>(Harness::resolveEntry("EditService"));
    if (!entry) {
        QTest::qFail("EditService is not exported", __FILE__, __LINE__);
        return -100;
    }
    return Harness::driveModal([&] { return entry(0, *m_store, service); }, driver);
}

void tst_ServicePropertiesDlg::endpointParsing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("formatted"); // empty: refused
    QTest::addRow("any v4") << "*:25" << "*:25";
    QTest::addRow("unspecified v4") << "0.0.0.0:25" << "*:25";
    QTest::addRow("unspecified v6") << "[::]:587" << "*:587";
    QTest::addRow("bare port") << "110" << "*:110";
    QTest::addRow("v4") << " 192.0.2.10:2525 " << "192.0.2.10:2525";
    QTest::addRow("v6") << "[2001:DB8::1]:25" << "[2001:db8::1]:25";
    QTest::addRow("v6 without brackets") << "2001:db8::1:25" << "";
    QTest::addRow("port 0") << "*:0" << "";
    QTest::addRow("port too large") << "*:65536" << "";
    QTest::addRow("host name") << "mail.example:25" << "";
    QTest::addRow("no port") << "192.0.2.1:" << "";
    QTest::addRow("signed port") << "*:+25" << "";
}

void tst_ServicePropertiesDlg::endpointParsing()
{
    QFETCH(QString, text);
    QFETCH(QString, formatted);
    ListenEndpoint e;
    const bool ok = parseListenEndpoint(text, e);
    QCOMPARE(ok, !formatted.isEmpty());
    if (ok)
        QCOMPARE(formatListenEndpoint(e), formatted);
}

void tst_ServicePropertiesDlg::clash_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<bool>("clash");
    QTest::addRow("same address and port") << "192.0.2.1:25" << "192.0.2.1:25" << true;
    QTest::addRow("every address against one") << "*:25" << "192.0.2.1:25" << true;
    QTest::addRow("two addresses") << "192.0.2.1:25" << "192.0.2.2:25" << false;
    QTest::addRow("other port") << "*:25" << "*:587" << false;
    QTest::addRow("v6 written two ways") << "[2001:db8::1]:25" << "[2001:db8:0::1]:25" << true;
}

void tst_ServicePropertiesDlg::clash()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(bool, clash);
    ListenEndpoint x, y;
    QVERIFY(parseListenEndpoint(a, x) && parseListenEndpoint(b, y));
    QCOMPARE(listenEndpointsClash(x, y), clash);
    QCOMPARE(listenEndpointsClash(y, x), clash);
}

void tst_ServicePropertiesDlg::roundTrip()
{
    QString title;
    QStringList shown;
    const int result = run("SMTPRA", [&](QDialog* d) {
        title = d->windowTitle();
        auto* list = Harness::control<QTreeWidget>(d, "lstEndpoints");
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            shown << list->topLevelItem(i)->text(1);
        // Drop 587, add 465 on one address.
        list->setCurrentItem(list->topLevelItem(1));
        Harness::clickButton(d, "btnRemove");
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtAddress"), QStringLiteral("192.0.2.10"));
        Harness::control<QSpinBox>(d, "spnPort")->setValue(465);
        Harness::clickButton(d, "btnAdd");
        Harness::control<QComboBox>(d, "cboStartMode")->setCurrentIndex(1);
        Harness::control<QSpinBox>(d, "spnMaxWorkers")->setValue(64);
        Harness::control<QSpinBox>(d, "spnTimeout")->setValue(300);
        Harness::clickButton(d, "chkLogToFile");
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY2(title.startsWith(QLatin1String("SMTPRA service on ")) && !title.contains(QLatin1Char('%')), qPrintable(title));
    QCOMPARE(shown, QStringList({QStringLiteral("25"), QStringLiteral("587")}));
    QCOMPARE(m_platform->messages(), QStringList());
    QCOMPARE(m_store->string("SMTPRA", "ListenAddresses"), QStringLiteral("*:25, 192.0.2.10:465"));
    QCOMPARE(m_store->number("SMTPRA", "StartMode"), std::optional<quint32>(1));
    QCOMPARE(m_store->number("SMTPRA", "MaxWorkers"), std::optional<quint32>(64));
    QCOMPARE(m_store->number("SMTPRA", "Timeout"), std::optional<quint32>(300));
    QCOMPARE(m_store->number("SMTPRA", "LogToFile"), std::optional<quint32>(0));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 5u);
}

void tst_ServicePropertiesDlg::addRefused_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    QTest::addRow("not an address") << "mail.example" << 2525 << "is not an IP address" << "edtAddress";
    QTest::addRow("scoped v6") << "fe80::1%eth0" << 2525 << "is not an IP address" << "edtAddress";
    QTest::addRow("own port again") << "192.0.2.1" << 25 << "already listens on *:25" << "spnPort";
    QTest::addRow("POP3's port") << "" << 110 << "Port 110 is already used by the POP3 Server service (POP3)" << "spnPort";
}

// What cannot be added is refused with a message at once; the list and the store stay as they were.
void tst_ServicePropertiesDlg::addRefused()
{
    QFETCH(QString, address);
    QFETCH(int, port);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    int rows = 0;
    QString focused;
    const int result = run("SMTPRA", [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtAddress"), address);
        Harness::control<QSpinBox>(d, "spnPort")->setValue(port);
        Harness::clickButton(d, "btnAdd");
        focused = d->focusWidget() ? d->focusWidget()->objectName() : QString();
        rows = Harness::control<QTreeWidget>(d, "lstEndpoints")->topLevelItemCount();
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(rows, 2);
    QCOMPARE(focused, focus);
    QCOMPARE(m_platform->messages().size(), 1);
    QVERIFY2(m_platform->messages()[0].contains(message), qPrintable(m_platform->messages()[0]));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

// Another service took the port after this one stored it: OK names the other service, selects the
// endpoint at fault and writes nothing, the other changes included.
void tst_ServicePropertiesDlg::storedClashKeepsDialogOpen()
{
    QVERIFY(m_store->setString("WebMail", "ListenAddresses", QStringLiteral("192.0.2.5:587")));
    const uint32_t writesBefore = m_store->calls("SetMailServerProperty");
    bool open = false;
    QString selected;
    const int result = run("SMTPRA", [&](QDialog* d) {
        Harness::control<QSpinBox>(d, "spnTimeout")->setValue(60);
        Harness::clickButton(d, "btnOK");
        open = d->isVisible();
        auto* list = Harness::control<QTreeWidget>(d, "lstEndpoints");
        selected = list->currentItem() ? list->currentItem()->text(1) : QString();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QVERIFY(open);
    QCOMPARE(selected, QStringLiteral("587"));
    QCOMPARE(m_platform->messages().size(), 1);
    QVERIFY2(m_platform->messages()[0].contains(QLatin1String("Port 587 is already used by the Web Mail Server service (WebMail), which listens on 192.0.2.5:587")),
             qPrintable(m_platform->messages()[0]));
    QCOMPARE(m_store->calls("SetMailServerProperty"), writesBefore);
}

// The state word comes from the store; Service Control opens the control dialog, and the word follows
// what was done there.
void tst_ServicePropertiesDlg::stateAndServiceControl()
{
    QString before, controlTitle, after;
    const int result = run("WebMail", [&](QDialog* d) {
        before = Harness::control<QLabel>(d, "lblState")->text();
        Harness::driveModal([&] { Harness::clickButton(d, "btnServiceControl"); return 0; }, [&](QDialog* control) {
            controlTitle = control->windowTitle();
            Harness::clickButton(control, "btnStart");
            Harness::clickButton(control, "btnClose");
        });
        after = Harness::control<QLabel>(d, "lblState")->text();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QCOMPARE(before, QStringLiteral("stopped"));
    QCOMPARE(controlTitle, QStringLiteral("Web Mail Server service"));
    QVERIFY2(after == QLatin1String("starting") || after == QLatin1String("running"), qPrintable(after));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

void tst_ServicePropertiesDlg::failedWriteNamed()
{
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", "POP3", "Timeout", VB_ERROR_DISK_FULL, 0));
    bool open = false;
    const int result = run("POP3", [&](QDialog* d) {
        Harness::control<QSpinBox>(d, "spnTimeout")->setValue(120);
        Harness::control<QSpinBox>(d, "spnMaxWorkers")->setValue(8);
        Harness::clickButton(d, "btnOK");
        open = d->isVisible();
        Harness::clickButton(d, "btnCancel");
    });
    VbClearFaults(*m_store);
    QCOMPARE(result, 2);
    QVERIFY(open);
    QCOMPARE(m_platform->messages().size(), 1);
    QVERIFY2(m_platform->messages()[0].startsWith(QLatin1String("Could not set the 'Timeout' mail server property.")),
             qPrintable(m_platform->messages()[0]));
    QCOMPARE(m_store->number("POP3", "MaxWorkers"), std::optional<quint32>(8));
    QCOMPARE(m_store->number("POP3", "Timeout"), std::nullopt);
}

QTEST_MAIN(tst_ServicePropertiesDlg)
#include "tst_servicepropertiesdlg.moc"
