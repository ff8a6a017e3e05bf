// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/LinuxRoot.h"
#include "platform/linux/RegistryNode.h"

namespace vtx {

/// What is known of the memory's modules; all of them are alike in what is told here.
struct MemoryModules {
    std::optional<std::string> type;  ///< "DDR4", "LPDDR5"
    std::optional<std::uint64_t> transfersPerSecond;

    friend bool operator==(const MemoryModules&, const MemoryModules&) = default;
};

/// By the records that the device manager keeps of the firmware's tables, which only the superuser
/// may read themselves: the first module that is there. Pure.
[[nodiscard]] MemoryModules parseMemoryRecords(std::string_view records);

/// The kind within a name of the kernel's, "DDR4" in "Registered-DDR4"; absent where it names none.
[[nodiscard]] std::optional<std::string> memoryKindOf(std::string_view name);

/// The node "memory" of the device tree with "dram-type" and "dram-speed"; null where nothing is
/// known. A speed of more transfers per second than 32 bits hold, which is where the newest modules
/// begin, cannot be told in the firmware's form and is left out.
[[nodiscard]] std::shared_ptr<RegistryNode> makeMemoryNode(const LinuxRoot& root);

/// The node "product" with "product-name": the family that the maker gave the machine, else its
/// name, else "Unknown".
[[nodiscard]] std::shared_ptr<RegistryNode> makeProductNode(const LinuxRoot& root);

}  // namespace vtx
