// String ids of the protection wizards.
#pragma once

enum : unsigned {
    IDS_WIZ_PAGE_TITLE = 54012,
    IDS_WIZ_SMTP_HEADER_TITLE = 54797,
    IDS_WIZ_RELAY_HEADER_TITLE = 54798,
    IDS_WIZ_DOS_HEADER_TITLE = 55652,
    // Our own, from the wizards' range.
    IDS_WIZ_UPDATE_FAILED = 60500,
    // Tool tips of the list pages' tool bar, looked up by their command ids.
    IDS_WIZ_LIST_ADD = 60510,
    IDS_WIZ_LIST_DELETE = 60511,
    IDS_WIZ_LIST_UP = 60512,
    IDS_WIZ_LIST_DOWN = 60513,
};
