// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "platform/ProcessTable.h"

namespace vtx {

/// What the processes had used when the table was listed last, for whoever asks one by one while
/// the next listing may be under way. Any thread.
class ProcessUsages {
public:
    /// Ascending by pid.
    using List = std::vector<std::pair<std::int32_t, RusageInfo>>;

    void replace(List all);
    [[nodiscard]] std::optional<RusageInfo> find(std::int32_t pid) const;

private:
    mutable std::mutex mutex_;
    List all_;
};

}  // namespace vtx
