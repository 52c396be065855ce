// Mailboxes: properties, aliases, passwords sealed with the store's key file, counts.
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sodium.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Objects_p.h"
#include "velbrook/MailboxStore.h"

using namespace vb;

struct _tMailbox : OpenObject {};

namespace {

std::atomic<int> g_mailboxStoreUsers{0};

// Reads the key file: 0, VB_ERROR_FILE_NOT_FOUND when there is none, or a key error.
uint32_t readKey(const std::string& path, unsigned char key[crypto_secretbox_KEYBYTES])
{
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return errno == ENOENT ? VB_ERROR_FILE_NOT_FOUND : VB_ERROR_MAILBOX_KEY_FILE;
    struct stat st {};
    uint32_t e = 0;
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode) || st.st_size != crypto_secretbox_KEYBYTES)
        e = VB_ERROR_MAILBOX_KEY_FILE;
    else if (st.st_mode & 077)
        e = VB_ERROR_MAILBOX_KEY_UNSAFE;
    size_t got = 0;
    while (!e && got < crypto_secretbox_KEYBYTES) {
        const ssize_t n = ::read(fd, key + got, crypto_secretbox_KEYBYTES - got);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            e = VB_ERROR_MAILBOX_KEY_FILE;
        else
            got += size_t(n);
    }
    ::close(fd);
    return e;
}

// Writes a new key into a private temporary file and links it into place, so that no reader ever sees
// a partial key; when another process linked its key first, that key is the one used.
uint32_t createKey(const std::string& path, unsigned char key[crypto_secretbox_KEYBYTES])
{
    std::string temporary = path + ".XXXXXX";
    const int fd = ::mkstemp(temporary.data()); // mode 0600
    if (fd < 0)
        return VB_ERROR_MAILBOX_KEY_FILE;
    randombytes_buf(key, crypto_secretbox_KEYBYTES);
    const bool written = ::write(fd, key, crypto_secretbox_KEYBYTES) == ssize_t(crypto_secretbox_KEYBYTES)
                         && ::fsync(fd) == 0;
    ::close(fd);
    const int linked = written ? ::link(temporary.c_str(), path.c_str()) : -1;
    const int linkError = errno;
    ::unlink(temporary.c_str());
    if (linked == 0)
        return 0;
    sodium_memzero(key, crypto_secretbox_KEYBYTES);
    return written && linkError == EEXIST ? readKey(path, key) : VB_ERROR_MAILBOX_KEY_FILE;
}

// The store's key. A key is made only for a store that holds no sealed password: where passwords
// exist, a missing key is an error, never a reason to start another one.
uint32_t loadKey(_tMailServer* server, bool mayCreate, unsigned char key[crypto_secretbox_KEYBYTES])
{
    setKeyFileDetail(server->keyPath);
    if (sodium_init() < 0)
        return VB_ERROR_MAILBOX_KEY_FILE;
    const uint32_t e = readKey(server->keyPath, key);
    if (e != VB_ERROR_FILE_NOT_FOUND)
        return e;
    std::string sealed;
    const uint32_t found = server->connector->anySealedPassword(sealed);
    if (found == 0 || (found == VB_ERROR_FILE_NOT_FOUND && !mayCreate))
        return VB_ERROR_MAILBOX_KEY_MISSING;
    if (found != VB_ERROR_FILE_NOT_FOUND)
        return found;
    return createKey(server->keyPath, key);
}

bool opens(const std::string& sealed, const unsigned char key[crypto_secretbox_KEYBYTES], std::string& plain)
{
    if (sealed.size() < crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES)
        return false;
    const auto* in = reinterpret_cast<const unsigned char*>(sealed.data());
    plain.assign(sealed.size() - crypto_secretbox_NONCEBYTES - crypto_secretbox_MACBYTES, '\0');
    const int rc = crypto_secretbox_open_easy(reinterpret_cast<unsigned char*>(plain.data()),
                                              in + crypto_secretbox_NONCEBYTES,
                                              sealed.size() - crypto_secretbox_NONCEBYTES, in, key);
    if (rc != 0)
        plain.clear();
    return rc == 0;
}

uint32_t seal(_tMailServer* server, const std::string& plain, std::string& sealed)
{
    unsigned char key[crypto_secretbox_KEYBYTES];
    if (uint32_t e = loadKey(server, true, key))
        return e;
    // Never seal under a key the passwords already stored do not open.
    std::string other, check;
    uint32_t e = server->connector->anySealedPassword(other);
    if (e == VB_ERROR_FILE_NOT_FOUND)
        e = 0;
    else if (!e && !opens(other, key, check))
        e = VB_ERROR_MAILBOX_PASSWORD_SEALED;
    sodium_memzero(check.data(), check.size());
    if (!e) {
        sealed.assign(crypto_secretbox_NONCEBYTES + crypto_secretbox_MACBYTES + plain.size(), '\0');
        auto* out = reinterpret_cast<unsigned char*>(sealed.data());
        randombytes_buf(out, crypto_secretbox_NONCEBYTES);
        crypto_secretbox_easy(out + crypto_secretbox_NONCEBYTES,
                              reinterpret_cast<const unsigned char*>(plain.data()), plain.size(), out, key);
    }
    sodium_memzero(key, sizeof key);
    return e;
}

uint32_t unseal(_tMailServer* server, const std::string& sealed, std::string& plain)
{
    unsigned char key[crypto_secretbox_KEYBYTES];
    if (uint32_t e = loadKey(server, false, key))
        return e;
    const bool ok = opens(sealed, key, plain);
    sodium_memzero(key, sizeof key);
    return ok ? 0 : VB_ERROR_MAILBOX_PASSWORD_SEALED;
}

uint32_t countWith(_tMailServer* server, const char* domain, bool calendaring, uint32_t* count)
{
    int64_t id = -1;
    if (domain) {
        ObjectRef d;
        if (uint32_t e = resolveDomain(server, domain, d))
            return e;
        id = d.id;
    }
    uint64_t n = 0;
    const uint32_t e = calendaring ? server->connector->countMailboxesWith(id, "CalendarType", n)
                                   : server->connector->countObjects(Kind::Mailbox, id, n);
    if (e)
        return e;
    *count = uint32_t(std::min<uint64_t>(n, UINT32_MAX));
    return 0;
}

} // namespace

extern "C" {

int InitMailboxStore(_tMailServer* server)
{
    if (!server)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "InitMailboxStore", nullptr, nullptr))
        return failWith(e);
    uint64_t count = 0;
    if (uint32_t e = server->connector->countObjects(Kind::Mailbox, -1, count))
        return failWith(e);
    ++g_mailboxStoreUsers;
    return 1;
}

int TermMailboxStore(void)
{
    int users = g_mailboxStoreUsers.load();
    while (users > 0 && !g_mailboxStoreUsers.compare_exchange_weak(users, users - 1)) {
    }
    SetLastError(0);
    return 1; // a copied dependency may terminate after the one it was copied from
}

_tMailbox* OpenMailbox(_tMailServer* server, const char* address)
{
    std::string local, domainName;
    if (!server || !splitAddress(address, local, domainName) || !validObjectName(local.c_str())) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (uint32_t e = intercept(server, "OpenMailbox", nullptr, address)) {
        SetLastError(e);
        return nullptr;
    }
    if (domainName.empty()) {
        ObjectRef d;
        if (uint32_t e = defaultDomain(server, d)) {
            SetLastError(e);
            return nullptr;
        }
        domainName = d.name;
    }
    auto* mailbox = new _tMailbox;
    mailbox->server = server;
    mailbox->life = server->life;
    if (uint32_t e = server->connector->loadSnapshot(Kind::Mailbox, domainName, local, mailbox->snapshot)) {
        delete mailbox;
        SetLastError(e);
        return nullptr;
    }
    SetLastError(0);
    return mailbox;
}

int CloseMailbox(_tMailbox* mailbox)
{
    if (!mailbox)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    delete mailbox;
    return 1;
}

int CreateMailbox(_tMailServer* server, const char* address)
{
    std::string local, domainName;
    if (!server || !address)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (!splitAddress(address, local, domainName) || !validObjectName(local.c_str()) || local.size() > 64)
        return failWith(VB_ERROR_MAILBOX_BAD_NAME);
    if (uint32_t e = intercept(server, "CreateMailbox", nullptr, address))
        return failWith(e);
    ObjectRef d, m;
    if (uint32_t e = resolveDomain(server, domainName, d))
        return failWith(e);
    if (uint32_t e = server->connector->begin())
        return failWith(e);
    uint32_t e = 0;
    Value max;
    if (server->connector->getProperty(d, "", "MaxMailboxes", max) == 0 && max.type == VB_TYPE_DWORD
        && max.number != UINT32_MAX) {
        // The maintained count, not a count of the domain's rows on every creation.
        Value count;
        uint64_t n = 0;
        if (server->connector->getProperty(d, "", "MailboxCount", count) == 0 && count.type == VB_TYPE_DWORD)
            n = count.number;
        else
            e = server->connector->countObjects(Kind::Mailbox, d.id, n);
        if (!e && n >= max.number)
            e = VB_ERROR_MAILBOX_LIMIT;
    }
    if (!e) {
        // A mailbox must not take the name of an alias.
        ObjectRef owner;
        if (server->connector->aliasOwner(d.id, local, owner) == 0)
            e = VB_ERROR_ALREADY_EXISTS;
    }
    if (!e)
        e = server->connector->createObject(Kind::Mailbox, d.id, local, m);
    return endTransaction(server, e);
}

int DestroyMailbox(_tMailServer* server, const char* address)
{
    std::string local, domainName;
    if (!server || !splitAddress(address, local, domainName))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "DestroyMailbox", nullptr, address))
        return failWith(e);
    ObjectRef d, m;
    uint32_t e = resolveDomain(server, domainName, d);
    if (!e)
        e = server->connector->findObject(Kind::Mailbox, d.id, local, m);
    if (!e)
        e = server->connector->destroyObject(m);
    if (e)
        return failWith(e);
    return 1;
}

int GetMailboxProperty(_tMailbox* mailbox, const char* name, void* buffer, uint32_t* size, uint32_t* type)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return getObjectProperty(*mailbox, "GetMailboxProperty", name, buffer, size, type);
}

int SetMailboxProperty(_tMailbox* mailbox, uint32_t type, const char* name, const void* data, uint32_t size)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return setObjectProperty(*mailbox, "SetMailboxProperty", type, name, data, size);
}

int LookupMailboxListProperty(_tMailbox* mailbox, const char* name, const char* element)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return lookupObjectList(*mailbox, "LookupMailboxListProperty", name, element);
}

int AddToMailboxListProperty(_tMailbox* mailbox, const char* name, const char* element)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return addToObjectList(*mailbox, "AddToMailboxListProperty", name, element);
}

int RemoveFromMailboxListProperty(_tMailbox* mailbox, const char* name, const char* element)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return removeFromObjectList(*mailbox, "RemoveFromMailboxListProperty", name, element);
}

int CreateMailboxAlias(_tMailbox* mailbox, const char* alias)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox || !validObjectName(alias) || std::strchr(alias, '@'))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(mailbox->server, "CreateMailboxAlias", nullptr, alias))
        return failWith(e);
    if (uint32_t e = mailbox->server->connector->createAlias(mailbox->ref(), alias))
        return failWith(e);
    return 1;
}

int DestroyMailboxAlias(_tMailbox* mailbox, const char* alias)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox || !validObjectName(alias))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(mailbox->server, "DestroyMailboxAlias", nullptr, alias))
        return failWith(e);
    if (uint32_t e = mailbox->server->connector->destroyAlias(mailbox->ref(), alias))
        return failWith(e);
    return 1;
}

int GetMailboxAliasNames(_tMailbox* mailbox, char* buffer, uint32_t* size)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(mailbox->server, "GetMailboxAliasNames", nullptr, nullptr))
        return failWith(e);
    std::vector<std::string> names;
    if (uint32_t e = mailbox->server->connector->aliasNamesOfMailbox(mailbox->ref().id, names))
        return failWith(e);
    return copyMultiOut(names, buffer, size);
}

int GetMailboxPassword(_tMailbox* mailbox, char* password, uint32_t* size)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox || !size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(mailbox->server, "GetMailboxPassword", nullptr, nullptr))
        return failWith(e);
    std::string sealed, plain;
    uint32_t e = mailbox->server->connector->getPassword(mailbox->ref(), sealed);
    if (e == VB_ERROR_FILE_NOT_FOUND)
        return copyTextOut(std::string(), password, size); // no password set
    if (!e)
        e = unseal(mailbox->server, sealed, plain);
    if (e)
        return failWith(e);
    const int rc = copyTextOut(plain, password, size);
    sodium_memzero(plain.data(), plain.size());
    return rc;
}

int SetMailboxPassword(_tMailbox* mailbox, const char* password)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox || !password || std::strlen(password) > 1024)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(mailbox->server, "SetMailboxPassword", nullptr, nullptr))
        return failWith(e);
    std::string sealed;
    if (uint32_t e = seal(mailbox->server, password, sealed))
        return failWith(e);
    if (uint32_t e = mailbox->server->connector->setPassword(mailbox->ref(), sealed))
        return failWith(e);
    return 1;
}

int GetMailboxPluginInfo(_tMailbox* mailbox, _tMailboxPluginInfo* info)
{
    if (gone(mailbox))
        return failWith(VB_ERROR_INVALID_HANDLE);
    if (!mailbox || !info || info->cbSize < sizeof(_tMailboxPluginInfo))
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(mailbox->server, "GetMailboxPluginInfo", nullptr, nullptr))
        return failWith(e);
    std::memset(info, 0, sizeof *info);
    info->cbSize = sizeof *info;
    info->kind = 0; // every mailbox of this store is an ordinary one
    return 1;
}

int GetMailboxCount(_tMailServer* server, uint32_t* count)
{
    if (!server || !count)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetMailboxCount", nullptr, nullptr))
        return failWith(e);
    if (uint32_t e = countWith(server, nullptr, false, count))
        return failWith(e);
    return 1;
}

int GetCalendaringMailboxCount(_tMailServer* server, uint32_t* count)
{
    if (!server || !count)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "GetCalendaringMailboxCount", nullptr, nullptr))
        return failWith(e);
    if (uint32_t e = countWith(server, nullptr, true, count))
        return failWith(e);
    return 1;
}

int CountCalendaringMailboxesInDomain(_tMailServer* server, const char* domain, uint32_t* count)
{
    if (!server || !count)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, "CountCalendaringMailboxesInDomain", nullptr, domain))
        return failWith(e);
    if (uint32_t e = countWith(server, domain ? domain : "", true, count))
        return failWith(e);
    return 1;
}

} // extern "C"
