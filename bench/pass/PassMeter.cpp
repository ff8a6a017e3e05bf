// SPDX-License-Identifier: MIT
#include "pass/PassMeter.h"

#include <unistd.h>

#include <stdexcept>

#include "ProcessCost.h"
#include "base/Executors.h"
#include "base/Shared.h"
#include "language/Localization.h"
#include "platform/HostInfo.h"

namespace vtx::bench {
namespace {

constexpr int uncountedRounds = 3;
constexpr auto patience = std::chrono::seconds(10);
constexpr std::size_t readAtOnce = 4096;

LinuxPlatform::Options optionsWith(const std::filesystem::path& configFolder) {
    LinuxPlatform::Options options;
    options.configFolder = configFolder;
    return options;
}

}  // namespace

PassMeter::PassMeter()
    : tick_(LinuxPlatform::nameThread("tick")),
      platform_(loop_, loop_.executor(), optionsWith(settings_.path())),
      stat_("/proc/stat"),
      tasks_(loop_.executor()) {
    const Ports ports = platform_.ports();
    Shared<Localization>::setFactory(
        [ports] { return std::make_unique<Localization>(ports.locale); });
    const Executors executors{loop_.executor(), tick_, blocking_};
    coordinator_ = std::make_unique<MetricsCoordinator>(
        std::make_unique<Services>(ports, executors), ports, executors);
    (void)onWorker([this] { return workerClock_.emplace(), true; });
}

PassMeter::~PassMeter() { Shared<Localization>::reset(); }

PassCosts PassMeter::measure(int rounds, std::chrono::milliseconds gap) {
    PassCosts costs;
    for (int round = -uncountedRounds; round < rounds; ++round) {
        wait(gap);
        const auto pass = timePass(gap);
        const auto system = timeSystem();
        wait(gap);
        const auto preads = timePreads();
        PassCosts ignored;
        PassCosts& chip = round < 0 ? ignored : costs;
        timeChip(*clocks_, chip.clocks, chip.clockPreads, gap);
        timeChip(*graphics_, chip.graphics, chip.graphicsPreads, gap);
        if (round < 0) continue;
        costs.pass.add(pass);
        costs.system.add(system);
        costs.preads.add(preads);
    }
    return costs;
}

Task<> PassMeter::pass() {
    co_await coordinator_->refreshAll();
    isPassDone_ = true;
}

void PassMeter::wait(std::chrono::milliseconds gap) {
    loop_.runUntil([] { return false; }, gap);
}

void PassMeter::runUntil(const bool& done) {
    if (!loop_.runUntil([&done] { return done; }, patience)) {
        throw std::runtime_error("the work did not end");
    }
}

std::chrono::nanoseconds PassMeter::onWorker(const std::function<bool()>& work) {
    bool isDone = false;
    bool succeeded = false;
    std::chrono::nanoseconds used{};
    tick_.post([&] {
        const ThreadClock clock;
        const auto before = clock.used();
        succeeded = work();
        used = clock.used() - before;
        loop_.executor().post([&isDone] { isDone = true; });
    });
    runUntil(isDone);
    if (!succeeded) throw std::runtime_error("the machine gave no reading");
    return used;
}

std::chrono::nanoseconds PassMeter::timePass(std::chrono::milliseconds gap) {
    const auto worker = workerClock_->used();
    const auto main = mainClock_.used();
    runPass();
    const auto mainUsed = mainClock_.used() - main;
    wait(gap);  // until the worker waits again
    return mainUsed + workerClock_->used() - worker;
}

void PassMeter::runPass() {
    isPassDone_ = false;
    tasks_.spawn([this](std::stop_token) { return pass(); });
    runUntil(isPassDone_);
}

double PassMeter::wakeUps(int rounds, std::chrono::milliseconds interval) {
    runPass();
    const auto before = readCost(::getpid());
    for (int round = 0; round < rounds; ++round) {
        wait(interval);
        runPass();
    }
    return static_cast<double>(between(before, readCost(::getpid())).wakeUps) / rounds;
}

void PassMeter::timeChip(ChipEngine& engine, Statistics& ticks, Statistics& preads,
                         std::chrono::milliseconds gap) {
    engine.goOn();
    wait(gap);
    // The first step sets the baseline, so that the first round may give no reading.
    ticks.add(onWorker([&] { return (void)engine.tick(), true; }));
    wait(gap);
    preads.add(onWorker([&] { return engine.read(); }));
}

std::chrono::nanoseconds PassMeter::timeSystem() {
    auto& hostInfo = platform_.ports().hostInfo;
    return onWorker([&] { return hostInfo.processorLoadInfo().result == kernSuccess; });
}

std::chrono::nanoseconds PassMeter::timePreads() {
    return onWorker([this] { return stat_.read(readAtOnce).has_value(); });
}

}  // namespace vtx::bench
