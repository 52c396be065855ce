/*
 * Object wrappers over the C operations: CMailServer, CDomain, CMailbox, and the dependency objects
 * that initialise one configuration library against a server and terminate it again.
 */
#ifndef VELBROOK_MAILSERVER_H
#define VELBROOK_MAILSERVER_H

#include "DomainStore.h"
#include "MailboxStore.h"
#include "ServerStore.h"

#ifdef __cplusplus
#include <string>

/* Wraps a server handle. Wrap adopts a handle the caller still owns (Close then only forgets it);
 * Open opens one that this object owns and Close closes. */
class VB_STORE_API CMailServer {
public:
    CMailServer() = default;
    ~CMailServer();
    CMailServer(const CMailServer&) = delete;
    CMailServer& operator=(const CMailServer&) = delete;

    bool Open(const char* location);
    void Wrap(_tMailServer* server);
    void Reset();
    void Close();
    operator _tMailServer*() const { return m_server; }

    bool GetProperty(const char* section, const char* name, std::string* value) const;
    bool GetProperty(const char* section, const char* name, unsigned long* value) const;
    bool SetProperty(const char* section, const char* name, const std::string& value);
    bool SetProperty(const char* section, const char* name, unsigned long value);

private:
    _tMailServer* m_server = nullptr;
    bool m_owned = false;
};

class VB_STORE_API CDomain {
public:
    CDomain() = default;
    ~CDomain();
    CDomain(const CDomain&) = delete;
    CDomain& operator=(const CDomain&) = delete;

    bool Open(_tMailServer* server, const char* name);
    bool GetProperty(const char* name, unsigned long* value) const;
    bool GetProperty(const char* name, std::string* value) const;
    void Reset(); /* forgets the handle without closing it */
    bool Close();
    operator _tDomain*() const { return m_domain; }

private:
    _tDomain* m_domain = nullptr;
};

class VB_STORE_API CMailbox {
public:
    CMailbox() = default;
    ~CMailbox();
    CMailbox(const CMailbox&) = delete;
    CMailbox& operator=(const CMailbox&) = delete;

    /* first and second name: the local part and the domain ("" for the default domain). */
    bool Open(_tMailServer* server, const char* first, const char* second);
    void Reset();
    bool Close();
    operator _tMailbox*() const { return m_mailbox; }

private:
    _tMailbox* m_mailbox = nullptr;
};

/* Initialises one configuration library against a server (Init) and terminates it again (Term). */
template <class Server>
class CDependancy {
public:
    CDependancy() = default;
    CDependancy(const CDependancy&) = default;
    CDependancy& operator=(const CDependancy&) = default;
    virtual ~CDependancy() = default;

    virtual void ReportInitError(Server&) {}
    virtual bool DoInitWork(Server& server) = 0;
    virtual bool DoTermWork() = 0;

    bool Init(Server& server)
    {
        if (m_initialised)
            return true;
        const bool ok = DoInitWork(server);
        if (ok)
            m_initialised = true;
        else
            ReportInitError(server);
        return ok;
    }

    bool Term()
    {
        if (!m_initialised)
            return true;
        if (!DoTermWork())
            return false;
        m_initialised = false;
        return true;
    }

    bool IsInitialised() const { return m_initialised; }

private:
    bool m_initialised = false;
};

class VB_STORE_API CDomainStoreDependancy : public CDependancy<CMailServer> {
public:
    CDomainStoreDependancy();
    CDomainStoreDependancy(const CDomainStoreDependancy&);
    CDomainStoreDependancy& operator=(const CDomainStoreDependancy&);
    void ReportInitError(CMailServer&) override;
    bool DoInitWork(CMailServer& server) override;
    bool DoTermWork() override;
};

class VB_STORE_API CMailboxStoreDependancy : public CDependancy<CMailServer> {
public:
    CMailboxStoreDependancy();
    CMailboxStoreDependancy(const CMailboxStoreDependancy&);
    CMailboxStoreDependancy& operator=(const CMailboxStoreDependancy&);
    void ReportInitError(CMailServer&) override;
    bool DoInitWork(CMailServer& server) override;
    bool DoTermWork() override;
};
#endif

#endif
