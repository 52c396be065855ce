// The delivery retry schedule, driven through EditElapsedTimeSchedule: reading the stored schedule or
// the default, typed times with their error positions, insertion in time order, the row limit, and what
// OK writes.
#include "DialogHarness.h"

#include "schedule/ElTimeScheduleDlg.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {

QStringList rowTexts(QDialog* d)
{
    QStringList out;
    auto* list = Harness::control<QListWidget>(d, "lstSchedule");
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text() + (list->item(i)->checkState() == Qt::Checked ? QStringLiteral(" [x]") : QString());
    return out;
}

QString repeated(const char* entry, int times)
{
    QStringList parts;
    for (int i = 0; i < times; ++i)
        parts << QLatin1String(entry);
    return parts.join(QLatin1Char(','));
}

} // namespace

class tst_ElTimeScheduleDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void opening_data();
    void opening();
    void typedTimes_data();
    void typedTimes();
    void editsWrite_data();
    void editsWrite();
    void rowLimit();
    void failedWriteReported();
};

// What the list shows for a stored text, and that OK without a change writes nothing (letter case
// aside) and answers Cancel.
void tst_ElTimeScheduleDlg::opening_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("unreadable");
    QTest::addColumn<QStringList>("firstRows");
    QTest::addColumn<int>("rows");
    const QStringList three{QStringLiteral("<initial attempt>"), QStringLiteral("10 minutes"),
                            QStringLiteral("20 minutes [x]"), QStringLiteral("2 hours ")};
    QTest::addRow("stored") << "10:F,10:T,100:F" << false << three << 4;
    QTest::addRow("stored in other case") << "10:f,10:t,100:f" << false << three << 4;
    const QStringList standard{QStringLiteral("<initial attempt>"), QStringLiteral("10 minutes"),
                               QStringLiteral("20 minutes"), QStringLiteral("2 hours ")};
    QTest::addRow("empty gives default") << "" << false << standard << 111;
    QTest::addRow("unreadable gives default") << "1:F" << true << standard << 111;
}

void tst_ElTimeScheduleDlg::opening()
{
    QFETCH(QString, stored);
    QFETCH(bool, unreadable);
    QFETCH(QStringList, firstRows);
    QFETCH(int, rows);
    QVERIFY(m_store->setString(nullptr, "RetrySchedule", stored));
    m_store->reopen();
    if (unreadable)
        QVERIFY(VbInjectFault(*m_store, "GetMailServerProperty", nullptr, "RetrySchedule", VB_ERROR_ACCESS_DENIED, 0));
    QStringList shown;
    int count = 0;
    bool addEnabled = true, removeEnabled = true, initialCheckable = true;
    QString title;
    const int result = Harness::runEntry("EditElapsedTimeSchedule", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        shown = rowTexts(d).mid(0, 4);
        auto* list = Harness::control<QListWidget>(d, "lstSchedule");
        count = list->count();
        initialCheckable = list->item(0)->flags() & Qt::ItemIsUserCheckable;
        addEnabled = Harness::control<QPushButton>(d, "btnAdd")->isEnabled();
        list->setCurrentRow(0);
        removeEnabled = Harness::control<QPushButton>(d, "btnRemove")->isEnabled();
        Harness::clickButton(d, "btnOK");
    });
    VbClearFaults(*m_store);
    QVERIFY2(title.startsWith(QLatin1String("Elapsed Time Delivery Schedule on ")), qPrintable(title));
    QCOMPARE(shown, firstRows);
    QCOMPARE(count, rows);
    QVERIFY(!initialCheckable);
    QVERIFY(!addEnabled);
    QVERIFY(!removeEnabled); // the initial attempt cannot be removed
    // The default schedule of an unreadable or empty property is no change either.
    QCOMPARE(result, 2);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

// Typed times, one after the other: the rows afterwards, the selected row, the edit's selection and
// the beeps. A refused time must leave the list alone and point at the bad character.
void tst_ElTimeScheduleDlg::typedTimes_data()
{
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("left"); // the edit's text and selection afterwards: "text|start+length"
    QTest::addColumn<int>("beeps");
    const QString base = QStringLiteral("<initial attempt>,10 minutes,20 minutes [x],2 hours ");
    const auto rows = [&](const QString& extra) { return (base + extra).split(QLatin1Char(',')); };
    QTest::addRow("appended") << QStringList{"1 day"} << rows(",1 day ") << 4 << "|0+0" << 0;
    QTest::addRow("1 day twice") << QStringList{"1 day", "1d"} << rows(",1 day ") << 4 << "|0+0" << 0;
    QTest::addRow("90 minutes and 1 hour 30 minutes")
        << QStringList{"90 minutes", "1 hour 30 minutes"}
        << QStringLiteral("<initial attempt>,10 minutes,20 minutes [x],1 hour 30 minutes,2 hours ").split(QLatin1Char(','))
        << 3 << "|0+0" << 0;
    QTest::addRow("existing time selected") << QStringList{"20 m"} << rows(QString()) << 2 << "|0+0" << 0;
    QTest::addRow("45 without unit") << QStringList{"45"} << rows(QString()) << -1 << "45|2+0" << 1;
    QTest::addRow("0 days") << QStringList{"0 days"} << rows(QString()) << -1 << "0 days|0+1" << 1;
    QTest::addRow("2 weeks") << QStringList{"2 weeks"} << rows(QString()) << -1 << "2 weeks|2+1" << 1;
    QTest::addRow("unit twice") << QStringList{"1h 2h"} << rows(QString()) << -1 << "1h 2h|4+1" << 1;
    QTest::addRow("letter beyond ASCII") << QStringList{QString::fromUtf8("1 t\u00e4g")} << rows(QString()) << -1
                                         << QString::fromUtf8("1 t\u00e4g|2+1") << 1;
}

void tst_ElTimeScheduleDlg::typedTimes()
{
    QFETCH(QStringList, typed);
    QFETCH(QStringList, rows);
    QFETCH(int, current);
    QFETCH(QString, left);
    QFETCH(int, beeps);
    QVERIFY(m_store->setString(nullptr, "RetrySchedule", QStringLiteral("10:F,10:T,100:F")));
    m_store->reopen();
    QStringList shown;
    int currentRow = -2;
    QString edit;
    QString focus;
    Harness::runEntry("EditElapsedTimeSchedule", 0, *m_store, [&](QDialog* d) {
        auto* time = Harness::control<QLineEdit>(d, "edtTime");
        for (const QString& t : typed) {
            Harness::typeInto(time, t);
            // Enter in the time edit presses "Add >>>", not OK.
            Harness::pressEnter(time);
        }
        shown = rowTexts(d);
        currentRow = Harness::control<QListWidget>(d, "lstSchedule")->currentRow();
        edit = QStringLiteral("%1|%2+%3").arg(time->text()).arg(time->hasSelectedText() ? time->selectionStart() : time->cursorPosition())
                   .arg(time->selectedText().size());
        focus = Harness::focusName();
        QVERIFY(d->isVisible());
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(shown, rows);
    QCOMPARE(currentRow, current);
    QCOMPARE(edit, left);
    QCOMPARE(m_platform->callsOf(QStringLiteral("beep")).size(), beeps);
    if (beeps) {
        QCOMPARE(m_platform->callsOf(QStringLiteral("beep"))[0].style, 400u);
        QCOMPARE(focus, QStringLiteral("edtTime"));
    }
    QVERIFY(m_platform->messages().isEmpty());
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

// What OK writes after an edit: intervals between the rows' times with their flags.
void tst_ElTimeScheduleDlg::editsWrite_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("written");
    QTest::addRow("check box only") << "check 1" << "10:T,10:T,100:F";
    QTest::addRow("row removed") << "remove 2" << "10:F,110:F";
    QTest::addRow("row inserted") << "add 15 minutes" << "10:F,5:F,5:T,100:F";
    // Attempts 10, 20 and 120 minutes into every two-hour block of three days, notifying once at 1 day
    // 20 minutes, and two more after the last block.
    QString standard;
    for (int t = 0; t < 4320; t += 120)
        standard += t == 1440 ? QStringLiteral("10:F,10:T,100:F,") : QStringLiteral("10:F,10:F,100:F,");
    standard += QStringLiteral("10:F,10:F");
    QTest::addRow("default schedule") << "default" << standard;
}

void tst_ElTimeScheduleDlg::editsWrite()
{
    QFETCH(QString, action);
    QFETCH(QString, written);
    QVERIFY(m_store->setString(nullptr, "RetrySchedule", QStringLiteral("10:F,10:T,100:F")));
    m_store->reopen();
    const QString verb = action.section(QLatin1Char(' '), 0, 0), rest = action.section(QLatin1Char(' '), 1);
    const int result = Harness::runEntry("EditElapsedTimeSchedule", 0, *m_store, [&](QDialog* d) {
        auto* list = Harness::control<QListWidget>(d, "lstSchedule");
        if (verb == QLatin1String("check")) {
            list->item(rest.toInt())->setCheckState(Qt::Checked);
        } else if (verb == QLatin1String("remove")) {
            list->setCurrentRow(rest.toInt());
            Harness::clickButton(d, "btnRemove");
            QVERIFY(!Harness::control<QPushButton>(d, "btnRemove")->isEnabled());
        } else if (verb == QLatin1String("add")) {
            Harness::typeInto(Harness::control<QLineEdit>(d, "edtTime"), rest);
            Harness::clickButton(d, "btnAdd");
        } else {
            Harness::clickButton(d, "btnDefaultSchedule");
        }
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 1u);
    QCOMPARE(m_store->string(nullptr, "RetrySchedule"), written);
}

// 254 rows take one more; at 255 "Add >>>" says the schedule is full and adds nothing.
void tst_ElTimeScheduleDlg::rowLimit()
{
    QVERIFY(m_store->setString(nullptr, "RetrySchedule", repeated("1:F", 253)));
    int afterFirst = 0, afterSecond = 0;
    Harness::runEntry("EditElapsedTimeSchedule", 0, *m_store, [&](QDialog* d) {
        auto* list = Harness::control<QListWidget>(d, "lstSchedule");
        QCOMPARE(list->count(), 254);
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtTime"), QStringLiteral("5 days"));
        Harness::clickButton(d, "btnAdd");
        afterFirst = list->count();
        QVERIFY(m_platform->messages().isEmpty());
        Harness::typeInto(Harness::control<QLineEdit>(d, "edtTime"), QStringLiteral("6 days"));
        Harness::clickButton(d, "btnAdd");
        afterSecond = list->count();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(afterFirst, 255);
    QCOMPARE(afterSecond, 255);
    QCOMPARE(m_platform->messages(), QStringList{QStringLiteral("The retry schedule is full.")});
}

void tst_ElTimeScheduleDlg::failedWriteReported()
{
    QVERIFY(m_store->setString(nullptr, "RetrySchedule", QStringLiteral("10:F")));
    m_store->reopen();
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", nullptr, "RetrySchedule", VB_ERROR_ACCESS_DENIED, 0));
    const int result = Harness::runEntry("EditElapsedTimeSchedule", 0, *m_store, [&](QDialog* d) {
        Harness::control<QListWidget>(d, "lstSchedule")->item(1)->setCheckState(Qt::Checked);
        Harness::clickButton(d, "btnOK");
    });
    VbClearFaults(*m_store);
    QCOMPARE(result, 1); // reported once, then closed
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(QLatin1String("Error saving delivery retry schedule\nError: 5\n")), qPrintable(messages[0]));
    QCOMPARE(m_store->string(nullptr, "RetrySchedule"), QStringLiteral("10:F"));
}

QTEST_MAIN(tst_ElTimeScheduleDlg)
#include "tst_eltimescheduledlg.moc"
