// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxRoot.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/Parse.h"

namespace vtx {

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
    std::string text;
    while (text.size() < bytes) {
        const std::size_t had = text.size();
        text.resize(std::min(bytes, had + 4096));
        const ssize_t got = ::read(file.get(), text.data() + had, text.size() - had);
        const int error = errno;
        text.resize(had + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0) break;
        if (got < 0 && error != EINTR) return std::nullopt;
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
    std::error_code error;
    std::string top = std::filesystem::canonical(path("/"), error).string();
    if (error) return std::nullopt;
    while (top.ends_with('/')) top.pop_back();
    const std::string whole = std::filesystem::canonical(path(absolute), error).string();
    if (error || !whole.starts_with(top)) return std::nullopt;
    if (whole.size() == top.size()) return "/";
    if (whole[top.size()] != '/') return std::nullopt;
    return whole.substr(top.size());
}

std::vector<std::string> LinuxRoot::list(std::string_view absolute) const {
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(path(absolute), error);
    while (!error && entry != std::filesystem::directory_iterator{}) {
        names.push_back(entry->path().filename().string());
        entry.increment(error);
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace vtx
