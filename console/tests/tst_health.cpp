// Configuration health rules, the panel that shows them and the statistics window, over real stores.
#include "ConsoleWindow.h"
#include "HealthPanel.h"
#include "HealthRules.h"
#include "StatisticsWindow.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <QVariant>

#include <velbrook/DemoConfiguration.h>
#include <velbrook/DomainStore.h>
#include <velbrook/ServerStore.h>
#include <velbrook/StoreTesting.h>

#include <memory>

// One change to a healthy configuration: a number (int) or a text (QString, "@dir/" expands to the test's
// folder) written to section/name.
struct Change {
    const char* section;
    const char* name;
    QVariant value;
};
using Changes = QList<Change>;
Q_DECLARE_METATYPE(Changes)

class TestHealth : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    _tMailServer* m_server = nullptr;

    QString expand(QString text) const { return text.replace(QStringLiteral("@dir/"), m_dir.path() + QLatin1Char('/')); }
    bool write(const char* section, const char* name, const QVariant& value)
    {
        if (value.typeId() == QMetaType::Int) {
            const uint32_t n = uint32_t(value.toInt());
            return SetMailServerProperty(m_server, section, VB_TYPE_DWORD, name, &n, 4) != 0;
        }
        const QByteArray text = expand(value.toString()).toUtf8();
        return SetMailServerProperty(m_server, section, VB_TYPE_STRING, name, text.constData(),
                                     uint32_t(text.size() + 1)) != 0;
    }
    void setDomainLimit(const char* property, uint32_t value)
    {
        _tDomain* d = OpenDomain(m_server, "a.example");
        QVERIFY(d);
        QVERIFY(SetDomainProperty(d, VB_TYPE_DWORD, property, &value, 4));
        CloseDomain(d);
    }
    // A store with nothing to warn about: every rule's setting on its safe side.
    void openHealthyStore()
    {
        static int n = 0;
        const QByteArray path = m_dir.filePath(QStringLiteral("health%1.db").arg(++n)).toUtf8();
        m_server = OpenMailServer(path.constData());
        QVERIFY(m_server);
        QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("spool")) && QDir(m_dir.path()).mkpath(QStringLiteral("log")));
        QFile cert(m_dir.filePath(QStringLiteral("server.pem")));
        QVERIFY(cert.open(QIODevice::WriteOnly));
        cert.write("certificate");
        const Changes healthy = {
            {nullptr, "NoUnauthenticatedRelay", 1},      {nullptr, "AcceptForRelayFrom", QStringLiteral("")},
            {"TLS", "CertificateFile", QStringLiteral("@dir/server.pem")},
            {nullptr, "RblEnabled", 1},                  {nullptr, "RblDomain", QStringLiteral("zen.example.org")},
            {"SMTPRA", "MaxTotalConnections", 200},      {"SMTPRA", "MaxClientConnections", 10},
            {nullptr, "MailSpoolDir", QStringLiteral("@dir/spool")},
            {nullptr, "MailLogDir", QStringLiteral("@dir/log")},
            {nullptr, "QuotasEnabled", 1},
        };
        for (const Change& c : healthy)
            QVERIFY2(write(c.section, c.name, c.value), c.name);
        QVERIFY(CreateDomain(m_server, "a.example"));
    }
    QStringList firing() const
    {
        QStringList ids;
        for (const HealthWarning& w : checkConfigurationHealth(m_server))
            ids.append(w.id);
        return ids;
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }
    void cleanup()
    {
        if (m_server)
            CloseMailServer(m_server);
        m_server = nullptr;
        QCOMPARE(QApplication::topLevelWidgets().size(), 0);
    }

    // Each rule fires on its own fault and only there; the near misses keep it quiet.
    void rules_data()
    {
        QTest::addColumn<Changes>("changes");
        QTest::addColumn<uint32_t>("domainLimit"); // 0: leave the domain alone
        QTest::addColumn<QStringList>("expected");
        const QStringList none;
        QTest::newRow("healthy") << Changes{} << 0u << none;
        QTest::newRow("open relay") << Changes{{nullptr, "NoUnauthenticatedRelay", 0}} << 0u
                                    << QStringList{QStringLiteral("openRelay")};
        QTest::newRow("friendly sites of * restrict nothing")
            << Changes{{nullptr, "NoUnauthenticatedRelay", 0}, {nullptr, "AcceptForRelayFrom", QStringLiteral(" *, ")}}
            << 0u << QStringList{QStringLiteral("openRelay")};
        QTest::newRow("friendly sites restrict relaying")
            << Changes{{nullptr, "NoUnauthenticatedRelay", 0}, {nullptr, "AcceptForRelayFrom", QStringLiteral("10.1.*")}}
            << 0u << none;
        QTest::newRow("no certificate") << Changes{{"TLS", "CertificateFile", QStringLiteral("  ")}} << 0u
                                        << QStringList{QStringLiteral("noTlsCertificate")};
        QTest::newRow("certificate file missing")
            << Changes{{"TLS", "CertificateFile", QStringLiteral("@dir/gone.pem")}} << 0u
            << QStringList{QStringLiteral("noTlsCertificate")};
        QTest::newRow("blacklists off") << Changes{{nullptr, "RblEnabled", 0}} << 0u
                                        << QStringList{QStringLiteral("blacklistsOff")};
        QTest::newRow("blacklist without server") << Changes{{nullptr, "RblDomain", QStringLiteral("")}} << 0u
                                                  << QStringList{QStringLiteral("blacklistsOff")};
        QTest::newRow("no connection limits")
            << Changes{{"SMTPRA", "MaxTotalConnections", 0}, {"SMTPRA", "MaxClientConnections", 0}} << 0u
            << QStringList{QStringLiteral("noConnectionLimits")};
        QTest::newRow("one connection limit is enough") << Changes{{"SMTPRA", "MaxTotalConnections", 0}} << 0u
                                                        << none;
        QTest::newRow("spool directory missing")
            << Changes{{nullptr, "MailSpoolDir", QStringLiteral("@dir/nospool")}} << 0u
            << QStringList{QStringLiteral("spoolDirectory")};
        QTest::newRow("spool directory is a file")
            << Changes{{nullptr, "MailSpoolDir", QStringLiteral("@dir/server.pem")}} << 0u
            << QStringList{QStringLiteral("spoolDirectory")};
        QTest::newRow("log directory not set") << Changes{{nullptr, "MailLogDir", QStringLiteral("")}} << 0u
                                               << QStringList{QStringLiteral("logDirectory")};
        QTest::newRow("quotas off while a domain limits")
            << Changes{{nullptr, "QuotasEnabled", 0}} << 5000u << QStringList{QStringLiteral("quotasOffWithLimits")};
        QTest::newRow("quotas off, domain on the default")
            << Changes{{nullptr, "QuotasEnabled", 0}} << 0xFFFFFFFFu << none;
        QTest::newRow("quotas on, domain limits") << Changes{} << 5000u << none;
        QTest::newRow("everything at once")
            << Changes{{nullptr, "NoUnauthenticatedRelay", 0}, {"TLS", "CertificateFile", QStringLiteral("")},
                       {nullptr, "RblEnabled", 0}, {"SMTPRA", "MaxTotalConnections", 0},
                       {"SMTPRA", "MaxClientConnections", 0}, {nullptr, "MailSpoolDir", QStringLiteral("")},
                       {nullptr, "MailLogDir", QStringLiteral("")}, {nullptr, "QuotasEnabled", 0}}
            << 1u
            << QStringList{QStringLiteral("openRelay"),          QStringLiteral("noTlsCertificate"),
                           QStringLiteral("blacklistsOff"),      QStringLiteral("noConnectionLimits"),
                           QStringLiteral("spoolDirectory"),     QStringLiteral("logDirectory"),
                           QStringLiteral("quotasOffWithLimits")};
    }
    void rules()
    {
        QFETCH(Changes, changes);
        QFETCH(uint32_t, domainLimit);
        QFETCH(QStringList, expected);
        openHealthyStore();
        for (const Change& c : changes)
            QVERIFY2(write(c.section, c.name, c.value), c.name);
        if (domainLimit)
            setDomainLimit("QuotaDefaultLimit", domainLimit);
        QCOMPARE(firing(), expected);
    }

    // An empty store (nothing set) is as unsafe as it gets, and every warning says what it found.
    void emptyStoreWarnsOfEverythingButQuotas()
    {
        const QByteArray path = m_dir.filePath(QStringLiteral("empty.db")).toUtf8();
        m_server = OpenMailServer(path.constData());
        QVERIFY(m_server);
        const QList<HealthWarning> all = checkConfigurationHealth(m_server);
        QCOMPARE(all.size(), 6);
        for (const HealthWarning& w : all) {
            QVERIFY2(!w.text.isEmpty() && !w.fixLabel.isEmpty() && !w.fixEntry.isEmpty(), qPrintable(w.id));
            QVERIFY2(w.fixLabel.contains(QLatin1Char('&')), qPrintable(w.fixLabel));
        }
    }

    void panelButtonAsksForTheFix()
    {
        openHealthyStore();
        QVERIFY(write(nullptr, "RblEnabled", QVariant(0)));
        QVERIFY(write("TLS", "CertificateFile", QVariant(QString())));
        HealthPanel panel;
        panel.setAvailability([](const QString& entry) { return entry != QLatin1String("EditSecurity"); });
        panel.refresh(m_server);
        QSignalSpy spy(&panel, &HealthPanel::fixRequested);
        auto* fix = panel.findChild<QPushButton*>(QStringLiteral("btnFix_blacklistsOff"));
        QVERIFY(fix && fix->isEnabled());
        fix->click();
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("AntiSpamWizard"));
        auto* missing = panel.findChild<QPushButton*>(QStringLiteral("btnFix_noTlsCertificate"));
        QVERIFY(missing && !missing->isEnabled());

        // Fixed outside the panel: the next refresh drops the rows and says all is well.
        QVERIFY(write(nullptr, "RblEnabled", QVariant(1)));
        QVERIFY(write("TLS", "CertificateFile", QVariant(QStringLiteral("@dir/server.pem"))));
        panel.refresh(m_server);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!panel.findChild<QPushButton*>(QStringLiteral("btnFix_blacklistsOff")));
        QVERIFY(panel.findChild<QLabel*>(QStringLiteral("lblHealthOk")));
    }

    // The console's own panel opens the fixing dialog through the library (it closes as cancelled here).
    void consoleOpensTheFixingDialog()
    {
        ConsoleWindow window;
        QVERIFY(window.openStore(m_dir.filePath(QStringLiteral("console.db"))));
        QVERIFY2(window.loadLibrary(), qPrintable(window.errorString()));
        QVERIFY(window.setRunMode(2)); // the dialog closes itself as cancelled
        auto* fix = window.findChild<QPushButton*>(QStringLiteral("btnFix_spoolDirectory"));
        QVERIFY(fix && fix->isEnabled());
        fix->click();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QString status = window.findChild<QLabel*>(QStringLiteral("lblStatus"))->text();
        QVERIFY2(status.contains(QStringLiteral("Mail directory locations")) && status.endsWith(QLatin1Char('2')),
                 qPrintable(status));
        QVERIFY(window.findChild<QPushButton*>(QStringLiteral("btnFix_spoolDirectory")));
    }

    void statisticsWindowShowsTheStoreFigures()
    {
        openHealthyStore();
        QVERIFY(VbSeedLargeDemoDomain(m_server, "large.example", 3000, nullptr, nullptr));
        StatisticsWindow window(m_server);
        auto value = [&](const char* name) { return window.findChild<QLabel*>(QString::fromLatin1(name))->text(); };
        QCOMPARE(value("lblDomains"), QLocale().toString(2));
        QCOMPARE(value("lblMailboxes"), QLocale().toString(3000));
        QCOMPARE(value("lblMailingLists"), QLocale().toString(0));
        QVERIFY(value("lblOverQuota").remove(QLocale().groupSeparator()).toInt() > 100);
        auto* largest = window.findChild<QTreeWidget*>(QStringLiteral("lstLargest"));
        QCOMPARE(largest->topLevelItemCount(), int(StatisticsWindow::kLargest));
        QVERIFY(largest->topLevelItem(0)->text(0).endsWith(QStringLiteral("@large.example")));

        // A failing query says so in its fields and below them; the others still show.
        QVERIFY(VbInjectFault(m_server, "VbSummariseQuotas", nullptr, nullptr, VB_ERROR_BUSY, 1));
        QVERIFY(!window.refresh());
        QCOMPARE(value("lblOverQuota"), QStringLiteral("unavailable"));
        QVERIFY(value("lblStatisticsStatus").contains(QStringLiteral("170")));
        QCOMPARE(value("lblMailboxes"), QLocale().toString(3000));
        QVERIFY(window.refresh());
        QVERIFY(value("lblOverQuota") != QStringLiteral("unavailable"));
    }
};

QTEST_MAIN(TestHealth)
#include "tst_health.moc"
