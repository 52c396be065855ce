// The common frame of every entry point: turn the owner into a parent, build the dialog, run it
// modally, destroy it and return its result (1 OK, 2 Cancel, -1 not created).
//
//   extern "C" TAVIDLG_API int EditDirectories(TaviOwner owner, _tMailServer* server)
//   { return runDialog<CDirectoriesDlg>(owner, server); }
//
// Sheets built on the stack and wizards use COwnerWindow and runModal() themselves.
#pragma once

#include "entry/TaviGlobal.h"

#include "TaviDlg.h"

#include <QPointer>
#include <QWidget>

#include <exception>
#include <memory>
#include <utility>

class QDialog;
class QWindow;

// Makes sure a QApplication exists (creating one for hosts that are not Qt programs, kept for later
// calls). False when the process has a QCoreApplication that cannot show widgets.
TAVI_EXPORT bool ensureApplication();

// The owner window of one call: a Qt host's widget found by its window id, or a foreign native window
// that becomes the dialog's transient parent; 0 means no owner.
class TAVI_EXPORT COwnerWindow {
public:
    explicit COwnerWindow(TaviOwner owner);
    ~COwnerWindow();
    COwnerWindow(const COwnerWindow&) = delete;
    COwnerWindow& operator=(const COwnerWindow&) = delete;

    // The parent to construct the dialog with (null for a foreign or no owner).
    QWidget* widget() const { return m_widget; }
    // Makes a foreign owner the dialog's transient parent; call before showing.
    void attach(QDialog* dialog);

private:
    QPointer<QWidget> m_widget;
    QWindow* m_foreign = nullptr;
};

// Runs a built dialog modally and maps its result: 1 stays 1, a plain rejection (0) becomes 2.
// Follows the run mode the host set with TaviSetRunMode (TaviDlg.h).
TAVI_EXPORT int runModal(QDialog* dialog, COwnerWindow& owner);

// The frame every entry point shares: makes sure of the application, turns the owner into a parent and
// runs body(parent), keeping exceptions off the C boundary. Entry points that are not one dialog built
// and run (a sheet on the stack, an editor over a property) use it directly:
//   return runEntry(owner, [&](COwnerWindow& parent) { ...; return runModal(&sheet, parent); });
template <class Body>
int runEntry(TaviOwner owner, Body&& body)
{
    if (!ensureApplication())
        return -1;
    try {
        COwnerWindow parent(owner);
        return body(parent);
    } catch (const std::exception&) {
        // Nothing may cross the C boundary; a dialog that cannot be built was not created.
        return -1;
    }
}

template <class Dialog, class... Args>
int runDialog(TaviOwner owner, Args&&... args)
{
    return runEntry(owner, [&](COwnerWindow& parent) {
        auto dialog = std::make_unique<Dialog>(parent.widget(), std::forward<Args>(args)...);
        return runModal(dialog.get(), parent);
    });
}
