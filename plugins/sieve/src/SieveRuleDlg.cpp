#include "SieveRuleDlg.h"

#include "common/PlatformServices.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

using Sieve::Rule;
using Sieve::RuleProblem;

namespace {
constexpr unsigned kHelpContext = 2301;

QLineEdit* makeEdit(QWidget* parent, const char* name)
{
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setMinimumWidth(260);
    return edit;
}
} // namespace

CSieveRuleDlg::CSieveRuleDlg(QWidget* parent, const Rule& rule) : CTaviDialog(parent, nullptr), m_rule(rule)
{
    setObjectName(QStringLiteral("CSieveRuleDlg"));
    setWindowTitle(tr("Filter Rule"));
    setUsesServerCaption(false);
    setHelpContext(kHelpContext);

    auto* when = new QGroupBox(tr("When a message arrives"), this);
    m_form = new QFormLayout(when);
    m_condition = new QComboBox(when);
    m_condition->setObjectName(QStringLiteral("cboCondition"));
    m_condition->addItems({tr("a header contains a text"), tr("its size is over"), tr("it comes from an address")});
    m_form->addRow(tr("&Condition:"), m_condition);
    m_header = makeEdit(when, "edtHeader");
    m_form->addRow(tr("Hea&der:"), m_header);
    m_textLabel = new QLabel(when);
    m_text = makeEdit(when, "edtText");
    m_textLabel->setBuddy(m_text);
    m_form->addRow(m_textLabel, m_text);
    m_size = makeEdit(when, "edtSize");
    m_size->setPlaceholderText(tr("bytes, or with K, M or G, such as 500K"));
    m_form->addRow(tr("&Size over:"), m_size);

    auto* then = new QGroupBox(tr("Then"), this);
    auto* thenForm = new QFormLayout(then);
    m_action = new QComboBox(then);
    m_action->setObjectName(QStringLiteral("cboAction"));
    m_action->addItems({tr("file it into a folder"), tr("forward it to an address"), tr("reject it"),
                        tr("discard it"), tr("send an SMS notification")});
    thenForm->addRow(tr("&Action:"), m_action);
    m_argumentLabel = new QLabel(then);
    m_argument = makeEdit(then, "edtArgument");
    m_argumentLabel->setBuddy(m_argument);
    thenForm->addRow(m_argumentLabel, m_argument);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(when);
    layout->addWidget(then);
    layout->addWidget(createButtonBox());

    connect(m_condition, &QComboBox::currentIndexChanged, this, &CSieveRuleDlg::updateFields);
    connect(m_action, &QComboBox::currentIndexChanged, this, &CSieveRuleDlg::updateFields);
}

void CSieveRuleDlg::updateFields()
{
    const int condition = m_condition->currentIndex();
    m_form->setRowVisible(m_header, condition == Rule::HeaderContains);
    m_form->setRowVisible(m_text, condition != Rule::SizeOver);
    m_form->setRowVisible(m_size, condition == Rule::SizeOver);
    m_textLabel->setText(condition == Rule::FromAddress ? tr("Addr&ess:") : tr("Con&tains:"));
    const int action = m_action->currentIndex();
    const bool takesArgument = action == Rule::FileInto || action == Rule::Redirect || action == Rule::Reject;
    m_argument->setEnabled(takesArgument);
    m_argumentLabel->setEnabled(takesArgument);
    m_argumentLabel->setText(action == Rule::Redirect ? tr("&Forward to:")
                             : action == Rule::Reject ? tr("&Reason:")
                                                      : tr("&Folder:"));
}

bool CSieveRuleDlg::exchange(bool save)
{
    if (!save) {
        m_condition->setCurrentIndex(m_rule.condition);
        m_header->setText(m_rule.header);
        m_text->setText(m_rule.text);
        m_size->setText(m_rule.size ? Sieve::sizeText(m_rule.size) : QString());
        m_action->setCurrentIndex(m_rule.action);
        m_argument->setText(m_rule.argument);
        updateFields();
        return true;
    }
    Rule rule;
    rule.condition = Rule::Condition(m_condition->currentIndex());
    rule.action = Rule::Action(m_action->currentIndex());
    if (rule.condition == Rule::HeaderContains)
        rule.header = m_header->text().trimmed();
    if (rule.condition != Rule::SizeOver)
        rule.text = m_text->text();
    if (rule.condition == Rule::FromAddress)
        rule.text = rule.text.trimmed();
    if (rule.condition == Rule::SizeOver) {
        const std::optional<quint64> size = Sieve::parseSize(m_size->text());
        rule.size = size.value_or(0);
    }
    if (rule.action == Rule::FileInto || rule.action == Rule::Redirect || rule.action == Rule::Reject)
        rule.argument = rule.action == Rule::Reject ? m_argument->text() : m_argument->text().trimmed();
    const RuleProblem problem = Sieve::validate(rule);
    if (problem.field != RuleProblem::None) {
        QLineEdit* at = problem.field == RuleProblem::Header ? m_header
                        : problem.field == RuleProblem::Text ? m_text
                        : problem.field == RuleProblem::Size ? m_size
                                                             : m_argument;
        at->setFocus();
        at->selectAll();
        platform().messageBox(this, problem.message, windowTitle(), Mb::IconExclamation);
        return false;
    }
    m_rule = rule;
    return true;
}
