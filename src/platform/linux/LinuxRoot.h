// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vtx {

/// The folder under which /proc, /sys, /etc and /run are found: "/" on the running machine, a
/// recorded tree in tests. Paths are given absolute, as on the machine. Any thread.
class LinuxRoot {
public:
    explicit LinuxRoot(std::string folder = "/");

    [[nodiscard]] std::string path(std::string_view absolute) const;
    [[nodiscard]] bool exists(std::string_view absolute) const;

    /// The file whole; absent when it cannot be read or is larger than `limit` bytes.
    [[nodiscard]] std::optional<std::string> read(std::string_view absolute,
                                                  std::size_t limit = std::size_t{64} << 10) const;
    /// At most the first `bytes` bytes of the file; absent when it cannot be read.
    [[nodiscard]] std::optional<std::string> readHead(std::string_view absolute,
                                                      std::size_t bytes) const;

    /// The file's text without white space and zero bytes around it; absent when there is none.
    [[nodiscard]] std::optional<std::string> readText(std::string_view absolute) const;
    [[nodiscard]] std::optional<std::uint64_t> readUnsigned(std::string_view absolute) const;
    [[nodiscard]] std::optional<std::vector<std::uint32_t>> readCpuList(
        std::string_view absolute) const;

    /// The last name of what a link leads to; absent for what is no link.
    [[nodiscard]] std::optional<std::string> linkName(std::string_view absolute) const;

    /// Where a path leads through every link, as a path on the machine; absent where it leads
    /// nowhere or out of the folder.
    [[nodiscard]] std::optional<std::string> resolve(std::string_view absolute) const;

    /// Names in a folder, sorted; empty when it cannot be read.
    [[nodiscard]] std::vector<std::string> list(std::string_view absolute) const;

private:
    std::string folder_;  ///< without the slash at its end
};

}  // namespace vtx
