// SPDX-License-Identifier: MIT
#include "support/EventfulMachine.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <ranges>

#include "platform/shapes/SMCValue.h"
#include "platform/simulated/Operations.h"
#include "smc/IOHIDBridge.h"

namespace vtx {
namespace {

/// Calls that fail while the program runs, each with whatever the kernel may say. One without power
/// sources is left out: a platform has an answer to that, or the program ends.
constexpr std::array failing{
    operations::hostProcessorInfo,
    operations::hostProcessorInfoNull,
    operations::hostProcessorInfoFewEntries,
    operations::hostProcessorInfoSurplusEntries,
    operations::hostProcessorInfoZeroProcessors,
    operations::hostStatistics64,
    operations::getifaddrs,
    operations::getifaddrsNull,
    operations::getifaddrsNoAddress,
    operations::getnameinfo,
    operations::powerSourcesType,
    operations::powerSourcesList,
    operations::powerSourcesDescription,
    operations::kernProcAllSize,
    operations::kernProcAllFill,
    operations::kernProcAllShort,
    operations::procPidRusage,
    operations::getMatchingServices,
    operations::getMatchingServicesNull,
    operations::getMatchingService,
    operations::iteratorNext,
    operations::getChildIterator,
    operations::getParentEntry,
    operations::getRegistryEntryID,
    operations::createCFProperties,
    operations::createCFPropertiesNull,
    operations::createCFProperty,
    operations::ioReportCreateSamples,
    operations::ioReportCreateSamplesDelta,
    operations::ioReportCreateSamplesDeltaNoList,
    operations::serviceOpen,
    operations::connectCallStructMethod,
    operations::connectCallStructMethodOutputSize,
    operations::hidClientCopyServices,
    operations::hidCopyEvent,
    operations::hidCopyProperty,
    operations::addNotificationRequest,
};
constexpr std::array lyingKeys{"Tp01", "Tp05", "Te05", "TCMz", "B0AT", "F0Ac",
                               "F1Ac", "F0Mx", "F0Mn", "FNum", "Tf04"};
constexpr std::array absurdities{0.0F,
                                 -0.0F,
                                 -128.0F,
                                 127.5F,
                                 1e9F,
                                 -1e9F,
                                 std::numeric_limits<float>::infinity(),
                                 std::numeric_limits<float>::quiet_NaN()};
constexpr std::size_t mostDrives = 6;
constexpr std::size_t mostProcesses = 40;
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
    watch_.emplace(coordinator());
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
    letTimePass();
    lookAround();
    tidyUp();
}

void EventfulMachine::driveComes() {
    if (drives_.size() >= mostDrives) return driveGoes();
    SimulatedDisks::Description description;
    if (!oneIn(4)) description.product = fmt::format(" DRIVE {} ", upTo(9));
    if (!oneIn(4)) description.bsdName = fmt::format("disk{}", 1 + upTo(3));
    const Node drive = bench_.mac.disks.attach(description);
    // Some have counted for long: the next bytes begin their counters anew.
    if (oneIn(3)) bench_.mac.disks.setCounters(drive, {~0ULL - 4096, ~0ULL - 1, ~0ULL, ~0ULL - 9});
    drives_.push_back(drive);
    ++drivesEver_;
}

void EventfulMachine::driveGoes() {
    if (drives_.empty()) return;
    const auto gone = drives_.begin() + static_cast<std::ptrdiff_t>(upTo(drives_.size() - 1));
    bench_.mac.disks.detach(*gone);
    drives_.erase(gone);
}

void EventfulMachine::driveCounts() {
    for (const Node drive : drives_)
        bench_.mac.disks.add(drive, {upTo(1 << 20), upTo(1 << 20), upTo(100), upTo(100)});
}

void EventfulMachine::driveBeginsAnew() {
    if (drives_.empty()) return;
    bench_.mac.disks.setCounters(oneOf(drives_), {});
}

void EventfulMachine::interfaceComes() {
    auto& all = bench_.mac.network.interfaces;
    if (interfaces_.size() >= mostDrives) return interfaceGoes();
    auto& made = all.emplace_back();
    made.name = fmt::format("en{}", 20 + steps_);
    made.mac = std::array<std::uint8_t, 6>{2, 0, 0, 0, 0, static_cast<std::uint8_t>(steps_)};
    if (!oneIn(3)) made.addresses = {"192.0.2.99", "2001:db8::99"};
    if (oneIn(3)) made.bytesIn = made.bytesOut = 0xffff'ff00U;
    made.hasCounters = !oneIn(5);
    made.hasLink = !oneIn(6);
    interfaces_.push_back(made.name);
}

void EventfulMachine::interfaceGoes() {
    if (interfaces_.empty()) return;
    const auto at = interfaces_.begin() + static_cast<std::ptrdiff_t>(upTo(interfaces_.size() - 1));
    bench_.mac.network.remove(*at);
    interfaces_.erase(at);
}

void EventfulMachine::interfaceTurns() {
    auto& one = bench_.mac.network.at(oneIn(2) || interfaces_.empty() ? "en0" : oneOf(interfaces_));
    one.flags ^= interfaceIsUp;
    if (oneIn(3)) one.flags ^= interfaceIsRunning;
}

void EventfulMachine::interfaceWraps() {
    bench_.mac.network.width = oneIn(2) ? CounterWidth::bits32 : CounterWidth::bits64;
    bench_.mac.network.add("en0", 0xffff'0000U, 0xffff'0000U);
}

void EventfulMachine::batteryChanges() {
    const auto perhaps = [this](std::int64_t least, std::int64_t most) {
        const auto value =
            least + static_cast<std::int64_t>(upTo(static_cast<std::uint64_t>(most - least)));
        return oneIn(5) ? std::nullopt : std::optional(value);
    };
    BatteryFigures figures;
    figures.currentCapacity = perhaps(0, 110);
    figures.maxCapacity = oneIn(8) ? std::optional<std::int64_t>(0) : perhaps(100, 100);
    figures.isCharging = oneIn(5) ? std::nullopt : std::optional(oneIn(2));
    figures.minutesToFull = perhaps(-1, 300);
    figures.minutesToEmpty = perhaps(-1, 900);
    figures.rawCurrentCapacity = perhaps(0, 1200);
    figures.rawMaxCapacity = perhaps(1000, 5200);
    figures.designCapacity = perhaps(0, 5200);
    figures.voltage = perhaps(0, 20'000);
    figures.amperage = perhaps(-9000, 9000);
    figures.cycleCount = perhaps(0, 3000);
    figures.temperature = perhaps(-1000, 6000);
    bench_.mac.setBattery(figures);
}

void EventfulMachine::powerChanges() {
    constexpr std::array all{SimulatedPower::mains, SimulatedPower::battery,
                             SimulatedPower::uninterruptible, SimulatedPower::unknown};
    bench_.mac.setPower(oneOf(all));
    bench_.mac.setLowPowerMode(oneIn(2));
}

void EventfulMachine::sensorLies() {
    const std::string key = oneOf(lyingKeys);
    auto& smc = bench_.mac.smc;
    if (!truth_.contains(key)) truth_.emplace(key, smc.key(key));
    if (oneIn(5)) {
        if (smc.has(key)) smc.remove(key);
        return;
    }
    SimulatedSMCKey lie = truth_.at(key);
    switch (upTo(3)) {
        case 0:
            lie.failsEvery = 1 + upTo(3);
            break;
        case 1:
            lie.claimedSize = static_cast<std::uint32_t>(upTo(64));
            break;
        case 2:
            lie.hidesInformation = true;
            break;
        default:
            lie.source = nullptr;
            lie.value = encodeSMCFloat(oneOf(absurdities));
    }
    smc.add(key, std::move(lie));
}

void EventfulMachine::sensorRecovers() {
    for (auto& [key, value] : truth_) bench_.mac.smc.add(key, std::move(value));
    truth_.clear();
}

void EventfulMachine::callFails() {
    const auto operation = oneOf(failing);
    const int result = oneIn(2) ? Failures::usualResult : static_cast<int>(upTo(200));
    if (oneIn(4)) return bench_.failures.failAlways(operation, result);
    bench_.failures.failNext(operation, 1 + upTo(20), result);
}

void EventfulMachine::callsHeal() { bench_.failures.healAll(); }

void EventfulMachine::machineSleeps() {
    constexpr std::uint64_t longestMinutes = 600;
    bench_.mac.sleep();
    bench_.settle();
    if (*coordinator().pollingMode != PollingMode::suspended) complain("it polls while it sleeps");
    const std::size_t before = watch_->readings();
    // Awake for a moment, as machines are in between, and nothing is to be done.
    const bool isHot = oneIn(2);
    if (!isHot) bench_.advance(seconds(20));
    if (watch_->readings() != before) complain("it reads while it sleeps");
    bench_.clock.sleepMachine(std::chrono::minutes(1 + upTo(longestMinutes)));
    bench_.mac.wake();
    bench_.settle();
}

void EventfulMachine::pressureChanges() {
    bench_.mac.memory.setPressure(static_cast<std::uint32_t>(upTo(8)));
}

void EventfulMachine::heatChanges() {
    bench_.mac.thermals.setAmbientC(-10.0 + 60.0 * part());
    bench_.mac.setThermalState(static_cast<std::int64_t>(upTo(6)) - 1);
}

void EventfulMachine::loadChanges() {
    auto& processors = bench_.mac.processors;
    switch (upTo(3)) {
        case 0:
            bench_.mac.live(random_());
            break;
        case 1:
            processors.setLoadOfAll({.user = 1.0});
            break;
        case 2:
            processors.setLoadOfAll({});
            break;
        default:
            processors.setLoad(upTo(processors.shape().cores.size() - 1),
                               {.user = part(), .system = part(), .nice = part()});
    }
}

void EventfulMachine::coresChange() {
    auto& processors = bench_.mac.processors;
    const std::size_t all = processors.shape().cores.size();
    if (oneIn(2)) return processors.setOnline(upTo(all - 1), oneIn(2));
    processors.setProcessorCount(oneIn(2) ? all : 1 + upTo(all - 1));
}

void EventfulMachine::ticksWrap() {
    constexpr std::uint32_t near = 0xffff'ff00U;
    bench_.mac.processors.setTicks({near, near, near, near});
}

void EventfulMachine::graphicsChange() {
    auto& registry = bench_.mac.registry;
    const auto there = bench_.mac.accelerators();
    switch (upTo(3)) {
        case 0:
            for (const Node each : there) registry.remove(each);
            break;
        case 1:
            if (there.size() < 3) bench_.mac.addAccelerator();
            break;
        case 2:
            if (there.empty()) break;
            registry.set(there.front(), "PerformanceStatistics",
                         PropertyMap{{"Device Utilization %", std::int64_t{250} - 500 * oneIn(2)},
                                     {"Tiler Utilization %", std::nan("")},
                                     {"Renderer Utilization %", std::string("much")}});
            break;
        default:
            bench_.mac.graphics.setLoad({part(), part(), part()});
    }
}

void EventfulMachine::memoryChanges() {
    if (oneIn(2)) return bench_.mac.memory.live(random_());
    const auto all = SimulatedMemory::totalBytes / SimulatedMemory::pageSize;
    VMPageCounts pages;
    pages.active = upTo(all / 4);
    pages.wired = upTo(all / 4);
    pages.compressor = upTo(all / 4);
    pages.inactive = upTo(all / 8);
    pages.speculative = upTo(all / 16);
    pages.free = upTo(all / 16);
    bench_.mac.memory.setPages(pages);
    const std::uint64_t swap = upTo(std::uint64_t{1} << 36);
    bench_.mac.memory.setSwap(swap, upTo(swap));
}

void EventfulMachine::processComes() {
    if (processes_.size() >= mostProcesses) return processGoes();
    SimulatedProcess process;
    // A number may come again, as another process.
    const bool isNumberUsed = oneIn(3) && !processes_.empty();
    process.pid = isNumberUsed ? processes_.front() : nextPid_++;
    if (bench_.mac.processes.find(process.pid)) bench_.mac.processes.remove(process.pid);
    std::erase(processes_, process.pid);
    process.uid = oneIn(2) ? SimulatedProcesses::user : 0;
    process.name = oneIn(6) ? "\xff\xfe" : fmt::format("worker {}", process.pid);
    if (!oneIn(4)) process.path = fmt::format("/Applications/Worker {}.app/worker", process.pid);
    process.residentBytes = upTo(std::uint64_t{1} << 33);
    process.load = oneIn(3) ? part() : 0.0;
    // One that has run for ever begins anew; none does in the place of another.
    process.cpuNanoseconds = !isNumberUsed && oneIn(5) ? ~0ULL - 1000 : 0;
    process.startTime = oneIn(2) ? std::optional<ProcessStartTime>(steps_) : std::nullopt;
    process.refusesName = oneIn(8);
    process.refusesTaskInfo = oneIn(8);
    process.refusesRusage = oneIn(8);
    process.priorityError = oneIn(8) ? 3 : 0;
    processes_.push_back(process.pid);
    bench_.mac.processes.add(std::move(process));
}

void EventfulMachine::processGoes() {
    if (processes_.empty()) return;
    const std::int32_t pid = oneOf(processes_);
    bench_.mac.processes.remove(pid);
    std::erase(processes_, pid);
}

void EventfulMachine::popoverToggles() {
    controller_->handleStatusItemClick(ButtonEvent::leftMouseUp);
}

void EventfulMachine::dashboardToggles() {
    isDashboardShown_ = !isDashboardShown_;
    if (isDashboardShown_)
        controller_->openDashboardWindow();
    else
        surfaces_.dashboard->userCloses();
}

void EventfulMachine::widgetToggles() { controller_->toggleMiniWidget(); }

void EventfulMachine::refreshIsWanted() { controller_->refreshNow(); }

void EventfulMachine::historyIsExported() {
    constexpr auto commas = 8;
    const std::string text = coordinator().exportHistoryCSV();
    for (const auto line : std::views::split(text, '\n')) {
        const std::string_view row(line.begin(), line.end());
        if (!row.empty() && std::ranges::count(row, ',') != commas)
            complain("a row of the history");
        if (row.find("nan") != row.npos || row.find("inf") != row.npos)
            complain("a figure of the history");
    }
}

void EventfulMachine::change(const std::function<void(DisplayPreferences&)>& edit) {
    coordinator().preferences.modify(edit);
}

void EventfulMachine::settingsChange() {
    using P = DisplayPreferences;
    static constexpr std::array switches{
        &P::showCPU,          &P::showGPU,           &P::showThermal,
        &P::showMemory,       &P::showDiskIO,        &P::showFan,
        &P::showANE,          &P::menuBarLiveCPU,    &P::menuBarLiveGPU,
        &P::menuBarLiveTemp,  &P::menuBarLiveMemory, &P::menuBarLiveDisk,
        &P::menuBarLiveFan,   &P::menuBarCompact,    &P::autoRelieveOnPressure,
        &P::alertCPUEnabled,  &P::alertGPUEnabled,   &P::alertMemoryEnabled,
        &P::alertTempEnabled, &P::alertFanEnabled,   &P::alertPressureEnabled,
        &P::alertDiskEnabled, &P::alertANEEnabled,   &P::hogDetectorEnabled};
    change([this](P& p) {
        p.*oneOf(switches) ^= true;
        p.*oneOf(switches) ^= true;
        // A loop may also be asked for what no setting offers.
        if (oneIn(6)) p.refreshIntervalSeconds = oneIn(8) ? std::nan("") : 3.0 * part();
        if (oneIn(6)) p.alertCPUThreshold = p.alertMemoryThreshold = p.alertGPUThreshold = part();
        if (oneIn(6)) p.alertTempCelsius = 120.0 * part();
        if (oneIn(6)) p.hogMinDurationSeconds = 600.0 * part();
        if (oneIn(6)) p.hogCPUThreshold = part();
        if (oneIn(6)) p.languageCode = oneIn(3) ? "xx" : rawValue(oneOf(allLanguages));
        if (oneIn(6)) std::ranges::shuffle(p.compactPriority, random_);
        if (oneIn(12)) p.compactPriority.clear();
        if (oneIn(12)) p.compactPriority = P::defaults().compactPriority;
    });
}

void EventfulMachine::presetIsChosen() {
    const auto preset = oneOf(DisplayPreferences::allPresets);
    change([preset](auto& p) { p = p.applyingPreset(preset); });
}

void EventfulMachine::storeFails() {
    auto& store = bench_.platform.userDefaults;
    store.failsToStore = !store.failsToStore;
}

void EventfulMachine::notificationsFail() {
    auto& center = bench_.platform.userNotifications;
    if (oneIn(2))
        center.hold();
    else
        center.answer();
}

void EventfulMachine::letTimePass() {
    const std::uint64_t kind = upTo(9);
    const std::uint64_t longest = kind < 6 ? 60 : kind < 9 ? 600 : 2400;
    bench_.advance(seconds(0.001 + static_cast<double>(longest) * part()));
}

void EventfulMachine::lookAround() {
    watch_->lookAtTheRest();
    if (watch_->complaint()) complain(*watch_->complaint());
    if (timers() > mostTimers) complain(fmt::format("{} timers run", timers()));
    for (const auto& posted : bench_.platform.userNotifications.posted()) {
        ++alerts_;
        if (posted.title.empty() || posted.body.empty()) complain("an alert says nothing");
        if (posted.body.find("{") != std::string::npos ||
            posted.body.find("nan") != std::string::npos)
            complain(fmt::format("an alert says \"{}\"", posted.body));
    }
    for (const double length : surfaces_.item->lengths)
        if (!(length >= 24.0 && length < 10'000.0)) complain("the width of the strip");
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
    bench_.advance(seconds(120));
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
