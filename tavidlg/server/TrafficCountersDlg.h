// Traffic counters: the per-mailbox traffic counters on or off, how often the domain and mailbox
// counters are reset, and a CSV report of the mailboxes whose counters exceed the thresholds entered.
#pragma once

#include "common/TaviDialog.h"

#include <array>

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
struct _tTrafficStatistics;

class TAVI_EXPORT CTrafficCountersDlg : public CTaviDialog {
    Q_OBJECT
public:
    // The report thresholds, in the order of their edits.
    enum Threshold {
        RcptCommands,
        SmtpBytesSent,
        SmtpBytesReceived,
        ImapBytesSent,
        ImapBytesReceived,
        PopBytesSent,
        PopBytesReceived,
        ThresholdCount
    };

    CTrafficCountersDlg(QWidget* parent, _tMailServer* server);
    ~CTrafficCountersDlg() override;

    // The thresholds record handed to the report: zeroed, then filled from the thresholds as edited.
    _tTrafficStatistics thresholdsRecord() const;

protected:
    void initDialog() override;
    bool exchange(bool save) override;
    void onOK() override;

private:
    QGroupBox* buildSettingsGroup();
    QGroupBox* buildReportGroup();
    void readStored();
    void onEnabledClicked();
    void onSaveReport();

    QLineEdit* m_mailboxResetEdit = nullptr;
    QLineEdit* m_domainResetEdit = nullptr;
    QPushButton* m_saveReportButton = nullptr;
    QCheckBox* m_enabledCheck = nullptr;
    std::array<QLineEdit*, ThresholdCount> m_thresholdEdits = {};
    quint32 m_mailboxReset = 0;
    quint32 m_domainReset = 0;
    bool m_enabled = false;
    std::array<quint32, ThresholdCount> m_thresholds = {};
    quint32 m_domainResetRead = 0;
    quint32 m_mailboxResetRead = 0;
    bool m_enabledRead = false;
};

// "Enabled" is on only when the stored value is exactly 0xFFFFFFFF (1 is off) and is written as
// 0xFFFFFFFF or 0.
inline constexpr quint32 kTrafficCountersOn = 0xFFFFFFFFu;
