// Entry point of the subnet list editor over a server property.
#include "common/SubnetListProperty.h"

#include <QWidget>

#include "entry/EntryFrame.h"

#include <exception>

extern "C" TAVIDLG_API int EditServerSubnetList(TaviOwner owner, _tMailServer* server, const char* section,
                                                const char* name, unsigned captionId)
{
    if (!ensureApplication())
        return -1;
    try {
        COwnerWindow parent(owner);
        return editServerSubnetList(parent, server, section, name, captionId);
    } catch (const std::exception&) {
        return -1;
    }
}
