// The console's main window: the server it manages and the dialogs the library offers for it.
#pragma once

#include "DialogTable.h"

#include <QLibrary>
#include <QList>
#include <QMainWindow>
#include <QPair>

#include <velbrook/StoreBase.h>

class QLabel;
class QPushButton;
class QTimer;
class QTreeWidget;
class QTreeWidgetItem;

class ConsoleWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit ConsoleWindow(QWidget* parent = nullptr);
    ~ConsoleWindow() override;

    // Opens the store at location (empty: the default store) in place of the current one. On failure
    // the current store stays open and errorString() says why. seedIfEmpty: a store that holds no
    // server setting yet (just created) gets the demonstration configuration.
    bool openStore(const QString& location, bool seedIfEmpty = false);
    _tMailServer* server() const { return m_server; }

    // False (with the reason in errorString()) when the dialog library cannot be loaded. file: the
    // library to load; empty looks next to the console, then wherever the system looks.
    bool loadLibrary(const QString& file = QString());
    QString errorString() const { return m_error; }

    // Whether the library exports the row's entry point.
    bool isAvailable(const DialogRow& row);
    // Opens the row's dialog; a screenshot path renders it instead of running it. Returns the
    // entry point's result, or -100 when it was not called (missing, or a question was cancelled).
    // service: for the service control row, the service to control (empty: the server's first).
    int openDialog(const DialogRow& row, const QString& screenshot = QString(), const QString& service = QString());
    // Renders every available dialog and the console itself into dir; returns how many failed.
    int renderAll(const QString& dir);

    // Text of a service state as the list shows it ("Running", "Starting", ...).
    static QString stateText(uint32_t state);
    // The message for a store that would not open, with the store's own error text and code.
    static QString storeErrorText(const QString& location, uint32_t code);

public slots:
    void refreshServices();

private:
    void buildMenus();
    void refreshServer();
    void fillDialogList();
    void openItem(QTreeWidgetItem* item);
    void chooseStore();
    void report(const QString& message);
    QString defaultDomain() const;
    QString askDomain(bool* ok);
    QStringList mailingLists(const QString& domain) const;
    // The server's mail services: (name, "DisplayName" or the name when it has none), in list order.
    QList<QPair<QString, QString>> services() const;

    _tMailServer* m_server = nullptr;
    QLibrary m_library;
    QString m_error;
    QLabel* m_serverName = nullptr;
    QLabel* m_location = nullptr;
    QLabel* m_connector = nullptr;
    QLabel* m_status = nullptr;
    QTreeWidget* m_dialogs = nullptr;
    QPushButton* m_open = nullptr;
    QTimer* m_pendingPoll = nullptr;
};
