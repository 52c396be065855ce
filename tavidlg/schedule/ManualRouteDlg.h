// The mail hosts of one manual route: host, port and preference, listed by ascending preference.
#pragma once

#include "common/TaviDialog.h"

#include <velbrook/ServerStore.h>

#include <vector>

class QLineEdit;
class QPushButton;
class QTreeWidget;

class TAVI_EXPORT CManualRouteDlg : public CTaviDialog {
    Q_OBJECT
public:
    // Edits route's host list in place: on OK with changes the route gets a new list.
    CManualRouteDlg(QWidget* parent, _tManualRoute* route);
    ~CManualRouteDlg() override;

    // Whether OK replaced the route's host list.
    bool hostsReplaced() const { return m_replaced; }

    static constexpr uint32_t kStandardPort = 25;
    static constexpr int kMaxHostLength = 256;

protected:
    void initDialog() override;
    void onOK() override;

private:
    struct Host {
        QString name;
        quint32 port = kStandardPort; // as shown: the standard port is 25, not 0
        quint32 preference = 0;
    };
    int selectedRow() const;
    void fillList();
    void showSelection();
    void addOrModify();
    void deleteHost();

    _tManualRoute* m_route;
    std::vector<Host> m_hosts; // in the order of the rows
    QTreeWidget* m_list = nullptr;
    QLineEdit* m_hostEdit = nullptr;
    QLineEdit* m_portEdit = nullptr;
    QLineEdit* m_preferenceEdit = nullptr;
    QPushButton* m_addButton = nullptr;
    QPushButton* m_deleteButton = nullptr;
    bool m_modified = false;
    bool m_replaced = false;
};
