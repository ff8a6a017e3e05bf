// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Interruption.h"
#include "Options.h"
#include "Subject.h"
#include "SurfaceDriver.h"
#include "UnevenLoad.h"
#include "comparison/Comparison.h"
#include "comparison/OtherMonitors.h"
#include "comparison/Sections.h"

namespace vtx::bench {

/// Measures the resident program in each of its states, the floors beside it, and then other
/// monitors, each by itself; all at the present processes and with sleeping ones more, round after
/// round, so that what changes on the machine meanwhile changes for all.
class Comparer {
public:
    /// To be made before any thread.
    explicit Comparer(Options options);

    /// Throws `std::runtime_error` when a program of ours ends by itself, or when a signal asks for
    /// an end. Once only.
    [[nodiscard]] Comparison measure();

private:
    using Subjects = std::vector<std::reference_wrapper<Subject>>;

    void chooseSensors();
    void chooseMonitors();
    void measureRound(Crowd crowd);
    void measureStarts(Crowd crowd);
    void measureResident(Crowd crowd);
    /// Closed, on a recorded machine's sensors.
    void measureEverySensor(Crowd crowd);
    void settle() const;
    /// The first sample, with what its memory was above the second's.
    void keepAboveBare(std::string_view name, Crowd crowd, const std::vector<Sample>& samples);
    /// False where a surface did not open or close: the rest of the round goes on without it.
    [[nodiscard]] bool useEverySurface(SurfaceDriver& driver);
    void measureOther(const OtherMonitor& monitor, Crowd crowd);
    /// One sample each, in their order.
    [[nodiscard]] std::vector<Sample> samplesOf(const Subjects& subjects);
    [[nodiscard]] Subject start(const char* program) const;

    const Options options_;
    const Interruption interruption_;
    const std::filesystem::path programs_;
    const Sections sections_ = sectionsOfAFirstStart();
    const UnevenLoad load_;
    bool showsSensors_ = false;
    std::vector<OtherMonitor> monitors_;
    Comparison found_;
};

}  // namespace vtx::bench
