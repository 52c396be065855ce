// The mailing list's web archive page: whether posts are archived for the web, where, and for how long.
#pragma once

#include "maillist/MailListPage.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

class TAVI_EXPORT CMailListWebArchivePage : public CMailListPage {
    Q_OBJECT
public:
    explicit CMailListWebArchivePage(CMailListSheet* sheet);

protected:
    void onSetActive() override;
    bool onKillActive() override;

private:
    QCheckBox* m_enabled = nullptr;
    QLineEdit* m_directory = nullptr;
    QPushButton* m_browse = nullptr;

    void updateEnabling();
};
