// The subnet list editor, its four-field address control, and EditServerSubnetList over a server property.
#include "DialogHarness.h"

#include "common/Ip4AddressEdit.h"
#include "common/SubnetListDlg.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include <velbrook/MailToolkit.h>

namespace {

const QString kInvalid = QStringLiteral(
    "The combination of network address and subnet mask entered is not a valid CIDR subnet or the comment "
    "contains illegal characters.\n\nAs a valid example,  the network IDs 131.107.4.0, 131.107.5.0, "
    "131.107.6.0, and 131.107.7.0 can be summarized with the network ID 131.107.4.0, with a subnet mask of "
    "255.255.252.0 (131.107.4.0/22).\n\nMore information about subnet masks is available on the internet.");
const QString kDuplicate =
    QStringLiteral("Cannot add entry as this Nework Address and Subnet Mask already exist in the list.");
const QString kIoErrors = QStringLiteral("There were I/O errors when processing the file.");

// "subnet|comment" per element, in list order.
QStringList rowsOf(const _tIp4Subnet* first)
{
    QStringList out;
    for (const _tIp4Subnet* p = first; p; p = p->next) {
        char text[VB_SUBNET_TEXT_SIZE];
        GetSubnetString(p->address, p->mask, text);
        out.append(QString::fromLatin1(text) + QLatin1Char('|') + QString::fromUtf8(p->comment));
    }
    return out;
}

_tIp4Subnet* listOf(const QStringList& rows)
{
    _tIp4Subnet* first = nullptr;
    for (const QString& row : rows) {
        uint32_t address = 0, mask = 0;
        const QStringList parts = row.split(QLatin1Char('|'));
        if (ParseIp4Subnet(parts[0].toLatin1().constData(), '/', &address, &mask))
            AppendIp4Subnet(&first, address, mask, parts.value(1).toUtf8().constData());
    }
    return first;
}

// What the list view shows, as "subnet|comment".
QStringList shownRows(QWidget* dialog)
{
    auto* view = Harness::control<QTreeView>(dialog, "lstSubnets");
    QStringList out;
    for (int r = 0; view && r < view->model()->rowCount(); ++r)
        out.append(view->model()->index(r, 0).data().toString() + QLatin1Char('|')
                   + view->model()->index(r, 1).data().toString());
    return out;
}

// Types into an address control key by key, as a person does: each key goes where the focus is.
void typeAddress(QWidget* dialog, const char* name, const QString& keys)
{
    auto* edit = Harness::control<CIp4AddressEdit>(dialog, name);
    edit->clear();
    edit->field(0)->setFocus();
    for (const QChar c : keys)
        QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
}

void fillInputs(QWidget* d, const QString& network, const QString& mask, const QString& comment)
{
    typeAddress(d, "ipNetwork", network);
    typeAddress(d, "ipMask", mask);
    Harness::control<QLineEdit>(d, "edtComment")->setText(comment);
}

void selectRow(QWidget* d, int row)
{
    auto* view = Harness::control<QTreeView>(d, "lstSubnets");
    view->setCurrentIndex(view->model()->index(row, 0));
}

// The input fields as "network mask comment"; an address control not filled at all shows as "0".
QString fieldsOf(QWidget* d)
{
    auto address = [d](const char* name) {
        auto* edit = Harness::control<CIp4AddressEdit>(d, name);
        return edit->filledFieldCount() == 0 ? QStringLiteral("0") : edit->text();
    };
    return address("ipNetwork") + QLatin1Char(' ') + address("ipMask") + QLatin1Char(' ')
        + Harness::control<QLineEdit>(d, "edtComment")->text();
}

QString focusedControl(QWidget* d)
{
    QWidget* focus = d->focusWidget();
    // A field of an address control stands for the control.
    if (focus && qobject_cast<CIp4AddressEdit*>(focus->parentWidget()))
        focus = focus->parentWidget();
    return focus ? focus->objectName() : QString();
}

void click(QWidget* d, const char* name)
{
    Harness::click(Harness::control<QPushButton>(d, name));
}

} // namespace

class tst_SubnetListDlg : public CDialogTest {
    Q_OBJECT
public:
    tst_SubnetListDlg() : CDialogTest(false) {}

private Q_SLOTS:
    void addressControlTyping_data();
    void addressControlTyping();
    void tabOrder();
    void emptyListOpensEmptyAndOkHandsBackEmpty_data();
    void emptyListOpensEmptyAndOkHandsBackEmpty();
    void cancelKeepsCallerListOkHandsOverEdits();
    void addValidation_data();
    void addValidation();
    void modifyAndDelete_data();
    void modifyAndDelete();
    void exportThenReimportCountsQuotedComment();
    void importQuestions_data();
    void importQuestions();
    void ioErrorsOfferAbortRetryIgnore_data();
    void ioErrorsOfferAbortRetryIgnore();
    void largeImportAgainstPlainReading();
    void entryPointEditsServerProperty();
    void entryPointFailures_data();
    void entryPointFailures();

private:
    // Runs the editor over list, driven by driver; returns the modal result.
    int run(_tIp4Subnet** list, const std::function<void(QDialog*)>& driver);
    QString writeFile(const QString& name, const QByteArray& bytes);

};

int tst_SubnetListDlg::run(_tIp4Subnet** list, const std::function<void(QDialog*)>& driver)
{
    CSubnetListDlg dialog(nullptr, list, 0, 77);
    return Harness::driveModal([&] { return dialog.exec(); }, driver);
}

QString tst_SubnetListDlg::writeFile(const QString& name, const QByteArray& bytes)
{
    QFile file(m_dir->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        QTest::qFail("could not write a test file", __FILE__, __LINE__);
    return file.fileName();
}

void tst_SubnetListDlg::addressControlTyping_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("complete");
    QTest::addColumn<quint32>("address");
    QTest::addRow("dotted") << "192.168.1.0" << "192.168.1.0" << true << 0xC0A80100u;
    // The third digit moves on; the full stop typed after it must not skip a field.
    QTest::addRow("three digits then dot") << "255.255.252.0" << "255.255.252.0" << true << 0xFFFFFC00u;
    QTest::addRow("three digits move on") << "2552551" << "255.255.1." << false << 0u;
    QTest::addRow("dot in empty field ignored") << "10..1" << "10.1.." << false << 0u;
    QTest::addRow("over 255 refused") << "300" << "30..." << false << 0u;
    QTest::addRow("leading zero refused") << "01" << "0..." << false << 0u;
    QTest::addRow("backspace crosses back") << "10.\b\b7" << "17..." << false << 0u;
}

void tst_SubnetListDlg::addressControlTyping()
{
    QFETCH(QString, keys);
    QFETCH(QString, text);
    QFETCH(bool, complete);
    QFETCH(quint32, address);
    run(nullptr, [&](QDialog* d) {
        typeAddress(d, "ipNetwork", keys);
        auto* edit = Harness::control<CIp4AddressEdit>(d, "ipNetwork");
        QCOMPARE(edit->text(), text);
        QCOMPARE(edit->isComplete(), complete);
        if (complete)
            QCOMPARE(edit->address(), address);
        d->reject();
    });
}

void tst_SubnetListDlg::tabOrder()
{
    QStringList order;
    run(nullptr, [&](QDialog* d) {
        typeAddress(d, "ipNetwork", QStringLiteral("10.1")); // Tab leaves from an inner field too
        for (int i = 0; i < 12; ++i) {
            order.append(focusedControl(d));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        d->reject();
    });
    QCOMPARE(order, QStringList({"ipNetwork", "ipMask", "edtComment", "btnAdd", "btnClear", "lstSubnets",
                                 "btnDelete", "btnImport", "btnExport", "btnOK", "btnCancel", "ipNetwork"}));
}

void tst_SubnetListDlg::emptyListOpensEmptyAndOkHandsBackEmpty_data()
{
    QTest::addColumn<bool>("nullPointer");
    QTest::addRow("pointer to an empty list") << false;
    QTest::addRow("no pointer at all") << true;
}

void tst_SubnetListDlg::emptyListOpensEmptyAndOkHandsBackEmpty()
{
    QFETCH(bool, nullPointer);
    _tIp4Subnet* list = nullptr;
    QStringList shown{QStringLiteral("not read")};
    bool modifyEnabled = true;
    const int result = run(nullPointer ? nullptr : &list, [&](QDialog* d) {
        shown = shownRows(d);
        modifyEnabled = Harness::control<QPushButton>(d, "btnModify")->isEnabled();
        click(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(shown, QStringList());
    QVERIFY(!modifyEnabled);
    QCOMPARE(list, nullptr);
}

void tst_SubnetListDlg::cancelKeepsCallerListOkHandsOverEdits()
{
    _tIp4Subnet* list = listOf({"10.0.0.0/8|head office", "192.168.0.0/16|lab"});
    _tIp4Subnet* const original = list;
    for (const bool ok : {false, true}) {
        const int result = run(&list, [&](QDialog* d) {
            QCOMPARE(d->windowTitle(), QStringLiteral("IP Subnets"));
            QCOMPARE(shownRows(d), QStringList({"10.0.0.0/8|head office", "192.168.0.0/16|lab"}));
            fillInputs(d, QStringLiteral("172.16.0.0"), QStringLiteral("255.240.0.0"), QStringLiteral("vpn"));
            click(d, "btnAdd");
            click(d, ok ? "btnOK" : "btnCancel");
        });
        QCOMPARE(result, ok ? 1 : 2);
        // Cancel leaves the very same list; OK replaces it (the sanitizers see the former one freed).
        QCOMPARE(list == original, !ok);
    }
    QCOMPARE(rowsOf(list), QStringList({"10.0.0.0/8|head office", "192.168.0.0/16|lab", "172.16.0.0/12|vpn"}));
    FreeIp4SubnetList(list);
}

// A bad entry shows one box and puts the focus on the field at fault; the list is left as it was.
void tst_SubnetListDlg::addValidation_data()
{
    QTest::addColumn<QString>("network");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("comment");
    QTest::addColumn<QString>("message"); // empty: accepted
    QTest::addColumn<QString>("focus");
    QTest::addRow("network incomplete") << "10.0.0" << "255.0.0.0" << "" << kInvalid << "ipNetwork";
    QTest::addRow("mask incomplete") << "10.0.0.0" << "255" << "" << kInvalid << "ipMask";
    QTest::addRow("host bits set") << "10.0.0.1" << "255.0.0.0" << "" << kInvalid << "ipNetwork";
    QTest::addRow("mask with a hole") << "10.0.0.0" << "255.0.255.0" << "" << kInvalid << "ipNetwork";
    QTest::addRow("control character") << "10.1.0.0" << "255.255.0.0" << "bell\a" << kInvalid << "edtComment";
    QTest::addRow("256 characters") << "10.1.0.0" << "255.255.0.0" << QString(256, QLatin1Char('c')) << kInvalid
                                    << "edtComment";
    QTest::addRow("already listed") << "192.168.0.0" << "255.255.0.0" << "again" << kDuplicate << "ipNetwork";
    QTest::addRow("same network, other mask") << "192.168.0.0" << "255.255.255.0" << "" << QString() << "";
    QTest::addRow("whole internet") << "0.0.0.0" << "0.0.0.0" << "\"quoted\", ünïcode" << QString() << "";
}

void tst_SubnetListDlg::addValidation()
{
    QFETCH(QString, network);
    QFETCH(QString, mask);
    QFETCH(QString, comment);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    _tIp4Subnet* list = listOf({"192.168.0.0/16|lab"});
    QStringList shown;
    QString focusAfter;
    run(&list, [&](QDialog* d) {
        fillInputs(d, network, mask, comment);
        click(d, "btnAdd");
        focusAfter = focusedControl(d);
        shown = shownRows(d);
        click(d, "btnOK");
    });
    if (message.isEmpty()) {
        QCOMPARE(m_platform->messages(), QStringList());
        QCOMPARE(shown.size(), 2);
        QCOMPARE(rowsOf(list).size(), 2);
        QCOMPARE(rowsOf(list).last().section(QLatin1Char('|'), 1), comment);
    } else {
        QCOMPARE(m_platform->messages(), QStringList{message});
        QCOMPARE(focusAfter, focus);
        QCOMPARE(rowsOf(list), QStringList{"192.168.0.0/16|lab"});
    }
    FreeIp4SubnetList(list);
}

// Selecting a row fills the fields with it (and enables Modify); each action then changes that row only.
void tst_SubnetListDlg::modifyAndDelete_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("action"); // "modify a.b.c.d m.m.m.m comment", "button", "key", "clear"
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QString>("message");
    const QStringList same{"10.0.0.0/8|a", "172.16.0.0/12|b", "192.168.0.0/16|c"};
    QTest::addRow("comment only") << 1 << "modify 172.16.0.0 255.240.0.0 new" << QStringList{"10.0.0.0/8|a", "172.16.0.0/12|new", "192.168.0.0/16|c"} << "";
    QTest::addRow("subnet, in place") << 0 << "modify 10.0.0.0 255.255.0.0 a" << QStringList{"10.0.0.0/16|a", "172.16.0.0/12|b", "192.168.0.0/16|c"} << "";
    QTest::addRow("invalid") << 2 << "modify 192.168.0.1 255.255.0.0 c" << same << kInvalid;
    // Turning an entry into another listed one would hold that subnet twice.
    QTest::addRow("into another entry") << 2 << "modify 10.0.0.0 255.0.0.0 c" << same << kDuplicate;
    QTest::addRow("delete button") << 1 << "button" << QStringList{"10.0.0.0/8|a", "192.168.0.0/16|c"} << "";
    QTest::addRow("delete key") << 2 << "key" << QStringList{"10.0.0.0/8|a", "172.16.0.0/12|b"} << "";
    // Clear empties the fields and disables Modify; choosing the row again fills them again.
    QTest::addRow("clear, then reselect") << 1 << "clear" << same << "";
}

void tst_SubnetListDlg::modifyAndDelete()
{
    QFETCH(int, row);
    QFETCH(QString, action);
    QFETCH(QStringList, expected);
    QFETCH(QString, message);
    const QStringList fields{"10.0.0.0 255.0.0.0 a", "172.16.0.0 255.240.0.0 b", "192.168.0.0 255.255.0.0 c"};
    _tIp4Subnet* list = listOf({"10.0.0.0/8|a", "172.16.0.0/12|b", "192.168.0.0/16|c"});
    QStringList shown;
    QString filled, cleared, refilled;
    bool modifyEnabled = true, modifyAfterSelect = false;
    run(&list, [&](QDialog* d) {
        auto* modify = Harness::control<QPushButton>(d, "btnModify");
        selectRow(d, row);
        filled = fieldsOf(d);
        modifyAfterSelect = modify->isEnabled();
        const QStringList words = action.split(QLatin1Char(' '));
        if (words[0] == QLatin1String("modify")) {
            fillInputs(d, words[1], words[2], words[3]);
            click(d, "btnModify");
        } else {
            if (words[0] == QLatin1String("button")) {
                click(d, "btnDelete");
            } else if (words[0] == QLatin1String("key")) {
                auto* view = Harness::control<QTreeView>(d, "lstSubnets");
                view->setFocus();
                QTest::keyClick(view, Qt::Key_Delete);
            } else {
                click(d, "btnClear");
                cleared = fieldsOf(d);
            }
            modifyEnabled = modify->isEnabled();
            if (words[0] == QLatin1String("clear")) {
                selectRow(d, (row + 1) % 3);
                selectRow(d, row);
                refilled = fieldsOf(d);
            }
        }
        shown = shownRows(d);
        click(d, "btnOK");
    });
    QCOMPARE(filled, fields[row]);
    QVERIFY(modifyAfterSelect);
    QCOMPARE(m_platform->messages(), message.isEmpty() ? QStringList() : QStringList{message});
    QCOMPARE(shown, expected);
    QCOMPARE(rowsOf(list), expected);
    if (!action.startsWith(QLatin1String("modify")))
        QVERIFY(!modifyEnabled);
    if (action == QLatin1String("clear")) {
        QCOMPARE(cleared, QStringLiteral("0 0 "));
        QCOMPARE(refilled, fields[row]);
    }
    FreeIp4SubnetList(list);
}

// Export writes CSV with doubled quotes; reading it back counts the quoted comment as an error and
// Cancel on that count keeps the list shown, OK takes the accepted lines.
void tst_SubnetListDlg::exportThenReimportCountsQuotedComment()
{
    _tIp4Subnet* list = listOf({"10.0.0.0/8|say \"hi\"", "192.168.0.0/16|lab, west"});
    const QString path = m_dir->filePath(QStringLiteral("out.csv"));
    m_platform->answerFileDialog(path);
    m_platform->answerFileDialog(path);
    m_platform->answerMessageBox(Id::Cancel); // keep what is shown
    m_platform->answerFileDialog(path);
    m_platform->answerMessageBox(Id::Ok); // take the lines that were accepted
    QStringList afterCancel, afterOk;
    run(&list, [&](QDialog* d) {
        click(d, "btnExport");
        click(d, "btnImport");
        afterCancel = shownRows(d);
        click(d, "btnImport");
        afterOk = shownRows(d);
        click(d, "btnOK");
    });
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("10.0.0.0/8,\"say \"\"hi\"\"\"\n192.168.0.0/16,\"lab, west\"\n"));
    const auto& requests = m_platform->fileRequests;
    QVERIFY(requests[0].save && !requests[1].save);
    QCOMPARE(requests[0].flags, unsigned(Ofn::HideReadOnly | Ofn::OverwritePrompt));
    QCOMPARE(requests[0].defaultExtension, QStringLiteral("csv"));
    QCOMPARE(requests[1].defaultExtension, QStringLiteral("csv"));
    // The doubled quote reads back as a quote inside the comment, which an import refuses.
    const auto boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), 2);
    QCOMPARE(boxes[0].text, QStringLiteral("There were 1 errors when processing the file."));
    QCOMPARE(boxes[0].style, unsigned(Mb::OkCancel | Mb::IconExclamation));
    QCOMPARE(afterCancel, QStringList({"10.0.0.0/8|say \"hi\"", "192.168.0.0/16|lab, west"}));
    QCOMPARE(afterOk, QStringList{"192.168.0.0/16|lab, west"});
    QCOMPARE(rowsOf(list), afterOk);
    FreeIp4SubnetList(list);
}

// An import replaces the list, asks about errors only when there were some, and keeps the old list on Cancel.
void tst_SubnetListDlg::importQuestions_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("answer"); // to the error count question; 0: none expected
    QTest::addColumn<QString>("question");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<bool>("cancelProgress");
    const QStringList before{"10.9.0.0/16|before"};
    const QByteArray allBad = "garbage\n10.0.0.1/8,\"host bits\"\nno-comma-10.0.0.0/8\n";
    QTest::addRow("all bad, OK") << allBad << int(Id::Ok) << "There were 3 errors when processing the file." << before << false;
    QTest::addRow("all bad, Cancel") << allBad << int(Id::Cancel) << "There were 3 errors when processing the file." << before << false;
    QTest::addRow("empty file") << QByteArray() << 0 << QString() << before << false;
    // A cancel in the progress box keeps the old list and asks nothing about the bad line.
    QTest::addRow("progress cancelled") << QByteArray("10.0.0.0/8,a\nbad\n") << 0 << QString() << before << true;
    // Never a merge: the old row goes, even though the file does not repeat it.
    QTest::addRow("replaces, CRLF and blank lines")
        << QByteArray("\r\n172.16.0.0/12,\"a\"\r\n\r\n 10.0.0.0/8 , b \r\n") << 0 << QString()
        << QStringList{"172.16.0.0/12|a", "10.0.0.0/8|b"} << false;
    QTest::addRow("repeated subnet and a 32-character field cut to 31")
        << QByteArray("192.168.100.100/255.255.255.2559,x\n10.0.0.0/8,a\n10.0.0.0/8,again\n") << int(Id::Ok)
        << "There were 1 errors when processing the file." << QStringList{"192.168.100.100/32|x", "10.0.0.0/8|a"} << false;
}

void tst_SubnetListDlg::importQuestions()
{
    QFETCH(QByteArray, file);
    QFETCH(int, answer);
    QFETCH(QString, question);
    QFETCH(QStringList, shown);
    QFETCH(bool, cancelProgress);
    if (cancelProgress)
        m_platform->setProgressAnswer([](qint64, qint64) { return false; });
    m_platform->answerFileDialog(writeFile(QStringLiteral("in.csv"), file));
    if (answer)
        m_platform->answerMessageBox(answer);
    _tIp4Subnet* list = listOf({"10.9.0.0/16|before"});
    run(&list, [&](QDialog* d) {
        click(d, "btnImport");
        click(d, "btnOK");
    });
    QCOMPARE(m_platform->messages(), question.isEmpty() ? QStringList() : QStringList{question});
    QCOMPARE(rowsOf(list), shown);
    FreeIp4SubnetList(list);
}

void tst_SubnetListDlg::ioErrorsOfferAbortRetryIgnore_data()
{
    QTest::addColumn<bool>("exporting");
    QTest::addColumn<QList<int>>("answers");
    // A directory opens for neither reading nor writing, whoever runs the test.
    QTest::addRow("import: retry, then abort") << false << QList<int>{Id::Retry, Id::Abort};
    QTest::addRow("import: ignore") << false << QList<int>{Id::Ignore};
    QTest::addRow("export: retry, retry, ignore") << true << QList<int>{Id::Retry, Id::Retry, Id::Ignore};
    QTest::addRow("export: abort") << true << QList<int>{Id::Abort};
}

void tst_SubnetListDlg::ioErrorsOfferAbortRetryIgnore()
{
    QFETCH(bool, exporting);
    QFETCH(QList<int>, answers);
    m_platform->answerFileDialog(m_dir->path());
    for (int a : answers)
        m_platform->answerMessageBox(a);
    _tIp4Subnet* list = listOf({"10.9.0.0/16|kept"});
    run(&list, [&](QDialog* d) {
        click(d, exporting ? "btnExport" : "btnImport");
        QCOMPARE(shownRows(d), QStringList{"10.9.0.0/16|kept"});
        click(d, "btnOK");
    });
    const auto boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), answers.size()); // one question per attempt
    for (const CRecordedCall& box : boxes) {
        QCOMPARE(box.text, kIoErrors);
        QCOMPARE(box.style, unsigned(Mb::AbortRetryIgnore | Mb::IconExclamation));
    }
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), QStringList()); // no stray temporary file
    FreeIp4SubnetList(list);
}

// Importing 100 000 lines costs a small multiple of merely reading them, and the view stays quick.
void tst_SubnetListDlg::largeImportAgainstPlainReading()
{
    constexpr int kLines = 100000;
    QByteArray bytes;
    for (int i = 0; i < kLines; ++i)
        bytes += QStringLiteral("10.%1.%2.%3/32,\"host %4\"\n").arg(i >> 16).arg((i >> 8) & 255).arg(i & 255).arg(i).toLatin1();
    const QString path = writeFile(QStringLiteral("big.csv"), bytes);
    QElapsedTimer clock;
    clock.start();
    QFile plain(path);
    QVERIFY(plain.open(QIODevice::ReadOnly | QIODevice::Text));
    int lines = 0;
    while (!plain.readLine().isEmpty())
        ++lines;
    const qint64 readNs = qMax<qint64>(clock.nsecsElapsed(), 1);
    QCOMPARE(lines, kLines);

    m_platform->answerFileDialog(path);
    qint64 importNs = 0, scrollNs = 0;
    int rows = 0;
    _tIp4Subnet* list = nullptr;
    run(&list, [&](QDialog* d) {
        clock.restart();
        click(d, "btnImport");
        importNs = clock.nsecsElapsed();
        auto* view = Harness::control<QTreeView>(d, "lstSubnets");
        rows = view->model()->rowCount();
        clock.restart();
        view->scrollToBottom();
        selectRow(d, kLines - 1);
        d->grab();
        scrollNs = clock.nsecsElapsed();
        click(d, "btnOK");
    });
    qInfo("100000-line import: %.1f ms, reading the lines alone %.1f ms, ratio %.1f; scroll to the end %.1f ms",
          importNs / 1e6, readNs / 1e6, double(importNs) / double(readNs), scrollNs / 1e6);
    QCOMPARE(rows, kLines);
    QVERIFY(!m_platform->callsOf(QStringLiteral("progress")).isEmpty());
    QCOMPARE(rowsOf(list).constLast(), QStringLiteral("10.1.134.159/32|host 99999"));
    // Generous bounds that a sanitizer build meets and quadratic work does not.
    QVERIFY2(importNs < 20'000'000'000LL, "importing 100000 lines took over 20 s");
    QVERIFY2(scrollNs < 2'000'000'000LL, "showing the last of 100000 rows took over 2 s");
    FreeIp4SubnetList(list);
}

namespace {

using SubnetEntry = int (*)(TaviOwner, _tMailServer*, const char*, const char*, unsigned);

QByteArray multiString(const QList<QByteArray>& elements)
{
    QByteArray bytes;
    for (const QByteArray& e : elements)
        bytes += e + '\0';
    return bytes + '\0';
}

QByteArray storedBytes(_tMailServer* server)
{
    uint32_t size = 0, type = 0;
    if (!GetMailServerProperty(server, "SMTPRA", "TrustedSubnets", nullptr, &size, &type) || type != VB_TYPE_MULTI_STRING)
        return QByteArray();
    QByteArray bytes(qsizetype(size), '\0');
    GetMailServerProperty(server, "SMTPRA", "TrustedSubnets", bytes.data(), &size, nullptr);
    return bytes;
}

int runSubnetEntry(_tMailServer* server, const std::function<void(QDialog*)>& driver)
{
    auto entry = reinterpret_cast<SubnetEntry>(Harness::resolveEntry("EditServerSubnetList"));
    if (!entry)
        return -100;
    auto call = [&] { return entry(0, server, "SMTPRA", "TrustedSubnets", 60976); };
    return driver ? Harness::driveModal(call, driver) : call();
}

} // namespace

// The stored multi-string is read and written back exactly, quotes and blanks included; an unchanged OK
// answers 2 and writes nothing.
void tst_SubnetListDlg::entryPointEditsServerProperty()
{
    CTestStore store;
    const QByteArray stored = multiString({"10.0.0.0/8,\"say \"\"hi\"\"\"", "192.168.0.0/16,\" lab \""});
    QVERIFY(SetMailServerProperty(store, "SMTPRA", VB_TYPE_MULTI_STRING, "TrustedSubnets", stored.constData(), uint32_t(stored.size())));
    QString title;
    QStringList shown;
    int result = runSubnetEntry(store, [&](QDialog* d) {
        title = d->windowTitle();
        shown = shownRows(d);
        fillInputs(d, QStringLiteral("172.16.0.0"), QStringLiteral("255.240.0.0"), QStringLiteral("new"));
        click(d, "btnAdd");
        click(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(title, QStringLiteral("Trusted IP Subnets"));
    // A quote and blanks in a stored comment come back exactly, unlike a file import.
    QCOMPARE(shown, QStringList({"10.0.0.0/8|say \"hi\"", "192.168.0.0/16| lab "}));
    QCOMPARE(storedBytes(store), multiString({"10.0.0.0/8,\"say \"\"hi\"\"\"", "192.168.0.0/16,\" lab \"", "172.16.0.0/12,\"new\""}));

    // An unchanged OK writes nothing and reports a cancel.
    const uint32_t writes = store.calls("SetMailServerProperty");
    result = runSubnetEntry(store, [&](QDialog* d) { click(d, "btnOK"); });
    QCOMPARE(result, 2);
    QCOMPARE(store.calls("SetMailServerProperty"), writes);
    QCOMPARE(m_platform->messages(), QStringList());
}

// A missing, long, unreadable or partly bad property and a refused write: the result, the one box and what stays stored.
void tst_SubnetListDlg::entryPointFailures_data()
{
    QTest::addColumn<QByteArray>("stored"); // null: no such property
    QTest::addColumn<QString>("fault");     // store operation made to fail
    QTest::addColumn<int>("expected");
    QTest::addColumn<QString>("message");   // start of the one message expected
    QTest::addColumn<int>("rows");
    QTest::addColumn<QByteArray>("after");
    QList<QByteArray> elements;
    for (int i = 0; i < 400; ++i)
        elements.append(QStringLiteral("10.%1.%2.0/24,\"office %3\"").arg(i / 256).arg(i % 256).arg(i).toLatin1());
    const QByteArray many = multiString(elements);
    const QByteArray good = multiString({"10.0.0.0/8,\"a\""});
    QTest::addRow("no property: empty, OK writes") << QByteArray() << "" << 1 << "" << 0 << multiString({"172.16.0.0/12,\"new\""});
    QTest::addRow("larger than the first read, unchanged") << many << "" << 2 << "" << 400 << many;
    QTest::addRow("unreadable") << good << "GetMailServerProperty" << -1 << "Could not read the 'TrustedSubnets' mail server property.\nError: 170" << -1 << good;
    QTest::addRow("bad entries dropped on OK")
        << multiString({"garbage", "10.0.0.0/8,\"a\"", "10.0.0.0/8,\"twice\"", "10.0.0.1/8,\"x\""}) << "" << 1
        << "3 entries of the 'TrustedSubnets' mail server property could not be read." << 1 << good;
    // Written by velbrook-store set --list or by the toolkit's encoder: nothing is lost.
    const QByteArray bare = multiString({"10.0.0.0/8", "192.168.0.0/16,\"b\""});
    QTest::addRow("entries without a comment kept") << bare << "" << 2 << "" << 2 << bare;
    QTest::addRow("text of the toolkit's encoder") << QByteArray("text:10.0.0.0/8, 192.168.0.0/16") << "" << 2 << ""
                                                   << 2 << QByteArray();
    QTest::addRow("write refused") << good << "SetMailServerProperty" << 2 << "Could not set the 'TrustedSubnets' mail server property.\nError: 5" << 1 << good;
}

void tst_SubnetListDlg::entryPointFailures()
{
    QFETCH(QByteArray, stored);
    QFETCH(QString, fault);
    QFETCH(int, expected);
    QFETCH(QString, message);
    QFETCH(int, rows);
    QFETCH(QByteArray, after);
    CTestStore store;
    if (stored.startsWith("text:"))
        QVERIFY(SetMailServerProperty(store, "SMTPRA", VB_TYPE_STRING, "TrustedSubnets", stored.constData() + 5,
                                      uint32_t(stored.size() - 4)));
    else if (!stored.isNull())
        QVERIFY(SetMailServerProperty(store, "SMTPRA", VB_TYPE_MULTI_STRING, "TrustedSubnets", stored.constData(), uint32_t(stored.size())));
    if (!fault.isEmpty())
        QVERIFY(VbInjectFault(store, fault.toLatin1().constData(), "SMTPRA", "TrustedSubnets",
                              fault.startsWith(QLatin1String("Get")) ? VB_ERROR_BUSY : VB_ERROR_ACCESS_DENIED, 0));
    int shown = -1;
    std::function<void(QDialog*)> driver;
    if (rows >= 0) {
        driver = [&](QDialog* d) {
            shown = shownRows(d).size();
            // Something to write when nothing was stored; otherwise OK on what was read.
            if (rows == 0) {
                fillInputs(d, QStringLiteral("172.16.0.0"), QStringLiteral("255.240.0.0"), QStringLiteral("new"));
                click(d, "btnAdd");
            } else if (!fault.isEmpty()) {
                selectRow(d, 0);
                Harness::control<QLineEdit>(d, "edtComment")->setText(QStringLiteral("changed"));
                click(d, "btnModify");
            }
            click(d, "btnOK");
        };
    }
    QCOMPARE(runSubnetEntry(store, driver), expected);
    QCOMPARE(shown, rows);
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), message.isEmpty() ? 0 : 1);
    if (!message.isEmpty())
        QVERIFY2(messages[0].startsWith(message), qPrintable(messages[0]));
    VbClearFaults(store);
    QCOMPARE(storedBytes(store), after);
}

QTEST_MAIN(tst_SubnetListDlg)
#include "tst_subnetlistdlg.moc"
