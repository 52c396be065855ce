// Texts of the subnet list editor and the subnet list property editor.
#include "res/StringTable.h"
#include "res/SubnetStringIds.h"

namespace {

const TaviStringEntry kStrings[] = {
    {IDS_SUBNET_DUPLICATE, QT_TRANSLATE_NOOP("TaviStrings", "Cannot add entry as this Nework Address and Subnet Mask already exist in the list.")},
    {IDS_SUBNET_COLUMN_SUBNET, QT_TRANSLATE_NOOP("TaviStrings", "IP subnet")},
    {IDS_SUBNET_COLUMN_COMMENT, QT_TRANSLATE_NOOP("TaviStrings", "Comment")},
    {IDS_SUBNET_INVALID, QT_TRANSLATE_NOOP("TaviStrings", "The combination of network address and subnet mask entered is not a valid CIDR subnet or the comment "
     "contains illegal characters.\n\nAs a valid example,  the network IDs 131.107.4.0, 131.107.5.0, "
     "131.107.6.0, and 131.107.7.0 can be summarized with the network ID 131.107.4.0, with a subnet mask of "
     "255.255.252.0 (131.107.4.0/22).\n\nMore information about subnet masks is available on the internet.")},
    {IDS_SUBNET_IMPORT_ERRORS, QT_TRANSLATE_NOOP("TaviStrings", "There were %1 errors when processing the file.")},
    {IDS_SUBNET_IO_ERRORS, QT_TRANSLATE_NOOP("TaviStrings", "There were I/O errors when processing the file.")},
    {IDS_SUBNET_DEFAULT_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "IP Subnets")},
    {IDS_SUBNET_IMPORTING, QT_TRANSLATE_NOOP("TaviStrings", "Importing subnets from %1...")},
    {IDS_SUBNET_FILTER_CSV, QT_TRANSLATE_NOOP("TaviStrings", "Comma-separated values")},
    {IDS_SUBNET_FILTER_ALL, QT_TRANSLATE_NOOP("TaviStrings", "All files")},
    {IDS_SUBNET_TRUSTED_CAPTION, QT_TRANSLATE_NOOP("TaviStrings", "Trusted IP Subnets")},
    {IDS_SUBNET_PROPERTY_UNREADABLE, QT_TRANSLATE_NOOP("TaviStrings", "Could not read the '%1' mail server property.")},
    {IDS_SUBNET_PROPERTY_BAD_ENTRIES, QT_TRANSLATE_NOOP("TaviStrings", "%1 entries of the '%2' mail server property could not be read. They are not shown, and they will be "
     "removed when the list is saved.")},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
