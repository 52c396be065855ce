// The manual route table, driven through EditRoutes, with the host dialog of one route: the ordered
// route list, the hosts' validation and order, masks without hosts, and what reaches the store.
#include "DialogHarness.h"

#include "schedule/RoutingDlg.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

#include <velbrook/MailToolkit.h>

namespace {

// The stored table: "mask rule: host:port:preference ..." per route, joined with "; ".
QString storedRoutes(_tMailServer* server)
{
    _tManualRoute* first = nullptr;
    if (!LoadManualRoutes(server, &first))
        return QStringLiteral("<failed>");
    QStringList routes;
    for (const _tManualRoute* r = first; r; r = r->next) {
        QString text = QStringLiteral("%1 %2:").arg(QString::fromUtf8(r->domainMask)).arg(r->rule);
        for (const _tManualRouteMx* h = r->hosts; h; h = h->next)
            text += QStringLiteral(" %1:%2:%3").arg(QString::fromUtf8(h->host)).arg(h->port).arg(h->preference);
        routes << text;
    }
    FreeManualRoutes(first);
    return routes.join(QStringLiteral("; "));
}

QString rows(QTreeWidget* list)
{
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        QStringList columns;
        for (int c = 0; c < list->columnCount(); ++c)
            columns << list->topLevelItem(i)->text(c);
        out << columns.join(QLatin1Char('|'));
    }
    return out.join(QLatin1Char(';'));
}

void selectRow(QWidget* d, const char* list, int row)
{
    auto* tree = Harness::control<QTreeWidget>(d, list);
    tree->setCurrentItem(row < 0 ? nullptr : tree->topLevelItem(row));
    if (row < 0)
        tree->clearSelection();
}

// Opens the host dialog of the selected route and drives it.
void driveHosts(QDialog* routing, const std::function<void(QDialog*)>& driver)
{
    Harness::driveModal([&] { Harness::clickButton(routing, "btnRoutes"); return 0; }, [&](QDialog* hosts) {
        // The offscreen platform leaves a nested dialog's parent the active window; keys and focus
        // checks need the host dialog active.
        QApplication::setActiveWindow(hosts);
        driver(hosts);
    });
}

void typeHost(QDialog* d, const QString& host, const QString& port, const QString& preference)
{
    Harness::typeInto(Harness::control<QLineEdit>(d, "edtHost"), host);
    Harness::typeInto(Harness::control<QLineEdit>(d, "edtPort"), port);
    Harness::typeInto(Harness::control<QLineEdit>(d, "edtPreference"), preference);
}

const QString kDemoRoutes = QStringLiteral("*.partner.example.net 1: mx1.partner.example.net:0:10 "
                                           "mx2.partner.example.net:2525:20; legacy.example.org 0: 10.20.0.25:0:5; "
                                           "* 2: smarthost.isp.example:587:0");

} // namespace

class tst_RoutingDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void untouchedOrCancelledWritesNothing_data();
    void untouchedOrCancelledWritesNothing();
    void routeListEdits_data();
    void routeListEdits();
    void maskWithoutHostsBlocksOk();
    void hostValidation_data();
    void hostValidation();
    void hostsSortedByPreference();
    void hostlessMaskListMarked();
    void storeFailures_data();
    void storeFailures();
};

void tst_RoutingDlg::untouchedOrCancelledWritesNothing_data()
{
    QTest::addColumn<bool>("edit");
    QTest::addColumn<QString>("button");
    QTest::addRow("untouched OK") << false << "btnOK";
    QTest::addRow("edited, cancelled") << true << "btnCancel";
}

void tst_RoutingDlg::untouchedOrCancelledWritesNothing()
{
    QFETCH(bool, edit);
    QFETCH(QString, button);
    QString shown, title;
    const int result = Harness::runEntry("EditRoutes", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        shown = rows(Harness::control<QTreeWidget>(d, "lstRoutes"));
        if (edit) {
            selectRow(d, "lstRoutes", 2);
            Harness::clickButton(d, "btnUp");
            Harness::clickButton(d, "btnDelete");
        }
        Harness::clickButton(d, button.toLatin1().constData());
    });
    QVERIFY2(title.startsWith(QLatin1String("Routing on ")), qPrintable(title));
    QCOMPARE(shown, QStringLiteral("*.partner.example.net|Force;legacy.example.org|Additional;*|Default"));
    QCOMPARE(result, 2);
    QCOMPARE(m_store->calls("SaveManualRoutes"), 0u);
    QCOMPARE(storedRoutes(*m_store), kDemoRoutes);
}

// Up, Down, Delete and Add (a new route, or the selected one's mask and rule) on the ordered list.
void tst_RoutingDlg::routeListEdits_data()
{
    QTest::addColumn<QString>("steps"); // select N, up, down, delete, add MASK RULE-RADIO
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("stored");
    QTest::addRow("up to the top") << "select 2,up,up,up"
                                   << "*|Default;*.partner.example.net|Force;legacy.example.org|Additional"
                                   << "* 2: smarthost.isp.example:587:0; *.partner.example.net 1: "
                                      "mx1.partner.example.net:0:10 mx2.partner.example.net:2525:20; "
                                      "legacy.example.org 0: 10.20.0.25:0:5";
    QTest::addRow("down and delete") << "select 0,down,select 0,delete"
                                     << "*.partner.example.net|Force;*|Default"
                                     << "*.partner.example.net 1: mx1.partner.example.net:0:10 "
                                        "mx2.partner.example.net:2525:20; * 2: smarthost.isp.example:587:0";
    // A click below the last row selects nothing, so that Add adds a route instead of changing one.
    QTest::addRow("added after a click on no row") << "select 1,none,add new.example radForce,delete"
                                                   << "*.partner.example.net|Force;legacy.example.org|Additional;*|Default"
                                                   << kDemoRoutes;
    QTest::addRow("selected route changed, hosts kept") << "select 1,add old.example.org radDefault"
                                                        << "*.partner.example.net|Force;old.example.org|Default;*|Default"
                                                        << QString(kDemoRoutes).replace(QLatin1String("legacy.example.org 0"),
                                                                                        QLatin1String("old.example.org 2"));
}

void tst_RoutingDlg::routeListEdits()
{
    QFETCH(QString, steps);
    QFETCH(QString, shown);
    QFETCH(QString, stored);
    QString seen;
    const int result = Harness::runEntry("EditRoutes", 0, *m_store, [&](QDialog* d) {
        for (const QString& step : steps.split(QLatin1Char(','))) {
            const QStringList words = step.split(QLatin1Char(' '));
            if (words[0] == QLatin1String("select")) {
                selectRow(d, "lstRoutes", words[1].toInt());
            } else if (words[0] == QLatin1String("none")) {
                QWidget* viewport = Harness::control<QTreeWidget>(d, "lstRoutes")->viewport();
                QTest::mouseClick(viewport, Qt::LeftButton, {}, QPoint(10, viewport->height() - 5));
            } else if (words[0] == QLatin1String("add")) {
                Harness::typeInto(Harness::control<QLineEdit>(d, "edtDomainMask"), words[1]);
                Harness::clickButton(d, words[2].toLatin1().constData());
                Harness::clickButton(d, "btnAdd");
            } else {
                Harness::clickButton(d, ("btn" + words[0].left(1).toUpper() + words[0].mid(1)).toLatin1().constData());
            }
        }
        seen = rows(Harness::control<QTreeWidget>(d, "lstRoutes"));
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(seen, shown);
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SaveManualRoutes"), 1u);
    QCOMPARE(storedRoutes(*m_store), stored);
}

// A new mask has no hosts: OK shows the exact message and keeps the dialog open; once a host is added
// (port 25, stored as the standard port 0) the table is saved, and the host dialog shows 25 again.
void tst_RoutingDlg::maskWithoutHostsBlocksOk()
{
    bool openAfterFirstOk = false;
    QString hostRows;
    const int result = Harness::runEntry("EditRoutes", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtDomainMask"), QStringLiteral("new.example"));
        Harness::clickButton(d, "radAdditional");
        Harness::pressEnter(Harness::control<QLineEdit>(d, "edtDomainMask")); // Enter in the mask adds
        Harness::clickButton(d, "btnOK");
        openAfterFirstOk = d->isVisible();
        QCOMPARE(m_store->calls("SaveManualRoutes"), 0u);
        driveHosts(d, [&](QDialog* hosts) {
            QCOMPARE(hosts->windowTitle(), QStringLiteral("Routes for new.example"));
            typeHost(hosts, QStringLiteral("mx.new.example"), QStringLiteral("25"), QStringLiteral("10"));
            Harness::pressEnter(Harness::control<QLineEdit>(hosts, "edtPreference")); // Enter adds
            QVERIFY(hosts->isVisible());
            Harness::clickButton(hosts, "btnOK");
        });
        Harness::clickButton(d, "btnOK");
    });
    QVERIFY(openAfterFirstOk);
    const QList<CRecordedCall> boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes[0].text, QStringLiteral("The following domain masks do not have routes associated with them.\n"
                                           "These domain masks can not be saved.\n\nnew.example\n"));
    QCOMPARE(boxes[0].style, unsigned(Mb::Ok | Mb::IconExclamation));
    QCOMPARE(result, 1);
    QCOMPARE(storedRoutes(*m_store), kDemoRoutes + QStringLiteral("; new.example 0: mx.new.example:0:10"));

    Harness::runEntry("EditRoutes", 0, *m_store, [&](QDialog* d) {
        selectRow(d, "lstRoutes", 3);
        driveHosts(d, [&](QDialog* hosts) {
            hostRows = rows(Harness::control<QTreeWidget>(hosts, "lstHosts"));
            Harness::clickButton(hosts, "btnCancel");
        });
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(hostRows, QStringLiteral("mx.new.example|25|10"));
    QCOMPARE(m_store->calls("SaveManualRoutes"), 1u); // the second, untouched, saved nothing
}

// The host dialog's checks in their order: host, port 1 to 65535, preference 0 to 65535; a refusal
// beeps and selects the text at fault, without a message.
void tst_RoutingDlg::hostValidation_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("port");
    QTest::addColumn<QString>("preference");
    QTest::addColumn<QString>("refused"); // the edit at fault; empty: accepted
    QTest::addRow("empty host") << "  " << "0" << "-1" << "edtHost";
    QTest::addRow("port 0") << "h.example" << "0" << "1" << "edtPort";
    QTest::addRow("port 65536") << "h.example" << "65536" << "1" << "edtPort";
    QTest::addRow("port not a number") << "h.example" << "2x5" << "1" << "edtPort";
    QTest::addRow("preference -1") << "h.example" << "25" << "-1" << "edtPreference";
    QTest::addRow("preference empty") << "h.example" << "25" << "" << "edtPreference";
    QTest::addRow("preference 65536") << "h.example" << "25" << "65536" << "edtPreference";
    QTest::addRow("preference 0") << "h.example" << "65535" << "0" << "";
    QTest::addRow("preference 65535") << "h.example" << "1" << "65535" << "";
}

void tst_RoutingDlg::hostValidation()
{
    QFETCH(QString, host);
    QFETCH(QString, port);
    QFETCH(QString, preference);
    QFETCH(QString, refused);
    int hostCount = 0;
    QString focus, selected, editText;
    Harness::runEntry("EditRoutes", 0, *m_store, [&](QDialog* d) {
        selectRow(d, "lstRoutes", 1);
        driveHosts(d, [&](QDialog* hosts) {
            typeHost(hosts, host, port, preference);
            Harness::clickButton(hosts, "btnAddModify");
            hostCount = Harness::control<QTreeWidget>(hosts, "lstHosts")->topLevelItemCount();
            focus = Harness::focusName();
            if (!refused.isEmpty()) {
                auto* edit = Harness::control<QLineEdit>(hosts, refused.toLatin1().constData());
                selected = edit->selectedText();
                editText = edit->text();
            }
            Harness::clickButton(hosts, "btnCancel");
        });
        Harness::clickButton(d, "btnCancel");
    });
    QVERIFY(m_platform->messages().isEmpty());
    QCOMPARE(m_platform->callsOf(QStringLiteral("beep")).size(), refused.isEmpty() ? 0 : 1);
    QCOMPARE(hostCount, refused.isEmpty() ? 2 : 1);
    if (!refused.isEmpty()) {
        QCOMPARE(focus, refused);
        QCOMPARE(selected, editText);
    }
}

// Rows follow the preference as a number (3 before 20 before 100), also after Modify; the new host
// list replaces the old one in that order.
void tst_RoutingDlg::hostsSortedByPreference()
{
    QStringList seen;
    Harness::runEntry("EditRoutes", 0, *m_store, [&](QDialog* d) {
        selectRow(d, "lstRoutes", 1);
        driveHosts(d, [&](QDialog* hosts) {
            auto* list = Harness::control<QTreeWidget>(hosts, "lstHosts");
            auto* button = Harness::control<QPushButton>(hosts, "btnAddModify");
            seen << QStringLiteral("%1 %2 %3").arg(button->text()).arg(button->isEnabled())
                        .arg(Harness::control<QLineEdit>(hosts, "edtPort")->text());
            for (const char* pref : {"100", "20", "3"}) {
                typeHost(hosts, QStringLiteral("h%1.example").arg(QLatin1String(pref)), QStringLiteral("2525"),
                         QLatin1String(pref));
                Harness::clickButton(hosts, "btnAddModify");
            }
            seen << rows(list);
            selectRow(hosts, "lstHosts", 0); // h3, moved to the end
            seen << QStringLiteral("%1 %2").arg(button->text()).arg(button->isEnabled());
            Harness::typeInto(Harness::control<QLineEdit>(hosts, "edtPreference"), QStringLiteral("1000"));
            Harness::clickButton(hosts, "btnAddModify");
            selectRow(hosts, "lstHosts", 1); // 10.20.0.25, deleted
            Harness::clickButton(hosts, "btnDelete");
            seen << rows(list);
            Harness::clickButton(hosts, "btnOK");
        });
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(seen, (QStringList{"Add 0 25",
                                "h3.example|2525|3;10.20.0.25|25|5;h20.example|2525|20;h100.example|2525|100",
                                "Modify 0", "10.20.0.25|25|5;h100.example|2525|100;h3.example|2525|1000"}));
    QVERIFY(storedRoutes(*m_store).contains(
        QLatin1String("legacy.example.org 0: 10.20.0.25:0:5 h100.example:2525:100 h3.example:2525:1000")));
}

// Past 100 characters every further mask is marked, never cut off.
void tst_RoutingDlg::hostlessMaskListMarked()
{
    const QString mask = QStringLiteral("a-thirty-character-mask.example").left(30);
    const QString text = CRoutingDlg::hostlessMaskList({mask, mask, mask, mask, mask});
    const QString line = mask + QLatin1Char('\n');
    // 31, 62, 93, 124 characters after the first four: the fifth is the first marked one.
    QCOMPARE(text, line + line + line + line + QStringLiteral("<...more...>\n") + line);
    QCOMPARE(CRoutingDlg::hostlessMaskList({}), QString());
}

// A table that cannot be loaded is reported and cannot be saved (saving it would empty it); a failed
// save is reported once and the dialog closes.
void tst_RoutingDlg::storeFailures_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("result");
    QTest::addRow("load") << "LoadManualRoutes" << "Error loading manual route table. The table cannot be changed." << 2;
    QTest::addRow("save") << "SaveManualRoutes" << "Error saving manual route table" << 1;
}

void tst_RoutingDlg::storeFailures()
{
    QFETCH(QString, operation);
    QFETCH(QString, message);
    QFETCH(int, result);
    QVERIFY(VbInjectFault(*m_store, operation.toLatin1().constData(), nullptr, nullptr, VB_ERROR_BUSY, 0));
    const int got = Harness::runEntry("EditRoutes", 0, *m_store, [&](QDialog* d) {
        selectRow(d, "lstRoutes", 0);
        if (Harness::control<QPushButton>(d, "btnDelete")->isEnabled())
            Harness::clickButton(d, "btnDelete");
        Harness::clickButton(d, "btnOK");
    });
    VbClearFaults(*m_store);
    QCOMPARE(got, result);
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(message + QLatin1String("\nError: 170\n")), qPrintable(messages[0]));
    QCOMPARE(storedRoutes(*m_store), kDemoRoutes);
    QCOMPARE(m_platform->waitCursorDepth(), 0);
}

QTEST_MAIN(tst_RoutingDlg)
#include "tst_routingdlg.moc"
