#include "wizards/AntiSpamWizard.h"

#include "common/PlatformServices.h"
#include "common/TaviDialog.h"
#include "res/StringIds.h"
#include "res/StringTable.h"
#include "res/WizardStringIds.h"
#include "wizards/WizardListEditor.h"

#include <algorithm>

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

const char kRblDomain[] = "RblDomain";
const char kRejectAllMailFrom[] = "RejectAllMailFrom";
const char kLookupIncomingCalls[] = "LookupIncomingCalls";
const char kSmtpReceiver[] = "SMTPRA";

CWizardPage* pageOf(CWizardPage* page, CAntiSpamWizard::Page which)
{
    return page->sheet()->wizardPage(which);
}

} // namespace

QStringList wellKnownBlacklistZones()
{
    return {QStringLiteral("sbl.spamhaus.org"), QStringLiteral("pbl.spamhaus.org"),
            QStringLiteral("smtp.dnsbl.sorbs.net")};
}

CAntiSpamWizard::CAntiSpamWizard(QWidget* parent, const QPixmap& watermark, const QPixmap& header)
    : CWizard(tr("AntiSpam Wizard"), parent, 0, header, watermark)
{
    setObjectName(QStringLiteral("CAntiSpamWizard"));
    setPageTitle(TaviString(IDS_WIZ_PAGE_TITLE));
    setHeaderTitle(TaviString(IDS_WIZ_SMTP_HEADER_TITLE));
    addWizardPage(new CAntiSpamWizard_1(this));
    addWizardPage(new CAntiSpamWizard_2(this));
    addWizardPage(new CAntiSpamWizard_3(this));
    addWizardPage(new CAntiSpamWizard_3_1(this));
    addWizardPage(new CAntiSpamWizard_4(this));
    addWizardPage(new CAntiSpamWizard_4_1(this));
    addWizardPage(new CAntiSpamWizard_4_2(this));
    addWizardPage(new CAntiSpamWizard_5(this));
    addWizardPage(new CAntiSpamWizard_5_1(this));
    addWizardPage(new CAntiSpamWizard_6(this));
    addWizardPage(new CAntiSpamWizard_6_1(this));
    addWizardPage(new CAntiSpamWizard_7(this));
}

CAntiSpamWizard::~CAntiSpamWizard() = default;

// ---- 1 Start --------------------------------------------------------------------------------------

CAntiSpamWizard_1::CAntiSpamWizard_1(CWizard* wizard) : CWizardPage(10103, wizard, tr("Start"))
{
    setObjectName(QStringLiteral("CAntiSpamWizard_1"));
    setWindowTitle(tr("Initial qualification"));
    buildWizardExterior(this, tr("Welcome to the SMTP Security Wizard"),
                  tr("This wizard helps you protect the SMTP receiver against unsolicited mail: it can block "
                     "servers without a DNS host name, check DNS blacklist services, keep a private blacklist "
                     "of mail servers, block return addresses, insist on qualified addresses and limit the "
                     "number of recipients of a message.\n\n"
                     "Nothing is changed until you click Finish on the last page.\n\n"
                     "To continue, click Next."));
}

// ---- 2 Anonymous servers --------------------------------------------------------------------------

CAntiSpamWizard_2::CAntiSpamWizard_2(CWizard* wizard)
    : CWizardChoicePage(10111, wizard, tr("Anonymous servers"),
                        tr("Do you wish to block mail from anonymous servers (servers without a DNS host name)?"),
                        tr("&Yes"), "radBlockAnonymousYes", tr("&No"), "radBlockAnonymousNo")
{
    setObjectName(QStringLiteral("CAntiSpamWizard_2"));
    setWindowTitle(tr("Anonymous servers"));
    pageLayout()->addSpacing(12);
    pageLayout()->addWidget(makeWizardText(
        tr("Note: DNS lookup will automatically be turned on if you select the Yes option."), "lblNote", this));
    pageLayout()->addStretch(1);
}

void CAntiSpamWizard_2::LoadSettings()
{
    sheet()->GetDword("AcceptUnknownSmtpHosts", nullptr, m_accept);
    sheet()->GetDword(kLookupIncomingCalls, nullptr, m_lookup);
}

void CAntiSpamWizard_2::RememberInitialValues()
{
    m_firstAccept = m_accept;
    m_firstLookup = m_lookup;
}

void CAntiSpamWizard_2::UpdateControls()
{
    (m_accept == 0 ? yesButton() : noButton())->setChecked(true);
}

bool CAntiSpamWizard_2::ReadControls()
{
    m_accept = noButton()->isChecked() ? 1 : 0;
    // Blocking anonymous servers needs DNS lookups; otherwise lookups stay as first found.
    m_lookup = m_accept == 0 ? 1 : m_firstLookup;
    return true;
}

void CAntiSpamWizard_2::SaveSettings()
{
    sheet()->SetDword("AcceptUnknownSmtpHosts", nullptr, m_accept);
    sheet()->SetDword(kLookupIncomingCalls, nullptr, m_lookup);
}

void CAntiSpamWizard_2::RestoreInitialValues()
{
    sheet()->SetDword("AcceptUnknownSmtpHosts", nullptr, m_firstAccept);
    sheet()->SetDword(kLookupIncomingCalls, nullptr, m_firstLookup);
}

// ---- 3 Blacklist servers --------------------------------------------------------------------------

CAntiSpamWizard_3::CAntiSpamWizard_3(CWizard* wizard)
    : CWizardChoicePage(10112, wizard, tr("Blacklist servers"), QString(),
                        tr("&Yes, reject mail from blacklisted mail servers ..."), "radRblYes",
                        tr("&No, don’t check any blacklist services"), "radRblNo")
{
    setObjectName(QStringLiteral("CAntiSpamWizard_3"));
    setWindowTitle(tr("Blacklist servers"));
    m_friends = new QCheckBox(tr("... &unless they appear in the list of friendly sites."), this);
    m_friends->setObjectName(QStringLiteral("chkNoRblForFriends"));
    // The check box belongs to "Yes": indented under it, after it in the tab order.
    auto* indented = new QVBoxLayout;
    indented->setContentsMargins(24, 0, 0, 0);
    indented->addWidget(m_friends);
    pageLayout()->insertLayout(pageLayout()->indexOf(noButton()), indented);
    pageLayout()->addStretch(1);
    setTabOrder(yesButton(), m_friends);
    setTabOrder(m_friends, noButton());
    connect(yesButton(), &QRadioButton::clicked, this, &CAntiSpamWizard_3::enableFriends);
    connect(noButton(), &QRadioButton::clicked, this, &CAntiSpamWizard_3::enableFriends);
}

void CAntiSpamWizard_3::enableFriends()
{
    m_friends->setEnabled(yesButton()->isChecked());
}

void CAntiSpamWizard_3::LoadSettings()
{
    sheet()->GetDword("RblEnabled", nullptr, m_rbl);
    sheet()->GetDword("NoRblForFriends", nullptr, m_noRblForFriends);
}

void CAntiSpamWizard_3::RememberInitialValues()
{
    m_firstRbl = m_rbl;
    m_firstNoRblForFriends = m_noRblForFriends;
}

void CAntiSpamWizard_3::UpdateControls()
{
    (m_rbl != 0 ? yesButton() : noButton())->setChecked(true);
    m_friends->setChecked(m_noRblForFriends != 0);
    enableFriends();
}

bool CAntiSpamWizard_3::ReadControls()
{
    m_rbl = yesButton()->isChecked() ? 1 : 0;
    m_noRblForFriends = m_friends->isChecked() ? 1 : 0;
    return true;
}

void CAntiSpamWizard_3::SaveSettings()
{
    sheet()->SetDword("RblEnabled", nullptr, m_rbl);
    sheet()->SetDword("NoRblForFriends", nullptr, m_noRblForFriends);
}

void CAntiSpamWizard_3::RestoreInitialValues()
{
    sheet()->SetDword("RblEnabled", nullptr, m_firstRbl);
    sheet()->SetDword("NoRblForFriends", nullptr, m_firstNoRblForFriends);
}

CWizardPage* CAntiSpamWizard_3::GetJumpTarget()
{
    // Without blacklist services there is nothing to select: on to the private blacklist.
    if (isForward() && noButton()->isChecked())
        return pageOf(this, CAntiSpamWizard::Private);
    return nullptr;
}

// ---- 4 Select blacklist servers -------------------------------------------------------------------

CAntiSpamWizard_3_1::CAntiSpamWizard_3_1(CWizard* wizard)
    : CWizardListPage(10114, wizard, tr("Select blacklist servers"), kRblDomain, false)
{
    setObjectName(QStringLiteral("CAntiSpamWizard_3_1"));
    setWindowTitle(tr("Blacklist servers 2"));
    m_known = new QComboBox(this);
    m_known->setObjectName(QStringLiteral("cboKnownServices"));
    QLabel* knownLabel = makeWizardText(tr("&Well known black list services:"), "lblKnownServices", this);
    knownLabel->setWordWrap(false);
    knownLabel->setBuddy(m_known);
    buildList(tr("Enter a list of blacklist services and associated explanatory URLs.  Either edit the list "
                 "directly or choose from the the list of known services"),
              tr("&Blacklist Services, checked in the order listed:"), tr("Blacklist Service"),
              tr("new service"), "lstRblDomain");
    auto* knownRow = new QHBoxLayout;
    knownRow->addWidget(knownLabel);
    knownRow->addWidget(m_known, 1);
    pageLayout()->insertLayout(1, knownRow);
    connect(m_known, &QComboBox::activated, this, [this](int index) {
        if (index >= 0)
            listEditor()->appendAndSelect(m_known->itemText(index));
    });
}

void CAntiSpamWizard_3_1::InitPage()
{
    m_known->addItems(wellKnownBlacklistZones());
    m_known->setCurrentIndex(-1);
}

// ---- 5 Private blacklist --------------------------------------------------------------------------

CAntiSpamWizard_4::CAntiSpamWizard_4(CWizard* wizard)
    : CWizardChoicePage(10113, wizard, tr("Private blacklist"),
                        tr("Do you want to specify additional host names or IP addresses from which you do not "
                           "wish to accept mail?"),
                        tr("&Yes, I want to specify additional mail servers to block"), "radPrivateYes",
                        tr("&No, I don’t want to block any other mail servers"), "radPrivateNo")
{
    setObjectName(QStringLiteral("CAntiSpamWizard_4"));
    setWindowTitle(tr("Private blacklist"));
    pageLayout()->addStretch(1);
}

void CAntiSpamWizard_4::InitPage()
{
    // Runs before the first activation has read the list, so "No" is what the page first offers.
    (m_text.isEmpty() ? noButton() : yesButton())->setChecked(true);
}

void CAntiSpamWizard_4::LoadSettings()
{
    sheet()->GetString(kRejectAllMailFrom, nullptr, m_text);
}

CWizardPage* CAntiSpamWizard_4::GetJumpTarget()
{
    if (!isForward() || !noButton()->isChecked())
        return nullptr;
    // A list already kept must be confirmed or erased; without one there is nothing to ask.
    return pageOf(this, m_text.isEmpty() ? CAntiSpamWizard::ReturnAddresses : CAntiSpamWizard::ErasePrivate);
}

// ---- 6 Specify private blacklist ------------------------------------------------------------------

CAntiSpamWizard_4_1::CAntiSpamWizard_4_1(CWizard* wizard)
    : CWizardHostListPage(10115, wizard, tr("Specify private blacklist"), kRejectAllMailFrom)
{
    setObjectName(QStringLiteral("CAntiSpamWizard_4_1"));
    setWindowTitle(tr("Private Blacklist"));
    buildList(tr("Specify additional mail server IP addresses or host names from which you do not want to "
                 "receive mail. If names are specified tne DNS lookup feature will be enabled."),
              tr("&Private blacklist:"), tr("The only column"), tr("new domain"), "lstRejectAllMailFrom");
}

CWizardPage* CAntiSpamWizard_4_1::GetJumpTarget()
{
    // The list has just been given: nothing to keep or erase.
    return isForward() ? pageOf(this, CAntiSpamWizard::ReturnAddresses) : nullptr;
}

// ---- 7 Erase existing blacklist -------------------------------------------------------------------

CAntiSpamWizard_4_2::CAntiSpamWizard_4_2(CWizard* wizard)
    : CWizardChoicePage(10116, wizard, tr("Erase existing blacklist"),
                        tr("Your current configuration specifies the following list of blocked mail servers.  Do "
                           "you want to keep this configuration?"),
                        tr("&Yes, keep using this list of mail servers to block"), "radKeepBlacklist",
                        tr("&No, erase this list of mail servers"), "radEraseBlacklist")
{
    setObjectName(QStringLiteral("CAntiSpamWizard_4_2"));
    setWindowTitle(tr("Erase existing blacklist"));
    QLabel* label = makeWizardText(tr("B&lacklist:"), "lblList", this);
    m_list = new CWizardListEditor(tr("The only column"), QString(), false, this);
    m_list->setObjectName(QStringLiteral("lstExistingBlacklist"));
    m_list->setColumnShare(0.5);
    label->setBuddy(m_list->view());
    pageLayout()->addSpacing(6);
    pageLayout()->addWidget(label);
    pageLayout()->addWidget(m_list, 1);
    // Next waits for a choice.
    connect(yesButton(), &QRadioButton::toggled, this, &QWizardPage::completeChanged);
    connect(noButton(), &QRadioButton::toggled, this, &QWizardPage::completeChanged);
}

bool CAntiSpamWizard_4_2::isComplete() const
{
    return yesButton()->isChecked() || noButton()->isChecked();
}

void CAntiSpamWizard_4_2::LoadSettings()
{
    sheet()->GetString(kRejectAllMailFrom, nullptr, m_text);
}

void CAntiSpamWizard_4_2::RememberInitialValues()
{
    m_firstText = m_text;
}

void CAntiSpamWizard_4_2::UpdateControls()
{
    QStringList entries = splitWizardList(m_text);
    entries.removeAll(QStringLiteral("*"));
    m_list->setEntries(entries);
    Q_EMIT completeChanged();
}

bool CAntiSpamWizard_4_2::ReadControls()
{
    m_chosen = noButton()->isChecked() ? QString() : m_text;
    return true;
}

void CAntiSpamWizard_4_2::SaveSettings()
{
    sheet()->SetString(kRejectAllMailFrom, nullptr, m_chosen);
}

void CAntiSpamWizard_4_2::RestoreInitialValues()
{
    sheet()->SetString(kRejectAllMailFrom, nullptr, m_firstText);
}

// ---- 8 Return addresses ---------------------------------------------------------------------------

CAntiSpamWizard_5::CAntiSpamWizard_5(CWizard* wizard)
    : CWizardSwitchPage(10117, wizard, tr("Return addresses"), "NoUnqualifiedReturnPath", kSmtpReceiver,
                        tr("Do you want to verify that the return address on incoming mail is valid?"), tr("&Yes"),
                        "radReturnPathYes", tr("&No"), "radReturnPathNo")
{
    setObjectName(QStringLiteral("CAntiSpamWizard_5"));
    setWindowTitle(tr("Return address"));
}

// ---- 9 Block return addresses ---------------------------------------------------------------------

CAntiSpamWizard_5_1::CAntiSpamWizard_5_1(CWizard* wizard)
    : CWizardListPage(10122, wizard, tr("Block return addresses"), "RejectAllMailFromAddresses", true)
{
    setObjectName(QStringLiteral("CAntiSpamWizard_5_1"));
    setWindowTitle(tr("Block return addresses"));
    buildList(tr("Specify a list of return addresses from which mail will be rejected.  Leave the list empty if "
                 "you don’t want to block mail based on the return address"),
              tr("&Return addresses:"), tr("Return address"), tr("new domain"), "lstRejectAllMailFromAddresses");
}

// ---- 10 Recipient addresses -----------------------------------------------------------------------

CAntiSpamWizard_6::CAntiSpamWizard_6(CWizard* wizard)
    : CWizardSwitchPage(10118, wizard, tr("Recipient addressess"), "NoUnqualifiedRecipients", kSmtpReceiver,
                        tr("What should the SMTP receiver do with a recipient address that has no domain name?"),
                        tr("&Insist on fully qualified recipient addresses."), "radQualifiedRecipients",
                        tr("&Append an appropriate domain name."), "radAppendDomain")
{
    setObjectName(QStringLiteral("CAntiSpamWizard_6"));
    setWindowTitle(tr("Recipients"));
}

// ---- 11 Maximum recipients ------------------------------------------------------------------------

CAntiSpamWizard_6_1::CAntiSpamWizard_6_1(CWizard* wizard) : CWizardPage(10119, wizard, tr("Maximum recipients"))
{
    setObjectName(QStringLiteral("CAntiSpamWizard_6_1"));
    setWindowTitle(tr("Maximum recipients"));
    m_edit = new QLineEdit(this);
    m_edit->setObjectName(QStringLiteral("edtMaxSmtpRecipients"));
    m_edit->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,10}")), m_edit));
    m_edit->setMaximumWidth(fontMetrics().averageCharWidth() * 14);
    QLabel* label = makeWizardText(tr("&Most recipients one message may have:"), "lblMaxSmtpRecipients", this);
    label->setWordWrap(false);
    label->setBuddy(m_edit);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_edit);
    row->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addSpacing(12);
    layout->addWidget(makeWizardText(tr("Note: A value of zero implies no limit to the number of recipients."),
                                     "lblNote", this));
    layout->addStretch(1);
}

void CAntiSpamWizard_6_1::LoadSettings()
{
    sheet()->GetDword("MaxSmtpRecipients", nullptr, m_max);
}

void CAntiSpamWizard_6_1::UpdateControls()
{
    m_edit->setText(QString::number(m_max));
}

bool CAntiSpamWizard_6_1::ReadControls()
{
    if (parseUnsigned(m_edit->text(), 0, 0xFFFFFFFFu, m_max))
        return true;
    taviMessageBox(TaviString(IDS_TAVI_PARSE_UINT), Mb::Ok | Mb::IconExclamation);
    m_edit->setFocus();
    m_edit->selectAll();
    return false;
}

void CAntiSpamWizard_6_1::SaveSettings()
{
    sheet()->SetDword("MaxSmtpRecipients", nullptr, m_max);
}

// ---- 12 Finish ------------------------------------------------------------------------------------

CAntiSpamWizard_7::CAntiSpamWizard_7(CWizard* wizard) : CWizardPage(10120, wizard, tr("Finish"))
{
    setObjectName(QStringLiteral("CAntiSpamWizard_7"));
    setWindowTitle(tr("Finish"));
    buildWizardExterior(this, tr("Exit SMTP Wizard"),
                  tr("You have completed configuring Velbrook’s SMTP security features.  Click Finish to start "
                     "using the new configuration."));
}
