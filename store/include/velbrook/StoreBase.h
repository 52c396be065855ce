/*
 * Types and conventions shared by the six configuration libraries.
 *
 * Every operation returns non-zero on success. On failure it returns 0 (or a null handle) and leaves a
 * Windows-compatible code in the calling thread's last error (MailToolkit.h: GetLastError), for example
 * 234 when a buffer is too small (the size argument then holds the size needed), 2 when a property or
 * object does not exist, 5 when the store is read-only.
 *
 * Names of properties and sections match without regard to case. Values are typed:
 *   VB_TYPE_STRING       1  zero-terminated UTF-8 text; sizes count the terminating zero
 *   VB_TYPE_DWORD        4  unsigned 32-bit number, size 4
 *   VB_TYPE_MULTI_STRING 7  zero-terminated strings one after another, ended by an empty string
 */
#ifndef VELBROOK_STOREBASE_H
#define VELBROOK_STOREBASE_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#  if defined(VB_STORE_BUILD)
#    define VB_STORE_API __declspec(dllexport)
#  else
#    define VB_STORE_API __declspec(dllimport)
#  endif
#else
#  define VB_STORE_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
#  define VB_EXTERN_C extern "C"
#  define VB_BEGIN_DECLS extern "C" {
#  define VB_END_DECLS }
#else
#  define VB_EXTERN_C
#  define VB_BEGIN_DECLS
#  define VB_END_DECLS
#endif

#define VB_TYPE_STRING 1u
#define VB_TYPE_DWORD 4u
#define VB_TYPE_MULTI_STRING 7u

/* Windows-compatible last-error codes the dialogs rely on. */
#define VB_ERROR_SUCCESS 0u
#define VB_ERROR_FILE_NOT_FOUND 2u       /* property, section or object not found */
#define VB_ERROR_PATH_NOT_FOUND 3u       /* the store's folder does not exist */
#define VB_ERROR_ACCESS_DENIED 5u        /* read-only store */
#define VB_ERROR_INVALID_HANDLE 6u       /* an object used after the server handle it came from was closed */
#define VB_ERROR_NOT_ENOUGH_MEMORY 8u
#define VB_ERROR_INVALID_DATA 13u        /* stored value of another type, or corrupt */
#define VB_ERROR_NOT_SUPPORTED 50u
#define VB_ERROR_INVALID_PARAMETER 87u
#define VB_ERROR_DISK_FULL 112u
#define VB_ERROR_BAD_ARGUMENTS 160u
#define VB_ERROR_BUSY 170u               /* the store stayed locked past the busy timeout */
#define VB_ERROR_ALREADY_EXISTS 183u
#define VB_ERROR_MORE_DATA 234u
#define VB_ERROR_NO_MORE_ITEMS 259u      /* end of an enumeration */
#define VB_ERROR_CANCELLED 1223u         /* a progress callback asked to stop */
#define VB_ERROR_NOT_FOUND 1168u         /* element of a list not found */
#define VB_ERROR_SERVICE_ALREADY_RUNNING 1056u
#define VB_ERROR_SERVICE_NOT_ACTIVE 1062u
#define VB_ERROR_SERVICE_DOES_NOT_EXIST 1060u
#define VB_ERROR_SERVICE_CANNOT_ACCEPT_CTRL 1061u /* a start or stop is still pending */
#define VB_ERROR_SERVICE_REQUEST_TIMEOUT 1053u    /* the service manager did not do what was asked */
#define VB_ERROR_IO_DEVICE 1117u
#define VB_ERROR_BAD_FILE 0xE0000001u    /* the file is not a configuration store */
#define VB_ERROR_STORE_FAILURE 0xE0000002u /* the database refused an operation for another reason */
#define VB_ERROR_STORE_TOO_NEW 0xE0000003u /* the store was written by a newer release; it is left untouched */
#define VB_ERROR_STORE_LOG_UNREADABLE 0xE0000004u /* read-only store whose newest changes are in a log we cannot read */

/* Application-defined codes of the configuration libraries (bit 0x20000000 set). */
#define VB_ERROR_MAILBOX_LIMIT 0xE0100003u   /* no more mailboxes in this domain */
#define VB_ERROR_PROPERTY_TOO_LARGE 0xE0100004u
#define VB_ERROR_MAILLIST_LIMIT 0xE0200003u  /* no more mailing lists in this domain */
/* Codes with a text of their own from GetMailboxManagerErrorString / GetMailingListManagerErrorString
 * (bit 0x01000000 set). */
#define VB_ERROR_MAILBOX_BAD_NAME 0xE1100001u
#define VB_ERROR_MAILBOX_KEY_FILE 0xE1100002u        /* the key file cannot be read or created */
#define VB_ERROR_MAILBOX_PASSWORD_SEALED 0xE1100003u /* the key file is not the one the passwords were sealed with */
#define VB_ERROR_MAILBOX_KEY_MISSING 0xE1100004u     /* sealed passwords are stored but their key file is gone */
#define VB_ERROR_MAILBOX_KEY_UNSAFE 0xE1100005u      /* the key file can be read by other users */
#define VB_ERROR_MAILLIST_BAD_NAME 0xE1200001u

/* One open configuration. Owned by whoever called OpenMailServer. Objects obtained through it (opened
 * domains, mailboxes and lists, traffic reports) may outlive it: every use of them then fails with
 * VB_ERROR_INVALID_HANDLE, and only closing or destroying them still works. */
typedef struct _tMailServer _tMailServer;

#endif
