// The wireless carrier editor behind EditServerWirelessCarrierListManager: the table it writes is the
// one CIdToStringMap::Load reads through "MobileCarriers", ids stay stable across edits and are never
// handed out twice, and a carrier's name and gateway are checked.
#include "DialogHarness.h"

#include "common/WirelessCarrierListEditor.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

#include <velbrook/MailToolkit.h>

namespace {

QStringList shown(QDialog* editor)
{
    auto* view = Harness::control<QListView>(editor, "lstEntries");
    QStringList out;
    for (int r = 0; view && r < view->model()->rowCount(); ++r)
        out.append(view->model()->index(r, 0).data().toString());
    return out;
}

void selectRow(QDialog* editor, const QString& text)
{
    auto* view = Harness::control<QListView>(editor, "lstEntries");
    view->clearSelection();
    for (int r = 0; r < view->model()->rowCount(); ++r)
        if (view->model()->index(r, 0).data().toString() == text)
            view->selectionModel()->select(view->model()->index(r, 0), QItemSelectionModel::Select);
}

// Runs the carrier dialog from the editor's Add or Edit button and fills it.
void fillCarrierDialog(QDialog* editor, const char* button, const QString& name, const QString& gateway,
                       const std::function<void(QDialog*)>& more = {})
{
    Harness::driveModal(
        [&] {
            Harness::clickButton(editor, button);
            return 0;
        },
        [&](QDialog* dialog) {
            Harness::typeInto(Harness::control<QLineEdit>(dialog, "edtName"), name);
            Harness::typeInto(Harness::control<QLineEdit>(dialog, "edtGateway"), gateway);
            Harness::clickButton(dialog, "btnOK");
            if (more)
                more(dialog);
        });
}

std::map<uint32_t, std::string> loadMap(const QString& path)
{
    CIdToStringMap map;
    if (!map.Load(path.toUtf8().constData()))
        return {};
    return map.Map();
}

} // namespace

class tst_WirelessCarrierListEditor : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void tableParsed_data();
    void tableParsed();
    void defaultsReachTheMailboxMap();
    void idsStayStable();
    void badCarrierRefused_data();
    void badCarrierRefused();

private:
    int run(const std::function<void(QDialog*)>& driver)
    {
        return Harness::runEntry("EditServerWirelessCarrierListManager", 0, m_store->server(), driver);
    }
    QString tablePath() const { return m_store->string(nullptr, "MobileCarriers"); }
};

// What the editor accepts as a table, and that what it writes reads back the same.
void tst_WirelessCarrierListEditor::tableParsed_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("carriers"); // "id name <gateway>|..." or "!line" for a refused table
    QTest::addColumn<int>("nextId");
    QTest::addRow("written form") << QByteArray("# c\n#next-id\t9\n3\tAcme\n#sms\tsms.acme.example\n5\tZed\n")
                                  << "3 Acme <sms.acme.example>|5 Zed <>" << 9;
    QTest::addRow("next id behind the ids") << QByteArray("\xEF\xBB\xBF#next-id\t2\r\n7\tA, B\r\n") << "7 A, B <>" << 8;
    QTest::addRow("empty") << QByteArray() << "" << 1;
    QTest::addRow("no tab") << QByteArray("1\tok\n2 bad\n") << "!2" << 0;
    QTest::addRow("id twice") << QByteArray("1\tA\n1\tB\n") << "!2" << 0;
    QTest::addRow("no name") << QByteArray("4\t\n") << "!1" << 0;
}

void tst_WirelessCarrierListEditor::tableParsed()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, carriers);
    QFETCH(int, nextId);
    QList<CWirelessCarrier> list;
    quint32 next = 0;
    qint64 line = 0;
    const bool ok = ParseWirelessCarrierTable(text, list, next, &line);
    if (carriers.startsWith(QLatin1Char('!'))) {
        QVERIFY(!ok);
        QCOMPARE(QString::number(line), carriers.mid(1));
        return;
    }
    QVERIFY(ok);
    QStringList out;
    for (const CWirelessCarrier& c : list)
        out.append(QStringLiteral("%1 %2 <%3>").arg(c.id).arg(c.name, c.gateway));
    QCOMPARE(out.join(QLatin1Char('|')), carriers);
    QCOMPARE(int(next), nextId);
    // The written form parses back to the same table.
    QList<CWirelessCarrier> again;
    quint32 nextAgain = 0;
    QVERIFY(ParseWirelessCarrierTable(FormatWirelessCarrierTable(list, next), again, nextAgain));
    QCOMPARE(again.size(), list.size());
    for (qsizetype i = 0; i < list.size(); ++i)
        QVERIFY(again[i].id == list[i].id && again[i].name == list[i].name && again[i].gateway == list[i].gateway);
    QCOMPARE(nextAgain, next);
}

// "Load Default" fills an empty table; OK writes it beside the store, names it in "MobileCarriers",
// and CIdToStringMap::Load (what the mailbox pages use) reads every carrier back by id.
void tst_WirelessCarrierListEditor::defaultsReachTheMailboxMap()
{
    const int result = run([&](QDialog* d) {
        QCOMPARE(shown(d), QStringList());
        Harness::clickButton(d, "btnLoadDefault");
        QCOMPARE(shown(d).size(), DefaultWirelessCarriers().size());
        QCOMPARE(shown(d).first(), QStringLiteral("AT&T <txt.att.net>"));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    const QString path = tablePath();
    QVERIFY(!path.isEmpty());
    const auto map = loadMap(path);
    QCOMPARE(map.size(), std::size_t(DefaultWirelessCarriers().size()));
    QStringList names;
    for (const auto& [id, name] : map) {
        QVERIFY(id > 0);
        names.append(QString::fromStdString(name));
    }
    QVERIFY(names.contains(QStringLiteral("Verizon Wireless")));
    QVERIFY(names.contains(QStringLiteral("AT&T")));
}

// Editing keeps a carrier's id; a deleted carrier's id is not given to a new one, even after reopening.
void tst_WirelessCarrierListEditor::idsStayStable()
{
    const QString path = m_dir->filePath(QStringLiteral("carriers.txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("1\tAcme\n#sms\tsms.acme.example\n2\tBeta Mobile\n#sms\ttxt.beta.example\n");
    file.close();
    QVERIFY(m_store->setString(nullptr, "MobileCarriers", path));
    run([&](QDialog* d) {
        selectRow(d, QStringLiteral("Acme <sms.acme.example>"));
        fillCarrierDialog(d, "btnEdit", QStringLiteral("Acme Wireless"), QStringLiteral("SMS.Acme.example"));
        selectRow(d, QStringLiteral("Beta Mobile <txt.beta.example>"));
        Harness::clickButton(d, "btnDelete");
        Harness::clickButton(d, "btnOK");
    });
    run([&](QDialog* d) {
        QCOMPARE(shown(d), QStringList{"Acme Wireless <sms.acme.example>"});
        fillCarrierDialog(d, "btnAdd", QStringLiteral("Gamma"), QStringLiteral("g.example"));
        Harness::clickButton(d, "btnOK");
    });
    const auto map = loadMap(path);
    QCOMPARE(map.size(), std::size_t(2));
    QCOMPARE(map.at(1), std::string("Acme Wireless"));
    QVERIFY(!map.count(2));
    QCOMPARE(map.at(3), std::string("Gamma"));
}

void tst_WirelessCarrierListEditor::badCarrierRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("gateway");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    QTest::addRow("no name") << " " << "sms.example" << "Enter the carrier's name (up to 64 characters, without tabs or \"<\")." << "edtName";
    QTest::addRow("angle bracket") << "A <b>" << "sms.example" << "Enter the carrier's name (up to 64 characters, without tabs or \"<\")." << "edtName";
    QTest::addRow("no dot") << "Acme" << "localhost" << "Enter the carrier's SMS gateway domain, such as txt.example.net: the domain that turns mail to number@domain into a text message." << "edtGateway";
    QTest::addRow("blank") << "Acme" << "sms acme.example" << "Enter the carrier's SMS gateway domain, such as txt.example.net: the domain that turns mail to number@domain into a text message." << "edtGateway";
    QTest::addRow("name taken") << "at&t" << "other.example" << "A carrier named \"at&t\" is already in the list." << "edtName";
}

void tst_WirelessCarrierListEditor::badCarrierRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, gateway);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    run([&](QDialog* d) {
        Harness::clickButton(d, "btnLoadDefault");
        const int before = int(shown(d).size());
        fillCarrierDialog(d, "btnAdd", name, gateway, [&](QDialog* dialog) {
            QVERIFY(dialog->isVisible());
            QCOMPARE(m_platform->messages(), QStringList{message});
            // The dialog's own focus widget: a nested dialog's window may not be the active one yet.
            QCOMPARE(dialog->focusWidget() ? dialog->focusWidget()->objectName() : QString(), focus);
            Harness::clickButton(dialog, "btnCancel");
        });
        QCOMPARE(int(shown(d).size()), before);
        Harness::clickButton(d, "btnCancel");
    });
    QVERIFY(tablePath().isEmpty()); // Cancel wrote nothing
}

QTEST_MAIN(tst_WirelessCarrierListEditor)
#include "tst_wirelesscarrierlisteditor.moc"
