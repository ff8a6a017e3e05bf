// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// What the machine says of itself, read anew with each construction. A plain value.
struct MachineIdentity {
    explicit MachineIdentity(const LinuxRoot& root);

    /// The processor's name; absent where neither it nor the device tree says one.
    std::optional<std::string> chip;
    /// The machine's name; absent where firmware left it blank or with words that say nothing.
    std::optional<std::string> model;
    /// The family that its maker counts it to; absent on the same terms, and without firmware of a
    /// PC.
    std::optional<std::string> family;
    /// "GenuineIntel" and the like; absent on anything but x86.
    std::optional<std::string> processorVendor;
    /// The device tree's `compatible`, most specific first; empty where there is no tree.
    std::vector<std::string> compatible;

    /// Whether the device tree names a maker, as the part before the comma.
    [[nodiscard]] bool isMadeBy(std::string_view maker) const;
};

}  // namespace vtx
