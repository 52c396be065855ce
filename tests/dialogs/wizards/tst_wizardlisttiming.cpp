// A wizard list page holding 100 000 entries: entering it (read, split, fill the list) and leaving it
// with Finish (join, write) are timed against the bare work in the same run: reading the property,
// splitting and joining the text with QString and writing it back. Prints both ratios; fails when
// either grows beyond a linear page's reach.
#include "DialogHarness.h"

#include "config/AccessLayer.h"

#include <QAbstractItemView>
#include <QElapsedTimer>
#include <QWizard>

class tst_WizardListTiming : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void hundredThousandEntries();
};

void tst_WizardListTiming::hundredThousandEntries()
{
    constexpr int kEntries = 100000;
    QStringList entries;
    entries.reserve(kEntries);
    for (int i = 0; i < kEntries; ++i)
        entries << QStringLiteral("sender%1@bulk%2.example").arg(i).arg(i % 97);
    const QString stored = entries.join(QLatin1String(", "));
    QVERIFY(m_store->setString(nullptr, "RejectAllMailFromAddresses", stored));

    // The bare work, best of three.
    qint64 baseline = std::numeric_limits<qint64>::max();
    for (int round = 0; round < 3; ++round) {
        QElapsedTimer timer;
        timer.start();
        QString text;
        QVERIFY(ReadServerString(*m_store, nullptr, "RejectAllMailFromAddresses", text, 128));
        const QStringList split = text.split(QStringLiteral(", "));
        QVERIFY(WriteServerString(*m_store, nullptr, "RejectAllMailFromAddresses", split.join(QLatin1String(", ")) + QLatin1Char(' ')));
        QVERIFY(WriteServerString(*m_store, nullptr, "RejectAllMailFromAddresses", stored));
        baseline = std::min(baseline, timer.nsecsElapsed() / 2);
    }

    qint64 load = 0, save = 0;
    int rows = 0;
    QElapsedTimer saveTimer;
    const int result = Harness::runEntry("AntiSpamWizard", 0, *m_store, [&](QDialog* d) {
        auto* wizard = qobject_cast<QWizard*>(d);
        while (wizard->currentId() < 7) { // to page 8, keeping the stored private list on page 7
            if (wizard->currentId() == 6)
                Harness::clickButton(d, "radKeepBlacklist");
            Harness::clickButton(d, "btnNext");
        }
        QElapsedTimer timer;
        timer.start();
        Harness::clickButton(d, "btnNext");
        QCoreApplication::processEvents();
        load = timer.nsecsElapsed();
        QAbstractItemModel* model = wizard->currentPage()->findChild<QAbstractItemView*>()->model();
        rows = model->rowCount();
        // A changed first entry, so that Finish has the list to write.
        model->setData(model->index(0, 0), QStringLiteral("first@bulk.example"));
        saveTimer.start();
        while (wizard->currentId() < 11)
            Harness::clickButton(d, "btnNext");
        Harness::clickButton(d, "btnFinish");
        save = saveTimer.nsecsElapsed();
    });
    QCOMPARE(result, 1);
    QCOMPARE(rows, kEntries);
    QVERIFY(m_store->string(nullptr, "RejectAllMailFromAddresses").startsWith(QLatin1String("first@bulk.example, sender1@")));
    const double loadRatio = double(load) / double(baseline);
    const double saveRatio = double(save) / double(baseline);
    qInfo("100 000 entries: entering the page takes %.1f times the bare read, split, join and write; "
          "leaving it and Finish %.1f times", loadRatio, saveRatio);
    // Linear work stays within a small multiple of the bare work; a quadratic step would be thousands.
    QVERIFY2(loadRatio < 60 && saveRatio < 60, qPrintable(QStringLiteral("%1 %2").arg(loadRatio).arg(saveRatio)));
}

QTEST_MAIN(tst_WizardListTiming)
#include "tst_wizardlisttiming.moc"
