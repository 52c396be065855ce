#include "wizards/AntiRelayWizard.h"

#include "res/StringTable.h"
#include "res/WizardStringIds.h"
#include "wizards/WizardListEditor.h"

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const char kAcceptForRelayFrom[] = "AcceptForRelayFrom";
// The property's name is spelled so in the store.
const char kNoThirdPartyRelay[] = "NoThirdParyRelay";
const char kNoUnqualifiedReturnPath[] = "NoUnqualifiedReturnPath";
const char kSmtpReceiver[] = "SMTPRA";

QRadioButton* addRadio(QVBoxLayout* layout, QButtonGroup* group, const QString& text, const char* name)
{
    auto* radio = new QRadioButton(text, layout->parentWidget());
    radio->setObjectName(QLatin1String(name));
    group->addButton(radio);
    layout->addWidget(radio);
    return radio;
}

} // namespace

QString subnetPatternOf(const QString& address)
{
    const qsizetype dot = address.lastIndexOf(QLatin1Char('.'));
    if (dot < 0 || dot == address.size() - 1)
        return address;
    return address.left(dot + 1) + QLatin1Char('*');
}

CAntiRelayWizard::CAntiRelayWizard(QWidget* parent, const QPixmap& watermark, const QPixmap& header)
    : CWizard(tr("AntiRelay Wizard"), parent, 0, header, watermark)
{
    setObjectName(QStringLiteral("CAntiRelayWizard"));
    setPageTitle(TaviString(IDS_WIZ_PAGE_TITLE));
    setHeaderTitle(TaviString(IDS_WIZ_RELAY_HEADER_TITLE));
    addWizardPage(new CAntiRelayWizard_1(this));
    addWizardPage(new CAntiRelayWizard_2(this));
    addWizardPage(new CAntiRelayWizard_2_1(this));
    addWizardPage(new CAntiRelayWizard_2_2(this));
    addWizardPage(new CAntiRelayWizard_3(this));
    addWizardPage(new CAntiRelayWizard_4(this));
    addWizardPage(new CAntiRelayWizard_5(this));
}

CAntiRelayWizard::~CAntiRelayWizard() = default;

// ---- 1 Start --------------------------------------------------------------------------------------

CAntiRelayWizard_1::CAntiRelayWizard_1(CWizard* wizard) : CWizardPage(10061, wizard, tr("Start"))
{
    setObjectName(QStringLiteral("CAntiRelayWizard_1"));
    setWindowTitle(tr("Initial qualification"));
    buildWizardExterior(this, tr("Welcome to the Anti-Relay Wizard"),
                        tr("An open relay passes anybody's mail on to anywhere, and is blacklisted within "
                           "hours. This wizard sets who may relay mail through the SMTP receiver: whether users "
                           "must authenticate, which local subnets and friendly sites may relay without "
                           "authenticating, which other domains the server relays to, and how the return "
                           "address of relayed mail is checked.\n\n"
                           "Nothing is changed until you click Finish on the last page.\n\n"
                           "To continue, click Next."));
}

// ---- 2 Authentication policy ----------------------------------------------------------------------

CAntiRelayWizard_2::CAntiRelayWizard_2(CWizard* wizard) : CWizardPage(10060, wizard, tr("Authentication policy"))
{
    setObjectName(QStringLiteral("CAntiRelayWizard_2"));
    setWindowTitle(tr("Authentication policy"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeWizardText(tr("Do you wish to force users to authenticate with your SMTP server in order "
                                        "to be permitted to relay mail through your system?  Authentication is "
                                        "recommended."),
                                     "lblQuestion", this));
    layout->addSpacing(8);
    auto* group = new QButtonGroup(this);
    m_always = addRadio(layout, group, tr("Users must &always authenticate"), "radAlwaysAuthenticate");
    m_unlessFriendly = addRadio(layout, group, tr("Users must authenticate &unless connecting from a Friendly site"),
                                "radUnlessFriendly");
    m_none = addRadio(layout, group, tr("&No authentication required"), "radNoAuthentication");
    layout->addStretch(1);
}

void CAntiRelayWizard_2::LoadSettings()
{
    sheet()->GetDword("NoUnauthenticatedRelay", nullptr, m_policy);
}

void CAntiRelayWizard_2::RememberInitialValues()
{
    m_firstPolicy = m_policy;
}

void CAntiRelayWizard_2::UpdateControls()
{
    (m_policy == 1 ? m_always : m_policy == 2 ? m_unlessFriendly : m_none)->setChecked(true);
}

bool CAntiRelayWizard_2::ReadControls()
{
    m_policy = m_always->isChecked() ? 1 : m_unlessFriendly->isChecked() ? 2 : 0;
    return true;
}

void CAntiRelayWizard_2::SaveSettings()
{
    sheet()->SetDword("NoUnauthenticatedRelay", nullptr, m_policy);
}

void CAntiRelayWizard_2::RestoreInitialValues()
{
    sheet()->SetDword("NoUnauthenticatedRelay", nullptr, m_firstPolicy);
}

CWizardPage* CAntiRelayWizard_2::GetJumpTarget()
{
    // Local subnets and friendly sites matter only to the policy that exempts them.
    if (isForward() && !m_unlessFriendly->isChecked())
        return sheet()->wizardPage(CAntiRelayWizard::OtherDomains);
    return nullptr;
}

// ---- 3 Local subnets ------------------------------------------------------------------------------

CAntiRelayWizard_2_1::CAntiRelayWizard_2_1(CWizard* wizard)
    : CWizardChoicePage(10062, wizard, tr("Local subnets"), QString(), tr("&Yes"), "radLocalSubnetYes", tr("&No"),
                        "radLocalSubnetNo")
{
    setObjectName(QStringLiteral("CAntiRelayWizard_2_1"));
    setWindowTitle(tr("Local subnet"));
    m_question = makeWizardText(QString(), "lblSubnetQuestion", this);
    pageLayout()->insertWidget(0, m_question);
    pageLayout()->insertSpacing(1, 8);
    pageLayout()->addStretch(1);
}

void CAntiRelayWizard_2_1::InitPage()
{
    m_template = tr("Do you wish to accept email for relay from machines on your subnet (IP address %s) without "
                    "requiring them to authenticate with your SMTP server?");
    const QStringList addresses = sheet()->GetStringList("HostAddresses", CWizardPropertyCache::kConstantSection);
    for (const QString& address : addresses)
        m_subnets << subnetPatternOf(address);
    m_step = 0;
}

void CAntiRelayWizard_2_1::LoadSettings()
{
    sheet()->GetString(kAcceptForRelayFrom, nullptr, m_text);
}

void CAntiRelayWizard_2_1::RememberInitialValues()
{
    m_firstText = m_text;
}

void CAntiRelayWizard_2_1::UpdateControls()
{
    const QString subnet = m_subnets.value(m_step);
    QString question = m_template;
    m_question->setText(question.replace(QLatin1String("%s"), subnet));
    const bool listed = !subnet.isEmpty() && splitWizardList(m_text).contains(subnet);
    (listed ? yesButton() : noButton())->setChecked(true);
    // A host without addresses has no subnet to ask about.
    yesButton()->setEnabled(!subnet.isEmpty());
    noButton()->setEnabled(!subnet.isEmpty());
}

bool CAntiRelayWizard_2_1::ReadControls()
{
    const QString subnet = m_subnets.value(m_step);
    if (subnet.isEmpty())
        return true;
    QStringList entries = splitWizardList(m_text);
    const qsizetype found = entries.indexOf(subnet);
    if (yesButton()->isChecked() && found < 0)
        entries.prepend(subnet);
    else if (noButton()->isChecked() && found >= 0)
        entries.removeAt(found);
    m_text = joinWizardList(entries);
    return true;
}

void CAntiRelayWizard_2_1::SaveSettings()
{
    sheet()->SetString(kAcceptForRelayFrom, nullptr, m_text);
}

void CAntiRelayWizard_2_1::RestoreInitialValues()
{
    sheet()->SetString(kAcceptForRelayFrom, nullptr, m_firstText);
}

CWizardPage* CAntiRelayWizard_2_1::GetJumpTarget()
{
    const int count = int(m_subnets.size());
    if (isForward()) {
        if (++m_step < count)
            return this;
        m_step = qMax(count - 1, 0);
        return nullptr;
    }
    if (--m_step >= 0)
        return this;
    m_step = 0;
    return nullptr;
}

// ---- 4 Friendly sites -----------------------------------------------------------------------------

CAntiRelayWizard_2_2::CAntiRelayWizard_2_2(CWizard* wizard)
    : CWizardHostListPage(10063, wizard, tr("Friendly sites"), kAcceptForRelayFrom)
{
    setObjectName(QStringLiteral("CAntiRelayWizard_2_2"));
    setWindowTitle(tr("Friendly sites"));
    buildList(tr("Friendly sites relay without authenticating with your SMTP server. Enter a list of IP addresses "
                 "or host names that you wish to approve for relay without authentication:  IP addresses of "
                 "clients that do not support authenticated SMTP should be listed here."),
              tr("&Friendly sites that relay without authentication:"), tr("The only column"), tr("new domain"),
              "lstAcceptForRelayFrom");
}

// ---- 5 Other domains ------------------------------------------------------------------------------

CAntiRelayWizard_3::CAntiRelayWizard_3(CWizard* wizard)
    : CWizardListPage(10066, wizard, tr("Other domains"), "AcceptForRelayTo", true)
{
    setObjectName(QStringLiteral("CAntiRelayWizard_3"));
    setWindowTitle(tr("Other domains"));
    buildList(tr("Do you wish to relay mail that is addressed to recipients in non-local domains?  If so, enter the "
                 "names of those domains here. This is applicable if you relay for a third party domain."),
              tr("&Other domains:"), tr("The only column"), tr("new domain"), "lstAcceptForRelayTo");
}

// ---- 6 Third-party relaying -----------------------------------------------------------------------

CAntiRelayWizard_4::CAntiRelayWizard_4(CWizard* wizard) : CWizardPage(10065, wizard, tr("Third-party relaying"))
{
    setObjectName(QStringLiteral("CAntiRelayWizard_4"));
    setWindowTitle(tr("Third-party relaying"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeWizardText(tr("Do you wish to force users to specify a valid return address for mail "
                                        "messages that they are sending for relay elsewhere?  Choose one:"),
                                     "lblQuestion", this));
    layout->addSpacing(8);
    auto* group = new QButtonGroup(this);
    m_qualified = addRadio(layout, group,
                           tr("User must specify valid local return &address, including the domain component"),
                           "radReturnAddressQualified");
    m_mailbox = addRadio(layout, group,
                         tr("User must specify valid local return &mailbox; server will add the relevant domain "
                            "component"),
                         "radReturnMailbox");
    m_any = addRadio(layout, group, tr("User &need not specify a local return address."), "radAnyReturnAddress");
    layout->addStretch(1);
}

void CAntiRelayWizard_4::LoadSettings()
{
    sheet()->GetDword(kNoThirdPartyRelay, nullptr, m_noThirdParty);
    sheet()->GetDword(kNoUnqualifiedReturnPath, kSmtpReceiver, m_noUnqualified);
}

void CAntiRelayWizard_4::RememberInitialValues()
{
    m_firstNoThirdParty = m_noThirdParty;
    m_firstNoUnqualified = m_noUnqualified;
}

void CAntiRelayWizard_4::UpdateControls()
{
    if (m_noThirdParty != 0 && m_noUnqualified != 0)
        m_qualified->setChecked(true);
    else if (m_noThirdParty == 0)
        m_any->setChecked(true);
    else
        m_mailbox->setChecked(true);
}

bool CAntiRelayWizard_4::ReadControls()
{
    m_noThirdParty = m_any->isChecked() ? 0 : 1;
    m_noUnqualified = m_qualified->isChecked() ? 1 : 0;
    return true;
}

void CAntiRelayWizard_4::SaveSettings()
{
    sheet()->SetDword(kNoThirdPartyRelay, nullptr, m_noThirdParty);
    sheet()->SetDword(kNoUnqualifiedReturnPath, kSmtpReceiver, m_noUnqualified);
}

void CAntiRelayWizard_4::RestoreInitialValues()
{
    sheet()->SetDword(kNoThirdPartyRelay, nullptr, m_firstNoThirdParty);
    sheet()->SetDword(kNoUnqualifiedReturnPath, kSmtpReceiver, m_firstNoUnqualified);
}

// ---- 7 Finish -------------------------------------------------------------------------------------

CAntiRelayWizard_5::CAntiRelayWizard_5(CWizard* wizard) : CWizardPage(10064, wizard, tr("Finish"))
{
    setObjectName(QStringLiteral("CAntiRelayWizard_5"));
    setWindowTitle(tr("Finish"));
    buildWizardExterior(this, tr("Exit Anti-Relay Wizard"),
                        tr("You have completed configuring Velbrook's anti-relay features.  Click Finish to start "
                           "using the new configuration."));
}
