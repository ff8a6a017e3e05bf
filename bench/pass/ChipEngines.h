// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "pass/RecordedMachine.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/PollRunLoop.h"

namespace vtx::bench {

/// One engine of the chip, and bare reads of the files that it needs.
class ChipEngine {
public:
    /// Of the clocks and of the graphics; on this machine, or on a recorded one where this one has
    /// no such source. The loop outlives the engine.
    [[nodiscard]] static std::unique_ptr<ChipEngine> clocks(PollRunLoop& loop);
    [[nodiscard]] static std::unique_ptr<ChipEngine> graphics(PollRunLoop& loop);

    /// The recorded machine's name; empty for this machine.
    [[nodiscard]] const std::string& recorded() const { return recorded_; }
    /// Before each of the next two, where the machine is a recorded one.
    void goOn() const;
    /// A step of the engine. False where it gave no reading.
    [[nodiscard]] bool tick() { return step_(); }
    /// Reads each file once. False where one cannot be read.
    [[nodiscard]] bool read();

private:
    ChipEngine(PollRunLoop& loop, const std::string& recorded);

    /// False where the machine lacks the source.
    bool findClocks();
    bool findGraphics();
    void addFile(const std::string& absolute);

    const std::string recorded_;
    std::optional<RecordedMachine> copy_;
    TemporaryFolder settings_;
    LinuxRoot root_;
    LinuxPlatform platform_;
    std::vector<KeptFile> files_;
    std::function<bool()> step_;
};

}  // namespace vtx::bench
