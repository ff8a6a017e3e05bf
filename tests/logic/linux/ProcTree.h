// SPDX-License-Identifier: MIT
#pragma once

#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "linux/TemporaryTree.h"

namespace vtx::test {

/// One process in a tree that stands for /proc.
struct TreeProcess {
    int pid = 0;
    std::string comm = "program";
    std::uint64_t userTicks = 0;
    int nice = 0;
    int threads = 1;
    std::uint64_t startTime = 1000;
    std::uint64_t pages = 10;
    std::uint64_t startCode = 4096;
    std::uint64_t startStack = 8192;

    [[nodiscard]] std::string stat() const {
        return fmt::format(
            "{} ({}) S 1 1 1 0 -1 0 0 0 0 0 {} 0 0 0 20 {} {} 0 {} 0 {} 0 {} 0 {} 0 "
            "0 0 0 0 0 0 0 0 17 3 0 0 0 0 0 0 0 0 0 0 0 0 0\n",
            pid, comm, userTicks, nice, threads, startTime, pages, startCode, startStack);
    }
};

/// A folder with processes in it, made by a test.
struct ProcTree : TemporaryTree {
    ProcTree() : TemporaryTree(parent()) { std::filesystem::create_directory(*this / "proc"); }

    /// In memory where the machine has such a folder: there may be many files.
    static std::filesystem::path parent() {
        const std::filesystem::path inMemory = "/dev/shm";
        return ::access(inMemory.c_str(), W_OK) == 0 ? inMemory
                                                     : std::filesystem::temp_directory_path();
    }

    void put(const TreeProcess& process) const {
        write(fmt::format("/proc/{}/stat", process.pid), process.stat());
    }
    void put(int pid, std::string_view file, std::string_view text) const {
        write(fmt::format("/proc/{}/{}", pid, file), text);
    }
    void link(int pid, const std::string& executable) const {
        const auto exe = *this / fmt::format("proc/{}/exe", pid);
        std::filesystem::remove(exe);
        std::filesystem::create_symlink(executable, exe);
    }
    void end(int pid) const { remove(fmt::format("/proc/{}", pid)); }
};

}  // namespace vtx::test
