#include "velbrook/MailServer.h"

#include <vector>

#include "velbrook/MailToolkit.h"

CMailServer::~CMailServer()
{
    Close();
}

bool CMailServer::Open(const char* location)
{
    Close();
    m_server = OpenMailServer(location);
    m_owned = m_server != nullptr;
    return m_server != nullptr;
}

void CMailServer::Wrap(_tMailServer* server)
{
    Close();
    m_server = server;
    m_owned = false;
}

void CMailServer::Reset()
{
    m_server = nullptr;
    m_owned = false;
}

void CMailServer::Close()
{
    if (m_server && m_owned)
        CloseMailServer(m_server);
    Reset();
}

bool CMailServer::GetProperty(const char* section, const char* name, std::string* value) const
{
    if (!m_server || !value) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    std::vector<char> buffer(256);
    for (int attempt = 0; attempt < 4; ++attempt) {
        auto size = uint32_t(buffer.size());
        uint32_t type = 0;
        if (GetMailServerProperty(m_server, section, name, buffer.data(), &size, &type)) {
            if (type != VB_TYPE_STRING) {
                SetLastError(VB_ERROR_INVALID_DATA);
                return false;
            }
            value->assign(buffer.data(), size ? size - 1 : 0);
            return true;
        }
        if (GetLastError() != VB_ERROR_MORE_DATA)
            return false;
        buffer.resize(size_t(size) + 1);
    }
    return false;
}

bool CMailServer::GetProperty(const char* section, const char* name, unsigned long* value) const
{
    if (!m_server || !value) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    uint32_t number = 0;
    uint32_t size = sizeof number;
    uint32_t type = 0;
    if (!GetMailServerProperty(m_server, section, name, &number, &size, &type))
        return false;
    if (type != VB_TYPE_DWORD) {
        SetLastError(VB_ERROR_INVALID_DATA);
        return false;
    }
    *value = number;
    return true;
}

bool CMailServer::SetProperty(const char* section, const char* name, const std::string& value)
{
    if (!m_server) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    return SetMailServerProperty(m_server, section, VB_TYPE_STRING, name, value.c_str(),
                                 uint32_t(value.size() + 1)) != 0;
}

bool CMailServer::SetProperty(const char* section, const char* name, unsigned long value)
{
    if (!m_server) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    const auto number = uint32_t(value);
    return SetMailServerProperty(m_server, section, VB_TYPE_DWORD, name, &number, sizeof number) != 0;
}
