// The domain sheet's aliases page: the alias names of the domain's mailboxes (each mailbox's aliases
// are edited on the mailbox), with a filter and the mailbox the selected alias delivers to.
#pragma once

#include "common/PropertySheet.h"

class CDomainSheet;
class QLabel;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class QStringListModel;

class TAVI_EXPORT CDomainAliasesPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CDomainAliasesPage(CDomainSheet* sheet);
    ~CDomainAliasesPage() override;

protected:
    void initPage() override;

private:
    void onFilterChanged(const QString& text);
    void onCurrentChanged();
    void showCount();

    CDomainSheet* m_sheet = nullptr;
    QLineEdit* m_filterEdit = nullptr;
    QListView* m_list = nullptr;
    QLabel* m_countLabel = nullptr;
    QLabel* m_principalLabel = nullptr;
    QStringListModel* m_model = nullptr;
    QSortFilterProxyModel* m_proxy = nullptr;
};
