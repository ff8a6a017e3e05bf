// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace vtx::bench {

/// A folder that goes with its owner.
class TemporaryFolder {
public:
    TemporaryFolder() {
        auto pattern = (std::filesystem::temp_directory_path() / "vantrix-bench.XXXXXX").string();
        if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
        path_ = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace vtx::bench
