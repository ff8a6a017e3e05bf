// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// The folder /proc and the files of a process below it, by its number. One thread at a time.
class ProcFolder {
public:
    explicit ProcFolder(const LinuxRoot& root) : path_(root.path("/proc")) {}

    /// Opens the folder where that has not worked yet. False, with errno, where it does not.
    [[nodiscard]] bool open();
    [[nodiscard]] int descriptor() const { return folder_.get(); }
    /// Whether it and the averages in it are the kernel's, and tell the numbers that this program
    /// knows.
    [[nodiscard]] bool isKernels() const { return isKernels_; }

    /// /proc/PID/stat; none, with errno, where it cannot be opened.
    [[nodiscard]] FileDescriptor openStat(std::int32_t pid) const;
    /// The same file under a high number where there are any, so that those that stay open leave
    /// the low ones to the rest of the program and its libraries.
    [[nodiscard]] static FileDescriptor aside(FileDescriptor file);
    /// What the descriptor has from its start; absent, with errno, where it cannot be read. The
    /// view lives until the next read of any of these.
    [[nodiscard]] std::optional<std::string_view> read(const FileDescriptor& file);

    /// The user that a process acts as: the owner of its folder, whoever owns the files in it.
    [[nodiscard]] std::optional<std::uint32_t> owner(std::int32_t pid) const;
    /// Where the link "exe" leads, without the mark of a file that has been deleted since.
    [[nodiscard]] std::optional<std::string> executable(std::int32_t pid);
    [[nodiscard]] std::optional<std::string_view> arguments(std::int32_t pid);
    [[nodiscard]] std::optional<std::string_view> controlGroups(std::int32_t pid);

private:
    [[nodiscard]] std::optional<std::string_view> readFile(std::int32_t pid, const char* name);

    std::string path_;
    FileDescriptor folder_;
    bool isKernels_ = false;
    std::vector<char> buffer_ = std::vector<char>(4096);
};

}  // namespace vtx
