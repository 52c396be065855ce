// The server aliases dialog, driven through EditAliases: the list as stored, add, modify, delete and
// their refusals, filtering, CSV import and export, failures of the store, and the time it takes to
// open, filter and save 100 000 aliases against the store alone.
#include "DialogHarness.h"

#include "server/AliasDlg.h"

#include <QAbstractItemModel>
#include <QElapsedTimer>
#include <QFile>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include <velbrook/ServerStore.h>

namespace {
using Rows = QList<QPair<QString, QString>>;

bool saveRows(_tMailServer* server, const Rows& rows)
{
    _tAliasMapping* first = nullptr;
    _tAliasMapping** tail = &first;
    for (const auto& row : rows) {
        *tail = AllocAliasMapping(row.first.toUtf8().constData(), row.second.toUtf8().constData());
        tail = &(*tail)->next;
    }
    const bool ok = SaveAliasMapping(server, first) != 0;
    FreeAliasMapping(first);
    return ok;
}

Rows loadRows(_tMailServer* server)
{
    Rows rows;
    _tAliasMapping* first = nullptr;
    if (LoadAliasMapping(server, &first)) {
        for (const _tAliasMapping* a = first; a; a = a->next)
            rows.append({QString::fromUtf8(a->alias), QString::fromUtf8(a->target)});
        FreeAliasMapping(first);
    }
    return rows;
}

QStringList shownAliases(QWidget* d)
{
    QStringList out;
    const QAbstractItemModel* model = Harness::control<QTableView>(d, "tblAliases")->model();
    for (int row = 0; row < model->rowCount(); ++row)
        out << model->index(row, 0).data().toString();
    return out;
}

void selectRow(QWidget* d, const QString& alias)
{
    auto* table = Harness::control<QTableView>(d, "tblAliases");
    for (int row = 0; row < table->model()->rowCount(); ++row) {
        if (table->model()->index(row, 0).data().toString() == alias) {
            table->selectionModel()->select(table->model()->index(row, 0),
                                            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            return;
        }
    }
    QFAIL("no such alias shown");
}

const Rows kSeed = {{QStringLiteral("sales@old.example"), QStringLiteral("orders@sales.brennoway.example")},
                    {QStringLiteral("abuse"), QStringLiteral("postmaster@brennoway.example")},
                    {QStringLiteral("old.example"), QStringLiteral("brennoway.example")}};
} // namespace

class tst_AliasDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void shownSortedAndUnchangedOkIsCancel();
    void editsSavedInOrder();
    void refusals_data();
    void refusals();
    void filterAsYouType();
    void importReplacesAfterAsking_data();
    void importReplacesAfterAsking();
    void exportThenImportRoundTrip();
    void saveFailureKeepsEdits();
    void loadFailureAllowsNoChange();
    void hundredThousandAliases();

private:
    void seed() override { QVERIFY(saveRows(*m_store, kSeed)); }
};

void tst_AliasDlg::shownSortedAndUnchangedOkIsCancel()
{
    QString title, count;
    QStringList shown;
    const int result = Harness::runEntry("EditAliases", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        shown = shownAliases(d);
        count = Harness::control<QLabel>(d, "lblCount")->text();
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 2);
    QVERIFY2(title.startsWith(QLatin1String("Aliases on ")) && !title.contains(QLatin1Char('%')), qPrintable(title));
    QCOMPARE(shown, QStringList({QStringLiteral("abuse"), QStringLiteral("old.example"), QStringLiteral("sales@old.example")}));
    QCOMPARE(count, QStringLiteral("3 aliases"));
    QCOMPARE(m_store->calls("SaveAliasMapping"), 0u);
}

// New rows go after the stored ones; a modified row keeps its place; delete takes every selected row.
void tst_AliasDlg::editsSavedInOrder()
{
    const int result = Harness::runEntry("EditAliases", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtAlias"), QStringLiteral("info"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtTarget"), QStringLiteral("alice@brennoway.example"));
        Harness::pressEnter(Harness::control<QLineEdit>(d, "edtTarget")); // adds, and does not close
        QVERIFY(d->isVisible());
        selectRow(d, QStringLiteral("abuse"));
        QCOMPARE(Harness::control<QLineEdit>(d, "edtTarget")->text(), QStringLiteral("postmaster@brennoway.example"));
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtTarget"), QStringLiteral("bob@brennoway.example"));
        Harness::clickButton(d, "btnModify");
        selectRow(d, QStringLiteral("old.example"));
        Harness::clickButton(d, "btnDelete");
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(loadRows(*m_store), Rows({kSeed[0], {QStringLiteral("abuse"), QStringLiteral("bob@brennoway.example")},
                                       {QStringLiteral("info"), QStringLiteral("alice@brennoway.example")}}));
    QCOMPARE(m_platform->messages(), QStringList());
}

// A repeated alias (any case) or an entry a mapping cannot hold is refused with the focus on the field.
void tst_AliasDlg::refusals_data()
{
    QTest::addColumn<QString>("alias");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    const QString invalid = QStringLiteral("Enter an alias and the address it stands for.");
    QTest::addRow("repeat") << "ABUSE" << "x@brennoway.example" << "The alias ABUSE is already in the list." << "edtAlias";
    QTest::addRow("blank in alias") << "a b" << "x@brennoway.example" << invalid << "edtAlias";
    QTest::addRow("comma in target") << "c" << "x,y@brennoway.example" << invalid << "edtTarget";
    QTest::addRow("quote in alias") << "c\"d" << "x@brennoway.example" << invalid << "edtAlias";
}

void tst_AliasDlg::refusals()
{
    QFETCH(QString, alias);
    QFETCH(QString, target);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    const int result = Harness::runEntry("EditAliases", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtAlias"), alias);
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtTarget"), target);
        Harness::clickButton(d, "btnAdd");
        QCOMPARE(shownAliases(d).size(), 3);
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 2);
    const auto boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), 1);
    QVERIFY2(boxes[0].text.startsWith(message), qPrintable(boxes[0].text));
    QCOMPARE(boxes[0].focus, focus);
}

void tst_AliasDlg::filterAsYouType()
{
    Harness::runEntry("EditAliases", 0, *m_store, [&](QDialog* d) {
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtFilter"), QStringLiteral("OLD"));
        QCOMPARE(shownAliases(d), QStringList({QStringLiteral("old.example"), QStringLiteral("sales@old.example")}));
        QCOMPARE(Harness::control<QLabel>(d, "lblCount")->text(), QStringLiteral("2 of 3 aliases"));
        // The target column is searched too.
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtFilter"), QStringLiteral("postmaster"));
        QCOMPARE(shownAliases(d), QStringList({QStringLiteral("abuse")}));
        Harness::control<QLineEdit>(d, "edtFilter")->clear();
        QCOMPARE(shownAliases(d).size(), 3);
        Harness::clickButton(d, "btnCancel");
    });
}

// Bad lines are counted; OK keeps the good ones in place of the list, Cancel keeps the list as it was.
void tst_AliasDlg::importReplacesAfterAsking_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QStringList>("shown");
    QTest::addRow("keep read") << int(Id::Ok) << QStringList({QStringLiteral("a"), QStringLiteral("b")});
    QTest::addRow("keep old") << int(Id::Cancel)
                              << QStringList({QStringLiteral("abuse"), QStringLiteral("old.example"), QStringLiteral("sales@old.example")});
}

void tst_AliasDlg::importReplacesAfterAsking()
{
    QFETCH(int, answer);
    QFETCH(QStringList, shown);
    const QString path = m_dir->filePath(QStringLiteral("in.csv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("a,x@y.example\r\n\nno-second-field\n\"b\",\"z@y.example\"\nA,again@y.example\nc,has space\n");
    file.close();
    m_platform->answerFileDialog(path);
    m_platform->answerMessageBox(answer);
    QStringList after;
    Harness::runEntry("EditAliases", 0, *m_store, [&](QDialog* d) {
        Harness::clickButton(d, "btnImport");
        after = shownAliases(d);
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(after, shown);
    QVERIFY(m_platform->messages().first().startsWith(QLatin1String("There were 3 errors when processing the file.")));
    QCOMPARE(m_store->calls("SaveAliasMapping"), 0u);
}

void tst_AliasDlg::exportThenImportRoundTrip()
{
    const QString path = m_dir->filePath(QStringLiteral("out.csv"));
    m_platform->answerFileDialog(path);
    Harness::runEntry("EditAliases", 0, *m_store, [&](QDialog* d) {
        Harness::clickButton(d, "btnExport");
        Harness::clickButton(d, "btnCancel");
    });
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    QCOMPARE(text, QByteArray("sales@old.example,orders@sales.brennoway.example\nabuse,postmaster@brennoway.example\n"
                              "old.example,brennoway.example\n"));
    int errors = -1;
    const std::vector<CAliasEntry> back = parseAliasCsv(text, errors);
    QCOMPARE(errors, 0);
    QCOMPARE(int(back.size()), 3);
    QCOMPARE(back[1].target, QStringLiteral("postmaster@brennoway.example"));
    QVERIFY(m_platform->fileRequests.first().save);
}

// A save the store refuses is reported and the dialog stays open with the edits; Cancel then writes
// nothing.
void tst_AliasDlg::saveFailureKeepsEdits()
{
    QVERIFY(VbInjectFault(*m_store, "SaveAliasMapping", nullptr, nullptr, VB_ERROR_DISK_FULL, 1));
    bool stillOpen = false;
    QStringList shown;
    const int result = Harness::runEntry("EditAliases", 0, *m_store, [&](QDialog* d) {
        selectRow(d, QStringLiteral("abuse"));
        Harness::clickButton(d, "btnDelete");
        Harness::clickButton(d, "btnOK");
        stillOpen = d->isVisible();
        shown = shownAliases(d);
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(result, 2);
    QVERIFY(stillOpen);
    QCOMPARE(shown.size(), 2);
    QVERIFY2(m_platform->messages().first().startsWith(QLatin1String("Cannot save the server's aliases.\nError: 112")),
             qPrintable(m_platform->messages().first()));
    QCOMPARE(loadRows(*m_store), kSeed);
}

// A table that cannot be read is reported and cannot be overwritten by an empty one.
void tst_AliasDlg::loadFailureAllowsNoChange()
{
    QVERIFY(VbInjectFault(*m_store, "LoadAliasMapping", nullptr, nullptr, VB_ERROR_BUSY, 1));
    bool addable = true, importable = true;
    const int result = Harness::runEntry("EditAliases", 0, *m_store, [&](QDialog* d) {
        addable = Harness::control<QLineEdit>(d, "edtAlias")->isEnabled();
        importable = Harness::control<QPushButton>(d, "btnImport")->isEnabled();
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 2);
    QVERIFY(!addable && !importable);
    QVERIFY(m_platform->messages().first().startsWith(QLatin1String("Cannot read the server's aliases.\nError: 170")));
    QCOMPARE(m_store->calls("SaveAliasMapping"), 0u);
    QCOMPARE(loadRows(*m_store), kSeed);
}

// 100 000 aliases: opening the dialog, filtering and saving, each against the store's own load or
// save of the same table in this run. The ratios are printed; the bounds only catch a collapse into
// quadratic work.
void tst_AliasDlg::hundredThousandAliases()
{
    constexpr int kCount = 100000;
    _tAliasMapping* first = nullptr;
    _tAliasMapping** tail = &first;
    for (int i = 0; i < kCount; ++i) {
        const QByteArray alias = "user" + QByteArray::number((i * 7919) % kCount) + "@old.example";
        const QByteArray target = "mailbox" + QByteArray::number(i % 977) + "@brennoway.example";
        *tail = AllocAliasMapping(alias.constData(), target.constData());
        tail = &(*tail)->next;
    }
    QElapsedTimer timer;
    timer.start();
    QVERIFY(SaveAliasMapping(*m_store, first));
    const qint64 storeSave = qMax<qint64>(1, timer.nsecsElapsed());
    FreeAliasMapping(first);

    timer.restart();
    _tAliasMapping* loaded = nullptr;
    QVERIFY(LoadAliasMapping(*m_store, &loaded));
    const qint64 storeLoad = qMax<qint64>(1, timer.nsecsElapsed());
    FreeAliasMapping(loaded);

    CAliasDlg dialog(nullptr, *m_store);
    timer.restart();
    dialog.show();
    QCoreApplication::processEvents();
    const qint64 open = timer.nsecsElapsed();
    QCOMPARE(int(dialog.entries().size()), kCount);

    auto* filter = Harness::control<QLineEdit>(&dialog, "edtFilter");
    timer.restart();
    QTest::keyClicks(filter, QStringLiteral("user123"));
    QCoreApplication::processEvents();
    const qint64 filtering = timer.nsecsElapsed();
    QCOMPARE(Harness::control<QTableView>(&dialog, "tblAliases")->model()->rowCount(), 111); // user123, user1230..9, user12300..99

    filter->clear();
    selectRow(&dialog, QStringLiteral("user0@old.example"));
    Harness::clickButton(&dialog, "btnDelete");
    timer.restart();
    Harness::clickButton(&dialog, "btnOK");
    const qint64 save = timer.nsecsElapsed();
    QCOMPARE(dialog.result(), 1);

    const double openRatio = double(open) / double(storeLoad);
    const double filterRatio = double(filtering) / double(storeLoad);
    const double saveRatio = double(save) / double(storeSave);
    qInfo("100000 aliases: open %.1fx the store's load, typing a 7-letter filter %.1fx the store's load, "
          "save %.1fx the store's save", openRatio, filterRatio, saveRatio);
    QVERIFY2(openRatio < 40 && filterRatio < 40 && saveRatio < 10, "the alias dialog scales worse than linearly");
    QCOMPARE(int(loadRows(*m_store).size()), kCount - 1);
}

QTEST_MAIN(tst_AliasDlg)
#include "tst_aliasdlg.moc"
