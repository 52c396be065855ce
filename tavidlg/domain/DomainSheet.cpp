#include "domain/DomainSheet.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "domain/DomainAliasesPage.h"
#include "domain/DomainForwardingPage.h"
#include "domain/DomainGeneralPage.h"
#include "domain/DomainSynonymsPage.h"
#include "domain/DomainTrafficPage.h"
#include "res/DomainStringIds.h"
#include "res/StringTable.h"

#include <QPushButton>

#include <velbrook/MailToolkit.h>

CDomainSheet::CDomainSheet(QWidget* parent, _tMailServer* server, const char* name)
    : CTaviPropertySheet(QString(), parent, server), m_name(QString::fromUtf8(name ? name : "")), m_nameUtf8(name ? name : "")
{
    setObjectName(QStringLiteral("CDomainSheet"));
    m_isDefault = m_name.isEmpty();
    m_resolvedName = m_name;
    char defaultName[257] = {};
    if (GetDefaultDomainName(server, defaultName, sizeof defaultName)) {
        const QString defaultDomain = QString::fromUtf8(defaultName);
        m_isDefault = m_isDefault || m_name.compare(defaultDomain, Qt::CaseInsensitive) == 0;
        if (m_name.isEmpty())
            m_resolvedName = defaultDomain;
    }
    ReadServerNumber(server, nullptr, "RegistryFormatVersion", m_formatVersion, 0);

    addPage(m_general = new CDomainGeneralPage(this));
    if (m_formatVersion >= 3)
        addPage(m_synonyms = new CDomainSynonymsPage(this));
    if (AliasNamesSupported(server))
        addPage(m_aliases = new CDomainAliasesPage(this));
    addPage(m_forwarding = new CDomainForwardingPage(this));
    addPage(m_traffic = new CDomainTrafficPage(this));

    // Apply Now reopens the domain after the pages applied; the base's own handling is replaced.
    disconnect(applyButton(), &QPushButton::clicked, this, nullptr);
    connect(applyButton(), &QPushButton::clicked, this, &CDomainSheet::onApplyNow);
}

CDomainSheet::~CDomainSheet()
{
    if (m_domain)
        CloseDomain(m_domain);
}

void CDomainSheet::reportCannotOpen()
{
    ReportErrorFormat1(GetLastError(), IDS_DOMAIN_CANNOT_OPEN, m_name);
}

bool CDomainSheet::openDomain()
{
    if (m_domain)
        return true;
    m_domain = OpenDomain(server(), m_nameUtf8.constData());
    if (!m_domain) {
        reportCannotOpen();
        return false;
    }
    quint32 enabled = 0;
    ReadServerNumber(server(), nullptr, "QuotasEnabled", enabled, 0);
    m_quotasEnabled = enabled != 0;
    return true;
}

void CDomainSheet::initSheet()
{
    // "<domain> on %1", then the server's name in place of the %1.
    setWindowTitle(TaviFormat(TaviString(IDS_DOMAIN_CAPTION), {m_resolvedName}) + QStringLiteral("%1"));
    SetServerCaption(this, server());
}

void CDomainSheet::onApplyNow()
{
    applyNow();
    if (m_domain)
        CloseDomain(m_domain);
    m_domain = OpenDomain(server(), m_nameUtf8.constData());
    if (!m_domain) {
        reportCannotOpen();
        done(Id::Cancel);
        return;
    }
    cancelToClose();
}

bool CDomainSheet::getNumber(const char* name, quint32& value) const
{
    uint32_t number = 0, size = sizeof number;
    if (!m_domain || !GetDomainProperty(m_domain, name, &number, &size, nullptr) || size != sizeof number)
        return false;
    value = number;
    return true;
}

bool CDomainSheet::getText(const char* name, QString& value) const
{
    if (!m_domain)
        return false;
    QByteArray buffer(261, '\0');
    uint32_t size = uint32_t(buffer.size());
    if (!GetDomainProperty(m_domain, name, buffer.data(), &size, nullptr)) {
        if (GetLastError() != VB_ERROR_MORE_DATA)
            return false;
        buffer.resize(qsizetype(size) + 1);
        size = uint32_t(buffer.size());
        if (!GetDomainProperty(m_domain, name, buffer.data(), &size, nullptr))
            return false;
    }
    value = QString::fromUtf8(buffer.constData(), qsizetype(qstrnlen(buffer.constData(), size_t(buffer.size()))));
    return true;
}

bool CDomainSheet::setNumber(const char* name, quint32 value)
{
    const uint32_t number = value;
    return m_domain && SetDomainProperty(m_domain, VB_TYPE_DWORD, name, &number, sizeof number) != 0;
}

bool CDomainSheet::setText(const char* name, const QString& value)
{
    const QByteArray text = value.toUtf8();
    return m_domain && SetDomainProperty(m_domain, VB_TYPE_STRING, name, text.constData(), uint32_t(text.size() + 1)) != 0;
}
