// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/RunLoop.h"

namespace vtx {

/// Turns the signals that ask a process to end (a closing session, Ctrl+C, kill) into a call on the
/// main executor, so that the application ends as if the user had quit. A second one ends it hard.
class TerminationSignals {
public:
    /// Keeps the signals from their usual effect. Before the first thread is started, since threads
    /// inherit it.
    static void block();

    TerminationSignals(RunLoop& loop, std::function<void()> asked);

private:
    void receive();

    FileDescriptor descriptor_;
    std::function<void()> asked_;
    bool wasAsked_ = false;
    Subscription watch_;
};

}  // namespace vtx
