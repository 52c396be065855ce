// Id-to-name map files: "id<TAB>name" per line.
#include "velbrook/MailToolkit.h"

#include "Utf8_p.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string_view>

namespace {

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

bool isBlank(std::string_view line)
{
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

bool parseId(std::string_view text, uint32_t& id)
{
    if (text.empty() || text.size() > 10)
        return false;
    uint64_t value = 0;
    for (char c : text) {
        if (c < '0' || c > '9')
            return false;
        value = value * 10 + uint64_t(c - '0');
    }
    if (value > UINT32_MAX)
        return false;
    id = uint32_t(value);
    return true;
}

// A name is UTF-8 text without control characters other than the tab.
bool isValidName(std::string_view name)
{
    if (name.empty())
        return false;
    std::size_t pos = 0;
    char32_t cp;
    while (pos < name.size()) {
        if (!vbtoolkit::decodeUtf8(name, pos, cp))
            return false;
        if ((cp < 0x20 && cp != '\t') || cp == 0x7F)
            return false;
    }
    return true;
}

// Reads one line without its terminator ("\n" or "\r\n"); false at the end of the file.
bool readLine(std::FILE* file, std::string& line, bool& readError)
{
    line.clear();
    int c;
    while ((c = std::getc(file)) != EOF) {
        if (c == '\n')
            break;
        line += char(c);
    }
    if (c == EOF) {
        if (std::ferror(file)) {
            readError = true;
            return false;
        }
        if (line.empty())
            return false;
    }
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return true;
}

} // namespace

bool CIdToStringMap::Load(const char* fileName)
{
    m_map.clear();
    m_errorLine = 0;
    if (!fileName || !*fileName) {
        SetLastError(VB_ERROR_INVALID_PARAMETER);
        return false;
    }
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(fileName, "rb"));
    if (!file) {
        SetLastError(errno == EACCES ? VB_ERROR_ACCESS_DENIED : VB_ERROR_FILE_NOT_FOUND);
        return false;
    }
    std::map<uint32_t, std::string> map;
    std::string line;
    bool readError = false;
    uint32_t number = 0;
    const auto invalid = [&](uint32_t at) {
        m_errorLine = at;
        SetLastError(VB_ERROR_INVALID_DATA);
        return false;
    };
    while (readLine(file.get(), line, readError)) {
        ++number;
        std::string_view text(line);
        if (number == 1 && text.substr(0, 3) == "\xEF\xBB\xBF")
            text.remove_prefix(3);
        if (isBlank(text) || text.front() == '#')
            continue;
        const std::size_t tab = text.find('\t');
        uint32_t id;
        if (tab == std::string_view::npos || !parseId(text.substr(0, tab), id))
            return invalid(number);
        const std::string_view name = text.substr(tab + 1);
        if (!isValidName(name))
            return invalid(number);
        if (!map.emplace(id, std::string(name)).second)
            return invalid(number); // the same id twice: which name is meant is unknowable
    }
    if (readError) // a directory, or the medium failed under us
        return invalid(number + 1);
    m_map = std::move(map);
    return true;
}
