#include "entry/EntryFrame.h"

#include <QApplication>
#include <QDialog>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <QWindow>

bool ensureApplication()
{
    if (qobject_cast<QApplication*>(QCoreApplication::instance()))
        return true;
    if (QCoreApplication::instance())
        return false;
    // A host that is not a Qt program: the application object lives as long as the process, since
    // later calls need it and destroying it at exit would outlive the platform plug-in.
    static int argc = 1;
    static char name[] = "tavidlg";
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv);
    return true;
}

COwnerWindow::COwnerWindow(TaviOwner owner)
{
    if (!owner)
        return;
    if (QWidget* widget = QWidget::find(WId(owner))) {
        m_widget = widget->window();
        return;
    }
    m_foreign = QWindow::fromWinId(WId(owner));
}

COwnerWindow::~COwnerWindow()
{
    delete m_foreign;
}

void COwnerWindow::attach(QDialog* dialog)
{
    if (!m_foreign || !dialog)
        return;
    dialog->winId(); // creates the native window so that it has a handle to parent
    if (QWindow* handle = dialog->windowHandle())
        handle->setTransientParent(m_foreign);
}

namespace {

// Set by the host through TaviSetRunMode; entry points run on the host's user-interface thread.
int g_runMode = TAVI_RUN_INTERACTIVE;
QString g_screenshot;

} // namespace

extern "C" TAVIDLG_API int TaviSetRunMode(int mode, const char* path)
{
    if (mode != TAVI_RUN_INTERACTIVE && mode != TAVI_RUN_SCREENSHOT && mode != TAVI_RUN_CANCEL)
        return 0;
    if (mode == TAVI_RUN_SCREENSHOT && (!path || !*path))
        return 0;
    g_runMode = mode;
    g_screenshot = mode == TAVI_RUN_SCREENSHOT ? QString::fromUtf8(path) : QString();
    return 1;
}

int runModal(QDialog* dialog, COwnerWindow& owner)
{
    if (!dialog)
        return -1;
    owner.attach(dialog);
    if (g_runMode == TAVI_RUN_SCREENSHOT) {
        const QString screenshot = g_screenshot;
        dialog->show();
        QCoreApplication::processEvents();
        const bool saved = dialog->grab().save(screenshot, "PNG");
        dialog->hide();
        return saved ? 2 : -1;
    }
    if (g_runMode == TAVI_RUN_CANCEL)
        QTimer::singleShot(0, dialog, [dialog] { dialog->reject(); });
    const int result = dialog->exec();
    return result == QDialog::Rejected ? 2 : result;
}
