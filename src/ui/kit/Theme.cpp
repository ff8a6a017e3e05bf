// SPDX-License-Identifier: MIT
#include "ui/kit/Theme.h"

#include <optional>

#include "ui/kit/PaletteAppearanceSource.h"

namespace vtx {

namespace {

std::optional<Appearance> forcedAppearance() {
    const QByteArray value = qgetenv("VANTRIX_APPEARANCE");
    if (value == "light") return Appearance::light;
    if (value == "dark") return Appearance::dark;
    return std::nullopt;
}

}  // namespace

Theme::Theme() { follow(std::make_unique<PaletteAppearanceSource>()); }

Theme::~Theme() = default;

Theme& Theme::current() {
    static Theme theme;
    return theme;
}

void Theme::follow(std::unique_ptr<AppearanceSource> source) {
    source_ = std::move(source);
    source_->changed = [this] { refresh(); };
    refresh();
}

void Theme::refresh() {
    const Appearance next = forcedAppearance().value_or(source_->appearance());
    if (next == appearance_) return;
    appearance_ = next;
    Q_EMIT changed();
}

}  // namespace vtx
