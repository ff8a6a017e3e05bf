// SPDX-License-Identifier: MIT
#include "platform/linux/GraphicsSource.h"

#include <algorithm>

#include "platform/linux/AmdLoad.h"
#include "platform/linux/NvidiaLoad.h"
#include "platform/linux/SlowGraphicsLoad.h"

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

/// Where a processor has the graphics that are part of it; a card is behind a bridge.
bool isOnRootBus(std::string_view address) {
    return address.substr(address.find(':') + 1).starts_with("00:");
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
    Devices found;
    for (const auto& name : root_.list("/sys/class/drm")) {
        if (isCard(name)) lookAtCard("/sys/class/drm/" + name, found);
    }
    lookAtNvidia(found);
    devices_ = std::move(found);
}

void GraphicsSource::lookAtCard(const std::string& card, Devices& found) {
    const auto driver = root_.linkName(card + "/device/driver");
    const auto address = root_.linkName(card + "/device");
    if (!driver || !address || !isPciAddress(*address)) return;
    const std::string folder = GraphicsDevice::folderOf(*address);
    if (*driver == "amdgpu" && root_.exists(folder + "/gpu_busy_percent")) {
        // The driver gives a device with memory or a bus link of its own the load of at least one.
        const bool isDiscrete =
            root_.exists(folder + "/mem_busy_percent") || root_.exists(folder + "/pcie_bw");
        const auto load = [&] {
            return slowly(folder,
                          std::make_shared<AmdLoad>(root_.path(folder + "/gpu_busy_percent")));
        };
        add(isDiscrete, *driver, *address, load, found);
    } else if (*driver == "i915" || *driver == "xe") {
        auto counters = IntelLoad::countersOf(root_, card, folder);
        if (counters.empty()) return;
        for (auto& counter : counters) counter = root_.path(counter);
        const auto load = [&] {
            return std::make_unique<IntelLoad>(clock_, tools_.pause, counters);
        };
        add(!isOnRootBus(*address), *driver, *address, load, found);
    }
}

void GraphicsSource::lookAtNvidia(Devices& found) {
    for (const auto& address : root_.list("/sys/bus/pci/drivers/nvidia")) {
        if (!isPciAddress(address)) continue;
        if (!nvml_) nvml_ = tools_.openNvml();
        if (!nvml_) return;
        const auto load = [&] {
            return slowly(GraphicsDevice::folderOf(address),
                          std::make_shared<NvidiaLoad>(nvml_, address));
        };
        add(true, "nvidia", address, load, found);
    }
}

void GraphicsSource::add(bool isDiscrete, const std::string& driver, const std::string& address,
                         const std::function<Load()>& makeLoad, Devices& found) {
    Key key(isDiscrete, address);
    const auto known = devices_.find(key);
    const bool isSame = known != devices_.end() && known->second->name() == driver;
    auto device =
        isSame ? known->second
               : std::make_shared<GraphicsDevice>(root_, clock_, driver, address, makeLoad());
    found.emplace(std::move(key), std::move(device));
}

GraphicsSource::Load GraphicsSource::slowly(const std::string& folder,
                                            std::shared_ptr<GraphicsLoad> load) {
    return std::make_unique<SlowGraphicsLoad>(
        tools_.slowReads, clock_, std::make_shared<RuntimePower>(root_, folder), std::move(load));
}

}  // namespace vtx
