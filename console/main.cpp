// velbrook-console: opens a configuration store (the default one unless --store or a path is given)
// and offers the dialogs of the TaviDlg library for it.
#include "ConsoleWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("velbrook-console"));
    QApplication::setApplicationVersion(QStringLiteral(TAVI_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Administration console of the Velbrook mail server."));
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption storeOption(QStringLiteral("store"),
                                   QStringLiteral("Open the configuration store at <location> (file or URI)."),
                                   QStringLiteral("location"));
    QCommandLineOption shotOption(QStringLiteral("screenshot"),
                                  QStringLiteral("Render every available dialog to <dir>/<EntryPoint>.png and exit."),
                                  QStringLiteral("dir"));
    parser.addOption(storeOption);
    parser.addOption(shotOption);
    parser.addPositionalArgument(QStringLiteral("store"), QStringLiteral("The store to open (as --store)."),
                                 QStringLiteral("[store]"));
    parser.process(app);

    QString location = parser.value(storeOption);
    if (location.isEmpty() && !parser.positionalArguments().isEmpty())
        location = parser.positionalArguments().constFirst();
    const bool screenshots = parser.isSet(shotOption);

    ConsoleWindow window;
    // A store just created (the default one on first run, say) starts with a demonstration configuration.
    if (!window.openStore(location, true)) {
        std::fprintf(stderr, "%s\n", qPrintable(window.errorString()));
        if (screenshots)
            return 1;
        // The console still opens, so that another store can be chosen with File > Open store...
        QMessageBox::critical(nullptr, window.windowTitle(), window.errorString());
    }
    if (!window.loadLibrary()) {
        std::fprintf(stderr, "%s\n", qPrintable(window.errorString()));
        if (screenshots)
            return 1;
        QMessageBox::critical(nullptr, window.windowTitle(), window.errorString());
    }
    if (screenshots)
        return window.renderAll(parser.value(shotOption)) ? 1 : 0;
    window.show();
    return app.exec();
}
