#include "maillist/MailListScriptPage.h"

#include "common/PlatformServices.h"
#include "config/MessageFormat.h"
#include "maillist/HeaderScript.h"
#include "res/MailListStringIds.h"
#include "res/StringTable.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QVBoxLayout>

CMailListScriptPage::CMailListScriptPage(CMailListSheet* sheet) : CMailListPage(sheet, tr("Header Script"))
{
    setObjectName(QStringLiteral("CMailListScriptPage"));
    setHelpContext(0x2805);
    auto* intro = new QLabel(tr("&Commands that rewrite the headers of each message before it is distributed:\n"
                                "add Name: value, set Name: value, remove Name, rename Name NewName."),
                             this);
    intro->setWordWrap(true);
    m_script = new QPlainTextEdit(this);
    m_script->setObjectName(QStringLiteral("txtHeaderScript"));
    m_script->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_script->setTabChangesFocus(true);
    m_script->setLineWrapMode(QPlainTextEdit::NoWrap);
    intro->setBuddy(m_script);
    auto* check = new QPushButton(tr("Check &syntax"), this);
    check->setObjectName(QStringLiteral("btnCheckScript"));
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("lblScriptStatus"));
    m_status->setWordWrap(true);
    auto* row = new QHBoxLayout;
    row->addWidget(m_status, 1);
    row->addWidget(check);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(m_script, 1);
    layout->addLayout(row);
    bindText(m_script, "HeaderScript");
    connect(check, &QPushButton::clicked, this, [this] { checkScript(false); });
}

bool CMailListScriptPage::checkScript(bool tell)
{
    const QList<HeaderScript::Error> errors = HeaderScript::check(m_script->toPlainText());
    if (errors.isEmpty()) {
        m_status->setText(tr("The script has no errors."));
        return true;
    }
    QStringList lines;
    for (const HeaderScript::Error& e : errors.mid(0, 10))
        lines.append(tr("Line %1: %2").arg(e.line).arg(e.message));
    if (errors.size() > 10)
        lines.append(tr("... and %1 more").arg(errors.size() - 10));
    m_status->setText(lines.first());
    // The cursor goes to the first line at fault.
    QTextCursor cursor(m_script->document()->findBlockByNumber(errors.first().line - 1));
    m_script->setTextCursor(cursor);
    m_script->setFocus();
    if (tell)
        taviMessageBox(TaviFormat(TaviString(IDS_MAILLIST_SCRIPT_ERRORS), {lines.join(QLatin1Char('\n'))}),
                       Mb::Ok | Mb::IconExclamation);
    return false;
}

bool CMailListScriptPage::onKillActive()
{
    return checkScript(true);
}
