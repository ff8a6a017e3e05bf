// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IOReportLibrary.h"

namespace vtx {

/// Not there: nothing is counted through it yet.
class LinuxIOReportLibrary final : public IOReportLibrary {
public:
    [[nodiscard]] std::unique_ptr<IOReport> open(const char* path, int mode) override;
};

}  // namespace vtx
