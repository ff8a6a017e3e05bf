// SPDX-License-Identifier: MIT
#pragma once

namespace vtx {

struct Ports;

/// Registers how the process's one objects of this folder are made, for as long as it lives: the
/// bridge to the private library and the empty reading of the Neural Engine. Made by the
/// composition root before any monitor, or by a test, on the main executor.
class SharedTelemetry {
public:
    /// The ports must outlive it.
    explicit SharedTelemetry(const Ports& ports);
    ~SharedTelemetry();
    SharedTelemetry(const SharedTelemetry&) = delete;
    SharedTelemetry& operator=(const SharedTelemetry&) = delete;
};

}  // namespace vtx
