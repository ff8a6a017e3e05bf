// SPDX-License-Identifier: MIT
#include "pass/ChipEngines.h"

#include <algorithm>
#include <stdexcept>

#include "platform/IORegistry.h"
#include "platform/linux/CpuFreq.h"
#include "platform/linux/GraphicsDevice.h"
#include "platform/linux/IntelLoad.h"
#include "platform/linux/LinuxProcessors.h"
#include "platform/linux/PolicyClock.h"
#include "telemetry/CPUClockMonitorEngine.h"
#include "telemetry/GPUMonitorEngine.h"

namespace vtx::bench {
namespace {

constexpr std::size_t readAtOnce = 4096;

LinuxPlatform::Options optionsFor(const LinuxRoot& root, const std::filesystem::path& settings) {
    LinuxPlatform::Options options;
    options.root = root.path("/");
    options.configFolder = settings;
    return options;
}

const char* fileOf(ClockSource source) {
    switch (source) {
        case ClockSource::timeInState:
            return "/stats/time_in_state";
        case ClockSource::averageClock:
            return "/cpuinfo_avg_freq";
        case ClockSource::currentClock:
            break;
    }
    return "/scaling_cur_freq";
}

/// The files of the load of a device whose driver has any.
std::vector<std::string> loadFilesOf(const LinuxRoot& root, const std::string& address) {
    const auto folder = GraphicsDevice::folderOf(address);
    if (root.exists(folder + "/gpu_busy_percent")) return {folder + "/gpu_busy_percent"};
    for (const auto& card : root.list(folder + "/drm")) {
        if (!card.starts_with("card")) continue;
        return IntelLoad::countersOf(root, "/sys/class/drm/" + card, folder);
    }
    return {};
}

}  // namespace

std::unique_ptr<ChipEngine> ChipEngine::clocks(PollRunLoop& loop) {
    for (const auto* machine : {"", "arm-big-little-board-6.6"}) {
        std::unique_ptr<ChipEngine> engine(new ChipEngine(loop, machine));
        if (engine->findClocks()) return engine;
    }
    throw std::runtime_error("no machine has clocks");
}

std::unique_ptr<ChipEngine> ChipEngine::graphics(PollRunLoop& loop) {
    for (const auto* machine : {"", "intel-nvidia-laptop-6.8"}) {
        std::unique_ptr<ChipEngine> engine(new ChipEngine(loop, machine));
        if (engine->findGraphics()) return engine;
    }
    throw std::runtime_error("no machine has graphics");
}

ChipEngine::ChipEngine(PollRunLoop& loop, const std::string& recorded)
    : recorded_(recorded),
      copy_(recorded.empty() ? std::nullopt
                             : std::optional<RecordedMachine>(std::in_place, recorded)),
      root_(copy_ ? copy_->root() : "/"),
      platform_(loop, loop.executor(), optionsFor(root_, settings_.path())) {}

void ChipEngine::goOn() const {
    if (copy_) copy_->goOn();
}

bool ChipEngine::read() {
    return std::ranges::all_of(files_,
                               [](KeptFile& file) { return file.read(readAtOnce).has_value(); });
}

void ChipEngine::addFile(const std::string& absolute) { files_.emplace_back(root_.path(absolute)); }

bool ChipEngine::findClocks() {
    const Ports ports = platform_.ports();
    const auto layout = CoreLayout::detect(ports.sysctl, ports.ioRegistry);
    auto bridge = IOReportBridge::load(ports.ioReport, ports.clock);
    auto subscription = bridge ? bridge->makeCPUFrequencySubscription() : std::nullopt;
    if (!layout || !subscription) return false;
    auto engine = std::make_shared<CPUClockMonitorEngine>(std::move(bridge),
                                                          std::move(*subscription), *layout);
    step_ = [engine] { return engine->nextSample().has_value(); };
    addFile("/proc/stat");
    const LinuxProcessors processors(root_);
    const CpuFreq cpuFreq(root_, processors);
    for (const auto& policy : cpuFreq.policies()) {
        if (const auto source = clockSourceOf(root_, policy.folder))
            addFile(policy.folder + fileOf(*source));
    }
    return true;
}

bool ChipEngine::findGraphics() {
    const Ports ports = platform_.ports();
    const auto entry = ports.ioRegistry.getMatchingService({"IOAccelerator"});
    const auto address = ports.ioRegistry.entryProperty(entry, "PCI Address").text();
    if (!address) return false;
    for (const auto& file : loadFilesOf(root_, std::string(*address))) addFile(file);
    if (files_.empty()) return false;
    addFile(GraphicsDevice::folderOf(*address) + "/power/runtime_status");
    auto engine = std::make_shared<GPUMonitorEngine>(ports.ioRegistry, ports.clock);
    step_ = [engine] { return engine->sample().has_value(); };
    return true;
}

}  // namespace vtx::bench
