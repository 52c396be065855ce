// Security sheet, Anti-spam: the SMTP receiver's anti-spam settings (the same ones the anti-spam wizard
// walks through), edited directly, with the private blacklist of hosts (the spam-list dialog) and of
// networks (the subnet list editor).
#pragma once

#include "common/PropertySheet.h"

#include <QByteArray>
#include <QStringList>

#include <velbrook/MailToolkit.h>

class CStringListEdit;
class QCheckBox;
class QLabel;
class QPushButton;
class QSpinBox;

// Whether a private blacklist entry names a host (so DNS lookups are needed to match it) rather than
// an IP address pattern: after one leading "!", any character other than a digit, "." or "*".
TAVI_EXPORT bool isHostNameEntry(const QString& entry);
// Refusal texts (empty when fine) of a blacklist zone, a private blacklist entry and a blocked return
// address.
TAVI_EXPORT QString checkBlacklistZone(const QString& zone);
TAVI_EXPORT QString checkSpamSource(const QString& entry);
TAVI_EXPORT QString checkReturnAddress(const QString& entry);

class TAVI_EXPORT CSecurityAntiSpamPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CSecurityAntiSpamPage(_tMailServer* server);
    ~CSecurityAntiSpamPage() override;

    QStringList blockedHosts() const { return m_hosts; }

protected:
    void initPage() override;
    bool exchange(bool save) override;
    bool apply() override;

private:
    void updateControls(bool enforce);
    void updateCounts();
    void onEditHosts();
    void onEditNetworks();

    _tMailServer* m_server;
    QCheckBox* m_rejectAnonymousCheck = nullptr;
    QCheckBox* m_lookupCheck = nullptr;
    QCheckBox* m_rblCheck = nullptr;
    QCheckBox* m_rblFriendsCheck = nullptr;
    CStringListEdit* m_zones = nullptr;
    QLabel* m_hostsLabel = nullptr;
    QPushButton* m_hostsButton = nullptr;
    QLabel* m_networksLabel = nullptr;
    QPushButton* m_networksButton = nullptr;
    CStringListEdit* m_returnAddresses = nullptr;
    QCheckBox* m_returnPathCheck = nullptr;
    QCheckBox* m_recipientsCheck = nullptr;
    QSpinBox* m_maxRecipientsSpin = nullptr;

    quint32 m_acceptUnknownRead = 1, m_lookupRead = 0, m_rblRead = 0, m_rblFriendsRead = 0;
    quint32 m_returnPathRead = 0, m_recipientsRead = 0, m_maxRecipientsRead = 0;
    QString m_zonesRead, m_hostsRead, m_addressesRead;
    QStringList m_hosts;             // the private blacklist of hosts as edited
    _tIp4Subnet* m_networks = nullptr; // the blocked networks as edited (owned)
    QByteArray m_networksRead;       // as read, encoded, to tell a change
    bool m_networksReadable = true;
};
