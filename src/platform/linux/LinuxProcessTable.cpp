// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxProcessTable.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/linux/LinuxHeapRelief.h"
#include "platform/linux/ThreadPriorities.h"

namespace vtx {
namespace {

/// For the windows, the bus, the sensors and whatever a library opens.
constexpr std::size_t reservedDescriptors = 256;
constexpr std::size_t descriptorsGivenBack = 64;
constexpr std::uint32_t nanosecondsPerSecond = 1'000'000'000;

}  // namespace

LinuxProcessTable::LinuxProcessTable(const LinuxRoot& root, const Clock& clock,
                                     std::size_t descriptors)
    : root_(root),
      user_(::getuid()),
      budget_{descriptors, 0},
      folder_(root),
      listing_(root, clock) {}

std::size_t LinuxProcessTable::usualDescriptors() {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return 0;
    const auto all = static_cast<std::size_t>(std::min<rlim_t>(limit.rlim_cur, 1U << 20));
    return all > 2 * reservedDescriptors ? all - reservedDescriptors : all / 2;
}

int LinuxProcessTable::kernProcAll(std::span<KinfoProc> into, std::size_t& bytes) {
    if (into.empty()) {
        const int error = readAll();
        bytes = processes_.size() * kinfoProcBytes;
        return error;
    }
    if (into.size() < processes_.size()) return ENOMEM;
    std::ranges::transform(processes_, into.begin(), [](const auto& process) {
        return KinfoProc{process->pid(), process->uid()};
    });
    bytes = processes_.size() * kinfoProcBytes;
    return 0;
}

int LinuxProcessTable::readAll() {
    if (!folder_.open()) return errno;
    const auto listing = listing_.next(folder_);
    if (listing.error != 0) return listing.error;
    ++tick_;
    next_ = 0;
    present_.clear();
    present_.reserve(processes_.size() + listing.pids.size());
    auto listed = listing.pids.begin();
    for (auto& process : processes_) {
        const std::int32_t pid = process->pid();
        for (; listed != listing.pids.end() && *listed < pid; ++listed) add(*listed);
        const bool isListed = listed != listing.pids.end() && *listed == pid;
        if (isListed) ++listed;
        const bool mayBeThere = isListed || listing.extent == ProcessListing::Extent::some;
        if (mayBeThere && refresh(*process)) {
            present_.push_back(std::move(process));
            continue;
        }
        process.reset();
        if (isListed) add(pid);  // its number may have been given again
    }
    for (; listed != listing.pids.end(); ++listed) add(*listed);
    processes_.swap(present_);
    present_.clear();
    publishUsages();
    return 0;
}

void LinuxProcessTable::publishUsages() {
    ProcessUsages::List all;
    all.reserve(processes_.size());
    for (const auto& process : processes_)
        if (const auto usage = process->usage()) all.emplace_back(process->pid(), *usage);
    usages_.replace(std::move(all));
}

bool LinuxProcessTable::refresh(LinuxProcess& process) {
    auto reading = process.refresh(folder_, user_, tick_);
    if (reading == LinuxProcess::Reading::noDescriptor) {
        giveDescriptorsBack();
        reading = process.refresh(folder_, user_, tick_);
    }
    return reading != LinuxProcess::Reading::gone;
}

void LinuxProcessTable::add(std::int32_t pid) {
    auto process = std::make_unique<LinuxProcess>(pid, budget_);
    if (refresh(*process)) present_.push_back(std::move(process));
}

void LinuxProcessTable::giveDescriptorsBack() {
    budget_.limit = budget_.used > descriptorsGivenBack ? budget_.used - descriptorsGivenBack : 0;
    for (auto* const all : {&present_, &processes_})
        for (const auto& process : *all)
            if (process && budget_.used > budget_.limit) process->letGo();
}

ProcessDetails LinuxProcessTable::details(std::int32_t pid) {
    if (next_ >= processes_.size() || processes_[next_]->pid() != pid) {
        const auto found =
            std::ranges::lower_bound(processes_, pid, {}, [](const auto& p) { return p->pid(); });
        if (found == processes_.end() || (*found)->pid() != pid) {
            ProcessDetails nothing;
            nothing.priorityError = ESRCH;
            return nothing;
        }
        next_ = static_cast<std::size_t>(found - processes_.begin());
    }
    return processes_[next_++]->details();
}

void LinuxProcessTable::letGo() {
    Processes().swap(present_);
    Processes().swap(processes_);
    next_ = 0;
    listing_.beginAnew();
    usages_.replace({});
    LinuxHeapRelief::trim();
}

MachTimebaseInfo LinuxProcessTable::machTimebaseInfo() const {
    const long ticksPerSecond = ::sysconf(_SC_CLK_TCK);
    if (ticksPerSecond <= 0) return {};
    return {nanosecondsPerSecond / static_cast<std::uint32_t>(ticksPerSecond), 1};
}

int LinuxProcessTable::procPidRusage(std::int32_t pid, RusageInfo& info) const {
    const auto found = usages_.find(pid);
    if (!found) return ESRCH;
    info = *found;
    return 0;
}

int LinuxProcessTable::setpriority(std::int32_t pid, std::optional<ProcessStartTime> start,
                                   std::int32_t nice) {
    return setThreadPriorities(root_, pid, start, nice);
}

}  // namespace vtx
