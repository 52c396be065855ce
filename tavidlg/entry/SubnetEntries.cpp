// Entry point of the subnet list editor over a server property.
#include "common/SubnetListProperty.h"

#include <QWidget>

#include "entry/EntryFrame.h"

extern "C" TAVIDLG_API int EditServerSubnetList(TaviOwner owner, _tMailServer* server, const char* section,
                                                const char* name, unsigned captionId)
{
    return runEntry(owner, [&](COwnerWindow& parent) {
        return editServerSubnetList(parent, server, section, name, captionId);
    });
}
