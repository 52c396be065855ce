#include "common/QtPlatformServices.h"

#include "common/HelpWindow.h"

#include "res/StringIds.h"
#include "res/StringTable.h"
#include "config/MessageFormat.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QThread>
#include <QUrl>

#include <climits>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace {

QMessageBox::Icon iconOf(unsigned style)
{
    switch (style & Mb::IconMask) {
    case Mb::IconStop: return QMessageBox::Critical;
    case Mb::IconQuestion: return QMessageBox::Question;
    case Mb::IconExclamation: return QMessageBox::Warning;
    case Mb::IconInformation: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

struct ButtonSet {
    QList<QPair<QMessageBox::StandardButton, int>> buttons;
    int escapeResult;
};

ButtonSet buttonsOf(unsigned style)
{
    using B = QMessageBox;
    switch (style & Mb::ButtonMask) {
    case Mb::OkCancel: return {{{B::Ok, Id::Ok}, {B::Cancel, Id::Cancel}}, Id::Cancel};
    case Mb::AbortRetryIgnore: return {{{B::Abort, Id::Abort}, {B::Retry, Id::Retry}, {B::Ignore, Id::Ignore}}, 0};
    case Mb::YesNoCancel: return {{{B::Yes, Id::Yes}, {B::No, Id::No}, {B::Cancel, Id::Cancel}}, Id::Cancel};
    case Mb::YesNo: return {{{B::Yes, Id::Yes}, {B::No, Id::No}}, 0};
    case Mb::RetryCancel: return {{{B::Retry, Id::Retry}, {B::Cancel, Id::Cancel}}, Id::Cancel};
    default: return {{{B::Ok, Id::Ok}}, Id::Ok};
    }
}

bool isRemoteFileSystem(const QByteArray& type)
{
    static const char* const kRemote[] = {"nfs", "nfs4", "cifs", "smb3", "smbfs", "ncpfs", "afs", "ceph",
                                          "9p", "coda", "fuse.sshfs", "sshfs", "fuse.glusterfs", "glusterfs",
                                          "davfs", "fuse.davfs2", "fuse.rclone", "lustre", "gfs2", "ocfs2"};
    for (const char* r : kRemote) {
        if (type == r)
            return true;
    }
    return false;
}

// mountinfo escapes blanks and a few others in paths as \ooo.
QString unescapeMountPath(const QByteArray& field)
{
    QByteArray out;
    out.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size()) {
            bool ok = false;
            const int value = field.mid(i + 1, 3).toInt(&ok, 8);
            if (ok && value >= 0 && value < 256) {
                out.append(char(value));
                i += 3;
                continue;
            }
        }
        out.append(field[i]);
    }
    return QString::fromUtf8(out);
}

bool pathIsUnder(const QString& path, const QString& mountPoint)
{
    if (mountPoint == QLatin1String("/"))
        return path.startsWith(QLatin1Char('/'));
    return path == mountPoint
        || (path.startsWith(mountPoint) && path.at(mountPoint.size()) == QLatin1Char('/'));
}

class CQtProgress : public CProgressReporter {
public:
    CQtProgress(QWidget* owner, const QString& label) : m_dialog(label, QString(), 0, 0, owner)
    {
        m_dialog.setWindowModality(Qt::WindowModal);
        m_dialog.setMinimumDuration(500);
        m_dialog.setCancelButtonText(QCoreApplication::translate("QPlatformTheme", "Cancel"));
    }
    bool setProgress(qint64 done, qint64 total) override
    {
        // QProgressDialog counts in int; scale large totals down.
        const int shift = total > INT_MAX / 2 ? 10 : 0;
        m_dialog.setMaximum(int(total >> shift));
        m_dialog.setValue(int(done >> shift));
        QCoreApplication::processEvents();
        return !m_dialog.wasCanceled();
    }

private:
    QProgressDialog m_dialog;
};

} // namespace

int CQtPlatformServices::messageBox(QWidget* owner, const QString& text, const QString& caption, unsigned style)
{
    // A box shows the icon its caller asked for, and none when it asked for none.
    QMessageBox box(iconOf(style), caption, text, QMessageBox::NoButton, owner);
    box.setTextFormat(Qt::PlainText);
    const ButtonSet set = buttonsOf(style);
    QList<QAbstractButton*> added;
    for (const auto& b : set.buttons)
        added.append(box.addButton(b.first));
    const int defaultIndex = (style & Mb::DefButtonMask) >> 8;
    if (defaultIndex < added.size())
        box.setDefaultButton(static_cast<QPushButton*>(added[defaultIndex]));
    for (const auto& b : set.buttons) {
        if (b.second == set.escapeResult)
            box.setEscapeButton(box.button(b.first));
    }
    box.exec();
    QAbstractButton* clicked = box.clickedButton();
    for (const auto& b : set.buttons) {
        if (clicked && clicked == box.button(b.first))
            return b.second;
    }
    return set.escapeResult ? set.escapeResult : Id::Cancel;
}

void CQtPlatformServices::beep(unsigned, unsigned)
{
    QApplication::beep();
}

QStringList qtNameFilters(const QList<QPair<QString, QString>>& filters)
{
    QStringList out;
    for (const auto& f : filters) {
        QString patterns = f.second;
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        if (f.first.contains(QLatin1Char('(') + f.second + QLatin1Char(')')))
            out.append(f.first.left(f.first.lastIndexOf(QLatin1Char('('))).trimmed() + QLatin1String(" (")
                       + patterns + QLatin1Char(')'));
        else
            out.append(f.first + QLatin1String(" (") + patterns + QLatin1Char(')'));
    }
    return out;
}

bool CQtPlatformServices::fileDialog(QWidget* owner, CFileDialogRequest& request)
{
    QFileDialog dialog(owner, request.title);
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    QString suffix = request.defaultExtension;
    if (suffix.startsWith(QLatin1Char('.')))
        suffix.remove(0, 1);
    dialog.setDefaultSuffix(suffix);
    const QStringList filters = qtNameFilters(request.filters);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        if (request.filterIndex >= 0 && request.filterIndex < filters.size())
            dialog.selectNameFilter(filters[request.filterIndex]);
    }
    if (request.save && !(request.flags & Ofn::OverwritePrompt))
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (!request.fileName.isEmpty())
        dialog.selectFile(request.fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    request.fileName = QDir::toNativeSeparators(dialog.selectedFiles().constFirst());
    return true;
}

bool CQtPlatformServices::canPickFolder()
{
    return true;
}

bool CQtPlatformServices::pickFolder(QWidget* owner, const QString& title, QString& folder)
{
    QString caption = title;
    caption.remove(QRegularExpression(QStringLiteral("&(?!&)")));
    const QString chosen = QFileDialog::getExistingDirectory(owner, caption, folder);
    if (chosen.isEmpty())
        return false;
    folder = QDir::toNativeSeparators(chosen);
    return true;
}

void CQtPlatformServices::showHelp(QWidget* owner, unsigned context)
{
    openHelp(owner, context);
}

DriveType driveTypeFromMountInfo(const QByteArray& mountInfo, const QString& path)
{
    const QString clean = QDir::cleanPath(path);
    if (!clean.startsWith(QLatin1Char('/')))
        return DriveType::Fixed;
    int bestLength = -1;
    bool bestRemote = false;
    for (const QByteArray& line : mountInfo.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        const qsizetype dash = fields.indexOf(QByteArray("-"));
        if (fields.size() < 5 || dash < 5 || dash + 1 >= fields.size())
            continue;
        const QString mountPoint = unescapeMountPath(fields[4]);
        // Later mounts on the same point hide earlier ones, hence >=.
        if (pathIsUnder(clean, mountPoint) && mountPoint.size() >= bestLength) {
            bestLength = int(mountPoint.size());
            bestRemote = isRemoteFileSystem(fields[dash + 1]);
        }
    }
    return bestRemote ? DriveType::Remote : DriveType::Fixed;
}

DriveType CQtPlatformServices::driveType(const QString& root)
{
#ifdef Q_OS_WIN
    return static_cast<DriveType>(GetDriveTypeW(reinterpret_cast<LPCWSTR>(root.utf16())));
#else
    QFile file(QStringLiteral("/proc/self/mountinfo"));
    if (!file.open(QIODevice::ReadOnly))
        return DriveType::Fixed;
    // mountinfo reports size 0; read it to the end in one go.
    return driveTypeFromMountInfo(file.readAll(), root);
#endif
}

bool CQtPlatformServices::reminderSettingsAvailable()
{
    QSettings settings(QStringLiteral("Brennoway"), QStringLiteral("Velbrook"));
    return settings.status() == QSettings::NoError && settings.isWritable();
}

std::optional<quint32> CQtPlatformServices::reminderValue(const QString& key)
{
    QSettings settings(QStringLiteral("Brennoway"), QStringLiteral("Velbrook"));
    if (!settings.contains(key))
        return std::nullopt;
    bool ok = false;
    const quint32 value = settings.value(key).toUInt(&ok);
    return ok ? std::optional<quint32>(value) : std::nullopt;
}

bool CQtPlatformServices::setReminderValue(const QString& key, quint32 value)
{
    QSettings settings(QStringLiteral("Brennoway"), QStringLiteral("Velbrook"));
    settings.setValue(key, value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

void CQtPlatformServices::setWaitCursor(bool on)
{
    if (on)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void CQtPlatformServices::sleep(unsigned ms)
{
    QThread::msleep(ms);
}

QDateTime CQtPlatformServices::currentTime()
{
    return QDateTime::currentDateTime();
}

std::unique_ptr<CProgressReporter> CQtPlatformServices::beginProgress(QWidget* owner, const QString& label)
{
    return std::make_unique<CQtProgress>(owner, label.isEmpty() ? TaviString(IDS_TAVI_WORKING) : label);
}
