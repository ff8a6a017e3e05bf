// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "core/DisplayPreferences.h"
#include "ui/models/ChartTints.h"
#include "ui/models/SettingsModel.h"

/// What each control of the settings does: the preferences as they are after it. An act on what is
/// not there leaves them as they were.
namespace vtx::settings {

enum class TileMove { up, down };

/// `id` is that of a row whose switch is bound to a preference, or of a tile.
[[nodiscard]] DisplayPreferences toggled(DisplayPreferences preferences, std::string_view id,
                                         bool on);
/// `value` is the slider's own.
[[nodiscard]] DisplayPreferences slid(DisplayPreferences preferences, SliderField field,
                                      double value);
/// `id` is that of a row with choices.
[[nodiscard]] DisplayPreferences chosen(DisplayPreferences preferences, std::string_view id,
                                        int choice);
[[nodiscard]] DisplayPreferences recolored(DisplayPreferences preferences, std::string_view id,
                                           std::string hex);

/// The dragged tile takes the place of the one it came over; those between shift by one.
[[nodiscard]] DisplayPreferences tileEntered(DisplayPreferences preferences,
                                             std::string_view dragged,
                                             std::string_view destination);
/// The tile changes places with its neighbour.
[[nodiscard]] DisplayPreferences tileMoved(DisplayPreferences preferences, std::string_view tile,
                                           TileMove move);

/// A colour as it is stored, such as "#1D63C9". Components in sRGB, 0 to 1.
[[nodiscard]] std::string encodeHex(double red, double green, double blue);

/// The text of a colour row as it is stored; empty for an unknown row.
[[nodiscard]] std::string colorText(const DisplayPreferences& preferences, std::string_view id);

}  // namespace vtx::settings
