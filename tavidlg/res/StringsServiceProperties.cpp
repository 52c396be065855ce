// Texts of the service properties dialog.
#include "res/ServicePropertyStrings.h"
#include "res/StringTable.h"

namespace {

const TaviStringEntry kStrings[] = {
    {IDS_SVCPROP_BAD_ADDRESS, QT_TRANSLATE_NOOP("TaviStrings",
        "\"%1\" is not an IP address of this host.\n\nType an IPv4 address such as 192.0.2.10, an IPv6 address "
        "such as 2001:db8::10, or leave the address empty to listen on every address.")},
    {IDS_SVCPROP_DUPLICATE, QT_TRANSLATE_NOOP("TaviStrings", "The service already listens on %1.")},
    {IDS_SVCPROP_PORT_IN_USE, QT_TRANSLATE_NOOP("TaviStrings",
        "Port %1 is already used by the %2 service (%3), which listens on %4.\n\nChoose another port, or "
        "another address for one of the two services.")},
    {IDS_SVCPROP_BAD_STORED, QT_TRANSLATE_NOOP("TaviStrings",
        "%1 of the stored listening addresses could not be understood and are not shown. They will be "
        "removed when you press OK.")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
