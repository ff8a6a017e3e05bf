// SPDX-License-Identifier: MIT
#include "SoakReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>

namespace vtx::bench {
namespace {

constexpr std::size_t parts = 6;
constexpr double kibPerMib = 1024;
constexpr double mostGrowthMib = 1.0;
/// What every other program on the display draws is in it, and its heap has holes.
constexpr double mostServerGrowthMib = 4.0;
/// Of what grows in each part anew: that is no settling.
constexpr double mostSteadyGrowthMib = 0.3;
/// Of a surface that does not do what it was asked to there is one now and then on a busy machine.
constexpr double mostRepeatsAStep = 0.03;
/// Shorter ones have no calm samples in each part, or are not at rest by then.
constexpr std::chrono::minutes leastLength(12);
/// Of the strip, in the time for which it is watched under an uneven load.
constexpr std::size_t leastStripChanges = 5;

using Figure = std::function<std::optional<double>(const SoakSample&)>;

double mib(std::uint64_t kib) { return static_cast<double>(kib) / kibPerMib; }
std::optional<double> pss(const SoakSample& sample) { return mib(sample.holding.pssKiB); }
std::optional<double> rss(const SoakSample& sample) { return mib(sample.holding.rssKiB); }
std::optional<double> own(const SoakSample& sample) { return mib(sample.holding.ownKiB); }
std::optional<double> descriptors(const SoakSample& sample) {
    return static_cast<double>(sample.holding.descriptors);
}
std::optional<double> threads(const SoakSample& sample) {
    return static_cast<double>(sample.holding.threads);
}
std::optional<double> server(const SoakSample& sample) {
    if (!sample.server) return std::nullopt;
    return mib(sample.server->ownKiB);
}

std::size_t partOf(const SoakSample& sample, const SoakReport& report) {
    const double passed = sample.at / report.length;
    return std::min(static_cast<std::size_t>(passed * parts), parts - 1);
}

/// The figures of a part, in their order of size.
std::vector<double> sorted(const SoakReport& report, std::size_t part, bool calmAlone,
                           const Figure& figure) {
    std::vector<double> values;
    for (const auto& sample : report.samples) {
        if (partOf(sample, report) != part || (calmAlone && !sample.isCalm)) continue;
        if (const auto value = figure(sample)) values.push_back(*value);
    }
    std::ranges::sort(values);
    return values;
}

/// Absent where there are no calm samples.
std::optional<double> median(const SoakReport& report, std::size_t part, const Figure& figure) {
    const auto values = sorted(report, part, true, figure);
    if (values.empty()) return std::nullopt;
    return values[values.size() / 2];
}

std::optional<double> most(const SoakReport& report, std::size_t part, const Figure& figure) {
    const auto values = sorted(report, part, false, figure);
    if (values.empty()) return std::nullopt;
    return values.back();
}

std::string cell(std::optional<double> value, int decimals) {
    return value ? fmt::format("{:.{}f}", *value, decimals) : "—";
}

/// How much more there is in the last part than in the second.
std::optional<double> growth(const SoakReport& report, const Figure& figure) {
    const auto before = median(report, 1, figure);
    const auto after = median(report, parts - 1, figure);
    if (!before || !after) return std::nullopt;
    return *after - *before;
}

/// Whether each part from the second on has more than the one before.
bool growsSteadily(const SoakReport& report, const Figure& figure) {
    auto before = median(report, 1, figure);
    for (std::size_t part = 2; part < parts; ++part) {
        const auto now = median(report, part, figure);
        if (!before || !now || *now <= *before) return false;
        before = now;
    }
    return true;
}

std::string namesAndCounts(const SoakReport& report) {
    std::string text;
    for (const auto& [name, count] : report.uses) {
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ", name, count);
    }
    return text;
}

}  // namespace

std::string table(const SoakReport& report) {
    std::string text = fmt::format("{:.0f} min, seed {}: {} steps ({}), {} repetitions\n\n",
                                   report.length.count() / 60, report.seed, report.steps,
                                   namesAndCounts(report), report.repeats);
    text += fmt::format("{:<14}{:>8}{:>10}{:>10}{:>10}{:>8}{:>9}{:>8}{:>14}{:>9}{:>11}\n", "",
                        "samples", "PSS MiB", "RSS MiB", "own MiB", "fds", "threads", "X MiB",
                        "most PSS MiB", "most fds", "most thr.");
    for (std::size_t part = 0; part < parts; ++part) {
        const auto from = report.length.count() * static_cast<double>(part) / parts / 60;
        text += fmt::format(
            "from {:>5.1f} min{:>8}{:>10}{:>10}{:>10}{:>8}{:>9}{:>8}{:>14}{:>9}{:>11}\n", from,
            sorted(report, part, false, pss).size(), cell(median(report, part, pss), 2),
            cell(median(report, part, rss), 2), cell(median(report, part, own), 2),
            cell(median(report, part, descriptors), 0), cell(median(report, part, threads), 0),
            cell(median(report, part, server), 2), cell(most(report, part, pss), 2),
            cell(most(report, part, descriptors), 0), cell(most(report, part, threads), 0));
    }
    text += fmt::format("{:<22}{:>10}{:>10}{:>10}{:>8}{:>9}{:>8}\n", "last less second",
                        cell(growth(report, pss), 2), cell(growth(report, rss), 2),
                        cell(growth(report, own), 2), cell(growth(report, descriptors), 0),
                        cell(growth(report, threads), 0), cell(growth(report, server), 2));
    text += fmt::format(
        "\nMedians are those with every surface closed. The strip showed something else {} times "
        "in {:.0f} s.\n",
        report.stripChanges, report.stripWatched.count());
    if (report.length < leastLength) text += "That was too short to judge what it held.\n";
    return text;
}

std::vector<std::string> complaints(const SoakReport& report) {
    std::vector<std::string> found;
    const auto judge = [&](const char* what, const Figure& figure, double mostGrowth) {
        const auto grown = growth(report, figure);
        if (!grown) {
            found.push_back(fmt::format("{}: too short to tell", what));
        } else if (*grown > mostGrowth) {
            found.push_back(
                fmt::format("{}: {:.2f} more in the last sixth than in the second", what, *grown));
        }
    };
    const auto judgeMemory = [&](const char* what, const Figure& figure) {
        judge(what, figure, mostGrowthMib);
        const auto grown = growth(report, figure);
        if (grown && *grown > mostSteadyGrowthMib && growsSteadily(report, figure))
            found.push_back(fmt::format("{}: more in each sixth", what));
    };
    if (report.length >= leastLength) {
        judgeMemory("resident memory in MiB", rss);
        judgeMemory("memory that no file holds in MiB", own);
        judge("descriptors", descriptors, 0);
        judge("threads", threads, 0);
        if (!report.samples.empty() && report.samples.front().server)
            judge("memory of the X server in MiB", server, mostServerGrowthMib);
    }
    const double mostRepeats = std::max(1.0, mostRepeatsAStep * static_cast<double>(report.steps));
    if (static_cast<double>(report.repeats) > mostRepeats)
        found.push_back(
            fmt::format("{} of {} steps had to be repeated", report.repeats, report.steps));
    if (report.stripChanges < leastStripChanges) found.emplace_back("the strip stands still");
    if (!report.hasEndedInOrder) found.emplace_back("the program did not end as it was asked to");
    return found;
}

void saveCsv(const SoakReport& report, const std::filesystem::path& file) {
    std::ofstream out(file);
    out << "seconds,calm,pssKiB,ussKiB,rssKiB,ownKiB,descriptors,threads,serverOwnKiB\n";
    for (const auto& [at, isCalm, holding, server] : report.samples) {
        out << fmt::format("{:.1f},{:d},{},{},{},{},{},{},{}\n", at.count(), isCalm, holding.pssKiB,
                           holding.ussKiB, holding.rssKiB, holding.ownKiB, holding.descriptors,
                           holding.threads, server ? std::to_string(server->ownKiB) : "");
    }
    if (!out.flush()) throw std::runtime_error(fmt::format("{} cannot be written", file.string()));
}

}  // namespace vtx::bench
