/*
 * SieveFilterPlugin: the mailbox filter editor, loaded at run time (QLibrary("SieveFilterPlugin")).
 *
 * EditSieveMailboxConfiguration shows a modal editor of the open mailbox's "SieveScript" property: rules
 * of the form condition -> action, or the script as text when it cannot be shown as rules. The script
 * is checked before it is written; a script with a syntax error is never written. Returns 1 when a
 * changed script was written, 2 when the editor was cancelled or closed without a change, -1 when it
 * could not be shown (no mailbox, no user interface). The mailbox stays the caller's.
 */
#ifndef SIEVEFILTERPLUGIN_H
#define SIEVEFILTERPLUGIN_H

#include <velbrook/MailboxStore.h>

#include "TaviDlg.h"

#ifdef __cplusplus
extern "C" {
#endif

#if defined(SIEVEFILTERPLUGIN_BUILD)
#  if defined(_WIN32)
#    define SIEVEFILTERPLUGIN_API __declspec(dllexport)
#  else
#    define SIEVEFILTERPLUGIN_API __attribute__((visibility("default")))
#  endif
#else
#  define SIEVEFILTERPLUGIN_API
#endif

SIEVEFILTERPLUGIN_API int EditSieveMailboxConfiguration(TaviOwner owner, _tMailbox* mailbox);

/* The type of the entry point, for hosts that resolve it by name. */
typedef int (*EditSieveMailboxConfigurationFn)(TaviOwner owner, _tMailbox* mailbox);

#ifdef __cplusplus
}
#endif

#endif
