// Mail directory locations: where the server keeps its mail spool, and whether messages that can be
// neither delivered nor returned are kept in the spool's "dead" subdirectory.
#pragma once

#include "common/BrowseForDir.h"
#include "common/TaviDialog.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

class TAVI_EXPORT CDirectoriesDlg : public CTaviDialog {
    Q_OBJECT
public:
    CDirectoriesDlg(QWidget* parent, _tMailServer* server);
    ~CDirectoriesDlg() override;

    quint32 registryFormatVersion() const { return m_registryFormatVersion; }

protected:
    void initDialog() override;
    bool exchange(bool save) override;
    void onOK() override;

private:
    void onBrowse();
    // Whether a spool directory must be refused because it lies on a network drive of this machine.

    QLabel* m_spoolLabel = nullptr;
    QPushButton* m_browseButton = nullptr;
    QLineEdit* m_spoolEdit = nullptr;
    QString m_spoolDir;
    QCheckBox* m_keepDeadCheck = nullptr;
    bool m_keepDead = false;
    QString m_spoolDirRead;
    quint32 m_registryFormatVersion = 0;
    CBrowseForDir m_browse;
    quint32 m_undeliverableDsnActionRead = 0;
};
