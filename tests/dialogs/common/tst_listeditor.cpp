// The list editor framework over an in-memory manager: the element set's order and duplicate rule, the
// four selection states, switching lists with the save question, Add/Edit/Delete messages, the save with
// Abort/Retry/Ignore, whole rewrites against element-by-element stores, "Load Default" in the base, and
// OK closing with 1 whatever the save gave.
#include "DialogHarness.h"

#include "common/ListEditor.h"
#include "common/ListManager.h"

#include <QComboBox>
#include <QListView>
#include <QPushButton>

#include <velbrook/MailToolkit.h>

#include <algorithm>
#include <random>

namespace {

const QString kSaveQuestion = QStringLiteral("Do you want to save the current list before continuing?");
const QString kSaveFailed = QStringLiteral("Could not save the list.");
const QString kDuplicate = QStringLiteral("The item could not be added to the list because\nit duplicates an item "
                                          "already in the list. Modify\nthe item by pressing the 'Edit' button.");

class CTextElement : public CListElement {
public:
    CTextElement(const QString& text, bool added) : CListElement(added ? 1 : 0), m_text(text) {}
    const QString& text() const override { return m_text; }

private:
    QString m_text;
};

// Lists kept in memory; every storage call is logged, and a chosen operation can be made to fail.
class CMemoryManager : public CListManager {
public:
    CMemoryManager() : CListManager(QStringLiteral("Test lists")) {}

    QMap<QString, QStringList> lists{{QStringLiteral("Alpha"), {QStringLiteral("b"), QStringLiteral("a")}},
                                     {QStringLiteral("Beta"), {QStringLiteral("x")}}};
    QString names = QStringLiteral("Alpha, Beta;Gamma");
    QStringList log;
    QString failing;     // "add", "remove", "whole", "load", "names"
    int failures = 0;    // how many calls of it fail (-1: all)
    quint32 code = VB_ERROR_ACCESS_DENIED;

    bool fail(const char* op)
    {
        if (failing != QLatin1String(op) || failures == 0)
            return false;
        if (failures > 0)
            --failures;
        SetLastError(code);
        return true;
    }
    bool readListNames(QString& out) override
    {
        log.append(QStringLiteral("names"));
        if (fail("names"))
            return false;
        out = names;
        return true;
    }
    bool loadItems(QStringList& items) override
    {
        if (fail("load"))
            return false;
        items = lists.value(selectedList());
        return true;
    }
    bool addItem(const QString& item) override
    {
        log.append(QStringLiteral("add ") + item);
        if (fail("add"))
            return false;
        lists[selectedList()].append(item);
        return true;
    }
    bool removeItem(const QString& item) override
    {
        log.append(QStringLiteral("remove ") + item);
        if (fail("remove"))
            return false;
        lists[selectedList()].removeAll(item);
        return true;
    }
    bool storeWhole(const QString& joined) override
    {
        log.append(QStringLiteral("whole [") + joined + QLatin1Char(']'));
        if (fail("whole"))
            return false;
        lists[selectedList()] = joined.split(QLatin1Char(','), Qt::SkipEmptyParts);
        return true;
    }
    bool loadDefaultItems(QStringList&) override
    {
        SetLastError(VB_ERROR_NOT_SUPPORTED);
        return false;
    }
};

class CTestEditor : public CListEditor {
public:
    CTestEditor(CMemoryManager* manager, const QString& list) : CListEditor(nullptr, nullptr, manager, list) {}

    QStringList entryAnswers; // what the Add/Edit dialog "returns"; an empty text cancels
    QStringList importLines;

    CMemoryManager* memory() const { return static_cast<CMemoryManager*>(manager()); }
    QStringList texts() const
    {
        QStringList out;
        for (const CListElement* e : elements())
            out.append(e->text());
        return out;
    }

protected:
    bool importFile(const QString&) override
    {
        bool any = false;
        for (const QString& line : std::as_const(importLines))
            any = addEntry(line) || any;
        return any;
    }
    bool exportFile(const QString&) override { return true; }
    std::unique_ptr<CListElement> makeElement(const QString& text, bool added) override
    {
        return std::make_unique<CTextElement>(text, added);
    }
    bool normalise(QString& text) override
    {
        text = text.trimmed();
        if (text.isEmpty() || text.contains(QLatin1Char(','))) {
            SetLastError(VB_ERROR_INVALID_DATA);
            return false;
        }
        return true;
    }
    bool runEntryDialog(bool, QString& text) override
    {
        text = entryAnswers.isEmpty() ? QString() : entryAnswers.takeFirst();
        return !text.isEmpty();
    }
};

QStringList shown(CListEditor* editor)
{
    auto* view = Harness::control<QListView>(editor, "lstEntries");
    QStringList out;
    for (int r = 0; view && r < view->model()->rowCount(); ++r)
        out.append(view->model()->index(r, 0).data().toString());
    return out;
}

void selectRows(CListEditor* editor, const QList<int>& rows)
{
    auto* view = Harness::control<QListView>(editor, "lstEntries");
    view->clearSelection();
    for (int r : rows)
        view->selectionModel()->select(view->model()->index(r, 0), QItemSelectionModel::Select);
}

// Enabled state of Add, Edit, Delete, Import, Export, Load Default and the list box, as "1101101".
QString enabledState(CListEditor* editor)
{
    QString out;
    for (const char* name : {"btnAdd", "btnEdit", "btnDelete", "btnImport", "btnExport", "btnLoadDefault"})
        out.append(Harness::control<QPushButton>(editor, name)->isEnabled() ? QLatin1Char('1') : QLatin1Char('0'));
    out.append(Harness::control<QListView>(editor, "lstEntries")->isEnabled() ? QLatin1Char('1') : QLatin1Char('0'));
    return out;
}

std::unique_ptr<CTestEditor> openEditor(const QString& list = QStringLiteral("Alpha"))
{
    auto editor = std::make_unique<CTestEditor>(new CMemoryManager, list);
    editor->ensureInitialised();
    return editor;
}

} // namespace

class tst_ListEditor : public CDialogTest {
    Q_OBJECT
public:
    tst_ListEditor() : CDialogTest(false) {}

private Q_SLOTS:
    void setKeepsAscendingOrder_data();
    void setKeepsAscendingOrder();
    void setRefusesDuplicatesButNotOtherCase();
    void openingSelectsRequestedList_data();
    void openingSelectsRequestedList();
    void selectionStates();
    void addDuplicateRefusedAndShownSorted();
    void editMessages_data();
    void editMessages();
    void switchingAnsweredNoDiscards();
    void switchingWithFailedSaveKeepsOldList();
    void loadFailureLeavesNoList();
    void unreadableListNamesOfferRetry();
    void elementByElementSave();
    void deleteKeyDeletesSelection();
    void rewriteAfterImport_data();
    void rewriteAfterImport();
    void saveRetryIgnoreAbort_data();
    void saveRetryIgnoreAbort();
    void baseLoadDefaultFails();
};

// Any input order comes out ascending (the unbalanced tree's worst case, sorted input, included).
void tst_ListEditor::setKeepsAscendingOrder_data()
{
    QTest::addColumn<int>("order"); // 0 ascending, 1 descending, 2 shuffled
    QTest::addRow("ascending") << 0;
    QTest::addRow("descending") << 1;
    QTest::addRow("shuffled") << 2;
}

void tst_ListEditor::setKeepsAscendingOrder()
{
    QFETCH(int, order);
    QStringList texts;
    for (int i = 0; i < 5000; ++i)
        texts.append(QStringLiteral("user%1@example.com").arg(i, 5, 10, QLatin1Char('0')));
    QStringList input = texts;
    if (order == 1)
        std::reverse(input.begin(), input.end());
    if (order == 2)
        std::shuffle(input.begin(), input.end(), std::mt19937(7));
    CListElementSet set;
    for (const QString& t : std::as_const(input))
        QVERIFY(set.insert(std::make_unique<CTextElement>(t, false)));
    QStringList out;
    for (const CListElement* e : set)
        out.append(e->text());
    QCOMPARE(out, texts);
}

void tst_ListEditor::setRefusesDuplicatesButNotOtherCase()
{
    CListElementSet set;
    QVERIFY(set.insert(std::make_unique<CTextElement>(QStringLiteral("Bob"), false)));
    SetLastError(0);
    QVERIFY(!set.insert(std::make_unique<CTextElement>(QStringLiteral("Bob"), true)));
    QCOMPARE(GetLastError(), VB_ERROR_ALREADY_EXISTS);
    QVERIFY(set.insert(std::make_unique<CTextElement>(QStringLiteral("bob"), true)));
    QCOMPARE(set.size(), std::size_t(2));
    QCOMPARE((*set.begin())->text(), QStringLiteral("Bob")); // upper case sorts first
    QVERIFY(set.find(QStringLiteral("bob")));
    QVERIFY(!set.find(QStringLiteral("BOB")));
}

void tst_ListEditor::openingSelectsRequestedList_data()
{
    QTest::addColumn<QString>("requested");
    QTest::addColumn<QString>("combo");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QString>("enabled");
    QTest::addRow("known") << "Alpha" << "Alpha" << QStringList{"a", "b"} << "1001101";
    QTest::addRow("unknown") << "Delta" << "<select a list>" << QStringList() << "0000000";
    QTest::addRow("none") << "" << "<select a list>" << QStringList() << "0000000";
    QTest::addRow("other case") << "alpha" << "<select a list>" << QStringList() << "0000000";
}

void tst_ListEditor::openingSelectsRequestedList()
{
    QFETCH(QString, requested);
    QFETCH(QString, combo);
    QFETCH(QStringList, rows);
    QFETCH(QString, enabled);
    auto editor = openEditor(requested);
    auto* lists = Harness::control<QComboBox>(editor.get(), "cboList");
    QCOMPARE(lists->count(), 4); // the prompt and "Alpha, Beta;Gamma" split at ", ;"
    QCOMPARE(lists->itemText(3), QStringLiteral("Gamma"));
    QCOMPARE(lists->currentText(), combo);
    QCOMPARE(shown(editor.get()), rows);
    QCOMPARE(enabledState(editor.get()), enabled);
    QVERIFY(Harness::control<QPushButton>(editor.get(), "btnOK")->isEnabled());
}

void tst_ListEditor::selectionStates()
{
    auto editor = openEditor();
    selectRows(editor.get(), {0});
    QCOMPARE(enabledState(editor.get()), QStringLiteral("1111101"));
    selectRows(editor.get(), {0, 1});
    QCOMPARE(enabledState(editor.get()), QStringLiteral("1011101"));
    selectRows(editor.get(), {});
    QCOMPARE(enabledState(editor.get()), QStringLiteral("1001101"));
}

void tst_ListEditor::addDuplicateRefusedAndShownSorted()
{
    auto editor = openEditor();
    editor->entryAnswers = {QStringLiteral("A"), QStringLiteral("c"), QStringLiteral("a")};
    for (int i = 0; i < 3; ++i)
        Harness::clickButton(editor.get(), "btnAdd");
    QCOMPARE(shown(editor.get()), (QStringList{"A", "a", "b", "c"}));
    QCOMPARE(m_platform->messages(), QStringList{kDuplicate});
    QVERIFY(editor->isModified());
    QVERIFY(!editor->isRewriteNeeded());
    // A cancelled Add says nothing.
    m_platform->clear();
    Harness::clickButton(editor.get(), "btnAdd");
    QCOMPARE(m_platform->messages(), QStringList());
}

void tst_ListEditor::editMessages_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("vanish");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QStringList>("rows");
    QTest::addRow("renamed") << "c" << false << "" << QStringList{"b", "c"};
    QTest::addRow("to an existing text") << "b" << false << "The new name already exists." << QStringList{"a", "b"};
    QTest::addRow("unchanged") << "a" << false << "" << QStringList{"a", "b"};
    QTest::addRow("vanished") << "c" << true
                              << "An error has occurred and the selected string \"a\"\nhas been removed from the list."
                              << QStringList{"b"};
    QTest::addRow("refused text") << "x,y" << false << "The operation failed with error code 13" << QStringList{"a", "b"};
}

void tst_ListEditor::editMessages()
{
    QFETCH(QString, answer);
    QFETCH(bool, vanish);
    QFETCH(QString, message);
    QFETCH(QStringList, rows);
    auto editor = openEditor();
    selectRows(editor.get(), {0});
    if (vanish)
        editor->removeElement(QStringLiteral("a")); // gone from the set behind the list box's back
    editor->entryAnswers = {answer};
    Harness::clickButton(editor.get(), "btnEdit");
    QCOMPARE(m_platform->messages(), message.isEmpty() ? QStringList() : QStringList{message});
    QCOMPARE(shown(editor.get()), rows);
}

void tst_ListEditor::switchingAnsweredNoDiscards()
{
    auto editor = openEditor();
    editor->entryAnswers = {QStringLiteral("new")};
    Harness::clickButton(editor.get(), "btnAdd");
    m_platform->answerMessageBox(Id::No);
    QVERIFY(editor->chooseList(QStringLiteral("Beta")));
    QCOMPARE(m_platform->messages(), QStringList{kSaveQuestion});
    QCOMPARE(shown(editor.get()), QStringList{"x"});
    QVERIFY(!editor->isModified());
    QCOMPARE(editor->memory()->lists.value(QStringLiteral("Alpha")), (QStringList{"b", "a"}));
    QVERIFY(!editor->memory()->log.join(QLatin1Char('|')).contains(QStringLiteral("add")));
}

// Yes, then a save that fails and is aborted: the drop-down goes back and the changes stay.
void tst_ListEditor::switchingWithFailedSaveKeepsOldList()
{
    auto editor = openEditor();
    editor->memory()->failing = QStringLiteral("add");
    editor->memory()->failures = -1;
    editor->entryAnswers = {QStringLiteral("new")};
    Harness::clickButton(editor.get(), "btnAdd");
    m_platform->answerMessageBox(Id::Yes);
    m_platform->answerMessageBox(Id::Abort);
    QVERIFY(!editor->chooseList(QStringLiteral("Beta")));
    QCOMPARE(m_platform->messages(), (QStringList{kSaveQuestion, kSaveFailed}));
    QCOMPARE(Harness::control<QComboBox>(editor.get(), "cboList")->currentText(), QStringLiteral("Alpha"));
    QCOMPARE(editor->currentList(), QStringLiteral("Alpha"));
    QCOMPARE(shown(editor.get()), (QStringList{"a", "b", "new"}));
    QVERIFY(editor->isModified());
}

void tst_ListEditor::loadFailureLeavesNoList()
{
    auto editor = openEditor();
    editor->memory()->failing = QStringLiteral("load");
    editor->memory()->failures = 1;
    editor->memory()->code = 1117;
    QVERIFY(!editor->chooseList(QStringLiteral("Beta")));
    QCOMPARE(m_platform->messages(),
             QStringList{"The loading of the address list Beta failed with error 1117. Try to close and reopen the "
                         "list editor."});
    QCOMPARE(Harness::control<QComboBox>(editor.get(), "cboList")->currentIndex(), 0);
    QCOMPARE(shown(editor.get()), QStringList());
    QCOMPARE(enabledState(editor.get()), QStringLiteral("0000000"));
}

void tst_ListEditor::unreadableListNamesOfferRetry()
{
    auto* manager = new CMemoryManager;
    manager->failing = QStringLiteral("names");
    manager->failures = 1;
    CTestEditor editor(manager, QStringLiteral("Beta"));
    m_platform->answerMessageBox(Id::Retry);
    editor.ensureInitialised();
    QCOMPARE(m_platform->messages(), QStringList{"Could not determine the known lists."});
    QCOMPARE(m_platform->calls().first().style & Mb::ButtonMask, unsigned(Mb::RetryCancel));
    QCOMPARE(shown(&editor), QStringList{"x"});
}

// Adds and deletes are stored one by one, removals first, and only what changed.
void tst_ListEditor::elementByElementSave()
{
    auto editor = openEditor();
    selectRows(editor.get(), {0});
    Harness::clickButton(editor.get(), "btnDelete");
    editor->entryAnswers = {QStringLiteral("c"), QStringLiteral("a")};
    Harness::clickButton(editor.get(), "btnAdd"); // new
    Harness::clickButton(editor.get(), "btnAdd"); // deleted and added again
    editor->memory()->log.clear();
    QVERIFY(editor->saveList());
    QCOMPARE(editor->memory()->log, (QStringList{"remove a", "add a", "add c"}));
    QVERIFY(!editor->isModified());
    QCOMPARE(editor->memory()->lists.value(QStringLiteral("Alpha")), (QStringList{"b", "a", "c"}));
    // Nothing changed since: nothing is stored.
    editor->memory()->log.clear();
    QVERIFY(editor->saveList());
    QCOMPARE(editor->memory()->log, QStringList());
}

void tst_ListEditor::deleteKeyDeletesSelection()
{
    auto editor = openEditor();
    editor->show();
    QVERIFY(QTest::qWaitForWindowActive(editor.get()));
    selectRows(editor.get(), {1});
    auto* view = Harness::control<QListView>(editor.get(), "lstEntries");
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Delete);
    QCOMPARE(shown(editor.get()), QStringList{"a"});
    QVERIFY(editor->isModified());
    editor->hide();
}

void tst_ListEditor::rewriteAfterImport_data()
{
    QTest::addColumn<bool>("emptyFirst");
    QTest::addColumn<QString>("stored");
    QTest::addRow("entries") << false << "whole [a,b,d,e]";
    QTest::addRow("emptied") << true << "whole []";
}

void tst_ListEditor::rewriteAfterImport()
{
    QFETCH(bool, emptyFirst);
    QFETCH(QString, stored);
    auto editor = openEditor();
    editor->importLines = {QStringLiteral("e"), QStringLiteral("d"), QStringLiteral("a")};
    m_platform->answerFileDialog(QStringLiteral("/tmp/in.csv"));
    Harness::clickButton(editor.get(), "btnImport");
    QVERIFY(editor->isRewriteNeeded());
    QCOMPARE(m_platform->fileRequests.first().defaultExtension, QStringLiteral("csv"));
    if (emptyFirst) {
        selectRows(editor.get(), {0, 1, 2, 3});
        Harness::clickButton(editor.get(), "btnDelete");
    }
    editor->memory()->log.clear();
    QVERIFY(editor->saveList());
    QCOMPARE(editor->memory()->log, QStringList{stored});
    QVERIFY(!editor->isRewriteNeeded());
}

// Retry repeats the save, Ignore drops the modified flag, Abort keeps it; OK closes with 1 in any case.
void tst_ListEditor::saveRetryIgnoreAbort_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("stored");
    QTest::addColumn<bool>("modifiedAfter");
    QTest::addRow("retry") << int(Id::Retry) << true << false;
    QTest::addRow("ignore") << int(Id::Ignore) << false << false;
    QTest::addRow("abort") << int(Id::Abort) << false << true;
}

void tst_ListEditor::saveRetryIgnoreAbort()
{
    QFETCH(int, answer);
    QFETCH(bool, stored);
    QFETCH(bool, modifiedAfter);
    auto* manager = new CMemoryManager;
    manager->failing = QStringLiteral("add");
    manager->failures = 1;
    auto* editor = new CTestEditor(manager, QStringLiteral("Alpha"));
    editor->setAttribute(Qt::WA_DeleteOnClose, false);
    std::unique_ptr<CTestEditor> owner(editor);
    editor->ensureInitialised();
    editor->entryAnswers = {QStringLiteral("c")};
    Harness::clickButton(editor, "btnAdd");
    m_platform->answerMessageBox(answer);
    bool modified = true;
    QObject::connect(editor, &QDialog::finished, editor, [&] { modified = editor->isModified(); });
    Harness::clickButton(editor, "btnOK");
    QCOMPARE(editor->result(), 1);
    QCOMPARE(m_platform->messages(), QStringList{kSaveFailed});
    QCOMPARE(manager->lists.value(QStringLiteral("Alpha")).contains(QStringLiteral("c")), stored);
    QCOMPARE(modified, modifiedAfter);
}

void tst_ListEditor::baseLoadDefaultFails()
{
    auto editor = openEditor();
    QVERIFY(!Harness::control<QPushButton>(editor.get(), "btnLoadDefault")->isEnabled());
    SetLastError(0);
    QVERIFY(!editor->loadDefault());
    QCOMPARE(GetLastError(), VB_ERROR_NOT_SUPPORTED);
    QCOMPARE(shown(editor.get()), (QStringList{"a", "b"}));
}

QTEST_MAIN(tst_ListEditor)
#include "tst_listeditor.moc"
