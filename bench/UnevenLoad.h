// SPDX-License-Identifier: MIT
#pragma once

#include <stop_token>
#include <thread>

namespace vtx::bench {

/// Keeps a processor busy for another part of each second, so that a reading of the machine's load
/// is never the same twice in a row and what shows it has something to do. On a thread of its own,
/// for as long as this is there.
class UnevenLoad {
public:
    UnevenLoad() : thread_([](const std::stop_token& stop) { run(stop); }) {}

private:
    static void run(const std::stop_token& stop);

    std::jthread thread_;
};

}  // namespace vtx::bench
