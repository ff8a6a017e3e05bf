// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "TemporaryFolder.h"
#include "pass/Statistics.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/PollRunLoop.h"

namespace vtx::bench {

/// What one source of a pass asks of the platform, and the files that have the answer.
struct SystemSource {
    std::string name;
    /// The port calls of one pass; false where they fail.
    std::function<bool(const Ports&)> read;
    std::vector<std::string> files;
};

/// The CPU time of one source, or of all of them in a row.
struct SystemCosts {
    std::string name;
    Statistics ports;
    /// One kept-open read each of its files.
    Statistics preads;
};

/// Times the platform's part of a pass, source by source, at the real cadence. Lives on the thread
/// that made it.
class SystemMeter {
public:
    SystemMeter();

    /// Reads all sources, waits, reads all files, waits, and so on. The first rounds are not
    /// counted. The last one is of all sources together.
    [[nodiscard]] std::vector<SystemCosts> measure(int rounds, std::chrono::milliseconds gap);

    /// All that are read for comparison: the cheapest that the kernel has for the same figures.
    [[nodiscard]] std::vector<std::string> files() const;

private:
    struct Metered {
        SystemSource source;
        std::vector<KeptFile> files;
    };

    void add(SystemSource source);
    void wait(std::chrono::milliseconds gap);

    TemporaryFolder settings_;
    PollRunLoop loop_;
    LinuxRoot root_;
    LinuxPlatform platform_;
    std::vector<Metered> sources_;
};

}  // namespace vtx::bench
