// velbrook-console: opens a configuration store (the default one unless --store or a path is given)
// and offers the dialogs of the TaviDlg library for it.
#include "ConsoleWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QTranslator>

#include <cstdio>

namespace {

// The console's texts and Qt's own in the user's language (LANG, LC_ALL, LC_MESSAGES, LANGUAGE); the
// library installs its own when it is loaded.
void installTranslators(QApplication& app)
{
    static QTranslator own;
    static QTranslator qt;
    if (!own.load(QLocale(), QStringLiteral("tavidlg"), QStringLiteral("_"), QStringLiteral(":/console/translations")))
        return;
    QApplication::installTranslator(&own);
    if (qt.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qt);
}

// The library of an installed console: in the library folder beside the program's folder, whatever
// that is called on this system; empty in a build tree (the console finds it there by itself).
QString installedLibrary()
{
#ifdef TAVI_INSTALLED_LIBRARY
    const QString path = QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1Char('/')
                                         + QStringLiteral(TAVI_INSTALLED_LIBRARY));
    if (QFileInfo::exists(path))
        return path;
#endif
    return QString();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("velbrook-console"));
    QApplication::setApplicationVersion(QStringLiteral(TAVI_VERSION));
    installTranslators(app);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("velbrook-console", "Administration console of the Velbrook mail server."));
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption storeOption(
        QStringLiteral("store"),
        QCoreApplication::translate("velbrook-console", "Open the configuration store at <location> (file or URI)."),
        QStringLiteral("location"));
    QCommandLineOption shotOption(
        QStringLiteral("screenshot"),
        QCoreApplication::translate("velbrook-console", "Render every available dialog to <dir>/<EntryPoint>.png and exit."),
        QStringLiteral("dir"));
    parser.addOption(storeOption);
    parser.addOption(shotOption);
    parser.addPositionalArgument(QStringLiteral("store"),
                                 QCoreApplication::translate("velbrook-console", "The store to open (as --store)."),
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
    if (!window.loadLibrary(installedLibrary())) {
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
