#include "HealthRules.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

#include <velbrook/DomainStore.h>
#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

#include <optional>

namespace {

const char kContext[] = "HealthRules";

QString text(_tMailServer* server, const char* section, const char* name)
{
    QByteArray buffer(1024, '\0');
    uint32_t size = uint32_t(buffer.size());
    if (!GetMailServerProperty(server, section, name, buffer.data(), &size, nullptr)) {
        if (GetLastError() != VB_ERROR_MORE_DATA || size > (1u << 24))
            return QString();
        buffer.fill('\0', qsizetype(size) + 1);
        if (!GetMailServerProperty(server, section, name, buffer.data(), &size, nullptr))
            return QString();
    }
    return QString::fromUtf8(buffer.constData(), qsizetype(qstrnlen(buffer.constData(), size_t(buffer.size()))));
}

// A number, or fallback when it cannot be read.
uint32_t number(_tMailServer* server, const char* section, const char* name, uint32_t fallback)
{
    uint32_t value = 0, size = 4, type = 0;
    if (!GetMailServerProperty(server, section, name, &value, &size, &type) || type != VB_TYPE_DWORD)
        return fallback;
    return value;
}

// A directory that is not set, or (for a store of this machine) that does not exist.
std::optional<QString> directoryProblem(_tMailServer* server, const char* name)
{
    const QString dir = text(server, nullptr, name).trimmed();
    if (dir.isEmpty())
        return QCoreApplication::translate(kContext, "is not set");
    if (IsLocalMachine(server) && !QFileInfo(dir).isDir())
        return QCoreApplication::translate(kContext, "\"%1\" does not exist").arg(dir);
    return std::nullopt;
}

// Relaying without authentication is open to the world unless friendly sites restrict it; a friendly
// site of "*" restricts nothing.
std::optional<QString> openRelay(_tMailServer* server)
{
    if (number(server, nullptr, "NoUnauthenticatedRelay", 0) != 0)
        return std::nullopt;
    const QStringList sites = text(server, nullptr, "AcceptForRelayFrom")
                                  .split(QRegularExpression(QStringLiteral("[,\\s]+")), Qt::SkipEmptyParts);
    bool restricted = !sites.isEmpty();
    for (const QString& site : sites)
        restricted = restricted && site != QLatin1String("*") && site != QLatin1String("*.*.*.*");
    if (restricted)
        return std::nullopt;
    return QCoreApplication::translate(kContext, "Open relay: anyone may relay mail through this server without "
                                                 "authenticating, and no friendly sites restrict it.");
}

std::optional<QString> noTlsCertificate(_tMailServer* server)
{
    const QString file = text(server, "TLS", "CertificateFile").trimmed();
    if (file.isEmpty())
        return QCoreApplication::translate(kContext, "No TLS certificate: mail and passwords travel unencrypted.");
    if (IsLocalMachine(server) && !QFileInfo(file).isFile())
        return QCoreApplication::translate(kContext, "The TLS certificate \"%1\" does not exist.").arg(file);
    return std::nullopt;
}

std::optional<QString> blacklistsOff(_tMailServer* server)
{
    if (number(server, nullptr, "RblEnabled", 0) != 0 && !text(server, nullptr, "RblDomain").trimmed().isEmpty())
        return std::nullopt;
    return QCoreApplication::translate(kContext, "DNS blacklists are off: mail from known spam sources is accepted.");
}

std::optional<QString> noConnectionLimits(_tMailServer* server)
{
    if (number(server, "SMTPRA", "MaxTotalConnections", 0) != 0 || number(server, "SMTPRA", "MaxClientConnections", 0) != 0)
        return std::nullopt;
    return QCoreApplication::translate(kContext, "No connection limits: one sender can tie up every connection of "
                                                 "the SMTP receiver.");
}

std::optional<QString> spoolDirectory(_tMailServer* server)
{
    if (auto problem = directoryProblem(server, "MailSpoolDir"))
        return QCoreApplication::translate(kContext, "The mail spool directory %1.").arg(*problem);
    return std::nullopt;
}

std::optional<QString> logDirectory(_tMailServer* server)
{
    if (auto problem = directoryProblem(server, "MailLogDir"))
        return QCoreApplication::translate(kContext, "The log directory %1.").arg(*problem);
    return std::nullopt;
}

// A domain limit of 0 is none and 4294967295 is the server's default, so neither sets a limit.
bool domainSetsLimit(_tMailServer* server, const char* name)
{
    _tDomain* d = OpenDomain(server, name);
    if (!d)
        return false;
    bool sets = false;
    for (const char* property : {"QuotaLimit", "QuotaDefaultLimit"}) {
        uint32_t value = 0, size = 4, type = 0;
        if (GetDomainProperty(d, property, &value, &size, &type) && type == VB_TYPE_DWORD && value != 0
            && value != 0xFFFFFFFFu)
            sets = true;
    }
    CloseDomain(d);
    return sets;
}

std::optional<QString> quotasOffWithLimits(_tMailServer* server)
{
    if (number(server, nullptr, "QuotasEnabled", 0) != 0)
        return std::nullopt;
    QStringList limited;
    if (_tDomainEnum* e = StartDomainEnumeration(server)) {
        char name[256];
        uint32_t size = sizeof name;
        while (FindNextDomain(e, name, &size)) {
            if (domainSetsLimit(server, name))
                limited.append(QString::fromUtf8(name));
            size = sizeof name;
        }
        CloseDomainEnumeration(e);
    }
    if (limited.isEmpty())
        return std::nullopt;
    const QString shown = limited.size() > 3 ? QCoreApplication::translate(kContext, "%1 and %n more", nullptr,
                                                                           int(limited.size() - 3))
                                                   .arg(limited.mid(0, 3).join(QStringLiteral(", ")))
                                             : limited.join(QStringLiteral(", "));
    return QCoreApplication::translate(kContext, "Quotas are disabled, so the limits set for %1 are not enforced.")
        .arg(shown);
}

struct Rule {
    const char* id;
    std::optional<QString> (*check)(_tMailServer*);
    const char* fixEntry;
    const char* fixLabel;
};

const Rule kRules[] = {
    {"openRelay", openRelay, "AntiRelayWizard", QT_TRANSLATE_NOOP("HealthRules", "Anti-&relay wizard...")},
    {"noTlsCertificate", noTlsCertificate, "EditSecurity", QT_TRANSLATE_NOOP("HealthRules", "Securi&ty...")},
    {"blacklistsOff", blacklistsOff, "AntiSpamWizard", QT_TRANSLATE_NOOP("HealthRules", "Anti-spa&m wizard...")},
    {"noConnectionLimits", noConnectionLimits, "AntiDoSWizard", QT_TRANSLATE_NOOP("HealthRules", "Anti-Do&S wizard...")},
    {"spoolDirectory", spoolDirectory, "EditDirectories", QT_TRANSLATE_NOOP("HealthRules", "Director&ies...")},
    {"logDirectory", logDirectory, "EditFileLogConfig", QT_TRANSLATE_NOOP("HealthRules", "File lo&g...")},
    {"quotasOffWithLimits", quotasOffWithLimits, "EditQuotas", QT_TRANSLATE_NOOP("HealthRules", "&Quotas...")},
};

} // namespace

QList<HealthWarning> checkConfigurationHealth(_tMailServer* server)
{
    QList<HealthWarning> out;
    if (!server)
        return out;
    for (const Rule& rule : kRules) {
        if (auto problem = rule.check(server))
            out.append({QString::fromLatin1(rule.id), *problem, QString::fromLatin1(rule.fixEntry),
                        QCoreApplication::translate(kContext, rule.fixLabel)});
    }
    return out;
}
