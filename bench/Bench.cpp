// SPDX-License-Identifier: MIT
#include "Bench.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "SurfaceDriver.h"

namespace vtx::bench {
namespace {

namespace fs = std::filesystem;

/// Between two looks at the strip, which changes once a second.
constexpr auto glance = std::chrono::milliseconds(250);

Program::Environment complete(Program::Environment environment, const fs::path& home) {
    environment.insert({{"HOME", home},
                        {"XDG_CONFIG_HOME", home / "config"},
                        {"XDG_CACHE_HOME", home / "cache"},
                        {"XDG_DATA_HOME", home / "data"},
                        {"XDG_RUNTIME_DIR", home}});
    return environment;
}

}  // namespace

Bench::Subject::Subject(std::string shownName, const std::vector<std::string>& command,
                        Program::Environment environment)
    : name(std::move(shownName)), program(command, complete(std::move(environment), home.path())) {}

Bench::Bench(const Options& options) : options_(options) {
    report_.machine = machineFacts();
    const auto folder = fs::canonical("/proc/self/exe").parent_path();
    add("bench-preads", folder);
    add("bench-bare-window", folder);
    for (const auto& command : options_.commands) add(command);
    resident_ = add("vantrix", folder);
}

CostReport Bench::measure() {
    measureWindow("With every surface closed");
    if (resident_ && useSurfaces()) {
        measureWindow("After each surface was opened and closed once");
    }
    return std::move(report_);
}

Bench::Subject* Bench::add(const std::string& name, const fs::path& folder) {
    const auto file = folder / name;
    if (!fs::exists(file)) {
        report_.leftOut.push_back(fmt::format("{}, which is not built", name));
        return nullptr;
    }
    return start(name, {file}, {});
}

void Bench::add(const std::string& command) {
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
    const auto name = fmt::format("{} ({})", fs::path(arguments.front()).filename().string(),
                                  subjects_.size() + 1);
    std::fputs(fmt::format("{}: {}\n", name, command).c_str(), stderr);
    start(name, arguments, std::move(environment));
}

Bench::Subject* Bench::start(const std::string& name, const std::vector<std::string>& command,
                             Program::Environment environment) {
    subjects_.push_back(std::make_unique<Subject>(name, command, std::move(environment)));
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
