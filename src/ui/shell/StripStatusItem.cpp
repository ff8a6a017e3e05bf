// SPDX-License-Identifier: MIT
#include "ui/shell/StripStatusItem.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/UserDefaults.h"
#include "ui/kit/Metrics.h"
#include "ui/shell/ScreenList.h"
#include "ui/shell/ShellShape.h"
#include "ui/shell/StripRecordCodec.h"
#include "ui/shell/StripSurface.h"
#include "ui/shell/WindowSystem.h"

namespace vtx {

namespace {

std::optional<StripRecord> stored(const UserDefaults& defaults) {
    const auto data = defaults.data(StripRecordCodec::key);
    return data ? StripRecordCodec::decode(*data) : std::nullopt;
}

}  // namespace

StripStatusItem::StripStatusItem(WindowSystem& system, UserDefaults& defaults)
    : system_(system),
      defaults_(defaults),
      surface_(new StripSurface(&window_)),
      size_(metrics::stripHeight, metrics::stripHeight) {
    window_.setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint);
    window_.setAttribute(Qt::WA_TranslucentBackground);
    window_.setAttribute(Qt::WA_ShowWithoutActivating);
    window_.setAttribute(Qt::WA_QuitOnClose, false);
    window_.setFocusProxy(surface_);
    surface_->onClick = [this](StatusItemClick click, QPoint at) {
        if (onClick) onClick(click, at);
    };
    surface_->onPress = [this] {
        if (onPress) onPress();
    };
    surface_->onRelease = [this] {
        if (onRelease) onRelease();
    };
    surface_->onDrag = [this](QPoint moved) { drag(moved); };
    surface_->onDrop = [this](QPoint pointer) { drop(pointer); };

    lookAtScreens();
    record_ = stored(defaults_).value_or(StripPlacement::initial(screens_));
    followScreens();
}

StripStatusItem::~StripStatusItem() = default;

double StripStatusItem::thickness() const { return metrics::stripHeight; }

void StripStatusItem::setLength(double length) {
    const QSize size(std::max(1, static_cast<int>(std::ceil(length))), metrics::stripHeight);
    if (std::exchange(size_, size) == size || seized_) return;
    replace();
}

void StripStatusItem::setContent(QWidget* content) { surface_->setContent(content); }

void StripStatusItem::setHighlighted(bool highlighted) { surface_->setHighlighted(highlighted); }

void StripStatusItem::setTitle(const QString& title) { window_.setWindowTitle(title); }

void StripStatusItem::setAccessibleText(const QString& name, const QString& description) {
    surface_->setAccessibleName(name);
    surface_->setAccessibleDescription(description);
}

void StripStatusItem::show() {
    window_.winId();
    system_.makeStrip(window_);
    replace();
    window_.show();
    surface_->setFocus(Qt::OtherFocusReason);
    system_.stripShown(window_);
}

void StripStatusItem::followScreens() {
    const auto follow = [this](QScreen* screen) {
        const auto changed = [this] { screensChanged(); };
        QObject::connect(screen, &QScreen::geometryChanged, &connections_, changed);
        QObject::connect(screen, &QScreen::availableGeometryChanged, &connections_, changed);
        QObject::connect(screen, &QScreen::logicalDotsPerInchChanged, &connections_, changed);
    };
    for (QScreen* screen : QGuiApplication::screens()) follow(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &connections_,
                     [this, follow](QScreen* screen) {
                         follow(screen);
                         screensChanged();
                     });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &connections_,
                     [this] { screensChanged(); });
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &connections_,
                     [this] { screensChanged(); });
}

void StripStatusItem::screensChanged() {
    if (std::exchange(replacePending_, true)) return;
    const auto later = [this] {
        replacePending_ = false;
        lookAtScreens();
        if (!seized_) replace();
    };
    QMetaObject::invokeMethod(&connections_, later, Qt::QueuedConnection);
}

void StripStatusItem::lookAtScreens() {
    StripPlacement::Screens screens;
    for (const QScreen* screen : screenList::ordered())
        screens.push_back({screen->name(), screen->geometry(), screen->devicePixelRatio(), {}});
    if (screens.empty()) screens.push_back({{}, QRect(0, 0, 1280, 800), 1, {}});

    const auto others = system_.reservations(window_);
    for (auto& screen : screens) {
        screen.panels = StripPlacement::panels(screen, others, screens);
        screen.panels = screen.panels | keptByDesktop(screen);
    }
    screens_ = std::move(screens);
}

QMargins StripStatusItem::keptByDesktop(const ShellScreen& screen) {
    const auto known = std::ranges::find(kept_, screen.name, &Kept::screen);
    if (known != kept_.end()) return known->margins;
    for (const QScreen* one : QGuiApplication::screens()) {
        if (one->name() != screen.name) continue;
        const QMargins all = screenList::marginsOf(*one), panels = screen.panels;
        const auto unexplained = [](int side, int panel) { return side > panel ? side : 0; };
        kept_.push_back(
            {screen.name,
             {unexplained(all.left(), panels.left()), unexplained(all.top(), panels.top()),
              unexplained(all.right(), panels.right()),
              unexplained(all.bottom(), panels.bottom())}});
        return kept_.back().margins;
    }
    return {};
}

void StripStatusItem::replace() { apply(StripPlacement::place(record_, size_, screens_)); }

void StripStatusItem::apply(const StripPlace& place) {
    const bool moved = place.frame != place_.frame;
    place_ = place;
    window_.setGeometry(place.frame);
    surface_->setGeometry(QRect(QPoint(), place.frame.size()));
    surface_->setTouching(place.touching);
    ShellShape::cut(window_, surface_->shape(), system_);
    const bool reserves = window_.internalWinId() != 0 && !seized_;
    const auto strut = reserves ? StripPlacement::strut(place, screens_) : std::nullopt;
    if (std::exchange(reserved_, strut) != strut) system_.reserve(window_, strut);
    if (moved && onMove) onMove();
}

void StripStatusItem::drag(QPoint moved) {
    if (!seized_) {
        lookAtScreens();
        seized_ = place_.frame;
    }
    apply(StripPlacement::dragged(seized_->translated(moved), screens_));
}

void StripStatusItem::drop(QPoint pointer) {
    seized_.reset();
    record_ = StripPlacement::drop(place_.frame, pointer, screens_);
    defaults_.setData(StripRecordCodec::key, StripRecordCodec::encode(record_));
    replace();
}

}  // namespace vtx
