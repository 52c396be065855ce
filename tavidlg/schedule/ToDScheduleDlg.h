// One time-of-day delivery schedule: the times of the day at which queued mail is delivered, each of
// which may also force a dial-up connection. Edits a schedule text that its caller owns.
#pragma once

#include "common/TaviDialog.h"

class CTimeOfDaySpin;
class QListWidget;
class QPushButton;

class TAVI_EXPORT CToDScheduleDlg : public CTaviDialog {
    Q_OBJECT
public:
    // captionId: the string id of the caption (weekday or weekend schedule). schedule: the text to edit;
    // replaced by the edited schedule on OK, left alone on Cancel.
    CToDScheduleDlg(QWidget* parent, unsigned captionId, QString& schedule);
    ~CToDScheduleDlg() override;

protected:
    void initDialog() override;
    void onOK() override;

private:
    void addTime();
    void removeTime();
    void updateButtons();

    QString& m_schedule;
    CTimeOfDaySpin* m_spin = nullptr;
    QListWidget* m_list = nullptr;
    QPushButton* m_addButton = nullptr;
    QPushButton* m_removeButton = nullptr;
};
