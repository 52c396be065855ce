#include "SieveRules.h"

#include "SieveSyntax.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace Sieve {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Sieve", text);
}

// The extensions the actions need, in the order they are required.
const char16_t* extensionOf(Rule::Action action)
{
    switch (action) {
    case Rule::FileInto: return u"fileinto";
    case Rule::Reject: return u"reject";
    case Rule::SmsNotify: return kSmsCommand;
    case Rule::Redirect:
    case Rule::Discard: break;
    }
    return nullptr;
}

QString testText(const Rule& rule)
{
    switch (rule.condition) {
    case Rule::HeaderContains: return QStringLiteral("header :contains ") + quote(rule.header) + u' ' + quote(rule.text);
    case Rule::SizeOver: return QStringLiteral("size :over ") + sizeText(rule.size);
    case Rule::FromAddress: return QStringLiteral("address :is \"from\" ") + quote(rule.text);
    }
    return {};
}

QString actionText(const Rule& rule)
{
    switch (rule.action) {
    case Rule::FileInto: return QStringLiteral("fileinto ") + quote(rule.argument) + u';';
    case Rule::Redirect: return QStringLiteral("redirect ") + quote(rule.argument) + u';';
    case Rule::Reject: return QStringLiteral("reject ") + quote(rule.argument) + u';';
    case Rule::Discard: return QStringLiteral("discard;");
    case Rule::SmsNotify: return QString::fromUtf16(kSmsCommand) + u';';
    }
    return {};
}

// A single string written without brackets.
bool singleString(const Argument& arg, QString& value)
{
    if (arg.kind != Argument::StringList || arg.isList || arg.strings.size() != 1)
        return false;
    value = arg.strings.first();
    return true;
}

bool isTag(const Argument& arg, const char16_t* tag)
{
    return arg.kind == Argument::Tag && arg.tag == tag;
}

bool readCondition(const Test& test, Rule& rule)
{
    const QList<Argument>& a = test.arguments;
    if (!test.tests.isEmpty())
        return false;
    if (test.name == u"header" && a.size() == 3 && isTag(a[0], u"contains")) {
        rule.condition = Rule::HeaderContains;
        return singleString(a[1], rule.header) && singleString(a[2], rule.text);
    }
    if (test.name == u"size" && a.size() == 2 && isTag(a[0], u"over") && a[1].kind == Argument::Number) {
        rule.condition = Rule::SizeOver;
        rule.size = a[1].number;
        return true;
    }
    QString header;
    if (test.name == u"address" && a.size() == 3 && isTag(a[0], u"is") && singleString(a[1], header)
        && header.compare(u"from", Qt::CaseInsensitive) == 0) {
        rule.condition = Rule::FromAddress;
        return singleString(a[2], rule.text);
    }
    return false;
}

bool readAction(const Command& cmd, Rule& rule)
{
    if (!cmd.tests.isEmpty() || cmd.hasBlock)
        return false;
    static const struct { const char16_t* name; Rule::Action action; bool takesArgument; } actions[] = {
        {u"fileinto", Rule::FileInto, true}, {u"redirect", Rule::Redirect, true}, {u"reject", Rule::Reject, true},
        {u"discard", Rule::Discard, false},  {kSmsCommand, Rule::SmsNotify, false}};
    for (const auto& a : actions) {
        if (cmd.name != a.name)
            continue;
        rule.action = a.action;
        if (!a.takesArgument)
            return cmd.arguments.isEmpty();
        return cmd.arguments.size() == 1 && singleString(cmd.arguments.first(), rule.argument);
    }
    return false;
}

bool knownExtensions(const QStringList& names)
{
    for (const QString& name : names) {
        if (name != u"fileinto" && name != u"reject" && name != kSmsCommand)
            return false;
    }
    return true;
}

} // namespace

QString sizeText(quint64 size)
{
    static const struct { int shift; char16_t unit; } units[] = {{30, u'G'}, {20, u'M'}, {10, u'K'}};
    for (const auto& u : units) {
        const quint64 step = quint64(1) << u.shift;
        if (size >= step && size % step == 0)
            return QString::number(size >> u.shift) + QChar(u.unit);
    }
    return QString::number(size);
}

std::optional<quint64> parseSize(const QString& text)
{
    QString t = text.trimmed();
    int shift = 0;
    if (!t.isEmpty()) {
        const QChar q = t.back().toUpper();
        shift = q == u'K' ? 10 : q == u'M' ? 20 : q == u'G' ? 30 : 0;
        if (shift)
            t.chop(1);
    }
    if (t.isEmpty() || t.size() > 15 || !std::all_of(t.begin(), t.end(), [](QChar c) { return c >= u'0' && c <= u'9'; }))
        return std::nullopt;
    return t.toULongLong() << shift;
}

QString generateScript(const QList<Rule>& rules)
{
    if (rules.isEmpty())
        return {};
    QStringList required;
    for (const Rule::Action action : {Rule::FileInto, Rule::Reject, Rule::SmsNotify}) {
        const bool used = std::any_of(rules.begin(), rules.end(), [action](const Rule& r) { return r.action == action; });
        if (used)
            required.append(quote(QString::fromUtf16(extensionOf(action))));
    }
    QString script;
    if (!required.isEmpty())
        script += QStringLiteral("require [") + required.join(QStringLiteral(", ")) + QStringLiteral("];\n");
    for (const Rule& rule : rules)
        script += QStringLiteral("\nif ") + testText(rule) + QStringLiteral(" {\n    ") + actionText(rule) + QStringLiteral("\n}\n");
    return script;
}

std::optional<QList<Rule>> readRules(const QString& script)
{
    const std::optional<Script> parsed = parse(script);
    if (!parsed)
        return std::nullopt;
    QList<Rule> rules;
    QList<Command> commands = parsed->commands;
    if (!commands.isEmpty() && commands.first().name == u"require") {
        if (!knownExtensions(commands.first().arguments.first().strings))
            return std::nullopt;
        commands.removeFirst();
    }
    rules.reserve(commands.size());
    for (const Command& cmd : std::as_const(commands)) {
        Rule rule;
        if (cmd.name != u"if" || cmd.block.size() != 1 || !readCondition(cmd.tests.first(), rule)
            || !readAction(cmd.block.first(), rule))
            return std::nullopt;
        rules.append(rule);
    }
    return rules;
}

QString describe(const Rule& rule)
{
    QString condition;
    switch (rule.condition) {
    case Rule::HeaderContains: condition = tr("%1 contains \"%2\"").arg(rule.header, rule.text); break;
    case Rule::SizeOver: condition = tr("Size over %1").arg(QLocale().formattedDataSize(qint64(rule.size), 1)); break;
    case Rule::FromAddress: condition = tr("From %1").arg(rule.text); break;
    }
    QString action;
    switch (rule.action) {
    case Rule::FileInto: action = tr("file into \"%1\"").arg(rule.argument); break;
    case Rule::Redirect: action = tr("forward to %1").arg(rule.argument); break;
    case Rule::Reject: action = tr("reject: %1").arg(rule.argument); break;
    case Rule::Discard: action = tr("discard"); break;
    case Rule::SmsNotify: action = tr("send an SMS notification"); break;
    }
    return tr("%1 \u2192 %2").arg(condition, action);
}

RuleProblem validate(const Rule& rule)
{
    switch (rule.condition) {
    case Rule::HeaderContains: {
        if (rule.header.isEmpty())
            return {RuleProblem::Header, tr("Enter the name of the header, such as Subject.")};
        const bool fieldName = std::all_of(rule.header.begin(), rule.header.end(),
                                           [](QChar c) { return c.unicode() > 32 && c.unicode() < 127 && c != u':'; });
        if (!fieldName)
            return {RuleProblem::Header, tr("A header name consists of printable characters other than blanks and ':'.")};
        if (rule.text.isEmpty())
            return {RuleProblem::Text, tr("Enter the text the header must contain.")};
        break;
    }
    case Rule::SizeOver:
        if (rule.size == 0)
            return {RuleProblem::Size, tr("Enter a size greater than 0: a number of bytes, or one followed by K, M or G.")};
        break;
    case Rule::FromAddress:
        if (rule.text.trimmed().isEmpty())
            return {RuleProblem::Text, tr("Enter the sender's address.")};
        break;
    }
    switch (rule.action) {
    case Rule::FileInto:
        if (rule.argument.trimmed().isEmpty())
            return {RuleProblem::Argument, tr("Enter the folder to file the message into.")};
        break;
    case Rule::Redirect:
        if (!rule.argument.contains(u'@') || rule.argument.contains(u' ') || rule.argument.startsWith(u'@')
            || rule.argument.endsWith(u'@'))
            return {RuleProblem::Argument, tr("Enter the address to forward to, such as someone@example.com.")};
        break;
    case Rule::Reject:
        if (rule.argument.trimmed().isEmpty())
            return {RuleProblem::Argument, tr("Enter the reason sent back to the sender.")};
        break;
    case Rule::Discard:
    case Rule::SmsNotify: break;
    }
    return {};
}

} // namespace Sieve
