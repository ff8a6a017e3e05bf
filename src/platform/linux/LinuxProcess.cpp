// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxProcess.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/linux/ControlGroup.h"
#include "platform/linux/ProcessName.h"
#include "platform/linux/SystemSoftware.h"

namespace vtx {
namespace {

/// A young process may yet change its user, and its session has yet to put it into its group.
constexpr int youngSightings = 2;
/// An older one that changes its user is noticed within so many refreshes.
constexpr std::uint64_t ownerRounds = 32;

/// The file of what is gone cannot be read, or is not there any more.
bool isGone(int error) { return error == ESRCH || error == ENOENT; }

std::uint64_t residentBytes(const ProcStat& stat) {
    static const auto pageBytes = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
    return stat.residentPages * pageBytes;
}

}  // namespace

void LinuxProcess::letGo() {
    if (!file_) return;
    file_.reset();
    --budget_.used;
}

std::optional<std::string_view> LinuxProcess::read(ProcFolder& folder) {
    if (file_) return folder.read(file_);
    FileDescriptor opened = folder.openStat(pid_);
    if (!opened) return std::nullopt;
    if (budget_.used >= budget_.limit) return folder.read(opened);
    file_ = ProcFolder::aside(std::move(opened));
    ++budget_.used;
    return folder.read(file_);
}

LinuxProcess::Reading LinuxProcess::refresh(ProcFolder& folder, std::uint32_t user,
                                            std::uint64_t tick) {
    const auto text = read(folder);
    const int error = text ? 0 : errno;
    if (isGone(error)) return Reading::gone;
    const auto stat = text ? parseProcStat(*text) : std::nullopt;
    isWhole_ = stat.has_value();
    if (!stat) {
        if (!isKnown_) uid_ = folder.owner(pid_).value_or(uid_);
        return error == EMFILE || error == ENFILE ? Reading::noDescriptor : Reading::refused;
    }
    learn(*stat, folder);
    const bool isYoung = sightings_ < youngSightings;
    if (isYoung) ++sightings_;
    if (isYoung || (static_cast<std::uint64_t>(pid_) + tick) % ownerRounds == 0)
        learnOwner(folder, user, isYoung);
    return Reading::whole;
}

void LinuxProcess::learn(ProcStat stat, ProcFolder& folder) {
    if (isKnown_ && stat.startTime != stat_.startTime) forget();
    const bool isRenamed = !isKnown_ || stat.comm != comm_;
    const bool isOtherProgram =
        isRenamed || stat.startCode != stat_.startCode || stat.startStack != stat_.startStack;
    if (isRenamed) name_ = comm_ = stat.comm;
    stat.comm = {};  // it ends with the next read
    stat_ = stat;
    isKnown_ = true;
    if (isOtherProgram) learnProgram(folder);
}

void LinuxProcess::learnProgram(ProcFolder& folder) {
    path_.reset();
    // A thread of the kernel is renamed for each of its tasks; what has ended keeps its name.
    if (!stat_.hasProgram()) return;
    sightings_ = 0;
    path_ = folder.executable(pid_);
    if (path_) name_ = comm_;
    if (comm_.size() != commLimit) return;
    const std::string path = path_.value_or("");
    auto whole = wholeName(comm_, path, {});
    if (whole.size() == comm_.size())
        whole = wholeName(comm_, {}, folder.arguments(pid_).value_or(""));
    if (whole.size() > comm_.size()) name_ = whole;
}

void LinuxProcess::learnOwner(ProcFolder& folder, std::uint32_t user, bool isYoung) {
    uid_ = folder.owner(pid_).value_or(uid_);
    if (uid_ != user) isSystemSoftware_.reset();
    if (uid_ != user || !stat_.hasProgram() || (!isYoung && isSystemSoftware_)) return;
    const auto groups = folder.controlGroups(pid_);
    const auto role =
        groups ? controlGroupRole(controlGroupPath(*groups)) : ControlGroupRole::unknown;
    isSystemSoftware_ = isSystemSoftware(role, name_, path_.value_or(""));
}

void LinuxProcess::forget() {
    isKnown_ = false;
    sightings_ = 0;
    stat_ = {};
    comm_.clear();
    name_.clear();
    path_.reset();
    uid_ = 0;
    isSystemSoftware_.reset();
}

ProcessDetails LinuxProcess::details() const {
    ProcessDetails details;
    if (!name_.empty()) details.name = name_;
    if (path_) details.path = *path_;
    if (isKnown_) details.startTime = stat_.startTime;
    details.isSystemSoftware = isSystemSoftware_;
    if (!isWhole_) {
        details.priorityError = ESRCH;
        return details;
    }
    details.taskInfoBytes = procTaskInfoBytes;
    details.taskInfo = {residentBytes(stat_), stat_.userTicks, stat_.systemTicks, stat_.threads};
    details.priority = stat_.nice;
    return details;
}

std::optional<RusageInfo> LinuxProcess::usage() const {
    if (!isWhole_) return std::nullopt;
    RusageInfo info;
    info.userTime = stat_.userTicks;
    info.systemTime = stat_.systemTicks;
    return info;
}

}  // namespace vtx
