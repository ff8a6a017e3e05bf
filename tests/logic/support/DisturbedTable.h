// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include "platform/ProcessTable.h"

namespace vtx {

/// A process table in which something happens right after it was listed.
struct DisturbedTable final : ProcessTable {
    explicit DisturbedTable(ProcessTable& table) : table_(table) {}

    std::function<void()> afterFill;
    /// The unit of processor time, where it is another one.
    std::optional<MachTimebaseInfo> timebase;
    /// Processes that have ended by the time their details are asked for.
    std::vector<std::int32_t> ended;

    [[nodiscard]] int kernProcAll(std::span<KinfoProc> into, std::size_t& bytes) override {
        const int error = table_.kernProcAll(into, bytes);
        if (!into.empty() && afterFill) afterFill();
        return error;
    }
    [[nodiscard]] ProcessDetails details(std::int32_t pid) override {
        if (std::ranges::find(ended, pid) == ended.end()) return table_.details(pid);
        ProcessDetails nothing;
        nothing.priorityError = 3;
        return nothing;
    }
    void letGo() override { table_.letGo(); }
    [[nodiscard]] MachTimebaseInfo machTimebaseInfo() const override {
        return timebase.value_or(table_.machTimebaseInfo());
    }
    [[nodiscard]] int procPidRusage(std::int32_t pid, RusageInfo& info) const override {
        return table_.procPidRusage(pid, info);
    }
    [[nodiscard]] std::uint32_t getuid() const override { return table_.getuid(); }
    [[nodiscard]] int setpriority(std::int32_t pid, std::optional<ProcessStartTime> start,
                                  std::int32_t nice) override {
        return table_.setpriority(pid, start, nice);
    }

private:
    ProcessTable& table_;
};

}  // namespace vtx
