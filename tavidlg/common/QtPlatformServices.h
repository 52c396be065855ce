// The platform services on Qt: QMessageBox, QFileDialog, QSettings("Brennoway", "Velbrook"), the
// override cursor, QProgressDialog, and /proc/self/mountinfo for drive types on Linux.
#pragma once

#include "common/PlatformServices.h"

#include <QByteArray>

class TAVI_EXPORT CQtPlatformServices : public CPlatformServices {
public:
    int messageBox(QWidget* owner, const QString& text, const QString& caption, unsigned style) override;
    void beep(unsigned frequency, unsigned durationMs) override;
    bool fileDialog(QWidget* owner, CFileDialogRequest& request) override;
    bool canPickFolder() override;
    bool pickFolder(QWidget* owner, const QString& title, QString& folder) override;
    void showHelp(QWidget* owner, unsigned context) override;
    DriveType driveType(const QString& root) override;
    bool reminderSettingsAvailable() override;
    std::optional<quint32> reminderValue(const QString& key) override;
    bool setReminderValue(const QString& key, quint32 value) override;
    void setWaitCursor(bool on) override;
    void sleep(unsigned ms) override;
    QDateTime currentTime() override;
    std::unique_ptr<CProgressReporter> beginProgress(QWidget* owner, const QString& label) override;
};

// The drive type of a path given the text of /proc/self/mountinfo: Remote when the mount that holds
// the path is a network file system (nfs, cifs, smb3, sshfs, ...), Fixed otherwise.
TAVI_EXPORT DriveType driveTypeFromMountInfo(const QByteArray& mountInfo, const QString& path);

// "CSV File (*.CSV)" / "*.CSV" pairs as Qt name filters.
TAVI_EXPORT QStringList qtNameFilters(const QList<QPair<QString, QString>>& filters);
