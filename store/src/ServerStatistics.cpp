// Server statistics.
#include "velbrook/ServerStatistics.h"

#include <algorithm>
#include <cstring>

#include "Handle_p.h"

using namespace vb;

namespace {

// The shape every statistics operation shares: validate, intercept, run, set the last error.
template <class Work>
int run(_tMailServer* server, const void* out, const char* operation, Work&& work)
{
    if (!server || !out)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (uint32_t e = intercept(server, operation, nullptr, nullptr))
        return failWith(e);
    if (uint32_t e = work(*server->connector))
        return failWith(e);
    SetLastError(0);
    return 1;
}

} // namespace

extern "C" int VbCountServerObjects(_tMailServer* server, _tServerObjectCounts* counts)
{
    return run(server, counts, "VbCountServerObjects", [&](Connector& c) {
        ObjectCounts n;
        const uint32_t e = c.objectCounts(n);
        if (!e)
            *counts = _tServerObjectCounts{n.domains, n.mailboxes, n.mailingLists};
        return e;
    });
}

extern "C" int VbSummariseQuotas(_tMailServer* server, _tQuotaSummary* summary)
{
    return run(server, summary, "VbSummariseQuotas", [&](Connector& c) {
        QuotaCounts n;
        const uint32_t e = c.quotaCounts(n);
        if (!e)
            *summary = _tQuotaSummary{n.limited, n.over, n.near};
        return e;
    });
}

extern "C" int VbTotalTraffic(_tMailServer* server, uint64_t totals[7])
{
    return run(server, totals, "VbTotalTraffic", [&](Connector& c) {
        uint64_t t[7] = {};
        const uint32_t e = c.trafficTotals(t);
        if (!e)
            std::copy(t, t + 7, totals);
        return e;
    });
}

extern "C" int VbLargestMailboxes(_tMailServer* server, _tMailboxUsage* rows, uint32_t* count)
{
    if (count && *count && !rows)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    return run(server, count, "VbLargestMailboxes", [&](Connector& c) {
        std::vector<MailboxUsage> found;
        const uint32_t e = c.largestMailboxes(std::min<uint32_t>(*count, 1000), found);
        if (e)
            return e;
        for (size_t i = 0; i < found.size(); ++i) {
            const std::string address = found[i].local + "@" + found[i].domain;
            _tMailboxUsage& row = rows[i];
            const size_t n = std::min(address.size(), sizeof row.address - 1);
            std::memcpy(row.address, address.data(), n);
            row.address[n] = '\0';
            row.sizeKb = found[i].sizeKb;
            row.messages = found[i].messages;
        }
        *count = uint32_t(found.size());
        return uint32_t(0);
    });
}
