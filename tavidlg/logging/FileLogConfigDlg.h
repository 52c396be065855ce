// File log location: the directory in which the server writes its log files.
#pragma once

#include "common/BrowseForDir.h"
#include "common/TaviDialog.h"

class QLabel;
class QLineEdit;
class QPushButton;

class TAVI_EXPORT CFileLogConfigDlg : public CTaviDialog {
    Q_OBJECT
public:
    CFileLogConfigDlg(QWidget* parent, _tMailServer* server);
    ~CFileLogConfigDlg() override;

protected:
    void initDialog() override;
    bool exchange(bool save) override;

private:
    void onBrowse();

    QPushButton* m_browseButton = nullptr;
    QLabel* m_dirLabel = nullptr;
    QLineEdit* m_dirEdit = nullptr;
    QString m_dir;
    QString m_dirRead;
    CBrowseForDir m_browse;
};
