// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vtx {

/// What the logic reads of one record of the kernel's table.
struct KinfoProc {
    std::int32_t pid = 0;
    std::uint32_t uid = 0;  ///< effective user

    friend bool operator==(const KinfoProc&, const KinfoProc&) = default;
};

/// What one record counts for wherever the table is sized in bytes.
inline constexpr std::size_t kinfoProcBytes = 648;

/// What a task has used and holds.
struct ProcTaskInfo {
    std::uint64_t residentSize = 0;  ///< bytes
    std::uint64_t totalUser = 0;     ///< CPU time in units of `machTimebaseInfo`, as the next one
    std::uint64_t totalSystem = 0;
    std::int32_t threadNum = 0;
};

/// A task's information is whole if it has just this many bytes.
inline constexpr int procTaskInfoBytes = 96;

/// One unit of a task's CPU time is numer / denom nanoseconds.
struct MachTimebaseInfo {
    std::uint32_t numer = 1;
    std::uint32_t denom = 1;
};

/// When a process began, in units of the platform's own: good for telling apart two processes that
/// had the same number one after the other, and for nothing else.
using ProcessStartTime = std::uint64_t;

/// The details of one process, each of which may be refused by itself.
struct ProcessDetails {
    /// Bytes of the name and of the executable's path, neither empty nor known to be UTF-8. The
    /// views live until the table is asked again.
    std::optional<std::string_view> name;
    std::optional<std::string_view> path;

    int taskInfoBytes = 0;  ///< of `taskInfo`, that came back
    ProcTaskInfo taskInfo;

    int priority = -1;      ///< what getpriority returned
    int priorityError = 0;  ///< errno after it, 0 before it

    /// Absent where the platform does not tell, as the next one.
    std::optional<ProcessStartTime> startTime;
    /// Whether the system put it there rather than its user; where absent, name and path decide.
    std::optional<bool> isSystemSoftware;
};

/// What the logic reads of the `rusage_info_v4` that the kernel keeps of one process. Each counter
/// only grows; one that the platform does not have stays 0.
struct RusageInfo {
    std::uint64_t userTime = 0;  ///< CPU time in units of `machTimebaseInfo`, as the next one
    std::uint64_t systemTime = 0;
    std::uint64_t pkgIdleWakeups = 0;  ///< times that it woke the whole package
    std::uint64_t interruptWakeups = 0;
    std::uint64_t billedEnergy = 0;  ///< 0 until the kernel has billed it any

    friend bool operator==(const RusageInfo&, const RusageInfo&) = default;
};

/// The processes of this machine. `kernProcAll`, `details` and `letGo` belong to one engine, the
/// rest is for any thread.
class ProcessTable {
public:
    ProcessTable() = default;
    ProcessTable(const ProcessTable&) = delete;
    ProcessTable& operator=(const ProcessTable&) = delete;
    virtual ~ProcessTable() = default;

    /// `sysctl` with { CTL_KERN, KERN_PROC, KERN_PROC_ALL, 0 }: all processes. An empty `into` asks
    /// for the size alone. Sets `bytes` to `kinfoProcBytes` for each record written or there.
    /// Returns 0, ENOMEM where not all fit, or another errno value.
    [[nodiscard]] virtual int kernProcAll(std::span<KinfoProc> into, std::size_t& bytes) = 0;

    /// `proc_name`, `proc_pidpath`, `proc_pidinfo` and `getpriority` of one process. What the
    /// platform learned while it listed may stand for any of them.
    [[nodiscard]] virtual ProcessDetails details(std::int32_t pid) = 0;

    /// Nobody asks for a while: gives back what is kept from one time to the next, which the next
    /// `kernProcAll` has to learn anew.
    virtual void letGo() = 0;

    [[nodiscard]] virtual MachTimebaseInfo machTimebaseInfo() const = 0;

    /// `proc_pid_rusage` with RUSAGE_INFO_V4. What the platform learned when the table was listed
    /// last may stand for it. Returns 0 or an errno value, with which `info` stays as it is.
    [[nodiscard]] virtual int procPidRusage(std::int32_t pid, RusageInfo& info) const = 0;

    /// The user that this program runs as.
    [[nodiscard]] virtual std::uint32_t getuid() const = 0;

    /// Gives the whole process that niceness. Where a start time is given and the process with this
    /// number has another one, nothing is changed and ESRCH comes back. Returns 0 or an errno
    /// value.
    [[nodiscard]] virtual int setpriority(std::int32_t pid, std::optional<ProcessStartTime> start,
                                          std::int32_t nice) = 0;
};

}  // namespace vtx
