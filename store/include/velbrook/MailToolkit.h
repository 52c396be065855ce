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
 * and a bare "a.b.c.d" meaning /32. GetSubnetString renders "a.b.c.d/nn" into 33 characters. */
typedef struct _tIp4Subnet {
    struct _tIp4Subnet* next;
    uint32_t address;
    uint32_t mask;
    char* comment; /* never null; at most 255 characters */
} _tIp4Subnet;

#define VB_SUBNET_TEXT_SIZE 33

/* separator: the character between address and mask ('/'). Fails with VB_ERROR_INVALID_PARAMETER. */
VB_STORE_API int ParseIp4Subnet(const char* text, char separator, uint32_t* address, uint32_t* mask);
/* Parses "subnet[,subnet...]" (comma, semicolon or white space between) into a new list. */
VB_STORE_API int ParseIp4SubnetList(const char* text, _tIp4Subnet** first);
/* Renders a list as "a.b.c.d/nn, ..." (comments are not part of it); VB_ERROR_MORE_DATA rules. */
VB_STORE_API int EncodeIp4SubnetList(const _tIp4Subnet* first, char* buffer, uint32_t* size);
VB_STORE_API void FreeIp4SubnetList(_tIp4Subnet* first);
/* Copies the list that starts at first into *copy (null for an empty list). */
VB_STORE_API int CopySubnetList(const _tIp4Subnet* first, _tIp4Subnet** copy);
/* Appends at the end; *first is updated when the list was empty. Returns the new element or null. */
VB_STORE_API _tIp4Subnet* AppendIp4Subnet(_tIp4Subnet** first, uint32_t address, uint32_t mask,
                                          const char* comment);
/* Inserts after the element given (at the head when after is null). */
VB_STORE_API _tIp4Subnet* InsertAfterIp4Subnet(_tIp4Subnet** first, _tIp4Subnet* after, uint32_t address,
                                               uint32_t mask, const char* comment);
/* Removes and frees the first element with this address and mask; VB_ERROR_NOT_FOUND when none. */
VB_STORE_API int DeleteIp4Subnet(_tIp4Subnet** first, uint32_t address, uint32_t mask);
/* The first element, or null (the list as handed over may be null). */
VB_STORE_API _tIp4Subnet* FindFirstNode(_tIp4Subnet* first);
VB_STORE_API int GetSubnetString(uint32_t address, uint32_t mask, char* text /* 33 chars */);
VB_STORE_API int IsValidIp4Subnet(uint32_t address, uint32_t mask);
/* Printable text of at most 255 characters without control characters. */
VB_STORE_API int IsValidIp4CommentString(const char* comment);
/* Non-zero when some subnet of the list contains the address. */
VB_STORE_API int Ip4SubnetMatchIpAddress(const _tIp4Subnet* first, uint32_t address);
/* Non-zero when the list holds exactly this address and mask. */
VB_STORE_API int Ip4SubnetMatchIpSubnet(const _tIp4Subnet* first, uint32_t address, uint32_t mask);

/* "a.b.c.d" <-> host-order number. IpAddressToDword fails on anything but four decimal octets. */
VB_STORE_API int IpAddressToDword(const char* text, uint32_t* address);
/* text: at least 16 characters. */
VB_STORE_API int DwordToIpAddress(uint32_t address, char* text, uint32_t size);

/* ---- names -------------------------------------------------------------------------------------- */
/* RFC 1123 host names (labels of letters, digits and inner hyphens, at most 63 characters each, 253
 * in all) and dotted IPv4 addresses. */
VB_STORE_API int IsValidHostName(const char* name);
/* Quotes a local part that needs it ("john smith" -> "\"john smith\""); VB_ERROR_MORE_DATA rules. */
VB_STORE_API int ConvertLocalPart(const char* localPart, char* buffer, uint32_t* size);
/* This computer's name (may carry leading backslashes on a Windows host). */
VB_STORE_API int GetThisComputerName(char* name, uint32_t* size);
/* Counts the names in a text of names separated by blanks and commas. */
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
 * Load fails (VB_ERROR_FILE_NOT_FOUND, VB_ERROR_INVALID_DATA with the line kept in ErrorLine()) and then
 * leaves the map empty. */
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
