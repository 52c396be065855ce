// Time from calling EditDirectories to its dialog being shown, against showing an empty QDialog through
// exec() in the same run (offscreen). Prints the median of each and their ratio.
#include "DialogHarness.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

// Notes when a top-level dialog is first shown, and closes it as cancelled.
class ShowCatcher : public QObject {
public:
    QElapsedTimer clock;
    qint64 shownAt = -1;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show && shownAt < 0) {
            if (auto* dialog = qobject_cast<QDialog*>(watched); dialog && dialog->isWindow()) {
                shownAt = clock.nsecsElapsed();
                QTimer::singleShot(0, dialog, [dialog] { dialog->reject(); });
            }
        }
        return false;
    }
};

double median(std::vector<qint64> v)
{
    std::sort(v.begin(), v.end());
    return v.empty() ? 0.0 : double(v[v.size() / 2]);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 20;
    CTestStore store;
    if (!store.isOpen())
        return 1;
    using Entry = int (*)(TaviOwner, _tMailServer*);
    auto entry = reinterpret_cast<Entry>(Harness::resolveEntry("EditDirectories"));
    if (!entry)
        return 1;
    ShowCatcher catcher;
    app.installEventFilter(&catcher);
    std::vector<qint64> plain, directories;
    int failures = 0;
    for (int i = 0; i < rounds + 2; ++i) {
        catcher.shownAt = -1;
        catcher.clock.start();
        {
            QDialog empty;
            empty.exec();
        }
        if (catcher.shownAt < 0)
            ++failures;
        else if (i >= 2) // the first rounds warm caches (fonts, styles)
            plain.push_back(catcher.shownAt);

        catcher.shownAt = -1;
        catcher.clock.start();
        if (entry(0, store) != 2 || catcher.shownAt < 0)
            ++failures;
        else if (i >= 2)
            directories.push_back(catcher.shownAt);
    }
    const double p = median(plain) / 1e6;
    const double d = median(directories) / 1e6;
    std::printf("empty QDialog shown after   %.3f ms (median of %zu)\n", p, plain.size());
    std::printf("EditDirectories shown after %.3f ms (median of %zu)\n", d, directories.size());
    std::printf("ratio EditDirectories / empty QDialog: %.2f\n", p > 0 ? d / p : 0.0);
    std::printf("%d passed, %d failed\n", failures ? 0 : 1, failures ? 1 : 0);
    return failures ? 1 : 0;
}
