// SPDX-License-Identifier: MIT
#include "platform/linux/KeptFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace vtx {

std::optional<std::string_view> KeptFile::read(std::size_t bytes) {
    if (buffer_.size() < bytes) buffer_.resize(bytes);
    if (file_) {
        if (const auto text = readOpened(bytes)) return text;
    }
    file_ = FileDescriptor(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file_) return std::nullopt;
    return readOpened(bytes);
}

std::optional<std::string_view> KeptFile::readOpened(std::size_t bytes) {
    ssize_t got = 0;
    do {
        got = ::pread(file_.get(), buffer_.data(), bytes, 0);
    } while (got < 0 && errno == EINTR);
    if (got >= 0) return std::string_view(buffer_.data(), static_cast<std::size_t>(got));
    file_.reset();
    return std::nullopt;
}

}  // namespace vtx
