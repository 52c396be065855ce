// The mailing list's security page: who may subscribe, whether subscriptions are confirmed, and the sender address patterns allowed and refused.
#pragma once

#include "maillist/MailListPage.h"

class TAVI_EXPORT CMailListSecurityPage : public CMailListPage {
    Q_OBJECT
public:
    explicit CMailListSecurityPage(CMailListSheet* sheet);
};
