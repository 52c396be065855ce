// Security sheet, Directory harvest attack protection: how many unknown recipients a connecting address
// may try, per connection and per time window, before it is put on probation, and for how long.
#pragma once

#include "common/PropertySheet.h"

class QCheckBox;
class QGroupBox;
class QPushButton;
class QSpinBox;

class TAVI_EXPORT CSecurityDhapPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CSecurityDhapPage(_tMailServer* server);

protected:
    void initPage() override;
    bool exchange(bool save) override;
    bool apply() override;

private:
    void onProbationList();

    _tMailServer* m_server;
    QGroupBox* m_enabledGroup = nullptr;
    QSpinBox* m_perConnectionSpin = nullptr;
    QSpinBox* m_perWindowSpin = nullptr;
    QSpinBox* m_windowSpin = nullptr;
    QSpinBox* m_probationSpin = nullptr;
    QCheckBox* m_friendsCheck = nullptr;
    QPushButton* m_probationButton = nullptr;

    quint32 m_enabledRead = 0, m_perConnectionRead = 10, m_perWindowRead = 50, m_windowRead = 60;
    quint32 m_probationRead = 60, m_friendsRead = 1;
};
