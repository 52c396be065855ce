// The server's alias table: alias addresses (or domains) and the address each one stands for. A
// sortable, filterable list with add, modify and delete, import from and export to comma-separated
// files; OK saves the whole table in one transaction.
#pragma once

#include "common/TaviDialog.h"

#include <QSet>
#include <QString>

#include <vector>

class CAliasTableModel;
class CAliasFilterModel;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

struct CAliasEntry {
    QString alias;
    QString target;
};

class TAVI_EXPORT CAliasDlg : public CTaviDialog {
    Q_OBJECT
public:
    CAliasDlg(QWidget* parent, _tMailServer* server);
    ~CAliasDlg() override;

    // What the list holds now, in its stored order (tests and hosts that embed the dialog).
    const std::vector<CAliasEntry>& entries() const;

protected:
    void initDialog() override;
    void onOK() override;
    // Enter in the alias or target field adds the entry instead of closing the dialog.

private:
    void buildControls();
    void onAdd();
    void onModify();
    void onDelete();
    void onImport();
    void onExport();
    void onCurrentChanged();
    void updateButtons();
    void showCount();
    // The two edits' texts when they make a valid entry (else the person is told and empty texts).
    bool takeInputs(QString& alias, QString& target);
    int currentSourceRow() const;
    void refuseDuplicate(const QString& alias);
    void setChanged();

    CAliasTableModel* m_model = nullptr;
    CAliasFilterModel* m_proxy = nullptr;
    QTableView* m_table = nullptr;
    QLineEdit* m_aliasEdit = nullptr;
    QLineEdit* m_targetEdit = nullptr;
    QLineEdit* m_filterEdit = nullptr;
    QPushButton* m_addButton = nullptr;
    QPushButton* m_modifyButton = nullptr;
    QPushButton* m_deleteButton = nullptr;
    QPushButton* m_importButton = nullptr;
    QPushButton* m_exportButton = nullptr;
    QLabel* m_countLabel = nullptr;
    bool m_changed = false;
    bool m_loadFailed = false;
};

// An alias or target as the table takes it: not empty, at most 255 characters, without blanks, commas,
// double quotes or control characters.
TAVI_EXPORT bool isValidAliasText(const QString& text);
// Reads alias,target lines (the subnet files' field rules) into entries, in file order. Lines without a
// second field, with an invalid text, or repeating an alias (any case) are counted in errors and skipped.
TAVI_EXPORT std::vector<CAliasEntry> parseAliasCsv(const QByteArray& text, int& errors);
// One "alias,target" line per entry, each ended by a line feed.
TAVI_EXPORT QByteArray aliasCsv(const std::vector<CAliasEntry>& entries);
