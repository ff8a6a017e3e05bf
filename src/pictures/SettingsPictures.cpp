// SPDX-License-Identifier: MIT
#include "pictures/SettingsPictures.h"

#include <QVBoxLayout>

#include "core/UpdaterService.h"
#include "language/Localization.h"
#include "pictures/PictureStage.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Surface.h"
#include "ui/models/UpdateNotice.h"
#include "ui/surfaces/AlertPanel.h"
#include "ui/surfaces/QtText.h"
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

std::unique_ptr<QWidget> page(PictureStage& stage, int width, bool isLooking = false) {
    stage.change(fill);
    UpdaterService::shared().isChecking = isLooking;
    auto ground = std::make_unique<Surface>();
    auto* column = std::make_unique<QVBoxLayout>(ground.get()).release();
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(std::make_unique<SettingsTab>(stage.coordinator()).release());
    ground->resize(width, column->totalHeightForWidth(width));
    return ground;
}

}  // namespace

std::unique_ptr<QWidget> looking(PictureStage& stage) {
    return page(stage, metrics::popoverWidth, true);
}

std::unique_ptr<QWidget> found(PictureStage&) {
    const DialogModel told =
        describeUpdate({.kind = UpdateAnswer::Kind::available, .version = "1.1.0-1"});
    return std::make_unique<AlertPanel>(qt(told.title), qt(told.message), nullptr, qt(told.symbol));
}

std::unique_ptr<QWidget> failed(PictureStage&) {
    const auto title = Localization::shared().string(L10n::Key::settings_launchAtLoginError);
    return std::make_unique<AlertPanel>(
        qt(title), "/home/ada/.config/autostart/vantrix.desktop: Permission denied", nullptr);
}

std::unique_ptr<QWidget> narrow(PictureStage& stage) { return page(stage, metrics::popoverWidth); }
std::unique_ptr<QWidget> wide(PictureStage& stage) { return page(stage, wideWidth); }

}  // namespace vtx::settingsPictures
