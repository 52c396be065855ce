#include "security/SecurityAntiSpamPage.h"

#include "common/PlatformServices.h"
#include "common/SubnetListDlg.h"
#include "common/SubnetListProperty.h"
#include "config/AccessLayer.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "res/SecurityStrings.h"
#include "res/StringTable.h"
#include "security/PropertyWrites.h"
#include "security/SpamListDlg.h"
#include "security/StringListEdit.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2111;
constexpr unsigned kSubnetHelpContext = 2119;
constexpr const char* kReceiver = "SMTPRA";
constexpr const char* kSubnetProperty = "RejectAllMailFromSubnets";

// Host name labels; a "*" may stand for the leading labels when wildcards are allowed.
bool isHostName(const QString& text, bool wildcard)
{
    static const QRegularExpression label(QStringLiteral("^[A-Za-z0-9_]([A-Za-z0-9_-]{0,61}[A-Za-z0-9_])?$"));
    if (text.isEmpty() || text.size() > 253)
        return false;
    const QStringList labels = text.split(QLatin1Char('.'));
    for (qsizetype i = 0; i < labels.size(); ++i) {
        if (wildcard && i == 0 && labels[i] == QLatin1String("*") && labels.size() > 1)
            continue;
        if (!label.match(labels[i]).hasMatch())
            return false;
    }
    return true;
}

bool isAddressPattern(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.isEmpty() || parts.size() > 4)
        return false;
    for (const QString& part : parts) {
        bool ok = false;
        if (part == QLatin1String("*"))
            continue;
        if (part.isEmpty() || part.size() > 3 || part.toUInt(&ok) > 255 || !ok)
            return false;
    }
    // A pattern shorter than an address must end in a wildcard ("10.20.*"), or it is a number.
    return parts.size() == 4 || parts.last() == QLatin1String("*");
}
} // namespace

bool isHostNameEntry(const QString& entry)
{
    const QString e = entry.startsWith(QLatin1Char('!')) ? entry.mid(1) : entry;
    for (const QChar c : e) {
        if (!c.isDigit() && c != QLatin1Char('.') && c != QLatin1Char('*'))
            return true;
    }
    return false;
}

QString checkBlacklistZone(const QString& zone)
{
    if (isHostName(zone, false) && zone.contains(QLatin1Char('.')))
        return QString();
    return TaviFormat(TaviString(IDS_SEC_BAD_ZONE), {zone});
}

QString checkSpamSource(const QString& entry)
{
    const QString e = entry.startsWith(QLatin1Char('!')) ? entry.mid(1) : entry;
    const bool fine = isHostNameEntry(entry) ? isHostName(e, true) : isAddressPattern(e);
    return fine ? QString() : TaviFormat(TaviString(IDS_SEC_BAD_SPAM_SOURCE), {entry});
}

QString checkReturnAddress(const QString& entry)
{
    static const QRegularExpression local(QStringLiteral("^[A-Za-z0-9!#$%&'*+/=?^_`{|}~.-]+$"));
    const qsizetype at = entry.indexOf(QLatin1Char('@'));
    bool fine = false;
    if (at < 0)
        fine = isHostName(entry, true) && entry.contains(QLatin1Char('.'));
    else if (entry.indexOf(QLatin1Char('@'), at + 1) < 0)
        fine = (at == 0 || local.match(entry.left(at)).hasMatch()) && isHostName(entry.mid(at + 1), true);
    return fine ? QString() : TaviFormat(TaviString(IDS_SEC_BAD_RETURN_ADDRESS), {entry});
}

CSecurityAntiSpamPage::CSecurityAntiSpamPage(_tMailServer* server) : CTaviPropertyPage(tr("Anti-spam")), m_server(server)
{
    setObjectName(QStringLiteral("CSecurityAntiSpamPage"));
    setHelpContext(kHelpContext);

    auto* serversGroup = new QGroupBox(tr("Connecting servers"), this);
    serversGroup->setObjectName(QStringLiteral("grpServers"));
    m_rejectAnonymousCheck = new QCheckBox(tr("Reject mail from servers &without a DNS host name"), serversGroup);
    m_rejectAnonymousCheck->setObjectName(QStringLiteral("chkRejectAnonymous"));
    m_lookupCheck = new QCheckBox(tr("&Look up the host names of connecting servers"), serversGroup);
    m_lookupCheck->setObjectName(QStringLiteral("chkLookupIncomingCalls"));
    m_rblCheck = new QCheckBox(tr("Reject mail from servers on these &blacklist services:"), serversGroup);
    m_rblCheck->setObjectName(QStringLiteral("chkRblEnabled"));
    m_zones = new CStringListEdit(QStringLiteral("RblDomain"), serversGroup);
    m_zones->setCheck(checkBlacklistZone);
    m_zones->setPlaceholderText(tr("zone, e.g. bl.spamcop.net"));
    m_rblFriendsCheck = new QCheckBox(tr("...unless they appear in the list of &friendly sites"), serversGroup);
    m_rblFriendsCheck->setObjectName(QStringLiteral("chkNoRblForFriends"));
    auto* serversLayout = new QVBoxLayout(serversGroup);
    serversLayout->addWidget(m_rejectAnonymousCheck);
    serversLayout->addWidget(m_lookupCheck);
    serversLayout->addWidget(m_rblCheck);
    serversLayout->addWidget(m_zones, 1);
    serversLayout->addWidget(m_rblFriendsCheck);

    auto* blacklistGroup = new QGroupBox(tr("Private blacklist"), this);
    blacklistGroup->setObjectName(QStringLiteral("grpPrivateBlacklist"));
    m_hostsLabel = new QLabel(blacklistGroup);
    m_hostsLabel->setObjectName(QStringLiteral("lblBlockedHosts"));
    m_hostsButton = new QPushButton(tr("Spam &Sources..."), blacklistGroup);
    m_hostsButton->setObjectName(QStringLiteral("btnSpamSources"));
    m_networksLabel = new QLabel(blacklistGroup);
    m_networksLabel->setObjectName(QStringLiteral("lblBlockedNetworks"));
    m_networksButton = new QPushButton(tr("&Networks..."), blacklistGroup);
    m_networksButton->setObjectName(QStringLiteral("btnBlockedNetworks"));
    auto* blacklistGrid = new QGridLayout(blacklistGroup);
    blacklistGrid->addWidget(m_hostsLabel, 0, 0);
    blacklistGrid->addWidget(m_hostsButton, 0, 1);
    blacklistGrid->addWidget(m_networksLabel, 1, 0);
    blacklistGrid->addWidget(m_networksButton, 1, 1);
    blacklistGrid->setColumnStretch(0, 1);

    auto* addressGroup = new QGroupBox(tr("Senders and recipients"), this);
    addressGroup->setObjectName(QStringLiteral("grpAddresses"));
    auto* blockedLabel = new QLabel(tr("Refuse mail from these return addr&esses:"), addressGroup);
    m_returnAddresses = new CStringListEdit(QStringLiteral("ReturnAddresses"), addressGroup);
    m_returnAddresses->setCheck(checkReturnAddress);
    m_returnAddresses->setPlaceholderText(tr("address or @domain"));
    blockedLabel->setBuddy(m_returnAddresses->edit());
    m_returnPathCheck = new QCheckBox(tr("Reject return addresses that are not fully &qualified"), addressGroup);
    m_returnPathCheck->setObjectName(QStringLiteral("chkNoUnqualifiedReturnPath"));
    m_recipientsCheck = new QCheckBox(tr("Insist on fully qualified &recipient addresses"), addressGroup);
    m_recipientsCheck->setObjectName(QStringLiteral("chkNoUnqualifiedRecipients"));
    m_maxRecipientsSpin = new QSpinBox(addressGroup);
    m_maxRecipientsSpin->setObjectName(QStringLiteral("spnMaxSmtpRecipients"));
    m_maxRecipientsSpin->setRange(0, 100000);
    m_maxRecipientsSpin->setSpecialValueText(tr("No limit"));
    auto* maxLabel = new QLabel(tr("Most recipien&ts per message:"), addressGroup);
    maxLabel->setBuddy(m_maxRecipientsSpin);
    auto* addressLayout = new QGridLayout(addressGroup);
    addressLayout->addWidget(blockedLabel, 0, 0, 1, 2);
    addressLayout->addWidget(m_returnAddresses, 1, 0, 1, 2);
    addressLayout->addWidget(m_returnPathCheck, 2, 0, 1, 2);
    addressLayout->addWidget(m_recipientsCheck, 3, 0, 1, 2);
    addressLayout->addWidget(maxLabel, 4, 0);
    addressLayout->addWidget(m_maxRecipientsSpin, 4, 1);
    addressLayout->setRowStretch(1, 1);

    auto* right = new QVBoxLayout;
    right->addWidget(blacklistGroup);
    right->addWidget(addressGroup, 1);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(serversGroup, 1);
    layout->addLayout(right, 1);

    const auto modified = [this] { setModified(); };
    for (QCheckBox* box : {m_rejectAnonymousCheck, m_lookupCheck, m_rblCheck, m_rblFriendsCheck, m_returnPathCheck,
                           m_recipientsCheck})
        connect(box, &QCheckBox::clicked, this, modified);
    connect(m_rejectAnonymousCheck, &QCheckBox::clicked, this, [this] { updateControls(true); });
    connect(m_rblCheck, &QCheckBox::clicked, this, [this] { updateControls(true); });
    connect(m_zones, &CStringListEdit::changed, this, modified);
    connect(m_returnAddresses, &CStringListEdit::changed, this, modified);
    connect(m_maxRecipientsSpin, &QSpinBox::valueChanged, this, modified);
    connect(m_hostsButton, &QPushButton::clicked, this, &CSecurityAntiSpamPage::onEditHosts);
    connect(m_networksButton, &QPushButton::clicked, this, &CSecurityAntiSpamPage::onEditNetworks);
}

CSecurityAntiSpamPage::~CSecurityAntiSpamPage()
{
    FreeIp4SubnetList(m_networks);
}

void CSecurityAntiSpamPage::initPage()
{
    ReadServerNumber(m_server, nullptr, "AcceptUnknownSmtpHosts", m_acceptUnknownRead, 1);
    ReadServerNumber(m_server, nullptr, "LookupIncomingCalls", m_lookupRead, 0);
    ReadServerNumber(m_server, nullptr, "RblEnabled", m_rblRead, 0);
    ReadServerNumber(m_server, nullptr, "NoRblForFriends", m_rblFriendsRead, 0);
    ReadServerString(m_server, nullptr, "RblDomain", m_zonesRead, kCommandBufferSize);
    ReadServerString(m_server, nullptr, "RejectAllMailFrom", m_hostsRead, kCommandBufferSize);
    ReadServerString(m_server, nullptr, "RejectAllMailFromAddresses", m_addressesRead, kCommandBufferSize);
    ReadServerNumber(m_server, kReceiver, "NoUnqualifiedReturnPath", m_returnPathRead, 0);
    ReadServerNumber(m_server, kReceiver, "NoUnqualifiedRecipients", m_recipientsRead, 0);
    ReadServerNumber(m_server, nullptr, "MaxSmtpRecipients", m_maxRecipientsRead, 0);
    m_hosts = splitListText(m_hostsRead);
    SubnetPropertyList networks;
    m_networksReadable = readSubnetListProperty(m_server, kReceiver, kSubnetProperty, networks);
    m_networks = networks.list;
    m_networksRead = encodeSubnetMultiString(m_networks);
}

bool CSecurityAntiSpamPage::exchange(bool save)
{
    if (save)
        return true;
    const QSignalBlocker blocker(m_maxRecipientsSpin);
    m_rejectAnonymousCheck->setChecked(m_acceptUnknownRead == 0);
    m_lookupCheck->setChecked(m_lookupRead != 0);
    m_rblCheck->setChecked(m_rblRead != 0);
    m_rblFriendsCheck->setChecked(m_rblFriendsRead != 0);
    m_zones->setEntries(splitListText(m_zonesRead));
    m_returnAddresses->setEntries(splitListText(m_addressesRead));
    m_returnPathCheck->setChecked(m_returnPathRead != 0);
    m_recipientsCheck->setChecked(m_recipientsRead != 0);
    m_maxRecipientsSpin->setValue(int(qMin<quint32>(m_maxRecipientsRead, 100000)));
    m_networksButton->setEnabled(m_networksReadable);
    updateCounts();
    updateControls(false);
    return true;
}

void CSecurityAntiSpamPage::updateControls(bool enforce)
{
    // Refusing anonymous servers and matching host names both need the names of connecting servers. A
    // change of the administrator's turns the lookup on; what was stored is shown as it is.
    bool needLookup = m_rejectAnonymousCheck->isChecked();
    for (const QString& host : std::as_const(m_hosts))
        needLookup = needLookup || isHostNameEntry(host);
    if (needLookup && enforce)
        m_lookupCheck->setChecked(true);
    m_lookupCheck->setEnabled(!(needLookup && m_lookupCheck->isChecked()));
    m_zones->setEnabled(m_rblCheck->isChecked());
    m_rblFriendsCheck->setEnabled(m_rblCheck->isChecked());
}

void CSecurityAntiSpamPage::updateCounts()
{
    int networks = 0;
    for (const _tIp4Subnet* s = m_networks; s; s = s->next)
        ++networks;
    m_hostsLabel->setText(TaviFormat(TaviString(IDS_SEC_HOSTS_COUNT), {QString::number(m_hosts.size())}));
    m_networksLabel->setText(m_networksReadable
                                 ? TaviFormat(TaviString(IDS_SEC_NETWORKS_COUNT), {QString::number(networks)})
                                 : TaviString(IDS_SEC_SUBNETS_UNREADABLE));
}

void CSecurityAntiSpamPage::onEditHosts()
{
    CSpamListDlg dialog(this, m_server, m_hosts);
    if (dialog.exec() != QDialog::Accepted || dialog.entries() == m_hosts)
        return;
    m_hosts = dialog.entries();
    updateCounts();
    updateControls(true);
    setModified();
}

void CSecurityAntiSpamPage::onEditNetworks()
{
    _tIp4Subnet* copy = nullptr;
    if (m_networks && !CopySubnetList(m_networks, &copy))
        return;
    CSubnetListDlg dialog(this, &copy, IDS_SEC_SUBNETS_CAPTION, kSubnetHelpContext);
    if (dialog.exec() != QDialog::Accepted) {
        FreeIp4SubnetList(copy);
        return;
    }
    FreeIp4SubnetList(m_networks);
    m_networks = copy;
    updateCounts();
    setModified();
}

bool CSecurityAntiSpamPage::apply()
{
    const quint32 accept = m_rejectAnonymousCheck->isChecked() ? 0 : 1;
    const quint32 lookup = m_lookupCheck->isChecked() ? 1 : 0;
    bool ok = writeChangedNumber(m_server, nullptr, "AcceptUnknownSmtpHosts", accept, m_acceptUnknownRead);
    ok = writeChangedNumber(m_server, nullptr, "LookupIncomingCalls", lookup, m_lookupRead) && ok;
    ok = writeChangedNumber(m_server, nullptr, "RblEnabled", m_rblCheck->isChecked() ? 1 : 0, m_rblRead) && ok;
    ok = writeChangedNumber(m_server, nullptr, "NoRblForFriends", m_rblFriendsCheck->isChecked() ? 1 : 0,
                            m_rblFriendsRead) && ok;
    // Lists are compared entry by entry, so a stored list that was only spaced differently is kept.
    const auto writeList = [this](const char* name, const QStringList& entries, QString& read) {
        if (entries == splitListText(read))
            return true;
        return writeChangedString(m_server, nullptr, name, joinListText(entries), read);
    };
    ok = writeList("RblDomain", m_zones->entries(), m_zonesRead) && ok;
    ok = writeList("RejectAllMailFrom", m_hosts, m_hostsRead) && ok;
    const QByteArray networks = encodeSubnetMultiString(m_networks);
    if (m_networksReadable && networks != m_networksRead) {
        if (writeSubnetListProperty(m_server, kReceiver, kSubnetProperty, m_networks))
            m_networksRead = networks;
        else {
            ReportPropertyWriteFailure(kSubnetProperty);
            ok = false;
        }
    }
    ok = writeList("RejectAllMailFromAddresses", m_returnAddresses->entries(), m_addressesRead) && ok;
    ok = writeChangedNumber(m_server, kReceiver, "NoUnqualifiedReturnPath", m_returnPathCheck->isChecked() ? 1 : 0,
                            m_returnPathRead) && ok;
    ok = writeChangedNumber(m_server, kReceiver, "NoUnqualifiedRecipients", m_recipientsCheck->isChecked() ? 1 : 0,
                            m_recipientsRead) && ok;
    ok = writeChangedNumber(m_server, nullptr, "MaxSmtpRecipients", quint32(m_maxRecipientsSpin->value()),
                            m_maxRecipientsRead) && ok;
    return ok;
}
