// SPDX-License-Identifier: MIT
#include "app/linux/PortalAppearanceSource.h"

namespace vtx {

PortalAppearanceSource::PortalAppearanceSource(DesktopAppearance& desktop) : desktop_(desktop) {
    const auto tell = [this] {
        if (changed) changed();
    };
    palette_.changed = tell;
    change_ = desktop_.changed.subscribe(tell);
}

Appearance PortalAppearanceSource::appearance() const {
    const auto preferred = desktop_.preference();
    if (!preferred) return palette_.appearance();
    return *preferred == DesktopAppearance::Preference::dark ? Appearance::dark : Appearance::light;
}

}  // namespace vtx
