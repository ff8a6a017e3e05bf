// SPDX-License-Identifier: MIT
#include "pictures/MiniWidgetPictures.h"

#include "pictures/PictureStage.h"
#include "ui/shell/FloatingWindow.h"
#include "ui/shell/WindowSystem.h"
#include "ui/surfaces/MiniWidgetView.h"

namespace vtx::miniWidgetPictures {
namespace {

/// In its window, which paints the ground.
Made widgetOver(PictureStage& stage) {
    static WindowSystem system;
    auto window = std::make_unique<FloatingWindow>(system);
    window->setContent(new MiniWidgetView(stage.coordinator()));
    return window;
}

Made widgetOf(PictureStage& stage, const SampleReadings& readings, double pLoad, double eLoad) {
    stage.publish(readings);
    CPUStats stats = stage.coordinator().cpu.latest->value_or(CPUStats{});
    stats.pCoreUsage = pLoad;
    stats.eCoreUsage = eLoad;
    stats.layout.pCoreCount = stats.layout.eCoreCount = 4;
    stats.timestamp =
        Date{std::chrono::hours(14) + std::chrono::minutes(32) + std::chrono::seconds(7)};
    stage.coordinator().cpu.latest = stats;
    return widgetOver(stage);
}

}  // namespace

Made beforeReadings(PictureStage& stage) { return widgetOver(stage); }

Made usual(PictureStage& stage) {
    return widgetOf(stage, {.cpu = 0.23, .gpu = 0.42, .cpuCelsius = 63, .memory = 0.67}, 0.31,
                    0.09);
}

Made widest(PictureStage& stage) {
    return widgetOf(stage, {.cpu = 1, .gpu = 1, .cpuCelsius = 105, .memory = 1}, 1, 1);
}

Made level(PictureStage& stage) {
    return widgetOf(
        stage, {.cpu = 0.01, .gpu = 0, .thermal = ThermalStats::Level::critical, .memory = 0.02}, 0,
        0.01);
}

}  // namespace vtx::miniWidgetPictures
