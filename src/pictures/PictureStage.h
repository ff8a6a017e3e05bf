// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "core/MetricsCoordinator.h"
#include "language/Language.h"

namespace vtx {

struct MacShape;

/// Figures of a machine that does not exist, for pictures; what is absent was not read yet.
struct SampleReadings {
    std::optional<double> cpu{};  ///< fraction, as the next one
    std::optional<double> gpu{};
    std::optional<double> cpuCelsius{};
    ThermalStats::Level thermal = ThermalStats::Level::nominal;
    std::optional<double> memory{};    ///< fraction that is used
    std::optional<double> diskRead{};  ///< bytes a second, as the next one
    std::optional<double> diskWritten{};
    std::optional<int> fanRPM{};
};

/// What a surface needs to be shown without the program: a simulated machine whose time stands
/// until it is moved, a coordinator that makes no pass by itself, and the process's shared objects,
/// in the language that is wanted. One at a time, on the main thread, for one state.
class PictureStage {
public:
    explicit PictureStage(Language language);
    ~PictureStage();
    PictureStage(const PictureStage&) = delete;
    PictureStage& operator=(const PictureStage&) = delete;

    [[nodiscard]] MetricsCoordinator& coordinator();

    /// Begins anew on another machine; what was got from the stage before is gone.
    void moveTo(const MacShape& shape);
    /// Changes preferences as the user would.
    void change(const std::function<void(DisplayPreferences&)>& edit);
    /// Puts these readings in the place of the machine's own.
    void publish(const SampleReadings& readings);
    /// Lets the machine live for that long under open surfaces: every reading and history comes
    /// from it then, at the pace of the preferences.
    void run(Duration span);

private:
    struct Machine;

    const Language language_;
    std::unique_ptr<Machine> machine_;
};

}  // namespace vtx
