// The mailing list's members page: the roster of 100 000 members, search as you type, adding and
// removing, CSV import (bad lines by number, all or nothing) and export; and how long the page takes
// against the store alone.
#include "DialogHarness.h"

#include "maillist/MailListMembersPage.h"
#include "maillist/MailListSheet.h"
#include "maillist/MemberCsv.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeView>

#include <velbrook/ListStore.h>

namespace {

const char kDomain[] = "brennoway.example";

uint32_t memberCount(_tMailServer* server, const char* list)
{
    _tMailingList* l = OpenMailingList(server, list, kDomain);
    uint32_t n = 0;
    auto row = [](void* c, const char*, const char*) -> int { ++*static_cast<uint32_t*>(c); return 1; };
    if (l)
        ReadMailingListMembers(l, "FullName", row, &n);
    CloseMailingList(l);
    return n;
}

} // namespace

class tst_MailListMembers : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void csvParsing_data();
    void csvParsing();
    void rosterLoadsAndSearches();
    void addAndRemove();
    void importReportsBadLines_data();
    void importReportsBadLines();
    void cancelledImportAddsNothing();
    void exportWritesShownMembers();
    void timingAgainstStore();

private:
    // Opens the sheet on a list with the members page in front, runs driver on the page.
    void onMembersPage(const char* list, const std::function<void(QDialog*, CMailListMembersPage*)>& driver);
    QString writeFile(const QByteArray& text);
};

void tst_MailListMembers::onMembersPage(const char* list,
                                        const std::function<void(QDialog*, CMailListMembersPage*)>& driver)
{
    // A list made by a test has no bounce address: leaving the general page would ask about it.
    m_platform->reminders()[QStringLiteral("NoMailListBouncesReminder")] = 1;
    CMailListSheet sheet(nullptr, *m_store, kDomain, list);
    QVERIFY(sheet.openList());
    Harness::driveModal([&] { return sheet.exec(); }, [&](QDialog* d) {
        auto* page = d->findChild<CMailListMembersPage*>();
        QVERIFY(page);
        Harness::control<QTabWidget>(d, "tabPages")->setCurrentWidget(page);
        driver(d, page);
        if (d->isVisible())
            d->reject();
    });
}

QString tst_MailListMembers::writeFile(const QByteArray& text)
{
    const QString path = m_dir->filePath(QStringLiteral("members.csv"));
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(text) != text.size())
        return QString();
    return path;
}

void tst_MailListMembers::csvParsing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("bad");
    QTest::addRow("heading, quotes, blank line") << QByteArray("Address,Name\r\na@x.example,\"Smith, J\"\r\n\r\nb@x.example\n")
                                                 << "a@x.example=Smith, J;b@x.example=" << "";
    QTest::addRow("bad address and twice") << QByteArray("a@x.example,A\nnot-an-address,B\nA@X.example,C\n")
                                           << "a@x.example=A" << "2,3";
    QTest::addRow("already a member") << QByteArray("alice@brennoway.example,Alice\n") << "" << "1";
    QTest::addRow("bad host") << QByteArray("a@-x-.example\n\"quoted\"\"local\"@x.example,Q\n")
                              << "" << "1,2"; // a quoted address ends at its closing quote
}

void tst_MailListMembers::csvParsing()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, rows);
    QFETCH(QString, bad);
    const MemberCsv::Parsed parsed = MemberCsv::parse(text, {QStringLiteral("alice@brennoway.example")});
    QStringList gotRows, gotBad;
    for (const MemberCsv::Row& r : parsed.rows)
        gotRows.append(r.address + QLatin1Char('=') + r.name);
    for (const MemberCsv::BadLine& b : parsed.bad)
        gotBad.append(QString::number(b.line));
    QCOMPARE(gotRows.join(QLatin1Char(';')), rows);
    QCOMPARE(gotBad.join(QLatin1Char(',')), bad);
}

void tst_MailListMembers::rosterLoadsAndSearches()
{
    onMembersPage("newsletter", [&](QDialog* d, CMailListMembersPage* page) {
        QCOMPARE(page->model()->total(), 100000);
        QCOMPARE(page->model()->shown(99999).address, QStringLiteral("reader100000@subscribers.example"));
        QCOMPARE(page->model()->shown(99999).name, QStringLiteral("Reader 100000"));
        auto* search = Harness::control<QLineEdit>(d, "edtSearch");
        QTest::keyClicks(search, QStringLiteral("READER 9999"));
        // "Reader 9999" and "Reader 99990" to "Reader 99999".
        QCOMPARE(page->model()->rowCount(), 11);
        QCOMPARE(Harness::control<QLabel>(d, "lblMemberCount")->text(), QStringLiteral("11 of 100000 members shown"));
        search->clear();
        QCOMPARE(page->model()->rowCount(), 100000);
    });
}

void tst_MailListMembers::addAndRemove()
{
    onMembersPage("news", [&](QDialog* d, CMailListMembersPage* page) {
        const int before = page->model()->total();
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtNewAddress"), QStringLiteral("new@x.example"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtNewName"), QStringLiteral("New Reader"));
        // Enter adds the member and leaves the sheet open.
        Harness::pressEnter(Harness::control<QLineEdit>(d, "edtNewName"));
        QVERIFY(d->isVisible());
        QCOMPARE(page->model()->total(), before + 1);
        QVERIFY(Harness::control<QLineEdit>(d, "edtNewName")->text().isEmpty());
        QVERIFY(!Harness::control<QPushButton>(d, "btnCancel")->isEnabled()); // Cancel cannot undo it
        // The same address again, in another case, is refused with the focus on the address.
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtNewAddress"), QStringLiteral("NEW@x.example"));
        Harness::clickButton(d, "btnAddMember");
        QCOMPARE(m_platform->messages(), QStringList{"NEW@x.example is already a member of this list."});
        QCOMPARE(m_platform->calls().last().focus, QStringLiteral("edtNewAddress"));
        // Removing two members, first refused by the store (nothing goes), then confirmed and done.
        auto* view = Harness::control<QTreeView>(d, "lstMembers");
        for (int row : {0, 1})
            view->selectionModel()->select(page->model()->index(row, 0),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QVERIFY(VbInjectFault(*m_store, "RemoveMailingListMembers", nullptr, nullptr, VB_ERROR_BUSY, 1));
        m_platform->answerMessageBox(Id::Yes);
        Harness::clickButton(d, "btnRemoveMembers");
        QCOMPARE(page->model()->total(), before + 1);
        m_platform->answerMessageBox(Id::Yes);
        Harness::clickButton(d, "btnRemoveMembers");
        QCOMPARE(page->model()->total(), before - 1);
    });
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 4);
    QCOMPARE(messages[1], QStringLiteral("Remove the 2 selected members from the mail list?"));
    QVERIFY2(messages[2].startsWith(QLatin1String("Cannot remove the 2 selected members from the mail list.")),
             qPrintable(messages[2]));
    _tMailingList* l = OpenMailingList(*m_store, "news", kDomain);
    char name[64] = {};
    uint32_t size = sizeof name;
    QVERIFY(GetMailingListMemberProperty(l, "new@x.example", "FullName", name, &size, nullptr));
    QCOMPARE(QByteArray(name), QByteArray("New Reader"));
    size = sizeof name;
    QVERIFY(!GetMailingListMemberProperty(l, "reader1@subscribers.example", "FullName", name, &size, nullptr));
    size = sizeof name;
    QVERIFY(!GetMailingListMemberProperty(l, "reader2@subscribers.example", "FullName", name, &size, nullptr));
    CloseMailingList(l);
}

void tst_MailListMembers::importReportsBadLines_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<uint32_t>("added");
    QTest::addRow("import the others") << int(Id::Ok) << 2u;
    QTest::addRow("cancel") << int(Id::Cancel) << 0u;
}

void tst_MailListMembers::importReportsBadLines()
{
    QFETCH(int, answer);
    QFETCH(uint32_t, added);
    const QString path = writeFile("one@x.example,One\nbroken\nreader1@subscribers.example,Dup\ntwo@x.example,Two\n");
    m_platform->answerFileDialog(path);
    m_platform->answerMessageBox(answer);
    const uint32_t before = memberCount(*m_store, "news");
    onMembersPage("news", [&](QDialog* d, CMailListMembersPage* page) {
        Harness::clickButton(d, "btnImport");
        QCOMPARE(uint32_t(page->model()->total()), before + added);
    });
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(QLatin1String("2 lines of the file cannot be imported:\nLine 2:"))
                 && messages[0].contains(QLatin1String("Line 3: reader1@subscribers.example is already a member"))
                 && messages[0].endsWith(QLatin1String("Import the other 2 members?")),
             qPrintable(messages[0]));
    QCOMPARE(memberCount(*m_store, "news"), before + added);
}

// Cancelling the progress, or a store failure part way, leaves the roster as it was.
void tst_MailListMembers::cancelledImportAddsNothing()
{
    QByteArray text;
    for (int i = 0; i < 5000; ++i)
        text += "member" + QByteArray::number(i) + "@bulk.example,Member " + QByteArray::number(i) + "\n";
    m_platform->answerFileDialog(writeFile(text));
    m_platform->setProgressAnswer([](qint64 done, qint64) { return done < 3000; });
    const uint32_t before = memberCount(*m_store, "news");
    onMembersPage("news", [&](QDialog* d, CMailListMembersPage* page) {
        Harness::clickButton(d, "btnImport");
        QCOMPARE(uint32_t(page->model()->total()), before);
    });
    QVERIFY(m_platform->messages().isEmpty());
    QCOMPARE(memberCount(*m_store, "news"), before);

    m_platform->setProgressAnswer([](qint64, qint64) { return true; });
    m_platform->answerFileDialog(writeFile(text));
    QVERIFY(VbInjectFault(*m_store, "AddMailingListMembers", nullptr, nullptr, VB_ERROR_DISK_FULL, 1));
    onMembersPage("news", [&](QDialog* d, CMailListMembersPage*) { Harness::clickButton(d, "btnImport"); });
    QCOMPARE(m_platform->messages().size(), 1);
    QVERIFY(m_platform->messages()[0].startsWith(QLatin1String("The members could not be imported")));
    QCOMPARE(memberCount(*m_store, "news"), before);
}

void tst_MailListMembers::exportWritesShownMembers()
{
    const QString path = m_dir->filePath(QStringLiteral("out.csv"));
    m_platform->answerFileDialog(path);
    onMembersPage("newsletter", [&](QDialog* d, CMailListMembersPage*) {
        QTest::keyClicks(Harness::control<QLineEdit>(d, "edtSearch"), QStringLiteral("reader1000@"));
        Harness::clickButton(d, "btnExport");
    });
    QFile f(path);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(f.readAll(), QByteArray("Address,Name\nreader1000@subscribers.example,Reader 1000\n"));
}

// How long the members page takes to open on 100 000 members and to import 100 000 members, as
// ratios to the store doing the same work alone in this run. Prints the figures; fails only when the
// page costs more than twenty times the store, a sign of quadratic work.
void tst_MailListMembers::timingAgainstStore()
{
    QElapsedTimer t;
    // Baseline 1: the roster read through the store alone.
    _tMailingList* l = OpenMailingList(*m_store, "newsletter", kDomain);
    std::vector<std::pair<std::string, std::string>> rows;
    auto row = [](void* c, const char* a, const char* v) -> int {
        static_cast<std::vector<std::pair<std::string, std::string>>*>(c)->emplace_back(a, v);
        return 1;
    };
    t.start();
    QVERIFY(ReadMailingListMembers(l, "FullName", row, &rows));
    const qint64 storeRead = qMax<qint64>(1, t.nsecsElapsed());
    QCOMPARE(rows.size(), size_t(100000));
    CloseMailingList(l);

    qint64 pageOpen = 0;
    t.start();
    onMembersPage("newsletter", [&](QDialog*, CMailListMembersPage* page) {
        pageOpen = t.nsecsElapsed();
        QCOMPARE(page->model()->total(), 100000);
    });

    // Baseline 2: the same 100 000 rows added through the store alone, to a fresh list.
    QVERIFY(CreateMailingList(*m_store, "baseline", kDomain) && CreateMailingList(*m_store, "imported", kDomain));
    QByteArray text;
    std::vector<std::string> addresses, names;
    for (int i = 0; i < 100000; ++i) {
        addresses.push_back("bulk" + std::to_string(i) + "@import.example");
        names.push_back("Bulk " + std::to_string(i));
        text += QByteArray::fromStdString(addresses.back()) + ',' + QByteArray::fromStdString(names.back()) + '\n';
    }
    std::vector<const char*> a, n;
    for (size_t i = 0; i < addresses.size(); ++i) {
        a.push_back(addresses[i].c_str());
        n.push_back(names[i].c_str());
    }
    l = OpenMailingList(*m_store, "baseline", kDomain);
    t.start();
    QVERIFY(AddMailingListMembers(l, "FullName", a.data(), n.data(), uint32_t(a.size()), nullptr, nullptr, nullptr));
    const qint64 storeAdd = qMax<qint64>(1, t.nsecsElapsed());
    CloseMailingList(l);

    m_platform->answerFileDialog(writeFile(text));
    qint64 pageImport = 0;
    onMembersPage("imported", [&](QDialog* d, CMailListMembersPage* page) {
        t.start();
        Harness::clickButton(d, "btnImport");
        pageImport = t.nsecsElapsed();
        QCOMPARE(page->model()->total(), 100000);
    });
    const double openRatio = double(pageOpen) / double(storeRead);
    const double importRatio = double(pageImport) / double(storeAdd);
    qInfo("members page: open on 100000 members %.2f x the store's read; import of 100000 members %.2f x the "
          "store's bulk add",
          openRatio, importRatio);
    QVERIFY2(openRatio < 20 && importRatio < 20, "the members page does far more work than the store");
}

QTEST_MAIN(tst_MailListMembers)
#include "tst_maillistmembers.moc"
