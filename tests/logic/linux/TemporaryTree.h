// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vtx::test {

inline std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Writes into the file that is there, so that a descriptor kept open sees it.
inline void writeFile(const std::filesystem::path& file, std::string_view contents) {
    std::ofstream out(file, std::ios::binary);
    out << contents;
    ASSERT_TRUE(out.flush()) << file;
}

inline std::set<std::string> namesIn(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

/// A folder of its own for one test, gone with it.
class TemporaryTree {
public:
    explicit TemporaryTree(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
        std::string name = (parent / "vantrix-XXXXXX").string();
        if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        folder_ = name;
    }
    TemporaryTree(const TemporaryTree&) = delete;
    TemporaryTree& operator=(const TemporaryTree&) = delete;
    ~TemporaryTree() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    [[nodiscard]] const std::string& path() const { return folder_; }
    std::filesystem::path operator/(std::string_view name) const {
        return std::filesystem::path(folder_) / name;
    }

    /// Writes a file of the tree, with the folders above it.
    void write(const std::string& absolute, std::string_view text) const {
        const std::filesystem::path file = folder_ + absolute;
        std::filesystem::create_directories(file.parent_path());
        writeFile(file, text);
    }
    void remove(const std::string& absolute) const {
        std::filesystem::remove_all(folder_ + absolute);
    }

private:
    std::string folder_;
};

/// The path of a recorded machine.
std::string fixture(std::string_view machine);

}  // namespace vtx::test
