// The delivery retry schedule: when delivery of a queued message is attempted again, counted from the
// first attempt, and at which attempts the sender is told that the message is delayed.
#pragma once

#include "common/TaviDialog.h"

#include "schedule/RetryScheduleText.h"

#include <QString>

class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

class TAVI_EXPORT CElTimeScheduleDlg : public CTaviDialog {
    Q_OBJECT
public:
    CElTimeScheduleDlg(QWidget* parent, _tMailServer* server);
    ~CElTimeScheduleDlg() override;

    // The most rows the list holds, the initial attempt included.
    static constexpr int kMaxRows = 255;

    // The texts of the displayed times, from the string table.
    static RetrySchedule::DurationWords durationWords();

protected:
    void initDialog() override;
    void onOK() override;

private:
    void fillList(const std::vector<RetrySchedule::Entry>& entries);
    QListWidgetItem* makeRow(quint64 minutes, bool notify);
    void addTime();
    void removeRow();
    void restoreDefault();
    void updateButtons();
    std::vector<RetrySchedule::Entry> entriesFromList() const;

    QLineEdit* m_timeEdit = nullptr;
    QListWidget* m_list = nullptr;
    QPushButton* m_addButton = nullptr;
    QPushButton* m_removeButton = nullptr;
    QPushButton* m_defaultButton = nullptr;
    RetrySchedule::DurationWords m_words;
    // The schedule text as read (or the default), compared with the new one at OK.
    QString m_readText;
};
