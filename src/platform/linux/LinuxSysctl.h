// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "base/Data.h"
#include "platform/Sysctl.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/MemInfoReader.h"

namespace vtx {

/// The kernel's named values, under the names that the logic asks for. All but the swap record are
/// constant while the machine runs and are read once, at construction; what the machine does not
/// tell is an unknown name. Owned by the platform.
///
/// | name | from |
/// |---|---|
/// | hw.logicalcpu, hw.nperflevels, hw.perflevelN.logicalcpu | `LinuxProcessors` |
/// | hw.perflevelN.cpufrequency_max | the highest `cpuinfo_max_freq` of the level, in Hz |
/// | hw.memsize | MemTotal of /proc/meminfo |
/// | vm.swapusage | SwapTotal and SwapFree of the memory's last sample, or of /proc/meminfo now |
/// | machdep.cpu.brand_string | "model name" of /proc/cpuinfo, else the device tree's chip |
/// | hw.model | DMI product or board, else the device tree's model |
/// | kern.osversion | /proc/sys/kernel/osrelease |
/// | hw.cputype | there only where the processor says GenuineIntel |
/// | hw.optional.arm64 | there only where the device tree names the maker of that value |
class LinuxSysctl final : public Sysctl {
public:
    LinuxSysctl(const LinuxRoot& root, const LinuxProcessors& processors, MemInfoReader& memory);

    [[nodiscard]] int sysctlbyname(std::string_view name, std::span<std::byte> into,
                                   std::size_t& size) override;

private:
    void addInt32(std::string name, std::size_t value);
    void addInt64(std::string name, std::uint64_t value);
    void addText(std::string name, std::string_view text);

    void addProcessors(const LinuxRoot& root, const LinuxProcessors& processors);
    void addIdentity(const LinuxRoot& root);
    [[nodiscard]] int swapUsage(std::span<std::byte> into, std::size_t& size);

    MemInfoReader& memory_;
    std::map<std::string, Data, std::less<>> values_;
};

}  // namespace vtx
