// The mailing list's messages page: the texts added to every post, the subject prefix and what happens to attachments.
#pragma once

#include "maillist/MailListPage.h"

class TAVI_EXPORT CMailListMessagesPage : public CMailListPage {
    Q_OBJECT
public:
    explicit CMailListMessagesPage(CMailListSheet* sheet);
};
