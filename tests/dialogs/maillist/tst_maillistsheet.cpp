// The mailing-list sheet and its general page, driven through EditMailList: which pages appear, the
// digest rules, the general page's controls, reactions, validations and writes, and the other pages'
// writes.
#include "DialogHarness.h"

#include "maillist/HeaderScript.h"
#include "maillist/MailListGeneralPage.h"
#include "maillist/MailListSheet.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

#include <velbrook/ListStore.h>

namespace {

const char kDomain[] = "brennoway.example";
using EditMailListFn = int (*)(TaviOwner, _tMailServer*, const char*, const char*);

// Presses OK or Cancel on the reminder box that comes up over the sheet; records its caption.
class CReminderAnswer : public QObject {
public:
    CReminderAnswer(QDialog* outer, bool pressOk) : m_outer(outer), m_pressOk(pressOk)
    {
        m_poll.setInterval(5);
        connect(&m_poll, &QTimer::timeout, this, [this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || dialog == m_outer)
                return;
            m_poll.stop();
            title = dialog->windowTitle();
            Harness::click(dialog->findChild<QPushButton*>(m_pressOk ? QStringLiteral("btnOK") : QStringLiteral("btnCancel")));
        });
        m_poll.start();
    }
    QString title;

private:
    QDialog* m_outer;
    bool m_pressOk;
    QTimer m_poll;
};

QStringList tabTitles(QDialog* d)
{
    QStringList titles;
    auto* tabs = Harness::control<QTabWidget>(d, "tabPages");
    for (int i = 0; tabs && i < tabs->count(); ++i)
        titles.append(tabs->tabText(i));
    return titles;
}

} // namespace

class tst_MailListSheet : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void digestNames_data();
    void digestNames();
    void pagesByVersionAndKind_data();
    void pagesByVersionAndKind();
    void openFailuresShowNoSheet_data();
    void openFailuresShowNoSheet();
    void versionOneHidesNewerControls();
    void controlsFollowDigestAndRights();
    void maxMessageSize_data();
    void maxMessageSize();
    void moderatorsCheckedBeforeSize();
    void moderatorControlsNeedModerator();
    void bounceAddressReminder_data();
    void bounceAddressReminder();
    void uncReminderOnlyWhenClustered_data();
    void uncReminderOnlyWhenClustered();
    void reactions();
    void addressFilter_data();
    void addressFilter();
    void untouchedSheetWritesNothing();
    void writesInOrderAndHiddenJournalKept();
    void failedWriteReportedOthersWritten();
    void applyReopensAndCancelBecomesClose();
    void otherPagesWriteTheirProperties();
    void headerScriptRules_data();
    void headerScriptRules();
    void headerScriptCheckedBeforeSave();
    void membershipRulesSaved();
    void renderEveryPage();

private:
    int runSheet(const char* list, const std::function<void(QDialog*)>& driver, const char* domain = kDomain);
    quint32 listNumber(const char* list, const char* name);
    QString listString(const char* list, const char* name);
    void setListNumber(const char* list, const char* name, quint32 value);
};

int tst_MailListSheet::runSheet(const char* list, const std::function<void(QDialog*)>& driver, const char* domain)
{
    auto entry = reinterpret_cast<EditMailListFn>(Harness::resolveEntry("EditMailList"));
    if (!entry)
        return -100;
    return Harness::driveModal([&] { return entry(0, *m_store, domain, list); }, driver);
}

quint32 tst_MailListSheet::listNumber(const char* list, const char* name)
{
    _tMailingList* l = OpenMailingList(*m_store, list, kDomain);
    quint32 value = 0xDEAD;
    uint32_t size = 4;
    if (l && !GetMailingListProperty(l, name, &value, &size, nullptr))
        value = 0xDEAD;
    CloseMailingList(l);
    return value;
}

QString tst_MailListSheet::listString(const char* list, const char* name)
{
    _tMailingList* l = OpenMailingList(*m_store, list, kDomain);
    char buffer[1024] = {};
    uint32_t size = sizeof buffer;
    const bool ok = l && GetMailingListProperty(l, name, buffer, &size, nullptr);
    CloseMailingList(l);
    return ok ? QString::fromUtf8(buffer) : QStringLiteral("<none>");
}

void tst_MailListSheet::setListNumber(const char* list, const char* name, quint32 value)
{
    _tMailingList* l = OpenMailingList(*m_store, list, kDomain);
    QVERIFY(l && SetMailingListProperty(l, VB_TYPE_DWORD, name, &value, 4));
    CloseMailingList(l);
}

void tst_MailListSheet::digestNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("digest");
    QTest::addRow("news-digest") << "news-digest" << true;
    QTest::addRow("upper case") << "NEWS-DIGEST" << true;
    QTest::addRow("suffix alone is too short") << "-digest" << false;
    QTest::addRow("one character more") << "x-digest" << true;
    QTest::addRow("no suffix") << "news" << false;
    QTest::addRow("suffix inside") << "news-digests" << false;
}

void tst_MailListSheet::digestNames()
{
    QFETCH(QString, name);
    QFETCH(bool, digest);
    QCOMPARE(CMailListSheet::isDigestName(name), digest);
}

void tst_MailListSheet::pagesByVersionAndKind_data()
{
    QTest::addColumn<quint32>("version");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("pages");
    QTest::addColumn<QString>("title");
    QTest::addRow("v5 ordinary") << 5u << "news"
        << "General|Messages|Security|Moderator Digest|Members|Header Script|Web Archive"
        << "Mailing List news@brennoway.example";
    QTest::addRow("v5 digest list") << 5u << "news-digest"
        << "General|Messages|Security|Digest|Members|Header Script|Web Archive"
        << "Mailing List news-digest@brennoway.example";
    QTest::addRow("v5 kind 2 with configuration") << 5u << "announce"
        << "General|Messages|Security|Moderator Digest|Header Script|Configuration|Web Archive"
        << "Announcements announce@brennoway.example";
    QTest::addRow("v1 ordinary: three pages") << 1u << "news" << "General|Members|Web Archive"
        << "Mailing List news@brennoway.example";
    QTest::addRow("v1 kind 2") << 1u << "announce" << "General|Web Archive" << "Announcements announce@brennoway.example";
}

void tst_MailListSheet::pagesByVersionAndKind()
{
    QFETCH(quint32, version);
    QFETCH(QString, list);
    QFETCH(QString, pages);
    QFETCH(QString, title);
    QVERIFY(m_store->setNumber(nullptr, "RegistryFormatVersion", version));
    QStringList shown;
    QString caption;
    const int result = runSheet(list.toUtf8().constData(), [&](QDialog* d) {
        shown = tabTitles(d);
        caption = d->windowTitle();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QCOMPARE(shown.join(QLatin1Char('|')), pages);
    QCOMPARE(caption, title);
}

// A list that cannot be opened, or whose plug-in cannot be asked, shows only the error and returns 2.
void tst_MailListSheet::openFailuresShowNoSheet_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("message");
    QTest::addRow("no such list") << "nosuch" << "" << "Cannot open mail list nosuch@brennoway.example.";
    QTest::addRow("plug-in unknown") << "news" << "GetMailingListPluginInfo"
                                     << "Cannot get information about the plugin for news@brennoway.example.";
}

void tst_MailListSheet::openFailuresShowNoSheet()
{
    QFETCH(QString, list);
    QFETCH(QString, fault);
    QFETCH(QString, message);
    if (!fault.isEmpty())
        QVERIFY(VbInjectFault(*m_store, fault.toUtf8().constData(), nullptr, nullptr, VB_ERROR_BUSY, 0));
    auto entry = reinterpret_cast<EditMailListFn>(Harness::resolveEntry("EditMailList"));
    QVERIFY(entry);
    QCOMPARE(entry(0, *m_store, nullptr, list.toUtf8().constData()), 2);
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages.first().startsWith(message), qPrintable(messages.first()));
}

void tst_MailListSheet::versionOneHidesNewerControls()
{
    QVERIFY(m_store->setNumber(nullptr, "RegistryFormatVersion", 1));
    QStringList hidden, visible;
    runSheet("news", [&](QDialog* d) {
        for (const char* name : {"grpAgents", "edtMaxMessageSize", "chkForce", "chkLogRequestCommands",
                                 "chkNoMultipleCommands", "chkConfirmToSender", "chkDisable", "chkNotifyOnNewMember",
                                 "chkModeratorControlContent", "chkLocalLanguageJournal", "edtModerators",
                                 "chkReplyToList", "chkSecureSubmission"}) {
            auto* w = Harness::control<QWidget>(d, name);
            (w && w->isVisible() ? visible : hidden).append(QLatin1String(name));
        }
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(visible, (QStringList{"edtModerators", "chkReplyToList", "chkSecureSubmission"}));
}

// Digest list, digest partner and join/leave rights decide which controls are enabled.
void tst_MailListSheet::controlsFollowDigestAndRights()
{
    setListNumber("news-digest", "UserJoinAllowed", 0);
    setListNumber("news-digest", "UserLeaveAllowed", 1);
    setListNumber("news-digest", "ModeratorControlLeave", 1);
    QString digest, ordinary;
    auto state = [](QDialog* d) {
        QString s;
        for (const char* name : {"chkForce", "radAnyone", "radMembersDigesters", "chkModeratorControlJoin",
                                 "chkModeratorControlLeave", "chkModeratorControlContent", "chkNotifyOnNewMember",
                                 "chkNotifyOnMemberLeave", "chkConfirmToSender", "chkSecureSubmission"})
            s += Harness::control<QWidget>(d, name)->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
        return s;
    };
    runSheet("news-digest", [&](QDialog* d) { digest = state(d); Harness::clickButton(d, "btnCancel"); });
    runSheet("news", [&](QDialog* d) { ordinary = state(d); Harness::clickButton(d, "btnCancel"); });
    // digest list: no Force, no posting choice, no digester partner, joining not allowed, leaving
    // moderated so its notification is off, no content moderation, no confirmation, no SMTP auth.
    QCOMPARE(digest, QStringLiteral("0000100000"));
    // news has news-digest: every control enabled.
    QCOMPARE(ordinary, QStringLiteral("1111111111"));
}

void tst_MailListSheet::maxMessageSize_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<quint32>("stored");
    QTest::addRow("upper bound") << "100000000" << true << 100000000u;
    QTest::addRow("above") << "100000001" << false << 2097152u;
    QTest::addRow("negative") << "-1" << false << 2097152u;
    QTest::addRow("digits then letters") << " 12abc" << true << 12u;
    QTest::addRow("zero") << "0" << true << 0u;
}

void tst_MailListSheet::maxMessageSize()
{
    QFETCH(QString, typed);
    QFETCH(bool, accepted);
    QFETCH(quint32, stored);
    QString focus;
    const int result = runSheet("news", [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMaxMessageSize"), typed);
        Harness::clickButton(d, "btnOK");
        if (d->isVisible()) {
            focus = Harness::focusName();
            Harness::clickButton(d, "btnCancel");
        }
    });
    QCOMPARE(result, accepted ? 1 : 2);
    QCOMPARE(listNumber("news", "MaxMessageSize"), stored);
    if (!accepted) {
        QCOMPARE(m_platform->messages(), QStringList{"Maximum message size is invalid."});
        QCOMPARE(focus, QStringLiteral("edtMaxMessageSize"));
    }
}

// Moderators only with no moderator is refused first, even with a size that is also wrong.
void tst_MailListSheet::moderatorsCheckedBeforeSize()
{
    runSheet("news", [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtModerators"), QStringLiteral("   "));
        Harness::click(Harness::control<QRadioButton>(d, "radModerators"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMaxMessageSize"), QStringLiteral("-1"));
        Harness::clickButton(d, "btnOK");
        Harness::clickButton(d, "btnCancel");
    });
    const QList<CRecordedCall> boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes[0].text.startsWith(QLatin1String("You have specified that only the moderator(s) may send")));
    QCOMPARE(boxes[0].focus, QStringLiteral("edtModerators"));
    QCOMPARE(m_store->calls("SetMailingListProperty"), 0u);
}

void tst_MailListSheet::moderatorControlsNeedModerator()
{
    runSheet("news", [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtModerators"), QString());
        Harness::click(Harness::control<QCheckBox>(d, "chkModeratorControlContent"));
        Harness::clickButton(d, "btnOK");
        Harness::clickButton(d, "btnCancel");
    });
    const QList<CRecordedCall> boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes[0].text.startsWith(QLatin1String("You have specified that the moderator controls")));
    QCOMPARE(boxes[0].focus, QStringLiteral("edtModerators"));
}

void tst_MailListSheet::bounceAddressReminder_data()
{
    QTest::addColumn<bool>("pressOk");
    QTest::addRow("accepted") << true;
    QTest::addRow("cancelled") << false;
}

void tst_MailListSheet::bounceAddressReminder()
{
    QFETCH(bool, pressOk);
    std::unique_ptr<CReminderAnswer> answer;
    QString focus;
    const int result = runSheet("news", [&](QDialog* d) {
        Harness::click(Harness::control<QRadioButton>(d, "radSendTo"));
        answer = std::make_unique<CReminderAnswer>(d, pressOk);
        Harness::clickButton(d, "btnOK");
        if (d->isVisible()) {
            focus = Harness::focusName();
            Harness::clickButton(d, "btnCancel");
        }
    });
    QCOMPARE(answer->title, QStringLiteral("Missing address for non-delivery reports"));
    QCOMPARE(result, pressOk ? 1 : 2);
    QCOMPARE(listNumber("news", "BounceAction"), pressOk ? 0u : 1u);
    if (!pressOk)
        QCOMPARE(focus, QStringLiteral("edtBouncesTo"));
}

void tst_MailListSheet::uncReminderOnlyWhenClustered_data()
{
    QTest::addColumn<bool>("clustered");
    QTest::addColumn<QString>("agent");
    QTest::addColumn<QString>("asked");
    QTest::addRow("drive letter, clustered") << true << "C:\\agents\\list.exe" << "MailListAgentReminder";
    QTest::addRow("drive letter, not clustered") << false << "C:\\agents\\list.exe" << "";
    QTest::addRow("UNC path") << true << "\\\\files\\agents\\list.exe" << "";
    QTest::addRow("one character") << true << "x" << "";
    QTest::addRow("leading blanks") << true << "   C:\\a" << "MailListAgentReminder";
}

void tst_MailListSheet::uncReminderOnlyWhenClustered()
{
    QFETCH(bool, clustered);
    QFETCH(QString, agent);
    QFETCH(QString, asked);
    if (clustered)
        QVERIFY(Harness::makeClustered(*m_store));
    // Silenced reminders answer OK at once; asking for their value shows which were raised.
    m_platform->reminders()[QStringLiteral("MailListAgentReminder")] = 1;
    m_platform->reminders()[QStringLiteral("MailListProcessorAgentReminder")] = 1;
    runSheet("news", [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtCommandLine"), agent);
        Harness::clickButton(d, "btnOK");
    });
    QStringList keys;
    for (const CRecordedCall& c : m_platform->callsOf(QStringLiteral("reminderValue")))
        keys.append(c.text);
    QCOMPARE(keys.join(QLatin1Char(',')), asked);
    QCOMPARE(listString("news", "CommandLine"), agent.trimmed());
}

void tst_MailListSheet::reactions()
{
    runSheet("news", [&](QDialog* d) {
        auto* join = Harness::control<QCheckBox>(d, "chkModeratorControlJoin");
        auto* notify = Harness::control<QCheckBox>(d, "chkNotifyOnNewMember");
        Harness::click(notify);
        QVERIFY(notify->isChecked());
        Harness::click(join);
        QVERIFY(!notify->isChecked() && !notify->isEnabled());
        Harness::click(join);
        QVERIFY(notify->isEnabled());

        auto* reply = Harness::control<QCheckBox>(d, "chkReplyToList");
        auto* force = Harness::control<QCheckBox>(d, "chkForce");
        Harness::click(force);
        QVERIFY(force->isChecked());
        Harness::click(reply);
        QVERIFY(!force->isChecked() && !force->isEnabled());
        Harness::click(reply);
        QVERIFY(force->isEnabled() && !force->isChecked());

        auto* secure = Harness::control<QCheckBox>(d, "chkSecureSubmission");
        Harness::click(Harness::control<QRadioButton>(d, "radAnyone"));
        QVERIFY(!secure->isEnabled());
        Harness::click(Harness::control<QRadioButton>(d, "radMembersDigesters"));
        QVERIFY(secure->isEnabled());
        QVERIFY(Harness::control<QPushButton>(d, "btnApply")->isEnabled());
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(m_store->calls("SetMailingListProperty"), 0u);
}

void tst_MailListSheet::addressFilter_data()
{
    QTest::addColumn<QString>("edit");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<int>("beeps");
    QTest::addRow("moderators keep commas") << "edtModerators" << "a@x.example, b@y.example" << "a@x.example,b@y.example" << 1;
    QTest::addRow("send-to drops commas") << "edtBouncesTo" << "a,b@x.example" << "ab@x.example" << 1;
    QTest::addRow("brackets") << "edtModerators" << "<a@x>" << "a@x" << 2;
    QTest::addRow("clean") << "edtBouncesTo" << "owner@x.example" << "owner@x.example" << 0;
}

void tst_MailListSheet::addressFilter()
{
    QFETCH(QString, edit);
    QFETCH(QString, typed);
    QFETCH(QString, kept);
    QFETCH(int, beeps);
    QString shown;
    runSheet("news", [&](QDialog* d) {
        auto* e = Harness::control<QLineEdit>(d, edit.toLatin1().constData());
        e->clear();
        e->setFocus();
        QTest::keyClicks(e, typed);
        shown = e->text();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(shown, kept);
    const QList<CRecordedCall> beepCalls = m_platform->callsOf(QStringLiteral("beep"));
    QCOMPARE(beepCalls.size(), beeps);
    for (const CRecordedCall& b : beepCalls)
        QCOMPARE(b.style, 400u);
}

// Visiting every page and pressing OK writes nothing when nothing was changed.
void tst_MailListSheet::untouchedSheetWritesNothing()
{
    const int result = runSheet("news", [&](QDialog* d) {
        auto* tabs = Harness::control<QTabWidget>(d, "tabPages");
        for (int i = 0; i < tabs->count(); ++i)
            tabs->setCurrentIndex(i);
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetMailingListProperty"), 0u);
    QCOMPARE(m_store->calls("AddMailingListMembers"), 0u);
    QVERIFY(m_platform->messages().isEmpty());
}

// The journal box is never shown, yet its stored value survives and the other flags are written.
void tst_MailListSheet::writesInOrderAndHiddenJournalKept()
{
    setListNumber("news", "LocalLanguageJournal", 1);
    const uint32_t before = m_store->calls("SetMailingListProperty");
    runSheet("news", [&](QDialog* d) {
        QVERIFY(!Harness::control<QCheckBox>(d, "chkLocalLanguageJournal")->isVisible());
        QVERIFY(Harness::control<QCheckBox>(d, "chkLocalLanguageJournal")->isChecked());
        Harness::click(Harness::control<QCheckBox>(d, "chkForce"));
        Harness::click(Harness::control<QCheckBox>(d, "chkDisable"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtModerators"), QStringLiteral("  bob@brennoway.example "));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(m_store->calls("SetMailingListProperty") - before, 3u);
    QCOMPARE(listNumber("news", "ReplyToList"), 2u);
    QCOMPARE(listNumber("news", "Disable"), 1u);
    QCOMPARE(listNumber("news", "LocalLanguageJournal"), 1u);
    QCOMPARE(listString("news", "Moderator"), QStringLiteral("bob@brennoway.example"));
}

void tst_MailListSheet::failedWriteReportedOthersWritten()
{
    QVERIFY(VbInjectFault(*m_store, "SetMailingListProperty", nullptr, "Moderator", VB_ERROR_ACCESS_DENIED, 0));
    const int result = runSheet("news", [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtModerators"), QStringLiteral("bob@brennoway.example"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtBouncesTo"), QStringLiteral("owner@brennoway.example"));
        Harness::clickButton(d, "btnOK");
    });
    VbClearFaults(*m_store);
    QCOMPARE(result, 1);
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(QLatin1String("Cannot set mail list property Moderator")), qPrintable(messages[0]));
    QCOMPARE(listString("news", "Moderator"), QStringLiteral("alice@brennoway.example"));
    QCOMPARE(listString("news", "BouncesTo"), QStringLiteral("owner@brennoway.example"));
}

void tst_MailListSheet::applyReopensAndCancelBecomesClose()
{
    const int result = runSheet("news", [&](QDialog* d) {
        Harness::click(Harness::control<QCheckBox>(d, "chkDisable"));
        Harness::clickButton(d, "btnApply");
        QVERIFY(!Harness::control<QPushButton>(d, "btnCancel")->isEnabled());
        QCOMPARE(m_store->calls("OpenMailingList"), 3u); // open, has-digest probe, reopen
        // A second apply of the same page writes nothing more.
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetMailingListProperty"), 1u);
    QCOMPARE(listNumber("news", "Disable"), 1u);
}

void tst_MailListSheet::otherPagesWriteTheirProperties()
{
    runSheet("news", [&](QDialog* d) {
        auto* tabs = Harness::control<QTabWidget>(d, "tabPages");
        tabs->setCurrentIndex(1);
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtSubjectPrefix"), QStringLiteral("[News] "));
        Harness::control<QComboBox>(d, "cboAttachmentPolicy")->setCurrentIndex(2);
        tabs->setCurrentIndex(2);
        Harness::control<QPlainTextEdit>(d, "txtRefusedPosters")->setPlainText(QStringLiteral("*@spam.example\n\n  *@junk.example "));
        tabs->setCurrentIndex(3);
        Harness::control<QSpinBox>(d, "spnDigestMaxSize")->setValue(64);
        tabs->setCurrentIndex(tabs->count() - 1);
        Harness::click(Harness::control<QCheckBox>(d, "chkWebArchive"));
        Harness::clickButton(d, "btnOK");
        // An archive without a directory is refused, with the focus on the directory.
        QCOMPARE(Harness::focusName(), QStringLiteral("edtWebArchiveDir"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtWebArchiveDir"), QStringLiteral("/srv/archive/news"));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(listString("news", "SubjectPrefix"), QStringLiteral("[News]"));
    QCOMPARE(listNumber("news", "AttachmentPolicy"), 2u);
    QCOMPARE(listNumber("news", "DigestMaxSize"), 64u);
    QCOMPARE(listNumber("news", "WebArchive"), 1u);
    QCOMPARE(listString("news", "WebArchiveDir"), QStringLiteral("/srv/archive/news"));
    _tMailingList* l = OpenMailingList(*m_store, "news", kDomain);
    char buffer[256] = {};
    uint32_t size = sizeof buffer, type = 0;
    QVERIFY(GetMailingListProperty(l, "RefusedPosters", buffer, &size, &type));
    CloseMailingList(l);
    QCOMPARE(type, VB_TYPE_MULTI_STRING);
    QCOMPARE(QByteArray(buffer, int(size)), QByteArray("*@spam.example\0*@junk.example\0\0", 31));
    QCOMPARE(m_store->calls("SetMailingListProperty"), 6u);
}

void tst_MailListSheet::headerScriptRules_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("badLines");
    QTest::addRow("every command") << "add X-A: 1\nSET x-b: two words\n\tremove X-C\nrename X-D X-E\n# note\n\n" << "";
    QTest::addRow("unknown command") << "append X-A: 1" << "1";
    QTest::addRow("missing colon") << "add X-A 1\nset X-B" << "1,2";
    QTest::addRow("bad header names") << "add X A: 1\nremove X:Y\nrename X-D\nadd : empty" << "1,2,3,4";
    QTest::addRow("value may hold colons") << "set Reply-To: list <l@x.example>: yes" << "";
    QTest::addRow("remove takes one name") << "remove X-A X-B" << "1";
}

void tst_MailListSheet::headerScriptRules()
{
    QFETCH(QString, script);
    QFETCH(QString, badLines);
    QStringList lines;
    for (const HeaderScript::Error& e : HeaderScript::check(script))
        lines.append(QString::number(e.line));
    QCOMPARE(lines.join(QLatin1Char(',')), badLines);
}

void tst_MailListSheet::headerScriptCheckedBeforeSave()
{
    QString status;
    runSheet("news", [&](QDialog* d) {
        auto* tabs = Harness::control<QTabWidget>(d, "tabPages");
        tabs->setCurrentIndex(5);
        auto* script = Harness::control<QPlainTextEdit>(d, "txtHeaderScript");
        script->setPlainText(QStringLiteral("# tag the list\nadd X-List: news\nremove Received: x\nset Reply-To addr\n"));
        Harness::clickButton(d, "btnOK");
        QVERIFY(d->isVisible());
        script->setPlainText(QStringLiteral("add X-List: news\nrename X-Old X-New\n"));
        Harness::clickButton(d, "btnOK");
    });
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].contains(QLatin1String("Line 3:")) && messages[0].contains(QLatin1String("Line 4:"))
                 && !messages[0].contains(QLatin1String("Line 2:")),
             qPrintable(messages[0]));
    QCOMPARE(listString("news", "HeaderScript"), QStringLiteral("add X-List: news\nrename X-Old X-New\n"));
}

void tst_MailListSheet::membershipRulesSaved()
{
    runSheet("announce", [&](QDialog* d) {
        auto* tabs = Harness::control<QTabWidget>(d, "tabPages");
        tabs->setCurrentIndex(5);
        auto* table = Harness::control<QTableWidget>(d, "tblRules");
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(table->item(1, 0)->text(), QStringLiteral("ExcludeMailboxes"));
        table->item(1, 1)->setText(QString()); // an emptied value removes the rule
        Harness::clickButton(d, "btnAddRule");
        table->setItem(2, 0, new QTableWidgetItem(QStringLiteral("IncludeMailboxes")));
        table->setItem(2, 1, new QTableWidgetItem(QStringLiteral("sales*")));
        Harness::clickButton(d, "btnOK");
    });
    _tMailingList* l = OpenMailingList(*m_store, "announce", kDomain);
    _tMembershipConfig* c = LoadMailingListMembershipConfiguration(l);
    char buffer[256] = {};
    uint32_t size = sizeof buffer;
    QVERIFY(GetMailingListMembershipRules(c, buffer, &size));
    FreeMailingListMembershipConfiguration(c);
    CloseMailingList(l);
    QCOMPARE(QByteArray(buffer, int(size)), QByteArray("Domains\0brennoway.example\0IncludeMailboxes\0sales*\0\0", 51));
}

// Renders every page of the sheet into the directory named by TAVI_MAILLIST_SHOTS (when set), so
// that a person can look at them; always checks that no page is wider than the sheet.
void tst_MailListSheet::renderEveryPage()
{
    const QString dir = qEnvironmentVariable("TAVI_MAILLIST_SHOTS");
    for (const char* list : {"news", "announce"}) {
        runSheet(list, [&](QDialog* d) {
            auto* tabs = Harness::control<QTabWidget>(d, "tabPages");
            for (int i = 0; i < tabs->count(); ++i) {
                tabs->setCurrentIndex(i);
                QCoreApplication::processEvents();
                QWidget* page = tabs->widget(i);
                QVERIFY2(page->minimumSizeHint().width() <= tabs->width(), qPrintable(page->objectName()));
                if (!dir.isEmpty())
                    QVERIFY(d->grab().save(QDir(dir).filePath(page->objectName() + QLatin1Char('-')
                                                              + QLatin1String(list) + QStringLiteral(".png"))));
            }
            Harness::clickButton(d, "btnCancel");
        });
    }
}

QTEST_MAIN(tst_MailListSheet)
#include "tst_maillistsheet.moc"
