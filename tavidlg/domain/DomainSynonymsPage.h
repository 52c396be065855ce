// The domain sheet's synonyms page: the other names under which the domain receives mail. Names are
// added, renamed and deleted in the list; Apply removes and creates them in the store. A name that is a
// domain or another domain's synonym is refused when it is entered.
#pragma once

#include "common/PropertySheet.h"

#include <QHash>
#include <QStringList>

class CDomainSheet;
class QLineEdit;
class QListWidget;
class QPushButton;

class TAVI_EXPORT CDomainSynonymsPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CDomainSynonymsPage(CDomainSheet* sheet);
    ~CDomainSynonymsPage() override;

protected:
    void initPage() override;
    bool apply() override;
    // Enter in the name field adds the name instead of pressing the sheet's OK.

private:
    void reload();
    void onAdd();
    void onRename();
    void onDelete();
    void onSelectionChanged();
    void updateButtons();
    // The name as typed when it may become a synonym of this domain (except is the row being renamed);
    // else tells why not and returns an empty text.
    QString acceptableName(int except);
    // Every domain's name and every other domain's synonym, folded, with the domain that uses it.
    const QHash<QString, QString>& namesInUse();
    int rowOf(const QString& name) const;

    CDomainSheet* m_sheet = nullptr;
    QListWidget* m_list = nullptr;
    QLineEdit* m_nameEdit = nullptr;
    QPushButton* m_addButton = nullptr;
    QPushButton* m_renameButton = nullptr;
    QPushButton* m_deleteButton = nullptr;

    QStringList m_stored;
    QHash<QString, QString> m_namesInUse;
    bool m_namesInUseLoaded = false;
};
