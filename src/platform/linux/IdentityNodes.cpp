// SPDX-License-Identifier: MIT
#include "platform/linux/IdentityNodes.h"

#include <algorithm>
#include <limits>
#include <map>

#include "platform/IORegistry.h"
#include "platform/linux/MachineIdentity.h"
#include "platform/linux/Parse.h"
#include "platform/shapes/DeviceTree.h"

namespace vtx {
namespace {

constexpr std::string_view memoryRecords = "/run/udev/data/+dmi:id";
constexpr std::string_view controllers = "/sys/devices/system/edac/mc";
constexpr std::uint64_t transfersInMega = 1'000'000;
/// No machine has more slots; records that number more are damaged.
constexpr std::uint64_t mostModules = 1024;

struct Module {
    bool isThere = true;
    std::optional<std::string> type;
    std::optional<std::uint64_t> speed;       ///< that it could have, in mega-transfers
    std::optional<std::uint64_t> configured;  ///< that it has
};

void takeRecord(Module& module, std::string_view field, std::string_view value) {
    if (field == "PRESENT") module.isThere = value != "0";
    if (field == "TYPE") module.type = memoryKindOf(value);
    if (field == "SPEED_MTS") module.speed = parseUnsigned(value);
    if (field == "CONFIGURED_SPEED_MTS") module.configured = parseUnsigned(value);
}

std::optional<std::string> kindByControllers(const LinuxRoot& root) {
    for (const auto& controller : root.list(controllers)) {
        const std::string folder = std::string(controllers) + "/" + controller;
        for (const auto& module : root.list(folder)) {
            const auto name = root.readText(folder + "/" + module + "/dimm_mem_type");
            if (const auto kind = memoryKindOf(name.value_or(""))) return kind;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> memoryKindOf(std::string_view name) {
    while (!name.empty()) {
        const auto word = name.substr(0, name.find('-'));
        name.remove_prefix(std::min(word.size() + 1, name.size()));
        const bool isShort = word.size() < 16;
        if (isShort && (word.find("DDR") != word.npos || word.find("HBM") != word.npos))
            return std::string(word);
    }
    return std::nullopt;
}

MemoryModules parseMemoryRecords(std::string_view records) {
    constexpr std::string_view beginning = "E:MEMORY_DEVICE_";
    std::map<std::uint64_t, Module> modules;
    while (!records.empty()) {
        auto line = takeLine(records);
        if (!line.starts_with(beginning)) continue;
        line.remove_prefix(beginning.size());
        const auto number = line.substr(0, std::min(line.find('_'), line.size()));
        const auto equals = line.find('=');
        const auto slot = parseUnsigned(number);
        if (!slot || *slot >= mostModules || equals == line.npos) continue;
        takeRecord(modules[*slot], line.substr(number.size() + 1, equals - number.size() - 1),
                   line.substr(equals + 1));
    }
    for (const auto& [slot, module] : modules) {
        if (!module.isThere || !module.type) continue;
        const auto speed = module.configured.value_or(0) > 0 ? module.configured : module.speed;
        MemoryModules found{module.type, std::nullopt};
        if (speed && *speed > 0 && *speed < transfersInMega)
            found.transfersPerSecond = *speed * transfersInMega;
        return found;
    }
    return {};
}

std::shared_ptr<RegistryNode> makeMemoryNode(const LinuxRoot& root) {
    auto modules = parseMemoryRecords(root.read(memoryRecords).value_or(""));
    if (!modules.type) modules.type = kindByControllers(root);
    if (!modules.type) return nullptr;
    PropertyMap properties{{"dram-type", toData(*modules.type)}};
    const auto speed = modules.transfersPerSecond;
    if (speed && *speed <= std::numeric_limits<std::uint32_t>::max())
        properties.emplace("dram-speed",
                           encodeDeviceTreeNumber(static_cast<std::uint32_t>(*speed)));
    return std::make_shared<FixedNode>(planes::deviceTree, "memory", std::move(properties));
}

std::shared_ptr<RegistryNode> makeProductNode(const LinuxRoot& root) {
    const MachineIdentity machine(root);
    const std::string name = machine.family.value_or(machine.model.value_or("Unknown"));
    return std::make_shared<FixedNode>(planes::deviceTree, "product",
                                       PropertyMap{{"product-name", toData(name)}});
}

}  // namespace vtx
