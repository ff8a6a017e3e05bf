// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/CoordinatorBench.h"
#include "support/FakeSurfaces.h"
#include "support/PaceWatch.h"
#include "support/ReadingWatch.h"
#include "ui/controller/MenuBarController.h"

namespace vtx {

/// A portable machine to which everything happens that may, in an order that its seed decides, with
/// the whole program on it but for the toolkit: devices come, go and fail, counters wrap and begin
/// anew, it sleeps and wakes, its clock is set, it runs hot and short of memory, and its user opens
/// surfaces and changes settings. The same seed makes the same life.
class EventfulMachine {
public:
    explicit EventfulMachine(std::uint64_t seed);

    /// In so many steps each event happens, as often as it should beside the others.
    static constexpr std::size_t round = 84;

    /// One event, and the time until the next.
    void step();
    /// All is as at a first start, nothing fails, and nobody looks: for comparing what is held.
    void comeToRest();

    /// Of the event that was last.
    [[nodiscard]] std::string_view lastEvent() const { return lastEvent_; }
    [[nodiscard]] std::size_t steps() const { return steps_; }
    /// Simulated since the beginning, sleep included.
    [[nodiscard]] Duration lived() const { return bench_.clock.continuous() - begun_; }
    /// What was not as it may be; absent while all is well.
    [[nodiscard]] const std::optional<std::string>& complaint() const { return complaint_; }

    [[nodiscard]] std::size_t readings() const { return watch_->readings(); }
    [[nodiscard]] std::size_t alerts() const { return alerts_; }
    [[nodiscard]] OutstandingHandles::Counts handles() const {
        return bench_.platform.instruments.handles.all();
    }
    [[nodiscard]] std::size_t timers() const { return bench_.clock.pending().size(); }
    /// How far off each is and its tolerance, in seconds.
    [[nodiscard]] std::string timersInWords() const;
    /// Of which the names are kept for good.
    [[nodiscard]] std::size_t drivesEver() const { return drivesEver_; }
    /// Whether every reading is from within the last seconds.
    [[nodiscard]] bool isReadAnew();

private:
    struct Event;
    using Node = SimulatedRegistry::Node;

    [[nodiscard]] MetricsCoordinator& coordinator() { return controller_->coordinator(); }

    // What may happen.
    void driveComes();
    void driveGoes();
    void driveCounts();
    void driveBeginsAnew();
    void interfaceComes();
    void interfaceGoes();
    void interfaceTurns();
    void interfaceWraps();
    void batteryChanges();
    void powerChanges();
    void sensorLies();
    void sensorRecovers();
    void callFails();
    void callsHeal();
    void machineSleeps();
    void clockIsSet();
    void pressureChanges();
    void heatChanges();
    void loadChanges();
    void coresChange();
    void ticksWrap();
    void graphicsChange();
    void memoryChanges();
    void processComes();
    void processGoes();
    void popoverToggles();
    void dashboardToggles();
    void widgetToggles();
    void refreshIsWanted();
    void historyIsExported();
    void settingsChange();
    void presetIsChosen();
    void storeFails();
    void notificationsFail();

    void change(const std::function<void(DisplayPreferences&)>& edit);
    void moveWallClock(Duration by);
    void letTimePass();
    void lookAround();
    void tidyUp();
    void complain(std::string_view what);

    [[nodiscard]] std::uint64_t upTo(std::uint64_t most) { return random_() % (most + 1); }
    [[nodiscard]] bool oneIn(std::uint64_t count) { return upTo(count - 1) == 0; }
    /// From 0.0 to 1.0.
    [[nodiscard]] double part();
    template <class Values>
    [[nodiscard]] const auto& oneOf(const Values& values) {
        return values[upTo(std::size(values) - 1)];
    }

    AppBench bench_{MacShape::laptop(), {}};
    std::mt19937_64 random_;
    FakeSurfaces surfaces_;
    std::optional<MenuBarController> controller_;
    std::optional<ReadingWatch> watch_;
    std::optional<PaceWatch> pace_;
    const Instant begun_;

    std::vector<const Event*> deck_;  ///< what is still to happen in this round
    std::vector<Node> drives_;        ///< beside the first
    std::vector<std::string> interfaces_;
    std::vector<std::int32_t> processes_;
    std::map<std::string, SimulatedSMCKey> truth_;  ///< of the sensors that do not tell it
    std::int32_t nextPid_ = 20'000;
    bool isDashboardShown_ = false;

    std::size_t steps_ = 0;
    std::string_view lastEvent_ = "the start";
    std::size_t alerts_ = 0;
    std::size_t drivesEver_ = 1;
    std::optional<std::string> complaint_;
};

}  // namespace vtx
