// The agents dialog, driven through EditAgents: the two change tests, the clustered reminder, writes.
#include "DialogHarness.h"

#include "server/AgentsDlg.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace {
const QString kAgent = QStringLiteral("C:\\Velbrook\\Agents\\incoming.exe");
const QString kArchive = QStringLiteral("D:\\Archive");
const QString kReminderKey = QStringLiteral("ServerAgentReminder");

// Answers the reminder that a click inside the dialog brings up; records whether it came.
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
            shown = dialog->objectName() == QLatin1String("CReminder");
            title = dialog->windowTitle();
            Harness::click(dialog->findChild<QPushButton*>(m_pressOk ? QStringLiteral("btnOK") : QStringLiteral("btnCancel")));
        });
        m_poll.start();
    }
    bool shown = false;
    QString title;

private:
    QDialog* m_outer;
    bool m_pressOk;
    QTimer m_poll;
};
} // namespace

class tst_AgentsDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void showsStoredValuesAndServerName();
    void changesAreWrittenTrimmed_data();
    void changesAreWrittenTrimmed();
    void clusteredReminderBeforeUnchangedCancel();
    void reminderCancelKeepsDialogOpen();
    void reminderNotShown_data();
    void reminderNotShown();
    void failedWritesAreSilent();
    void unreadableShowsEmpty();

private:
    void seed() override;
};

void tst_AgentsDlg::seed()
{
    QVERIFY(m_store->setString(nullptr, "IncomingMailCmd", kAgent));
    QVERIFY(m_store->setString(nullptr, "ArchiveDir", kArchive));
}

void tst_AgentsDlg::showsStoredValuesAndServerName()
{
    QVERIFY(m_store->setString("Machine", "MachineName", QStringLiteral("mx3.brennoway.example")));
    m_store->reopen();
    QString title, agent, archive;
    const int result = Harness::runEntry("EditAgents", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        agent = Harness::control<QLineEdit>(d, "edtIncomingMailCmd")->text();
        archive = Harness::control<QLineEdit>(d, "edtArchiveDir")->text();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QCOMPARE(title, QStringLiteral("Agents on mx3.brennoway.example"));
    QCOMPARE(agent, kAgent);
    QCOMPARE(archive, kArchive);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

void tst_AgentsDlg::changesAreWrittenTrimmed_data()
{
    QTest::addColumn<QString>("agent");
    QTest::addColumn<QString>("archive");
    QTest::addColumn<QString>("expectedAgent");
    QTest::addColumn<QString>("expectedArchive");
    QTest::addColumn<int>("writes");
    QTest::addColumn<int>("result");
    // An unchanged OK closes as Cancel; blanks around either text are trimmed before the comparison.
    QTest::addRow("untouched") << kAgent << kArchive << kAgent << kArchive << 0 << 2;
    QTest::addRow("blanks around") << QStringLiteral("  ") + kAgent + QStringLiteral(" ") << kArchive + QStringLiteral("  ")
                                   << kAgent << kArchive << 0 << 2;
    // OK counts letter case as a change, the saving exchange does not: 1 comes back, nothing is written.
    QTest::addRow("case only") << kAgent << kArchive.toLower() << kAgent << kArchive << 0 << 1;
    QTest::addRow("agent case only") << kAgent.toUpper() << kArchive << kAgent << kArchive << 0 << 1;
    QTest::addRow("agent") << QStringLiteral(" /usr/lib/velbrook/filter --strict ") << kArchive
                           << QStringLiteral("/usr/lib/velbrook/filter --strict") << kArchive << 1 << 1;
    QTest::addRow("archive") << kAgent << QStringLiteral("E:\\Old mail ") << kAgent << QStringLiteral("E:\\Old mail") << 1 << 1;
    QTest::addRow("both, emptied agent") << QStringLiteral("   ") << QStringLiteral("\\\\filer\\archive") << QString()
                                         << QStringLiteral("\\\\filer\\archive") << 2 << 1;
    QTest::addRow("quotes and non-ASCII") << QStringLiteral("\"C:\\Pošta\\agent.exe\" -x 'y'") << kArchive
                                          << QStringLiteral("\"C:\\Pošta\\agent.exe\" -x 'y'") << kArchive << 1 << 1;
}

void tst_AgentsDlg::changesAreWrittenTrimmed()
{
    QFETCH(QString, agent);
    QFETCH(QString, archive);
    QFETCH(QString, expectedAgent);
    QFETCH(QString, expectedArchive);
    QFETCH(int, writes);
    QFETCH(int, result);
    QCOMPARE(Harness::runEntry("EditAgents", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtIncomingMailCmd"), agent);
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtArchiveDir"), archive);
        Harness::pressEnter(Harness::control<QLineEdit>(d, "edtArchiveDir"));
    }), result);
    QVERIFY(m_platform->callsOf(QStringLiteral("reminderValue")).isEmpty()); // not clustered: no reminder
    QCOMPARE(int(m_store->calls("SetMailServerProperty")), writes);
    QCOMPARE(m_store->string(nullptr, "IncomingMailCmd"), expectedAgent);
    QCOMPARE(m_store->string(nullptr, "ArchiveDir"), expectedArchive);
}

void tst_AgentsDlg::clusteredReminderBeforeUnchangedCancel()
{
    QVERIFY(Harness::makeClustered(*m_store));
    std::unique_ptr<CReminderAnswer> answer;
    const int result = Harness::runEntry("EditAgents", 0, *m_store, [&](QDialog* d) {
        answer = std::make_unique<CReminderAnswer>(d, true);
        Harness::clickButton(d, "btnOK");
    });
    QVERIFY(answer && answer->shown);
    QCOMPARE(answer->title, QStringLiteral("A UNC path is required"));
    QCOMPARE(result, 2); // shown first, then the unchanged OK still closes as Cancel
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
    const auto reads = m_platform->callsOf(QStringLiteral("reminderValue"));
    QCOMPARE(reads.size(), 1);
    QCOMPARE(reads[0].text, kReminderKey);
}

void tst_AgentsDlg::reminderCancelKeepsDialogOpen()
{
    QVERIFY(Harness::makeClustered(*m_store));
    std::unique_ptr<CReminderAnswer> answer;
    bool stayedOpen = false;
    QString focus;
    const int result = Harness::runEntry("EditAgents", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtArchiveDir"), QStringLiteral("E:\\New"));
        answer = std::make_unique<CReminderAnswer>(d, false);
        Harness::clickButton(d, "btnOK");
        stayedOpen = d->isVisible();
        focus = d->focusWidget() ? d->focusWidget()->objectName() : QString();
        // Corrected to a UNC path, OK goes through without asking again.
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtIncomingMailCmd"), QStringLiteral("\\\\filer\\agents\\in.exe"));
        Harness::clickButton(d, "btnOK");
    });
    QVERIFY(answer && answer->shown);
    QVERIFY(stayedOpen);
    QCOMPARE(focus, QStringLiteral("edtIncomingMailCmd"));
    QCOMPARE(result, 1);
    QCOMPARE(m_platform->callsOf(QStringLiteral("reminderValue")).size(), 1);
    QCOMPARE(m_store->string(nullptr, "IncomingMailCmd"), QStringLiteral("\\\\filer\\agents\\in.exe"));
    QCOMPARE(m_store->string(nullptr, "ArchiveDir"), QStringLiteral("E:\\New"));
}

// The reminder must stay away for a UNC or too-short path, a single server, or once silenced.
void tst_AgentsDlg::reminderNotShown_data()
{
    QTest::addColumn<bool>("clustered");
    QTest::addColumn<QString>("agent");
    QTest::addColumn<bool>("silenced");
    QTest::addRow("UNC path") << true << QStringLiteral("\\\\filer\\agents\\in.exe") << false;
    QTest::addRow("one character") << true << QStringLiteral(" x ") << false;
    QTest::addRow("empty") << true << QString() << false;
    QTest::addRow("not clustered") << false << QStringLiteral("C:\\in.exe") << false;
    QTest::addRow("silenced earlier") << true << QStringLiteral("C:\\in.exe") << true;
}

void tst_AgentsDlg::reminderNotShown()
{
    QFETCH(bool, clustered);
    QFETCH(QString, agent);
    QFETCH(bool, silenced);
    if (clustered)
        QVERIFY(Harness::makeClustered(*m_store));
    if (silenced)
        m_platform->reminders()[kReminderKey] = 1;
    bool reminderSeen = false;
    const int result = Harness::runEntry("EditAgents", 0, *m_store, [&](QDialog* d) {
        Harness::control<QLineEdit>(d, "edtIncomingMailCmd")->setText(agent);
        // Whatever modal window comes up in between is not the reminder we expect to be absent.
        QTimer::singleShot(50, d, [&] {
            if (auto* w = QApplication::activeModalWidget(); w && w->objectName() == QLatin1String("CReminder")) {
                reminderSeen = true;
                static_cast<QDialog*>(w)->reject();
            }
        });
        Harness::clickButton(d, "btnOK");
    });
    QVERIFY(!reminderSeen);
    QCOMPARE(result, 1);
    QCOMPARE(m_store->string(nullptr, "IncomingMailCmd"), agent.trimmed());
}

// A refused write must show no box and must not stop the next value from being written.
void tst_AgentsDlg::failedWritesAreSilent()
{
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", nullptr, "IncomingMailCmd", VB_ERROR_ACCESS_DENIED, 0));
    const int result = Harness::runEntry("EditAgents", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtIncomingMailCmd"), QStringLiteral("/bin/agent"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtArchiveDir"), QStringLiteral("/srv/archive"));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(m_platform->messages().isEmpty());
    VbClearFaults(*m_store);
    QCOMPARE(m_store->string(nullptr, "IncomingMailCmd"), kAgent);
    QCOMPARE(m_store->string(nullptr, "ArchiveDir"), QStringLiteral("/srv/archive")); // the next write still runs
}

void tst_AgentsDlg::unreadableShowsEmpty()
{
    // A value longer than the first buffer still arrives whole through the retry.
    const QString longArchive = QStringLiteral("/srv/") + QString(400, QLatin1Char('a'));
    QVERIFY(m_store->setString(nullptr, "ArchiveDir", longArchive));
    QVERIFY(VbInjectFault(*m_store, "GetMailServerProperty", nullptr, "IncomingMailCmd", VB_ERROR_BUSY, 0));
    CAgentsDlg dialog(nullptr, *m_store);
    VbClearFaults(*m_store);
    dialog.show();
    QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("edtIncomingMailCmd"))->text(), QString());
    QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("edtArchiveDir"))->text(), longArchive);
    // The empty agent left empty is no change.
    Harness::click(dialog.findChild<QPushButton*>(QStringLiteral("btnOK")));
    QCOMPARE(dialog.result(), 2);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

QTEST_MAIN(tst_AgentsDlg)
#include "tst_agentsdlg.moc"
