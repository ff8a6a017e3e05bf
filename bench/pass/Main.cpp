// SPDX-License-Identifier: MIT
// vantrix-bench-pass: the CPU time of one pass over what the preferences of a first start need,
// beside bare reads of the same files, with gaps between them as the real cadence has; and what
// finding and reading sensors costs on a simulated machine.
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Figures.h"
#include "pass/PassMeter.h"
#include "pass/SensorMeter.h"
#include "pass/SystemMeter.h"

namespace vtx::bench {
namespace {

constexpr const char* usage = R"(Usage: vantrix-bench-pass [--passes N] [--interval MS] [--system]
                          [--figures FILE]

Prints what one pass costs beside bare reads of the files it needs, and what sensors and fans cost
on a simulated machine.

  --passes N     how many are counted, 60 when not said
  --interval MS  milliseconds from one pass to the next, 1000 when not said;
                 less understates the cost, since caches stay warm
  --system       prints the port calls of a pass alone
  --figures FILE saves what vantrix-bench --compare shows of it
  --help         shows this text
)";

constexpr int worksInARound = 7;
constexpr int passesForWakeUps = 30;

constexpr std::size_t keysOfALargeMachine = 2000;
constexpr int sensorRounds = 30;
constexpr std::chrono::milliseconds sensorGap(50);

int number(const std::string& text) {
    int value = 0;
    const auto end = text.data() + text.size();
    if (std::from_chars(text.data(), end, value).ptr != end || value < 1) {
        throw std::runtime_error(fmt::format("'{}' is no number above zero", text));
    }
    return value;
}

std::string row(const char* name, const Statistics& times, const Statistics& floor) {
    return fmt::format("  {:<24}{:>12.1f}{:>12.1f}{:>12.1f}{:>12.2f}{:>12.2f}\n", name,
                       times.median().count(), times.least().count(), times.p95().count(),
                       times.median() / floor.median(), times.least() / floor.least());
}

std::string row(const char* name, const Statistics& times) {
    return fmt::format("  {:<24}{:>12.1f}{:>12.1f}{:>12.1f}\n", name, times.median().count(),
                       times.least().count(), times.p95().count());
}

void printHeading() {
    std::fputs(fmt::format("  {:<24}{:>12}{:>12}{:>12}{:>12}{:>12}\n", "", "median µs", "least µs",
                           "p95 µs", "× preads", "× at least")
                   .c_str(),
               stdout);
}

void printSensors() {
    const SensorCosts costs = measureSensors(keysOfALargeMachine, sensorRounds, sensorGap);
    std::fputs(
        fmt::format("CPU time of sensors and fans on a simulated SMC of {} keys\n", costs.keys)
            .c_str(),
        stdout);
    std::fputs(row("finding the sensors", costs.discovery).c_str(), stdout);
    const auto poll = fmt::format("a poll of {} values", costs.valuesOfAPoll);
    std::fputs(row(poll.c_str(), costs.poll).c_str(), stdout);
}

/// What all port calls together took, as a multiple of the reads.
double printSystemPart(int passes, std::chrono::milliseconds gap) {
    std::fputs("Port calls of a pass, source by source, on one thread\n", stdout);
    printHeading();
    SystemMeter meter;
    const auto costs = meter.measure(passes, gap);
    for (const auto& [name, ports, preads] : costs) {
        std::fputs(row(name.c_str(), ports, preads).c_str(), stdout);
        std::fputs(row("  preads of its files", preads).c_str(), stdout);
    }
    std::fputs(fmt::format("  Read for comparison, each file kept open, in turn with the ports\n"
                           "  and after the same pause, so that caches are as cold: {}\n",
                           fmt::join(meter.files(), ", "))
                   .c_str(),
               stdout);
    return costs.back().ports.median() / costs.back().preads.median();
}

std::string where(const std::string& recorded) {
    if (recorded.empty()) return {};
    return fmt::format("    (this machine has none: on a copy of the recorded {})\n", recorded);
}

int run(const std::vector<std::string>& arguments) {
    int passes = 60;
    int interval = 1000;
    bool isSystemAlone = false;
    std::optional<std::string> figures;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--help") {
            std::fputs(usage, stdout);
            return EXIT_SUCCESS;
        }
        if (arguments[i] == "--system") {
            isSystemAlone = true;
            continue;
        }
        if (arguments[i] == "--figures" && i + 1 < arguments.size()) {
            figures = arguments[++i];
            continue;
        }
        int* const option = arguments[i] == "--passes"     ? &passes
                            : arguments[i] == "--interval" ? &interval
                                                           : nullptr;
        if (!option || i + 1 == arguments.size()) {
            throw std::runtime_error(fmt::format("'{}' is not understood", arguments[i]));
        }
        *option = number(arguments[++i]);
    }
    const auto printAndSaveSystemPart = [&] {
        const double part = printSystemPart(passes, std::chrono::milliseconds(interval / 2));
        if (figures) saveFigures({{figureNames::systemPart, part}}, *figures);
    };
    if (isSystemAlone) {
        printAndSaveSystemPart();
        return EXIT_SUCCESS;
    }
    const std::chrono::milliseconds gap(interval / worksInARound);
    PassMeter meter;
    const PassCosts costs = meter.measure(passes, gap);
    std::fputs(
        fmt::format("CPU time of one pass ({} passes, {} ms apart)\n", passes, interval).c_str(),
        stdout);
    printHeading();
    std::fputs(row("the pass, both threads", costs.pass, costs.preads).c_str(), stdout);
    std::fputs(row("its processors' part", costs.system, costs.preads).c_str(), stdout);
    std::fputs(row("preads of its files", costs.preads, costs.preads).c_str(), stdout);
    std::fputs("CPU time of one step of an engine alone\n", stdout);
    std::fputs(row("the clocks", costs.clocks, costs.clockPreads).c_str(), stdout);
    std::fputs(where(meter.clocksRecorded()).c_str(), stdout);
    std::fputs(row("the graphics", costs.graphics, costs.graphicsPreads).c_str(), stdout);
    std::fputs(where(meter.graphicsRecorded()).c_str(), stdout);
    const auto wakeUps = meter.wakeUps(passesForWakeUps, std::chrono::milliseconds(interval));
    std::fputs(fmt::format("Wake-ups of one pass, its timer's included: {:.2f}\n", wakeUps).c_str(),
               stdout);
    printAndSaveSystemPart();
    printSensors();
    return EXIT_SUCCESS;
}

}  // namespace
}  // namespace vtx::bench

int main(int argc, char** argv) {
    try {
        return vtx::bench::run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vantrix-bench-pass: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
