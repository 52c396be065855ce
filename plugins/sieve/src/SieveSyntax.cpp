#include "SieveSyntax.h"

#include <QCoreApplication>

namespace Sieve {
namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Sieve", text);
}

// Deeper nesting than this is refused rather than risking the stack on hostile input.
constexpr int kMaxDepth = 64;

struct Token {
    enum Kind { End, Identifier, Tag, Number, String, LBracket, RBracket, LBrace, RBrace, LParen, RParen, Comma, Semicolon } kind = End;
    qsizetype offset = 0;
    QString text;  // identifier/tag name (lower case), the string's value
    quint64 number = 0;
};

struct Failure {
    qsizetype offset;
    QString message;
};

bool isAlpha(QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_'; }
bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

class Tokenizer {
public:
    explicit Tokenizer(const QString& text) : m_text(text) {}

    Token next()
    {
        skipBlanksAndComments();
        Token token;
        token.offset = m_pos;
        if (m_pos >= m_text.size())
            return token;
        const QChar c = m_text[m_pos];
        switch (c.unicode()) {
        case u'[': return single(token, Token::LBracket);
        case u']': return single(token, Token::RBracket);
        case u'{': return single(token, Token::LBrace);
        case u'}': return single(token, Token::RBrace);
        case u'(': return single(token, Token::LParen);
        case u')': return single(token, Token::RParen);
        case u',': return single(token, Token::Comma);
        case u';': return single(token, Token::Semicolon);
        case u'"': return quoted(token);
        case u':':
            ++m_pos;
            if (m_pos >= m_text.size() || !isAlpha(m_text[m_pos]))
                throw Failure{token.offset, tr("A tag needs a name after ':'")};
            token.kind = Token::Tag;
            token.text = identifier();
            return token;
        default: break;
        }
        if (isDigit(c))
            return number(token);
        if (isAlpha(c)) {
            token.text = identifier();
            if (token.text == u"text" && m_pos < m_text.size() && m_text[m_pos] == u':')
                return multiLine(token);
            token.kind = Token::Identifier;
            return token;
        }
        throw Failure{token.offset, tr("Unexpected character '%1'").arg(c)};
    }

private:
    Token single(Token& token, Token::Kind kind)
    {
        token.kind = kind;
        ++m_pos;
        return token;
    }

    void skipBlanksAndComments()
    {
        while (m_pos < m_text.size()) {
            const QChar c = m_text[m_pos];
            if (c == u' ' || c == u'\t' || c == u'\r' || c == u'\n') {
                ++m_pos;
            } else if (c == u'#') {
                skipToLineEnd();
            } else if (c == u'/' && m_pos + 1 < m_text.size() && m_text[m_pos + 1] == u'*') {
                const qsizetype end = m_text.indexOf(u"*/", m_pos + 2);
                if (end < 0)
                    throw Failure{m_pos, tr("Comment not closed with '*/'")};
                m_pos = end + 2;
            } else {
                return;
            }
        }
    }

    void skipToLineEnd()
    {
        while (m_pos < m_text.size() && m_text[m_pos] != u'\n')
            ++m_pos;
    }

    QString identifier()
    {
        const qsizetype start = m_pos;
        while (m_pos < m_text.size() && (isAlpha(m_text[m_pos]) || isDigit(m_text[m_pos])))
            ++m_pos;
        return m_text.mid(start, m_pos - start).toLower();
    }

    Token number(Token& token)
    {
        constexpr quint64 kLimit = quint64(1) << 53;
        quint64 value = 0;
        while (m_pos < m_text.size() && isDigit(m_text[m_pos])) {
            value = value * 10 + quint64(m_text[m_pos].unicode() - u'0');
            if (value > kLimit)
                throw Failure{token.offset, tr("Number too large")};
            ++m_pos;
        }
        if (m_pos < m_text.size()) {
            const QChar q = m_text[m_pos].toUpper();
            const int shift = q == u'K' ? 10 : q == u'M' ? 20 : q == u'G' ? 30 : 0;
            if (shift) {
                ++m_pos;
                if (value > (kLimit >> shift))
                    throw Failure{token.offset, tr("Number too large")};
                value <<= shift;
            }
        }
        if (m_pos < m_text.size() && (isAlpha(m_text[m_pos]) || isDigit(m_text[m_pos])))
            throw Failure{m_pos, tr("A number may only be followed by K, M or G")};
        token.kind = Token::Number;
        token.number = value;
        return token;
    }

    Token quoted(Token& token)
    {
        ++m_pos;
        QString value;
        while (m_pos < m_text.size()) {
            QChar c = m_text[m_pos++];
            if (c == u'"') {
                token.kind = Token::String;
                token.text = value;
                return token;
            }
            if (c == u'\\') {
                if (m_pos >= m_text.size())
                    break;
                c = m_text[m_pos++];
            }
            value += c;
        }
        throw Failure{token.offset, tr("String not closed with '\"'")};
    }

    // text: followed by blanks and a comment or the line end, then lines up to a line holding only
    // "."; a line starting with ".." loses its first dot.
    Token multiLine(Token& token)
    {
        ++m_pos;  // the ':'
        while (m_pos < m_text.size() && (m_text[m_pos] == u' ' || m_text[m_pos] == u'\t'))
            ++m_pos;
        if (m_pos < m_text.size() && m_text[m_pos] == u'#')
            skipToLineEnd();
        if (m_pos < m_text.size() && m_text[m_pos] == u'\r')
            ++m_pos;
        if (m_pos >= m_text.size() || m_text[m_pos] != u'\n')
            throw Failure{m_pos, tr("'text:' must be followed by the end of the line")};
        ++m_pos;
        QString value;
        while (m_pos < m_text.size()) {
            qsizetype end = m_text.indexOf(u'\n', m_pos);
            if (end < 0)
                end = m_text.size();
            QStringView line = QStringView(m_text).mid(m_pos, end - m_pos);
            if (line.endsWith(u'\r'))
                line.chop(1);
            m_pos = end < m_text.size() ? end + 1 : end;
            if (line == u".") {
                token.kind = Token::String;
                token.text = value;
                return token;
            }
            if (line.startsWith(u".."))
                line = line.mid(1);
            value += line;
            value += u"\r\n";
        }
        throw Failure{token.offset, tr("Multi-line text not ended by a line holding only '.'")};
    }

    const QString& m_text;
    qsizetype m_pos = 0;
};

class Parser {
public:
    explicit Parser(const QString& text) : m_tokens(text) { advance(); }

    Script script()
    {
        Script result;
        result.commands = commands(0);
        if (m_token.kind != Token::End)
            throw Failure{m_token.offset, tr("Unexpected '}'")};
        return result;
    }

private:
    void advance() { m_token = m_tokens.next(); }

    QList<Command> commands(int depth)
    {
        if (depth > kMaxDepth)
            throw Failure{m_token.offset, tr("Blocks nested too deeply")};
        QList<Command> list;
        bool requireAllowed = depth == 0;
        while (m_token.kind == Token::Identifier) {
            const Token start = m_token;
            Command cmd = command(depth);
            checkCommand(cmd, start, list, requireAllowed);
            requireAllowed = requireAllowed && cmd.name == u"require";
            list.append(std::move(cmd));
        }
        if (m_token.kind != Token::End && m_token.kind != Token::RBrace)
            throw Failure{m_token.offset, tr("Expected a command")};
        return list;
    }

    Command command(int depth)
    {
        Command cmd;
        cmd.name = m_token.text;
        advance();
        cmd.arguments = arguments();
        const qsizetype testOffset = m_token.offset;
        cmd.tests = testsAfterArguments(depth);
        // Only the control commands take a test; anything else there is most likely a missing ';'.
        if (!cmd.tests.isEmpty() && cmd.name != u"if" && cmd.name != u"elsif")
            throw Failure{testOffset, tr("Expected ';' after '%1'").arg(cmd.name)};
        if (m_token.kind == Token::Semicolon) {
            advance();
        } else if (m_token.kind == Token::LBrace) {
            advance();
            cmd.hasBlock = true;
            cmd.block = commands(depth + 1);
            if (m_token.kind != Token::RBrace)
                throw Failure{m_token.offset, tr("Block not closed with '}'")};
            advance();
        } else {
            throw Failure{m_token.offset, tr("Expected ';' after '%1'").arg(cmd.name)};
        }
        return cmd;
    }

    void checkCommand(const Command& cmd, const Token& start, const QList<Command>& before, bool requireAllowed)
    {
        const QString& n = cmd.name;
        if (n == u"if" || n == u"elsif") {
            if (cmd.tests.size() != 1 || !cmd.arguments.isEmpty())
                throw Failure{start.offset, tr("'%1' needs exactly one test").arg(n)};
        }
        if (n == u"if" || n == u"elsif" || n == u"else") {
            if (!cmd.hasBlock)
                throw Failure{start.offset, tr("'%1' needs a block in '{' and '}'").arg(n)};
        }
        if (n == u"else" && (!cmd.arguments.isEmpty() || !cmd.tests.isEmpty()))
            throw Failure{start.offset, tr("'else' takes no test")};
        if (n == u"elsif" || n == u"else") {
            if (before.isEmpty() || (before.last().name != u"if" && before.last().name != u"elsif"))
                throw Failure{start.offset, tr("'%1' must follow 'if' or 'elsif'").arg(n)};
        }
        if (n == u"require") {
            if (!requireAllowed)
                throw Failure{start.offset, tr("'require' must come before all other commands")};
            if (cmd.arguments.size() != 1 || cmd.arguments[0].kind != Argument::StringList || !cmd.tests.isEmpty()
                || cmd.hasBlock)
                throw Failure{start.offset, tr("'require' needs a list of extension names")};
        }
    }

    QList<Argument> arguments()
    {
        QList<Argument> list;
        for (;;) {
            Argument arg;
            if (m_token.kind == Token::Tag) {
                arg.kind = Argument::Tag;
                arg.tag = m_token.text;
                advance();
            } else if (m_token.kind == Token::Number) {
                arg.kind = Argument::Number;
                arg.number = m_token.number;
                advance();
            } else if (m_token.kind == Token::String) {
                arg.strings.append(m_token.text);
                advance();
            } else if (m_token.kind == Token::LBracket) {
                arg.isList = true;
                arg.strings = stringList();
            } else {
                return list;
            }
            list.append(std::move(arg));
        }
    }

    QStringList stringList()
    {
        QStringList strings;
        advance();  // '['
        for (;;) {
            if (m_token.kind != Token::String)
                throw Failure{m_token.offset, tr("Expected a string in the list")};
            strings.append(m_token.text);
            advance();
            if (m_token.kind == Token::RBracket) {
                advance();
                return strings;
            }
            if (m_token.kind != Token::Comma)
                throw Failure{m_token.offset, tr("Expected ',' or ']' in the string list")};
            advance();
        }
    }

    QList<Test> testsAfterArguments(int depth)
    {
        QList<Test> tests;
        if (m_token.kind == Token::Identifier) {
            tests.append(test(depth + 1));
        } else if (m_token.kind == Token::LParen) {
            advance();
            for (;;) {
                if (m_token.kind != Token::Identifier)
                    throw Failure{m_token.offset, tr("Expected a test")};
                tests.append(test(depth + 1));
                if (m_token.kind == Token::RParen) {
                    advance();
                    break;
                }
                if (m_token.kind != Token::Comma)
                    throw Failure{m_token.offset, tr("Expected ',' or ')' in the test list")};
                advance();
            }
        }
        return tests;
    }

    Test test(int depth)
    {
        if (depth > kMaxDepth)
            throw Failure{m_token.offset, tr("Tests nested too deeply")};
        Test t;
        t.name = m_token.text;
        const qsizetype offset = m_token.offset;
        advance();
        t.arguments = arguments();
        t.tests = testsAfterArguments(depth);
        if ((t.name == u"not" && t.tests.size() != 1) || ((t.name == u"anyof" || t.name == u"allof") && t.tests.isEmpty()))
            throw Failure{offset, tr("'%1' needs a test").arg(t.name)};
        return t;
    }

    Tokenizer m_tokens;
    Token m_token;
};

} // namespace

std::optional<Script> parse(const QString& text, SyntaxError* error)
{
    try {
        Parser parser(text);
        return parser.script();
    } catch (const Failure& failure) {
        if (error) {
            error->offset = failure.offset;
            error->message = failure.message;
            const QStringView head = QStringView(text).left(failure.offset);
            error->line = int(head.count(u'\n')) + 1;
            const qsizetype lineStart = head.lastIndexOf(u'\n') + 1;
            error->column = int(failure.offset - lineStart) + 1;
        }
        return std::nullopt;
    }
}

QString quote(const QString& text)
{
    QString out;
    out.reserve(text.size() + 2);
    out += u'"';
    for (const QChar c : text) {
        if (c == u'"' || c == u'\\')
            out += u'\\';
        out += c;
    }
    out += u'"';
    return out;
}

} // namespace Sieve
