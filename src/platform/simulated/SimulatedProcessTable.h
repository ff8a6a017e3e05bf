// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessTable.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedProcesses.h"

namespace vtx {

/// The simulated machine's process table as its kernel hands it out.
class SimulatedProcessTable final : public ProcessTable {
public:
    /// The units of CPU time, which are no nanoseconds.
    static constexpr MachTimebaseInfo timebase{125, 3};

    SimulatedProcessTable(SimulatedProcesses& processes, Instruments& instruments)
        : processes_(processes), instruments_(instruments) {}

    [[nodiscard]] int kernProcAll(std::span<KinfoProc> into, std::size_t& bytes) override;
    [[nodiscard]] ProcessDetails details(std::int32_t pid) override;
    void letGo() override;
    [[nodiscard]] MachTimebaseInfo machTimebaseInfo() const override { return timebase; }
    /// Of this moment.
    [[nodiscard]] int procPidRusage(std::int32_t pid, RusageInfo& info) const override;
    [[nodiscard]] std::uint32_t getuid() const override { return SimulatedProcesses::user; }
    /// Refuses what the system refuses an ordinary user: processes of others, and a niceness below
    /// the present one.
    [[nodiscard]] int setpriority(std::int32_t pid, std::optional<ProcessStartTime> start,
                                  std::int32_t nice) override;

private:
    [[nodiscard]] int fill(std::span<KinfoProc> into, std::size_t& bytes);

    SimulatedProcesses& processes_;
    Instruments& instruments_;
    /// As they stood when the table was filled last.
    std::vector<SimulatedProcess> listed_;
    std::size_t next_ = 0;       ///< behind the one that was asked for last
    SimulatedProcess answered_;  ///< what the views of the last details show
};

}  // namespace vtx
