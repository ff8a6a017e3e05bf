// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopAppearance.h"

namespace vtx {
namespace {

const BusObject settings{"org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                         "org.freedesktop.portal.Settings"};
constexpr auto scope = "org.freedesktop.appearance";
constexpr auto name = "color-scheme";
// What the portal answers; 0 and all else are no preference.
constexpr std::uint32_t dark = 1;
constexpr std::uint32_t light = 2;

}  // namespace

DesktopAppearance::DesktopAppearance(SystemBus& session) : session_(session) {
    watches_.push_back(session_.onSignal(settings, "SettingChanged", [this](BusMessage& change) {
        if (change.text() == scope) ask();
    }));
    watches_.push_back(session_.onOwnerChanged(settings.service, [this](BusMessage&) { ask(); }));
    ask();
}

void DesktopAppearance::ask() {
    question_ = session_.call(settings, "Read", {scope, name},
                              [this](BusMessage& answer) { take(answer.variantUnsigned()); });
}

void DesktopAppearance::take(std::optional<std::uint32_t> scheme) {
    std::optional<Preference> now;
    if (scheme == dark) now = Preference::dark;
    if (scheme == light) now = Preference::light;
    if (now == preference_) return;
    preference_ = now;
    changed.emit();
}

}  // namespace vtx
