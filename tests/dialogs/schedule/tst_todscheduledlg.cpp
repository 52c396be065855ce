// The time-of-day schedule dialog (built directly: it edits a text its caller owns) and the dial-up
// schedule dialog behind EditDialupSchedule, which opens it for the weekday and weekend schedules and
// connects and disconnects the dial-up link.
#include "DialogHarness.h"

#include "res/ScheduleStringIds.h"
#include "schedule/ToDScheduleDlg.h"

#include <QAbstractSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <velbrook/ServerCommon.h>

namespace {

QString rows(QDialog* d)
{
    QStringList out;
    auto* list = Harness::control<QListWidget>(d, "lstTimes");
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text() + (list->item(i)->checkState() == Qt::Checked ? QStringLiteral("u") : QString());
    return out.join(QLatin1Char(','));
}

// Opens the time-of-day dialog on `schedule`, drives it and returns its result.
int runToD(QString& schedule, const std::function<void(QDialog*)>& driver)
{
    return Harness::driveModal([&] {
        CToDScheduleDlg dialog(nullptr, IDS_SCHED_WEEKDAY_CAPTION, schedule);
        return dialog.exec();
    }, driver);
}

} // namespace

class tst_ToDScheduleDlg : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void readAndWritten_data();
    void readAndWritten();
    void addedTimes_data();
    void addedTimes();
    void spinSteps();
    void removeSelectsNeighbour();
    void dialupSchedulesWrittenWhenChanged_data();
    void dialupSchedulesWrittenWhenChanged();
    void dialupLink_data();
    void dialupLink();
    void dialupFailedWriteReported();
};

// Lenient reading, the list's order, and the text OK gives back (Cancel leaves it alone).
void tst_ToDScheduleDlg::readAndWritten_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("written");
    QTest::addRow("empty") << "" << "" << "";
    QTest::addRow("semicolon") << "0800u;1800" << "0800u,1800" << "0800u,1800";
    QTest::addRow("sorted") << "1800,0800U,1230" << "0800u,1230,1800" << "0800u,1230,1800";
    QTest::addRow("taken as stored") << "930 0800" << "0800,930" << "0800,930";
}

void tst_ToDScheduleDlg::readAndWritten()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QFETCH(QString, written);
    for (const bool ok : {false, true}) {
        QString schedule = stored, seen, title;
        const int result = runToD(schedule, [&](QDialog* d) {
            title = d->windowTitle();
            seen = rows(d);
            QVERIFY(!Harness::control<QPushButton>(d, "btnRemove")->isEnabled());
            Harness::clickButton(d, ok ? "btnOK" : "btnCancel");
        });
        QCOMPARE(title, QStringLiteral("Weekday Delivery Schedule"));
        QCOMPARE(seen, shown);
        QCOMPARE(result, ok ? 1 : 2);
        QCOMPARE(schedule, ok ? written : stored);
    }
}

// Typed times added with the button or Enter: formatted to four digits, refused when not a time of day
// (a beep, the list unchanged), selected when already listed.
void tst_ToDScheduleDlg::addedTimes_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<int>("beeps");
    QTest::addRow("930") << "930" << "0800u,0930,1800" << "0930" << 0;
    QTest::addRow("existing") << "1800" << "0800u,1800" << "1800" << 0;
    QTest::addRow("2400") << "2400" << "0800u,1800" << "" << 1;
    QTest::addRow("1260") << "1260" << "0800u,1800" << "" << 1;
    QTest::addRow("letters") << "ab" << "0800u,1800" << "" << 1;
}

void tst_ToDScheduleDlg::addedTimes()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(QString, selected);
    QFETCH(int, beeps);
    for (const bool enter : {false, true}) {
        m_platform->clear();
        QString schedule = QStringLiteral("0800u,1800"), seen, current, edit;
        runToD(schedule, [&](QDialog* d) {
            auto* time = Harness::control<QLineEdit>(d, "edtTime");
            QCOMPARE(time->text(), QStringLiteral("0000"));
            Harness::typeInto(time, typed);
            if (enter)
                Harness::pressEnter(time);
            else
                Harness::clickButton(d, "btnAdd");
            QVERIFY(d->isVisible()); // Enter in the time edit adds, it does not close
            seen = rows(d);
            auto* item = Harness::control<QListWidget>(d, "lstTimes")->currentItem();
            current = item ? item->text() : QString();
            edit = time->text();
            Harness::clickButton(d, "btnCancel");
        });
        QCOMPARE(seen, shown);
        QCOMPARE(current, selected);
        QCOMPARE(m_platform->callsOf(QStringLiteral("beep")).size(), beeps);
        QCOMPARE(edit, beeps ? typed : selected);
    }
}

// A step of the spin buttons adds five minutes with wrap and carry; a valid typed time is rewritten
// as four digits when the edit loses the focus.
void tst_ToDScheduleDlg::spinSteps()
{
    QString schedule;
    QStringList seen;
    runToD(schedule, [&](QDialog* d) {
        auto* spin = Harness::control<QAbstractSpinBox>(d, "spnTime");
        auto* time = Harness::control<QLineEdit>(d, "edtTime");
        spin->stepDown();
        seen << time->text();
        spin->stepUp();
        spin->stepUp();
        seen << time->text();
        Harness::typeInto(time, QStringLiteral("58"));
        spin->stepUp();
        seen << time->text();
        Harness::typeInto(time, QStringLiteral("905"));
        Harness::control<QListWidget>(d, "lstTimes")->setFocus();
        seen << time->text();
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(seen, (QStringList{"2355", "0005", "0103", "0905"}));
}

void tst_ToDScheduleDlg::removeSelectsNeighbour()
{
    QString schedule = QStringLiteral("0100,0200,0300");
    QStringList seen;
    runToD(schedule, [&](QDialog* d) {
        auto* list = Harness::control<QListWidget>(d, "lstTimes");
        list->setCurrentRow(1);
        Harness::clickButton(d, "btnRemove");
        seen << rows(d) + QLatin1Char('>') + list->currentItem()->text();
        Harness::clickButton(d, "btnRemove");
        seen << rows(d) + QLatin1Char('>') + list->currentItem()->text();
        Harness::clickButton(d, "btnRemove");
        seen << rows(d) + QLatin1Char('>') + (Harness::control<QPushButton>(d, "btnRemove")->isEnabled() ? "on" : "off");
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(seen, (QStringList{"0100,0300>0300", "0100>0100", ">off"}));
    QCOMPARE(schedule, QString());
}

// The dial-up schedule dialog writes a schedule only when its text changed, letter case counting; the
// summaries follow the edits.
void tst_ToDScheduleDlg::dialupSchedulesWrittenWhenChanged_data()
{
    QTest::addColumn<QString>("weekday");
    QTest::addColumn<QString>("typed"); // added to the weekday schedule; empty: OK without a change
    QTest::addColumn<QString>("summary");
    QTest::addColumn<QString>("written"); // empty: nothing written
    QTest::addRow("unchanged") << "0800u,1800" << "" << "08:00 (dial-up), 18:00" << "";
    QTest::addRow("time added") << "0800u,1800" << "1230" << "08:00 (dial-up), 12:30, 18:00" << "0800u,1230,1800";
    QTest::addRow("only the case of u") << "0800U,1800" << "" << "08:00 (dial-up), 18:00" << "0800u,1800";
}

void tst_ToDScheduleDlg::dialupSchedulesWrittenWhenChanged()
{
    QFETCH(QString, weekday);
    QFETCH(QString, typed);
    QFETCH(QString, summary);
    QFETCH(QString, written);
    QVERIFY(m_store->setString(nullptr, "WeekdaySchedule", weekday));
    QVERIFY(m_store->setString(nullptr, "WeekendSchedule", QStringLiteral("1000")));
    m_store->reopen();
    QString nestedTitle, shown, weekend, title;
    const int result = Harness::runEntry("EditDialupSchedule", 0, *m_store, [&](QDialog* d) {
        title = d->windowTitle();
        weekend = Harness::control<QLabel>(d, "lblWeekendSchedule")->text();
        Harness::driveModal([&] { Harness::clickButton(d, "btnWeekday"); return 0; }, [&](QDialog* nested) {
            nestedTitle = nested->windowTitle();
            if (!typed.isEmpty()) {
                Harness::typeInto(Harness::control<QLineEdit>(nested, "edtTime"), typed);
                Harness::clickButton(nested, "btnAdd");
            }
            Harness::clickButton(nested, "btnOK");
        });
        shown = Harness::control<QLabel>(d, "lblWeekdaySchedule")->text();
        Harness::clickButton(d, "btnOK");
    });
    QVERIFY2(title.startsWith(QLatin1String("Time-of-day Delivery Schedule on ")), qPrintable(title));
    QCOMPARE(nestedTitle, QStringLiteral("Weekday Delivery Schedule"));
    QCOMPARE(weekend, QStringLiteral("10:00"));
    QCOMPARE(shown, summary);
    QCOMPARE(result, 1);
    QCOMPARE(m_store->calls("SetMailServerProperty"), written.isEmpty() ? 0u : 1u);
    QCOMPARE(m_store->string(nullptr, "WeekdaySchedule"), written.isEmpty() ? weekday : written);
    QCOMPARE(m_store->string(nullptr, "WeekendSchedule"), QStringLiteral("1000"));
}

// The link's state from the store, connect and disconnect through it, and a refused connect reported
// in the error box with the state unchanged.
void tst_ToDScheduleDlg::dialupLink_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QStringList>("states"); // at opening, after Connect, after Disconnect
    QTest::addColumn<QStringList>("messages");
    QTest::addRow("enabled") << true << QStringList{"Disconnected 1 0", "Connected 0 1", "Disconnected 1 0"} << QStringList{};
    QTest::addRow("not enabled") << false << QStringList{"Disconnected 1 0", "Disconnected 1 0"}
                                 << QStringList{"Could not connect the dial-up link"};
}

void tst_ToDScheduleDlg::dialupLink()
{
    QFETCH(bool, enabled);
    QFETCH(QStringList, states);
    QFETCH(QStringList, messages);
    QVERIFY(m_store->setNumber(nullptr, "DialupEnabled", enabled ? 1 : 0));
    QStringList seen;
    Harness::runEntry("EditDialupSchedule", 0, *m_store, [&](QDialog* d) {
        auto* connectButton = Harness::control<QPushButton>(d, "btnConnect");
        auto* disconnectButton = Harness::control<QPushButton>(d, "btnDisconnect");
        const auto state = [&] {
            seen << QStringLiteral("%1 %2 %3").arg(Harness::control<QLabel>(d, "lblDialupState")->text())
                        .arg(connectButton->isEnabled()).arg(disconnectButton->isEnabled());
        };
        state();
        Harness::click(connectButton);
        state();
        if (disconnectButton->isEnabled()) {
            Harness::click(disconnectButton);
            state();
        }
        Harness::clickButton(d, "btnCancel");
    });
    QCOMPARE(seen, states);
    const QStringList shown = m_platform->messages();
    QCOMPARE(shown.size(), messages.size());
    for (int i = 0; i < shown.size(); ++i)
        QVERIFY2(shown[i].startsWith(messages[i] + QLatin1String("\nError: ")), qPrintable(shown[i]));
    QCOMPARE(m_platform->waitCursorDepth(), 0);
}

void tst_ToDScheduleDlg::dialupFailedWriteReported()
{
    QVERIFY(m_store->setString(nullptr, "WeekendSchedule", QStringLiteral("1000U")));
    m_store->reopen();
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", nullptr, "WeekendSchedule", VB_ERROR_ACCESS_DENIED, 0));
    const int result = Harness::runEntry("EditDialupSchedule", 0, *m_store, [&](QDialog* d) {
        Harness::driveModal([&] { Harness::clickButton(d, "btnWeekend"); return 0; },
                            [&](QDialog* nested) { Harness::clickButton(nested, "btnOK"); });
        Harness::clickButton(d, "btnOK");
    });
    VbClearFaults(*m_store);
    QCOMPARE(result, 1);
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(QLatin1String("Could not set the 'WeekendSchedule' mail server property.")),
             qPrintable(messages[0]));
    QCOMPARE(m_store->string(nullptr, "WeekendSchedule"), QStringLiteral("1000U"));
}

QTEST_MAIN(tst_ToDScheduleDlg)
#include "tst_todscheduledlg.moc"
