// The manual route table: an ordered list of domain masks, each with its rule (force, default,
// additional) and the mail hosts to which mail for matching domains is delivered. Loaded and saved whole.
#pragma once

#include "common/TaviDialog.h"

#include <velbrook/ServerStore.h>

#include <vector>

class QLineEdit;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;

class TAVI_EXPORT CRoutingDlg : public CTaviDialog {
    Q_OBJECT
public:
    CRoutingDlg(QWidget* parent, _tMailServer* server);
    ~CRoutingDlg() override;

    // The text listing masks without hosts: each mask and a line break; once the text is longer than
    // 100 characters every further mask is marked by "<...more...>" on a line before it.
    static QString hostlessMaskList(const QStringList& masks);
    // "Force", "Default" or "Additional".
    static QString ruleText(uint32_t rule);

protected:
    void initDialog() override;
    void onOK() override;

private:
    int selectedRow() const;
    QTreeWidgetItem* makeRow(const _tManualRoute* route) const;
    uint32_t checkedRule() const;
    void showSelection();
    void addRoute();
    void deleteRoute();
    void moveRoute(int by);
    void editHosts();
    // Links the routes in list order (for saving), or unlinks them again (each freed on its own).
    void linkRoutes(bool link);

    QTreeWidget* m_list = nullptr;
    QLineEdit* m_maskEdit = nullptr;
    QRadioButton* m_forceRadio = nullptr;
    QRadioButton* m_defaultRadio = nullptr;
    QRadioButton* m_additionalRadio = nullptr;
    QPushButton* m_addButton = nullptr;
    QPushButton* m_deleteButton = nullptr;
    QPushButton* m_upButton = nullptr;
    QPushButton* m_downButton = nullptr;
    QPushButton* m_routesButton = nullptr;
    // The routes in the order of the list's rows; owned, freed when the dialog goes.
    std::vector<_tManualRoute*> m_routes;
    bool m_modified = false;
    bool m_loadFailed = false;
};
