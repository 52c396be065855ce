/*
 * DomainStore: the server's mail domains, their properties, synonyms and alias names.
 * An open domain handle is read in one round trip to the database; later reads are served from what
 * that read brought, and writes go straight through.
 */
#ifndef VELBROOK_DOMAINSTORE_H
#define VELBROOK_DOMAINSTORE_H

#include "StoreBase.h"

VB_BEGIN_DECLS

typedef struct _tDomain _tDomain;
typedef struct _tDomainEnum _tDomainEnum;

/* Readiness of the domain store for a server (used by CDomainStoreDependancy): Init checks that the
 * server's domains can be read and counts a user; Term releases one. */
VB_STORE_API int InitDomainStore(_tMailServer* server);
VB_STORE_API int TermDomainStore(void);

/* The default domain is the one the server property "DefaultDomain" names, else the oldest domain.
 * name: null or "" opens the default domain. VB_ERROR_FILE_NOT_FOUND when there is no such domain. */
VB_STORE_API _tDomain* OpenDomain(_tMailServer* server, const char* name);
VB_STORE_API int CloseDomain(_tDomain* domain);
/* Creates an empty domain (VB_ERROR_ALREADY_EXISTS when present); DestroyDomain removes it with its
 * mailboxes and lists. */
VB_STORE_API int CreateDomain(_tMailServer* server, const char* name);
VB_STORE_API int DestroyDomain(_tMailServer* server, const char* name);

/* Buffer rules as GetMailServerProperty. "MailboxCount" is maintained by the store. */
VB_STORE_API int GetDomainProperty(_tDomain* domain, const char* name, void* buffer, uint32_t* size,
                                   uint32_t* type);
VB_STORE_API int SetDomainProperty(_tDomain* domain, uint32_t type, const char* name, const void* data,
                                   uint32_t size);
/* List properties of a domain, as the server's: the e-mail address lists "Whitelist", "Blacklist",
 * "PreferredSenders" (and those the domain's text property "AddressListNames" names), each element a
 * lower-case address or pattern. Writing a list property with type 7 replaces it whole. */
VB_STORE_API int LookupDomainListProperty(_tDomain* domain, const char* name, const char* element);
VB_STORE_API int AddToDomainListProperty(_tDomain* domain, const char* name, const char* element);
VB_STORE_API int RemoveFromDomainListProperty(_tDomain* domain, const char* name, const char* element);

/* Enumeration of domain names in name order; FindNextDomain fails with VB_ERROR_NO_MORE_ITEMS at the
 * end and VB_ERROR_MORE_DATA (with *size) when the buffer is too small. */
VB_STORE_API _tDomainEnum* StartDomainEnumeration(_tMailServer* server);
VB_STORE_API int FindNextDomain(_tDomainEnum* e, char* name, uint32_t* size);
VB_STORE_API int CloseDomainEnumeration(_tDomainEnum* e);

/* Synonyms: other names under which a domain receives mail. */
VB_STORE_API _tDomainEnum* StartDomainSynonymEnumeration(_tMailServer* server, const char* domain);
/* FindNextDomain and CloseDomainEnumeration serve a synonym enumeration too. */
VB_STORE_API int CreateDomainSynonym(_tMailServer* server, const char* domain, const char* synonym);
VB_STORE_API int DestroyDomainSynonym(_tMailServer* server, const char* synonym);
/* Turns a synonym into a domain of its own. */
VB_STORE_API int ConvertDomainSynonym(_tMailServer* server, const char* synonym);

/* size: the buffer's size, not updated; VB_ERROR_MORE_DATA when the name does not fit. */
VB_STORE_API int GetDefaultDomainName(_tMailServer* server, char* name, uint32_t size);
/* The domain whose "IpAddress" is address; VB_ERROR_FILE_NOT_FOUND when none. */
VB_STORE_API int GetDomainFromAddress(_tMailServer* server, const char* address, char* name, uint32_t size);
VB_STORE_API int AliasNamesSupported(_tMailServer* server);
/* Multi-string of the domain's alias names. */
VB_STORE_API int GetDomainAliasNames(_tMailServer* server, const char* domain, char* buffer, uint32_t* size);
/* alias: "alias@domain" or a bare alias of the default domain; name receives "mailbox@domain". */
VB_STORE_API int GetAliasPrincipalName(_tMailServer* server, const char* alias, char* name, uint32_t size);

VB_STORE_API int CountMailboxesInDomain(_tMailServer* server, const char* domain, uint32_t* count);
VB_STORE_API int CountMailingListsInDomain(_tMailServer* server, const char* domain, uint32_t* count);

VB_END_DECLS

#endif
