// SPDX-License-Identifier: MIT
#include "platform/linux/ProcFolder.h"

#include <fcntl.h>
#include <sys/select.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <utility>

#include "platform/linux/Parse.h"

namespace vtx {
namespace {

constexpr long procMagic = 0x9fa0;
constexpr std::string_view deletedMark = " (deleted)";

/// Whether the file is the kernel's own. In a container another program may tell in its place.
bool isKernelsFile(const std::string& path) {
    struct statfs system{};
    return ::statfs(path.c_str(), &system) == 0 && system.f_type == procMagic;
}

/// "PID/name" without an allocation.
class ProcessFile {
public:
    explicit ProcessFile(std::int32_t pid, std::string_view name = {}) {
        char* end = std::to_chars(text_.data(), text_.data() + 11, pid).ptr;
        if (!name.empty()) {
            *end++ = '/';
            end += name.copy(end, 16);
        }
        *end = '\0';
    }
    [[nodiscard]] const char* text() const { return text_.data(); }

private:
    std::array<char, 32> text_;
};

}  // namespace

bool ProcFolder::open() {
    if (folder_) return true;
    folder_ = FileDescriptor(::open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder_) return false;
    std::array<char, 16> self{};
    const auto length = ::readlinkat(folder_.get(), "self", self.data(), self.size());
    const auto number =
        parseUnsigned({self.data(), static_cast<std::size_t>(length > 0 ? length : 0)});
    isKernels_ = isKernelsFile(path_) && isKernelsFile(path_ + "/loadavg") && number &&
                 *number == static_cast<std::uint64_t>(::getpid());
    return true;
}

FileDescriptor ProcFolder::aside(FileDescriptor file) {
    // What waits by `select` knows numbers below that alone.
    FileDescriptor moved(::fcntl(file.get(), F_DUPFD_CLOEXEC, FD_SETSIZE));
    return moved ? std::move(moved) : std::move(file);
}

FileDescriptor ProcFolder::openStat(std::int32_t pid) const {
    return FileDescriptor(
        ::openat(folder_.get(), ProcessFile(pid, "stat").text(), O_RDONLY | O_CLOEXEC));
}

std::optional<std::string_view> ProcFolder::read(const FileDescriptor& file) {
    ssize_t got = 0;
    do {
        got = ::pread(file.get(), buffer_.data(), buffer_.size(), 0);
    } while (got < 0 && errno == EINTR);
    if (got < 0) return std::nullopt;
    return std::string_view(buffer_.data(), static_cast<std::size_t>(got));
}

std::optional<std::string_view> ProcFolder::readFile(std::int32_t pid, const char* name) {
    const FileDescriptor file(
        ::openat(folder_.get(), ProcessFile(pid, name).text(), O_RDONLY | O_CLOEXEC));
    return file ? read(file) : std::nullopt;
}

std::optional<std::uint32_t> ProcFolder::owner(std::int32_t pid) const {
    struct stat folder{};
    if (::fstatat(folder_.get(), ProcessFile(pid).text(), &folder, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return folder.st_uid;
}

std::optional<std::string> ProcFolder::executable(std::int32_t pid) {
    const auto length =
        ::readlinkat(folder_.get(), ProcessFile(pid, "exe").text(), buffer_.data(), buffer_.size());
    if (length <= 0) return std::nullopt;
    std::string path(buffer_.data(), static_cast<std::size_t>(length));
    // A file may be called so; to ask for it could wait for a drive that does not answer.
    if (path.ends_with(deletedMark)) path.resize(path.size() - deletedMark.size());
    return path;
}

std::optional<std::string_view> ProcFolder::arguments(std::int32_t pid) {
    return readFile(pid, "cmdline");
}

std::optional<std::string_view> ProcFolder::controlGroups(std::int32_t pid) {
    return readFile(pid, "cgroup");
}

}  // namespace vtx
