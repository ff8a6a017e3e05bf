// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vtx {

/// How much a pass samples and how often it runs, by what the user can see.
enum class PollingMode {
    active,        ///< a surface is open: everything
    background,    ///< nothing open, on mains: what the strip and the alerts need
    batterySaver,  ///< nothing open, on battery: the same at half the pace
    suspended      ///< the machine sleeps: no passes
};

constexpr std::string_view name(PollingMode mode) {
    switch (mode) {
        case PollingMode::active:
            return "active";
        case PollingMode::background:
            return "background";
        case PollingMode::batterySaver:
            return "batterySaver";
        case PollingMode::suspended:
            break;
    }
    return "suspended";
}

}  // namespace vtx
