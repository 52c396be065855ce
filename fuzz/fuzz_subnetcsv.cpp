// The subnet list's CSV import against arbitrary files. Besides crashes it checks that feeding the file
// in two pieces gives what the whole gives, that the imported list holds only valid elements, and that
// exporting it and importing the export again loses exactly the comments that hold a double quote.
#include "SubnetCsv.h"

#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void check(bool condition)
{
    if (!condition)
        std::abort();
}

std::string rows(const _tIp4Subnet* first, bool skipQuoted)
{
    std::string out;
    for (const _tIp4Subnet* p = first; p; p = p->next) {
        if (skipQuoted && std::string_view(p->comment).find('"') != std::string_view::npos)
            continue;
        out += SubnetCsv::exportLine(*p);
        out += '\n';
    }
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    SubnetCsv::ImportResult whole = SubnetCsv::importText(text);

    std::size_t count = 0, quoted = 0;
    for (const _tIp4Subnet* p = whole.list; p; p = p->next, ++count) {
        check(IsValidIp4Subnet(p->address, p->mask) == 1 && IsValidIp4CommentString(p->comment) == 1);
        quoted += std::string_view(p->comment).find('"') != std::string_view::npos;
    }

    SubnetCsv::Importer pieces;
    const std::size_t split = size ? data[0] % (size + 1) : 0;
    pieces.feed(text.substr(0, split));
    pieces.feed(text.substr(split));
    pieces.finish();
    check(pieces.errorCount() == whole.errors && pieces.acceptedCount() == count);
    check(rows(pieces.list(), false) == rows(whole.list, false));

    const std::string exported = SubnetCsv::exportList(whole.list);
    SubnetCsv::ImportResult again = SubnetCsv::importText(exported);
    check(again.errors == quoted);
    check(rows(again.list, false) == rows(whole.list, true));

    FreeIp4SubnetList(again.list);
    FreeIp4SubnetList(whole.list);
    return 0;
}
