// The security sheet, driven through EditSecurity: each page's round trip to the store, what keeps the
// sheet open with nothing of the page written (no authentication method, bad list entries, TLS files
// that are missing, not certificates, expired or not matching), the spam-source, network and probation
// dialogs, Cancel, and failed writes reported by name.
#include "DialogHarness.h"

#include "security/SecurityAntiSpamPage.h"
#include "security/TlsFiles.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTreeView>

namespace {
QTabWidget* tabsOf(QDialog* d)
{
    return Harness::control<QTabWidget>(d, "tabPages");
}

void showPage(QDialog* d, const char* name)
{
    QTabWidget* tabs = tabsOf(d);
    for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->widget(i)->objectName() == QLatin1String(name))
            tabs->setCurrentIndex(i);
    }
    QCOMPARE(tabs->currentWidget()->objectName(), QLatin1String(name));
}

// Runs openssl; fails the test when it does not succeed.
bool openssl(const QStringList& arguments)
{
    QProcess p;
    p.start(QStringLiteral("openssl"), arguments);
    if (!p.waitForFinished(60000) || p.exitCode() != 0) {
        qWarning() << p.readAllStandardError();
        return false;
    }
    return true;
}

// A self-signed certificate for mail.example with its key, valid for `days` from today.
bool makeCertificate(const QString& cert, const QString& key, int days = 30)
{
    return openssl({QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"), QStringLiteral("ec"),
                    QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:P-256"), QStringLiteral("-nodes"),
                    QStringLiteral("-subj"), QStringLiteral("/CN=mail.example"), QStringLiteral("-days"),
                    QString::number(days), QStringLiteral("-keyout"), key, QStringLiteral("-out"), cert});
}
} // namespace

class tst_SecuritySheet : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void generalRoundTrip();
    void authRequiredWithoutMethodRefused();
    void antiSpamRoundTrip();
    void badListEntriesRefused_data();
    void badListEntriesRefused();
    void spamSourcesAndNetworks();
    void entryRules_data();
    void entryRules();
    void dhapRoundTripAndProbation();
    void tlsFilesChecked_data();
    void tlsFilesChecked();
    void remoteServerFilesNotChecked();
    void helpPerPage();
    void cancelWritesNothing();
    void failedWriteNamedAndSheetStaysOpen();

private:
    QString m_goodCert, m_goodKey, m_otherKey, m_rsaKey;
};

void tst_SecuritySheet::initTestCase()
{
    // Certificates made once for the whole run (the directory outlives each test's own one).
    static QTemporaryDir certs;
    QVERIFY(certs.isValid());
    m_goodCert = certs.filePath(QStringLiteral("cert.pem"));
    m_goodKey = certs.filePath(QStringLiteral("key.pem"));
    m_otherKey = certs.filePath(QStringLiteral("other-key.pem"));
    m_rsaKey = certs.filePath(QStringLiteral("rsa-key.pem"));
    QVERIFY(makeCertificate(m_goodCert, m_goodKey));
    QVERIFY(makeCertificate(certs.filePath(QStringLiteral("other.pem")), m_otherKey));
    QVERIFY(openssl({QStringLiteral("genpkey"), QStringLiteral("-algorithm"), QStringLiteral("RSA"),
                     QStringLiteral("-pkeyopt"), QStringLiteral("rsa_keygen_bits:2048"), QStringLiteral("-out"), m_rsaKey}));
}

void tst_SecuritySheet::generalRoundTrip()
{
    const int result = Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        QCOMPARE(d->windowTitle(), QStringLiteral("Security Properties"));
        auto* relay = Harness::control<QComboBox>(d, "cboRelayAuth");
        QCOMPARE(relay->currentIndex(), 1); // the demo store requires authentication for relaying
        QVERIFY(Harness::control<QCheckBox>(d, "chkAuthCRAMMD5")->isChecked());
        QVERIFY(!Harness::control<QCheckBox>(d, "chkAuthSCRAMSHA1")->isChecked());
        relay->setCurrentIndex(2);
        emit relay->activated(2);
        Harness::clickButton(d, "chkAuthCRAMMD5");
        Harness::clickButton(d, "chkAuthSCRAMSHA1");
        Harness::control<QSpinBox>(d, "spnLockoutThreshold")->setValue(8);
        Harness::control<QSpinBox>(d, "spnLockoutWindow")->setValue(20);
        Harness::clickButton(d, "chkLockoutAutoExpire");
        QVERIFY(!Harness::control<QSpinBox>(d, "spnLockoutDuration")->isEnabled());
        QVERIFY(Harness::control<QPushButton>(d, "btnApply")->isEnabled());
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_store->number(nullptr, "NoUnauthenticatedRelay"), std::optional<quint32>(2));
    QCOMPARE(m_store->string("SMTPRA", "AuthMethods"), QStringLiteral("SCRAM-SHA-256, SCRAM-SHA-1, PLAIN, LOGIN"));
    QCOMPARE(m_store->number("Security", "LockoutThreshold"), std::optional<quint32>(8));
    QCOMPARE(m_store->number("Security", "LockoutWindow"), std::optional<quint32>(20));
    QCOMPARE(m_store->number("Security", "LockoutAutoExpire"), std::optional<quint32>(0));
    // Unchanged values are not written: relay, methods, threshold, window, auto-expire.
    QCOMPARE(m_store->calls("SetMailServerProperty"), 5u);
}

// Requiring authentication with no method allowed is refused on the page, before anything is written.
void tst_SecuritySheet::authRequiredWithoutMethodRefused()
{
    QString focus;
    const int result = Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        Harness::control<QSpinBox>(d, "spnLockoutThreshold")->setValue(9);
        for (const char* name : {"chkAuthSCRAMSHA256", "chkAuthCRAMMD5", "chkAuthPLAIN", "chkAuthLOGIN"})
            Harness::clickButton(d, name);
        Harness::clickButton(d, "btnOK");
        QVERIFY(d->isVisible());
        focus = d->focusWidget() ? d->focusWidget()->objectName() : QString();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QCOMPARE(m_platform->messages().size(), 1);
    QVERIFY(m_platform->messages()[0].contains(QLatin1String("no authentication method")));
    QCOMPARE(focus, QStringLiteral("chkAuthSCRAMSHA256"));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

void tst_SecuritySheet::antiSpamRoundTrip()
{
    QVERIFY(m_store->setNumber(nullptr, "LookupIncomingCalls", 0));
    QVERIFY(m_store->setString(nullptr, "RejectAllMailFrom", QStringLiteral("192.0.2.*")));
    m_store->reopen();
    bool lookupForced = false;
    const int result = Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        showPage(d, "CSecurityAntiSpamPage");
        auto* lookup = Harness::control<QCheckBox>(d, "chkLookupIncomingCalls");
        QVERIFY(!lookup->isChecked() && lookup->isEnabled());
        // Refusing anonymous servers needs their names: lookup turns on and stays on.
        Harness::clickButton(d, "chkRejectAnonymous");
        lookupForced = lookup->isChecked() && !lookup->isEnabled();
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtRblDomain"), QStringLiteral("bl.spamcop.net"));
        Harness::clickButton(d, "btnAddRblDomain");
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtReturnAddresses"), QStringLiteral("@junk.example"));
        Harness::clickButton(d, "btnAddReturnAddresses");
        Harness::clickButton(d, "chkNoUnqualifiedReturnPath");
        Harness::control<QSpinBox>(d, "spnMaxSmtpRecipients")->setValue(250);
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(lookupForced);
    QCOMPARE(m_platform->messages(), QStringList());
    QCOMPARE(m_store->number(nullptr, "AcceptUnknownSmtpHosts"), std::optional<quint32>(0));
    QCOMPARE(m_store->number(nullptr, "LookupIncomingCalls"), std::optional<quint32>(1));
    QCOMPARE(m_store->string(nullptr, "RblDomain"), QStringLiteral("zen.spamhaus.org, bl.spamcop.net"));
    QCOMPARE(m_store->string(nullptr, "RejectAllMailFromAddresses"),
             QStringLiteral("offers@promo.example, noreply@junk.example, @junk.example"));
    QCOMPARE(m_store->number("SMTPRA", "NoUnqualifiedReturnPath"), std::optional<quint32>(1));
    QCOMPARE(m_store->number(nullptr, "MaxSmtpRecipients"), std::optional<quint32>(250));
    QCOMPARE(m_store->string(nullptr, "RejectAllMailFrom"), QStringLiteral("192.0.2.*"));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 6u);
}

void tst_SecuritySheet::badListEntriesRefused_data()
{
    QTest::addColumn<QByteArray>("list"); // the list editor's name
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("message");
    QTest::addRow("zone with a blank") << QByteArray("RblDomain") << "bl spamcop.net" << "is not a DNS zone name";
    QTest::addRow("zone without a dot") << QByteArray("RblDomain") << "localhost" << "is not a DNS zone name";
    QTest::addRow("zone twice") << QByteArray("RblDomain") << "ZEN.spamhaus.org" << "is already in the list";
    QTest::addRow("two @") << QByteArray("ReturnAddresses") << "a@b@c.example" << "is not a return address";
    QTest::addRow("address twice") << QByteArray("ReturnAddresses") << "Offers@Promo.example" << "is already in the list";
}

void tst_SecuritySheet::badListEntriesRefused()
{
    QFETCH(QByteArray, list);
    QFETCH(QString, entry);
    QFETCH(QString, message);
    int rowsBefore = -1, rowsAfter = -1;
    QString focus;
    const int result = Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        showPage(d, "CSecurityAntiSpamPage");
        auto* view = Harness::control<QListWidget>(d, ("lst" + list).constData());
        rowsBefore = view->count();
        Harness::typeInto(Harness::control<QLineEdit>(d, ("edt" + list).constData()), entry);
        Harness::clickButton(d, ("btnAdd" + list).constData());
        rowsAfter = view->count();
        focus = d->focusWidget() ? d->focusWidget()->objectName() : QString();
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(rowsAfter, rowsBefore);
    QCOMPARE(focus, QString::fromLatin1("edt" + list));
    QCOMPARE(m_platform->messages().size(), 1);
    QVERIFY2(m_platform->messages()[0].contains(message), qPrintable(m_platform->messages()[0]));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

// The spam-source dialog and the subnet list editor edit copies; the sheet writes them on OK, and a
// host name among the spam sources turns DNS lookups on.
void tst_SecuritySheet::spamSourcesAndNetworks()
{
    QVERIFY(m_store->setNumber(nullptr, "LookupIncomingCalls", 0));
    QVERIFY(m_store->setNumber(nullptr, "AcceptUnknownSmtpHosts", 1));
    QVERIFY(m_store->setString(nullptr, "RejectAllMailFrom", QStringLiteral("198.51.100.*")));
    m_store->reopen();
    QString hostsLabel, networksLabel;
    const int result = Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        showPage(d, "CSecurityAntiSpamPage");
        QCOMPARE(Harness::control<QLabel>(d, "lblBlockedNetworks")->text(), QStringLiteral("Blocked networks: 1"));
        Harness::driveModal([&] { Harness::clickButton(d, "btnSpamSources"); return 0; }, [&](QDialog* spam) {
            QCOMPARE(spam->objectName(), QStringLiteral("CSpamListDlg"));
            Harness::typeInto(Harness::control<QLineEdit>(spam, "edtSpamSources"), QStringLiteral("*.bulk.example"));
            Harness::clickButton(spam, "btnAddSpamSources");
            QCOMPARE(Harness::control<QLabel>(spam, "lblSummary")->text(),
                     QStringLiteral("1 host names, 1 IP address patterns"));
            Harness::clickButton(spam, "btnOK");
        });
        Harness::driveModal([&] { Harness::clickButton(d, "btnBlockedNetworks"); return 0; }, [&](QDialog* nets) {
            auto* view = Harness::control<QTreeView>(nets, "lstSubnets");
            view->setCurrentIndex(view->model()->index(0, 0));
            Harness::clickButton(nets, "btnDelete");
            Harness::clickButton(nets, "btnOK");
        });
        hostsLabel = Harness::control<QLabel>(d, "lblBlockedHosts")->text();
        networksLabel = Harness::control<QLabel>(d, "lblBlockedNetworks")->text();
        QVERIFY(Harness::control<QCheckBox>(d, "chkLookupIncomingCalls")->isChecked());
        QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(hostsLabel, QStringLiteral("Blocked hosts and addresses: 2"));
    QCOMPARE(networksLabel, QStringLiteral("Blocked networks: 0"));
    QCOMPARE(m_store->string(nullptr, "RejectAllMailFrom"), QStringLiteral("198.51.100.*, *.bulk.example"));
    QCOMPARE(m_store->number(nullptr, "LookupIncomingCalls"), std::optional<quint32>(1));
    QCOMPARE(m_store->string("SMTPRA", "RejectAllMailFromSubnets"), QString());
    QCOMPARE(m_store->calls("SetMailServerProperty"), 3u);
}

void tst_SecuritySheet::entryRules_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("host");
    QTest::addColumn<bool>("validSource");
    QTest::addRow("address") << "203.0.113.7" << false << true;
    QTest::addRow("address pattern") << "198.51.100.*" << false << true;
    QTest::addRow("negated pattern") << "!10.*" << false << true;
    QTest::addRow("short without wildcard") << "10.20" << false << false;
    QTest::addRow("octet too large") << "10.300.0.1" << false << false;
    QTest::addRow("host") << "mail.spam.example" << true << true;
    QTest::addRow("wildcard host") << "*.bulk.example" << true << true;
    QTest::addRow("negated host") << "!good.bulk.example" << true << true;
    QTest::addRow("inner wildcard") << "mail.*.example" << true << false;
    QTest::addRow("blank") << "two words" << true << false;
}

// Which entries count as host names (they need DNS lookups) and which are refused.
void tst_SecuritySheet::entryRules()
{
    QFETCH(QString, entry);
    QFETCH(bool, host);
    QFETCH(bool, validSource);
    QCOMPARE(isHostNameEntry(entry), host);
    QCOMPARE(checkSpamSource(entry).isEmpty(), validSource);
}

void tst_SecuritySheet::dhapRoundTripAndProbation()
{
    // One address whose probation ended (hidden), two still on it, and one that is not an entry at all.
    const qint64 now = m_platform->now.toSecsSinceEpoch();
    QVERIFY(DeleteMailServerProperty(*m_store, "DHAP", "Probation"));
    for (const QString& e : {QStringLiteral("192.0.2.1,%1").arg(now - 10), QStringLiteral("192.0.2.2,%1").arg(now + 600),
                             QStringLiteral("192.0.2.3,%1").arg(now + 60), QStringLiteral("garbage")})
        QVERIFY(AddToMailServerListProperty(*m_store, "DHAP", "Probation", e.toUtf8().constData()));
    QStringList shown;
    QString countText;
    const int result = Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        showPage(d, "CSecurityDhapPage");
        QVERIFY(Harness::control<QGroupBox>(d, "grpDhapEnabled")->isChecked());
        Harness::control<QSpinBox>(d, "spnMaxInvalidPerConnection")->setValue(4);
        Harness::control<QSpinBox>(d, "spnProbationMinutes")->setValue(120);
        Harness::driveModal([&] { Harness::clickButton(d, "btnProbationList"); return 0; }, [&](QDialog* list) {
            auto* view = Harness::control<QTreeView>(list, "lstProbation");
            for (int i = 0; i < view->model()->rowCount(); ++i)
                shown << view->model()->index(i, 0).data().toString();
            QVERIFY(!Harness::control<QPushButton>(list, "btnRelease")->isEnabled());
            // The filter narrows the rows without touching the list.
            Harness::typeInto(Harness::control<QLineEdit>(list, "edtFilter"), QStringLiteral("0.2.2"));
            QCOMPARE(view->model()->rowCount(), 1);
            QCOMPARE(view->model()->index(0, 0).data().toString(), QStringLiteral("192.0.2.2"));
            Harness::typeInto(Harness::control<QLineEdit>(list, "edtFilter"), QString());
            QCOMPARE(view->model()->rowCount(), 2);
            view->selectionModel()->select(view->model()->index(0, 0),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
            Harness::clickButton(list, "btnRelease");
            countText = Harness::control<QLabel>(list, "lblCount")->text();
            Harness::clickButton(list, "btnCancel");
        });
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    // Soonest expiry first; the expired and unreadable elements are not shown.
    QCOMPARE(shown, QStringList({QStringLiteral("192.0.2.3"), QStringLiteral("192.0.2.2")}));
    QCOMPARE(countText, QStringLiteral("Addresses on probation: 1"));
    QVERIFY(!LookupMailServerListProperty(*m_store, "DHAP", "Probation",
                                          QStringLiteral("192.0.2.3,%1").arg(now + 60).toUtf8().constData()));
    QVERIFY(LookupMailServerListProperty(*m_store, "DHAP", "Probation",
                                         QStringLiteral("192.0.2.2,%1").arg(now + 600).toUtf8().constData()));
    QCOMPARE(m_store->number("DHAP", "MaxInvalidPerConnection"), std::optional<quint32>(4));
    QCOMPARE(m_store->number("DHAP", "ProbationMinutes"), std::optional<quint32>(120));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 2u);
}

void tst_SecuritySheet::tlsFilesChecked_data()
{
    QTest::addColumn<QString>("cert"); // "good", "missing", "folder", "garbage"
    QTest::addColumn<QString>("key");  // "good", "other", "rsa", "missing", "garbage"
    QTest::addColumn<int>("yearsAhead");
    QTest::addColumn<QString>("message"); // empty: accepted
    QTest::addColumn<QString>("focus");
    QTest::addRow("matching pair") << "good" << "good" << 0 << QString() << QString();
    QTest::addRow("key of another certificate") << "good" << "other" << 0 << "does not belong to the certificate" << "edtPrivateKeyFile";
    QTest::addRow("key of another algorithm") << "good" << "rsa" << 0 << "does not belong to the certificate" << "edtPrivateKeyFile";
    QTest::addRow("expired") << "good" << "good" << 5 << "expired on" << "edtCertificateFile";
    QTest::addRow("not yet valid") << "good" << "good" << -5 << "is not valid before" << "edtCertificateFile";
    QTest::addRow("missing certificate") << "missing" << "good" << 0 << "does not exist" << "edtCertificateFile";
    QTest::addRow("certificate is a folder") << "folder" << "good" << 0 << "it is a folder" << "edtCertificateFile";
    QTest::addRow("not a certificate") << "garbage" << "good" << 0 << "does not hold a certificate" << "edtCertificateFile";
    QTest::addRow("missing key") << "good" << "missing" << 0 << "does not exist" << "edtPrivateKeyFile";
    QTest::addRow("not a key") << "good" << "garbage" << 0 << "does not hold a private key" << "edtPrivateKeyFile";
}

void tst_SecuritySheet::tlsFilesChecked()
{
    QFETCH(QString, cert);
    QFETCH(QString, key);
    QFETCH(int, yearsAhead);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    const QString garbage = m_dir->filePath(QStringLiteral("garbage.pem"));
    QFile g(garbage);
    QVERIFY(g.open(QIODevice::WriteOnly));
    g.write("-----BEGIN CERTIFICATE-----\nnot base64 at all\n-----END CERTIFICATE-----\n");
    g.close();
    const QMap<QString, QString> certs{{QStringLiteral("good"), m_goodCert},
                                       {QStringLiteral("missing"), m_dir->filePath(QStringLiteral("none.pem"))},
                                       {QStringLiteral("folder"), m_dir->path()},
                                       {QStringLiteral("garbage"), garbage}};
    const QMap<QString, QString> keys{{QStringLiteral("good"), m_goodKey}, {QStringLiteral("other"), m_otherKey},
                                      {QStringLiteral("rsa"), m_rsaKey},
                                      {QStringLiteral("missing"), m_dir->filePath(QStringLiteral("none.key"))},
                                      {QStringLiteral("garbage"), garbage}};
    // The certificates are valid for 30 days from today; the sheet's "now" is the platform's.
    m_platform->now = QDateTime::currentDateTimeUtc().addYears(yearsAhead);
    QString focused, status;
    bool stayedOpen = false;
    const int result = Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        showPage(d, "CSecurityTlsPage");
        Harness::clickButton(d, "radStartTlsRequired");
        Harness::control<QSpinBox>(d, "spnLockoutThreshold"); // the General page exists, not shown again
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtCertificateFile"), certs.value(cert));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtPrivateKeyFile"), keys.value(key));
        Harness::clickButton(d, "btnOK");
        stayedOpen = d->isVisible();
        focused = d->focusWidget() ? d->focusWidget()->objectName() : QString();
        status = Harness::control<QLabel>(d, "lblCertificateStatus")->text();
        if (stayedOpen)
            Harness::clickButton(d, "btnCancel");
    });
    if (message.isEmpty()) {
        QCOMPARE(result, 1);
        QCOMPARE(m_platform->messages(), QStringList());
        QCOMPARE(m_store->string("TLS", "CertificateFile"), m_goodCert);
        QCOMPARE(m_store->string("TLS", "PrivateKeyFile"), m_goodKey);
        QCOMPARE(m_store->number("TLS", "StartTls"), std::optional<quint32>(2));
        QVERIFY2(status.startsWith(QLatin1String("Issued to mail.example by mail.example")), qPrintable(status));
        return;
    }
    QVERIFY(stayedOpen);
    QCOMPARE(result, 2);
    QCOMPARE(m_platform->messages().size(), 1);
    QVERIFY2(m_platform->messages()[0].contains(message), qPrintable(m_platform->messages()[0]));
    QCOMPARE(status, m_platform->messages()[0]);
    QCOMPARE(focused, focus);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

// The files of a server managed from another machine are on that machine: they are stored as typed,
// not looked for here, and there is nothing to browse.
void tst_SecuritySheet::remoteServerFilesNotChecked()
{
    QVERIFY(m_store->setString("Machine", "MachineName", QStringLiteral("mx9.elsewhere.example")));
    QString status;
    bool browseVisible = true;
    const int result = Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        showPage(d, "CSecurityTlsPage");
        browseVisible = Harness::control<QPushButton>(d, "btnBrowseCertificate")->isVisible();
        Harness::clickButton(d, "radStartTlsOffered");
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtCertificateFile"), QStringLiteral("/etc/tls/mx9.pem"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtPrivateKeyFile"), QStringLiteral("/etc/tls/mx9.key"));
        status = Harness::control<QLabel>(d, "lblCertificateStatus")->text();
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(!browseVisible);
    QVERIFY2(status.contains(QLatin1String("cannot be checked from here")), qPrintable(status));
    QCOMPARE(m_platform->messages(), QStringList());
    QCOMPARE(m_store->string("TLS", "CertificateFile"), QStringLiteral("/etc/tls/mx9.pem"));
    QCOMPARE(m_store->number("TLS", "StartTls"), std::optional<quint32>(1));
}

// F1 on each page asks for that page's own topic.
void tst_SecuritySheet::helpPerPage()
{
    Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        for (const char* page : {"CSecurityGeneralPage", "CSecurityAntiSpamPage", "CSecurityDhapPage", "CSecurityTlsPage"}) {
            showPage(d, page);
            Harness::pressKey(d, Qt::Key_F1);
        }
        Harness::clickButton(d, "btnCancel");
    });
    QList<unsigned> asked;
    for (const CRecordedCall& call : m_platform->callsOf(QStringLiteral("help")))
        asked << call.style - 0x20000;
    QCOMPARE(asked, QList<unsigned>({2110, 2111, 2112, 2113}));
}

void tst_SecuritySheet::cancelWritesNothing()
{
    const int result = Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        Harness::control<QSpinBox>(d, "spnLockoutThreshold")->setValue(50);
        showPage(d, "CSecurityAntiSpamPage");
        Harness::clickButton(d, "chkNoUnqualifiedRecipients");
        showPage(d, "CSecurityDhapPage");
        Harness::clickButton(d, "chkNoDhapForFriends");
        showPage(d, "CSecurityTlsPage");
        Harness::clickButton(d, "radStartTlsOffered");
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
    QCOMPARE(m_platform->messages(), QStringList());
}

// A failed write names the property; the sheet stays open on that page, the other values are written,
// and a second OK writes only what is still missing.
void tst_SecuritySheet::failedWriteNamedAndSheetStaysOpen()
{
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", "Security", "LockoutThreshold", VB_ERROR_ACCESS_DENIED, 1));
    bool stayedOpen = false;
    uint32_t writesAfterFirst = 0;
    const int result = Harness::runEntry("EditSecurity", 0, *m_store, [&](QDialog* d) {
        Harness::control<QSpinBox>(d, "spnLockoutThreshold")->setValue(7);
        Harness::control<QSpinBox>(d, "spnLockoutWindow")->setValue(30);
        Harness::clickButton(d, "btnOK");
        stayedOpen = d->isVisible();
        writesAfterFirst = m_store->calls("SetMailServerProperty");
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(stayedOpen);
    QCOMPARE(writesAfterFirst, 2u);
    QCOMPARE(m_platform->messages().size(), 1);
    QVERIFY2(m_platform->messages()[0].startsWith(QLatin1String("Could not set the 'LockoutThreshold' mail server property.")),
             qPrintable(m_platform->messages()[0]));
    QCOMPARE(m_store->number("Security", "LockoutThreshold"), std::optional<quint32>(7));
    QCOMPARE(m_store->number("Security", "LockoutWindow"), std::optional<quint32>(30));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 3u);
}

QTEST_MAIN(tst_SecuritySheet)
#include "tst_securitysheet.moc"
