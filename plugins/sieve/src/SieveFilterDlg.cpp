#include "SieveFilterDlg.h"

#include "SieveRuleDlg.h"
#include "SieveSyntax.h"

#include "common/PlatformServices.h"
#include "config/ErrorReport.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBlock>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>

#include <vector>

using Sieve::Rule;

namespace {
constexpr unsigned kHelpContext = 2300;
constexpr char kScriptProperty[] = "SieveScript";

QPushButton* makeButton(QWidget* parent, const QString& text, const char* name)
{
    auto* button = new QPushButton(text, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}
} // namespace

CSieveFilterDlg::CSieveFilterDlg(QWidget* parent, _tMailbox* mailbox) : CTaviDialog(parent, nullptr), m_mailbox(mailbox)
{
    setObjectName(QStringLiteral("CSieveFilterDlg"));
    setWindowTitle(tr("Sieve Filter"));
    setUsesServerCaption(false);
    setHelpContext(kHelpContext);

    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("tabFilter"));
    m_rulesTab = buildRulesTab();
    m_scriptTab = buildScriptTab();
    m_tabs->addTab(m_rulesTab, tr("&Rules"));
    m_tabs->addTab(m_scriptTab, tr("S&cript"));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(createButtonBox());
    resize(560, 400);

    connect(m_tabs, &QTabWidget::currentChanged, this, &CSieveFilterDlg::onTabChanged);
    connect(m_script, &QPlainTextEdit::textChanged, this, [this] { m_scriptEdited = true; });
}

QWidget* CSieveFilterDlg::buildRulesTab()
{
    auto* tab = new QWidget(this);
    tab->setObjectName(QStringLiteral("pageRules"));
    m_rawNote = new QLabel(tr("This script uses Sieve features that the rules cannot show, so it is kept as it is. "
                              "Edit it on the Script tab, or delete its text there to start again with rules."),
                           tab);
    m_rawNote->setObjectName(QStringLiteral("lblRawScript"));
    m_rawNote->setWordWrap(true);
    auto* label = new QLabel(tr("Filter ru&les, applied in this order:"), tab);
    m_list = new QListWidget(tab);
    m_list->setObjectName(QStringLiteral("lstRules"));
    m_list->setUniformItemSizes(true);
    label->setBuddy(m_list);
    m_add = makeButton(tab, tr("&Add..."), "btnAdd");
    m_edit = makeButton(tab, tr("&Edit..."), "btnEdit");
    m_remove = makeButton(tab, tr("Re&move"), "btnRemove");
    m_up = makeButton(tab, tr("Move &Up"), "btnUp");
    m_down = makeButton(tab, tr("Move &Down"), "btnDown");

    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {m_add, m_edit, m_remove, m_up, m_down})
        buttons->addWidget(b);
    buttons->addStretch();
    auto* row = new QHBoxLayout;
    row->addWidget(m_list, 1);
    row->addLayout(buttons);
    auto* layout = new QVBoxLayout(tab);
    layout->addWidget(m_rawNote);
    layout->addWidget(label);
    layout->addLayout(row, 1);

    connect(m_add, &QPushButton::clicked, this, &CSieveFilterDlg::addRule);
    connect(m_edit, &QPushButton::clicked, this, &CSieveFilterDlg::editRule);
    connect(m_list, &QListWidget::itemActivated, this, &CSieveFilterDlg::editRule);
    connect(m_remove, &QPushButton::clicked, this, &CSieveFilterDlg::removeRule);
    connect(m_up, &QPushButton::clicked, this, [this] { moveRule(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { moveRule(1); });
    connect(m_list, &QListWidget::currentRowChanged, this, &CSieveFilterDlg::updateRulesTab);
    return tab;
}

QWidget* CSieveFilterDlg::buildScriptTab()
{
    auto* tab = new QWidget(this);
    tab->setObjectName(QStringLiteral("pageScript"));
    auto* label = new QLabel(tr("The filter as a Sieve &script:"), tab);
    m_script = new QPlainTextEdit(tab);
    m_script->setObjectName(QStringLiteral("edtScript"));
    m_script->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_script->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_script->setTabChangesFocus(true);
    label->setBuddy(m_script);
    auto* layout = new QVBoxLayout(tab);
    layout->addWidget(label);
    layout->addWidget(m_script, 1);
    return tab;
}

// A failed read is an empty script; a script that is not valid UTF-8 shows its bad bytes as
// replacement characters and is written back only when the person changes it.
QString CSieveFilterDlg::readScript() const
{
    std::vector<char> buffer(4096);
    uint32_t size = uint32_t(buffer.size());
    uint32_t type = 0;
    bool ok = GetMailboxProperty(m_mailbox, kScriptProperty, buffer.data(), &size, &type);
    if (!ok && GetLastError() == VB_ERROR_MORE_DATA) {
        buffer.resize(size);
        ok = GetMailboxProperty(m_mailbox, kScriptProperty, buffer.data(), &size, &type);
    }
    if (!ok || (type != 0 && type != 1) || size == 0)
        return {};
    const qsizetype length = qsizetype(qstrnlen(buffer.data(), qMin<size_t>(size, buffer.size())));
    return QString::fromUtf8(buffer.data(), length);
}

bool CSieveFilterDlg::exchange(bool save)
{
    if (save)
        return checkScript(m_script->toPlainText());
    {
        const QSignalBlocker blocker(m_script);
        m_script->setPlainText(readScript());
    }
    m_loaded = m_script->toPlainText();
    const std::optional<QList<Rule>> rules = Sieve::readRules(m_loaded);
    m_rulesMode = rules.has_value();
    m_rules = rules.value_or(QList<Rule>());
    m_scriptEdited = false;
    setRules(m_rules, 0);
    if (!m_rulesMode)
        m_tabs->setCurrentWidget(m_scriptTab);
    return true;
}

bool CSieveFilterDlg::checkScript(const QString& script)
{
    Sieve::SyntaxError error;
    if (!Sieve::parse(script, &error)) {
        m_tabs->setCurrentWidget(m_scriptTab);
        QTextCursor cursor(m_script->document());
        cursor.setPosition(int(qMin<qsizetype>(error.offset, script.size())));
        m_script->setTextCursor(cursor);
        m_script->setFocus();
        platform().messageBox(this,
                              tr("The script has an error on line %1, column %2:\n%3\n\nNothing has been saved.")
                                  .arg(error.line)
                                  .arg(error.column)
                                  .arg(error.message),
                              windowTitle(), Mb::IconExclamation);
        return false;
    }
    if (script == m_loaded) {
        // Nothing changed: close as cancelled so that the caller knows nothing was written.
        closeAsCancel();
        return false;
    }
    const QByteArray utf8 = script.toUtf8();
    if (!SetMailboxProperty(m_mailbox, 1, kScriptProperty, utf8.constData(), uint32_t(utf8.size() + 1))) {
        ReportError(GetLastError(), tr("Cannot set mailbox %1 property").arg(QLatin1String(kScriptProperty)));
        return false;
    }
    return true;
}

void CSieveFilterDlg::setRules(const QList<Rule>& rules, int current)
{
    m_rules = rules;
    m_list->clear();
    for (const Rule& rule : rules)
        m_list->addItem(Sieve::describe(rule));
    if (!rules.isEmpty())
        m_list->setCurrentRow(qBound(0, current, int(rules.size()) - 1));
    updateRulesTab();
}

void CSieveFilterDlg::updateRulesTab()
{
    const int row = m_list->currentRow();
    const bool selected = m_rulesMode && row >= 0;
    m_rawNote->setVisible(!m_rulesMode);
    m_list->setEnabled(m_rulesMode);
    m_add->setEnabled(m_rulesMode);
    m_edit->setEnabled(selected);
    m_remove->setEnabled(selected);
    m_up->setEnabled(selected && row > 0);
    m_down->setEnabled(selected && row + 1 < m_list->count());
}

// Rule changes rewrite the script; text edits are read back into rules when the Rules tab is shown.
void CSieveFilterDlg::onTabChanged()
{
    if (m_tabs->currentWidget() != m_rulesTab || !m_scriptEdited)
        return;
    const std::optional<QList<Rule>> rules = Sieve::readRules(m_script->toPlainText());
    m_rulesMode = rules.has_value();
    m_scriptEdited = false;
    setRules(rules.value_or(QList<Rule>()), 0);
}

// A change made on the Rules tab: the list and the script both show it.
void CSieveFilterDlg::commitRules(const QList<Rule>& rules, int current)
{
    setRules(rules, current);
    const QSignalBlocker blocker(m_script);
    m_script->setPlainText(Sieve::generateScript(m_rules));
}

void CSieveFilterDlg::addRule()
{
    CSieveRuleDlg dialog(this, Rule{});
    if (dialog.exec() != QDialog::Accepted)
        return;
    QList<Rule> rules = m_rules;
    rules.append(dialog.rule());
    commitRules(rules, int(rules.size()) - 1);
}

void CSieveFilterDlg::editRule()
{
    const int row = m_list->currentRow();
    if (!m_rulesMode || row < 0)
        return;
    CSieveRuleDlg dialog(this, m_rules[row]);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QList<Rule> rules = m_rules;
    rules[row] = dialog.rule();
    commitRules(rules, row);
}

void CSieveFilterDlg::removeRule()
{
    const int row = m_list->currentRow();
    if (!m_rulesMode || row < 0)
        return;
    QList<Rule> rules = m_rules;
    rules.removeAt(row);
    commitRules(rules, row);
}

void CSieveFilterDlg::moveRule(int by)
{
    const int row = m_list->currentRow();
    const int to = row + by;
    if (!m_rulesMode || row < 0 || to < 0 || to >= m_rules.size())
        return;
    QList<Rule> rules = m_rules;
    rules.move(row, to);
    commitRules(rules, to);
}
