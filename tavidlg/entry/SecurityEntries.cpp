// Entry points of the security sheet, the service properties, the log flags and the database log.
#include "entry/EntryFrame.h"
#include "logging/DbLogConfigDlg.h"
#include "logging/LogFlagsPropertySheet.h"
#include "security/SecurityPropertySheet.h"
#include "server/ServicePropertiesDlg.h"

extern "C" TAVIDLG_API int EditService(TaviOwner owner, _tMailServer* server, const char* service)
{
    return runDialog<CServicePropertiesDlg>(owner, server, service);
}

extern "C" TAVIDLG_API int EditDbLogConfig(TaviOwner owner, _tMailServer* server)
{
    return runDialog<CDbLogConfigDlg>(owner, server);
}

extern "C" TAVIDLG_API int EditLogFlags(TaviOwner owner, _tMailServer* server, const char* caption, uint32_t* flags,
                                        uint32_t allowed)
{
    if (!flags)
        return -1;
    const QString text = QString::fromUtf8(caption ? caption : "");
    return runDialog<CLogFlagsPropertySheet>(owner, server, text, flags, allowed);
}

extern "C" TAVIDLG_API int EditSecurity(TaviOwner owner, _tMailServer* server)
{
    return runDialog<SecurityPropertySheet>(owner, server);
}
