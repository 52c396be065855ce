/*
 * TaviDlg: the configuration and control dialogs of the Velbrook mail server.
 *
 * Every entry point opens one modal dialog, property sheet or wizard over one server's configuration,
 * on the caller's thread, and returns 1 (OK), 2 (Cancel or closed) or -1 (the dialog could not be
 * created). The owner is a native window id (0: no owner); the server handle stays the caller's. A host
 * without a Qt application object may call the entry points: the library creates one on the first call
 * and keeps it. The library reads nothing from the environment: hosts that render or script the
 * dialogs say so with TaviSetRunMode.
 */
#ifndef TAVIDLG_H
#define TAVIDLG_H

#include <stdint.h>

#include <velbrook/StoreBase.h>
#ifdef __cplusplus
#include <velbrook/MailServer.h>
#endif

#if defined(_WIN32)
#  if defined(TAVIDLG_BUILD)
#    define TAVIDLG_API __declspec(dllexport)
#  else
#    define TAVIDLG_API __declspec(dllimport)
#  endif
#else
#  define TAVIDLG_API __attribute__((visibility("default")))
#endif

typedef uintptr_t TaviOwner;

VB_BEGIN_DECLS

/* Server settings. */
TAVIDLG_API int EditDirectories(TaviOwner owner, _tMailServer* server);
TAVIDLG_API int EditAgents(TaviOwner owner, _tMailServer* server);
TAVIDLG_API int EditQuotas(TaviOwner owner, _tMailServer* server);
TAVIDLG_API int EditCalendaring(TaviOwner owner, _tMailServer* server);
TAVIDLG_API int EditTrafficCounters(TaviOwner owner, _tMailServer* server);
/* The server's alias table (alias address or domain -> the address it stands for). */
TAVIDLG_API int EditAliases(TaviOwner owner, _tMailServer* server);

/* A server property that holds a list of IPv4 subnets with comments (a multi-string of elements such as
 * 10.0.0.0/8,"head office" or 10.0.0.0/8, as ServerStore.h documents; for example section "SMTPRA", name
 * "TrustedSubnets"): opens the subnet list
 * editor over it and writes it back on OK. captionId: the string id of the caption (0: the default).
 * 1: written; 2: cancelled or nothing changed; -1: the property could not be read. */
TAVIDLG_API int EditServerSubnetList(TaviOwner owner, _tMailServer* server, const char* section,
                                     const char* name, unsigned captionId);

/* Services. service: the store's name of the service (GetMailServiceList); caption: the window caption,
 * shown as it stands. */
TAVIDLG_API int ServiceControlDialog(TaviOwner owner, _tMailServer* server, const char* service,
                                     const char* caption);
/* The properties of one service (listening addresses and ports, start mode, worker limit, connection
 * timeout, its log file) in the service's own section; the caption is "<service> service on <server>". */
TAVIDLG_API int EditService(TaviOwner owner, _tMailServer* server, const char* service);

/* Logging. */
TAVIDLG_API int EditFileLogConfig(TaviOwner owner, _tMailServer* server);
/* Whether and where events are also logged to a database, how long they are kept and which kinds. */
TAVIDLG_API int EditDbLogConfig(TaviOwner owner, _tMailServer* server);

/* Log flags: one bit per kind of event a service writes to its log. */
#define TAVI_LOG_SMTP_SESSIONS     0x00000001u /* SMTP receiver: connections opened and closed */
#define TAVI_LOG_SMTP_COMMANDS     0x00000002u /* SMTP receiver: every command and reply */
#define TAVI_LOG_SMTP_REJECTIONS   0x00000004u /* SMTP receiver: refused connections, senders and recipients */
#define TAVI_LOG_SMTP_AUTH         0x00000008u /* SMTP receiver: authentication attempts */
#define TAVI_LOG_SMTP_TLS          0x00000010u /* SMTP receiver: TLS negotiation */
#define TAVI_LOG_DELIVERY_QUEUE    0x00000100u /* delivery: messages queued, retried and expired */
#define TAVI_LOG_DELIVERY_REMOTE   0x00000200u /* delivery: SMTP transcripts with remote servers */
#define TAVI_LOG_DELIVERY_DNS      0x00000400u /* delivery: MX and address lookups */
#define TAVI_LOG_DELIVERY_LOCAL    0x00000800u /* delivery: delivery into local mailboxes */
#define TAVI_LOG_DELIVERY_DSN      0x00001000u /* delivery: delivery status notifications sent */
#define TAVI_LOG_ACCESS_POP3       0x00010000u /* mail access: POP3 sessions */
#define TAVI_LOG_ACCESS_IMAP4      0x00020000u /* mail access: IMAP4 sessions */
#define TAVI_LOG_ACCESS_AUTH       0x00040000u /* mail access: logins and failed logins */
#define TAVI_LOG_ACCESS_WEBMAIL    0x00080000u /* mail access: web mail sessions */
#define TAVI_LOG_SYSTEM_LISTS      0x01000000u /* system: mailing-list processing */
#define TAVI_LOG_SYSTEM_AGENTS     0x02000000u /* system: agents run and their results */
#define TAVI_LOG_SYSTEM_SECURITY   0x04000000u /* system: lockouts, bans and harvest probation */
#define TAVI_LOG_SYSTEM_CONFIG     0x08000000u /* system: configuration changes picked up */
#define TAVI_LOG_SYSTEM_DEBUG      0x80000000u /* system: debugging detail (large logs) */

/* The log flags sheet, one page per area with a check box per flag. flags: in, the flags logged now;
 * out, on OK, the flags as edited. allowed: the flags the caller lets the administrator change; the
 * others are shown disabled and keep their value, as do bits this library does not name. Cancel leaves
 * *flags untouched. Returns 1 (OK), 2 (Cancel) or -1 (flags is null or the sheet could not be built). */
TAVIDLG_API int EditLogFlags(TaviOwner owner, _tMailServer* server, const char* caption, uint32_t* flags,
                             uint32_t allowed);

/* Delivery schedules and routing. */
/* The delivery retry schedule ("RetrySchedule"); an unchanged OK returns 2. */
TAVIDLG_API int EditElapsedTimeSchedule(TaviOwner owner, _tMailServer* server);
/* The weekday and weekend time-of-day schedules and the dial-up link's state. */
TAVIDLG_API int EditDialupSchedule(TaviOwner owner, _tMailServer* server);
/* Which domains use the retry schedule, and an immediate retry for chosen domains; an unchanged OK
 * returns 2. */
TAVIDLG_API int ScheduleManagementDialog(TaviOwner owner, _tMailServer* server);
/* The manual route table; an untouched table is not rewritten and OK returns 2. */
TAVIDLG_API int EditRoutes(TaviOwner owner, _tMailServer* server);

/* Security: the security sheet, the server's address lists and the wireless carriers. */
/* The security sheet: authentication and lockout, anti-spam, directory harvest attack protection, TLS. */
TAVIDLG_API int EditSecurity(TaviOwner owner, _tMailServer* server);

/* The e-mail address lists of the server ("Whitelist", "Blacklist", "PreferredSenders" and any others its
 * "AddressListNames" names) in the list editor, with listName shown first (null or "": none). Each change
 * is written on OK (after a question on switching lists). Returns 1 on OK, even when a save failed
 * (the administrator was told), 2 on Cancel. */
TAVIDLG_API int EditServerEmailAddressLists(TaviOwner owner, _tMailServer* server, const char* listName);
/* The wireless carriers (id, name, SMS gateway domain) in the table the server property "MobileCarriers"
 * names; ids stay stable across edits. */
TAVIDLG_API int EditServerWirelessCarrierListManager(TaviOwner owner, _tMailServer* server);

/* Protection wizards. */
TAVIDLG_API int AntiSpamWizard(TaviOwner owner, _tMailServer* server);
TAVIDLG_API int AntiRelayWizard(TaviOwner owner, _tMailServer* server);
TAVIDLG_API int AntiDoSWizard(TaviOwner owner, _tMailServer* server);

/* Domains. */
/* The domain sheet on one domain; domain null or "" edits the server's default domain. A domain that
 * cannot be opened is reported and 2 returned without a sheet. */
TAVIDLG_API int EditDomain(TaviOwner owner, _tMailServer* server, const char* domain);

/* A domain's e-mail address lists, as EditServerEmailAddressLists: the domain is opened for the call and
 * closed after the editor, whatever it returned. domain: null or "" for the default domain. */
TAVIDLG_API int EditDomainEmailAddressLists(TaviOwner owner, _tMailServer* server, const char* domain,
                                            const char* listName);

/* Mailboxes. */
struct _tMailbox; /* an open mailbox of the store (velbrook/MailboxStore.h) */

/* An open mailbox's e-mail address lists, as EditServerEmailAddressLists; the mailbox stays the caller's
 * (the mailbox sheet passes its own, with "Whitelist", "Blacklist" or "PreferredSenders"). */
TAVIDLG_API int EditMailboxEmailAddressLists(TaviOwner owner, _tMailServer* server, struct _tMailbox* mailbox,
                                             const char* listName);

/* Mailing lists. */
/* The mailing-list sheet of one list; a null or empty domain means the server's default domain. */
TAVIDLG_API int EditMailList(TaviOwner owner, _tMailServer* server, const char* domain, const char* list);

/* The configuration connector. */

/* How later entry-point calls run, for hosts that render or script the dialogs (the console's
 * --screenshot, tests); it holds for every later call until changed.
 *   TAVI_RUN_INTERACTIVE  each dialog runs for the administrator (the default);
 *   TAVI_RUN_SCREENSHOT   each dialog is shown, a picture of it saved to path (PNG) and the call returns
 *                         2 at once (-1 when the picture could not be saved);
 *   TAVI_RUN_CANCEL       each dialog closes as cancelled as soon as its modal loop runs.
 * Returns 1, or 0 (nothing changed) for an unknown mode or a screenshot without a path. */
#define TAVI_RUN_INTERACTIVE 0
#define TAVI_RUN_SCREENSHOT 1
#define TAVI_RUN_CANCEL 2
TAVIDLG_API int TaviSetRunMode(int mode, const char* path);

/* The reminder box the dialogs show (a message from the library's string table with "Don't show this
 * dialog again"), for hosts that warn about the same things. flags are message-box styles (0x0F
 * buttons: 0 OK only, else OK and Cancel; 0xF0 the icon); captionId 0 keeps "Reminder". Returns 1 at
 * once when the administrator silenced rememberKey earlier, else the button pressed (1 OK, 2 Cancel). */
TAVIDLG_API int ShowReminder(TaviOwner owner, unsigned messageId, const char* rememberKey, unsigned captionId,
                             unsigned flags);

VB_END_DECLS

#endif
