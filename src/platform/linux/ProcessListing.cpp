// SPDX-License-Identifier: MIT
#include "platform/linux/ProcessListing.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>

#include "base/Clock.h"
#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr std::size_t entriesBytes = std::size_t{32} << 10;
/// Within this time a machine hardly uses up its numbers and begins anew.
constexpr Duration longestPause = std::chrono::seconds(10);
/// One that gives more between two listings may, and then passes the last one unnoticed.
constexpr std::int32_t mostNumbers = 4096;
constexpr int somePerAll = 16;

/// One entry of a folder, as the kernel writes it: inode, position of the next one, length, type,
/// name.
struct Entry {
    std::int64_t next = 0;
    std::optional<std::int32_t> pid;
};

std::optional<std::int32_t> pidOf(std::string_view name) {
    const auto number = parseUnsigned(name);
    if (!number || *number == 0 || *number > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

Entry takeEntry(std::string_view& bytes) {
    constexpr std::size_t lengthAt = 16;
    constexpr std::size_t nameAt = 19;
    Entry entry;
    std::uint16_t length = 0;
    std::memcpy(&entry.next, bytes.data() + 8, sizeof entry.next);
    std::memcpy(&length, bytes.data() + lengthAt, sizeof length);
    const auto name = bytes.substr(nameAt, length - nameAt);
    entry.pid = pidOf(name.substr(0, name.find('\0')));
    bytes.remove_prefix(length);
    return entry;
}

/// Calls `take` for every entry from the folder's present position, until that says false. The
/// errno value.
template <class Take>
int forEachEntry(int folder, std::span<char> buffer, Take take) {
    for (;;) {
        const long got = ::syscall(SYS_getdents64, folder, buffer.data(), buffer.size());
        if (got < 0) return errno;
        if (got == 0) return 0;
        std::string_view bytes(buffer.data(), static_cast<std::size_t>(got));
        while (!bytes.empty())
            if (!take(takeEntry(bytes))) return 0;
    }
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
    const int error = forEachEntry(folder.descriptor(), entries_, [&](const Entry& entry) {
        if (!entry.pid) return true;
        if (next) {
            const std::int64_t zero = *next - *entry.pid;
            isNumbered = isNumbered && zero > 0 && zero == zeroAt_.value_or(zero);
            zeroAt_ = zero;
        }
        next = entry.next;
        pids_.push_back(*entry.pid);
        return true;
    });
    if (!isNumbered) zeroAt_.reset();
    return error;
}

int ProcessListing::walkFrom(const ProcFolder& folder, std::int32_t first, std::int32_t last) {
    if (first > last) return 0;
    if (::lseek(folder.descriptor(), *zeroAt_ + first, SEEK_SET) < 0) return errno;
    return forEachEntry(folder.descriptor(), entries_, [&](const Entry& entry) {
        if (!entry.pid) return true;
        if (*entry.pid > last) return false;
        if (*entry.pid >= first) pids_.push_back(*entry.pid);
        return true;
    });
}

}  // namespace vtx
