// Calendaring: the server's calendaring service on or off, and whether it applies to all mailboxes or
// only to the domains and mailboxes configured for it.
#pragma once

#include "common/TaviDialog.h"

#include <velbrook/MailServer.h>

class QCheckBox;
class QLabel;
class QRadioButton;

class TAVI_EXPORT CCalendaringDlg : public CTaviDialog {
    Q_OBJECT
public:
    CCalendaringDlg(QWidget* parent, _tMailServer* server);
    ~CCalendaringDlg() override;

protected:
    void initDialog() override;
    void onOK() override;

private:
    CMailServer m_mailServer;
    unsigned long m_remitRead = 0;
    unsigned long m_remit = 0;
    unsigned long m_onRead = 0;
    unsigned long m_on = 0;
    QLabel* m_label = nullptr;
    QCheckBox* m_onCheck = nullptr;
    QRadioButton* m_allRadio = nullptr;
    QRadioButton* m_configuredRadio = nullptr;
};
