// The entry frame: owners, results, the environment hooks, and the platform pieces it relies on.
#include "DialogHarness.h"

#include "common/QtPlatformServices.h"
#include "entry/EntryFrame.h"

#include <QImage>
#include <QMainWindow>
#include <QScopeGuard>

#include <stdexcept>

namespace {

class ThrowingDialog : public QDialog {
public:
    ThrowingDialog(QWidget* parent, _tMailServer*) : QDialog(parent) { throw std::runtime_error("no template"); }
};

class PlainDialog : public QDialog {
public:
    PlainDialog(QWidget* parent, _tMailServer*) : QDialog(parent) { setObjectName(QStringLiteral("PlainDialog")); }
};

} // namespace

class tst_EntryFrame : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void resultOfNullOwner_data();
    void resultOfNullOwner();
    void qtHostWindowBecomesParent();
    void unknownForeignOwnerStillRuns();
    void constructionFailureIsMinusOne();
    void autoCloseCancels();
    void screenshotRendersWithoutModalLoop();
    void driveTypeFromMountInfo_data();
    void driveTypeFromMountInfo();
};

// With no owner the dialog has no parent, and OK, Cancel and the close box answer 1, 2 and 2.
void tst_EntryFrame::resultOfNullOwner_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("expected");
    QTest::addRow("OK with a change") << QStringLiteral("btnOK") << 1;
    QTest::addRow("Cancel") << QStringLiteral("btnCancel") << 2;
    QTest::addRow("close box") << QString() << 2;
}

void tst_EntryFrame::resultOfNullOwner()
{
    QFETCH(QString, button);
    QFETCH(int, expected);
    QWidget* parent = reinterpret_cast<QWidget*>(1);
    const int result = Harness::runEntry("EditDirectories", 0, *m_store, [&](QDialog* d) {
        parent = d->parentWidget();
        if (button.isEmpty()) {
            d->close();
        } else {
            Harness::clickButton(d, "chkKeepDead");
            Harness::clickButton(d, button.toLatin1().constData());
        }
    });
    QCOMPARE(parent, nullptr);
    QCOMPARE(result, expected);
}

void tst_EntryFrame::qtHostWindowBecomesParent()
{
    QMainWindow host;
    host.setObjectName(QStringLiteral("host"));
    host.show();
    QWidget* parent = nullptr;
    const int result = Harness::runEntry("EditDirectories", TaviOwner(host.winId()), *m_store, [&](QDialog* d) {
        parent = d->parentWidget();
        d->reject();
    });
    QCOMPARE(result, 2);
    QCOMPARE(parent, &host);
    host.close();
}

void tst_EntryFrame::unknownForeignOwnerStillRuns()
{
    // An id no Qt widget has: a foreign window (or none on this platform); the dialog still runs.
    const int result = Harness::runEntry("EditDirectories", TaviOwner(0x7ffff123), *m_store,
                                         [](QDialog* d) { d->reject(); });
    QCOMPARE(result, 2);
}

void tst_EntryFrame::constructionFailureIsMinusOne()
{
    QCOMPARE(runDialog<ThrowingDialog>(0, m_store->server()), -1);
}

// TAVI_RUN_CANCEL closes at once as a Cancel, through an entry point too, writing nothing; the
// environment does not change how a dialog runs.
void tst_EntryFrame::autoCloseCancels()
{
    QVERIFY(TaviSetRunMode(TAVI_RUN_CANCEL, nullptr));
    const auto unset = qScopeGuard([] { TaviSetRunMode(TAVI_RUN_INTERACTIVE, nullptr); });
    QVERIFY(!TaviSetRunMode(7, nullptr));
    QVERIFY2(!TaviSetRunMode(TAVI_RUN_SCREENSHOT, ""), "a screenshot needs a file");
    QCOMPARE(runDialog<PlainDialog>(0, m_store->server()), 2);
    using Entry = int (*)(TaviOwner, _tMailServer*);
    auto entry = reinterpret_cast<Entry>(Harness::resolveEntry("EditDirectories"));
    QVERIFY(entry);
    QCOMPARE(entry(0, *m_store), 2);
    QCOMPARE(m_store->calls("SetMailServerProperty"), 0u);
}

void tst_EntryFrame::screenshotRendersWithoutModalLoop()
{
    const QString file = m_dir->filePath(QStringLiteral("EditDirectories.png"));
    QVERIFY(TaviSetRunMode(TAVI_RUN_SCREENSHOT, file.toUtf8().constData()));
    const auto unset = qScopeGuard([] { TaviSetRunMode(TAVI_RUN_INTERACTIVE, nullptr); });
    using Entry = int (*)(TaviOwner, _tMailServer*);
    auto entry = reinterpret_cast<Entry>(Harness::resolveEntry("EditDirectories"));
    QVERIFY(entry);
    QCOMPARE(entry(0, *m_store), 2);
    QImage image(file);
    QVERIFY(!image.isNull());
    QVERIFY(image.width() > 300 && image.height() > 80);
    // Not a blank picture: the dialog's widgets were painted.
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 3)
        for (int x = 0; x < image.width(); x += 3)
            colours.insert(image.pixel(x, y));
    QVERIFY(colours.size() > 3);
}

// Network file systems count as remote for the path below them, judged by the last, longest mount that
// really is a parent; escaped blanks, "..", garbage lines and drive letters are handled.
void tst_EntryFrame::driveTypeFromMountInfo_data()
{
    const QByteArray info =
        "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
        "40 22 0:50 / /mnt/filer rw,relatime shared:20 - nfs4 filer:/export rw,vers=4.2\n"
        "41 22 0:51 / /mnt/win rw - cifs //win/share rw\n"
        "42 41 8:2 / /mnt/win/local rw - ext4 /dev/sdb1 rw\n"
        "43 22 0:52 / /home/me/remote\\040box rw - fuse.sshfs me@box: rw\n"
        "44 22 0:53 / /mnt/filer2 rw - ext4 /dev/sdc1 rw\n"
        "garbage line without the separator\n"
        "45 22 0:54 / /srv rw - nfs filer:/srv rw\n"
        "46 22 8:4 / /srv rw - xfs /dev/sdd1 rw\n";
    QTest::addColumn<QByteArray>("info");
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("expected");
    const int remote = int(DriveType::Remote), fixed = int(DriveType::Fixed);
    QTest::addRow("root") << info << QStringLiteral("/var/spool") << fixed;
    QTest::addRow("nfs mount point") << info << QStringLiteral("/mnt/filer") << remote;
    QTest::addRow("below nfs") << info << QStringLiteral("/mnt/filer/spool/in") << remote;
    QTest::addRow("prefix is not a parent") << info << QStringLiteral("/mnt/filer2/spool") << fixed;
    QTest::addRow("local mount inside cifs") << info << QStringLiteral("/mnt/win/local/x") << fixed;
    QTest::addRow("cifs") << info << QStringLiteral("/mnt/win/other") << remote;
    QTest::addRow("escaped blank, sshfs") << info << QStringLiteral("/home/me/remote box/spool") << remote;
    QTest::addRow("later mount hides earlier") << info << QStringLiteral("/srv/mail") << fixed;
    QTest::addRow("dot-dot cleaned") << info << QStringLiteral("/mnt/filer/../win/x") << remote;
    QTest::addRow("drive letter") << info << QStringLiteral("Z:\\") << fixed;
    QTest::addRow("empty info") << QByteArray() << QStringLiteral("/mnt/filer") << fixed;
}

void tst_EntryFrame::driveTypeFromMountInfo()
{
    QFETCH(QByteArray, info);
    QFETCH(QString, path);
    QFETCH(int, expected);
    QCOMPARE(int(::driveTypeFromMountInfo(info, path)), expected);
}


QTEST_MAIN(tst_EntryFrame)
#include "tst_entryframe.moc"
