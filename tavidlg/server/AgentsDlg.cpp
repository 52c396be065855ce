#include "server/AgentsDlg.h"
#include "res/ServerStringIds.h"

#include "common/PlatformServices.h"
#include "common/Reminder.h"
#include "config/AccessLayer.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2056;
constexpr unsigned kUncReminderText = IDS_SERVER_UNC_REMINDER;
constexpr unsigned kUncReminderCaption = IDS_SERVER_UNC_REQUIRED;
constexpr unsigned kReminderFlags = Mb::OkCancel | Mb::IconExclamation; // 49
}

CAgentsDlg::CAgentsDlg(QWidget* parent, _tMailServer* server) : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CAgentsDlg"));
    setWindowTitle(tr("Agents on %1"));

    auto* agentLabel = new QLabel(tr("&Incoming mail agent:"), this);
    agentLabel->setObjectName(QStringLiteral("lblIncomingMailCmd"));
    m_agentEdit = new QLineEdit(this);
    m_agentEdit->setObjectName(QStringLiteral("edtIncomingMailCmd"));
    m_agentEdit->setMinimumWidth(fontMetrics().averageCharWidth() * 52);
    agentLabel->setBuddy(m_agentEdit);
    auto* archiveLabel = new QLabel(tr("&Archive directory:"), this);
    archiveLabel->setObjectName(QStringLiteral("lblArchiveDir"));
    m_archiveEdit = new QLineEdit(this);
    m_archiveEdit->setObjectName(QStringLiteral("edtArchiveDir"));
    archiveLabel->setBuddy(m_archiveEdit);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(agentLabel);
    layout->addWidget(m_agentEdit);
    layout->addSpacing(6);
    layout->addWidget(archiveLabel);
    layout->addWidget(m_archiveEdit);
    layout->addStretch(1);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_agentEdit, m_archiveEdit);

    ReadServerString(server, nullptr, "IncomingMailCmd", m_agentRead, kCommandBufferSize);
    ReadServerString(server, nullptr, "ArchiveDir", m_archiveRead, kCommandBufferSize);
    m_agent = m_agentRead;
    m_archive = m_archiveRead;
}

CAgentsDlg::~CAgentsDlg() = default;

void CAgentsDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
}

bool CAgentsDlg::exchange(bool save)
{
    if (!save) {
        setEditText(m_agentEdit, m_agent);
        setEditText(m_archiveEdit, m_archive);
        return true;
    }
    // The saving exchange ignores letter case, unlike OK's test for a change; failed writes are silent.
    m_agent = m_agentEdit->text().trimmed();
    if (m_agent.compare(m_agentRead, Qt::CaseInsensitive) != 0
        && WriteServerString(server(), nullptr, "IncomingMailCmd", m_agent))
        m_agentRead = m_agent;
    m_archive = m_archiveEdit->text().trimmed();
    if (m_archive.compare(m_archiveRead, Qt::CaseInsensitive) != 0
        && WriteServerString(server(), nullptr, "ArchiveDir", m_archive))
        m_archiveRead = m_archive;
    return true;
}

bool CAgentsDlg::needsUncReminder(const QString& agent) const
{
    return agent.size() >= 2 && !agent.startsWith(QLatin1String("\\\\")) && IsClusteredConfiguration(server());
}

void CAgentsDlg::onOK()
{
    const QString agent = m_agentEdit->text().trimmed();
    const bool agentChanged = agent != m_agentRead;
    // Checked whether or not the agent changed: a stored local path deserves the warning too.
    if (needsUncReminder(agent)) {
        CReminder reminder(this, kUncReminderText, QStringLiteral("ServerAgentReminder"), kUncReminderCaption,
                           kReminderFlags);
        if (reminder.run() == Id::Cancel) {
            m_agentEdit->setFocus();
            return;
        }
    }
    const bool archiveChanged = m_archiveEdit->text().trimmed() != m_archiveRead;
    // An unchanged OK closes as Cancel so the caller knows nothing was written.
    if (!agentChanged && !archiveChanged) {
        closeAsCancel();
        return;
    }
    exchange(true);
    closeAsOK();
}
