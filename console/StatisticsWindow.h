// "Mail Server Statistics": counts of domains, mailboxes and lists, the mailboxes over or near their
// quota, the traffic counters' totals and the largest mailboxes, each computed by the store.
#pragma once

#include <QDialog>

#include <velbrook/StoreBase.h>

class QLabel;
class QTreeWidget;

class StatisticsWindow : public QDialog {
    Q_OBJECT
public:
    explicit StatisticsWindow(_tMailServer* server, QWidget* parent = nullptr);

    // How many of the largest mailboxes are listed.
    static constexpr uint32_t kLargest = 20;

public slots:
    // Reads everything again; false when any query failed (its fields then say why).
    bool refresh();

private:
    QLabel* addValue(class QFormLayout* form, const QString& label, const char* objectName);
    void showFailure(const QList<QLabel*>& fields);

    _tMailServer* m_server;
    QLabel* m_domains = nullptr;
    QLabel* m_mailboxes = nullptr;
    QLabel* m_lists = nullptr;
    QLabel* m_limited = nullptr;
    QLabel* m_over = nullptr;
    QLabel* m_near = nullptr;
    QList<QLabel*> m_traffic;
    QTreeWidget* m_largest = nullptr;
    QLabel* m_status = nullptr;
};
