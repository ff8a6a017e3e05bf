// SPDX-License-Identifier: MIT
#include "platform/linux/MachineIdentity.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <string_view>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

/// What boards carry in fields that nobody filled in.
constexpr std::array<std::string_view, 9> blankWords{"To Be Filled By O.E.M.",
                                                     "To be filled by O.E.M.",
                                                     "System Product Name",
                                                     "Default string",
                                                     "Not Specified",
                                                     "Not Applicable",
                                                     "None",
                                                     "Undefined",
                                                     "INVALID"};

std::optional<std::string> firmwareText(const LinuxRoot& root, std::string_view path) {
    auto text = root.readText(path);
    if (text && std::ranges::find(blankWords, *text) != blankWords.end()) text.reset();
    return text;
}

std::vector<std::string> splitAtZero(std::string_view text) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const auto end = std::min(text.find('\0'), text.size());
        if (end > 0) parts.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

/// The last entry is the chip, behind the boards built upon it and before a family of chips.
std::optional<std::string> chipOf(const std::vector<std::string>& compatible) {
    for (const auto& entry : std::views::reverse(compatible)) {
        if (!entry.ends_with("-platform")) return entry;
    }
    return std::nullopt;
}

std::optional<std::string> field(std::string_view text, std::string_view key) {
    const auto value = fieldOf(text, key);
    if (!value || value->empty()) return std::nullopt;
    return std::string(*value);
}

}  // namespace

MachineIdentity::MachineIdentity(const LinuxRoot& root) {
    // One processor's paragraph is enough, and the kernel takes its time over many.
    const auto cpuinfo = root.readHead("/proc/cpuinfo", 4096).value_or("");
    const auto tree = root.read("/proc/device-tree/compatible").value_or("");
    compatible = splitAtZero(tree);
    processorVendor = field(cpuinfo, "vendor_id");
    chip = field(cpuinfo, "model name");
    if (!chip) chip = chipOf(compatible);
    for (const auto* path : {"/sys/class/dmi/id/product_name", "/sys/class/dmi/id/board_name",
                             "/proc/device-tree/model"}) {
        if (!model) model = firmwareText(root, path);
    }
    family = firmwareText(root, "/sys/class/dmi/id/product_family");
}

bool MachineIdentity::isMadeBy(std::string_view maker) const {
    return std::ranges::any_of(compatible, [maker](std::string_view entry) {
        return entry.starts_with(maker) && entry.substr(maker.size()).starts_with(',');
    });
}

}  // namespace vtx
