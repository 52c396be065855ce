#include "ConsoleWindow.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QIcon>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <velbrook/DemoConfiguration.h>
#include <velbrook/DomainStore.h>
#include <velbrook/ListStore.h>
#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

#include <cstdint>
#include <cstdio>
#include <vector>

namespace {

using TaviOwner = uintptr_t;
using EntryNone = int (*)(TaviOwner, _tMailServer*);
using EntryOne = int (*)(TaviOwner, _tMailServer*, const char*);
using EntryTwo = int (*)(TaviOwner, _tMailServer*, const char*, const char*);
using EntrySubnetList = int (*)(TaviOwner, _tMailServer*, const char*, const char*, unsigned);
using EntryLogFlags = int (*)(TaviOwner, _tMailServer*, const char*, uint32_t*, uint32_t);

QString constant(_tMailServer* server, const char* name)
{
    QByteArray buffer(257, '\0');
    uint32_t size = uint32_t(buffer.size());
    if (!GetMailServerConstant(server, name, buffer.data(), &size, nullptr)) {
        if (GetLastError() != VB_ERROR_MORE_DATA || size > (1u << 20))
            return QString();
        buffer.fill('\0', qsizetype(size) + 1);
        size = uint32_t(buffer.size());
        if (!GetMailServerConstant(server, name, buffer.data(), &size, nullptr))
            return QString();
    }
    return QString::fromUtf8(buffer.constData(), qsizetype(qstrnlen(buffer.constData(), size_t(buffer.size()))));
}

// A store without any server setting was just created.
bool isEmptyStore(_tMailServer* server)
{
    char buffer[4] = {};
    uint32_t size = sizeof buffer;
    if (EnumMailServerProperties(server, nullptr, buffer, &size))
        return buffer[0] == '\0';
    return false;
}

// Sets an environment variable for one call.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const QString& value) : m_name(name), m_active(!value.isEmpty())
    {
        if (m_active)
            qputenv(m_name, value.toUtf8());
    }
    ~ScopedEnv()
    {
        if (m_active)
            qunsetenv(m_name);
    }

private:
    const char* m_name;
    bool m_active;
};

} // namespace

ConsoleWindow::ConsoleWindow(QWidget* parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("ConsoleWindow"));
    setWindowTitle(QStringLiteral("Velbrook Administration Console"));
    setWindowIcon(QIcon(QStringLiteral(":/tavidlg/velbrook-32.png")));

    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    auto* serverBox = new QGroupBox(QStringLiteral("Server"), central);
    auto* form = new QFormLayout(serverBox);
    m_serverName = new QLabel(serverBox);
    m_serverName->setObjectName(QStringLiteral("lblServerName"));
    m_serverName->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_location = new QLabel(serverBox);
    m_location->setObjectName(QStringLiteral("lblLocation"));
    m_location->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_location->setWordWrap(true);
    m_connector = new QLabel(serverBox);
    m_connector->setObjectName(QStringLiteral("lblConnector"));
    form->addRow(QStringLiteral("Name:"), m_serverName);
    form->addRow(QStringLiteral("Location:"), m_location);
    form->addRow(QStringLiteral("Connector:"), m_connector);
    layout->addWidget(serverBox);

    auto* dialogsLabel = new QLabel(QStringLiteral("&Dialogs:"), central);
    m_dialogs = new QTreeWidget(central);
    m_dialogs->setObjectName(QStringLiteral("lstDialogs"));
    m_dialogs->setColumnCount(2);
    m_dialogs->setHeaderHidden(true);
    m_dialogs->setRootIsDecorated(true);
    m_dialogs->setUniformRowHeights(true);
    m_dialogs->header()->setStretchLastSection(false);
    m_dialogs->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_dialogs->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    dialogsLabel->setBuddy(m_dialogs);
    layout->addWidget(dialogsLabel);
    layout->addWidget(m_dialogs, 1);
    m_open = new QPushButton(QStringLiteral("&Open..."), central);
    m_open->setObjectName(QStringLiteral("btnOpen"));
    m_open->setEnabled(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_open);
    layout->addLayout(buttons);
    setCentralWidget(central);
    setTabOrder(m_dialogs, m_open);

    // Enter and a double-click both activate an item (the view's own rules).
    connect(m_dialogs, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) { openItem(item); });
    connect(m_dialogs, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        m_open->setEnabled(item && !item->data(0, Qt::UserRole).toString().isEmpty());
    });
    connect(m_open, &QPushButton::clicked, this, [this] { openItem(m_dialogs->currentItem()); });

    // A service that is starting or stopping is looked at again until it gets there.
    m_pendingPoll = new QTimer(this);
    m_pendingPoll->setInterval(500);
    connect(m_pendingPoll, &QTimer::timeout, this, &ConsoleWindow::refreshServices);

    buildMenus();
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("lblStatus"));
    statusBar()->addWidget(m_status, 1);
    resize(560, 620);
    refreshServer();
    m_dialogs->setFocus();
}

ConsoleWindow::~ConsoleWindow()
{
    if (m_server)
        CloseMailServer(m_server);
}

void ConsoleWindow::buildMenus()
{
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    QAction* open = file->addAction(QStringLiteral("&Open store..."), QKeySequence::Open, this, &ConsoleWindow::chooseStore);
    open->setObjectName(QStringLiteral("actOpenStore"));
    file->addSeparator();
    file->addAction(QStringLiteral("&Quit"), QKeySequence::Quit, this, &QWidget::close);
    QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
    view->addAction(QStringLiteral("&Refresh"), QKeySequence::Refresh, this, [this] {
        refreshServer();
        refreshServices();
    });
    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->addAction(QStringLiteral("&About"), this, [this] {
        QMessageBox::about(this, QStringLiteral("About the console"),
                           QStringLiteral("Velbrook Administration Console %1\n\nOpens the configuration dialogs "
                                          "of the TaviDlg library over one server's configuration store.")
                               .arg(QStringLiteral(TAVI_VERSION)));
    });
}

QString ConsoleWindow::storeErrorText(const QString& location, uint32_t code)
{
    char text[256] = {};
    VbErrorText(code, text, sizeof text);
    QString reason = QString::fromUtf8(text, qsizetype(qstrnlen(text, sizeof text)));
    if (reason.isEmpty())
        reason = QStringLiteral("Unknown error");
    return QStringLiteral("The configuration store %1 could not be opened.\n%2 (error %3)")
        .arg(location.isEmpty() ? QStringLiteral("(the default store)") : location, reason)
        .arg(code);
}

bool ConsoleWindow::openStore(const QString& location, bool seedIfEmpty)
{
    const QByteArray utf8 = location.toUtf8();
    _tMailServer* server = OpenMailServer(location.isEmpty() ? nullptr : utf8.constData());
    if (!server) {
        m_error = storeErrorText(location, GetLastError());
        return false;
    }
    if (seedIfEmpty && isEmptyStore(server) && !VbSeedDemoConfiguration(server))
        std::fprintf(stderr, "could not write the demonstration configuration (error %u)\n", GetLastError());
    if (m_server)
        CloseMailServer(m_server);
    m_server = server;
    refreshServer();
    fillDialogList();
    return true;
}

void ConsoleWindow::chooseStore()
{
    const QString current = m_server ? QString::fromUtf8(GetMailServerLocation(m_server)) : QString();
    const QString file = QFileDialog::getOpenFileName(this, QStringLiteral("Open a configuration store"),
                                                      QFileInfo(current).absolutePath(),
                                                      QStringLiteral("Configuration stores (*.db);;All files (*)"));
    if (file.isEmpty())
        return;
    if (!openStore(file))
        report(m_error);
    else
        m_status->setText(QStringLiteral("Opened %1").arg(QDir::toNativeSeparators(file)));
}

void ConsoleWindow::report(const QString& message)
{
    QMessageBox::critical(this, windowTitle(), message);
}

bool ConsoleWindow::loadLibrary(const QString& file)
{
    if (m_library.isLoaded())
        m_library.unload();
    m_library.setFileName(QString());
    if (!file.isEmpty()) {
        m_library.setFileName(file);
    } else {
        // Next to the console's own build or install tree first, then wherever the system looks.
        const QString name = QStringLiteral(TAVI_LIBRARY_FILE);
        const QString appDir = QCoreApplication::applicationDirPath();
        for (const QString& candidate :
             {appDir + QStringLiteral("/../lib/") + name, appDir + QLatin1Char('/') + name}) {
            if (QFileInfo::exists(candidate)) {
                m_library.setFileName(QDir::cleanPath(candidate));
                break;
            }
        }
        if (m_library.fileName().isEmpty())
            m_library.setFileName(QStringLiteral("TaviDlg"));
    }
    const bool loaded = m_library.load();
    m_error = loaded ? QString()
                     : QStringLiteral("The dialog library could not be loaded.\n%1").arg(m_library.errorString());
    fillDialogList();
    return loaded;
}

bool ConsoleWindow::isAvailable(const DialogRow& row)
{
    return m_library.isLoaded() && m_library.resolve(row.entryPoint) != nullptr;
}

void ConsoleWindow::refreshServer()
{
    if (!m_server) {
        m_serverName->setText(QStringLiteral("(no store open)"));
        m_location->clear();
        m_connector->clear();
        setWindowTitle(QStringLiteral("Velbrook Administration Console"));
        return;
    }
    QString name = constant(m_server, "MachineName");
    if (name.isEmpty())
        name = QStringLiteral("(unknown)");
    setWindowTitle(QStringLiteral("%1 - Velbrook Administration Console").arg(name));
    if (!IsLocalMachine(m_server))
        name += QStringLiteral(" (on another machine)");
    m_serverName->setText(name);
    const char* location = GetMailServerLocation(m_server);
    m_location->setText(QDir::toNativeSeparators(QString::fromUtf8(location ? location : "")));
    _tConfigConnectorInfo info = {};
    info.cbSize = sizeof info;
    QString connector = QStringLiteral("(unknown)");
    if (GetConfigConnectorInfo(m_server, &info)) {
        connector = info.connectorType == 0 ? QStringLiteral("Embedded (SQLite)") : QStringLiteral("PostgreSQL");
        if (info.clustered)
            connector += QStringLiteral(", clustered");
        if (info.flags & 1u)
            connector += QStringLiteral(", read-only");
        connector += QStringLiteral(", schema %1").arg(info.version);
    }
    m_connector->setText(connector);
}

QString ConsoleWindow::stateText(uint32_t state)
{
    switch (state) {
    case VB_SERVICE_STOPPED:
        return QStringLiteral("Stopped");
    case VB_SERVICE_START_PENDING:
        return QStringLiteral("Starting");
    case VB_SERVICE_STOP_PENDING:
        return QStringLiteral("Stopping");
    case VB_SERVICE_RUNNING:
        return QStringLiteral("Running");
    case VB_SERVICE_CONTINUE_PENDING:
        return QStringLiteral("Resuming");
    case VB_SERVICE_PAUSE_PENDING:
        return QStringLiteral("Pausing");
    case VB_SERVICE_PAUSED:
        return QStringLiteral("Paused");
    }
    return QStringLiteral("Unknown");
}

void ConsoleWindow::refreshServices()
{
    bool pending = false;
    for (QTreeWidgetItemIterator it(m_dialogs); *it; ++it) {
        const QByteArray service = (*it)->data(0, Qt::UserRole + 1).toString().toUtf8();
        if (service.isEmpty() || !m_server)
            continue;
        uint32_t state = 0;
        if (!GetMailServiceStatus(m_server, service.constData(), &state))
            state = 0;
        pending = pending || state == VB_SERVICE_START_PENDING || state == VB_SERVICE_STOP_PENDING
            || state == VB_SERVICE_CONTINUE_PENDING || state == VB_SERVICE_PAUSE_PENDING;
        (*it)->setText(1, stateText(state));
        (*it)->setData(1, Qt::UserRole, state);
    }
    if (pending && !m_pendingPoll->isActive())
        m_pendingPoll->start();
    else if (!pending)
        m_pendingPoll->stop();
}

void ConsoleWindow::fillDialogList()
{
    m_dialogs->clear();
    if (!m_library.isLoaded() || !m_server) {
        m_open->setEnabled(false);
        m_status->setText(!m_server ? QStringLiteral("No configuration store is open.")
                                    : m_error.isEmpty() ? QStringLiteral("The dialog library is not loaded.")
                                                        : QString(m_error).replace(QLatin1Char('\n'), QLatin1Char(' ')));
        return;
    }
    QTreeWidgetItem* group = nullptr;
    int count = 0;
    for (const DialogRow& row : dialogTable()) {
        if (!isAvailable(row))
            continue;
        const QString groupName = QString::fromUtf8(row.group);
        if (!group || group->text(0) != groupName) {
            group = new QTreeWidgetItem(m_dialogs, {groupName});
            group->setFlags(Qt::ItemIsEnabled);
            group->setFirstColumnSpanned(true);
            group->setExpanded(true);
        }
        // The properties of a service are listed beside the service itself (below).
        if (row.args == EntryArgs::Service)
            continue;
        // Every service of the server gets its own control dialog, with its state beside it, and its
        // properties under it.
        if (row.args == EntryArgs::ServiceControl) {
            const DialogRow* properties = nullptr;
            for (const DialogRow& other : dialogTable()) {
                if (other.args == EntryArgs::Service && isAvailable(other))
                    properties = &other;
            }
            for (const auto& [name, displayName] : services()) {
                auto* item = new QTreeWidgetItem(group, {displayName + QStringLiteral(" service")});
                item->setData(0, Qt::UserRole, QString::fromUtf8(row.entryPoint));
                item->setData(0, Qt::UserRole + 1, name);
                item->setToolTip(0, QStringLiteral("%1 (%2)").arg(QString::fromUtf8(row.entryPoint), name));
                ++count;
                if (properties) {
                    auto* child = new QTreeWidgetItem(item, {QStringLiteral("Properties...")});
                    child->setData(0, Qt::UserRole, QString::fromUtf8(properties->entryPoint));
                    child->setData(0, Qt::UserRole + 2, name);
                    child->setToolTip(0, QStringLiteral("%1 (%2)").arg(QString::fromUtf8(properties->entryPoint), name));
                    item->setExpanded(true);
                    ++count;
                }
            }
            continue;
        }
        auto* item = new QTreeWidgetItem(group, {QString::fromUtf8(row.title)});
        item->setData(0, Qt::UserRole, QString::fromUtf8(row.entryPoint));
        item->setToolTip(0, QString::fromUtf8(row.entryPoint));
        ++count;
    }
    refreshServices();
    m_status->setText(count == 1 ? QStringLiteral("1 dialog available")
                                 : QStringLiteral("%1 dialogs available").arg(count));
    if (QTreeWidgetItem* first = m_dialogs->topLevelItemCount() ? m_dialogs->topLevelItem(0)->child(0) : nullptr)
        m_dialogs->setCurrentItem(first);
}

void ConsoleWindow::openItem(QTreeWidgetItem* item)
{
    if (!item)
        return;
    const QString entry = item->data(0, Qt::UserRole).toString();
    if (entry.isEmpty()) {
        item->setExpanded(!item->isExpanded());
        return;
    }
    for (const DialogRow& row : dialogTable()) {
        if (entry != QLatin1String(row.entryPoint))
            continue;
        const QVariant service = item->data(0, Qt::UserRole + 1).isValid() ? item->data(0, Qt::UserRole + 1)
                                                                           : item->data(0, Qt::UserRole + 2);
        const int result = openDialog(row, QString(), service.toString());
        // A service's "Properties..." is named after its service in the status line.
        const QString what = item->data(0, Qt::UserRole + 2).isValid() && item->parent()
                               ? item->parent()->text(0) + QStringLiteral(" properties")
                               : item->text(0);
        if (result == 1)
            m_status->setText(QStringLiteral("%1: closed with OK").arg(what));
        else if (result == 2)
            m_status->setText(QStringLiteral("%1: cancelled").arg(what));
        else if (result == -1)
            m_status->setText(QStringLiteral("%1: the dialog could not be opened").arg(what));
        else if (result != -100)
            m_status->setText(QStringLiteral("%1: returned %2").arg(what).arg(result));
        refreshServer();
        refreshServices();
        return;
    }
}

QString ConsoleWindow::defaultDomain() const
{
    char name[256] = {};
    if (!GetDefaultDomainName(m_server, name, sizeof name))
        return QString();
    name[sizeof name - 1] = '\0';
    return QString::fromUtf8(name);
}

QString ConsoleWindow::askDomain(bool* ok)
{
    QStringList domains;
    if (_tDomainEnum* e = StartDomainEnumeration(m_server)) {
        char name[256];
        uint32_t size = sizeof name;
        while (FindNextDomain(e, name, &size)) {
            domains.append(QString::fromUtf8(name, qsizetype(qstrnlen(name, sizeof name))));
            size = sizeof name;
        }
        CloseDomainEnumeration(e);
    }
    // A plain choice among the store's domains; the default one is marked and chosen at first.
    const int defaultIndex = int(domains.indexOf(defaultDomain()));
    QStringList shown = domains;
    if (defaultIndex >= 0)
        shown[defaultIndex] += QStringLiteral(" (default)");
    const QString chosen = QInputDialog::getItem(this, QStringLiteral("Choose a domain"), QStringLiteral("&Domain:"),
                                                 shown, qMax(0, defaultIndex), false, ok);
    const qsizetype index = shown.indexOf(chosen);
    return index >= 0 ? domains.at(index) : QString();
}

QStringList ConsoleWindow::mailingLists(const QString& domain) const
{
    const QByteArray d = domain.toUtf8();
    uint32_t size = 0;
    GetMailingListNames(m_server, d.constData(), nullptr, &size);
    QByteArray buffer(qsizetype(size) + 2, '\0');
    size = uint32_t(buffer.size());
    QStringList names;
    if (!GetMailingListNames(m_server, d.constData(), buffer.data(), &size))
        return names;
    for (const QByteArray& name : buffer.split('\0')) {
        if (name.isEmpty())
            break;
        names.append(QString::fromUtf8(name));
    }
    return names;
}

QList<QPair<QString, QString>> ConsoleWindow::services() const
{
    QList<QPair<QString, QString>> out;
    uint32_t size = 0;
    GetMailServiceList(m_server, nullptr, &size);
    QByteArray list(qsizetype(size) + 2, '\0');
    size = uint32_t(list.size());
    if (!GetMailServiceList(m_server, list.data(), &size))
        return out;
    for (const QByteArray& name : list.split('\0')) {
        if (name.isEmpty())
            break;
        char display[257] = {};
        uint32_t displaySize = sizeof display - 1;
        QString shown = QString::fromUtf8(name);
        if (GetMailServerProperty(m_server, name.constData(), "DisplayName", display, &displaySize, nullptr) && display[0])
            shown = QString::fromUtf8(display);
        out.append({QString::fromUtf8(name), shown});
    }
    return out;
}

int ConsoleWindow::openDialog(const DialogRow& row, const QString& screenshot, const QString& service)
{
    QFunctionPointer symbol = m_server ? m_library.resolve(row.entryPoint) : nullptr;
    if (!symbol)
        return -100;
    const bool interactive = screenshot.isEmpty();
    const TaviOwner owner = interactive ? TaviOwner(winId()) : 0;
    ScopedEnv shot("TAVI_SCREENSHOT", screenshot);
    bool ok = true;
    switch (row.args) {
    case EntryArgs::None:
        return reinterpret_cast<EntryNone>(symbol)(owner, m_server);
    case EntryArgs::Domain:
    case EntryArgs::DomainList: {
        const QString domain = interactive ? askDomain(&ok) : defaultDomain();
        if (!ok)
            return -100;
        if (row.args == EntryArgs::Domain)
            return reinterpret_cast<EntryOne>(symbol)(owner, m_server, domain.toUtf8().constData());
        return reinterpret_cast<EntryTwo>(symbol)(owner, m_server, domain.toUtf8().constData(), "Blacklist");
    }
    case EntryArgs::MailList: {
        const QString domain = interactive ? askDomain(&ok) : defaultDomain();
        const QStringList lists = ok ? mailingLists(domain) : QStringList();
        const QString name = !ok || lists.isEmpty() ? QString()
            : interactive ? QInputDialog::getItem(this, QStringLiteral("Open a mailing list"),
                                                  QStringLiteral("&Mailing list of %1:").arg(domain), lists, 0, false, &ok)
                          : lists.first();
        if (!ok || name.isEmpty())
            return -100;
        const QByteArray first = domain.toUtf8(), second = name.toUtf8();
        return reinterpret_cast<EntryTwo>(symbol)(owner, m_server, first.constData(), second.constData());
    }
    case EntryArgs::Mailbox:
    case EntryArgs::MailboxList: {
        const QString what = row.args == EntryArgs::MailList ? QStringLiteral("list") : QStringLiteral("mailbox");
        const QString name = interactive
            ? QInputDialog::getText(this, QStringLiteral("Open a %1").arg(what),
                                    QStringLiteral("&Name of the %1 (local part):").arg(what), QLineEdit::Normal,
                                    QString(), &ok)
            : QStringLiteral("postmaster");
        if (!ok)
            return -100;
        const QByteArray first = name.toUtf8(), second = defaultDomain().toUtf8();
        return reinterpret_cast<EntryTwo>(symbol)(owner, m_server, first.constData(), second.constData());
    }
    case EntryArgs::Service: {
        // A service's properties item names it; otherwise (rendering) the first service.
        const QList<QPair<QString, QString>> all = services();
        const QByteArray name = (!service.isEmpty() ? service
                                 : all.isEmpty()    ? QStringLiteral("SMTPRA")
                                                    : all.first().first).toUtf8();
        return reinterpret_cast<EntryOne>(symbol)(owner, m_server, name.constData());
    }
    case EntryArgs::ServiceControl: {
        const QList<QPair<QString, QString>> all = services();
        QPair<QString, QString> chosen = all.isEmpty() ? qMakePair(service, service) : all.first();
        for (const auto& s : all) {
            if (s.first == service)
                chosen = s;
        }
        const QByteArray name = chosen.first.toUtf8(), caption = (chosen.second + QStringLiteral(" service")).toUtf8();
        return reinterpret_cast<EntryTwo>(symbol)(owner, m_server, name.constData(), caption.constData());
    }
    case EntryArgs::ServerList:
        return reinterpret_cast<EntryOne>(symbol)(owner, m_server, "Blacklist");
    case EntryArgs::SubnetList:
        // 60976: the library's caption "Trusted IP Subnets".
        return reinterpret_cast<EntrySubnetList>(symbol)(owner, m_server, "SMTPRA", "TrustedSubnets", 60976);
    case EntryArgs::LogFlags: {
        // The console edits the server's own log flags: read them, let the sheet change them, store them.
        uint32_t flags = 0, size = sizeof flags;
        if (!GetMailServerProperty(m_server, "Logging", "LogFlags", &flags, &size, nullptr))
            flags = 0;
        const uint32_t before = flags;
        const int result = reinterpret_cast<EntryLogFlags>(symbol)(owner, m_server, "Log Flags", &flags, 0xFFFFFFFFu);
        if (result == 1 && flags != before
            && !SetMailServerProperty(m_server, "Logging", VB_TYPE_DWORD, "LogFlags", &flags, sizeof flags))
            QMessageBox::warning(this, QStringLiteral("Log flags"),
                                 QStringLiteral("The log flags could not be stored (error %1).").arg(GetLastError()));
        return result;
    }
    }
    return -100;
}

int ConsoleWindow::renderAll(const QString& dir)
{
    QDir().mkpath(dir);
    int failures = 0;
    for (const DialogRow& row : dialogTable()) {
        if (!isAvailable(row))
            continue;
        const QString file = QDir(dir).filePath(QString::fromUtf8(row.entryPoint) + QStringLiteral(".png"));
        const int result = openDialog(row, file);
        const bool saved = result != -1 && QFileInfo::exists(file);
        std::printf("%s %s\n", saved ? "rendered" : "FAILED  ", qPrintable(file));
        failures += saved ? 0 : 1;
    }
    // The reminder box has no row of its own: it is rendered as the agents dialog shows it.
    using ShowReminder = int (*)(TaviOwner, unsigned, const char*, unsigned, unsigned);
    if (auto reminder = reinterpret_cast<ShowReminder>(m_library.resolve("ShowReminder"))) {
        const QString file = QDir(dir).filePath(QStringLiteral("ShowReminder.png"));
        ScopedEnv shot("TAVI_SCREENSHOT", file);
        const int result = reminder(0, 57404, "ServerAgentReminder", 57403, 49);
        const bool saved = result != -1 && QFileInfo::exists(file);
        // A reminder this user silenced has no window to render.
        std::printf("%s %s\n", saved ? "rendered" : result == 1 ? "silenced" : "FAILED  ", qPrintable(file));
        failures += saved || result == 1 ? 0 : 1;
    }
    show();
    QCoreApplication::processEvents();
    const QString self = QDir(dir).filePath(QStringLiteral("velbrook-console.png"));
    if (!grab().save(self, "PNG"))
        ++failures;
    else
        std::printf("rendered %s\n", qPrintable(self));
    hide();
    return failures;
}
