// The file log dialog, driven through EditFileLogConfig: no trimming, letter case ignored, silent
// failures, and Browse only for a local server that can pick folders.
#include "DialogHarness.h"

#include "logging/FileLogConfigDlg.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
const QString kLogDir = QStringLiteral("D:\\Velbrook\\Logs");
}

class tst_FileLogConfigDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void okWrites_data();
    void okWrites();
    void failedWriteIsSilent();
    void browseVisibility_data();
    void browseVisibility();
    void browsePutsChosenFolderIntoEdit_data();
    void browsePutsChosenFolderIntoEdit();
    void unreadableStartsEmpty();

private:
    void seed() override;
};

void tst_FileLogConfigDlg::seed()
{
    QVERIFY(m_store->setString(nullptr, "MailLogDir", kLogDir));
}

void tst_FileLogConfigDlg::okWrites_data()
{
    QTest::addColumn<QString>("typed"); // null: untouched
    QTest::addColumn<int>("writes");
    QTest::addColumn<QString>("stored");
    QTest::addRow("untouched") << QString() << 0 << kLogDir;
    QTest::addRow("letter case only") << QStringLiteral("d:\\VELBROOK\\logs") << 0 << kLogDir;
    QTest::addRow("new directory") << QStringLiteral("E:\\Logs") << 1 << QStringLiteral("E:\\Logs");
    // Blanks are part of the value; unlike the spool, a network drive is not questioned.
    QTest::addRow("blanks kept") << QStringLiteral(" E:\\Logs ") << 1 << QStringLiteral(" E:\\Logs ");
    QTest::addRow("blanks around the same path") << kLogDir + QStringLiteral(" ") << 1 << kLogDir + QStringLiteral(" ");
    QTest::addRow("network path") << QStringLiteral("\\\\filer\\logs") << 1 << QStringLiteral("\\\\filer\\logs");
    QTest::addRow("emptied") << QStringLiteral("") << 1 << QString();
}

void tst_FileLogConfigDlg::okWrites()
{
    QFETCH(QString, typed);
    QFETCH(int, writes);
    QFETCH(QString, stored);
    m_platform->setDriveType(QStringLiteral("E:\\"), DriveType::Remote);
    const int result = Harness::runEntry("EditFileLogConfig", 0, *m_store, [&](QDialog* d) {
        if (!typed.isNull())
            Harness::control<QLineEdit>(d, "edtMailLogDir")->setText(typed);
        Harness::pressEnter(Harness::control<QLineEdit>(d, "edtMailLogDir"));
    });
    QCOMPARE(result, 1); // OK closes with OK, changed or not
    QCOMPARE(int(m_store->calls("SetMailServerProperty")), writes);
    QCOMPARE(m_store->string(nullptr, "MailLogDir"), stored);
    QVERIFY(m_platform->callsOf(QStringLiteral("driveType")).isEmpty());
    QVERIFY(m_platform->messages().isEmpty());
}

// A refused write must show no box and still close with OK.
void tst_FileLogConfigDlg::failedWriteIsSilent()
{
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", nullptr, "MailLogDir", VB_ERROR_ACCESS_DENIED, 0));
    const int result = Harness::runEntry("EditFileLogConfig", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMailLogDir"), QStringLiteral("/var/log/other"));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(m_platform->messages().isEmpty());
    QCOMPARE(m_store->calls("SetMailServerProperty"), 1u);
    VbClearFaults(*m_store);
    QCOMPARE(m_store->string(nullptr, "MailLogDir"), kLogDir);
}

void tst_FileLogConfigDlg::browseVisibility_data()
{
    QTest::addColumn<bool>("remote");
    QTest::addColumn<bool>("canPick");
    QTest::addColumn<bool>("visible");
    QTest::addRow("local") << false << true << true;
    QTest::addRow("remote server") << true << true << false;
    QTest::addRow("no folder picking") << false << false << false;
}

void tst_FileLogConfigDlg::browseVisibility()
{
    QFETCH(bool, remote);
    QFETCH(bool, canPick);
    QFETCH(bool, visible);
    if (remote) {
        QVERIFY(m_store->setString("Machine", "MachineName", QStringLiteral("mx9.elsewhere.example")));
        m_store->reopen();
    }
    m_platform->setCanPickFolder(canPick);
    bool shown = !visible;
    Harness::runEntry("EditFileLogConfig", 0, *m_store, [&](QDialog* d) {
        shown = Harness::control<QPushButton>(d, "btnBrowse")->isVisible();
        d->reject();
    });
    QCOMPARE(shown, visible);
    // The picker is prepared under the wait cursor, and only for a local server.
    QCOMPARE(m_platform->callsOf(QStringLiteral("waitCursor")).size(), 2);
}

void tst_FileLogConfigDlg::browsePutsChosenFolderIntoEdit_data()
{
    QTest::addColumn<bool>("picked");
    QTest::addColumn<QString>("expected");
    QTest::addRow("picked") << true << QStringLiteral("/var/log/velbrook");
    QTest::addRow("cancelled") << false << kLogDir;
}

void tst_FileLogConfigDlg::browsePutsChosenFolderIntoEdit()
{
    QFETCH(bool, picked);
    QFETCH(QString, expected);
    m_platform->answerFolder(picked ? std::optional<QString>(expected) : std::nullopt);
    QString edited;
    const int result = Harness::runEntry("EditFileLogConfig", 0, *m_store, [&](QDialog* d) {
        Harness::clickButton(d, "btnBrowse");
        edited = Harness::control<QLineEdit>(d, "edtMailLogDir")->text();
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(edited, expected);
    QCOMPARE(m_store->string(nullptr, "MailLogDir"), expected);
    const auto picks = m_platform->callsOf(QStringLiteral("pickFolder"));
    QCOMPARE(picks.size(), 1);
    QCOMPARE(picks[0].text, QStringLiteral("&Log file directory:")); // the label is the title
    QCOMPARE(picks[0].caption, kLogDir);                             // opened at the current text
}

// An unreadable directory must start empty, and an empty edit left empty must not be written.
void tst_FileLogConfigDlg::unreadableStartsEmpty()
{
    QVERIFY(VbInjectFault(*m_store, "GetMailServerProperty", nullptr, "MailLogDir", VB_ERROR_BUSY, 0));
    CFileLogConfigDlg dialog(nullptr, *m_store);
    VbClearFaults(*m_store);
    dialog.show();
    QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("edtMailLogDir"))->text(), QString());
    Harness::click(dialog.findChild<QPushButton*>(QStringLiteral("btnOK")));
    QCOMPARE(dialog.result(), 1);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

QTEST_MAIN(tst_FileLogConfigDlg)
#include "tst_filelogconfigdlg.moc"
