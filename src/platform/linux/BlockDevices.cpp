// SPDX-License-Identifier: MIT
#include "platform/linux/BlockDevices.h"

#include <algorithm>
#include <array>

namespace vtx {
namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::array<std::string_view, 9> notDisks = {"loop", "ram",  "zram",   "dm-", "md",
                                                      "nbd",  "drbd", "bcache", "zd"};

/// Takes `word` and the digits behind it off the front; those digits, none where that is not there.
std::string_view takeNumbered(std::string_view& name, std::string_view word) {
    if (!name.starts_with(word)) return {};
    auto rest = name.substr(word.size());
    const auto number = rest.substr(0, std::min(rest.find_first_not_of(digits), rest.size()));
    if (!number.empty()) name = rest.substr(number.size());
    return number;
}

std::optional<std::string> productOf(const LinuxRoot& root, const std::string& folder) {
    // A memory card's is called its name.
    for (const auto* file : {"/device/model", "/device/name"})
        if (auto text = root.readText(folder + file)) return text;
    return std::nullopt;
}

}  // namespace

std::optional<std::string> multipathDisk(std::string_view name) {
    const auto subsystem = takeNumbered(name, "nvme");
    const auto controller = takeNumbered(name, "c");
    const auto space = takeNumbered(name, "n");
    if (subsystem.empty() || controller.empty() || space.empty() || !name.empty())
        return std::nullopt;
    return std::string("nvme").append(subsystem).append("n").append(space);
}

bool isWholeDisk(std::string_view name) {
    if (std::ranges::any_of(notDisks, [&](auto prefix) { return name.starts_with(prefix); }))
        return false;
    if (name.starts_with("mmcblk") && name.find("boot") != std::string_view::npos) return false;
    return !multipathDisk(name);
}

std::vector<BlockDevice> listBlockDevices(const LinuxRoot& root) {
    const auto names = root.list("/sys/block");
    std::vector<BlockDevice> devices;
    for (const auto& name : names) {
        const std::string folder = "/sys/block/" + name;
        if (!isWholeDisk(name) || root.readText(folder + "/hidden") == "1") continue;
        devices.push_back({name,
                           productOf(root, folder),
                           root.readText(folder + "/diskseq").value_or(std::string()),
                           {}});
    }
    for (const auto& name : names) {
        const auto disk = multipathDisk(name);
        if (!disk) continue;
        const auto found = std::ranges::find(devices, *disk, &BlockDevice::name);
        if (found != devices.end()) found->paths.push_back(name);
    }
    return devices;
}

}  // namespace vtx
