// Times the import of 100 000 generated lines against merely splitting the same lines into their two
// fields, and prints the ratio. Usage: subnetcsv_timing [lines]
#include "SubnetCsv.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

} // namespace

int main(int argc, char** argv)
{
    const unsigned lines = argc > 1 ? unsigned(std::strtoul(argv[1], nullptr, 10)) : 100000u;
    std::string text;
    for (unsigned i = 0; i < lines; ++i) {
        text += std::to_string(10 + (i >> 16)) + "." + std::to_string((i >> 8) & 0xFF) + "." +
                std::to_string(i & 0xFF) + ".0/24,\"office " + std::to_string(i) + ", floor " +
                std::to_string(i % 7) + "\"\n";
    }

    constexpr int kRounds = 5;
    std::vector<double> split, import;
    std::size_t checksum = 0;
    for (int round = 0; round < kRounds; ++round) {
        auto start = Clock::now();
        std::size_t pos = 0;
        while (pos < text.size()) {
            std::size_t end = text.find('\n', pos);
            const std::string_view line = std::string_view(text).substr(pos, end - pos);
            const SubnetCsv::Field first = SubnetCsv::readField(line, 0);
            const SubnetCsv::Field second = SubnetCsv::readField(line, first.next);
            checksum += first.text.size() + second.text.size();
            pos = end + 1;
        }
        split.push_back(millisecondsSince(start));

        start = Clock::now();
        SubnetCsv::ImportResult result = SubnetCsv::importText(text);
        import.push_back(millisecondsSince(start));
        if (result.errors != 0) {
            std::fprintf(stderr, "unexpected import errors: %u\n", result.errors);
            return 1;
        }
        FreeIp4SubnetList(result.list);
    }
    std::sort(split.begin(), split.end());
    std::sort(import.begin(), import.end());
    const double s = split[kRounds / 2], i = import[kRounds / 2];
    std::printf("lines %u  split %.1f ms  import %.1f ms  ratio %.2f  (median of %d, checksum %zu)\n", lines, s,
                i, i / s, kRounds, checksum);
    return 0;
}
