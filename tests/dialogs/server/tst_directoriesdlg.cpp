// The mail directory locations dialog, driven through EditDirectories and through its class.
#include "DialogHarness.h"

#include "server/DirectoriesDlg.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

class tst_DirectoriesDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void showsStoredValuesAndServerName();
    void changesAreWritten_data();
    void changesAreWritten();
    void networkDriveRefusedForLocalServer_data();
    void networkDriveRefusedForLocalServer();
    void remoteServerSkipsDriveCheckAndHidesBrowse();
    void browseHiddenWithoutFolderPicking();
    void browsePutsChosenFolderIntoEdit_data();
    void browsePutsChosenFolderIntoEdit();
    void failedWritesAreSilent();
    void defaultsWhenUnreadable();
    void overlongStoredPathSurvivesOtherChange();

private:
    void seed() override;
};

void tst_DirectoriesDlg::seed()
{
    QVERIFY(m_store->setString(nullptr, "MailSpoolDir", QStringLiteral("D:\\Velbrook\\Spool")));
    QVERIFY(m_store->setNumber(nullptr, "UndeliverableDsnAction", 0));
}

// Catches a caption left with its insert, stored values not shown, or the wait cursor left on.
void tst_DirectoriesDlg::showsStoredValuesAndServerName()
{
    QString title, spool;
    bool keepDead = false, browseVisible = false;
    const int result = Harness::runEntry("EditDirectories", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        spool = Harness::control<QLineEdit>(d, "edtMailSpoolDir")->text();
        keepDead = Harness::control<QCheckBox>(d, "chkKeepDead")->isChecked();
        browseVisible = Harness::control<QPushButton>(d, "btnBrowse")->isVisible();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QVERIFY2(title.startsWith(QLatin1String("Mail directory locations on ")) && !title.contains(QLatin1String("%1")),
             qPrintable(title));
    QCOMPARE(spool, QStringLiteral("D:\\Velbrook\\Spool"));
    QVERIFY(keepDead);
    QVERIFY(browseVisible);
    // The wait cursor was shown while the picker was prepared, and taken away again.
    QCOMPARE(m_platform->callsOf(QStringLiteral("waitCursor")).size(), 2);
}

void tst_DirectoriesDlg::changesAreWritten_data()
{
    QTest::addColumn<quint32>("storedAction");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("toggle");
    QTest::addColumn<QString>("expectedSpool");
    QTest::addColumn<quint32>("expectedAction");
    QTest::addColumn<int>("expectedWrites");
    QTest::addColumn<int>("expectedResult");
    // An unchanged OK closes as Cancel. The spool path compares without regard to case, and any non-zero
    // action shows a cleared box, so leaving it cleared is no change.
    QTest::addRow("untouched") << 0u << QString() << false << QStringLiteral("D:\\Velbrook\\Spool") << 0u << 0 << 2;
    QTest::addRow("case only") << 0u << QStringLiteral("d:\\VELBROOK\\spool") << false
                               << QStringLiteral("D:\\Velbrook\\Spool") << 0u << 0 << 2;
    QTest::addRow("action 7 left cleared") << 7u << QString() << false << QStringLiteral("D:\\Velbrook\\Spool") << 7u << 0 << 2;
    QTest::addRow("new path only") << 0u << QStringLiteral("E:\\Mail\\Spool") << false
                                   << QStringLiteral("E:\\Mail\\Spool") << 0u << 1 << 1;
    QTest::addRow("clear the box writes 1") << 0u << QString() << true
                                            << QStringLiteral("D:\\Velbrook\\Spool") << 1u << 1 << 1;
    QTest::addRow("check the box over action 5 writes 0") << 5u << QString() << true
                                                          << QStringLiteral("D:\\Velbrook\\Spool") << 0u << 1 << 1;
    QTest::addRow("both") << 1u << QStringLiteral("\\\\filer\\spool") << true
                          << QStringLiteral("\\\\filer\\spool") << 0u << 2 << 1;
    // Blanks around the path are not part of it: the same path padded is no change, a new one is
    // written without them.
    QTest::addRow("blanks around the same path") << 0u << QStringLiteral("  D:\\Velbrook\\Spool ") << false
                                                 << QStringLiteral("D:\\Velbrook\\Spool") << 0u << 0 << 2;
    QTest::addRow("blanks around a new path") << 0u << QStringLiteral(" E:\\Mail\\Spool  ") << false
                                              << QStringLiteral("E:\\Mail\\Spool") << 0u << 1 << 1;
    QTest::addRow("non-ASCII path") << 0u << QStringLiteral("/srv/pošta/spool") << false
                                    << QStringLiteral("/srv/pošta/spool") << 0u << 1 << 1;
    // Escape (the only row that does not end with Enter) drops both changes.
    QTest::addRow("both, then Escape") << 0u << QStringLiteral("E:\\Other") << true
                                       << QStringLiteral("D:\\Velbrook\\Spool") << 0u << 0 << 2;
}

void tst_DirectoriesDlg::changesAreWritten()
{
    QFETCH(quint32, storedAction);
    QFETCH(QString, typed);
    QFETCH(bool, toggle);
    QFETCH(QString, expectedSpool);
    QFETCH(quint32, expectedAction);
    QFETCH(int, expectedWrites);
    QFETCH(int, expectedResult);
    QVERIFY(m_store->setNumber(nullptr, "UndeliverableDsnAction", storedAction));
    m_store->reopen();
    const int result = Harness::runEntry("EditDirectories", 0, *m_store, [&](QDialog* d) {
        if (!typed.isEmpty())
            Harness::typeInto(Harness::control<QLineEdit>(d, "edtMailSpoolDir"), typed);
        if (toggle)
            Harness::clickButton(d, "chkKeepDead");
        const bool escape = QString::fromLatin1(QTest::currentDataTag()).endsWith(QLatin1String("Escape"));
        Harness::pressKey(Harness::control<QLineEdit>(d, "edtMailSpoolDir"), escape ? Qt::Key_Escape : Qt::Key_Return);
    });
    QCOMPARE(result, expectedResult);
    QCOMPARE(int(m_store->calls("SetMailServerProperty")), expectedWrites);
    QCOMPARE(m_store->string(nullptr, "MailSpoolDir"), expectedSpool);
    QCOMPARE(m_store->number(nullptr, "UndeliverableDsnAction"), std::optional<quint32>(expectedAction));
    QVERIFY(m_platform->messages().isEmpty());
}

void tst_DirectoriesDlg::networkDriveRefusedForLocalServer_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("root");
    QTest::addRow("mapped drive") << QStringLiteral("z:\\spool") << QStringLiteral("Z:\\");
    QTest::addRow("network mount") << QStringLiteral("/mnt/filer/spool") << QStringLiteral("/mnt/filer/spool");
    // A leading blank must not hide the drive letter from the check.
    QTest::addRow("mapped drive after a blank") << QStringLiteral(" z:\\spool") << QStringLiteral("Z:\\");
}

void tst_DirectoriesDlg::networkDriveRefusedForLocalServer()
{
    QFETCH(QString, typed);
    QFETCH(QString, root);
    m_platform->setDriveType(root, DriveType::Remote);
    bool stayedOpen = false;
    QString focusAfter;
    const int result = Harness::runEntry("EditDirectories", 0, *m_store, [&](QDialog* d) {
        auto* edit = Harness::control<QLineEdit>(d, "edtMailSpoolDir");
        Harness::typeInto(edit, typed);
        Harness::clickButton(d, "chkKeepDead");
        Harness::clickButton(d, "btnOK");
        stayedOpen = d->isVisible();
        focusAfter = d->focusWidget() ? d->focusWidget()->objectName() : QString();
        // The person corrects the path and tries again: a UNC path is never checked.
        Harness::typeInto(edit, QStringLiteral("\\\\filer\\spool"));
        Harness::clickButton(d, "btnOK");
    });
    QVERIFY(stayedOpen);
    QCOMPARE(focusAfter, QStringLiteral("edtMailSpoolDir"));
    const auto boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes[0].text, QStringLiteral("You must specify a local drive or a UNC path for this value."));
    QCOMPARE(boxes[0].style, unsigned(Mb::Ok)); // plain: OK only, no icon
    QCOMPARE(m_platform->callsOf(QStringLiteral("driveType")).size(), 1);
    QCOMPARE(m_platform->callsOf(QStringLiteral("driveType"))[0].text, root);
    // Nothing of the refused attempt was written; the second attempt wrote both values.
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 2u);
    QCOMPARE(m_store->string(nullptr, "MailSpoolDir"), QStringLiteral("\\\\filer\\spool"));
}

void tst_DirectoriesDlg::remoteServerSkipsDriveCheckAndHidesBrowse()
{
    QVERIFY(m_store->setString("Machine", "MachineName", QStringLiteral("mx7.elsewhere.example")));
    m_store->reopen();
    m_platform->setDriveType(QStringLiteral("Z:\\"), DriveType::Remote);
    bool browseVisible = true;
    QString title;
    const int result = Harness::runEntry("EditDirectories", 0, *m_store, [&](QDialog* d) {
        browseVisible = Harness::control<QPushButton>(d, "btnBrowse")->isVisible();
        title = d->windowTitle();
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMailSpoolDir"), QStringLiteral("Z:\\spool"));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(!browseVisible);
    QCOMPARE(title, QStringLiteral("Mail directory locations on mx7.elsewhere.example"));
    QVERIFY(m_platform->callsOf(QStringLiteral("driveType")).isEmpty());
    QCOMPARE(m_store->string(nullptr, "MailSpoolDir"), QStringLiteral("Z:\\spool"));
}

void tst_DirectoriesDlg::browseHiddenWithoutFolderPicking()
{
    m_platform->setCanPickFolder(false);
    CDirectoriesDlg dialog(nullptr, *m_store);
    dialog.ensureInitialised();
    QVERIFY(dialog.findChild<QPushButton*>(QStringLiteral("btnBrowse"))->isHidden());
}

void tst_DirectoriesDlg::browsePutsChosenFolderIntoEdit_data()
{
    QTest::addColumn<bool>("picked");
    QTest::addColumn<QString>("expected");
    QTest::addRow("picked") << true << QStringLiteral("/var/spool/velbrook");
    QTest::addRow("cancelled") << false << QStringLiteral("D:\\Velbrook\\Spool");
}

void tst_DirectoriesDlg::browsePutsChosenFolderIntoEdit()
{
    QFETCH(bool, picked);
    QFETCH(QString, expected);
    m_platform->answerFolder(picked ? std::optional<QString>(expected) : std::nullopt);
    QString edited;
    Harness::runEntry("EditDirectories", 0, *m_store, [&](QDialog* d) {
        Harness::clickButton(d, "btnBrowse");
        edited = Harness::control<QLineEdit>(d, "edtMailSpoolDir")->text();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(edited, expected);
    const auto picks = m_platform->callsOf(QStringLiteral("pickFolder"));
    QCOMPARE(picks.size(), 1);
    QCOMPARE(picks[0].text, QStringLiteral("Mail &spool directory:")); // the label is the title
    QCOMPARE(picks[0].caption, QStringLiteral("D:\\Velbrook\\Spool")); // opened at the current path
}

// A refused write must show no box and still close with OK.
void tst_DirectoriesDlg::failedWritesAreSilent()
{
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", nullptr, nullptr, VB_ERROR_ACCESS_DENIED, 0));
    const int result = Harness::runEntry("EditDirectories", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMailSpoolDir"), QStringLiteral("E:\\x"));
        Harness::clickButton(d, "chkKeepDead");
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(m_platform->messages().isEmpty());
    VbClearFaults(*m_store);
    QCOMPARE(m_store->string(nullptr, "MailSpoolDir"), QStringLiteral("D:\\Velbrook\\Spool"));
}

// Unreadable values must show an empty path and a checked box, not stale or random contents.
void tst_DirectoriesDlg::defaultsWhenUnreadable()
{
    QVERIFY(VbInjectFault(*m_store, "GetMailServerProperty", nullptr, nullptr, VB_ERROR_BUSY, 0));
    CDirectoriesDlg dialog(nullptr, *m_store);
    VbClearFaults(*m_store);
    dialog.show();
    QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("edtMailSpoolDir"))->text(), QString());
    QVERIFY(dialog.findChild<QCheckBox*>(QStringLiteral("chkKeepDead"))->isChecked());
    QCOMPARE(dialog.registryFormatVersion(), 0u);
    dialog.reject();
    QCOMPARE(dialog.result(), 2);
}

// A stored path longer than an edit normally holds must not be cut short when only the box changes.
void tst_DirectoriesDlg::overlongStoredPathSurvivesOtherChange()
{
    const QString longPath = QStringLiteral("/srv/") + QString(40000, QLatin1Char('p'));
    QVERIFY(m_store->setString(nullptr, "MailSpoolDir", longPath));
    m_store->reopen();
    const int result = Harness::runEntry("EditDirectories", 0, *m_store, [&](QDialog* d) {
        Harness::clickButton(d, "chkKeepDead");
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 1u);
    QCOMPARE(m_store->string(nullptr, "MailSpoolDir"), longPath);
    QCOMPARE(m_store->number(nullptr, "UndeliverableDsnAction"), std::optional<quint32>(1u));
}

QTEST_MAIN(tst_DirectoriesDlg)
#include "tst_directoriesdlg.moc"
