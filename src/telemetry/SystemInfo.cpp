// SPDX-License-Identifier: MIT
#include "telemetry/SystemInfo.h"

#include <array>
#include <utility>

namespace vtx {

std::string_view SystemInfo::modelFamilyFor(std::string_view identifier) {
    // The first that fits: "MacBook" would fit the two before it.
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 7> families{{
        {"MacBookAir", "MacBook Air"},
        {"MacBookPro", "MacBook Pro"},
        {"MacBook", "MacBook"},
        {"Macmini", "Mac mini"},
        {"MacStudio", "Mac Studio"},
        {"iMac", "iMac"},
        {"MacPro", "Mac Pro"},
    }};
    for (const auto& [beginning, family] : families)
        if (identifier.starts_with(beginning)) return family;
    return "Mac";
}

std::string_view name(SystemInfo::Architecture architecture) {
    switch (architecture) {
        case SystemInfo::Architecture::appleSilicon:
            return "appleSilicon";
        case SystemInfo::Architecture::intel:
            return "intel";
        case SystemInfo::Architecture::unknown:
            break;
    }
    return "unknown";
}

}  // namespace vtx
