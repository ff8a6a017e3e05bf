// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Figures.h"
#include "MachineFacts.h"

namespace vtx::bench {

/// A program over one window of time.
struct Sample {
    double cpuSecondsPerMinute = 0;
    double wakeUpsPerMinute = 0;
    double pssMiB = 0;
    /// Of that, what no other process shares: the same whatever else runs.
    double privateMiB = 0;
    /// What its memory was above that of the bare window beside it; absent where none was.
    std::optional<double> pssOverBareMiB;
};

/// With how many processes on the machine: those that are there, and with a thousand more.
enum class Crowd { present, more };
inline constexpr std::array crowds{Crowd::present, Crowd::more};
inline constexpr int sleepersMore = 1000;

/// One value for each crowd.
template <class T>
struct PerCrowd {
    T present{};
    T more{};

    [[nodiscard]] T& of(Crowd crowd) { return crowd == Crowd::present ? present : more; }
    [[nodiscard]] const T& of(Crowd crowd) const {
        return crowd == Crowd::present ? present : more;
    }
};

/// What was found of one program in one state.
struct ComparisonRow {
    std::string name;
    PerCrowd<std::vector<Sample>> samples;
};

namespace rowNames {
constexpr auto closed = "Vantrix, closed";
constexpr auto overview = "Vantrix, overview open";
constexpr auto processes = "Vantrix, process list open, each 2 s";
constexpr auto closedAgain = "Vantrix, closed after every surface";
constexpr auto everySensor = "Vantrix, closed, with every sensor";
}  // namespace rowNames

/// All programs, measured in turn on one machine.
struct Comparison {
    MachineFacts machine;
    std::string moment;  ///< "2026-11-22 03:20 UTC"
    int rounds = 0;
    int seconds = 0;
    std::vector<ComparisonRow> rows;
    /// How many processes there were, once a round.
    PerCrowd<std::vector<double>> processes;
    /// From the start of the program to its first painted strip.
    PerCrowd<std::vector<double>> firstStripMs;
    /// Busy part of all processors, 0 to 1, while Vantrix was closed.
    std::vector<double> machineBusy;
    /// What the other benchmarks of the same run found.
    Figures figures;
    /// What could not be measured, and why.
    std::vector<std::string> leftOut;

    /// The row of that name, a new one at the end where there is none.
    ComparisonRow& row(std::string_view name);
    [[nodiscard]] const ComparisonRow* find(std::string_view name) const;
};

/// A limit that was set before anything was measured.
struct Budget {
    std::string what;
    double limit = 0;
    std::optional<double> measured;
    int decimals = 2;

    [[nodiscard]] bool isHeld() const { return measured && *measured <= limit; }
};

/// Those of the program, in a fixed order, with what was measured at the present processes.
[[nodiscard]] std::vector<Budget> budgetsOf(const Comparison& comparison);

/// The middle one, or the mean of the middle two; absent where there is none.
[[nodiscard]] std::optional<double> median(std::vector<double> values);

/// The machine, the table and the budgets, as a part of a document.
[[nodiscard]] std::string markdown(const Comparison& comparison);

}  // namespace vtx::bench
