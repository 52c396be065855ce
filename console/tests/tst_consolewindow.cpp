// The console window over real stores in temporary folders, with the dialog library loaded the way the
// console loads it. Dialogs close themselves at once (TAVI_AUTOCLOSE=cancel in the test's environment).
#include "ConsoleWindow.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include <velbrook/ServerStore.h>

#include <memory>

class TestConsoleWindow : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    std::unique_ptr<ConsoleWindow> m_window;

    QString storePath(const char* name) const { return m_dir.filePath(QString::fromLatin1(name)); }
    QTreeWidget* list() const { return m_window->findChild<QTreeWidget*>(QStringLiteral("lstDialogs")); }
    QString label(const char* name) const
    {
        auto* l = m_window->findChild<QLabel*>(QString::fromLatin1(name));
        return l ? l->text() : QStringLiteral("<missing %1>").arg(QString::fromLatin1(name));
    }
    // Opens a new store with the given builtin services, each completing a start or stop at once.
    void openWithServices(const char* file, const QList<QPair<QByteArray, uint32_t>>& services)
    {
        m_window = std::make_unique<ConsoleWindow>();
        QVERIFY2(m_window->openStore(storePath(file)), qPrintable(m_window->errorString()));
        for (const auto& [name, state] : services) {
            QVERIFY(VbRegisterMailService(m_window->server(), name.constData(), (name + " Display").constData(),
                                          "builtin", nullptr, state));
            const uint32_t zero = 0;
            QVERIFY(SetMailServerProperty(m_window->server(), name.constData(), VB_TYPE_DWORD, "PendingMilliseconds",
                                          &zero, sizeof zero));
        }
        QVERIFY2(m_window->loadLibrary(), qPrintable(m_window->errorString()));
    }
    QTreeWidgetItem* findItem(const QString& text) const
    {
        const QList<QTreeWidgetItem*> found = list()->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        return found.size() == 1 ? found.first() : nullptr;
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }
    void cleanup()
    {
        m_window.reset();
        // Every dialog the console opened has gone with its call.
        QCOMPARE(QApplication::topLevelWidgets().size(), 0);
    }

    // A row added out of its group's place would show the group twice; a duplicated entry point twice.
    void tableRowsAreUniqueAndGrouped()
    {
        QSet<QByteArray> entries, closedGroups;
        QByteArray group;
        for (const DialogRow& row : dialogTable()) {
            QVERIFY2(!entries.contains(row.entryPoint), row.entryPoint);
            entries.insert(row.entryPoint);
            if (group != row.group) {
                QVERIFY2(!closedGroups.contains(row.group), row.group);
                closedGroups.insert(group);
                group = row.group;
            }
            QVERIFY(row.title && *row.title);
        }
    }

    // An entry point added to the public header without a console row would never be offered.
    void everyDeclaredEntryPointHasARow()
    {
        QFile header(QStringLiteral(TAVI_PUBLIC_HEADER));
        QVERIFY(header.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(header.readAll());
        QRegularExpression declared(QStringLiteral("TAVIDLG_API\\s+int\\s+(\\w+)\\s*\\("));
        int seen = 0;
        for (auto it = declared.globalMatch(text); it.hasNext();) {
            const QString name = it.next().captured(1);
            // The reminder box is a helper for hosts, not a dialog over the configuration.
            if (name == QLatin1String("ShowReminder"))
                continue;
            ++seen;
            bool found = false;
            for (const DialogRow& row : dialogTable())
                found = found || name == QLatin1String(row.entryPoint);
            QVERIFY2(found, qPrintable(name));
        }
        QVERIFY(seen > 0);
    }

    void showsTheServer()
    {
        openWithServices("server.db", {});
        _tMailServer* server = m_window->server();
        // A name with quotes and non-ASCII letters, recorded for a server managed from elsewhere.
        const QByteArray name = QStringLiteral("mx-\u00e6\u00f8 \"front\"").toUtf8();
        QVERIFY(SetMailServerProperty(server, "Machine", VB_TYPE_STRING, "MachineName", name.constData(),
                                      uint32_t(name.size() + 1)));
        QVERIFY(m_window->openStore(storePath("server.db")));
        QCOMPARE(m_window->windowTitle(), QString::fromUtf8(name) + QStringLiteral(" - Velbrook Administration Console"));
        QCOMPARE(label("lblServerName"), QString::fromUtf8(name) + QStringLiteral(" (on another machine)"));
        QCOMPARE(label("lblLocation"), storePath("server.db"));
        QVERIFY2(label("lblConnector").startsWith(QStringLiteral("Embedded (SQLite)")), qPrintable(label("lblConnector")));
    }

    // A name longer than the first buffer is read whole, not dropped.
    void showsALongServerName()
    {
        openWithServices("longname.db", {});
        const QByteArray name(600, 'n');
        QVERIFY(SetMailServerProperty(m_window->server(), "Machine", VB_TYPE_STRING, "MachineName", name.constData(),
                                      uint32_t(name.size() + 1)));
        QVERIFY(m_window->openStore(storePath("longname.db")));
        QVERIFY(label("lblServerName").startsWith(QString::fromLatin1(name)));
    }

    void servicesShowTheirState_data()
    {
        QTest::addColumn<uint>("state");
        QTest::addColumn<QString>("shown");
        QTest::newRow("stopped") << uint(VB_SERVICE_STOPPED) << QStringLiteral("Stopped");
        QTest::newRow("running") << uint(VB_SERVICE_RUNNING) << QStringLiteral("Running");
        QTest::newRow("paused") << uint(VB_SERVICE_PAUSED) << QStringLiteral("Paused");
    }
    void servicesShowTheirState()
    {
        QFETCH(uint, state);
        QFETCH(QString, shown);
        const QByteArray file = QByteArray("state-") + QTest::currentDataTag() + ".db";
        openWithServices(file.constData(), {{"SMTPRA", VB_SERVICE_RUNNING}, {"POP3S", state}});
        QTreeWidgetItem* pop = findItem(QStringLiteral("POP3S Display service"));
        QVERIFY(pop);
        QCOMPARE(pop->text(1), shown);
        QCOMPARE(pop->parent()->text(0), QStringLiteral("Services"));
        QVERIFY(findItem(QStringLiteral("SMTPRA Display service")));
    }

    // The state column follows what the control dialog did, however the dialog was opened.
    void openingRefreshesTheState_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("Enter") << QStringLiteral("enter");
        QTest::newRow("double-click") << QStringLiteral("double-click");
        QTest::newRow("Open button") << QStringLiteral("button");
    }
    void openingRefreshesTheState()
    {
        QFETCH(QString, how);
        const QByteArray file = "open-" + how.toLatin1() + ".db";
        openWithServices(file.constData(), {{"SMTPRA", VB_SERVICE_RUNNING}});
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QTreeWidgetItem* item = findItem(QStringLiteral("SMTPRA Display service"));
        QVERIFY(item);
        QCOMPARE(item->text(1), QStringLiteral("Running"));
        // What a person's Stop in the dialog does; the list learns of it only when the dialog closes.
        QVERIFY(StopMailService(m_window->server(), "SMTPRA"));
        QCOMPARE(item->text(1), QStringLiteral("Running"));
        list()->setCurrentItem(item);
        list()->setFocus();
        if (how == QLatin1String("enter")) {
            QTest::keyClick(list(), Qt::Key_Return);
        } else if (how == QLatin1String("double-click")) {
            const QPoint at = list()->visualItemRect(item).center();
            // A view opens on a double-click only where the press of that click landed.
            QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, at);
            QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, at);
        } else {
            auto* open = m_window->findChild<QPushButton*>(QStringLiteral("btnOpen"));
            QVERIFY(open && open->isEnabled());
            open->click();
        }
        QCOMPARE(label("lblStatus"), QStringLiteral("SMTPRA Display service: cancelled"));
        QCOMPARE(item->text(1), QStringLiteral("Stopped"));
    }

    // Each service has its properties under it, opened for that service; they show no state.
    void eachServiceHasItsProperties()
    {
        openWithServices("props.db", {{"SMTPRA", VB_SERVICE_RUNNING}, {"POP3S", VB_SERVICE_STOPPED}});
        QTreeWidgetItem* pop = findItem(QStringLiteral("POP3S Display service"));
        QVERIFY(pop);
        QCOMPARE(pop->childCount(), 1);
        QTreeWidgetItem* properties = pop->child(0);
        QCOMPARE(properties->text(0), QStringLiteral("Properties..."));
        QCOMPARE(properties->toolTip(0), QStringLiteral("EditService (POP3S)"));
        QCOMPARE(properties->text(1), QString());
        emit list()->itemActivated(properties, 0);
        QCOMPARE(label("lblStatus"), QStringLiteral("POP3S Display service properties: cancelled"));
        QCOMPARE(properties->text(1), QString());
    }

    // A group heading opens nothing; Enter folds it.
    void groupHeadingFolds()
    {
        openWithServices("group.db", {});
        QTreeWidgetItem* group = findItem(QStringLiteral("Server settings"));
        QVERIFY(group && group->isExpanded());
        const QString before = label("lblStatus");
        emit list()->itemActivated(group, 0);
        QVERIFY(!group->isExpanded());
        QCOMPARE(label("lblStatus"), before);
    }

    void badStoreKeepsTheCurrentOne_data()
    {
        QTest::addColumn<QString>("location");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("not a store") << QStringLiteral("garbage.db") << QByteArray(4096, '\xff');
        QTest::newRow("missing folder") << QStringLiteral("no/such/folder/config.db") << QByteArray();
    }
    void badStoreKeepsTheCurrentOne()
    {
        QFETCH(QString, location);
        QFETCH(QByteArray, content);
        const QString path = m_dir.filePath(location);
        if (!content.isEmpty()) {
            QFile f(path);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(content);
        }
        openWithServices("kept.db", {{"SMTPRA", VB_SERVICE_RUNNING}});
        _tMailServer* before = m_window->server();
        QVERIFY(!m_window->openStore(path));
        QVERIFY2(m_window->errorString().contains(path), qPrintable(m_window->errorString()));
        QVERIFY(m_window->errorString().contains(QStringLiteral("could not be opened")));
        QCOMPARE(m_window->server(), before);
        QCOMPARE(label("lblLocation"), storePath("kept.db"));
        QVERIFY(findItem(QStringLiteral("SMTPRA Display service")));
    }

    void anotherStoreReplacesTheList()
    {
        openWithServices("first.db", {{"SMTPRA", VB_SERVICE_RUNNING}});
        QVERIFY(findItem(QStringLiteral("SMTPRA Display service")));
        QVERIFY(m_window->openStore(storePath("second.db")));
        QCOMPARE(label("lblLocation"), storePath("second.db"));
        QVERIFY(!findItem(QStringLiteral("SMTPRA Display service")));
        QVERIFY(findItem(QStringLiteral("Mail directory locations")));
    }

    // Only a store just created gets the demonstration configuration, never one with settings of its own.
    void seedsOnlyANewStore_data()
    {
        QTest::addColumn<bool>("existing");
        QTest::addColumn<bool>("seeded");
        QTest::newRow("new store") << false << true;
        QTest::newRow("store with a setting") << true << false;
    }
    void seedsOnlyANewStore()
    {
        QFETCH(bool, existing);
        QFETCH(bool, seeded);
        const QString path = storePath(existing ? "seed-existing.db" : "seed-new.db");
        if (existing) {
            _tMailServer* s = OpenMailServer(path.toUtf8().constData());
            QVERIFY(s);
            const uint32_t one = 1;
            QVERIFY(SetMailServerProperty(s, nullptr, VB_TYPE_DWORD, "RegistryFormatVersion", &one, sizeof one));
            CloseMailServer(s);
        }
        m_window = std::make_unique<ConsoleWindow>();
        QVERIFY(m_window->openStore(path, true));
        char services[4096] = {};
        uint32_t size = sizeof services;
        QVERIFY(GetMailServiceList(m_window->server(), services, &size));
        QCOMPARE(services[0] != '\0', seeded);
    }

    void missingLibraryIsShownNotFatal()
    {
        m_window = std::make_unique<ConsoleWindow>();
        QVERIFY(m_window->openStore(storePath("nolib.db")));
        QVERIFY(!m_window->loadLibrary(m_dir.filePath(QStringLiteral("libNoSuchTaviDlg.so"))));
        QVERIFY(m_window->errorString().startsWith(QStringLiteral("The dialog library could not be loaded.")));
        QCOMPARE(list()->topLevelItemCount(), 0);
        QVERIFY(label("lblStatus").startsWith(QStringLiteral("The dialog library could not be loaded.")));
        QVERIFY(!m_window->findChild<QPushButton*>(QStringLiteral("btnOpen"))->isEnabled());
        QCOMPARE(m_window->openDialog(dialogTable().front()), -100);
        // The library found later fills the list.
        QVERIFY2(m_window->loadLibrary(), qPrintable(m_window->errorString()));
        QVERIFY(list()->topLevelItemCount() > 0);
    }
};

QTEST_MAIN(TestConsoleWindow)
#include "tst_consolewindow.moc"
