#include "domain/DomainValues.h"

#include "res/DomainStringIds.h"
#include "res/StringTable.h"
#include "server/QuotasDlg.h"

namespace {
// The leading decimal number of a text, as atoi reads it, kept within 32 bits.
quint32 leadingNumber(const QString& text)
{
    quint64 value = 0;
    for (const QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            break;
        value = qMin<quint64>(value * 10 + quint64(c.unicode() - '0'), kDomainUnlimited);
    }
    return quint32(value);
}
} // namespace

QString domainCountText(quint32 value)
{
    return value == kDomainUnlimited ? TaviString(IDS_DOMAIN_UNLIMITED) : QString::number(value);
}

quint32 parseDomainCount(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() || trimmed.at(0) < QLatin1Char('0') || trimmed.at(0) > QLatin1Char('9'))
        return kDomainUnlimited;
    return leadingNumber(trimmed);
}

QString domainQuotaText(quint32 value, bool defaultAllowed)
{
    if (value == 0)
        return TaviString(IDS_DOMAIN_QUOTA_NONE);
    if (value == kDomainUnlimited && defaultAllowed)
        return TaviString(IDS_DOMAIN_QUOTA_DEFAULT);
    return QString::number(value);
}

quint32 parseDomainQuota(const QString& trimmedText, bool defaultAllowed)
{
    if (trimmedText.compare(QLatin1String("none"), Qt::CaseInsensitive) == 0)
        return 0;
    if (defaultAllowed && trimmedText.compare(QLatin1String("default"), Qt::CaseInsensitive) == 0)
        return kDomainUnlimited;
    return leadingNumber(trimmedText);
}

QString domainStatusText(quint32 messageSizeKb, quint32 messages, quint32 mailboxes, quint32 lastVerified)
{
    const QByteArray format = TaviString(IDS_DOMAIN_STATUS).replace(QLatin1String("\r\n"), QLatin1String("\n")).toUtf8();
    const QByteArray when = quotaCheckedText(lastVerified).toUtf8();
    return QString::asprintf(format.constData(), unsigned(messageSizeKb), unsigned(messages), unsigned(mailboxes),
                             when.constData());
}

QString domainCounterText(quint32 value)
{
    return QString::number(qint32(value));
}

bool isUncPath(const QString& path)
{
    return path.startsWith(QLatin1String("\\\\"));
}
