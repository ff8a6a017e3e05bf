// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/FileDescriptor.h"

namespace vtx {

/// A file that is read from its start again and again: the descriptor stays open and the buffer is
/// reused, so that a read is one system call and allocates nothing once the buffer is large enough.
/// Opened with the first read, and again after a read failed. One thread at a time.
///
/// Short reads of all files of a thread go to one place, which the read before has just brought
/// into the caches.
class KeptFile {
public:
    /// What is read so.
    static constexpr std::size_t shortBytes = 4096;

    explicit KeptFile(std::string path) : path_(std::move(path)) {}

    /// The first `bytes` bytes of the file, fewer where it is shorter; absent when it cannot be
    /// read. The view lives until the thread reads the next file.
    [[nodiscard]] std::optional<std::string_view> read(std::size_t bytes);

    /// The whole file, of one that the kernel gives in parts of a page at most; absent also when it
    /// is larger than `limit` bytes. One call more than it has parts, since the last one tells the
    /// end.
    [[nodiscard]] std::optional<std::string_view> readWhole(std::size_t limit);

private:
    [[nodiscard]] std::optional<std::string_view> readOpenedWhole(std::size_t limit);
    [[nodiscard]] ssize_t readAt(std::size_t offset, std::span<char> into) const;
    [[nodiscard]] std::optional<std::string_view> readOpened(std::span<char> into);

    std::string path_;
    FileDescriptor file_;
    std::vector<char> buffer_;
};

}  // namespace vtx
