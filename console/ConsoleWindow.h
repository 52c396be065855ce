// The console's main window: the server it manages and the dialogs the library offers for it.
#pragma once

#include "DialogTable.h"

#include <QLibrary>
#include <QList>
#include <QPair>
#include <QMainWindow>

#include <velbrook/StoreBase.h>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

class ConsoleWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit ConsoleWindow(_tMailServer* server, QWidget* parent = nullptr);

    // False (with the reason in errorString()) when the dialog library cannot be loaded.
    bool loadLibrary();
    QString errorString() const { return m_error; }
    // Whether the library exports the row's entry point.
    bool isAvailable(const DialogRow& row);
    // Opens the row's dialog; a screenshot path renders it instead of running it. Returns the
    // entry point's result, or -100 when it was not called (missing, or a question was cancelled).
    // service: for the service control row, the service to control (empty: the server's first).
    int openDialog(const DialogRow& row, const QString& screenshot = QString(), const QString& service = QString());
    // Renders every available dialog and the console itself into dir; returns how many failed.
    int renderAll(const QString& dir);

private:
    void refreshServer();
    void fillDialogList();
    void openItem(QTreeWidgetItem* item);
    QString defaultDomain() const;
    QString askDomain(bool* ok);
    // The server's mail services: (name, "DisplayName" or the name when it has none), in list order.
    QList<QPair<QString, QString>> services() const;

    _tMailServer* m_server;
    QLibrary m_library;
    QString m_error;
    QLabel* m_serverName = nullptr;
    QLabel* m_location = nullptr;
    QLabel* m_connector = nullptr;
    QLabel* m_status = nullptr;
    QTreeWidget* m_dialogs = nullptr;
};
