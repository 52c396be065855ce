// velbrook-store: create, seed, read and change a configuration store from the command line.
// The whole command line is checked before any store is opened or created.
#include <QCommandLineParser>
#include <QFileInfo>
#include <QStringList>

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

enum Exit { kDone = 0, kFailed = 1, kUsage = 2, kNoStore = 3 };

const char kCommands[] =
    "Commands:\n"
    "  create                          create the store (with its schema) if it does not exist\n"
    "  create --demo-size N [--domain D]  also write the demonstration configuration (into a store\n"
    "                                  without settings) and a domain D (default large.example)\n"
    "                                  with N mailboxes, in one transaction\n"
    "  seed                            write the demonstration configuration\n"
    "  get [--section S] NAME          print a property (numbers in decimal, lists one per line)\n"
    "  set [--section S] NAME VALUE    write text; --number writes a number;\n"
    "  set --list [--section S] NAME ELEMENT...   write a list, one element per argument\n"
    "                                  (a subnet list: 10.0.0.0/8 '192.168.0.0/16,\"office\"')\n"
    "  delete [--section S] NAME       remove a property\n"
    "  list [--section S | --all]      print the properties of a section (the server's own by default)\n"
    "  services                        print the mail services and their states\n"
    "  start SERVICE | stop SERVICE    start or stop a mail service\n"
    "  routes                          print the manual route table\n"
    "  traffic-report FILE [--domain D] [--rcpt N] [--smtp-received N] [--smtp-sent N]\n"
    "                 [--imap-sent N] [--imap-received N] [--pop-sent N] [--pop-received N]\n"
    "Without --store, $VELBROOK_STORE or $XDG_DATA_HOME/velbrook/config.db is used; only create and\n"
    "seed make a store that does not exist. \"--\" ends the options (for a value that starts with -).\n"
    "\n"
    "Exit codes:\n"
    "  0  done\n"
    "  1  the store refused the operation (the error is printed)\n"
    "  2  the command line is wrong (nothing was opened)\n"
    "  3  the store could not be opened\n";

const char* const kCounterOptions[7] = {"rcpt",          "smtp-received", "smtp-sent",   "imap-sent",
                                        "imap-received", "pop-sent",      "pop-received"};

// What the command line asked for, checked.
struct Request {
    QString command;
    QStringList args;
    QString store;
    std::string section;
    bool hasSection = false;
    bool all = false;
    bool number = false;
    bool list = false;
    uint32_t value = 0; // --number
    std::string domain;
    uint32_t thresholds[7] = {};
    bool demo = false;
    uint32_t demoSize = 0; // create --demo-size
};

struct Command {
    const char* name;
    int minArgs;
    int maxArgs; // -1: any number
    bool createsStore;
};

const Command kTable[] = {
    {"create", 0, 0, true},   {"seed", 0, 0, true},     {"get", 1, 1, false},
    {"set", 2, -1, false},    {"delete", 1, 1, false},  {"list", 0, 0, false},
    {"services", 0, 0, false}, {"start", 1, 1, false},  {"stop", 1, 1, false},
    {"routes", 0, 0, false},  {"traffic-report", 1, 1, false},
};

int usage(const QString& message)
{
    std::fprintf(stderr, "velbrook-store: %s\nTry 'velbrook-store --help'.\n", qPrintable(message));
    return kUsage;
}

int failure(const char* what)
{
    const uint32_t code = GetLastError();
    char text[512];
    VbErrorText(code, text, sizeof text);
    std::fprintf(stderr, "velbrook-store: %s: error %u%s%s\n", what, code, *text ? ": " : "", text);
    return kFailed;
}

bool parseNumber(const QString& text, uint32_t& value)
{
    const std::string s = text.toStdString();
    if (s.empty() || s[0] == '-' || s[0] == '+' || s[0] == ' ')
        return false;
    errno = 0;
    char* end = nullptr;
    const unsigned long long v = std::strtoull(s.c_str(), &end, 0);
    if (errno || *end || v > 0xFFFFFFFFull)
        return false;
    value = uint32_t(v);
    return true;
}

// The strings of a multi-string of size bytes, every one of them: the first may be empty (the server's
// own section), so the list ends only at the terminating zero.
std::vector<std::string> splitAll(const std::vector<char>& data, uint32_t size)
{
    std::vector<std::string> out;
    if (size < 2)
        return out;
    uint32_t at = 0;
    while (at + 1 < size) {
        out.emplace_back(&data[at]);
        at += uint32_t(out.back().size()) + 1;
    }
    return out;
}

// Reads a property whatever its size, again while a concurrent writer makes it grow; false with the
// last error set on failure.
bool readProperty(_tMailServer* s, const char* section, const char* name, std::vector<char>& data, uint32_t& size,
                  uint32_t& type)
{
    for (int attempt = 0; attempt < 16; ++attempt) {
        size = 0;
        if (!GetMailServerProperty(s, section, name, nullptr, &size, &type) && GetLastError() != VB_ERROR_MORE_DATA)
            return false;
        data.assign(size_t(size) + 2, '\0');
        if (GetMailServerProperty(s, section, name, data.data(), &size, &type))
            return true;
        if (GetLastError() != VB_ERROR_MORE_DATA)
            return false;
    }
    return false;
}

void printValue(const std::vector<char>& data, uint32_t size, uint32_t type, const char* indent)
{
    if (type == VB_TYPE_DWORD) {
        uint32_t n = 0;
        std::memcpy(&n, data.data(), 4);
        std::printf("%s%u\n", indent, n);
    } else if (type == VB_TYPE_MULTI_STRING) {
        for (const std::string& item : splitAll(data, size))
            std::printf("%s%s\n", indent, item.c_str());
    } else {
        std::printf("%s%s\n", indent, data.data());
    }
}

int listSection(_tMailServer* s, const char* section)
{
    std::vector<char> names;
    uint32_t size = 0;
    for (int attempt = 0; attempt < 16; ++attempt) {
        size = 0;
        EnumMailServerProperties(s, section, nullptr, &size);
        names.assign(size_t(size) + 2, '\0');
        if (EnumMailServerProperties(s, section, names.data(), &size))
            break;
        if (GetLastError() != VB_ERROR_MORE_DATA)
            return failure("list");
    }
    for (const std::string& name : splitAll(names, size)) {
        std::vector<char> data;
        uint32_t vsize = 0, type = 0;
        if (!readProperty(s, section, name.c_str(), data, vsize, type)) {
            std::printf("%s = <unreadable>\n", name.c_str());
            continue;
        }
        std::printf(type == VB_TYPE_MULTI_STRING ? "%s =\n" : "%s = ", name.c_str());
        printValue(data, vsize, type, type == VB_TYPE_MULTI_STRING ? "    " : "");
    }
    return kDone;
}

const char* stateName(uint32_t state)
{
    static const char* const names[] = {"unknown", "stopped", "starting", "stopping", "running",
                                        "resuming", "pausing", "paused"};
    return state <= 7 ? names[state] : "unknown";
}

// ---- the command line ---------------------------------------------------------------------------

const Command* findCommand(const QString& name)
{
    for (const Command& c : kTable)
        if (name == QLatin1String(c.name))
            return &c;
    return nullptr;
}

// Checks the options against the command; an empty text when they fit.
QString optionConflict(const Request& r, const QCommandLineParser& p)
{
    if (r.number && r.list)
        return QStringLiteral("--number and --list contradict each other");
    if ((r.number || r.list) && r.command != QLatin1String("set"))
        return QStringLiteral("--number and --list belong to set");
    if (r.number && r.args.size() != 2)
        return QStringLiteral("set --number takes NAME VALUE");
    if (!r.number && !r.list && r.command == QLatin1String("set") && r.args.size() != 2)
        return QStringLiteral("set takes NAME VALUE (use --list for several elements)");
    if (r.all && (r.hasSection || r.command != QLatin1String("list")))
        return QStringLiteral("--all belongs to list, without --section");
    static const QStringList sectioned = {QStringLiteral("get"), QStringLiteral("set"), QStringLiteral("delete"),
                                          QStringLiteral("list")};
    if (r.hasSection && !sectioned.contains(r.command))
        return QStringLiteral("--section belongs to get, set, delete and list");
    if (r.demo && r.command != QLatin1String("create"))
        return QStringLiteral("--demo-size belongs to create");
    // create --demo-size --domain D names the large domain; elsewhere --domain belongs to the report.
    bool report = p.isSet(QStringLiteral("domain")) && !r.demo;
    for (const char* o : kCounterOptions)
        report = report || p.isSet(QLatin1String(o));
    if (report && r.command != QLatin1String("traffic-report"))
        return QStringLiteral("--domain and the thresholds belong to traffic-report");
    return QString();
}

// Fills the request from the arguments; kDone, or the exit code to end with (help, errors).
int parse(const QStringList& arguments, Request& r)
{
    QCommandLineParser p;
    p.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    p.setApplicationDescription(QStringLiteral("Reads and changes a Velbrook configuration store.\n\n")
                                + QString::fromLatin1(kCommands));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."));
    p.addOption(help);
    p.addOption({QStringLiteral("store"), QStringLiteral("The store to use (file or URI)."), QStringLiteral("PATH")});
    p.addOption({QStringLiteral("section"), QStringLiteral("The section of the property."), QStringLiteral("S")});
    p.addOption({QStringLiteral("all"), QStringLiteral("list: every section.")});
    p.addOption({QStringLiteral("number"), QStringLiteral("set: write a number.")});
    p.addOption({QStringLiteral("list"), QStringLiteral("set: write a list.")});
    p.addOption({QStringLiteral("domain"), QStringLiteral("traffic-report: one domain; create: the large domain."),
                 QStringLiteral("D")});
    p.addOption({QStringLiteral("demo-size"), QStringLiteral("create: a demonstration domain of N mailboxes."),
                 QStringLiteral("N")});
    for (const char* o : kCounterOptions)
        p.addOption({QLatin1String(o), QStringLiteral("traffic-report: threshold."), QStringLiteral("N")});
    p.addPositionalArgument(QStringLiteral("command"), QStringLiteral("What to do (above)."));
    if (!p.parse(arguments))
        return usage(p.errorText());
    if (p.isSet(help)) {
        std::fputs(qPrintable(p.helpText()), stdout);
        return kDone - 1; // asked for help: done, nothing opened
    }
    const QStringList positional = p.positionalArguments();
    if (positional.isEmpty())
        return usage(QStringLiteral("no command given"));
    r.command = positional.first();
    r.args = positional.mid(1);
    const Command* c = findCommand(r.command);
    if (!c)
        return usage(QStringLiteral("unknown command: %1").arg(r.command));
    if (r.args.size() < c->minArgs || (c->maxArgs >= 0 && r.args.size() > c->maxArgs))
        return usage(QStringLiteral("wrong number of arguments for %1").arg(r.command));
    r.store = p.value(QStringLiteral("store"));
    r.hasSection = p.isSet(QStringLiteral("section"));
    r.section = p.value(QStringLiteral("section")).toStdString();
    r.all = p.isSet(QStringLiteral("all"));
    r.number = p.isSet(QStringLiteral("number"));
    r.list = p.isSet(QStringLiteral("list"));
    r.domain = p.value(QStringLiteral("domain")).toStdString();
    r.demo = p.isSet(QStringLiteral("demo-size"));
    if (r.demo && !parseNumber(p.value(QStringLiteral("demo-size")), r.demoSize))
        return usage(QStringLiteral("--demo-size: not a number: %1").arg(p.value(QStringLiteral("demo-size"))));
    if (const QString conflict = optionConflict(r, p); !conflict.isEmpty())
        return usage(conflict);
    if (r.number && !parseNumber(r.args[1], r.value))
        return usage(QStringLiteral("not a number: %1").arg(r.args[1]));
    for (int i = 0; i < 7; ++i) {
        const QString option = QLatin1String(kCounterOptions[i]);
        if (p.isSet(option) && !parseNumber(p.value(option), r.thresholds[i]))
            return usage(QStringLiteral("--%1: not a number: %2").arg(option, p.value(option)));
    }
    if (!c->createsStore && !r.store.isEmpty() && !r.store.contains(QLatin1String("://"))
        && !QFileInfo::exists(r.store)) {
        std::fprintf(stderr, "velbrook-store: no store at %s (make one with create)\n", qPrintable(r.store));
        return kNoStore;
    }
    return kDone;
}

// ---- the commands -----------------------------------------------------------------------------------

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

int doSet(_tMailServer* s, const Request& r)
{
    const std::string name = r.args[0].toStdString();
    const char* section = r.hasSection ? r.section.c_str() : nullptr;
    int ok = 0;
    if (r.number) {
        ok = SetMailServerProperty(s, section, VB_TYPE_DWORD, name.c_str(), &r.value, 4);
    } else if (r.list) {
        std::string multi;
        for (qsizetype i = 1; i < r.args.size(); ++i) {
            const std::string element = r.args[i].toStdString();
            if (element.empty())
                continue; // an empty element would end the list
            multi += element;
            multi += '\0';
        }
        multi += '\0';
        ok = SetMailServerProperty(s, section, VB_TYPE_MULTI_STRING, name.c_str(), multi.data(), uint32_t(multi.size()));
    } else {
        const std::string value = r.args[1].toStdString();
        ok = SetMailServerProperty(s, section, VB_TYPE_STRING, name.c_str(), value.c_str(), uint32_t(value.size() + 1));
    }
    return ok ? kDone : failure(name.c_str());
}

int doList(_tMailServer* s, const Request& r)
{
    if (!r.all)
        return listSection(s, r.hasSection ? r.section.c_str() : nullptr);
    std::vector<char> names;
    uint32_t size = 0;
    EnumMailServerSections(s, nullptr, &size);
    names.assign(size_t(size) + 2, '\0');
    if (!EnumMailServerSections(s, names.data(), &size))
        return failure("list");
    int rc = kDone;
    bool first = true;
    for (const std::string& name : splitAll(names, size)) {
        std::printf(first ? "[%s]\n" : "\n[%s]\n", name.empty() ? "server" : name.c_str());
        first = false;
        rc |= listSection(s, name.empty() ? nullptr : name.c_str());
    }
    return rc;
}

int doServices(_tMailServer* s)
{
    std::vector<char> names;
    uint32_t size = 0;
    GetMailServiceList(s, nullptr, &size);
    names.assign(size_t(size) + 2, '\0');
    if (!GetMailServiceList(s, names.data(), &size))
        return failure("services");
    for (const std::string& name : splitAll(names, size)) {
        uint32_t state = 0;
        const bool ok = GetMailServiceStatus(s, name.c_str(), &state);
        std::vector<char> display;
        uint32_t dsize = 0, type = 0;
        const bool hasDisplay =
            readProperty(s, name.c_str(), "DisplayName", display, dsize, type) && type == VB_TYPE_STRING;
        std::printf("%-12s %-9s %s\n", name.c_str(), ok ? stateName(state) : "unknown", hasDisplay ? display.data() : "");
    }
    return kDone;
}

int doRoutes(_tMailServer* s)
{
    _tManualRoute* routes = nullptr;
    if (!LoadManualRoutes(s, &routes))
        return failure("routes");
    static const char* const rules[] = {"Additional", "Force", "Default"};
    for (const _tManualRoute* r = routes; r; r = r->next) {
        std::printf("%s (%s)\n", r->domainMask, r->rule <= 2 ? rules[r->rule] : "?");
        for (const _tManualRouteMx* h = r->hosts; h; h = h->next)
            std::printf("    %s:%u preference %u\n", h->host, h->port ? h->port : 25u, h->preference);
    }
    FreeManualRoutes(routes);
    return kDone;
}

int doTrafficReport(_tMailServer* s, const Request& r)
{
    const uint32_t* t = r.thresholds;
    const _tTrafficStatistics thresholds{t[0], t[1], t[2], 0, t[3], t[4], t[5], t[6]};
    const std::string file = r.args[0].toStdString();
    CTrafficReport report(s);
    if (!report.Generate(r.domain.c_str(), thresholds))
        return failure("generate");
    if (!report.Save(file.c_str()))
        return failure("save");
    std::printf("%llu mailboxes written to %s\n", static_cast<unsigned long long>(report.RowCount()), file.c_str());
    return kDone;
}

int run(_tMailServer* s, const Request& r)
{
    const std::string first = r.args.isEmpty() ? std::string() : r.args[0].toStdString();
    const char* section = r.hasSection ? r.section.c_str() : nullptr;
    if (r.command == QLatin1String("create")) {
        if (r.demo) {
            const std::string name = r.domain.empty() ? std::string("large.example") : r.domain;
            if (!hasSettings(s) && !VbSeedDemoConfiguration(s))
                return failure("seed");
            if (!VbSeedLargeDemoDomain(s, name.c_str(), r.demoSize, showProgress, nullptr))
                return failure(name.c_str());
        }
        std::printf("%s\n", GetMailServerLocation(s));
    } else if (r.command == QLatin1String("seed")) {
        return VbSeedDemoConfiguration(s) ? kDone : failure("seed");
    } else if (r.command == QLatin1String("get")) {
        std::vector<char> data;
        uint32_t size = 0, type = 0;
        if (!readProperty(s, section, first.c_str(), data, size, type))
            return failure(first.c_str());
        printValue(data, size, type, "");
    } else if (r.command == QLatin1String("set")) {
        return doSet(s, r);
    } else if (r.command == QLatin1String("delete")) {
        return DeleteMailServerProperty(s, section, first.c_str()) ? kDone : failure(first.c_str());
    } else if (r.command == QLatin1String("list")) {
        return doList(s, r);
    } else if (r.command == QLatin1String("services")) {
        return doServices(s);
    } else if (r.command == QLatin1String("start") || r.command == QLatin1String("stop")) {
        const bool start = r.command == QLatin1String("start");
        const int ok = start ? StartMailService(s, first.c_str()) : StopMailService(s, first.c_str());
        return ok ? kDone : failure(first.c_str());
    } else if (r.command == QLatin1String("routes")) {
        return doRoutes(s);
    } else {
        return doTrafficReport(s, r);
    }
    return kDone;
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    Request request;
    const int parsed = parse(arguments, request);
    if (parsed != kDone)
        return parsed < 0 ? kDone : parsed;
    const std::string store = request.store.toStdString();
    _tMailServer* s = OpenMailServer(store.empty() ? nullptr : store.c_str());
    if (!s) {
        failure("cannot open the store");
        return kNoStore;
    }
    const int rc = run(s, request);
    CloseMailServer(s);
    return rc;
}
