// A server property that holds a subnet list, in the format ServerStore.h documents: a multi-string of
// one subnet per element, "10.0.0.0/8" or, with a comment, "10.0.0.0/8,\"head office\"" (a line of the
// export file); a text of subnets without comments (EncodeIp4SubnetList) is read too. Read into a
// MailToolkit list, edited with CSubnetListDlg and written back whole. Library-internal.
#pragma once

#include <QByteArray>

#include <velbrook/MailToolkit.h>

#include <cstdint>
#include <string_view>

class COwnerWindow;

struct SubnetPropertyList {
    _tIp4Subnet* list = nullptr; // owned by the caller: FreeIp4SubnetList
    uint32_t badEntries = 0;     // elements that were not a subnet with a valid comment, or repeated one
};

// Parses the bytes of a multi-string (zero-separated elements, ended by an empty one or by the end of
// the bytes). Unlike a file import, the comment is taken exactly as written, doubled quotes undone, so
// that what the editor writes reads back the same.
SubnetPropertyList parseSubnetMultiString(std::string_view bytes);
// The multi-string of a list: one export line per element, each ended by a zero, and the closing zero.
QByteArray encodeSubnetMultiString(const _tIp4Subnet* first);

// Reads the property. A property that does not exist is an empty list; any other failure returns false
// with the reason in GetLastError().
bool readSubnetListProperty(_tMailServer* server, const char* section, const char* name, SubnetPropertyList& out);
bool writeSubnetListProperty(_tMailServer* server, const char* section, const char* name, const _tIp4Subnet* first);

// Reads the property, runs the subnet editor over it and writes it back on OK when the list changed.
// 1: written; 2: cancelled or nothing changed (or the write failed, which has been reported); -1: the
// property could not be read (reported) or the dialog could not be built.
int editServerSubnetList(COwnerWindow& owner, _tMailServer* server, const char* section, const char* name,
                         unsigned captionId);
