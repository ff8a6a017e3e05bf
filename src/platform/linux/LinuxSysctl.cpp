// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxSysctl.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>

#include "platform/linux/MachineIdentity.h"
#include "platform/shapes/Memory.h"

namespace vtx {
namespace {

constexpr std::int32_t cpuTypeX86 = 7;

template <class Number>
Data bytesOf(Number value) {
    const auto bytes = std::as_bytes(std::span(&value, 1));
    return {bytes.begin(), bytes.end()};
}

/// The highest top clock of a level's processors in Hz; absent where none has a clock to read.
std::optional<std::uint64_t> topClock(const LinuxRoot& root, const LinuxProcessors& processors,
                                      std::size_t level) {
    // Above any clock there is, and small enough for its Hz to fit.
    constexpr std::uint64_t limitKHz = 1'000'000'000;
    std::uint64_t highestKHz = 0;
    for (std::size_t place = 0; place < processors.count(); ++place) {
        if (processors.levelAt(place) != level) continue;
        const auto kHz = root.readUnsigned(fmt::format(
            "/sys/devices/system/cpu/cpu{}/cpufreq/cpuinfo_max_freq", processors.numbers()[place]));
        if (kHz && *kHz < limitKHz) highestKHz = std::max(highestKHz, *kHz);
    }
    if (highestKHz == 0) return std::nullopt;
    return highestKHz * 1000;
}

int copyOut(std::span<const std::byte> bytes, std::span<std::byte> into, std::size_t& size) {
    if (!into.empty()) {
        if (bytes.size() > into.size()) return ENOMEM;
        std::ranges::copy(bytes, into.begin());
    }
    size = bytes.size();
    return 0;
}

}  // namespace

LinuxSysctl::LinuxSysctl(const LinuxRoot& root, const LinuxProcessors& processors,
                         MemInfoReader& memory)
    : memory_(memory) {
    if (processors.count() > 0) addProcessors(root, processors);
    if (const auto sample = memory.recent()) addInt64("hw.memsize", sample->info.total * 1024);
    addIdentity(root);
}

void LinuxSysctl::addProcessors(const LinuxRoot& root, const LinuxProcessors& processors) {
    addInt32("hw.logicalcpu", processors.count());
    addInt32("hw.nperflevels", processors.levelCount());
    for (std::size_t level = 0; level < processors.levelCount(); ++level) {
        addInt32(fmt::format("hw.perflevel{}.logicalcpu", level), processors.countAt(level));
        if (const auto hertz = topClock(root, processors, level)) {
            addInt64(fmt::format("hw.perflevel{}.cpufrequency_max", level), *hertz);
        }
    }
}

void LinuxSysctl::addIdentity(const LinuxRoot& root) {
    const MachineIdentity machine(root);
    if (machine.chip) addText("machdep.cpu.brand_string", *machine.chip);
    if (machine.model) addText("hw.model", *machine.model);
    if (machine.processorVendor == "GenuineIntel") addInt32("hw.cputype", cpuTypeX86);
    if (machine.isMadeBy("apple")) addInt32("hw.optional.arm64", 1);
    if (const auto release = root.readText("/proc/sys/kernel/osrelease")) {
        addText("kern.osversion", *release);
    }
}

void LinuxSysctl::addInt32(std::string name, std::size_t value) {
    values_.emplace(std::move(name), bytesOf(static_cast<std::int32_t>(value)));
}

void LinuxSysctl::addInt64(std::string name, std::uint64_t value) {
    values_.emplace(std::move(name), bytesOf(value));
}

void LinuxSysctl::addText(std::string name, std::string_view text) {
    Data bytes = toData(text);
    bytes.push_back(std::byte{0});
    values_.emplace(std::move(name), std::move(bytes));
}

int LinuxSysctl::sysctlbyname(std::string_view name, std::span<std::byte> into, std::size_t& size) {
    if (name == "vm.swapusage") return swapUsage(into, size);
    const auto value = values_.find(name);
    return value == values_.end() ? ENOENT : copyOut(value->second, into, size);
}

int LinuxSysctl::swapUsage(std::span<std::byte> into, std::size_t& size) {
    const auto sample = memory_.recent();
    if (!sample) return EIO;
    SwapUsageRecord swap;
    swap.total = sample->info.swapTotal * 1024;
    swap.used = swap.total - std::min(sample->info.swapFree * 1024, swap.total);
    static const auto pageSize = static_cast<std::uint32_t>(::sysconf(_SC_PAGESIZE));
    swap.pageSize = pageSize;
    return copyOut(encodeSwapUsage(swap), into, size);
}

}  // namespace vtx
