// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vtx::test {

/// A folder of its own for one test, gone with it.
class TemporaryTree {
public:
    TemporaryTree() {
        std::string name = (std::filesystem::temp_directory_path() / "vantrix-XXXXXX").string();
        if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        folder_ = name;
    }
    TemporaryTree(const TemporaryTree&) = delete;
    TemporaryTree& operator=(const TemporaryTree&) = delete;
    ~TemporaryTree() { std::filesystem::remove_all(folder_); }

    [[nodiscard]] const std::string& path() const { return folder_; }

    /// Writes into the file that is there, so that a descriptor kept open sees it.
    void write(const std::string& absolute, std::string_view text) const {
        const std::filesystem::path file = folder_ + absolute;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
    }
    void remove(const std::string& absolute) const {
        std::filesystem::remove_all(folder_ + absolute);
    }

private:
    std::string folder_;
};

/// The path of a recorded machine.
inline std::string fixture(std::string_view machine) {
    return std::string(VANTRIX_FIXTURES "/").append(machine);
}

}  // namespace vtx::test
