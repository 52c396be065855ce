#include "maillist/HeaderScript.h"

#include <QCoreApplication>
#include <QStringList>

namespace HeaderScript {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("HeaderScript", text);
}

// The error of a command line, empty when the line is valid.
QString lineError(const QString& line)
{
    const qsizetype space = line.indexOf(QLatin1Char(' '));
    const QString command = line.left(space < 0 ? line.size() : space).toLower();
    const QString rest = space < 0 ? QString() : line.mid(space + 1).trimmed();
    if (command == QLatin1String("add") || command == QLatin1String("set")) {
        const qsizetype colon = rest.indexOf(QLatin1Char(':'));
        if (colon < 0)
            return tr("\"%1\" needs a header name followed by a colon and a value.").arg(command);
        const QString name = rest.left(colon).trimmed();
        if (!isHeaderName(name))
            return tr("\"%1\" is not a valid header name.").arg(name);
        return QString();
    }
    if (command == QLatin1String("remove") || command == QLatin1String("rename")) {
        const QStringList words = rest.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const int wanted = command == QLatin1String("remove") ? 1 : 2;
        if (words.size() != wanted)
            return command == QLatin1String("remove") ? tr("\"remove\" takes exactly one header name.")
                                                      : tr("\"rename\" takes a header name and its new name.");
        for (const QString& w : words)
            if (!isHeaderName(w))
                return tr("\"%1\" is not a valid header name.").arg(w);
        return QString();
    }
    return tr("Unknown command \"%1\"; use add, set, remove or rename.").arg(command);
}

} // namespace

bool isHeaderName(const QString& name)
{
    if (name.isEmpty())
        return false;
    for (QChar c : name)
        if (c.unicode() < 33 || c.unicode() > 126 || c == QLatin1Char(':'))
            return false;
    return true;
}

QList<Error> check(const QString& script)
{
    QList<Error> errors;
    const QStringList lines = script.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        QString line = lines[i].trimmed();
        line.replace(QLatin1Char('\t'), QLatin1Char(' '));
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QString error = lineError(line);
        if (!error.isEmpty())
            errors.append({int(i + 1), error});
    }
    return errors;
}

} // namespace HeaderScript
