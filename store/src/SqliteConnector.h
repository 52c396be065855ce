// The embedded connector: one SQLite file per configuration.
#ifndef VB_STORE_SQLITECONNECTOR_H
#define VB_STORE_SQLITECONNECTOR_H

#include <mutex>
#include <unordered_map>

#include <sqlite3.h>

#include "Connector.h"

namespace vb {

// A prepared statement taken from the connector's cache, reset and unbound when it goes out of scope.
class Stmt {
public:
    explicit Stmt(sqlite3_stmt* s) : m_s(s) {}
    ~Stmt();
    Stmt(const Stmt&) = delete;
    Stmt& operator=(const Stmt&) = delete;

    explicit operator bool() const { return m_s != nullptr; }
    sqlite3_stmt* get() const { return m_s; }
    Stmt& bind(int i, int64_t v);
    Stmt& bind(int i, std::string_view text);
    Stmt& bindBlob(int i, std::string_view bytes);
    Stmt& bindNull(int i);
    int step() { return sqlite3_step(m_s); }
    void reset() { sqlite3_reset(m_s); }
    int64_t int64(int col) const { return sqlite3_column_int64(m_s, col); }
    std::string text(int col) const;
    int type(int col) const { return sqlite3_column_type(m_s, col); }

private:
    sqlite3_stmt* m_s;
};

class SqliteConnector final : public Connector {
public:
    static constexpr uint32_t kSchemaVersion = 1;

    ~SqliteConnector() override;
    static std::unique_ptr<SqliteConnector> open(const std::string& path, uint32_t& error);

    ConnectorInfo info() const override;
    std::string location() const override { return m_path; }

    uint32_t begin() override;
    uint32_t commit() override;
    void rollback() override;

    uint32_t getProperty(const ObjectRef& owner, std::string_view section, std::string_view name,
                         Value& value) override;
    uint32_t setProperty(const ObjectRef& owner, std::string_view section, std::string_view name,
                         const Value& value) override;
    uint32_t deleteProperty(const ObjectRef& owner, std::string_view section, std::string_view name) override;
    uint32_t propertyNames(const ObjectRef& owner, std::string_view section,
                           std::vector<std::string>& names) override;
    uint32_t sectionNames(std::vector<std::string>& sections) override;
    uint32_t listLookup(const ObjectRef& owner, std::string_view section, std::string_view name,
                        std::string_view element) override;
    uint32_t listAdd(const ObjectRef& owner, std::string_view section, std::string_view name,
                     std::string_view element) override;
    uint32_t listRemove(const ObjectRef& owner, std::string_view section, std::string_view name,
                        std::string_view element) override;

    uint32_t loadSnapshot(Kind kind, std::string_view parentName, std::string_view name,
                          Snapshot& snapshot) override;
    uint32_t findObject(Kind kind, int64_t parent, std::string_view name, ObjectRef& object) override;
    uint32_t createObject(Kind kind, int64_t parent, std::string_view name, ObjectRef& object) override;
    uint32_t destroyObject(const ObjectRef& object) override;
    uint32_t objectNames(Kind kind, int64_t parent, std::vector<std::string>& names) override;
    uint32_t countObjects(Kind kind, int64_t parent, uint64_t& count) override;
    uint32_t countMailboxesWith(int64_t domain, std::string_view property, uint64_t& count) override;
    uint32_t findDomainByProperty(std::string_view property, std::string_view text, ObjectRef& domain) override;
    uint32_t firstObject(Kind kind, int64_t parent, ObjectRef& object) override;
    uint32_t memberRoster(int64_t list, std::string_view property,
                          std::vector<std::pair<std::string, std::string>>& rows) override;
    uint32_t removeMembers(int64_t list, const std::vector<std::string>& names, size_t& failedIndex) override;
    uint32_t addNumberedMembers(int64_t list, std::string_view property, std::string_view prefix,
                                std::string_view domain, std::string_view label, uint32_t count) override;
    uint32_t addMembers(int64_t list, std::string_view property,
                        const std::vector<std::pair<std::string, std::string>>& rows,
                        const std::function<bool(size_t)>& keepGoing, size_t& failedIndex) override;

    uint32_t getPassword(const ObjectRef& mailbox, std::string& sealed) override;
    uint32_t setPassword(const ObjectRef& mailbox, std::string_view sealed) override;

    uint32_t synonymNames(int64_t domain, std::vector<std::string>& names) override;
    uint32_t findSynonym(std::string_view synonym, ObjectRef& domain) override;
    uint32_t createSynonym(int64_t domain, std::string_view synonym) override;
    uint32_t destroySynonym(std::string_view synonym) override;
    uint32_t convertSynonym(std::string_view synonym) override;

    uint32_t aliasNamesOfDomain(int64_t domain, std::vector<std::string>& names) override;
    uint32_t aliasNamesOfMailbox(int64_t mailbox, std::vector<std::string>& names) override;
    uint32_t createAlias(const ObjectRef& mailbox, std::string_view alias) override;
    uint32_t destroyAlias(const ObjectRef& mailbox, std::string_view alias) override;
    uint32_t aliasOwner(int64_t domain, std::string_view alias, ObjectRef& mailbox) override;

    uint32_t services(std::vector<ServiceRecord>& services) override;
    uint32_t getService(std::string_view name, ServiceRecord& service) override;
    uint32_t putService(const ServiceRecord& service) override;
    uint32_t removeService(std::string_view name) override;

    uint32_t loadRoutes(std::vector<Route>& routes) override;
    uint32_t saveRoutes(const std::vector<Route>& routes) override;
    uint32_t loadAliasMapping(std::vector<AliasEntry>& entries) override;
    uint32_t saveAliasMapping(const std::vector<AliasEntry>& entries) override;

    uint32_t addRetries(const std::vector<std::string>& names) override;
    uint32_t pendingRetries(std::vector<std::string>& names) override;

    uint32_t trafficSelect(uint64_t id, const TrafficQuery& query, uint64_t& rows,
                           const std::function<bool()>& keepGoing) override;
    uint32_t trafficRows(uint64_t id, const std::function<bool(const TrafficRow&)>& row) override;
    void trafficDrop(uint64_t id) override;
    uint32_t setTraffic(const ObjectRef& mailbox, const uint32_t counters[7]) override;

private:
    SqliteConnector() = default;
    uint32_t initialise(uint32_t& error);
    uint32_t migrate(uint32_t from);
    Stmt prepare(const char* sql);
    uint32_t exec(const char* sql);
    uint32_t fail(int rc);
    uint32_t readOnlyError() const;
    uint32_t insertProperty(int64_t owner, std::string_view section, std::string_view name, const Value& v);
    uint32_t getCounter(const ObjectRef& mailbox, int counter, Value& value);
    uint32_t setCounter(const ObjectRef& mailbox, int counter, uint32_t number);
    bool synonymExists(std::string_view name);

    // The shapes every operation shares. A step that returns no row; one that must change a row (else
    // notFound); every row's first column as text; an (id, name) row as an object; a count(*) row.
    uint32_t stepDone(Stmt& s);
    uint32_t stepChanged(Stmt& s, uint32_t notFound);
    uint32_t readTexts(Stmt& s, std::vector<std::string>& out);
    uint32_t readObject(Stmt& s, Kind kind, int64_t parent, ObjectRef& object);
    uint32_t readCount(Stmt& s, uint64_t& count);
    // Runs work under the lock; a read-only store refuses it with VB_ERROR_ACCESS_DENIED.
    template <class Work>
    uint32_t writing(Work&& work);
    // The same, all or nothing: a failure of work rolls back what it did.
    template <class Work>
    uint32_t transaction(Work&& work);
    // Prepares sql once per item, lets bind fill it and steps it; stops at the first failure.
    template <class Items, class Bind>
    uint32_t insertEach(const char* sql, const Items& items, Bind&& bind);
    uint32_t updateMailboxCount(int64_t domain, int64_t delta);

    // A transaction that nests inside one the caller opened with begin().
    class Tx;

    sqlite3* m_db = nullptr;
    std::string m_path;
    bool m_readOnly = false;
    int m_depth = 0;
    uint32_t m_version = 0;
    std::recursive_mutex m_mutex;
    std::unordered_map<const char*, sqlite3_stmt*> m_cache;
};

} // namespace vb

#endif
