// Load-time set-up: the library's pictures become reachable under :/tavidlg, and dates are formatted
// in the user's language. Nothing else is created at load.
#include <QtCore/qglobal.h>
#include <QtCore/qresource.h>

#include <clocale>

static void registerTaviResources()
{
    Q_INIT_RESOURCE(tavidlg);
}

namespace {

struct LoadTimeSetup {
    LoadTimeSetup()
    {
        registerTaviResources();
        std::setlocale(LC_TIME, "");
    }
};

const LoadTimeSetup setup;

} // namespace
