// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/simulated/SimulatedProcesses.h"
#include "processes/ProcessSnapshot.h"

namespace vtx {

/// A process of the machine's user, which a test may change before it is listed.
inline ProcessSnapshot snapshotOf(std::int32_t pid, double cpu = 0.0, std::string name = "node") {
    ProcessSnapshot process;
    process.pid = pid;
    process.uid = SimulatedProcesses::user;
    process.name = std::move(name);
    process.executablePath = "/opt/" + process.name;
    process.cpuPercent = cpu;
    process.residentMemoryBytes = 1U << 20;
    return process;
}

}  // namespace vtx
