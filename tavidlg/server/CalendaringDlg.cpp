#include "server/CalendaringDlg.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2076;
constexpr char kSection[] = "CalendarMgr";
constexpr unsigned long kRemitAll = 0;
constexpr unsigned long kRemitNeither = 1;
constexpr unsigned long kRemitConfigured = 2;
}

CCalendaringDlg::CCalendaringDlg(QWidget* parent, _tMailServer* server) : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CCalendaringDlg"));
    setWindowTitle(tr("Calendaring on %1!s!"));
    m_mailServer.Wrap(server);

    m_label = new QLabel(tr("Configure Calendaring on this server"), this);
    m_label->setObjectName(QStringLiteral("lblConfigure"));
    m_onCheck = new QCheckBox(tr("Enable Calendaring on this server"), this);
    m_onCheck->setObjectName(QStringLiteral("chkCalendarOn"));
    m_allRadio = new QRadioButton(tr("Enable for all mailboxes"), this);
    m_allRadio->setObjectName(QStringLiteral("radAllMailboxes"));
    m_configuredRadio = new QRadioButton(tr("Enable for configured domains/mailboxes"), this);
    m_configuredRadio->setObjectName(QStringLiteral("radConfigured"));

    auto* radios = new QVBoxLayout;
    radios->setContentsMargins(fontMetrics().averageCharWidth() * 3, 0, 0, 0);
    radios->addWidget(m_allRadio);
    radios->addWidget(m_configuredRadio);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_label);
    layout->addSpacing(4);
    layout->addWidget(m_onCheck);
    layout->addLayout(radios);
    layout->addStretch(1);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_onCheck, m_allRadio);
    setTabOrder(m_allRadio, m_configuredRadio);
}

// The wrapped handle stays the caller's: CMailServer never closes a handle it was given by Wrap.
CCalendaringDlg::~CCalendaringDlg() = default;

void CCalendaringDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    unsigned long on = 0, remit = 0;
    // A failed read leaves the controls as built, with nothing selected; they then stand for the values
    // taken as read, so that an untouched OK writes nothing.
    if (!m_mailServer.GetProperty(kSection, "CalendarOn", &on) || !m_mailServer.GetProperty(kSection, "CalendarRemit", &remit)) {
        m_onRead = m_on = 0;
        m_remitRead = m_remit = kRemitNeither;
        return;
    }
    m_onRead = m_on = on;
    m_remitRead = m_remit = remit;
    // Only 2 selects the second button; every other value, 1 included, shows "all mailboxes".
    if (remit == kRemitConfigured)
        m_configuredRadio->setChecked(true);
    else
        m_allRadio->setChecked(true);
    m_onCheck->setChecked(on != 0);
}

void CCalendaringDlg::onOK()
{
    m_on = m_onCheck->isChecked() ? 1 : 0;
    // Writing maps "all mailboxes" to 0 and neither button to 1, unlike reading: a stored 1 becomes 0.
    if (m_allRadio->isChecked())
        m_remit = kRemitAll;
    else if (m_configuredRadio->isChecked())
        m_remit = kRemitConfigured;
    else
        m_remit = kRemitNeither;
    // Failed writes are silent.
    if (m_on != m_onRead && m_mailServer.SetProperty(kSection, "CalendarOn", m_on))
        m_onRead = m_on;
    if (m_remit != m_remitRead && m_mailServer.SetProperty(kSection, "CalendarRemit", m_remit))
        m_remitRead = m_remit;
    closeAsOK();
}
