#include "maillist/MailListSecurityPage.h"

#include "maillist/MailListPages_p.h"

#include <QFormLayout>

CMailListSecurityPage::CMailListSecurityPage(CMailListSheet* sheet) : CMailListPage(sheet, tr("Security"))
{
    setObjectName(QStringLiteral("CMailListSecurityPage"));
    setHelpContext(0x2802);
    auto* who = choiceBox(this, "cboSubscribePolicy",
                          {tr("Anyone"), tr("Addresses in this server's domains only"),
                           tr("Nobody: members are added by an administrator")});
    auto* confirm = new QCheckBox(tr("Ask new members to &confirm their subscription by mail"), this);
    confirm->setObjectName(QStringLiteral("chkConfirmSubscription"));
    auto* allowed = namedControl<QPlainTextEdit>(this, "txtAllowedPosters");
    auto* refused = namedControl<QPlainTextEdit>(this, "txtRefusedPosters");
    for (QPlainTextEdit* box : {allowed, refused}) {
        box->setTabChangesFocus(true);
        box->setPlaceholderText(tr("One address pattern per line, such as *@example.com"));
    }
    auto* form = new QFormLayout(this);
    form->addRow(buddyLabel(tr("&Who may subscribe:"), who), who);
    form->addRow(confirm);
    form->addRow(buddyLabel(tr("Senders &allowed to post:"), allowed), allowed);
    form->addRow(buddyLabel(tr("Senders &refused:"), refused), refused);
    bindChoice(who, "SubscribePolicy");
    bindFlag(confirm, "ConfirmSubscription");
    bindLines(allowed, "AllowedPosters");
    bindLines(refused, "RefusedPosters");
}
