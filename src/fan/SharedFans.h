// SPDX-License-Identifier: MIT
#pragma once

namespace vtx {

struct Ports;

/// Registers how the process's one empty reading of fans is made, for as long as it lives. Made by
/// the composition root before any monitor, or by a test, on the main executor.
class SharedFans {
public:
    /// The ports must outlive it.
    explicit SharedFans(const Ports& ports);
    ~SharedFans();
    SharedFans(const SharedFans&) = delete;
    SharedFans& operator=(const SharedFans&) = delete;
};

}  // namespace vtx
