// String ids of the subnet list editor, the text entry dialog and the subnet list property editor.
#pragma once

enum : unsigned {
    IDS_SUBNET_DUPLICATE = 54001,
    IDS_SUBNET_COLUMN_SUBNET = 57427,
    IDS_SUBNET_COLUMN_COMMENT = 57428,
    IDS_SUBNET_INVALID = 57429,
    // Our own, from the range of the common small dialogs.
    IDS_SUBNET_IMPORT_ERRORS = 60970,
    IDS_SUBNET_IO_ERRORS = 60971,
    IDS_SUBNET_DEFAULT_CAPTION = 60972,
    IDS_SUBNET_IMPORTING = 60973,
    IDS_SUBNET_FILTER_CSV = 60974,
    IDS_SUBNET_FILTER_ALL = 60975,
    IDS_SUBNET_TRUSTED_CAPTION = 60976,
    IDS_SUBNET_PROPERTY_UNREADABLE = 60977,
    IDS_SUBNET_PROPERTY_BAD_ENTRIES = 60978,
};
