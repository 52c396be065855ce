#include "maillist/MailListDigestPage.h"

#include "maillist/MailListPages_p.h"

#include <QFormLayout>

CMailListDigestPage::CMailListDigestPage(CMailListSheet* sheet, const QString& title) : CMailListPage(sheet, title)
{
    setObjectName(QStringLiteral("CMailListDigestPage"));
    setHelpContext(0x2803);
    auto* size = numberBox(this, "spnDigestMaxSize", 1048576, tr(" KB"));
    auto* age = numberBox(this, "spnDigestMaxAge", 8760, tr(" hours"));
    auto* format = choiceBox(this, "cboDigestFormat", {tr("Plain text"), tr("MIME, each message attached")});
    size->setSpecialValueText(tr("No size limit"));
    age->setSpecialValueText(tr("No time limit"));
    auto* note = new QLabel(tr("A digest is sent as soon as either threshold is reached."), this);
    note->setWordWrap(true);
    auto* form = new QFormLayout(this);
    form->addRow(buddyLabel(tr("Send when the digest reaches &size:"), size), size);
    form->addRow(buddyLabel(tr("Send when the oldest message is &older than:"), age), age);
    form->addRow(buddyLabel(tr("Digest &format:"), format), format);
    form->addRow(note);
    bindNumber(size, "DigestMaxSize");
    bindNumber(age, "DigestMaxAge");
    bindChoice(format, "DigestFormat");
}
