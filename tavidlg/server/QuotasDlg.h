// Quotas: mailbox quota support for the whole server, how quota warnings behave, the default limits
// that new domains report, and the server's last measured mailbox usage.
#pragma once

#include "common/TaviDialog.h"

#include <QList>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;

class TAVI_EXPORT CQuotasDlg : public CTaviDialog {
    Q_OBJECT
public:
    CQuotasDlg(QWidget* parent, _tMailServer* server);
    ~CQuotasDlg() override;

protected:
    void initDialog() override;
    bool exchange(bool save) override;

private:
    QGroupBox* buildDefaultQuotaGroup();
    void readStored();
    void fillUsageSummary();
    void enableQuotaControls(bool on);
    // Takes a limit edit's text, trimmed (and shown trimmed): 0 for "none", else its leading number.
    quint32 takeLimit(QLineEdit* edit);

    QLabel* m_usageLabel = nullptr;
    QCheckBox* m_enabledCheck = nullptr;
    QCheckBox* m_copyPostmasterCheck = nullptr;
    QCheckBox* m_failPermanentCheck = nullptr;
    QLineEdit* m_gapEdit = nullptr;
    QLineEdit* m_limitEdit = nullptr;
    QLineEdit* m_triggerEdit = nullptr;
    // The controls that follow the quota support box.
    QList<QWidget*> m_dependentControls;

    // Each value as read and as edited.
    quint32 m_copyPostmasterRead = 0, m_copyPostmaster = 0;
    quint32 m_enabledRead = 0, m_enabled = 0;
    quint32 m_failPermanentRead = 0, m_failPermanent = 0;
    quint32 m_gapRead = 1, m_gap = 1;
    quint32 m_limitRead = 0, m_limit = 0;
    quint32 m_triggerRead = 0, m_trigger = 0;
};

// A quota limit as typed: 0 for "none" (any case), else the text's leading decimal number (0 when it
// does not begin with one; a number too large for 32 bits stays at the largest value).
TAVI_EXPORT quint32 parseQuotaLimit(const QString& trimmedText);
// The usage summary's date: "%c" in the user's locale, or "unknown" when the time is 0 or cannot be
// converted.
TAVI_EXPORT QString quotaCheckedText(quint32 secondsSince1970);
