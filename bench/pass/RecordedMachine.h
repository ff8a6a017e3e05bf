// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "TemporaryFolder.h"

namespace vtx::bench {

/// A copy of a recorded machine whose counters can be moved on, for engines whose sources the
/// running machine lacks.
class RecordedMachine {
public:
    /// `name` is a folder of tests/fixtures.
    explicit RecordedMachine(const std::string& name);

    [[nodiscard]] std::string root() const { return folder_.path().string(); }
    /// A second goes by: each processor ran for a part of it, each policy at its last clock.
    void goOn() const;

private:
    TemporaryFolder folder_;
};

}  // namespace vtx::bench
