#include "security/PropertyWrites.h"

#include "config/AccessLayer.h"
#include "config/ErrorReport.h"

#include <QRegularExpression>

#include <velbrook/ServerStore.h>

bool writeChangedNumber(_tMailServer* server, const char* section, const char* name, quint32 value, quint32& read)
{
    if (value == read)
        return true;
    if (!WriteServerNumber(server, section, name, value)) {
        ReportPropertyWriteFailure(name);
        return false;
    }
    read = value;
    return true;
}

bool writeChangedString(_tMailServer* server, const char* section, const char* name, const QString& value,
                        QString& read)
{
    if (value == read)
        return true;
    if (!WriteServerString(server, section, name, value)) {
        ReportPropertyWriteFailure(name);
        return false;
    }
    read = value;
    return true;
}

QStringList splitListText(const QString& text)
{
    static const QRegularExpression separators(QStringLiteral("[,\\s]+"));
    return text.split(separators, Qt::SkipEmptyParts);
}

QString joinListText(const QStringList& entries)
{
    return entries.join(QLatin1String(", "));
}

bool readServerMultiString(_tMailServer* server, const char* section, const char* name, QStringList& values)
{
    values.clear();
    QByteArray buffer(4096, '\0');
    uint32_t size = uint32_t(buffer.size());
    bool read = GetMailServerProperty(server, section, name, buffer.data(), &size, nullptr) != 0;
    if (!read && GetLastError() == VB_ERROR_MORE_DATA) {
        buffer.fill('\0', qsizetype(size) + 2);
        size = uint32_t(buffer.size());
        read = GetMailServerProperty(server, section, name, buffer.data(), &size, nullptr) != 0;
    }
    if (!read)
        return GetLastError() == VB_ERROR_FILE_NOT_FOUND;
    buffer.truncate(qMin<qsizetype>(buffer.size(), size));
    for (const QByteArray& part : buffer.split('\0')) {
        if (part.isEmpty())
            break;
        values.append(QString::fromUtf8(part));
    }
    return true;
}
