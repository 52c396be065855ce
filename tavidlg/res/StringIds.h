// Our own string ids (60000 and up) of the frame and base classes. Every area names its ids, the
// system's own numbers and its own, as IDS_<AREA>_<WHAT> in res/<Area>StringIds.h (never bare numbers);
// its own ids come from the range reserved for it below, so that areas never collide:
//   60000-60099 frame and base classes, 60100-60199 server, 60200-60299 schedule, 60300-60399 logging,
//   60400-60499 security, 60500-60599 wizards, 60600-60699 domain, 60700-60799 mailbox,
//   60800-60899 mailing lists, 60900-60999 common small dialogs and list editors.
#pragma once

enum : unsigned {
    IDS_TAVI_MESSAGE_CAPTION = 60000,
    IDS_TAVI_RANGE_UINT = 60001,
    IDS_TAVI_PARSE_UINT = 60002,
    IDS_TAVI_NO_HELP = 60003,
    IDS_TAVI_CLOSE = 60004,
    IDS_TAVI_APPLY_NOW = 60005,
    IDS_TAVI_WORKING = 60006,
};
