/*
 * MailToolkit: the thread's last error and its text, IPv4 subnet lists, address conversions, UTF-8
 * conversion, id-to-name maps, host-name and local-part rules and this computer's name.
 */
#ifndef VELBROOK_MAILTOOLKIT_H
#define VELBROOK_MAILTOOLKIT_H

#include "StoreBase.h"

VB_BEGIN_DECLS

/* ---- last error --------------------------------------------------------------------------------
 * Thread-local, with the numeric codes of the Windows calls of the same names (which they are on a
 * Windows build). */
#if !defined(_WIN32)
VB_STORE_API uint32_t GetLastError(void);
VB_STORE_API void SetLastError(uint32_t code);
#endif
/* Our own short text for a code in use ("The system cannot find the file specified." ...), without
 * a trailing line break; an empty string for a code we do not know. Returns the length written. */
VB_STORE_API uint32_t VbErrorText(uint32_t code, char* text, uint32_t size);

/* ---- IPv4 subnet lists -------------------------------------------------------------------------
 * A singly linked list owned through a pointer to its first element. Addresses and masks are in host
 * byte order (192.168.0.0 is 0xC0A80000). A subnet is valid when the mask is contiguous and the
 * address has no bits outside it; 0.0.0.0/0 is valid. Text forms: "a.b.c.d/nn", "a.b.c.d/m.m.m.m",
 * and a bare "a.b.c.d" meaning /32; octets are plain decimal 0-255 without leading zeros, and no white
 * space is accepted anywhere. GetSubnetString renders "a.b.c.d/nn" into 33 characters.
 * Elements are allocated by the library (one block per element, comment included) and freed only by
 * FreeIp4SubnetList or DeleteIp4Subnet; every list holds valid subnets and valid comments only. */
typedef struct _tIp4Subnet {
    struct _tIp4Subnet* next;
    uint32_t address;
    uint32_t mask;
    char* comment; /* never null; at most 255 characters */
} _tIp4Subnet;

#define VB_SUBNET_TEXT_SIZE 33

/* separator: the character between address and mask ('/'; 0 means '/'; '.' and digits are refused).
 * Only valid subnets parse: a mask that is not contiguous or an address with host bits set fails with
 * VB_ERROR_INVALID_PARAMETER. The outputs are written only on success. */
VB_STORE_API int ParseIp4Subnet(const char* text, char separator, uint32_t* address, uint32_t* mask);
/* Parses "subnet[,subnet...]" (comma, semicolon or white space between) into a new list with empty
 * comments, in text order; an empty text gives an empty list (null). *first is written only on success;
 * one bad subnet fails the whole text (VB_ERROR_INVALID_PARAMETER). */
VB_STORE_API int ParseIp4SubnetList(const char* text, _tIp4Subnet** first);
/* Renders a list as "a.b.c.d/nn, ..." (comments are not part of it). *size is the buffer's size in bytes;
 * when buffer is null or too small it receives the size needed and the call fails with
 * VB_ERROR_MORE_DATA; on success it receives the size used, terminating zero included. */
VB_STORE_API int EncodeIp4SubnetList(const _tIp4Subnet* first, char* buffer, uint32_t* size);
VB_STORE_API void FreeIp4SubnetList(_tIp4Subnet* first);
/* Copies the list that starts at first into *copy (null for an empty list); *copy is written only on
 * success. */
VB_STORE_API int CopySubnetList(const _tIp4Subnet* first, _tIp4Subnet** copy);
/* Appends at the end (a walk over the list); *first is updated when the list was empty. A null comment
 * is taken as empty. Returns the new element, or null (VB_ERROR_INVALID_PARAMETER for an invalid subnet
 * or comment, VB_ERROR_NOT_ENOUGH_MEMORY). */
VB_STORE_API _tIp4Subnet* AppendIp4Subnet(_tIp4Subnet** first, uint32_t address, uint32_t mask,
                                          const char* comment);
/* Inserts after the element given (at the head when after is null), in constant time: a caller that
 * keeps the last element builds a long list in linear time. after must belong to the list. Same
 * results and failures as AppendIp4Subnet. */
VB_STORE_API _tIp4Subnet* InsertAfterIp4Subnet(_tIp4Subnet** first, _tIp4Subnet* after, uint32_t address,
                                               uint32_t mask, const char* comment);
/* Removes and frees the first element with this address and mask; VB_ERROR_NOT_FOUND when none. */
VB_STORE_API int DeleteIp4Subnet(_tIp4Subnet** first, uint32_t address, uint32_t mask);
/* The first element, or null (the list as handed over may be null). */
VB_STORE_API _tIp4Subnet* FindFirstNode(_tIp4Subnet* first);
/* A mask that is not contiguous is rendered "a.b.c.d/m.m.m.m" and the call fails
 * (VB_ERROR_INVALID_PARAMETER). */
VB_STORE_API int GetSubnetString(uint32_t address, uint32_t mask, char* text /* 33 chars */);
VB_STORE_API int IsValidIp4Subnet(uint32_t address, uint32_t mask);
/* Printable text of at most 255 characters without control characters: well-formed UTF-8, counted in
 * characters (code points), C0 and C1 controls and DEL refused. Null counts as the empty comment. */
VB_STORE_API int IsValidIp4CommentString(const char* comment);
/* Non-zero when some subnet of the list contains the address (VB_ERROR_NOT_FOUND otherwise). */
VB_STORE_API int Ip4SubnetMatchIpAddress(const _tIp4Subnet* first, uint32_t address);
/* Non-zero when the list holds exactly this address and mask (VB_ERROR_NOT_FOUND otherwise). */
VB_STORE_API int Ip4SubnetMatchIpSubnet(const _tIp4Subnet* first, uint32_t address, uint32_t mask);

/* "a.b.c.d" <-> host-order number. IpAddressToDword fails on anything but four decimal octets. */
VB_STORE_API int IpAddressToDword(const char* text, uint32_t* address);
/* text: at least 16 characters; size is its size in bytes (VB_ERROR_MORE_DATA when the text does not
 * fit). */
VB_STORE_API int DwordToIpAddress(uint32_t address, char* text, uint32_t size);

/* ---- names -------------------------------------------------------------------------------------- */
/* RFC 1123 host names (labels of letters, digits and inner hyphens, at most 63 characters each, 253
 * in all, one trailing dot allowed) and dotted IPv4 addresses. A name of digits and dots only must be a
 * valid address, and the last label of a name may not be all digits. */
VB_STORE_API int IsValidHostName(const char* name);
/* Quotes a local part that is not a dot-atom ("john smith" -> "\"john smith\""), escaping double
 * quotes and backslashes with a backslash; a dot-atom is copied as it is. UTF-8 letters count as atom
 * characters (internationalised mail); invalid UTF-8 and control characters other than the tab cannot
 * be written in an address and fail with VB_ERROR_INVALID_PARAMETER. Size rules as for
 * EncodeIp4SubnetList. */
VB_STORE_API int ConvertLocalPart(const char* localPart, char* buffer, uint32_t* size);
/* This computer's name (may carry leading backslashes on a Windows host). Size rules as for
 * EncodeIp4SubnetList. */
VB_STORE_API int GetThisComputerName(char* name, uint32_t* size);
/* Counts the names in a text of names separated by blanks (spaces, tabs, line breaks) and commas;
 * 0 for a null text. */
VB_STORE_API uint32_t CountNames(const char* text);

/* Nothing to do on a toolkit without resource chains; kept for hosts that call it. */
VB_STORE_API void SetFakeResourcesHandle(void* moduleState);

VB_END_DECLS

#ifdef __cplusplus
#include <cstdint>
#include <map>
#include <string>


/* UTF-8 text; FromUnicode and ToUnicode fail on invalid sequences (unpaired surrogates, overlong or
 * truncated UTF-8). */
class VB_STORE_API CUtf8String {
public:
    CUtf8String() = default;
    bool FromUnicode(const std::u16string& text);
    bool ToUnicode(std::u16string& text) const;
    void Assign(const char* utf8) { m_text = utf8 ? utf8 : ""; }
    const std::string& Str() const { return m_text; }
    const char* c_str() const { return m_text.c_str(); }

private:
    std::string m_text;
};

/* A file of "id<TAB>name" lines (UTF-8; '#' starts a comment line; blank lines skipped) read into a map.
 * The id is a decimal number below 2^32; the name is everything after the first tab, non-empty, without
 * control characters other than tabs. "\r\n" line ends and a leading byte-order mark are accepted. An id
 * that occurs twice is an error. Load fails (VB_ERROR_FILE_NOT_FOUND or VB_ERROR_ACCESS_DENIED,
 * VB_ERROR_INVALID_DATA with the 1-based line kept in ErrorLine()) and then leaves the map empty. */
class VB_STORE_API CIdToStringMap {
public:
    bool Load(const char* fileName);
    const std::map<uint32_t, std::string>& Map() const { return m_map; }
    uint32_t ErrorLine() const { return m_errorLine; }

private:
    std::map<uint32_t, std::string> m_map;
    uint32_t m_errorLine = 0;
};
#endif

#endif
