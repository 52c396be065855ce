// Page shapes the protection wizards share: a question answered by two radio buttons, a 0/1 number
// property chosen by two radio buttons, and a list of entries kept in one text property.
#pragma once

#include "wizards/Wizard.h"

class QLabel;
class QRadioButton;
class QVBoxLayout;
class CWizardListEditor;

// Whether a list entry names a host rather than an IP pattern: after one leading "!" (an exception),
// anything but digits, "." and "*".
TAVI_EXPORT bool isHostNameEntry(const QString& entry);

// Fills an exterior (welcome or completion) page: a large heading and a text beside the watermark.
TAVI_EXPORT void buildWizardExterior(CWizardPage* page, const QString& heading, const QString& text);

// A word-wrapped text of a wizard page.
TAVI_EXPORT QLabel* makeWizardText(const QString& text, const char* name, QWidget* parent);

// A page that asks one question with two radio buttons (first: yes, second: no). The page's layout
// holds the question and the buttons; subclasses add below.
class TAVI_EXPORT CWizardChoicePage : public CWizardPage {
    Q_OBJECT
public:
    CWizardChoicePage(unsigned templateId, CWizard* wizard, const QString& subtitle, const QString& question,
                      const QString& yesText, const char* yesName, const QString& noText, const char* noName);

    QRadioButton* yesButton() const { return m_yes; }
    QRadioButton* noButton() const { return m_no; }

protected:
    QVBoxLayout* pageLayout() const { return m_layout; }

private:
    QVBoxLayout* m_layout = nullptr;
    QRadioButton* m_yes = nullptr;
    QRadioButton* m_no = nullptr;
};

// A number switch of the store shown as a choice: the first button when it is non-zero; saved as 1
// for the first button and 0 for the second.
class TAVI_EXPORT CWizardSwitchPage : public CWizardChoicePage {
    Q_OBJECT
public:
    CWizardSwitchPage(unsigned templateId, CWizard* wizard, const QString& subtitle, const char* property,
                      const char* section, const QString& question, const QString& yesText, const char* yesName,
                      const QString& noText, const char* noName);

protected:
    void LoadSettings() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;

private:
    const char* m_property;
    const char* m_section;
    quint32 m_value = 0;
};

// A list of entries kept in one text property (entries joined with ", "). hideStar: an entry that is
// exactly "*" is not shown (and so is dropped when the page saves).
class TAVI_EXPORT CWizardListPage : public CWizardPage {
    Q_OBJECT
public:
    CWizardListPage(unsigned templateId, CWizard* wizard, const QString& subtitle, const char* property,
                    bool hideStar);

    CWizardListEditor* listEditor() const { return m_editor; }

protected:
    // Builds the page: the text, the list's label and the list itself (named listName).
    void buildList(const QString& text, const QString& listLabel, const QString& header, const QString& newText,
                   const char* listName);
    QVBoxLayout* pageLayout() const { return m_layout; }
    const char* property() const { return m_property; }
    QString loadedText() const { return m_text; }

    void LoadSettings() override;
    void RememberInitialValues() override;
    void UpdateControls() override;
    bool ReadControls() override;
    void SaveSettings() override;
    void RestoreInitialValues() override;

    // The entries shown for a stored text.
    QStringList shownEntries(const QString& text) const;

private:
    const char* m_property;
    bool m_hideStar;
    QVBoxLayout* m_layout = nullptr;
    CWizardListEditor* m_editor = nullptr;
    QString m_text;
    QString m_firstText;
    QString m_newText;
};

// A list of hosts (IP patterns or host names) that also keeps LookupIncomingCalls: host names can only
// be matched when connecting hosts are looked up in the DNS, so a host name among the rows turns lookup
// on; IP patterns leave it as it was.
class TAVI_EXPORT CWizardHostListPage : public CWizardListPage {
    Q_OBJECT
public:
    CWizardHostListPage(unsigned templateId, CWizard* wizard, const QString& subtitle, const char* property);

protected:
    void LoadSettings() override;
    void RememberInitialValues() override;
    bool ReadControls() override;
    void SaveSettings() override;
    void RestoreInitialValues() override;

private:
    quint32 m_loadedLookup = 0, m_lookup = 0, m_firstLookup = 0;
};
