// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/FileDescriptor.h"

namespace vtx {

/// Whether something waits in a socket, at less than half of what it costs to try and receive:
/// where nothing does, as with nearly every tick, the kernel answers without looking at the socket.
/// Wakes nobody. One thread at a time; the socket stays open as long as this is asked.
class ArrivalCheck {
public:
    ArrivalCheck() = default;
    explicit ArrivalCheck(const FileDescriptor& socket);

    /// True also for an error that waits there, and where the system does not tell.
    [[nodiscard]] bool mayReceive() const;

private:
    FileDescriptor events_;
};

}  // namespace vtx
