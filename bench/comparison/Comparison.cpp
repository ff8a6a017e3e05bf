// SPDX-License-Identifier: MIT
#include "comparison/Comparison.h"

#include <fmt/format.h>

#include <algorithm>

#include "comparison/MarkdownTable.h"

namespace vtx::bench {
namespace {

constexpr auto absent = "—";

std::string number(std::optional<double> value, int decimals) {
    return value ? fmt::format("{:.{}f}", *value, decimals) : absent;
}

std::optional<double> medianOf(const std::vector<Sample>& samples, double Sample::* field) {
    std::vector<double> values;
    for (const Sample& sample : samples) values.push_back(sample.*field);
    return median(std::move(values));
}

std::optional<double> medianOverBare(const std::vector<Sample>& samples) {
    std::vector<double> values;
    for (const Sample& sample : samples)
        if (sample.pssOverBareMiB) values.push_back(*sample.pssOverBareMiB);
    return median(std::move(values));
}

std::string heading(const Comparison& comparison) {
    const MachineFacts& machine = comparison.machine;
    const auto busy = median(comparison.machineBusy);
    return fmt::format(
        "Measured {} on {}, {} cores, Linux {}, {}, Qt {}. Medians of {} rounds, each with one "
        "window of {} s for each line, at {} processes and, where a column says +1,000, at {}. The "
        "machine was busy to {} % in the windows of the closed program, the benchmark's own uneven "
        "load included.\n",
        comparison.moment, machine.processor.empty() ? "an unnamed processor" : machine.processor,
        machine.cores, machine.kernel,
        machine.distribution.empty() ? "an unnamed distribution" : machine.distribution,
        machine.toolkit, comparison.rounds, comparison.seconds,
        number(median(comparison.processes.present), 0),
        number(median(comparison.processes.more), 0),
        number(busy ? std::optional(*busy * 100) : std::nullopt, 0));
}

MarkdownTable::Row programRow(const Comparison& comparison, const ComparisonRow& row) {
    MarkdownTable::Row cells{row.name};
    const auto add = [&](double Sample::* field, int decimals) {
        for (const Crowd crowd : crowds)
            cells.push_back(number(medianOf(row.samples.of(crowd), field), decimals));
    };
    add(&Sample::cpuSecondsPerMinute, 3);
    add(&Sample::wakeUpsPerMinute, 0);
    add(&Sample::pssMiB, 1);
    add(&Sample::privateMiB, 1);
    const bool starts = row.name == rowNames::closed;
    for (const Crowd crowd : crowds)
        cells.push_back(starts ? number(median(comparison.firstStripMs.of(crowd)), 0) : "");
    return cells;
}

std::string programTable(const Comparison& comparison) {
    MarkdownTable::Row columns{"program"};
    for (const auto* figure :
         {"CPU s/min", "wake-ups/min", "PSS MiB", "private MiB", "first strip ms"}) {
        columns.emplace_back(figure);
        columns.emplace_back("+1,000");
    }
    MarkdownTable table(std::move(columns));
    for (const auto& row : comparison.rows) table.add(programRow(comparison, row));
    return table.text();
}

std::string budgetTable(const Comparison& comparison) {
    MarkdownTable table({"budget", "at most", "measured", "held"});
    for (const Budget& budget : budgetsOf(comparison)) {
        const auto* held = !budget.measured ? absent : budget.isHeld() ? "yes" : "no";
        table.add({budget.what, number(budget.limit, budget.decimals),
                   number(budget.measured, budget.decimals), held});
    }
    return table.text();
}

void addClosed(std::vector<Budget>& budgets, const Comparison& comparison, const char* name,
               const char* words) {
    const ComparisonRow* row = comparison.find(name);
    const std::vector<Sample> none;
    const auto& samples = row ? row->samples.present : none;
    budgets.push_back({fmt::format("{}: CPU s/min", words), 0.07,
                       medianOf(samples, &Sample::cpuSecondsPerMinute), 3});
    budgets.push_back({fmt::format("{}: wake-ups/min", words), 250,
                       medianOf(samples, &Sample::wakeUpsPerMinute), 0});
    budgets.push_back(
        {fmt::format("{}: PSS over the bare window, MiB", words), 6, medianOverBare(samples), 1});
}

std::optional<double> figure(const Comparison& comparison, const char* name) {
    const auto found = comparison.figures.find(name);
    return found == comparison.figures.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

ComparisonRow& Comparison::row(std::string_view name) {
    const auto found = std::ranges::find(rows, name, &ComparisonRow::name);
    if (found != rows.end()) return *found;
    return rows.emplace_back(ComparisonRow{std::string(name), {}});
}

const ComparisonRow* Comparison::find(std::string_view name) const {
    const auto found = std::ranges::find(rows, name, &ComparisonRow::name);
    return found == rows.end() ? nullptr : &*found;
}

std::vector<Budget> budgetsOf(const Comparison& comparison) {
    std::vector<Budget> budgets;
    addClosed(budgets, comparison, rowNames::closed, "closed");
    addClosed(budgets, comparison, rowNames::closedAgain, "closed after every surface");
    const ComparisonRow* overview = comparison.find(rowNames::overview);
    budgets.push_back({"overview open: CPU s/min", 0.6,
                       overview ? medianOf(overview->samples.present, &Sample::cpuSecondsPerMinute)
                                : std::nullopt,
                       3});
    budgets.push_back({"system part of a pass, × kept-open reads", 1.3,
                       figure(comparison, figureNames::systemPart), 3});
    budgets.push_back({"a process in the table, × a kept-open read of its stat", 1.3,
                       figure(comparison, figureNames::processRead), 3});
    budgets.push_back({"a chart of an hour, ms", 2, figure(comparison, figureNames::hourChart), 2});
    const auto start = median(comparison.firstStripMs.present);
    budgets.push_back(
        {"start to first strip, s", 0.4, start ? std::optional(*start / 1000) : std::nullopt, 2});
    return budgets;
}

std::optional<double> median(std::vector<double> values) {
    if (values.empty()) return std::nullopt;
    std::ranges::sort(values);
    const auto middle = values.size() / 2;
    if (values.size() % 2 != 0) return values[middle];
    return (values[middle - 1] + values[middle]) / 2;
}

std::string markdown(const Comparison& comparison) {
    std::string text =
        heading(comparison) + '\n' + programTable(comparison) + '\n' + budgetTable(comparison);
    for (const auto& missing : comparison.leftOut) text += fmt::format("\nLeft out: {}\n", missing);
    return text;
}

}  // namespace vtx::bench
