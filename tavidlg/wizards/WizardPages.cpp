#include "wizards/WizardPages.h"

#include "wizards/WizardListEditor.h"

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>
#include <QTreeView>
#include <QVBoxLayout>

QLabel* makeWizardText(const QString& text, const char* name, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

CWizardChoicePage::CWizardChoicePage(unsigned templateId, CWizard* wizard, const QString& subtitle,
                                     const QString& question, const QString& yesText, const char* yesName,
                                     const QString& noText, const char* noName)
    : CWizardPage(templateId, wizard, subtitle)
{
    m_layout = new QVBoxLayout(this);
    if (!question.isEmpty()) {
        m_layout->addWidget(makeWizardText(question, "lblQuestion", this));
        m_layout->addSpacing(8);
    }
    m_yes = new QRadioButton(yesText, this);
    m_yes->setObjectName(QLatin1String(yesName));
    m_no = new QRadioButton(noText, this);
    m_no->setObjectName(QLatin1String(noName));
    // Grouped so that both can be unchecked at first (a page may insist on a choice).
    auto* group = new QButtonGroup(this);
    group->addButton(m_yes);
    group->addButton(m_no);
    m_layout->addWidget(m_yes);
    m_layout->addWidget(m_no);
}

CWizardSwitchPage::CWizardSwitchPage(unsigned templateId, CWizard* wizard, const QString& subtitle,
                                     const char* property, const char* section, const QString& question,
                                     const QString& yesText, const char* yesName, const QString& noText,
                                     const char* noName)
    : CWizardChoicePage(templateId, wizard, subtitle, question, yesText, yesName, noText, noName),
      m_property(property), m_section(section)
{
    pageLayout()->addStretch(1);
}

void CWizardSwitchPage::LoadSettings()
{
    sheet()->GetDword(m_property, m_section, m_value);
}

void CWizardSwitchPage::UpdateControls()
{
    (m_value != 0 ? yesButton() : noButton())->setChecked(true);
}

bool CWizardSwitchPage::ReadControls()
{
    m_value = yesButton()->isChecked() ? 1 : 0;
    return true;
}

void CWizardSwitchPage::SaveSettings()
{
    sheet()->SetDword(m_property, m_section, m_value);
}

CWizardListPage::CWizardListPage(unsigned templateId, CWizard* wizard, const QString& subtitle,
                                 const char* property, bool hideStar)
    : CWizardPage(templateId, wizard, subtitle), m_property(property), m_hideStar(hideStar)
{
    m_layout = new QVBoxLayout(this);
}

void CWizardListPage::buildList(const QString& text, const QString& listLabel, const QString& header,
                                const QString& newText, const char* listName)
{
    m_layout->addWidget(makeWizardText(text, "lblExplanation", this));
    QLabel* label = makeWizardText(listLabel, "lblList", this);
    m_editor = new CWizardListEditor(header, newText, true, this);
    m_editor->setObjectName(QLatin1String(listName));
    label->setBuddy(m_editor->view());
    m_layout->addWidget(label);
    m_layout->addWidget(m_editor, 1);
}

QStringList CWizardListPage::shownEntries(const QString& text) const
{
    QStringList entries = splitWizardList(text);
    if (m_hideStar)
        entries.removeAll(QStringLiteral("*"));
    return entries;
}

void CWizardListPage::LoadSettings()
{
    sheet()->GetString(m_property, nullptr, m_text);
}

void CWizardListPage::RememberInitialValues()
{
    m_firstText = m_text;
}

void CWizardListPage::UpdateControls()
{
    m_editor->setEntries(shownEntries(m_text));
}

bool CWizardListPage::ReadControls()
{
    m_text = joinWizardList(m_editor->entries());
    return true;
}

void CWizardListPage::SaveSettings()
{
    sheet()->SetString(m_property, nullptr, m_text);
}

void CWizardListPage::RestoreInitialValues()
{
    sheet()->SetString(m_property, nullptr, m_firstText);
}
