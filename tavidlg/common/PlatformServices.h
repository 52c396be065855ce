// The platform-services seam: everything a dialog does to the person or the machine outside its own
// widgets. Dialogs call platform(); the default implementation uses Qt (QtPlatformServices), tests
// install a scripted one. Windows numeric constants are kept where they are part of behaviour.
#pragma once

#include "entry/TaviGlobal.h"

#include <QDateTime>
#include <QList>
#include <QPair>
#include <QString>

#include <memory>
#include <optional>

class QWidget;
class QLineEdit;

// Message-box styles (MB_*) and results (ID*), with the Windows values.
namespace Mb {
enum : unsigned {
    Ok = 0x0,
    OkCancel = 0x1,
    AbortRetryIgnore = 0x2,
    YesNoCancel = 0x3,
    YesNo = 0x4,
    RetryCancel = 0x5,
    ButtonMask = 0xF,
    IconStop = 0x10,
    IconQuestion = 0x20,
    IconExclamation = 0x30,
    IconInformation = 0x40,
    IconMask = 0xF0,
    DefButton2 = 0x100,
    DefButton3 = 0x200,
    DefButtonMask = 0xF00,
};
}
namespace Id {
enum : int { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };
}
// File-dialog flags (OFN_*), with the Windows values.
namespace Ofn {
enum : unsigned {
    ReadOnly = 0x1,
    OverwritePrompt = 0x2,
    HideReadOnly = 0x4,
    PathMustExist = 0x800,
    FileMustExist = 0x1000,
};
}

// Drive types, with the values of GetDriveType.
enum class DriveType : unsigned { Unknown = 0, NoRootDir = 1, Removable = 2, Fixed = 3, Remote = 4, CdRom = 5, RamDisk = 6 };

struct TAVI_EXPORT CFileDialogRequest {
    bool save = false;
    QString title;                           // empty: the platform's own
    QList<QPair<QString, QString>> filters;  // (description, pattern such as "*.csv;*.txt")
    int filterIndex = 0;                     // the filter selected at first
    QString defaultExtension;                // with or without its leading full stop
    QString fileName;                        // initial name in, chosen path out
    unsigned flags = 0;                      // Ofn::*
};

// Reports progress of a long operation; setProgress returns false once the person has cancelled.
class TAVI_EXPORT CProgressReporter {
public:
    virtual ~CProgressReporter();
    virtual bool setProgress(qint64 done, qint64 total) = 0;
};

class TAVI_EXPORT CPlatformServices {
public:
    virtual ~CPlatformServices();

    // Shows a message box; style is Mb::*, the result an Id::* value.
    virtual int messageBox(QWidget* owner, const QString& text, const QString& caption, unsigned style) = 0;
    virtual void beep(unsigned frequency, unsigned durationMs) = 0;
    // Asks for a file; false when cancelled. request.fileName holds the chosen path.
    virtual bool fileDialog(QWidget* owner, CFileDialogRequest& request) = 0;
    // Whether this system can pick folders at all.
    virtual bool canPickFolder() = 0;
    // Opens a folder picker at folder (when not empty); false when cancelled.
    virtual bool pickFolder(QWidget* owner, const QString& title, QString& folder) = 0;
    // Opens the help at a context id (the dialog's help context plus 0x20000).
    virtual void showHelp(QWidget* owner, unsigned context) = 0;
    // The type of the drive a path's root ("X:\" or, on Linux, any absolute path) lies on.
    virtual DriveType driveType(const QString& root) = 0;
    // The per-user reminder choices ("Software\Brennoway\Velbrook").
    virtual bool reminderSettingsAvailable() = 0;
    virtual std::optional<quint32> reminderValue(const QString& key) = 0;
    virtual bool setReminderValue(const QString& key, quint32 value) = 0;
    // Wait cursor on and off (calls nest).
    virtual void setWaitCursor(bool on) = 0;
    virtual void sleep(unsigned ms) = 0;
    virtual QDateTime currentTime() = 0;
    // A progress reporter for a long operation, shown over owner.
    virtual std::unique_ptr<CProgressReporter> beginProgress(QWidget* owner, const QString& label) = 0;
};

// The services in force (the Qt ones unless a test installed others).
TAVI_EXPORT CPlatformServices& platform();
// Installs services (not owned); null restores the Qt ones. Returns the services that were in force.
TAVI_EXPORT CPlatformServices* setPlatformServices(CPlatformServices* services);

// The window a message belongs to: the active modal dialog, else the active window.
TAVI_EXPORT QWidget* messageOwner();
// A message box with the library's caption (when caption is empty) over messageOwner().
TAVI_EXPORT int taviMessageBox(const QString& text, unsigned style, const QString& caption = QString());
// The input beep of an edit field: 400 Hz for 250 ms and the offending text selected, no message.
TAVI_EXPORT void inputBeep(QLineEdit* edit);
// Whether a path lies on a network drive: the drive of "X:..." or, on Linux, the mount of an absolute
// path. UNC paths and relative paths are not judged (false).
TAVI_EXPORT bool isOnNetworkDrive(const QString& path);

// Shows the wait cursor for its lifetime.
class TAVI_EXPORT CWaitCursor {
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};
