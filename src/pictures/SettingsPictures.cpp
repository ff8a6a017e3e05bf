// SPDX-License-Identifier: MIT
#include "pictures/SettingsPictures.h"

#include <QVBoxLayout>

#include "pictures/PictureStage.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Surface.h"
#include "ui/surfaces/SettingsTab.h"

namespace vtx::settingsPictures {
namespace {

constexpr int wideWidth = 460;

/// Some of everything: on and off, thresholds, a colour of the user's own.
void fill(DisplayPreferences& preferences) {
    preferences.alertCPUEnabled = preferences.alertTempEnabled = preferences.alertFanEnabled = true;
    preferences.hogDetectorEnabled = true;
    preferences.colorECore = "#D6326B";
    preferences.graphsDisk = true;
}

std::unique_ptr<QWidget> page(PictureStage& stage, int width) {
    stage.change(fill);
    auto ground = std::make_unique<Surface>();
    auto* column = std::make_unique<QVBoxLayout>(ground.get()).release();
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(std::make_unique<SettingsTab>(stage.coordinator()).release());
    ground->resize(width, column->totalHeightForWidth(width));
    return ground;
}

}  // namespace

std::unique_ptr<QWidget> narrow(PictureStage& stage) { return page(stage, metrics::popoverWidth); }
std::unique_ptr<QWidget> wide(PictureStage& stage) { return page(stage, wideWidth); }

}  // namespace vtx::settingsPictures
