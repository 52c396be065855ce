// A list of 100 000 addresses in the address list editor: opening it from the store, importing it from
// a CSV file (with its progress) and saving it, each against inserting the same texts into a std::set
// in the same run. Prints the times and the ratios; fails when the editor loses or invents entries.
#include "DialogHarness.h"

#include "common/EmailAddressListEditor.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

double msSince(const QElapsedTimer& t)
{
    return double(t.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const int count = argc > 1 ? std::max(1000, atoi(argv[1])) : 100000;
    CTestStore store(false);
    QTemporaryDir dir;
    if (!store.isOpen() || !dir.isValid())
        return 1;

    // Shuffled, so that neither the file nor the set sees sorted input.
    std::vector<std::string> texts;
    texts.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i)
        texts.push_back("user" + std::to_string(i) + "@host" + std::to_string(i % 977) + ".example.com");
    std::shuffle(texts.begin(), texts.end(), std::mt19937(42));
    QByteArray file = "address\n";
    for (const std::string& t : texts)
        file += QByteArray::fromStdString(t) + '\n';
    const QString path = dir.filePath(QStringLiteral("big.csv"));
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(file) != file.size())
        return 1;
    out.close();

    QElapsedTimer t;
    t.start();
    std::set<std::string> baseline;
    for (const std::string& s : texts)
        baseline.insert(s);
    const double setMs = msSince(t);

    CScriptedPlatform platform;
    double importMs = 0, saveMs = 0, openMs = 0;
    std::size_t imported = 0, reopened = 0;
    {
        CEmailAddressListEditor editor(nullptr, store.server(), "Blacklist");
        editor.ensureInitialised();
        platform.answerFileDialog(path);
        t.restart();
        editor.findChild<QPushButton*>(QStringLiteral("btnImport"))->click();
        QApplication::processEvents(); // the widest entry is measured once the rows are shown
        importMs = msSince(t);
        imported = editor.elements().size();
        t.restart();
        const bool saved = editor.saveList();
        saveMs = msSince(t);
        if (!saved)
            return 1;
    }
    {
        t.restart();
        CEmailAddressListEditor editor(nullptr, store.server(), "Blacklist");
        editor.ensureInitialised();
        QApplication::processEvents();
        openMs = msSince(t);
        reopened = editor.elements().size();
    }
    std::printf("%d addresses: std::set insert %.1f ms; editor import %.1f ms (ratio %.1f), save %.1f ms "
                "(ratio %.1f), open %.1f ms (ratio %.1f); progress dialogs shown %d\n",
                count, setMs, importMs, importMs / setMs, saveMs, saveMs / setMs, openMs, openMs / setMs,
                int(platform.callsOf(QStringLiteral("progress")).size()));
    if (imported != std::size_t(count) || reopened != std::size_t(count)) {
        std::printf("lost entries: imported %zu, reopened %zu\n", imported, reopened);
        return 1;
    }
    return 0;
}
