// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/linux/CpuFreq.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/RegistryNode.h"

namespace vtx {

/// The node "cpus" of the device tree with a child for each processor: "cpu-id" is its place and
/// "cluster-type" "P" or "E" by its level. Null on a machine of one level: there is nothing to tell
/// apart.
[[nodiscard]] std::shared_ptr<RegistryNode> makeProcessorNodes(const LinuxProcessors& processors);

/// The service "pmgr" with the clock steps of each level in the firmware's form: table 5 is the
/// fast processors', table 1 the efficient ones', and "acc-clusters" names those that there are.
/// Null on a machine without cpufreq.
[[nodiscard]] std::shared_ptr<RegistryNode> makePowerManager(const CpuFreq& cpuFreq);

}  // namespace vtx
