/*
 * ListStore: mailing lists, their properties and members.
 */
#ifndef VELBROOK_LISTSTORE_H
#define VELBROOK_LISTSTORE_H

#include "StoreBase.h"

VB_BEGIN_DECLS

typedef struct _tMailingList _tMailingList;
typedef struct _tMemberEnum _tMemberEnum;
typedef struct _tMembershipConfig _tMembershipConfig;

VB_STORE_API _tMailingList* OpenMailingList(_tMailServer* server, const char* list, const char* domain);
VB_STORE_API int CloseMailingList(_tMailingList* list);
VB_STORE_API int CreateMailingList(_tMailServer* server, const char* list, const char* domain);
VB_STORE_API int DestroyMailingList(_tMailServer* server, const char* list, const char* domain);

VB_STORE_API int GetMailingListProperty(_tMailingList* list, const char* name, void* buffer, uint32_t* size,
                                        uint32_t* type);
VB_STORE_API int SetMailingListProperty(_tMailingList* list, uint32_t type, const char* name, const void* data,
                                        uint32_t size);

/* Members in the order they were added; FindNext fails with VB_ERROR_NO_MORE_ITEMS at the end. */
VB_STORE_API _tMemberEnum* StartMailingListMemberEnumeration(_tMailingList* list);
VB_STORE_API int FindNextMailingListMember(_tMemberEnum* e, char* address, uint32_t* size);
VB_STORE_API int CloseMailingListMemberEnumeration(_tMemberEnum* e);
VB_STORE_API int AddMailingListMember(_tMailingList* list, const char* address);
VB_STORE_API int RemoveMailingListMember(_tMailingList* list, const char* address);
VB_STORE_API int GetMailingListMemberProperty(_tMailingList* list, const char* address, const char* name,
                                              void* buffer, uint32_t* size, uint32_t* type);
VB_STORE_API int SetMailingListMemberProperty(_tMailingList* list, const char* address, uint32_t type,
                                              const char* name, const void* data, uint32_t size);

VB_STORE_API int GetMailingListCount(_tMailServer* server, uint32_t* count);
/* Names of a domain's mailing lists (null or empty domain: the default domain), sorted, as a
 * multi-string; VB_ERROR_MORE_DATA with the size needed when the buffer is too small. */
VB_STORE_API int GetMailingListNames(_tMailServer* server, const char* domain, char* buffer, uint32_t* size);

/* The roster in one read: row is called for every member, in the order they were added, with the text
 * of the member's property `property` (empty when it has none). row returning 0 stops the read, which
 * then fails with VB_ERROR_CANCELLED. */
typedef int (*VbMemberRow)(void* context, const char* address, const char* value);
VB_STORE_API int ReadMailingListMembers(_tMailingList* list, const char* property, VbMemberRow row,
                                        void* context);
/* Adds count members in one transaction, all or none. values (may be null; an entry may be null or
 * empty for none) set each new member's text property `property`. progress (may be null) is called
 * now and then with the number added so far; returning 0 cancels with VB_ERROR_CANCELLED. On failure
 * *failed (may be null) is the index of the member at fault (count when no single member is), for
 * example VB_ERROR_ALREADY_EXISTS for an address that is already a member or given twice. */
/* Removes count members in one transaction, all or none; on failure *failed (may be null) is the index
 * of the member at fault, for example VB_ERROR_FILE_NOT_FOUND for an address that is not a member. */
VB_STORE_API int RemoveMailingListMembers(_tMailingList* list, const char* const* addresses, uint32_t count,
                                          uint32_t* failed);
typedef int (*VbMemberProgress)(void* context, uint32_t done, uint32_t total);
VB_STORE_API int AddMailingListMembers(_tMailingList* list, const char* property, const char* const* addresses,
                                       const char* const* values, uint32_t count, VbMemberProgress progress,
                                       void* context, uint32_t* failed);

typedef struct _tMailingListPluginInfo {
    uint32_t cbSize;         /* 40, set by the caller */
    uint32_t kind;           /* 1: an ordinary list; 2: a list without a member roster */
    uint64_t module;         /* module of the list plug-in; 0 for the built-in kinds */
    uint32_t titleId;        /* string id of the plug-in's title */
    uint16_t configTemplate; /* id of the plug-in's configuration dialog; 0: none */
    uint16_t reserved0;
    char title[16];          /* the title itself, for hosts without the plug-in's module */
} _tMailingListPluginInfo;
/* kind 2 when the list's number "ListKind" is 2 (no member roster), else 1. A list of kind 2 names the
 * configuration VB_LIST_MEMBERSHIP_TEMPLATE: its membership rules (the Membership configuration below)
 * decide who receives its mail. */
#define VB_LIST_MEMBERSHIP_TEMPLATE 1u
VB_STORE_API int GetMailingListPluginInfo(_tMailingList* list, _tMailingListPluginInfo* info);

/* Membership configuration: a copy of the list's membership rules (texts kept in the list's section
 * "Membership") that can be edited and saved. Edit with a null value removes a rule; Changed is
 * non-zero when the copy differs from what was loaded or last saved; Save writes only the differences,
 * in one transaction. */
VB_STORE_API _tMembershipConfig* LoadMailingListMembershipConfiguration(_tMailingList* list);
VB_STORE_API int EditMailingListMembershipConfiguration(_tMembershipConfig* config, const char* name,
                                                         const char* value);
/* The rules of the copy as a multi-string: each rule's name followed by its value, sorted by name
 * (rules with an empty value are left out). */
VB_STORE_API int GetMailingListMembershipRules(const _tMembershipConfig* config, char* buffer, uint32_t* size);
VB_STORE_API int ChangedMailingListMembershipConfiguration(const _tMembershipConfig* config);
VB_STORE_API int SaveMailingListMembershipConfiguration(_tMailingList* list, _tMembershipConfig* config);
VB_STORE_API void FreeMailingListMembershipConfiguration(_tMembershipConfig* config);

/* Text of a list-store error code (codes with bits 0x20200000); 0 when there is none. */
VB_STORE_API int GetMailingListManagerErrorString(uint32_t code, char* text, uint32_t size);

VB_END_DECLS

#endif
