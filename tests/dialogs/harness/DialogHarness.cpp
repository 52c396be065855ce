#include "DialogHarness.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QLibrary>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QTimer>
#include <QWidget>

#include <velbrook/MailToolkit.h>

#if __has_include(<velbrook/DemoConfiguration.h>)
#include <velbrook/DemoConfiguration.h>
#define TAVI_HAVE_DEMO_CONFIGURATION 1
#endif

// ---- scripted platform services -------------------------------------------------------------------

CScriptedPlatform::CScriptedPlatform()
{
    m_previous = setPlatformServices(this);
}

CScriptedPlatform::~CScriptedPlatform()
{
    setPlatformServices(m_previous);
}

void CScriptedPlatform::clear()
{
    m_calls.clear();
    m_messageAnswers.clear();
    m_fileAnswers.clear();
    m_folderAnswers.clear();
    fileRequests.clear();
}

CRecordedCall& CScriptedPlatform::record(const QString& kind)
{
    CRecordedCall call;
    call.kind = kind;
    call.focus = Harness::focusName();
    m_calls.append(call);
    return m_calls.last();
}

QList<CRecordedCall> CScriptedPlatform::callsOf(const QString& kind) const
{
    QList<CRecordedCall> out;
    for (const CRecordedCall& c : m_calls) {
        if (c.kind == kind)
            out.append(c);
    }
    return out;
}

QStringList CScriptedPlatform::messages() const
{
    QStringList out;
    for (const CRecordedCall& c : callsOf(QStringLiteral("messageBox")))
        out.append(c.text);
    return out;
}

int CScriptedPlatform::messageBox(QWidget*, const QString& text, const QString& caption, unsigned style)
{
    CRecordedCall& call = record(QStringLiteral("messageBox"));
    call.text = text;
    call.caption = caption;
    call.style = style;
    if (!m_messageAnswers.isEmpty()) {
        call.result = m_messageAnswers.takeFirst();
    } else if ((style & Mb::ButtonMask) == Mb::Ok) {
        call.result = Id::Ok; // nothing to decide
    } else {
        QTest::qFail(qPrintable(QStringLiteral("unscripted question: ") + text), __FILE__, __LINE__);
        call.result = Id::Cancel;
    }
    return call.result;
}

void CScriptedPlatform::beep(unsigned frequency, unsigned durationMs)
{
    CRecordedCall& call = record(QStringLiteral("beep"));
    call.style = frequency;
    call.result = int(durationMs);
}

bool CScriptedPlatform::fileDialog(QWidget*, CFileDialogRequest& request)
{
    CRecordedCall& call = record(QStringLiteral("fileDialog"));
    call.text = request.title;
    call.style = request.flags;
    fileRequests.append(request);
    if (m_fileAnswers.isEmpty()) {
        QTest::qFail("unscripted file dialog", __FILE__, __LINE__);
        return false;
    }
    const std::optional<QString> answer = m_fileAnswers.takeFirst();
    call.result = answer.has_value();
    if (answer)
        request.fileName = *answer;
    return answer.has_value();
}

bool CScriptedPlatform::pickFolder(QWidget*, const QString& title, QString& folder)
{
    CRecordedCall& call = record(QStringLiteral("pickFolder"));
    call.text = title;
    call.caption = folder;
    if (m_folderAnswers.isEmpty()) {
        QTest::qFail("unscripted folder picker", __FILE__, __LINE__);
        return false;
    }
    const std::optional<QString> answer = m_folderAnswers.takeFirst();
    call.result = answer.has_value();
    if (answer)
        folder = *answer;
    return answer.has_value();
}

void CScriptedPlatform::showHelp(QWidget*, unsigned context)
{
    record(QStringLiteral("help")).style = context;
}

DriveType CScriptedPlatform::driveType(const QString& root)
{
    CRecordedCall& call = record(QStringLiteral("driveType"));
    call.text = root;
    const DriveType type = m_driveTypes.value(root, DriveType::Fixed);
    call.result = int(type);
    return type;
}

std::optional<quint32> CScriptedPlatform::reminderValue(const QString& key)
{
    record(QStringLiteral("reminderValue")).text = key;
    if (!m_remindersAvailable || !m_reminders.contains(key))
        return std::nullopt;
    return m_reminders.value(key);
}

bool CScriptedPlatform::setReminderValue(const QString& key, quint32 value)
{
    CRecordedCall& call = record(QStringLiteral("setReminderValue"));
    call.text = key;
    call.style = value;
    if (!m_remindersAvailable)
        return false;
    m_reminders[key] = value;
    return true;
}

void CScriptedPlatform::setWaitCursor(bool on)
{
    m_waitDepth += on ? 1 : -1;
    CRecordedCall& call = record(QStringLiteral("waitCursor"));
    call.style = on;
    call.result = m_waitDepth;
}

void CScriptedPlatform::sleep(unsigned ms)
{
    record(QStringLiteral("sleep")).style = ms;
}

QDateTime CScriptedPlatform::currentTime()
{
    return now;
}

namespace {
class CScriptedProgress : public CProgressReporter {
public:
    CScriptedProgress(CScriptedPlatform* owner, std::function<bool(qint64, qint64)> answer)
        : m_owner(owner), m_answer(std::move(answer))
    {
    }
    bool setProgress(qint64 done, qint64 total) override { return m_answer ? m_answer(done, total) : true; }

private:
    CScriptedPlatform* m_owner;
    std::function<bool(qint64, qint64)> m_answer;
};
} // namespace

std::unique_ptr<CProgressReporter> CScriptedPlatform::beginProgress(QWidget*, const QString& label)
{
    record(QStringLiteral("progress")).text = label;
    return std::make_unique<CScriptedProgress>(this, m_progressAnswer);
}

// ---- temporary store ------------------------------------------------------------------------------

namespace {
int g_openHandles = 0;
}

int CTestStore::openHandles()
{
    return g_openHandles;
}

#ifdef TAVI_HAVE_DEMO_CONFIGURATION
namespace {

// A store seeded with the demo configuration, made on first use and kept for the program's lifetime.
QString seededTemplate()
{
    static QTemporaryDir dir;
    static const QString path = [] {
        const QString file = dir.filePath(QStringLiteral("seeded.db"));
        _tMailServer* server = OpenMailServer(file.toUtf8().constData());
        const bool seeded = server && VbSeedDemoConfiguration(server);
        if (server)
            CloseMailServer(server);
        return seeded ? file : QString();
    }();
    return path;
}

} // namespace
#endif

CTestStore::CTestStore(bool seed)
{
    m_path = m_dir.filePath(QStringLiteral("config.db"));
#ifdef TAVI_HAVE_DEMO_CONFIGURATION
    // The demo configuration holds a list of 100 000 members: it is seeded once per test program and
    // each test starts from a copy of it.
    if (seed && !QFile::copy(seededTemplate(), m_path))
        QTest::qFail("could not copy the seeded store", __FILE__, __LINE__);
#else
    Q_UNUSED(seed);
#endif
    m_server = OpenMailServer(m_path.toUtf8().constData());
    if (!m_server) {
        QTest::qFail("could not open a temporary store", __FILE__, __LINE__);
        return;
    }
    ++g_openHandles;
    // Installs the store's counting layer now, so that VbCallCount sees every call from here on.
    VbClearFaults(m_server);
}

CTestStore::~CTestStore()
{
    if (m_server) {
        CloseMailServer(m_server);
        --g_openHandles;
    }
}

void CTestStore::reopen()
{
    if (m_server) {
        CloseMailServer(m_server);
        --g_openHandles;
    }
    m_server = OpenMailServer(m_path.toUtf8().constData());
    if (m_server) {
        ++g_openHandles;
        VbClearFaults(m_server);
    }
}

QString CTestStore::string(const char* section, const char* name) const
{
    uint32_t size = 0;
    GetMailServerProperty(m_server, section, name, nullptr, &size, nullptr);
    QByteArray buffer(qsizetype(size) + 1, '\0');
    size = uint32_t(buffer.size());
    if (!GetMailServerProperty(m_server, section, name, buffer.data(), &size, nullptr))
        return QString();
    return QString::fromUtf8(buffer.constData());
}

std::optional<quint32> CTestStore::number(const char* section, const char* name) const
{
    uint32_t value = 0;
    uint32_t size = sizeof value;
    if (!GetMailServerProperty(m_server, section, name, &value, &size, nullptr))
        return std::nullopt;
    return value;
}

bool CTestStore::setString(const char* section, const char* name, const QString& value)
{
    const QByteArray utf8 = value.toUtf8();
    return SetMailServerProperty(m_server, section, VB_TYPE_STRING, name, utf8.constData(), uint32_t(utf8.size() + 1));
}

bool CTestStore::setNumber(const char* section, const char* name, quint32 value)
{
    return SetMailServerProperty(m_server, section, VB_TYPE_DWORD, name, &value, sizeof value);
}

// ---- driving dialogs ------------------------------------------------------------------------------

namespace Harness {

QString focusName()
{
    QWidget* focus = QApplication::focusWidget();
    if (!focus) {
        if (QWidget* modal = QApplication::activeModalWidget())
            focus = modal->focusWidget();
    }
    return focus ? focus->objectName() : QString();
}

void typeInto(QWidget* edit, const QString& text)
{
    if (!edit)
        return;
    edit->setFocus();
    if (auto* line = qobject_cast<QLineEdit*>(edit))
        line->clear();
    else if (auto* plain = qobject_cast<QPlainTextEdit*>(edit))
        plain->clear();
    else if (auto* rich = qobject_cast<QTextEdit*>(edit))
        rich->clear();
    // QTest types ASCII only; other characters arrive as key events carrying their text, as an input
    // method delivers them.
    for (const QChar c : text) {
        if (c.unicode() < 128) {
            QTest::keyClick(edit, c.toLatin1());
        } else {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QCoreApplication::sendEvent(edit, &press);
        }
    }
}

void click(QWidget* button)
{
    if (auto* b = qobject_cast<QAbstractButton*>(button))
        b->click();
    else if (button)
        QTest::mouseClick(button, Qt::LeftButton);
}

void pressEnter(QWidget* widget)
{
    QTest::keyClick(widget, Qt::Key_Return);
}

void pressKey(QWidget* widget, Qt::Key key)
{
    QTest::keyClick(widget, key);
}

void* resolveEntry(const char* name)
{
    static QLibrary library(QStringLiteral(TAVI_LIBRARY_PATH));
    if (!library.isLoaded() && !library.load()) {
        QTest::qFail(qPrintable(library.errorString()), __FILE__, __LINE__);
        return nullptr;
    }
    return reinterpret_cast<void*>(library.resolve(name));
}

int driveModal(const std::function<int()>& call, const std::function<void(QDialog*)>& driver, int timeoutMs)
{
    bool driven = false;
    QElapsedTimer clock;
    clock.start();
    // Polls until the entry point's dialog is the active modal widget, drives it once, and rejects a
    // dialog that outstays the time limit so that a broken test cannot hang.
    auto* poll = new QTimer;
    poll->setInterval(5);
    QObject::connect(poll, &QTimer::timeout, poll, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog && !driven) {
            driven = true;
            // Keys go to the focus widget, which an inactive window does not have yet on a busy machine.
            if (!QTest::qWaitForWindowActive(dialog))
                QTest::qFail("the dialog never became the active window", __FILE__, __LINE__);
            driver(dialog);
        } else if (dialog && clock.elapsed() > timeoutMs) {
            QTest::qFail("the dialog was still open after the driver ran", __FILE__, __LINE__);
            dialog->reject();
        }
    });
    poll->start();
    const int result = call();
    delete poll;
    if (!driven)
        QTest::qFail("the entry point returned before a dialog could be driven", __FILE__, __LINE__);
    return result;
}

int runEntry(const char* name, TaviOwner owner, _tMailServer* server, const std::function<void(QDialog*)>& driver)
{
    using Entry = int (*)(TaviOwner, _tMailServer*);
    auto entry = reinterpret_cast<Entry>(resolveEntry(name));
    if (!entry) {
        QTest::qFail(qPrintable(QStringLiteral("entry point %1 is not exported").arg(QLatin1String(name))),
                     __FILE__, __LINE__);
        return -100;
    }
    return driveModal([&] { return entry(owner, server); }, driver);
}

QStringList leftoverTopLevels()
{
    QStringList out;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        // Qt's own helpers (tool tips, the input method) are not ours.
        if (w->objectName().startsWith(QLatin1String("qt_")) || w->inherits("QTipLabel"))
            continue;
        out.append(QStringLiteral("%1 '%2'").arg(QLatin1String(w->metaObject()->className()), w->objectName()));
    }
    return out;
}

void clickButton(QWidget* root, const char* name)
{
    click(control<QAbstractButton>(root, name));
}

bool makeClustered(_tMailServer* server)
{
    _tConfigConnectorInfo info = {};
    info.cbSize = sizeof info;
    info.connectorType = 1;
    info.clustered = 1;
    return VbOverrideConnectorInfo(server, &info);
}

} // namespace Harness

// ---- the common fixture ---------------------------------------------------------------------------

void CDialogTest::init()
{
    m_platform = std::make_unique<CScriptedPlatform>();
    m_dir = std::make_unique<QTemporaryDir>();
    if (!m_withStore)
        return;
    m_store = std::make_unique<CTestStore>();
    QVERIFY(m_store->isOpen());
    seed();
    m_store->reopen(); // fresh call counters
}

void CDialogTest::cleanup()
{
    const int unused = m_platform ? m_platform->unusedAnswers() : 0;
    const int waitDepth = m_platform ? m_platform->waitCursorDepth() : 0;
    m_platform.reset();
    m_store.reset();
    m_dir.reset();
    QCOMPARE(unused, 0);
    QCOMPARE(waitDepth, 0);
    QCOMPARE(CTestStore::openHandles(), 0);
    QCOMPARE(Harness::leftoverTopLevels(), QStringList());
}
