// The traffic counters dialog, driven through EditTrafficCounters: the all-bits "Enabled" flag, the
// thresholds' range, and the report generated and saved through the store over the demo mailboxes.
#include "DialogHarness.h"

#include "server/TrafficCountersDlg.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>

class tst_TrafficCountersDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void enabledReadOnlyWhenAllBits_data();
    void enabledReadOnlyWhenAllBits();
    void enabledWritten_data();
    void enabledWritten();
    void saveReportFollowsTheBox();
    void resetsWrittenInOrderAndSilently();
    void thresholdRange_data();
    void thresholdRange();
    void reportSavedWithChosenThreshold_data();
    void reportSavedWithChosenThreshold();
    void reportFailures_data();
    void reportFailures();

private:
    // Opens the dialog, types threshold into the named edit and presses Save Report.
    int saveReport(const char* edit, const QString& threshold);
    QStringList reportMailboxes(const QString& path) const;

    void seed() override;
};

void tst_TrafficCountersDlg::seed()
{
    QVERIFY(m_store->setNumber("Statistics", "Enabled", 0xFFFFFFFFu));
    QVERIFY(m_store->setNumber("Statistics", "DomainAutoReset", 86400));
    QVERIFY(m_store->setNumber("Statistics", "MailboxAutoReset", 604800));
}

void tst_TrafficCountersDlg::enabledReadOnlyWhenAllBits_data()
{
    QTest::addColumn<qint64>("stored"); // -1: unreadable
    QTest::addColumn<bool>("on");
    QTest::addRow("0xFFFFFFFF") << qint64(0xFFFFFFFFu) << true;
    QTest::addRow("1 is off") << qint64(1) << false;
    QTest::addRow("0xFFFFFFFE is off") << qint64(0xFFFFFFFEu) << false;
    QTest::addRow("0") << qint64(0) << false;
    QTest::addRow("unreadable") << qint64(-1) << false;
}

void tst_TrafficCountersDlg::enabledReadOnlyWhenAllBits()
{
    QFETCH(qint64, stored);
    QFETCH(bool, on);
    if (stored >= 0)
        QVERIFY(m_store->setNumber("Statistics", "Enabled", quint32(stored)));
    else
        QVERIFY(VbInjectFault(*m_store, "GetMailServerProperty", "Statistics", "Enabled", VB_ERROR_BUSY, 0));
    if (stored >= 0)
        m_store->reopen();
    bool checked = !on, saveEnabled = !on;
    QString title, domainReset, mailboxReset, threshold;
    const int result = Harness::runEntry("EditTrafficCounters", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        checked = Harness::control<QCheckBox>(d, "chkEnabled")->isChecked();
        saveEnabled = Harness::control<QPushButton>(d, "btnSaveReport")->isEnabled();
        domainReset = Harness::control<QLineEdit>(d, "edtDomainAutoReset")->text();
        mailboxReset = Harness::control<QLineEdit>(d, "edtMailboxAutoReset")->text();
        threshold = Harness::control<QLineEdit>(d, "edtPopBytesReceived")->text();
        Harness::clickButton(d, "btnOK");
    });
    QVERIFY2(title.startsWith(QLatin1String("Traffic Counters on ")) && !title.contains(QLatin1Char('%')), qPrintable(title));
    QCOMPARE(checked, on);
    QCOMPARE(saveEnabled, on);
    QCOMPARE(domainReset, QStringLiteral("86400"));
    QCOMPARE(mailboxReset, QStringLiteral("604800"));
    QCOMPARE(threshold, QStringLiteral("0"));
    // OK without touching anything writes nothing, whatever was stored, and closes with OK.
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

void tst_TrafficCountersDlg::enabledWritten_data()
{
    QTest::addColumn<quint32>("stored");
    QTest::addColumn<quint32>("written");
    QTest::addRow("1 checked becomes all bits") << 1u << 0xFFFFFFFFu;
    QTest::addRow("all bits cleared becomes 0") << 0xFFFFFFFFu << 0u;
}

void tst_TrafficCountersDlg::enabledWritten()
{
    QFETCH(quint32, stored);
    QFETCH(quint32, written);
    QVERIFY(m_store->setNumber("Statistics", "Enabled", stored));
    m_store->reopen();
    const int result = Harness::runEntry("EditTrafficCounters", 0, *m_store, [&](QDialog* d) {
        Harness::clickButton(d, "chkEnabled");
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 1u);
    QCOMPARE(m_store->number("Statistics", "Enabled"), std::optional<quint32>(written));
}

void tst_TrafficCountersDlg::saveReportFollowsTheBox()
{
    QVERIFY(m_store->setNumber("Statistics", "Enabled", 0));
    m_store->reopen();
    QList<bool> states;
    const int result = Harness::runEntry("EditTrafficCounters", 0, *m_store, [&](QDialog* d) {
        auto* save = Harness::control<QPushButton>(d, "btnSaveReport");
        auto* box = Harness::control<QCheckBox>(d, "chkEnabled");
        states << save->isEnabled();
        Harness::click(box);
        states << save->isEnabled();
        Harness::click(box);
        states << save->isEnabled();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(states, (QList<bool>{false, true, false}));
    QCOMPARE(result, 2);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u); // nothing written before OK
}

// The reset intervals are written mailbox first, and a refused one neither shows a box nor stops the next.
void tst_TrafficCountersDlg::resetsWrittenInOrderAndSilently()
{
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", "Statistics", "MailboxAutoReset", VB_ERROR_ACCESS_DENIED, 0));
    const int result = Harness::runEntry("EditTrafficCounters", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMailboxAutoReset"), QStringLiteral("3600"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtDomainAutoReset"), QStringLiteral("0"));
        Harness::pressEnter(Harness::control<QLineEdit>(d, "edtDomainAutoReset"));
    });
    QCOMPARE(result, 1);
    QVERIFY(m_platform->messages().isEmpty());
    QCOMPARE(m_store->calls("SetMailServerProperty"), 2u); // the failed one, then the next
    VbClearFaults(*m_store);
    QCOMPARE(m_store->number("Statistics", "MailboxAutoReset"), std::optional<quint32>(604800));
    QCOMPARE(m_store->number("Statistics", "DomainAutoReset"), std::optional<quint32>(0));
    // Once the store takes it, the mailbox interval reaches it.
    Harness::runEntry("EditTrafficCounters", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMailboxAutoReset"), QStringLiteral("3600"));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(m_store->number("Statistics", "MailboxAutoReset"), std::optional<quint32>(3600));
}

// A threshold out of range must be refused by Save Report and by OK alike, with the focus on it.
void tst_TrafficCountersDlg::thresholdRange_data()
{
    QTest::addColumn<QString>("edit");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");
    QTest::addRow("4294967295 refused") << "edtRcptCommands" << QStringLiteral("4294967295") << false;
    QTest::addRow("4294967294 accepted") << "edtRcptCommands" << QStringLiteral("4294967294") << true;
    QTest::addRow("empty refused") << "edtPopBytesReceived" << QString() << false;
    QTest::addRow("letters refused") << "edtImapBytesSent" << QStringLiteral("12k") << false;
    QTest::addRow("negative refused") << "edtSmtpBytesSent" << QStringLiteral("-1") << false;
    QTest::addRow("reset not a number") << "edtMailboxAutoReset" << QStringLiteral("weekly") << false;
}

void tst_TrafficCountersDlg::thresholdRange()
{
    QFETCH(QString, edit);
    QFETCH(QString, typed);
    QFETCH(bool, accepted);
    const QString path = m_dir->filePath(QStringLiteral("report.csv"));
    if (accepted)
        m_platform->answerFileDialog(path);
    QString focus;
    bool okClosed = false;
    Harness::runEntry("EditTrafficCounters", 0, *m_store, [&](QDialog* d) {
        auto* target = d->findChild<QLineEdit*>(edit);
        QVERIFY(target);
        Harness::typeInto(target, typed);
        Harness::clickButton(d, "btnSaveReport");
        focus = d->focusWidget() ? d->focusWidget()->objectName() : QString();
        // OK refuses the same value and keeps the dialog open.
        Harness::clickButton(d, "btnOK");
        okClosed = !d->isVisible();
        if (!okClosed)
            Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(okClosed, accepted);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
    if (accepted) {
        QVERIFY(m_platform->messages().isEmpty());
        QVERIFY(QFile::exists(path));
        QCOMPARE(reportMailboxes(path), QStringList()); // nobody is above the largest threshold
    } else {
        QCOMPARE(m_platform->messages().size(), 2); // once for Save Report, once for OK
        QCOMPARE(focus, edit);
        QVERIFY(m_platform->callsOf(QStringLiteral("progress")).isEmpty()); // no report was generated
        QVERIFY(m_platform->callsOf(QStringLiteral("fileDialog")).isEmpty());
    }
}

int tst_TrafficCountersDlg::saveReport(const char* edit, const QString& threshold)
{
    return Harness::runEntry("EditTrafficCounters", 0, *m_store, [&](QDialog* d) {
        if (edit)
            Harness::typeInto(Harness::control<QLineEdit>(d, edit), threshold);
        Harness::clickButton(d, "btnSaveReport");
        Harness::clickButton(d, "btnCancel");
    });
}

QStringList tst_TrafficCountersDlg::reportMailboxes(const QString& path) const
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {QStringLiteral("<unreadable>")};
    const QList<QByteArray> lines = file.readAll().split('\n');
    QStringList out;
    for (qsizetype i = 1; i < lines.size(); ++i) { // the first line is the header
        if (!lines[i].trimmed().isEmpty())
            out << QString::fromUtf8(lines[i].split(',').first());
    }
    out.sort();
    return out;
}

void tst_TrafficCountersDlg::reportSavedWithChosenThreshold_data()
{
    QTest::addColumn<QString>("edit");
    QTest::addColumn<QString>("threshold");
    QTest::addColumn<QStringList>("mailboxes");
    QTest::addRow("RCPT") << "edtRcptCommands" << QStringLiteral("1000")
                          << QStringList{QStringLiteral("orders@sales.brennoway.example")};
    QTest::addRow("SMTP sent") << "edtSmtpBytesSent" << QStringLiteral("5000000")
                               << QStringList{QStringLiteral("orders@sales.brennoway.example")};
    QTest::addRow("SMTP received") << "edtSmtpBytesReceived" << QStringLiteral("100000000")
                                   << QStringList{QStringLiteral("build@lab.example.org")};
    QTest::addRow("IMAP sent") << "edtImapBytesSent" << QStringLiteral("10000000")
                               << QStringList{QStringLiteral("alice@brennoway.example")};
    QTest::addRow("IMAP received") << "edtImapBytesReceived" << QStringLiteral("100000")
                                   << QStringList{QStringLiteral("alice@brennoway.example")};
    QTest::addRow("POP sent") << "edtPopBytesSent" << QStringLiteral("800000")
                              << QStringList{QStringLiteral("bob@brennoway.example")};
    QTest::addRow("POP received") << "edtPopBytesReceived" << QStringLiteral("2000")
                                  << QStringList{QStringLiteral("eve@lab.example.org")};
}

void tst_TrafficCountersDlg::reportSavedWithChosenThreshold()
{
    QFETCH(QString, edit);
    QFETCH(QString, threshold);
    QFETCH(QStringList, mailboxes);
    const QString path = m_dir->filePath(QStringLiteral("traffic.csv"));
    m_platform->answerFileDialog(path);
    QCOMPARE(saveReport(edit.toLatin1().constData(), threshold), 2); // Cancel does not undo the report
    QVERIFY(m_platform->messages().isEmpty());
    QCOMPARE(reportMailboxes(path), mailboxes);

    QCOMPARE(m_platform->fileRequests.size(), 1);
    const CFileDialogRequest& request = m_platform->fileRequests[0];
    QVERIFY(request.save);
    QCOMPARE(request.title, QStringLiteral("Mailbox Report Save As:"));
    QCOMPARE(request.filters.size(), 2);
    QCOMPARE(request.filters[0], qMakePair(QStringLiteral("CSV File (*.CSV)"), QStringLiteral("*.CSV")));
    QCOMPARE(request.filters[1], qMakePair(QStringLiteral("All Files (*.*)"), QStringLiteral("*.*")));
    QCOMPARE(request.filterIndex, 0);
    QCOMPARE(request.defaultExtension, QStringLiteral(".csv"));
    QCOMPARE(request.fileName, QString());
    QCOMPARE(request.flags, unsigned(Ofn::HideReadOnly | Ofn::PathMustExist));
    // The wait cursor was shown while the report was made and while it was written.
    QCOMPARE(m_platform->callsOf(QStringLiteral("waitCursor")).size(), 4);
    QCOMPARE(m_platform->callsOf(QStringLiteral("progress")).size(), 2);
}

// Each way Save Report can end without a report: the box it shows (if any), and no file left behind.
void tst_TrafficCountersDlg::reportFailures_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("message"); // empty: no box; %1 stands for the chosen path
    QTest::addRow("save cancelled") << "cancel" << QString();
    QTest::addRow("progress cancelled") << "progress" << QString();
    QTest::addRow("generate fails") << "generate"
                                    << QStringLiteral("Failed to generate the report.   The error code returned was 170.");
    QTest::addRow("save fails") << "save"
                                << QStringLiteral("Failed to save the report as \"%1\".  The error code returned was 3.");
}

void tst_TrafficCountersDlg::reportFailures()
{
    QFETCH(QString, how);
    QFETCH(QString, message);
    QString path = m_dir->filePath(QStringLiteral("report.csv"));
    if (how == QLatin1String("cancel"))
        m_platform->answerFileDialog(std::nullopt);
    else if (how == QLatin1String("generate"))
        QVERIFY(VbInjectFault(*m_store, "CTrafficReport::Generate", nullptr, nullptr, VB_ERROR_BUSY, 0));
    else if (how == QLatin1String("save"))
        m_platform->answerFileDialog(path = m_dir->filePath(QStringLiteral("no such folder/report \"1\".csv")));
    else
        m_platform->answerFileDialog(path);
    if (how == QLatin1String("progress"))
        m_platform->setProgressAnswer([](qint64, qint64) { return false; });
    QCOMPARE(saveReport(nullptr, QString()), 2);
    const auto boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), message.isEmpty() ? 0 : 1);
    if (!message.isEmpty()) {
        QCOMPARE(boxes[0].text, message.contains(QLatin1String("%1")) ? message.arg(path) : message);
        QCOMPARE(boxes[0].caption, QStringLiteral("Mailbox Report Save Failed"));
    }
    // A report that could not be made is never offered for saving.
    QCOMPARE(m_platform->callsOf(QStringLiteral("fileDialog")).size(), how == QLatin1String("generate") ? 0 : 1);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files | QDir::Hidden), QStringList());
}

QTEST_MAIN(tst_TrafficCountersDlg)
#include "tst_trafficcountersdlg.moc"
