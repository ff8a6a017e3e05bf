// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedDisks.h"

#include "base/Fault.h"
#include "platform/IORegistry.h"

namespace vtx {
namespace {

constexpr double bytesPerOperation = 24'000.0;

Property number(std::uint64_t value) { return static_cast<std::int64_t>(value); }

Property statistics(const DiskCounters& counters) {
    return PropertyMap{{"Bytes (Read)", number(counters.bytesRead)},
                       {"Bytes (Write)", number(counters.bytesWritten)},
                       {"Operations (Read)", number(counters.readOperations)},
                       {"Operations (Write)", number(counters.writeOperations)}};
}

void addTo(DiskCounters& counters, const DiskCounters& done) {
    counters.bytesRead += done.bytesRead;
    counters.bytesWritten += done.bytesWritten;
    counters.readOperations += done.readOperations;
    counters.writeOperations += done.writeOperations;
}

}  // namespace

SimulatedDisks::Node SimulatedDisks::attach(const Description& description) {
    const Node device =
        registry_.add(registry_.root(planes::service), "disk", "IOBlockStorageDevice");
    if (description.product)
        registry_.set(device, "Device Characteristics",
                      PropertyMap{{"Product Name", *description.product}});
    const Node driver = registry_.add(device, "IOBlockStorageDriver", "IOBlockStorageDriver");
    const Node medium = registry_.add(driver, "Media", "IOMedia");
    if (description.bsdName) registry_.set(medium, "BSD Name", *description.bsdName);
    {
        const std::lock_guard lock(mutex_);
        counters_.emplace(driver, DiskCounters{});
    }
    registry_.setSource(driver, "Statistics",
                        [this, driver] { return statistics(counters(driver)); });
    return driver;
}

void SimulatedDisks::detach(Node driver) {
    {
        const std::lock_guard lock(mutex_);
        if (counters_.erase(driver) == 0) programmingFault("no such drive in the simulated Mac");
    }
    registry_.remove(registry_.parent(driver));
}

void SimulatedDisks::setCounters(Node driver, const DiskCounters& counters) {
    const std::lock_guard lock(mutex_);
    counters_[driver] = counters;
}

void SimulatedDisks::add(Node driver, const DiskCounters& done) {
    const std::lock_guard lock(mutex_);
    addTo(counters_[driver], done);
}

DiskCounters SimulatedDisks::counters(Node driver) {
    const std::lock_guard lock(mutex_);
    liveOn();
    const auto found = counters_.find(driver);
    return found == counters_.end() ? DiskCounters{} : found->second;
}

void SimulatedDisks::live(std::uint64_t seed) {
    const std::lock_guard lock(mutex_);
    living_.emplace(seed);
    livingSince_ = livedUntil_ = clock_.continuous();
}

void SimulatedDisks::liveOn() {
    const Instant now = clock_.continuous();
    if (!living_ || counters_.empty() || now <= livedUntil_) return;
    const double span = toSeconds(now - livedUntil_);
    const auto rates = living_->disk(now - livingSince_);
    livedUntil_ = now;
    const auto whole = [](double value) { return static_cast<std::uint64_t>(value); };
    addTo(counters_.begin()->second, {whole(rates.in * span), whole(rates.out * span),
                                      whole(rates.in * span / bytesPerOperation),
                                      whole(rates.out * span / bytesPerOperation)});
}

}  // namespace vtx
