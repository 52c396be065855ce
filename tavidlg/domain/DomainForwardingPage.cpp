#include "domain/DomainForwardingPage.h"

#include "common/PlatformServices.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "domain/DomainSheet.h"
#include "res/DomainStringIds.h"
#include "res/StringTable.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>
#include <velbrook/ServerCommon.h>

namespace {
constexpr unsigned kHelpContext = 2153;
constexpr int kHostMaxLength = 256;
} // namespace

CDomainForwardingPage::CDomainForwardingPage(CDomainSheet* sheet)
    : CTaviPropertyPage(tr("Relay Host"), sheet), m_sheet(sheet)
{
    setObjectName(QStringLiteral("CDomainForwardingPage"));
    setHelpContext(kHelpContext);
    m_enableCheck = new QCheckBox(tr("&Enable domain forwarding for this domain"), this);
    m_enableCheck->setObjectName(QStringLiteral("chkForwardingEnabled"));
    auto* note = new QLabel(tr("If domain forwarding is enabled, any non-local mail addressed to this domain will be "
                               "forwarded to the host specified below."), this);
    note->setObjectName(QStringLiteral("lblForwardingNote"));
    note->setWordWrap(true);
    auto* hostLabel = new QLabel(tr("Relay &host (domain name or IP address):"), this);
    hostLabel->setObjectName(QStringLiteral("lblForwardingHost"));
    m_hostEdit = new QLineEdit(this);
    m_hostEdit->setObjectName(QStringLiteral("edtForwardingHost"));
    hostLabel->setBuddy(m_hostEdit);
    m_retryButton = new QPushButton(tr("&Reattempt delivery to this host now!"), this);
    m_retryButton->setObjectName(QStringLiteral("btnRetry"));

    auto* retryRow = new QHBoxLayout;
    retryRow->addStretch(1);
    retryRow->addWidget(m_retryButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_enableCheck);
    layout->addSpacing(6);
    layout->addWidget(note);
    layout->addSpacing(6);
    layout->addWidget(hostLabel);
    layout->addWidget(m_hostEdit);
    layout->addLayout(retryRow);
    layout->addStretch(1);

    connect(m_enableCheck, &QCheckBox::clicked, this, &CDomainForwardingPage::onEnableClicked);
    connect(m_hostEdit, &QLineEdit::textEdited, this, [this] { setModified(true); });
    connect(m_retryButton, &QPushButton::clicked, this, &CDomainForwardingPage::onRetry);
}

CDomainForwardingPage::~CDomainForwardingPage() = default;

void CDomainForwardingPage::initPage()
{
    quint32 enabled = 0;
    m_sheet->getNumber("ForwardingEnabled", enabled);
    m_enabled = m_originalEnabled = enabled != 0;
    m_sheet->getText("ForwardingHost", m_host);
    m_originalHost = m_host;
    m_hostEdit->setMaxLength(kHostMaxLength);
    m_hostEdit->setText(m_host);
    m_enableCheck->setChecked(m_enabled);
    enableHostControls(m_enabled);
}

void CDomainForwardingPage::enableHostControls(bool on)
{
    m_hostEdit->setEnabled(on);
    m_retryButton->setEnabled(on);
}

void CDomainForwardingPage::onEnableClicked(bool checked)
{
    const QString ownName = m_sheet->resolvedName();
    if (checked && m_hostEdit->text().isEmpty()) {
        // The domain's own name as a suggestion, ready to be typed over.
        m_hostEdit->setText(ownName);
        m_hostEdit->setEnabled(true);
        m_hostEdit->setFocus();
        m_hostEdit->selectAll();
    } else if (!checked && m_originalHost.isEmpty() && m_hostEdit->text() == ownName) {
        m_hostEdit->clear();
    }
    enableHostControls(checked);
    setModified(true);
}

void CDomainForwardingPage::onRetry()
{
    const QByteArray host = m_hostEdit->text().toUtf8();
    if (host.isEmpty())
        return;
    const char* names[] = {host.constData(), ""};
    if (InitiateRetry(m_sheet->server(), names, 2))
        taviMessageBox(TaviFormat(TaviString(IDS_DOMAIN_RETRY_REQUESTED), {m_hostEdit->text()}), Mb::Ok | Mb::IconInformation);
    else
        ReportErrorFormat1(GetLastError(), IDS_DOMAIN_RETRY_FAILED, m_hostEdit->text());
}

bool CDomainForwardingPage::apply()
{
    const QString host = m_hostEdit->text();
    if (host != m_host) {
        if (!IsValidHostName(host.toUtf8().constData())) {
            m_sheet->setActivePage(this);
            m_hostEdit->setFocus();
            m_hostEdit->selectAll();
            taviMessageBox(TaviString(IDS_DOMAIN_BAD_HOST), Mb::Ok);
            return false;
        }
        if (m_sheet->setText("ForwardingHost", host))
            m_host = host;
    }
    const bool enabled = m_enableCheck->isChecked();
    if (enabled != m_enabled && m_sheet->setNumber("ForwardingEnabled", enabled ? 1 : 0))
        m_enabled = enabled;
    return CTaviPropertyPage::apply();
}
