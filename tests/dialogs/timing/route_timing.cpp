// Opening a route table of 10 000 masks in the routing dialog, changing its order and saving it, against
// loading the same records with the store alone in the same run. Prints the medians and their ratio.
#include "DialogHarness.h"

#include "schedule/RoutingDlg.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTreeWidget>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int kMasks = 10000;

bool seedRoutes(_tMailServer* server)
{
    _tManualRoute* first = nullptr;
    _tManualRoute** tail = &first;
    for (int i = 0; i < kMasks; ++i) {
        const QByteArray mask = QStringLiteral("*.customer%1.example.net").arg(i).toUtf8();
        _tManualRoute* route = AllocManualRoute(mask.constData(), uint32_t(i % 3));
        if (!route)
            break;
        route->hosts = AllocManualRouteMx(QStringLiteral("mx%1.example.net").arg(i).toUtf8().constData(), 0, 10);
        if (route->hosts)
            route->hosts->next = AllocManualRouteMx("backup.example.net", 2525, 20);
        *tail = route;
        tail = &route->next;
    }
    const bool ok = SaveManualRoutes(server, first) != 0;
    FreeManualRoutes(first);
    return ok;
}

double median(std::vector<qint64> v)
{
    std::sort(v.begin(), v.end());
    return v.empty() ? 0.0 : double(v[v.size() / 2]);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 5;
    CTestStore store;
    CScriptedPlatform platform;
    if (!store.isOpen() || !seedRoutes(store))
        return 1;
    std::vector<qint64> storeOnly, dialog;
    int failures = 0;
    const uint32_t savesBefore = store.calls("SaveManualRoutes");
    QElapsedTimer clock;
    for (int i = 0; i < rounds + 1; ++i) {
        clock.start();
        _tManualRoute* first = nullptr;
        if (!LoadManualRoutes(store, &first))
            ++failures;
        int count = 0;
        for (const _tManualRoute* r = first; r; r = r->next)
            ++count;
        FreeManualRoutes(first);
        if (i > 0) // the first round warms caches
            storeOnly.push_back(clock.nsecsElapsed());
        failures += count != kMasks;

        // Shown, the first route moved down one place (so that there is something to save), saved.
        clock.start();
        int rows = 0;
        const int result = Harness::driveModal([&] {
            CRoutingDlg routing(nullptr, store);
            return routing.exec();
        }, [&](QDialog* d) {
            auto* list = d->findChild<QTreeWidget*>(QStringLiteral("lstRoutes"));
            rows = list ? list->topLevelItemCount() : 0;
            if (list)
                list->setCurrentItem(list->topLevelItem(0));
            Harness::clickButton(d, "btnDown");
            Harness::clickButton(d, "btnOK");
        }, 60000);
        if (i > 0)
            dialog.push_back(clock.nsecsElapsed());
        if (result != 1 || rows != kMasks)
            std::fprintf(stderr, "round %d: result %d, %d rows\n", i, result, rows);
        failures += result != 1 || rows != kMasks;
    }
    failures += store.calls("SaveManualRoutes") - savesBefore != uint32_t(rounds + 1);
    const double s = median(storeOnly) / 1e6, d = median(dialog) / 1e6;
    std::printf("LoadManualRoutes of %d masks (store alone): %.1f ms (median of %zu)\n", kMasks, s, storeOnly.size());
    std::printf("routing dialog opened, changed and saved:   %.1f ms (median of %zu)\n", d, dialog.size());
    std::printf("ratio dialog / store load: %.2f\n", s > 0 ? d / s : 0.0);
    std::printf("%d passed, %d failed\n", failures ? 0 : 1, failures ? 1 : 0);
    return failures ? 1 : 0;
}
