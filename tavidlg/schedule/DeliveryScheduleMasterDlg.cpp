#include "schedule/DeliveryScheduleMasterDlg.h"

#include "config/AccessLayer.h"
#include "config/ErrorReport.h"
#include "res/ScheduleStringIds.h"
#include "res/StringTable.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <velbrook/ServerCommon.h>

#include <vector>

namespace {
constexpr unsigned kHelpContext = 2050;
constexpr uint32_t kMaskBufferSize = 1024;
} // namespace

CDeliveryScheduleMasterDlg::CDeliveryScheduleMasterDlg(QWidget* parent, _tMailServer* server)
    : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CDeliveryScheduleMasterDlg"));
    setWindowTitle(tr("Delivery Schedule Management on %1"));

    auto* maskLabel = new QLabel(tr("&Use the Elapsed Time schedule for the following list of domains:"), this);
    maskLabel->setObjectName(QStringLiteral("lblNoDialupDomainMask"));
    m_maskEdit = new QLineEdit(this);
    m_maskEdit->setObjectName(QStringLiteral("edtNoDialupDomainMask"));
    maskLabel->setBuddy(m_maskEdit);
    auto* maskNote = new QLabel(tr("All other domains use the time-of-day schedule."), this);
    maskNote->setObjectName(QStringLiteral("lblMaskNote"));

    auto* group = new QGroupBox(tr("Reattempt delivery"), this);
    group->setObjectName(QStringLiteral("grpReattempt"));
    auto* retryLabel = new QLabel(tr("&Enter a list of domains to which delivery should be reattempted:"), group);
    retryLabel->setObjectName(QStringLiteral("lblReattempt"));
    m_retryEdit = new QLineEdit(group);
    m_retryEdit->setObjectName(QStringLiteral("edtReattempt"));
    retryLabel->setBuddy(m_retryEdit);
    m_retryButton = new QPushButton(tr("&Reattempt delivery to these domains now!"), group);
    m_retryButton->setObjectName(QStringLiteral("btnReattempt"));
    m_retryButton->setAutoDefault(false);
    auto* groupLayout = new QVBoxLayout(group);
    groupLayout->addWidget(retryLabel);
    groupLayout->addWidget(m_retryEdit);
    groupLayout->addWidget(m_retryButton, 0, Qt::AlignLeft);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(maskLabel);
    layout->addWidget(m_maskEdit);
    layout->addWidget(maskNote);
    layout->addSpacing(8);
    layout->addWidget(group);
    layout->addStretch(1);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_maskEdit, m_retryEdit);
    setTabOrder(m_retryEdit, m_retryButton);

    connect(m_retryEdit, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_retryButton->setEnabled(!text.isEmpty()); });
    connect(m_retryButton, &QPushButton::clicked, this, &CDeliveryScheduleMasterDlg::reattempt);
}

CDeliveryScheduleMasterDlg::~CDeliveryScheduleMasterDlg() = default;

QStringList CDeliveryScheduleMasterDlg::splitNames(const QString& text)
{
    static const QRegularExpression separators(QStringLiteral("[\\s,]+"));
    return text.split(separators, Qt::SkipEmptyParts);
}

void CDeliveryScheduleMasterDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    m_retryEdit->setText(QStringLiteral("*"));
    m_retryButton->setEnabled(true);
    if (!ReadServerString(server(), nullptr, "NoDialupDomainMask", m_shownMask, kMaskBufferSize))
        m_shownMask = QStringLiteral("*");
    m_maskEdit->setText(m_shownMask);
}

void CDeliveryScheduleMasterDlg::reattempt()
{
    const QStringList names = splitNames(m_retryEdit->text());
    if (!names.isEmpty()) {
        std::vector<QByteArray> utf8;
        std::vector<const char*> pointers;
        utf8.reserve(size_t(names.size()));
        for (const QString& name : names) {
            utf8.push_back(name.toUtf8());
            pointers.push_back(utf8.back().constData());
        }
        // The server takes the request when it can; the result is not reported.
        InitiateRetry(server(), pointers.data(), uint32_t(pointers.size()));
    }
    m_retryEdit->clear();
    m_retryButton->setEnabled(false);
}

void CDeliveryScheduleMasterDlg::onOK()
{
    const QString mask = m_maskEdit->text().trimmed();
    // An unchanged OK (letter case aside) closes as Cancel, so that the caller knows nothing was written.
    if (mask.compare(m_shownMask, Qt::CaseInsensitive) == 0) {
        closeAsCancel();
        return;
    }
    if (!WriteServerString(server(), nullptr, "NoDialupDomainMask", mask))
        ReportError(GetLastError(), TaviString(IDS_SCHED_MASK_SAVE_ERROR));
    closeAsOK();
}
