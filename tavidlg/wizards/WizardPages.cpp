#include "wizards/WizardPages.h"

#include "wizards/WizardListEditor.h"

#include <algorithm>

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>
#include <QTreeView>
#include <QVBoxLayout>

bool isHostNameEntry(const QString& entry)
{
    const qsizetype start = entry.startsWith(QLatin1Char('!')) ? 1 : 0;
    for (qsizetype i = start; i < entry.size(); ++i) {
        const QChar c = entry.at(i);
        if (!(c >= QLatin1Char('0') && c <= QLatin1Char('9')) && c != QLatin1Char('.') && c != QLatin1Char('*'))
            return true;
    }
    return false;
}

QLabel* makeWizardText(const QString& text, const char* name, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

void buildWizardExterior(CWizardPage* page, const QString& heading, const QString& text)
{
    auto* layout = new QVBoxLayout(page);
    QLabel* title = makeWizardText(heading, "lblHeading", page);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    font.setBold(true);
    title->setFont(font);
    layout->addWidget(title);
    layout->addSpacing(12);
    layout->addWidget(makeWizardText(text, "lblText", page));
    layout->addStretch(1);
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

namespace {
const char kLookupIncomingCalls[] = "LookupIncomingCalls";
}

CWizardHostListPage::CWizardHostListPage(unsigned templateId, CWizard* wizard, const QString& subtitle,
                                         const char* property)
    : CWizardListPage(templateId, wizard, subtitle, property, true)
{
}

void CWizardHostListPage::LoadSettings()
{
    CWizardListPage::LoadSettings();
    sheet()->GetDword(kLookupIncomingCalls, nullptr, m_loadedLookup);
}

void CWizardHostListPage::RememberInitialValues()
{
    CWizardListPage::RememberInitialValues();
    m_firstLookup = m_loadedLookup;
}

bool CWizardHostListPage::ReadControls()
{
    CWizardListPage::ReadControls();
    m_lookup = m_loadedLookup;
    if (m_lookup == 0) {
        const QStringList entries = listEditor()->entries();
        if (std::any_of(entries.cbegin(), entries.cend(), isHostNameEntry))
            m_lookup = 1;
    }
    return true;
}

void CWizardHostListPage::SaveSettings()
{
    CWizardListPage::SaveSettings();
    sheet()->SetDword(kLookupIncomingCalls, nullptr, m_lookup);
}

void CWizardHostListPage::RestoreInitialValues()
{
    CWizardListPage::RestoreInitialValues();
    sheet()->SetDword(kLookupIncomingCalls, nullptr, m_firstLookup);
}
