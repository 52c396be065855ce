// The e-mail address lists of the server, a domain and a mailbox, opened through their entry points on
// a real store: address validation, Add through the address dialog, where each level keeps its lists,
// "Load Default", CSV import (header, bad rows with their lines, cancel) and export, and a failed save.
#include "DialogHarness.h"

#include "common/EmailAddressListEditor.h"

#include <QFile>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

#include <velbrook/DomainStore.h>
#include <velbrook/MailToolkit.h>
#include <velbrook/MailboxStore.h>

namespace {

using EntryServer = int (*)(TaviOwner, _tMailServer*, const char*);
using EntryDomain = int (*)(TaviOwner, _tMailServer*, const char*, const char*);
using EntryMailbox = int (*)(TaviOwner, _tMailServer*, _tMailbox*, const char*);

QStringList shown(QDialog* editor)
{
    auto* view = Harness::control<QListView>(editor, "lstEntries");
    QStringList out;
    for (int r = 0; view && r < view->model()->rowCount(); ++r)
        out.append(view->model()->index(r, 0).data().toString());
    return out;
}

// Adds an entry through the Add dialog, typed as a person would.
void addThroughDialog(QDialog* editor, const QString& text)
{
    Harness::driveModal(
        [&] {
            Harness::clickButton(editor, "btnAdd");
            return 0;
        },
        [&](QDialog* add) {
            Harness::typeInto(Harness::control<QLineEdit>(add, "edtAddress"), text);
            Harness::clickButton(add, "btnOK");
        });
}

QStringList multiStringItems(const QByteArray& bytes)
{
    QStringList out;
    for (const QByteArray& item : bytes.split('\0'))
        if (!item.isEmpty())
            out.append(QString::fromUtf8(item));
    return out;
}

QStringList serverList(_tMailServer* server, const char* name)
{
    uint32_t size = 0;
    GetMailServerProperty(server, "AddressLists", name, nullptr, &size, nullptr);
    QByteArray bytes(qsizetype(size) + 1, '\0');
    size = uint32_t(bytes.size());
    if (!GetMailServerProperty(server, "AddressLists", name, bytes.data(), &size, nullptr))
        return {};
    QStringList items = multiStringItems(bytes.left(size));
    items.sort();
    return items;
}

} // namespace

class tst_EmailAddressListEditor : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void normalised_data();
    void normalised();
    void serverListAddedThroughDialog();
    void badAddressRefusedInDialog();
    void domainListsAndLoadDefault();
    void missingDomainShowsNoList();
    void mailboxLists();
    void importCsv();
    void importCancelledKeepsNothing();
    void exportWritesOneAddressARow();
    void failedSaveStillClosesOk();

private:
    _tMailServer* server() const { return m_store->server(); }
    int runServer(const char* list, const std::function<void(QDialog*)>& driver)
    {
        auto entry = reinterpret_cast<EntryServer>(Harness::resolveEntry("EditServerEmailAddressLists"));
        return Harness::driveModal([&] { return entry(0, server(), list); }, driver);
    }
    QString writeFile(const QByteArray& text)
    {
        const QString path = m_dir->filePath(QStringLiteral("list.csv"));
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(text);
        return path;
    }
};

void tst_EmailAddressListEditor::normalised_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected"); // empty: refused
    QTest::addRow("address") << "Jane.Doe@Example.COM" << "jane.doe@example.com";
    QTest::addRow("angle brackets and blanks") << "  <bob@example.org> " << "bob@example.org";
    QTest::addRow("whole domain") << "*@example.com" << "*@example.com";
    QTest::addRow("at domain") << "@example.com" << "*@example.com";
    QTest::addRow("bare domain") << "example.com" << "*@example.com";
    QTest::addRow("subdomains") << "*@*.example.com" << "*@*.example.com";
    QTest::addRow("local pattern") << "sales*@example.com" << "sales*@example.com";
    QTest::addRow("any domain") << "postmaster@*" << "postmaster@*";
    QTest::addRow("address literal") << "root@[192.0.2.1]" << "root@[192.0.2.1]";
    QTest::addRow("international domain") << "info@bücher.example" << "info@xn--bcher-kva.example";
    QTest::addRow("plus and apostrophe") << "o'neil+tag@example.com" << "o'neil+tag@example.com";
    QTest::addRow("empty") << "   " << "";
    QTest::addRow("single word") << "address" << "";
    QTest::addRow("two ats") << "a@b@example.com" << "";
    QTest::addRow("empty domain") << "jane@" << "";
    QTest::addRow("comma") << "a,b@example.com" << "";
    QTest::addRow("blank inside") << "jane doe@example.com" << "";
    QTest::addRow("double dot") << "jane..doe@example.com" << "";
    QTest::addRow("label with underscore") << "jane@ex_ample.com" << "";
    QTest::addRow("star inside domain") << "jane@ex*.com" << "";
    QTest::addRow("bad literal") << "root@[999.0.0.1]" << "";
    QTest::addRow("long local part") << QString(65, QLatin1Char('a')) + "@example.com" << "";
    QTest::addRow("too long") << "a@" + QString(250, QLatin1Char('b')) + ".com" << "";
}

void tst_EmailAddressListEditor::normalised()
{
    QFETCH(QString, input);
    QFETCH(QString, expected);
    QString text = input;
    QString reason;
    SetLastError(0);
    const bool ok = NormaliseEmailAddressPattern(text, &reason);
    QCOMPARE(ok, !expected.isEmpty());
    if (ok) {
        QCOMPARE(text, expected);
    } else {
        QCOMPARE(text, input); // untouched
        QVERIFY(!reason.isEmpty());
        QCOMPARE(GetLastError(), VB_ERROR_INVALID_DATA);
    }
}

void tst_EmailAddressListEditor::serverListAddedThroughDialog()
{
    const int result = runServer("Blacklist", [&](QDialog* d) {
        QCOMPARE(shown(d), (QStringList{"*@*.spam-haven.example", "*@bulkmail.example", "offers@promo.example"}));
        QVERIFY(!Harness::control<QPushButton>(d, "btnLoadDefault")->isEnabled()); // the server has no defaults
        addThroughDialog(d, QStringLiteral("Spammer@Junk.Example"));
        QCOMPARE(shown(d).value(2), QStringLiteral("offers@promo.example"));
        QVERIFY(shown(d).contains(QStringLiteral("spammer@junk.example")));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QVERIFY(LookupMailServerListProperty(server(), "AddressLists", "Blacklist", "spammer@junk.example"));
    // One element stored by itself; the list was not rewritten.
    QCOMPARE(m_store->calls("AddToMailServerListProperty"), 1u);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

void tst_EmailAddressListEditor::badAddressRefusedInDialog()
{
    runServer("Whitelist", [&](QDialog* d) {
        Harness::driveModal(
            [&] {
                Harness::clickButton(d, "btnAdd");
                return 0;
            },
            [&](QDialog* add) {
                Harness::typeInto(Harness::control<QLineEdit>(add, "edtAddress"), QStringLiteral("jane doe@example"));
                Harness::clickButton(add, "btnOK");
                QVERIFY(add->isVisible());
                QCOMPARE(m_platform->messages().size(), 1);
                QVERIFY(m_platform->messages().first().startsWith(
                    QStringLiteral("\"jane doe@example\" is not an e-mail address or address pattern.")));
                QCOMPARE(add->focusWidget() ? add->focusWidget()->objectName() : QString(), QStringLiteral("edtAddress"));
                Harness::clickButton(add, "btnCancel");
            });
        QCOMPARE(shown(d).size(), 2);
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(serverList(server(), "Whitelist"), (QStringList{"*@partner.example.net", "ceo@customer.example"}));
}

// A domain keeps its lists as its own list properties; "Load Default" takes the server's list of that
// name, and the whole list is then rewritten in one write.
void tst_EmailAddressListEditor::domainListsAndLoadDefault()
{
    auto entry = reinterpret_cast<EntryDomain>(Harness::resolveEntry("EditDomainEmailAddressLists"));
    const int result = Harness::driveModal([&] { return entry(0, server(), "brennoway.example", "Whitelist"); },
                                           [&](QDialog* d) {
                                               QCOMPARE(shown(d), QStringList{"*@lab.example.org"});
                                               auto* load = Harness::control<QPushButton>(d, "btnLoadDefault");
                                               QVERIFY(load->isEnabled());
                                               load->click();
                                               QCOMPARE(shown(d), (QStringList{"*@partner.example.net",
                                                                               "ceo@customer.example"}));
                                               Harness::clickButton(d, "btnOK");
                                           });
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetDomainProperty"), 1u);
    _tDomain* domain = OpenDomain(server(), "brennoway.example");
    QVERIFY(domain);
    QVERIFY(LookupDomainListProperty(domain, "Whitelist", "ceo@customer.example"));
    QVERIFY(!LookupDomainListProperty(domain, "Whitelist", "*@lab.example.org"));
    QVERIFY(LookupDomainListProperty(domain, "Blacklist", "newsletter@shop.example"));
    CloseDomain(domain);
}

void tst_EmailAddressListEditor::missingDomainShowsNoList()
{
    auto entry = reinterpret_cast<EntryDomain>(Harness::resolveEntry("EditDomainEmailAddressLists"));
    m_platform->answerMessageBox(Id::Cancel);
    const int result = Harness::driveModal([&] { return entry(0, server(), "nowhere.example", "Whitelist"); },
                                           [&](QDialog* d) {
                                               QCOMPARE(shown(d), QStringList());
                                               QVERIFY(!Harness::control<QPushButton>(d, "btnAdd")->isEnabled());
                                               Harness::clickButton(d, "btnCancel");
                                           });
    QCOMPARE(result, 2);
    QCOMPARE(m_platform->messages(), QStringList{"Could not determine the known lists."});
}

void tst_EmailAddressListEditor::mailboxLists()
{
    _tMailbox* mailbox = OpenMailbox(server(), "postmaster@brennoway.example");
    QVERIFY(mailbox);
    auto entry = reinterpret_cast<EntryMailbox>(Harness::resolveEntry("EditMailboxEmailAddressLists"));
    const int result = Harness::driveModal([&] { return entry(0, server(), mailbox, "PreferredSenders"); },
                                           [&](QDialog* d) {
                                               QCOMPARE(shown(d), QStringList());
                                               addThroughDialog(d, QStringLiteral("boss@brennoway.example"));
                                               Harness::clickButton(d, "btnOK");
                                           });
    QCOMPARE(result, 1);
    QVERIFY(LookupMailboxListProperty(mailbox, "PreferredSenders", "boss@brennoway.example"));
    CloseMailbox(mailbox);
}

// A header row is tolerated, bad rows are counted with their line numbers, quoted fields and further
// columns are read, entries already in the list are kept once, and the list is rewritten whole.
void tst_EmailAddressListEditor::importCsv()
{
    const QString path = writeFile("E-mail address,Comment\r\n"
                                   "\"New@Example.net\",first\r\n"
                                   "not an address\r\n"
                                   "\r\n"
                                   "jane@@example.com\r\n"
                                   "offers@promo.example\r\n"
                                   "*@second.example");
    m_platform->answerFileDialog(path);
    m_platform->answerMessageBox(Id::Ok);
    const int result = runServer("Blacklist", [&](QDialog* d) {
        Harness::clickButton(d, "btnImport");
        QCOMPARE(shown(d), (QStringList{"*@*.spam-haven.example", "*@bulkmail.example", "*@second.example",
                                        "new@example.net", "offers@promo.example"}));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_platform->messages(),
             QStringList{"2 rows of the file could not be imported, on these lines: 3, 5\n\n3 entries were read. Press "
                         "OK to add them to the list, or Cancel to import nothing."});
    QVERIFY(!m_platform->callsOf(QStringLiteral("progress")).isEmpty());
    QCOMPARE(serverList(server(), "Blacklist"), (QStringList{"*@*.spam-haven.example", "*@bulkmail.example",
                                                             "*@second.example", "new@example.net",
                                                             "offers@promo.example"}));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 1u);
    QCOMPARE(m_store->calls("AddToMailServerListProperty"), 0u);
}

void tst_EmailAddressListEditor::importCancelledKeepsNothing()
{
    QByteArray text;
    for (int i = 0; i < 20000; ++i)
        text += "user" + QByteArray::number(i) + "@example.com\n";
    m_platform->answerFileDialog(writeFile(text));
    int asked = 0;
    m_platform->setProgressAnswer([&](qint64, qint64) { return ++asked < 2; });
    const int result = runServer("Blacklist", [&](QDialog* d) {
        Harness::clickButton(d, "btnImport");
        QCOMPARE(shown(d).size(), 3);
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(asked, 2);
    QCOMPARE(m_store->calls("SetMailServerProperty") + m_store->calls("AddToMailServerListProperty"), 0u);
}

void tst_EmailAddressListEditor::exportWritesOneAddressARow()
{
    const QString path = m_dir->filePath(QStringLiteral("out.csv"));
    m_platform->answerFileDialog(path);
    runServer("Blacklist", [&](QDialog* d) {
        Harness::clickButton(d, "btnExport");
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(m_platform->fileRequests.first().flags & (Ofn::OverwritePrompt | Ofn::HideReadOnly),
             unsigned(Ofn::OverwritePrompt | Ofn::HideReadOnly));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("*@*.spam-haven.example\n*@bulkmail.example\noffers@promo.example\n"));
}

// A store that refuses the element: the person is told, Abort keeps nothing, and OK still returns 1.
void tst_EmailAddressListEditor::failedSaveStillClosesOk()
{
    QVERIFY(VbInjectFault(server(), "AddToMailServerListProperty", "AddressLists", "Blacklist", VB_ERROR_BUSY, 0));
    m_platform->answerMessageBox(Id::Retry);
    m_platform->answerMessageBox(Id::Abort);
    const int result = runServer("Blacklist", [&](QDialog* d) {
        addThroughDialog(d, QStringLiteral("x@y.example"));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_platform->messages(), (QStringList{"Could not save the list.", "Could not save the list."}));
    VbClearFaults(server());
    QVERIFY(!LookupMailServerListProperty(server(), "AddressLists", "Blacklist", "x@y.example"));
}

QTEST_MAIN(tst_EmailAddressListEditor)
#include "tst_emailaddresslisteditor.moc"
