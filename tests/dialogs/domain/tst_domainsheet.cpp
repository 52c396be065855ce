// The domain sheet and its general page: which pages and controls each format version shows, the
// default domain, count and quota parsing, the bound-address list, Apply's writes, reports and
// refusals, and the sheet's open, caption and Apply Now.
#include "DialogHarness.h"
#include "DomainTestStore.h"

#include "domain/DomainGeneralPage.h"
#include "domain/DomainSheet.h"
#include "domain/DomainValues.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QApplication>
#include <QAbstractButton>

#include <velbrook/DomainStore.h>
#include <velbrook/MailboxStore.h>

namespace {
constexpr char kSales[] = "sales.brennoway.example";

bool setHostAddresses(_tMailServer* server, const QByteArray& multi)
{
    return SetMailServerProperty(server, "Machine", VB_TYPE_MULTI_STRING, "HostAddresses", multi.constData(),
                                 uint32_t(multi.size())) != 0;
}
} // namespace

class tst_DomainSheet : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void values_data();
    void values();
    void versionGates_data();
    void versionGates();
    void defaultDomain_data();
    void defaultDomain();
    void shownValues();
    void countsAndQuotasParsed_data();
    void countsAndQuotasParsed();
    void addressList();
    void addressChangeWritten();
    void failedQuotaWriteReportedAndApplyGoesOn();
    void networkDriveRefused();
    void clusteredReminder();
    void countNotes();
    void multiLevelWarning();
    void cannotOpen();
    void captionAndApplyNow();
    void cancelWritesNothing();
    void pagesNotClipped_data();
    void pagesNotClipped();

private:
    std::unique_ptr<CDomainSheet> openSheet(const char* name);
    template <class T>
    T* ctl(QWidget* sheet, const char* name) { return Harness::control<T>(sheet, name); }
};

std::unique_ptr<CDomainSheet> tst_DomainSheet::openSheet(const char* name)
{
    auto sheet = std::make_unique<CDomainSheet>(nullptr, *m_store, name);
    if (!sheet->openDomain())
        return nullptr;
    sheet->show();
    sheet->activateWindow();
    if (!QTest::qWaitForWindowActive(sheet.get()))
        return nullptr;
    return sheet;
}

// Display and parsing rules of counts, quotas and counters.
void tst_DomainSheet::values_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("input");
    QTest::addColumn<quint32>("value");
    QTest::addColumn<QString>("shown");
    QTest::addRow("count abc") << "count" << "abc" << 4294967295u << "unlimited";
    QTest::addRow("count empty") << "count" << "  " << 4294967295u << "unlimited";
    QTest::addRow("count 12x") << "count" << " 12x" << 12u << "12";
    QTest::addRow("count -5") << "count" << "-5" << 4294967295u << "unlimited";
    QTest::addRow("count huge") << "count" << "99999999999" << 4294967295u << "unlimited";
    QTest::addRow("quota Default") << "quota" << "Default" << 4294967295u << "default";
    QTest::addRow("quota NONE") << "quota" << "NONE" << 0u << "none";
    QTest::addRow("quota 12kB") << "quota" << "12kB" << 12u << "12";
    QTest::addRow("quota words") << "quota" << "lots" << 0u << "none";
    QTest::addRow("mailbox quota default") << "mailboxquota" << "default" << 4294967295u << "4294967295";
    QTest::addRow("counter 2^31") << "counter" << "" << 2147483648u << "-2147483648";
    QTest::addRow("counter max") << "counter" << "" << 4294967295u << "-1";
}

void tst_DomainSheet::values()
{
    QFETCH(QString, kind);
    QFETCH(QString, input);
    QFETCH(quint32, value);
    QFETCH(QString, shown);
    if (kind == QLatin1String("count")) {
        QCOMPARE(parseDomainCount(input), value);
        QCOMPARE(domainCountText(value), shown);
    } else if (kind == QLatin1String("quota")) {
        QCOMPARE(parseDomainQuota(input, true), value);
        QCOMPARE(domainQuotaText(value, true), shown);
    } else if (kind == QLatin1String("mailboxquota")) {
        QCOMPARE(parseDomainQuota(input, true), value);
        QCOMPARE(domainQuotaText(value, false), shown);
    } else {
        QCOMPARE(domainCounterText(value), shown);
    }
}

// Format version 2 (or unreadable) has no synonyms page and hides the directories, counts and quotas;
// 4 adds the multi-level box, 5 the mail-list root.
void tst_DomainSheet::versionGates_data()
{
    QTest::addColumn<int>("version"); // -1: unreadable
    QTest::addColumn<QString>("pages");
    QTest::addColumn<QString>("hidden");
    const QString all = QStringLiteral("General Synonyms Aliases Relay Host Statistics");
    const QString noSynonyms = QStringLiteral("General Aliases Relay Host Statistics");
    const QString v2Hidden = QStringLiteral("chkMultiLevelMailboxDirs edtMailInBoxDir btnBrowseMailInBoxDir "
                                            "edtMaxMailboxes edtMaxMailLists grpDomainQuotas edtMailListDir");
    QTest::addRow("unreadable") << -1 << noSynonyms << v2Hidden;
    QTest::addRow("2") << 2 << noSynonyms << v2Hidden;
    QTest::addRow("3") << 3 << all << QStringLiteral("chkMultiLevelMailboxDirs edtMailListDir");
    QTest::addRow("4") << 4 << all << QStringLiteral("edtMailListDir");
    QTest::addRow("5") << 5 << all << QString();
}

void tst_DomainSheet::versionGates()
{
    QFETCH(int, version);
    QFETCH(QString, pages);
    QFETCH(QString, hidden);
    if (version < 0)
        QVERIFY(VbInjectFault(*m_store, "GetMailServerProperty", nullptr, "RegistryFormatVersion", VB_ERROR_BUSY, 0));
    else
        QVERIFY(m_store->setNumber(nullptr, "RegistryFormatVersion", quint32(version)));
    m_platform->setCanPickFolder(true);
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    QStringList titles;
    for (int i = 0; i < sheet->pageCount(); ++i)
        titles << sheet->page(i)->title();
    QCOMPARE(titles.join(QLatin1Char(' ')), pages);
    QStringList hiddenNow;
    for (const char* name : {"chkMultiLevelMailboxDirs", "edtMailInBoxDir", "btnBrowseMailInBoxDir", "edtMaxMailboxes",
                             "edtMaxMailLists", "grpDomainQuotas", "edtMailListDir", "chkLocalFailuresToPostmaster",
                             "cboIpAddress", "lblDomainStatus", "grpCalendaring"}) {
        if (ctl<QWidget>(sheet.get(), name)->isHidden())
            hiddenNow << QLatin1String(name);
    }
    QCOMPARE(hiddenNow.join(QLatin1Char(' ')), hidden);
    // Nothing hidden is written back by an unchanged OK.
    sheet->okButton()->click();
    QCOMPARE(sheet->result(), 1);
    QCOMPARE(m_store->calls("SetDomainProperty"), 0u);
    VbClearFaults(*m_store);
}

// A null or empty name, or the default domain's own name in another case, edits the default domain:
// the address controls are disabled and a changed root directory tells the server.
void tst_DomainSheet::defaultDomain_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("null");
    QTest::addRow("null") << QByteArray() << true;
    QTest::addRow("empty") << QByteArray("") << false;
    QTest::addRow("named") << QByteArray("Brennoway.EXAMPLE") << false;
}

void tst_DomainSheet::defaultDomain()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, null);
    auto sheet = openSheet(null ? nullptr : name.constData());
    QVERIFY(sheet);
    QVERIFY(sheet->isDefaultDomain());
    // The caption names the domain as it was given, or the default domain's name when none was.
    const QString shownName = name.isEmpty() ? QStringLiteral("brennoway.example") : QString::fromLatin1(name);
    QVERIFY2(sheet->windowTitle().startsWith(shownName + QLatin1String(" on ")), qPrintable(sheet->windowTitle()));
    QVERIFY(!ctl<QComboBox>(sheet.get(), "cboIpAddress")->isEnabled());
    QVERIFY(!ctl<QLabel>(sheet.get(), "lblIpAddress")->isEnabled());
    QVERIFY(!m_store->number(nullptr, "CriticalPropertiesChanged"));
    Harness::typeInto(ctl<QLineEdit>(sheet.get(), "edtMailInBoxDir"), QStringLiteral("  /srv/mail/boxes "));
    sheet->okButton()->click();
    QCOMPARE(sheet->result(), 1);
    QCOMPARE(DomainTestStore::text(*m_store, "brennoway.example", "MailInBoxDir"), QStringLiteral("/srv/mail/boxes"));
    QVERIFY(m_store->number(nullptr, "CriticalPropertiesChanged"));
    QCOMPARE(m_store->calls("SetDomainProperty"), 1u); // no address written for the default domain
}

void tst_DomainSheet::shownValues()
{
    _tDomain* d = OpenDomain(*m_store, kSales);
    const uint32_t five = 5, lists = 4294967295u, checked = 1710408413u, mailboxes = 7;
    SetDomainProperty(d, VB_TYPE_DWORD, "MaxMailboxes", &five, 4);
    SetDomainProperty(d, VB_TYPE_DWORD, "MaxMailLists", &lists, 4);
    SetDomainProperty(d, VB_TYPE_DWORD, "QuotaLastChecked", &checked, 4);
    CloseDomain(d);
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    QCOMPARE(ctl<QLineEdit>(sheet.get(), "edtMaxMailboxes")->text(), QStringLiteral("5"));
    QCOMPARE(ctl<QLineEdit>(sheet.get(), "edtMaxMailLists")->text(), QStringLiteral("unlimited"));
    QCOMPARE(ctl<QComboBox>(sheet.get(), "cboQuotaLimit")->currentText(), QStringLiteral("default"));
    QCOMPARE(ctl<QComboBox>(sheet.get(), "cboQuotaDefaultLimit")->currentText(), QStringLiteral("102400"));
    QVERIFY(ctl<QCheckBox>(sheet.get(), "chkLocalFailuresToPostmaster")->isChecked());
    QCOMPARE(ctl<QLineEdit>(sheet.get(), "edtMailInBoxDir")->text(),
             QStringLiteral("/var/spool/velbrook/sales.brennoway.example/mailboxes"));
    const QString status = ctl<QLabel>(sheet.get(), "lblDomainStatus")->text();
    QVERIFY2(status.startsWith(QLatin1String("Domain size: 48211kB (1204 messages) in 2 mailboxes\n(Last verified: ")), qPrintable(status));
    QVERIFY2(status.contains(QLatin1String("2024")) && status.endsWith(QLatin1String(").")), qPrintable(status));
    Q_UNUSED(mailboxes);
    // Calendaring is per domain in the demo (server value 2): the buttons are live.
    QVERIFY(ctl<QWidget>(sheet.get(), "radCalendarConfigured")->isEnabled());
    sheet->reject();
}

// What is typed in the count and quota fields, what is stored and what the field shows after Apply.
void tst_DomainSheet::countsAndQuotasParsed_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<quint32>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addRow("abc mailboxes") << QByteArray("edtMaxMailboxes") << QByteArray("MaxMailboxes") << "abc" << 4294967295u << "unlimited";
    QTest::addRow("empty lists") << QByteArray("edtMaxMailLists") << QByteArray("MaxMailLists") << "" << 4294967295u << "unlimited";
    QTest::addRow("Default limit") << QByteArray("cboQuotaLimit") << QByteArray("QuotaLimit") << " Default " << 4294967295u << "default";
    QTest::addRow("NONE trigger") << QByteArray("cboQuotaTrigger") << QByteArray("QuotaTrigger") << "NONE" << 0u << "none";
    QTest::addRow("12kB mailbox limit") << QByteArray("cboQuotaDefaultLimit") << QByteArray("QuotaDefaultLimit") << "12kB" << 12u << "12";
    QTest::addRow("default mailbox trigger") << QByteArray("cboQuotaDefaultTrigger") << QByteArray("QuotaDefaultTrigger") << "DEFAULT" << 4294967295u << "4294967295";
}

void tst_DomainSheet::countsAndQuotasParsed()
{
    QFETCH(QByteArray, control);
    QFETCH(QByteArray, property);
    QFETCH(QString, typed);
    QFETCH(quint32, stored);
    QFETCH(QString, shown);
    _tDomain* d = OpenDomain(*m_store, kSales);
    const uint32_t hundred = 100;
    QVERIFY(SetDomainProperty(d, VB_TYPE_DWORD, "QuotaLimit", &hundred, 4));
    CloseDomain(d);
    const uint32_t writesBefore = m_store->calls("SetDomainProperty");
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    QWidget* field = ctl<QWidget>(sheet.get(), control.constData());
    auto* combo = qobject_cast<QComboBox*>(field);
    QLineEdit* edit = combo ? combo->lineEdit() : static_cast<QLineEdit*>(field);
    if (typed.isEmpty()) {
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Backspace);
    } else {
        Harness::typeInto(edit, typed);
    }
    QVERIFY(sheet->applyButton()->isEnabled());
    sheet->applyButton()->click();
    QCOMPARE(DomainTestStore::number(*m_store, kSales, property.constData()), std::optional<quint32>(stored));
    QCOMPARE(combo ? combo->currentText() : static_cast<QLineEdit*>(field)->text(), shown);
    QCOMPARE(m_store->calls("SetDomainProperty"), writesBefore + 1);
    QCOMPARE(m_platform->messages(), QStringList());
    sheet->reject();
}

// Only addresses no other domain is bound to are offered, then the domain's own one and "<none>".
void tst_DomainSheet::addressList()
{
    QVERIFY(setHostAddresses(*m_store, QByteArray("192.0.2.25\0" "203.0.113.9\0" "198.51.100.7\0" "203.0.113.10\0", 50)));
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    auto* combo = ctl<QComboBox>(sheet.get(), "cboIpAddress");
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    QCOMPARE(items, QStringList({QStringLiteral("203.0.113.9"), QStringLiteral("203.0.113.10"),
                                 QStringLiteral("192.0.2.25"), QStringLiteral("<none>")}));
    QCOMPARE(combo->currentText(), QStringLiteral("192.0.2.25"));
    QVERIFY(combo->isEnabled());
    sheet->reject();
}

void tst_DomainSheet::addressChangeWritten()
{
    QVERIFY(setHostAddresses(*m_store, QByteArray("203.0.113.9\0", 13)));
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    auto* combo = ctl<QComboBox>(sheet.get(), "cboIpAddress");
    combo->setCurrentIndex(combo->findText(QStringLiteral("<none>")));
    Q_EMIT combo->activated(combo->currentIndex());
    sheet->applyButton()->click();
    QCOMPARE(DomainTestStore::text(*m_store, kSales, "IpAddress"), QString());
    combo->setCurrentIndex(combo->findText(QStringLiteral("203.0.113.9")));
    Q_EMIT combo->activated(combo->currentIndex());
    sheet->okButton()->click();
    QCOMPARE(DomainTestStore::text(*m_store, kSales, "IpAddress"), QStringLiteral("203.0.113.9"));
}

// A failed quota write is reported with its own context and the field shows the stored value again;
// the values after it are still written.
void tst_DomainSheet::failedQuotaWriteReportedAndApplyGoesOn()
{
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    QVERIFY(VbInjectFault(*m_store, "SetDomainProperty", nullptr, "QuotaLimit", VB_ERROR_ACCESS_DENIED, 1));
    Harness::typeInto(ctl<QComboBox>(sheet.get(), "cboQuotaLimit")->lineEdit(), QStringLiteral("5000"));
    Harness::typeInto(ctl<QComboBox>(sheet.get(), "cboQuotaTrigger")->lineEdit(), QStringLiteral("4000"));
    Harness::click(ctl<QCheckBox>(sheet.get(), "chkQuotaRealTime"));
    sheet->okButton()->click();
    QCOMPARE(sheet->result(), 1);
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(QLatin1String("Cannot set quota limit\nError: 5\n")), qPrintable(messages[0]));
    QCOMPARE(ctl<QComboBox>(sheet.get(), "cboQuotaLimit")->currentText(), QStringLiteral("default"));
    QCOMPARE(DomainTestStore::number(*m_store, kSales, "QuotaLimit"), std::optional<quint32>(4294967295u));
    QCOMPARE(DomainTestStore::number(*m_store, kSales, "QuotaTrigger"), std::optional<quint32>(4000u));
    QCOMPARE(DomainTestStore::number(*m_store, kSales, "QuotaRealTime"), std::optional<quint32>(1u));
}

// A root directory on a network drive of this machine is refused before it or anything after it is
// written; the values before it in Apply's order are already written.
void tst_DomainSheet::networkDriveRefused()
{
    m_platform->setDriveType(QStringLiteral("/mnt/nfs/boxes"), DriveType::Remote);
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    Harness::typeInto(ctl<QLineEdit>(sheet.get(), "edtMailInBoxDir"), QStringLiteral("/mnt/nfs/boxes"));
    Harness::typeInto(ctl<QLineEdit>(sheet.get(), "edtMaxMailboxes"), QStringLiteral("9"));
    sheet->okButton()->click();
    QVERIFY(sheet->isVisible());
    QCOMPARE(m_platform->messages(), QStringList({QStringLiteral("You must specify a local drive or a UNC path for this value.")}));
    QCOMPARE(m_platform->callsOf(QStringLiteral("messageBox")).first().focus, QStringLiteral("edtMailInBoxDir"));
    QCOMPARE(m_store->calls("SetDomainProperty"), 0u);
    sheet->reject();
}

// In a clustered configuration a drive path asks first; Cancel keeps the sheet open on the field.
void tst_DomainSheet::clusteredReminder()
{
    QVERIFY(Harness::makeClustered(*m_store));
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    m_platform->reminders().clear();
    QString title, text;
    QTimer poll;
    poll.setInterval(5);
    connect(&poll, &QTimer::timeout, this, [&] {
        auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!box || box->objectName() != QLatin1String("CReminder"))
            return;
        poll.stop();
        title = box->windowTitle();
        text = Harness::control<QLabel>(box, "lblMessage")->text();
        Harness::clickButton(box, "btnCancel");
    });
    poll.start();
    sheet->okButton()->click();
    QVERIFY(sheet->isVisible());
    QCOMPARE(title, QStringLiteral("A UNC path is required"));
    QVERIFY2(text.startsWith(QLatin1String("When using a clustered configuration, you should specify a UNC path for the mailbox root")), qPrintable(text));
    QVERIFY(sheet->focusWidget());
    QCOMPARE(sheet->focusWidget()->objectName(), QStringLiteral("edtMailInBoxDir"));
    QCOMPARE(m_store->calls("SetDomainProperty"), 0u);
    sheet->reject();
}

void tst_DomainSheet::countNotes()
{
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    auto* edit = ctl<QLineEdit>(sheet.get(), "edtMaxMailboxes");
    edit->setFocus();
    Harness::typeInto(edit, QStringLiteral("1"));
    ctl<QLineEdit>(sheet.get(), "edtMaxMailLists")->setFocus(Qt::TabFocusReason);
    QCOMPARE(m_platform->messages(), QStringList({QStringLiteral("NOTE - there are currently 2 mailboxes in the domain.")}));
    QCOMPARE(m_platform->callsOf(QStringLiteral("messageBox")).first().style, unsigned(Mb::IconExclamation));
    Harness::typeInto(ctl<QLineEdit>(sheet.get(), "edtMaxMailLists"), QStringLiteral("0"));
    edit->setFocus(Qt::TabFocusReason);
    QCOMPARE(m_platform->messages().size(), 2);
    QCOMPARE(m_platform->messages().last(), QStringLiteral("NOTE - there are currently 1 mail lists in the domain."));
    sheet->reject();
}

void tst_DomainSheet::multiLevelWarning()
{
    QVERIFY(m_store->setNumber("CalendarMgr", "CalendarRemit", 0));
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    auto* check = ctl<QCheckBox>(sheet.get(), "chkMultiLevelMailboxDirs");
    QVERIFY(!check->isChecked());
    Harness::click(check);
    Harness::click(check);
    QCOMPARE(m_platform->messages().size(), 1);
    QVERIFY(m_platform->messages().first().startsWith(QLatin1String("Warning!  Any existing mailbox directories")));
    // Server calendaring not per domain: the three buttons are off.
    QVERIFY(!ctl<QWidget>(sheet.get(), "radCalendarAll")->isEnabled());
    sheet->reject();
}

// A domain that cannot be opened is reported and no sheet appears.
void tst_DomainSheet::cannotOpen()
{
    bool shown = false;
    QTimer::singleShot(0, [&] { shown = QApplication::activeModalWidget() != nullptr; });
    using EditDomainFn = int (*)(TaviOwner, _tMailServer*, const char*);
    auto edit = reinterpret_cast<EditDomainFn>(Harness::resolveEntry("EditDomain"));
    QVERIFY(edit);
    QCOMPARE(edit(0, *m_store, "nowhere.example"), 2);
    QCoreApplication::processEvents();
    QVERIFY(!shown);
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(QLatin1String("Cannot open domain nowhere.example.\nError: 2\n")), qPrintable(messages[0]));
}

// The caption names the domain and the server; Apply Now commits, reopens and turns Cancel into Close.
void tst_DomainSheet::captionAndApplyNow()
{
    QString title;
    bool closeShown = false;
    quint32 opensBefore = 0, opensAfter = 0;
    const int result = Harness::driveModal(
        [&] {
            using EditDomainFn = int (*)(TaviOwner, _tMailServer*, const char*);
            return reinterpret_cast<EditDomainFn>(Harness::resolveEntry("EditDomain"))(0, *m_store, kSales);
        },
        [&](QDialog* d) {
            title = d->windowTitle();
            Harness::typeInto(Harness::control<QLineEdit>(d, "edtMaxMailboxes"), QStringLiteral("42"));
            opensBefore = m_store->calls("OpenDomain");
            Harness::clickButton(d, "btnApply");
            opensAfter = m_store->calls("OpenDomain");
            closeShown = Harness::control<QPushButton>(d, "btnOK")->text() == QLatin1String("Close")
                         && !Harness::control<QPushButton>(d, "btnCancel")->isEnabled();
            Harness::clickButton(d, "btnOK");
        });
    QCOMPARE(result, 1);
    QVERIFY2(title.startsWith(QLatin1String("sales.brennoway.example on ")) && !title.contains(QLatin1Char('%'))
                 && title.size() > int(qstrlen(kSales)) + 4, qPrintable(title));
    QCOMPARE(opensAfter, opensBefore + 1);
    QVERIFY(closeShown);
    QCOMPARE(DomainTestStore::number(*m_store, kSales, "MaxMailboxes"), std::optional<quint32>(42u));
}

void tst_DomainSheet::cancelWritesNothing()
{
    const int result = Harness::driveModal(
        [&] {
            using EditDomainFn = int (*)(TaviOwner, _tMailServer*, const char*);
            return reinterpret_cast<EditDomainFn>(Harness::resolveEntry("EditDomain"))(0, *m_store, kSales);
        },
        [&](QDialog* d) {
            Harness::typeInto(Harness::control<QLineEdit>(d, "edtMaxMailboxes"), QStringLiteral("42"));
            auto* tabs = Harness::control<QTabWidget>(d, "tabPages");
            for (int i = 0; i < tabs->count(); ++i)
                tabs->setCurrentIndex(i);
            Harness::pressKey(d, Qt::Key_Escape);
        });
    QCOMPARE(result, 2);
    QCOMPARE(m_store->calls("SetDomainProperty"), 0u);
    QCOMPARE(m_store->calls("CreateDomainSynonym"), 0u);
}

// Every page at format versions 2 and 5: no label, check box, radio or push button is narrower than
// its text needs. With TAVI_SCREENSHOT_DIR set, each page is also saved there as a picture.
void tst_DomainSheet::pagesNotClipped_data()
{
    QTest::addColumn<quint32>("version");
    QTest::addRow("v2") << 2u;
    QTest::addRow("v5") << 5u;
}

void tst_DomainSheet::pagesNotClipped()
{
    QFETCH(quint32, version);
    QVERIFY(m_store->setNumber(nullptr, "RegistryFormatVersion", version));
    QVERIFY(setHostAddresses(*m_store, QByteArray("192.0.2.25\0" "203.0.113.9\0", 24)));
    QVERIFY(CreateDomainSynonym(*m_store, kSales, "shop.brennoway.example"));
    for (const char* alias : {"david", "d.lin", "sales"}) {
        _tMailbox* mailbox = OpenMailbox(*m_store, alias[0] == 'd' ? "dave@sales.brennoway.example" : "orders@sales.brennoway.example");
        QVERIFY(mailbox && CreateMailboxAlias(mailbox, alias));
        CloseMailbox(mailbox);
    }
    auto sheet = openSheet(kSales);
    QVERIFY(sheet);
    const QString shots = qEnvironmentVariable("TAVI_SCREENSHOT_DIR");
    QStringList clipped;
    for (int i = 0; i < sheet->pageCount(); ++i) {
        QVERIFY(sheet->setActivePage(i));
        QCoreApplication::processEvents();
        CTaviPropertyPage* page = sheet->page(i);
        for (QWidget* w : page->findChildren<QWidget*>()) {
            if (!w->isVisibleTo(page) || !(qobject_cast<QLabel*>(w) || qobject_cast<QAbstractButton*>(w)))
                continue;
            auto* label = qobject_cast<QLabel*>(w);
            if (label && label->wordWrap())
                continue;
            if (w->width() < w->minimumSizeHint().width() || w->height() < w->minimumSizeHint().height())
                clipped << page->objectName() + QLatin1Char('/') + w->objectName();
        }
        if (!shots.isEmpty()) {
            const QString name = QStringLiteral("%1/%2-v%3.png").arg(shots, page->objectName().mid(1)).arg(version);
            QVERIFY(sheet->grab().save(name));
        }
    }
    QCOMPARE(clipped, QStringList());
    sheet->reject();
}

QTEST_MAIN(tst_DomainSheet)
#include "tst_domainsheet.moc"
