// Sieve (RFC 5228) scripts: a tokenizer and a parser that check the syntax and build a small syntax
// tree. No widgets; the filter editor and its tests use it alike.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace Sieve {

// Where and why a script is not valid Sieve. Line and column count from 1; the column counts
// characters (UTF-16 units) from the start of the line.
struct SyntaxError {
    int line = 0;
    int column = 0;
    qsizetype offset = 0;  // position in the script's text, for putting the cursor there
    QString message;
};

struct Test;

// One argument of a command or a test: a tag (":contains"), a number (K, M and G already applied) or
// a string list (a single string is a list of one).
struct Argument {
    enum Kind { Tag, Number, StringList } kind = StringList;
    QString tag;
    quint64 number = 0;
    QStringList strings;
    bool isList = false;  // written with brackets
};

struct Test {
    QString name;  // lower case
    QList<Argument> arguments;
    QList<Test> tests;  // "anyof"/"allof" lists and the operand of "not"
};

struct Command {
    QString name;  // lower case
    QList<Argument> arguments;
    QList<Test> tests;  // the test of if/elsif, or a test list
    bool hasBlock = false;
    QList<Command> block;
};

struct Script {
    QList<Command> commands;
};

// Parses a whole script. On a syntax error returns nothing and fills error (when given) with the
// first error found.
std::optional<Script> parse(const QString& text, SyntaxError* error = nullptr);

// Quotes a text as a Sieve quoted string ("..." with \" and \\ escaped).
QString quote(const QString& text);

} // namespace Sieve
