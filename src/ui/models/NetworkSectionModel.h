// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "telemetry/NetworkReading.h"
#include "ui/models/SectionParts.h"

namespace vtx {

class Localization;

/// The interface that the machine mainly uses.
struct PrimaryInterfaceModel {
    std::string symbol;
    std::string title;
    std::string name;
    std::vector<KeyValueModel> addresses;

    friend bool operator==(const PrimaryInterfaceModel&, const PrimaryInterfaceModel&) = default;
};

/// One interface of the list. The colour is that of the state's word.
struct InterfaceRowModel {
    std::string symbol;
    std::string name;
    std::string kind;
    std::string state;
    Hue hue = Hue::secondary;
    bool isActive = false;

    friend bool operator==(const InterfaceRowModel&, const InterfaceRowModel&) = default;
};

/// All that the page of the network says.
struct NetworkSectionModel {
    /// Not empty before the first reading; then it stands alone.
    std::string collecting;
    std::optional<PlaceholderModel> placeholder;  ///< alone where it is there

    std::string title;
    std::vector<FigureModel> throughput;  ///< down, then up
    std::optional<PrimaryInterfaceModel> primary;
    std::string interfacesTitle;
    /// Not empty where no interface is active.
    std::string noneActive;
    std::vector<InterfaceRowModel> interfaces;

    friend bool operator==(const NetworkSectionModel&, const NetworkSectionModel&) = default;
};

[[nodiscard]] NetworkSectionModel describeNetworkSection(
    const std::optional<NetworkReading>& reading, const Localization& texts);

}  // namespace vtx
