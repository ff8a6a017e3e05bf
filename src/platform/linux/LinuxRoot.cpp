// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxRoot.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/FolderEntries.h"
#include "platform/linux/Parse.h"

namespace vtx {
namespace {

/// What is read of a file or folder at once.
using Part = std::array<char, 4096>;

/// Where a path leads through every link: the kernel knows once it has gone there, and a look at
/// each folder on the way is spared.
std::optional<std::string> endOf(const std::string& path) {
    const FileDescriptor end(::open(path.c_str(), O_PATH | O_CLOEXEC));
    if (!end) return std::nullopt;
    Part target;  // NOLINT(cppcoreguidelines-pro-type-member-init): read into
    const auto link = "/proc/self/fd/" + std::to_string(end.get());
    const ssize_t size = ::readlink(link.c_str(), target.data(), target.size());
    if (size <= 0 || static_cast<std::size_t>(size) == target.size() || target[0] != '/')
        return std::nullopt;
    const std::string_view whole(target.data(), static_cast<std::size_t>(size));
    // What went meanwhile is told so.
    return whole.ends_with(" (deleted)") ? std::nullopt : std::optional(std::string(whole));
}

}  // namespace

LinuxRoot::LinuxRoot(std::string folder) : folder_(std::move(folder)) {
    while (folder_.ends_with('/')) folder_.pop_back();
}

std::string LinuxRoot::path(std::string_view absolute) const {
    std::string whole = folder_;
    if (!absolute.starts_with('/')) whole += '/';
    return whole.append(absolute);
}

bool LinuxRoot::exists(std::string_view absolute) const {
    return ::access(path(absolute).c_str(), F_OK) == 0;
}

std::optional<std::string> LinuxRoot::read(std::string_view absolute, std::size_t limit) const {
    auto text = readHead(absolute, limit + 1);
    if (text && text->size() > limit) text.reset();
    return text;
}

std::optional<std::string> LinuxRoot::readHead(std::string_view absolute, std::size_t bytes) const {
    // Not blocking: a pipe in place of the file must not hold the reader.
    const FileDescriptor file(::open(path(absolute).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file) return std::nullopt;
    // Most files are shorter than one part: the text gets the memory that it needs, and no more.
    Part part;  // NOLINT(cppcoreguidelines-pro-type-member-init): read into
    std::string text;
    while (text.size() < bytes) {
        const ssize_t got =
            ::read(file.get(), part.data(), std::min(part.size(), bytes - text.size()));
        if (got == 0) break;
        if (got > 0)
            text.append(part.data(), static_cast<std::size_t>(got));
        else if (errno != EINTR)
            return std::nullopt;
    }
    return text;
}

std::optional<std::string> LinuxRoot::readText(std::string_view absolute) const {
    const auto text = read(absolute);
    if (!text || trimmed(*text).empty()) return std::nullopt;
    return std::string(trimmed(*text));
}

std::optional<std::uint64_t> LinuxRoot::readUnsigned(std::string_view absolute) const {
    const auto text = read(absolute);
    return text ? parseUnsigned(*text) : std::nullopt;
}

std::optional<std::vector<std::uint32_t>> LinuxRoot::readCpuList(std::string_view absolute) const {
    const auto text = read(absolute);
    return text ? parseCpuList(*text) : std::nullopt;
}

std::optional<std::string> LinuxRoot::linkName(std::string_view absolute) const {
    std::error_code error;
    const auto target = std::filesystem::read_symlink(path(absolute), error);
    if (error || !target.has_filename()) return std::nullopt;
    return target.filename().string();
}

std::optional<std::string> LinuxRoot::resolve(std::string_view absolute) const {
    auto whole = endOf(path(absolute));
    if (folder_.empty()) return whole;
    auto top = endOf(folder_);
    if (!top || !whole) return std::nullopt;
    while (top->ends_with('/')) top->pop_back();
    if (!whole->starts_with(*top)) return std::nullopt;
    if (whole->size() == top->size()) return "/";
    if ((*whole)[top->size()] != '/') return std::nullopt;
    return whole->substr(top->size());
}

std::vector<std::string> LinuxRoot::list(std::string_view absolute) const {
    std::vector<std::string> names;
    const FileDescriptor folder(
        ::open(path(absolute).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
    if (!folder) return names;
    Part part;  // NOLINT(cppcoreguidelines-pro-type-member-init): read into
    forEachEntry(folder.get(), part, [&names](const FolderEntry& entry) {
        if (entry.name != "." && entry.name != "..") names.emplace_back(entry.name);
        return true;
    });
    std::ranges::sort(names);
    return names;
}

}  // namespace vtx
