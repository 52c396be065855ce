// Bulk loading of mailboxes and the server statistics, on the embedded connector.
#include "SqliteConnector.h"
#include "Util_p.h"

namespace vb {

namespace {

// A mailbox's size and its limits as a query sees them: its own "QuotaLimit" / "QuotaTrigger", else
// its domain's "QuotaDefaultLimit" / "QuotaDefaultTrigger", else the server's "QuotaDomainDefaultLimit"
// / "QuotaDomainDefaultTrigger"; 4294967295 at a level passes the choice to the next, and at the last
// level means no limit, as 0 does at any level. The server's and the domains' limits are worked out once
// (materialised), not once per mailbox.
const char* const kQuotaCountsSql = R"SQL(
WITH srv AS MATERIALIZED (
  SELECT coalesce((SELECT value FROM property WHERE owner = 0 AND section_key = '' AND type = 4
                   AND name_key = 'quotadomaindefaultlimit'), 4294967295) AS lim,
         coalesce((SELECT value FROM property WHERE owner = 0 AND section_key = '' AND type = 4
                   AND name_key = 'quotadomaindefaulttrigger'), 4294967295) AS trg),
dom AS MATERIALIZED (
  SELECT o.id,
         coalesce((SELECT value FROM property WHERE owner = o.id AND section_key = '' AND type = 4
                   AND name_key = 'quotadefaultlimit'), 4294967295) AS lim,
         coalesce((SELECT value FROM property WHERE owner = o.id AND section_key = '' AND type = 4
                   AND name_key = 'quotadefaulttrigger'), 4294967295) AS trg
  FROM object o WHERE o.kind = 1),
mb AS (
  SELECT coalesce(sz.value, 0) AS size,
         CASE WHEN coalesce(l.value, 4294967295) <> 4294967295 THEN l.value
              WHEN dom.lim <> 4294967295 THEN dom.lim
              WHEN srv.lim <> 4294967295 THEN srv.lim ELSE 0 END AS lim,
         CASE WHEN coalesce(t.value, 4294967295) <> 4294967295 THEN t.value
              WHEN dom.trg <> 4294967295 THEN dom.trg
              WHEN srv.trg <> 4294967295 THEN srv.trg ELSE 0 END AS trg
  FROM object o
  JOIN dom ON dom.id = o.parent
  CROSS JOIN srv
  LEFT JOIN property sz ON sz.owner = o.id AND sz.section_key = '' AND sz.name_key = 'quotamsgsize' AND sz.type = 4
  LEFT JOIN property l ON l.owner = o.id AND l.section_key = '' AND l.name_key = 'quotalimit' AND l.type = 4
  LEFT JOIN property t ON t.owner = o.id AND t.section_key = '' AND t.name_key = 'quotatrigger' AND t.type = 4
  WHERE o.kind = 2)
SELECT coalesce(sum(lim > 0), 0),
       coalesce(sum(lim > 0 AND size >= lim), 0),
       coalesce(sum(lim > 0 AND size < lim AND trg > 0 AND size >= trg), 0)
FROM mb
)SQL";

} // namespace

uint32_t SqliteConnector::insertBulkMailbox(int64_t domain, const BulkMailbox& row)
{
    Stmt o = prepare("INSERT INTO object(kind, parent, name_key, name) VALUES (2, ?, ?, ?)");
    o.bind(1, domain).bind(2, fold(row.local)).bind(3, row.local);
    if (uint32_t e = stepDone(o))
        return e;
    const int64_t id = sqlite3_last_insert_rowid(m_db);
    Stmt text = prepare("INSERT INTO property(owner, section_key, name_key, section, name, type, value) "
                        "VALUES (?, '', 'fullname', '', 'FullName', 1, ?)");
    text.bind(1, id).bind(2, row.fullName);
    if (uint32_t e = stepDone(text))
        return e;
    struct { const char* key; const char* name; uint32_t value; bool store; } numbers[] = {
        {"quotamsgsize", "QuotaMsgSize", row.sizeKb, true},
        {"quotanomsgs", "QuotaNoMsgs", row.messages, true},
        {"quotalimit", "QuotaLimit", row.quotaLimit, row.quotaLimit != 0xFFFFFFFFu},
    };
    for (const auto& n : numbers) {
        if (!n.store)
            continue;
        Stmt p = prepare("INSERT INTO property(owner, section_key, name_key, section, name, type, value) "
                         "VALUES (?, '', ?, '', ?, 4, ?)");
        p.bind(1, id).bind(2, std::string_view(n.key)).bind(3, std::string_view(n.name)).bind(4, int64_t(n.value));
        if (uint32_t e = stepDone(p))
            return e;
    }
    Stmt t = prepare("INSERT INTO traffic(mailbox, domain, c0, c1, c2, c3, c4, c5, c6) "
                     "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    t.bind(1, id).bind(2, domain);
    for (int i = 0; i < 7; ++i)
        t.bind(3 + i, int64_t(row.counters[i]));
    return stepDone(t);
}

uint32_t SqliteConnector::bulkMailboxes(int64_t domain, uint32_t count,
                                        const std::function<bool(uint32_t, BulkMailbox&)>& next)
{
    if (uint32_t e = begin())
        return e;
    uint32_t error = 0;
    BulkMailbox row;
    for (uint32_t i = 0; i < count && !error; ++i) {
        row = BulkMailbox{};
        if (!next(i, row))
            error = VB_ERROR_CANCELLED;
        else
            error = insertBulkMailbox(domain, row);
    }
    if (!error)
        error = updateMailboxCount(domain, int64_t(count));
    if (error) {
        rollback();
        return error;
    }
    return commit();
}

uint32_t SqliteConnector::objectCounts(ObjectCounts& counts)
{
    std::lock_guard lock(m_mutex);
    // Each count walks its part of the (kind, parent, name) index only.
    Stmt s = prepare("SELECT (SELECT count(*) FROM object WHERE kind = 1), (SELECT count(*) FROM object WHERE kind = 2), "
                     "(SELECT count(*) FROM object WHERE kind = 3)");
    const int rc = s.step();
    if (rc != SQLITE_ROW)
        return fail(rc);
    counts.domains = uint64_t(s.int64(0));
    counts.mailboxes = uint64_t(s.int64(1));
    counts.mailingLists = uint64_t(s.int64(2));
    return 0;
}

uint32_t SqliteConnector::quotaCounts(QuotaCounts& counts)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare(kQuotaCountsSql);
    if (!s)
        return VB_ERROR_STORE_FAILURE;
    const int rc = s.step();
    if (rc != SQLITE_ROW)
        return fail(rc);
    counts.limited = uint64_t(s.int64(0));
    counts.over = uint64_t(s.int64(1));
    counts.near = uint64_t(s.int64(2));
    return 0;
}

uint32_t SqliteConnector::trafficTotals(uint64_t totals[7])
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT coalesce(sum(c0), 0), coalesce(sum(c1), 0), coalesce(sum(c2), 0), coalesce(sum(c3), 0), "
                     "coalesce(sum(c4), 0), coalesce(sum(c5), 0), coalesce(sum(c6), 0) FROM traffic");
    const int rc = s.step();
    if (rc != SQLITE_ROW)
        return fail(rc);
    for (int i = 0; i < 7; ++i)
        totals[i] = uint64_t(s.int64(i));
    return 0;
}

uint32_t SqliteConnector::largestMailboxes(uint32_t limit, std::vector<MailboxUsage>& rows)
{
    std::lock_guard lock(m_mutex);
    Stmt s = prepare("SELECT o.name, d.name, p.value, coalesce(n.value, 0) FROM property p "
                     "JOIN object o ON o.id = p.owner AND o.kind = 2 JOIN object d ON d.id = o.parent "
                     "LEFT JOIN property n ON n.owner = o.id AND n.section_key = '' AND n.name_key = 'quotanomsgs' "
                     "AND n.type = 4 "
                     "WHERE p.section_key = '' AND p.name_key = 'quotamsgsize' AND p.type = 4 AND p.value > 0 "
                     "ORDER BY p.value DESC, d.name_key, o.name_key LIMIT ?");
    s.bind(1, int64_t(limit));
    int rc;
    while ((rc = s.step()) == SQLITE_ROW)
        rows.push_back(MailboxUsage{s.text(0), s.text(1), uint32_t(s.int64(2)), uint32_t(s.int64(3))});
    return rc == SQLITE_DONE ? 0 : fail(rc);
}

} // namespace vb
