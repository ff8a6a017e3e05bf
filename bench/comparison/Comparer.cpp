// SPDX-License-Identifier: MIT
#include "comparison/Comparer.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <utility>

#include "LivingSensors.h"
#include "ProcessCost.h"
#include "comparison/Sections.h"
#include "processes/SleepingProcesses.h"

namespace vtx::bench {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// Of the program alone, before the windows of a round.
constexpr int startsOfARound = 3;

/// The process table gives its memory back a quarter of a minute after the last surface closed.
constexpr auto untilAllIsGivenBack = std::chrono::seconds(18);

constexpr auto resident = "vantrix";
constexpr auto readsFloor = "floor: five kept-open reads a second";
constexpr auto windowFloor = "floor: a bare window";
constexpr auto statsFloor = "floor: kept-open reads of each stat, each 1 s";

Sample sampleOf(const CostSpan& span, const Holding& holding, Clock::duration length) {
    const double minutes = std::chrono::duration<double, std::ratio<60>>(length).count();
    return {std::chrono::duration<double>(span.cpu).count() / minutes,
            static_cast<double>(span.wakeUps) / minutes,
            static_cast<double>(holding.pssKiB) / 1024.0,
            static_cast<double>(holding.ussKiB) / 1024.0, std::nullopt};
}

double processCount() {
    return static_cast<double>(std::ranges::count_if(
        fs::directory_iterator("/proc"), [](const fs::directory_entry& entry) {
            return std::ranges::all_of(entry.path().filename().string(),
                                       [](char letter) { return letter >= '0' && letter <= '9'; });
        }));
}

}  // namespace

Comparer::Comparer(Options options)
    : options_(std::move(options)), programs_(fs::canonical("/proc/self/exe").parent_path()) {
    found_.machine = machineFacts();
    found_.moment = fmt::format("{:%F %R} UTC", fmt::gmtime(std::time(nullptr)));
    found_.rounds = *options_.rounds;
    found_.seconds = options_.seconds;
    for (const auto& file : options_.figures) found_.figures.merge(loadFigures(file));
    for (const auto* name :
         {rowNames::closed, rowNames::overview, rowNames::processes, rowNames::closedAgain})
        (void)found_.row(name);
    chooseSensors();
    chooseMonitors();
    for (const auto* name : {readsFloor, windowFloor, statsFloor}) (void)found_.row(name);
}

void Comparer::chooseSensors() {
    showsSensors_ = LivingSensors().canBeShown();
    if (showsSensors_)
        (void)found_.row(rowNames::everySensor);
    else
        found_.leftOut.emplace_back("Vantrix with every sensor, as no mount namespace may be made");
}

void Comparer::chooseMonitors() {
    for (OtherMonitor& monitor : otherMonitors()) {
        if (isInstalled(monitor)) {
            (void)found_.row(shownName(monitor));
            monitors_.push_back(std::move(monitor));
        } else {
            found_.leftOut.push_back(fmt::format("{}, which is not installed", monitor.program()));
        }
    }
}

Comparison Comparer::measure() {
    for (int round = 1; round <= *options_.rounds; ++round) {
        for (const Crowd crowd : crowds) {
            std::fputs(fmt::format("Round {} of {}{}\n", round, *options_.rounds,
                                   crowd == Crowd::more ? ", with more processes" : "")
                           .c_str(),
                       stdout);
            std::fflush(stdout);
            measureRound(crowd);
        }
    }
    return std::move(found_);
}

void Comparer::measureRound(Crowd crowd) {
    found_.processes.of(crowd).push_back(processCount());
    const SleepingProcesses sleeping(crowd == Crowd::more ? sleepersMore : 0);
    if (crowd == Crowd::more) found_.processes.of(crowd).back() = processCount();
    measureStarts(crowd);
    measureResident(crowd);
    if (showsSensors_) measureEverySensor(crowd);
    for (const OtherMonitor& monitor : monitors_) measureOther(monitor, crowd);
}

void Comparer::measureStarts(Crowd crowd) {
    for (int i = 0; i < startsOfARound; ++i) {
        const auto begun = Clock::now();
        const Subject subject = start(resident);
        SurfaceDriver driver(subject.program.process());
        const std::chrono::duration<double, std::milli> time = driver.awaitPaintedStrip() - begun;
        found_.firstStripMs.of(crowd).push_back(time.count());
        interruption_.sleepFor(std::chrono::seconds(1));
    }
}

void Comparer::measureResident(Crowd crowd) {
    Subject reads = start("bench-preads");
    Subject bare = start("bench-bare-window");
    Subject vantrix = start(resident);
    const auto keep = [&](std::string_view name, const std::vector<Sample>& samples) {
        keepAboveBare(name, crowd, samples);
    };
    SurfaceDriver driver(vantrix.program.process());
    driver.awaitStrip();
    settle();

    const auto before = processorTime();
    const auto closed = samplesOf({vantrix, bare, reads});
    if (const auto busy = busyFraction(before, processorTime()))
        found_.machineBusy.push_back(*busy);
    keep(rowNames::closed, closed);
    found_.row(windowFloor).samples.of(crowd).push_back(closed[1]);
    found_.row(readsFloor).samples.of(crowd).push_back(closed[2]);

    (void)driver.openPopover();
    settle();
    keep(rowNames::overview, samplesOf({vantrix, bare}));

    driver.showSection(sections_.processes);
    {
        Subject stats = start("bench-stat-preads");
        settle();
        const auto open = samplesOf({vantrix, bare, stats});
        keep(rowNames::processes, open);
        found_.row(statsFloor).samples.of(crowd).push_back(open[2]);
    }
    driver.closePopover();

    if (!useEverySurface(driver)) return;
    interruption_.sleepFor(untilAllIsGivenBack);
    keep(rowNames::closedAgain, samplesOf({vantrix, bare}));
}

void Comparer::measureEverySensor(Crowd crowd) {
    const LivingSensors sensors;
    Subject bare = start("bench-bare-window");
    Subject vantrix(resident, sensors.command(programs_ / resident));
    try {
        SurfaceDriver(vantrix.program.process()).awaitStrip();
    } catch (const std::runtime_error& error) {
        found_.leftOut.push_back(
            fmt::format("Vantrix with every sensor, in one round: {}", error.what()));
        return;
    }
    settle();
    keepAboveBare(rowNames::everySensor, crowd, samplesOf({vantrix, bare}));
}

void Comparer::settle() const { interruption_.sleepFor(std::chrono::seconds(options_.settle)); }

void Comparer::keepAboveBare(std::string_view name, Crowd crowd,
                             const std::vector<Sample>& samples) {
    Sample kept = samples.at(0);
    kept.pssOverBareMiB = kept.pssMiB - samples.at(1).pssMiB;
    found_.row(name).samples.of(crowd).push_back(kept);
}

bool Comparer::useEverySurface(SurfaceDriver& driver) {
    try {
        driver.useEverySurface(sections_.inOrderOfUse());
        return true;
    } catch (const std::runtime_error& error) {
        found_.leftOut.push_back(
            fmt::format("Vantrix after every surface, in one round: {}", error.what()));
        return false;
    }
}

void Comparer::measureOther(const OtherMonitor& monitor, Crowd crowd) {
    Subject subject(monitor.program(), monitor.command, {{"TERM", "xterm-256color"}},
                    Subject::Stored::ofAFirstStart, monitor.output, monitor.settings);
    settle();
    const auto writtenBefore = subject.terminal ? subject.terminal->written() : 0;
    const auto samples = samplesOf({subject});
    if (subject.terminal && subject.terminal->written() == writtenBefore)
        throw std::runtime_error(fmt::format("{} showed nothing", subject.name));
    found_.row(shownName(monitor)).samples.of(crowd).push_back(samples[0]);
}

std::vector<Sample> Comparer::samplesOf(const Subjects& subjects) {
    const auto read = [&] {
        std::vector<CostReading> readings;
        for (Subject& subject : subjects) {
            if (!subject.program.isRunning())
                throw std::runtime_error(fmt::format("{} ended by itself", subject.name));
            readings.push_back(readCost(subject.program.process()));
        }
        return readings;
    };
    const auto begun = Clock::now();
    const auto begin = read();
    interruption_.sleepFor(std::chrono::seconds(options_.seconds));
    const auto end = read();
    const auto length = Clock::now() - begun;
    std::vector<Sample> samples;
    samples.reserve(subjects.size());
    for (std::size_t i = 0; i < subjects.size(); ++i)
        samples.push_back(sampleOf(between(begin[i], end[i]),
                                   readHolding(subjects[i].get().program.process()), length));
    return samples;
}

Subject Comparer::start(const char* program) const {
    return Subject(program, {programs_ / program});
}

}  // namespace vtx::bench
