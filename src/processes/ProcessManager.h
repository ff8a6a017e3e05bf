// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <stop_token>
#include <string_view>
#include <variant>
#include <vector>

#include "base/Confined.h"
#include "base/Published.h"
#include "base/Subscription.h"
#include "base/TaskScope.h"
#include "processes/ProcessManagerError.h"
#include "processes/ProcessOrder.h"
#include "processes/ProcessSamplingEngine.h"

namespace vtx {

struct Executors;
struct Ports;

/// Publishes the processes of the machine, sorted, and lowers the priority of one on request. Lives
/// on the main executor; made once at start and owned by the coordinator for the life of the
/// process.
class ProcessManager : public ObservableObject {
public:
    using ReniceResult = std::variant<ProcessSnapshot, ProcessManagerError>;

    /// The ports and executors must outlive the manager.
    ProcessManager(const Ports& ports, const Executors& executors);

    /// Takes a sample and publishes it. Never fails: a sample that cannot be had is an empty one.
    /// Refreshes may overlap.
    Task<> refresh();

    /// Refreshes at once and then two seconds after each end, for as long as the token lives.
    [[nodiscard]] Subscription keepFresh();
    /// Begins a refresh that nobody waits for.
    void startRefresh();

    /// How long ago the latest sample was published, in seconds; absent before the first.
    [[nodiscard]] std::optional<double> secondsSinceRefresh() const;
    /// Those of the latest sample whose name holds the text, without regard to case, or whose
    /// number in decimal does; all where the text is blank.
    [[nodiscard]] std::vector<ProcessSnapshot> matching(std::string_view search) const;

    /// Nobody asks for the processes for now: what is kept for the next sample alone is given back,
    /// once. What was published stays.
    Task<> rest();

    /// Gives a process a niceness from 0 to 20. The record as it then stands, also in the published
    /// list if it is still there; or why nothing was changed.
    [[nodiscard]] ReniceResult renice(const ProcessSnapshot& snapshot, std::int32_t nice);

    /// Whether `renice` would try.
    [[nodiscard]] bool isModifiable(const ProcessSnapshot& snapshot) const;
    /// Whether it is the user's own and not the system's.
    [[nodiscard]] bool isOwnSoftware(const ProcessSnapshot& snapshot) const;

    /// The latest sample.
    Published<std::vector<ProcessSnapshot>> processes{*this};
    /// Whether a refresh is under way.
    Published<bool> isLoading{*this, false};
    /// When the latest sample was published; absent before the first.
    Published<std::optional<Date>> lastRefresh{*this};

private:
    Task<> follow(std::stop_token stop);

    ProcessTable& table_;
    Clock& clock_;
    const Locale& locale_;
    ProcessOrder order_;
    Confined<ProcessSamplingEngine> engine_;
    bool isResting_ = true;  ///< as it does until the first refresh
    TaskScope tasks_;        // last: its frames use all of the above
};

}  // namespace vtx
