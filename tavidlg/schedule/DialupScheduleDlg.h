// The time-of-day delivery schedules of a server that delivers over a dial-up link: the weekday and the
// weekend schedule, each edited in its own dialog, and the link's state with connect and disconnect.
#pragma once

#include "common/TaviDialog.h"

#include <QString>

class QLabel;
class QPushButton;

class TAVI_EXPORT CDialupScheduleDlg : public CTaviDialog {
    Q_OBJECT
public:
    CDialupScheduleDlg(QWidget* parent, _tMailServer* server);
    ~CDialupScheduleDlg() override;

    // A readable summary of a schedule text: "08:00, 12:30 (dial-up), 18:00", at most `shown` times and
    // then how many more; a text without times says so.
    static QString summary(const QString& schedule, int shown = 8);

protected:
    void initDialog() override;
    void onOK() override;

private:
    struct Schedule {
        const char* property;
        unsigned captionId;
        QString read;    // as read (empty when unreadable)
        QString current; // as edited
        QLabel* label = nullptr;
    };
    void editSchedule(Schedule& schedule);
    void refreshState();
    void dialupAction(uint32_t action, unsigned errorId);

    Schedule m_weekday;
    Schedule m_weekend;
    QLabel* m_stateLabel = nullptr;
    QPushButton* m_connectButton = nullptr;
    QPushButton* m_disconnectButton = nullptr;
};
