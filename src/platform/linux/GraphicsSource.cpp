// SPDX-License-Identifier: MIT
#include "platform/linux/GraphicsSource.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vtx {
namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::string_view hexDigits = "0123456789abcdef";

/// A card itself, not one of its connectors, which are named "card0-DP-1".
bool isCard(std::string_view name) {
    if (!name.starts_with("card")) return false;
    name.remove_prefix(4);
    return !name.empty() && name.find_first_not_of(digits) == std::string_view::npos;
}

/// Such as "0000:03:00.0".
bool isPciAddress(std::string_view text) {
    constexpr std::string_view form = "0000:00:00.0";
    // Some machines number more domains than four digits hold.
    if (text.size() < form.size() || text.size() > form.size() + 4) return false;
    const auto domain = text.substr(0, text.size() - form.size());
    const auto rest = text.substr(domain.size());
    return domain.find_first_not_of(hexDigits) == std::string_view::npos &&
           std::ranges::equal(rest, form, [](char c, char wanted) {
               return wanted == '0' ? hexDigits.find(c) != std::string_view::npos : c == wanted;
           });
}

}  // namespace

RegistryNodes GraphicsSource::services() {
    if (const auto now = changes_.generation(); now != generation_) {
        generation_ = now;
        look();
    }
    RegistryNodes nodes;
    for (const auto& [key, device] : devices_) nodes.push_back(device);
    return nodes;
}

void GraphicsSource::look() {
    std::map<Key, std::shared_ptr<AmdGraphics>> found;
    for (const auto& name : root_.list("/sys/class/drm")) {
        const auto key = isCard(name) ? keyOf("/sys/class/drm/" + name) : std::nullopt;
        if (!key) continue;
        const auto known = devices_.find(*key);
        found[*key] = known != devices_.end()
                          ? known->second
                          : std::make_shared<AmdGraphics>(root_, key->second, clock_);
    }
    devices_ = std::move(found);
}

std::optional<GraphicsSource::Key> GraphicsSource::keyOf(const std::string& card) const {
    if (root_.linkName(card + "/device/driver") != "amdgpu") return std::nullopt;
    auto address = root_.linkName(card + "/device");
    if (!address || !isPciAddress(*address)) return std::nullopt;
    const std::string folder = AmdGraphics::folderOf(*address);
    if (!root_.exists(folder + "/gpu_busy_percent")) return std::nullopt;
    // The driver gives a device with memory or a bus link of its own the load of at least one.
    const bool isDiscrete =
        root_.exists(folder + "/mem_busy_percent") || root_.exists(folder + "/pcie_bw");
    return Key{isDiscrete, *std::move(address)};
}

}  // namespace vtx
