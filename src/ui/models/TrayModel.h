// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "ui/models/StripModel.h"

namespace vtx {

/// What the icon in the desktop's tray says: the critical metric, in the room of a square.
struct TrayModel {
    std::string symbol;
    std::string figure;   ///< without the percent sign, for which the square has no room
    std::string summary;  ///< the spoken text, and the tooltip's

    friend bool operator==(const TrayModel&, const TrayModel&) = default;
};

/// The tile that compact mode would show, shown whether or not the strip has it.
TrayModel describeTray(const StripReadings& readings, const DisplayPreferences& preferences);

}  // namespace vtx
