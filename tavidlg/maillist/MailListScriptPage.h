// The mailing list's header script page: the script that rewrites the headers of each message before
// it is distributed, checked for errors before it is saved.
#pragma once

#include "maillist/MailListPage.h"

class QLabel;
class QPlainTextEdit;

class TAVI_EXPORT CMailListScriptPage : public CMailListPage {
    Q_OBJECT
public:
    explicit CMailListScriptPage(CMailListSheet* sheet);

protected:
    bool onKillActive() override;

private:
    // Checks the script, shows the result under it and returns whether it is valid.
    bool checkScript(bool tell);

    QPlainTextEdit* m_script = nullptr;
    QLabel* m_status = nullptr;
};
