// SPDX-License-Identifier: MIT
#include "pictures/StripPictures.h"

#include <QPainter>
#include <QWidget>
#include <array>
#include <utility>

#include "pictures/PictureStage.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Theme.h"
#include "ui/models/TrayModel.h"
#include "ui/shell/StripSurface.h"
#include "ui/surfaces/StripSource.h"
#include "ui/surfaces/StripView.h"
#include "ui/surfaces/TrayPicture.h"

namespace vtx::stripPictures {
namespace {

constexpr double mib = 1048576.0;

SampleReadings usualReadings() {
    return {.cpu = 0.34,
            .gpu = 0.12,
            .cpuCelsius = 63.0,
            .memory = 0.58,
            .diskRead = 1.5 * mib,
            .diskWritten = 0.5 * mib,
            .fanRPM = 2150};
}

// Without a temperature, the level is the wider label.
SampleReadings widestReadings() {
    return {.cpu = 1.0,
            .gpu = 1.0,
            .thermal = ThermalStats::Level::critical,
            .memory = 1.0,
            .diskRead = 100 * mib,
            .diskWritten = 50 * mib,
            .fanRPM = 5000};
}

void showEveryTile(DisplayPreferences& preferences) {
    preferences.showGPU = preferences.showDiskIO = preferences.showFan = true;
}

Made strip(PictureStage& stage) {
    auto face = std::make_unique<StripSurface>(nullptr);
    auto view = std::make_unique<StripView>(stage.coordinator());
    face->resize(view->sizeHint());
    face->setContent(view.release());
    return face;
}

/// With the icons in the order of the tiles.
Made stripWithIcons(PictureStage& stage, const std::array<const char*, 6>& icons) {
    stage.change([&icons](DisplayPreferences& preferences) {
        showEveryTile(preferences);
        using P = DisplayPreferences;
        constexpr std::array fields{&P::iconCPU,    &P::iconGPU,  &P::iconThermal,
                                    &P::iconMemory, &P::iconDisk, &P::iconFan};
        for (std::size_t i = 0; i < icons.size(); ++i) preferences.*fields[i] = icons[i];
    });
    stage.publish(usualReadings());
    return strip(stage);
}

/// The icon as a tray shows it, on nothing.
class TrayIcon final : public QWidget {
public:
    explicit TrayIcon(TrayModel model) : model_(std::move(model)) {
        resize(picture(1.0).size());
        connect(&Theme::current(), &Theme::changed, this, [this] { update(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawImage(QPoint(), picture(paint::scaleOf(painter)));
    }

private:
    [[nodiscard]] QImage picture(qreal scale) const {
        return trayPicture(model_, Theme::current().appearance(), scale);
    }

    const TrayModel model_;
};

Made tray(PictureStage& stage) {
    const auto& preferences = *stage.coordinator().preferences;
    return std::make_unique<TrayIcon>(
        describeTray(stripReadingsOf(stage.coordinator()), preferences));
}

}  // namespace

Made beforeReadings(PictureStage& stage) {
    stage.change(showEveryTile);
    stage.publish({});
    return strip(stage);
}

Made usual(PictureStage& stage) {
    stage.change(showEveryTile);
    stage.publish(usualReadings());
    return strip(stage);
}

Made widest(PictureStage& stage) {
    stage.change(showEveryTile);
    stage.publish(widestReadings());
    return strip(stage);
}

Made compact(PictureStage& stage) {
    stage.change([](DisplayPreferences& preferences) { preferences.menuBarCompact = true; });
    stage.publish(usualReadings());
    stage.coordinator().criticalMetric = std::string("memory");
    return strip(stage);
}

Made symbolsAlone(PictureStage& stage) {
    stage.change([](DisplayPreferences& preferences) {
        showEveryTile(preferences);
        using P = DisplayPreferences;
        for (bool P::* live : {&P::menuBarLiveCPU, &P::menuBarLiveGPU, &P::menuBarLiveTemp,
                               &P::menuBarLiveMemory, &P::menuBarLiveDisk, &P::menuBarLiveFan})
            preferences.*live = false;
    });
    stage.publish(usualReadings());
    return strip(stage);
}

Made secondIcons(PictureStage& stage) {
    return stripWithIcons(stage, {"square.grid.3x3.fill", "cube.transparent.fill", "flame",
                                  "chart.pie.fill", "externaldrive", "fan.badge.automatic"});
}

Made thirdIcons(PictureStage& stage) {
    return stripWithIcons(stage, {"waveform.path.ecg", "display", "gauge.medium",
                                  "internaldrive.fill", "opticaldisc", "wind"});
}

Made trayUsual(PictureStage& stage) {
    stage.publish(usualReadings());
    return tray(stage);
}

Made trayWidest(PictureStage& stage) {
    stage.publish(widestReadings());
    stage.coordinator().criticalMetric = std::string("fan");
    return tray(stage);
}

Made trayLevel(PictureStage& stage) {
    stage.publish(widestReadings());
    stage.coordinator().criticalMetric = std::string("thermal");
    return tray(stage);
}

}  // namespace vtx::stripPictures
