// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedThermals.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/Fault.h"
#include "platform/simulated/SimulatedProcessors.h"

namespace vtx {
namespace {

// Degrees over the room that an idle chip has, and that a fully loaded one has more.
constexpr double idleRiseC = 14.0;
constexpr double loadedRiseC = 36.0;
constexpr double coreRiseC = 7.0;
constexpr double batteryIdleRiseC = 6.0;
constexpr double batteryShare = 0.1;

// Seconds after which two thirds of a change have come about.
constexpr double packageInertia = 8.0;
constexpr double coreInertia = 1.5;
constexpr double batteryInertia = 300.0;
constexpr double fanInertia = 2.5;

// Between these the fans go from their lowest speed to their highest.
constexpr double fansRiseFromC = 50.0;
constexpr double fansFullAtC = 85.0;

constexpr double longestStep = 0.25;  // seconds
constexpr double mostSteps = 400.0;

void approach(double& value, double target, double seconds, double inertia) {
    value = target + (value - target) * std::exp(-seconds / inertia);
}

}  // namespace

SimulatedThermals::SimulatedThermals(const Clock& clock, SimulatedProcessors& processors)
    : clock_(clock),
      processors_(processors),
      packageRiseC_(idleRiseC),
      coreRisesC_(processors.shape().cores.size(), 0.0),
      batteryRiseC_(batteryIdleRiseC),
      busySoFar_(processors.busyNanoseconds()),
      warmedUntil_(clock.continuous()) {
    for (std::size_t index = 0; index < processors.shape().fanCount; ++index) {
        const double minRPM = 1300.0 + 50.0 * static_cast<double>(index);
        fans_.push_back({minRPM, minRPM + 4500.0, minRPM, minRPM});
    }
}

double SimulatedThermals::coreC(std::size_t core) {
    const std::lock_guard lock(mutex_);
    catchUp();
    if (core >= coreRisesC_.size())
        programmingFault(fmt::format("the machine has no core {}", core));
    return ambientC_ + packageRiseC_ + coreRisesC_[core];
}

double SimulatedThermals::packageC() {
    const std::lock_guard lock(mutex_);
    catchUp();
    return ambientC_ + packageRiseC_;
}

double SimulatedThermals::batteryC() {
    const std::lock_guard lock(mutex_);
    catchUp();
    return ambientC_ + batteryRiseC_;
}

void SimulatedThermals::setAmbientC(double celsius) {
    const std::lock_guard lock(mutex_);
    catchUp();
    ambientC_ = celsius;
}

SimulatedFan SimulatedThermals::fan(std::size_t index) {
    const std::lock_guard lock(mutex_);
    catchUp();
    if (index >= fans_.size()) programmingFault(fmt::format("the machine has no fan {}", index));
    return fans_[index];
}

void SimulatedThermals::catchUp() {
    const Instant now = clock_.continuous();
    if (now <= warmedUntil_) return;
    const double span = toSeconds(now - warmedUntil_);
    warmedUntil_ = now;
    const auto busy = processors_.busyNanoseconds();
    std::vector<double> loads;
    for (std::size_t core = 0; core < busy.size(); ++core)
        loads.push_back(static_cast<double>(busy[core] - busySoFar_[core]) / (span * 1e9));
    busySoFar_ = busy;
    const double steps = std::clamp(std::ceil(span / longestStep), 1.0, mostSteps);
    for (int i = 0; i < static_cast<int>(steps); ++i) step(span / steps, loads);
}

void SimulatedThermals::step(double seconds, const std::vector<double>& loads) {
    const auto cores = static_cast<double>(std::max<std::size_t>(loads.size(), 1));
    const double mean = std::accumulate(loads.begin(), loads.end(), 0.0) / cores;
    approach(packageRiseC_, idleRiseC + loadedRiseC * mean, seconds, packageInertia);
    for (std::size_t core = 0; core < loads.size(); ++core)
        approach(coreRisesC_[core], coreRiseC * loads[core], seconds, coreInertia);
    approach(batteryRiseC_, batteryIdleRiseC + batteryShare * (packageRiseC_ - idleRiseC), seconds,
             batteryInertia);
    spinFans(seconds);
}

void SimulatedThermals::spinFans(double seconds) {
    const double warmth =
        (ambientC_ + packageRiseC_ - fansRiseFromC) / (fansFullAtC - fansRiseFromC);
    for (SimulatedFan& fan : fans_) {
        fan.targetRPM = std::lerp(fan.minRPM, fan.maxRPM, std::clamp(warmth, 0.0, 1.0));
        approach(fan.currentRPM, fan.targetRPM, seconds, fanInertia);
    }
}

}  // namespace vtx
