// Edits one filter rule: a condition (header contains, size over, from address) and an action (file
// into a folder, forward, reject, discard, SMS notification).
#pragma once

#include "SieveRules.h"

#include "common/TaviDialog.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

class CSieveRuleDlg : public CTaviDialog {
    Q_OBJECT
public:
    CSieveRuleDlg(QWidget* parent, const Sieve::Rule& rule);

    // The rule as accepted (the one given until OK succeeds).
    const Sieve::Rule& rule() const { return m_rule; }

protected:
    bool exchange(bool save) override;

private:
    void updateFields();

    Sieve::Rule m_rule;
    QFormLayout* m_form = nullptr;
    QComboBox* m_condition = nullptr;
    QLineEdit* m_header = nullptr;
    QLabel* m_textLabel = nullptr;
    QLineEdit* m_text = nullptr;
    QLineEdit* m_size = nullptr;
    QComboBox* m_action = nullptr;
    QLabel* m_argumentLabel = nullptr;
    QLineEdit* m_argument = nullptr;
};
