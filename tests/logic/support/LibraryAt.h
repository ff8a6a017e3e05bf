// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/IOReportLibrary.h"

namespace vtx {

/// The private library as it would be under one path alone. Notes how it is opened.
class LibraryAt final : public IOReportLibrary {
public:
    LibraryAt(IOReportLibrary& library, std::string path)
        : library_(library), path_(std::move(path)) {}

    /// Each path that was tried, with its mode.
    std::vector<std::pair<std::string, int>> tried;

    [[nodiscard]] std::unique_ptr<IOReport> open(const char* path, int mode) override {
        tried.emplace_back(path, mode);
        return path == path_ ? library_.open("/usr/lib/libIOReport.dylib", mode) : nullptr;
    }

private:
    IOReportLibrary& library_;
    std::string path_;
};

}  // namespace vtx
