// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>

#include "Program.h"
#include "SoakReport.h"
#include "SurfaceWalk.h"
#include "TemporaryFolder.h"

namespace vtx::bench {

struct SoakOptions {
    double minutes = 60;
    std::uint64_t seed = 1;
    /// As a session with assistive software has it.
    bool withAccessibility = false;
    std::optional<std::filesystem::path> csv;
    /// In the place of the one beside this.
    std::optional<std::filesystem::path> program;
};

/// No failure of a surface, which could be tried again.
class ProgramEnded final : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override {
        return "the program ended by itself";
    }
};

/// A resident program of its own, used for a long time.
class Soak {
public:
    /// Starts the program. Throws `std::runtime_error` where it cannot be.
    explicit Soak(const SoakOptions& options);

    /// Uses it for as long as was asked for. Throws `ProgramEnded`, or `std::runtime_error` where a
    /// surface does not do what it is to. Once only.
    void walk();
    /// Of what was done until now.
    [[nodiscard]] const SoakReport& report() const { return report_; }

private:
    using Clock = std::chrono::steady_clock;

    void walkThrough();
    void noteWalk();
    void rest();
    void watchStrip();
    void end();
    /// Lets that time pass, with a sample whenever one is due.
    void pause(std::chrono::milliseconds span);
    void sample();
    /// Absent where it cannot be told.
    [[nodiscard]] std::optional<Holding> serverHolding() const;

    const SoakOptions options_;
    TemporaryFolder home_;  // before the program, which writes in it until it ends
    Program program_;
    SoakReport report_;
    std::optional<SurfaceWalk> walk_;
    Clock::time_point begun_;
    Clock::time_point nextSample_;
    /// Since when all is closed; absent while it is not.
    std::optional<Clock::time_point> closedSince_;
};

}  // namespace vtx::bench
