// The filter plug-in's script rules: which scripts are valid Sieve, where the first error is reported,
// and that rules survive being written as a script and read back.
#include "SieveRules.h"
#include "SieveSyntax.h"

#include <gtest/gtest.h>

using Sieve::Rule;

namespace {

QString q(const char* text) { return QString::fromUtf8(text); }

struct SyntaxCase {
    const char* name;
    const char* script;
};

class SieveAccepts : public ::testing::TestWithParam<SyntaxCase> {};

TEST_P(SieveAccepts, ValidScript)
{
    Sieve::SyntaxError error;
    EXPECT_TRUE(Sieve::parse(q(GetParam().script), &error).has_value())
        << error.line << ":" << error.column << " " << error.message.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Rfc5228, SieveAccepts,
    ::testing::Values(
        SyntaxCase{"empty", ""}, SyntaxCase{"only_comments", "# nothing\n/* still\nnothing */\n"},
        SyntaxCase{"keep", "keep;"},
        SyntaxCase{"require_list", "require [\"fileinto\", \"reject\"];\nfileinto \"INBOX.a\";"},
        SyntaxCase{"require_string", "require \"fileinto\"; require \"reject\";"},
        SyntaxCase{"if_elsif_else",
                   "if header :contains \"subject\" \"x\" { discard; } elsif size :over 10K { keep; } else { stop; }"},
        SyntaxCase{"anyof_not", "if anyof (not exists \"x\", true, allof(false, true)) { keep; }"},
        SyntaxCase{"string_list_test", "if header :is [\"to\", \"cc\"] [\"a@b\", \"c@d\"] { keep; }"},
        SyntaxCase{"quantifiers", "if size :under 1G { keep; } if size :over 3M { keep; } if size :over 7k { keep; }"},
        SyntaxCase{"multi_line", "reject text:\r\nNo thanks.\r\n..dot stuffed\r\n.\r\n;"},
        SyntaxCase{"multi_line_comment_lf", "reject text: # why\nline\n.\n;"},
        SyntaxCase{"escapes", "fileinto \"a\\\"b\\\\c\";"},
        SyntaxCase{"nested_blocks", "if true { if false { if true { keep; } } }"},
        SyntaxCase{"identifier_case", "IF TRUE { KEEP; }"},
        SyntaxCase{"utf8_folder", "require \"fileinto\"; fileinto \"Ablage/Gr\xc3\xbc\xc3\x9f" "e\";"},
        SyntaxCase{"sms_command", "require \"x_sms\"; if true { x_sms; }"}),
    [](const auto& info) { return std::string(info.param.name); });

struct ErrorCase {
    const char* name;
    const char* script;
    int line;
    int column;
    const char* messagePart;
};

class SieveRejects : public ::testing::TestWithParam<ErrorCase> {};

// Each row names the position of the first error; a parser that reports the wrong place or accepts
// the script fails here.
TEST_P(SieveRejects, FirstErrorPosition)
{
    const ErrorCase& c = GetParam();
    Sieve::SyntaxError error;
    EXPECT_FALSE(Sieve::parse(q(c.script), &error).has_value());
    EXPECT_EQ(error.line, c.line);
    EXPECT_EQ(error.column, c.column);
    EXPECT_TRUE(error.message.contains(q(c.messagePart))) << error.message.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Rfc5228, SieveRejects,
    ::testing::Values(
        ErrorCase{"missing_semicolon", "keep\ndiscard;", 2, 1, "Expected ';'"},
        ErrorCase{"unclosed_string", "fileinto \"abc;\n", 1, 10, "not closed"},
        ErrorCase{"unclosed_block", "if true {\n  keep;\n", 3, 1, "not closed"},
        ErrorCase{"stray_brace", "keep;\n}", 2, 1, "Unexpected '}'"},
        ErrorCase{"if_without_test", "if { keep; }", 1, 1, "exactly one test"},
        ErrorCase{"if_without_block", "if true;", 1, 1, "block"},
        ErrorCase{"else_alone", "keep;\nelse { keep; }", 2, 1, "must follow"},
        ErrorCase{"require_late", "keep;\nrequire \"fileinto\";", 2, 1, "before all"},
        ErrorCase{"require_number", "require 5;", 1, 1, "extension names"},
        ErrorCase{"bad_quantifier", "if size :over 10X { keep; }", 1, 17, "K, M or G"},
        ErrorCase{"number_overflow", "if size :over 99999999999999999999 { keep; }", 1, 15, "too large"},
        ErrorCase{"empty_tag", "if header : \"a\" \"b\" { keep; }", 1, 11, "tag"},
        ErrorCase{"bad_character", "keep;\n  @", 2, 3, "Unexpected character"},
        ErrorCase{"unclosed_comment", "keep; /* open", 1, 7, "*/"},
        ErrorCase{"list_not_closed", "require [\"a\", \"b\";", 1, 18, "',' or ']'"},
        ErrorCase{"empty_list", "require [];", 1, 10, "Expected a string"},
        ErrorCase{"test_list_empty", "if anyof () { keep; }", 1, 11, "Expected a test"},
        ErrorCase{"not_without_test", "if not { keep; }", 1, 4, "needs a test"},
        ErrorCase{"text_trailing", "reject text: x\nline\n.\n;", 1, 14, "end of the line"},
        ErrorCase{"text_unterminated", "reject text:\nline\n", 1, 8, "holding only '.'"},
        ErrorCase{"column_after_tab_and_utf8", "fileinto \"\xc3\xa9\";\n\tkeep discard;", 2, 7, "Expected ';'"}),
    [](const auto& info) { return std::string(info.param.name); });

// Hostile scripts end in an error or a result, never in a crash or a stack overflow.
TEST(SieveHostile, DeepNestingIsRefused)
{
    const QString blocks = QString(q("if true {")).repeated(100000);
    Sieve::SyntaxError error;
    EXPECT_FALSE(Sieve::parse(blocks, &error));
    EXPECT_TRUE(error.message.contains(q("nested"))) << error.message.toStdString();
    const QString tests = q("if ") + q("not ").repeated(100000) + q("true { keep; }");
    EXPECT_FALSE(Sieve::parse(tests, &error));
    EXPECT_TRUE(error.message.contains(q("nested")));
}

TEST(SieveHostile, HugeAndBrokenInput)
{
    QByteArray junk(3 << 20, '\0');
    for (qsizetype i = 0; i < junk.size(); ++i)
        junk[i] = char((i * 7919) % 256);
    Sieve::SyntaxError error;
    EXPECT_FALSE(Sieve::parse(QString::fromUtf8(junk), &error));
    EXPECT_GE(error.line, 1);
    const QString many = q("keep;\n").repeated(200000);
    EXPECT_EQ(Sieve::parse(many)->commands.size(), 200000);
    EXPECT_FALSE(Sieve::readRules(many).has_value());
}

Rule makeRule(Rule::Condition c, const char* text, Rule::Action a, const char* argument, quint64 size = 0,
              const char* header = "Subject")
{
    Rule r;
    r.condition = c;
    r.text = q(text);
    r.size = size;
    r.header = q(header);
    r.action = a;
    r.argument = q(argument);
    return r;
}

TEST(SieveRules, RoundTripEveryConditionAndAction)
{
    const QList<Rule> rules = {
        makeRule(Rule::HeaderContains, "sale \"today\" \\ only", Rule::FileInto, "Ads/Offers"),
        makeRule(Rule::HeaderContains, "urgent", Rule::SmsNotify, "", 0, "X-Priority"),
        makeRule(Rule::SizeOver, "", Rule::Reject, "Too big.\nSend a link instead.", 10 << 20),
        makeRule(Rule::SizeOver, "", Rule::Discard, "", 1500),
        makeRule(Rule::FromAddress, "boss@example.com", Rule::Redirect, "me@mobile.example"),
        makeRule(Rule::FromAddress, "gr\xc3\xbc\xc3\x9f" "e@example.de", Rule::FileInto, "Gr\xc3\xbc\xc3\x9f" "e"),
    };
    const QString script = Sieve::generateScript(rules);
    Sieve::SyntaxError error;
    ASSERT_TRUE(Sieve::parse(script, &error)) << error.message.toStdString() << "\n" << script.toStdString();
    const std::optional<QList<Rule>> back = Sieve::readRules(script);
    ASSERT_TRUE(back.has_value()) << script.toStdString();
    EXPECT_EQ(*back, rules);
    EXPECT_TRUE(script.startsWith(q("require [\"fileinto\", \"reject\", \"x_sms\"];")));
    EXPECT_TRUE(script.contains(q("size :over 10M")));
    EXPECT_TRUE(script.contains(q("size :over 1500")));
}

TEST(SieveRules, SmsRuleIsFoundByItsCommandText)
{
    const QString script = Sieve::generateScript({makeRule(Rule::SizeOver, "", Rule::SmsNotify, "", 1024)});
    EXPECT_TRUE(script.contains(q("x_sms")));
    const QString other = Sieve::generateScript({makeRule(Rule::SizeOver, "", Rule::Discard, "", 1024)});
    EXPECT_FALSE(other.contains(q("x_sms")));
    EXPECT_FALSE(other.contains(q("require")));
}

TEST(SieveRules, EmptyScriptIsNoRules)
{
    EXPECT_TRUE(Sieve::generateScript({}).isEmpty());
    ASSERT_TRUE(Sieve::readRules(QString()).has_value());
    EXPECT_TRUE(Sieve::readRules(q("  # only a comment\n"))->isEmpty());
}

class SieveNotRules : public ::testing::TestWithParam<const char*> {};

// Valid Sieve that the rules cannot show must be kept as text rather than simplified.
TEST_P(SieveNotRules, KeptAsText)
{
    ASSERT_TRUE(Sieve::parse(q(GetParam())).has_value());
    EXPECT_FALSE(Sieve::readRules(q(GetParam())).has_value());
}

INSTANTIATE_TEST_SUITE_P(
    Raw, SieveNotRules,
    ::testing::Values("keep;", "require \"vacation\"; vacation \"away\";",
                      "if header :contains \"subject\" \"a\" { discard; } else { keep; }",
                      "if header :contains \"subject\" \"a\" { discard; stop; }",
                      "if header :is \"subject\" \"a\" { discard; }",
                      "if header :contains [\"subject\", \"to\"] \"a\" { discard; }",
                      "if size :under 1K { discard; }", "if address :is \"to\" \"a@b\" { discard; }",
                      "if anyof (size :over 1K) { discard; }", "if true { fileinto :copy \"x\"; }"));

struct SizeCase {
    const char* text;
    std::optional<quint64> value;
};

class SieveSizes : public ::testing::TestWithParam<SizeCase> {};

TEST_P(SieveSizes, Parse)
{
    EXPECT_EQ(Sieve::parseSize(q(GetParam().text)), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Sizes, SieveSizes,
                         ::testing::Values(SizeCase{"1500", 1500}, SizeCase{" 100k ", 100 << 10},
                                           SizeCase{"3M", 3 << 20}, SizeCase{"2G", quint64(2) << 30},
                                           SizeCase{"", std::nullopt}, SizeCase{"K", std::nullopt},
                                           SizeCase{"-5", std::nullopt}, SizeCase{"1.5M", std::nullopt},
                                           SizeCase{"99999999999999999", std::nullopt}));

struct ProblemCase {
    Rule rule;
    Sieve::RuleProblem::Field field;
};

class SieveRuleProblems : public ::testing::TestWithParam<ProblemCase> {};

TEST_P(SieveRuleProblems, FirstMissingField)
{
    const Sieve::RuleProblem problem = Sieve::validate(GetParam().rule);
    EXPECT_EQ(problem.field, GetParam().field);
    EXPECT_EQ(problem.message.isEmpty(), GetParam().field == Sieve::RuleProblem::None);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, SieveRuleProblems,
    ::testing::Values(
        ProblemCase{makeRule(Rule::HeaderContains, "x", Rule::Discard, "", 0, ""), Sieve::RuleProblem::Header},
        ProblemCase{makeRule(Rule::HeaderContains, "x", Rule::Discard, "", 0, "Sub ject"), Sieve::RuleProblem::Header},
        ProblemCase{makeRule(Rule::HeaderContains, "", Rule::Discard, ""), Sieve::RuleProblem::Text},
        ProblemCase{makeRule(Rule::SizeOver, "", Rule::Discard, "", 0), Sieve::RuleProblem::Size},
        ProblemCase{makeRule(Rule::FromAddress, " ", Rule::Discard, ""), Sieve::RuleProblem::Text},
        ProblemCase{makeRule(Rule::FromAddress, "a@b", Rule::FileInto, " "), Sieve::RuleProblem::Argument},
        ProblemCase{makeRule(Rule::FromAddress, "a@b", Rule::Redirect, "nobody"), Sieve::RuleProblem::Argument},
        ProblemCase{makeRule(Rule::FromAddress, "a@b", Rule::Reject, ""), Sieve::RuleProblem::Argument},
        ProblemCase{makeRule(Rule::SizeOver, "", Rule::SmsNotify, "", 1), Sieve::RuleProblem::None},
        ProblemCase{makeRule(Rule::FromAddress, "a@b", Rule::Redirect, "c@d"), Sieve::RuleProblem::None}));

} // namespace
