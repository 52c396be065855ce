// The mailing list's members page: the roster with search as you type, adding and removing members,
// and import and export of members with their names as comma-separated files. Changes to the roster
// take effect at once (Cancel can no longer undo them, so the sheet's Cancel becomes Close).
#pragma once

#include "common/PropertySheet.h"

#include <QAbstractTableModel>
#include <QSet>

#include <vector>

class CMailListSheet;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;

// The roster as a table of address and name, filtered by a search text.
class TAVI_EXPORT CMemberModel : public QAbstractTableModel {
    Q_OBJECT
public:
    struct Member {
        QString address;
        QString name;
    };
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void setMembers(std::vector<Member> members);
    void append(const std::vector<Member>& members);
    // Removes the members at these rows of the filtered view.
    void removeShownRows(QList<int> rows);
    // Shows the members whose address or name holds the text (any case); empty shows all.
    void setFilter(const QString& text);
    const Member& shown(int row) const { return m_members[size_t(m_shown[size_t(row)])]; }
    int total() const { return int(m_members.size()); }
    const std::vector<Member>& members() const { return m_members; }

private:
    void refilter();
    bool matches(const Member& m) const;

    std::vector<Member> m_members;
    std::vector<int> m_shown;
    QString m_filter;
};

class TAVI_EXPORT CMailListMembersPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CMailListMembersPage(CMailListSheet* sheet);

    CMemberModel* model() const { return m_model; }

protected:
    void initPage() override;
    // Enter in the search or the new member's fields acts there instead of pressing the sheet's OK.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addMember();
    void removeMembers();
    void importMembers();
    void exportMembers();
    void updateCount();

    CMailListSheet* m_sheet;
    CMemberModel* m_model = nullptr;
    QSet<QString> m_keys;
    QLineEdit* m_search = nullptr;
    QTreeView* m_view = nullptr;
    QLabel* m_count = nullptr;
    QLineEdit* m_newAddress = nullptr;
    QLineEdit* m_newName = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_remove = nullptr;
};
