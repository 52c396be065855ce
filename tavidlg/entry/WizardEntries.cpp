// Entry points of the protection wizards: the wizard gets its watermark (picture 10129) and header
// picture (10130), the server handle, and runs modally; the pictures go after the wizard.
#include "entry/EntryFrame.h"
#include "wizards/AntiDoSWizard.h"
#include "wizards/AntiRelayWizard.h"
#include "wizards/AntiSpamWizard.h"

#include <QPixmap>

namespace {

template <class Wizard>
int runWizard(TaviOwner owner, _tMailServer* server)
{
    if (!ensureApplication())
        return -1;
    try {
        COwnerWindow parent(owner);
        const QPixmap watermark(QStringLiteral(":/tavidlg/10129.png"));
        const QPixmap header(QStringLiteral(":/tavidlg/10130.png"));
        auto wizard = std::make_unique<Wizard>(parent.widget(), watermark, header);
        wizard->SetServer(server);
        return runModal(wizard.get(), parent);
    } catch (const std::exception&) {
        return -1;
    }
}

} // namespace

extern "C" TAVIDLG_API int AntiSpamWizard(TaviOwner owner, _tMailServer* server)
{
    return runWizard<CAntiSpamWizard>(owner, server);
}

extern "C" TAVIDLG_API int AntiRelayWizard(TaviOwner owner, _tMailServer* server)
{
    return runWizard<CAntiRelayWizard>(owner, server);
}

extern "C" TAVIDLG_API int AntiDoSWizard(TaviOwner owner, _tMailServer* server)
{
    return runWizard<CAntiDoSWizard>(owner, server);
}
