// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ProcessTable.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/ProcFolder.h"
#include "platform/linux/ProcStat.h"

namespace vtx {

/// How many descriptors may stay open, for all processes together.
struct DescriptorBudget {
    std::size_t limit = 0;
    std::size_t used = 0;
};

/// One process: its descriptor of /proc/PID/stat, kept open while the budget lasts, and what was
/// learned of it. Each refresh is one read; path, whole name, owner and control group are read anew
/// only when there is reason to. Owned by `LinuxProcessTable`; one thread at a time.
class LinuxProcess {
public:
    enum class Reading {
        whole,
        refused,       ///< it is there, and tells nothing
        noDescriptor,  ///< as that, for want of a descriptor
        gone,
    };

    LinuxProcess(std::int32_t pid, DescriptorBudget& budget) : pid_(pid), budget_(budget) {}
    ~LinuxProcess() { letGo(); }
    LinuxProcess(const LinuxProcess&) = delete;
    LinuxProcess& operator=(const LinuxProcess&) = delete;

    /// `tick` counts refreshes of the whole table; `user` runs this program.
    Reading refresh(ProcFolder& folder, std::uint32_t user, std::uint64_t tick);

    [[nodiscard]] std::int32_t pid() const { return pid_; }
    /// Whoever it acts as; the machine's own user until that is known.
    [[nodiscard]] std::uint32_t uid() const { return uid_; }
    /// What the last refresh read, after one that was refused what was learned before.
    [[nodiscard]] ProcessDetails details() const;
    /// What it has used, of the last refresh; absent after one that was refused.
    [[nodiscard]] std::optional<RusageInfo> usage() const;
    /// Closes the descriptor, where it keeps one; the next refresh opens it for that read alone.
    void letGo();

private:
    [[nodiscard]] std::optional<std::string_view> read(ProcFolder& folder);
    void learn(ProcStat stat, ProcFolder& folder);
    void learnProgram(ProcFolder& folder);
    void learnOwner(ProcFolder& folder, std::uint32_t user, bool isYoung);
    void forget();

    std::int32_t pid_;
    DescriptorBudget& budget_;
    FileDescriptor file_;

    bool isWhole_ = false;  ///< the last refresh was
    bool isKnown_ = false;  ///< one was, and of the same process
    int sightings_ = 0;     ///< whole refreshes since its program began, as far as that matters
    ProcStat stat_;         ///< of the last whole refresh, without the name
    std::string comm_;      ///< the name as the kernel cut it
    std::string name_;
    std::optional<std::string> path_;
    std::uint32_t uid_ = 0;
    std::optional<bool> isSystemSoftware_;
};

}  // namespace vtx
