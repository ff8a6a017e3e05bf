// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/ProcessTable.h"
#include "platform/linux/LinuxProcess.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/ProcFolder.h"
#include "platform/linux/ProcessListing.h"
#include "platform/linux/ProcessUsages.h"

namespace vtx {

class Clock;

/// The process table by /proc. Sizing reads every process once, by a descriptor that stays open
/// from one time to the next; filling and the details hand out what that found, so that all figures
/// of a sample are of one moment. CPU times are in clock ticks, which the timebase says. Owned by
/// the platform.
class LinuxProcessTable final : public ProcessTable {
public:
    /// Keeps at most `descriptors` open; what is beyond is opened for each read.
    LinuxProcessTable(const LinuxRoot& root, const Clock& clock,
                      std::size_t descriptors = usualDescriptors());

    [[nodiscard]] int kernProcAll(std::span<KinfoProc> into, std::size_t& bytes) override;
    [[nodiscard]] ProcessDetails details(std::int32_t pid) override;
    void letGo() override;
    [[nodiscard]] MachTimebaseInfo machTimebaseInfo() const override;
    /// The processor time by the last listing, which read it anyway. Waking up is not told: the
    /// kernel counts the switches of a process in another file of each, and to open that would cost
    /// as much again as the whole table. It bills no energy.
    [[nodiscard]] int procPidRusage(std::int32_t pid, RusageInfo& info) const override;
    [[nodiscard]] std::uint32_t getuid() const override { return user_; }
    /// Changes every thread of the process: to this system a thread is what has a priority.
    [[nodiscard]] int setpriority(std::int32_t pid, std::optional<ProcessStartTime> start,
                                  std::int32_t nice) override;

    /// Descriptors that are open for processes.
    [[nodiscard]] std::size_t keptDescriptors() const { return budget_.used; }

    /// What the process may have, less what the rest of the program can need.
    [[nodiscard]] static std::size_t usualDescriptors();

private:
    using Processes = std::vector<std::unique_ptr<LinuxProcess>>;

    [[nodiscard]] int readAll();
    [[nodiscard]] bool refresh(LinuxProcess& process);
    void add(std::int32_t pid);
    void giveDescriptorsBack();
    void publishUsages();

    const LinuxRoot& root_;
    const std::uint32_t user_;  ///< asked for once: it is wanted for every process
    DescriptorBudget budget_;
    ProcFolder folder_;
    ProcessListing listing_;
    Processes present_;     ///< those of the listing under way, as far as they were read
    Processes processes_;   ///< ascending
    ProcessUsages usages_;  ///< of the same, for other threads
    std::size_t next_ = 0;  ///< behind the one that was asked for last
    std::uint64_t tick_ = 0;
};

}  // namespace vtx
