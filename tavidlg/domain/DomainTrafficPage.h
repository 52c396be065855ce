// The domain sheet's traffic page: the domain's size and its traffic counters since a start date, with
// Reset, which restarts the counters at once (it does not wait for OK and Cancel does not undo it).
#pragma once

#include "common/PropertySheet.h"

class CDomainSheet;
class QLabel;
class QPushButton;

class TAVI_EXPORT CDomainTrafficPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    static constexpr int CounterCount = 8;

    explicit CDomainTrafficPage(CDomainSheet* sheet);
    ~CDomainTrafficPage() override;

protected:
    void onSetActive() override;

private:
    void load();
    void display();
    void onReset();

    CDomainSheet* m_sheet = nullptr;
    QLabel* m_sinceLabel = nullptr;
    QLabel* m_counterLabels[CounterCount] = {};
    QLabel* m_statusLabel = nullptr;
    QPushButton* m_resetButton = nullptr;

    quint32 m_statisticsDate = 0;
    quint32 m_counters[CounterCount] = {};
    quint32 m_messageSize = 0;
    quint32 m_messageCount = 0;
    quint32 m_lastVerified = 0;
    quint32 m_mailboxCount = 0;
    bool m_countersLoaded = false;
};
