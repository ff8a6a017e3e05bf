// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// Asks the kernel to tell of stalls for lack of memory.
class PressureTriggers {
public:
    PressureTriggers() = default;
    PressureTriggers(const PressureTriggers&) = delete;
    PressureTriggers& operator=(const PressureTriggers&) = delete;
    virtual ~PressureTriggers() = default;

    /// A descriptor that is in the state POLLPRI once after each window in which tasks stalled for
    /// longer than the threshold; none where the kernel refuses.
    [[nodiscard]] virtual FileDescriptor open(const char* trigger) = 0;
};

/// By /proc/pressure/memory. Unprivileged triggers came with Linux 6.5; older kernels let only
/// the superuser write there.
class KernelPressureTriggers final : public PressureTriggers {
public:
    explicit KernelPressureTriggers(const LinuxRoot& root) : root_(root) {}

    [[nodiscard]] FileDescriptor open(const char* trigger) override;

private:
    const LinuxRoot& root_;
};

}  // namespace vtx
