// The spam list: the hosts and IP address patterns the SMTP receiver refuses mail from (its private
// blacklist of known spam sources). Works on a copy handed in by the anti-spam page; nothing is written
// until the sheet applies.
#pragma once

#include "common/TaviDialog.h"

#include <QStringList>

class CStringListEdit;
class QLabel;

class TAVI_EXPORT CSpamListDlg : public CTaviDialog {
    Q_OBJECT
public:
    CSpamListDlg(QWidget* parent, _tMailServer* server, const QStringList& entries);
    ~CSpamListDlg() override;

    // The list as accepted (valid after OK).
    QStringList entries() const { return m_entries; }

protected:
    void initDialog() override;
    bool exchange(bool save) override;

private:
    void updateSummary();
    void onImport();
    void onExport();

    CStringListEdit* m_list = nullptr;
    QLabel* m_summary = nullptr;
    QStringList m_entries;
};
