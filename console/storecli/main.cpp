// velbrook-store: create, seed, read and change a configuration store from the command line.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "velbrook/DemoConfiguration.h"
#include "velbrook/MailToolkit.h"
#include "velbrook/ServerStore.h"

namespace {

const char kUsage[] =
    "usage: velbrook-store [--store PATH] COMMAND [ARGS]\n"
    "  create                          create the store (with its schema) if it does not exist\n"
    "  create --demo-size N [--domain D]  also write the demonstration configuration (into a store\n"
    "                                  without settings) and a domain D (default large.example)\n"
    "                                  with N mailboxes, in one transaction\n"
    "  seed                            write the demonstration configuration\n"
    "  get [--section S] NAME          print a property (numbers in decimal, lists one per line)\n"
    "  set [--section S] NAME VALUE    write text; --number writes a number, --list a comma-separated list\n"
    "  delete [--section S] NAME       remove a property\n"
    "  list [--section S | --all]      print the properties of a section (the server's own by default)\n"
    "  services                        print the mail services and their states\n"
    "  start SERVICE | stop SERVICE    start or stop a mail service\n"
    "  routes                          print the manual route table\n"
    "  traffic-report FILE [--domain D] [--rcpt N] [--smtp-received N] [--smtp-sent N]\n"
    "                 [--imap-sent N] [--imap-received N] [--pop-sent N] [--pop-received N]\n"
    "Without --store, $VELBROOK_STORE or $XDG_DATA_HOME/velbrook/config.db is used.\n";

int failure(const char* what)
{
    const uint32_t code = GetLastError();
    char text[256];
    VbErrorText(code, text, sizeof text);
    std::fprintf(stderr, "velbrook-store: %s: error %u%s%s\n", what, code, *text ? ": " : "", text);
    return 1;
}

std::vector<std::string> splitMulti(const std::vector<char>& data, uint32_t size)
{
    std::vector<std::string> out;
    uint32_t at = 0;
    while (at < size && data[at]) {
        out.emplace_back(&data[at]);
        at += uint32_t(out.back().size()) + 1;
    }
    return out;
}

// Reads a property whatever its size; false with the last error set on failure.
bool readProperty(_tMailServer* s, const char* section, const char* name, std::vector<char>& data, uint32_t& size,
                  uint32_t& type)
{
    size = 0;
    if (!GetMailServerProperty(s, section, name, nullptr, &size, &type))
        return false;
    data.assign(size + 2, '\0');
    return GetMailServerProperty(s, section, name, data.data(), &size, &type) != 0;
}

void printValue(const std::vector<char>& data, uint32_t size, uint32_t type, const char* indent)
{
    if (type == VB_TYPE_DWORD) {
        uint32_t n = 0;
        std::memcpy(&n, data.data(), 4);
        std::printf("%s%u\n", indent, n);
    } else if (type == VB_TYPE_MULTI_STRING) {
        for (const std::string& item : splitMulti(data, size))
            std::printf("%s%s\n", indent, item.c_str());
    } else {
        std::printf("%s%s\n", indent, data.data());
    }
}

int listSection(_tMailServer* s, const char* section)
{
    uint32_t size = 0;
    if (!EnumMailServerProperties(s, section, nullptr, &size))
        return failure("list");
    std::vector<char> names(size + 2, '\0');
    if (!EnumMailServerProperties(s, section, names.data(), &size))
        return failure("list");
    for (const std::string& name : splitMulti(names, size)) {
        std::vector<char> data;
        uint32_t vsize = 0, type = 0;
        if (!readProperty(s, section, name.c_str(), data, vsize, type)) {
            std::printf("%s = <unreadable>\n", name.c_str());
            continue;
        }
        if (type == VB_TYPE_MULTI_STRING) {
            std::printf("%s =\n", name.c_str());
            printValue(data, vsize, type, "    ");
        } else {
            std::printf("%s = ", name.c_str());
            printValue(data, vsize, type, "");
        }
    }
    return 0;
}

bool parseNumber(const char* text, uint32_t& value)
{
    if (!text || !*text)
        return false;
    errno = 0;
    char* end = nullptr;
    const unsigned long long v = std::strtoull(text, &end, 0);
    if (errno || *end || v > 0xFFFFFFFFull || *text == '-')
        return false;
    value = uint32_t(v);
    return true;
}

const char* stateName(uint32_t state)
{
    static const char* const names[] = {"unknown", "stopped", "starting", "stopping", "running",
                                        "resuming", "pausing", "paused"};
    return state <= 7 ? names[state] : "unknown";
}

// Shows how far a long seeding got, on one line of the terminal.
int showProgress(void*, uint32_t done, uint32_t total)
{
    std::fprintf(stderr, "\r%u of %u mailboxes", done, total);
    if (done == total)
        std::fputc('\n', stderr);
    return 1;
}

bool hasSettings(_tMailServer* s)
{
    char buffer[4] = {};
    uint32_t size = sizeof buffer;
    return !EnumMailServerProperties(s, nullptr, buffer, &size) || buffer[0] != '\0';
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    std::string store, section;
    bool hasSection = false, all = false, asNumber = false, asList = false;
    std::vector<std::string> rest;
    const char* countersFlags[] = {"--rcpt", "--smtp-received", "--smtp-sent", "--imap-sent",
                                   "--imap-received", "--pop-sent", "--pop-received"};
    uint32_t thresholds[7] = {};
    std::string domain;
    std::string demoSize;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto next = [&](std::string& out) {
            if (i + 1 >= args.size()) {
                std::fprintf(stderr, "velbrook-store: %s needs a value\n", a.c_str());
                std::exit(2);
            }
            out = args[++i];
        };
        bool counter = false;
        for (int c = 0; c < 7; ++c) {
            if (a == countersFlags[c]) {
                std::string v;
                next(v);
                if (!parseNumber(v.c_str(), thresholds[c])) {
                    std::fprintf(stderr, "velbrook-store: %s: not a number: %s\n", a.c_str(), v.c_str());
                    return 2;
                }
                counter = true;
            }
        }
        if (counter)
            continue;
        if (a == "--store")
            next(store);
        else if (a == "--section") {
            next(section);
            hasSection = true;
        } else if (a == "--domain")
            next(domain);
        else if (a == "--demo-size")
            next(demoSize);
        else if (a == "--all")
            all = true;
        else if (a == "--number")
            asNumber = true;
        else if (a == "--list")
            asList = true;
        else if (a == "-h" || a == "--help") {
            std::fputs(kUsage, stdout);
            return 0;
        } else
            rest.push_back(a);
    }
    if (rest.empty()) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    const std::string command = rest[0];
    const char* sec = hasSection ? section.c_str() : nullptr;

    _tMailServer* s = OpenMailServer(store.empty() ? nullptr : store.c_str());
    if (!s)
        return failure("cannot open the store");
    int rc = 0;
    if (command == "create") {
        uint32_t size = 0;
        if (!demoSize.empty() && !parseNumber(demoSize.c_str(), size)) {
            std::fprintf(stderr, "velbrook-store: --demo-size: not a number: %s\n", demoSize.c_str());
            rc = 2;
        } else if (!demoSize.empty()) {
            const std::string name = domain.empty() ? "large.example" : domain;
            if (!hasSettings(s) && !VbSeedDemoConfiguration(s))
                rc = failure("seed");
            else if (!VbSeedLargeDemoDomain(s, name.c_str(), size, showProgress, nullptr))
                rc = failure(name.c_str());
        }
        if (!rc)
            std::printf("%s\n", GetMailServerLocation(s));
    } else if (command == "seed") {
        if (!VbSeedDemoConfiguration(s))
            rc = failure("seed");
    } else if (command == "get" && rest.size() == 2) {
        std::vector<char> data;
        uint32_t size = 0, type = 0;
        if (!readProperty(s, sec, rest[1].c_str(), data, size, type))
            rc = failure(rest[1].c_str());
        else
            printValue(data, size, type, "");
    } else if (command == "set" && rest.size() == 3) {
        const std::string& name = rest[1];
        const std::string& value = rest[2];
        int ok = 0;
        if (asNumber) {
            uint32_t n = 0;
            if (!parseNumber(value.c_str(), n)) {
                std::fprintf(stderr, "velbrook-store: not a number: %s\n", value.c_str());
                CloseMailServer(s);
                return 2;
            }
            ok = SetMailServerProperty(s, sec, VB_TYPE_DWORD, name.c_str(), &n, 4);
        } else if (asList) {
            std::string multi;
            size_t at = 0;
            while (at <= value.size()) {
                size_t end = value.find(',', at);
                if (end == std::string::npos)
                    end = value.size();
                std::string item = value.substr(at, end - at);
                item.erase(0, item.find_first_not_of(" \t"));
                item.erase(item.find_last_not_of(" \t") + 1);
                if (!item.empty()) {
                    multi += item;
                    multi += '\0';
                }
                at = end + 1;
            }
            multi += '\0';
            ok = SetMailServerProperty(s, sec, VB_TYPE_MULTI_STRING, name.c_str(), multi.data(), uint32_t(multi.size()));
        } else {
            ok = SetMailServerProperty(s, sec, VB_TYPE_STRING, name.c_str(), value.c_str(), uint32_t(value.size() + 1));
        }
        if (!ok)
            rc = failure(name.c_str());
    } else if (command == "delete" && rest.size() == 2) {
        if (!DeleteMailServerProperty(s, sec, rest[1].c_str()))
            rc = failure(rest[1].c_str());
    } else if (command == "list" && rest.size() == 1) {
        if (all) {
            uint32_t size = 0;
            if (!EnumMailServerSections(s, nullptr, &size)) {
                rc = failure("list");
            } else {
                std::vector<char> names(size + 2, '\0');
                EnumMailServerSections(s, names.data(), &size);
                // The server's own section is the empty name, which ends a multi-string: print it first.
                std::printf("[server]\n");
                rc |= listSection(s, nullptr);
                for (const std::string& name : splitMulti(names, size)) {
                    std::printf("\n[%s]\n", name.c_str());
                    rc |= listSection(s, name.c_str());
                }
            }
        } else {
            rc = listSection(s, sec);
        }
    } else if (command == "services" && rest.size() == 1) {
        uint32_t size = 0;
        if (!GetMailServiceList(s, nullptr, &size)) {
            rc = failure("services");
        } else {
            std::vector<char> names(size + 2, '\0');
            GetMailServiceList(s, names.data(), &size);
            for (const std::string& name : splitMulti(names, size)) {
                uint32_t state = 0;
                const bool ok = GetMailServiceStatus(s, name.c_str(), &state);
                std::vector<char> display;
                uint32_t dsize = 0, type = 0;
                const bool hasDisplay = readProperty(s, name.c_str(), "DisplayName", display, dsize, type)
                                        && type == VB_TYPE_STRING;
                std::printf("%-12s %-9s %s\n", name.c_str(), ok ? stateName(state) : "unknown",
                            hasDisplay ? display.data() : "");
            }
        }
    } else if ((command == "start" || command == "stop") && rest.size() == 2) {
        const int ok = command == "start" ? StartMailService(s, rest[1].c_str()) : StopMailService(s, rest[1].c_str());
        if (!ok)
            rc = failure(rest[1].c_str());
    } else if (command == "routes" && rest.size() == 1) {
        _tManualRoute* routes = nullptr;
        if (!LoadManualRoutes(s, &routes)) {
            rc = failure("routes");
        } else {
            static const char* const rules[] = {"Additional", "Force", "Default"};
            for (const _tManualRoute* r = routes; r; r = r->next) {
                std::printf("%s (%s)\n", r->domainMask, r->rule <= 2 ? rules[r->rule] : "?");
                for (const _tManualRouteMx* h = r->hosts; h; h = h->next)
                    std::printf("    %s:%u preference %u\n", h->host, h->port ? h->port : 25u, h->preference);
            }
            FreeManualRoutes(routes);
        }
    } else if (command == "traffic-report" && rest.size() == 2) {
        _tTrafficStatistics t{};
        t.rcptCommands = thresholds[0];
        t.smtpBytesReceived = thresholds[1];
        t.smtpBytesSent = thresholds[2];
        t.imapBytesSent = thresholds[3];
        t.imapBytesReceived = thresholds[4];
        t.popBytesSent = thresholds[5];
        t.popBytesReceived = thresholds[6];
        CTrafficReport report(s);
        if (!report.Generate(domain.c_str(), t))
            rc = failure("generate");
        else if (!report.Save(rest[1].c_str()))
            rc = failure("save");
        else
            std::printf("%llu mailboxes written to %s\n", static_cast<unsigned long long>(report.RowCount()),
                        rest[1].c_str());
    } else {
        std::fputs(kUsage, stderr);
        rc = 2;
    }
    CloseMailServer(s);
    return rc;
}
