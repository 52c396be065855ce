// How the domain pages show and parse their numbers: mailbox and list counts, quotas, the domain size
// line and counters. Pure functions, so that the rules are tested apart from the pages.
#pragma once

#include "entry/TaviGlobal.h"

#include <QString>

inline constexpr quint32 kDomainUnlimited = 0xFFFFFFFFu; // counts: no limit; quotas: the server default

// A count as shown: "unlimited" for 4294967295, else the decimal number.
TAVI_EXPORT QString domainCountText(quint32 value);
// A count as typed: blank or not starting with a decimal digit is unlimited, else the leading number.
TAVI_EXPORT quint32 parseDomainCount(const QString& text);
// A quota as shown: "none" for 0, "default" for 4294967295 when allowed, else the decimal number.
TAVI_EXPORT QString domainQuotaText(quint32 value, bool defaultAllowed);
// A quota as typed (already trimmed): "none" (any case) is 0, "default" (any case, when allowed) is
// 4294967295, anything else its leading decimal number (0 when there is none).
TAVI_EXPORT quint32 parseDomainQuota(const QString& trimmedText, bool defaultAllowed);
// "Domain size: ...kB (... messages) in ... mailboxes" and the last-verified time on a second line.
TAVI_EXPORT QString domainStatusText(quint32 messageSizeKb, quint32 messages, quint32 mailboxes,
                                     quint32 lastVerified);
// A traffic counter: the stored 32 bits read as a signed decimal.
TAVI_EXPORT QString domainCounterText(quint32 value);
// A path is a UNC path when it begins with two backslashes.
TAVI_EXPORT bool isUncPath(const QString& path);
