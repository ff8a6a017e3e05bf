// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/linux/GraphicsLoad.h"
#include "platform/linux/Nvml.h"

namespace vtx {

/// By the management library of NVIDIA's driver, over the sixth of a second to a second that it
/// looks back. Calls take milliseconds, and as long as it likes when the driver begins a session:
/// read through `SlowGraphicsLoad`. Owns all that it uses.
///
/// A session holds the file of each device that was asked, and one held by nobody can be suspended
/// sooner, or at all, as the driver was set up. So the session ends whenever the device is left
/// alone, for all devices together, since the library knows one session; those that are not left
/// alone begin the next. Where the kernel does not suspend the device the session stays, for
/// beginning one sets the device up anew where nobody else holds it.
class NvidiaLoad final : public GraphicsLoad {
public:
    NvidiaLoad(std::shared_ptr<Nvml> library, std::string address)
        : library_(std::move(library)), address_(std::move(address)) {}

    [[nodiscard]] Percent next() override;
    void letGo() override { library_->close(); }
    /// The driver has a delay of its own, which the kernel does not tell.
    [[nodiscard]] Duration leastRest() const override { return std::chrono::seconds(10); }

private:
    const std::shared_ptr<Nvml> library_;
    const std::string address_;
    int callsToSkip_ = 0;
};

}  // namespace vtx
