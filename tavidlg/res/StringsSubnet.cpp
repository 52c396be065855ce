// Texts of the subnet list editor and the subnet list property editor.
#include "res/StringTable.h"
#include "res/SubnetStrings.h"

namespace {

const TaviStringEntry kStrings[] = {
    {IDS_SUBNET_DUPLICATE, "Cannot add entry as this Nework Address and Subnet Mask already exist in the list."},
    {IDS_SUBNET_COLUMN_SUBNET, "IP subnet"},
    {IDS_SUBNET_COLUMN_COMMENT, "Comment"},
    {IDS_SUBNET_INVALID,
     "The combination of network address and subnet mask entered is not a valid CIDR subnet or the comment "
     "contains illegal characters.\n\nAs a valid example,  the network IDs 131.107.4.0, 131.107.5.0, "
     "131.107.6.0, and 131.107.7.0 can be summarized with the network ID 131.107.4.0, with a subnet mask of "
     "255.255.252.0 (131.107.4.0/22).\n\nMore information about subnet masks is available on the internet."},
    {IDS_SUBNET_IMPORT_ERRORS, "There were %1 errors when processing the file."},
    {IDS_SUBNET_IO_ERRORS, "There were I/O errors when processing the file."},
    {IDS_SUBNET_DEFAULT_CAPTION, "IP Subnets"},
    {IDS_SUBNET_IMPORTING, "Importing subnets from %1..."},
    {IDS_SUBNET_FILTER_CSV, "Comma-separated values"},
    {IDS_SUBNET_FILTER_ALL, "All files"},
    {IDS_SUBNET_TRUSTED_CAPTION, "Trusted IP Subnets"},
    {IDS_SUBNET_PROPERTY_UNREADABLE, "Could not read the '%1' mail server property."},
    {IDS_SUBNET_PROPERTY_BAD_ENTRIES,
     "%1 entries of the '%2' mail server property could not be read. They are not shown, and they will be "
     "removed when the list is saved."},
};

const CStringTableRegistrar registrar(kStrings);

} // namespace
