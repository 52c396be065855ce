#include "common/SubnetListProperty.h"

#include "common/PlatformServices.h"
#include "common/SubnetCsv.h"
#include "common/SubnetListDlg.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "entry/EntryFrame.h"
#include "res/StringTable.h"
#include "res/SubnetStringIds.h"

#include <QWidget>

#include <velbrook/ServerStore.h>

#include <memory>
#include <string>
#include <unordered_set>

namespace {

constexpr uint32_t kFirstReadSize = 4096;

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

struct ListDeleter {
    void operator()(_tIp4Subnet* first) const { FreeIp4SubnetList(first); }
};
using ListPtr = std::unique_ptr<_tIp4Subnet, ListDeleter>;

} // namespace

SubnetPropertyList parseSubnetMultiString(std::string_view bytes)
{
    SubnetPropertyList out;
    _tIp4Subnet* first = nullptr;
    _tIp4Subnet* last = nullptr;
    std::unordered_set<uint64_t> seen;
    std::size_t at = 0;
    while (at < bytes.size()) {
        std::size_t end = bytes.find('\0', at);
        if (end == std::string_view::npos)
            end = bytes.size();
        const std::string_view element = bytes.substr(at, end - at);
        at = end + 1;
        if (element.empty())
            break; // the empty string that ends the list
        // "subnet" or "subnet,\"comment\"": an entry without a comment has an empty one.
        const SubnetCsv::Field subnetField = SubnetCsv::readField(element, 0);
        const std::string subnet(trimmed(subnetField.text));
        const std::string comment =
            subnetField.hasNext ? SubnetCsv::readField(element, subnetField.next).text : std::string();
        uint32_t address = 0;
        uint32_t mask = 0;
        if (!ParseIp4Subnet(subnet.c_str(), '/', &address, &mask) || !IsValidIp4CommentString(comment.c_str())
            || comment.find('\0') != std::string::npos) {
            ++out.badEntries;
            continue;
        }
        if (!seen.insert((uint64_t(address) << 32) | mask).second) {
            ++out.badEntries;
            continue;
        }
        _tIp4Subnet* added = InsertAfterIp4Subnet(&first, last, address, mask, comment.c_str());
        if (!added) {
            ++out.badEntries;
            continue;
        }
        last = added;
    }
    out.list = first;
    return out;
}

QByteArray encodeSubnetMultiString(const _tIp4Subnet* first)
{
    QByteArray bytes;
    for (const _tIp4Subnet* p = first; p; p = p->next) {
        char subnet[VB_SUBNET_TEXT_SIZE] = {};
        GetSubnetString(p->address, p->mask, subnet);
        const std::string line = p->comment[0] ? SubnetCsv::exportLine(*p) : std::string(subnet);
        bytes.append(line.data(), qsizetype(line.size()));
        bytes.append('\0');
    }
    bytes.append('\0');
    return bytes;
}

bool readSubnetListProperty(_tMailServer* server, const char* section, const char* name, SubnetPropertyList& out)
{
    out = SubnetPropertyList();
    QByteArray buffer(kFirstReadSize, '\0');
    uint32_t size = uint32_t(buffer.size());
    uint32_t type = 0;
    bool read = GetMailServerProperty(server, section, name, buffer.data(), &size, &type) != 0;
    // A list larger than the first buffer: once more with the size the store asks for.
    if (!read && GetLastError() == VB_ERROR_MORE_DATA) {
        buffer = QByteArray(qsizetype(size), '\0');
        read = GetMailServerProperty(server, section, name, buffer.data(), &size, &type) != 0;
    }
    if (!read)
        return GetLastError() == VB_ERROR_FILE_NOT_FOUND;
    if (type == VB_TYPE_STRING) {
        // The toolkit's own rendering (EncodeIp4SubnetList): subnets without comments in one text.
        if (!ParseIp4SubnetList(buffer.constData(), &out.list))
            out.badEntries = CountNames(buffer.constData());
        return true;
    }
    out = parseSubnetMultiString(std::string_view(buffer.constData(), qMin<std::size_t>(size, std::size_t(buffer.size()))));
    return true;
}

bool writeSubnetListProperty(_tMailServer* server, const char* section, const char* name, const _tIp4Subnet* first)
{
    const QByteArray bytes = encodeSubnetMultiString(first);
    return SetMailServerProperty(server, section, VB_TYPE_MULTI_STRING, name, bytes.constData(), uint32_t(bytes.size())) == 1;
}

int editServerSubnetList(COwnerWindow& owner, _tMailServer* server, const char* section, const char* name,
                         unsigned captionId)
{
    if (!server || !name)
        return -1;
    const QString property = QString::fromUtf8(name);
    SubnetPropertyList read;
    {
        CWaitCursor wait;
        if (!readSubnetListProperty(server, section, name, read)) {
            ReportErrorFormat1(GetLastError(), IDS_SUBNET_PROPERTY_UNREADABLE, property);
            return -1;
        }
    }
    ListPtr list(read.list);
    if (read.badEntries > 0)
        taviMessageBox(TaviFormat(TaviString(IDS_SUBNET_PROPERTY_BAD_ENTRIES), {QString::number(read.badEntries), property}),
                       Mb::Ok | Mb::IconExclamation);
    // What was read, as it would be written: a list saved unchanged is not written again.
    const QByteArray before = encodeSubnetMultiString(list.get());
    _tIp4Subnet* edited = list.release();
    int result = 0;
    {
        CSubnetListDlg dialog(owner.widget(), &edited, captionId, 0);
        result = runModal(&dialog, owner);
    }
    list.reset(edited);
    if (result != Id::Ok)
        return Id::Cancel;
    if (read.badEntries == 0 && encodeSubnetMultiString(list.get()) == before)
        return Id::Cancel;
    if (!writeSubnetListProperty(server, section, name, list.get())) {
        ReportPropertyWriteFailure(name);
        return Id::Cancel;
    }
    return Id::Ok;
}
