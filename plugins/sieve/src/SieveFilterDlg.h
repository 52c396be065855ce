// The mailbox's filter editor: its "SieveScript" as a list of rules (condition -> action) and as text.
// A script the rules cannot show is kept as it is and edited as text. OK checks the script's syntax and
// writes nothing while it has an error.
#pragma once

#include "SieveRules.h"

#include "common/TaviDialog.h"

#include <velbrook/MailboxStore.h>

class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;

class CSieveFilterDlg : public CTaviDialog {
    Q_OBJECT
public:
    CSieveFilterDlg(QWidget* parent, _tMailbox* mailbox);

    // Whether the Rules tab shows the script (false: the script is edited as text only).
    bool showsRules() const { return m_rulesMode; }
    const QList<Sieve::Rule>& rules() const { return m_rules; }

protected:
    bool exchange(bool save) override;

private:
    QWidget* buildRulesTab();
    QWidget* buildScriptTab();
    QString readScript() const;
    void setRules(const QList<Sieve::Rule>& rules, int current);
    void commitRules(const QList<Sieve::Rule>& rules, int current);
    void updateRulesTab();
    void onTabChanged();
    void addRule();
    void editRule();
    void removeRule();
    void moveRule(int by);
    bool checkScript(const QString& script);

    _tMailbox* m_mailbox;
    QString m_loaded;  // the script as the editor showed it after loading
    QList<Sieve::Rule> m_rules;
    bool m_rulesMode = true;
    bool m_scriptEdited = false;

    QTabWidget* m_tabs = nullptr;
    QWidget* m_rulesTab = nullptr;
    QWidget* m_scriptTab = nullptr;
    QLabel* m_rawNote = nullptr;
    QListWidget* m_list = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_edit = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QPlainTextEdit* m_script = nullptr;
};
