// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedProcesses.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Fault.h"
#include "platform/simulated/SimulatedProcessors.h"

namespace vtx {

SimulatedProcesses::SimulatedProcesses(const Clock& clock, SimulatedProcessors& processors)
    : clock_(clock),
      processors_(processors),
      processes_(standardProcesses()),
      countedUntil_(clock.continuous()) {}

void SimulatedProcesses::live(std::uint64_t seed) {
    const std::lock_guard lock(mutex_);
    catchUp();
    living_.emplace(seed);
    livingSince_ = countedUntil_;
    busyUntil_ = coresBusy();
}

void SimulatedProcesses::setAsleep(bool asleep) {
    const std::lock_guard lock(mutex_);
    catchUp();
    asleep_ = asleep;
}

void SimulatedProcesses::add(SimulatedProcess process) {
    const std::lock_guard lock(mutex_);
    catchUp();
    processes_.push_back(std::move(process));
}

void SimulatedProcesses::remove(std::int32_t pid) {
    const std::lock_guard lock(mutex_);
    catchUp();
    processes_.erase(at(pid));
}

void SimulatedProcesses::removeAll() {
    const std::lock_guard lock(mutex_);
    processes_.clear();
}

void SimulatedProcesses::change(std::int32_t pid,
                                const std::function<void(SimulatedProcess&)>& edit) {
    const std::lock_guard lock(mutex_);
    catchUp();
    edit(*at(pid));
}

std::size_t SimulatedProcesses::count() const {
    const std::lock_guard lock(mutex_);
    return processes_.size();
}

std::vector<SimulatedProcess> SimulatedProcesses::all() {
    const std::lock_guard lock(mutex_);
    catchUp();
    return processes_;
}

std::optional<SimulatedProcess> SimulatedProcesses::find(std::int32_t pid) {
    const std::lock_guard lock(mutex_);
    catchUp();
    const auto found = std::ranges::find(processes_, pid, &SimulatedProcess::pid);
    return found == processes_.end() ? std::nullopt : std::optional(*found);
}

std::vector<SimulatedProcess>::iterator SimulatedProcesses::at(std::int32_t pid) {
    const auto found = std::ranges::find(processes_, pid, &SimulatedProcess::pid);
    if (found == processes_.end())
        programmingFault(fmt::format("the machine has no process {}", pid));
    return found;
}

void SimulatedProcesses::catchUp() {
    const Instant from = countedUntil_;
    const Instant now = std::max(from, clock_.continuous());
    if (now == from) return;
    countedUntil_ = now;
    if (asleep_) return;
    const auto span = static_cast<double>((now - from).count());
    for (auto& process : processes_)
        process.cpuNanoseconds += static_cast<std::uint64_t>(std::llround(span * process.load));
    if (!living_) return;
    const std::uint64_t busy = coresBusy();
    shareOut(busy - std::exchange(busyUntil_, busy), now - livingSince_);
}

void SimulatedProcesses::shareOut(std::uint64_t nanoseconds, Duration sinceStart) {
    std::vector<double> shares;
    shares.reserve(processes_.size());
    double sum = 0.0;
    for (const auto& process : processes_) {
        const double appetite =
            living_->appetite(static_cast<std::uint64_t>(process.pid), sinceStart);
        sum += shares.emplace_back(process.weight * appetite);
    }
    if (!(sum > 0.0)) return;
    const auto all = static_cast<double>(nanoseconds);
    for (std::size_t i = 0; i < shares.size(); ++i)
        processes_[i].cpuNanoseconds +=
            static_cast<std::uint64_t>(std::llround(all * shares[i] / sum));
}

std::uint64_t SimulatedProcesses::coresBusy() const {
    // Not by their ticks, which begin anew.
    std::uint64_t busy = 0;
    for (const auto core : processors_.busyNanoseconds()) busy += static_cast<std::uint64_t>(core);
    return busy;
}

}  // namespace vtx
