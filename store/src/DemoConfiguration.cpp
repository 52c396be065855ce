// The demonstration configuration.
#include "velbrook/DemoConfiguration.h"

#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include "Connector.h"
#include "Handle_p.h"
#include "velbrook/DomainStore.h"
#include "velbrook/ListStore.h"
#include "velbrook/MailboxStore.h"
#include "velbrook/ServerStore.h"

namespace {

struct Text {
    const char* section;
    const char* name;
    const char* value;
};

struct Number {
    const char* section;
    const char* name;
    uint32_t value;
};

const Text kTexts[] = {
    {nullptr, "MailSpoolDir", "/var/spool/velbrook"},
    {nullptr, "IncomingMailCmd", "/usr/lib/velbrook/agents/incoming-filter --quiet"},
    {nullptr, "ArchiveDir", "/var/lib/velbrook/archive"},
    {nullptr, "MailLogDir", "/var/log/velbrook"},
    {nullptr, "RetrySchedule",
     "10:F,10:F,100:F,10:F,10:F,100:F,10:F,10:F,100:F,10:F,10:F,100:F,10:F,10:F,100:F,10:F,10:F,100:F,"
     "10:F,10:F,100:F,10:F,10:F,100:F,10:F,10:F,100:F,10:F,10:F,100:F,10:F,10:F,100:F,10:F,10:F,100:F,"
     "10:F,10:T,100:F,10:F,10:F"},
    {nullptr, "WeekdaySchedule", "0700,1200u,1800"},
    {nullptr, "WeekendSchedule", "1000u,1600"},
    {nullptr, "AcceptForRelayFrom", "192.168.10.*, 10.20.*"},
    {nullptr, "AcceptForRelayTo", "partner.example.net, !bad.partner.example.net"},
    {nullptr, "RblDomain", "zen.spamhaus.org"},
    {nullptr, "RejectAllMailFrom", "spam-haven.example, *.bulkmail.example"},
    {nullptr, "RejectAllMailFromAddresses", "offers@promo.example, noreply@junk.example"},
    {nullptr, "DefaultDomain", "brennoway.example"},
    {"Logging", "LogFilePrefix", "vb"},
    {"CalendarMgr", "CalendarDir", "/var/lib/velbrook/calendars"},
    {"SMTPRA", "ListenAddresses", "*:25, *:587"},
    {"POP3", "ListenAddresses", "*:110, *:995"},
    {"IMAP4", "ListenAddresses", "*:143, *:993"},
    {"WebMail", "ListenAddresses", "127.0.0.1:8080"},
    {"SMTPRA", "AuthMethods", "SCRAM-SHA-256, CRAM-MD5, PLAIN, LOGIN"},
};

const Number kNumbers[] = {
    {nullptr, "RegistryFormatVersion", 5},
    {nullptr, "UndeliverableDsnAction", 0},
    {nullptr, "DialupEnabled", 0},
    {nullptr, "QuotaCopyPostmaster", 1},
    {nullptr, "QuotasEnabled", 1},
    {nullptr, "QuotaFailPermanent", 0},
    {nullptr, "QuotaMinWarningMsgGap", 7},
    {nullptr, "QuotaDomainDefaultLimit", 512000},
    {nullptr, "QuotaDomainDefaultTrigger", 460800},
    {nullptr, "QuotaSiteNoMsgs", 18342},
    {nullptr, "QuotaSiteTotSize", 2316544},
    {nullptr, "QuotaSiteMsgSize", 2290112},
    {nullptr, "QuotaSiteLastChecked", 0}, // replaced by the time of seeding
    {nullptr, "MaxSmtpRecipients", 100},
    {nullptr, "AcceptUnknownSmtpHosts", 1},
    {nullptr, "LookupIncomingCalls", 0},
    {nullptr, "NoRblForFriends", 1},
    {nullptr, "NoThirdParyRelay", 1},
    {nullptr, "NoUnauthenticatedRelay", 1},
    {nullptr, "RblEnabled", 1},
    {"SMTPRA", "NoUnqualifiedRecipients", 1},
    {"SMTPRA", "NoUnqualifiedReturnPath", 0},
    {"SMTPRA", "MaxTotalConnections", 200},
    {"SMTPRA", "MaxClientConnections", 10},
    {"SMTPRA", "Timeout", 900},
    {"SMTPRA", "MaxThroughput", 20000},
    {"SMTPRA", "NoMaxThroughputForFriends", 1},
    {"CalendarMgr", "CalendarOn", 1},
    {"CalendarMgr", "CalendarRemit", 2},
    {"Statistics", "Enabled", 0xFFFFFFFFu},
    {"Statistics", "DomainAutoReset", 86400},
    {"Statistics", "MailboxAutoReset", 604800},
    {"Logging", "LogLevel", 2},
    {"Logging", "LogFlags", 0x1F},
    {"SMTPRA", "SubmissionAuthRequired", 1},
    {"Security", "LockoutEnabled", 1},
    {"Security", "LockoutThreshold", 5},
    {"DHAP", "Enabled", 1},
    {"TLS", "MinProtocol", 12},
    {"DbLog", "RetentionDays", 30},
};

struct Service {
    const char* name;
    const char* displayName;
    uint32_t state;
};

const Service kServices[] = {
    {"SMTPRA", "SMTP Receiver", VB_SERVICE_RUNNING},
    {"SMTPDA", "SMTP Delivery", VB_SERVICE_RUNNING},
    {"POP3", "POP3 Server", VB_SERVICE_RUNNING},
    {"IMAP4", "IMAP4 Server", VB_SERVICE_RUNNING},
    {"ListServer", "Mailing List Server", VB_SERVICE_RUNNING},
    {"WebMail", "Web Mail Server", VB_SERVICE_STOPPED},
};

bool setText(_tMailServer* s, const char* section, const char* name, const char* value)
{
    return SetMailServerProperty(s, section, VB_TYPE_STRING, name, value, uint32_t(std::strlen(value) + 1)) != 0;
}

bool setNumber(_tMailServer* s, const char* section, const char* name, uint32_t value)
{
    return SetMailServerProperty(s, section, VB_TYPE_DWORD, name, &value, sizeof value) != 0;
}

bool seedServer(_tMailServer* s)
{
    for (const Text& t : kTexts)
        if (!setText(s, t.section, t.name, t.value))
            return false;
    for (const Number& n : kNumbers) {
        const uint32_t value = std::strcmp(n.name, "QuotaSiteLastChecked") == 0 ? uint32_t(std::time(nullptr)) : n.value;
        if (!setNumber(s, n.section, n.name, value))
            return false;
    }
    // Two addresses on harvest probation for the next half hour and hour (once: a second seed finds the
    // list), and one blocked network.
    const uint32_t now = uint32_t(std::time(nullptr));
    uint32_t probationSize = 0;
    const bool probationExists = GetMailServerProperty(s, "DHAP", "Probation", nullptr, &probationSize, nullptr) != 0
                                 || GetLastError() == VB_ERROR_MORE_DATA;
    for (uint32_t minutes : {30u, 60u}) {
        if (probationExists)
            break;
        const std::string element = (minutes == 30 ? std::string("203.0.113.45,") : std::string("198.51.100.77,"))
                                    + std::to_string(now + minutes * 60);
        if (!AddToMailServerListProperty(s, "DHAP", "Probation", element.c_str())
            && GetLastError() != VB_ERROR_ALREADY_EXISTS)
            return false;
    }
    static const char kNetworks[] = "192.0.2.0/24,\"bulk sender\"\0";
    if (!SetMailServerProperty(s, "SMTPRA", VB_TYPE_MULTI_STRING, "RejectAllMailFromSubnets", kNetworks, sizeof kNetworks))
        return false;
    // The demonstration server's host has two networks, so the anti-relay wizard asks about two subnets.
    static const char kHostAddresses[] = "192.168.10.5\0" "10.20.30.40\0";
    if (!SetMailServerProperty(s, "Machine", VB_TYPE_MULTI_STRING, "HostAddresses", kHostAddresses,
                               sizeof kHostAddresses))
        return false;
    for (const Service& svc : kServices) {
        if (!VbRegisterMailService(s, svc.name, svc.displayName, "builtin", nullptr, svc.state))
            return false;
        if (!setNumber(s, svc.name, "PendingMilliseconds", 1500))
            return false;
    }
    return true;
}

} // namespace

bool vbSeedDemoObjects(_tMailServer* server);

extern "C" int VbSeedDemoConfiguration(_tMailServer* server)
{
    if (!server) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (uint32_t e = server->connector->begin()) {
        SetLastError(e);
        return 0;
    }
    if (!seedServer(server) || !vbSeedDemoObjects(server)) {
        const uint32_t e = GetLastError();
        server->connector->rollback();
        SetLastError(e ? e : VB_ERROR_STORE_FAILURE);
        return 0;
    }
    if (uint32_t e = server->connector->commit()) {
        SetLastError(e);
        return 0;
    }
    SetLastError(0);
    return 1;
}

namespace {

bool seedRoutes(_tMailServer* s)
{
    _tManualRoute* first = AllocManualRoute("*.partner.example.net", VB_ROUTE_FORCE);
    _tManualRoute* second = AllocManualRoute("legacy.example.org", VB_ROUTE_ADDITIONAL);
    _tManualRoute* third = AllocManualRoute("*", VB_ROUTE_DEFAULT);
    if (!first || !second || !third) {
        FreeManualRoutes(first);
        FreeManualRoutes(second);
        FreeManualRoutes(third);
        return false;
    }
    first->next = second;
    second->next = third;
    first->hosts = AllocManualRouteMx("mx1.partner.example.net", 0, 10);
    if (first->hosts)
        first->hosts->next = AllocManualRouteMx("mx2.partner.example.net", 2525, 20);
    second->hosts = AllocManualRouteMx("10.20.0.25", 0, 5);
    third->hosts = AllocManualRouteMx("smarthost.isp.example", 587, 0);
    const bool ok = SaveManualRoutes(s, first) != 0;
    FreeManualRoutes(first);
    return ok;
}

// The server's alias table: a retired domain and two addresses kept after people moved.
bool seedAliasMapping(_tMailServer* s)
{
    const char* const rows[][2] = {{"old-brennoway.example", "brennoway.example"},
                                   {"sales@old-brennoway.example", "orders@sales.brennoway.example"},
                                   {"abuse", "postmaster@brennoway.example"}};
    _tAliasMapping* first = nullptr;
    _tAliasMapping** tail = &first;
    for (const auto& row : rows) {
        if (!(*tail = AllocAliasMapping(row[0], row[1]))) {
            FreeAliasMapping(first);
            return false;
        }
        tail = &(*tail)->next;
    }
    const bool ok = SaveAliasMapping(s, first) != 0;
    FreeAliasMapping(first);
    return ok;
}

} // namespace


namespace {

struct DemoMailbox {
    const char* local;
    const char* fullName;
    uint32_t counters[7];
};

struct DemoDomain {
    const char* name;
    const char* ipAddress;
    const char* synonym;
    DemoMailbox mailboxes[4];
    const char* list;
    const char* members[3];
};

const DemoDomain kDomains[] = {
    {"brennoway.example", "", "mail.brennoway.example",
     {{"postmaster", "Postmaster", {12, 48211, 10244, 0, 0, 5120, 0}},
      {"alice", "Alice Marsh", {310, 2841921, 1931022, 15022331, 120331, 0, 0}},
      {"bob", "Bob Tennant", {42, 301233, 99120, 0, 0, 822310, 1200}},
      {"carol", "Carol O'Hara", {0, 0, 0, 0, 0, 0, 0}}},
     "staff", {"alice@brennoway.example", "bob@brennoway.example", "carol@brennoway.example"}},
    {"sales.brennoway.example", "192.0.2.25", nullptr,
     {{"orders", "Order Desk", {1822, 9120331, 7120881, 0, 0, 0, 0}},
      {"dave", "Dave Lin", {77, 512003, 210332, 3320111, 40112, 0, 0}},
      {nullptr, nullptr, {}},
      {nullptr, nullptr, {}}},
     "customers", {"announce@partner.example.net", "\"Smith, J\"@customer.example", nullptr}},
    {"lab.example.org", "198.51.100.7", "labs.example.org",
     {{"eve", "Eve Sanders", {5, 20331, 8120, 120, 88, 70221, 3010}},
      {"build", "Build Robot", {920, 120331221, 800221, 0, 0, 0, 0}},
      {nullptr, nullptr, {}},
      {nullptr, nullptr, {}}},
     "builds", {"build@lab.example.org", "eve@lab.example.org", nullptr}},
};

bool setDomainNumber(_tDomain* d, const char* name, uint32_t value)
{
    return SetDomainProperty(d, VB_TYPE_DWORD, name, &value, 4) != 0;
}

bool setDomainText(_tDomain* d, const char* name, const char* value)
{
    return SetDomainProperty(d, VB_TYPE_STRING, name, value, uint32_t(std::strlen(value) + 1)) != 0;
}

bool seedDomain(_tMailServer* s, const DemoDomain& dd)
{
    if (!CreateDomain(s, dd.name) && GetLastError() != VB_ERROR_ALREADY_EXISTS)
        return false;
    _tDomain* d = OpenDomain(s, dd.name);
    if (!d)
        return false;
    const std::string base = std::string("/var/spool/velbrook/") + dd.name;
    bool ok = setDomainText(d, "MailInBoxDir", (base + "/mailboxes").c_str())
              && setDomainText(d, "MailListDir", (base + "/lists").c_str())
              && setDomainNumber(d, "LocalFailuresToPostmaster", 1) && setDomainNumber(d, "MaxMailboxes", 500)
              && setDomainNumber(d, "MaxMailLists", 50) && setDomainNumber(d, "QuotaLimit", 0xFFFFFFFFu)
              && setDomainNumber(d, "QuotaTrigger", 0xFFFFFFFFu) && setDomainNumber(d, "QuotaDefaultLimit", 102400)
              && setDomainNumber(d, "QuotaDefaultTrigger", 92160) && setDomainNumber(d, "QuotaRealTime", 0)
              && setDomainNumber(d, "MultiLevelMailboxDirs", 0) && setDomainNumber(d, "CalendarRemit", 2)
              && setDomainNumber(d, "QuotaMsgSize", 48211) && setDomainNumber(d, "QuotaNoMsgs", 1204)
              && setDomainNumber(d, "StatisticsDate", uint32_t(std::time(nullptr)) - 86400u * 9)
              && setDomainNumber(d, "RCPTCommands", 2211) && setDomainNumber(d, "SMTPBytesReceived", 18420331)
              && setDomainNumber(d, "SMTPBytesSent", 9120442) && setDomainNumber(d, "SMTPBytesRelayed", 1203311)
              && setDomainNumber(d, "IMAPBytesSent", 15022331) && setDomainNumber(d, "IMAPBytesReceived", 120331)
              && setDomainNumber(d, "POPBytesSent", 827430) && setDomainNumber(d, "POPBytesReceived", 1200);
    if (ok && *dd.ipAddress)
        ok = setDomainText(d, "IpAddress", dd.ipAddress);
    CloseDomain(d);
    if (ok && dd.synonym && !CreateDomainSynonym(s, dd.name, dd.synonym) && GetLastError() != VB_ERROR_ALREADY_EXISTS)
        ok = false;
    for (const DemoMailbox& m : dd.mailboxes) {
        if (!ok || !m.local)
            break;
        const std::string address = std::string(m.local) + "@" + dd.name;
        if (!CreateMailbox(s, address.c_str()) && GetLastError() != VB_ERROR_ALREADY_EXISTS)
            return false;
        _tMailbox* mb = OpenMailbox(s, address.c_str());
        if (!mb)
            return false;
        const uint32_t one = 1, now = uint32_t(std::time(nullptr));
        ok = SetMailboxProperty(mb, VB_TYPE_STRING, "FullName", m.fullName, uint32_t(std::strlen(m.fullName) + 1))
             && SetMailboxProperty(mb, VB_TYPE_DWORD, "SpamScannerType", &one, 4)
             && SetMailboxProperty(mb, VB_TYPE_DWORD, "CalendarType", &one, 4)
             && SetMailboxProperty(mb, VB_TYPE_DWORD, "StatisticsDate", &now, 4)
             && SetMailboxPassword(mb, (std::string(m.local) + "-Demo-2024").c_str());
        for (int i = 0; ok && i < 7; ++i)
            ok = SetMailboxProperty(mb, VB_TYPE_DWORD, vb::kTrafficCounterNames[i], &m.counters[i], 4) != 0;
        CloseMailbox(mb);
    }
    if (ok && dd.list) {
        if (!CreateMailingList(s, dd.list, dd.name) && GetLastError() != VB_ERROR_ALREADY_EXISTS)
            return false;
        _tMailingList* l = OpenMailingList(s, dd.list, dd.name);
        if (!l)
            return false;
        const char description[] = "Demonstration list";
        ok = SetMailingListProperty(l, VB_TYPE_STRING, "Description", description, sizeof description) != 0;
        for (const char* member : dd.members)
            if (ok && member && !AddMailingListMember(l, member) && GetLastError() != VB_ERROR_ALREADY_EXISTS)
                ok = false;
        CloseMailingList(l);
    }
    return ok;
}


// Mailing lists of the first domain beyond its staff list: a discussion list with its digest, an
// announcement list without a roster, and a large newsletter list.
struct DemoList {
    const char* name;
    uint32_t listKind;
    uint32_t members;
};

const DemoList kLists[] = {
    {"news", 1, 3},
    {"news-digest", 1, 2},
    {"announce", 2, 0},
    {"newsletter", 1, 100000},
};

bool setListNumber(_tMailingList* l, const char* name, uint32_t value)
{
    return SetMailingListProperty(l, VB_TYPE_DWORD, name, &value, 4) != 0;
}

bool setListText(_tMailingList* l, const char* name, const char* value)
{
    return SetMailingListProperty(l, VB_TYPE_STRING, name, value, uint32_t(std::strlen(value) + 1)) != 0;
}

bool seedList(_tMailServer* s, const char* domain, const DemoList& dl)
{
    if (!CreateMailingList(s, dl.name, domain) && GetLastError() != VB_ERROR_ALREADY_EXISTS)
        return false;
    _tMailingList* l = OpenMailingList(s, dl.name, domain);
    if (!l)
        return false;
    const std::string moderator = std::string("alice@") + domain;
    bool ok = setListNumber(l, "ListKind", dl.listKind) && setListNumber(l, "WhoCanSend", dl.listKind == 2 ? 3 : 1)
              && setListNumber(l, "ReplyToList", 1) && setListNumber(l, "MaxMessageSize", 2097152)
              && setListNumber(l, "UserJoinAllowed", 1) && setListNumber(l, "UserLeaveAllowed", 1)
              && setListNumber(l, "BounceAction", 1) && setListText(l, "Moderator", moderator.c_str())
              && setListText(l, "SubjectPrefix", (std::string("[") + dl.name + "]").c_str());
    // A list without a roster reaches the domain's mailboxes through its membership rules.
    if (ok && dl.listKind == 2) {
        _tMembershipConfig* rules = LoadMailingListMembershipConfiguration(l);
        ok = rules && EditMailingListMembershipConfiguration(rules, "Domains", domain)
             && EditMailingListMembershipConfiguration(rules, "ExcludeMailboxes", "postmaster")
             && SaveMailingListMembershipConfiguration(l, rules);
        FreeMailingListMembershipConfiguration(rules);
    }
    vb::Snapshot list;
    uint64_t present = 0;
    if (ok && dl.members)
        ok = s->connector->loadSnapshot(vb::Kind::MailingList, domain, dl.name, list) == 0
             && s->connector->countObjects(vb::Kind::Member, list.object.id, present) == 0;
    // A second seed keeps the members that are there.
    if (ok && dl.members && present == 0)
        ok = s->connector->addNumberedMembers(list.object.id, "FullName", "reader", "subscribers.example",
                                              "Reader", dl.members) == 0;
    CloseMailingList(l);
    return ok;
}

} // namespace

bool vbSeedDemoObjects(_tMailServer* server)
{
    for (const DemoDomain& d : kDomains)
        if (!seedDomain(server, d))
            return false;
    for (const DemoList& l : kLists)
        if (!seedList(server, kDomains[0].name, l))
            return false;
    return seedRoutes(server) && seedAliasMapping(server);
}
