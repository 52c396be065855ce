#include "maillist/MailListMessagesPage.h"

#include "maillist/MailListPages_p.h"

#include <QFormLayout>

CMailListMessagesPage::CMailListMessagesPage(CMailListSheet* sheet) : CMailListPage(sheet, tr("Messages"))
{
    setObjectName(QStringLiteral("CMailListMessagesPage"));
    setHelpContext(0x2801);
    auto* prefix = namedControl<QLineEdit>(this, "edtSubjectPrefix");
    auto* header = namedControl<QPlainTextEdit>(this, "txtMessageHeader");
    auto* footer = namedControl<QPlainTextEdit>(this, "txtMessageFooter");
    auto* attachments = choiceBox(this, "cboAttachmentPolicy",
                                  {tr("Keep attachments"), tr("Remove attachments before distribution"),
                                   tr("Refuse messages with attachments")});
    for (QPlainTextEdit* box : {header, footer}) {
        box->setTabChangesFocus(true);
        box->setMinimumHeight(70);
    }
    auto* form = new QFormLayout(this);
    form->addRow(buddyLabel(tr("Subject &prefix:"), prefix), prefix);
    form->addRow(buddyLabel(tr("Text &before each message:"), header), header);
    form->addRow(buddyLabel(tr("Text &after each message:"), footer), footer);
    form->addRow(buddyLabel(tr("A&ttachments:"), attachments), attachments);
    bindText(prefix, "SubjectPrefix");
    bindText(header, "MessageHeader");
    bindText(footer, "MessageFooter");
    bindChoice(attachments, "AttachmentPolicy");
}
