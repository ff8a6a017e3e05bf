// SPDX-License-Identifier: MIT
#include "platform/linux/StallWatch.h"

#include <poll.h>

#include <chrono>
#include <utility>

#include "platform/MemoryPressureSource.h"

namespace vtx {
namespace {

constexpr std::size_t longestFile = 512;
/// Of the triggers: what unprivileged ones have is a multiple of this.
constexpr Duration window = std::chrono::seconds(2);
constexpr const char* someTrigger = "some 150000 2000000";
constexpr const char* fullTrigger = "full 200000 2000000";
// The same as fractions of the time.
constexpr double someThreshold = 0.075;
constexpr double fullThreshold = 0.100;
/// A level that was reached is left below this part of its threshold.
constexpr double calm = 0.5;

/// 0, 1 or 2 for shares of the time in which some and all tasks stalled, when it was `held` before.
int levelOf(double some, double full, int held) {
    if (full >= fullThreshold * (held >= 2 ? calm : 1.0)) return 2;
    return some >= someThreshold * (held >= 1 ? calm : 1.0) ? 1 : 0;
}

double share(std::uint64_t before, std::uint64_t now, Duration span) {
    if (now <= before || span <= Duration::zero()) return 0.0;
    return static_cast<double>(now - before) / (toSeconds(span) * 1'000'000.0);
}

bool hasFailed(const FileDescriptor& file) {
    pollfd state{file.get(), POLLPRI, 0};
    return ::poll(&state, 1, 0) > 0 && (state.revents & (POLLERR | POLLNVAL | POLLHUP)) != 0;
}

}  // namespace

StallWatch::StallWatch(const LinuxRoot& root, RunLoop& loop, Clock& clock,
                       PressureTriggers& triggers, MemInfoReader& memory, std::uint32_t mask)
    : loop_(loop),
      clock_(clock),
      triggers_(triggers),
      memory_(memory),
      mask_(mask),
      file_(root.path("/proc/pressure/memory")) {}

void StallWatch::setHandler(std::function<void(std::uint32_t)> handler) {
    const std::lock_guard lock(mutex_);
    handler_ = std::move(handler);
}

void StallWatch::begin() {
    {
        const std::lock_guard lock(mutex_);
        if (std::exchange(isUnderWay_, true)) return;
    }
    if (!openTriggers()) followAverages();
}

void StallWatch::end() {
    // Outside of the lock: a sample under way holds the reader's and waits for ours.
    samples_.cancel();
    nextLook_.cancel();
    closeTriggers();
    const std::lock_guard lock(mutex_);
    isUnderWay_ = false;
    handler_ = nullptr;
}

bool StallWatch::openTriggers() {
    opened_[0].file = triggers_.open(someTrigger);
    opened_[1].file = triggers_.open(fullTrigger);
    if (opened_[0].file && opened_[1].file) {
        watchTrigger(opened_[0], Level::warning);
        watchTrigger(opened_[1], Level::critical);
        return true;
    }
    closeTriggers();
    return false;
}

void StallWatch::closeTriggers() {
    for (Trigger& each : opened_) {
        each.watch.cancel();
        each.file.reset();
    }
}

void StallWatch::watchTrigger(Trigger& trigger, Level level) {
    trigger.watch = loop_.watch(trigger.file.get(), POLLPRI,
                                [weak = weak_from_this(), &file = trigger.file, level] {
                                    if (const auto self = weak.lock()) self->fired(file, level);
                                });
}

void StallWatch::followAverages() {
    if (!readPressure()) return;
    samples_ = memory_.onRead([weak = weak_from_this()] {
        if (const auto self = weak.lock()) self->sampled();
    });
}

void StallWatch::fired(const FileDescriptor& file, Level level) {
    // The poll that led here took the event; a trigger that is still ready has gone.
    if (hasFailed(file)) {
        closeTriggers();
        followAverages();
        return;
    }
    if (!nextLook_) lookAgainLater();
    const std::lock_guard lock(mutex_);
    if (level > level_) tell(level);
}

void StallWatch::lookAgainLater() {
    const auto now = readPressure();
    before_ = now ? std::optional(Totals{*now, clock_.continuous()}) : std::nullopt;
    nextLook_ =
        clock_.schedule(clock_.continuous() + window, window / 10, [weak = weak_from_this()] {
            if (const auto self = weak.lock()) self->lookAgain();
        });
}

void StallWatch::lookAgain() {
    const auto before = before_;
    const auto now = readPressure();
    Level level = Level::normal;
    {
        const std::lock_guard lock(mutex_);
        if (before && now) {
            const Duration span = clock_.continuous() - before->time;
            level = static_cast<Level>(
                levelOf(share(before->pressure.some.totalMicros, now->some.totalMicros, span),
                        share(before->pressure.full.totalMicros, now->full.totalMicros, span),
                        static_cast<int>(level_)));
        }
        tell(level);
    }
    nextLook_ = {};
    if (level != Level::normal) lookAgainLater();
}

void StallWatch::sampled() {
    const auto now = readPressure();
    const std::lock_guard lock(mutex_);
    if (!now) return;
    tell(static_cast<Level>(
        levelOf(now->some.avg10 / 100.0, now->full.avg10 / 100.0, static_cast<int>(level_))));
}

std::optional<MemoryPressure> StallWatch::readPressure() {
    const std::lock_guard lock(mutex_);
    const auto text = file_.read(longestFile);
    return text ? parseMemoryPressure(*text) : std::nullopt;
}

void StallWatch::tell(Level level) {
    if (std::exchange(level_, level) == level || !handler_) return;
    const std::uint32_t data = level == Level::critical  ? memoryPressureCritical
                               : level == Level::warning ? memoryPressureWarn
                                                         : memoryPressureNormal;
    if ((mask_ & data) != 0) handler_(data);
}

}  // namespace vtx
