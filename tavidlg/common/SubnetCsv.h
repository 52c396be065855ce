// The subnet list's comma-separated files: the field rules, the import of lines into a new subnet list
// and the export of one row. Pure logic over the MailToolkit API; the dialog adds files and questions.
#ifndef TAVIDLG_COMMON_SUBNETCSV_H
#define TAVIDLG_COMMON_SUBNETCSV_H

#include <velbrook/MailToolkit.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>

namespace SubnetCsv {

// One field of a line and where the next one starts (hasNext false: there is none).
struct Field {
    std::string text;
    bool hasNext = false;
    std::size_t next = 0;
};

// Reads the field that starts at start (start at or past the end gives an empty field and no next one).
// The field ends at the first comma or line end ('\r', '\n'); a field that begins with a double quote
// (after any unquoted text, which is dropped) runs to the first double quote not followed by another one,
// doubled quotes standing for one, and the next field starts after the first comma behind it. Without a
// closing quote the field is the rest of the line.
Field readField(std::string_view line, std::size_t start);

// The line that exports one row: the subnet as it is, a comma, and the comment in double quotes with
// every double quote doubled. No line end.
std::string exportLine(std::string_view subnetText, std::string_view comment);
// The same for one element of a list.
std::string exportLine(const _tIp4Subnet& element);
// Every element of a list, each line followed by '\n'.
std::string exportList(const _tIp4Subnet* first);

// Imports lines into a new subnet list, in file order, counting the lines that cannot be taken. Lines
// may be handed over one by one (addLine) or as raw chunks of a file (feed, then finish), so that a
// caller can show progress between calls. Each element costs constant time: duplicates are found in a
// hash set kept next to the list, and the list's last element is kept for appending.
class Importer {
public:
    Importer() = default;
    ~Importer();
    Importer(const Importer&) = delete;
    Importer& operator=(const Importer&) = delete;
    Importer(Importer&& other) noexcept;
    Importer& operator=(Importer&& other) noexcept;

    // One line, with or without its line end ("\n", "\r\n" or "\r"). Empty lines are skipped.
    void addLine(std::string_view line);
    // Any piece of the file; lines are split at '\n' and a line cut between two pieces is kept until
    // the rest arrives.
    void feed(std::string_view bytes);
    // Takes the last line of a file that does not end with a line end. Further feeds start a new line.
    void finish();

    // Forgets everything read so far (a reread from the start of the file).
    void reset();

    uint32_t errorCount() const { return m_errors; }
    // Lines handed to addLine, empty ones included.
    std::size_t lineCount() const { return m_lines; }
    // Elements in the new list.
    std::size_t acceptedCount() const { return m_accepted; }
    const _tIp4Subnet* list() const { return m_first; }

    // Hands the new list over (null when nothing was accepted); the caller frees it with
    // FreeIp4SubnetList. The importer starts again empty, its counts kept until reset().
    _tIp4Subnet* takeList();

private:
    void clearList();

    _tIp4Subnet* m_first = nullptr;
    _tIp4Subnet* m_last = nullptr;
    std::unordered_set<uint64_t> m_seen;
    std::string m_pending;
    uint32_t m_errors = 0;
    std::size_t m_lines = 0;
    std::size_t m_accepted = 0;
};

struct ImportResult {
    _tIp4Subnet* list = nullptr; // owned by the caller: FreeIp4SubnetList
    uint32_t errors = 0;
};

// The whole text of a file at once.
ImportResult importText(std::string_view text);

} // namespace SubnetCsv

#endif
