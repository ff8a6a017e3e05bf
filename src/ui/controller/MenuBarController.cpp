// SPDX-License-Identifier: MIT
#include "ui/controller/MenuBarController.h"

#include <algorithm>
#include <cmath>

#include "base/Log.h"
#include "platform/ProcessInfo.h"
#include "ui/models/Formatters.h"

namespace vtx {
namespace {

constexpr Logger logger{"MenuBarController"};
constexpr double leastStripWidth = 24.0;
constexpr Duration stripSizeInterval = std::chrono::milliseconds(80);

}  // namespace

MenuBarController::MenuBarController(const Ports& ports, const Executors& executors,
                                     SurfaceFactory& surfaces)
    : ports_(ports),
      main_(executors.main),
      surfaces_(surfaces),
      languagePickerWindow_(surfaces.makeLanguagePicker()),
      coordinator_(std::make_unique<Services>(ports, executors), ports, executors),
      dashboardWindow_(surfaces.makeDashboard(coordinator_)),
      miniWidgetWindow_(surfaces.makeMiniWidget(coordinator_)),
      statusItem_(surfaces.makeStatusItem(coordinator_)),
      popover_(surfaces.makePopover(coordinator_, *statusItem_,
                                    [this](PopoverSection section) { detach(section); })),
      tasks_(executors.main) {
    dashboardWindow_->onVisibilityChange = [this](bool visible) {
        dashboardVisibilityChanged(visible);
    };
    configureStatusItem();
    chooseMode(isDashboardVisible_);
    coordinator_.start();
    observePreferences();
    observePopover();
    observePowerSource();
    presentLanguagePickerIfNeeded();
    logger.info("MenuBarController initialized");
}

MenuBarController::~MenuBarController() {
    // What a surface tells while it goes would reach members that are gone.
    dashboardWindow_->onVisibilityChange = nullptr;
    popover_->onShow = popover_->onClose = nullptr;
    statusItem_->onClick = nullptr;
    statusItem_->onIntrinsicWidthChange = nullptr;
}

void MenuBarController::configureStatusItem() {
    if (!statusItem_->hasButton()) {
        logger.error("NSStatusItem.button was nil — cannot configure status item");
        return;
    }
    statusItem_->onClick = [this](ButtonEvent event) { handleStatusItemClick(event); };
    recalculateStripSize();
    observeStripSizeSignals();
}

void MenuBarController::chooseMode(bool isSurfaceOpen) {
    if (isSurfaceOpen)
        coordinator_.setPollingMode(PollingMode::active);
    else
        coordinator_.setPollingMode(MetricsCoordinator::isOnBattery(ports_)
                                        ? PollingMode::batterySaver
                                        : PollingMode::background);
}

void MenuBarController::observePreferences() {
    const auto isEnabled = [](const DisplayPreferences& preferences) {
        return preferences.miniWidgetEnabled;
    };
    const auto changes = removeDuplicates(map(coordinator_.preferences.stream(), isEnabled));
    preferences_ = changes([this](bool enabled) { updateMiniWidgetVisibility(enabled); });
}

void MenuBarController::updateMiniWidgetVisibility(bool enabled) {
    if (enabled)
        miniWidgetWindow_->show();
    else
        miniWidgetWindow_->close();
}

void MenuBarController::presentLanguagePickerIfNeeded() {
    const DisplayPreferences& preferences = *coordinator_.preferences;
    if (preferences.hasCompletedFirstRunLanguage) return;
    languagePickerWindow_->present(languageFromStoredCode(preferences.languageCode),
                                   [this](Language chosen) { completeFirstRun(chosen); });
}

void MenuBarController::completeFirstRun(Language chosen) {
    coordinator_.preferences.modify(
        [chosen](DisplayPreferences& changed) { changed.languageCode = rawValue(chosen); });
    coordinator_.preferences.modify(
        [](DisplayPreferences& changed) { changed.hasCompletedFirstRunLanguage = true; });
}

void MenuBarController::observePopover() {
    popover_->onShow = [this] { coordinator_.setPollingMode(PollingMode::active); };
    popover_->onClose = [this] {
        chooseMode(isDashboardVisible_);
        if (deferredStripWidth_) recalculateStripSize();
    };
}

void MenuBarController::observePowerSource() {
    powerObserver_ = ports_.processInfo.onPowerStateDidChange([this] {
        if (!popover_->isShown()) chooseMode(isDashboardVisible_);
    });
}

void MenuBarController::dashboardVisibilityChanged(bool visible) {
    isDashboardVisible_ = visible;
    chooseMode(popover_->isShown() || visible);
}

void MenuBarController::recalculateStripSize() {
    if (!statusItem_->hasButton()) return;
    const double width = std::max(std::ceil(statusItem_->intrinsicContentWidth()), leastStripWidth);
    if (popover_->isShown()) {
        deferredStripWidth_ = width;
        return;
    }
    deferredStripWidth_.reset();
    statusItem_->setLength(width);
}

void MenuBarController::observeStripSizeSignals() {
    const auto cpuLabel = [](const std::optional<CPUStats>& reading) {
        return compactPercent(reading ? std::optional(reading->totalUsage) : std::nullopt);
    };
    const auto gpuLabel = [](const std::optional<GPUStats>& reading) {
        return compactPercent(reading ? std::optional(reading->deviceUtilization) : std::nullopt);
    };
    const auto memoryLabel = [](const std::optional<MemoryStats>& reading) {
        return compactPercent(reading ? std::optional(reading->usedFraction()) : std::nullopt);
    };
    const auto temperatureLabel = [](const std::optional<TemperatureReading>& reading) {
        return formatTemp(reading ? reading->cpuMaxC : std::nullopt);
    };
    const auto fanLabel = [](const FanStats& reading) { return reading.maxRPM(); };
    const auto diskLabel = [](const std::optional<DiskIOReading>& reading) {
        if (!reading) return std::string(emptyMark);
        return throughputLabel(reading->bytesReadPerSecond, reading->bytesWrittenPerSecond);
    };
    const auto changed = [](const auto&) { return Changed{}; };
    // Whatever else makes the strip wider or narrower, the strip says itself.
    const auto signals = merge<Changed>({
        map(coordinator_.preferences.stream(), changed),
        map(removeDuplicates(map(coordinator_.cpu.latest.stream(), cpuLabel)), changed),
        map(removeDuplicates(map(coordinator_.gpu.latest.stream(), gpuLabel)), changed),
        map(removeDuplicates(map(coordinator_.memory.latest.stream(), memoryLabel)), changed),
        map(removeDuplicates(map(coordinator_.temperature.latest.stream(), temperatureLabel)),
            changed),
        map(removeDuplicates(map(coordinator_.fan.latest.stream(), fanLabel)), changed),
        map(removeDuplicates(map(coordinator_.diskIO.latest.stream(), diskLabel)), changed),
        [this](std::function<void(const Changed&)> next) {
            statusItem_->onIntrinsicWidthChange = [next = std::move(next)] { next(Changed{}); };
            return Subscription([this] { statusItem_->onIntrinsicWidthChange = nullptr; });
        },
    });
    const auto throttled = throttleLatest(signals, stripSizeInterval, ports_.clock, main_);
    stripSize_ = throttled([this](const Changed&) { recalculateStripSize(); });
}

void MenuBarController::handleStatusItemClick(ButtonEvent event) {
    if (event == ButtonEvent::leftMouseUp)
        togglePopover();
    else
        showContextMenu();
}

void MenuBarController::togglePopover() {
    if (popover_->isShown()) {
        popover_->close();
        return;
    }
    showPopover();
}

void MenuBarController::showPopover() {
    surfaces_.activate();
    popover_->show();
    logger.debug("Popover opened");
}

void MenuBarController::closePopoverIfShown() {
    if (popover_->isShown()) popover_->close();
}

void MenuBarController::detach(PopoverSection section) {
    dashboardWindow_->show(section);
    closePopoverIfShown();
}

void MenuBarController::showContextMenu() {
    const bool isWidgetShown = coordinator_.preferences->miniWidgetEnabled;
    statusItem_->popUpMenu({
        {"About Vantrix", "", [this] { showAbout(); }},
        {},
        {"Settings…", ",", [this] { openSettings(); }},
        {"Open Dashboard", "", [this] { openDashboardWindow(); }},
        {},
        {"Refresh Now", "r", [this] { refreshNow(); }},
        {isWidgetShown ? "Hide Mini Widget" : "Show Mini Widget", "",
         [this] { toggleMiniWidget(); }},
        {},
        {"Quit Vantrix", "q", [this] { quit(); }},
    });
}

void MenuBarController::showAbout() {
    surfaces_.activate();
    surfaces_.showAboutPanel();
}

void MenuBarController::openSettings() {
    if (statusItem_->hasButton()) togglePopover();
}

void MenuBarController::openDashboardWindow() {
    dashboardWindow_->show(PopoverSection::overview);
    closePopoverIfShown();
}

void MenuBarController::refreshNow() {
    tasks_.spawn([this](std::stop_token) { return refreshEverything(); });
}

// The processes too, whatever their own pace.
Task<> MenuBarController::refreshEverything() {
    co_await coordinator_.refreshAll();
    co_await coordinator_.processes.refresh();
}

void MenuBarController::toggleMiniWidget() {
    coordinator_.preferences.modify([](DisplayPreferences& changed) {
        changed.miniWidgetEnabled = !changed.miniWidgetEnabled;
    });
}

void MenuBarController::quit() {
    logger.info("User requested quit via context menu");
    miniWidgetWindow_->close();
    coordinator_.stop();
    powerObserver_.cancel();
    surfaces_.terminate();
}

}  // namespace vtx
