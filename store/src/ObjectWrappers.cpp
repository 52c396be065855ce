// CDomain, CMailbox and the dependency objects of the domain and mailbox stores.
#include <vector>

#include "velbrook/MailServer.h"
#include "velbrook/MailToolkit.h"

CDomain::~CDomain()
{
    Close();
}

bool CDomain::Open(_tMailServer* server, const char* name)
{
    Close();
    m_domain = OpenDomain(server, name);
    return m_domain != nullptr;
}

bool CDomain::GetProperty(const char* name, unsigned long* value) const
{
    if (!m_domain || !value) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    uint32_t number = 0, size = sizeof number, type = 0;
    if (!GetDomainProperty(m_domain, name, &number, &size, &type))
        return false;
    if (type != VB_TYPE_DWORD) {
        SetLastError(VB_ERROR_INVALID_DATA);
        return false;
    }
    *value = number;
    return true;
}

bool CDomain::GetProperty(const char* name, std::string* value) const
{
    if (!m_domain || !value) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    uint32_t size = 0, type = 0;
    if (!GetDomainProperty(m_domain, name, nullptr, &size, &type))
        return false;
    if (type != VB_TYPE_STRING) {
        SetLastError(VB_ERROR_INVALID_DATA);
        return false;
    }
    std::vector<char> buffer(size + 1);
    if (!GetDomainProperty(m_domain, name, buffer.data(), &size, &type))
        return false;
    value->assign(buffer.data(), size ? size - 1 : 0);
    return true;
}

void CDomain::Reset()
{
    m_domain = nullptr;
}

bool CDomain::Close()
{
    if (!m_domain)
        return true;
    const bool ok = CloseDomain(m_domain) != 0;
    m_domain = nullptr;
    return ok;
}

CMailbox::~CMailbox()
{
    Close();
}

bool CMailbox::Open(_tMailServer* server, const char* first, const char* second)
{
    Close();
    if (!first) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    std::string address = first;
    if (second && *second)
        address += "@" + std::string(second);
    m_mailbox = OpenMailbox(server, address.c_str());
    return m_mailbox != nullptr;
}

void CMailbox::Reset()
{
    m_mailbox = nullptr;
}

bool CMailbox::Close()
{
    if (!m_mailbox)
        return true;
    const bool ok = CloseMailbox(m_mailbox) != 0;
    m_mailbox = nullptr;
    return ok;
}

CDomainStoreDependancy::CDomainStoreDependancy() = default;
CDomainStoreDependancy::CDomainStoreDependancy(const CDomainStoreDependancy&) = default;
CDomainStoreDependancy& CDomainStoreDependancy::operator=(const CDomainStoreDependancy&) = default;

// The failure is already in the thread's last error, where the host looks for it; there is no window here.
void CDomainStoreDependancy::ReportInitError(CMailServer&) {}

bool CDomainStoreDependancy::DoInitWork(CMailServer& server)
{
    return InitDomainStore(server) != 0;
}

bool CDomainStoreDependancy::DoTermWork()
{
    return TermDomainStore() != 0;
}

CMailboxStoreDependancy::CMailboxStoreDependancy() = default;
CMailboxStoreDependancy::CMailboxStoreDependancy(const CMailboxStoreDependancy&) = default;
CMailboxStoreDependancy& CMailboxStoreDependancy::operator=(const CMailboxStoreDependancy&) = default;

void CMailboxStoreDependancy::ReportInitError(CMailServer&) {}

bool CMailboxStoreDependancy::DoInitWork(CMailServer& server)
{
    return InitMailboxStore(server) != 0;
}

bool CMailboxStoreDependancy::DoTermWork()
{
    return TermMailboxStore() != 0;
}
