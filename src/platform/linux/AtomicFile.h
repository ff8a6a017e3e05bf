// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace vtx {

// A small file that is only ever replaced whole, so that every reader, at every moment and after
// every power cut, finds either what was there before or what came after. Nothing here throws.

struct FileContents {
    std::string bytes;
    /// No such file: `no_such_file_or_directory`. Longer than allowed: `file_too_large`. What is
    /// not a regular file is refused.
    std::error_code error;
};

/// The whole file, followed through symbolic links, if it has at most `maxBytes`.
[[nodiscard]] FileContents readFile(const std::filesystem::path& file, std::size_t maxBytes);

enum class Durability {
    onDisk,      ///< outlives a power cut; waits for the disk
    withSystem,  ///< outlives the process, and is the system's to write; after a power cut the file
                 ///< may be empty or gone
};

/// Replaces the file by a new one, readable by its owner only, that is as durable as wanted before
/// it takes the name. A failure leaves what was there. The folder must exist.
[[nodiscard]] std::error_code replaceFile(const std::filesystem::path& file, std::string_view bytes,
                                          Durability durability = Durability::onDisk);

/// Creates the folder and those above it, for their owner only, where they are missing.
[[nodiscard]] std::error_code createFolders(const std::filesystem::path& folder);

/// Renames `file` to "<file>.damaged-<n>" with the first n from 1 that is free.
struct SetAside {
    std::filesystem::path name;  // empty after a failure
    std::error_code error;
};
[[nodiscard]] SetAside setAside(const std::filesystem::path& file);

/// Where the name leads through symbolic links, whether or not a file is there. After more links
/// than the system follows, the name itself.
[[nodiscard]] std::filesystem::path linkTarget(const std::filesystem::path& file);

}  // namespace vtx
