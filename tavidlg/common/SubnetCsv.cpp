#include "SubnetCsv.h"

#include <utility>

namespace SubnetCsv {

namespace {

constexpr std::size_t kSubnetCharacters = 31;
constexpr std::size_t kCommentCharacters = 255;
constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

std::string_view trimmed(std::string_view text)
{
    const std::size_t begin = text.find_first_not_of(kWhiteSpace);
    if (begin == std::string_view::npos)
        return {};
    const std::size_t end = text.find_last_not_of(kWhiteSpace);
    return text.substr(begin, end - begin + 1);
}

// Cuts to a number of characters, counted in UTF-8 code points so that a character is never split; a
// byte that starts no valid sequence counts as one character (the comment check refuses it later).
std::string_view cut(std::string_view text, std::size_t characters)
{
    std::size_t pos = 0;
    for (std::size_t n = 0; n < characters && pos < text.size(); ++n) {
        const auto lead = static_cast<unsigned char>(text[pos]);
        std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
        std::size_t i = 1;
        while (i < length && pos + i < text.size() && (static_cast<unsigned char>(text[pos + i]) & 0xC0) == 0x80)
            ++i;
        pos += i;
    }
    return text.substr(0, pos);
}

// Turns each doubled quote into one, pairing from the left.
std::string undoubled(std::string_view raw)
{
    std::string text;
    text.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
        text += raw[i];
        if (raw[i] == '"' && i + 1 < raw.size() && raw[i + 1] == '"')
            ++i;
    }
    return text;
}

uint64_t keyOf(uint32_t address, uint32_t mask)
{
    return (uint64_t(address) << 32) | mask;
}

} // namespace

Field readField(std::string_view line, std::size_t start)
{
    Field field;
    if (start >= line.size())
        return field;
    const std::size_t stop = line.find_first_of(",\"\r\n", start);
    if (stop == std::string_view::npos) {
        field.text = line.substr(start);
        return field;
    }
    if (line[stop] != '"') {
        field.text = line.substr(start, stop - start);
        field.hasNext = true;
        field.next = stop + 1;
        return field;
    }
    // The closing quote is the first quote that is not immediately followed by another one; a doubled
    // quote stands for one and is passed over as a pair.
    const std::size_t open = stop;
    std::size_t close = line.find('"', open + 1);
    while (close != std::string_view::npos && close + 1 < line.size() && line[close + 1] == '"')
        close = line.find('"', close + 2);
    if (close == std::string_view::npos) {
        field.text = undoubled(line.substr(open + 1));
        return field;
    }
    field.text = undoubled(line.substr(open + 1, close - open - 1));
    const std::size_t comma = line.find(',', close + 1);
    if (comma != std::string_view::npos) {
        field.hasNext = true;
        field.next = comma + 1;
    }
    return field;
}

std::string exportLine(std::string_view subnetText, std::string_view comment)
{
    std::string line;
    line.reserve(subnetText.size() + comment.size() + 4);
    line.append(subnetText);
    line += ",\"";
    for (char c : comment) {
        if (c == '"')
            line += '"';
        line += c;
    }
    line += '"';
    return line;
}

std::string exportLine(const _tIp4Subnet& element)
{
    char subnet[VB_SUBNET_TEXT_SIZE];
    GetSubnetString(element.address, element.mask, subnet);
    return exportLine(subnet, element.comment ? element.comment : "");
}

std::string exportList(const _tIp4Subnet* first)
{
    std::string text;
    for (const _tIp4Subnet* p = FindFirstNode(const_cast<_tIp4Subnet*>(first)); p; p = p->next) {
        text += exportLine(*p);
        text += '\n';
    }
    return text;
}

Importer::~Importer()
{
    clearList();
}

Importer::Importer(Importer&& other) noexcept
    : m_first(std::exchange(other.m_first, nullptr)),
      m_last(std::exchange(other.m_last, nullptr)),
      m_seen(std::move(other.m_seen)),
      m_pending(std::move(other.m_pending)),
      m_errors(std::exchange(other.m_errors, 0)),
      m_lines(std::exchange(other.m_lines, 0)),
      m_accepted(std::exchange(other.m_accepted, 0))
{
}

Importer& Importer::operator=(Importer&& other) noexcept
{
    if (this != &other) {
        clearList();
        m_first = std::exchange(other.m_first, nullptr);
        m_last = std::exchange(other.m_last, nullptr);
        m_seen = std::move(other.m_seen);
        m_pending = std::move(other.m_pending);
        m_errors = std::exchange(other.m_errors, 0);
        m_lines = std::exchange(other.m_lines, 0);
        m_accepted = std::exchange(other.m_accepted, 0);
    }
    return *this;
}

void Importer::addLine(std::string_view line)
{
    ++m_lines;
    if (!line.empty() && line.back() == '\n')
        line.remove_suffix(1);
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    if (line.empty())
        return;

    const Field first = readField(line, 0);
    const std::string subnet(cut(trimmed(first.text), kSubnetCharacters));
    if (!first.hasNext) {
        ++m_errors;
        return;
    }
    const Field second = readField(line, first.next);
    // A quote that survives unquoting means the comment was not written by our export: refuse the line.
    if (second.text.find('"') != std::string::npos) {
        ++m_errors;
        return;
    }
    const std::string comment(cut(trimmed(second.text), kCommentCharacters));

    uint32_t address = 0;
    uint32_t mask = 0;
    // A zero byte would cut the text short for the C calls and let junk behind it pass unseen.
    if (subnet.find('\0') != std::string::npos || comment.find('\0') != std::string::npos
        || !ParseIp4Subnet(subnet.c_str(), '/', &address, &mask)) {
        ++m_errors;
        return;
    }
    const uint64_t key = keyOf(address, mask);
    if (m_seen.count(key)) {
        ++m_errors;
        return;
    }
    _tIp4Subnet* element = InsertAfterIp4Subnet(&m_first, m_last, address, mask, comment.c_str());
    if (!element) {
        ++m_errors;
        return;
    }
    m_last = element;
    m_seen.insert(key);
    ++m_accepted;
}

void Importer::feed(std::string_view bytes)
{
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        const std::size_t end = bytes.find('\n', pos);
        if (end == std::string_view::npos) {
            m_pending.append(bytes.substr(pos));
            return;
        }
        const std::string_view piece = bytes.substr(pos, end - pos);
        if (m_pending.empty()) {
            addLine(piece);
        } else {
            m_pending.append(piece);
            addLine(m_pending);
            m_pending.clear();
        }
        pos = end + 1;
    }
}

void Importer::finish()
{
    if (!m_pending.empty()) {
        addLine(m_pending);
        m_pending.clear();
    }
}

void Importer::reset()
{
    clearList();
    m_pending.clear();
    m_errors = 0;
    m_lines = 0;
    m_accepted = 0;
}

_tIp4Subnet* Importer::takeList()
{
    _tIp4Subnet* list = std::exchange(m_first, nullptr);
    m_last = nullptr;
    m_seen.clear();
    return list;
}

void Importer::clearList()
{
    FreeIp4SubnetList(takeList());
}

ImportResult importText(std::string_view text)
{
    Importer importer;
    importer.feed(text);
    importer.finish();
    ImportResult result;
    result.errors = importer.errorCount();
    result.list = importer.takeList();
    return result;
}

} // namespace SubnetCsv
