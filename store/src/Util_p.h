// Small helpers shared by the store's sources.
#ifndef VB_STORE_UTIL_P_H
#define VB_STORE_UTIL_P_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vb {

// Names, sections and list elements match as a registry does: without regard to letter case, for all of
// Unicode (simple case folding: "CAFÉ" and "café" are one name). Bytes that are not UTF-8 stay as they are.
std::string fold(std::string_view text);
bool equalsFolded(std::string_view a, std::string_view b);

inline std::string_view sv(const char* text) { return text ? std::string_view(text) : std::string_view(); }

int64_t nowMs();

// The key file the calling thread's last key error is about; the error texts of those codes name it.
void setKeyFileDetail(const std::string& path);

} // namespace vb

#endif
