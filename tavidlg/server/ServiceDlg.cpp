#include "server/ServiceDlg.h"
#include "res/CommonStringIds.h"
#include "res/ServerStringIds.h"

#include "common/PlatformServices.h"
#include "config/ErrorReport.h"
#include "res/StringTable.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

namespace {
constexpr unsigned kHelpContext = 2010;
constexpr unsigned kCouldNotStart = IDS_COMMON_SERVICE_START_FAILED;
constexpr unsigned kCouldNotStop = IDS_COMMON_SERVICE_STOP_FAILED;
constexpr unsigned kUnknown = IDS_SERVER_UNKNOWN;
// The service manager is given this long to move a service on before its state is read again.
constexpr unsigned kSettleMs = 250;
}

QString serviceStateWord(int state)
{
    switch (state) {
    case VB_SERVICE_STOPPED: return TaviString(IDS_SERVER_STATE_STOPPED);
    case VB_SERVICE_START_PENDING: return TaviString(IDS_SERVER_STATE_STARTING);
    case VB_SERVICE_STOP_PENDING: return TaviString(IDS_SERVER_STATE_STOPPING);
    case VB_SERVICE_RUNNING: return TaviString(IDS_SERVER_STATE_RUNNING);
    case VB_SERVICE_CONTINUE_PENDING: return TaviString(IDS_SERVER_STATE_RESUMING);
    case VB_SERVICE_PAUSE_PENDING: return TaviString(IDS_SERVER_STATE_PAUSING);
    case VB_SERVICE_PAUSED: return TaviString(IDS_SERVER_STATE_PAUSED);
    default: return TaviString(kUnknown);
    }
}

CServiceDlg::CServiceDlg(QWidget* parent, _tMailServer* server, const char* service, const char* caption)
    : CTaviDialog(parent, server), m_service(service ? service : ""),
      m_caption(QString::fromUtf8(caption ? caption : ""))
{
    setObjectName(QStringLiteral("CServiceDlg"));
    setUsesServerCaption(false);

    auto* statusLabel = new QLabel(tr("Service status:"), this);
    statusLabel->setObjectName(QStringLiteral("lblServiceStatus"));
    m_statusText = new QLabel(this);
    m_statusText->setObjectName(QStringLiteral("lblStatus"));
    m_statusText->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("unknown")) * 2);
    QFont bold = m_statusText->font();
    bold.setBold(true);
    m_statusText->setFont(bold);
    m_startButton = new QPushButton(tr("&Start!"), this);
    m_startButton->setObjectName(QStringLiteral("btnStart"));
    m_startButton->setAutoDefault(false);
    m_stopButton = new QPushButton(tr("St&op!"), this);
    m_stopButton->setObjectName(QStringLiteral("btnStop"));
    m_stopButton->setAutoDefault(false);

    // No OK: "&Close" is the cancel of this dialog and ends it with 2.
    auto* box = new QDialogButtonBox(this);
    box->setObjectName(QStringLiteral("buttonBox"));
    QPushButton* close = box->addButton(tr("&Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("btnClose"));
    close->setDefault(true);
    QPushButton* help = box->addButton(tr("&Help"), QDialogButtonBox::HelpRole);
    help->setObjectName(QStringLiteral("btnHelp"));
    help->setAutoDefault(false);
    connect(box, &QDialogButtonBox::rejected, this, &CServiceDlg::reject);
    connect(box, &QDialogButtonBox::helpRequested, this, &CServiceDlg::showHelp);
    connect(m_startButton, &QPushButton::clicked, this, &CServiceDlg::onStart);
    connect(m_stopButton, &QPushButton::clicked, this, &CServiceDlg::onStop);

    auto* grid = new QGridLayout;
    grid->addWidget(statusLabel, 0, 0);
    grid->addWidget(m_statusText, 0, 1);
    grid->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_startButton);
    buttons->addWidget(m_stopButton);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addSpacing(6);
    layout->addLayout(buttons);
    layout->addStretch(1);
    layout->addWidget(box);
    setMinimumWidth(fontMetrics().averageCharWidth() * 56);
    setTabOrder(m_startButton, m_stopButton);
    setTabOrder(m_stopButton, close);
    setTabOrder(close, help);
}

CServiceDlg::~CServiceDlg() = default;

void CServiceDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    // The caption argument replaces the template's caption as it stands.
    setWindowTitle(m_caption);
    refresh();
}

void CServiceDlg::refresh()
{
    uint32_t state = 0;
    const int shown = GetMailServiceStatus(server(), m_service.constData(), &state) ? int(state) : -1;
    // Only a settled service can be started or stopped; pending, paused and unknown states offer neither.
    m_startButton->setEnabled(shown == VB_SERVICE_STOPPED);
    m_stopButton->setEnabled(shown == VB_SERVICE_RUNNING);
    m_statusText->setText(serviceStateWord(shown));
}

void CServiceDlg::onStart()
{
    control(true);
}

void CServiceDlg::onStop()
{
    control(false);
}

void CServiceDlg::control(bool start)
{
    CWaitCursor wait;
    const int ok = start ? StartMailService(server(), m_service.constData())
                         : StopMailService(server(), m_service.constData());
    if (!ok)
        ReportErrorFormat1(GetLastError(), start ? kCouldNotStart : kCouldNotStop, QString::fromUtf8(m_service));
    else
        platform().sleep(kSettleMs);
    // There is no timer: a state still pending now stays shown until the next press or reopening.
    refresh();
}
