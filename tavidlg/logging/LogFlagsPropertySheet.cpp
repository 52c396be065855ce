#include "logging/LogFlagsPropertySheet.h"

#include "TaviDlg.h"
#include "common/PlatformServices.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2117;

QString translated(const char* text)
{
    return QCoreApplication::translate("TaviStrings", text);
}
} // namespace

const QList<LogFlagArea>& logFlagAreas()
{
    static const QList<LogFlagArea> areas = {
        {QT_TRANSLATE_NOOP("TaviStrings", "SMTP Receiver"), "pgLogSmtp",
         {{TAVI_LOG_SMTP_SESSIONS, "chkLogSmtpSessions", QT_TRANSLATE_NOOP("TaviStrings", "&Connections opened and closed")},
          {TAVI_LOG_SMTP_COMMANDS, "chkLogSmtpCommands", QT_TRANSLATE_NOOP("TaviStrings", "Every co&mmand and reply")},
          {TAVI_LOG_SMTP_REJECTIONS, "chkLogSmtpRejections",
           QT_TRANSLATE_NOOP("TaviStrings", "&Refused connections, senders and recipients")},
          {TAVI_LOG_SMTP_AUTH, "chkLogSmtpAuth", QT_TRANSLATE_NOOP("TaviStrings", "A&uthentication attempts")},
          {TAVI_LOG_SMTP_TLS, "chkLogSmtpTls", QT_TRANSLATE_NOOP("TaviStrings", "&TLS negotiation")}}},
        {QT_TRANSLATE_NOOP("TaviStrings", "Delivery"), "pgLogDelivery",
         {{TAVI_LOG_DELIVERY_QUEUE, "chkLogDeliveryQueue",
           QT_TRANSLATE_NOOP("TaviStrings", "Messages &queued, retried and expired")},
          {TAVI_LOG_DELIVERY_REMOTE, "chkLogDeliveryRemote",
           QT_TRANSLATE_NOOP("TaviStrings", "SMTP &transcripts with remote servers")},
          {TAVI_LOG_DELIVERY_DNS, "chkLogDeliveryDns", QT_TRANSLATE_NOOP("TaviStrings", "&MX and address lookups")},
          {TAVI_LOG_DELIVERY_LOCAL, "chkLogDeliveryLocal",
           QT_TRANSLATE_NOOP("TaviStrings", "Delivery into local mailbo&xes")},
          {TAVI_LOG_DELIVERY_DSN, "chkLogDeliveryDsn",
           QT_TRANSLATE_NOOP("TaviStrings", "Delivery status &notifications sent")}}},
        {QT_TRANSLATE_NOOP("TaviStrings", "Mail Access"), "pgLogAccess",
         {{TAVI_LOG_ACCESS_POP3, "chkLogAccessPop3", QT_TRANSLATE_NOOP("TaviStrings", "&POP3 sessions")},
          {TAVI_LOG_ACCESS_IMAP4, "chkLogAccessImap4", QT_TRANSLATE_NOOP("TaviStrings", "&IMAP4 sessions")},
          {TAVI_LOG_ACCESS_AUTH, "chkLogAccessAuth", QT_TRANSLATE_NOOP("TaviStrings", "Logins and &failed logins")},
          {TAVI_LOG_ACCESS_WEBMAIL, "chkLogAccessWebmail", QT_TRANSLATE_NOOP("TaviStrings", "&Web mail sessions")}}},
        {QT_TRANSLATE_NOOP("TaviStrings", "System"), "pgLogSystem",
         {{TAVI_LOG_SYSTEM_LISTS, "chkLogSystemLists", QT_TRANSLATE_NOOP("TaviStrings", "Mailing-list &processing")},
          {TAVI_LOG_SYSTEM_AGENTS, "chkLogSystemAgents", QT_TRANSLATE_NOOP("TaviStrings", "A&gents run and their results")},
          {TAVI_LOG_SYSTEM_SECURITY, "chkLogSystemSecurity",
           QT_TRANSLATE_NOOP("TaviStrings", "Lock&outs, bans and harvest probation")},
          {TAVI_LOG_SYSTEM_CONFIG, "chkLogSystemConfig",
           QT_TRANSLATE_NOOP("TaviStrings", "&Configuration changes picked up")},
          {TAVI_LOG_SYSTEM_DEBUG, "chkLogSystemDebug",
           QT_TRANSLATE_NOOP("TaviStrings", "&Debugging detail (makes logs large)")}}},
    };
    return areas;
}

CLogFlagsPage::CLogFlagsPage(const LogFlagArea& area, uint32_t* working, uint32_t allowed)
    : CTaviPropertyPage(translated(area.title)), m_working(working), m_allowed(allowed)
{
    setObjectName(QLatin1String(area.objectName));
    setHelpContext(kHelpContext);
    auto* layout = new QVBoxLayout(this);
    auto* intro = new QLabel(tr("Write these events to the log:"), this);
    intro->setObjectName(QStringLiteral("lblLogIntro"));
    layout->addWidget(intro);
    uint32_t areaAllowed = 0;
    for (const LogFlagInfo& flag : area.flags) {
        auto* box = new QCheckBox(translated(flag.text), this);
        box->setObjectName(QLatin1String(flag.objectName));
        // A flag the caller does not allow is shown as it is, but cannot be changed.
        box->setEnabled((allowed & flag.bit) != 0);
        areaAllowed |= allowed & flag.bit;
        connect(box, &QCheckBox::clicked, this, [this] { setModified(); });
        layout->addWidget(box);
        m_boxes.append({box, flag.bit});
    }
    layout->addStretch(1);
    auto* all = new QPushButton(tr("Select &All"), this);
    all->setObjectName(QStringLiteral("btnSelectAll"));
    auto* none = new QPushButton(tr("Clear A&ll"), this);
    none->setObjectName(QStringLiteral("btnClearAll"));
    all->setEnabled(areaAllowed != 0);
    none->setEnabled(areaAllowed != 0);
    connect(all, &QPushButton::clicked, this, [this] { setAll(true); });
    connect(none, &QPushButton::clicked, this, [this] { setAll(false); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(all);
    buttons->addWidget(none);
    buttons->addStretch(1);
    layout->addLayout(buttons);
}

void CLogFlagsPage::setAll(bool on)
{
    for (const auto& [box, bit] : std::as_const(m_boxes)) {
        if (box->isEnabled())
            box->setChecked(on);
    }
    setModified();
}

bool CLogFlagsPage::exchange(bool save)
{
    for (const auto& [box, bit] : std::as_const(m_boxes)) {
        if (!save)
            box->setChecked((*m_working & bit) != 0);
        else if (m_allowed & bit)
            *m_working = box->isChecked() ? (*m_working | bit) : (*m_working & ~bit);
    }
    return true;
}

CLogFlagsPropertySheet::CLogFlagsPropertySheet(QWidget* parent, _tMailServer* server, const QString& caption,
                                               uint32_t* flags, uint32_t allowed)
    : CTaviPropertySheet(caption, parent, server), m_flags(flags), m_allowed(allowed), m_working(flags ? *flags : 0)
{
    setObjectName(QStringLiteral("CLogFlagsPropertySheet"));
    // The mask goes back through the pointer on OK; there is nothing to apply before that.
    setApplyButtonVisible(false);
    for (const LogFlagArea& area : logFlagAreas())
        addPage(new CLogFlagsPage(area, &m_working, allowed));
    // Every area's tab stays in sight.
    tabs()->setUsesScrollButtons(false);
}

CLogFlagsPropertySheet::~CLogFlagsPropertySheet() = default;

void CLogFlagsPropertySheet::accept()
{
    if (!applyNow())
        return;
    // Only the allowed bits can differ; the others keep the caller's value exactly.
    if (m_flags)
        *m_flags = (*m_flags & ~m_allowed) | (m_working & m_allowed);
    done(Id::Ok);
}
