#include "wizards/PropertyCache.h"

#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

#include <cstring>

namespace {

// The store reports a larger size on each more-data answer; a store that keeps asking for more is not
// believed for ever.
constexpr int kMaxTextReads = 8;
constexpr uint32_t kFirstTextBuffer = 128;
constexpr qsizetype kMaxListEntry = 256;

bool isConstant(const char* section)
{
    return section && std::strcmp(section, CWizardPropertyCache::kConstantSection) == 0;
}

int readRaw(_tMailServer* server, const char* section, const char* name, void* buffer, uint32_t* size,
            uint32_t* type)
{
    if (isConstant(section))
        return GetMailServerConstant(server, name, buffer, size, type);
    return GetMailServerProperty(server, section, name, buffer, size, type);
}

// The bytes up to the first zero (the store promises one; the buffer's end is trusted instead).
QByteArray upToZero(const std::vector<char>& buffer, uint32_t size)
{
    const std::size_t limit = std::min<std::size_t>(size, buffer.size());
    const void* end = std::memchr(buffer.data(), 0, limit);
    return QByteArray(buffer.data(), qsizetype(end ? static_cast<const char*>(end) - buffer.data() : limit));
}

// Reads a value of any size: a 128-byte buffer first, then the size the store asks for.
bool readBytes(_tMailServer* server, const char* section, const char* name, std::vector<char>& buffer,
               uint32_t& size, uint32_t& type)
{
    size = kFirstTextBuffer;
    for (int attempt = 0; attempt < kMaxTextReads; ++attempt) {
        buffer.assign(std::max<uint32_t>(size, 1), '\0');
        type = 0;
        if (readRaw(server, section, name, buffer.data(), &size, &type))
            return true;
        if (GetLastError() != VB_ERROR_MORE_DATA || size <= buffer.size())
            return false;
    }
    return false;
}

} // namespace

QByteArray CWizardPropertyCache::keyOf(const char* name, const char* section)
{
    QByteArray key(section ? section : "");
    key.append('\0');
    key.append(name ? name : "");
    return key;
}

const CWizardPropertyCache::Entry* CWizardPropertyCache::find(const char* name, const char* section) const
{
    const auto it = m_index.constFind(keyOf(name, section));
    return it == m_index.cend() ? nullptr : &m_entries[*it];
}

CWizardPropertyCache::Entry* CWizardPropertyCache::find(const char* name, const char* section)
{
    const auto it = m_index.constFind(keyOf(name, section));
    return it == m_index.cend() ? nullptr : &m_entries[*it];
}

CWizardPropertyCache::Entry& CWizardPropertyCache::add(const char* name, const char* section, Type type)
{
    Entry entry;
    entry.section = QByteArray(section ? section : "");
    entry.name = QByteArray(name ? name : "");
    entry.type = type;
    m_index.insert(keyOf(name, section), m_entries.size());
    m_entries.push_back(std::move(entry));
    return m_entries.back();
}

void CWizardPropertyCache::updateChanged(Entry& entry)
{
    const bool differs = entry.type == Type::Text ? entry.text != entry.firstText : entry.number != entry.firstNumber;
    entry.changed = entry.retyped || differs;
}

bool CWizardPropertyCache::readNumber(const char* name, const char* section, quint32& value) const
{
    uint32_t number = 0, size = sizeof number, type = 0;
    value = 0;
    if (!m_server || !readRaw(m_server, section, name, &number, &size, &type))
        return false;
    // Only a number (or an untyped value) counts; anything else reads as 0.
    if (type == VB_TYPE_DWORD || type == 0)
        value = number;
    return true;
}

bool CWizardPropertyCache::readText(const char* name, const char* section, QString& value) const
{
    value.clear();
    std::vector<char> buffer;
    uint32_t size = 0, type = 0;
    if (!m_server || !readBytes(m_server, section, name, buffer, size, type))
        return false;
    if (type == VB_TYPE_STRING || type == 0)
        value = QString::fromUtf8(upToZero(buffer, size));
    return true;
}

bool CWizardPropertyCache::getDword(const char* name, const char* section, quint32& value)
{
    if (const Entry* entry = find(name, section)) {
        value = entry->type == Type::Number ? entry->number : 0;
        return true;
    }
    const bool read = readNumber(name, section, value);
    Entry& entry = add(name, section, Type::Number);
    entry.number = entry.firstNumber = value;
    return read;
}

bool CWizardPropertyCache::getString(const char* name, const char* section, QString& value)
{
    if (const Entry* entry = find(name, section)) {
        value = entry->type == Type::Text ? entry->text : QString();
        return true;
    }
    const bool read = readText(name, section, value);
    Entry& entry = add(name, section, Type::Text);
    entry.text = entry.firstText = value;
    return read;
}

void CWizardPropertyCache::setDword(const char* name, const char* section, quint32 value)
{
    Entry* entry = find(name, section);
    if (!entry) {
        entry = &add(name, section, Type::Number);
        entry->firstNumber = value;
    } else if (entry->type != Type::Number) {
        // What was read was no number, so any number is a change.
        entry->type = Type::Number;
        entry->retyped = true;
    }
    entry->number = value;
    updateChanged(*entry);
}

void CWizardPropertyCache::setString(const char* name, const char* section, const QString& value)
{
    Entry* entry = find(name, section);
    if (!entry) {
        entry = &add(name, section, Type::Text);
        entry->firstText = value;
    } else if (entry->type != Type::Text) {
        entry->type = Type::Text;
        entry->retyped = true;
    }
    entry->text = value;
    updateChanged(*entry);
}

QStringList CWizardPropertyCache::getStringList(const char* name, const char* section) const
{
    std::vector<char> buffer;
    uint32_t size = 0, type = 0;
    QStringList list;
    if (!m_server || !readBytes(m_server, section, name, buffer, size, type) || type != VB_TYPE_MULTI_STRING)
        return list;
    const std::size_t end = std::min<std::size_t>(size, buffer.size());
    std::size_t start = 0;
    while (start < end && buffer[start] != '\0') {
        const void* zero = std::memchr(buffer.data() + start, 0, end - start);
        const std::size_t stop = zero ? std::size_t(static_cast<const char*>(zero) - buffer.data()) : end;
        list.append(QString::fromUtf8(buffer.data() + start, qsizetype(stop - start)));
        start = stop + 1;
    }
    return list;
}

bool CWizardPropertyCache::isChanged(const char* name, const char* section) const
{
    const Entry* entry = find(name, section);
    return entry && entry->changed;
}

int CWizardPropertyCache::commit(const std::function<void(const QByteArray& name, quint32 code)>& failed)
{
    int failures = 0;
    for (auto it = m_entries.rbegin(); it != m_entries.rend(); ++it) {
        Entry& entry = *it;
        if (!entry.changed || entry.section == kConstantSection)
            continue;
        const char* section = entry.section.constData();
        int result = 0;
        if (entry.type == Type::Text) {
            const QByteArray utf8 = entry.text.toUtf8();
            result = SetMailServerProperty(m_server, section, VB_TYPE_STRING, entry.name.constData(),
                                           utf8.constData(), uint32_t(utf8.size() + 1));
        } else {
            const uint32_t number = entry.number;
            result = SetMailServerProperty(m_server, section, VB_TYPE_DWORD, entry.name.constData(), &number,
                                           sizeof number);
        }
        // Exactly 1 is success.
        if (result == 1) {
            entry.firstText = entry.text;
            entry.firstNumber = entry.number;
            entry.changed = entry.retyped = false;
            continue;
        }
        ++failures;
        if (failed)
            failed(entry.name, GetLastError());
    }
    return failures;
}

QStringList splitWizardList(const QString& text)
{
    QStringList entries;
    const qsizetype length = text.size();
    qsizetype i = 0;
    while (i < length) {
        while (i < length && (text.at(i) == QLatin1Char(',') || text.at(i).isSpace()))
            ++i;
        const qsizetype start = i;
        while (i < length && text.at(i) != QLatin1Char(',') && !text.at(i).isSpace())
            ++i;
        if (i == start)
            break;
        if (i - start > kMaxListEntry)
            break;
        entries.append(text.mid(start, i - start));
    }
    return entries;
}

QString joinWizardList(const QStringList& entries)
{
    return entries.join(QLatin1String(", "));
}
