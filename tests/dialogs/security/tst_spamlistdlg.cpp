// The spam-source list: importing a text file (comments, separators, refused entries counted once,
// entries already listed skipped), exporting it whole, and a list of 100 000 entries.
#include "DialogHarness.h"

#include "security/SpamListDlg.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QSet>

class tst_SpamListDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void importAndExport();
    void cancelledFileDialogChangesNothing();
    void largeImport();

private:
    QString writeFile(const char* name, const QByteArray& bytes);
};

QString tst_SpamListDlg::writeFile(const char* name, const QByteArray& bytes)
{
    const QString path = m_dir->filePath(QLatin1String(name));
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
        QTest::qFail("could not write the test file", __FILE__, __LINE__);
    return path;
}

void tst_SpamListDlg::importAndExport()
{
    const QString in = writeFile("in.txt", "# known senders\nmail.spam.example, 198.51.100.*\n"
                                           "not/a/host  *.bulk.example\nSPAM-HAVEN.example\n10.300.1.1\n");
    const QString out = m_dir->filePath(QStringLiteral("out.txt"));
    m_platform->answerFileDialog(in);
    m_platform->answerFileDialog(out);
    CSpamListDlg dialog(nullptr, *m_store, {QStringLiteral("spam-haven.example")});
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    Harness::clickButton(&dialog, "btnImport");
    auto* list = Harness::control<QListWidget>(&dialog, "lstSpamSources");
    QStringList shown;
    for (int i = 0; i < list->count(); ++i)
        shown << list->item(i)->text();
    QCOMPARE(shown, QStringList({QStringLiteral("spam-haven.example"), QStringLiteral("mail.spam.example"),
                                 QStringLiteral("198.51.100.*"), QStringLiteral("*.bulk.example")}));
    QCOMPARE(m_platform->messages().size(), 1);
    QVERIFY2(m_platform->messages()[0].startsWith(QLatin1String("2 entries")), qPrintable(m_platform->messages()[0]));
    QCOMPARE(Harness::control<QLabel>(&dialog, "lblSummary")->text(), QStringLiteral("3 host names, 1 IP address patterns"));
    Harness::clickButton(&dialog, "btnExport");
    QFile written(out);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), QByteArray("spam-haven.example\nmail.spam.example\n198.51.100.*\n*.bulk.example\n"));
    QCOMPARE(m_platform->fileRequests.size(), 2);
    QVERIFY(m_platform->fileRequests[1].save);
    QVERIFY(m_platform->fileRequests[1].flags & Ofn::OverwritePrompt);
    Harness::clickButton(&dialog, "btnOK");
    QCOMPARE(dialog.entries(), shown);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

void tst_SpamListDlg::cancelledFileDialogChangesNothing()
{
    m_platform->answerFileDialog(std::nullopt);
    CSpamListDlg dialog(nullptr, *m_store, {QStringLiteral("a.example")});
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    Harness::clickButton(&dialog, "btnImport");
    QCOMPARE(Harness::control<QListWidget>(&dialog, "lstSpamSources")->count(), 1);
    QCOMPARE(m_platform->messages(), QStringList());
    dialog.reject();
}

// 100 000 addresses import in one pass; the time is reported against building the same list and set
// directly in this run.
void tst_SpamListDlg::largeImport()
{
    QByteArray bytes;
    QStringList expected;
    for (int i = 0; i < 100000; ++i) {
        const QString entry = QStringLiteral("10.%1.%2.%3").arg(i >> 16).arg((i >> 8) & 255).arg(i & 255);
        expected << entry;
        bytes += entry.toLatin1() + '\n';
    }
    const QString in = writeFile("large.txt", bytes);
    QElapsedTimer baseline;
    baseline.start();
    QSet<QString> keys;
    QStringList copy;
    for (const QString& e : std::as_const(expected)) {
        keys.insert(e.toLower());
        copy.append(e);
    }
    const qint64 baselineMs = qMax<qint64>(1, baseline.elapsed());
    m_platform->answerFileDialog(in);
    CSpamListDlg dialog(nullptr, *m_store, {});
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QElapsedTimer timer;
    timer.start();
    Harness::clickButton(&dialog, "btnImport");
    const qint64 importMs = timer.elapsed();
    qInfo("100 000 entries imported in %.1f times the baseline", double(importMs) / double(baselineMs));
    Harness::clickButton(&dialog, "btnOK");
    QCOMPARE(dialog.entries(), expected);
    QCOMPARE(m_platform->messages(), QStringList());
}

QTEST_MAIN(tst_SpamListDlg)
#include "tst_spamlistdlg.moc"
