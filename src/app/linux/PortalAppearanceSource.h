// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/DesktopAppearance.h"
#include "ui/kit/PaletteAppearanceSource.h"

namespace vtx {

/// Light or dark as the desktop's settings portal says, or, where it says nothing, as the palette
/// looks. Main thread.
class PortalAppearanceSource final : public AppearanceSource {
public:
    /// The desktop must outlive the source.
    explicit PortalAppearanceSource(DesktopAppearance& desktop);

    [[nodiscard]] Appearance appearance() const override;

private:
    DesktopAppearance& desktop_;
    PaletteAppearanceSource palette_;
    Subscription change_;
};

}  // namespace vtx
