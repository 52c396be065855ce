// The filter rules a person edits without knowing Sieve: "when <condition>, do <action>". A list of
// rules is written as a Sieve script, and a script written that way is read back into the same rules.
// Any other script cannot be shown as rules and is edited as text.
#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace Sieve {

struct Rule {
    enum Condition { HeaderContains, SizeOver, FromAddress };
    enum Action { FileInto, Redirect, Reject, Discard, SmsNotify };

    Condition condition = HeaderContains;
    QString header = QStringLiteral("Subject");  // HeaderContains: the header's name
    QString text;                                 // HeaderContains: the text; FromAddress: the address
    quint64 size = 0;                             // SizeOver: bytes
    Action action = FileInto;
    QString argument;  // FileInto: folder; Redirect: address; Reject: reason; unused otherwise

    bool operator==(const Rule&) const = default;
};

// The command of the SMS notification action; the wireless settings look for it in the script.
inline constexpr char16_t kSmsCommand[] = u"x_sms";

// The script for these rules (an empty list gives an empty script).
QString generateScript(const QList<Rule>& rules);

// The rules of a script generateScript() could have written; nothing when the script is not valid or
// uses anything the rules cannot express. An empty script is an empty list.
std::optional<QList<Rule>> readRules(const QString& script);

// A size as Sieve writes it: the largest of G, M and K that divides it ("100K", "1500").
QString sizeText(quint64 size);
// Reads such a size (blanks around it allowed, K/M/G in either case); nothing when it is not one.
std::optional<quint64> parseSize(const QString& text);

// A short text for the list of rules, such as "Subject contains "sale" → file into "Ads"".
QString describe(const Rule& rule);

// The first field a rule lacks or has wrong, and why; field None when the rule is complete.
struct RuleProblem {
    enum Field { None, Header, Text, Size, Argument } field = None;
    QString message;
};
RuleProblem validate(const Rule& rule);

} // namespace Sieve
