// SPDX-License-Identifier: MIT
#pragma once

#include "base/Executor.h"

namespace vtx {

/// The executors that services are made with.
struct Executors {
    /// Where the interface, every published value and every task lives.
    Executor& main;
    /// Runs the steps of the tick engines, one thread for all, so that a pass wakes one thread
    /// once.
    Executor& tick;
    /// Runs what may take long: the walk of the process table, and sources that block. Its thread
    /// is made on first use.
    Executor& blocking;
};

}  // namespace vtx
