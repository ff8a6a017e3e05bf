// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/shapes/DeviceTree.h"

namespace vtx {

enum class CoreKind { efficiency, performance };

/// How a simulated machine is built. Constant for its life.
struct MacShape {
    /// The kind of each logical processor, in the order of their numbers.
    std::vector<CoreKind> cores;
    /// Performance levels that the kernel tells of: 2, 1, or absent where it knows no such thing.
    std::optional<int> performanceLevels;
    /// Top clocks that the kernel tells, in hertz; absent where it does not tell, as it does not on
    /// machines whose clocks stand in the power manager's tables.
    std::optional<std::int64_t> performanceMaxHz;
    std::optional<std::int64_t> efficiencyMaxHz;

    /// Clock tables of the power manager in MHz, slowest first; empty where it keeps none.
    std::vector<double> performanceStepsMHz;
    std::vector<double> efficiencyStepsMHz;
    /// Table of a third, slower cluster, which none of the cores belongs to.
    std::vector<double> thirdClusterStepsMHz;
    StepUnit stepUnit = StepUnit::hertz;
    /// Numbers of the processors that the device tree leaves out.
    std::vector<std::size_t> missingFromTree;
    /// What the chip calls its efficiency cores where it counts their states.
    std::string efficiencyChannel = "ECPU";
    bool hasAccelerator = true;

    /// What the kernel calls the chip, the machine, and the build of its system.
    std::string chip = "Apple M2 Max";
    std::string model = "Mac14,6";
    std::string osBuild = "24C101";
    /// Keys of the SMC; of more than the machine needs the others mean nothing. 0: it has no SMC.
    std::size_t smcKeyCount = 300;
    /// Sensors that stand far above their neighbours; those that the machine lacks do not matter.
    std::vector<std::string> hotSpots{"Tp0H", "Tp0n"};
    std::size_t fanCount = 2;

    /// Two clusters, the efficiency cores having the low numbers.
    static MacShape standard(std::size_t performanceCores = 8, std::size_t efficiencyCores = 4);
    /// The same beside a third cluster of a lower tier, in the units and with the names of such
    /// chips.
    static MacShape threeClusters(std::size_t performanceCores = 8,
                                  std::size_t efficiencyCores = 4);
    /// One performance level that all cores belong to.
    static MacShape singleLevel(std::size_t coreCount = 8);
    /// A kernel that knows no performance levels, and firmware that tells nothing.
    static MacShape withoutLevels(std::size_t coreCount = 8);

    [[nodiscard]] std::size_t count(CoreKind kind) const;
};

}  // namespace vtx
