// An editable list of short texts (host names, addresses, zones): type an entry and Add it, Remove the
// selected ones, move one up or down. Each entry is checked by the owner's rule before it is added;
// entries compare without regard to letter case, so one cannot be added twice.
#pragma once

#include "entry/TaviGlobal.h"

#include <QSet>
#include <QStringList>
#include <QWidget>

#include <functional>

class QLineEdit;
class QListWidget;
class QPushButton;

class TAVI_EXPORT CStringListEdit : public QWidget {
    Q_OBJECT
public:
    // Returns why an entry is refused, or an empty text when it is fine.
    using Check = std::function<QString(const QString& entry)>;

    // name: the prefix of the children's objectNames (lst<name>, edt<name>, btnAdd<name>, ...).
    CStringListEdit(const QString& name, QWidget* parent = nullptr);

    void setCheck(Check check) { m_check = std::move(check); }
    void setPlaceholderText(const QString& text);
    void setEntries(const QStringList& entries);
    QStringList entries() const;
    // Appends the entries that pass the check and are not in the list yet, in their order; returns how
    // many were added, *refused the number that failed the check.
    int appendEntries(const QStringList& entries, int* refused);
    int count() const;
    QListWidget* list() const { return m_list; }
    QLineEdit* edit() const { return m_edit; }

Q_SIGNALS:
    void changed();

private:
    void onAdd();
    void onRemove();
    void move(int delta);
    void updateButtons();

    QListWidget* m_list = nullptr;
    QLineEdit* m_edit = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QSet<QString> m_keys; // entries in lower case
    Check m_check;
};
