/* A host program written in C: it knows nothing of Qt, opens a configuration store and calls an entry
 * point of the dialog library through its C header. With TAVI_RUN_CANCEL and an offscreen platform, the
 * dialog closes itself as cancelled and the call returns 2. */
#include <stdio.h>
#include <stdlib.h>

#include <TaviDlg.h>
#include <velbrook/ServerStore.h>

int main(int argc, char** argv)
{
    const char* location = argc > 1 ? argv[1] : "c_host.db";
    remove(location);
    _tMailServer* server = OpenMailServer(location);
    if (!server) {
        fprintf(stderr, "could not open the store %s\n", location);
        return 1;
    }
    int failed = !TaviSetRunMode(TAVI_RUN_CANCEL, NULL);
    /* Twice: the second call reuses the application object the first one created. */
    for (int i = 0; i < 2; ++i) {
        const int result = EditDirectories(0, server);
        if (result != 2) {
            fprintf(stderr, "EditDirectories returned %d, expected 2\n", result);
            failed = 1;
        }
    }
    CloseMailServer(server);
    remove(location);
    printf("%d passed, %d failed\n", failed ? 0 : 1, failed);
    return failed;
}
