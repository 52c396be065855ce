// The dialog test harness: a temporary seeded store per test, the scripted platform services, and
// helpers that drive modal dialogs the way an administrator would.
#pragma once

#include "common/PlatformServices.h"

#include <QDialog>
#include <QList>
#include <QMap>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>
#include <optional>

#include <velbrook/ServerStore.h>
#include <velbrook/StoreTesting.h>

#include "TaviDlg.h"

// One call the dialog made to the platform services.
struct CRecordedCall {
    QString kind;       // "messageBox", "beep", "fileDialog", "pickFolder", "help", "driveType",
                        // "reminderValue", "setReminderValue", "waitCursor", "sleep", "progress"
    QString text;       // message text, folder picker title, drive root, reminder key
    QString caption;    // message caption, the folder picker's initial folder
    unsigned style = 0; // message style, help context, beep frequency, sleep time, reminder value
    QString focus;      // objectName of the widget that had the focus at that moment
    int result = 0;     // what the scripted services answered
};

// Records every call and answers from scripted queues. A question (a box with more than an OK button,
// a file dialog, a folder picker) that was not scripted fails the running test.
class CScriptedPlatform : public CPlatformServices {
public:
    CScriptedPlatform();
    ~CScriptedPlatform() override;

    void answerMessageBox(int result) { m_messageAnswers.append(result); }
    void answerFileDialog(std::optional<QString> path) { m_fileAnswers.append(path); }
    void answerFolder(std::optional<QString> folder) { m_folderAnswers.append(folder); }
    void setCanPickFolder(bool on) { m_canPickFolder = on; }
    void setDriveType(const QString& root, DriveType type) { m_driveTypes[root] = type; }
    void setRemindersAvailable(bool on) { m_remindersAvailable = on; }
    QMap<QString, quint32>& reminders() { return m_reminders; }
    // Each setProgress call answers this (true: go on).
    void setProgressAnswer(std::function<bool(qint64, qint64)> answer) { m_progressAnswer = std::move(answer); }

    const QList<CRecordedCall>& calls() const { return m_calls; }
    QList<CRecordedCall> callsOf(const QString& kind) const;
    QStringList messages() const;
    int waitCursorDepth() const { return m_waitDepth; }
    // Scripted answers nobody asked for (a test expecting a question that never came).
    int unusedAnswers() const { return int(m_messageAnswers.size() + m_fileAnswers.size() + m_folderAnswers.size()); }
    void clear();

    int messageBox(QWidget* owner, const QString& text, const QString& caption, unsigned style) override;
    void beep(unsigned frequency, unsigned durationMs) override;
    bool fileDialog(QWidget* owner, CFileDialogRequest& request) override;
    bool canPickFolder() override { return m_canPickFolder; }
    bool pickFolder(QWidget* owner, const QString& title, QString& folder) override;
    void showHelp(QWidget* owner, unsigned context) override;
    DriveType driveType(const QString& root) override;
    bool reminderSettingsAvailable() override { return m_remindersAvailable; }
    std::optional<quint32> reminderValue(const QString& key) override;
    bool setReminderValue(const QString& key, quint32 value) override;
    void setWaitCursor(bool on) override;
    void sleep(unsigned ms) override;
    QDateTime currentTime() override;
    std::unique_ptr<CProgressReporter> beginProgress(QWidget* owner, const QString& label) override;

    QDateTime now = QDateTime(QDate(2024, 3, 14), QTime(9, 26, 53));
    QList<CFileDialogRequest> fileRequests;

private:
    CRecordedCall& record(const QString& kind);

    CPlatformServices* m_previous = nullptr;
    QList<CRecordedCall> m_calls;
    QList<int> m_messageAnswers;
    QList<std::optional<QString>> m_fileAnswers;
    QList<std::optional<QString>> m_folderAnswers;
    QMap<QString, DriveType> m_driveTypes;
    QMap<QString, quint32> m_reminders;
    std::function<bool(qint64, qint64)> m_progressAnswer;
    bool m_canPickFolder = true;
    bool m_remindersAvailable = true;
    int m_waitDepth = 0;
};

// A configuration store in a temporary directory, seeded with the demo configuration, closed on
// destruction.
class CTestStore {
public:
    explicit CTestStore(bool seed = true);
    ~CTestStore();
    CTestStore(const CTestStore&) = delete;
    CTestStore& operator=(const CTestStore&) = delete;

    _tMailServer* server() const { return m_server; }
    operator _tMailServer*() const { return m_server; }
    QString path() const { return m_path; }
    bool isOpen() const { return m_server != nullptr; }
    // Closes and opens the same file again (to see what reached the database).
    void reopen();

    QString string(const char* section, const char* name) const;
    std::optional<quint32> number(const char* section, const char* name) const;
    bool setString(const char* section, const char* name, const QString& value);
    bool setNumber(const char* section, const char* name, quint32 value);
    uint32_t calls(const char* operation) const { return VbCallCount(m_server, operation); }
    // Store handles opened through this class and not yet closed, in the whole program.
    static int openHandles();

private:
    QTemporaryDir m_dir;
    QString m_path;
    _tMailServer* m_server = nullptr;
};

namespace Harness {

// The name of the widget with the focus (in the active window, else in the active modal dialog).
QString focusName();

// Finds a control by objectName under root; fails the test (and returns null) when there is none.
template <class T>
T* control(QWidget* root, const char* name)
{
    T* found = root ? root->findChild<T*>(QString::fromLatin1(name)) : nullptr;
    if (!found)
        QTest::qFail(qPrintable(QStringLiteral("no control '%1' of the expected type").arg(QLatin1String(name))),
                     __FILE__, __LINE__);
    return found;
}

// Replaces an edit's text by typing, as a person would.
void typeInto(QWidget* edit, const QString& text);
void click(QWidget* button);
void pressEnter(QWidget* widget);
void pressKey(QWidget* widget, Qt::Key key);

// Resolves an exported entry point of the library by name, as a host program does.
void* resolveEntry(const char* name);

// Runs `driver` on the modal dialog once its loop runs, then calls `call`, which opens it. The driver
// must close the dialog (or the dialog closes itself); a dialog still open after `timeoutMs` is
// rejected and the test fails.
int driveModal(const std::function<int()>& call, const std::function<void(QDialog*)>& driver,
               int timeoutMs = 10000);

// Calls an entry point of the form int Name(TaviOwner, _tMailServer*) through the library.
int runEntry(const char* name, TaviOwner owner, _tMailServer* server, const std::function<void(QDialog*)>& driver);

// Top-level widgets still alive (a test's cleanup() expects none).
QStringList leftoverTopLevels();

// Clicks the push button with that objectName under root (fails the test when there is none).
void clickButton(QWidget* root, const char* name);

// Makes IsClusteredConfiguration true for this store: a database connector shared by a cluster.
bool makeClustered(_tMailServer* server);

} // namespace Harness

// Base of every dialog test class: a fresh seeded store (unless withStore is false), the scripted
// services and a temporary directory per test function. cleanup() fails the test when a scripted answer
// was never asked for, the wait cursor was left on, a store handle is still open or a top-level widget
// survived. Subclasses put their own store contents in seed(); the call counters start after it.
class CDialogTest : public QObject {
    Q_OBJECT
public:
    explicit CDialogTest(bool withStore = true) : m_withStore(withStore) {}

protected:
    virtual void seed() {}

    std::unique_ptr<CTestStore> m_store;
    std::unique_ptr<CScriptedPlatform> m_platform;
    std::unique_ptr<QTemporaryDir> m_dir;

private Q_SLOTS:
    void init();
    void cleanup();

private:
    bool m_withStore;
};
