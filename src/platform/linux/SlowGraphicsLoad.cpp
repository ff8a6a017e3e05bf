// SPDX-License-Identifier: MIT
#include "platform/linux/SlowGraphicsLoad.h"

#include <utility>

namespace vtx {
namespace {

SlowRead<std::uint64_t>::Function readingOf(std::shared_ptr<GraphicsLoad> source,
                                            std::shared_ptr<RuntimePower> power) {
    return [source = std::move(source), power = std::move(power)]() -> GraphicsLoad::Percent {
        const auto state = power->state();
        if (state == RuntimePower::State::unknown) return std::nullopt;
        if (state == RuntimePower::State::asleep) return 0;
        return source->next();
    };
}

}  // namespace

SlowGraphicsLoad::SlowGraphicsLoad(Executor& worker, const Clock& clock,
                                   std::shared_ptr<RuntimePower> power,
                                   std::shared_ptr<GraphicsLoad> source, Duration patience)
    : worker_(worker),
      source_(std::move(source)),
      reading_(worker, clock, readingOf(source_, std::move(power)), patience) {}

SlowGraphicsLoad::~SlowGraphicsLoad() { SlowGraphicsLoad::letGo(); }

GraphicsLoad::Percent SlowGraphicsLoad::first() {
    isHeld_ = true;
    return reading_.read();
}

GraphicsLoad::Percent SlowGraphicsLoad::next() {
    isHeld_ = true;
    return reading_.latest();
}

void SlowGraphicsLoad::letGo() {
    if (std::exchange(isHeld_, false)) postSoon(worker_, [source = source_] { source->letGo(); });
}

}  // namespace vtx
