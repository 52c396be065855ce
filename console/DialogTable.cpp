#include "DialogTable.h"

const std::vector<DialogRow>& dialogTable()
{
    static const std::vector<DialogRow> rows = {
        {"Server settings", "EditDirectories", "Mail directory locations", EntryArgs::None},
        {"Server settings", "EditAgents", "Agents", EntryArgs::None},
        {"Server settings", "EditQuotas", "Quotas", EntryArgs::None},
        {"Server settings", "EditCalendaring", "Calendaring", EntryArgs::None},
        {"Server settings", "EditAliases", "Server aliases", EntryArgs::None},
        {"Server settings", "EditTrafficCounters", "Traffic counters", EntryArgs::None},
        {"Server settings", "EditConfigConnector", "Configuration connector", EntryArgs::None},
        {"Services", "ServiceControlDialog", "Service control", EntryArgs::ServiceControl},
        {"Services", "EditService", "Service properties", EntryArgs::Service},
        {"Delivery", "EditElapsedTimeSchedule", "Delivery retry schedule", EntryArgs::None},
        {"Delivery", "EditDialupSchedule", "Time-of-day delivery schedule", EntryArgs::None},
        {"Delivery", "ScheduleManagementDialog", "Delivery schedule management", EntryArgs::None},
        {"Delivery", "EditRoutes", "Routing", EntryArgs::None},
        {"Logging", "EditFileLogConfig", "File log", EntryArgs::None},
        {"Logging", "EditDbLogConfig", "Database log", EntryArgs::None},
        {"Logging", "EditLogFlags", "Log flags", EntryArgs::LogFlags},
        {"Security", "EditSecurity", "Security properties", EntryArgs::None},
        {"Security", "AntiSpamWizard", "Anti-spam wizard", EntryArgs::None},
        {"Security", "AntiRelayWizard", "Anti-relay wizard", EntryArgs::None},
        {"Security", "AntiDoSWizard", "Anti-DoS wizard", EntryArgs::None},
        {"Security", "EditServerSubnetList", "Trusted subnets of the SMTP receiver", EntryArgs::SubnetList},
        {"Security", "EditServerEmailAddressLists", "Server address lists", EntryArgs::ServerList},
        {"Security", "EditServerWirelessCarrierListManager", "Wireless carriers", EntryArgs::None},
        {"Domains", "EditDomain", "Domain properties", EntryArgs::Domain},
        {"Domains", "EditDomainEmailAddressLists", "Domain address lists", EntryArgs::DomainList},
        {"Mailboxes", "EditMailbox", "Mailbox properties", EntryArgs::Mailbox},
        {"Mailboxes", "EditMailboxEmailAddressLists", "Mailbox address lists", EntryArgs::MailboxList},
        {"Mailing lists", "EditMailList", "Mailing list properties", EntryArgs::MailList},
    };
    return rows;
}
