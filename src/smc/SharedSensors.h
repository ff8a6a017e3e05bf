// SPDX-License-Identifier: MIT
#pragma once

namespace vtx {

struct Ports;

/// Registers how the process's one objects of this folder are made, for as long as it lives: the
/// bridges to the SMC and to the event system. Made by the composition root before any service, or
/// by a test, on the main executor.
class SharedSensors {
public:
    /// The ports must outlive it.
    explicit SharedSensors(const Ports& ports);
    ~SharedSensors();
    SharedSensors(const SharedSensors&) = delete;
    SharedSensors& operator=(const SharedSensors&) = delete;
};

}  // namespace vtx
