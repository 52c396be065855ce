// velbrook-console: opens a configuration store (the default one unless --store or a path is given)
// and offers the dialogs of the TaviDlg library for it.
#include "ConsoleWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>

#include <velbrook/DemoConfiguration.h>
#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

#include <cstdio>

namespace {

// A store without any server setting was just created: give it the demonstration configuration.
bool isEmptyStore(_tMailServer* server)
{
    char buffer[4] = {};
    uint32_t size = sizeof buffer;
    if (EnumMailServerProperties(server, nullptr, buffer, &size))
        return buffer[0] == '\0';
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("velbrook-console"));
    QApplication::setApplicationDisplayName(QStringLiteral("Velbrook Administration Console"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Administration console of the Velbrook mail server."));
    parser.addHelpOption();
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
    const QByteArray locationUtf8 = location.toUtf8();
    _tMailServer* server = OpenMailServer(location.isEmpty() ? nullptr : locationUtf8.constData());
    if (!server) {
        const uint32_t code = GetLastError();
        char text[256] = {};
        VbErrorText(code, text, sizeof text);
        const QString message = QStringLiteral("The configuration store %1 could not be opened.\n%2 (%3)")
                                    .arg(location.isEmpty() ? QStringLiteral("(default)") : location,
                                         QString::fromUtf8(text))
                                    .arg(code);
        if (parser.isSet(shotOption))
            std::fprintf(stderr, "%s\n", qPrintable(message));
        else
            QMessageBox::critical(nullptr, QApplication::applicationDisplayName(), message);
        return 1;
    }
    if (isEmptyStore(server) && !VbSeedDemoConfiguration(server))
        std::fprintf(stderr, "could not write the demonstration configuration (error %u)\n", GetLastError());

    int status = 0;
    {
        ConsoleWindow window(server);
        const bool loaded = window.loadLibrary();
        if (parser.isSet(shotOption)) {
            status = loaded ? (window.renderAll(parser.value(shotOption)) ? 1 : 0) : 1;
            if (!loaded)
                std::fprintf(stderr, "%s\n", qPrintable(window.errorString()));
        } else {
            window.show();
            status = app.exec();
        }
    }
    CloseMailServer(server);
    return status;
}
