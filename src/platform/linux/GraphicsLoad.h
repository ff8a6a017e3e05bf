// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "base/Date.h"

namespace vtx {

/// What one driver tells of the load of one graphics device. Asked only while the device is awake.
/// Owned by its `GraphicsDevice`. One thread at a time.
class GraphicsLoad {
public:
    using Percent = std::optional<std::uint64_t>;

    GraphicsLoad() = default;
    GraphicsLoad(const GraphicsLoad&) = delete;
    GraphicsLoad& operator=(const GraphicsLoad&) = delete;
    virtual ~GraphicsLoad() = default;

    /// Where nothing recent is known. May take 200 ms.
    [[nodiscard]] virtual Percent first() { return next(); }
    /// At once. Where the driver counts, this is the load since the call before, and absent where
    /// there was none. At most 100; absent where the driver tells nothing sensible.
    [[nodiscard]] virtual Percent next() = 0;
    /// The device is left alone from now on: lets go of what would keep it awake.
    virtual void letGo() {}
    /// How long it is left alone at least, where it may suspend itself.
    [[nodiscard]] virtual Duration leastRest() const { return Duration(0); }
};

}  // namespace vtx
