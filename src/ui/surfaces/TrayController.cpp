// SPDX-License-Identifier: MIT
#include "ui/surfaces/TrayController.h"

#include <utility>

#include "base/Clock.h"
#include "core/MetricsCoordinator.h"
#include "ui/kit/Theme.h"
#include "ui/surfaces/QtText.h"
#include "ui/surfaces/StripSource.h"
#include "ui/surfaces/TrayPicture.h"

namespace vtx {
namespace {

// A tray redraws its whole panel for each picture, and some wake several processes for it.
constexpr Duration betweenPictures = std::chrono::seconds(5);
// The words follow every picture; without one they may be this old.
constexpr Duration betweenWords = std::chrono::seconds(30);

bool looksLike(const TrayModel& one, const TrayModel& other) {
    return one.symbol == other.symbol && one.figure == other.figure;
}

}  // namespace

TrayController::TrayController(TrayHost& host, MetricsCoordinator& coordinator, const Clock& clock)
    : host_(host), coordinator_(coordinator), clock_(clock) {
    host_.onHostedChange = [this] { hostChanged(); };
    host_.onClick = [this](StatusItemClick click, QPoint at) {
        if (onClick) onClick(click, at);
    };
    theme_ = QObject::connect(&Theme::current(), &Theme::changed, [this] {
        if (sent_) send(*std::exchange(sent_, std::nullopt));
    });
    hostChanged();
}

TrayController::~TrayController() {
    QObject::disconnect(theme_);
    host_.onHostedChange = nullptr;
    host_.onClick = nullptr;
}

void TrayController::hostChanged() {
    readings_.clear();
    sent_.reset();
    if (host_.isHosted())
        readings_ = followStripReadings(coordinator_, [this] { readingsChanged(); });
}

void TrayController::readingsChanged() {
    const Duration age = clock_.continuous() - sentAt_;
    if (sent_ && age < betweenPictures) return;
    TrayModel model = describeTray(stripReadingsOf(coordinator_), *coordinator_.preferences);
    if (!sent_ || !looksLike(*sent_, model)) return send(std::move(model));
    if (age < betweenWords || sent_->summary == model.summary) return;
    host_.setToolTip(qt(model.summary));
    sent_ = std::move(model);
    sentAt_ = clock_.continuous();
}

void TrayController::send(TrayModel model) {
    host_.setPictures(trayPictures(model, Theme::current().appearance()));
    host_.setToolTip(qt(model.summary));
    sent_ = std::move(model);
    sentAt_ = clock_.continuous();
}

}  // namespace vtx
