// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxProcessors.h"

#include <fmt/format.h>

#include <algorithm>

#include "platform/linux/CpuStat.h"
#include "platform/linux/Parse.h"

namespace vtx {
namespace {

using Numbers = std::vector<std::uint32_t>;

Numbers presentNumbers(const LinuxRoot& root) {
    if (auto present = root.readCpuList("/sys/devices/system/cpu/present");
        present && !present->empty()) {
        return *std::move(present);
    }
    const auto stat = root.readHead("/proc/stat", 1 << 20);
    Numbers numbers;
    if (!stat) return numbers;
    for (auto lines = leadingCpuLines(*stat).lines; !lines.empty();) {
        if (const auto line = parseCpuStatLine(takeLine(lines))) numbers.push_back(line->number);
    }
    std::ranges::sort(numbers);
    const auto repeated = std::ranges::unique(numbers);
    numbers.erase(repeated.begin(), repeated.end());
    return numbers;
}

/// The efficient processors of an Intel hybrid, by the kernel's own list of each kind. A part with
/// a third kind lists its slowest cores apart.
Numbers efficientByKind(const LinuxRoot& root) {
    const auto fast = root.readCpuList("/sys/devices/cpu_core/cpus");
    if (!fast || fast->empty()) return {};
    Numbers efficient;
    for (const auto* list : {"/sys/devices/cpu_atom/cpus", "/sys/devices/cpu_lowpower/cpus"}) {
        const auto kind = root.readCpuList(list);
        if (kind) efficient.insert(efficient.end(), kind->begin(), kind->end());
    }
    std::erase_if(efficient,
                  [&](std::uint32_t cpu) { return std::ranges::binary_search(*fast, cpu); });
    std::ranges::sort(efficient);
    return efficient;
}

/// The processors of the lowest capacity, where capacities differ. On x86 the kernel derives them
/// from the turbo ranks of equal cores, so there they mean nothing.
Numbers efficientByCapacity(const LinuxRoot& root, const Numbers& numbers) {
    const auto cpuinfo = root.readHead("/proc/cpuinfo", 8192);
    if (cpuinfo && fieldOf(*cpuinfo, "vendor_id")) return {};
    std::vector<std::pair<std::uint64_t, std::uint32_t>> capacities;
    for (const auto cpu : numbers) {
        const auto capacity =
            root.readUnsigned(fmt::format("/sys/devices/system/cpu/cpu{}/cpu_capacity", cpu));
        if (capacity && *capacity > 0) capacities.emplace_back(*capacity, cpu);
    }
    if (capacities.empty()) return {};
    const auto [lowest, highest] = std::ranges::minmax(capacities);
    Numbers efficient;
    if (lowest.first == highest.first) return efficient;
    for (const auto& [capacity, cpu] : capacities) {
        if (capacity == lowest.first) efficient.push_back(cpu);
    }
    return efficient;
}

}  // namespace

LinuxProcessors::LinuxProcessors(const LinuxRoot& root)
    : numbers_(presentNumbers(root)), levels_(numbers_.size(), 0) {
    auto efficient = efficientByKind(root);
    if (efficient.empty()) efficient = efficientByCapacity(root, numbers_);
    for (const auto cpu : efficient) {
        if (const auto place = placeOf(cpu)) levels_[*place] = 1;
    }
    // A level that nobody is left at is no level.
    if (countAt(1) == count()) std::ranges::fill(levels_, std::uint8_t{0});
    levelCount_ = countAt(1) > 0 ? 2 : 1;
}

std::optional<std::size_t> LinuxProcessors::placeOf(std::uint32_t number) const {
    const auto at = std::ranges::lower_bound(numbers_, number);
    if (at == numbers_.end() || *at != number) return std::nullopt;
    return static_cast<std::size_t>(at - numbers_.begin());
}

std::size_t LinuxProcessors::countAt(std::size_t level) const {
    return static_cast<std::size_t>(std::ranges::count(levels_, level));
}

}  // namespace vtx
