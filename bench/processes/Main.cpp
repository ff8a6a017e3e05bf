// SPDX-License-Identifier: MIT
// vantrix-bench-processes: the CPU time of one refresh of the process table, for each process,
// beside one bare read of its stat file, and beside another program that lists processes.
#include <fmt/format.h>
#include <time.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Figures.h"
#include "Program.h"
#include "processes/SleepingProcesses.h"
#include "processes/TableMeter.h"

namespace vtx::bench {
namespace {

constexpr const char* usage =
    R"(Usage: vantrix-bench-processes [--processes N] [--rounds N] [--gap MS]
                               [--figures FILE]

Prints what one refresh of the process table costs for each process.

  --processes N  sleeping processes that are started for the time, 1000 when not said
  --rounds N     how many are counted, 20 when not said
  --gap MS       milliseconds between two pieces of work, 600 when not said, so that the table is
                 refreshed about every two seconds; less understates the cost, since caches stay
                 warm
  --figures FILE saves what vantrix-bench --compare shows of it
  --help         shows this text
)";

struct Options {
    int processes = 1000;
    int rounds = 20;
    int gap = 600;
    std::optional<std::string> figures;
    bool isHelp = false;
};

int number(const std::string& text) {
    int value = 0;
    const auto end = text.data() + text.size();
    if (std::from_chars(text.data(), end, value).ptr != end || value < 1)
        throw std::runtime_error(fmt::format("'{}' is no number above zero", text));
    return value;
}

Options parse(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--help") {
            options.isHelp = true;
            return options;
        }
        if (arguments[i] == "--figures" && i + 1 < arguments.size()) {
            options.figures = arguments[++i];
            continue;
        }
        int* const option = arguments[i] == "--processes" ? &options.processes
                            : arguments[i] == "--rounds"  ? &options.rounds
                            : arguments[i] == "--gap"     ? &options.gap
                                                          : nullptr;
        if (!option || i + 1 == arguments.size())
            throw std::runtime_error(fmt::format("'{}' is not understood", arguments[i]));
        *option = number(arguments[++i]);
    }
    return options;
}

/// `top`, once a second, where it is installed.
class Top {
public:
    Top() {
        if (std::system("command -v top >/dev/null 2>&1") == 0)
            program_.emplace(std::vector<std::string>{"top", "-b", "-d", "1"},
                             Program::Environment{{"TERM", "dumb"}});
    }
    /// CPU time in microseconds a second since it was started; absent where it does not run.
    [[nodiscard]] std::optional<double> perSecond() {
        if (!program_ || !program_->isRunning()) return std::nullopt;
        clockid_t clock{};
        timespec time{};
        if (clock_getcpuclockid(program_->process(), &clock) != 0 ||
            clock_gettime(clock, &time) != 0)
            return std::nullopt;
        const auto used =
            std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
        const auto passed =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - began_);
        return std::chrono::duration<double, std::micro>(used).count() / passed.count();
    }

private:
    std::chrono::steady_clock::time_point began_ = std::chrono::steady_clock::now();
    std::optional<Program> program_;
};

void print(const char* name, const Statistics& times, const TableCosts& costs) {
    const auto count = static_cast<double>(costs.processes);
    std::fputs(fmt::format("  {:<26}{:>12.1f}{:>12.1f}{:>14.3f}{:>10.2f}\n", name,
                           times.median().count(), times.p95().count(),
                           times.median().count() / count, times.median() / costs.preads.median())
                   .c_str(),
               stdout);
}

int run(const Options& options) {
    if (options.isHelp) {
        std::fputs(usage, stdout);
        return EXIT_SUCCESS;
    }
    const SleepingProcesses sleeping(options.processes);
    Top top;
    const TableCosts costs =
        TableMeter().measure(options.rounds, std::chrono::milliseconds(options.gap));
    const auto topPerSecond = top.perSecond();
    std::fputs(fmt::format("CPU time of one refresh of {} processes ({} rounds)\n", costs.processes,
                           options.rounds)
                   .c_str(),
               stdout);
    std::fputs(fmt::format("  {:<26}{:>12}{:>12}{:>14}{:>10}\n", "", "median µs", "p95 µs",
                           "µs a process", "× preads")
                   .c_str(),
               stdout);
    print("the refresh, both threads", costs.refresh, costs);
    print("its system part", costs.system, costs);
    print("its main-thread part", costs.main, costs);
    print("of that, the sorting", costs.sorting, costs);
    print("energy scores", costs.energy, costs);
    print("the detector, its window full", costs.detector, costs);
    print("preads of the stat files", costs.preads, costs);
    if (topPerSecond)
        std::fputs(fmt::format("  {:<26}{:>12.1f}{:>12}{:>14.3f}\n", "top -b -d 1", *topPerSecond,
                               "", *topPerSecond / static_cast<double>(costs.processes))
                       .c_str(),
                   stdout);
    if (options.figures)
        saveFigures({{figureNames::processRead, costs.system.median() / costs.preads.median()}},
                    *options.figures);
    return EXIT_SUCCESS;
}

}  // namespace
}  // namespace vtx::bench

int main(int argc, char** argv) {
    try {
        return vtx::bench::run(vtx::bench::parse({argv + 1, argv + argc}));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vantrix-bench-processes: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
