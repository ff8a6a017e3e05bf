// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace vtx::e2e {

/// A folder of a test's own that goes with the object, with all that is in it. Only the user may
/// look into it.
class Folder {
public:
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "vantrix-e2e.XXXXXX").string();
        if (!::mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// The path of a folder in it, which is made.
    [[nodiscard]] std::string sub(const char* name) const {
        const auto made = path_ / name;
        std::filesystem::create_directories(made);
        std::filesystem::permissions(made, std::filesystem::perms::owner_all);
        return made.string();
    }

private:
    std::filesystem::path path_;
};

/// What a file holds; empty where there is none.
inline std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace vtx::e2e
