// A large demonstration domain, for trying the console and measuring the store at scale.
#include <cstring>
#include <string>

#include "Handle_p.h"
#include "velbrook/DemoConfiguration.h"
#include "velbrook/DomainStore.h"

using namespace vb;

namespace {

const char* const kFirst[] = {"anna", "ben", "carla", "david", "elena", "felix", "greta", "hugo", "ida", "jonas",
                              "karin", "lars", "maria", "nils", "olga", "paul", "rita", "sven", "tanja", "uwe",
                              "vera", "walter", "xenia", "yusuf", "zoe", "amir", "bianca", "conor", "dana",
                              "emil", "fiona", "gabriel", "hanna", "ivan", "julia", "kai", "lea", "milan", "nora",
                              "oscar", "petra", "quinn", "rosa", "samuel", "tilda", "ulrich", "valentin", "wanda"};
const char* const kLast[] = {"adler", "berg", "conrad", "dietrich", "eckert", "fischer", "gruber", "hartmann",
                             "iversen", "jansen", "keller", "lorenz", "meyer", "neumann", "olsen", "peters",
                             "quast", "richter", "schulz", "thomsen", "ullmann", "vogel", "weber", "xander",
                             "yilmaz", "zimmer", "albers", "brandt", "claussen", "dahl", "engel", "frank",
                             "graf", "haas", "imhof", "jung", "krause", "lang", "marsh", "nolte", "otto", "pohl",
                             "roth", "stein", "tennant", "unger", "voss", "wolf", "ohara", "lindqvist",
                             "moreau", "novak", "petrov", "rossi", "santos", "tanaka", "virtanen", "wagner",
                             "kowalski", "horvat", "dubois", "costa", "bauer", "sanders"};
constexpr uint32_t kFirstCount = sizeof kFirst / sizeof *kFirst;
constexpr uint32_t kLastCount = sizeof kLast / sizeof *kLast;

std::string capitalised(const char* word)
{
    std::string out(word);
    if (!out.empty() && out[0] >= 'a' && out[0] <= 'z')
        out[0] = char(out[0] - 'a' + 'A');
    return out;
}

// Mailbox i of the large domain; the same i always gives the same mailbox.
void demoMailbox(uint32_t i, BulkMailbox& row)
{
    const uint32_t first = i % kFirstCount, last = (i / kFirstCount) % kLastCount;
    const uint32_t round = i / (kFirstCount * kLastCount);
    row.local = std::string(kFirst[first]) + "." + kLast[last];
    if (round)
        row.local += std::to_string(round + 1);
    row.fullName = capitalised(kFirst[first]) + " " + capitalised(kLast[last]);
    uint32_t seed = i * 2654435761u + 12345u;
    auto rnd = [&seed] { return seed = seed * 1664525u + 1013904223u, seed >> 8; };
    row.sizeKb = rnd() % 120000; // against the default 102400 kB: about one in seven over, one in twelve near
    row.messages = row.sizeKb / 60 + rnd() % 20;
    if (i % 50 == 7)
        row.quotaLimit = 204800;
    for (uint32_t& c : row.counters)
        c = rnd() % 200000;
}

bool setNumber(_tDomain* d, const char* name, uint32_t value)
{
    return SetDomainProperty(d, VB_TYPE_DWORD, name, &value, 4) != 0;
}

uint32_t seedDomainSettings(_tMailServer* server, const char* name)
{
    if (!CreateDomain(server, name))
        return GetLastError();
    _tDomain* d = OpenDomain(server, name);
    if (!d)
        return GetLastError();
    const bool ok = setNumber(d, "MaxMailboxes", 0xFFFFFFFFu) && setNumber(d, "MaxMailLists", 0xFFFFFFFFu)
                    && setNumber(d, "QuotaDefaultLimit", 102400) && setNumber(d, "QuotaDefaultTrigger", 92160);
    const uint32_t e = ok ? 0 : GetLastError();
    CloseDomain(d);
    return e;
}

} // namespace

extern "C" int VbSeedLargeDemoDomain(_tMailServer* server, const char* domain, uint32_t mailboxes,
                                     VbSeedProgress progress, void* context)
{
    if (!server || !domain || !*domain)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    Connector& c = *server->connector;
    if (uint32_t e = c.begin())
        return failWith(e);
    uint32_t error = seedDomainSettings(server, domain);
    ObjectRef ref;
    if (!error)
        error = c.findObject(Kind::Domain, 0, domain, ref);
    if (!error) {
        error = c.bulkMailboxes(ref.id, mailboxes, [&](uint32_t i, BulkMailbox& row) {
            if (progress && i % 10000 == 0 && !progress(context, i, mailboxes))
                return false;
            demoMailbox(i, row);
            return true;
        });
    }
    if (!error && progress && !progress(context, mailboxes, mailboxes))
        error = VB_ERROR_CANCELLED;
    return endTransaction(server, error);
}
