// Agents: the command the server runs for incoming mail, and its archive directory.
#pragma once

#include "common/TaviDialog.h"

class QLineEdit;

class TAVI_EXPORT CAgentsDlg : public CTaviDialog {
    Q_OBJECT
public:
    CAgentsDlg(QWidget* parent, _tMailServer* server);
    ~CAgentsDlg() override;

protected:
    void initDialog() override;
    bool exchange(bool save) override;
    void onOK() override;

private:
    // Whether an agent command is a local path that other servers of a cluster could not reach.
    bool needsUncReminder(const QString& agent) const;

    QLineEdit* m_archiveEdit = nullptr;
    QLineEdit* m_agentEdit = nullptr;
    QString m_agent;
    QString m_archive;
    QString m_agentRead;
    QString m_archiveRead;
};
