/*
 * TaviDlg: the configuration and control dialogs of the Velbrook mail server.
 *
 * Every entry point opens one modal dialog, property sheet or wizard over one server's configuration,
 * on the caller's thread, and returns 1 (OK), 2 (Cancel or closed) or -1 (the dialog could not be
 * created). The owner is a native window id (0: no owner); the server handle stays the caller's. A host
 * without a Qt application object may call the entry points: the library creates one on the first call
 * and keeps it.
 *
 * Environment read by every entry point (for hosts that render or script the dialogs):
 *   TAVI_SCREENSHOT=path.png  show the dialog, save a picture of it to the path and return 2 at once;
 *   TAVI_AUTOCLOSE=cancel     close the dialog as cancelled as soon as its modal loop runs.
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

/* A server property that holds a list of IPv4 subnets with comments (a multi-string of lines such as
 * 10.0.0.0/8,"head office"; for example section "SMTPRA", name "TrustedSubnets"): opens the subnet list
 * editor over it and writes it back on OK. captionId: the string id of the caption (0: the default).
 * 1: written; 2: cancelled or nothing changed; -1: the property could not be read. */
TAVIDLG_API int EditServerSubnetList(TaviOwner owner, _tMailServer* server, const char* section,
                                     const char* name, unsigned captionId);

/* Services. service: the store's name of the service (GetMailServiceList); caption: the window caption,
 * shown as it stands. */
TAVIDLG_API int ServiceControlDialog(TaviOwner owner, _tMailServer* server, const char* service,
                                     const char* caption);

/* Logging. */
TAVIDLG_API int EditFileLogConfig(TaviOwner owner, _tMailServer* server);

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

/* Protection wizards. */

/* Domains. */
/* The domain sheet on one domain; domain null or "" edits the server's default domain. A domain that
 * cannot be opened is reported and 2 returned without a sheet. */
TAVIDLG_API int EditDomain(TaviOwner owner, _tMailServer* server, const char* domain);

/* Mailboxes. */

/* Mailing lists. */

/* The configuration connector. */

/* The reminder box the dialogs show (a message from the library's string table with "Don't show this
 * dialog again"), for hosts that warn about the same things. flags are message-box styles (0x0F
 * buttons: 0 OK only, else OK and Cancel; 0xF0 the icon); captionId 0 keeps "Reminder". Returns 1 at
 * once when the administrator silenced rememberKey earlier, else the button pressed (1 OK, 2 Cancel). */
TAVIDLG_API int ShowReminder(TaviOwner owner, unsigned messageId, const char* rememberKey, unsigned captionId,
                             unsigned flags);

VB_END_DECLS

#endif
