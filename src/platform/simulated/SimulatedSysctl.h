// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "base/Data.h"
#include "platform/Sysctl.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedMemory.h"
#include "platform/simulated/SimulatedProcessors.h"

namespace vtx {

/// The simulated machine's named kernel values: those that follow from its shape, and those that
/// were set, which win. Any thread.
class SimulatedSysctl final : public Sysctl {
public:
    SimulatedSysctl(const SimulatedProcessors& processors, const SimulatedMemory& memory,
                    Instruments& instruments)
        : processors_(processors), memory_(memory), instruments_(instruments) {}

    [[nodiscard]] int sysctlbyname(std::string_view name, std::span<std::byte> into,
                                   std::size_t& size) override;

    void set(std::string_view name, std::int32_t value);
    void set(std::string_view name, std::int64_t value);
    /// The terminating zero byte is added.
    void set(std::string_view name, std::string_view text);
    void set(std::string_view name, const char* text) { set(name, std::string_view(text)); }
    /// Bytes just as they are, for values that are damaged.
    void setBytes(std::string_view name, Data bytes);
    /// The kernel does not know the name.
    void remove(std::string_view name);

private:
    [[nodiscard]] std::optional<Data> value(std::string_view name) const;
    [[nodiscard]] std::optional<Data> derived(std::string_view name) const;
    void store(std::string_view name, std::optional<Data> bytes);

    const SimulatedProcessors& processors_;
    const SimulatedMemory& memory_;
    Instruments& instruments_;
    mutable std::mutex mutex_;
    std::map<std::string, std::optional<Data>, std::less<>> set_;  // absent: removed
};

}  // namespace vtx
