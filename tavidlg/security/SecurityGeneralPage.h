// Security sheet, General: when SMTP clients must authenticate, with which methods, and how repeated
// failed logins lock an address out.
#pragma once

#include "common/PropertySheet.h"

#include <QList>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QSpinBox;

// The SASL methods offered, in the order the server prefers them.
TAVI_EXPORT const QStringList& securityAuthMethods();

class TAVI_EXPORT CSecurityGeneralPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CSecurityGeneralPage(_tMailServer* server);

protected:
    void initPage() override;
    bool exchange(bool save) override;
    bool apply() override;

private:
    void updateControls();
    QString methodsText() const;

    _tMailServer* m_server;
    QComboBox* m_relayCombo = nullptr;
    QCheckBox* m_submissionCheck = nullptr;
    QList<QCheckBox*> m_methodChecks;
    QCheckBox* m_cleartextTlsCheck = nullptr;
    QGroupBox* m_lockoutGroup = nullptr;
    QSpinBox* m_thresholdSpin = nullptr;
    QSpinBox* m_windowSpin = nullptr;
    QSpinBox* m_durationSpin = nullptr;
    QCheckBox* m_autoExpireCheck = nullptr;

    quint32 m_relayRead = 0, m_submissionRead = 1, m_cleartextTlsRead = 1;
    QString m_methodsRead;
    QStringList m_otherMethods; // stored methods this page does not know, kept as they are
    quint32 m_lockoutRead = 0, m_thresholdRead = 5, m_windowRead = 15, m_durationRead = 30, m_autoExpireRead = 1;
};
