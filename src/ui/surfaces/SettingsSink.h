// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "ui/models/SettingsActs.h"
#include "ui/models/SettingsModel.h"

namespace vtx {

/// What the rows of the settings tell of the user. Implemented by the page, which outlives them.
class SettingsSink {
public:
    SettingsSink() = default;
    SettingsSink(const SettingsSink&) = delete;
    SettingsSink& operator=(const SettingsSink&) = delete;
    virtual ~SettingsSink() = default;

    virtual void toggle(std::string_view id, bool on) = 0;
    virtual void slide(SliderField field, double value) = 0;
    virtual void choose(std::string_view id, int choice) = 0;
    virtual void recolor(std::string_view id, std::string hex) = 0;
    [[nodiscard]] virtual std::string colorText(std::string_view id) const = 0;
    virtual void enterTile(std::string_view dragged, std::string_view destination) = 0;
    virtual void moveTile(std::string_view tile, settings::TileMove move) = 0;
    virtual void press(std::string_view id) = 0;
};

}  // namespace vtx
