// SPDX-License-Identifier: MIT
#include "platform/linux/KeptFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace vtx {
namespace {

constexpr std::size_t usualPart = 4096;

alignas(64) constinit thread_local std::array<char, KeptFile::shortBytes> shortReads{};

}  // namespace

std::optional<std::string_view> KeptFile::read(std::size_t bytes) {
    if (bytes > shortBytes && buffer_.size() < bytes) buffer_.resize(bytes);
    const auto into = std::span(bytes > shortBytes ? buffer_.data() : shortReads.data(), bytes);
    if (file_) {
        if (const auto text = readOpened(into)) return text;
    }
    file_ = FileDescriptor(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file_) return std::nullopt;
    return readOpened(into);
}

std::optional<std::string_view> KeptFile::readWhole(std::size_t limit) {
    if (file_) {
        if (const auto text = readOpenedWhole(limit)) return text;
    }
    file_ = FileDescriptor(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file_) return std::nullopt;
    return readOpenedWhole(limit);
}

std::optional<std::string_view> KeptFile::readOpened(std::span<char> into) {
    const ssize_t got = readAt(0, into);
    if (got >= 0) return std::string_view(into.data(), static_cast<std::size_t>(got));
    file_.reset();
    return std::nullopt;
}

std::optional<std::string_view> KeptFile::readOpenedWhole(std::size_t limit) {
    if (buffer_.empty()) buffer_.resize(usualPart);
    std::size_t size = 0;
    for (;;) {
        if (size == buffer_.size()) buffer_.resize(size * 2);
        const ssize_t got = readAt(size, std::span(buffer_).subspan(size));
        if (got == 0) return std::string_view(buffer_.data(), size);
        if (got > 0) size += static_cast<std::size_t>(got);
        if (got < 0 || size > limit) break;
    }
    file_.reset();
    return std::nullopt;
}

ssize_t KeptFile::readAt(std::size_t offset, std::span<char> into) const {
    ssize_t got = 0;
    do {
        got = ::pread(file_.get(), into.data(), into.size(), static_cast<off_t>(offset));
    } while (got < 0 && errno == EINTR);
    return got;
}

}  // namespace vtx
