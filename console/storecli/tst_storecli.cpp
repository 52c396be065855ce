// velbrook-store run as a person runs it: what it prints, its exit code, and what reached the store.
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <velbrook/ServerStore.h>

#include <atomic>
#include <thread>

class tst_StoreCli : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString m_store;

    struct Run {
        int code = -1;
        QString out, err;
    };
    Run run(const QStringList& args)
    {
        QProcess p;
        p.start(QStringLiteral(STORECLI), args);
        p.waitForFinished(60000);
        return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, QString::fromUtf8(p.readAllStandardOutput()),
                QString::fromUtf8(p.readAllStandardError())};
    }
    Run onStore(QStringList args) { return run(QStringList{QStringLiteral("--store"), m_store} + args); }

private slots:
    void init()
    {
        m_store = m_dir.filePath(QStringLiteral("%1.db").arg(QString::fromLatin1(QTest::currentTestFunction())));
        QFile::remove(m_store);
        QCOMPARE(onStore({QStringLiteral("create")}).code, 0);
    }

    // A wrong command line exits 2 before anything is opened, let alone created.
    void wrongCommandLinesOpenNothing_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("says");
        QTest::newRow("no command") << QStringList{} << "no command given";
        QTest::newRow("unknown command") << QStringList{"fly"} << "unknown command: fly";
        QTest::newRow("unknown option") << QStringList{"--frobnicate", "list"} << "Unknown option 'frobnicate'";
        QTest::newRow("number and list") << QStringList{"set", "--number", "--list", "X", "1"} << "contradict";
        QTest::newRow("not a number") << QStringList{"set", "--number", "X", "12x"} << "not a number: 12x";
        QTest::newRow("negative number") << QStringList{"set", "--number", "X", "--", "-1"} << "not a number: -1";
        QTest::newRow("number past 32 bits") << QStringList{"set", "--number", "X", "4294967296"} << "not a number";
        QTest::newRow("all with a section") << QStringList{"list", "--all", "--section", "S"} << "--all belongs";
        QTest::newRow("list option elsewhere") << QStringList{"get", "--list", "X"} << "belong to set";
        QTest::newRow("threshold elsewhere") << QStringList{"list", "--rcpt", "5"} << "belong to traffic-report";
        QTest::newRow("missing argument") << QStringList{"get"} << "wrong number of arguments for get";
        QTest::newRow("extra argument") << QStringList{"set", "X", "a", "b"} << "use --list";
        QTest::newRow("bad threshold") << QStringList{"traffic-report", "f.csv", "--pop-sent", "many"} << "--pop-sent";
    }
    void wrongCommandLinesOpenNothing()
    {
        QFETCH(QStringList, args);
        QFETCH(QString, says);
        const QString fresh = m_dir.filePath(QStringLiteral("never.db"));
        const Run r = run(QStringList{QStringLiteral("--store"), fresh} + args);
        QCOMPARE(r.code, 2);
        QVERIFY2(r.err.contains(says), qPrintable(r.err));
        QVERIFY(!QFile::exists(fresh));
    }

    void exitCodesAndHelp()
    {
        const Run help = run({QStringLiteral("--help")});
        QCOMPARE(help.code, 0);
        QVERIFY(help.out.contains(QStringLiteral("Exit codes:")));
        const Run missing = run({QStringLiteral("--store"), m_dir.filePath(QStringLiteral("none.db")), QStringLiteral("get"),
                                 QStringLiteral("X")});
        QCOMPARE(missing.code, 3);
        QVERIFY(!QFile::exists(m_dir.filePath(QStringLiteral("none.db"))));
        const Run refused = onStore({QStringLiteral("get"), QStringLiteral("NoSuchProperty")});
        QCOMPARE(refused.code, 1);
        QVERIFY2(refused.err.contains(QStringLiteral("error 2")), qPrintable(refused.err));
    }

    // "--" ends the options; a list is one element per argument, subnets with or without a comment.
    void valuesRoundTrip()
    {
        QCOMPARE(onStore({"set", "Banner", "--", "-dash first"}).code, 0);
        QCOMPARE(onStore({"get", "Banner"}).out, QStringLiteral("-dash first\n"));
        QCOMPARE(onStore({"set", "--number", "--section", "Quotas", "Limit", "0x10"}).code, 0);
        QCOMPARE(onStore({"get", "--section", "quotas", "LIMIT"}).out, QStringLiteral("16\n"));
        QCOMPARE(onStore({"set", "--list", "--section", "SMTPRA", "TrustedSubnets", "10.0.0.0/8",
                          "192.168.0.0/16,\"office, east\""})
                     .code,
                 0);
        QCOMPARE(onStore({"get", "--section", "SMTPRA", "TrustedSubnets"}).out,
                 QStringLiteral("10.0.0.0/8\n192.168.0.0/16,\"office, east\"\n"));
    }

    // Every section, the server's own first.
    void listAllShowsEverySection()
    {
        QCOMPARE(onStore({"set", "Own", "1"}).code, 0);
        QCOMPARE(onStore({"set", "--section", "SMTPRA", "Other", "2"}).code, 0);
        QCOMPARE(onStore({"list", "--all"}).out, QStringLiteral("[server]\nOwn = 1\n\n[SMTPRA]\nOther = 2\n"));
    }

    // A value that grows while it is read is printed whole, never cut or refused.
    void getFollowsAGrowingValue()
    {
        const QByteArray path = m_store.toUtf8();
        _tMailServer* s = OpenMailServer(path.constData());
        QVERIFY(s);
        const std::string initial(1000, 'g');
        QVERIFY(SetMailServerProperty(s, nullptr, VB_TYPE_STRING, "Grows", initial.c_str(), 1001));
        std::atomic<bool> stop{false};
        std::thread writer([&] {
            for (size_t n = 1000; !stop; n = n < 400000 ? n * 2 : 1000) {
                const std::string v(n, 'g');
                SetMailServerProperty(s, nullptr, VB_TYPE_STRING, "Grows", v.c_str(), uint32_t(v.size() + 1));
            }
        });
        for (int i = 0; i < 10; ++i) {
            const Run r = onStore({"get", "Grows"});
            QVERIFY2(r.code == 0, qPrintable(r.err));
            const QString value = r.out.trimmed();
            QVERIFY(value.size() >= 1000 && value.count(QLatin1Char('g')) == value.size());
        }
        stop = true;
        writer.join();
        CloseMailServer(s);
    }
};

QTEST_GUILESS_MAIN(tst_StoreCli)
#include "tst_storecli.moc"
