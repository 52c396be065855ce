#include "security/SecurityPropertySheet.h"

#include "security/SecurityAntiSpamPage.h"
#include "security/SecurityDhapPage.h"
#include "security/SecurityGeneralPage.h"
#include "security/SecurityTlsPage.h"

SecurityPropertySheet::SecurityPropertySheet(QWidget* parent, _tMailServer* server)
    : CTaviPropertySheet(tr("Security Properties"), parent, server)
{
    setObjectName(QStringLiteral("SecurityPropertySheet"));
    addPage(new CSecurityGeneralPage(server));
    addPage(new CSecurityAntiSpamPage(server));
    addPage(new CSecurityDhapPage(server));
    addPage(new CSecurityTlsPage(server));
}

SecurityPropertySheet::~SecurityPropertySheet() = default;
