/* An administration program in C that knows nothing of Qt: it opens a configuration store and lets the
 * administrator edit it with the dialogs of TaviDlg.
 *
 *   velbrook-example-host STORE [ENTRY [--cancel]]
 *
 * opens (or creates) the store at STORE and calls the dialog's entry point ENTRY (EditDirectories,
 * EditAgents, EditQuotas, EditCalendaring, EditTrafficCounters or EditFileLogConfig; EditQuotas when
 * left out), then prints what the administrator did. With --cancel the dialog closes itself as
 * cancelled at once (for scripted runs). Exit status 0 when the dialog came up. */
#include <stdio.h>
#include <string.h>

#include <TaviDlg.h>
#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

typedef int (*EntryPoint)(TaviOwner owner, _tMailServer* server);

struct Entry {
    const char* name;
    EntryPoint call;
};

static const struct Entry kEntries[] = {
    {"EditDirectories", EditDirectories},
    {"EditAgents", EditAgents},
    {"EditQuotas", EditQuotas},
    {"EditCalendaring", EditCalendaring},
    {"EditTrafficCounters", EditTrafficCounters},
    {"EditFileLogConfig", EditFileLogConfig},
};

int main(int argc, char** argv)
{
    if (argc < 2) {
        fprintf(stderr, "usage: %s STORE [ENTRY]\n", argv[0]);
        return 2;
    }
    const char* wanted = argc > 2 ? argv[2] : "EditQuotas";
    EntryPoint call = NULL;
    for (size_t i = 0; i < sizeof kEntries / sizeof kEntries[0]; ++i) {
        if (strcmp(kEntries[i].name, wanted) == 0)
            call = kEntries[i].call;
    }
    if (!call) {
        fprintf(stderr, "%s: no dialog called %s\n", argv[0], wanted);
        return 2;
    }
    if (argc > 3 && strcmp(argv[3], "--cancel") == 0)
        TaviSetRunMode(TAVI_RUN_CANCEL, NULL);
    _tMailServer* server = OpenMailServer(argv[1]);
    if (!server) {
        fprintf(stderr, "%s: could not open the store %s (error %u)\n", argv[0], argv[1],
                (unsigned)GetLastError());
        return 1;
    }
    /* No owner window: the dialog is a top-level window of its own. */
    const int result = call(0, server);
    CloseMailServer(server);
    switch (result) {
    case 1: printf("%s: saved\n", wanted); return 0;
    case 2: printf("%s: cancelled\n", wanted); return 0;
    default: printf("%s: the dialog could not be shown\n", wanted); return 1;
    }
}
