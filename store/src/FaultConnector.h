// A connector that forwards to the real one and fails chosen operations, for tests.
#ifndef VB_STORE_FAULTCONNECTOR_H
#define VB_STORE_FAULTCONNECTOR_H

#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "Connector.h"

namespace vb {

class FaultConnector final : public Connector {
public:
    explicit FaultConnector(std::unique_ptr<Connector> inner) : m_inner(std::move(inner)) {}

    void injectFault(const char* operation, const char* section, const char* name, uint32_t code,
                     uint32_t times);
    void forceMoreData(const char* section, const char* name, uint32_t times);
    void overrideInfo(const ConnectorInfo* info);
    uint32_t callCount(const char* operation) const;
    void clear();

    ConnectorInfo info() const override;
    std::string location() const override { return m_inner->location(); }
    uint32_t intercept(const char* operation, const char* section, const char* name,
                       bool* forceMoreData) override;

    uint32_t begin() override { return m_inner->begin(); }
    uint32_t commit() override { return m_inner->commit(); }
    void rollback() override { m_inner->rollback(); }

    uint32_t getProperty(const ObjectRef& o, std::string_view s, std::string_view n, Value& v) override
    {
        return m_inner->getProperty(o, s, n, v);
    }
    uint32_t setProperty(const ObjectRef& o, std::string_view s, std::string_view n, const Value& v) override
    {
        return m_inner->setProperty(o, s, n, v);
    }
    uint32_t deleteProperty(const ObjectRef& o, std::string_view s, std::string_view n) override
    {
        return m_inner->deleteProperty(o, s, n);
    }
    uint32_t propertyNames(const ObjectRef& o, std::string_view s, std::vector<std::string>& n) override
    {
        return m_inner->propertyNames(o, s, n);
    }
    uint32_t sectionNames(std::vector<std::string>& s) override { return m_inner->sectionNames(s); }
    uint32_t listLookup(const ObjectRef& o, std::string_view s, std::string_view n, std::string_view e) override
    {
        return m_inner->listLookup(o, s, n, e);
    }
    uint32_t listAdd(const ObjectRef& o, std::string_view s, std::string_view n, std::string_view e) override
    {
        return m_inner->listAdd(o, s, n, e);
    }
    uint32_t listRemove(const ObjectRef& o, std::string_view s, std::string_view n, std::string_view e) override
    {
        return m_inner->listRemove(o, s, n, e);
    }
    uint32_t loadSnapshot(Kind k, std::string_view p, std::string_view n, Snapshot& s) override
    {
        return m_inner->loadSnapshot(k, p, n, s);
    }
    uint32_t findObject(Kind k, int64_t p, std::string_view n, ObjectRef& o) override
    {
        return m_inner->findObject(k, p, n, o);
    }
    uint32_t createObject(Kind k, int64_t p, std::string_view n, ObjectRef& o) override
    {
        return m_inner->createObject(k, p, n, o);
    }
    uint32_t destroyObject(const ObjectRef& o) override { return m_inner->destroyObject(o); }
    uint32_t objectNames(Kind k, int64_t p, std::vector<std::string>& n) override
    {
        return m_inner->objectNames(k, p, n);
    }
    uint32_t countObjects(Kind k, int64_t p, uint64_t& c) override { return m_inner->countObjects(k, p, c); }
    uint32_t memberRoster(int64_t l, std::string_view p, std::vector<std::pair<std::string, std::string>>& r) override
    {
        return m_inner->memberRoster(l, p, r);
    }
    uint32_t removeMembers(int64_t l, const std::vector<std::string>& n, size_t& f) override
    {
        return m_inner->removeMembers(l, n, f);
    }
    uint32_t addNumberedMembers(int64_t l, std::string_view p, std::string_view x, std::string_view d,
                                std::string_view n, uint32_t c) override
    {
        return m_inner->addNumberedMembers(l, p, x, d, n, c);
    }
    uint32_t addMembers(int64_t l, std::string_view p, const std::vector<std::pair<std::string, std::string>>& r,
                        const std::function<bool(size_t)>& k, size_t& f) override
    {
        return m_inner->addMembers(l, p, r, k, f);
    }
    uint32_t countMailboxesWith(int64_t d, std::string_view p, uint64_t& c) override
    {
        return m_inner->countMailboxesWith(d, p, c);
    }
    uint32_t findDomainByProperty(std::string_view p, std::string_view t, ObjectRef& d) override
    {
        return m_inner->findDomainByProperty(p, t, d);
    }
    uint32_t firstObject(Kind k, int64_t p, ObjectRef& o) override { return m_inner->firstObject(k, p, o); }
    uint32_t getPassword(const ObjectRef& m, std::string& s) override { return m_inner->getPassword(m, s); }
    uint32_t setPassword(const ObjectRef& m, std::string_view s) override { return m_inner->setPassword(m, s); }
    uint32_t synonymNames(int64_t d, std::vector<std::string>& n) override { return m_inner->synonymNames(d, n); }
    uint32_t findSynonym(std::string_view s, ObjectRef& d) override { return m_inner->findSynonym(s, d); }
    uint32_t createSynonym(int64_t d, std::string_view s) override { return m_inner->createSynonym(d, s); }
    uint32_t destroySynonym(std::string_view s) override { return m_inner->destroySynonym(s); }
    uint32_t convertSynonym(std::string_view s) override { return m_inner->convertSynonym(s); }
    uint32_t aliasNamesOfDomain(int64_t d, std::vector<std::string>& n) override
    {
        return m_inner->aliasNamesOfDomain(d, n);
    }
    uint32_t aliasNamesOfMailbox(int64_t m, std::vector<std::string>& n) override
    {
        return m_inner->aliasNamesOfMailbox(m, n);
    }
    uint32_t createAlias(const ObjectRef& m, std::string_view a) override { return m_inner->createAlias(m, a); }
    uint32_t destroyAlias(const ObjectRef& m, std::string_view a) override { return m_inner->destroyAlias(m, a); }
    uint32_t aliasOwner(int64_t d, std::string_view a, ObjectRef& m) override { return m_inner->aliasOwner(d, a, m); }
    uint32_t services(std::vector<ServiceRecord>& s) override { return m_inner->services(s); }
    uint32_t getService(std::string_view n, ServiceRecord& s) override { return m_inner->getService(n, s); }
    uint32_t putService(const ServiceRecord& s) override { return m_inner->putService(s); }
    uint32_t removeService(std::string_view n) override { return m_inner->removeService(n); }
    uint32_t loadRoutes(std::vector<Route>& r) override { return m_inner->loadRoutes(r); }
    uint32_t saveRoutes(const std::vector<Route>& r) override { return m_inner->saveRoutes(r); }
    uint32_t loadAliasMapping(std::vector<AliasEntry>& e) override { return m_inner->loadAliasMapping(e); }
    uint32_t saveAliasMapping(const std::vector<AliasEntry>& e) override { return m_inner->saveAliasMapping(e); }
    uint32_t addRetries(const std::vector<std::string>& n) override { return m_inner->addRetries(n); }
    uint32_t pendingRetries(std::vector<std::string>& n) override { return m_inner->pendingRetries(n); }
    uint32_t trafficSelect(uint64_t id, const TrafficQuery& q, uint64_t& r, const std::function<bool()>& k) override
    {
        return m_inner->trafficSelect(id, q, r, k);
    }
    uint32_t trafficRows(uint64_t id, const std::function<bool(const TrafficRow&)>& r) override
    {
        return m_inner->trafficRows(id, r);
    }
    void trafficDrop(uint64_t id) override { m_inner->trafficDrop(id); }
    uint32_t setTraffic(const ObjectRef& m, const uint32_t c[7]) override { return m_inner->setTraffic(m, c); }

private:
    struct Fault {
        std::string operation; // folded; empty: the more-data fault of property reads
        std::optional<std::string> section, name;
        uint32_t code = 0;
        uint32_t remaining = 0; // 0: every call
        bool unlimited = false;
    };
    bool matches(const Fault& f, const char* section, const char* name) const;

    std::unique_ptr<Connector> m_inner;
    mutable std::mutex m_mutex;
    std::vector<Fault> m_faults;
    std::vector<Fault> m_moreData;
    std::optional<ConnectorInfo> m_info;
    std::map<std::string, uint32_t> m_calls;
};

} // namespace vb

#endif
