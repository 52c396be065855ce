#include "common/PlatformServices.h"

#include "common/QtPlatformServices.h"
#include "res/StringIds.h"
#include "res/StringTable.h"

#include <QApplication>
#include <QLineEdit>
#include <QWidget>

namespace {

CPlatformServices* g_services = nullptr;
int g_waitCursors = 0; // CWaitCursor objects alive

CPlatformServices& qtServices()
{
    static CQtPlatformServices services;
    return services;
}

} // namespace

CProgressReporter::~CProgressReporter() = default;
CPlatformServices::~CPlatformServices() = default;

CPlatformServices& platform()
{
    return g_services ? *g_services : qtServices();
}

CPlatformServices* setPlatformServices(CPlatformServices* services)
{
    CPlatformServices* previous = g_services;
    g_services = services;
    return previous;
}

QWidget* messageOwner()
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}

int taviMessageBox(const QString& text, unsigned style, const QString& caption)
{
    // A message never shows under the wait cursor: it is lifted for the box and put back after it.
    const int waiting = g_waitCursors;
    for (int i = 0; i < waiting; ++i)
        platform().setWaitCursor(false);
    const int result = platform().messageBox(messageOwner(), text,
                                             caption.isEmpty() ? TaviString(IDS_TAVI_MESSAGE_CAPTION) : caption, style);
    for (int i = 0; i < waiting; ++i)
        platform().setWaitCursor(true);
    return result;
}

void inputBeep(QLineEdit* edit)
{
    platform().beep(400, 250);
    if (edit) {
        edit->setFocus();
        edit->selectAll();
    }
}

CWaitCursor::CWaitCursor()
{
    ++g_waitCursors;
    platform().setWaitCursor(true);
}

CWaitCursor::~CWaitCursor()
{
    --g_waitCursors;
    platform().setWaitCursor(false);
}

bool isOnNetworkDrive(const QString& path)
{
    QString root;
    if (path.size() >= 2 && path.at(0).isLetter() && path.at(0).unicode() < 128 && path.at(1) == QLatin1Char(':'))
        root = path.at(0).toUpper() + QStringLiteral(":\\");
#ifndef Q_OS_WIN
    // On Linux a local absolute path plays the part of a drive letter: its mount decides.
    else if (path.startsWith(QLatin1Char('/')))
        root = path;
#endif
    return !root.isEmpty() && platform().driveType(root) == DriveType::Remote;
}
