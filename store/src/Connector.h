// The connector: every access to the database behind one interface, so that the C operations stay
// thin and a PostgreSQL connector can take the place of the SQLite one.
#ifndef VB_STORE_CONNECTOR_H
#define VB_STORE_CONNECTOR_H

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velbrook/ServerStore.h"

namespace vb {

// A typed value. Text holds no terminating zero; a multi-string is its list of elements.
struct Value {
    uint32_t type = 0;
    std::string text;
    uint32_t number = 0;
    std::vector<std::string> items;
};

// What a stored object is. The server itself is object 0.
enum class Kind : int { Server = 0, Domain = 1, Mailbox = 2, MailingList = 3, Member = 4 };

struct ObjectRef {
    int64_t id = 0;
    Kind kind = Kind::Server;
    int64_t parent = 0;
    std::string name;
};

// An opened object and every property of it, as its single read brought them (keyed by folded name).
struct Snapshot {
    ObjectRef object;
    std::map<std::string, Value> values;
};

struct ServiceRecord {
    std::string name;
    std::string controller; // "builtin" or "systemd"
    std::string unit;
    uint32_t state = 1;
    uint32_t pendingState = 0;
    uint32_t finalState = 0;
    int64_t pendingUntilMs = 0;
};

struct RouteHost {
    std::string host;
    uint32_t port = 0;
    uint32_t preference = 0;
};

struct Route {
    std::string domainMask;
    uint32_t rule = 0;
    std::vector<RouteHost> hosts;
};

struct AliasEntry {
    std::string alias;
    std::string target;
};

// The counters of the traffic report, in the order of its columns.
struct TrafficRow {
    std::string mailbox;
    std::string domain;
    uint32_t counters[7] = {};
};

struct TrafficQuery {
    int64_t domain = -1; // -1: every domain
    uint32_t thresholds[7] = {};
};

struct ConnectorInfo {
    uint32_t connectorType = 0;
    uint32_t schemaVersion = 0;
    bool readOnly = false;
    bool clustered = false;
};

// Every method returns 0 on success or the last-error code of the failure.
class Connector {
public:
    virtual ~Connector() = default;

    virtual ConnectorInfo info() const = 0;
    virtual std::string location() const = 0;
    // Called by every C operation first; a fault-injecting connector fails it here.
    virtual uint32_t intercept(const char* operation, const char* section, const char* name,
                               bool* forceMoreData)
    {
        return 0;
    }

    virtual uint32_t begin() = 0;
    virtual uint32_t commit() = 0;
    virtual void rollback() = 0;

    // ---- properties of the server (owner 0, with sections) and of objects (section "")
    virtual uint32_t getProperty(const ObjectRef& owner, std::string_view section, std::string_view name,
                                 Value& value) = 0;
    virtual uint32_t setProperty(const ObjectRef& owner, std::string_view section, std::string_view name,
                                 const Value& value) = 0;
    virtual uint32_t deleteProperty(const ObjectRef& owner, std::string_view section, std::string_view name) = 0;
    virtual uint32_t propertyNames(const ObjectRef& owner, std::string_view section,
                                   std::vector<std::string>& names) = 0;
    virtual uint32_t sectionNames(std::vector<std::string>& sections) = 0;
    virtual uint32_t listLookup(const ObjectRef& owner, std::string_view section, std::string_view name,
                                std::string_view element) = 0;
    virtual uint32_t listAdd(const ObjectRef& owner, std::string_view section, std::string_view name,
                             std::string_view element) = 0;
    virtual uint32_t listRemove(const ObjectRef& owner, std::string_view section, std::string_view name,
                                std::string_view element) = 0;

    // ---- objects: domains, mailboxes, lists, members
    // Reads the object and every property of it in one round trip.
    virtual uint32_t loadSnapshot(Kind kind, std::string_view parentName, std::string_view name,
                                  Snapshot& snapshot) = 0;
    virtual uint32_t findObject(Kind kind, int64_t parent, std::string_view name, ObjectRef& object) = 0;
    virtual uint32_t createObject(Kind kind, int64_t parent, std::string_view name, ObjectRef& object) = 0;
    virtual uint32_t destroyObject(const ObjectRef& object) = 0;
    virtual uint32_t objectNames(Kind kind, int64_t parent, std::vector<std::string>& names) = 0;
    virtual uint32_t countObjects(Kind kind, int64_t parent, uint64_t& count) = 0;
    // Mailboxes (of one domain, or all when domain < 0) whose property name holds a non-zero number.
    virtual uint32_t countMailboxesWith(int64_t domain, std::string_view property, uint64_t& count) = 0;
    // The first domain (by name) whose property holds this text, compared without regard to case.
    virtual uint32_t findDomainByProperty(std::string_view property, std::string_view text, ObjectRef& domain) = 0;
    virtual uint32_t firstObject(Kind kind, int64_t parent, ObjectRef& object) = 0;
    // The members of a list in the order they were added, each with the text of one of its properties
    // (empty when it has none), in one read.
    virtual uint32_t memberRoster(int64_t list, std::string_view property,
                                  std::vector<std::pair<std::string, std::string>>& rows) = 0;
    // Adds members, each with a text property when its value is not empty, all or none. keepGoing (may
    // be empty) is called now and then with the number added; false interrupts with VB_ERROR_CANCELLED.
    // On failure failedIndex is the member at fault (rows.size() when none is).
    virtual uint32_t addMembers(int64_t list, std::string_view property,
                                const std::vector<std::pair<std::string, std::string>>& rows,
                                const std::function<bool(size_t)>& keepGoing, size_t& failedIndex) = 0;

    virtual uint32_t getPassword(const ObjectRef& mailbox, std::string& sealed) = 0;
    virtual uint32_t setPassword(const ObjectRef& mailbox, std::string_view sealed) = 0;

    virtual uint32_t synonymNames(int64_t domain, std::vector<std::string>& names) = 0;
    virtual uint32_t findSynonym(std::string_view synonym, ObjectRef& domain) = 0;
    virtual uint32_t createSynonym(int64_t domain, std::string_view synonym) = 0;
    virtual uint32_t destroySynonym(std::string_view synonym) = 0;
    // Turns a synonym into a domain of its own, in one transaction.
    virtual uint32_t convertSynonym(std::string_view synonym) = 0;

    virtual uint32_t aliasNamesOfDomain(int64_t domain, std::vector<std::string>& names) = 0;
    virtual uint32_t aliasNamesOfMailbox(int64_t mailbox, std::vector<std::string>& names) = 0;
    virtual uint32_t createAlias(const ObjectRef& mailbox, std::string_view alias) = 0;
    virtual uint32_t destroyAlias(const ObjectRef& mailbox, std::string_view alias) = 0;
    virtual uint32_t aliasOwner(int64_t domain, std::string_view alias, ObjectRef& mailbox) = 0;

    // Removes members by name, all or none; failedIndex as for addMembers (VB_ERROR_FILE_NOT_FOUND for a
    // name that is not a member).
    virtual uint32_t removeMembers(int64_t list, const std::vector<std::string>& names, size_t& failedIndex) = 0;
    // Bulk loading of numbered members ("<prefix><n>@<domain>", property "<label> <n>") for
    // benchmarks and the demo configuration, computed inside the database.
    virtual uint32_t addNumberedMembers(int64_t list, std::string_view property, std::string_view prefix,
                                        std::string_view domain, std::string_view label, uint32_t count) = 0;

    // ---- services
    virtual uint32_t services(std::vector<ServiceRecord>& services) = 0;
    virtual uint32_t getService(std::string_view name, ServiceRecord& service) = 0;
    virtual uint32_t putService(const ServiceRecord& service) = 0;
    virtual uint32_t removeService(std::string_view name) = 0;

    // ---- tables replaced whole
    virtual uint32_t loadRoutes(std::vector<Route>& routes) = 0;
    virtual uint32_t saveRoutes(const std::vector<Route>& routes) = 0;
    virtual uint32_t loadAliasMapping(std::vector<AliasEntry>& entries) = 0;
    virtual uint32_t saveAliasMapping(const std::vector<AliasEntry>& entries) = 0;

    // ---- retry requests
    virtual uint32_t addRetries(const std::vector<std::string>& names) = 0;
    virtual uint32_t pendingRetries(std::vector<std::string>& names) = 0;

    // ---- traffic report: selects into a temporary table named after id, then streams it.
    // keepGoing (may be empty) is called now and then while the selection runs; false interrupts it
    // with VB_ERROR_CANCELLED and nothing selected is kept.
    virtual uint32_t trafficSelect(uint64_t id, const TrafficQuery& query, uint64_t& rows,
                                   const std::function<bool()>& keepGoing) = 0;
    virtual uint32_t trafficRows(uint64_t id, const std::function<bool(const TrafficRow&)>& row) = 0;
    virtual void trafficDrop(uint64_t id) = 0;
    // Bulk loading of counters (tests, benchmarks and the demo configuration).
    virtual uint32_t setTraffic(const ObjectRef& mailbox, const uint32_t counters[7]) = 0;
};

// The names of the mailbox counters, in the order of TrafficRow::counters and of the report's columns.
extern const char* const kTrafficCounterNames[7];
int trafficCounterIndex(std::string_view name);

std::unique_ptr<Connector> openSqliteConnector(const std::string& path, uint32_t& error);

} // namespace vb

#endif
