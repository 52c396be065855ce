#include <cstring>

#include "Handle_p.h"

namespace vb {

static std::string serialise(const Value& value)
{
    std::string bytes;
    switch (value.type) {
    case VB_TYPE_DWORD:
        bytes.resize(4);
        std::memcpy(bytes.data(), &value.number, 4);
        break;
    case VB_TYPE_MULTI_STRING:
        for (const std::string& item : value.items) {
            bytes += item;
            bytes += '\0';
        }
        bytes += '\0';
        if (value.items.empty())
            bytes += '\0'; // an empty multi-string still reads as two zeros
        break;
    default:
        bytes = value.text;
        bytes += '\0';
        break;
    }
    return bytes;
}

static int copyBytesOut(const std::string& bytes, void* buffer, uint32_t* size, bool forceMoreData)
{
    if (!size)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (bytes.size() > UINT32_MAX)
        return failWith(VB_ERROR_PROPERTY_TOO_LARGE);
    const auto needed = uint32_t(bytes.size());
    if (!buffer) {
        *size = needed;
        return 1;
    }
    if (forceMoreData || *size < needed) {
        *size = needed;
        return failWith(VB_ERROR_MORE_DATA);
    }
    std::memcpy(buffer, bytes.data(), needed);
    *size = needed;
    return 1;
}

int copyValueOut(const Value& value, void* buffer, uint32_t* size, uint32_t* type, bool forceMoreData)
{
    if (type)
        *type = value.type;
    return copyBytesOut(serialise(value), buffer, size, forceMoreData);
}

int copyTextOut(const std::string& text, char* buffer, uint32_t* size)
{
    Value v;
    v.type = VB_TYPE_STRING;
    v.text = text;
    return copyBytesOut(serialise(v), buffer, size, false);
}

int copyMultiOut(const std::vector<std::string>& items, char* buffer, uint32_t* size)
{
    Value v;
    v.type = VB_TYPE_MULTI_STRING;
    v.items = items;
    return copyBytesOut(serialise(v), buffer, size, false);
}

int copyTextFixed(const std::string& text, char* buffer, uint32_t size)
{
    if (!buffer)
        return failWith(VB_ERROR_INVALID_PARAMETER);
    if (text.size() + 1 > size)
        return failWith(VB_ERROR_MORE_DATA);
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return 1;
}

uint32_t parseValueIn(uint32_t type, const void* data, uint32_t size, Value& value)
{
    if (size > kMaxValueSize)
        return VB_ERROR_PROPERTY_TOO_LARGE;
    if (!data && size > 0)
        return VB_ERROR_INVALID_PARAMETER;
    const char* bytes = static_cast<const char*>(data);
    value = Value();
    value.type = type;
    switch (type) {
    case VB_TYPE_STRING:
        // The size counts the terminating zero; the text ends at the first zero within it.
        value.text.assign(bytes ? bytes : "", bytes ? ::strnlen(bytes, size) : 0);
        return 0;
    case VB_TYPE_DWORD:
        if (size != 4)
            return VB_ERROR_INVALID_PARAMETER;
        std::memcpy(&value.number, bytes, 4);
        return 0;
    case VB_TYPE_MULTI_STRING: {
        size_t at = 0;
        while (at < size) {
            const size_t len = ::strnlen(bytes + at, size - at);
            if (len == 0)
                break; // the empty string that ends the list
            value.items.emplace_back(bytes + at, len);
            at += len + 1;
        }
        return 0;
    }
    default:
        return VB_ERROR_INVALID_PARAMETER;
    }
}

} // namespace vb
