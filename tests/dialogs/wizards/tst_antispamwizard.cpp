// The anti-spam wizard and the wizard framework under it, driven through AntiSpamWizard on a seeded
// store: the page order and its jumps, Back to the page the user came from, restoring pages jumped
// over, the shared DNS lookup setting, the list pages' editing rules, and what Finish and Cancel write.
#include "DialogHarness.h"
#include "WizardDriving.h"

#include "wizards/AntiSpamWizard.h"
#include "wizards/WizardListEditor.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolBar>
#include <QTreeView>

namespace {

using namespace WizardDriving;

// Goes Next until the page is reached (fails when it is passed); keeps a stored private list on the way.
void nextTo(QDialog* d, int page)
{
    while (pageNumber(d) > 0 && pageNumber(d) < page) {
        const int before = pageNumber(d);
        auto* erase = wizardOf(d)->currentPage()->findChild<QRadioButton*>(QStringLiteral("radEraseBlacklist"));
        if (before == 7 && !erase->isChecked())
            choose(d, "radKeepBlacklist");
        next(d);
        if (pageNumber(d) == before)
            break;
    }
    QCOMPARE(pageNumber(d), page);
}
void finishFrom(QDialog* d)
{
    nextTo(d, 12);
    Harness::clickButton(d, "btnFinish");
}

} // namespace

class tst_AntiSpamWizard : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void pageOrder_data();
    void pageOrder();
    void backReturnsToCameFromPage_data();
    void backReturnsToCameFromPage();
    void anonymousServersAndLookup_data();
    void anonymousServersAndLookup();
    void privateBlacklistLookup_data();
    void privateBlacklistLookup();
    void jumpRestoresVisitedPageOnly();
    void eraseOrKeepExistingBlacklist_data();
    void eraseOrKeepExistingBlacklist();
    void noBlacklistServicesLeavesZones();
    void changedBackWritesNothingAndCancelNothingAtAll();
    void finishWritesNewestFirstAndPastFailures();
    void listEditingRules();
    void listToolBar();
    void wellKnownServiceAppended();
    void maxRecipientsMustBeNumber();
    void pagesShowTheirTexts();

private:
    void seed() override;
};

void tst_AntiSpamWizard::seed()
{
    QVERIFY(m_store->setNumber(nullptr, "AcceptUnknownSmtpHosts", 1));
    QVERIFY(m_store->setNumber(nullptr, "LookupIncomingCalls", 0));
    QVERIFY(m_store->setNumber(nullptr, "RblEnabled", 1));
    QVERIFY(m_store->setNumber(nullptr, "NoRblForFriends", 1));
    QVERIFY(m_store->setString(nullptr, "RblDomain", QStringLiteral("zen.spamhaus.org")));
    QVERIFY(m_store->setString(nullptr, "RejectAllMailFrom", QStringLiteral("spam-haven.example, *.bulkmail.example")));
    QVERIFY(m_store->setString(nullptr, "RejectAllMailFromAddresses", QStringLiteral("offers@promo.example")));
    QVERIFY(m_store->setNumber("SMTPRA", "NoUnqualifiedReturnPath", 0));
    QVERIFY(m_store->setNumber("SMTPRA", "NoUnqualifiedRecipients", 1));
    QVERIFY(m_store->setNumber(nullptr, "MaxSmtpRecipients", 100));
}

// Every branch of 1 → 2 → 3 → (Yes: 4 → 5; No: 5) → (Yes: 6 → 8; No with a list: 7 → 8; No without:
// 8) → 9 → 10 → 11 → 12. Page 5 offers "No" on its first showing even with a stored list.
void tst_AntiSpamWizard::pageOrder_data()
{
    QTest::addColumn<bool>("services");
    QTest::addColumn<bool>("privateYes");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("path");
    QTest::addRow("services, private list") << true << true << "a.example" << "1 2 3 4 5 6 8 9 10 11 12";
    QTest::addRow("services, no, stored list") << true << false << "a.example" << "1 2 3 4 5 7 8 9 10 11 12";
    QTest::addRow("no services, no, stored list") << false << false << "a.example" << "1 2 3 5 7 8 9 10 11 12";
    QTest::addRow("no services, no, empty list") << false << false << "" << "1 2 3 5 8 9 10 11 12";
    QTest::addRow("no services, private list") << false << true << "" << "1 2 3 5 6 8 9 10 11 12";
}

void tst_AntiSpamWizard::pageOrder()
{
    QFETCH(bool, services);
    QFETCH(bool, privateYes);
    QFETCH(QString, stored);
    QFETCH(QString, path);
    QVERIFY(m_store->setString(nullptr, "RejectAllMailFrom", stored));
    VbClearFaults(*m_store); // counts from here
    QStringList visited;
    bool page5NoFirst = false;
    const int result = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        for (int guard = 0; guard < 20 && pageNumber(d) != 12; ++guard) {
            visited << QString::number(pageNumber(d));
            if (pageNumber(d) == 3)
                choose(d, services ? "radRblYes" : "radRblNo");
            if (pageNumber(d) == 5) {
                page5NoFirst = Harness::control<QRadioButton>(d, "radPrivateNo")->isChecked();
                choose(d, privateYes ? "radPrivateYes" : "radPrivateNo");
            }
            if (pageNumber(d) == 7)
                choose(d, "radKeepBlacklist");
            next(d);
        }
        visited << QString::number(pageNumber(d));
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QCOMPARE(visited.join(QLatin1Char(' ')), path);
    QVERIFY(page5NoFirst);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

// Back after a jump goes to the page the jump started from, not to the page before in page order.
void tst_AntiSpamWizard::backReturnsToCameFromPage_data()
{
    QTest::addColumn<QString>("route"); // choices made on the way
    QTest::addColumn<int>("at");
    QTest::addColumn<int>("backTo");
    QTest::addRow("over the services list") << "rblNo" << 5 << 3;
    QTest::addRow("over the erase page") << "privateYes" << 8 << 6;
    QTest::addRow("over the private list") << "privateNo" << 7 << 5;
    QTest::addRow("no jump") << "" << 4 << 3;
}

void tst_AntiSpamWizard::backReturnsToCameFromPage()
{
    QFETCH(QString, route);
    QFETCH(int, at);
    QFETCH(int, backTo);
    int landed = 0, cameFrom = 0;
    Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 3);
        if (route == QLatin1String("rblNo"))
            choose(d, "radRblNo");
        while (pageNumber(d) < at) {
            if (pageNumber(d) == 5)
                choose(d, route == QLatin1String("privateYes") ? "radPrivateYes" : "radPrivateNo");
            next(d);
        }
        QCOMPARE(pageNumber(d), at);
        const CWizardPage* from = static_cast<CWizardPage*>(wizardOf(d)->currentPage())->cameFrom();
        cameFrom = from ? from->sheet()->indexOf(from) + 1 : 0;
        back(d);
        landed = pageNumber(d);
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(landed, backTo);
    QCOMPARE(cameFrom, backTo);
}

// Blocking anonymous servers turns DNS lookup on; going back and answering "No" gives lookup back as it
// was found, so nothing is written for either.
void tst_AntiSpamWizard::anonymousServersAndLookup_data()
{
    QTest::addColumn<QStringList>("answers"); // on page 2, with Next then Back between them
    QTest::addColumn<quint32>("accept");
    QTest::addColumn<quint32>("lookup");
    QTest::addColumn<quint32>("writes");
    QTest::addRow("block") << QStringList{"radBlockAnonymousYes"} << 0u << 1u << 2u;
    QTest::addRow("block, then not") << QStringList{"radBlockAnonymousYes", "radBlockAnonymousNo"} << 1u << 0u << 0u;
    QTest::addRow("not") << QStringList{"radBlockAnonymousNo"} << 1u << 0u << 0u;
}

void tst_AntiSpamWizard::anonymousServersAndLookup()
{
    QFETCH(QStringList, answers);
    QFETCH(quint32, accept);
    QFETCH(quint32, lookup);
    QFETCH(quint32, writes);
    bool shownNo = false;
    const int result = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 2);
        shownNo = Harness::control<QRadioButton>(d, "radBlockAnonymousNo")->isChecked();
        for (int i = 0; i < answers.size(); ++i) {
            if (i > 0)
                back(d);
            choose(d, answers[i].toLatin1().constData());
            next(d);
        }
        finishFrom(d);
    });
    QCOMPARE(result, 1);
    QVERIFY(shownNo); // AcceptUnknownSmtpHosts = 1 shows "No"
    QCOMPARE(m_store->number(nullptr, "AcceptUnknownSmtpHosts"), std::optional<quint32>(accept));
    QCOMPARE(m_store->number(nullptr, "LookupIncomingCalls"), std::optional<quint32>(lookup));
    QCOMPARE(m_store->calls("SetMailServerProperty"), writes);
}

// A private blacklist of IP patterns (digits, ".", "*", a leading "!") leaves DNS lookup as it was; one
// host name turns it on. An entry "*" is not shown and so is dropped when the list is saved.
void tst_AntiSpamWizard::privateBlacklistLookup_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QString>("written");
    QTest::addColumn<quint32>("lookup");
    QTest::addRow("patterns only") << "" << QStringList{"10.0.0.*", "!192.168.1.5", "172.16.*"}
                                   << "10.0.0.*, !192.168.1.5, 172.16.*" << 0u;
    QTest::addRow("one host name") << "" << QStringList{"10.0.0.1", "spam.example.com"}
                                   << "10.0.0.1, spam.example.com" << 1u;
    QTest::addRow("negated host name") << "" << QStringList{"!relay.example"} << "!relay.example" << 1u;
    QTest::addRow("star hidden and dropped") << "*, 10.1.1.1" << QStringList{} << "10.1.1.1" << 0u;
}

void tst_AntiSpamWizard::privateBlacklistLookup()
{
    QFETCH(QString, stored);
    QFETCH(QStringList, typed);
    QFETCH(QString, written);
    QFETCH(quint32, lookup);
    QVERIFY(m_store->setString(nullptr, "RejectAllMailFrom", stored));
    QStringList shown;
    const int result = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 5);
        choose(d, "radPrivateYes");
        next(d);
        QCOMPARE(pageNumber(d), 6);
        CWizardListEditor* list = listOf(d, "lstRejectAllMailFrom");
        shown = list->entries();
        for (const QString& entry : typed)
            list->appendAndSelect(entry);
        finishFrom(d);
    });
    QCOMPARE(result, 1);
    QVERIFY(!shown.contains(QStringLiteral("*")));
    QCOMPARE(m_store->string(nullptr, "RejectAllMailFrom"), written);
    QCOMPARE(m_store->number(nullptr, "LookupIncomingCalls"), std::optional<quint32>(lookup));
}

// A page shown, left with changes and later jumped over gives its first-visit values back (the private
// list and the lookup it turned on); a page never shown keeps what other pages put in the cache (page 6
// never shown keeps the lookup page 2 turned on).
void tst_AntiSpamWizard::jumpRestoresVisitedPageOnly()
{
    const int result = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 5);
        choose(d, "radPrivateYes");
        next(d);
        listOf(d, "lstRejectAllMailFrom")->appendAndSelect(QStringLiteral("spammer.example"));
        next(d); // saved: list and lookup 1
        QCOMPARE(pageNumber(d), 8);
        back(d);
        back(d);
        QCOMPARE(pageNumber(d), 5);
        choose(d, "radPrivateNo");
        next(d); // over page 6, which was shown: restored
        QCOMPARE(pageNumber(d), 7);
        // Page 7 shows the list as restored, without the added host.
        QVERIFY(!listOf(d, "lstExistingBlacklist")->entries().contains(QStringLiteral("spammer.example")));
        choose(d, "radKeepBlacklist");
        finishFrom(d);
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_store->string(nullptr, "RejectAllMailFrom"), QStringLiteral("spam-haven.example, *.bulkmail.example"));
    QCOMPARE(m_store->number(nullptr, "LookupIncomingCalls"), std::optional<quint32>(0));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);

    // Page 2 turns lookup on; page 6 is never shown on this road and does not undo it.
    m_store->reopen();
    const int second = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 2);
        choose(d, "radBlockAnonymousYes");
        nextTo(d, 5);
        choose(d, "radPrivateNo");
        next(d);
        choose(d, "radKeepBlacklist");
        finishFrom(d);
    });
    QCOMPARE(second, 1);
    QCOMPARE(m_store->number(nullptr, "LookupIncomingCalls"), std::optional<quint32>(1));
    QCOMPARE(m_store->number(nullptr, "AcceptUnknownSmtpHosts"), std::optional<quint32>(0));
}

// Page 7 keeps Next disabled until keep or erase is chosen; erase writes "", keep writes nothing.
void tst_AntiSpamWizard::eraseOrKeepExistingBlacklist_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QString>("written");
    QTest::addColumn<quint32>("writes");
    QTest::addRow("keep") << "radKeepBlacklist" << "spam-haven.example, *.bulkmail.example" << 0u;
    QTest::addRow("erase") << "radEraseBlacklist" << "" << 1u;
}

void tst_AntiSpamWizard::eraseOrKeepExistingBlacklist()
{
    QFETCH(QString, choice);
    QFETCH(QString, written);
    QFETCH(quint32, writes);
    bool nextBefore = true, nextAfter = false;
    int stayed = 0;
    QStringList shown;
    const int result = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 5);
        next(d); // "No" is offered first
        QCOMPARE(pageNumber(d), 7);
        shown = listOf(d, "lstExistingBlacklist")->entries();
        auto* nextButton = Harness::control<QPushButton>(d, "btnNext");
        nextBefore = nextButton->isEnabled();
        next(d);
        stayed = pageNumber(d);
        choose(d, choice.toLatin1().constData());
        nextAfter = nextButton->isEnabled();
        finishFrom(d);
    });
    QCOMPARE(result, 1);
    QCOMPARE(shown, QStringList({QStringLiteral("spam-haven.example"), QStringLiteral("*.bulkmail.example")}));
    QVERIFY(!nextBefore);
    QCOMPARE(stayed, 7);
    QVERIFY(nextAfter);
    QCOMPARE(m_store->string(nullptr, "RejectAllMailFrom"), written);
    QCOMPARE(m_store->calls("SetMailServerProperty"), writes);
}

// "No" for the blacklist services writes RblEnabled 0 and leaves the zones alone, even after the zones
// page had been shown and changed.
void tst_AntiSpamWizard::noBlacklistServicesLeavesZones()
{
    bool friendsEnabled = true;
    const int result = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 4);
        listOf(d, "lstRblDomain")->appendAndSelect(QStringLiteral("extra.example"));
        back(d);
        choose(d, "radRblNo");
        friendsEnabled = Harness::control<QCheckBox>(d, "chkNoRblForFriends")->isEnabled();
        next(d);
        QCOMPARE(pageNumber(d), 5);
        finishFrom(d);
    });
    QCOMPARE(result, 1);
    QVERIFY(!friendsEnabled);
    QCOMPARE(m_store->number(nullptr, "RblEnabled"), std::optional<quint32>(0));
    QCOMPARE(m_store->string(nullptr, "RblDomain"), QStringLiteral("zen.spamhaus.org"));
    QCOMPARE(m_store->calls("SetMailServerProperty"), 1u);
}

// A value changed and changed back writes nothing at Finish; Cancel writes nothing whatever changed.
void tst_AntiSpamWizard::changedBackWritesNothingAndCancelNothingAtAll()
{
    const int finished = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 11);
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMaxSmtpRecipients"), QStringLiteral("5"));
        next(d);
        back(d);
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMaxSmtpRecipients"), QStringLiteral("100"));
        finishFrom(d);
    });
    QCOMPARE(finished, 1);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);

    const int cancelled = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 2);
        choose(d, "radBlockAnonymousYes");
        nextTo(d, 8);
        choose(d, "radReturnPathYes");
        nextTo(d, 11);
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMaxSmtpRecipients"), QStringLiteral("7"));
        next(d);
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(cancelled, 2);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
    QCOMPARE(m_store->number(nullptr, "MaxSmtpRecipients"), std::optional<quint32>(100));
}

// Finish writes newest entry first (the reverse of first reading) and reports each failed write by
// name, goes on with the others and still ends with OK.
void tst_AntiSpamWizard::finishWritesNewestFirstAndPastFailures()
{
    const auto run = [this] {
        return Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
            nextTo(d, 2);
            choose(d, "radBlockAnonymousYes");
            nextTo(d, 8);
            choose(d, "radReturnPathYes");
            nextTo(d, 11);
            Harness::typeInto(Harness::control<QLineEdit>(d, "edtMaxSmtpRecipients"), QStringLiteral("25"));
            finishFrom(d);
        });
    };
    const auto failed = [](const char* name) { return QStringLiteral("Failed to update property \"%1\"").arg(QLatin1String(name)); };
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", nullptr, nullptr, VB_ERROR_ACCESS_DENIED, 0));
    QCOMPARE(run(), 1);
    QCOMPARE(m_platform->messages(), QStringList({failed("MaxSmtpRecipients"), failed("NoUnqualifiedReturnPath"),
                                                  failed("LookupIncomingCalls"), failed("AcceptUnknownSmtpHosts")}));
    VbClearFaults(*m_store);
    m_platform->clear();

    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", "SMTPRA", "NoUnqualifiedReturnPath", VB_ERROR_DISK_FULL, 0));
    QCOMPARE(run(), 1);
    VbClearFaults(*m_store);
    QCOMPARE(m_platform->messages(), QStringList(failed("NoUnqualifiedReturnPath")));
    m_store->reopen();
    QCOMPARE(m_store->number(nullptr, "MaxSmtpRecipients"), std::optional<quint32>(25));
    QCOMPARE(m_store->number(nullptr, "LookupIncomingCalls"), std::optional<quint32>(1));
    QCOMPARE(m_store->number(nullptr, "AcceptUnknownSmtpHosts"), std::optional<quint32>(0));
    QCOMPARE(m_store->number("SMTPRA", "NoUnqualifiedReturnPath"), std::optional<quint32>(0));
}

// In-place editing: "" and "*" are refused; a refused (or abandoned) new row goes again, an edited old
// row keeps its text.
void tst_AntiSpamWizard::listEditingRules()
{
    QStringList afterRefusedNew, afterAbandonedNew, afterAccepted, afterRefusedOld;
    int pageAfterEnter = 0;
    const int result = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 9);
        CWizardListEditor* list = listOf(d, "lstRejectAllMailFromAddresses");
        QTreeView* view = list->view();
        const auto editTo = [&](const QString& text, bool commit) {
            auto* editor = qobject_cast<QLineEdit*>(view->indexWidget(view->currentIndex()));
            QVERIFY2(editor, "no label editor open");
            editor->setText(text);
            QTest::keyClick(editor, commit ? Qt::Key_Return : Qt::Key_Escape);
            QCoreApplication::processEvents();
        };
        for (const QString& refused : {QString(), QStringLiteral("*")}) {
            list->addEntry();
            editTo(refused, true);
        }
        afterRefusedNew = list->entries();
        pageAfterEnter = pageNumber(d);
        list->addEntry();
        editTo(QStringLiteral("whatever"), false);
        afterAbandonedNew = list->entries();
        view->selectionModel()->clear();
        list->addEntry();
        QCOMPARE(list->entries().last(), QStringLiteral("new domain"));
        editTo(QStringLiteral("bulk@junk.example"), true);
        afterAccepted = list->entries();
        // An old row edited to "" keeps its text.
        view->selectionModel()->select(list->model()->index(0, 0), QItemSelectionModel::ClearAndSelect);
        view->selectionModel()->setCurrentIndex(list->model()->index(0, 0), QItemSelectionModel::ClearAndSelect);
        QTest::keyClick(view, Qt::Key_F2);
        editTo(QString(), true);
        afterRefusedOld = list->entries();
        finishFrom(d);
    });
    QCOMPARE(result, 1);
    QCOMPARE(pageAfterEnter, 9); // Enter ends the edit, it does not press Next
    const QStringList stored{QStringLiteral("offers@promo.example")};
    QCOMPARE(afterRefusedNew, stored);
    QCOMPARE(afterAbandonedNew, stored);
    QCOMPARE(afterAccepted, QStringList({QStringLiteral("offers@promo.example"), QStringLiteral("bulk@junk.example")}));
    QCOMPARE(afterRefusedOld, afterAccepted);
    QCOMPARE(m_store->string(nullptr, "RejectAllMailFromAddresses"),
             QStringLiteral("offers@promo.example, bulk@junk.example"));
}

// The tool bar: its tips, Add after the last selected row, Delete of every selected row, Move only with
// one row selected and a row to pass.
void tst_AntiSpamWizard::listToolBar()
{
    QStringList tips, afterAdd, afterMoves, afterDelete;
    bool upAtTop = true, moveWithTwo = true;
    Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 4);
        CWizardListEditor* list = listOf(d, "lstRblDomain");
        for (const char* name : {"actAdd", "actDelete", "actUp", "actDown"}) {
            auto* action = list->findChild<QAction*>(QLatin1String(name));
            tips << (action ? action->toolTip() : QString());
        }
        list->setEntries({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        auto* selection = list->view()->selectionModel();
        const auto select = [&](std::initializer_list<int> rows) {
            selection->clear();
            for (int row : rows)
                selection->select(list->model()->index(row, 0), QItemSelectionModel::Select);
        };
        select({0, 1});
        list->addEntry(); // after b
        QTest::keyClick(list->view()->indexWidget(list->view()->currentIndex()), Qt::Key_Return);
        QCoreApplication::processEvents();
        afterAdd = list->entries();
        select({1, 2});
        moveWithTwo = list->findChild<QAction*>(QStringLiteral("actUp"))->isEnabled();
        select({0});
        upAtTop = list->findChild<QAction*>(QStringLiteral("actUp"))->isEnabled();
        list->findChild<QAction*>(QStringLiteral("actDown"))->trigger();
        list->findChild<QAction*>(QStringLiteral("actDown"))->trigger();
        list->findChild<QAction*>(QStringLiteral("actUp"))->trigger(); // a is now second
        afterMoves = list->entries();
        select({0, 3});
        list->findChild<QAction*>(QStringLiteral("actDelete"))->trigger();
        afterDelete = list->entries();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(tips, QStringList({QStringLiteral("Add new entry to the list"), QStringLiteral("Delete selected entries"),
                                QStringLiteral("Move selected entry up the list"),
                                QStringLiteral("Move selected entry down the list")}));
    QCOMPARE(afterAdd, QStringList({"a", "b", "new service", "c"}));
    QVERIFY(!moveWithTwo);
    QVERIFY(!upAtTop);
    QCOMPARE(afterMoves, QStringList({"b", "a", "new service", "c"}));
    QCOMPARE(afterDelete, QStringList({"a", "new service"}));
}

// Choosing a well-known zone appends it as the last row, selected; the three zones are distinct.
void tst_AntiSpamWizard::wellKnownServiceAppended()
{
    QStringList offered, rows;
    int selectedRow = -1;
    Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 4);
        auto* combo = Harness::control<QComboBox>(d, "cboKnownServices");
        for (int i = 0; i < combo->count(); ++i)
            offered << combo->itemText(i);
        combo->setCurrentIndex(2);
        Q_EMIT combo->activated(2);
        CWizardListEditor* list = listOf(d, "lstRblDomain");
        rows = list->entries();
        const QModelIndexList selected = list->view()->selectionModel()->selectedRows();
        selectedRow = selected.size() == 1 ? selected.first().row() : -1;
        finishFrom(d);
    });
    QCOMPARE(offered, wellKnownBlacklistZones());
    QCOMPARE(QSet<QString>(offered.cbegin(), offered.cend()).size(), 3);
    QCOMPARE(rows, QStringList({QStringLiteral("zen.spamhaus.org"), offered[2]}));
    QCOMPARE(selectedRow, 1);
    QCOMPARE(m_store->string(nullptr, "RblDomain"), QStringLiteral("zen.spamhaus.org, ") + offered[2]);
}

// An empty recipient limit is refused by the number exchange: a message, the page stays, the edit has
// the focus; Back is refused alike.
void tst_AntiSpamWizard::maxRecipientsMustBeNumber()
{
    int afterNext = 0, afterBack = 0;
    const int result = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        nextTo(d, 11);
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtMaxSmtpRecipients"), QString());
        next(d);
        afterNext = pageNumber(d);
        back(d);
        afterBack = pageNumber(d);
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QCOMPARE(afterNext, 11);
    QCOMPARE(afterBack, 11);
    const auto boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), 2);
    QCOMPARE(boxes[0].text, QStringLiteral("Enter a whole number of at least 0."));
    QCOMPARE(boxes[0].focus, QStringLiteral("edtMaxSmtpRecipients"));
}

// Every page: its header texts, no text cut off. With TAVI_WIZARD_SHOTS set, each page is also saved as
// <dir>/<page class>.png.
void tst_AntiSpamWizard::pagesShowTheirTexts()
{
    QStringList seen, clipped;
    for (bool privateYes : {true, false}) {
        Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
            d->resize(d->sizeHint());
            for (int guard = 0; guard < 14; ++guard) {
                QCoreApplication::processEvents();
                seen << currentPage(d)->objectName();
                clipped << misfits(d, QStringLiteral("Velbrook Security"), QStringLiteral("SMTP Security Wizard"));
                QVERIFY(saveShot(d));
                if (pageNumber(d) == 12)
                    break;
                if (pageNumber(d) == 5)
                    choose(d, privateYes ? "radPrivateYes" : "radPrivateNo");
                if (pageNumber(d) == 7)
                    choose(d, "radKeepBlacklist");
                next(d);
            }
            Harness::clickButton(d, "btnCancel");
        });
    }
    seen.removeDuplicates();
    QCOMPARE(seen.size(), 12);
    QCOMPARE(clipped, QStringList());
}

QTEST_MAIN(tst_AntiSpamWizard)
#include "tst_antispamwizard.moc"
