// SPDX-License-Identifier: MIT
#include "platform/linux/KeptFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace vtx {
namespace {

constexpr std::size_t usualPart = 4096;

}  // namespace

std::optional<std::string_view> KeptFile::read(std::size_t bytes) {
    if (buffer_.size() < bytes) buffer_.resize(bytes);
    if (file_) {
        if (const auto text = readOpened(bytes)) return text;
    }
    file_ = FileDescriptor(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file_) return std::nullopt;
    return readOpened(bytes);
}

std::optional<std::string_view> KeptFile::readWhole(std::size_t limit) {
    if (file_) {
        if (const auto text = readOpenedWhole(limit)) return text;
    }
    file_ = FileDescriptor(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file_) return std::nullopt;
    return readOpenedWhole(limit);
}

std::optional<std::string_view> KeptFile::readOpened(std::size_t bytes) {
    const ssize_t got = readAt(0, bytes);
    if (got >= 0) return std::string_view(buffer_.data(), static_cast<std::size_t>(got));
    file_.reset();
    return std::nullopt;
}

std::optional<std::string_view> KeptFile::readOpenedWhole(std::size_t limit) {
    if (buffer_.empty()) buffer_.resize(usualPart);
    std::size_t size = 0;
    for (;;) {
        if (size == buffer_.size()) buffer_.resize(size * 2);
        const ssize_t got = readAt(size, buffer_.size() - size);
        if (got == 0) return std::string_view(buffer_.data(), size);
        if (got > 0) size += static_cast<std::size_t>(got);
        if (got < 0 || size > limit) break;
    }
    file_.reset();
    return std::nullopt;
}

ssize_t KeptFile::readAt(std::size_t offset, std::size_t bytes) {
    ssize_t got = 0;
    do {
        got = ::pread(file_.get(), buffer_.data() + offset, bytes, static_cast<off_t>(offset));
    } while (got < 0 && errno == EINTR);
    return got;
}

}  // namespace vtx
