// The mailing list's digest page: when a digest is sent (size and age thresholds) and its format. Shown as "Digest" on a digest list and as "Moderator Digest" on any other list.
#pragma once

#include "maillist/MailListPage.h"

class TAVI_EXPORT CMailListDigestPage : public CMailListPage {
    Q_OBJECT
public:
    explicit CMailListDigestPage(CMailListSheet* sheet, const QString& title);
};
