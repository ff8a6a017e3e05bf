// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "language/L10n.h"

namespace vtx {

struct DisplayPreferences;
struct SystemInfo;

/// The pages of the popover and the dashboard, in the order of the section bar.
enum class PopoverSection {
    overview,
    cpu,
    gpu,
    memory,
    disk,
    fan,
    ane,
    network,
    battery,
    processes,
    system,
    settings
};

/// What a section is called and drawn with.
struct SectionDescription {
    PopoverSection section;
    std::string_view rawValue;
    std::string_view symbol;
    L10n::Key title;
};

const SectionDescription& describe(PopoverSection section);

/// The sections that the bar offers, in its order, of those that have a page: graphics and battery
/// where the machine has them, disks and fans where the user shows them.
[[nodiscard]] std::vector<PopoverSection> visibleSections(const SystemInfo& machine,
                                                          const DisplayPreferences& preferences);

}  // namespace vtx
