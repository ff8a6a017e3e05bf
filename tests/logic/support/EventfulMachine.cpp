// SPDX-License-Identifier: MIT
#include "support/EventfulMachine.h"

#include <fmt/format.h>

#include <array>
#include <numeric>

#include "platform/simulated/Operations.h"
#include "smc/IOHIDBridge.h"

namespace vtx {
namespace {

constexpr std::size_t mostTimers = 32;

}  // namespace

/// What may happen, and how often beside the others.
struct EventfulMachine::Event {
    std::string_view name;
    std::uint64_t weight;
    void (EventfulMachine::*happen)();
};

EventfulMachine::EventfulMachine(std::uint64_t seed)
    : random_(seed), begun_(bench_.clock.continuous()) {
    bench_.mac.live(seed);
    controller_.emplace(bench_.ports(), bench_.executors(), surfaces_);
    watch_.emplace(coordinator(), bench_.clock);
    pace_.emplace(coordinator(), bench_.clock);
    // What stands in for the SMC is opened when that first fails, and stays.
    (void)IOHIDBridge::shared();
    bench_.settle();
    if (surfaces_.languagePicker->confirm) surfaces_.languagePicker->confirm(Language::en);
}

double EventfulMachine::part() {
    constexpr std::uint64_t finest = 1'000'000;
    return static_cast<double>(upTo(finest)) / finest;
}

void EventfulMachine::step() {
    using E = EventfulMachine;
    static constexpr std::array events{Event{"a drive comes", 2, &E::driveComes},
                                       Event{"a drive goes", 2, &E::driveGoes},
                                       Event{"a drive counts", 2, &E::driveCounts},
                                       Event{"a drive begins anew", 1, &E::driveBeginsAnew},
                                       Event{"an interface comes", 2, &E::interfaceComes},
                                       Event{"an interface goes", 2, &E::interfaceGoes},
                                       Event{"an interface turns", 2, &E::interfaceTurns},
                                       Event{"an interface wraps", 1, &E::interfaceWraps},
                                       Event{"the battery changes", 3, &E::batteryChanges},
                                       Event{"the power changes", 2, &E::powerChanges},
                                       Event{"a sensor lies", 3, &E::sensorLies},
                                       Event{"a sensor recovers", 2, &E::sensorRecovers},
                                       Event{"a call fails", 6, &E::callFails},
                                       Event{"calls heal", 3, &E::callsHeal},
                                       Event{"the machine sleeps", 3, &E::machineSleeps},
                                       Event{"the clock is set", 4, &E::clockIsSet},
                                       Event{"the pressure changes", 2, &E::pressureChanges},
                                       Event{"the heat changes", 2, &E::heatChanges},
                                       Event{"the load changes", 4, &E::loadChanges},
                                       Event{"cores change", 2, &E::coresChange},
                                       Event{"ticks wrap", 1, &E::ticksWrap},
                                       Event{"the graphics change", 2, &E::graphicsChange},
                                       Event{"the memory changes", 2, &E::memoryChanges},
                                       Event{"a process comes", 4, &E::processComes},
                                       Event{"a process goes", 3, &E::processGoes},
                                       Event{"the popover toggles", 6, &E::popoverToggles},
                                       Event{"the dashboard toggles", 3, &E::dashboardToggles},
                                       Event{"the widget toggles", 2, &E::widgetToggles},
                                       Event{"a refresh is wanted", 1, &E::refreshIsWanted},
                                       Event{"the history is exported", 1, &E::historyIsExported},
                                       Event{"settings change", 6, &E::settingsChange},
                                       Event{"a preset is chosen", 1, &E::presetIsChosen},
                                       Event{"the store fails", 1, &E::storeFails},
                                       Event{"notifications fail", 1, &E::notificationsFail}};
    static_assert(std::accumulate(events.begin(), events.end(), std::size_t{0},
                                  [](std::size_t sum, const Event& event) {
                                      return sum + event.weight;
                                  }) == round);
    if (deck_.empty()) {
        for (const Event& event : events) deck_.insert(deck_.end(), event.weight, &event);
        // Not the library's own shuffle, whose order differs from one library to the next.
        for (std::size_t left = deck_.size(); left > 1; --left)
            std::swap(deck_[left - 1], deck_[upTo(left - 1)]);
    }
    const Event* const event = deck_.back();
    deck_.pop_back();
    ++steps_;
    lastEvent_ = event->name;
    (this->*event->happen)();
    pace_->begin();
    letTimePass();
    lookAround();
    tidyUp();
}

void EventfulMachine::lookAround() {
    watch_->lookAtTheRest();
    if (watch_->complaint()) complain(*watch_->complaint());
    const auto& notifications = bench_.platform.userNotifications;
    const std::size_t asked = bench_.platform.calls(operations::addNotificationRequest);
    pace_->look(notifications.posted(), asked != notifications.posted().size());
    if (pace_->complaint()) complain(*pace_->complaint());
    if (timers() > mostTimers) complain(fmt::format("{} timers run", timers()));
    for (const auto& posted : notifications.posted()) {
        ++alerts_;
        if (posted.title.empty() || posted.body.empty()) complain("an alert says nothing");
        if (posted.body.find('{') != std::string::npos ||
            posted.body.find("nan") != std::string::npos)
            complain(fmt::format("an alert says \"{}\"", posted.body));
    }
    for (const double length : surfaces_.item->lengths)
        if (!(length >= 24.0 && length < 10'000.0)) complain("the width of the strip");
}

std::string EventfulMachine::timersInWords() const {
    std::string words;
    for (const auto& timer : bench_.clock.pending())
        words +=
            fmt::format("in {} s, ± {} s; ", toSeconds(timer.deadline - bench_.clock.continuous()),
                        toSeconds(timer.tolerance));
    return words;
}

/// What the doubles have noted, and nobody will ask for.
void EventfulMachine::tidyUp() {
    bench_.log.clear();
    bench_.platform.resetCalls();
    bench_.platform.userNotifications.forget();
    surfaces_.item->lengths.clear();
    surfaces_.item->menu.clear();
    surfaces_.dashboard->shown.clear();
    surfaces_.miniWidget->did.clear();
    surfaces_.did.clear();
}

void EventfulMachine::complain(std::string_view what) {
    if (!complaint_) complaint_ = what;
}

void EventfulMachine::comeToRest() {
    bench_.failures.healAll();
    bench_.platform.userDefaults.failsToStore = false;
    bench_.platform.userNotifications.answer();
    sensorRecovers();
    while (!drives_.empty()) driveGoes();
    while (!interfaces_.empty()) interfaceGoes();
    while (!processes_.empty()) processGoes();
    bench_.mac.network.at("en0").flags = interfaceIsUp | interfaceIsRunning;
    for (const Node each : bench_.mac.accelerators()) bench_.mac.registry.remove(each);
    bench_.mac.addAccelerator();
    auto& processors = bench_.mac.processors;
    processors.setProcessorCount(processors.shape().cores.size());
    for (std::size_t core = 0; core < processors.shape().cores.size(); ++core)
        processors.setOnline(core, true);
    bench_.mac.setThermalState(0);
    bench_.mac.thermals.setAmbientC(24.0);
    bench_.mac.setBattery({});
    bench_.mac.setPower(SimulatedPower::mains);
    bench_.mac.setLowPowerMode(false);
    bench_.mac.live(1);
    change([](auto& p) {
        p = DisplayPreferences::defaults();
        p.hasCompletedFirstRunLanguage = true;
    });
    if (isDashboardShown_) dashboardToggles();
    if (!surfaces_.popover->isShown()) popoverToggles();
    bench_.advance(seconds(30));
    popoverToggles();
    // Not at a pass, after which the strip may wait for a moment.
    bench_.advance(seconds(120.5));
    auto& c = coordinator();
    for (auto* history : {&c.cpuHistory, &c.pCoreHistory, &c.eCoreHistory, &c.gpuHistory,
                          &c.memoryHistory, &c.diskReadHistory, &c.diskWriteHistory, &c.aneHistory})
        *history = HistorySeries();
    c.memoryPressure.events = {};
    tidyUp();
}

bool EventfulMachine::isReadAnew() {
    popoverToggles();
    bench_.advance(seconds(10));
    const MetricsCoordinator& c = coordinator();
    const Date due = bench_.clock.now() - std::chrono::seconds(3);
    const auto isNew = [due](const auto& reading) { return reading && reading->timestamp >= due; };
    const bool all = isNew(*c.cpu.latest) && isNew(*c.gpu.latest) && isNew(*c.memory.latest) &&
                     isNew(*c.temperature.latest) && (*c.temperature.latest)->cpuMaxC &&
                     isNew(*c.battery.latest) && isNew(*c.diskIO.latest) &&
                     isNew(*c.network.latest) && c.thermal.latest->timestamp >= due &&
                     c.fan.latest->timestamp >= due && !c.fan.latest->fans.empty();
    popoverToggles();
    bench_.settle();
    return all;
}

}  // namespace vtx
