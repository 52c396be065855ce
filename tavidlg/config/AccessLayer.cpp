#include "config/AccessLayer.h"

#include "config/MessageFormat.h"

#include <QByteArray>
#include <QVariant>
#include <QWidget>

#include <cstring>
#include <vector>

namespace {

QString fromBuffer(const std::vector<char>& buffer)
{
    // The store promises a terminating zero; do not trust it beyond the buffer.
    const void* end = std::memchr(buffer.data(), 0, buffer.size());
    const size_t length = end ? static_cast<const char*>(end) - buffer.data() : buffer.size();
    return QString::fromUtf8(buffer.data(), qsizetype(length));
}

const char kCaptionTemplate[] = "taviCaptionTemplate";

} // namespace

bool ReadServerString(_tMailServer* server, const char* section, const char* name, QString& value, uint32_t size)
{
    std::vector<char> buffer(size ? size : 1, '\0');
    uint32_t actual = size;
    if (GetMailServerProperty(server, section, name, buffer.data(), &actual, nullptr)) {
        value = fromBuffer(buffer);
        return true;
    }
    value.clear();
    if (GetLastError() != VB_ERROR_MORE_DATA)
        return false;
    // One retry with what the store says it needs, and a little more.
    actual = actual + 10 < actual ? actual : actual + 10;
    buffer.assign(actual, '\0');
    if (!GetMailServerProperty(server, section, name, buffer.data(), &actual, nullptr))
        return false;
    value = fromBuffer(buffer);
    return true;
}

bool ReadServerNumber(_tMailServer* server, const char* section, const char* name, quint32& value,
                      quint32 defaultValue)
{
    uint32_t number = 0;
    uint32_t size = sizeof number;
    uint32_t type = 0;
    // A short text would fit the 4-byte buffer too; only a stored number counts as read.
    if (GetMailServerProperty(server, section, name, &number, &size, &type) && type == VB_TYPE_DWORD) {
        value = number;
        return true;
    }
    value = defaultValue;
    return false;
}

bool WriteServerString(_tMailServer* server, const char* section, const char* name, const QString& value)
{
    const QByteArray utf8 = value.toUtf8();
    return SetMailServerProperty(server, section, VB_TYPE_STRING, name, utf8.constData(),
                                 uint32_t(utf8.size() + 1)) == 1;
}

bool WriteServerNumber(_tMailServer* server, const char* section, const char* name, quint32 value)
{
    const uint32_t number = value;
    return SetMailServerProperty(server, section, VB_TYPE_DWORD, name, &number, sizeof number) == 1;
}

bool ReadServerConstant(_tMailServer* server, const char* name, QString& value, uint32_t size)
{
    std::vector<char> buffer(size ? size : 1, '\0');
    uint32_t actual = size;
    if (!GetMailServerConstant(server, name, buffer.data(), &actual, nullptr))
        return false;
    value = fromBuffer(buffer);
    return true;
}

void SetServerCaption(QWidget* dialog, _tMailServer* server)
{
    if (!dialog)
        return;
    QString name;
    if (!ReadServerConstant(server, "MachineName", name, 257))
        return;
    if (name.isEmpty() && IsLocalMachine(server)) {
        char computer[257] = {};
        uint32_t size = sizeof computer;
        if (!GetThisComputerName(computer, &size))
            return;
        computer[sizeof computer - 1] = '\0';
        name = QString::fromUtf8(computer);
        while (name.startsWith(QLatin1Char('\\')))
            name.remove(0, 1);
    } else if (name.isEmpty() && IsRemotelyManaged(server)) {
        ReadServerConstant(server, "HostName", name, 257);
    }
    QVariant stored = dialog->property(kCaptionTemplate);
    if (!stored.isValid()) {
        stored = dialog->windowTitle();
        dialog->setProperty(kCaptionTemplate, stored);
    }
    dialog->setWindowTitle(TaviFormat(stored.toString(), {name}));
}

bool IsClusteredConfiguration(_tMailServer* server)
{
    _tConfigConnectorInfo info = {};
    info.cbSize = sizeof info;
    if (!GetConfigConnectorInfo(server, &info))
        info.connectorType = 0;
    return info.connectorType != 0 && info.clustered != 0;
}
