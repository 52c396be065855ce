#include "maillist/MemberCsv.h"

#include "common/SubnetCsv.h"

#include <QCoreApplication>

#include <velbrook/MailToolkit.h>

namespace MemberCsv {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("MemberCsv", text);
}

QByteArray quoted(const QString& text)
{
    QByteArray bytes = text.toUtf8();
    if (!bytes.contains(',') && !bytes.contains('"'))
        return bytes;
    bytes.replace("\"", "\"\"");
    return '"' + bytes + '"';
}

} // namespace

bool isValidAddress(const QString& address)
{
    const QByteArray bytes = address.toUtf8();
    const qsizetype at = address.lastIndexOf(QLatin1Char('@'));
    if (at <= 0 || at == address.size() - 1 || bytes.size() > 255)
        return false;
    for (QChar c : address)
        if (c.unicode() <= 32 || c.unicode() == 127)
            return false;
    return IsValidHostName(address.mid(at + 1).toUtf8().constData()) != 0;
}

QString addressKey(const QString& address)
{
    QString key = address;
    for (QChar& c : key)
        if (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
            c = QChar(c.unicode() + 32);
    return key;
}

Parsed parse(const QByteArray& text, const QSet<QString>& existing)
{
    Parsed out;
    QSet<QString> seen;
    int lineNumber = 0;
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = text.indexOf('\n', start);
        if (end < 0)
            end = text.size();
        const std::string_view line(text.constData() + start, size_t(end - start));
        start = end + 1;
        ++lineNumber;
        if (line.find_first_not_of(" \t\r") == std::string_view::npos)
            continue;
        const SubnetCsv::Field first = SubnetCsv::readField(line, 0);
        const QString address = QString::fromUtf8(first.text.data(), qsizetype(first.text.size())).trimmed();
        QString name;
        if (first.hasNext) {
            const SubnetCsv::Field second = SubnetCsv::readField(line, first.next);
            name = QString::fromUtf8(second.text.data(), qsizetype(second.text.size())).trimmed();
        }
        if (lineNumber == 1 && (address.compare(QLatin1String("address"), Qt::CaseInsensitive) == 0
                                || address.compare(QLatin1String("e-mail"), Qt::CaseInsensitive) == 0))
            continue;
        const QString key = addressKey(address);
        if (!isValidAddress(address))
            out.bad.append({lineNumber, tr("\"%1\" is not a valid mail address").arg(address)});
        else if (name.toUtf8().size() > 255)
            out.bad.append({lineNumber, tr("the name is longer than 255 bytes")});
        else if (existing.contains(key))
            out.bad.append({lineNumber, tr("%1 is already a member").arg(address)});
        else if (seen.contains(key))
            out.bad.append({lineNumber, tr("%1 is given twice").arg(address)});
        else {
            seen.insert(key);
            out.rows.push_back({address, name, lineNumber});
        }
    }
    return out;
}

QByteArray exportLine(const QString& address, const QString& name)
{
    return quoted(address) + ',' + quoted(name);
}

} // namespace MemberCsv
