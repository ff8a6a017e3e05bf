// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/linux/GraphicsLoad.h"
#include "platform/linux/KeptFile.h"

namespace vtx {

/// By `gpu_busy_percent` of the driver amdgpu. The driver asks the device's own controller, one
/// question at a time for the whole driver, which takes up to some milliseconds and, when the
/// controller hangs, seconds: read through `SlowGraphicsLoad`. Owns all that it uses.
class AmdLoad final : public GraphicsLoad {
public:
    /// The path of the file as it is opened.
    explicit AmdLoad(std::string file) : busy_(std::move(file)) {}

    [[nodiscard]] Percent next() override;

private:
    KeptFile busy_;
};

}  // namespace vtx
