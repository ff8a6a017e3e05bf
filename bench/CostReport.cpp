// SPDX-License-Identifier: MIT
#include "CostReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace vtx::bench {
namespace {

using Seconds = std::chrono::duration<double>;

constexpr double secondsPerMinute = 60;
constexpr std::uint64_t kibPerMib = 1024;

double aMinute(double amount, const CostWindow& window) {
    return amount * secondsPerMinute / window.length.count();
}

double aMinute(std::uint64_t count, const CostWindow& window) {
    return aMinute(static_cast<double>(count), window);
}

double cpuAMinute(std::chrono::nanoseconds cpu, const CostWindow& window) {
    return aMinute(Seconds(cpu).count(), window);
}

double mib(std::uint64_t kib) { return static_cast<double>(kib) / static_cast<double>(kibPerMib); }

std::string percent(std::optional<double> fraction) {
    return fraction ? fmt::format("{:.0f} %", *fraction * 100) : "—";
}

class Text {
public:
    template <class... Values>
    void line(fmt::format_string<Values...> format, Values&&... values) {
        fmt::format_to(std::back_inserter(text_), format, std::forward<Values>(values)...);
        text_ += '\n';
    }
    [[nodiscard]] std::string take() { return std::move(text_); }

private:
    std::string text_;
};

void addWindow(Text& text, const CostWindow& window) {
    text.line("{} ({:.0f} s, machine busy {})", window.title, window.length.count(),
              percent(window.machineBusy));
    text.line("  {:<28}{:>10}{:>14}{:>14}{:>9}{:>9}{:>9}{:>9}{:>6}", "", "CPU s/min",
              "wake-ups/min", "preempted/min", "PSS MB", "USS MB", "RSS MB", "threads", "fds");
    for (const auto& row : window.rows) {
        text.line("  {:<28}{:>10.4f}{:>14.0f}{:>14.0f}{:>9.1f}{:>9.1f}{:>9.1f}{:>9}{:>6}", row.name,
                  cpuAMinute(row.span.cpu, window), aMinute(row.span.wakeUps, window),
                  aMinute(row.span.preemptions, window), mib(row.holding.pssKiB),
                  mib(row.holding.ussKiB), mib(row.holding.rssKiB), row.holding.threads,
                  row.holding.descriptors);
    }
    if (window.stripChanges) {
        text.line("  The strip showed something else {:.0f} times a minute.",
                  aMinute(std::uint64_t{*window.stripChanges}, window));
    }
    for (const auto& row : window.rows) {
        if (row.span.endedThreads == 0) continue;
        text.line("  {}: threads that ended, without their last wake-ups: {}", row.name,
                  row.span.endedThreads);
    }
}

void addThreads(Text& text, const CostWindow& window) {
    for (const auto& row : window.rows) {
        for (const auto& [number, thread] : row.span.threads) {
            text.line("    {:<28}{:<18}{:>10.4f}{:>8.0f}", row.name, thread.name,
                      cpuAMinute(thread.cpu, window), aMinute(thread.wakeUps, window));
        }
    }
}

double milliseconds(Seconds time) { return time.count() * 1e3; }

void addOpenings(Text& text, const Openings& openings) {
    std::vector<Seconds> sorted = openings.later;
    std::ranges::sort(sorted);
    text.line(
        "\nThe popover was whole on the screen {:.0f} ms after its first click; in {} later "
        "ones {:.0f} ms (median), {:.0f} ms (worst).",
        milliseconds(openings.first), sorted.size(), milliseconds(sorted[sorted.size() / 2]),
        milliseconds(sorted.back()));
}

nlohmann::json toJson(const Openings& openings) {
    auto later = nlohmann::json::array();
    for (const auto time : openings.later) later.push_back(milliseconds(time));
    return {{"firstMs", milliseconds(openings.first)}, {"laterMs", std::move(later)}};
}

nlohmann::json toJson(const CostRow& row, const CostWindow& window) {
    auto threads = nlohmann::json::array();
    for (const auto& [number, thread] : row.span.threads) {
        threads.push_back({{"name", thread.name},
                           {"cpuSecondsPerMinute", cpuAMinute(thread.cpu, window)},
                           {"wakeUpsPerMinute", aMinute(thread.wakeUps, window)}});
    }
    return {{"program", row.name},
            {"cpuSecondsPerMinute", cpuAMinute(row.span.cpu, window)},
            {"wakeUpsPerMinute", aMinute(row.span.wakeUps, window)},
            {"preemptionsPerMinute", aMinute(row.span.preemptions, window)},
            {"endedThreads", row.span.endedThreads},
            {"pssKiB", row.holding.pssKiB},
            {"ussKiB", row.holding.ussKiB},
            {"rssKiB", row.holding.rssKiB},
            {"descriptors", row.holding.descriptors},
            {"threads", std::move(threads)}};
}

nlohmann::json toJson(const CostWindow& window) {
    auto rows = nlohmann::json::array();
    for (const auto& row : window.rows) rows.push_back(toJson(row, window));
    nlohmann::json busy;
    if (window.machineBusy) busy = *window.machineBusy;
    nlohmann::json changes;
    if (window.stripChanges) {
        changes = aMinute(std::uint64_t{*window.stripChanges}, window);
    }
    return {{"title", window.title},
            {"stripChangesPerMinute", std::move(changes)},
            {"seconds", window.length.count()},
            {"machineBusy", std::move(busy)},
            {"programs", std::move(rows)}};
}

}  // namespace

std::string table(const CostReport& report, ThreadDetail detail) {
    Text text;
    const auto& machine = report.machine;
    text.line("{}, {} cores, Linux {}, Qt {}",
              machine.processor.empty() ? "unnamed processor" : machine.processor, machine.cores,
              machine.kernel, machine.toolkit);
    for (const auto& window : report.windows) {
        text.line("");
        addWindow(text, window);
        if (detail == ThreadDetail::shown) addThreads(text, window);
    }
    if (report.openings) addOpenings(text, *report.openings);
    for (const auto& missing : report.leftOut) text.line("\nLeft out: {}", missing);
    return text.take();
}

void saveJson(const CostReport& report, const std::filesystem::path& file) {
    auto windows = nlohmann::json::array();
    for (const auto& window : report.windows) windows.push_back(toJson(window));
    nlohmann::json document{
        {"processor", report.machine.processor}, {"cores", report.machine.cores},
        {"kernel", report.machine.kernel},       {"qt", report.machine.toolkit},
        {"windows", std::move(windows)},         {"leftOut", report.leftOut}};
    if (report.openings) document["openings"] = toJson(*report.openings);
    std::ofstream out(file);
    if (!(out << document.dump(2) << '\n')) {
        throw std::runtime_error(fmt::format("cannot write {}", file.string()));
    }
}

}  // namespace vtx::bench
