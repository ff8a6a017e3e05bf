// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "TemporaryFolder.h"

namespace vtx::bench {

/// A copy of the /sys of a recorded machine with every sensor, whose figures are others each
/// second, on a thread of its own. What the kernel would tell costs more to read: these files are
/// ordinary ones.
class LivingSensors {
public:
    LivingSensors();

    /// Whether a program may be given another /sys here.
    [[nodiscard]] bool canBeShown() const;
    /// The words that start `program` with this /sys over the machine's own.
    [[nodiscard]] std::vector<std::string> command(const std::string& program) const;

private:
    struct Figure {
        std::filesystem::path file;
        std::string (*at)(int second);
    };

    void find();
    void write(int second) const;
    void run(const std::stop_token& stop) const;

    TemporaryFolder folder_;
    std::vector<Figure> figures_;
    std::jthread thread_;  // last: it uses all of the above
};

}  // namespace vtx::bench
