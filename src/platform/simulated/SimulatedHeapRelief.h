// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <utility>

#include "platform/HeapRelief.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/Operations.h"

namespace vtx {

/// The heap of a program on the simulated machine, as far as somebody says that there is some.
class SimulatedHeapRelief final : public HeapRelief {
public:
    explicit SimulatedHeapRelief(Instruments& instruments) : instruments_(instruments) {}

    /// What the next relief gives back; the one after that finds nothing more.
    std::int64_t unusedBytes = 0;

    [[nodiscard]] std::int64_t mallocZonePressureRelief() override {
        instruments_.counter.count(operations::mallocZonePressureRelief);
        return std::exchange(unusedBytes, 0);
    }

private:
    Instruments& instruments_;
};

}  // namespace vtx
