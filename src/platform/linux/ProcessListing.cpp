// SPDX-License-Identifier: MIT
#include "platform/linux/ProcessListing.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "base/Clock.h"
#include "platform/linux/FolderEntries.h"
#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::size_t entriesBytes = std::size_t{32} << 10;
/// Within this time a machine hardly uses up its numbers and begins anew.
constexpr Duration longestPause = std::chrono::seconds(10);
/// One that gives more between two listings may, and then passes the last one unnoticed.
constexpr std::int32_t mostNumbers = 4096;
constexpr int somePerAll = 16;

std::optional<std::int32_t> pidOf(std::string_view name) {
    const auto number = parseUnsigned(name);
    if (!number || *number == 0 || *number > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

}  // namespace

ProcessListing::ProcessListing(const LinuxRoot& root, const Clock& clock)
    : clock_(clock), loadavg_(root.path("/proc/loadavg")), entries_(entriesBytes) {}

ProcessListing::Listing ProcessListing::next(const ProcFolder& folder) {
    const auto last = folder.isKernels() ? lastPid() : std::nullopt;
    const bool isSome = knowsOthers(last);
    pids_.clear();
    const int error = isSome ? walkFrom(folder, *beforeLast_ + 1, *last) : walkAll(folder);
    if (!std::ranges::is_sorted(pids_)) std::ranges::sort(pids_);
    sinceAll_ = isSome && error == 0 ? sinceAll_ + 1 : 0;
    beforeLast_ = error == 0 ? atLast_ : std::nullopt;
    atLast_ = error == 0 ? last : std::nullopt;
    lastAt_ = clock_.continuous();
    return {isSome ? Extent::some : Extent::all, pids_, error};
}

std::optional<std::int32_t> ProcessListing::lastPid(std::string_view loadavg) {
    const auto line = takeLine(loadavg);
    return pidOf(line.substr(line.rfind(' ') + 1));
}

std::optional<std::int32_t> ProcessListing::lastPid() {
    const auto text = loadavg_.read(128);
    return text ? lastPid(*text) : std::nullopt;
}

bool ProcessListing::knowsOthers(std::optional<std::int32_t> last) const {
    return last && zeroAt_ && beforeLast_ && atLast_ && *last >= *atLast_ &&
           *last - *atLast_ <= mostNumbers && *atLast_ >= *beforeLast_ && sinceAll_ < somePerAll &&
           clock_.continuous() - lastAt_ <= longestPause;
}

int ProcessListing::walkAll(const ProcFolder& folder) {
    zeroAt_.reset();
    if (::lseek(folder.descriptor(), 0, SEEK_SET) < 0) return errno;
    bool isNumbered = folder.isKernels();
    std::optional<std::int64_t> next;
    const int error = forEachEntry(folder.descriptor(), entries_, [&](const FolderEntry& entry) {
        const auto pid = pidOf(entry.name);
        if (!pid) return true;
        if (next) {
            const std::int64_t zero = *next - *pid;
            isNumbered = isNumbered && zero > 0 && zero == zeroAt_.value_or(zero);
            zeroAt_ = zero;
        }
        next = entry.next;
        pids_.push_back(*pid);
        return true;
    });
    if (!isNumbered) zeroAt_.reset();
    return error;
}

int ProcessListing::walkFrom(const ProcFolder& folder, std::int32_t first, std::int32_t last) {
    if (first > last) return 0;
    if (::lseek(folder.descriptor(), *zeroAt_ + first, SEEK_SET) < 0) return errno;
    return forEachEntry(folder.descriptor(), entries_, [&](const FolderEntry& entry) {
        const auto pid = pidOf(entry.name);
        if (!pid) return true;
        if (*pid > last) return false;
        if (*pid >= first) pids_.push_back(*pid);
        return true;
    });
}

}  // namespace vtx
