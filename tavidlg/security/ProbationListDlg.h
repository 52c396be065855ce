// The probation list: the addresses that directory harvest attack protection has put on probation, with
// when each is let go. Release frees the selected ones at once; Refresh reads the list again. Entries
// are elements "<address>,<expiry>" (expiry in seconds since 1970, UTC) of the list property
// "Probation" in section "DHAP", which the running server keeps.
#pragma once

#include "common/TaviDialog.h"

#include <QDateTime>
#include <QList>

class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class QPushButton;
class QStandardItemModel;
class QTreeView;

struct TAVI_EXPORT ProbationEntry {
    QString address;
    QDateTime expires; // UTC
    QString element;   // the stored element, to release it by
};

// Parses one stored element; false when it is not "<address>,<seconds>".
TAVI_EXPORT bool parseProbationElement(const QString& element, ProbationEntry& entry);

class TAVI_EXPORT CProbationListDlg : public CTaviDialog {
    Q_OBJECT
public:
    CProbationListDlg(QWidget* parent, _tMailServer* server);
    ~CProbationListDlg() override;

    // Rows shown (after the filter).
    int rowCount() const;
    // Reads the list again and shows the entries that have not expired, soonest expiry first.
    void refresh();

protected:
    void initDialog() override;

private:
    void onRelease();
    void updateButtons();

    QTreeView* m_view = nullptr;
    QStandardItemModel* m_model = nullptr;
    QSortFilterProxyModel* m_proxy = nullptr;
    QLineEdit* m_filterEdit = nullptr;
    QLabel* m_countLabel = nullptr;
    QPushButton* m_releaseButton = nullptr;
    QPushButton* m_refreshButton = nullptr;
};
