// Opens and closes every exported entry point of the plain form int Name(TaviOwner, _tMailServer*)
// declared in the public header, on a seeded store: each must come up, cancel with 2 and write nothing,
// and F1 must ask for its own help topic.
#include "DialogHarness.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>

class tst_Smoke : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void cleanup()
    {
        QCOMPARE(CTestStore::openHandles(), 0);
        QCOMPARE(Harness::leftoverTopLevels(), QStringList());
    }
    void openAndCancel_data();
    void openAndCancel();
    void untouchedOkKeepsLongTexts_data();
    void untouchedOkKeepsLongTexts();
};

void tst_Smoke::openAndCancel_data()
{
    QFile header(QStringLiteral(TAVI_PUBLIC_HEADER));
    QVERIFY(header.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(header.readAll());
    QTest::addColumn<QString>("entry");
    const QRegularExpression plain(QStringLiteral(R"(TAVIDLG_API int (\w+)\(TaviOwner owner, _tMailServer\* server\);)"));
    int rows = 0;
    for (auto it = plain.globalMatch(text); it.hasNext(); ++rows) {
        const QString name = it.next().captured(1);
        QTest::newRow(qPrintable(name)) << name;
    }
    QVERIFY(rows > 0);
}

void tst_Smoke::openAndCancel()
{
    QFETCH(QString, entry);
    // Help topics of the dialogs whose topic is fixed; the others must at least ask for one.
    static const QMap<QString, unsigned> kHelp{{QStringLiteral("EditDirectories"), 133077u},
                                               {QStringLiteral("EditFileLogConfig"), 133119u},
                                               {QStringLiteral("EditAgents"), 133128u}};
    CTestStore store;
    CScriptedPlatform platform;
    QString title;
    const int result = Harness::runEntry(entry.toLatin1().constData(), 0, store, [&](QDialog* d) {
        title = d->windowTitle();
        Harness::pressKey(d, Qt::Key_F1);
        Harness::pressKey(d, Qt::Key_Escape);
    });
    const auto help = platform.callsOf(QStringLiteral("help"));
    QCOMPARE(help.size(), 1);
    if (kHelp.contains(entry))
        QCOMPARE(help[0].style, kHelp.value(entry));
    QCOMPARE(result, 2);
    QVERIFY(!title.isEmpty());
    QVERIFY2(!title.contains(QLatin1String("%1")), qPrintable(title));
    QCOMPARE(store.calls("SetMailServerProperty"), 0u);
}

// A stored text longer than an edit's usual limit is shown whole and an untouched OK leaves it as it is.
void tst_Smoke::untouchedOkKeepsLongTexts_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QStringList>("properties"); // of the server's own section
    QTest::newRow("directories") << "EditDirectories" << QStringList{"MailSpoolDir"};
    QTest::newRow("agents") << "EditAgents" << QStringList{"IncomingMailCmd", "ArchiveDir"};
    QTest::newRow("file log") << "EditFileLogConfig" << QStringList{"MailLogDir"};
}

void tst_Smoke::untouchedOkKeepsLongTexts()
{
    QFETCH(QString, entry);
    QFETCH(QStringList, properties);
    CTestStore store;
    CScriptedPlatform platform;
    const QString longText = QStringLiteral("/srv/") + QString(40000, QLatin1Char('x'));
    for (const QString& p : properties)
        QVERIFY(store.setString(nullptr, p.toLatin1().constData(), longText));
    store.reopen();
    Harness::runEntry(entry.toLatin1().constData(), 0, store, [&](QDialog* d) { Harness::clickButton(d, "btnOK"); });
    for (const QString& p : properties)
        QCOMPARE(store.string(nullptr, p.toLatin1().constData()).size(), longText.size());
}

QTEST_MAIN(tst_Smoke)
#include "tst_smoke.moc"
