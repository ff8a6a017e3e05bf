// SPDX-License-Identifier: MIT
#include "Bench.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "EveryTile.h"
#include "LivingSensors.h"
#include "SurfaceDriver.h"

namespace vtx::bench {
namespace {

namespace fs = std::filesystem;

/// Between two looks at the strip, which changes once a second.
constexpr auto glance = std::chrono::milliseconds(250);

/// Of the popover, after the first of the process's life. They fall on every part of a second.
constexpr int openings = 12;
constexpr auto betweenOpenings = std::chrono::milliseconds(730);

constexpr auto resident = "vantrix";

}  // namespace

Bench::Bench(const Options& options)
    : options_(options), programs_(fs::canonical("/proc/self/exe").parent_path()) {
    report_.machine = machineFacts();
    if (options_.everySensorAlone) return;
    addFloors();
    for (const auto& command : options_.commands) add(command, subjects_.size() + 1);
    resident_ = add(resident);
}

CostReport Bench::measure() {
    if (options_.everySensorAlone) {
        measureEverySensor();
        return std::move(report_);
    }
    measureWindow("With every surface closed");
    if (!resident_) return std::move(report_);
    measurePopover();
    if (useSurfaces()) measureWindow("After the popover and the dashboard were opened and closed");
    measureAlone("With the mini widget shown", {programs_ / resident}, Stored::widget);
    measureEveryTile();
    measureEverySensor();
    return std::move(report_);
}

void Bench::measureEveryTile() {
    std::string missing;
    for (const auto& tile : tilesWithoutSource())
        missing += fmt::format("{}{}", missing.empty() ? "; none here for: " : ", ", tile);
    measureAlone("With every surface closed and every tile in the strip" + missing,
                 {programs_ / resident}, Stored::everyTile);
}

void Bench::measureEverySensor() {
    const LivingSensors sensors;
    if (!sensors.canBeShown()) {
        report_.leftOut.emplace_back("every tile with a sensor: no mount namespace may be made");
        return;
    }
    measureAlone("The same where every sensor is there, told by ordinary files",
                 sensors.command(programs_ / resident), Stored::everyTile);
}

void Bench::measureAlone(std::string title, const std::vector<std::string>& command,
                         Stored stored) {
    resident_ = nullptr;
    subjects_.clear();
    addFloors();
    resident_ = start(resident, command, {}, stored);
    measureWindow(std::move(title));
}

void Bench::addFloors() {
    add("bench-preads");
    add("bench-bare-window");
}

Subject* Bench::add(const std::string& name) {
    const auto file = programs_ / name;
    if (fs::exists(file)) return start(name, {file});
    const auto missing = fmt::format("{}, which is not built", name);
    if (std::ranges::find(report_.leftOut, missing) == report_.leftOut.end())
        report_.leftOut.push_back(missing);
    return nullptr;
}

void Bench::add(const std::string& command, std::size_t number) {
    std::istringstream words(command);
    std::vector<std::string> arguments;
    Program::Environment environment;
    for (std::string word; words >> word;) {
        const auto equals = word.find('=');
        if (arguments.empty() && equals != std::string::npos) {
            environment[word.substr(0, equals)] = word.substr(equals + 1);
        } else {
            arguments.push_back(word);
        }
    }
    if (arguments.empty()) throw std::runtime_error(fmt::format("'{}' is no command", command));
    const auto name =
        fmt::format("{} ({})", fs::path(arguments.front()).filename().string(), number);
    std::fputs(fmt::format("{}: {}\n", name, command).c_str(), stderr);
    start(name, arguments, std::move(environment));
}

Subject* Bench::start(const std::string& name, const std::vector<std::string>& command,
                      Program::Environment environment, Stored stored) {
    subjects_.push_back(std::make_unique<Subject>(name, command, std::move(environment), stored));
    return subjects_.back().get();
}

std::vector<CostReading> Bench::readAll() {
    std::vector<CostReading> readings;
    for (const auto& subject : subjects_) {
        if (!subject->program.isRunning()) {
            throw std::runtime_error(fmt::format("{} ended by itself", subject->name));
        }
        readings.push_back(readCost(subject->program.process()));
    }
    return readings;
}

void Bench::measureWindow(std::string title) {
    std::this_thread::sleep_for(std::chrono::seconds(options_.settle));
    const auto begin = readAll();
    const auto begun = std::chrono::steady_clock::now();
    const auto busyBefore = processorTime();
    const auto changes = watchStrip();
    const auto busyAfter = processorTime();
    const auto length = std::chrono::steady_clock::now() - begun;
    const auto end = readAll();
    CostWindow measured{std::move(title), length, busyFraction(busyBefore, busyAfter), changes, {}};
    for (std::size_t i = 0; i < subjects_.size(); ++i) {
        measured.rows.push_back({subjects_[i]->name, between(begin[i], end[i]),
                                 readHolding(subjects_[i]->program.process())});
    }
    report_.windows.push_back(std::move(measured));
}

std::optional<std::size_t> Bench::watchStrip() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(options_.seconds);
    if (!resident_) {
        std::this_thread::sleep_until(end);
        return std::nullopt;
    }
    SurfaceDriver driver(resident_->program.process());
    std::size_t changes = 0;
    auto shown = driver.stripPicture();
    for (auto at = std::chrono::steady_clock::now(); at < end; at += glance) {
        std::this_thread::sleep_until(std::min(at + glance, end));
        const auto now = driver.stripPicture();
        changes += now && shown && *now != *shown;
        if (now) shown = now;
    }
    return shown ? std::optional(changes) : std::nullopt;
}

void Bench::measurePopover() {
    try {
        SurfaceDriver driver(resident_->program.process());
        std::vector<std::chrono::duration<double>> times;
        for (int i = 0; i <= openings; ++i) {
            times.push_back(driver.openPopover());
            if (i == openings) break;
            driver.closePopover();
            std::this_thread::sleep_for(betweenOpenings);
        }
        measureWindow("Overview open in the popover");
        driver.closePopover();
        report_.openings = {times.front(), {times.begin() + 1, times.end()}};
    } catch (const std::runtime_error& error) {
        report_.leftOut.push_back(fmt::format("the open popover: {}", error.what()));
    }
}

bool Bench::useSurfaces() {
    try {
        SurfaceDriver driver(resident_->program.process());
        driver.openAndClosePopover();
        driver.openAndCloseDashboard();
        return true;
    } catch (const std::runtime_error& error) {
        report_.leftOut.push_back(fmt::format("vantrix after its surfaces: {}", error.what()));
        return false;
    }
}

}  // namespace vtx::bench
