// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedSysctl.h"

#include <algorithm>
#include <cerrno>

#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

template <class Number>
Data bytesOf(Number number) {
    const auto bytes = std::as_bytes(std::span(&number, 1));
    return {bytes.begin(), bytes.end()};
}

std::optional<Data> count32(std::size_t count) { return bytesOf(static_cast<std::int32_t>(count)); }

}  // namespace

int SimulatedSysctl::sysctlbyname(std::string_view name, std::span<std::byte> into,
                                  std::size_t& size) {
    if (const auto failure = instruments_.enter(std::string(operations::sysctlPrefix).append(name)))
        return *failure;
    const auto bytes = value(name);
    if (!bytes) return ENOENT;
    if (!into.empty() && into.size() < bytes->size()) return ENOMEM;
    if (!into.empty()) std::ranges::copy(*bytes, into.begin());
    size = bytes->size();
    return 0;
}

void SimulatedSysctl::set(std::string_view name, std::int32_t value) {
    store(name, bytesOf(value));
}

void SimulatedSysctl::set(std::string_view name, std::int64_t value) {
    store(name, bytesOf(value));
}

void SimulatedSysctl::set(std::string_view name, std::string_view text) {
    Data bytes = toData(text);
    bytes.push_back(std::byte{0});
    store(name, std::move(bytes));
}

void SimulatedSysctl::setBytes(std::string_view name, Data bytes) { store(name, std::move(bytes)); }

void SimulatedSysctl::remove(std::string_view name) { store(name, std::nullopt); }

void SimulatedSysctl::store(std::string_view name, std::optional<Data> bytes) {
    const std::lock_guard lock(mutex_);
    set_.insert_or_assign(std::string(name), std::move(bytes));
}

std::optional<Data> SimulatedSysctl::value(std::string_view name) const {
    const std::lock_guard lock(mutex_);
    const auto found = set_.find(name);
    return found == set_.end() ? derived(name) : found->second;
}

std::optional<Data> SimulatedSysctl::derived(std::string_view name) const {
    const MacShape& shape = processors_.shape();
    if (name == "hw.logicalcpu") return count32(processors_.processorCount());
    if (name == "hw.memsize") return bytesOf(SimulatedMemory::totalBytes);
    if (name == "vm.swapusage") {
        const auto record = encodeSwapUsage(memory_.swap());
        return Data(record.begin(), record.end());
    }
    if (!shape.performanceLevels) return std::nullopt;
    const bool hasTwoLevels = *shape.performanceLevels > 1;
    if (name == "hw.nperflevels") return bytesOf(std::int32_t{*shape.performanceLevels});
    if (name == "hw.perflevel0.logicalcpu")
        return count32(hasTwoLevels ? shape.count(CoreKind::performance) : shape.cores.size());
    if (name == "hw.perflevel1.logicalcpu" && hasTwoLevels)
        return count32(shape.count(CoreKind::efficiency));
    if (name == "hw.perflevel0.cpufrequency_max" && shape.performanceMaxHz)
        return bytesOf(*shape.performanceMaxHz);
    if (name == "hw.perflevel1.cpufrequency_max" && hasTwoLevels && shape.efficiencyMaxHz)
        return bytesOf(*shape.efficiencyMaxHz);
    return std::nullopt;
}

}  // namespace vtx
