// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "base/Date.h"
#include "platform/linux/KeptFile.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/ProcFolder.h"

namespace vtx {

class Clock;

/// Which processes there are. Walking all of /proc costs the kernel nearly half of what reading
/// every process does, so mostly only those are walked that can be new: the kernel gives numbers in
/// ascending order and tells the last one it gave, and the position in the folder is the number.
/// The whole folder is walked at first, now and then, after a pause, after many new numbers, and
/// wherever that does not hold. One thread at a time.
class ProcessListing {
public:
    enum class Extent {
        all,   ///< who is not listed is gone
        some,  ///< those that may be new; who is not listed may be there
    };
    struct Listing {
        Extent extent = Extent::all;
        std::span<const std::int32_t> pids;  ///< ascending; lives until the next listing
        int error = 0;                       ///< errno where the folder cannot be read
    };

    ProcessListing(const LinuxRoot& root, const Clock& clock);

    /// The folder must be open.
    [[nodiscard]] Listing next(const ProcFolder& folder);

    /// The next listing walks everything, as the first one.
    void beginAnew() { beforeLast_ = atLast_ = std::nullopt; }

    /// The last number given, from the text of /proc/loadavg.
    [[nodiscard]] static std::optional<std::int32_t> lastPid(std::string_view loadavg);

private:
    [[nodiscard]] std::optional<std::int32_t> lastPid();
    [[nodiscard]] bool knowsOthers(std::optional<std::int32_t> last) const;
    [[nodiscard]] int walkAll(const ProcFolder& folder);
    [[nodiscard]] int walkFrom(const ProcFolder& folder, std::int32_t first, std::int32_t last);

    const Clock& clock_;
    KeptFile loadavg_;
    std::vector<std::int32_t> pids_;
    std::vector<char> entries_;
    /// The position in the folder that stands for number 0; absent where positions are no numbers.
    std::optional<std::int64_t> zeroAt_;
    /// The last number given when the listing before the last began, and when the last one did. A
    /// process that was about to start then is listed the second time at the latest.
    std::optional<std::int32_t> beforeLast_;
    std::optional<std::int32_t> atLast_;
    Instant lastAt_;
    int sinceAll_ = 0;
};

}  // namespace vtx
