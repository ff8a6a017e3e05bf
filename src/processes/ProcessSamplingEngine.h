// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/Moment.h"
#include "platform/ProcessTable.h"
#include "processes/CPUTotals.h"
#include "processes/ProcessSnapshot.h"

namespace vtx {

/// Walks the kernel's process table and measures each process's share of the processor between two
/// walks. Owned by `ProcessManager`; its state belongs to the executor that runs its steps.
class ProcessSamplingEngine {
public:
    /// The ports must outlive the engine.
    ProcessSamplingEngine(ProcessTable& table, const Clock& clock);

    /// One sample, in the kernel's order. Shares are 0 where there is no sample before. Empty when
    /// the table cannot be had, and the next one then measures from the last good sample. One that
    /// follows within fifty units of processor time measures from the sample before the last: a
    /// single unit would be much of so short a time.
    [[nodiscard]] std::vector<ProcessSnapshot> snapshot();
    /// Has the table give back what it keeps between two walks. The shares of the next sample are
    /// measured from the last one all the same. True.
    bool rest();

private:
    /// What the processes had used at one moment, for later samples to be measured from.
    struct Baseline {
        CPUTotals totalCPUNanos;
        std::optional<Moment> sampledAt;

        /// 0 where there is none.
        [[nodiscard]] double secondsUntil(const Moment& now) const {
            return sampledAt ? secondsBetween(*sampledAt, now) : 0.0;
        }
    };

    /// The records live until the next call. Absent on failure.
    [[nodiscard]] std::optional<std::span<const KinfoProc>> fetchAllProcs();
    [[nodiscard]] ProcessSnapshot read(const KinfoProc& record, Baseline& baseline, double elapsed,
                                       CPUTotals& totals);

    ProcessTable& table_;
    const Clock& clock_;
    const MachTimebaseInfo timebase_;
    std::vector<KinfoProc> records_;
    Baseline previous_;
    Baseline beforePrevious_;
};

}  // namespace vtx
