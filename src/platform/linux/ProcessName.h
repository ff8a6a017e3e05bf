// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vtx {

/// The kernel cuts a process's name to this many bytes.
inline constexpr std::size_t commLimit = 15;

/// The whole name of a process whose name `comm` the kernel may have cut: the last part of its
/// executable's path where that begins with `comm`, else of one of its first arguments, since the
/// executable of a script is its interpreter. `comm` where nothing continues it, and where it is
/// too short to have been cut. `arguments` are as in /proc/PID/cmdline, each ended by a zero byte.
[[nodiscard]] std::string_view wholeName(std::string_view comm, std::string_view path,
                                         std::string_view arguments);

}  // namespace vtx
